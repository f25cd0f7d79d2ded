// The titles of a request: the list and the head page, adding and changing a title, deleting one, and what
// leaving the screen does to the titles' state and to a request left without titles.
#include "ayuda_cajas.h"
#include "ayuda_flujo.h"

#include "core/controles/ComboBox.h"
#include "workflow/Form2.h"
#include "workflow/Sol1.h"
#include "workflow/Sol_Libros.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

class PruebaTitulos : public PruebaFlujo {
protected:
    void SetUp() override {
        PruebaFlujo::SetUp();
        Ejecuta("INSERT INTO Editoriales ([No], Nombre) VALUES (12, 'Planeta')");
        Ejecuta("INSERT INTO Editoriales ([No], Nombre) VALUES (40, 'Trillas')");
        Ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado) "
                "VALUES (8, #2024/03/05#, 'Luis', 3, 1, 'S')");
        Ejecuta("INSERT INTO [Solicitudes Libros] (ClaveLibro, NoSolicitud, Titulo, Autor, NoEditorial, Edicion, "
                "[Ejemplares Pedidos], Estado, ISBN) VALUES (20, 8, 'Cálculo', 'Stewart', 12, 3, 2, 'P', '970-1')");
        Ejecuta("INSERT INTO [Solicitudes Libros] (ClaveLibro, NoSolicitud, Titulo, [Ejemplares Pedidos], Estado) "
                "VALUES (21, 8, 'Física', 1, NULL)");
        globales::NavCampo = "NoSolicitud";
        globales::NavValor = vb::Variant(QStringLiteral("8"));
        globales::NavModo = 2;
    }
    QString Estados() {
        QStringList r;
        auto rs = globales::Base().OpenRecordset(
            "SELECT Estado FROM [Solicitudes Libros] WHERE NoSolicitud=8 ORDER BY ClaveLibro");
        for (; !rs->Eof(); rs->MoveNext()) r << rs->Fields(0).Value().text();
        return r.join(u',');
    }
};

TEST_F(PruebaTitulos, ListaYEncabezadoDeLaSolicitud) {
    Form2 f;
    f.Form_Load();
    controles::ListView& l = *f.ListView1;
    EXPECT_EQ(Textos(l), (QStringList{"020", "021"}));
    EXPECT_EQ(l.ListItems()(1).SubItems(4), "Planeta");   // the publisher by name
    EXPECT_EQ(l.ListItems()(1).SubItems(6), "P");
    EXPECT_EQ(l.ListItems()(2).SubItems(4), QString());                   // no publisher: the row stays
    EXPECT_TRUE(f.Command2->isEnabled());

    const QString pagina = UltimoDocumento();
    for (const char* fila : {"Fecha: </td><td>05/mar/2024", "Escuela: </td><td>Ingeniería", "Biblioteca: </td><td>Central",
                             "Solicitante: </td><td>Luis"})
        EXPECT_TRUE(pagina.contains(QStringLiteral("<td class=td1>%1</td>").arg(QString::fromUtf8(fila)))) << fila;
}

