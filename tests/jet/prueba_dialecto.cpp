// The dialect's meaning on the engine: names, literals, wildcards, text comparison, functions, joins,
// action statements, DDL, the types of result columns and the errors the screens trap by number.
#include "ayuda_jet.h"

#include "core/jet/ErroresMotor.h"

namespace {

using ayuda::BaseJet;
using ayuda::Texto;

class Dialecto : public BaseJet {
protected:
    void SetUp() override {
        BaseJet::SetUp();
        ejecuta("INSERT INTO Bibliotecas ([No], Nombre, [Nombre corto]) VALUES (1, 'Biblioteca Central', 'Central')");
        ejecuta("INSERT INTO Bibliotecas ([No], Nombre, [Nombre corto], Director) VALUES (2, 'Biblioteca de Ingeniería', 'FIME', 'Ing. Treviño')");
        ejecuta("INSERT INTO Instituciones ([No], Nombre, [Telefono/Fax], [E-mail]) VALUES (7, 'Fundación', '81 8340', 'f@x.example')");
    }
};

TEST_F(Dialecto, NombresEntreCorchetesYSinDistinguirMayusculas) {
    // A column is named as the statement writes it; a star names each column as the schema does.
    auto rs = abre("SELECT nombre, [nombre CORTO], b.[Director] FROM bibliotecas AS b");
    EXPECT_EQ(rs->Fields(0).Name(), "nombre");
    EXPECT_EQ(rs->Fields(1).Name(), "nombre CORTO");
    EXPECT_EQ(rs->Fields(2).Name(), "Director");
    EXPECT_EQ(rs->Fields("NOMBRE").Value().toString(), "Biblioteca Central");
    EXPECT_EQ(abre("SELECT * FROM BIBLIOTECAS")->Fields(1).Name(), "Nombre");
    EXPECT_EQ(abre("SELECT [ejemplares Pedidos] FROM [Solicitudes Libros]")->Fields(0).Name(), "ejemplares Pedidos");
    EXPECT_EQ(abre("SELECT s.[Ejemplares Pedidos] FROM [Solicitudes Libros] s")->Fields(0).Name(), "Ejemplares Pedidos");
    // Written back through the name as the statement gave it.
    auto editable = abre("SELECT NOMBRE FROM Bibliotecas WHERE [No] = 1", dao::dbOpenDynaset);
    editable->Edit();
    editable->Fields("nombre") = vb::Variant(QStringLiteral("Central"));
    editable->Update();
    EXPECT_EQ(texto("SELECT Nombre FROM Bibliotecas WHERE [No] = 1"), "Central");
}

TEST_F(Dialecto, TopIncluyeLosEmpatesDelUltimo) {
    ejecuta("INSERT INTO Bibliotecas ([No], Nombre, Director) VALUES (3, 'Tercera', 'Ing. Treviño')");
    ejecuta("INSERT INTO Bibliotecas ([No], Nombre, Director) VALUES (4, 'Cuarta', 'Lic. Zapata')");
    // Two rows share the first place: TOP 1 gives both.
    EXPECT_EQ(filas("SELECT TOP 2 Director FROM Bibliotecas WHERE Director IS NOT NULL ORDER BY Director"),
              (QStringList{"Ing. Treviño", "Ing. Treviño"}));
    EXPECT_EQ(filas("SELECT TOP 1 [No] FROM Bibliotecas WHERE Director IS NOT NULL ORDER BY Director"), (QStringList{"2", "3"}));
    EXPECT_EQ(filas("SELECT TOP 1 [No] FROM Bibliotecas WHERE Director IS NOT NULL ORDER BY Director DESC"), (QStringList{"4"}));
    EXPECT_EQ(filas("SELECT TOP 2 [No] FROM Bibliotecas ORDER BY UCase(Director) DESC, [No]"), (QStringList{"4", "2"}));
    // Case does not break a tie, as text compares.
    ejecuta("UPDATE Bibliotecas SET Director = 'ING. TREVIÑO' WHERE [No] = 3");
    EXPECT_EQ(filas("SELECT TOP 1 Nombre FROM Bibliotecas WHERE Director IS NOT NULL ORDER BY Director").size(), 2);
    // Without an order there is no tie; a percentage rounds up and keeps its ties too.
    EXPECT_EQ(filas("SELECT TOP 2 [No] FROM Bibliotecas").size(), 2);
    EXPECT_EQ(filas("SELECT TOP 25 PERCENT [No] FROM Bibliotecas WHERE Director IS NOT NULL ORDER BY Director"), (QStringList{"2", "3"}));
    // In a subquery and with grouping.
    EXPECT_EQ(texto("SELECT Count(*) FROM Bibliotecas WHERE [No] IN (SELECT TOP 1 [No] FROM Bibliotecas WHERE Director "
                    "IS NOT NULL ORDER BY Director)"),
              "2");
    EXPECT_EQ(filas("SELECT TOP 1 Director, Count(*) AS n FROM Bibliotecas WHERE Director IS NOT NULL GROUP BY Director "
                    "ORDER BY Count(*) DESC"),
              (QStringList{"Ing. Treviño|2"}));
    // A TOP query over one table still writes back.
    auto rs = abre("SELECT TOP 1 Nombre FROM Bibliotecas ORDER BY [No] DESC", dao::dbOpenDynaset);
    rs->Edit();
    rs->Fields(0) = vb::Variant(QStringLiteral("Última"));
    rs->Update();
    EXPECT_EQ(texto("SELECT Nombre FROM Bibliotecas WHERE [No] = 4"), "Última");
}

// Sorted by a key no two rows share, TOP n has no ties to look for: the same rows as ever. A unique field that
// may be empty is no such key, as its empty rows tie.
TEST_F(Dialecto, TopPorUnaClaveSinEmpates) {
    ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (9, 'Novena')");
    EXPECT_EQ(filas("SELECT TOP 2 [No], Nombre FROM Bibliotecas ORDER BY [No] DESC"), (QStringList{"9|Novena", "2|Biblioteca de Ingeniería"}));
    EXPECT_EQ(filas("SELECT TOP 1 * FROM Bibliotecas WHERE [No] < 9 ORDER BY Nombre, [No] DESC").value(0).section(u'|', 0, 1),
              "1|Biblioteca Central");
    ejecuta("INSERT INTO [Solicitudes Libros] (Titulo) VALUES ('a')");
    ejecuta("INSERT INTO [Solicitudes Libros] (Titulo) VALUES ('b')");
    EXPECT_EQ(filas("SELECT TOP 1 Titulo FROM [Solicitudes Libros] ORDER BY ClaveLibro DESC"), QStringList{"b"});
    ejecuta("CREATE TABLE Claves (Id LONG, Codigo TEXT(5) CONSTRAINT Unico UNIQUE)");
    for (const char* fila : {"1, NULL", "2, NULL", "3, 'x'"})
        ejecuta(QStringLiteral("INSERT INTO Claves VALUES (%1)").arg(QString::fromUtf8(fila)));
    EXPECT_EQ(filas("SELECT TOP 1 Id FROM Claves ORDER BY Codigo, Id DESC"), (QStringList{"2"}));
    EXPECT_EQ(filas("SELECT TOP 1 Id FROM Claves ORDER BY Codigo"), (QStringList{"1", "2"}));
}

TEST_F(Dialecto, LiteralesDeFechaEnTodasSusFormas) {
    const std::vector<std::pair<QString, QString>> casos = {
        {"#2026/03/07 14:05:09#", "2026-03-07 14:05:09"},
        {"#03/07/2026#", "2026-03-07 00:00:00"},          // month first
        {"#13/02/2026#", "2026-02-13 00:00:00"},          // no month 13: day first
        {"#07/mar/2026#", "2026-03-07 00:00:00"},
        {"#07/ene/2026#", "2026-01-07 00:00:00"},
        {"#07/Jan/2026#", "2026-01-07 00:00:00"},
        {"#01/ago/2026#", "2026-08-01 00:00:00"},
        {"#01/AUG/2026#", "2026-08-01 00:00:00"},
        {"#15/dic/2026#", "2026-12-15 00:00:00"},
        {"#20/abr/2026#", "2026-04-20 00:00:00"},
    };
    for (const auto& [literal, esperado] : casos) {
        EXPECT_EQ(texto("SELECT " + literal), esperado) << literal.toStdString();
        // A row written with the literal is found by it.
        ejecuta("DELETE FROM Prestamos");
        ejecuta("INSERT INTO Prestamos (NoCuenta, FechaPrestamo) VALUES ('1', " + literal + ")");
        EXPECT_EQ(cuenta("Prestamos WHERE FechaPrestamo = " + literal), 1) << literal.toStdString();
    }
    EXPECT_EQ(error("SELECT [No] FROM Bibliotecas WHERE ## = 1"), jet::ErrSintaxisExpresion);
    EXPECT_EQ(error("SELECT #2026/02/30#"), jet::ErrSintaxisExpresion);
    EXPECT_EQ(error("SELECT #2026/03/07"), jet::ErrSintaxisExpresion);
}

TEST_F(Dialecto, LikeConLosComodinesDelDialecto) {
    ejecuta("CREATE TABLE T (Id COUNTER, Texto TEXT(50), Numero LONG)");
    struct Caso { QString valor, patron; bool coincide; };
    const std::vector<Caso> casos = {
        {"Alfaomega", "ALFA?MEGA", true}, {"Alfaomega", "Alfa?", false}, {"Lote 42", "Lote ##", true},
        {"Lote 4x", "Lote ##", false},    {"biblioteca", "[A-C]*", true}, {"Zeta", "[a-c]*", false},
        {"Zeta", "[!a-c]*", true},        {"MECÁNICA", "*cánica", true},  {"50%", "50%", true},
        {"500", "50%", false},            {"a_b", "a_b", true},           {"axb", "a_b", false},
        {"*", "[*]", true},               {"", "*", true},
    };
    for (const auto& c : casos) {
        ejecuta("DELETE * FROM T");
        ejecuta("INSERT INTO T (Texto) VALUES ('" + c.valor + "')");
        EXPECT_EQ(cuenta("T WHERE Texto LIKE '" + c.patron + "'"), c.coincide ? 1 : 0)
            << c.valor.toStdString() << " LIKE " << c.patron.toStdString();
        EXPECT_EQ(cuenta("T WHERE Texto NOT LIKE '" + c.patron + "'"), c.coincide ? 0 : 1);
    }
    // On a number column the pattern reads the number's digits.
    ejecuta("DELETE * FROM T");
    ejecuta("INSERT INTO T (Numero) VALUES (123)");
    ejecuta("INSERT INTO T (Numero) VALUES (312)");
    EXPECT_EQ(filas("SELECT Numero FROM T WHERE Numero LIKE '12*'"), QStringList{"123"});
    EXPECT_EQ(filas("SELECT Numero FROM T WHERE Numero LIKE 312"), QStringList{"312"});
    EXPECT_EQ(cuenta("T WHERE Numero LIKE '#2#'"), 1);
}

TEST_F(Dialecto, TextoSinDistinguirMayusculasNiEnLasAcentuadas) {
    for (const char* n : {"Nube", "Oca", "ÁLVAREZ", "Ñandú", "Alvarez", "nzeta", "Azul", "Nada"})
        ejecuta(QStringLiteral("INSERT INTO Editoriales ([No], Nombre) SELECT Count(*) + 1, '%1' FROM Editoriales").arg(QString::fromUtf8(n)));
    EXPECT_EQ(filas("SELECT Nombre FROM Editoriales WHERE Nombre = 'álvarez'"), QStringList{"ÁLVAREZ"});
    EXPECT_EQ(cuenta("Editoriales WHERE Nombre = 'ñandú'"), 1);
    EXPECT_EQ(cuenta("Editoriales WHERE Nombre IN ('NUBE', 'oca')"), 2);
    EXPECT_EQ(filas("SELECT Nombre FROM Editoriales ORDER BY Nombre"),
              (QStringList{"Alvarez", "ÁLVAREZ", "Azul", "Nada", "Nube", "nzeta", "Ñandú", "Oca"}));
    EXPECT_EQ(filas("SELECT Max(Nombre), Min(Nombre) FROM Editoriales WHERE Nombre < 'O'"), QStringList{"Ñandú|Alvarez"});
    ejecuta("INSERT INTO Editoriales ([No], Nombre) VALUES (20, 'nube')");
    EXPECT_EQ(filas("SELECT DISTINCT Nombre FROM Editoriales WHERE Nombre LIKE 'n*' ORDER BY Nombre").size(), 3);
}

TEST_F(Dialecto, ConcatenacionYFunciones) {
    ejecuta("INSERT INTO adqFinanciamiento (Nombre, MontoTotal, MontoXAsignar) VALUES ('Fondo', 1234.5, -20.25)");
    const std::vector<std::pair<QString, QString>> casos = {
        {"Nombre & ' ' & IdCapturista & '.'", "Fondo ."},                 // Null reads as empty text
        {"'a' & Null & 'b'", "ab"},
        {"IdFinanciamiento & '-' & Nombre", "1-Fondo"},
        {"IsNull(Nombre + Null)", "True"},
        {"IIf(MontoTotal > 1000, 'alto', 'bajo')", "alto"},
        {"IIf(IsNull(IdCapturista), 'sin', IdCapturista)", "sin"},
        {"Mid(Nombre, 2, 3)", "ond"},
        {"Mid(Nombre, 3)", "ndo"},
        {"Mid(IdFinanciamiento, 1, 1)", "1"},
        {"Left(Nombre, 2) & Right(Nombre, 2)", "Fodo"},
        {"CCur(MontoTotal * 3)", "3703.5"},
        {"CCur('12.345')", "12.345"},
        {"Abs(MontoXAsignar)", "20.25"},
        {"MontoTotal - MontoXAsignar", "1254.75"},
    };
    for (const auto& [e, esperado] : casos)
        EXPECT_EQ(texto("SELECT " + e + " FROM adqFinanciamiento"), esperado) << e.toStdString();
    EXPECT_EQ(cuenta("adqFinanciamiento WHERE IsNull(IdCapturista) = True"), 1);
}

TEST_F(Dialecto, AgregadosTopYDistinct) {
    ejecuta("INSERT INTO adqSaldoFinanciamientos VALUES (1, #2026/01/02#, 100.10, 0, '+ADDFinan', 'ana')");
    ejecuta("INSERT INTO adqSaldoFinanciamientos VALUES (1, #2026/01/03#, -40.05, 0, '-SALDpag', NULL)");
    ejecuta("INSERT INTO adqSaldoFinanciamientos VALUES (2, #2026/01/04#, 7, 0, '-SALDpag', 'ana')");
    EXPECT_EQ(filas("SELECT Count(*), Count(IdCapturista), Sum(Monto), Max(Monto), Min(UltimoMovimiento) "
                    "FROM adqSaldoFinanciamientos"),
              QStringList{"3|2|67.05|100.1|2026-01-02 00:00:00"});
    EXPECT_EQ(filas("SELECT IdFinanciamiento, Sum(Monto) FROM adqSaldoFinanciamientos GROUP BY IdFinanciamiento "
                    "HAVING Count(*) > 1"),
              QStringList{"1|60.05"});
    // Without an ORDER BY, distinct rows and groups come sorted by what sets them apart, Null first, text
    // without regard to case: written in another order, on a file or a server alike.
    ejecuta("INSERT INTO adqSaldoFinanciamientos VALUES (0, #2026/01/05#, 1, 0, '-saldpag', 'Beto')");
    ejecuta("INSERT INTO adqSaldoFinanciamientos VALUES (0, #2026/01/06#, 2, 0, 'AJUSTE', NULL)");
    EXPECT_EQ(filas("SELECT DISTINCT IdCapturista, IdFinanciamiento FROM adqSaldoFinanciamientos"),
              (QStringList{"NULL|0", "NULL|1", "ana|1", "ana|2", "Beto|0"}));
    EXPECT_EQ(filas("SELECT Mid(Operacion, 2, 4), Count(*) FROM adqSaldoFinanciamientos GROUP BY Mid(Operacion, 2, 4)"),
              (QStringList{"ADDF|1", "JUST|1", "SALD|3"}));
    // The statement of the funding screen: an alias of the select list used by a later item.
    ejecuta("INSERT INTO adqFinanciamiento (Nombre, MontoTotal) VALUES ('Fondo', 500)");
    const QString pagos =
        "SELECT idfinanciamiento, montoTotal, (SELECT ccur( iif (isnull( abs(sum(monto)) ),0,abs(sum(monto)))) "
        "FROM adqsaldoFinanciamientos WHERE Operacion='-SALDpag' AND adqsaldoFinanciamientos.IdFinanciamiento=%1) "
        "AS Pagos, (adqFinanciamiento.MontoTotal-Pagos) AS Disponible FROM adqFinanciamiento "
        "WHERE adqFinanciamiento.idFinanciamiento = 1 ORDER BY 1";
    EXPECT_EQ(filas(pagos.arg(1)), QStringList{"1|500|40.05|459.95"});
    EXPECT_EQ(filas(pagos.arg(9)), QStringList{"1|500|0|500"});
    auto rs = abre(pagos.arg(1));
    EXPECT_EQ(rs->Fields("Pagos").Type(), dao::dbCurrency);
    EXPECT_EQ(rs->Fields("Disponible").Type(), dao::dbCurrency);
}

class DialectoConDatos : public BaseJet {
protected:
    void SetUp() override {
        BaseJet::SetUp();
        for (const char* s : {
                 "INSERT INTO Bibliotecas ([No], Nombre) VALUES (1, 'Central')",
                 "INSERT INTO Bibliotecas ([No], Nombre) VALUES (2, 'Ingeniería')",
                 "INSERT INTO Escuelas ([No], Nombre, NoBiblioteca) VALUES (1, 'FIME', 2)",
                 "INSERT INTO Escuelas ([No], Nombre, NoBiblioteca) VALUES (2, 'Medicina', 1)",
                 "INSERT INTO Editoriales ([No], Nombre) VALUES (4, 'Pearson')",
                 "INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, NoEscuela, NoBiblioteca) VALUES (1, #2026/10/05#, 1, 2)",
                 "INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, NoEscuela, NoBiblioteca) VALUES (2, #2026/09/14#, 2, 1)",
                 "INSERT INTO [Solicitudes Libros] (Titulo, NoEditorial, NoSolicitud) VALUES ('Mecánica', 4, 1)",
                 "INSERT INTO [Solicitudes Libros] (Titulo, NoEditorial, NoSolicitud) VALUES ('Termodinámica', 9, 1)",
                 "INSERT INTO [Solicitudes Libros] (Titulo, NoEditorial, NoSolicitud) VALUES ('Anatomía', 4, 2)",
                 "INSERT INTO [Adquisiciones Numadqui] VALUES ('000312', 1, 'S', 'admin', #2026/09/01 16:40:00#, NULL)",
                 "INSERT INTO [Adquisiciones Numadqui] VALUES ('000313', 2, 'S', 'admin', #2026/09/01 16:41:00#, NULL)",
                 "INSERT INTO [Adquisiciones Numadqui] VALUES ('000314', 3, 'S', 'admin', #2026/09/01 16:42:00#, NULL)",
             })
            ejecuta(QString::fromUtf8(s));
    }
};

TEST_F(DialectoConDatos, JoinsAnidadosEntreParentesisConComas) {
    // The union of the copy listing: a derived table and a parenthesized member, each with its ORDER BY.
    EXPECT_EQ(filas("SELECT * FROM (SELECT AN.NoAdquisicion, SL.Titulo FROM [Adquisiciones Numadqui] AS AN, "
                    "[Solicitudes libros] AS SL WHERE SL.Clavelibro=AN.Clavelibro AND SL.NoSolicitud=1 ORDER BY 1) "
                    "UNION (SELECT AN.NoAdquisicion, SL.Titulo FROM [Adquisiciones Numadqui] AS AN, [Solicitudes libros] "
                    "AS SL WHERE SL.Clavelibro=AN.Clavelibro ORDER BY 1 DESC)"),
              (QStringList{"000314|Anatomía", "000313|Termodinámica", "000312|Mecánica"}));
    EXPECT_EQ(filas("(SELECT Nombre FROM Bibliotecas) UNION ALL (SELECT Nombre FROM Escuelas ORDER BY Nombre)"),
              (QStringList{"Central", "FIME", "Ingeniería", "Medicina"}));
}

TEST_F(Dialecto, DefinicionDeTablasYColumnas) {
    // INTEGER in a definition is the 4-byte Long; names clash whatever their case.
    ejecuta("CREATE TABLE [Mi Tabla] (Id COUNTER CONSTRAINT PK_Id PRIMARY KEY, Corto INTEGER)");
    ejecuta("ALTER TABLE [mi tabla] ADD Extra TEXT(5)");
    auto& corto = db->TableDefs()["MI TABLA"].Fields()["Corto"];
    EXPECT_EQ(corto.Type(), dao::dbLong);
    EXPECT_EQ(corto.Size(), 4);
    EXPECT_EQ(error("CREATE TABLE [MI TABLA] (x LONG)"), jet::ErrTablaYaExiste);
    EXPECT_EQ(error("ALTER TABLE [Mi Tabla] ADD COLUMN extra LONG"), jet::ErrCampoYaExiste);
    // A counter given by hand still can't repeat.
    ejecuta("INSERT INTO [Mi Tabla] (Corto) VALUES (1)");
    EXPECT_EQ(error("INSERT INTO [Mi Tabla] (Id, Corto) VALUES (1, 3)"), jet::ErrValorDuplicado);
}

TEST_F(Dialecto, MonedaExactaTrasMuchasActualizaciones) {
    ejecuta("INSERT INTO adqSaldoFinanciamientos (IdFinanciamiento, Monto) VALUES (1, 0)");
    for (int i = 0; i < 1000; ++i) ejecuta("UPDATE adqSaldoFinanciamientos SET Monto = Monto + 0.1, Saldo = Saldo - 0.0001");
    EXPECT_EQ(valor("SELECT Monto FROM adqSaldoFinanciamientos").toCurrency().raw(), 100 * vb::Currency::Escala);
    EXPECT_EQ(valor("SELECT Saldo FROM adqSaldoFinanciamientos").toCurrency().raw(), -1000);
    EXPECT_EQ(cuenta("adqSaldoFinanciamientos WHERE Monto = 100"), 1);
    // Written money keeps four decimals, rounded.
    ejecuta("UPDATE adqSaldoFinanciamientos SET Monto = 1/3");
    EXPECT_EQ(Texto(valor("SELECT Monto FROM adqSaldoFinanciamientos")), "0.3333");
    for (int i = 0; i < 200; ++i) ejecuta("INSERT INTO adqSaldoFinanciamientos (IdFinanciamiento, Monto) VALUES (2, 0.35)");
    EXPECT_EQ(Texto(valor("SELECT Sum(Monto) FROM adqSaldoFinanciamientos WHERE IdFinanciamiento = 2")), "70");
}

TEST_F(Dialecto, ValoresQueElCampoNoAdmite) {
    struct Caso { QString sentencia; int error; };
    const std::vector<Caso> casos = {
        {"INSERT INTO Bibliotecas ([No]) VALUES (32767)", 0},
        {"INSERT INTO Bibliotecas ([No]) VALUES (-32768)", 0},
        {"INSERT INTO Bibliotecas ([No]) VALUES (32768)", jet::ErrDesbordamientoCampo},
        {"INSERT INTO Bibliotecas ([No]) VALUES (-32769)", jet::ErrDesbordamientoCampo},
        {"UPDATE Bibliotecas SET [No] = [No] + 1 WHERE [No] = 32767", jet::ErrDesbordamientoCampo},
        {"INSERT INTO Analistas (Login) VALUES ('" + QString(10, u'ñ') + "')", 0},
        {"UPDATE Analistas SET Nombre = Login & '" + QString(95, u'y') + "'", jet::ErrCampoDemasiadoPequeno},
        {"INSERT INTO adqProyectos (Nombre) VALUES ('sin fuente')", jet::ErrRequerido},
        {"INSERT INTO adqProyectos (Nombre, IdFinanciamiento) VALUES ('nula', NULL)", jet::ErrRequerido},
        {"INSERT INTO adqProyectos (Nombre, IdFinanciamiento) VALUES ('bien', 1)", 0},
        {"UPDATE adqProyectos SET IdFinanciamiento = Null", jet::ErrRequerido},
        {"INSERT INTO adqMaterialComplementario (ClaveLibro, FechaCaptura, IdCapturista, TipoMatComp) "
         "VALUES (1, #2026/01/01#, 'ana', 1)", jet::ErrRequerido},
        {"INSERT INTO adqSaldoFinanciamientos (IdFinanciamiento, Monto) VALUES (1, 'mucho')", jet::ErrTiposNoCoinciden},
    };
    for (const auto& c : casos) EXPECT_EQ(error(c.sentencia), c.error) << c.sentencia.toStdString();
    // A refused statement leaves nothing behind.
    EXPECT_EQ(filas("SELECT [No] FROM Bibliotecas ORDER BY [No]"), (QStringList{"-32768", "1", "2", "32767"}));
    EXPECT_EQ(filas("SELECT Nombre, IdFinanciamiento FROM adqProyectos"), QStringList{"bien|1"});
    // Defaults fill what an INSERT leaves out; an empty Estado is allowed.
    ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud) VALUES (1)");
    ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Estado) VALUES (2, '')");
    EXPECT_EQ(filas("SELECT Estado FROM [Solicitudes General] ORDER BY NoSolicitud"), (QStringList{"S", ""}));
    ejecuta("INSERT INTO adqFinanciamiento (Nombre) VALUES ('sin montos')");
    EXPECT_EQ(filas("SELECT MontoTotal, MontoXAsignar FROM adqFinanciamiento"), QStringList{"0|0"});
}

