// Capturing, changing and deleting records: the statements built by field type and the boxes of each
// failure.
#include "ayuda_catalogo.h"

#include "catalog/CatalogoClase.h"
#include "catalog/ModuloCatalogo.h"
#include "catalog/Registro.h"
#include "core/FormPrincipal.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

using namespace prueba;

namespace {

class Edicion : public BaseCatalogo {
protected:
    void SetUp() override {
        BaseCatalogo::SetUp();
        Ejecuta(QStringLiteral("CREATE TABLE Pruebas ([No] SHORT CONSTRAINT PrimaryKey PRIMARY KEY, Nombre TEXT(50) NOT NULL, "
                               "Alta DATETIME, Monto CURRENCY, Cantidad LONG, Nota TEXT(20))"));
    }
    // The catalog of the test table, keyed by name like the menu's catalogs.
    void AbrePruebas(const QString& listaCampos = QStringLiteral("No=Número,Nombre,Alta=Fecha de alta,Monto,Cantidad,Nota")) {
        CatalogoClase c;
        c.CATALOGO("Pruebas", "Nombre", "Nombre", listaCampos, "Pruebas", "select Nombre,[No] as Núm,Alta,Monto,Nota from Pruebas", 1);
    }
    static QString Sentencia() { return ModuloCatalogo::UltimaSentencia(); }
};

}  // namespace

TEST_F(Edicion, AltaYCambioDeCadaTipoDeCampo) {
    bool visto = false;
    Guion("CatalogoSimple", [&](QDialog& d) {
        visto = true;
        auto& f = static_cast<CatalogoSimple&>(d);
        f.Cmd_Click(0);
        EXPECT_FALSE(f.LstView->isEnabled());
        Escribe(f, {QStringLiteral("7"), QStringLiteral("Ana O'Neil"), QStringLiteral("5/1/2024"), QStringLiteral("12.5"), QStringLiteral("3"),
                    QStringLiteral("  ")});
        f.Cmd_Click(3);
        EXPECT_EQ(Sentencia(), QStringLiteral("INSERT INTO [Pruebas] ([No],[Nombre],[Alta],[Monto],[Cantidad],[Nota]) VALUES "
                                              "(7,'Ana O''Neil',#2024/01/05 00:00:00#,12.5,3,NULL)"));
        EXPECT_TRUE(f.LstView->isEnabled());
        EXPECT_FALSE(f.Text1[0]->isEnabled());
        ASSERT_EQ(CuentaItems(f), 1);
        EXPECT_EQ(f.LstView->ListItems()(1).SubItems(2), QStringLiteral("2024-01-05"));
        EXPECT_EQ(f.LstView->ListItems()(1).SubItems(3), QStringLiteral("12.50"));

        // Blank numbers and words in a number field of a new record.
        f.Cmd_Click(0);
        Escribe(f, {QStringLiteral("8"), QStringLiteral("Beto"), QString(), QString(), QStringLiteral("abc"), QString()});
        f.Cmd_Click(3);
        EXPECT_EQ(Sentencia(), QStringLiteral("INSERT INTO [Pruebas] ([No],[Nombre],[Alta],[Monto],[Cantidad],[Nota]) VALUES "
                                              "(8,'Beto',NULL,0,0,NULL)"));

        // A change: month-first date, blank optional text as an empty string, blank number as NULL.
        Selecciona(f, 1);
        ASSERT_EQ(f.Text1[1]->text(), QStringLiteral("Ana O'Neil"));
        f.Cmd_Click(1);
        f.Text1[2]->setText(QStringLiteral("6/2/2024"));
        f.Text1[3]->setText(QString());
        f.Text1[5]->setText(QString());
        f.Cmd_Click(3);
        EXPECT_EQ(Sentencia(), QStringLiteral("UPDATE [Pruebas] SET [No] = 7,[Nombre] = 'Ana O''Neil',[Alta] = #02/06/2024#,"
                                              "[Monto] = NULL,[Cantidad] = 3,[Nota] = '' where ([Nombre]='Ana O''Neil')"));
        EXPECT_EQ(f.EstadoEdicion, 0);

        // A date that is no date: its box, then the malformed statement fails with the generic box.
        f.Cmd_Click(1);
        f.Text1[2]->setText(QStringLiteral("31/31/2024"));
        f.Cmd_Click(3);
        EXPECT_TRUE(Sentencia().contains(QStringLiteral("[Nombre] = 'Ana O''Neil',,[Monto] = ")));
        EXPECT_EQ(f.EstadoEdicion, 2);
        f.Cmd_Click(4);
        EXPECT_EQ(f.EstadoEdicion, 0);
        f.Cmd_Click(6);
    });
    Responde({ui::vbOK, ui::vbOK, ui::vbYes});
    AbrePruebas();
    ASSERT_TRUE(visto);
    EXPECT_EQ(Valor(QStringLiteral("SELECT Nota FROM Pruebas WHERE [No]=7")), QString());
    EXPECT_EQ(Valor(QStringLiteral("SELECT Nota FROM Pruebas WHERE [No]=8")), QStringLiteral("NULL"));
    EXPECT_EQ(Valor(QStringLiteral("SELECT Alta FROM Pruebas WHERE [No]=7")), QStringLiteral("06/02/2024"));
    EXPECT_EQ(Valor(QStringLiteral("SELECT Monto FROM Pruebas WHERE [No]=7")), QStringLiteral("NULL"));
    EXPECT_EQ(Valor(QStringLiteral("SELECT Cantidad FROM Pruebas WHERE [No]=8")), QStringLiteral("0"));
    EXPECT_TRUE(globales::CatRegistroAgregado);
    EXPECT_TRUE(globales::CatRegistroModificado);
    ASSERT_EQ(Cajas().size(), 3u);
    EXPECT_EQ(Cajas()[0].texto, QStringLiteral("Error en la fecha"));
    EXPECT_EQ(Cajas()[0].flags, ui::vbCritical);
    EXPECT_TRUE(Cajas()[1].titulo.startsWith(QStringLiteral("Error 3")));
    EXPECT_TRUE(Cajas()[1].texto.startsWith(QStringLiteral("Los datos no están completos o están incorrectos\r\n\r\n")));
    EXPECT_EQ(Cajas()[2].texto, QStringLiteral("¿Desea cancelar la edición del registro?"));
    EXPECT_EQ(Cajas()[2].flags, 52);
    EXPECT_EQ(Cajas()[2].titulo, QStringLiteral("Cancelar"));
}

