#include "finance/pagoFacturasImprimir.h"

#include "core/Globales.h"
#include "core/Rutas.h"
#include "core/ui/Plataforma.h"
#include "core/ui/PlataformaQt.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Error.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("pagoFacturasImprimir");
const QString crlf = QStringLiteral("\r\n");
const QString plantilla = QStringLiteral("XSLs\\adqSolRecursos.fdc");
// Turns the view is given to finish loading the empty page.
constexpr int VueltasDeEspera = 40000;

}  // namespace

pagoFacturasImprimir::pagoFacturasImprimir(std::vector<RenglonFactura> renglones, vb::Currency total, QString proveedor,
                                           QWidget* padre)
    : QDialog(padre), renglones_(std::move(renglones)), total_(total), proveedor_(std::move(proveedor)) {
    setObjectName(QStringLiteral("pagoFacturasImprimir"));
    setWindowTitle(QStringLiteral("Pago de facturas - Control de gastos por proyecto"));

    lblTitulo = new QLabel(QStringLiteral("Solicitud de recursos"), this);
    QFont titulo = lblTitulo->font();
    titulo.setBold(true);
    titulo.setPointSizeF(titulo.pointSizeF() * 1.3);
    lblTitulo->setFont(titulo);
    WebBrowser1 = ui::Sistema().CreaVistaHtml(this);
    cmdPersonalizar = new QPushButton(QStringLiteral("Personalizar datos del reporte"), this);
    cmdImprimir = new QPushButton(QStringLiteral("&Imprimir"), this);
    cmdRegresar = new QPushButton(QStringLiteral("&Regresar"), this);

    picPersonaliza = new QFrame(this);
    picPersonaliza->setFrameShape(QFrame::StyledPanel);
    auto* panel = new QGridLayout(picPersonaliza);
    const char* etiquetas[] = {"Institución", "Dependencia solicitante", "Nombre del Proyecto Gral.",
                               "Responsable del proyecto", "Resp. dependencia solicitante"};
    for (size_t i = 0; i < 5; ++i) {
        Label[i] = new QLabel(QString::fromUtf8(etiquetas[i]), picPersonaliza);
        Label[i]->setObjectName(QStringLiteral("Label%1").arg(i + 1));
        Text[i] = new QLineEdit(picPersonaliza);
        Text[i]->setObjectName(QStringLiteral("Text%1").arg(i + 1));
        Text[i]->setMinimumWidth(380);
        Text[i]->installEventFilter(this);
        Label[i]->setBuddy(Text[i]);
        panel->addWidget(Label[i], static_cast<int>(i), 0);
        panel->addWidget(Text[i], static_cast<int>(i), 1);
    }
    cmdAceptar = new QPushButton(QStringLiteral("&Aceptar"), picPersonaliza);
    Command1 = new QPushButton(QStringLiteral("&Cancelar"), picPersonaliza);
    auto* botonesPanel = new QHBoxLayout;
    botonesPanel->addStretch(1);
    botonesPanel->addWidget(cmdAceptar);
    botonesPanel->addWidget(Command1);
    panel->addLayout(botonesPanel, 5, 0, 1, 2);
    panel->setColumnStretch(1, 1);

    const std::pair<QWidget*, const char*> nombres[] = {
        {lblTitulo, "lblTitulo"}, {cmdPersonalizar, "cmdPersonalizar"}, {cmdImprimir, "cmdImprimir"},
        {cmdRegresar, "cmdRegresar"}, {picPersonaliza, "picPersonaliza"}, {cmdAceptar, "cmdAceptar"},
        {Command1, "Command1"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));

    auto* botones = new QHBoxLayout;
    botones->addWidget(cmdPersonalizar);
    botones->addStretch(1);
    botones->addWidget(cmdImprimir);
    botones->addWidget(cmdRegresar);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(lblTitulo);
    if (WebBrowser1 && WebBrowser1->widget()) todo->addWidget(WebBrowser1->widget(), 1);
    todo->addWidget(picPersonaliza);
    todo->addLayout(botones);
    resize(900, 720);
    picPersonaliza->hide();

    ui::Conecta(cmdPersonalizar, &QPushButton::clicked, this, origen, &pagoFacturasImprimir::cmdPersonalizar_Click);
    ui::Conecta(cmdAceptar, &QPushButton::clicked, this, origen, &pagoFacturasImprimir::cmdAceptar_Click);
    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &pagoFacturasImprimir::Command1_Click);
    ui::Conecta(cmdImprimir, &QPushButton::clicked, this, origen, &pagoFacturasImprimir::cmdImprimir_Click);
    ui::Conecta(cmdRegresar, &QPushButton::clicked, this, origen, &pagoFacturasImprimir::cmdRegresar_Click);
}

