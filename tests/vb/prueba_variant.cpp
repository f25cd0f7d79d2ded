#include "core/vb/Conversion.h"
#include "core/vb/Variant.h"

#include "ayuda_vb.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace vb;

TEST(Variant, ConversionAEntero) {
    // CInt and CLng round half to even.
    const std::pair<Variant, qint16> casos[] = {
        {2.5, 2},   {3.5, 4},     {-2.5, -2},   {-3.5, -4},  {2.51, 3},        {Currency::fromRaw(25000), 2},
        {"2.5", 2}, {" 1,234 ", 1234}, {"$7", 7}, {Variant(), 0}, {true, -1}, {Variant::Single(1.5f), 2},
        {32767.4, 32767}, {-32768, -32768}, {Fecha(QDate(1900, 1, 1), QTime(18, 0)), 3},
    };
    for (const auto& [v, esperado] : casos) EXPECT_EQ(v.toInteger(), esperado) << v.text().toStdString();
    EXPECT_EQ(Variant(2147483647.0).toLong(), 2147483647);
    EXPECT_EQ(CLng(Currency::fromRaw(-35000)), -4);

    const std::pair<Variant, int> errores[] = {
        {32767.5, 6}, {-32769, 6}, {"abc", 13}, {"", 13}, {"12abc", 13}, {Variant::Null(), 94}, {"05/01/2024", 13},
    };
    for (const auto& [v, numero] : errores)
        EXPECT_EQ(NumeroDeError([&] { v.toInteger(); }), numero) << v.text().toStdString();
    EXPECT_EQ(NumeroDeError([] { Variant(2147483648.0).toLong(); }), 6);
}

TEST(Variant, ConversionADobleYMoneda) {
    EXPECT_DOUBLE_EQ(Variant("-1,234.5e1").toDouble(), -12345);
    EXPECT_DOUBLE_EQ(Variant("&HFF").toDouble(), 255);
    EXPECT_DOUBLE_EQ(Variant(Fecha(QDate(2024, 1, 5), QTime(6, 0))).toDouble(), 45296.25);
    EXPECT_EQ(Variant("$1,234.56785").toCurrency().raw(), 12345678);   // exact, half to even
    EXPECT_EQ(Variant(0.1).toCurrency().raw(), 1000);
    EXPECT_EQ(Variant().toCurrency().raw(), 0);
    EXPECT_EQ(NumeroDeError([] { Variant("12 pesos").toCurrency(); }), 13);
    EXPECT_EQ(NumeroDeError([] { Variant::Null().toDouble(); }), 94);
    EXPECT_EQ(NumeroDeError([] { Variant::Null().toCurrency(); }), 94);
}

TEST(Variant, Texto) {
    const std::pair<Variant, const char*> casos[] = {
        {Variant(), ""},
        {1234.5, "1234.5"},
        {0.1 + 0.2, "0.3"},   // fifteen significant digits
        {1.0 / 3, "0.333333333333333"},
        {-2.5, "-2.5"},
        {1e15, "1E+15"},
        {123456789012345.0, "123456789012345"},
        {0.0001, "0.0001"},
        {0.000015, "1.5E-05"},
        {Variant::Single(0.1f), "0.1"},
        {Currency::fromRaw(-2500), "-0.25"},
        {Variant::Integer(-7), "-7"},
        {Variant::Byte(255), "255"},
        {Fecha(QDate(2024, 1, 5)), "05/01/2024"},
        {Fecha(QDate(2024, 1, 5), QTime(7, 8, 9)), "05/01/2024 07:08:09"},
        {Fecha(QDate(1899, 12, 30), QTime(7, 8, 9)), "07:08:09"},
        {true, "Verdadero"},
        {false, "Falso"},
        {"hola", "hola"},
    };
    for (const auto& [v, esperado] : casos) EXPECT_EQ(v.toString(), QString::fromUtf8(esperado));
    EXPECT_EQ(NumeroDeError([] { Variant::Null().toString(); }), 94);
    EXPECT_EQ(Variant::Null().text(), QString());
    EXPECT_EQ(Variant(5).text(), QStringLiteral("5"));
}

