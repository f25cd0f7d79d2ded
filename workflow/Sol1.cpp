#include "workflow/Sol1.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/ListView.h"
#include "core/controles/TimerReacomodo.h"
#include "core/ui/Aperturas.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Error.h"
#include "workflow/Form2.h"
#include "workflow/Sol_Edi.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {
const QString origen = QStringLiteral("Sol1");
}

Sol1::Sol1(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Sol1"));
    setWindowTitle(QStringLiteral("Control de solicitudes de libros"));

    ListView1 = controles::ListaEnMarco(this, Frame2, QStringLiteral("Frame2"));

    Option1[0] = new QRadioButton(QStringLiteral("Ver todas las Solicitudes"), this);
    Option1[1] = new QRadioButton(QStringLiteral("Ignorar las solicitudes ya procesadas"), this);
    Option1[0]->setChecked(true);

    Command1 = new QPushButton(QStringLiteral("&Nueva"), this);
    Command2 = new QPushButton(QStringLiteral("&Editar"), this);
    Command3 = new QPushButton(QStringLiteral("&Borrar"), this);
    cmdAgregarTitulos = new QPushButton(QStringLiteral("&Captura / Edición  de títulos"), this);
    BtnImportarSolicitud = new QPushButton(QStringLiteral("&Importar Solicitud"), this);
    Command5 = new QPushButton(QStringLiteral("&Regresar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command3->setObjectName(QStringLiteral("Command3"));
    cmdAgregarTitulos->setObjectName(QStringLiteral("cmdAgregarTitulos"));
    BtnImportarSolicitud->setObjectName(QStringLiteral("BtnImportarSolicitud"));
    Command5->setObjectName(QStringLiteral("Command5"));
    // Nothing is chosen yet: the buttons that work on a row wait for a click on one.
    HabilitaBotones(false);

    auto* opciones = new QHBoxLayout;
    opciones->addWidget(Option1[0]);
    opciones->addWidget(Option1[1]);
    opciones->addStretch(1);
    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {Command1, Command2, Command3, cmdAgregarTitulos, BtnImportarSolicitud}) botones->addWidget(b);
    botones->addStretch(1);
    botones->addWidget(Command5);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(opciones);
    todo->addWidget(Frame2, 1);
    todo->addLayout(botones);
    resize(900, 520);

    Timer1 = new controles::TimerReacomodo(this, [this] { ReacomodaTodo(); });
    Timer1->VigilaRedimension(this);

    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Sol1::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &Sol1::Command2_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &Sol1::Command3_Click);
    ui::Conecta(cmdAgregarTitulos, &QPushButton::clicked, this, origen, &Sol1::cmdAgregarTitulos_Click);
    ui::Conecta(BtnImportarSolicitud, &QPushButton::clicked, this, origen, &Sol1::BtnImportarSolicitud_Click);
    ui::Conecta(Command5, &QPushButton::clicked, this, origen, &Sol1::Command5_Click);
    for (int i = 0; i < 2; ++i)
        ui::Conecta(Option1[static_cast<size_t>(i)], &QRadioButton::clicked, this, origen, &Sol1::Option1_Click, i);
    ui::Conecta(ListView1, &controles::ListView::Click, this, origen, &Sol1::ListView1_Click);
    ui::Conecta(ListView1, &controles::ListView::DblClick, this, origen, &Sol1::ListView1_DblClick);
    ui::Conecta(ListView1, &controles::ListView::ColumnClick, this, origen, &Sol1::ListView1_ColumnClick);
}

Sol1::~Sol1() = default;

bool Sol1::event(QEvent* e) {
    // Activation, also when a screen opened from here closes and the list is in front again.
    if (e->type() == QEvent::WindowActivate) ui::Protegido(origen, [this] { Form_Activate(); });
    return QDialog::event(e);
}

void Sol1::HabilitaBotones(bool habilita) {
    Command2->setEnabled(habilita);
    Command3->setEnabled(habilita);
    cmdAgregarTitulos->setEnabled(habilita);
}

QString Sol1::TextoSeleccionado() const {
    const controles::ListItem* item = ListView1->SelectedItem();
    if (!item) throw vb::Error(91, QStringLiteral("Variable de tipo Object o la variable de bloque With no está establecida"));
    return item->Text();
}

void Sol1::Form_Load() {
    ListView1->View(controles::ListView::lvwReport);
    ListView1->setSorted(false);
    ListView1->ColumnHeaders().Clear();
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES, -1);
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_FULLROWSELECT, -1);
    ListView1->ColumnHeaders().Add(QStringLiteral("Núm."), 400);
    ListView1->ColumnHeaders().Add(QStringLiteral("Fecha"), 1100);
    ListView1->ColumnHeaders().Add(QStringLiteral("Solicitante"), 2000);
    ListView1->ColumnHeaders().Add(QStringLiteral(" ") + globales::EtiquetaEscuela, 2300);
    ListView1->ColumnHeaders().Add(QStringLiteral(" ") + globales::NombreBiblioteca, 2800);
    Refrescar();
}

