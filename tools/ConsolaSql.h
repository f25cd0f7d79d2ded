#pragma once
// Runs statements of the dialect for the utility: a query prints a header of column names and one line
// per row, tab-separated, Null as NULL, dates as yyyy-mm-dd hh:mm:ss, numbers as plain decimals; an error
// prints "Error <número>: <descripción>" on the error stream.
#include <QString>
#include <QTextStream>

namespace dao { class Database; }
namespace vb { class Variant; }

namespace consola {

// True if the statement ran.
bool EjecutaSentencia(dao::Database& db, const QString& sentencia, QTextStream& salida, QTextStream& errores);

// The text of a value as the utility prints it.
QString TextoValor(const vb::Variant& v);

}  // namespace consola
