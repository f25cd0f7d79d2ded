// The tables of a new database as TableDefs shows them, tables made through TableDefs, the file as plain
// SQLite sees it, the refusal of a legacy file, and the scrambled credential record.
#include "ayuda_jet.h"

#include "core/Credenciales.h"
#include "core/jet/ErroresMotor.h"

#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace {

using ayuda::BaseJet;
using ayuda::ErrorDe;

class Esquema : public BaseJet {};

TEST_F(Esquema, CreaTablasHaceCadaTablaConSusTiposYPredeterminados) {
    auto& defs = db->TableDefs();
    // The bookkeeping stays out of sight.
    EXPECT_EQ(defs.busca("MSysCampos"), nullptr);
    EXPECT_EQ(defs.busca("MSysIndices"), nullptr);
    EXPECT_EQ(error("SELECT * FROM MSysCampos"), jet::ErrTablaNoEncontrada);

    struct Campo { const char* tabla; const char* campo; int tipo, tamano; bool requerido; const char* predeterminado; };
    const std::vector<Campo> campos = {
        {"Solicitudes General", "NoSolicitud", dao::dbLong, 4, true, ""},
        {"Solicitudes General", "Estado", dao::dbText, 1, false, "\"S\""},
        {"Adquisiciones Numadqui", "MatComplementario", dao::dbText, 15, false, ""},
        {"adqFinanciamiento", "MontoXAsignar", dao::dbCurrency, 8, false, "0"},
        {"adqProyectos", "IdFinanciamiento", dao::dbInteger, 2, true, ""},
        {"adqSaldoProyectos", "IdEscuela", dao::dbLong, 4, true, ""},
        {"PagoFacturasGral", "FuenteFinanciamiento", dao::dbText, 40, false, ""},
        {"adqMaterialComplementario", "Titulo", dao::dbText, 255, true, ""},
        {"adqMaterialComplementario", "FechaCaptura", dao::dbDate, 8, true, ""},
        {"Configuracion", "Descripción", dao::dbText, 50, true, ""},
        {"Proveedores", "Télefono/Fax", dao::dbText, 30, false, ""},
    };
    for (const auto& c : campos) {
        SCOPED_TRACE(std::string(c.tabla) + "." + c.campo);
        dao::Field* f = defs[c.tabla].Fields().busca(QString::fromUtf8(c.campo));
        ASSERT_NE(f, nullptr);
        EXPECT_EQ(f->Type(), c.tipo);
        EXPECT_EQ(f->Size(), c.tamano);
        EXPECT_EQ(f->Required(), c.requerido);
        EXPECT_EQ(f->DefaultValue(), QString::fromUtf8(c.predeterminado));
    }
    for (const char* t : {"adqFinanciamiento", "adqProyectos", "Solicitudes Libros", "PagoFacturasGral"}) {
        auto& f = defs[t].Fields()[0];
        EXPECT_EQ(f.Attributes(), dao::dbFixedField | dao::dbAutoIncrField) << t;
        EXPECT_EQ(f.Type(), dao::dbLong) << t;
    }
    const auto& indices = defs["adqProyectos"].Indexes();
    ASSERT_EQ(indices.size(), 1u);
    EXPECT_EQ(indices[0].Name(), "PrimaryKey");
    EXPECT_TRUE(indices[0].Primary());
    EXPECT_EQ(indices[0].FieldNames(), QStringList{"IdProyecto"});
    EXPECT_EQ(defs["PagoFacturasGral"].Indexes()[0].Name(), "PK_IdPagoFactura");
    EXPECT_EQ(defs["Adquisiciones Numadqui"].Indexes().size(), 2u);
}

