// Reading values back: the stored form of a date read by hand against the toolkit's calendar.
#include "ayuda_jet.h"

#include "core/jet/FuncionesSqlite.h"

namespace {

std::optional<vb::Fecha> Almacenada(const QString& texto) {
    const QByteArray u = texto.toUtf8();
    return jet::FechaAlmacenada(u.constData(), static_cast<int>(u.size()));
}

TEST(FechaAlmacenada, CadaDiaComoElCalendarioDelToolkit) {
    // Every day of two centuries around the dates the program meets, and of the calendar's far ends.
    std::vector<std::pair<QDate, QDate>> tramos = {
        {QDate(1899, 1, 1), QDate(2101, 12, 31)}, {QDate(1, 1, 1), QDate(3, 12, 31)},
        {QDate(1599, 12, 1), QDate(1601, 3, 31)}, {QDate(9998, 1, 1), QDate(9999, 12, 31)}};
    for (const auto& [desde, hasta] : tramos) {
        for (QDate d = desde; d <= hasta; d = d.addDays(1)) {
            const auto f = Almacenada(d.toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(" 00:00:00"));
            ASSERT_TRUE(f.has_value()) << d.toString(Qt::ISODate).toStdString();
            ASSERT_EQ(f->date(), d) << d.toString(Qt::ISODate).toStdString();
        }
    }
    const auto f = Almacenada(QStringLiteral("2026-02-28 23:59:59"));
    ASSERT_TRUE(f.has_value());
    EXPECT_EQ(*f, vb::Fecha(QDate(2026, 2, 28), QTime(23, 59, 59)));
    EXPECT_EQ(f->toIso(), "2026-02-28 23:59:59");
    EXPECT_EQ(*Almacenada(QStringLiteral("1899-12-30 00:00:00")), vb::Fecha());
}

TEST(FechaAlmacenada, LoQueNoEsUnaFechaGuardadaSeDejaALaLecturaGeneral) {
    for (const char* t : {"1900-02-29 00:00:00", "2100-02-29 00:00:00", "2023-02-29 00:00:00", "2026-04-31 00:00:00",
                          "2026-13-01 00:00:00", "2026-00-10 00:00:00", "2026-01-00 00:00:00", "0000-01-01 00:00:00",
                          "2026-01-01 24:00:00", "2026-01-01 10:60:00", "2026-01-01 10:00:60", "2026-01-01",
                          "2026-01-01T10:00:00", "2026/01/01 10:00:00", "2026-01-01 10:00:0x", "2026-01-01 10:00:000"})
        EXPECT_FALSE(Almacenada(QString::fromLatin1(t)).has_value()) << t;
    EXPECT_TRUE(Almacenada(QStringLiteral("2000-02-29 12:00:00")).has_value());
    EXPECT_TRUE(Almacenada(QStringLiteral("2024-02-29 12:00:00")).has_value());
}

}  // namespace
