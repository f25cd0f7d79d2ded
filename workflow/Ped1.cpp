#include "workflow/Ped1.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/ListView.h"
#include "core/controles/TimerReacomodo.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "workflow/Ped1_Repor.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("Ped1");
const QString tituloMarco = QStringLiteral("Listado de solicitudes pendientes de pedir: ");

// The mark of a row lives in its small icon: 1 marked, anything else not.
bool EstaMarcada(const controles::ListItem& item) {
    const vb::Variant& icono = item.SmallIcon();
    if (icono.isNull() || icono.isEmpty()) return false;
    return vb::Val(icono.text()) == 1;
}

}  // namespace

Ped1::Ped1(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Ped1"));
    setWindowTitle(QStringLiteral("Pedidos"));

    ListView1 = controles::ListaEnMarco(this, Frame2, QStringLiteral("Frame2"));

    Label2 = new QLabel(QStringLiteral("Se muestran solamente las solicitudes no procesadas"), this);
    Label2->setObjectName(QStringLiteral("Label2"));
    Check1 = new QCheckBox(QStringLiteral("Seleccionar todas las solicitudes"), this);
    Check1->setObjectName(QStringLiteral("Check1"));
    Command1 = new QPushButton(QStringLiteral("&Procesar pedido"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command5 = new QPushButton(QStringLiteral("&Regresar"), this);
    Command5->setObjectName(QStringLiteral("Command5"));
    Command1->setEnabled(false);

    auto* abajo = new QHBoxLayout;
    abajo->addWidget(Check1);
    abajo->addStretch(1);
    abajo->addWidget(Command1);
    abajo->addWidget(Command5);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(Frame2, 1);
    todo->addWidget(Label2);
    todo->addLayout(abajo);
    resize(900, 520);

    Timer1 = new controles::TimerReacomodo(this, [this] { ReacomodaTodo(); });
    Timer1->VigilaRedimension(this);

    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Ped1::Command1_Click);
    ui::Conecta(Command5, &QPushButton::clicked, this, origen, &Ped1::Command5_Click);
    // The check box's click also comes when its value is set from code, as the loading does.
    ui::Conecta(Check1, &QCheckBox::toggled, this, origen, &Ped1::Check1_Click);
    ui::Conecta(ListView1, &controles::ListView::Click, this, origen, &Ped1::ListView1_Click);
    ui::Conecta(ListView1, &controles::ListView::ColumnClick, this, origen, &Ped1::ListView1_ColumnClick);
}

Ped1::~Ped1() = default;

void Ped1::Form_Load() {
    ListView1->View(controles::ListView::lvwReport);
    ListView1->ColumnHeaders().Clear();
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES, -1);
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_FULLROWSELECT, -1);
    ListView1->ColumnHeaders().Add(QStringLiteral("Solicitud"), 900);
    ListView1->ColumnHeaders().Add(QStringLiteral("Fecha"), 1100);
    ListView1->ColumnHeaders().Add(QStringLiteral("Solicitante"), 2000);
    ListView1->ColumnHeaders().Add(globales::EtiquetaEscuela, 2300);
    ListView1->ColumnHeaders().Add(globales::NombreBiblioteca, 2300);
    ListView1->ColumnHeaders().Add(QStringLiteral("Títulos"), 700);

    // The inner join leaves out a request without titles; the count is the number of its titles.
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral(
        "[Solicitudes General].NoSolicitud as NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre, "
        "Count(claveLibro) as Ejemplares");
    c.Tabla.clear();
    c.Valor.clear();
    c.Clave = QStringLiteral(
        "(([Solicitudes General] inner join [Solicitudes Libros] on [Solicitudes General].Nosolicitud=[Solicitudes "
        "Libros].NoSolicitud )  left join [Escuelas] on [Solicitudes General].NoEscuela = [Escuelas].[No]) left join "
        "Bibliotecas on [Solicitudes General].NoBiblioteca=Bibliotecas.[no]where  [Solicitudes General].estado='S' group by "
        "[Solicitudes General].NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre");
    c.Orden = QStringLiteral("[Solicitudes General].NoSolicitud Desc");
    Datos::LlenaListaCondicion(c, *ListView1);

    Command1->setEnabled(false);
    Check1->setChecked(false);

    const int n = ListView1->ListItems().Count();
    if (n == 0) {
        ui::Sistema().MsgBox(QStringLiteral("No hay ninguna solicitud en proceso."), ui::vbExclamation,
                             QStringLiteral("No es posible hacer un pedido"));
        Check1->setEnabled(false);
        Frame2->setTitle(tituloMarco + QStringLiteral("0"));
    } else {
        Check1->setEnabled(true);
        Frame2->setTitle(tituloMarco + QString::number(n));
    }
}

void Ped1::Marca() {
    for (int i = 1; i <= ListView1->ListItems().Count(); ++i) ListView1->ListItems()(i).setSmallIcon(vb::Variant(1));
}

void Ped1::Desmarca() {
    for (int i = 1; i <= ListView1->ListItems().Count(); ++i) ListView1->ListItems()(i).setSmallIcon(vb::Variant(0));
}

int Ped1::Contar() {
    int n = 0;
    for (int i = 1; i <= ListView1->ListItems().Count(); ++i)
        if (EstaMarcada(ListView1->ListItems()(i))) ++n;
    return n;
}

void Ped1::ReacomodaTodo() {
    // The layout follows the window by itself; there is nothing more to place.
}

void Ped1::ListView1_Click() {
    controles::ListItem* item = ListView1->SelectedItem();
    if (!item) return;
    item->setSmallIcon(vb::Variant(EstaMarcada(*item) ? 0 : 1));
    // The check box stays as it is: it says what was last asked of all rows, not what they hold now.
    Command1->setEnabled(Contar() != 0);
}

void Ped1::ListView1_ColumnClick(int indiceEncabezado) { controles::OrdenaPorColumna(*ListView1, indiceEncabezado); }

void Ped1::Check1_Click() {
    if (Check1->isChecked()) {
        Marca();
        Command1->setEnabled(true);
    } else {
        Desmarca();
        Command1->setEnabled(false);
    }
}

void Ped1::Command1_Click() {
    const int n = ListView1->ListItems().Count();
    if (n == 0) {
        ui::Sistema().MsgBox(QStringLiteral("No existe informacióin a procesar"), ui::vbExclamation, QStringLiteral("Error"));
        return;
    }
    // The row texts as they stand, leading zeros and all, in the list's present order.
    QString lista;
    for (int i = 1; i <= n; ++i) {
        const controles::ListItem& item = ListView1->ListItems()(i);
        if (EstaMarcada(item)) lista += item.Text() + QStringLiteral(", ");
    }
    lista = vb::Trim(lista);
    if (!lista.isEmpty())
        lista.chop(1);
    else
        lista = QStringLiteral("0");

    globales::NavTabla = QStringLiteral("[Solicitudes Libros]");
    globales::NavCampo = QStringLiteral("NoSolicitud");
    globales::NavValor = vb::Variant(lista);
    globales::NavModo = 0;
    {
        Ped1_Repor pantalla(this);
        {
            // A long order takes a moment to build and lay out.
            const ui::CursorEspera espera(this);
            pantalla.Form_Load();
        }
        ui::Sistema().MuestraModal(pantalla);
    }
    // Ordered requests leave the list; every mark is lost.
    Form_Load();
}

void Ped1::Command5_Click() { close(); }
