#pragma once
// The routine schema steps run at each start: the columns that later versions added to the suite's
// tables and the module's own tables of money, each step done only where the database lacks it.
#include <QString>

namespace ActualizaBDsAdq {

// Runs the eleven steps in their fixed order and returns the report: one line per step that did its
// work (empty), did not find its table ("02 ...") or failed ("03 ..."); steps with nothing to do ("01 ...")
// leave no line.
QString ActualizaBDs();

// True if the database has the table; the definitions are refreshed first and names compared upper-cased.
bool ExisteTabla(const QString& tabla);

// True if the table has the column, compared upper-cased. The table must exist.
bool ExisteCampo(const QString& tabla, const QString& campo);

}  // namespace ActualizaBDsAdq
