// Start-up and session: the order of Form_Load, the login against the scrambled credential record, the
// command line, the rights of a visitor, the settings, the institution's network, and what ends the start.
#include "../ui/ayuda_ui.h"

#include "core/Credenciales.h"
#include "core/DatosDemo.h"
#include "core/FormPrincipal.h"
#include "core/Leepasswd.h"
#include "core/LineaComandos.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace {

class Arranque : public prueba_ui::ConSistema {
protected:
    QTemporaryDir dir;

    void SetUp() override {
        ConSistema::SetUp();
        sistema->rutaPrograma = dir.path();
        sistema->directorioActual = dir.path();
        globales::BaseDatos.reset();
        globales::LoginAnalista.clear();
        globales::Derechos = {0, 0, 0};
        globales::EnRedInstitucional = false;
        globales::AvisoRedMostrado = false;
    }
    void TearDown() override { globales::BaseDatos.reset(); }

    // The database the program would open from this folder: the setting's, else the file beside it.
    QString base() const { return FormPrincipal::BaseDeTrabajo(dir.path(), QString()); }

    // A current database with the demo's analysts (admin "011", visita "001").
    // On a server run, the database is the server's, named by the setting beside the program.
    void creaBase(bool conAnalistas = true) {
        std::unique_ptr<dao::Database> db;
        if (prueba::EnServidor()) {
            db = prueba::BaseConTablas(dir);
            QFile ajuste(dir.filePath(QStringLiteral("KORVEL8.base")));
            ASSERT_TRUE(ajuste.open(QIODevice::WriteOnly));
            ajuste.write("# la base de datos del departamento\n" + db->Name().toUtf8() + "\n");
        } else {
            db = dao::Database::CreateDatabase(base());
            esquema::CreaTablas(*db);
        }
        if (conAnalistas) demo::CargaDemo(*db);
        else db->Execute(QStringLiteral("INSERT INTO Configuracion VALUES ('FixSolDonNumAdqui', '83.26a=2026-11-22')"));
    }

    // A start from the command line, with the demo's administrator unless told otherwise.
    std::unique_ptr<FormPrincipal> entra(const QString& linea = QStringLiteral("-u admin -p admin")) {
        auto f = std::make_unique<FormPrincipal>();
        f->LineaComandos = linea;
        EXPECT_TRUE(f->Form_Load()) << linea.toStdString();
        return f;
    }

    // A login typed in the dialog, answered by script.
    void tecleaAlEntrar(QStringList intentos) {
        sistema->AlMostrar(QStringLiteral("Leepasswd"), [intentos](QDialog& d) {
            auto& acceso = static_cast<Leepasswd&>(d);
            for (const auto& intento : intentos) {
                acceso.Text1->setText(intento.section(u'/', 0, 0));
                acceso.Text2->setText(intento.section(u'/', 1));
                acceso.Command1_Click();
                if (acceso.Resultado == QLatin1String("OK")) break;
            }
        });
    }
};

TEST_F(Arranque, SinAnalistasNoHayDialogoYSeIniciaUtileriasSiEsta) {
    creaBase(false);
    {
        FormPrincipal f;
        EXPECT_FALSE(f.Form_Load());
        EXPECT_TRUE(sistema->modales.isEmpty());
        EXPECT_TRUE(sistema->terminado);
        ASSERT_EQ(sistema->cajas.size(), 1u);
        EXPECT_EQ(sistema->cajas[0].texto,
                  QStringLiteral("No hay analistas dados de alta,es necesario que agregue al menos uno \r\nen el módulo de utilerías"));
        EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("Falta analista"));
        EXPECT_EQ(sistema->cajas[0].flags, ui::vbExclamation);
    }
    // With the sibling program in the current directory, it is started instead of the box.
    QFile utilerias(dir.filePath(QStringLiteral("Utilerias")));
    ASSERT_TRUE(utilerias.open(QIODevice::WriteOnly));
    utilerias.close();
    sistema->cajas.clear();
    FormPrincipal f;
    EXPECT_FALSE(f.Form_Load());
    EXPECT_TRUE(sistema->cajas.empty());
    ASSERT_EQ(sistema->programas.size(), 1);
    EXPECT_TRUE(sistema->programas[0].endsWith(QStringLiteral("Utilerias")));
}

