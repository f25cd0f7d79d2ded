#include "workflow/Don_Generales.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/ListView.h"
#include "core/controles/TimerReacomodo.h"
#include "core/ui/Ficha.h"
#include "core/vb/Error.h"
#include "core/vb/Formato.h"
#include "workflow/Don_Libros.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("Don_Generales");

}  // namespace

Don_Generales::Don_Generales(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Don_Generales"));
    setWindowTitle(QStringLiteral("Información de donación"));

    Web = ui::Sistema().CreaVistaHtml(this);
    ListView1 = controles::ListaEnMarco(this, Frame2, QStringLiteral("Frame2"));
    Command1 = new QPushButton(QStringLiteral("&Nuevo"), this);
    Command2 = new QPushButton(QStringLiteral("&Editar"), this);
    Command3 = new QPushButton(QStringLiteral("&Borrar"), this);
    Command6 = new QPushButton(QStringLiteral("&Editar donación"), this);
    Command4 = new QPushButton(QStringLiteral("&Regresar"), this);
    const std::pair<QPushButton*, const char*> nombres[] = {
        {Command1, "Command1"}, {Command2, "Command2"}, {Command3, "Command3"}, {Command6, "Command6"}, {Command4, "Command4"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));
    Command2->setEnabled(false);
    Command3->setEnabled(false);

    auto* botones = new QHBoxLayout;
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    botones->addWidget(Command3);
    botones->addStretch(1);
    botones->addWidget(Command6);
    botones->addWidget(Command4);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(new QLabel(QStringLiteral("Datos generales:"), this));
    ui::ColocaFicha(*todo, Web.get());
    todo->addWidget(Frame2, 1);
    todo->addLayout(botones);
    resize(820, 520);

    Timer1 = new controles::TimerReacomodo(this, [this] { ReacomodaTodo(); });
    Timer1->VigilaRedimension(this);

    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Don_Generales::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &Don_Generales::Command2_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &Don_Generales::Command3_Click);
    ui::Conecta(Command6, &QPushButton::clicked, this, origen, &Don_Generales::Command6_Click);
    ui::Conecta(Command4, &QPushButton::clicked, this, origen, &Don_Generales::Command4_Click);
    ui::Conecta(ListView1, &controles::ListView::DblClick, this, origen, &Don_Generales::ListView1_DblClick);
    ui::Conecta(ListView1, &controles::ListView::ColumnClick, this, origen, &Don_Generales::ListView1_ColumnClick);
}

Don_Generales::~Don_Generales() = default;

QString Don_Generales::ClaveSeleccionada() const {
    const controles::ListItem* item = ListView1->SelectedItem();
    if (!item) throw vb::Error(91, QStringLiteral("Variable de tipo Object o la variable de bloque With no está establecida"));
    return item->Text();
}

void Don_Generales::Form_Load() {
    ListView1->View(controles::ListView::lvwReport);
    ListView1->setSorted(false);
    ListView1->ColumnHeaders().Clear();
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES, -1);
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_FULLROWSELECT, -1);
    ListView1->ColumnHeaders().Add(QStringLiteral("ClaveLibro"), 0);
    ListView1->ColumnHeaders().Add(QStringLiteral("Título"), 3200);
    ListView1->ColumnHeaders().Add(QStringLiteral("Autor"), 2200);
    ListView1->ColumnHeaders().Add(QStringLiteral("Editorial"), 1800);
    ListView1->ColumnHeaders().Add(QStringLiteral("Ejemplares"), 900);
    ListView1->ColumnHeaders().Add(QStringLiteral("Edición"), 700);
    if (globales::NavModo == 2) {
        Refresca();
    } else {
        // No screen opens a donation otherwise; its titles are listed all the same, without the head.
        LlenaTitulos();
    }
}

void Don_Generales::LlenaTitulos() {
    ListView1->ListItems().Clear();
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("ClaveLibro, Titulo, Autor, Editoriales.Nombre, Ejemplares, Edicion");
    c.Tabla.clear();
    c.Orden.clear();
    c.Clave = QStringLiteral("([Donaciones Libros] left join Editoriales on [Donaciones Libros].NoEditorial=Editoriales.[No])"
                             "  where NoDonacion=") +
              globales::NavValor.text();
    Datos::LlenaListaCondicion(c, *ListView1);
    const int n = ListView1->ListItems().Count();
    Command2->setEnabled(n > 0);
    Command3->setEnabled(n > 0);
    Frame2->setTitle(QStringLiteral("Títulos en esta donación: ") + QString::number(n));
}

