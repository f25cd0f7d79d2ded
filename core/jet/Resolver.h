#pragma once
// The resolver binds every table and column name of a statement to the schema (case-blind), expands the
// select-list stars, works out the type of every expression and the description of every output column,
// and refuses what the engine refuses: a missing table (3078), names it can't bind (3061, counted as the
// engine counts parameters), functions it doesn't know (3085), comparisons of text with numbers (3464).
#include "core/jet/Ast.h"
#include "core/jet/Catalogo.h"

#include <QSet>

#include <functional>

namespace jet {

// Where each column of a resolved INSERT's query goes when the statement lists no fields: the target field of
// the same name, or nothing for a column a * brings that the target lacks. 3127 when a column can go nowhere.
QStringList CamposDeInsercion(const Select& sel, const TablaDef& destino);

class Resolver {
public:
    // `adjunta` makes a second database file reachable (INSERT INTO t IN '<file>') and returns the name
    // under which its tables are found.
    Resolver(Catalogo& catalogo, std::function<QString(const QString&)> adjunta = {})
        : catalogo_(catalogo), adjunta_(std::move(adjunta)) {}

    void resuelve(Sentencia& s);

    // A criterion over the columns of an open recordset: each column name becomes host value number i.
    void resuelveCriterio(Expr& e, const std::vector<ColumnaSalida>& columnas);

    // The table an INSERT, UPDATE or DELETE writes, once resolved.
    const TablaDef* tablaDestino() const { return destino_; }
    QString esquemaDestino() const { return esquemaDestino_; }

private:
    struct Ambito;
    Catalogo& catalogo_;
    std::function<QString(const QString&)> adjunta_;
    QStringList faltantes_;
    QSet<QString> faltantesVistos_;
    int contadorAlias_ = 0;
    int profundidad_ = 0;
    const TablaDef* destino_ = nullptr;
    QString esquemaDestino_ = QStringLiteral("main");

    void select(Select& s, Ambito* padre);
    void nucleo(Select& s, Ambito* padre);
    void fuente(FuenteFrom& f, Ambito& a, Ambito* padreDerivadas);
    void expr(Expr& e, Ambito& a);
    void columna(Expr& e, Ambito& a);
    void funcion(Expr& e, Ambito& a);
    void cadena(Expr& e);
    void compruebaComparacion(Expr& a, Expr& b);
    void expande(Select& s, Ambito& a);
    void salidaDe(Select& s);
    void finaliza();
    QString esquemaDe(const QString& baseExterna);
};

// The common type of two branches (IIf, UNION columns): the wider number, else text.
TipoCampo Unifica(TipoCampo a, TipoCampo b);

// Whether the function name (upper case) is an aggregate.
bool EsAgregado(const QString& nombreMayusculas);

}  // namespace jet
