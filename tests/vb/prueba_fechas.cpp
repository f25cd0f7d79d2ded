#include "core/vb/Conversion.h"
#include "core/vb/Fecha.h"

#include "ayuda_vb.h"

#include <gtest/gtest.h>

using namespace vb;

namespace {
QString Iso(const std::optional<Fecha>& f) { return f ? f->toIso() : QStringLiteral("(ninguna)"); }
}  // namespace

TEST(Fecha, SerialesDeIdaYVuelta) {
    struct Caso {
        double serial;
        const char* iso;
    };
    const Caso casos[] = {
        {0, "1899-12-30 00:00:00"},       {1, "1899-12-31 00:00:00"},       {0.25, "1899-12-30 06:00:00"},
        {-1, "1899-12-29 00:00:00"},      {-1.25, "1899-12-29 06:00:00"},   {-2.5, "1899-12-28 12:00:00"},
        {60, "1900-02-28 00:00:00"},      {61, "1900-03-01 00:00:00"},      {45296.75, "2024-01-05 18:00:00"},
        {-657434, "0100-01-01 00:00:00"}, {2958465, "9999-12-31 00:00:00"},
    };
    for (const auto& c : casos) {
        EXPECT_EQ(Fecha::fromSerial(c.serial).toIso(), QString::fromUtf8(c.iso)) << c.serial;
        EXPECT_DOUBLE_EQ(Fecha::fromIso(QString::fromUtf8(c.iso))->toSerial(), c.serial) << c.iso;
    }
    // Fractions round to the second, and a day's last half second carries into the next day (or the
    // previous one, counting backwards from the zero date).
    EXPECT_EQ(Fecha::fromSerial(45296 + 0.5 / 86400 + 1e-9).toIso(), QStringLiteral("2024-01-05 00:00:01"));
    EXPECT_EQ(Fecha::fromSerial(45296.9999999).toIso(), QStringLiteral("2024-01-06 00:00:00"));
    EXPECT_EQ(Fecha::fromSerial(-1.9999999).toIso(), QStringLiteral("1899-12-28 00:00:00"));
    EXPECT_EQ(Fecha::fromSerial(-0.5).toIso(), QStringLiteral("1899-12-30 12:00:00"));
    EXPECT_EQ(NumeroDeError([] { Fecha::fromSerial(3e6); }), 6);
    EXPECT_EQ(NumeroDeError([] { Fecha::fromSerial(-700000); }), 6);
}

TEST(Fecha, TextoIso) {
    EXPECT_EQ(Iso(Fecha::fromIso("2024-02-29 23:59:58")), QStringLiteral("2024-02-29 23:59:58"));
    EXPECT_EQ(Iso(Fecha::fromIso("2024-02-29")), QStringLiteral("2024-02-29 00:00:00"));
    EXPECT_EQ(Iso(Fecha::fromIso("2024-02-29T08:05")), QStringLiteral("2024-02-29 08:05:00"));
    for (const char* malo : {"2023-02-29", "2024-13-01", "2024-01-01 24:00:00", "05/01/2024", "", "2024-01-01x"})
        EXPECT_FALSE(Fecha::fromIso(QString::fromUtf8(malo))) << malo;
    // Milliseconds of the clock are dropped, so that a date read back compares equal.
    const Fecha f(QDate(2024, 1, 5), QTime(10, 20, 30, 999));
    EXPECT_EQ(f, *Fecha::fromIso(f.toIso()));
    EXPECT_FALSE(Fecha(QDate(2024, 1, 5)).hasTime());
    EXPECT_LT(Fecha(QDate(1899, 12, 29), QTime(23, 0)), Fecha());
}

TEST(LeeFecha, TextosQueSonFecha) {
    const int anioActual = QDate::currentDate().year();
    struct Caso {
        const char* texto;
        QString iso;
    };
    const Caso casos[] = {
        {"5/1/2024", "2024-01-05 00:00:00"},
        {"05-01-24", "2024-01-05 00:00:00"},
        {"5 ene 2024", "2024-01-05 00:00:00"},
        {"05/Ene/2024", "2024-01-05 00:00:00"},
        {"05/ENE./2024", "2024-01-05 00:00:00"},
        {"5-enero-2024", "2024-01-05 00:00:00"},
        {"1-sept-2024", "2024-09-01 00:00:00"},
        {"2024/01/05", "2024-01-05 00:00:00"},
        {"2024-1-5 7:05", "2024-01-05 07:05:00"},
        {"13/5/2024", "2024-05-13 00:00:00"},    // day first also when the day is above 12
        {"5/13/2024", "2024-05-13 00:00:00"},    // month first only when day first cannot be
        {"29/02/2024", "2024-02-29 00:00:00"},
        {"1/1/29", "2029-01-01 00:00:00"},
        {"1/1/30", "1930-01-01 00:00:00"},
        {"31/12/99", "1999-12-31 00:00:00"},
        {"1/1/00", "2000-01-01 00:00:00"},
        {" 05/01/2024 10:30 ", "2024-01-05 10:30:00"},
        {"05/01/2024 10:30:15 p.m.", "2024-01-05 22:30:15"},
        {"05/01/2024 12:00 am", "2024-01-05 00:00:00"},
        {"viernes, 5 de enero de 2024", "2024-01-05 00:00:00"},
        {"10:30", "1899-12-30 10:30:00"},
        {"5/1", QStringLiteral("%1-01-05 00:00:00").arg(anioActual)},
        {"mar 2024", "2024-03-01 00:00:00"},
    };
    for (const auto& c : casos) EXPECT_EQ(Iso(LeeFecha(QString::fromUtf8(c.texto))), c.iso) << c.texto;
}

