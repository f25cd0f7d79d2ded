// Money inside statements: kept as whole ten-thousandths, so that the largest amounts keep their cents,
// long sums don't drift, and every mix with other numbers has the type and value the dialect gives it.
#include "jet/ayuda_jet.h"

#include "core/jet/ErroresMotor.h"

#include <QRegularExpression>
#include <limits>

namespace {

using ayuda::ErrorDe;

class Moneda : public ayuda::BaseJet {
protected:
    void SetUp() override {
        BaseJet::SetUp();
        ejecuta(QStringLiteral("CREATE TABLE m (Id LONG, Monto CURRENCY, N LONG, R DOUBLE, T TEXT(60))"));
    }
    QString unico(const QString& sql) { return texto(sql); }
};

TEST_F(Moneda, LosExtremosVanYVuelvenExactos) {
    // The statement the ledger screen could not run: the largest amount there is.
    ejecuta(QStringLiteral("INSERT INTO adqSaldoFinanciamientos VALUES (1, #2024/01/01#, 922337203685477.5807, 0, 'x', 'y')"));
    EXPECT_EQ(unico(QStringLiteral("SELECT Monto FROM adqSaldoFinanciamientos")), QStringLiteral("922337203685477.5807"));
    ejecuta(QStringLiteral("INSERT INTO m (Id, Monto) VALUES (1, -922337203685477.5808)"));
    ejecuta(QStringLiteral("INSERT INTO m (Id, Monto) VALUES (2, 900000000000.0001)"));
    EXPECT_EQ(filas(QStringLiteral("SELECT Monto FROM m ORDER BY Id")),
              QStringList({QStringLiteral("-922337203685477.5808"), QStringLiteral("900000000000.0001")}));

    // Arithmetic in the statement, exact; one step beyond the range is the field's overflow.
    ejecuta(QStringLiteral("UPDATE m SET Monto = Monto - CCur(0.0001) WHERE Id = 2"));
    EXPECT_EQ(unico(QStringLiteral("SELECT Monto FROM m WHERE Id = 2")), QStringLiteral("900000000000"));
    ejecuta(QStringLiteral("UPDATE m SET Monto = 900000000000.0001 - 0.0001 WHERE Id = 2"));
    EXPECT_EQ(unico(QStringLiteral("SELECT Monto FROM m WHERE Id = 2")), QStringLiteral("900000000000"));
    ejecuta(QStringLiteral("UPDATE m SET Monto = Monto + CCur(0.0001) WHERE Id = 1"));
    EXPECT_EQ(unico(QStringLiteral("SELECT Monto FROM m WHERE Id = 1")), QStringLiteral("-922337203685477.5807"));
    EXPECT_EQ(error(QStringLiteral("UPDATE m SET Monto = Monto - CCur(0.0002) WHERE Id = 1")), jet::ErrDesbordamientoCampo);
    EXPECT_EQ(error(QStringLiteral("UPDATE adqSaldoFinanciamientos SET Monto = Monto + CCur(0.0001)")),
              jet::ErrDesbordamientoCampo);
    EXPECT_EQ(error(QStringLiteral("INSERT INTO m (Id, Monto) VALUES (3, 922337203685477.5808)")), jet::ErrDesbordamientoCampo);
    EXPECT_EQ(error(QStringLiteral("INSERT INTO m (Id, Monto) VALUES (3, 1E+16)")), jet::ErrDesbordamientoCampo);

    // Through a recordset: AddNew, Edit, and the value found again by a criterion on it.
    const vb::Currency maximo = vb::Currency::fromRaw(std::numeric_limits<qint64>::max());
    const vb::Currency minimo = vb::Currency::fromRaw(std::numeric_limits<qint64>::min());
    {
        auto rs = abre(QStringLiteral("SELECT Id, Monto FROM m"), dao::dbOpenDynaset);
        rs->AddNew();
        rs->Fields(QStringLiteral("Id")).setValue(vb::Variant::Long(5));
        rs->Fields(QStringLiteral("Monto")).setValue(vb::Variant(maximo));
        rs->Update();
        rs->FindFirst(QStringLiteral("Monto = 900000000000"));
        ASSERT_FALSE(rs->NoMatch());
        rs->Edit();
        rs->Fields(QStringLiteral("Monto")).setValue(vb::Variant(minimo));
        rs->Update();
        rs->FindFirst(QStringLiteral("Monto < -922337203685477"));
        ASSERT_FALSE(rs->NoMatch());
        EXPECT_EQ(rs->Fields(QStringLiteral("Id")).Value().toLong(), 1);
    }
    EXPECT_EQ(valor(QStringLiteral("SELECT Monto FROM m WHERE Id = 5")).toCurrency(), maximo);
    EXPECT_EQ(valor(QStringLiteral("SELECT Monto FROM m WHERE Id = 2")).toCurrency(), minimo);
    EXPECT_EQ(unico(QStringLiteral("SELECT Count(*) FROM m WHERE Monto = 922337203685477.5807")), QStringLiteral("1"));
}

TEST_F(Moneda, LasSumasLargasNoSeDesvian) {
    ejecuta(QStringLiteral("INSERT INTO m (Id, Monto) VALUES (1, 0)"));
    for (int i = 0; i < 100000; ++i) ejecuta(QStringLiteral("UPDATE m SET Monto = Monto + 0.1 WHERE Id = 1"));
    EXPECT_EQ(unico(QStringLiteral("SELECT Monto FROM m")), QStringLiteral("10000"));

    ejecuta(QStringLiteral("CREATE TABLE d (D LONG)"));
    for (int i = 0; i < 10; ++i) ejecuta(QStringLiteral("INSERT INTO d VALUES (%1)").arg(i));
    ejecuta(QStringLiteral("INSERT INTO m (Id, Monto) SELECT 2, 0.1 FROM d AS a, d AS b, d AS c, d AS e, d AS f"));
    EXPECT_EQ(unico(QStringLiteral("SELECT Sum(Monto) FROM m WHERE Id = 2")), QStringLiteral("10000"));
    auto rs = abre(QStringLiteral("SELECT Sum(Monto), Avg(Monto), Min(Monto), Count(Monto) FROM m WHERE Id = 2"));
    EXPECT_EQ(rs->Fields(0).Type(), dao::dbCurrency);
    EXPECT_EQ(rs->Fields(1).Type(), dao::dbCurrency);
    EXPECT_EQ(ayuda::Texto(rs->Fields(1).Value()), QStringLiteral("0.1"));
    EXPECT_EQ(ayuda::Texto(rs->Fields(2).Value()), QStringLiteral("0.1"));
    EXPECT_EQ(ayuda::Texto(rs->Fields(3).Value()), QStringLiteral("100000"));

    // The mean rounds half to even at the ten-thousandth; a total beyond the range is the overflow.
    ejecuta(QStringLiteral("INSERT INTO m (Id, Monto) VALUES (3, 1)"));
    ejecuta(QStringLiteral("INSERT INTO m (Id, Monto) VALUES (3, 2)"));
    ejecuta(QStringLiteral("INSERT INTO m (Id, Monto) VALUES (3, 2)"));
    EXPECT_EQ(unico(QStringLiteral("SELECT Avg(Monto) FROM m WHERE Id = 3")), QStringLiteral("1.6667"));
    ejecuta(QStringLiteral("INSERT INTO m (Id, Monto) VALUES (4, 922337203685477)"));
    ejecuta(QStringLiteral("INSERT INTO m (Id, Monto) VALUES (4, 1)"));
    try {
        filas(QStringLiteral("SELECT Sum(Monto) FROM m WHERE Id = 4"));
        ADD_FAILURE() << "la suma no se desbordó";
    } catch (const vb::Error& e) {
        EXPECT_EQ(e.Number(), jet::ErrDesbordamiento);
        EXPECT_EQ(e.Description(), QStringLiteral("Desbordamiento"));
    }
    EXPECT_EQ(error(QStringLiteral("UPDATE m SET Monto = (SELECT Sum(Monto) FROM m AS x WHERE x.Id = 4) WHERE Id = 1")),
              jet::ErrDesbordamiento);
}

TEST_F(Moneda, LasMezclasTienenElTipoYElValorDelDialecto) {
    ejecuta(QStringLiteral("INSERT INTO m VALUES (1, 1234.5678, 3, 0.5, 'a')"));
    auto rs = abre(QStringLiteral("SELECT Monto / 2, Monto * 2, Monto + 1.5, Monto + 1, Monto * Monto, -Monto, Monto - N, "
                                  "Monto * N, Monto + R, Monto \\ 1000, Monto Mod 1000, Monto + Monto + N FROM m"));
    const std::vector<std::pair<int, QString>> esperados = {
        {dao::dbDouble, "617.2839"},   {dao::dbCurrency, "2469.1356"},   {dao::dbDouble, "1236.0678"},
        {dao::dbCurrency, "1235.5678"}, {dao::dbCurrency, "1524157.6528"}, {dao::dbCurrency, "-1234.5678"},
        {dao::dbCurrency, "1231.5678"}, {dao::dbCurrency, "3703.7034"},   {dao::dbDouble, "1235.0678"},
        {dao::dbLong, "1"},            {dao::dbLong, "235"},             {dao::dbCurrency, "2472.1356"}};
    for (size_t i = 0; i < esperados.size(); ++i) {
        const int c = static_cast<int>(i);
        EXPECT_EQ(rs->Fields(c).Type(), esperados[i].first) << i;
        const vb::Variant v = rs->Fields(c).Value();
        const QString t = v.type() == vb::VarType::Double ? QString::number(v.toDouble(), 'f', 4).remove(QRegularExpression("\\.?0+$"))
                                                          : ayuda::Texto(v);
        EXPECT_EQ(t, esperados[i].second) << i;
    }
    // Money into fields of other types, and other numbers into money.
    ejecuta(QStringLiteral("UPDATE m SET N = Monto, R = Monto, T = Monto"));
    EXPECT_EQ(filas(QStringLiteral("SELECT N, R, T FROM m")), QStringList({QStringLiteral("1235|1234.5678|1234.5678")}));
    ejecuta(QStringLiteral("UPDATE m SET Monto = N * 1000000"));
    EXPECT_EQ(unico(QStringLiteral("SELECT Monto FROM m")), QStringLiteral("1235000000"));
    ejecuta(QStringLiteral("UPDATE m SET Monto = R / 3"));
    EXPECT_EQ(unico(QStringLiteral("SELECT Monto FROM m")), QStringLiteral("411.5226"));
    ejecuta(QStringLiteral("UPDATE m SET Monto = '12.345'"));
    EXPECT_EQ(unico(QStringLiteral("SELECT Monto FROM m")), QStringLiteral("12.345"));
}

TEST_F(Moneda, LasComparacionesVenUnSoloValor) {
    ejecuta(QStringLiteral("INSERT INTO m VALUES (1, 0.1, 1, 0.1, 'x')"));
    ejecuta(QStringLiteral("INSERT INTO m VALUES (2, 1, 1, 2.5, 'x')"));
    ejecuta(QStringLiteral("INSERT INTO m VALUES (3, 2.5, 2, 2.5, 'x')"));
    ejecuta(QStringLiteral("INSERT INTO m VALUES (4, 900000000000.0001, 2, 900000000000, 'x')"));
    auto ids = [&](const QString& donde) { return filas(QStringLiteral("SELECT Id FROM m WHERE ") + donde + " ORDER BY Id").join(u','); };
    EXPECT_EQ(ids(QStringLiteral("Monto = 0.1")), QStringLiteral("1"));
    EXPECT_EQ(ids(QStringLiteral("Monto = 1")), QStringLiteral("2"));
    EXPECT_EQ(ids(QStringLiteral("Monto > 1 AND Monto < 3")), QStringLiteral("3"));
    EXPECT_EQ(ids(QStringLiteral("Monto < 0.10001")), QStringLiteral("1"));
    EXPECT_EQ(ids(QStringLiteral("Monto > 900000000000")), QStringLiteral("4"));
    EXPECT_EQ(ids(QStringLiteral("Monto = 900000000000.0001")), QStringLiteral("4"));
    EXPECT_EQ(ids(QStringLiteral("Monto = N")), QStringLiteral("2"));
    EXPECT_EQ(ids(QStringLiteral("Monto = R")), QStringLiteral("1,3"));
    EXPECT_EQ(ids(QStringLiteral("R > Monto")), QStringLiteral("2"));
    EXPECT_EQ(ids(QStringLiteral("Monto = '2.5'")), QStringLiteral("3"));
    EXPECT_EQ(ids(QStringLiteral("Monto BETWEEN 1 AND 2.5")), QStringLiteral("2,3"));
    EXPECT_EQ(ids(QStringLiteral("Monto BETWEEN N AND R")), QStringLiteral("2,3"));
    EXPECT_EQ(ids(QStringLiteral("Monto IN (1, 2.5)")), QStringLiteral("2,3"));
    EXPECT_EQ(ids(QStringLiteral("Monto IN (0.1, R)")), QStringLiteral("1,3"));
    EXPECT_EQ(ids(QStringLiteral("Monto IN (SELECT N FROM m)")), QStringLiteral("2"));
    EXPECT_EQ(ids(QStringLiteral("Monto IN (SELECT R FROM m)")), QStringLiteral("1,3"));
    EXPECT_EQ(ids(QStringLiteral("N IN (SELECT Monto FROM m)")), QStringLiteral("1,2"));
    EXPECT_EQ(ids(QStringLiteral("Monto + 1 = 2")), QStringLiteral("2"));
    EXPECT_EQ(ids(QStringLiteral("Monto * 2 = N + 3")), QStringLiteral("3"));
}

TEST_F(Moneda, LasFuncionesLeenLaMonedaPorSuTipo) {
    ejecuta(QStringLiteral("INSERT INTO m VALUES (1, -1.5, 7, 2.25, 'x')"));
    ejecuta(QStringLiteral("INSERT INTO m (Id, Monto, N) VALUES (2, 2.345, 8)"));
    ejecuta(QStringLiteral("INSERT INTO m (Id, N) VALUES (3, 9)"));
    EXPECT_EQ(filas(QStringLiteral("SELECT CCur(Monto), Int(Monto), Fix(Monto), Round(Monto, 2), Abs(Monto), CDbl(Monto), "
                                   "CLng(Monto), Str(Monto), CStr(Monto), Monto & '$', Format(Monto, '0.000'), Len(Monto), "
                                   "Sgn(Monto) FROM m WHERE Id < 3 ORDER BY Id")),
              QStringList({QStringLiteral("-1.5|-2|-1|-1.5|1.5|-1.5|-2|-1.5|-1.5|-1.5$|-1.500|4|-1"),
                           QStringLiteral("2.345|2|2|2.34|2.345|2.345|2|2.345|2.345|2.345$|2.345|5|1")}));
    EXPECT_EQ(filas(QStringLiteral("SELECT IIf(Monto > 0, Monto, N), IIf(Monto > 0, Monto, R), Nz(Monto, 5), Nz(Monto, R), "
                                   "Nz(Monto), IIf(Monto < 0, 'neg', Monto) FROM m ORDER BY Id")),
              QStringList({QStringLiteral("7|2.25|-1.5|-1.5|-1.5|neg"), QStringLiteral("2.345|2.345|2.345|2.345|2.345|2.345"),
                           QStringLiteral("9|NULL|5|NULL|0|NULL")}));
    auto rs = abre(QStringLiteral("SELECT IIf(Id = 1, Monto, N), Nz(Monto, R), Int(Monto) FROM m"));
    EXPECT_EQ(rs->Fields(0).Type(), dao::dbCurrency);
    EXPECT_EQ(rs->Fields(1).Type(), dao::dbDouble);
    EXPECT_EQ(rs->Fields(2).Type(), dao::dbCurrency);
    // A union, a derived table and a subquery keep one form per column.
    EXPECT_EQ(filas(QStringLiteral("SELECT Monto FROM m WHERE Id = 1 UNION ALL SELECT N FROM m WHERE Id = 3 "
                                   "UNION ALL SELECT R FROM m WHERE Id = 1")),
              QStringList({QStringLiteral("-1.5"), QStringLiteral("9"), QStringLiteral("2.25")}));
    EXPECT_EQ(filas(QStringLiteral("SELECT Monto FROM m WHERE Id = 1 UNION ALL SELECT N FROM m WHERE Id = 3")),
              QStringList({QStringLiteral("-1.5"), QStringLiteral("9")}));
    EXPECT_EQ(unico(QStringLiteral("SELECT Sum(x.S) FROM (SELECT Monto * 2 AS S FROM m) AS x")), QStringLiteral("1.69"));
    EXPECT_EQ(unico(QStringLiteral("SELECT (SELECT Max(Monto) FROM m) + N FROM m WHERE Id = 1")), QStringLiteral("9.345"));
    ejecuta(QStringLiteral("INSERT INTO m (Id, Monto) SELECT 9, Sum(Monto) + 0.0001 FROM m"));
    EXPECT_EQ(unico(QStringLiteral("SELECT Monto FROM m WHERE Id = 9")), QStringLiteral("0.8451"));
}

}  // namespace