TEST_F(Edicion, CadaFallaDelMotorTieneSuCaja) {
    Ejecuta(QStringLiteral("INSERT INTO Pruebas ([No], Nombre) VALUES (1, 'Uno')"));
    Ejecuta(QStringLiteral("INSERT INTO Pruebas ([No], Nombre) VALUES (2, 'Dos')"));
    struct Esperada {
        int flags;
        QString titulo, texto;
    };
    std::vector<Esperada> esperadas;
    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        f.Cmd_Click(0);
        Escribe(f, {QStringLiteral("1"), QStringLiteral("Otro"), QString(), QString(), QString(), QString()});
        f.Cmd_Click(3);
        esperadas.push_back({ui::vbCritical, QStringLiteral("Error al agregar un nuevo registro"),
                             QStringLiteral("El registro está repetido \r\n Verifique que el campo identificador no esté duplicado [rte3022]")});
        f.Text1[0]->setText(QStringLiteral("3"));
        f.Text1[3]->setText(QStringLiteral("'mucho'"));
        f.Cmd_Click(3);
        esperadas.push_back({ui::vbInformation, QStringLiteral("Error raro [3464]"), QString()});
        f.Text1[3]->setText(QStringLiteral("mucho"));
        f.Cmd_Click(3);
        esperadas.push_back({ui::vbExclamation, QStringLiteral("No se pudo grabar el registro..."),
                             QStringLiteral("Verifique que los campos númericos tengan un valor apropiado y que los campos básicos "
                                            "estén completos [rte 3061]")});
        f.Text1[3]->setText(QStringLiteral("#"));
        f.Cmd_Click(3);
        esperadas.push_back({ui::vbExclamation, QStringLiteral("Advertencia 3"),
                             QStringLiteral("Los datos no están completos o están incorrectos\r\nFavor de verificar la información del registro")});
        f.Text1[1]->setText(QStringLiteral("   "));
        f.Cmd_Click(3);
        esperadas.push_back({ui::vbExclamation, QStringLiteral("Campo obligatorio"),
                             QStringLiteral("el campo 'Nombre' es obligatorio, agregue un valor apropiado por favor...")});
        EXPECT_EQ(f.EstadoEdicion, 1);
        f.Cmd_Click(4);   // answered No: still editing
        EXPECT_EQ(f.EstadoEdicion, 1);
        esperadas.push_back({52, QStringLiteral("Cancelar"), QStringLiteral("¿Desea cancelar la edición del registro?")});
        f.Cmd_Click(4);
        esperadas.push_back({52, QStringLiteral("Cancelar"), QStringLiteral("¿Desea cancelar la edición del registro?")});

        // A change to a number another record has; a change of a record deleted meanwhile.
        Selecciona(f, 1);
        ASSERT_EQ(f.Text1[1]->text(), QStringLiteral("Dos"));
        f.Cmd_Click(1);
        f.Text1[0]->setText(QStringLiteral("1"));
        f.Cmd_Click(3);
        esperadas.push_back({ui::vbCritical, QStringLiteral("Error 3022"),
                             QStringLiteral("El registro está repetido \r\n Verifique que el campo identificador no esté duplicado")});
        f.Text1[0]->setText(QStringLiteral("2"));
        Ejecuta(QStringLiteral("DELETE * FROM Pruebas WHERE Nombre='Dos'"));
        f.Cmd_Click(3);
        esperadas.push_back({ui::vbCritical, QStringLiteral("Error 1001"), QStringLiteral("No se pudo actualizar, registro no encontrado")});
        EXPECT_EQ(f.EstadoEdicion, 2);
        // Leaving while editing asks first; No keeps the screen.
        globales::EsCatalogoUsuarios = true;
        f.Cmd_Click(6);
        esperadas.push_back({36, QStringLiteral("Salir sin grabar"), QStringLiteral("¿Desea salir sin grabar el registro?")});
        EXPECT_TRUE(globales::EsCatalogoUsuarios);
        f.Cmd_Click(6);
        esperadas.push_back({36, QStringLiteral("Salir sin grabar"), QStringLiteral("¿Desea salir sin grabar el registro?")});
        EXPECT_FALSE(globales::EsCatalogoUsuarios);
    });
    Responde({ui::vbOK, ui::vbOK, ui::vbOK, ui::vbOK, ui::vbOK, ui::vbNo, ui::vbYes, ui::vbOK, ui::vbOK, ui::vbNo, ui::vbYes});
    AbrePruebas();
    ASSERT_EQ(Cajas().size(), esperadas.size());
    for (size_t i = 0; i < esperadas.size(); ++i) {
        EXPECT_EQ(Cajas()[i].flags, esperadas[i].flags) << i;
        EXPECT_TRUE(Cajas()[i].titulo.startsWith(esperadas[i].titulo)) << i << " " << Cajas()[i].titulo.toStdString();
        if (!esperadas[i].texto.isEmpty()) {
            EXPECT_EQ(Cajas()[i].texto, esperadas[i].texto) << i;
        }
    }
    EXPECT_EQ(Cajas()[1].texto, QStringLiteral("No coinciden los tipos de datos en la expresión de criterios."));
    EXPECT_EQ(Valor(QStringLiteral("SELECT COUNT(*) FROM Pruebas")), QStringLiteral("1"));
}

