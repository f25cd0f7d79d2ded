// Bringing a database up to date at start-up: an older file gets the module's tables and the columns of
// later versions, a second start finds nothing to do, a new database is already current, and failures are
// reported in the texts and boxes the analyst sees.
#include "../ui/ayuda_ui.h"

#include "core/ActualizaBDsAdq.h"
#include "core/DatosActualiza.h"
#include "core/Globales.h"
#include "core/jet/ErroresMotor.h"
#include "core/vb/Formato.h"

#include <QRegularExpression>
#include <sqlite3.h>

namespace {

const QString CrLf = QStringLiteral("\r\n");

class Actualiza : public prueba_ui::ConSistema {
protected:
    void SetUp() override {
        ConSistema::SetUp();
        ASSERT_TRUE(dir.isValid());
        globales::FixSolDonNumAdqui = false;
        globales::BaseDatos = dao::Database::CreateDatabase(dir.filePath("KORVEL8.mdb"));
    }
    void TearDown() override { globales::BaseDatos.reset(); }

    dao::Database& db() { return *globales::BaseDatos; }
    void ejecuta(const QString& sql) { db().Execute(sql, dao::dbFailOnError); }

    // A file of an older installation: the suite's tables before this module's versions, one of them with
    // part of the later columns, none of the module's own tables.
    void CreaBaseVieja() {
        for (const char* s : {
                 "CREATE TABLE Configuracion ([Descripción] TEXT(50) CONSTRAINT PrimaryKey PRIMARY KEY, Valor TEXT(255))",
                 "CREATE TABLE [Solicitudes General] (NoSolicitud LONG CONSTRAINT PrimaryKey PRIMARY KEY, Fecha DATETIME, "
                 "Solicitante TEXT(100), NoEscuela SHORT, NoBiblioteca SHORT, Estado TEXT(1) DEFAULT \"S\")",
                 "CREATE TABLE [Solicitudes Libros] (ClaveLibro COUNTER CONSTRAINT PrimaryKey PRIMARY KEY, Titulo TEXT(100), "
                 "Autor TEXT(100), [Ejemplares pedidos] SHORT, NoEditorial SHORT, Edicion SHORT, [Fecha de Recepcion] DATETIME, "
                 "[Ejemplares recibidos] SHORT, Costo CURRENCY, Factura TEXT(50), Estado TEXT(1), NoSolicitud SHORT, "
                 "IdCapturista TEXT(10))",
                 "CREATE TABLE [Adquisiciones Numadqui] (NoAdquisicion TEXT(20), ClaveLibro LONG, [Solicitud o donacion] TEXT(1))",
                 "CREATE TABLE [Donaciones Libros] (ClaveLibro COUNTER CONSTRAINT PrimaryKey PRIMARY KEY, Titulo TEXT(100), "
                 "Autor TEXT(100), Ejemplares SHORT, NoEditorial SHORT, Edicion SHORT, NoDonacion LONG)",
                 "INSERT INTO [Solicitudes General] (NoSolicitud, Solicitante) VALUES (1, 'Ana')",
                 "INSERT INTO [Solicitudes General] (NoSolicitud, Solicitante) VALUES (2, 'Luis')",
                 "INSERT INTO [Adquisiciones Numadqui] VALUES ('A-1', 1, 'D')",
                 "INSERT INTO [Adquisiciones Numadqui] VALUES ('A-2', 1, 'X')",
                 "INSERT INTO [Adquisiciones Numadqui] VALUES ('A-3', 2, '')",
                 "INSERT INTO [Adquisiciones Numadqui] VALUES ('A-4', 2, NULL)"})
            ejecuta(QString::fromUtf8(s));
    }

    // The schema steps in start-up's order; the report of the last.
    QString Arranque() {
        Datos::CorrigeSolDonNumAdqui();
        isbn = Datos::AgregaISBN();
        EXPECT_TRUE(Datos::CreaTablasPagoFacturas(msgPago));
        EXPECT_TRUE(Datos::CreaMaterialComplementario(msgMaterial));
        return ActualizaBDsAdq::ActualizaBDs();
    }

    dao::Field& campo(const char* tabla, const char* nombre) { return db().TableDefs()[tabla].Fields()[nombre]; }

    QStringList filas(const QString& sql) {
        QStringList r;
        for (auto rs = db().OpenRecordset(sql, dao::dbOpenSnapshot); !rs->Eof(); rs->MoveNext())
            r << ayuda::Texto(rs->Fields(0).Value()) + u'|' + ayuda::Texto(rs->Fields(1).Value());
        return r;
    }

