#include "reports/Busqueda.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Error.h"
#include "reports/Dato.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("Busqueda");
const QString tituloResultados = QStringLiteral("Resultados obtenidos: ");

}  // namespace

Busqueda::Busqueda(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Busqueda"));
    setWindowTitle(QStringLiteral("Consultas"));

    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Combo1 = new controles::ComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Option1[0] = new QRadioButton(QStringLiteral("Solicitados"), this);
    Option1[1] = new QRadioButton(QStringLiteral("Donados"), this);
    Option1[0]->setObjectName(QStringLiteral("Option1_0"));
    Option1[1]->setObjectName(QStringLiteral("Option1_1"));
    Option1[0]->setChecked(true);
    Command2 = new QPushButton(QStringLiteral("Buscar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command2->setDefault(true);
    Command1 = new QPushButton(QStringLiteral("Regresar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    ListView1 = controles::ListaEnMarco(this, Frame2, QStringLiteral("Frame2"));

    auto* datos = new QGridLayout;
    datos->addWidget(new QLabel(QStringLiteral("Expresión"), this), 0, 0);
    datos->addWidget(Text1, 0, 1, 1, 3);
    datos->addWidget(new QLabel(QStringLiteral("Ubicar en"), this), 1, 0);
    datos->addWidget(Combo1, 1, 1);
    datos->addWidget(Option1[0], 1, 2);
    datos->addWidget(Option1[1], 1, 3);
    datos->setColumnStretch(1, 1);
    auto* botones = new QVBoxLayout;
    botones->addWidget(Command2);
    botones->addWidget(Command1);
    botones->addStretch(1);
    auto* arriba = new QHBoxLayout;
    arriba->addLayout(datos, 1);
    arriba->addSpacing(12);
    arriba->addLayout(botones);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(arriba);
    todo->addWidget(Frame2, 1);
    resize(900, 520);

    ui::Conecta(Text1, &QLineEdit::textChanged, this, origen, &Busqueda::Text1_Change);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &Busqueda::Command2_Click);
    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Busqueda::Command1_Click);
    ui::Conecta(ListView1, &controles::ListView::DblClick, this, origen, &Busqueda::ListView1_DblClick);
    ui::Conecta(ListView1, &controles::ListView::ColumnClick, this, origen, &Busqueda::ListView1_ColumnClick);
}

Busqueda::~Busqueda() = default;

void Busqueda::Form_Load() {
    Combo1->AddItem(QStringLiteral("Título"));
    Combo1->AddItem(QStringLiteral("Autor"));
    Combo1->AddItem(QStringLiteral("No. Adquisición"));
    Combo1->setListIndex(0);
    Command2->setEnabled(false);

    ListView1->View(controles::ListView::lvwReport);
    ListView1->setSorted(false);
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES, -1);
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_FULLROWSELECT, -1);
    auto& columnas = ListView1->ColumnHeaders();
    columnas.Clear();
    columnas.Add(QStringLiteral("Título"), 4000);
    columnas.Add(QStringLiteral("Autor"), 2800);
    columnas.Add(QStringLiteral("Núm. Solicitud"), 1300);
    columnas.Add(QStringLiteral("Fecha de Recepción"), 1700);
    columnas.Add(QStringLiteral("Estado"), 900);
    Frame2->setTitle(tituloResultados + QStringLiteral("0"));
}

void Busqueda::Text1_Change() { Command2->setEnabled(!Text1->text().isEmpty()); }

void Busqueda::Command2_Click() {
    ListView1->ColumnHeaders().Clear();
    auto& columnas = ListView1->ColumnHeaders();
    const bool solicitados = Option1[0]->isChecked();
    QString tabla, campos, lado;
    // The key goes first, in a column of no width: the double click reads it from the row's text.
    columnas.Add(QString(), 0);
    if (solicitados) {
        tabla = QStringLiteral("[Solicitudes Libros]");
        campos = QStringLiteral("Clavelibro, Titulo, Autor, NoSolicitud, [Fecha de Recepcion], Estado");
        columnas.Add(QStringLiteral("Título"), 4000);
        columnas.Add(QStringLiteral("Autor"), 2800);
        columnas.Add(QStringLiteral("Núm. Solicitud"), 1300);
        columnas.Add(QStringLiteral("Fecha Recepción"), 1600);
        columnas.Add(QStringLiteral("Estado"), 900);
        lado = QStringLiteral("S");
    } else {
        tabla = QStringLiteral("[Donaciones Libros]");
        campos = QStringLiteral("ClaveLibro, Titulo, Autor, NoDonacion, Edicion");
        columnas.Add(QStringLiteral("Título"), 4000);
        columnas.Add(QStringLiteral("Autor"), 2800);
        columnas.Add(QStringLiteral("Donación"), 1100);
        columnas.Add(QStringLiteral("Edición"), 1000);
        lado = QStringLiteral("D");
    }

    const QString expresion = vb::Trim(Text1->text());
    globales::ConsultaDatos& c = globales::Consulta;
    const QString ubicar = Combo1->Text();
    if (ubicar == QStringLiteral("Título")) {
        c.Clave = tabla + QStringLiteral(" where Titulo like \"*") + expresion + QStringLiteral("*\"");
    } else if (ubicar == QStringLiteral("Autor")) {
        c.Clave = tabla + QStringLiteral(" where Autor like \"*") + expresion + QStringLiteral("*\"");
    } else {
        // The accession number must match whole; a number of the other side, or none, finds key 0.
        c.Campos = QStringLiteral("ClaveLibro");
        c.Orden.clear();
        c.Clave = QStringLiteral("[Adquisiciones Numadqui] where NoAdquisicion = \"") + expresion +
                  QStringLiteral("\" AND [solicitud o donacion]='") + lado + u'\'';
        QString claves = Datos::Consultas_in(c);
        QString clave = Datos::TomaCampo(claves);
        if (clave.isEmpty()) clave = QStringLiteral("0");
        c.Clave = tabla + QStringLiteral(" where ClaveLibro=") + clave;
    }
    c.Campos = campos;
    c.Tabla.clear();
    c.Orden.clear();
    Datos::LlenaListaCondicion(c, *ListView1);
    PonResultados(ListView1->ListItems().Count());
}

void Busqueda::PonResultados(int n) {
    if (n > 0) {
        Frame2->setTitle(tituloResultados + QString::number(n));
        ListView1->setFocus();
    } else {
        Frame2->setTitle(tituloResultados + QStringLiteral("0"));
    }
}

void Busqueda::Command1_Click() { close(); }

void Busqueda::ListView1_DblClick() {
    if (ListView1->ListItems().Count() == 0) return;
    const controles::ListItem* item = ListView1->SelectedItem();
    if (!item)
        throw vb::Error(91, QStringLiteral("Variable de tipo Object o la variable de bloque With no está establecida"));
    globales::NavCampo = QStringLiteral("ClaveLibro");
    globales::NavValor = vb::Variant(item->Text());
    globales::NavModo = 0;
    // Dato completes the table's name with " Libros]" or " General]".
    globales::NavTabla = Option1[0]->isChecked() ? QStringLiteral("[Solicitudes") : QStringLiteral("[Donaciones");
    Dato pantalla(this);
    pantalla.Form_Load();
    ui::Sistema().MuestraModal(pantalla);
}

void Busqueda::ListView1_ColumnClick(int indiceEncabezado) { controles::OrdenaPorColumna(*ListView1, indiceEncabezado); }