pagoFacturasImprimir::~pagoFacturasImprimir() = default;

void pagoFacturasImprimir::Form_Load() {
    InicializaValoresTags();
    DespliegaReporte();
}

void pagoFacturasImprimir::InicializaValoresTags() {
    institucion_ = globales::NombreInstitucion.isEmpty() ? QStringLiteral("UNIVERSIDAD DE TARVENA")
                                                         : globales::NombreInstitucion;
    depSolicitante_ = QStringLiteral("Dirección General de Acervos");
    proyectoGral_ = QStringLiteral("Fortalecimiento del acervo institucional");
    respPGral_ = QStringLiteral("Mtra. Ilsa Morvane");
    nombDepSolicitante_ = QStringLiteral("Dra. Tessa Quorlin");
    noFolio_ = vb::Format(vb::Variant::Long(static_cast<qint32>(globales::IdPagoActual)), QStringLiteral("000"));
    fondo_ = globales::FuentePago;
    proveedorTag_ = vb::Trim(proveedor_);
    fecha_ = vb::Format(vb::Variant(vb::Fecha::Today()), QStringLiteral("dd-mmm-yyyy"));
    totalTexto_ = vb::Format(vb::Variant(total_), QStringLiteral("$###,###,##0.00"));
    concepto_ = globales::ConceptoPago;
    // The view finds the picture by its full address.
    rutaLogo_ = QUrl::fromLocalFile(QFileInfo(rutas::Instalacion(QStringLiteral("XSLs\\logo.gif"))).absoluteFilePath())
                    .toString();
}

void pagoFacturasImprimir::ReemplazaTag(QString& texto, const QString& tag, const QString& valor, bool todos,
                                        bool& correcto) {
    correcto = false;
    if (texto.isEmpty() || tag.isEmpty() || valor.isEmpty()) return;
    const QString cierre = QStringLiteral("</") + tag.mid(1);
    qsizetype inicio = texto.indexOf(tag, 0, Qt::CaseSensitive);
    if (inicio < 0) return;
    while (inicio >= 0) {
        const qsizetype fin = texto.indexOf(cierre, 0, Qt::CaseSensitive);
        if (fin < 0) return;
        texto = texto.left(inicio) + valor + texto.mid(fin + cierre.size());
        inicio = todos ? texto.indexOf(tag, 0, Qt::CaseSensitive) : -1;
    }
    correcto = true;
}

void pagoFacturasImprimir::DuplicaTag(QString& texto, const QString& tag, int veces, bool& correcto) {
    correcto = false;
    if (texto.isEmpty() || tag.isEmpty()) return;
    const QString cierre = QStringLiteral("</") + tag.mid(1);
    const int inicio = vb::InStr(1, texto, tag);
    if (inicio == 0) return;
    const int fin = vb::InStr(1, texto, cierre);
    if (fin == 0) return;
    const int despues = fin + vb::Len(cierre);
    const QString izquierda = vb::Left(texto, inicio - 1);
    const QString derecha = vb::Mid(texto, despues);
    // The block begins one character before the tag: a tag at the very start of the text is an error.
    const QString bloque = vb::Mid(texto, inicio - 1, despues - (inicio - 1));
    QString medio;
    for (int i = 0; i < veces; ++i) medio += bloque + crlf;
    texto = izquierda + medio + derecha;
    correcto = true;
}

