#pragma once
// A file that is made is made in a temporary file beside its target and moved into place at the end, so
// that an interruption never leaves a half-made file at the target's path; an existing target is never
// replaced. adq-util's commands and the migration of legacy files share these.
#include <QString>
#include <functional>

namespace dao {
class Database;
}

namespace archivos {

// A name beside the target for the file being made: hidden, with this process's number.
QString TemporalJunto(const QString& destino);

// Moves the finished file to its target, unless the target exists; false with the reason otherwise.
bool MueveSinReemplazar(const QString& temporal, const QString& destino, QString& error);

// Temporary files of the target left by a process that is gone (killed while it worked).
void BorraTemporalesHuerfanos(const QString& destino);

// Removes a temporary database and the log files SQLite may have left beside it.
void BorraTemporal(const QString& temporal);

// Whether a database is named by a server's connection URI (postgresql://usuario@equipo:puerto/base, or
// postgres://...) rather than by a file's path.
bool EsUri(const QString& base);

// Raises 3204 when the file `destino` exists (or is a dangling link); a URI is left to the server.
void ExigeNueva(const QString& destino);

// A new database at `destino`, filled by `llena`, whole or not at all; an existing one is never replaced
// (3204). A file is made under a temporary name beside it, without waiting on the disk at each commit,
// and takes its name once it is finished and back in one file. A database on a server is created under
// its own name and dropped again if anything fails after that. What `llena` throws goes through.
void CreaBaseEntera(const QString& destino, const std::function<void(dao::Database&)>& llena);

}  // namespace archivos
