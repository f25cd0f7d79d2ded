// Statements of any length or shape: nesting within the engine's depth runs, beyond it the engine says the
// query is too complex, and long chains of one operator run whatever their length. None ends the process.
#include "ayuda_jet.h"

#include "core/jet/ErroresMotor.h"
#include "core/jet/Parser.h"

namespace {

using ayuda::BaseJet;

QString Repite(const QString& t, int n) { return t.repeated(n); }

// n operands joined by an operator: "x1 op x2 op ... op xn".
QString Cadena(int n, const QString& op, const std::function<QString(int)>& operando) {
    QStringList partes;
    partes.reserve(n);
    for (int i = 0; i < n; ++i) partes << operando(i);
    return partes.join(op);
}

class Limites : public BaseJet {
protected:
    void SetUp() override {
        BaseJet::SetUp();
        for (int i = 1; i <= 30; ++i)
            ejecuta(QStringLiteral("INSERT INTO Bibliotecas ([No], Nombre) VALUES (%1, 'Biblioteca %1')").arg(i));
    }
};

TEST_F(Limites, AnidamientoDentroDelLimiteCorreFueraDeElEsConsultaCompleja) {
    // Each shape nests by another construct: parentheses around sums, functions, NOT, signs, subqueries.
    const std::vector<std::pair<QString, std::function<QString(int)>>> formas = {
        {"1", [](int n) { return "SELECT " + Repite("(0 + ", n) + "1" + Repite(")", n) + " AS a"; }},
        {"1", [](int n) { return "SELECT " + Repite("Abs(", n) + "-1" + Repite(")", n) + " AS a"; }},
        {"True", [](int n) { return "SELECT " + Repite("NOT ", 2 * (n / 2)) + "True AS a"; }},
        {"7", [](int n) { return "SELECT " + Repite("- ", 2 * (n / 2)) + "7 AS a"; }},
        {"1", [](int n) { return "SELECT " + Repite("(SELECT ", n) + "1" + Repite(")", n) + " AS a"; }},
    };
    for (const auto& [esperado, forma] : formas) {
        // The deepest of the shape the reader takes runs to its value on the engine.
        int n = 1;
        while (ayuda::ErrorDe([&] { jet::Analiza(forma(n + 1)); }) == 0) ++n;
        EXPECT_GE(n, jet::LimiteAnidamiento / 3) << forma(1).toStdString();
        const QString corta = forma(n);
        EXPECT_EQ(texto(corta), esperado) << n << ' ' << corta.left(60).toStdString();
        for (int n : {jet::LimiteAnidamiento + 1, 6000, 100000}) {
            const QString larga = forma(n);
            EXPECT_EQ(error(larga), jet::ErrConsultaCompleja) << n << ' ' << larga.left(60).toStdString();
        }
    }
    // Parentheses alone around a value nest nothing the engine keeps, but are still counted while read.
    EXPECT_EQ(error("SELECT " + Repite("(", 14000) + "1" + Repite(")", 14000) + " AS a"), jet::ErrConsultaCompleja);
    // Unclosed, cut short or left open halfway: a syntax error or the depth, never a crash.
    EXPECT_NE(error("SELECT " + Repite("(", 50000) + "1 AS a"), 0);
    EXPECT_NE(error("SELECT " + Repite("Abs(", 50000)), 0);
    EXPECT_NE(error("SELECT * FROM " + Repite("(", 50000) + "Bibliotecas"), 0);
    // A criterion of a recordset goes through the same reader.
    auto rs = abre("SELECT [No] FROM Bibliotecas", dao::dbOpenDynaset);
    EXPECT_EQ(ayuda::ErrorDe([&] { rs->FindFirst(Repite("NOT ", 20000) + "[No] = 3"); }), jet::ErrConsultaCompleja);
}

TEST_F(Limites, CadenasLargasDeUnOperadorCorren) {
    // The lists screens build by concatenation: many libraries OR'ed, amounts added, texts joined.
    const QString muchasOr = Cadena(10000, " OR ", [](int i) { return QStringLiteral("[No] = %1").arg(i % 40); });
    EXPECT_EQ(texto("SELECT Count(*) FROM Bibliotecas WHERE " + muchasOr), "30");
    const QString muchasAnd = Cadena(10000, " AND ", [](int i) { return QStringLiteral("[No] <> %1").arg(100 + i); });
    EXPECT_EQ(texto("SELECT Count(*) FROM Bibliotecas WHERE " + muchasAnd), "30");
    EXPECT_EQ(texto("SELECT " + Cadena(10000, " + ", [](int) { return QStringLiteral("1"); }) + " AS a"), "10000");
    EXPECT_EQ(texto("SELECT " + Cadena(6999, " * ", [](int i) { return QString::fromLatin1(i % 2 ? "-1" : "1"); }) + " AS a"), "-1");
    const QString unidos = texto("SELECT " + Cadena(10000, " & ", [](int i) { return QString::number(i % 10); }) + " AS a");
    EXPECT_EQ(unidos.size(), 10000);
    EXPECT_TRUE(unidos.startsWith("0123456789012"));
    // Text + text joins at every step, Null inside a & chain reads as empty.
    EXPECT_EQ(texto("SELECT " + Cadena(500, " + ", [](int) { return QStringLiteral("'ab'"); }) + " AS a").size(), 1000);
    EXPECT_EQ(texto("SELECT 'a' & Null & 'b' & Nombre & 'c' AS a FROM Bibliotecas WHERE [No] = 2"), "abBiblioteca 2c");
    // A chain whose steps change kind is nested pair by pair, with each step's own rule.
    EXPECT_EQ(texto("SELECT 'a' + 'b' + 'c' & 1 + 2 AS a"), "abc3");
    EXPECT_EQ(texto("SELECT #2026/01/01# + 1 + 1 + 1 AS a"), "2026-01-04 00:00:00");
    EXPECT_EQ(error("SELECT #2026/01/01# " + Repite("+ 1 ", 20000) + "AS a"), jet::ErrConsultaCompleja);
    // Operators that do not associate nest one level per term.
    EXPECT_EQ(texto("SELECT 100 - 1 - 2 - 3 AS a"), "94");
    EXPECT_EQ(error("SELECT 0 " + Repite("- 1 ", 10000) + "AS a"), jet::ErrConsultaCompleja);
    EXPECT_EQ(error("SELECT 1 " + Repite("= 1 ", 10000) + "AS a"), jet::ErrConsultaCompleja);
}

TEST_F(Limites, ListasLargasDeColumnasYDeValores) {
    // A select list of 2,000 columns is as long as SQLite gives a query; more is the engine's error.
    const QString dosMil = Cadena(2000, ", ", [](int i) { return QStringLiteral("%1 AS c%1").arg(i); });
    auto rs = abre("SELECT " + dosMil + " FROM Bibliotecas WHERE [No] = 1");
    ASSERT_EQ(rs->Fields().Count(), 2000);
    EXPECT_EQ(rs->Fields(1999).Value().toLong(), 1999);
    EXPECT_EQ(error("SELECT " + Cadena(2001, ", ", [](int i) { return QString::number(i); })), jet::ErrDemasiadosCampos);
    // IN lists of many values.
    EXPECT_EQ(texto("SELECT Count(*) FROM Bibliotecas WHERE [No] IN (" +
                    Cadena(5000, ", ", [](int i) { return QString::number(i); }) + ")"),
              "30");
}

TEST_F(Limites, NingunMensajeDeSqliteLlegaAlUsuario) {
    // What the embedded engine refuses is told with the engine's numbers and Spanish texts.
    const QStringList sentencias = {
        "SELECT 1e309 AS a",
        "SELECT -1e400 AS a",
        QStringLiteral("SELECT 'a") + QChar(0) + "b' AS a",
        "SELECT Space(2000000000) AS a",
        "SELECT Space(-5) AS a",
        "SELECT " + Cadena(3000, ", ", [](int i) { return QString::number(i); }),
    };
    for (const QString& s : sentencias) {
        try {
            abre(s, dao::dbOpenSnapshot);
        } catch (const vb::Error& e) {
            EXPECT_FALSE(e.Description().contains(QLatin1String("no such"))) << e.Description().toStdString();
            EXPECT_FALSE(e.Description().contains(QLatin1String("unrecognized"))) << e.Description().toStdString();
            EXPECT_FALSE(e.Description().contains(QLatin1String("too many"))) << e.Description().toStdString();
            EXPECT_FALSE(e.Description().contains(QLatin1String("SQL"))) << e.Description().toStdString();
            EXPECT_GE(e.Number(), 3) << s.left(40).toStdString();
        }
    }
    EXPECT_EQ(error("SELECT 1e309 AS a"), jet::ErrSintaxisExpresion);
    // A NUL inside a text is a character like any other.
    const QString conNul = QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    EXPECT_EQ(valor("SELECT '" + conNul + "' AS a").toString(), conNul);
    ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (99, '" + conNul + "')");
    EXPECT_EQ(valor("SELECT Len(Nombre) FROM Bibliotecas WHERE [No] = 99").toLong(), 3);
    EXPECT_EQ(error("SELECT Space(2000000000) AS a"), jet::ErrRecursosExcedidos);
}

TEST_F(Limites, ElNombreDeEntradaLargoNoDerribaElPrograma) {
    // The login box puts the typed name into its statement as it stands.
    const QString nombre = Repite("(", 7000) + QStringLiteral("x") + Repite("NOT ", 3500);
    const int n = error("select * from Analistas where Login='" + nombre + "'");
    EXPECT_EQ(n, 0);
    const QString conComilla = Repite("x' OR NOT (", 5000);
    EXPECT_NE(error("select * from Analistas where Login='" + conComilla + "'"), 0);
}

}  // namespace
