#pragma once
// What a PostgreSQL database needs to give the dialect its meaning: the text collation `jettext`
// (case-blind in every alphabet, accents kept, ñ after n), the dialect's functions as the generator for
// PostgreSQL calls them (`jet_*`), the write-time conversion of a value to its field's type, and the
// trigger that keeps AutoNumber counters past the values written by hand.
//
// The script is idempotent: it can run on a new database and again on one whose library is older
// (`jet_version()` returns the version it installed). Failures inside a function raise
// "JET:<number>:<description>", as the file engine's functions do.
#include <QString>

namespace jet {

const QString& ScriptFuncionesPostgres();
int VersionFuncionesPostgres();

}  // namespace jet
