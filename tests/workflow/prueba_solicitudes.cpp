// The request list and the request editor: the list as the statement fills it, the filter on the state,
// the buttons, the delete cascade, the number proposed for a new request, and both ways of saving a head.
#include "ayuda_cajas.h"
#include "ayuda_flujo.h"

#include "workflow/Registro.h"
#include "workflow/Sol1.h"
#include "workflow/Sol_Edi.h"
#include "core/FormPrincipal.h"
#include "core/controles/ComboBox.h"
#include "core/vb/Conversion.h"
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {

class PruebaSolicitudes : public PruebaFlujo {
protected:
    void TresSolicitudes() {
        for (const char* fila : {"1, #2024/03/05#, 'Luis', 3, 1, 'S'", "2, #2024/04/10#, 'Marta', 5, 2, 'P'",
                                 "7, #2024/05/01#, 'Eva', 9, NULL, 'R'"})
            Ejecuta(QStringLiteral("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, "
                                   "Estado) VALUES (%1)").arg(QString::fromUtf8(fila)));
    }
    // The editor opened on request n from the list, as its button does.
    void AbreParaCambiar(Sol_Edi& e, Sol1& lista, int n) {
        globales::NavModo = 2;
        globales::NavCampo = "NoSolicitud";
        globales::NavValor = vb::Variant(QString::number(n));
        e.Lista = &lista;
        e.Form_Load();
    }
};

// ---- Sol1 -------------------------------------------------------------------------------------------------

TEST_F(PruebaSolicitudes, ListaNuevasPrimeroYFiltroDeProcesadas) {
    TresSolicitudes();
    Sol1 f;
    f.Form_Load();
    controles::ListView& l = *f.ListView1;
    ASSERT_EQ(l.ListItems().Count(), 3);
    EXPECT_EQ(vb::Val(l.ListItems()(1).Text()), 7);       // newest first
    // A school or library that is missing leaves its columns empty, the row stays.
    EXPECT_EQ(l.ListItems()(1).SubItems(2), "Eva");
    EXPECT_EQ(l.ListItems()(1).SubItems(3), QString());
    EXPECT_EQ(l.ListItems()(2).SubItems(3), "Medicina");
    EXPECT_EQ(l.ListItems()(2).SubItems(4), "Norte");
    // Filling enables nothing: the buttons wait for a click on a row.
    EXPECT_FALSE(f.Command2->isEnabled());
    EXPECT_TRUE(sistema->cajas.empty());

    f.Option1[1]->setChecked(true);
    f.Option1_Click(1);
    ASSERT_EQ(l.ListItems().Count(), 1);
    EXPECT_EQ(vb::Val(l.ListItems()(1).Text()), 1);
    EXPECT_EQ(f.Frame2->title(), "Solicitudes disponibles: 1");
    EXPECT_EQ(l.ColumnHeaders().Count(), 5);              // the columns are set up again, not doubled
    f.Option1[0]->setChecked(true);
    f.Option1_Click(0);
    EXPECT_EQ(l.ListItems().Count(), 3);
}

TEST_F(PruebaSolicitudes, ClicHabilitaDobleClicDaTitulosYEditarAbreLaCaptura) {
    TresSolicitudes();
    Sol1 f;
    f.Form_Load();
    f.ListView1->ListItems()(2).setSelected(true);
    f.ListView1_Click();
    EXPECT_TRUE(f.Command2->isEnabled() && f.Command3->isEnabled() && f.cmdAgregarTitulos->isEnabled());
    f.ListView1_DblClick();
    EXPECT_EQ(globales::NavModo, 1);
    EXPECT_EQ(globales::NavCampo, "NoSolicitud");
    EXPECT_EQ(vb::Val(globales::NavValor.text()), 2);

    f.ListView1->ListItems()(3).setSelected(true);
    QString solicitante;
    sistema->AlMostrar("Sol_Edi", [&](QDialog& d) { solicitante = static_cast<Sol_Edi&>(d).Text3->text(); });
    f.Command2_Click();
    EXPECT_EQ(globales::NavModo, 2);
    EXPECT_EQ(solicitante, "Luis");
}

TEST_F(PruebaSolicitudes, BorrarPreguntaYBorraEnCascada) {
    TresSolicitudes();
    Ejecuta("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, NoSolicitud) VALUES (10, 'Álgebra', 2)");
    Ejecuta("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, NoSolicitud) VALUES (11, 'Cálculo', 1)");
    Ejecuta("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro) VALUES ('A1', 10)");
    Ejecuta("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro) VALUES ('A2', 11)");
    Sol1 f;
    f.Form_Load();
    f.ListView1->ListItems()(2).setSelected(true);      // request 2, already ordered

    sistema->Responde({ui::vbNo});
    f.Command3_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(Caja(sistema->cajas[0]), Caja("Borrado de solicitud", ui::vbQuestion + ui::vbYesNo, QStringLiteral(
        "¿Está seguro que desea borrar la solicitud, así como los libros que estén dentro de ella?")));
    EXPECT_EQ(Cuenta("[Solicitudes General]"), 3);

    sistema->Responde({ui::vbYes});
    f.Command3_Click();
    EXPECT_EQ(Cuenta("[Solicitudes General]"), 2);
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Solicitudes Libros] WHERE NoSolicitud=2"), "0");
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Adquisiciones Numadqui] WHERE ClaveLibro=10"), "0");
    EXPECT_EQ(Cuenta("[Adquisiciones Numadqui]"), 1);     // other requests keep theirs
    // The list ends as the joined statement fills it, with the school names, not the numbers.
    ASSERT_EQ(f.ListView1->ListItems().Count(), 2);
    EXPECT_EQ(f.ListView1->ListItems()(2).SubItems(3), "Ingeniería");
    EXPECT_EQ(f.Frame2->title(), "Solicitudes disponibles: 2");
}

