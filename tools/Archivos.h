#pragma once
// What adq-util writes is made in a temporary file beside its target and moved into place at the end, so
// that an interruption never leaves a half-made file at the target's path; an existing target is never
// replaced.
#include <QString>
#include <QTextStream>

namespace archivos {

// A name beside the target for the file being made: hidden, with this process's number.
QString TemporalJunto(const QString& destino);

// Moves the finished file to its target, unless the target exists; false with the reason otherwise.
bool MueveSinReemplazar(const QString& temporal, const QString& destino, QString& error);

// Temporary files of the target left by a process that is gone (killed while it worked).
void BorraTemporalesHuerfanos(const QString& destino);

// Removes a temporary database and the log files SQLite may have left beside it.
void BorraTemporal(const QString& temporal);

// A consistent copy of a database that others keep using, by SQLite's online backup a few pages at a
// time, checked whole before it takes its name. 0 when done, 1 on failure (said on err).
int Respalda(const QString& base, const QString& destino, QTextStream& out, QTextStream& err);

// The whole integrity check: "La base de datos está íntegra." and 0, or each problem found and 1.
int Verifica(const QString& base, QTextStream& out, QTextStream& err);

}  // namespace archivos