TEST(Variant, TiposLogicosYComparacion) {
    EXPECT_EQ(Variant().type(), VarType::Empty);
    EXPECT_EQ(Variant::Null().type(), VarType::Null);
    EXPECT_EQ(Variant(5).type(), VarType::Long);
    EXPECT_EQ(Variant(Currency()).type(), VarType::Currency);
    EXPECT_TRUE(Variant().isNumeric());
    EXPECT_FALSE(Variant::Null().isNumeric());
    EXPECT_FALSE(Variant("5").isNumeric());
    EXPECT_FALSE(Variant() == Variant::Null());
    EXPECT_FALSE(Variant(5) == Variant(5.0));   // same value, other type
    EXPECT_TRUE(Variant::Null() == Variant::Null());
    EXPECT_TRUE(Variant("a") == Variant(QStringLiteral("a")));

    EXPECT_TRUE(Variant("Verdadero").toBool());
    EXPECT_FALSE(Variant(" falso ").toBool());
    EXPECT_TRUE(Variant("-1").toBool());
    EXPECT_TRUE(Variant(0.5).toBool());
    EXPECT_FALSE(Variant(Currency()).toBool());
    EXPECT_FALSE(Variant().toBool());
    EXPECT_EQ(NumeroDeError([] { Variant("quizá").toBool(); }), 13);
    EXPECT_EQ(NumeroDeError([] { Variant::Null().toBool(); }), 94);
}

TEST(Conversion, Val) {
    const std::pair<const char*, double> casos[] = {
        {"12abc", 12}, {" 1 2", 12},  {"abc", 0},     {"", 0},         {"-.5", -0.5},  {"+ 3", 3},
        {"1,234", 1},  {"1.2.3", 1.2}, {"1e3x", 1000}, {"2E-2", 0.02}, {"1d2", 100},   {"1e", 1},
        {"&HFF", 255}, {"&hffff", -1}, {"&H8000", -32768}, {"&H10000", 65536}, {"&HFFFFFFFF", -1},
        {"&O17", 15},  {"&17", 15},    {"&H", 0},      {"-", 0},       {"$5", 0},      {"\t7\n8", 78},
    };
    for (const auto& [texto, esperado] : casos) EXPECT_DOUBLE_EQ(Val(QString::fromUtf8(texto)), esperado) << texto;
}

TEST(Conversion, IsNumeric) {
    for (const char* si : {"5", " -5 ", "$1,234.50", "-$3", "1e5", ".5", "&HFF", "1,2,3"})
        EXPECT_TRUE(IsNumeric(QString::fromUtf8(si))) << si;
    for (const char* no : {"", " ", "$", "-", "12abc", "1.2.3", "(5)", "05/01/2024", "1e", "&HZ"})
        EXPECT_FALSE(IsNumeric(QString::fromUtf8(no))) << no;
    EXPECT_TRUE(IsNumeric(Variant()));
    EXPECT_TRUE(IsNumeric(true));
    EXPECT_FALSE(IsNumeric(Variant::Null()));
    EXPECT_FALSE(IsNumeric(Fecha()));
}

TEST(Conversion, RedondeoAlPar) {
    const std::tuple<double, int, double> casos[] = {
        {2.5, 0, 2},      {3.5, 0, 4},       {-2.5, 0, -2},   {0.125, 2, 0.12}, {0.135, 2, 0.14},
        {2.675, 2, 2.68}, {1234.5678, 2, 1234.57}, {0.4, 0, 0}, {0.5, 0, 0}, {0.6, 0, 1},
        {9.995, 2, 10.0}, {0.0004, 2, 0}, {123.0, 2, 123},
    };
    for (const auto& [v, d, esperado] : casos) EXPECT_DOUBLE_EQ(Round(v, d), esperado) << v << " " << d;
    EXPECT_EQ(Round(Currency::fromRaw(12345), 3).raw(), 12340);   // 1.2345 -> 1.234
    EXPECT_EQ(Round(Currency::fromRaw(12355), 3).raw(), 12360);
    EXPECT_EQ(Round(Currency::fromRaw(-25000), 0).raw(), -20000);
    EXPECT_EQ(NumeroDeError([] { Round(1.5, -1); }), 5);

    EXPECT_EQ(Hex(255), QStringLiteral("FF"));
    EXPECT_EQ(Hex(-1), QStringLiteral("FFFFFFFF"));
    EXPECT_EQ(Hex(0), QStringLiteral("0"));
}