// An empty list leaves every button off; the import button shows only inside the institution's network,
// tested again on each activation; the menu opens the list.
TEST_F(PruebaSolicitudes, ListaVaciaBotonDeImportarYMenu) {
    Sol1 f;
    f.Form_Load();
    EXPECT_EQ(f.Frame2->title(), "Solicitudes disponibles: 0");
    EXPECT_FALSE(f.Command2->isEnabled() || f.Command3->isEnabled() || f.cmdAgregarTitulos->isEnabled());
    globales::NavModo = 9;
    f.cmdAgregarTitulos_Click();                         // nothing happens, no failure box
    EXPECT_EQ(globales::NavModo, 9);
    EXPECT_TRUE(sistema->cajas.empty());

    sistema->direccionLocal = QStringLiteral(ADQ_PREFIJO_RED) + ".7.7";
    f.Form_Activate();
    EXPECT_FALSE(f.BtnImportarSolicitud->isHidden());
    sistema->direccionLocal = "10.99.99.1";
    f.Form_Activate();
    EXPECT_TRUE(f.BtnImportarSolicitud->isHidden());

    flujo::RegistraComandos();
    EXPECT_TRUE(FormPrincipal::PantallaDisponible("Solicitudes"));
}

// ---- Sol_Edi ------------------------------------------------------------------------------------------------

TEST_F(PruebaSolicitudes, NumeroPropuestoYFinanciamientoOculto) {
    globales::NavModo = 0;
    {
        Sol_Edi e;
        e.Form_Load();
        EXPECT_EQ(e.Label6->text(), "1");   // empty table: the first request
        EXPECT_TRUE(vb::IsDate(vb::Variant(e.Text2->text())));
        EXPECT_TRUE(e.cboFinanciamiento->isHidden());
        EXPECT_TRUE(e.lblFinanciamiento->isHidden());
    }
    TresSolicitudes();
    Ejecuta("INSERT INTO adqFinanciamiento (Nombre) VALUES ('Federal')");
    Sol_Edi e;
    e.Form_Load();
    EXPECT_EQ(e.Label6->text(), "8");
    EXPECT_FALSE(e.cboFinanciamiento->isHidden());
    EXPECT_FALSE(e.txtIdFinanciamiento->isHidden());
}

