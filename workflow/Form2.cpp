#include "workflow/Form2.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/ListView.h"
#include "core/controles/TimerReacomodo.h"
#include "core/dao/Dao.h"
#include "core/ui/Ficha.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Formato.h"
#include "workflow/Sol1.h"
#include "workflow/Sol_Edi.h"
#include "workflow/Sol_Libros.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
const QString origen = QStringLiteral("Form2");
}

Form2::Form2(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Form2"));
    setWindowTitle(QStringLiteral("Control de títulos por solicitud"));

    Web = ui::Sistema().CreaVistaHtml(this);
    ListView1 = controles::ListaEnMarco(this, Frame1, QStringLiteral("Frame1"));

    Command1 = new QPushButton(QStringLiteral("&Agregar"), this);
    Command2 = new QPushButton(QStringLiteral("&Modificar"), this);
    Command3 = new QPushButton(QStringLiteral("&Borrar"), this);
    Command6 = new QPushButton(QStringLiteral("&Editar"), this);
    Command4 = new QPushButton(QStringLiteral("&Regresar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command3->setObjectName(QStringLiteral("Command3"));
    Command6->setObjectName(QStringLiteral("Command6"));
    Command4->setObjectName(QStringLiteral("Command4"));

    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {Command1, Command2, Command3, Command6}) botones->addWidget(b);
    botones->addStretch(1);
    botones->addWidget(Command4);
    auto* todo = new QVBoxLayout(this);
    ui::ColocaFicha(*todo, Web.get());
    todo->addWidget(Frame1, 1);
    todo->addLayout(botones);
    resize(860, 520);

    Timer1 = new controles::TimerReacomodo(this, [this] { ReacomodaTodo(); });
    Timer1->VigilaRedimension(this);

    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Form2::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &Form2::Command2_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &Form2::Command3_Click);
    ui::Conecta(Command4, &QPushButton::clicked, this, origen, &Form2::Command4_Click);
    ui::Conecta(Command6, &QPushButton::clicked, this, origen, &Form2::Command6_Click);
    ui::Conecta(ListView1, &controles::ListView::Click, this, origen, &Form2::ListView1_Click);
    ui::Conecta(ListView1, &controles::ListView::ColumnClick, this, origen, &Form2::ListView1_ColumnClick);
}

Form2::~Form2() = default;

void Form2::HabilitaBotones(bool habilita) {
    Command2->setEnabled(habilita);
    Command3->setEnabled(habilita);
}

QString Form2::TextoSeleccionado() const {
    const controles::ListItem* item = ListView1->SelectedItem();
    if (!item) throw vb::Error(91, QStringLiteral("Variable de tipo Object o la variable de bloque With no está establecida"));
    return item->Text();
}

void Form2::Form_Load() {
    ListView1->View(controles::ListView::lvwReport);
    ListView1->setSorted(false);
    ListView1->ColumnHeaders().Clear();
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES, -1);
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_FULLROWSELECT, -1);
    ListView1->ColumnHeaders().Add(QStringLiteral("ClaveLibro"), 1000);
    ListView1->ColumnHeaders().Add(QStringLiteral("Título"), 3200);
    ListView1->ColumnHeaders().Add(QStringLiteral("Autor"), 2200);
    ListView1->ColumnHeaders().Add(QStringLiteral("Ejemplares"), 1000);
    ListView1->ColumnHeaders().Add(QStringLiteral("Editorial"), 2000);
    ListView1->ColumnHeaders().Add(QStringLiteral("Edición"), 800);
    ListView1->ColumnHeaders().Add(QStringLiteral("Estado"), 700);
    ListView1->ColumnHeaders().Add(QStringLiteral("ISBN"), 1500);

    // Coming from the request list, the head is the row chosen there; otherwise it is read.
    const controles::ListItem* fila = Lista ? Lista->ListView1->SelectedItem() : nullptr;
    if (globales::NavModo == 1 && fila) {
        LlenaTitulos();
        EscribeEncabezado(fila->Text(), vb::Format(vb::Variant(fila->SubItems(1)), QStringLiteral("dd/mmm/yyyy")),
                          fila->SubItems(2), fila->SubItems(3), fila->SubItems(4));
        MuestraCuenta();
    } else {
        RefrescaTitulos();
    }
}

void Form2::LlenaTitulos() {
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("ClaveLibro, Titulo, Autor, [Ejemplares Pedidos], Nombre, Edicion, Estado, ISBN");
    c.Tabla.clear();
    c.Valor.clear();
    c.Orden.clear();
    c.Clave = QStringLiteral("([Solicitudes Libros] left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  "
                             "where  NoSolicitud=") + globales::NavValor.text();
    Datos::LlenaListaCondicion(c, *ListView1);
}

void Form2::MuestraCuenta() {
    const int n = ListView1->ListItems().Count();
    Frame1->setTitle(QStringLiteral("Títulos incluidos en la solicitud: ") + QString::number(n));
    HabilitaBotones(n > 0);
}

