#pragma once
// The tables of a new database: the suite's master tables, users and settings, the acquisition tables
// and the module's own tables of money, with their exact names, types, sizes, keys, required flags and
// defaults. On this platform no other module exists to create the suite's part, so it is made here too.
#include <QString>
#include <QStringList>

namespace dao { class Database; }

namespace esquema {

// The statements that create every table, in order.
const QStringList& SentenciasCreacion();

// Creates every table in an empty database.
void CreaTablas(dao::Database& db);

}  // namespace esquema
