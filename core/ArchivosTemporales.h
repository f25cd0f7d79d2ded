#pragma once
// A file that is made is made in a temporary file beside its target and moved into place at the end, so
// that an interruption never leaves a half-made file at the target's path; an existing target is never
// replaced. adq-util's commands and the migration of legacy files share these.
#include <QString>

namespace archivos {

// A name beside the target for the file being made: hidden, with this process's number.
QString TemporalJunto(const QString& destino);

// Moves the finished file to its target, unless the target exists; false with the reason otherwise.
bool MueveSinReemplazar(const QString& temporal, const QString& destino, QString& error);

// Temporary files of the target left by a process that is gone (killed while it worked).
void BorraTemporalesHuerfanos(const QString& destino);

// Removes a temporary database and the log files SQLite may have left beside it.
void BorraTemporal(const QString& temporal);

}  // namespace archivos