    QTemporaryDir dir;
    QString isbn, msgPago, msgMaterial;
};

TEST_F(Actualiza, BaseViejaSeActualizaYElSegundoArranqueCalla) {
    CreaBaseVieja();
    // Nine steps did their work; [Solicitudes Libros] had IdCapturista (Ejemp_Recibidos is added all the same)
    // and step 10 finds the IdFinanciamiento step 4 made: both report "already", which is left out.
    EXPECT_EQ(Arranque(), CrLf.repeated(9));
    EXPECT_EQ(isbn, "");
    EXPECT_EQ(msgPago, "La tabla 'PagoFacturasGral' y La tabla 'PagoFacturasDetalle' se han creado con éxito");
    EXPECT_EQ(msgMaterial, "La tabla 'adqMaterialComplementario' se creó con éxito" + CrLf +
                               "La tabla de [Numeros de Adquisicion] ha sido actualizada con éxito");
    // Accession numbers that aren't a donation's belong to a request (Null compares to nothing); the fix is marked.
    EXPECT_EQ(filas("SELECT NoAdquisicion, [Solicitud o donacion] FROM [Adquisiciones Numadqui] ORDER BY 1"),
              (QStringList{"A-1|D", "A-2|S", "A-3|S", "A-4|NULL"}));
    EXPECT_EQ(filas("SELECT * FROM Configuracion"),
              QStringList{"FixSolDonNumAdqui|83.26a=" + vb::Format(vb::Variant(vb::Fecha::Today()), "yyyy-mm-dd")});
    EXPECT_EQ(filas("SELECT NoSolicitud, IdFinanciamiento FROM [Solicitudes General] ORDER BY 1"), (QStringList{"1|0", "2|0"}));
    // Added columns are fixed-length and optional (types and sizes: see the comparison with a new file).
    for (auto [t, c] : {std::pair{"Solicitudes General", "FechaEnvio"}, {"Solicitudes General", "IdCapturista"},
                        {"Solicitudes Libros", "Ejemp_Recibidos"}, {"Adquisiciones Numadqui", "FechaIngreso"},
                        {"Donaciones Libros", "Costo"}, {"PagoFacturasDetalle", "IdEscuela"}}) {
        EXPECT_EQ(campo(t, c).Attributes(), dao::dbFixedField) << t << "." << c;
        EXPECT_FALSE(campo(t, c).Required()) << t << "." << c;
    }
    // The next start reads the mark: nothing runs, nothing is shown.
    globales::FixSolDonNumAdqui = true;
    ejecuta("UPDATE [Adquisiciones Numadqui] SET [Solicitud o donacion]='X' WHERE NoAdquisicion='A-2'");
    EXPECT_EQ(Arranque(), "");
    EXPECT_EQ(isbn, "");
    EXPECT_EQ(msgPago, "Ya estaban actualizadas");
    EXPECT_EQ(msgMaterial, "Ya estaban actualizadas");
    EXPECT_EQ(filas("SELECT NoAdquisicion, [Solicitud o donacion] FROM [Adquisiciones Numadqui] WHERE NoAdquisicion='A-2'"),
              QStringList{"A-2|X"});
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(Actualiza, BaseSinTablasDeLaSuite) {
    const QString no = QStringLiteral("02 No se encontró la tabla ");
    // The module's own tables are made all the same; step 10 then finds IdFinanciamiento in adqProyectos.
    EXPECT_EQ(ActualizaBDsAdq::ActualizaBDs(),
              no + "Solicitudes General" + CrLf + no + "Solicitudes Libros" + CrLf + no + "Adquisiciones Numadqui" + CrLf +
                  CrLf + no + "Donaciones Libros" + CrLf + CrLf + no + "PagoFacturasGral" + CrLf + CrLf + CrLf + no +
                  "PagoFacturasDetalle" + CrLf);
    // The older steps do what they can: no titles table, nothing to add; no accession table, an error.
    EXPECT_EQ(Datos::AgregaISBN(), "");
    EXPECT_FALSE(Datos::CreaMaterialComplementario(msgMaterial));
    EXPECT_TRUE(msgMaterial.startsWith(QStringLiteral("Ocurrió el error: %1 [").arg(jet::ErrTablaNoEncontrada)));
    EXPECT_TRUE(ActualizaBDsAdq::ExisteTabla("adqMaterialComplementario"));
}

// The older steps compare names exactly: a column or table spelled in other case isn't seen, and the engine,
// blind to case, refuses to make it twice. The routine steps compare upper-cased and so see it.
TEST_F(Actualiza, PasosAntiguosComparanNombresExactos) {
    CreaBaseVieja();
    ejecuta("ALTER TABLE [Solicitudes Libros] ADD isbn TEXT(20)");
    EXPECT_EQ(Datos::AgregaISBN(), QStringLiteral("Ocurrió el error: 3380 [ %1 ]")
                                       .arg(jet::DescripcionError(3380, "ISBN", "Solicitudes Libros")));
    ejecuta("CREATE TABLE pagofacturasgral (IdPagoFactura COUNTER)");
    EXPECT_FALSE(Datos::CreaTablasPagoFacturas(msgPago));
    EXPECT_EQ(msgPago, QStringLiteral("Ocurrió el error: 3010 [%1]").arg(jet::DescripcionError(3010, "PagoFacturasGral")));
    EXPECT_FALSE(ActualizaBDsAdq::ExisteTabla("PagoFacturasDetalle"));   // nothing after the failure ran
    EXPECT_TRUE(ActualizaBDsAdq::ExisteCampo("solicitudes libros", "ISBN"));
    EXPECT_TRUE(ActualizaBDsAdq::ExisteTabla("PagoFacturasGral"));

    // One table made: its words run straight into the verb.
    ejecuta("DROP TABLE pagofacturasgral");
    ejecuta("CREATE TABLE PagoFacturasGral (IdPagoFactura COUNTER)");
    EXPECT_TRUE(Datos::CreaTablasPagoFacturas(msgPago));
    EXPECT_EQ(msgPago, "La tabla 'PagoFacturasDetalle'se ha creado con éxito");
}

// A mark with an empty value doesn't count: the fix runs again and its insert meets the row already there.
TEST_F(Actualiza, CorreccionConValorVacioSeRepite) {
    CreaBaseVieja();
    ejecuta("INSERT INTO Configuracion VALUES ('FixSolDonNumAdqui', '')");
    EXPECT_FALSE(Datos::CorrigeSolDonNumAdqui());
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].texto, QStringLiteral("Ocurrió el error: 3022 %1").arg(jet::DescripcionError(3022)));
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbExclamation);
    EXPECT_EQ(sistema->cajas[0].titulo, "Actualización de Tabla NumAdqui");
    EXPECT_EQ(filas("SELECT NoAdquisicion, [Solicitud o donacion] FROM [Adquisiciones Numadqui] WHERE "
                    "[Solicitud o donacion]='S' ORDER BY 1"),
              (QStringList{"A-2|S", "A-3|S"}));   // the update before it stays
}

