// Start-up on a KORVEL8.mdb of the older desktop format: the question, the original kept byte for byte
// beside the converted database, the schema maintenance run on it, and a refusal that leaves everything as it
// was and ends the program.
#include "../ui/ayuda_ui.h"

#include "core/DatosDemo.h"
#include "core/FormPrincipal.h"
#include "core/jet/ErroresMotor.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>

namespace {

const QString Titulo = QStringLiteral("Base de datos de una versión anterior");

QByteArray Huella(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly)) return {};
    return QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha256);
}

class ArranqueLegado : public prueba_ui::ConSistema {
protected:
    QTemporaryDir dir;
    QString base, respaldo;
    QByteArray huella;
    QDateTime fecha;

    void SetUp() override {
        ConSistema::SetUp();
        sistema->rutaPrograma = dir.path();
        sistema->directorioActual = dir.path();
        globales::BaseDatos.reset();
        base = dir.filePath(QStringLiteral("KORVEL8.mdb"));
        respaldo = dir.filePath(QStringLiteral("KORVEL8-legado.mdb"));
        ASSERT_TRUE(QFile::copy(QStringLiteral(ADQ_SOURCE_DIR "/../shared/testdata/jet/nwind.mdb"), base));
        QFile f(base);
        f.setPermissions(f.permissions() | QFile::WriteOwner);
        ASSERT_TRUE(f.open(QIODevice::ReadWrite));
        fecha = QDateTime::currentDateTime().addYears(-3);
        ASSERT_TRUE(f.setFileTime(fecha, QFileDevice::FileModificationTime));
        f.close();
        huella = Huella(base);
    }
    void TearDown() override { globales::BaseDatos.reset(); }

    QStringList archivos() const { return QDir(dir.path()).entryList(QDir::Files | QDir::Hidden); }
};

TEST_F(ArranqueLegado, SinConvertirTodoQuedaComoEstabaYElProgramaTermina) {
    sistema->Responde({ui::vbNo});
    FormPrincipal f;
    EXPECT_FALSE(f.Form_Load());
    ASSERT_EQ(sistema->cajas.size(), 2u);
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbYesNo + ui::vbQuestion);
    EXPECT_EQ(sistema->cajas[0].titulo, Titulo);
    EXPECT_TRUE(sistema->cajas[0].texto.contains(QStringLiteral("KORVEL8-legado.mdb")));
    EXPECT_EQ(sistema->cajas[1].flags, ui::vbExclamation);
    EXPECT_EQ(sistema->cajas[1].texto, QStringLiteral("La base de datos no se convirtió y quedó como estaba. El programa no "
                                                      "puede trabajar con ella en su formato anterior y se cerrará."));
    EXPECT_TRUE(sistema->terminado);
    EXPECT_FALSE(globales::BaseDatos);
    EXPECT_EQ(Huella(base), huella);
    EXPECT_EQ(QFileInfo(base).lastModified(), fecha);
    EXPECT_EQ(archivos(), QStringList{QStringLiteral("KORVEL8.mdb")});
}

TEST_F(ArranqueLegado, ConvertidaSeAbreYElOriginalQuedaAlLado) {
    // A backup of an earlier conversion keeps its name: the original takes the next free one.
    {
        QFile previo(respaldo);
        ASSERT_TRUE(previo.open(QIODevice::WriteOnly));
        previo.write("respaldo anterior");
    }
    respaldo = dir.filePath(QStringLiteral("KORVEL8-legado-2.mdb"));
    sistema->Responde({ui::vbYes});
    {
        FormPrincipal f;
        // The suite's settings table is not in this file: the converted database opened, and start-up went as
        // far as reading it, which ends the start with the engine's error as it would on any database.
        try {
            f.Form_Load();
            ADD_FAILURE() << "Configuracion no existe en el archivo";
        } catch (const vb::Error& e) {
            EXPECT_EQ(e.Number(), jet::ErrTablaNoEncontrada);
        }
    }
    ASSERT_EQ(sistema->cajas.size(), 2u);
    EXPECT_TRUE(sistema->cajas[0].texto.contains(QStringLiteral("KORVEL8-legado-2.mdb")));
    EXPECT_EQ(sistema->cajas[1].flags, ui::vbInformation);
    EXPECT_EQ(sistema->cajas[1].texto, QStringLiteral("La base de datos se convirtió al formato de esta versión: 9 tablas, "
                                                      "4032 filas. El archivo original se conservó como KORVEL8-legado-2.mdb."));
    ASSERT_TRUE(globales::BaseDatos);
    EXPECT_EQ(globales::Base().Name(), base);
    EXPECT_EQ(Huella(respaldo), huella);
    EXPECT_EQ(QFileInfo(respaldo).lastModified(), fecha);
    EXPECT_EQ(archivos(), (QStringList{QStringLiteral("KORVEL8-legado-2.mdb"), QStringLiteral("KORVEL8-legado.mdb"),
                                       QStringLiteral("KORVEL8.mdb"), QStringLiteral("KORVEL8.mdb-shm"),
                                       QStringLiteral("KORVEL8.mdb-wal")}));

    // With the suite's settings and an analyst, the next start runs the schema maintenance on it: the
    // module's own tables are made, and the tables of the suite it lacks are reported.
    globales::Base().Execute(QStringLiteral("CREATE TABLE Configuracion ([Descripción] TEXT(50) CONSTRAINT PrimaryKey PRIMARY KEY, Valor TEXT(255))"));
    globales::Base().Execute(QStringLiteral("CREATE TABLE Analistas (Login TEXT(10) CONSTRAINT PrimaryKey PRIMARY KEY, [password] TEXT(255), Nombre TEXT(100))"));
    demo::AgregaAnalista(globales::Base(), QStringLiteral("admin"), QStringLiteral("admin"), QStringLiteral("011"), QStringLiteral("1"));
    globales::BaseDatos.reset();
    sistema->cajas.clear();
    FormPrincipal f;
    f.LineaComandos = QStringLiteral("-u admin -p admin");
    EXPECT_TRUE(f.Form_Load());
    EXPECT_EQ(globales::LoginAnalista, QStringLiteral("admin"));
    for (const char* tabla : {"adqProyectos", "adqFinanciamiento", "PagoFacturasGral", "adqMaterialComplementario"})
        EXPECT_TRUE(globales::Base().TableDefs().busca(QLatin1String(tabla))) << tabla;
    EXPECT_TRUE(globales::Base().TableDefs().busca(QStringLiteral("Orders")));
    ASSERT_FALSE(sistema->cajas.empty());
    EXPECT_TRUE(sistema->cajas.back().texto.startsWith(QStringLiteral("02 No se encontró la tabla Solicitudes General")))
        << sistema->cajas.back().texto.toStdString();
    EXPECT_EQ(Huella(respaldo), huella);
}

}  // namespace
