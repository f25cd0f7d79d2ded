// Statements of any length or shape: nesting within the engine's depth runs, beyond it the engine says the
// query is too complex, and long chains of one operator run whatever their length. None ends the process.
#include "ayuda_jet.h"

#include "core/jet/ErroresMotor.h"
#include "core/jet/Parser.h"

namespace {

QString Repite(const QString& t, int n) { return t.repeated(n); }

// n operands joined by an operator: "x1 op x2 op ... op xn".
QString Cadena(int n, const QString& op, const std::function<QString(int)>& operando) {
    QStringList partes;
    for (int i = 0; i < n; ++i) partes << operando(i);
    return partes.join(op);
}

class Limites : public ayuda::BaseJet {
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
        EXPECT_EQ(texto(forma(n)), esperado) << n << ' ' << forma(1).toStdString();
        for (int n : {jet::LimiteAnidamiento + 1, 100000})
            EXPECT_EQ(error(forma(n)), jet::ErrConsultaCompleja) << n << ' ' << forma(1).toStdString();
    }
    // Parentheses alone around a value nest nothing the engine keeps, but are still counted while read.
    EXPECT_EQ(error("SELECT " + Repite("(", 14000) + "1" + Repite(")", 14000) + " AS a"), jet::ErrConsultaCompleja);
    // Unclosed, cut short or left open halfway: a syntax error or the depth, never a crash.
    for (const QString& s : {"SELECT " + Repite("(", 50000) + "1 AS a", "SELECT " + Repite("Abs(", 50000),
                             "SELECT * FROM " + Repite("(", 50000) + "Bibliotecas"})
        EXPECT_NE(error(s), 0);
    // A criterion of a recordset goes through the same reader.
    auto rs = abre("SELECT [No] FROM Bibliotecas", dao::dbOpenDynaset);
    EXPECT_EQ(ayuda::ErrorDe([&] { rs->FindFirst(Repite("NOT ", 20000) + "[No] = 3"); }), jet::ErrConsultaCompleja);
}

TEST_F(Limites, CadenasLargasDeUnOperadorYListasLargasCorren) {
    // The lists screens build by concatenation: many libraries OR'ed, texts joined.
    EXPECT_EQ(texto("SELECT Count(*) FROM Bibliotecas WHERE " +
                    Cadena(10000, " OR ", [](int i) { return QStringLiteral("[No] = %1").arg(i % 40); })), "30");
    const QString unidos = texto("SELECT " + Cadena(10000, " & ", [](int i) { return QString::number(i % 10); }) + " AS a");
    EXPECT_TRUE(unidos.size() == 10000 && unidos.startsWith("0123456789012")) << unidos.left(20).toStdString();
    // Null inside a & chain reads as empty; a chain whose steps change kind keeps each step's own rule.
    EXPECT_EQ(texto("SELECT 'a' & Null & 'b' & Nombre & 'c' AS a FROM Bibliotecas WHERE [No] = 2"), "abBiblioteca 2c");
    EXPECT_EQ(texto("SELECT 'a' + 'b' + 'c' & 1 + 2 AS a"), "abc3");
    EXPECT_EQ(texto("SELECT #2026/01/01# + 1 + 1 + 1 AS a"), "2026-01-04 00:00:00");
    EXPECT_EQ(error("SELECT #2026/01/01# " + Repite("+ 1 ", 20000) + "AS a"), jet::ErrConsultaCompleja);
    // Operators that do not associate nest one level per term.
    EXPECT_EQ(texto("SELECT 100 - 1 - 2 - 3 AS a"), "94");
    EXPECT_EQ(error("SELECT 0 " + Repite("- 1 ", 10000) + "AS a"), jet::ErrConsultaCompleja);
    EXPECT_EQ(error("SELECT 1 " + Repite("= 1 ", 10000) + "AS a"), jet::ErrConsultaCompleja);
    // A select list as long as the engine gives a query (2,000 columns in a file, 1,664 on a server) can be
    // opened to be written through; more is the engine's error.
    const int columnas = db->EnServidor() ? 1664 : 2000;
    auto rs = abre("SELECT " + Cadena(columnas, ", ", [](int i) { return QStringLiteral("%1 AS c%1").arg(i); }) +
                   " FROM Bibliotecas WHERE [No] = 1");
    ASSERT_EQ(rs->Fields().Count(), columnas);
    EXPECT_EQ(rs->Fields(columnas - 1).Value().toLong(), columnas - 1);
    EXPECT_EQ(error("SELECT " + Cadena(columnas + 1, ", ", [](int i) { return QString::number(i); })), jet::ErrDemasiadosCampos);
    EXPECT_EQ(texto("SELECT Count(*) FROM Bibliotecas WHERE [No] IN (" + Cadena(5000, ", ", [](int i) { return QString::number(i); }) + ")"), "30");
}