TEST_F(Edicion, ValoresRequeridosQueElMotorExigeOLaPantallaRevisa) {
    Ejecuta(QStringLiteral("CREATE TABLE Existencias ([No] SHORT CONSTRAINT PrimaryKey PRIMARY KEY, Cantidad LONG NOT NULL)"));
    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        f.Cmd_Click(0);
        Escribe(f, {QStringLiteral("1"), QStringLiteral("muchos")});
        f.Cmd_Click(3);
        f.Text1[1]->setText(QStringLiteral("12"));
        f.Cmd_Click(3);
        EXPECT_EQ(f.EstadoEdicion, 0);
    });
    CatalogoClase c;
    c.CATALOGO("Existencias", "No", "No", QString(), "Existencias", "select * from Existencias", 1);
    ASSERT_EQ(Cajas().size(), 1u);
    EXPECT_EQ(Cajas()[0].titulo, QStringLiteral("Error en valor de campo obligatorio"));
    EXPECT_EQ(Cajas()[0].flags, ui::vbExclamation);
    EXPECT_EQ(Cajas()[0].texto, QStringLiteral("el campo 'Cantidad' es obligatorio y no contiene un valor apropiado,\r\n"
                                                "por favor corrija este dato e intente de nuevo"));
    EXPECT_EQ(Valor(QStringLiteral("SELECT Cantidad FROM Existencias")), QStringLiteral("12"));

    // A required column left out of the capture list: only the engine can tell.
    Cajas().clear();
    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        f.Cmd_Click(0);
        Escribe(f, {QStringLiteral("9"), QStringLiteral("1/3/2024")});
        f.Cmd_Click(3);
        EXPECT_EQ(f.EstadoEdicion, 1);
    });
    AbrePruebas(QStringLiteral("No,Alta"));
    ASSERT_EQ(Cajas().size(), 1u);
    EXPECT_EQ(Cajas()[0].titulo, QStringLiteral("Valor para campo requerido..."));
    EXPECT_EQ(Cajas()[0].flags, ui::vbExclamation);
    EXPECT_TRUE(Cajas()[0].texto.startsWith(QStringLiteral("Hacen falta datos de un campo obligatorio, [rte 3314]\r\n")));
}