TEST_F(Esquema, TablasHechasConTableDefs) {
    auto t = db->CreateTableDef("Cuentas");
    auto id = t->CreateField("Id", dao::dbLong);
    id.setAttributes(dao::dbAutoIncrField | dao::dbFixedField);
    t->Fields().Append(id);
    auto nombre = t->CreateField("Nombre", dao::dbText, 30);
    nombre.setRequired(true);
    t->Fields().Append(nombre);
    auto saldo = t->CreateField("Saldo", dao::dbCurrency);
    saldo.setDefaultValue("0");
    t->Fields().Append(saldo);
    EXPECT_EQ(ErrorDe([&] { t->Fields().Append(t->CreateField("nombre", dao::dbLong)); }), jet::ErrCampoYaExiste);
    auto pk = t->CreateIndex("PrimaryKey");
    pk.setPrimary(true);
    pk.AppendField(pk.CreateField("Id"));
    t->AppendIndex(pk);
    auto unico = t->CreateIndex("PorNombre");
    unico.setUnique(true);
    unico.AppendField(unico.CreateField("Nombre"));
    t->AppendIndex(unico);
    db->TableDefs().Append(std::move(t));

    auto& c = db->TableDefs()["cuentas"];
    EXPECT_EQ(c.Fields()["Nombre"].Size(), 30);
    EXPECT_TRUE(c.Fields()["Nombre"].Required());
    EXPECT_EQ(c.Indexes().size(), 2u);
    ejecuta("INSERT INTO Cuentas (Nombre) VALUES ('Ana')");
    EXPECT_EQ(ayuda::Texto(valor("SELECT Id & '/' & Saldo FROM Cuentas")), "1/0");
    EXPECT_EQ(error("INSERT INTO Cuentas (Nombre) VALUES ('ANA')"), jet::ErrValorDuplicado);
    EXPECT_EQ(error("INSERT INTO Cuentas (Saldo) VALUES (1)"), jet::ErrRequerido);

    // A field appended to a stored table changes the table; Refresh sees what a statement made.
    db->TableDefs()["Cuentas"].Fields().Append(db->TableDefs()["Cuentas"].CreateField("Notas", dao::dbMemo));
    ejecuta("UPDATE Cuentas SET Notas = 'nota'");
    ejecuta("CREATE TABLE Otra (x LONG)");
    db->TableDefs().Refresh();
    EXPECT_NE(db->TableDefs().busca("otra"), nullptr);
    db->TableDefs().Delete("Otra");
    db->TableDefs().Refresh();
    EXPECT_EQ(db->TableDefs().busca("Otra"), nullptr);
    EXPECT_EQ(error("SELECT * FROM Otra"), jet::ErrTablaNoEncontrada);
}

TEST_F(Esquema, ElArchivoEsSqliteYSusClavesDeTextoIgnoranMayusculasEnTodoAlfabeto) {
    if (db->EnServidor()) GTEST_SKIP() << "the file's own format";
    ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (1, 'Ñandú')");
    ejecuta("INSERT INTO [Solicitudes Libros] (Titulo, Costo, [Fecha de Recepcion]) VALUES ('Álgebra', 1250.5, #2026/09/01#)");
    ejecuta("INSERT INTO Analistas (Login, Nombre) VALUES ('josé', 'José')");
    // A text key is one key whatever the case of its letters, accented capitals included; accents differ.
    EXPECT_EQ(error("INSERT INTO Analistas (Login) VALUES ('JOSÉ')"), jet::ErrValorDuplicado);
    EXPECT_EQ(error("INSERT INTO Analistas (Login) VALUES ('JoSé')"), jet::ErrValorDuplicado);
    EXPECT_EQ(error("INSERT INTO Analistas (Login) VALUES ('jose')"), 0);
    EXPECT_EQ(error("UPDATE Analistas SET Login = 'JOSÉ' WHERE Login = 'jose'"), jet::ErrValorDuplicado);
    ejecuta("CREATE TABLE Claves (Nombre TEXT(20) CONSTRAINT PrimaryKey PRIMARY KEY)");
    ejecuta("INSERT INTO Claves VALUES ('ΣΟΦΊΑ')");
    EXPECT_EQ(error("INSERT INTO Claves VALUES ('σοφία')"), jet::ErrValorDuplicado);
    ejecuta("CREATE UNIQUE INDEX PorNombre ON Bibliotecas (Nombre)");
    EXPECT_EQ(error("INSERT INTO Bibliotecas ([No], Nombre) VALUES (2, 'ñANDÚ')"), jet::ErrValorDuplicado);
    db.reset();

    // Plain SQLite reads every row; the text keys need the engine's collation to be written or checked.
    sqlite3* s = nullptr;
    ASSERT_EQ(sqlite3_open_v2(QFile::encodeName(ruta("KORVEL8.mdb")).constData(), &s, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    auto texto = [&](sqlite3* base, const char* sql) {
        sqlite3_stmt* st = nullptr;
        QStringList r;
        if (sqlite3_prepare_v2(base, sql, -1, &st, nullptr) != SQLITE_OK) return QStringLiteral("ERROR: ") + sqlite3_errmsg(base);
        while (sqlite3_step(st) == SQLITE_ROW)
            r << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)));
        sqlite3_finalize(st);
        return r.join(u'|');
    };
    EXPECT_EQ(texto(s, "SELECT Nombre FROM Bibliotecas"), "Ñandú");
    // Money is kept as a whole count of ten-thousandths.
    EXPECT_EQ(texto(s, "SELECT Costo || ' ' || typeof(Costo) || ' ' || \"Fecha de Recepcion\" FROM \"Solicitudes Libros\""),
              "12505000 integer 2026-09-01 00:00:00");
    EXPECT_EQ(texto(s, "SELECT group_concat(Login, ',') FROM (SELECT Login FROM Analistas ORDER BY 1)"), "jose,josé");
    sqlite3_close(s);

    db = dao::Database::OpenDatabase(ruta("KORVEL8.mdb"));
    EXPECT_EQ(texto(db->sqlite(), "PRAGMA integrity_check"), "ok");
}

