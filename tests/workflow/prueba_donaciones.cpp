// The donation list and head: the joined list, a delete that leaves the accession numbers behind, the number
// of a new head, the combos in step with their number fields, the catalog buttons, both ways of saving.
#include "ayuda_cajas.h"
#include "ayuda_flujo.h"

#include "core/FormPrincipal.h"
#include "core/controles/ComboBox.h"
#include "core/vb/Conversion.h"
#include "workflow/Don1.h"
#include "workflow/Don_Edi.h"
#include "workflow/Don_Generales.h"
#include "workflow/Registro.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

class PruebaDonaciones : public PruebaFlujo {
protected:
    void SetUp() override {
        PruebaFlujo::SetUp();
        Ejecuta("INSERT INTO Instituciones ([No], Nombre) VALUES (12, 'Fundación Alba')");
        Ejecuta("INSERT INTO Instituciones ([No], Nombre) VALUES (7, 'Museo')");
    }
    void DosDonaciones() {
        for (const char* fila : {"3, #2024/02/01#, 12, 1, 'D'", "9, #2024/06/15#, 99, 2, 'I'"})
            Ejecuta(QStringLiteral("INSERT INTO [Donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca, "
                                   "[Donacion o Intercambio]) VALUES (%1)").arg(QString::fromUtf8(fila)));
    }
    QString Fila(int n) {
        return Valor(QStringLiteral("SELECT NoInstitucion & '|' & NoBiblioteca & '|' & [Donacion o Intercambio] & '|' & "
                                    "Format(Fecha, 'yyyy-mm-dd') FROM [Donaciones General] WHERE NoDonacion=%1").arg(n));
    }
    QString UltimaCaja() const { return sistema->cajas.empty() ? QString() : Caja(sistema->cajas.back()); }
};

TEST_F(PruebaDonaciones, ListaConNombresBotonesYMenu) {
    Don1 f;
    f.Form_Load();
    EXPECT_EQ(f.Frame2->title(), "Donaciones recibidas: 0");
    EXPECT_FALSE(f.Command2->isEnabled());
    EXPECT_FALSE(f.Command3->isEnabled());
    EXPECT_TRUE(f.cmdReporte->isEnabled());             // the report by institution, with or without donations
    DosDonaciones();
    f.Refrescar();                                       // refreshing turns the row buttons back on
    EXPECT_TRUE(f.Command2->isEnabled() && f.Command3->isEnabled());
    controles::ListView& l = *f.ListView1;
    ASSERT_EQ(l.ListItems().Count(), 2);
    EXPECT_EQ(f.Frame2->title(), "Donaciones recibidas: 2");
    EXPECT_EQ(vb::Val(l.ListItems()(1).Text()), 9);    // newest first
    EXPECT_EQ(l.ListItems()(1).SubItems(2), QString()); // an unknown institution leaves its column empty
    EXPECT_EQ(l.ListItems()(1).SubItems(3), "Norte");
    EXPECT_EQ(l.ListItems()(2).SubItems(2), "Fundación Alba");

    l.ListItems()(2).setSelected(true);
    f.ListView1_DblClick();                              // as "Editar": the head in hand for its titles
    EXPECT_EQ(globales::NavModo, 2);
    EXPECT_EQ(globales::NavCampo, "NoDonacion");
    EXPECT_EQ(vb::Val(globales::NavValor.text()), 3);
    EXPECT_EQ(sistema->modales.back(), "Don_Generales");

    flujo::RegistraComandos();
    EXPECT_TRUE(FormPrincipal::PantallaDisponible("DonacionCambio"));
    EXPECT_TRUE(FormPrincipal::PantallaDisponible("DonacionModal"));
}

TEST_F(PruebaDonaciones, BorrarPreguntaYDejaLosNumerosDeAdquisicion) {
    DosDonaciones();
    Ejecuta("INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, NoDonacion) VALUES (40, 'Atlas', 3)");
    Ejecuta("INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, NoDonacion) VALUES (41, 'Mapas', 9)");
    Ejecuta("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro) VALUES ('D1', 40)");
    Don1 f;
    f.Form_Load();
    f.ListView1->ListItems()(2).setSelected(true);       // donation 3
    sistema->Responde({ui::vbNo, ui::vbYes});
    f.Command3_Click();
    EXPECT_EQ(UltimaCaja(), Caja("Precaución", ui::vbQuestion + ui::vbYesNo, QStringLiteral(
        "¿Está seguro que desea borrar la solicitud, así como los libros que estén dentro de ella?")));
    EXPECT_EQ(Cuenta("[Donaciones General]"), 2);
    f.Command3_Click();
    EXPECT_EQ(Valor("SELECT NoDonacion FROM [Donaciones General]"), "9");
    EXPECT_EQ(Valor("SELECT Titulo FROM [Donaciones Libros]"), "Mapas");
    EXPECT_EQ(Valor("SELECT NoAdquisicion FROM [Adquisiciones Numadqui] WHERE ClaveLibro=40"), "D1");
    EXPECT_EQ(f.Frame2->title(), "Donaciones recibidas: 1");
}

