#pragma once
// A whole database copied into a new one: a file to a server, a server to a file, or a file to another
// file, all through the DAO operations, so that either end may be either kind.
#include "core/legado/Legado.h"

#include <QString>
#include <functional>

namespace copia {

// Every user table of `origen` with its fields (type, size, attributes, required, zero length, default)
// and its indexes, and every row with the counters' values kept, into a new database at `destino`, which
// must not exist (3204). The origin is only read. The result has a line per table with its rows; progress
// is told as the migration of a legacy file tells it. On any failure nothing is left at `destino`.
legado::ResultadoMigracion Copia(const QString& origen, const QString& destino,
                                 const std::function<void(const legado::Progreso&)>& progreso = {});

}  // namespace copia
