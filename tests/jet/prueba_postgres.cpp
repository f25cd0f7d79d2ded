// The generator for PostgreSQL and its library where the corpus doesn't reach: the case fold of accented
// letters, LIKE's classes in every alphabet, money summed exactly over many rows, TOP with ties, Yes/No
// kept apart from the server's booleans, AutoNumber counters, and the engine's errors raised by the
// library. The pattern translation and the DDL pieces are checked without a server.
#include "ayuda_jet.h"
#include "core/jet/ConexionPostgres.h"
#include "core/jet/EmisorPostgres.h"
#include "core/jet/EsquemaPostgres.h"
#include "tools/ConsolaSql.h"

#include <libpq-fe.h>

#include <gtest/gtest.h>

namespace {

TEST(PatronPostgres, CadaComodinDelDialectoTieneSuExpresion) {
    EXPECT_EQ(jet::PatronComoRegex(QStringLiteral("Ana*")), QStringLiteral("^Ana.*$"));
    EXPECT_EQ(jet::PatronComoRegex(QStringLiteral("?#")), QStringLiteral("^.[[:digit:]]$"));
    EXPECT_EQ(jet::PatronComoRegex(QStringLiteral("[a-c]x[!0-9]")), QStringLiteral("^[a-c]x[^0-9]$"));
    // What a regular expression reads as an operator is a plain character in the dialect.
    EXPECT_EQ(jet::PatronComoRegex(QStringLiteral("1.5 (c+d)$")), QStringLiteral("^1\\.5 \\(c\\+d\\)\\$$"));
    EXPECT_EQ(jet::PatronComoRegex(QStringLiteral("[-^]")), QStringLiteral("^[\\-\\^]$"));
    EXPECT_FALSE(jet::PatronComoRegex(QStringLiteral("abc[d")).has_value());
    EXPECT_FALSE(jet::PatronComoRegex(QStringLiteral("[]")).has_value());
}

TEST(EsquemaPostgres, PredeterminadosYNombres) {
    EXPECT_EQ(jet::PredeterminadoPostgres(QStringLiteral("12.5"), jet::TipoCampo::Currency), QStringLiteral("12.5"));
    EXPECT_EQ(jet::PredeterminadoPostgres(QStringLiteral("=\"S\""), jet::TipoCampo::Text), QStringLiteral("'S'"));
    EXPECT_EQ(jet::PredeterminadoPostgres(QStringLiteral("Now()"), jet::TipoCampo::Date), QStringLiteral("LOCALTIMESTAMP(0)"));
    EXPECT_EQ(jet::PredeterminadoPostgres(QStringLiteral("True"), jet::TipoCampo::Boolean), QStringLiteral("(-1)"));
    EXPECT_EQ(jet::PredeterminadoPostgres(QStringLiteral("-3"), jet::TipoCampo::Long), QStringLiteral("(-3)"));
    EXPECT_TRUE(jet::PredeterminadoPostgres(QStringLiteral("Usuario()"), jet::TipoCampo::Text).isEmpty());
    // Two long names that share their first 63 bytes stay two names.
    const QString largo(70, u'x');
    const QString a = jet::NombreIndicePostgres(largo, QStringLiteral("PrimaryKey"));
    const QString b = jet::NombreIndicePostgres(largo, QStringLiteral("Nombre"));
    EXPECT_LE(a.toUtf8().size(), 63);
    EXPECT_NE(a, b);
    EXPECT_EQ(jet::NombreIndicePostgres(QStringLiteral("Títulos"), QStringLiteral("PrimaryKey")), QStringLiteral("Títulos.PrimaryKey"));
}

// A fresh database of the program on the server of the run, with one table of every kind of field.
class Servidor : public ayuda::BaseJet {
protected:
    void SetUp() override {
        if (!prueba::EnServidor()) GTEST_SKIP() << "sin ADQ_PRUEBA_SERVIDOR";
        BaseJet::SetUp();
        BaseJet::ejecuta(QStringLiteral("CREATE TABLE Prueba (Id COUNTER CONSTRAINT PrimaryKey PRIMARY KEY, Nombre TEXT(20), "
                               "Monto CURRENCY, Activo YESNO, Cuando DATETIME, Cuenta LONG, Real DOUBLE)"));
    }
    jet::ConexionPostgres& servidor() { return *db->postgres(); }
    // SQL as the server reads it, sent as it stands.
    void ejecutaVarias(const QString& sql) { servidor().ejecutaVarias(sql); }
    // The rows an action touched, or minus the engine's error number.
    long long ejecuta(const QString& sentencia) {
        try {
            db->Execute(sentencia, dao::dbFailOnError);
            return db->RecordsAffected();
        } catch (const vb::Error& e) {
            return -e.Number();
        }
    }
    // The first column of every row as the console writes values, or "error <número>".
    QStringList columna(const QString& sentencia) {
        QStringList r;
        try {
            auto rs = db->OpenRecordset(sentencia, dao::dbOpenSnapshot);
            for (; !rs->Eof(); rs->MoveNext()) r << consola::TextoValor(rs->Fields(0).Value());
        } catch (const vb::Error& e) {
            return {QStringLiteral("error %1").arg(e.Number())};
        }
        return r;
    }
    void inserta(const QString& valores) {
        ASSERT_EQ(ejecuta(QStringLiteral("INSERT INTO Prueba (Nombre, Monto, Activo, Cuando, Cuenta, Real) VALUES (%1)").arg(valores)), 1)
            << valores.toStdString();
    }
};

TEST_F(Servidor, TextoSinMayusculasConAcentosDistintosYEñeDespuesDeN) {
    for (const char* n : {"JOSÉ", "josé", "Jose", "Nuño", "Nuo", "Nuno", "Nunz", "ΣΟΦΊΑ"}) inserta(QStringLiteral("'%1', 0, 0, NULL, 0, 0").arg(QString::fromUtf8(n)));
    EXPECT_EQ(columna(QStringLiteral("SELECT Count(*) FROM Prueba WHERE Nombre = 'josé'")), QStringList{QStringLiteral("2")});
    EXPECT_EQ(columna(QStringLiteral("SELECT Count(*) FROM Prueba WHERE Nombre = 'σοφία'")), QStringList{QStringLiteral("1")});
    EXPECT_EQ(columna(QStringLiteral("SELECT Nombre FROM Prueba WHERE Nombre LIKE 'nu*' ORDER BY Nombre")),
              (QStringList{QStringLiteral("Nuno"), QStringLiteral("Nunz"), QStringLiteral("Nuño"), QStringLiteral("Nuo")}));
    EXPECT_EQ(columna(QStringLiteral("SELECT Count(*) FROM (SELECT DISTINCT Nombre FROM Prueba)")), QStringList{QStringLiteral("7")});
    EXPECT_EQ(columna(QStringLiteral("SELECT UCase(Nombre) FROM Prueba WHERE Nombre = 'nuño'")), QStringList{QStringLiteral("NUÑO")});
    // The key of a unique index folds case in every alphabet.
    ejecutaVarias(QStringLiteral("CREATE UNIQUE INDEX uno ON \"Prueba\" (\"Nombre\") WHERE \"Cuenta\" = 7;"));
    inserta(QStringLiteral("'ÁRBOL', 0, 0, NULL, 7, 0"));
    EXPECT_EQ(ejecuta(QStringLiteral("INSERT INTO Prueba (Nombre, Cuenta) VALUES ('árbol', 7)")), -3022);
}

TEST_F(Servidor, LikeConClasesEnCualquierAlfabetoYPatronesQueLlegan) {
    for (const char* n : {"A1", "b2", "É3", "c", "ω9", "Ab"}) inserta(QStringLiteral("'%1', 0, 0, NULL, 0, 0").arg(QString::fromUtf8(n)));
    auto cuenta = [&](const QString& donde) {
        return columna(QStringLiteral("SELECT Count(*) FROM Prueba WHERE ") + donde).value(0);
    };
    EXPECT_EQ(cuenta(QStringLiteral("Nombre LIKE '[a-b]#'")), QStringLiteral("2"));
    EXPECT_EQ(cuenta(QStringLiteral("Nombre LIKE '[!a-b]#'")), QStringLiteral("2"));
    EXPECT_EQ(cuenta(QStringLiteral("Nombre LIKE 'é?'")), QStringLiteral("1"));
    EXPECT_EQ(cuenta(QStringLiteral("Nombre LIKE 'Ω#'")), QStringLiteral("1"));
    EXPECT_EQ(cuenta(QStringLiteral("Nombre NOT LIKE '*#'")), QStringLiteral("2"));
    // A pattern built by the statement is translated as it runs, with the same meaning.
    EXPECT_EQ(cuenta(QStringLiteral("Nombre LIKE '[a-b]' & '#'")), QStringLiteral("2"));
    EXPECT_EQ(cuenta(QStringLiteral("Nombre LIKE Left(Nombre, 1) & '*'")), QStringLiteral("6"));
    EXPECT_EQ(columna(QStringLiteral("SELECT Count(*) FROM Prueba WHERE Nombre LIKE 'a[b' & ''")).value(0).left(10),
              QStringLiteral("error 3075"));
}

TEST_F(Servidor, DineroExactoAlCentavoSobreMuchasFilas) {
    // 3,000 rows of 0.1 and 0.7: a float sum would drift; the server's sum of ten-thousandths doesn't.
    ejecutaVarias(QStringLiteral(
        "INSERT INTO \"Prueba\" (\"Monto\", \"Cuenta\") SELECT CASE WHEN i % 2 = 0 THEN 0.1 ELSE 0.7 END, i FROM generate_series(1, 3000) AS i;"));
    EXPECT_EQ(columna(QStringLiteral("SELECT Sum(Monto) FROM Prueba")), QStringList{QStringLiteral("1200")});
    EXPECT_EQ(columna(QStringLiteral("SELECT Sum(Monto * 3) - 3600 FROM Prueba")), QStringList{QStringLiteral("0")});
    EXPECT_EQ(columna(QStringLiteral("SELECT Avg(Monto) FROM Prueba")), QStringList{QStringLiteral("0.4")});
    EXPECT_EQ(columna(QStringLiteral("SELECT Count(*) FROM Prueba WHERE Monto = 0.7")), QStringList{QStringLiteral("1500")});
    // Written back through the conversion: natural units, rounded to the ten-thousandth, half to even.
    EXPECT_EQ(ejecuta(QStringLiteral("UPDATE Prueba SET Monto = Monto / 3 WHERE Cuenta = 1")), 1);
    EXPECT_EQ(columna(QStringLiteral("SELECT Monto FROM Prueba WHERE Cuenta = 1")), QStringList{QStringLiteral("0.2333")});
    EXPECT_EQ(ejecuta(QStringLiteral("UPDATE Prueba SET Monto = 0.00005 WHERE Cuenta = 2")), 1);
    EXPECT_EQ(columna(QStringLiteral("SELECT Monto FROM Prueba WHERE Cuenta = 2")), QStringList{QStringLiteral("0")});
    EXPECT_EQ(columna(QStringLiteral("SELECT Monto & '' FROM Prueba WHERE Cuenta = 1")), QStringList{QStringLiteral("0.2333")});
}

TEST_F(Servidor, TopConservaLosEmpatesDelUltimo) {
    for (int i : {5, 3, 3, 3, 1}) inserta(QStringLiteral("'n%1', 0, 0, NULL, %1, 0").arg(i));
    EXPECT_EQ(columna(QStringLiteral("SELECT TOP 2 Cuenta FROM Prueba ORDER BY Cuenta DESC")).size(), 4);
    EXPECT_EQ(columna(QStringLiteral("SELECT TOP 1 Cuenta FROM Prueba ORDER BY Cuenta")), QStringList{QStringLiteral("1")});
    EXPECT_EQ(columna(QStringLiteral("SELECT TOP 40 PERCENT Cuenta FROM Prueba ORDER BY Cuenta DESC")).size(), 4);
}

TEST_F(Servidor, SiNoSonMenosUnoYCeroNuncaBooleanos) {
    inserta(QStringLiteral("'a', 1, True, #2024-01-05#, 2, 2.5"));
    inserta(QStringLiteral("'b', 2, False, NULL, 3, 0"));
    EXPECT_EQ(columna(QStringLiteral("SELECT Nombre FROM Prueba WHERE Activo")), QStringList{QStringLiteral("a")});
    EXPECT_EQ(columna(QStringLiteral("SELECT Nombre FROM Prueba WHERE NOT Activo")), QStringList{QStringLiteral("b")});
    EXPECT_EQ(columna(QStringLiteral("SELECT IIf(Activo, 'si', 'no') FROM Prueba ORDER BY Nombre")),
              (QStringList{QStringLiteral("si"), QStringLiteral("no")}));
    EXPECT_EQ(columna(QStringLiteral("SELECT (Cuenta = 2) * 1 FROM Prueba ORDER BY Nombre")),
              (QStringList{QStringLiteral("-1"), QStringLiteral("0")}));
    EXPECT_EQ(columna(QStringLiteral("SELECT Nombre FROM Prueba WHERE IsNull(Cuando) = True")), QStringList{QStringLiteral("b")});
    EXPECT_EQ(columna(QStringLiteral("SELECT Cuenta > 2 FROM Prueba ORDER BY Nombre")),
              (QStringList{QStringLiteral("0"), QStringLiteral("-1")}));
    // The dialect's texts of typed values.
    EXPECT_EQ(columna(QStringLiteral("SELECT Activo & '|' & Cuando & '|' & Real & '|' & Monto FROM Prueba WHERE Nombre = 'a'")),
              QStringList{QStringLiteral("Verdadero|05/01/2024|2.5|1")});
    EXPECT_EQ(columna(QStringLiteral("SELECT Cuando + 1.5 FROM Prueba WHERE Nombre = 'a'")),
              QStringList{QStringLiteral("2024-01-06 12:00:00")});
}

TEST_F(Servidor, ContadorSigueAlMayorEscritoYSeReservaAntes) {
    inserta(QStringLiteral("'a', 0, 0, NULL, 0, 0"));
    EXPECT_EQ(ejecuta(QStringLiteral("INSERT INTO Prueba (Id, Nombre) VALUES (40, 'b')")), 1);
    inserta(QStringLiteral("'c', 0, 0, NULL, 0, 0"));
    EXPECT_EQ(columna(QStringLiteral("SELECT Id FROM Prueba ORDER BY Id")),
              (QStringList{QStringLiteral("1"), QStringLiteral("40"), QStringLiteral("41")}));
    const QString siguiente = jet::SiguienteContadorPostgres(*db->catalogo().tabla(QStringLiteral("Prueba")));
    EXPECT_EQ(servidor().ejecuta(QStringLiteral("SELECT ") + siguiente).texto(0, 0), QStringLiteral("42"));
    EXPECT_EQ(ejecuta(QStringLiteral("INSERT INTO Prueba (Id, Nombre) VALUES (42, 'd')")), 1);
    inserta(QStringLiteral("'e', 0, 0, NULL, 0, 0"));
    EXPECT_EQ(columna(QStringLiteral("SELECT Max(Id) FROM Prueba")), QStringList{QStringLiteral("43")});
}

TEST_F(Servidor, LaBibliotecaLevantaLosErroresDelMotor) {
    EXPECT_EQ(ejecuta(QStringLiteral("INSERT INTO Prueba (Nombre) VALUES ('%1')").arg(QString(21, u'x'))), -3163);
    EXPECT_EQ(ejecuta(QStringLiteral("INSERT INTO Prueba (Nombre, Cuenta) VALUES ('a', 3000000000)")), -3349);
    EXPECT_EQ(ejecuta(QStringLiteral("INSERT INTO Prueba (Nombre, Cuenta) VALUES ('a', 'doce')")), -3464);
    EXPECT_EQ(ejecuta(QStringLiteral("INSERT INTO Prueba (Nombre, Cuando) VALUES ('a', '31/02/2024')")), -3464);
    EXPECT_EQ(ejecuta(QStringLiteral("INSERT INTO Prueba (Nombre, Cuando, Cuenta) VALUES ('a', '05/01/2024', '12')")), 1);
    EXPECT_EQ(columna(QStringLiteral("SELECT Cuando FROM Prueba")), QStringList{QStringLiteral("2024-01-05 00:00:00")});
    BaseJet::ejecuta(QStringLiteral("CREATE TABLE Requerida (Clave TEXT(5) NOT NULL, Otro LONG)"));
    EXPECT_EQ(ejecuta(QStringLiteral("INSERT INTO Requerida (Otro) VALUES (1)")), -3314);
    // The description travels with the number, the field's name in it.
    try {
        db->Execute(QStringLiteral("INSERT INTO Requerida (Clave) VALUES (Null)"), dao::dbFailOnError);
        ADD_FAILURE() << "a Null in a required field was taken";
    } catch (const vb::Error& e) {
        EXPECT_EQ(e.Number(), 3314);
        EXPECT_TRUE(e.Description().contains(QLatin1String("'Clave'"))) << e.Description().toStdString();
    }
    // Host values arrive as text in their stored form, cast where they are used.
    const jet::ResultadoPg p = servidor().ejecuta(QStringLiteral("SELECT $1::numeric / 10000, $2::integer"),
                                                  {jet::ParametroDe(vb::Variant(vb::Currency::fromRaw(125000)), true),
                                                   jet::ParametroDe(vb::Variant(true), true)});
    EXPECT_EQ(p.texto(0, 0).toDouble(), 12.5);
    EXPECT_EQ(p.texto(0, 1), QStringLiteral("-1"));
}

// The server restarted, or this connection cut: the statement that meets it fails with a clear message, and
// the next one works again on a new connection.
TEST_F(Servidor, UnaConexionPerdidaSeDiceClaroYLaSiguienteSentenciaSigue) {
    inserta(QStringLiteral("'a', 0, 0, NULL, 0, 0"));
    auto otra = jet::ConexionPostgres::Conecta(db->Name());
    otra->ejecuta(QStringLiteral("SELECT pg_terminate_backend($1::integer)"),
                  {jet::ParametroDe(vb::Variant::Long(PQbackendPID(servidor().conexion())), false)});
    try {
        db->OpenRecordset(QStringLiteral("SELECT Nombre FROM Prueba"));
        ADD_FAILURE() << "a cut connection went unnoticed";
    } catch (const vb::Error& e) {
        EXPECT_EQ(e.Number(), 3043);
        EXPECT_TRUE(e.Description().startsWith(QStringLiteral("Se perdió la conexión con el servidor de base de datos")))
            << e.Description().toStdString();
    }
    EXPECT_EQ(columna(QStringLiteral("SELECT Nombre FROM Prueba")), QStringList{QStringLiteral("a")});
    inserta(QStringLiteral("'b', 0, 0, NULL, 0, 0"));
    EXPECT_EQ(columna(QStringLiteral("SELECT Count(*) FROM Prueba")), QStringList{QStringLiteral("2")});
}

}  // namespace
