#include "workflow/Recep_Generales.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/ListView.h"
#include "core/controles/TimerReacomodo.h"
#include "core/ui/Ficha.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Error.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"
#include "workflow/Recep.h"
#include "workflow/Recep_Libros.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("Recep_Generales");

// The box of a trapped failure: the procedure, the form and the step at fault.
void MuestraError(const vb::Error& e, const QString& procedimiento, int paso, const QString& titulo = QString()) {
    ui::Sistema().MsgBox(ui::TextoFallaAtrapada(e.Number(), e.Description(), procedimiento,
                                                QStringLiteral("Formulario Recep_Generales"), paso),
                         ui::vbOKOnly, titulo);
}

}  // namespace

Recep_Generales::Recep_Generales(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Recep_Generales"));
    setWindowTitle(QStringLiteral("Recepción"));

    Web = ui::Sistema().CreaVistaHtml(this);
    ListView1 = controles::ListaEnMarco(this, Frame2, QStringLiteral("Frame2"));

    Command1 = new QPushButton(QStringLiteral("Adquirido"), this);
    Command2 = new QPushButton(QStringLiteral("No recibido"), this);
    Command3 = new QPushButton(QStringLiteral("Regresar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command3->setObjectName(QStringLiteral("Command3"));

    auto* botones = new QHBoxLayout;
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    botones->addStretch(1);
    botones->addWidget(Command3);
    auto* todo = new QVBoxLayout(this);
    ui::ColocaFicha(*todo, Web.get());
    todo->addWidget(Frame2, 1);
    todo->addLayout(botones);
    resize(900, 540);

    Timer1 = new controles::TimerReacomodo(this, [this] { ReacomodaTodo(); });
    Timer1->VigilaRedimension(this);

    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Recep_Generales::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &Recep_Generales::Command2_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &Recep_Generales::Command3_Click);
    ui::Conecta(ListView1, &controles::ListView::DblClick, this, origen, &Recep_Generales::ListView1_DblClick);
    ui::Conecta(ListView1, &controles::ListView::ColumnClick, this, origen, &Recep_Generales::ListView1_ColumnClick);
}

Recep_Generales::~Recep_Generales() = default;

QString Recep_Generales::TextoSeleccionado() const {
    const controles::ListItem* item = ListView1->SelectedItem();
    if (!item) throw vb::Error(91, QStringLiteral("Variable de tipo Object o la variable de bloque With no está establecida"));
    return item->Text();
}

void Recep_Generales::Form_Load() {
    // Every failure is trapped; the line given is the step that failed: 1 the head, 2 and 3 the page, 4 the list.
    int paso = 1;
    try {
        EscribeEncabezado();
        paso = 4;
        ListView1->View(controles::ListView::lvwReport);
        ListView1->setSorted(false);
        ListView1->ColumnHeaders().Clear();
        ListView1->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES, -1);
        ListView1->EstiloExtendido(controles::ListView::LVS_EX_FULLROWSELECT, -1);
        ListView1->ColumnHeaders().Add(QStringLiteral("Clave Libro"), 0);
        ListView1->ColumnHeaders().Add(QStringLiteral("Solicitud"), 800);
        ListView1->ColumnHeaders().Add(QStringLiteral("Estado"), 1100);
        ListView1->ColumnHeaders().Add(QStringLiteral("Título"), 3000);
        ListView1->ColumnHeaders().Add(QStringLiteral("Autor"), 2000);
        ListView1->ColumnHeaders().Add(QStringLiteral("Editorial"), 1800);
        ListView1->ColumnHeaders().Add(QStringLiteral("Pedidos"), 800);
        ListView1->ColumnHeaders().Add(QStringLiteral("Recibidos"), 900);
        ListView1->ColumnHeaders().Add(QStringLiteral("Edición"), 700);
        Refresca();
    } catch (const vb::Error& e) {
        MuestraError(e, QStringLiteral("Form_Load"), paso, QStringLiteral("Recep_gral.Load"));
    }
}

void Recep_Generales::EscribeEncabezado() {
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre");
    c.Orden.clear();
    c.Clave = QStringLiteral("([Solicitudes General] left join [Escuelas] on [Solicitudes General].NoEscuela = [Escuelas].No) "
                             "left join Bibliotecas on [Solicitudes General].NoBiblioteca=Bibliotecas.no where NoSolicitud=") +
              globales::NavValor.text();
    QString cabeza = Datos::Consultas_in(c);
    const QString fecha = Datos::TomaCampo(cabeza);
    const QString solicitante = Datos::TomaCampo(cabeza);
    const QString escuela = Datos::TomaCampo(cabeza);
    const QString biblioteca = Datos::TomaCampo(cabeza);
    if (!Web) return;
    ui::EscribeFicha(*Web, {{QStringLiteral("Solicitud: "), globales::NavValor.text()},
                            {QStringLiteral("Fecha: "), vb::Format(vb::Variant(fecha), QStringLiteral("dd/mmm/yyyy"))},
                            {QStringLiteral("Solicitante: "), solicitante},
                            {globales::EtiquetaEscuela + QStringLiteral(": "), escuela},
                            {globales::NombreBiblioteca + QStringLiteral(": "), biblioteca}});
}