TEST_F(Arranque, LineaDeComandosYDerechosDelAnalista) {
    creaBase();
    {
        auto f = entra(QStringLiteral("-u  ADMIN -p admin"));
        EXPECT_TRUE(sistema->modales.isEmpty());
        // The session takes the table's spelling of the login.
        EXPECT_EQ(globales::LoginAnalista, QStringLiteral("admin"));
        EXPECT_EQ(f->LblNombre->text(), QStringLiteral(" admin"));
        EXPECT_EQ(f->LblTipo->text(), QStringLiteral(" Administrador"));
        EXPECT_TRUE(f->menuAdministracion->isVisible());
        EXPECT_TRUE(sistema->cajas.empty()) << sistema->Textos().join(u'|').toStdString();
        globales::BaseDatos.reset();
    }
    demo::AgregaAnalista(*dao::Database::OpenDatabase(base()), QStringLiteral("raul"), QStringLiteral("x2"),
                         QStringLiteral("110"), QStringLiteral("1"));
    // "110": Derechos(2)=0 normal user; "001": visitor.
    for (const auto& [linea, tipo] : {std::pair{"-u raul -p x2", " Usuario normal"}, std::pair{"-u visita -p visita", " Visitante"}}) {
        globales::Derechos = {0, 0, 0};
        EXPECT_EQ(entra(QString::fromUtf8(linea))->LblTipo->text(), QString::fromUtf8(tipo)) << linea;
        globales::BaseDatos.reset();
    }
}

TEST_F(Arranque, LineaDeComandosIncompletaPideElDialogo) {
    creaBase();
    for (const QString& linea : {QStringLiteral("-p admin -u admin"), QStringLiteral("-u admin"), QStringLiteral("-p admin")}) {
        sistema->modales.clear();
        tecleaAlEntrar({QStringLiteral("admin/admin")});
        FormPrincipal f;
        f.LineaComandos = linea;
        EXPECT_TRUE(f.Form_Load()) << linea.toStdString();
        EXPECT_EQ(sistema->modales, QStringList{QStringLiteral("Leepasswd")}) << linea.toStdString();
        globales::BaseDatos.reset();
    }
}

TEST_F(Arranque, ClaveEquivocadaEnLaLineaDaUnVisitanteSinNombre) {
    creaBase();
    auto pf = entra(QStringLiteral("-u admin -p otra"));
    FormPrincipal& f = *pf;
    EXPECT_EQ(sistema->Textos(), QStringList{QStringLiteral("Clave Erronea")});
    EXPECT_EQ(sistema->UltimaCaja().titulo, QStringLiteral("Error de acceso"));
    EXPECT_EQ(sistema->UltimaCaja().flags, ui::vbCritical);
    EXPECT_EQ(globales::LoginAnalista, QString());
    EXPECT_EQ(f.LblTipo->text(), QStringLiteral(" Visitante"));
    // A visitor's commands are off; the catalogs of schools, libraries and institutions stay as built.
    for (QAction* a : {f.Proveedores, f.Editoriales, f.Solicitudes, f.Pedidos, f.Recepcion, f.DonacionCambio,
                       f.CambioFecha, f.Exportacion, f.Importacion})
        EXPECT_FALSE(a->isEnabled()) << a->objectName().toStdString();
    for (int i : {0, 1, 2, 8}) EXPECT_FALSE(f.ToolPPAL[static_cast<size_t>(i)]->isEnabled()) << i;
    EXPECT_TRUE(f.ToolPPAL[6]->isEnabled());
    EXPECT_TRUE(f.Salir->isEnabled());
}

