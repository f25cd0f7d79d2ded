#pragma once
// PROVISIONAL stand-in until the server library lands.
#include <QString>
namespace jet {
inline const QString& ScriptFuncionesPostgres() { static const QString s; return s; }
inline int VersionFuncionesPostgres() { return 0; }
}