TEST(LeeFecha, TextosQueNoSonFecha) {
    for (const char* t : {"", "   ", "abc", "31/02/2024", "29/02/2023", "13/13/2024", "0/1/2024", "5/0/2024", "32/1/2024",
                          "5/1/2024/7", "5", "12345/1/1", "5/1/2024 25:00", "5/1/2024 10:60", "5/foo/2024", "5 ene feb 2024",
                          "1/1/0099", "10:30 pm 14:00", "13:00 pm", "5/1/2024 $"})
        EXPECT_FALSE(LeeFecha(QString::fromUtf8(t)).has_value()) << t;
}

TEST(LeeFecha, IsDateYCDate) {
    EXPECT_TRUE(IsDate(Fecha()));
    EXPECT_TRUE(IsDate("5/1/2024"));
    EXPECT_FALSE(IsDate("31/02/2024"));
    EXPECT_FALSE(IsDate(45296.0));   // a number is no date, though CDate converts it
    EXPECT_FALSE(IsDate(Variant::Null()));
    EXPECT_FALSE(IsDate(Variant()));
    EXPECT_EQ(CDate("05/01/2024").toIso(), QStringLiteral("2024-01-05 00:00:00"));
    EXPECT_EQ(CDate(45296.5).toIso(), QStringLiteral("2024-01-05 12:00:00"));
    EXPECT_EQ(CDate(Variant()).toIso(), QStringLiteral("1899-12-30 00:00:00"));
    EXPECT_EQ(NumeroDeError([] { CDate("abc"); }), 13);
    EXPECT_EQ(NumeroDeError([] { CDate("45296"); }), 13);
    EXPECT_EQ(NumeroDeError([] { CDate(Variant::Null()); }), 94);
}

TEST(Fecha, AritmeticaDeFechas) {
    const Fecha f(QDate(2024, 1, 31), QTime(22, 30));
    EXPECT_EQ(DateAdd("m", 1, f).toIso(), QStringLiteral("2024-02-29 22:30:00"));
    EXPECT_EQ(DateAdd("yyyy", 1, Fecha(QDate(2024, 2, 29))).toIso(), QStringLiteral("2025-02-28 00:00:00"));
    EXPECT_EQ(DateAdd("q", -1, f).toIso(), QStringLiteral("2023-10-31 22:30:00"));
    EXPECT_EQ(DateAdd("d", 1, f).toIso(), QStringLiteral("2024-02-01 22:30:00"));
    EXPECT_EQ(DateAdd("ww", -1, f).toIso(), QStringLiteral("2024-01-24 22:30:00"));
    EXPECT_EQ(DateAdd("h", 2, f).toIso(), QStringLiteral("2024-02-01 00:30:00"));
    EXPECT_EQ(DateAdd("n", -31, Fecha()).toIso(), QStringLiteral("1899-12-29 23:29:00"));
    EXPECT_EQ(DateAdd("s", 59, f).toIso(), QStringLiteral("2024-01-31 22:30:59"));
    EXPECT_EQ(NumeroDeError([] { DateAdd("x", 1, Fecha()); }), 5);
    EXPECT_EQ(NumeroDeError([] { DateAdd("yyyy", 9000, Fecha()); }), 5);

    const Fecha a(QDate(2023, 12, 31), QTime(23, 59, 59));
    const Fecha b(QDate(2024, 1, 1), QTime(0, 0, 1));
    EXPECT_EQ(DateDiff("yyyy", a, b), 1);   // boundaries crossed, not elapsed time
    EXPECT_EQ(DateDiff("q", a, b), 1);
    EXPECT_EQ(DateDiff("m", a, b), 1);
    EXPECT_EQ(DateDiff("d", a, b), 1);
    EXPECT_EQ(DateDiff("h", a, b), 1);
    EXPECT_EQ(DateDiff("n", a, b), 1);
    EXPECT_EQ(DateDiff("s", a, b), 2);
    EXPECT_EQ(DateDiff("d", b, a), -1);
    // 2024-01-06 is a Saturday and 2024-01-07 a Sunday: one Sunday crossed, no whole week.
    EXPECT_EQ(DateDiff("ww", Fecha(QDate(2024, 1, 6)), Fecha(QDate(2024, 1, 7))), 1);
    EXPECT_EQ(DateDiff("w", Fecha(QDate(2024, 1, 6)), Fecha(QDate(2024, 1, 7))), 0);
    EXPECT_EQ(DateDiff("w", Fecha(QDate(2024, 1, 1)), Fecha(QDate(2024, 1, 15))), 2);

    EXPECT_EQ(DateSerial(2024, 13, 1).toIso(), QStringLiteral("2025-01-01 00:00:00"));
    EXPECT_EQ(DateSerial(2024, 3, 0).toIso(), QStringLiteral("2024-02-29 00:00:00"));
    EXPECT_EQ(DateSerial(24, 1, 5).toIso(), QStringLiteral("2024-01-05 00:00:00"));
    EXPECT_EQ(DateSerial(99, 1, 5).toIso(), QStringLiteral("1999-01-05 00:00:00"));

    const Fecha viernes(QDate(2024, 1, 5), QTime(8, 9, 10));
    EXPECT_EQ(Weekday(viernes), 6);
    EXPECT_EQ(Weekday(viernes, 2), 5);   // weeks starting on Monday
    EXPECT_EQ(Year(viernes) * 10000 + Month(viernes) * 100 + Day(viernes), 20240105);
    EXPECT_EQ(Hour(viernes) * 10000 + Minute(viernes) * 100 + Second(viernes), 80910);
}
