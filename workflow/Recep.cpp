#include "workflow/Recep.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/ListView.h"
#include "core/controles/TimerReacomodo.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Error.h"
#include "workflow/Recep_Generales.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("Recep");

// The joins that bring the school's and the library's names beside each order.
const QString Uniones = QStringLiteral(
    "([Solicitudes General] left join [Escuelas] on [Solicitudes General].NoEscuela = [Escuelas].No) "
    "left join Bibliotecas on [Solicitudes General].NoBiblioteca=Bibliotecas.no ");

}  // namespace

Recep::Recep(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Recep"));
    setWindowTitle(QStringLiteral("Recepción de material adquirido"));

    Label2 = new QLabel(QStringLiteral("Registro de material nuevo (Adquirido)"), this);
    Label2->setObjectName(QStringLiteral("Label2"));
    QFont grande = Label2->font();
    grande.setBold(true);
    grande.setPointSizeF(grande.pointSizeF() * 1.3);
    Label2->setFont(grande);
    Label1 = new QLabel(QStringLiteral("NOTA: Se muestran solamente aquellas solicitudes marcadas como PEDIDAS"), this);
    Label1->setObjectName(QStringLiteral("Label1"));

    ListView1 = controles::ListaEnMarco(this, Frame2, QStringLiteral("Frame2"));

    Option1[0] = new QRadioButton(QStringLiteral("Mostrar sólo los pedidos pendientes"), this);
    Option1[1] = new QRadioButton(QStringLiteral("Mostrar los pedidos ya procesados"), this);
    Option1[0]->setObjectName(QStringLiteral("Option1_0"));
    Option1[1]->setObjectName(QStringLiteral("Option1_1"));
    Option1[0]->setChecked(true);

    Command1 = new QPushButton(QStringLiteral("Registrar"), this);
    Command2 = new QPushButton(QStringLiteral("Regresar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));

    auto* opciones = new QHBoxLayout;
    opciones->addWidget(Option1[0]);
    opciones->addWidget(Option1[1]);
    opciones->addStretch(1);
    auto* botones = new QHBoxLayout;
    botones->addWidget(Label1, 1);
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(Label2);
    todo->addLayout(opciones);
    todo->addWidget(Frame2, 1);
    todo->addLayout(botones);
    resize(900, 520);

    Timer1 = new controles::TimerReacomodo(this, [this] { ReacomodaTodo(); });
    Timer1->VigilaRedimension(this);

    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Recep::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &Recep::Command2_Click);
    for (int i = 0; i < 2; ++i)
        ui::Conecta(Option1[static_cast<size_t>(i)], &QRadioButton::clicked, this, origen, &Recep::Option1_Click, i);
    ui::Conecta(ListView1, &controles::ListView::DblClick, this, origen, &Recep::Command1_Click);
    ui::Conecta(ListView1, &controles::ListView::ColumnClick, this, origen, &Recep::ListView1_ColumnClick);
}

Recep::~Recep() = default;

bool Recep::event(QEvent* e) {
    // Activation, also when the order screen closes and the list is in front again.
    if (e->type() == QEvent::WindowActivate) ui::Protegido(origen, [this] { Form_Activate(); });
    return QDialog::event(e);
}

void Recep::Form_Load() {
    ListView1->View(controles::ListView::lvwReport);
    ListView1->setSorted(false);
    ListView1->ColumnHeaders().Clear();
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES, -1);
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_FULLROWSELECT, -1);
    ListView1->ColumnHeaders().Add(QStringLiteral("Solicitud"), 900);
    ListView1->ColumnHeaders().Add(QStringLiteral("Fecha"), 1200);
    ListView1->ColumnHeaders().Add(QStringLiteral("Solicitante"), 2400);
    ListView1->ColumnHeaders().Add(globales::EtiquetaEscuela, 2400);
    ListView1->ColumnHeaders().Add(globales::NombreBiblioteca, 2400);
    Refresca();
}

void Recep::Form_Activate() {
    ListView1->setFocus();
    if (ListView1->ListItems().Count() > 0) ListView1->ListItems()(1).setSelected(true);
}

void Recep::Refresca() {
    ListView1->ListItems().Clear();
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre");
    c.Tabla.clear();
    c.Orden = QStringLiteral("NoSolicitud Desc");
    // An order whose state was left empty counts as one already received.
    c.Clave = Uniones + (Option1[0]->isChecked() ? QStringLiteral("where estado='P'")
                                                 : QStringLiteral("WHERE (estado='R') OR (estado='')"));
    Datos::LlenaListaClave(c, *ListView1);
    const int n = ListView1->ListItems().Count();
    if (n == 0) {
        Command1->setEnabled(false);
        Frame2->setTitle(QStringLiteral("Pedidos disponibles: 0 "));
    } else {
        Command1->setEnabled(true);
        Frame2->setTitle(QStringLiteral("Pedidos disponibles: ") + QString::number(n));
    }
}

void Recep::ReacomodaTodo() {
    // The layout follows the window by itself; there is nothing more to place.
}

void Recep::Option1_Click(int Index) {
    Q_UNUSED(Index);
    Refresca();
}

void Recep::ListView1_ColumnClick(int indiceEncabezado) { controles::OrdenaPorColumna(*ListView1, indiceEncabezado); }

void Recep::Command1_Click() {
    // Every failure here is trapped; the line given is the step that failed: 1 choosing the order, 2 showing it.
    int paso = 0;
    try {
        if (ListView1->ListItems().Count() == 0) return;
        paso = 1;
        const controles::ListItem* item = ListView1->SelectedItem();
        if (!item)
            throw vb::Error(91, QStringLiteral("Variable de tipo Object o la variable de bloque With no está establecida"));
        globales::NavCampo = QStringLiteral("NoSolicitud");
        globales::NavValor = vb::Variant(item->Text());
        globales::NavModo = 0;
        globales::NavTabla = QStringLiteral("[Solicitudes Libros]");
        paso = 2;
        Registrar();
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(ui::TextoFallaAtrapada(e.Number(), e.Description(), QStringLiteral("Command1_Click"),
                                                    QStringLiteral("Formulario Recep"), paso));
    }
}

void Recep::Registrar() {
    Recep_Generales pantalla(this);
    pantalla.Lista = this;
    pantalla.Form_Load();
    ui::Sistema().MuestraModal(pantalla);
}

void Recep::Command2_Click() { close(); }