TEST_F(Arranque, ElRegistroDeCredencialSeCompruebaEntero) {
    creaBase();
    {
        auto db = dao::Database::OpenDatabase(base());
        // A password with a comma can't match: the element stops at the comma.
        demo::AgregaAnalista(*db, QStringLiteral("coma"), QStringLiteral("a,b"));
        // A record copied from another analyst's row is refused.
        db->Execute(QStringLiteral("INSERT INTO Analistas (Login, [password]) VALUES ('copia', '") +
                    credenciales::Registro(QStringLiteral("admin"), QStringLiteral("c"), QStringLiteral("011"), QStringLiteral("1")) +
                    QStringLiteral("')"));
        // An analyst not admitted to this module.
        demo::AgregaAnalista(*db, QStringLiteral("otro"), QStringLiteral("o"), QStringLiteral("011"), QStringLiteral("01"));
    }
    globales::BaseDatos = dao::Database::OpenDatabase(base());
    QString mensaje;
    EXPECT_EQ(ValidaAnalista(QStringLiteral("coma"), QStringLiteral("a,b"), mensaje), QString());
    EXPECT_EQ(mensaje, QString());
    EXPECT_EQ(ValidaAnalista(QStringLiteral("copia"), QStringLiteral("c"), mensaje), QString());
    EXPECT_EQ(mensaje, QStringLiteral("Se ha detectado corrupción en la base de usuarios"));
    mensaje.clear();
    EXPECT_EQ(ValidaAnalista(QStringLiteral("otro"), QStringLiteral("o"), mensaje), QString());
    EXPECT_EQ(mensaje, QStringLiteral("No tiene permiso para entrar a este módulo"));
    mensaje.clear();
    EXPECT_EQ(ValidaAnalista(QStringLiteral("admin"), QStringLiteral("ADMIN"), mensaje), QString());   // case counts
    EXPECT_EQ(ValidaAnalista(QStringLiteral("Admin"), QStringLiteral("admin"), mensaje), QStringLiteral("admin"));

    EXPECT_EQ(TomaElementoComa(QStringLiteral(" uno , dos,tres "), 2), QStringLiteral("dos"));
    EXPECT_EQ(TomaElementoComa(QStringLiteral("uno,dos"), 3), QString());
    EXPECT_EQ(TomaElementoComa(QStringLiteral("solo"), 1), QStringLiteral("solo"));
}

TEST_F(Arranque, CuartoIntentoFallidoTerminaElPrograma) {
    creaBase();
    tecleaAlEntrar({QStringLiteral("admin/1"), QStringLiteral("admin/2"), QStringLiteral("admin/3"), QStringLiteral("admin/4")});
    FormPrincipal f;
    EXPECT_FALSE(f.Form_Load());
    EXPECT_EQ(sistema->Textos(), (QStringList{QStringLiteral("Clave Erronea"), QStringLiteral("Clave Erronea"),
                                             QStringLiteral("Clave Erronea"), QStringLiteral("Ha hecho demasiados intentos")}));
    EXPECT_EQ(sistema->UltimaCaja().titulo, QStringLiteral("Clave incorrecta"));
    EXPECT_EQ(sistema->beeps, 4);
    EXPECT_TRUE(sistema->terminado);
}

TEST_F(Arranque, CancelarElDialogoTerminaElPrograma) {
    creaBase();
    sistema->AlMostrar(QStringLiteral("Leepasswd"), [](QDialog& d) { static_cast<Leepasswd&>(d).Command2_Click(); });
    FormPrincipal f;
    EXPECT_FALSE(f.Form_Load());
    EXPECT_TRUE(sistema->terminado);
}

// Before the main window stands, a failure that nothing traps is the failure box and then the end.
TEST_F(Arranque, ApostrofoEnLaLineaDeComandosTerminaTrasLaFalla) {
    creaBase();
    FormPrincipal f;
    f.LineaComandos = QStringLiteral("-u o'brien -p x");
    EXPECT_FALSE(f.Arranca());
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbCritical);
    EXPECT_TRUE(sistema->cajas[0].texto.startsWith(QStringLiteral("Se produjo el error 3075\r\n"))) << sistema->cajas[0].texto.toStdString();
    EXPECT_TRUE(sistema->terminado);
    EXPECT_TRUE(sistema->modales.isEmpty());
    EXPECT_TRUE(f.LblTipo->text().isEmpty());
}