void Recep_Generales::Refresca() {
    // Every failure is trapped; the line given is the step that failed: 1 the list, 2 the count.
    int paso = 1;
    try {
        LlenaTitulos();
        paso = 2;
        const int n = ListView1->ListItems().Count();
        Frame2->setTitle(QStringLiteral("Libros contenidos en el pedido: ") + QString::number(n));
        Command1->setEnabled(n > 0);
        Command2->setEnabled(n > 0);
    } catch (const vb::Error& e) {
        MuestraError(e, QStringLiteral("Refresca"), paso);
    }
}

void Recep_Generales::LlenaTitulos() {
    ListView1->ListItems().Clear();
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral(
        "ClaveLibro,NoSolicitud, iif(Estado='A','Adquirido',iif(Estado='I','No adquirido',iif(Estado='P','-Pedido-',"
        "'Solicitado')))as Edo,Titulo, Autor, Editoriales.Nombre, [Ejemplares Pedidos], [Ejemplares recibidos], Edicion");
    c.Tabla.clear();
    c.Orden.clear();
    c.Clave = QStringLiteral("([Solicitudes Libros] left join Editoriales on [Solicitudes Libros].NoEditorial = "
                             "Editoriales.[No]) where NoSolicitud=") +
              globales::NavValor.text();
    Datos::LlenaListaCondicion(c, *ListView1);
}

void Recep_Generales::ReacomodaTodo() {
    // The layout follows the window by itself; there is nothing more to place.
}

void Recep_Generales::ListView1_DblClick() { Command1_Click(); }

void Recep_Generales::ListView1_ColumnClick(int indiceEncabezado) {
    controles::OrdenaPorColumna(*ListView1, indiceEncabezado);
}

void Recep_Generales::Command1_Click() {
    globales::TitValor = vb::Variant(TextoSeleccionado());
    Recep_Libros pantalla(this);
    pantalla.Generales = this;
    pantalla.Form_Load();
    ui::Sistema().MuestraModal(pantalla);
    if (ListView1->ListItems().Count() > 0) ListView1->setFocus();
}

void Recep_Generales::Command2_Click() {
    const int r = ui::Sistema().MsgBox(QStringLiteral("¿Deseas marcar el ejemplar como 'Imposible de Adquirir'?"), ui::vbYesNo,
                                       QStringLiteral("Aviso"));
    if (r != ui::vbYes) return;
    const QString clave = TextoSeleccionado();
    globales::ConsultaDatos& c = globales::Consulta;
    c.Tabla = QStringLiteral("[Solicitudes Libros]");
    c.Clave = QStringLiteral("ClaveLibro");
    c.Valor = clave;
    c.Campos = QStringLiteral("[Fecha de Recepcion]|[Ejemplares Recibidos]|Costo|Factura|Estado|IdCapturista");
    c.Orden = QStringLiteral(" NULL| 0| 0| ''| 'I'|'") + globales::LoginAnalista + u'\'';
    Datos::CambiaGenerico_X(c);
    // Every accession number of the key goes, whatever title it belongs to.
    c.Tabla = QStringLiteral("[Adquisiciones Numadqui]");
    c.Clave = QStringLiteral("ClaveLibro");
    c.Valor = clave;
    if (!Datos::BorrarX(c))
        ui::Sistema().MsgBox(QStringLiteral("Error al tratar de borrar el registro"), ui::vbOKOnly, QStringLiteral("Error"));
    globales::HuboCambiosNumAdq = true;
    Refresca();
}

void Recep_Generales::CambiaEstadoPedido(const QString& valores) {
    globales::ConsultaDatos& c = globales::Consulta;
    c.Tabla = QStringLiteral("[Solicitudes General]");
    c.Clave = QStringLiteral("NoSolicitud");
    c.Valor = globales::NavValor.text();
    c.Campos = QStringLiteral("Estado|FechaRecepcion|IdCapturista");
    c.Orden = valores;
    Datos::CambiaGenerico_X(c);
}

void Recep_Generales::Command3_Click() {
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("Estado");
    c.Tabla = QStringLiteral("[Solicitudes Libros]");
    c.Clave = QStringLiteral("NoSolicitud");
    c.Valor = globales::NavValor.text() + QStringLiteral(" and Estado='P'");
    c.Orden = QStringLiteral("NoSolicitud Desc");
    const QString login = QStringLiteral("|'") + globales::LoginAnalista + u'\'';
    // Only titles still awaiting reception hold the order back; requested or refused ones don't.
    if (vb::Trim(Datos::ConsultaCampos(c)).isEmpty()) {
        CambiaEstadoPedido(QStringLiteral("'R'|#") +
                           vb::Format(vb::Variant(vb::Fecha::Now()), QStringLiteral("yyyy/mm/dd hh:nn:ss")) + u'#' + login);
    } else {
        const int r = ui::Sistema().MsgBox(
            QStringLiteral("Aún no se han procesado todos los libros, el pedido seguirá estando sin recibir. \r\n ¿Desea salir?"),
            ui::vbYesNo, QStringLiteral("Precaución"));
        if (r != ui::vbYes) return;
        CambiaEstadoPedido(QStringLiteral("'P'|NULL") + login);
    }
    close();
    if (Lista) Lista->Refresca();
}