TEST_F(Dialecto, TiposDeLasColumnasDelResultado) {
    struct Caso { QString expresion, tabla; int tipo, tamano; };
    const std::vector<Caso> casos = {
        {"NoSolicitud", "[Solicitudes Libros]", dao::dbInteger, 2},
        {"NoSolicitud", "[Solicitudes General]", dao::dbLong, 4},
        {"Costo", "[Solicitudes Libros]", dao::dbCurrency, 8},
        {"[Fecha de Recepcion]", "[Solicitudes Libros]", dao::dbDate, 8},
        {"Titulo", "[Solicitudes Libros]", dao::dbText, 100},
        {"Descripcion", "adqProyectos", dao::dbMemo, 0},
        {"Count(*)", "[Solicitudes Libros]", dao::dbLong, 4},
        {"Sum(Costo)", "[Solicitudes Libros]", dao::dbCurrency, 8},
        {"Max([Fecha de Recepcion])", "[Solicitudes Libros]", dao::dbDate, 8},
        {"CCur(Edicion)", "[Solicitudes Libros]", dao::dbCurrency, 8},
        {"Mid(Titulo, 1, 3)", "[Solicitudes Libros]", dao::dbText, 255},
    };
    for (const auto& c : casos) {
        auto rs = abre("SELECT " + c.expresion + " FROM " + c.tabla);
        EXPECT_EQ(rs->Fields(0).Type(), c.tipo) << c.expresion.toStdString();
        EXPECT_EQ(rs->Fields(0).Size(), c.tamano) << c.expresion.toStdString();
    }
    // A counter shows as an auto-increment, updatable field: the fillers tell it by 49.
    auto rs = abre("SELECT ClaveLibro, Titulo, Costo FROM [Solicitudes Libros]");
    EXPECT_EQ(rs->Fields(0).Attributes(), dao::dbFixedField | dao::dbAutoIncrField | dao::dbUpdatableField);
    EXPECT_EQ(rs->Fields(1).Attributes(), dao::dbVariableField | dao::dbUpdatableField);
    EXPECT_EQ(rs->Fields(2).Attributes(), dao::dbFixedField | dao::dbUpdatableField);
}

