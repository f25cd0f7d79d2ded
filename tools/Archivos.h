#pragma once
// What adq-util writes is made in a temporary file beside its target and moved into place at the end, so
// that an interruption never leaves a half-made file at the target's path; an existing target is never
// replaced.
#include "core/ArchivosTemporales.h"

#include <QString>
#include <QTextStream>

namespace archivos {

// A consistent copy of a database that others keep using, by SQLite's online backup a few pages at a
// time, checked whole before it takes its name. 0 when done, 1 on failure (said on err).
int Respalda(const QString& base, const QString& destino, QTextStream& out, QTextStream& err);

// The whole integrity check: "La base de datos está íntegra." and 0, or each problem found and 1.
int Verifica(const QString& base, QTextStream& out, QTextStream& err);

}  // namespace archivos
