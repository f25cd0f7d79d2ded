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

// Creates every table in an empty database, with the lookup indexes below.
void CreaTablas(dao::Database& db);

// The indexes that keep the recomputation of balances from reading the whole ledger once per source and per
// project: the ledgers by source and school, the budgets by source. Made where missing (files of an older
// version); they are not part of the tables' definition and no statement sees them.
void CreaIndicesDeConsulta(dao::Database& db);

}  // namespace esquema