TEST_F(Dialecto, UnaSentenciaPorLlamada) {
    EXPECT_EQ(error("DELETE FROM Bibliotecas; DROP TABLE Escuelas"), jet::ErrCaracteresAlFinal);
    EXPECT_EQ(error("UPDATE Bibliotecas SET Nombre = 'x' WHERE [No] = 1 UPDATE Bibliotecas SET Nombre = 'y'"),
              jet::ErrCaracteresAlFinal);
    EXPECT_EQ(filas("SELECT [No], Nombre FROM Bibliotecas ORDER BY [No]"),
              (QStringList{"1|Biblioteca Central", "2|Biblioteca de Ingeniería"}));
    EXPECT_NE(db->TableDefs().busca("Escuelas"), nullptr);
    ejecuta("DELETE FROM Bibliotecas WHERE [No] = 2;");    // a closing semicolon alone is fine
    EXPECT_EQ(cuenta("Bibliotecas"), 1);
}

TEST_F(Dialecto, ConversionesYFormatosDeLoQueGuardaUnCampoDeTexto) {
    // Numbers, dates and masks kept as text in a table, read through the functions that parse them.
    ejecuta("INSERT INTO Configuracion VALUES ('#,##0.00', ' 1,234.5')");
    ejecuta("INSERT INTO Configuracion VALUES ('yyyy/mm/dd', '15/03/2026')");
    EXPECT_EQ(filas("SELECT Val(Valor), CDbl(Valor), CCur(Valor), Format(CDbl(Valor), [Descripción]) FROM Configuracion "
                    "WHERE [Descripción] LIKE '[#]*'"),
              QStringList{"1|1234.5|1234.5|1,234.50"});
    EXPECT_EQ(filas("SELECT CDate(Valor), Format(CDate(Valor), [Descripción]) FROM Configuracion WHERE [Descripción] LIKE 'y*'"),
              QStringList{"2026-03-15 00:00:00|2026/03/15"});
    EXPECT_EQ(error("SELECT CDbl([Descripción]) FROM Configuracion"), jet::ErrTiposNoCoinciden);
}