// A new head: 1 on an empty table, then the maximum plus one; saved, it becomes the head in hand for its
// titles; a number taken meanwhile by another analyst fails with the screen's box.
TEST_F(PruebaDonaciones, NuevaNumeraGrabaYPasaALosTitulos) {
    globales::NavModo = 0;
    {
        Don_Edi e;
        e.Form_Load();
        EXPECT_EQ(e.Label6->text(), "1");
    }
    DosDonaciones();
    Don1 lista;
    lista.Form_Load();
    // The titles' screen is left at once: with no title the new head is deleted, and the list follows.
    int donacionesAlSalir = -1;
    QString filaAlSalir;
    sistema->AlMostrar("Don_Generales", [&](QDialog& pantalla) {
        donacionesAlSalir = lista.ListView1->ListItems().Count();
        filaAlSalir = Fila(10);
        static_cast<Don_Generales&>(pantalla).Command4_Click();
    });
    Don_Edi e;
    e.Lista = &lista;
    e.Form_Load();
    EXPECT_EQ(e.Label6->text(), "10");
    e.Text2->setText("05/03/2024");
    e.Combo3->setText("Intercambio");
    e.Text4->setText("7");
    e.Text5->setText("2");
    e.Command1_Click();
    EXPECT_EQ(filaAlSalir, "7|2|I|2024-03-05");
    EXPECT_EQ(globales::NavModo, 2);
    EXPECT_EQ(globales::NavValor.text(), "10");
    EXPECT_EQ(globales::ModoCaptura, "NUEVO");
    EXPECT_EQ(sistema->modales.back(), "Don_Generales");
    EXPECT_EQ(donacionesAlSalir, 3);
    EXPECT_EQ(Fila(10), QString());
    EXPECT_EQ(lista.Frame2->title(), "Donaciones recibidas: 2");
    sistema->cajas.clear();

    globales::NavModo = 0;
    Don_Edi otra;
    otra.Form_Load();
    otra.Label6->setText("9");
    otra.Text4->setText("12");
    otra.Text5->setText("1");
    otra.Command1_Click();
    EXPECT_EQ(UltimaCaja(), Caja("Error", ui::vbOKOnly, "La ficha no se ha podido guardar"));
    EXPECT_EQ(globales::NavModo, 0);
}

TEST_F(PruebaDonaciones, CambioCargaYGuardaLaCabecera) {
    DosDonaciones();
    Don1 lista;
    lista.Form_Load();
    globales::NavModo = 2;
    globales::NavValor = vb::Variant(QStringLiteral("9"));
    Don_Edi e;
    e.Lista = &lista;
    e.Form_Load();
    EXPECT_EQ(e.Text2->text(), "15/jun/2024");
    EXPECT_EQ(e.Text4->text(), "99");
    EXPECT_EQ(e.Combo1->ListIndex(), -1);                // no such institution: nothing chosen
    EXPECT_TRUE(e.Combo2->Text().endsWith("Norte"));
    EXPECT_EQ(e.Combo3->Text(), "I");
    e.Combo3->setText("Donación");
    e.Text4->setText("12");
    e.Command1_Click();
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_EQ(Fila(9), "12|2|D|2024-06-15");
    EXPECT_EQ(lista.ListView1->ListItems()(1).SubItems(2), "Fundación Alba");
}

// Choosing an item writes its number; typing a number chooses its item, and one that matches none leaves the
// combo alone and is stored all the same. The catalog buttons refill a list and choose its first item.
TEST_F(PruebaDonaciones, CombosYNumerosEnPasoYBotonesDeCatalogo) {
    globales::NavModo = 0;
    Don_Edi e;
    e.Form_Load();
    ASSERT_EQ(e.Combo1->ListCount(), 2);                 // by name: Fundación Alba, Museo
    EligeEnLaLista(*e.Combo1, 1);
    EXPECT_EQ(e.Text4->text(), "7");
    EligeEnLaLista(*e.Combo2, 1);
    EXPECT_EQ(e.Text5->text(), "2");
    e.Text4->clear();
    Teclea(e.Text4, "12");
    EXPECT_EQ(e.Combo1->ListIndex(), 0);
    Teclea(e.Text4, "x5");
    EXPECT_EQ(e.Text4->text(), "125");
    EXPECT_EQ(e.Combo1->ListIndex(), 0);
    e.Text5->setText("1");
    EXPECT_TRUE(e.Combo2->Text().endsWith("Central"));
    e.Command1_Click();
    EXPECT_EQ(Fila(1).section(u'|', 0, 2), "125|1|D");

    Don_Edi c;
    c.Form_Load();
    c.Command2_Click();
    c.Command4_Click();
    ASSERT_EQ(c.Combo1->ListCount(), 2);
    EXPECT_EQ(c.Combo1->ListIndex(), 0);
    EXPECT_EQ(vb::Val(c.Text4->text()), vb::Val(c.Combo1->List(0)));
    EXPECT_EQ(c.Combo2->ListIndex(), 0);
    EXPECT_EQ(vb::Val(c.Text5->text()), vb::Val(c.Combo2->List(0)));
}

TEST_F(PruebaDonaciones, GrabarSeDetieneEnCadaFaltaYUnApostrofoAcabaEnCaja) {
    globales::NavModo = 0;
    Don_Edi e;
    e.Form_Load();
    e.Command1_Click();
    e.Text4->setText("7");
    e.Command1_Click();
    e.Text5->setText("1");
    e.Text2->setText("31/feb/2024");
    e.Command1_Click();
    EXPECT_EQ(sistema->Textos(), (QStringList{
        "Se requiere seleccionar a la institución donadora,\r\n por favor indique una...",
        "Se requiere seleccionar a la biblioteca destino,\r\n por favor indique una...", "Esta no es una fecha válida"}));
    EXPECT_EQ(Caja(sistema->cajas[1]).section(u'|', 0, 1), "Biblioteca requerida|16");
    // A quote typed as the kind breaks the statement: it ends in the screen's box, nothing written.
    e.Text2->setText("01/mar/2024");
    e.Combo3->setText("'Canje");
    e.Command1_Click();
    EXPECT_EQ(UltimaCaja(), Caja("Error", ui::vbOKOnly, "La ficha no se ha podido guardar"));
    EXPECT_EQ(Cuenta("[Donaciones General]"), 0);
}

}  // namespace