// The attempts typed in the dialog go through its buttons, as a person's would, each answered here.
TEST_F(Arranque, ElDialogoCuentaCadaIntentoTambienLosQueFallan) {
    creaBase();
    struct Caso {
        const char* nombre;
        QStringList intentos;
        QStringList cajas;             // "falla" for the default failure box
        int terminacionesTrasLaPrimera;
    };
    const QString falla = QStringLiteral("falla");
    const std::vector<Caso> casos = {
        // The box of the broken statement, then the end; the attempt counts toward the four.
        {"apostrofo y tres claves", {"o'x/1", "admin/2", "admin/3", "admin/4"},
         {falla, "Clave Erronea", "Clave Erronea", "Ha hecho demasiados intentos"}, 1},
        {"tres claves y apostrofo", {"admin/1", "admin/2", "admin/3", "d'Ávila/4"},
         {"Clave Erronea", "Clave Erronea", "Clave Erronea", falla}, 0},
        // Nothing left to count once the fourth has gone: the dialog is closed.
        {"un quinto no llega", {"a'/1", "admin/2", "b'/3", "admin/4", "admin/admin"},
         {falla, "Clave Erronea", falla, "Ha hecho demasiados intentos"}, 1},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.nombre);
        sistema->cajas.clear();
        sistema->terminado = false;
        sistema->terminaciones = 0;
        int terminacionesTrasLaPrimera = -1;
        sistema->AlMostrar(QStringLiteral("Leepasswd"), [&](QDialog& d) {
            auto& acceso = static_cast<Leepasswd&>(d);
            acceso.show();
            for (const auto& intento : c.intentos) {
                if (!acceso.isVisible()) break;
                acceso.Text1->setText(intento.section(u'/', 0, 0));
                acceso.Text2->setText(intento.section(u'/', 1));
                acceso.Command1->click();
                if (terminacionesTrasLaPrimera < 0) terminacionesTrasLaPrimera = sistema->terminaciones;
            }
        });
        FormPrincipal f;
        EXPECT_FALSE(f.Arranca());
        QStringList vistas;
        for (const auto& caja : sistema->cajas)
            vistas << (caja.texto.startsWith(QStringLiteral("Se produjo el error 3075\r\n")) ? falla : caja.texto);
        EXPECT_EQ(vistas, c.cajas);
        for (const auto& caja : sistema->cajas) EXPECT_EQ(caja.flags, ui::vbCritical);
        // The program's end follows the first failure box at once.
        EXPECT_EQ(terminacionesTrasLaPrimera, c.terminacionesTrasLaPrimera);
        EXPECT_TRUE(sistema->terminado);
        EXPECT_TRUE(globales::LoginAnalista.isEmpty());
        globales::BaseDatos.reset();
    }
}

// Once the window stands, the same failure is the box and back to the screen.
TEST_F(Arranque, TrasElArranqueLaFallaNoTermina) {
    creaBase();
    FormPrincipal f;
    f.LineaComandos = QStringLiteral("-u admin -p admin");
    ASSERT_TRUE(f.Arranca());
    ui::Protegido(QStringLiteral("Leepasswd"), [] {
        QString mensaje;
        ValidaAnalista(QStringLiteral("o'brien"), QStringLiteral("x"), mensaje);
    });
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_TRUE(sistema->cajas[0].texto.startsWith(QStringLiteral("Se produjo el error 3075")));
    EXPECT_FALSE(sistema->terminado);
}

TEST_F(Arranque, UnLoginLargoYAnidadoEsUnErrorDelMotorNoUnaCaida) {
    creaBase();
    globales::BaseDatos = dao::Database::OpenDatabase(base());
    // The typed name goes into the statement as it stands: an apostrophe lets it nest at will.
    QString mensaje;
    const QString anidado = QStringLiteral("x' OR ") + QStringLiteral("(").repeated(7000) + QStringLiteral("1=1") +
                            QStringLiteral(")").repeated(7000) + QStringLiteral(" OR '");
    try {
        ValidaAnalista(anidado, QStringLiteral("admin"), mensaje);
        ADD_FAILURE() << "sin error";
    } catch (const vb::Error& e) {
        EXPECT_EQ(e.Number(), 3360);
    }
    // 14,000 characters of name without an apostrophe are just a login that does not exist.
    EXPECT_EQ(ValidaAnalista(QStringLiteral("NOT (").repeated(2800), QStringLiteral("admin"), mensaje), QString());
}