TEST_F(Dialecto, ErroresConElNumeroDelMotor) {
    struct Caso { QString sentencia; int error; };
    const std::vector<Caso> casos = {
        {"SELECT b.Nombre FROM Bibliotecas b INNER JOIN Nada n ON b.[No] = n.[No]", jet::ErrTablaNoEncontrada},
        {"DELETE FROM Nada", jet::ErrTablaNoEncontrada},
        {"INSERT INTO Nada VALUES (1)", jet::ErrTablaNoEncontrada},
        {"SELECT Apellido FROM Bibliotecas", jet::ErrPocosParametros},
        {"SELECT Nombre FROM Bibliotecas ORDER BY Ciudad", jet::ErrPocosParametros},
        {"UPDATE Bibliotecas SET Ciudad = 'x'", jet::ErrPocosParametros},
        {"SELECT Nombre FROM Bibliotecas WHERE [No] = 'uno'", jet::ErrTiposNoCoinciden},
        {"SELECT Nombre FROM Bibliotecas WHERE Nombre > 5", jet::ErrTiposNoCoinciden},
        {"SELECT Nombre FROM [Solicitudes General] WHERE Fecha = 'ayer'", jet::ErrTiposNoCoinciden},
        {"UPDATE Bibliotecas SET [No] = 'uno'", jet::ErrTiposNoCoinciden},
        {"SELECT Nombre FROM Bibliotecas WHERE [No] = (1", jet::ErrSintaxisExpresion},
        {"INSERT INTO Configuracion VALUES ('solo uno')", jet::ErrValoresYCampos},
        {"SELECT * FROM [Solicitudes Libros]HAVING NoSolicitud=1", jet::ErrNoEsParteDelAgregado},
    };
    for (const auto& c : casos) EXPECT_EQ(error(c.sentencia), c.error) << c.sentencia.toStdString();
    // A number written as text where a number goes is read as the number.
    EXPECT_EQ(filas("SELECT Nombre FROM Bibliotecas WHERE [No] = '2'"), QStringList{"Biblioteca de Ingeniería"});
}

}  // namespace
