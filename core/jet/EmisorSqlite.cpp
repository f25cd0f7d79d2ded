#include "core/jet/EmisorSqlite.h"

namespace jet {

QString EmisorSqlite::columna(const Expr& e) {
    QString c = Emisor::columna(e);
    if (e.campo->tipo == TipoCampo::Currency && !monedaAntigua_.isEmpty() && monedaAntigua_.contains(e.fuente->esquemaSql))
        c = QStringLiteral("CAST(round(") + c + QStringLiteral(" * 10000) AS INTEGER)");
    return c;
}

}  // namespace jet
