#include "workflow/Don1.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/ListView.h"
#include "core/controles/TimerReacomodo.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Error.h"
#include "reports/frmReporteDonaciones.h"
#include "workflow/Don_Edi.h"
#include "workflow/Don_Generales.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
const QString origen = QStringLiteral("Don1");
}

Don1::Don1(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Don1"));
    setWindowTitle(QStringLiteral("Donaciones"));

    ListView1 = controles::ListaEnMarco(this, Frame2, QStringLiteral("Frame2"));
    Command1 = new QPushButton(QStringLiteral("&Nueva"), this);
    Command2 = new QPushButton(QStringLiteral("&Editar"), this);
    Command3 = new QPushButton(QStringLiteral("&Borrar"), this);
    cmdReporte = new QPushButton(QStringLiteral("Reporte por Institucion donadora"), this);
    Command5 = new QPushButton(QStringLiteral("&Regresar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command3->setObjectName(QStringLiteral("Command3"));
    cmdReporte->setObjectName(QStringLiteral("cmdReporte"));
    Command5->setObjectName(QStringLiteral("Command5"));

    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {Command1, Command2, Command3, cmdReporte}) botones->addWidget(b);
    botones->addStretch(1);
    botones->addWidget(Command5);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(Frame2, 1);
    todo->addLayout(botones);
    resize(820, 480);

    Timer1 = new controles::TimerReacomodo(this, [this] { ReacomodaTodo(); });
    Timer1->VigilaRedimension(this);

    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Don1::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &Don1::Command2_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &Don1::Command3_Click);
    ui::Conecta(cmdReporte, &QPushButton::clicked, this, origen, &Don1::cmdReporte_Click);
    ui::Conecta(Command5, &QPushButton::clicked, this, origen, &Don1::Command5_Click);
    ui::Conecta(ListView1, &controles::ListView::DblClick, this, origen, &Don1::ListView1_DblClick);
    ui::Conecta(ListView1, &controles::ListView::ColumnClick, this, origen, &Don1::ListView1_ColumnClick);
}

Don1::~Don1() = default;

void Don1::Form_Load() {
    ListView1->View(controles::ListView::lvwReport);
    ListView1->setSorted(false);
    ListView1->ColumnHeaders().Clear();
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES, -1);
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_FULLROWSELECT, -1);
    ListView1->ColumnHeaders().Add(QStringLiteral("Núm. donación"), 1300);
    ListView1->ColumnHeaders().Add(QStringLiteral("Fecha"), 1300);
    ListView1->ColumnHeaders().Add(QStringLiteral("Institución"), 3000);
    ListView1->ColumnHeaders().Add(QStringLiteral("Biblioteca destino"), 3000);
    Llena(false);
}

void Don1::Refrescar() { Llena(true); }

void Don1::Llena(bool habilita) {
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("NoDonacion,Fecha, [Instituciones].Nombre, Bibliotecas.Nombre");
    c.Tabla.clear();
    c.Valor.clear();
    c.Clave = QStringLiteral("([Donaciones General] left join [Instituciones] on [Donaciones General].NoInstitucion = "
                             "[Instituciones].No) left join Bibliotecas on [Donaciones General].NoBiblioteca=Bibliotecas.no ");
    c.Orden = QStringLiteral("NoDonacion Desc");
    Datos::LlenaListaCondicion(c, *ListView1);
    const int n = ListView1->ListItems().Count();
    if (n == 0) {
        Command2->setEnabled(false);
        Command3->setEnabled(false);
        Frame2->setTitle(QStringLiteral("Donaciones recibidas: 0"));
        return;
    }
    if (habilita) {
        Command2->setEnabled(true);
        Command3->setEnabled(true);
    }
    Frame2->setTitle(QStringLiteral("Donaciones recibidas: ") + QString::number(n));
}

void Don1::ReacomodaTodo() {
    // The layout follows the window by itself; there is nothing more to place.
}

void Don1::ListView1_DblClick() { Command2_Click(); }

void Don1::ListView1_ColumnClick(int indiceEncabezado) { controles::OrdenaPorColumna(*ListView1, indiceEncabezado); }

void Don1::Command1_Click() {
    globales::NavModo = 0;
    MuestraCabecera(this, this);
}

void Don1::Command2_Click() {
    const controles::ListItem* item = ListView1->SelectedItem();
    if (!item) return;
    globales::NavCampo = QStringLiteral("NoDonacion");
    globales::NavValor = vb::Variant(item->Text());
    globales::NavModo = 2;
    AbreGenerales();
}

void Don1::Command3_Click() {
    const controles::ListItem* item = ListView1->SelectedItem();
    if (!item) throw vb::Error(91, QStringLiteral("Variable de tipo Object o la variable de bloque With no está establecida"));
    const int r = ui::Sistema().MsgBox(
        QStringLiteral("¿Está seguro que desea borrar la solicitud, así como los libros que estén dentro de ella?"),
        ui::vbQuestion + ui::vbYesNo, QStringLiteral("Precaución"));
    if (r != ui::vbYes) return;
    Datos::BorraDonacion(item->Text());
    Refrescar();
}

void Don1::cmdReporte_Click() {
    frmReporteDonaciones pantalla(this);
    pantalla.Form_Load();
    ui::Sistema().MuestraModal(pantalla);
}

void Don1::Command5_Click() { close(); }

void Don1::AbreGenerales() { MuestraGenerales(this, this); }

void Don1::MuestraGenerales(Don1* lista, QWidget* padre) {
    Don_Generales generales(padre);
    if (lista) generales.RefrescaDonaciones = [lista] { lista->Refrescar(); };
    // Opened from a report, the head's screen stands over the donation's page, with no list to refresh.
    generales.EditaDonacion = [lista, &generales] { MuestraCabecera(lista, lista ? static_cast<QWidget*>(lista) : &generales); };
    generales.Form_Load();
    ui::Sistema().MuestraModal(generales);
}

void Don1::MuestraCabecera(Don1* lista, QWidget* padre) {
    Don_Edi pantalla(padre);
    pantalla.Lista = lista;
    pantalla.Form_Load();
    ui::Sistema().MuestraModal(pantalla);
}