TEST_F(PruebaTitulos, RegresarDevuelveLosTitulosASolicitadoMientrasNoSePida) {
    {
        Form2 f;
        f.Form_Load();
        f.Command4_Click();
    }
    EXPECT_EQ(Estados(), "S,S");

    // Once ordered the states stay as they are.
    Ejecuta("UPDATE [Solicitudes General] SET FechaPedido=#2024/04/01# WHERE NoSolicitud=8");
    Ejecuta("UPDATE [Solicitudes Libros] SET Estado='P'");
    Form2 f;
    f.Form_Load();
    f.Command4_Click();
    EXPECT_EQ(Estados(), "P,P");
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(PruebaTitulos, SolicitudSinTitulosDesdeLaListaOBorradaSoloSiElUsuarioAcepta) {
    Ejecuta("DELETE FROM [Solicitudes Libros]");
    Sol1 lista;
    lista.Form_Load();
    lista.ListView1->ListItems()(1).setSelected(true);
    globales::NavModo = 1;
    {
        Form2 f;
        f.Lista = &lista;
        f.Form_Load();
        EXPECT_EQ(f.ListView1->ListItems().Count(), 0);
        EXPECT_EQ(f.Frame1->title(), "Títulos incluidos en la solicitud: 0");
        EXPECT_FALSE(f.Command2->isEnabled());
        EXPECT_FALSE(f.Command3->isEnabled());
        // Coming from the list the head is the row chosen there, and leaving touches nothing.
        EXPECT_TRUE(UltimoDocumento().contains("<td>Luis</td>"));
        f.Command4_Click();
        EXPECT_TRUE(sistema->cajas.empty());
        EXPECT_EQ(Cuenta("[Solicitudes General]"), 1);
    }

    globales::NavModo = 2;
    Form2 f;
    f.Form_Load();
    f.show();
    sistema->Responde({ui::vbNo});
    f.Command4_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(Caja(sistema->cajas[0]), Caja("Precaución", ui::vbYesNo,
                                             "La solicitud no tiene ningún libro, por lo cual, si sale, se borrará, ¿Desea salir de todas maneras?"));
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(Cuenta("[Solicitudes General]"), 1);

    sistema->Responde({ui::vbYes});
    f.Command4_Click();
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(Cuenta("[Solicitudes General]"), 0);
}

TEST_F(PruebaTitulos, BorrarTituloConservaSusNumerosDeAdquisicion) {
    Ejecuta("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) VALUES ('000314', 20, 'S')");
    Form2 f;
    f.Form_Load();
    f.ListView1->ListItems()(1).setSelected(true);
    sistema->Responde({ui::vbNo});
    f.Command3_Click();
    EXPECT_EQ(Cuenta("[Solicitudes Libros]"), 2);
    f.Command3_Click();   // the next answer is the first button: Yes
    EXPECT_EQ(sistema->cajas.back().texto, "¿Está seguro que desea borrar el ejemplar?");
    EXPECT_EQ(sistema->cajas.back().titulo, "Precaución");
    EXPECT_EQ(Cuenta("[Solicitudes Libros]"), 1);
    EXPECT_EQ(Cuenta("[Adquisiciones Numadqui]"), 1);
    EXPECT_EQ(f.Frame1->title(), "Títulos incluidos en la solicitud: 1");
}

TEST_F(PruebaTitulos, AgregarTituloConValidacionesValoresPorOmisionYFallo) {
    Form2 f;
    f.Form_Load();
    sistema->AlMostrar("Sol_Libros", [&](QDialog& d) {
        auto& s = static_cast<Sol_Libros&>(d);
        s.Text5->setText("2");
        s.Command1_Click();                                   // no title
        s.Text3->setText("El arte d'escribir");
        s.Text5->setText("0");
        s.Command1_Click();                                   // no copies
        s.Text5->setText("3");
        s.Combo1->setListIndex(1);                            // "Trillas" by name order
        s.Command1_Click();
    });
    f.Command1_Click();
    ASSERT_EQ(sistema->cajas.size(), 2u);
    EXPECT_EQ(sistema->cajas[0].texto, "No ha introducido un título, favor de ingresarlo y volver a intentar");
    EXPECT_EQ(sistema->cajas[0].titulo, "Precaución");
    EXPECT_EQ(sistema->cajas[1].texto,
              "El número de ejemplares tiene un dato incorrecto, favor de modificarlo y volver a intentar");
    EXPECT_EQ(Valor("SELECT Titulo & '|' & Edicion & '|' & NoEditorial & '|' & [Ejemplares Pedidos] & '|' & Estado "
                    "FROM [Solicitudes Libros] WHERE ClaveLibro > 21"), "El arte d'escribir|0|40|3|S");

    // No publisher chosen: 0 is written.
    sistema->AlMostrar("Sol_Libros", [&](QDialog& d) {
        auto& s = static_cast<Sol_Libros&>(d);
        s.Text3->setText("Óptica");
        s.Text5->setText("1");
        s.Command1_Click();
        EXPECT_EQ(s.Text2->text(), "0");
    });
    f.Command1_Click();
    EXPECT_EQ(Valor("SELECT NoEditorial FROM [Solicitudes Libros] WHERE Titulo='Óptica'"), "0");

    // An apostrophe in the ISBN breaks the statement: reported, nothing written.
    sistema->AlMostrar("Sol_Libros", [&](QDialog& d) {
        auto& s = static_cast<Sol_Libros&>(d);
        s.Text3->setText("Química");
        s.Text5->setText("1");
        s.TxtISBN->setText("84'2");
        s.Command1_Click();
    });
    f.Command1_Click();
    ASSERT_EQ(sistema->cajas.size(), 4u);                     // the engine's message, then this one
    EXPECT_EQ(sistema->cajas.back().texto, "Los datos del libro no se han podido grabar");
    EXPECT_EQ(sistema->cajas.back().titulo, "Error");
    EXPECT_EQ(Cuenta("[Solicitudes Libros]"), 4);
}

// The state label: a title being changed shows its own; a new title shows the one the last title changed left,
// but is saved as requested; changing a title without a state saves it as requested.
TEST_F(PruebaTitulos, ModificarConservaElEstadoYElNuevoMuestraElDelUltimoModificado) {
    Form2 f;
    f.Form_Load();
    QString etiqueta, editorial;
    const auto SoloMira = [&] {
        sistema->AlMostrar("Sol_Libros", [&](QDialog& d) { etiqueta = static_cast<Sol_Libros&>(d).LblEstadoLibro->text(); });
    };
    SoloMira();
    f.Command1_Click();
    EXPECT_EQ(etiqueta, "Solicitado");   // nothing modified yet

    sistema->AlMostrar("Sol_Libros", [&](QDialog& d) {
        auto& s = static_cast<Sol_Libros&>(d);
        etiqueta = s.LblEstadoLibro->text();
        editorial = s.Combo1->Text();
        s.Text4->setText("J. Stewart");
        s.Command1_Click();
    });
    f.ListView1->ListItems()(1).setSelected(true);      // "Cálculo", ordered
    f.Command2_Click();
    EXPECT_EQ(etiqueta, "Pedido");
    EXPECT_TRUE(editorial.contains("Planeta"));   // the publisher's number selects its item
    EXPECT_EQ(Valor("SELECT Autor & '|' & Estado & '|' & Edicion FROM [Solicitudes Libros] WHERE ClaveLibro=20"),
              "J. Stewart|P|3");

    sistema->AlMostrar("Sol_Libros", [&](QDialog& d) {
        auto& s = static_cast<Sol_Libros&>(d);
        etiqueta = s.LblEstadoLibro->text();
        s.Text3->setText("Mecánica");
        s.Text5->setText("1");
        s.Command1_Click();
    });
    f.Command1_Click();
    EXPECT_EQ(etiqueta, "Pedido");
    EXPECT_EQ(Valor("SELECT Estado FROM [Solicitudes Libros] WHERE Titulo='Mecánica'"), "S");

    sistema->AlMostrar("Sol_Libros", [&](QDialog& d) {
        auto& s = static_cast<Sol_Libros&>(d);
        etiqueta = s.LblEstadoLibro->text();
        s.Command1_Click();
    });
    f.ListView1->ListItems()(2).setSelected(true);      // "Física", no state
    f.Command2_Click();
    EXPECT_EQ(etiqueta, "Solicitado");
    EXPECT_EQ(Valor("SELECT Estado FROM [Solicitudes Libros] WHERE ClaveLibro=21"), "S");
    SoloMira();
    f.Command1_Click();
    EXPECT_EQ(etiqueta, "Solicitado");
}

TEST_F(PruebaTitulos, CamposDelTituloLimitadosALaColumnaYEnOrdenDeTabulacion) {
    Form2 f;
    f.Form_Load();
    sistema->AlMostrar("Sol_Libros", [&](QDialog& d) {
        auto& s = static_cast<Sol_Libros&>(d);
        Teclea(s.Text3, QString(130, u't'));
        Teclea(s.Text4, QString(101, u'a'));
        Teclea(s.TxtISBN, "978-0-00-000000-0-extra");
        s.Text5->setText("1");
        s.Command1_Click();
        const QList<QWidget*> orden{s.Text3, s.Text4, s.Text1, s.Text2, s.Combo1, s.Command2, s.Text5, s.TxtISBN,
                                    s.Command1, s.Command3};
        EXPECT_EQ(OrdenDeFoco(orden), orden);
    });
    f.Command1_Click();
    EXPECT_TRUE(sistema->cajas.empty());                 // the longest text the field takes fits its column
    EXPECT_EQ(Valor("SELECT Len(Titulo) & '|' & Len(Autor) & '|' & ISBN FROM [Solicitudes Libros] WHERE ClaveLibro > 21"),
              "100|100|978-0-00-000000-0-ex");
}

}  // namespace