void Don_Generales::EscribeEncabezado() {
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("NoDonacion, Fecha, [Instituciones].Nombre, Bibliotecas.Nombre, [Donacion o Intercambio]");
    c.Orden.clear();
    c.Clave = QStringLiteral("([Donaciones General] left join [Instituciones] on [Donaciones General].NoInstitucion = "
                             "[Instituciones].No) left join Bibliotecas on [Donaciones General].NoBiblioteca=Bibliotecas.no "
                             "where NoDonacion=") +
              globales::NavValor.text();
    QString cabeza = Datos::Consultas_in(c);
    const QString numero = Datos::TomaCampo(cabeza);
    const QString fecha = Datos::TomaCampo(cabeza);
    const QString donante = Datos::TomaCampo(cabeza);
    const QString biblioteca = Datos::TomaCampo(cabeza);
    if (!Web) return;
    ui::EscribeFicha(*Web, {{QStringLiteral("Donación: "), numero},
                            {QStringLiteral("Fecha: "), vb::Format(vb::Variant(fecha), QStringLiteral("dd/mmm/yyyy"))},
                            {QStringLiteral("Donante:"), donante},
                            {QStringLiteral("Biblioteca destino: "), biblioteca}});
}

void Don_Generales::Refresca() {
    LlenaTitulos();
    EscribeEncabezado();
}

void Don_Generales::ReacomodaTodo() {
    // The layout follows the window by itself; there is nothing more to place.
}

void Don_Generales::ListView1_DblClick() { Command2_Click(); }

void Don_Generales::ListView1_ColumnClick(int indiceEncabezado) { controles::OrdenaPorColumna(*ListView1, indiceEncabezado); }

void Don_Generales::Command1_Click() {
    globales::ModoCaptura = QStringLiteral("NUEVO");
    globales::TitTabla = QStringLiteral("[Donaciones Libros]");
    globales::TitCampo = QStringLiteral("ClaveLibro");
    globales::TitModo = 1;
    Don_Libros pantalla(this);
    pantalla.Generales = this;
    pantalla.Form_Load();
    ui::Sistema().MuestraModal(pantalla);
    Refresca();
}

void Don_Generales::Command2_Click() {
    const QString clave = ClaveSeleccionada();
    globales::ModoCaptura = QStringLiteral("MODIFICAR");
    globales::TitTabla = QStringLiteral("[Donaciones Libros]");
    globales::TitCampo = QStringLiteral("ClaveLibro");
    globales::TitValor = vb::Variant(clave);
    globales::TitModo = 2;
    // The list is refreshed by the title's screen as it closes.
    Don_Libros pantalla(this);
    pantalla.Generales = this;
    pantalla.Form_Load();
    ui::Sistema().MuestraModal(pantalla);
}

void Don_Generales::Command3_Click() {
    const int r = ui::Sistema().MsgBox(QStringLiteral("¿Está seguro que desea borrar el libro?"), ui::vbYesNo,
                                       QStringLiteral("Confirmación de borrado"));
    if (r != ui::vbYes) return;
    // The title goes with the accession numbers of the donated side only.
    Datos::BorraLibroDonacion(ClaveSeleccionada());
    globales::HuboCambiosNumAdq = true;
    Refresca();
}

void Don_Generales::Command6_Click() {
    globales::NavModo = 2;
    if (EditaDonacion) EditaDonacion();
    Refresca();
}

void Don_Generales::Command4_Click() {
    if (globales::NavModo != 2) {
        close();
        return;
    }
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("clavelibro");
    c.Tabla = QStringLiteral("[Donaciones Libros]");
    c.Clave = QStringLiteral("NoDonacion");
    c.Valor = globales::NavValor.text();
    c.Orden.clear();
    if (!Datos::ConsultaCampos(c).isEmpty()) {
        close();
        return;
    }
    // A donation is not kept without titles.
    const int r = ui::Sistema().MsgBox(
        QStringLiteral("La solicitud no tiene ningún libro, por lo cual se borrará\r\n ¿Desea salir de todos modos?"), ui::vbYesNo,
        QStringLiteral("Precaución"));
    if (r != ui::vbYes) return;
    c.Tabla = QStringLiteral("[Donaciones General]");
    c.Clave = QStringLiteral("NoDonacion");
    c.Valor = globales::NavValor.text();
    Datos::BorrarX(c);
    if (RefrescaDonaciones) RefrescaDonaciones();
    close();
}
