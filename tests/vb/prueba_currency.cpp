#include "core/vb/Currency.h"

#include "ayuda_vb.h"

#include <gtest/gtest.h>

#include <limits>

using vb::Currency;

namespace {
Currency C(qint64 diezmilesimos) { return Currency::fromRaw(diezmilesimos); }
const Currency Maximo = C(std::numeric_limits<qint64>::max());
const Currency Minimo = C(std::numeric_limits<qint64>::min());
}  // namespace

TEST(Currency, LecturaDeTexto) {
    struct Caso {
        const char* texto;
        std::optional<qint64> raw;
    };
    const Caso casos[] = {
        {"1234.5", 12345000},  {"-3", -30000},          {" 12 ", 120000},      {"$1,234.50", 12345000},
        {"1,234", 12340000},   {"-$0.25", -2500},       {"$-0.25", -2500},     {"+.5", 5000},
        {"7.", 70000},         {"0.00005", 0},          {"0.00015", 2},        {"0.000150001", 2},
        {"2.00025", 20002},    {"-2.00035", -20004},    {"1.5e3", 15000000},   {"1E-4", 1},
        {"922337203685477.5807", std::numeric_limits<qint64>::max()},
        {"-922337203685477.5808", std::numeric_limits<qint64>::min()},
        {"", std::nullopt},    {"   ", std::nullopt},   {"(5.00)", std::nullopt}, {"abc", std::nullopt},
        {"1.2.3", std::nullopt}, {"$", std::nullopt},   {",5", std::nullopt},  {"12abc", std::nullopt},
        {"1e", std::nullopt},  {"--1", std::nullopt},
    };
    for (const auto& c : casos) {
        const auto r = Currency::parse(QString::fromUtf8(c.texto));
        ASSERT_EQ(r.has_value(), c.raw.has_value()) << c.texto;
        if (r) {
            EXPECT_EQ(r->raw(), *c.raw) << c.texto;
        }
    }
    EXPECT_EQ(NumeroDeError([] { Currency::parse("922337203685477.5808"); }), 6);
    EXPECT_EQ(NumeroDeError([] { Currency::parse("1e30"); }), 6);
}

TEST(Currency, TextoParaSql) {
    const std::pair<qint64, const char*> casos[] = {
        {12345000, "1234.5"}, {0, "0"},      {-2500, "-0.25"},   {1, "0.0001"}, {-10000, "-1"},
        {10000010000, "1000001"}, {std::numeric_limits<qint64>::min(), "-922337203685477.5808"},
    };
    for (const auto& [raw, texto] : casos) EXPECT_EQ(C(raw).toSql(), QString::fromUtf8(texto)) << raw;
}

TEST(Currency, AritmeticaExacta) {
    Currency suma;
    for (int i = 0; i < 10; ++i) suma += *Currency::parse("0.1");
    EXPECT_EQ(suma, Currency::fromLong(1));   // no drift as with binary fractions
    EXPECT_EQ((C(15000) - C(25000)).toSql(), QStringLiteral("-1"));
    EXPECT_EQ((C(12345) * 3).raw(), 37035);
    // Products and quotients round half to even at the fourth decimal.
    EXPECT_EQ((C(5) * C(5000)).raw(), 2);     // 0.0005 * 0.5 = 0.00025 -> 0.0002
    EXPECT_EQ((C(15) * C(5000)).raw(), 8);    // 0.00075 -> 0.0008
    EXPECT_EQ((C(-15) * C(5000)).raw(), -8);
    EXPECT_EQ((C(10000) / C(30000)).raw(), 3333);
    EXPECT_EQ((C(20000) / C(30000)).raw(), 6667);
    EXPECT_EQ((C(1) / C(20000)).raw(), 0);     // 0.00005 -> 0
    EXPECT_EQ((C(3) / C(20000)).raw(), 2);     // 0.00015 -> 0.0002
    EXPECT_EQ((C(-3) / C(20000)).raw(), -2);
    EXPECT_LT(C(-1), C(0));

    EXPECT_EQ(NumeroDeError([] { (void)(Maximo + C(1)); }), 6);
    EXPECT_EQ(NumeroDeError([] { (void)(Minimo - C(1)); }), 6);
    EXPECT_EQ(NumeroDeError([] { (void)-Minimo; }), 6);
    EXPECT_EQ(NumeroDeError([] { (void)(Maximo * 2); }), 6);
    EXPECT_EQ(NumeroDeError([] { (void)(Maximo * Currency::fromLong(2)); }), 6);
    EXPECT_EQ(NumeroDeError([] { (void)(C(1) / C(0)); }), 11);
    EXPECT_EQ(NumeroDeError([] { Currency::fromLong(std::numeric_limits<qint64>::max() / 1000); }), 6);
}

TEST(Currency, DesdeDoble) {
    EXPECT_EQ(Currency::fromDouble(1234.56789).raw(), 12345679);
    EXPECT_EQ(Currency::fromDouble(-0.1).raw(), -1000);
    EXPECT_EQ(Currency::fromDouble(0.00025).raw(), 2);   // 2.5 ten-thousandths go to the even 2
    EXPECT_DOUBLE_EQ(C(12345).toDouble(), 1.2345);
    EXPECT_EQ(NumeroDeError([] { Currency::fromDouble(1e15); }), 6);
    EXPECT_EQ(NumeroDeError([] { Currency::fromDouble(std::numeric_limits<double>::quiet_NaN()); }), 6);
}
