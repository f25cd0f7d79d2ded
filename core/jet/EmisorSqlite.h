#pragma once
// Writes a resolved statement as SQLite with the same meaning: every name quoted as the schema spells
// it, every source under an alias of its own, text compared through the engine's collation, LIKE and the
// dialect's functions through their SQLite counterparts, and every value written to a field converted to
// the field's type on the way in.
#include "core/jet/Ast.h"
#include "core/jet/Catalogo.h"

namespace jet {

struct Emision {
    QString sql;
    std::vector<ColumnaSalida> columnas;   // a query's output columns
    // A query over one table without grouping, DISTINCT or union can be written back: its rows carry
    // the row id as a hidden last column.
    bool actualizable = false;
    QString tablaBase;
    QString sqlPorFila;    // the same columns of one row, by its row id (?1)
};

// Money is written in SQLite as a whole count of ten-thousandths: every expression the resolver types as
// Currency is written in that form, added and compared as integers, and turned into a Double (raw / 10000)
// only where the dialect's types say its value becomes one.
class EmisorSqlite {
public:
    EmisorSqlite() = default;
    // `monedaAntigua`: schemas of files that still keep money as decimals; their money columns are read
    // into ten-thousandths as they are named.
    explicit EmisorSqlite(QStringList monedaAntigua) : monedaAntigua_(std::move(monedaAntigua)) {}

    // `conRowid`: add the hidden row id to a query that can be written back.
    Emision emite(const Sentencia& s, const TablaDef* destino, bool conRowid = false,
                  const QString& esquemaDestino = QStringLiteral("main"));
    QString expresion(const Expr& e);       // a bare expression (criteria); host values as ?1, ?2 ...

private:
    QString select(const Select& s, bool conRowid = false, Emision* salida = nullptr,
                   const std::vector<ColumnaSalida>* tipos = nullptr);
    QString nucleo(const Select& s, bool conRowid, Emision* salida, const std::vector<ColumnaSalida>* tipos = nullptr);
    QString fuente(const FuenteFrom& f);
    QString expr(const Expr& e);
    QString comoTexto(const Expr& e);
    QString comoNumero(const Expr& e);                  // a number; money as a Double
    QString crudo(const Expr& e);                       // money in ten-thousandths
    QString enTipo(const Expr& e, TipoCampo tipo);      // the value in the form of `tipo`
    QString aCampo(const Expr& e, const CampoDef& campo);
    QString paraCampo(const QString& valor, TipoCampo origen, const CampoDef& campo);
    QString binario(const Expr& e);
    QString cadena(const Expr& e);
    QString funcion(const Expr& e);
    QString conversion(const QString& valor, const CampoDef& campo);
    QString nombreTabla(const FuenteFrom& f);
    int profundidad_ = 0;
    QStringList monedaAntigua_;
};

}  // namespace jet