void Form2::RefrescaTitulos() {
    LlenaTitulos();
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("NoSolicitud, Fecha, Solicitante, [Escuelas].Nombre, Bibliotecas.Nombre");
    c.Tabla.clear();
    c.Valor.clear();
    c.Orden.clear();
    c.Clave = QStringLiteral("([Solicitudes General] left join [Escuelas] on [Solicitudes General].NoEscuela = [Escuelas].No) "
                             "left join Bibliotecas on [Solicitudes General].NoBiblioteca=Bibliotecas.no where NoSolicitud=") +
              globales::NavValor.text();
    QString cabeza = Datos::Consultas_in(c);
    const QString solicitud = Datos::TomaCampo(cabeza);
    const QString fecha = Datos::TomaCampo(cabeza);
    const QString solicitante = Datos::TomaCampo(cabeza);
    const QString escuela = Datos::TomaCampo(cabeza);
    const QString biblioteca = Datos::TomaCampo(cabeza);
    EscribeEncabezado(solicitud, vb::Format(vb::Variant(fecha), QStringLiteral("dd/MMM/YYYY")), solicitante, escuela,
                      biblioteca);
    MuestraCuenta();
}

void Form2::EscribeEncabezado(const QString& solicitud, const QString& fecha, const QString& solicitante,
                              const QString& escuela, const QString& biblioteca) {
    if (!Web) return;
    ui::EscribeFicha(*Web, {{QStringLiteral("Solicitud: "), solicitud},
                            {QStringLiteral("Fecha: "), fecha},
                            {QStringLiteral("Solicitante: "), solicitante},
                            {globales::EtiquetaEscuela + QStringLiteral(": "), escuela},
                            {globales::NombreBiblioteca + QStringLiteral(": "), biblioteca}});
}

void Form2::ReacomodaTodo() {
    // The layout follows the window by itself; there is nothing more to place.
}

void Form2::ListView1_Click() {
    const controles::ListItem* item = ListView1->SelectedItem();
    HabilitaBotones(item && !item->Text().isEmpty());
}

void Form2::ListView1_ColumnClick(int indiceEncabezado) { controles::OrdenaPorColumna(*ListView1, indiceEncabezado); }

void Form2::MuestraEditorDeTitulo() {
    Sol_Libros pantalla(this);
    pantalla.Titulos = this;
    pantalla.Form_Load();
    ui::Sistema().MuestraModal(pantalla);
}

void Form2::Command1_Click() {
    globales::TitModo = 1;
    MuestraEditorDeTitulo();
}

void Form2::Command2_Click() {
    globales::TitModo = 2;
    globales::TitCampo = QStringLiteral("ClaveLibro");
    const QString clave = TextoSeleccionado();
    globales::TitValor = vb::Variant(clave);
    globales::TitTabla = QStringLiteral("[Solicitudes Libros]");
    const controles::ListItem* fila = ListView1->FindItem(clave);
    EstadoTitulo = fila ? fila->SubItems(6) : QString();
    if (EstadoTitulo.isEmpty()) EstadoTitulo = QStringLiteral("S");
    MuestraEditorDeTitulo();
}

void Form2::Command3_Click() {
    const QString clave = TextoSeleccionado();
    const int r = ui::Sistema().MsgBox(QStringLiteral("¿Está seguro que desea borrar el ejemplar?"), ui::vbYesNo,
                                       QStringLiteral("Precaución"));
    if (r != ui::vbYes) return;
    Datos::BorraLibroSolicitud(clave);
    RefrescaTitulos();
}

void Form2::Command6_Click() {
    globales::NavModo = 2;
    Sol_Edi pantalla(this);
    pantalla.Lista = Lista;
    pantalla.Titulos = this;
    pantalla.Form_Load();
    ui::Sistema().MuestraModal(pantalla);
}

void Form2::Command4_Click() {
    if (globales::NavModo != 2) {
        close();
        return;
    }
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("clavelibro");
    c.Tabla = QStringLiteral("[Solicitudes Libros]");
    c.Clave = globales::NavCampo;
    c.Valor = vb::CStr(vb::Variant(vb::Val(globales::NavValor.text())));
    c.Orden.clear();
    if (!vb::Trim(Datos::ConsultaCampos(c)).isEmpty()) {
        bool sinPedir = false;
        {
            auto rs = globales::Base().OpenRecordset(
                QStringLiteral("SELECT FechaPedido,FechaRecepcion FROM [Solicitudes General] WHERE Nosolicitud=") + c.Valor +
                QStringLiteral(" AND IsNull(FechaPedido)"));
            sinPedir = !rs->Eof();
        }
        // Titles of a request that was never ordered all go back to requested.
        if (sinPedir) Datos::MarcaSolicitada(c);
        close();
        return;
    }
    const int r = ui::Sistema().MsgBox(
        QStringLiteral("La solicitud no tiene ningún libro, por lo cual, si sale, se borrará, ¿Desea salir de todas maneras?"),
        ui::vbYesNo, QStringLiteral("Precaución"));
    if (r != ui::vbYes) return;
    c.Tabla = QStringLiteral("[Solicitudes General]");
    c.Campos.clear();
    Datos::BorrarX(c);
    if (Lista) Lista->Refrescar();
    close();
}