TEST_F(PruebaSolicitudes, BibliotecaEstrechaEscuelasYEscuelaDaFuentes) {
    Ejecuta("INSERT INTO adqFinanciamiento (Nombre) VALUES ('Federal')");
    Ejecuta("INSERT INTO adqFinanciamiento (Nombre) VALUES ('Estatal')");
    Ejecuta("INSERT INTO adqProyectos (Nombre, IdEscuela, IdFinanciamiento) VALUES ('P1', 4, 2)");
    globales::NavModo = 0;
    Sol_Edi e;
    e.Form_Load();
    EXPECT_EQ(e.Combo1->ListCount(), 3);
    e.Text5->setText("1");
    EXPECT_EQ(e.Combo1->ListCount(), 2);                 // only the schools of library 1, by name
    EXPECT_EQ(e.Combo1->ListIndex(), 0);
    EXPECT_EQ(e.Text4->text(), "4");     // Artes
    ASSERT_EQ(e.cboFinanciamiento->ListCount(), 1);
    EXPECT_EQ(e.txtIdFinanciamiento->text(), "2");

    e.Combo1->setListIndex(1);                           // Ingeniería has no project
    EXPECT_EQ(e.Text4->text(), "3");
    EXPECT_EQ(e.cboFinanciamiento->ListCount(), 0);
    EXPECT_EQ(e.txtIdFinanciamiento->text(), QString());

    const int antes = sistema->beeps;
    e.Text5->setText("9");               // no such library
    EXPECT_EQ(e.Text5->text(), QString());
    EXPECT_GT(sistema->beeps, antes);
    e.Text4->setText("8");               // no such school among those listed
    EXPECT_EQ(e.Text4->text(), QString());
    EXPECT_FALSE(e.lblWarning->isHidden());
}

TEST_F(PruebaSolicitudes, GrabarSeDetieneEnCadaDatoQueFaltaYLuegoGrabaConApostrofo) {
    globales::NavModo = 0;
    Sol_Edi e;
    e.Form_Load();
    e.Command1_Click();
    EXPECT_EQ(e.lblWarning->text(), "Se requiere el nombre del solicitante...");
    EXPECT_TRUE(e.lblWarning->isHidden());
    e.Text3->setText("Luis");
    e.Command1_Click();
    EXPECT_EQ(e.lblWarning->text(), "Número de Biblioteca inválido, seleccione uno de la lista...");
    EXPECT_FALSE(e.lblWarning->isHidden());
    e.Text5->setText("2");
    e.Text4->clear();
    e.Command1_Click();
    EXPECT_EQ(e.lblWarning->text(), "Número de escuela inválido, seleccione uno de la lista...");
    e.Text4->setText("5");
    e.Text2->setText("31/02/2024x");
    e.Command1_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(Caja(sistema->cajas[0]), Caja("Fecha incorrecta", ui::vbCritical, "Esta no es una fecha válida"));
    EXPECT_EQ(Cuenta("[Solicitudes General]"), 0);

    // An empty date passes the test, and the statement with "##" fails in the insert.
    e.Text2->clear();
    e.Command1_Click();
    EXPECT_EQ(Cuenta("[Solicitudes General]"), 0);
    ASSERT_GE(sistema->cajas.size(), 2u);
    EXPECT_EQ(sistema->cajas.back().texto, "La solicitud no se ha podido guardar");
    EXPECT_EQ(sistema->cajas.back().titulo, "Error");

    // All in place: a new request, the name trimmed, no source of funds.
    const size_t cajas = sistema->cajas.size();
    e.Text2->setText("05/03/2024");
    e.Text3->setText("  José O'Neil ");
    e.Text5->setText("1");
    e.Text4->setText("3");
    e.Command1_Click();
    EXPECT_EQ(sistema->cajas.size(), cajas);
    EXPECT_EQ(Valor("SELECT Solicitante FROM [Solicitudes General] WHERE NoSolicitud=1"), "José O'Neil");
    EXPECT_EQ(Valor("SELECT Format(Fecha,'yyyy/mm/dd') FROM [Solicitudes General]"), "2024/03/05");
    EXPECT_EQ(Valor(QStringLiteral("SELECT Estado & '|' & NoEscuela & '|' & NoBiblioteca & '|' & IdCapturista & '|' & IdFinanciamiento "
                                   "FROM [Solicitudes General]")), "S|3|1|ana|0");
    EXPECT_NE(Valor("SELECT FechaCaptura FROM [Solicitudes General]"), "NULL");
}