TEST_F(Esquema, UnArchivoAnteriorRehaceSusClavesDeTexto) {
    if (db->EnServidor()) GTEST_SKIP() << "a file of an earlier form";
    ejecuta("INSERT INTO Analistas (Login) VALUES ('josé')");
    db.reset();
    // A file made when text keys folded ASCII only.
    sqlite3* s = nullptr;
    ASSERT_EQ(sqlite3_open_v2(QFile::encodeName(ruta("KORVEL8.mdb")).constData(), &s, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
    char* msg = nullptr;
    ASSERT_EQ(sqlite3_exec(s, "DROP INDEX \"Analistas.PrimaryKey\"; CREATE UNIQUE INDEX \"Analistas.PrimaryKey\" ON Analistas "
                              "(Login COLLATE NOCASE);",
                           nullptr, nullptr, &msg), SQLITE_OK) << msg;
    sqlite3_close(s);
    db = dao::Database::OpenDatabase(ruta("KORVEL8.mdb"));
    EXPECT_EQ(error("INSERT INTO Analistas (Login) VALUES ('JOSÉ')"), jet::ErrValorDuplicado);
}

TEST_F(Esquema, ArchivoDelFormatoAnteriorSeRechazaSinTocarlo) {
    QByteArray cabecera("\x00\x01\x00\x00Standard Jet DB\x00", 20);
    cabecera += QByteArray(2028, '\x5a');
    const QString viejo = ruta("viejo.mdb");
    {
        QFile f(viejo);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(cabecera);
    }
    const QDateTime antes = QFileInfo(viejo).lastModified();
    EXPECT_EQ(ErrorDe([&] { dao::Database::OpenDatabase(viejo); }), jet::ErrFormatoNoReconocido);
    ejecuta("INSERT INTO Bibliotecas ([No]) VALUES (1)");
    EXPECT_EQ(error("INSERT INTO Bibliotecas IN '" + viejo + "' SELECT * FROM Bibliotecas"), jet::ErrFormatoNoReconocido);
    QFile f(viejo);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), cabecera);
    EXPECT_EQ(QFileInfo(viejo).lastModified(), antes);
    EXPECT_FALSE(QFileInfo::exists(viejo + "-wal"));
    EXPECT_FALSE(QFileInfo::exists(viejo + "-journal"));

    EXPECT_EQ(ErrorDe([&] { dao::Database::CreateDatabase(viejo); }), jet::ErrBaseYaExiste);
    EXPECT_EQ(ErrorDe([&] { dao::Database::OpenDatabase(ruta("no-existe.mdb")); }), jet::ErrArchivoNoEncontrado);
    EXPECT_FALSE(QFileInfo::exists(ruta("no-existe.mdb")));
}

TEST(Credenciales, ElRegistroCifradoVaYVuelve) {
    for (const QString& plano : {QStringLiteral("admin,admin,011,1"), QStringLiteral("josé,contraseña,001,10"),
                                QStringLiteral("ñññññññññ"), QString()}) {
        const QString cifrado = credenciales::CifraClave(plano);
        EXPECT_EQ(cifrado.size(), 2 * plano.size());
        for (QChar c : cifrado) EXPECT_TRUE(c.isDigit() || (c >= u'A' && c <= u'F')) << cifrado.toStdString();
        EXPECT_EQ(credenciales::DescifraClave(cifrado), plano);
    }
    // Each character is scrambled by its place: the same letter gives different pairs.
    EXPECT_NE(credenciales::CifraClave("aa").left(2), credenciales::CifraClave("aa").mid(2));
    EXPECT_EQ(credenciales::Registro("ana", "ñu", "011", "1"), credenciales::CifraClave("ana,ñu,011,1"));
}

}  // namespace
