#pragma once
// The statement as SQLite reads it: the dialect's functions, collation and write-time conversion are the
// ones FuncionesSqlite registers on every connection; host values are ?1, ?2 ...
#include "core/jet/Emisor.h"

namespace jet {

class EmisorSqlite : public Emisor {
public:
    EmisorSqlite() = default;
    // `monedaAntigua`: schemas of files that still keep money as decimals; their money columns are read
    // into ten-thousandths as they are named.
    explicit EmisorSqlite(QStringList monedaAntigua) : monedaAntigua_(std::move(monedaAntigua)) {}

protected:
    QString columna(const Expr& e) override;

private:
    QStringList monedaAntigua_;
};

}  // namespace jet