TEST_F(Arranque, RedInstitucionalPorElPrefijoDeLaDireccion) {
    creaBase();
    const QString prefijo = QStringLiteral(ADQ_PREFIJO_RED);
    for (const auto& [direccion, esperado] : std::vector<std::pair<QString, bool>>{
             {prefijo + QStringLiteral("4.20"), true}, {QStringLiteral("192.168.1.7"), false}, {QString(), false}}) {
        sistema->direccionLocal = direccion;
        entra();
        EXPECT_EQ(globales::EnRedInstitucional, esperado) << direccion.toStdString();
        globales::BaseDatos.reset();
    }
}

// The refusal of an older file, and that it is left untouched, is the engine's (prueba_esquema).
// The engine's error is the first thing seen, and then the end.
TEST_F(Arranque, SinBaseElArranqueFallaConElErrorDelMotor) {
    FormPrincipal f;
    EXPECT_FALSE(f.Arranca());
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_TRUE(sistema->cajas[0].texto.startsWith(QStringLiteral("Se produjo el error 3024\r\n")));
    EXPECT_EQ(sistema->terminaciones, 1);
    EXPECT_TRUE(sistema->modales.isEmpty());
}

TEST_F(Arranque, LaBaseSeNombraEnLaLineaEnElAjusteOEsElArchivoJuntoAlPrograma) {
    const QString carpeta = dir.path();
    EXPECT_EQ(FormPrincipal::BaseDeTrabajo(carpeta, QString()), carpeta + QStringLiteral("/KORVEL8.mdb"));
    QFile ajuste(dir.filePath(QStringLiteral("KORVEL8.base")));
    ASSERT_TRUE(ajuste.open(QIODevice::WriteOnly));
    ajuste.write("# comentario\n\n   depto/compartida.mdb  \n/otra/linea.mdb\n");
    ajuste.close();
    EXPECT_EQ(FormPrincipal::BaseDeTrabajo(carpeta, QString()), carpeta + QStringLiteral("/depto/compartida.mdb"));
    const QString uri = QStringLiteral("postgresql://analista@servidor:5433/adquisiciones");
    EXPECT_EQ(FormPrincipal::BaseDeTrabajo(carpeta, uri), uri);
    EXPECT_EQ(FormPrincipal::BaseDeTrabajo(carpeta, QStringLiteral("/datos/KORVEL8.mdb")), QStringLiteral("/datos/KORVEL8.mdb"));
    ASSERT_TRUE(ajuste.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ajuste.write(uri.toUtf8() + "\n");
    ajuste.close();
    EXPECT_EQ(FormPrincipal::BaseDeTrabajo(carpeta, QString()), uri);
}

// A server that doesn't answer, an address that is not one: a clear box, and the program ends at once.
TEST_F(Arranque, UnServidorQueNoRespondeTerminaConUnMensajeClaro) {
    for (const QString& nombre : {QStringLiteral("postgresql://analista@127.0.0.1:1/adquisiciones"),
                                  QStringLiteral("postgresql://analista@127.0.0.1:puerto/adquisiciones")}) {
        sistema->cajas.clear();
        FormPrincipal f;
        f.NombreBase = nombre;
        EXPECT_FALSE(f.Arranca());
        ASSERT_EQ(sistema->cajas.size(), 1u) << nombre.toStdString();
        const QString texto = sistema->cajas[0].texto;
        EXPECT_TRUE(texto.contains(QStringLiteral("No se pudo conectar con la base de datos 'adquisiciones' del servidor "
                                                  "127.0.0.1:1: el servidor no está en marcha")) ||
                    texto.contains(QStringLiteral("no es válida")))
            << texto.toStdString();
        EXPECT_FALSE(texto.contains(QLatin1String("Connection refused")));
    }
}

TEST_F(Arranque, BotonesDeLaVentanaPrincipal) {
    creaBase();
    auto pf = entra();
    FormPrincipal& f = *pf;
    // Button 4 never opens a screen.
    f.ToolPPAL_Click(4);
    EXPECT_EQ(sistema->UltimaCaja().texto, QStringLiteral("Opción no disponible"));
    EXPECT_EQ(sistema->UltimaCaja().titulo, QStringLiteral("Adquisiciones"));
    EXPECT_TRUE(sistema->modales.isEmpty());
    // Help opens the help page beside the program.
    f.ToolPPAL_Click(6);
    EXPECT_EQ(sistema->modales, QStringList{QStringLiteral("frmBrowseHelp")});
    // The splash goes after its five seconds.
    EXPECT_TRUE(f.PictureSplash->isVisibleTo(&f));
    f.Timer1_Timer();
    EXPECT_FALSE(f.PictureSplash->isVisibleTo(&f));
}

TEST_F(Arranque, BaseEnCarpetaDeRedSeAvisaUnaVezPorSesion) {
    if (prueba::EnServidor()) GTEST_SKIP() << "a file's folder";
    creaBase();
    dao::TipoSistemaArchivos = [](const QString&) -> long { return 0x6969; };
    struct Restaura {
        ~Restaura() { dao::TipoSistemaArchivos = &dao::TipoSistemaArchivosReal; }
    } restaura;
    for (int vez = 0; vez < 2; ++vez) {
        entra();
        EXPECT_TRUE(globales::Base().EnRed());
        globales::BaseDatos.reset();
    }
    ASSERT_EQ(sistema->cajas.size(), 1u) << sistema->Textos().join(u'|').toStdString();
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("Base de datos en red"));
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbInformation);
    EXPECT_TRUE(sistema->cajas[0].texto.contains(QDir::toNativeSeparators(base())));
    EXPECT_TRUE(sistema->cajas[0].texto.contains(QStringLiteral("servidor de bases de datos")));

    // On a local disk there is nothing to tell.
    dao::TipoSistemaArchivos = &dao::TipoSistemaArchivosReal;
    globales::AvisoRedMostrado = false;
    sistema->cajas.clear();
    entra();
    EXPECT_TRUE(sistema->cajas.empty());
}