void pagoFacturasImprimir::ReemplazaValores(QString& texto) {
    bool correcto = false;
    const std::pair<const char*, const QString*> encabezado[] = {
        {"<institucion>", &institucion_}, {"<depSolicitante>", &depSolicitante_}, {"<proyectoGral>", &proyectoGral_},
        {"<resp_PGral>", &respPGral_}, {"<NombdepSolicitante>", &nombDepSolicitante_}, {"<NoFolio>", &noFolio_},
        {"<fondo>", &fondo_}, {"<proveedor>", &proveedorTag_}, {"<fecha>", &fecha_}, {"<total>", &totalTexto_},
        {"<concepto>", &concepto_}, {"<rutalogo>", &rutaLogo_}};
    auto reemplaza = [&](const char* tag, const QString& valor, bool todos) {
        ReemplazaTag(texto, QLatin1String(tag), valor, todos, correcto);
        if (!correcto) ui::Sistema().MsgBox(QStringLiteral("err"));
    };
    for (const auto& [tag, valor] : encabezado) reemplaza(tag, *valor, true);

    DuplicaTag(texto, QStringLiteral("<renglonDetalle>"), static_cast<int>(renglones_.size()), correcto);
    if (!correcto) ui::Sistema().MsgBox(QStringLiteral("err"));
    // Each row fills the first copy still unfilled.
    for (const RenglonFactura& r : renglones_) {
        reemplaza("<IdPagoDetalle>", r.id, false);
        reemplaza("<proyecto>", r.proyecto, false);
        reemplaza("<numFactura>", r.numFactura, false);
        reemplaza("<Importe>", r.importe, false);
    }
    // A total standing inside the row element; none left is no failure.
    ReemplazaTag(texto, QStringLiteral("<total>"), totalTexto_, true, correcto);
}

void pagoFacturasImprimir::DespliegaReporte() {
    const QString ruta = rutas::Instalacion(plantilla);
    if (!QFileInfo(ruta).isFile()) {
        WebBrowser1->Navigate(QStringLiteral("about:blank"));
        ui::Sistema().MsgBox(QStringLiteral("No se localizó la plantilla para la impresión del reporte,") + crlf +
                                 QStringLiteral("asegúrese de que el archivo 'adqSolRecursos.fdc'") + crlf +
                                 QStringLiteral("se encuentre en la carpeta '\\KORVEL8\\XSLs\\'"),
                             ui::vbCritical, QStringLiteral("Imposible imprimir reporte"));
        cmdImprimir->setEnabled(false);
        cmdPersonalizar->setEnabled(false);
        return;
    }
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw vb::Error(75, QStringLiteral("Error de acceso a la ruta o el archivo"));
    QString texto = ui::DecodificaDocumento(archivo.readAll());
    archivo.close();

    WebBrowser1->Navigate(QStringLiteral("about:blank"));
    for (int vuelta = 0; vuelta < VueltasDeEspera && WebBrowser1->ReadyState() != 4; ++vuelta)
        QCoreApplication::processEvents();
    ReemplazaValores(texto);
    WebBrowser1->DocumentOpen();
    WebBrowser1->DocumentWrite(texto);
    WebBrowser1->DocumentClose();
}

void pagoFacturasImprimir::CargaDatosPersonalizacion() {
    const QString* valores[] = {&institucion_, &depSolicitante_, &proyectoGral_, &respPGral_, &nombDepSolicitante_};
    for (size_t i = 0; i < 5; ++i) Text[i]->setText(*valores[i]);
}

void pagoFacturasImprimir::CambiaDatosPersonalizacion() {
    QString* valores[] = {&institucion_, &depSolicitante_, &proyectoGral_, &respPGral_, &nombDepSolicitante_};
    for (size_t i = 0; i < 5; ++i) *valores[i] = Text[i]->text();
}

void pagoFacturasImprimir::cmdPersonalizar_Click() {
    cmdPersonalizar->setEnabled(false);
    picPersonaliza->show();
    CargaDatosPersonalizacion();
    Text[0]->setFocus();
}

void pagoFacturasImprimir::cmdAceptar_Click() {
    CambiaDatosPersonalizacion();
    picPersonaliza->hide();
    cmdPersonalizar->setEnabled(true);
    DespliegaReporte();
}

void pagoFacturasImprimir::Command1_Click() {
    picPersonaliza->hide();
    cmdPersonalizar->setEnabled(true);
}

void pagoFacturasImprimir::cmdImprimir_Click() {
    try {
        WebBrowser1->Imprimir(true);   // a cancelled print dialog is no failure
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(e.Description(), ui::vbCritical, QString());
    }
}

void pagoFacturasImprimir::cmdRegresar_Click() { close(); }

bool pagoFacturasImprimir::eventFilter(QObject* objeto, QEvent* evento) {
    // A personalisation text selects all of itself when it gets the focus (after the click that gave it).
    if (evento->type() == QEvent::FocusIn) {
        for (QLineEdit* t : Text) {
            if (objeto == t) QTimer::singleShot(0, t, [t] { t->selectAll(); });
        }
    }
    return QDialog::eventFilter(objeto, evento);
}