void Sol1::Form_Activate() {
    // The address is read again on every activation: the machine may have moved to another network.
    const QString direccion = ui::Sistema().DireccionLocal();
    BtnImportarSolicitud->setVisible(!direccion.isEmpty() && vb::Left(direccion, 7) == QStringLiteral(ADQ_PREFIJO_RED));
}

void Sol1::Refrescar() {
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre");
    c.Tabla.clear();
    c.Valor.clear();
    c.Orden = QStringLiteral("NoSolicitud Desc");
    c.Clave = QStringLiteral("([Solicitudes General] LEFT JOIN [Escuelas] ON [Solicitudes General].NoEscuela = [Escuelas].No) "
                             "LEFT JOIN Bibliotecas ON [Solicitudes General].NoBiblioteca=Bibliotecas.no");
    if (Option1[1]->isChecked()) c.Clave += QStringLiteral(" WHERE Estado='S'");
    Datos::LlenaListaCondicion(c, *ListView1);
    const int n = ListView1->ListItems().Count();
    if (n == 0) {
        HabilitaBotones(false);
        Frame2->setTitle(QStringLiteral("Solicitudes disponibles: 0"));
    } else {
        Frame2->setTitle(QStringLiteral("Solicitudes disponibles: ") + QString::number(n));
    }
}

void Sol1::ReacomodaTodo() {
    // The layout follows the window by itself; there is nothing more to place.
}

void Sol1::Option1_Click(int Index) {
    Q_UNUSED(Index);
    Form_Load();
}

void Sol1::ListView1_Click() {
    if (ListView1->ListItems().Count() == 0) return;
    const controles::ListItem* item = ListView1->SelectedItem();
    if (!item) return;
    HabilitaBotones(!item->Text().isEmpty());
}

void Sol1::ListView1_DblClick() {
    const controles::ListItem* item = ListView1->SelectedItem();
    if (item && !item->Text().isEmpty()) cmdAgregarTitulos_Click();
}

void Sol1::ListView1_ColumnClick(int indiceEncabezado) { controles::OrdenaPorColumna(*ListView1, indiceEncabezado); }

void Sol1::Command1_Click() {
    globales::NavModo = 0;
    Sol_Edi pantalla(this);
    pantalla.Lista = this;
    pantalla.Form_Load();
    ui::Sistema().MuestraModal(pantalla);
}

void Sol1::Command2_Click() {
    const controles::ListItem* item = ListView1->SelectedItem();
    if (!item || item->Index() < 1) return;
    globales::NavCampo = QStringLiteral("NoSolicitud");
    globales::NavModo = 2;
    globales::NavValor = vb::Variant(item->Text());
    Sol_Edi pantalla(this);
    pantalla.Lista = this;
    pantalla.Form_Load();
    ui::Sistema().MuestraModal(pantalla);
}

void Sol1::cmdAgregarTitulos_Click() {
    if (ListView1->ListItems().Count() == 0) return;
    globales::NavCampo = QStringLiteral("NoSolicitud");
    globales::NavValor = vb::Variant(TextoSeleccionado());
    globales::NavModo = 1;
    Form2 pantalla(this);
    pantalla.Lista = this;
    pantalla.Form_Load();
    ui::Sistema().MuestraModal(pantalla);
}

void Sol1::BtnImportarSolicitud_Click() {
    // The import belongs to data exchange, which stands above this library: opened by its registered name.
    ui::AbrePantalla(QStringLiteral("FrmImportaSolicitud"), this);
}

void Sol1::Command3_Click() {
    const int r = ui::Sistema().MsgBox(
        QStringLiteral("¿Está seguro que desea borrar la solicitud, así como los libros que estén dentro de ella?"),
        ui::vbQuestion + ui::vbYesNo, QStringLiteral("Borrado de solicitud"));
    if (r != ui::vbYes) return;
    Datos::BorraSolicitud(TextoSeleccionado());
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("NoSolicitud, Fecha, Solicitante, NoEscuela, Nobiblioteca");
    c.Tabla = QStringLiteral("[Solicitudes General]");
    c.Clave.clear();
    c.Valor.clear();
    c.Orden = QStringLiteral("NoSolicitud Desc");
    Datos::LlenaListaClave(c, *ListView1);
    Refrescar();
}

void Sol1::Command5_Click() { close(); }
