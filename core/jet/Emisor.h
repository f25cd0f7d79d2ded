#pragma once
// Writes a resolved statement as SQL with the same meaning, for one of the engines that keep the rows:
// every name quoted as the schema spells it, every source under an alias of its own, text compared through
// the engine's collation, LIKE and the dialect's functions through their counterparts, and every value
// written to a field converted to the field's type on the way in. What the engines share lives here; each
// target overrides only the pieces it writes differently.
#include "core/jet/Ast.h"
#include "core/jet/Catalogo.h"

#include <optional>

namespace jet {

struct Emision {
    QString sql;
    std::vector<ColumnaSalida> columnas;   // a query's output columns
    // A query over one table without grouping, DISTINCT or union can be written back: its rows carry
    // the row id as a hidden last column.
    bool actualizable = false;
    QString tablaBase;
    QString sqlPorFila;    // the same columns of one row, by its row id (the first host value)
};

// Money is written as a whole count of ten-thousandths: every expression the resolver types as Currency
// is written in that form, added and compared as whole numbers, and turned into a Double (raw / 10000)
// only where the dialect's types say its value becomes one.
class Emisor {
public:
    virtual ~Emisor() = default;
    Emisor(const Emisor&) = delete;
    Emisor& operator=(const Emisor&) = delete;

    // `conRowid`: add the hidden row id to a query that can be written back.
    Emision emite(const Sentencia& s, const TablaDef* destino, bool conRowid = false,
                  const QString& esquemaDestino = QStringLiteral("main"));
    QString expresion(const Expr& e);       // a bare expression (criteria)

protected:
    Emisor() = default;

    QString select(const Select& s, bool conRowid = false, Emision* salida = nullptr,
                   const std::vector<ColumnaSalida>* tipos = nullptr);
    QString nucleo(const Select& s, bool conRowid, Emision* salida, const std::vector<ColumnaSalida>* tipos = nullptr);
    QString fuente(const FuenteFrom& f);
    QString cadena(const Expr& e);
    QString nombreTabla(const FuenteFrom& f);
    QString aCampo(const Expr& e, const CampoDef& campo);
    QString nodo(const Expr& e);            // the expression as the shared rules write it

    // What the targets write differently.
    virtual QString expr(const Expr& e) { return nodo(e); }
    // An expression used as a condition (WHERE, ON, HAVING, a branch of IIf, an operand of AND/OR/NOT).
    virtual QString condicion(const Expr& e) { return expr(e); }
    virtual QString literal(const vb::Variant& v);
    virtual QString columna(const Expr& e);           // a column of a base table
    virtual QString parametro(const Expr& e);         // a host value
    virtual QString filaPorId() const { return QStringLiteral("?1"); }   // the row id a row is read by
    virtual qsizetype columnasMaximas() const { return 2000; }            // the most columns a query may have
    virtual QString comoTexto(const Expr& e);
    virtual QString comoNumero(const Expr& e);        // a number; money as a Double
    virtual QString crudo(const Expr& e);             // money in ten-thousandths
    virtual QString enTipo(const Expr& e, TipoCampo tipo);   // the value in the form of `tipo`
    virtual QString paraCampo(const QString& valor, TipoCampo origen, const CampoDef& campo);
    virtual QString conversion(const QString& valor, const CampoDef& campo);
    virtual QString binario(const Expr& e);
    virtual QString funcion(const Expr& e);
    virtual QString like(const Expr& e);
    virtual QStringView funcionConcatenacion() const { return u"jet_cat"; }   // texts joined, Null as empty
    // A subquery in FROM that the statement never names.
    virtual QString aliasAnonimo() const { return {}; }
    // The collation marks of a GROUP BY term and of an ORDER BY that names an output column by number.
    virtual QString colacionGrupo() const;
    virtual QString colacionPosicion() const;
    // TOP n of a sorted query, keeping the rows tied with the last one; empty when the shared form serves.
    // The direction of a sort key, Null counted below every value.
    virtual QString sentido(bool descendente) const { return descendente ? QStringLiteral(" DESC") : QString(); }
    // What settles the order of rows a sort leaves tied, or of an unsorted query: empty where the engine's
    // own scan already gives them in the order they were written.
    virtual QString desempate(const Select&) const { return {}; }
    virtual QString conEmpates(const Select&, const QString& /*select sin TOP*/) { return {}; }

    int profundidad_ = 0;
};

// Pieces the targets share with the base.
namespace detalle {
QString Une(std::initializer_list<QStringView> partes);
QString LiteralComun(const vb::Variant& v);
bool EsEntero(TipoCampo t);
bool EsNulo(const Expr& e);
// A literal number, signs included, as money in ten-thousandths (`exacto`: only when it is that amount).
std::optional<qint64> CrudoLiteral(const Expr& e, bool exacto);
QString TextoCrudo(qint64 v);
}  // namespace detalle

}  // namespace jet