TEST_F(Edicion, HomonimosSeCambianYSeBorranJuntos) {
    Ejecuta(QStringLiteral("CREATE TABLE Contactos (Nombre TEXT(50), Telefono TEXT(20))"));
    Ejecuta(QStringLiteral("INSERT INTO Contactos VALUES ('Planeta', '1')"));
    Ejecuta(QStringLiteral("INSERT INTO Contactos VALUES ('Planeta', '2')"));
    Ejecuta(QStringLiteral("INSERT INTO Contactos VALUES ('Sur', '3')"));
    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        Selecciona(f, 1);
        f.Cmd_Click(1);
        f.Text1[1]->setText(QStringLiteral("555"));
        f.Cmd_Click(3);
        EXPECT_EQ(Sentencia(), QStringLiteral("UPDATE [Contactos] SET [Nombre] = 'Planeta',[Telefono] = '555' where ([Nombre]='Planeta')"));
        Selecciona(f, 1);
        f.Cmd_Click(2);
        EXPECT_EQ(Sentencia(), QStringLiteral("DELETE * FROM [Contactos] WHERE [Nombre]='Planeta'"));
        EXPECT_EQ(CuentaItems(f), 1);
    });
    Responde({ui::vbOK});
    CatalogoClase c;
    c.CATALOGO("Contactos", "Nombre", "Nombre", "Nombre,Telefono", "Contactos", "select Nombre, Telefono from Contactos", 1);
    ASSERT_EQ(Cajas().size(), 2u);
    EXPECT_EQ(Cajas()[0].texto, QStringLiteral("¿Desea eliminar definitivamente este registro?"));
    EXPECT_EQ(Cajas()[0].flags, 33);
    EXPECT_EQ(Cajas()[0].titulo, QStringLiteral("Borrar registro"));
    EXPECT_EQ(Cajas()[1].texto, QStringLiteral("2 registros eliminados"));
    EXPECT_EQ(Cajas()[1].titulo, QStringLiteral("Advertencia"));
    EXPECT_EQ(Cajas()[1].flags, ui::vbCritical);
    EXPECT_EQ(Valor(QStringLiteral("SELECT COUNT(*) FROM Contactos")), QStringLiteral("1"));
}

TEST_F(Edicion, BorrarElUltimoDejaSuRenglonQueYaNoSeEncuentra) {
    Ejecuta(QStringLiteral("INSERT INTO Editoriales ([No], Nombre) VALUES (4, 'Planeta')"));
    catalogo::RegistraComandos();
    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        f.Cmd_Click(2);   // cancelled
        EXPECT_EQ(Valor(QStringLiteral("SELECT COUNT(*) FROM Editoriales")), QStringLiteral("1"));
        f.Cmd_Click(2);
        EXPECT_EQ(Valor(QStringLiteral("SELECT COUNT(*) FROM Editoriales")), QStringLiteral("0"));
        ASSERT_EQ(CuentaItems(f), 1);
        EXPECT_EQ(TextoItem(f, 1), QStringLiteral("Planeta"));
        for (int i = 0; i < 8; ++i)
            if (i != 6) {
                EXPECT_EQ(f.Cmd[static_cast<size_t>(i)]->isEnabled(), i == 0) << i;
            }
        Selecciona(f, 1);
    });
    Responde({ui::vbCancel, ui::vbOK});
    FormPrincipal principal;
    principal.Ejecuta(QStringLiteral("Editoriales"));
    ASSERT_EQ(Cajas().size(), 3u);
    EXPECT_EQ(Cajas()[2].texto, QStringLiteral("Planeta=Nombre no encontrado "));
    EXPECT_EQ(Cajas()[2].titulo, QStringLiteral("ERROR"));
    EXPECT_EQ(Cajas()[2].flags, ui::vbCritical);
}

