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

class EmisorSqlite {
public:
    // `conRowid`: add the hidden row id to a query that can be written back.
    Emision emite(const Sentencia& s, const TablaDef* destino, bool conRowid = false,
                  const QString& esquemaDestino = QStringLiteral("main"));
    QString expresion(const Expr& e);       // a bare expression (criteria); host values as ?1, ?2 ...

private:
    QString select(const Select& s, bool conRowid = false, Emision* salida = nullptr);
    QString nucleo(const Select& s, bool conRowid, Emision* salida);
    QString fuente(const FuenteFrom& f);
    QString expr(const Expr& e);
    QString comoTexto(const Expr& e);
    QString comoNumero(const Expr& e);
    QString binario(const Expr& e);
    QString cadena(const Expr& e);
    QString funcion(const Expr& e);
    QString conversion(const QString& valor, const CampoDef& campo);
    QString nombreTabla(const FuenteFrom& f);
    int profundidad_ = 0;
};

}  // namespace jet
