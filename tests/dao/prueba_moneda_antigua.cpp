// Files of earlier versions keep money as decimals: a writer converts them once to ten-thousandths, a
// reader that may not write reads them as they are, and an attached old file is read right and converted
// only when written.
#include "jet/ayuda_jet.h"

#include <QFile>
#include <sqlite3.h>

namespace {

using ayuda::Texto;

// What the file holds, read past the engine: the first column of the first row as text.
QString Crudo(const QString& ruta, const char* sql) {
    sqlite3* s = nullptr;
    QString r;
    if (sqlite3_open_v2(QFile::encodeName(ruta).constData(), &s, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
        sqlite3_stmt* st = nullptr;
        if (sqlite3_prepare_v2(s, sql, -1, &st, nullptr) == SQLITE_OK && sqlite3_step(st) == SQLITE_ROW)
            r = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)));
        sqlite3_finalize(st);
    }
    sqlite3_close(s);
    return r;
}

QStringList Montos(dao::Database& db, const QString& donde = QString()) {
    QStringList r;
    auto rs = db.OpenRecordset(QStringLiteral("SELECT Monto, Saldo FROM adqSaldoFinanciamientos ") + donde +
                                   QStringLiteral(" ORDER BY IdFinanciamiento"),
                               dao::dbOpenSnapshot);
    for (; !rs->Eof(); rs->MoveNext()) r << Texto(rs->Fields(0).Value()) + u'|' + Texto(rs->Fields(1).Value());
    return r;
}

class MonedaAntigua : public ayuda::BaseJet {
protected:
    bool soloArchivo() const override { return true; }
    // The database as an earlier version left it: decimals (whole amounts as integers), no version mark.
    void envejece() {
        db.reset();
        sqlite3* s = nullptr;
        ASSERT_EQ(sqlite3_open_v2(QFile::encodeName(ruta(QStringLiteral("KORVEL8.mdb"))).constData(), &s,
                                  SQLITE_OPEN_READWRITE, nullptr),
                  SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(s,
                               "INSERT INTO adqSaldoFinanciamientos (IdFinanciamiento, Monto, Saldo) VALUES "
                               "(1, 1234.5678, 5), (2, 900000000000.0001, -0.25);"
                               "PRAGMA user_version = 0; PRAGMA journal_mode = DELETE;",
                               nullptr, nullptr, nullptr),
                  SQLITE_OK);
        sqlite3_close(s);
    }
    const QStringList esperados = {QStringLiteral("1234.5678|5"), QStringLiteral("900000000000.0001|-0.25")};
};

TEST_F(MonedaAntigua, SeLeeSinEscribirYSeConvierteUnaSolaVez) {
    envejece();
    const QString base = ruta(QStringLiteral("KORVEL8.mdb")), otra = ruta(QStringLiteral("otra.mdb"));
    ASSERT_TRUE(QFile::copy(base, otra));
    {
        // Read-only: the amounts right, in a filter too, and the file as it was.
        auto lector = dao::Database::OpenDatabase(base, true);
        EXPECT_EQ(Montos(*lector), esperados);
        EXPECT_EQ(Montos(*lector, QStringLiteral("WHERE Monto = 1234.5678 AND Saldo = 5")), esperados.mid(0, 1));
        auto rs = lector->OpenRecordset(QStringLiteral("SELECT Sum(Monto) FROM adqSaldoFinanciamientos"), dao::dbOpenSnapshot);
        EXPECT_EQ(Texto(rs->Fields(0).Value()), QStringLiteral("900000001234.5679"));
    }
    EXPECT_EQ(Crudo(base, "PRAGMA user_version"), QStringLiteral("0"));
    EXPECT_EQ(Crudo(base, "SELECT Monto FROM adqSaldoFinanciamientos WHERE IdFinanciamiento = 1"), QStringLiteral("1234.5678"));

    // A writer converts every money column, once.
    for (int vez = 0; vez < 2; ++vez) {
        auto escritor = dao::Database::OpenDatabase(base);
        EXPECT_FALSE(escritor->SoloLectura());
        EXPECT_EQ(Montos(*escritor), esperados) << vez;
    }
    EXPECT_EQ(Crudo(base, "PRAGMA user_version"), QStringLiteral("1"));
    EXPECT_EQ(Crudo(base, "SELECT Monto || '/' || Saldo FROM adqSaldoFinanciamientos WHERE IdFinanciamiento = 2"),
              QStringLiteral("9000000000000001/-2500"));

    // An old file attached: read as decimals into a converted one, converted when it is written.
    db = dao::Database::OpenDatabase(base);
    ejecuta(QStringLiteral("INSERT INTO adqSaldoFinanciamientos (IdFinanciamiento, Monto, Saldo) "
                           "SELECT IdFinanciamiento + 10, Monto + CCur(1), Saldo * 2 FROM adqSaldoFinanciamientos IN '%1'")
                .arg(otra));
    EXPECT_EQ(Montos(*db, QStringLiteral("WHERE IdFinanciamiento > 10")),
              QStringList({QStringLiteral("1235.5678|10"), QStringLiteral("900000000001.0001|-0.5")}));
    EXPECT_EQ(Crudo(otra, "PRAGMA user_version"), QStringLiteral("0"));
    ejecuta(QStringLiteral("INSERT INTO adqSaldoFinanciamientos IN '%1' VALUES (3, #2024/01/01#, 0.5, 0, 'x', 'y')").arg(otra));
    EXPECT_EQ(Crudo(otra, "PRAGMA user_version"), QStringLiteral("1"));
    db.reset();
    auto convertida = dao::Database::OpenDatabase(otra, true);
    EXPECT_EQ(Montos(*convertida), QStringList({esperados[0], esperados[1], QStringLiteral("0.5|0")}));
}

}  // namespace