TEST_F(PruebaSolicitudes, DosCapturasALaVezChocanEnElNumero) {
    globales::NavModo = 0;
    Sol_Edi a, b;
    a.Form_Load();
    b.Form_Load();
    for (Sol_Edi* e : {&a, &b}) {
        e->Text3->setText("Luis");
        e->Text5->setText("2");
    }
    a.Command1_Click();
    globales::NavModo = 0;
    b.Command1_Click();
    EXPECT_EQ(Cuenta("[Solicitudes General]"), 1);
    ASSERT_FALSE(sistema->cajas.empty());
    EXPECT_EQ(sistema->cajas.back().texto, "La solicitud no se ha podido guardar");
}

TEST_F(PruebaSolicitudes, CambiarSobrescribeCapturaYRefrescaLaLista) {
    TresSolicitudes();
    Ejecuta("INSERT INTO adqFinanciamiento (Nombre) VALUES ('Federal')");
    Ejecuta("INSERT INTO adqProyectos (Nombre, IdEscuela, IdFinanciamiento) VALUES ('P1', 5, 1)");
    Ejecuta("UPDATE [Solicitudes General] SET IdFinanciamiento=1, IdCapturista='pepe' WHERE NoSolicitud=2");
    Sol1 lista;
    lista.Form_Load();
    Sol_Edi e;
    AbreParaCambiar(e, lista, 2);
    EXPECT_EQ((QStringList{e.Label6->text(), e.Text3->text(), e.Text5->text(), e.Text4->text(), e.txtIdFinanciamiento->text()}),
              (QStringList{"2", "Marta", "2", "5", "1"}));
    EXPECT_FALSE(e.cboFinanciamiento->isHidden());
    EXPECT_EQ(vb::CDate(vb::Variant(e.Text2->text())).date(), QDate(2024, 4, 10));

    e.Text3->setText("Marta D'Ávila");
    e.Command1_Click();
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_EQ(Valor(QStringLiteral("SELECT Solicitante & '|' & IdCapturista & '|' & Estado & '|' & IdFinanciamiento "
                                   "FROM [Solicitudes General] WHERE NoSolicitud=2")), "Marta D'Ávila|ana|P|1");
    EXPECT_EQ(lista.ListView1->ListItems()(2).SubItems(2), "Marta D'Ávila");
}

TEST_F(PruebaSolicitudes, FallaAtrapadaAlGrabarDaLaCajaDelProgramaYLaPantallaSigue) {
    TresSolicitudes();
    Sol1 lista;
    lista.Form_Load();
    Sol_Edi e;
    AbreParaCambiar(e, lista, 1);
    // The list's statement fails once the head is written: the schools' table is gone.
    Ejecuta("DROP TABLE Escuelas");
    vb::Error esperado(0, QString());
    try {
        lista.Refrescar();
        FAIL() << "the list should not fill without its table";
    } catch (const vb::Error& falla) {
        esperado = falla;
    }
    e.Text3->setText("Luisa");
    e.Command1_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].texto, QStringLiteral("Error ") + QString::number(esperado.Number()) + QStringLiteral(" (") +
                                           esperado.Description() +
                                           ") in procedure Command1_Click of Formulario Sol_Edi\r\nlinea:  9");
    EXPECT_EQ(esperado.Number(), 3078);
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbCritical);
    // What ran before the failure stays, and the screen keeps what was typed.
    EXPECT_EQ(Valor("SELECT Solicitante FROM [Solicitudes General] WHERE NoSolicitud=1"), "Luisa");
    EXPECT_EQ(e.Text3->text(), "Luisa");
}

