#pragma once
// A small demonstration data set, and the one way analysts are added (the suite's utilities do the same).
#include <QString>

namespace dao { class Database; }

namespace demo {

// Adds the analyst, or replaces the one of the same login.
void AgregaAnalista(dao::Database& db, const QString& login, const QString& clave,
                    const QString& derechos = QStringLiteral("011"), const QString& modulos = QStringLiteral("1"));

// Catalog rows, settings, the analysts admin/admin (rights "011") and visita/visita ("001"), a funding source
// with a project, and a few requests in their several states.
void CargaDemo(dao::Database& db);

}  // namespace demo