TEST_F(Limites, NingunMensajeDeSqliteLlegaAlUsuario) {
    // What the embedded engine refuses is told with the engine's numbers and Spanish texts.
    for (const QString& s : {QStringLiteral("SELECT 1e309 AS a"), QStringLiteral("SELECT -1e400 AS a"),
                             QStringLiteral("SELECT 'a") + QChar(0) + "b' AS a", QStringLiteral("SELECT Space(2000000000) AS a"),
                             QStringLiteral("SELECT Space(-5) AS a"), "SELECT " + Cadena(3000, ", ", [](int i) { return QString::number(i); })}) {
        try {
            abre(s, dao::dbOpenSnapshot);
        } catch (const vb::Error& e) {
            for (const char* ingles : {"no such", "unrecognized", "too many", "SQL"})
                EXPECT_FALSE(e.Description().contains(QLatin1String(ingles))) << e.Description().toStdString();
            EXPECT_GE(e.Number(), 3) << s.left(40).toStdString();
        }
    }
    EXPECT_EQ(error("SELECT 1e309 AS a"), jet::ErrSintaxisExpresion);
    EXPECT_EQ(error("SELECT Space(2000000000) AS a"), jet::ErrRecursosExcedidos);
    // A NUL inside a text is a character like any other in a file. A server's texts can't hold it: the
    // value is refused whole, never stored cut short.
    const QString conNul = QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    const QString inserta = "INSERT INTO Bibliotecas ([No], Nombre) VALUES (99, '" + conNul + "')";
    if (db->EnServidor()) {
        EXPECT_EQ(error("SELECT '" + conNul + "' AS a"), jet::ErrTiposNoCoinciden);
        EXPECT_EQ(error(inserta), jet::ErrTiposNoCoinciden);
        auto rs = abre("SELECT [No], Nombre FROM Bibliotecas", dao::dbOpenDynaset);
        rs->AddNew();
        rs->Fields(0) = vb::Variant(98);
        rs->Fields(1) = vb::Variant(conNul);
        EXPECT_EQ(ayuda::ErrorDe([&] { rs->Update(); }), jet::ErrTiposNoCoinciden);
        EXPECT_EQ(texto("SELECT Count(*) FROM Bibliotecas WHERE [No] >= 98"), "0");
    } else {
        EXPECT_EQ(valor("SELECT '" + conNul + "' AS a").toString(), conNul);
        ejecuta(inserta);
        EXPECT_EQ(valor("SELECT Len(Nombre) FROM Bibliotecas WHERE [No] = 99").toLong(), 3);
    }
    // The login box puts the typed name into its statement as it stands.
    EXPECT_EQ(error("select * from Analistas where Login='" + Repite("(", 7000) + "x" + Repite("NOT ", 3500) + "'"), 0);
    EXPECT_NE(error("select * from Analistas where Login='" + Repite("x' OR NOT (", 5000) + "'"), 0);
}

}  // namespace
