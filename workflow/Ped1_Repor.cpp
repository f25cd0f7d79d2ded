#include "workflow/Ped1_Repor.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Error.h"
#include "reports/Reportes.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <exception>

namespace {

const QString origen = QStringLiteral("Ped1_Repor");
const QString saltoLinea = QStringLiteral("\r\n");
const QString hojaPedido = QStringLiteral("xsls\\Formato.xsl");
// The save dialog's flags: overwrite prompt (2) and keep the current directory (8).
constexpr int FlagsGuardar = 10;

}  // namespace

Ped1_Repor::Ped1_Repor(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Ped1_Repor"));
    setWindowTitle(QStringLiteral("Listado de libros pedidos"));

    ListView1 = ui::Sistema().CreaVistaHtml(this);
    if (ListView1 && ListView1->widget()) ListView1->widget()->setObjectName(QStringLiteral("ListView1"));
    Command1 = new QPushButton(QStringLiteral("Marcar como pedidos"), this);
    Command2 = new QPushButton(QStringLiteral("Guardar"), this);
    Command4 = new QPushButton(QStringLiteral("Imprimir"), this);
    Command5 = new QPushButton(QStringLiteral("Configurar"), this);
    Command3 = new QPushButton(QStringLiteral("&Regresar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command4->setObjectName(QStringLiteral("Command4"));
    Command5->setObjectName(QStringLiteral("Command5"));
    Command3->setObjectName(QStringLiteral("Command3"));
    // Return must not press a button by default: marking is for the analyst to choose.
    for (QPushButton* b : {Command1, Command2, Command4, Command5, Command3}) b->setAutoDefault(false);

    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {Command1, Command2, Command4, Command5}) botones->addWidget(b);
    botones->addStretch(1);
    botones->addWidget(Command3);
    auto* todo = new QVBoxLayout(this);
    if (ListView1 && ListView1->widget()) todo->addWidget(ListView1->widget(), 1);
    todo->addLayout(botones);
    resize(900, 600);

    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Ped1_Repor::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &Ped1_Repor::Command2_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &Ped1_Repor::Command3_Click);
    ui::Conecta(Command4, &QPushButton::clicked, this, origen, &Ped1_Repor::Command4_Click);
    ui::Conecta(Command5, &QPushButton::clicked, this, origen, &Ped1_Repor::Command5_Click);
}

Ped1_Repor::~Ped1_Repor() = default;

void Ped1_Repor::Form_Load() {
    Marcado = false;
    globales::ConsultaDatos& c = globales::Consulta;
    PreparaConsulta(c, globales::NavValor.text());
    // Whether the query came out empty, and the summary offered for a long one, are not looked at here.
    bool vacio = false;
    QString resumen;
    DocumentoXml = reportes::xml_in(c, hojaPedido, QStringLiteral("Pedidos"), QStringLiteral("Libro"), QString(), vacio,
                                    resumen, false);
    DocumentoHtml = reportes::Htm_gen(DocumentoXml, *ListView1, hojaPedido);
}

void Ped1_Repor::PreparaConsulta(globales::ConsultaDatos& c, const QString& solicitudes) {
    c.Campos = QStringLiteral(
        "ClaveLibro, NoSolicitud as Solicitud, Titulo, ISBN, Autor,[Ejemplares Pedidos], Editoriales.Nombre as Editorial, "
        "Edicion");
    c.Clave = QStringLiteral(
                  "([Solicitudes Libros] left join [Editoriales] on [Solicitudes Libros].NoEditorial = Editoriales.[No]) "
                  "where NoSolicitud in (") +
              solicitudes + QStringLiteral(")");
    c.Tabla.clear();
    c.Valor.clear();
    c.Orden.clear();
}

void Ped1_Repor::Command1_Click() {
    Marcado = true;
    Command1->setEnabled(false);
    globales::ConsultaDatos& c = globales::Consulta;
    c.Tabla = QStringLiteral("[Solicitudes General]");
    c.Valor = globales::NavValor.text();
    Datos::MarcaPedidas(c);
    c.Tabla = QStringLiteral("[Solicitudes Libros]");
    c.Valor = globales::NavValor.text();
    Datos::MarcaPedidas(c);
    ui::Sistema().MsgBox(QStringLiteral("Los libros ya fueron marcados como pedidos"), ui::vbInformation,
                         QStringLiteral("Libros marcados"));
}

void Ped1_Repor::Command2_Click() {
    CD1.filtro = QStringLiteral("(Archivos HTML) | *.htm| (Archivos XML) | *.xml|");
    CD1.flags = FlagsGuardar;
    ui::Sistema().GuardaArchivo(CD1);
    if (CD1.cancelado || CD1.archivo.isEmpty()) return;
    // The file type chosen in the dialog decides the format; the name's extension plays no part.
    QString texto;
    if (CD1.indiceFiltro == 1)
        texto = DocumentoHtml;
    else if (CD1.indiceFiltro == 2)
        texto = DocumentoXml;
    else
        return;
    vb::PrintArchivo(CD1.archivo, texto);
}

void Ped1_Repor::Command4_Click() {
    // A cancelled print dialog is no failure; anything else is shown and ends the action.
    try {
        ListView1->Imprimir(true);
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(e.Description(), ui::vbCritical, QString());
    } catch (const std::exception& e) {
        ui::Sistema().MsgBox(QString::fromLocal8Bit(e.what()), ui::vbCritical, QString());
    }
}

void Ped1_Repor::Command5_Click() { ListView1->ConfigurarPagina(); }

void Ped1_Repor::Command3_Click() { close(); }

void Ped1_Repor::Form_QueryUnload(bool& Cancel) {
    if (Marcado) return;
    const int r = ui::Sistema().MsgBox(QStringLiteral("No ha marcado los libros como pedidos.") + saltoLinea +
                                           QStringLiteral(" ¿Desea salir de todos modos ?"),
                                       ui::vbYesNo, QStringLiteral("Precaución"));
    if (r != ui::vbYes) Cancel = true;
}

void Ped1_Repor::closeEvent(QCloseEvent* e) {
    bool cancelar = false;
    ui::Protegido(origen, [this, &cancelar] { Form_QueryUnload(cancelar); });
    if (cancelar) {
        e->ignore();
        return;
    }
    e->accept();
    QDialog::done(QDialog::Rejected);
}

void Ped1_Repor::reject() { close(); }