// argv as the system lays it out: the arguments one after the other in one block, each ended by a zero.
struct LineaDePrueba {
    QByteArray bloque;
    std::vector<char*> argv;
    explicit LineaDePrueba(const QList<QByteArray>& args) {
        for (const auto& a : args) bloque += a + '\0';
        size_t i = 0;
        for (const auto& a : args) {
            argv.push_back(bloque.data() + i);
            i += static_cast<size_t>(a.size()) + 1;
        }
    }
    // What /proc/<pid>/cmdline would show: the block with zeros as spaces.
    QByteArray visible() const {
        QByteArray v = bloque;
        v.replace('\0', ' ');
        return v.simplified();
    }
};

TEST(LineaDeComandos, LaClaveSeBorraEnElLugarDondeElArranqueLaLee) {
    {
        LineaDePrueba l({"adquisiciones", "--captura", "x.png", "-u", "admin", "-p", "se creta"});
        linea::BorraClaveDeLaLinea(static_cast<int>(l.argv.size()), l.argv.data(), 3);
        EXPECT_EQ(l.visible(), QByteArray("adquisiciones --captura x.png -u admin -p"));
        EXPECT_EQ(l.bloque.size(), QByteArray("adquisiciones --captura x.png -u admin -p se creta").size() + 1);
    }
    {
        // "-pclave" and a password of several words: everything after "-p" is the password.
        LineaDePrueba l({"adquisiciones", "-u", "ana", "-pmi", "clave", "larga"});
        linea::BorraClaveDeLaLinea(static_cast<int>(l.argv.size()), l.argv.data());
        EXPECT_EQ(l.visible(), QByteArray("adquisiciones -u ana -p"));
    }
    {
        // As at start-up, "-p" before "-u" is no password: nothing is touched.
        LineaDePrueba l({"adquisiciones", "-p", "admin", "-u", "admin"});
        const QByteArray antes = l.bloque;
        linea::BorraClaveDeLaLinea(static_cast<int>(l.argv.size()), l.argv.data());
        EXPECT_EQ(l.bloque, antes);
    }
}

}  // namespace