TEST_F(PruebaSolicitudes, NumeroYListaDeEscuelasConcuerdanAunqueSeTecleeDeprisa) {
    globales::NavModo = 0;
    Sol_Edi e;
    e.Form_Load();
    e.Text3->setText("Luis");
    Teclea(e.Text5, "1");
    ASSERT_EQ(e.Combo1->ListCount(), 2);                 // Artes (4), Ingeniería (3)
    EXPECT_EQ(e.Text4->text(), "4");

    // Keys one after another in the school's number: "3" chooses Ingeniería, "39" is no school at all.
    e.Text4->selectAll();
    Teclea(e.Text4, "39");
    EXPECT_EQ(e.Text4->text(), QString());
    EXPECT_EQ(e.Combo1->Text(), "003 - Ingeniería");
    EXPECT_FALSE(e.lblWarning->isHidden());
    e.Command1_Click();                                  // refused: no school number
    EXPECT_EQ(Cuenta("[Solicitudes General]"), 0);

    // Choosing the school already shown puts its number back.
    EligeEnLaLista(*e.Combo1, 1);
    EXPECT_EQ(e.Text4->text(), "3");
    // Likewise the library: "12" is none, and choosing Central again brings back its number and schools.
    Teclea(e.Text5, "2");
    EXPECT_EQ(e.Text5->text(), QString());
    EXPECT_EQ(e.Combo2->Text(), "001 - Central");
    EligeEnLaLista(*e.Combo2, 0);
    EXPECT_EQ(e.Text5->text(), "1");
    EXPECT_EQ(e.Text4->text(), "4");     // the library's first school again

    // Another library by its list, then its school typed: one click each, the pair always agreeing.
    EligeEnLaLista(*e.Combo2, 1);
    EXPECT_EQ(e.Text5->text(), "2");
    EXPECT_EQ(e.Combo1->Text(), "005 - Medicina");
    EXPECT_EQ(e.Text4->text(), "5");
    e.Text4->selectAll();
    Teclea(e.Text4, "05");                // "0" is the head of "005", "05" is Medicina's number
    EXPECT_EQ(e.Text4->text(), "05");
    EXPECT_EQ(e.Combo1->ListIndex(), 0);

    const int cajas = static_cast<int>(sistema->cajas.size());
    e.Command1_Click();
    EXPECT_EQ(static_cast<int>(sistema->cajas.size()), cajas);
    EXPECT_EQ(Valor("SELECT NoEscuela & '|' & NoBiblioteca FROM [Solicitudes General]"), "5|2");
}

TEST_F(PruebaSolicitudes, SolicitanteLimitadoASuColumnaYTabulacionEnOrdenDePantalla) {
    globales::NavModo = 0;
    Sol_Edi e;
    e.Form_Load();
    Teclea(e.Text3, QString(120, u'n'));                 // Solicitante TEXT(100)
    EXPECT_EQ(e.Text3->text().size(), 100);
    e.Text5->setText("2");
    e.Command1_Click();
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_EQ(Valor("SELECT Len(Solicitante) FROM [Solicitudes General]"), "100");

    const QList<QWidget*> orden{e.Text2, e.Text3, e.Text5, e.Combo2, e.Command4, e.Text4, e.Combo1, e.Command2,
                                e.txtIdFinanciamiento, e.cboFinanciamiento, e.Command1, e.Command3};
    EXPECT_EQ(OrdenDeFoco(orden), orden);
}

}  // namespace