// A failing step reports its table and the error; the columns added before stay and the steps after it run.
TEST_F(Actualiza, PasoQueFallaNoDetieneLosDemas) {
    CreaBaseVieja();
    ASSERT_EQ(sqlite3_exec(db().sqlite(), "CREATE TRIGGER fijo BEFORE UPDATE ON \"Solicitudes General\" "
                                          "BEGIN SELECT RAISE(ABORT, 'no'); END", nullptr, nullptr, nullptr), SQLITE_OK);
    const QStringList lineas = ActualizaBDsAdq::ActualizaBDs().split(CrLf);
    ASSERT_EQ(lineas.size(), 11);
    EXPECT_EQ(lineas[0], "03 No se pudo actualizar la tabla Solicitudes General");
    EXPECT_TRUE(QRegularExpression("^3\\d{3} \\S").match(lineas[1]).hasMatch()) << lineas[1].toStdString();
    EXPECT_TRUE(ActualizaBDsAdq::ExisteCampo("Solicitudes General", "IdFinanciamiento"));
    EXPECT_FALSE(ActualizaBDsAdq::ActualizaBDs().contains("Solicitudes General"));
}

// A new file already has all the steps would add, with the same types, sizes, required flags and defaults
// (in the suite's tables the order of the added columns depends on the order of the steps).
TEST_F(Actualiza, BaseNuevaYaEstaAlDia) {
    esquema::CreaTablas(db());
    EXPECT_EQ(Arranque(), "");
    EXPECT_EQ(isbn, "");
    EXPECT_EQ(msgPago, "Ya estaban actualizadas");
    EXPECT_EQ(msgMaterial, "Ya estaban actualizadas");

    auto nueva = std::move(globales::BaseDatos);
    globales::BaseDatos = dao::Database::CreateDatabase(dir.filePath("vieja.mdb"));
    CreaBaseVieja();
    Arranque();
    auto describe = [](dao::Field& f) {
        return QStringLiteral("%1 %2 %3 %4 [%5] %6").arg(f.Name()).arg(f.Type()).arg(f.Size()).arg(f.Required())
            .arg(f.DefaultValue()).arg(f.Attributes() & dao::dbAutoIncrField);
    };
    for (const char* t : {"adqProyectos", "adqSaldoProyectos", "adqFinanciamiento", "adqSaldoFinanciamientos",
                          "PagoFacturasGral", "PagoFacturasDetalle", "adqMaterialComplementario", "Solicitudes General",
                          "Solicitudes Libros", "Adquisiciones Numadqui", "Donaciones Libros"}) {
        QStringList vieja, nuevo;
        for (auto& f : db().TableDefs()[t].Fields()) vieja << describe(*f);
        for (auto& f : nueva->TableDefs()[t].Fields()) nuevo << describe(*f);
        if (!QString(t).startsWith("adq") && !QString(t).startsWith("Pago")) vieja.sort(), nuevo.sort();
        EXPECT_EQ(vieja, nuevo) << t;
    }
    EXPECT_EQ(db().TableDefs()["adqProyectos"].Indexes()[0].definicion().campos, QStringList{"IdProyecto"});
    EXPECT_TRUE(db().TableDefs()["adqProyectos"].Indexes()[0].Primary());
}

}  // namespace