TEST_F(Edicion, UsuariosConPrestamosNoSeBorran) {
    Ejecuta(QStringLiteral("CREATE TABLE Usuarios (NoCuenta TEXT(20) CONSTRAINT PrimaryKey PRIMARY KEY, Nombre TEXT(50), "
                           "Carrera TEXT(50), Grupo TEXT(10))"));
    Ejecuta(QStringLiteral("INSERT INTO Usuarios VALUES ('2008001', 'Eva', 'Artes', 'A')"));
    Ejecuta(QStringLiteral("INSERT INTO Usuarios VALUES ('2008002', 'Leo', 'Artes', 'B')"));
    Ejecuta(QStringLiteral("INSERT INTO Prestamos (NoCuenta, NoAdquisicion) VALUES ('2008001', 'A1')"));
    Ejecuta(QStringLiteral("INSERT INTO [Prestamos Internos] (NoCuenta, NoAdquisicion) VALUES ('2008002', 'A2')"));
    Ejecuta(QStringLiteral("INSERT INTO [Prestamos Internos] (NoCuenta, NoAdquisicion) VALUES ('2008002', 'A3')"));
    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        globales::EsCatalogoUsuarios = true;
        Selecciona(f, 1);
        f.Cmd_Click(2);
        Selecciona(f, 2);
        f.Cmd_Click(2);
        // The positions that must be filled decide whether "Grabar" may be pressed.
        f.Cmd_Click(0);
        Escribe(f, {QStringLiteral("2008003"), QStringLiteral("Ema"), QStringLiteral("Artes")});
        f.Text1_LostFocus(2);
        EXPECT_FALSE(f.Cmd[3]->isEnabled());
        f.Text1[3]->setText(QStringLiteral("C"));
        f.Text1_LostFocus(3);
        EXPECT_TRUE(f.Cmd[3]->isEnabled());
        f.Cmd_Click(3);
    });
    Responde({ui::vbOK, ui::vbOK, ui::vbOK, ui::vbOK});
    CatalogoClase c;
    c.CATALOGO("Usuarios", "NoCuenta", "NoCuenta", QString(), "Usuarios", "select NoCuenta, Nombre from Usuarios", 1);
    ASSERT_EQ(Cajas().size(), 4u);
    EXPECT_EQ(Cajas()[1].texto, QStringLiteral("Este usuario tiene 1 libro(s) pendientes por entregar en Prestamo Externo.\r\n"
                                               " Debe regesar los libros que tiene prestados para eliminar éste usuario"));
    EXPECT_EQ(Cajas()[1].flags, ui::vbCritical);
    EXPECT_EQ(Cajas()[3].texto, QStringLiteral("Este usuario tiene 2 libros(s) pendientes por entregar en Prestamo Interno.\r\n"
                                               "  Debe regesar los libros que tiene prestados para eliminar éste usuario"));
    EXPECT_EQ(Valor(QStringLiteral("SELECT COUNT(*) FROM Usuarios")), QStringLiteral("3"));
}

TEST_F(Edicion, RenglonesDeTextoTomanElLargoDeSuCampo) {
    bool visto = false;
    Guion("CatalogoSimple", [&](QDialog& d) {
        visto = true;
        auto& f = static_cast<CatalogoSimple&>(d);
        ASSERT_GE(f.Text1.size(), 6u);
        // No, Nombre TEXT(50), Alta, Monto, Cantidad, Nota TEXT(20): only the texts are limited.
        const int sinLimite = QLineEdit().maxLength();
        EXPECT_EQ(f.Text1[0]->maxLength(), sinLimite);
        EXPECT_EQ(f.Text1[1]->maxLength(), 50);
        EXPECT_EQ(f.Text1[2]->maxLength(), sinLimite);
        EXPECT_EQ(f.Text1[3]->maxLength(), sinLimite);
        EXPECT_EQ(f.Text1[4]->maxLength(), sinLimite);
        EXPECT_EQ(f.Text1[5]->maxLength(), 20);

        // The longest text each row takes is saved whole, with no failure of the engine.
        f.Cmd_Click(0);
        f.Text1[0]->setText(QStringLiteral("9"));
        f.Text1[1]->setFocus();
        for (int i = 0; i < 60; ++i) {
            QKeyEvent tecla(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
            QApplication::sendEvent(f.Text1[1], &tecla);
        }
        f.Text1[5]->setText(QString(25, u'z'));
        f.Cmd_Click(3);
        EXPECT_TRUE(Cajas().empty());
        EXPECT_EQ(Valor(QStringLiteral("SELECT Len(Nombre) & '|' & Len(Nota) FROM Pruebas WHERE [No]=9")), QStringLiteral("50|20"));
    });
    AbrePruebas();
    EXPECT_TRUE(visto);
}
