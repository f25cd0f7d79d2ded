#include "finance/pagoFacturasMain.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/ListView.h"
#include "core/dao/Dao.h"
#include "core/ui/Ficha.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Formato.h"
#include "finance/pagoFacturasDetalle.h"
#include "finance/pagoFacturasGral.h"
#include "finance/pagoFacturasImprimir.h"
#include "finance/pagoFacturasSaldar.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("pagoFacturasMain");
const QString crlf = QStringLiteral("\r\n");
const QString separador = QStringLiteral("</td></tr><tr><td class=td1>");

// A date of the list ("yyyy/mm/dd") through a mask; empty stays empty.
QString FechaComo(const QString& texto, const QString& mascara) {
    if (!vb::IsDate(vb::Variant(texto))) return vb::Trim(texto);
    return vb::Format(vb::Variant(vb::CDate(vb::Variant(texto))), mascara);
}

}  // namespace

pagoFacturasMain::pagoFacturasMain(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("pagoFacturasMain"));
    setWindowTitle(QStringLiteral("Control de pago de facturas"));

    Web = ui::Sistema().CreaVistaHtml(this);
    ListView1 = new controles::ListView(this);
    lblTotal = new QLabel(this);
    Option1 = new QRadioButton(QStringLiteral("Mostrar todos"), this);
    Option2 = new QRadioButton(QStringLiteral("Mostrar sólo pendientes de pago"), this);
    cmdNuevoPago = new QPushButton(QStringLiteral("&Nuevo"), this);
    cmdModificarPago = new QPushButton(QStringLiteral("&Modificar"), this);
    cmdBorrarPago = new QPushButton(QStringLiteral("&Borrar"), this);
    cmdDesglocePagos = new QPushButton(QStringLiteral("&Desgloce de facturas"), this);
    cmdSaldarPago = new QPushButton(QStringLiteral("&Saldar pago"), this);
    cmdImprimirPago = new QPushButton(QStringLiteral("&Imprimir"), this);
    cmdRegresar = new QPushButton(QStringLiteral("&Regresar"), this);
    const std::pair<QWidget*, const char*> nombres[] = {
        {ListView1, "ListView1"}, {lblTotal, "lblTotal"}, {Option1, "Option1"}, {Option2, "Option2"},
        {cmdNuevoPago, "cmdNuevoPago"}, {cmdModificarPago, "cmdModificarPago"}, {cmdBorrarPago, "cmdBorrarPago"},
        {cmdDesglocePagos, "cmdDesglocePagos"}, {cmdSaldarPago, "cmdSaldarPago"}, {cmdImprimirPago, "cmdImprimirPago"},
        {cmdRegresar, "cmdRegresar"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));
    Option1->setChecked(true);
    // Nothing to settle until a request with invoices is chosen.
    cmdSaldarPago->setEnabled(false);

    auto* opciones = new QHBoxLayout;
    opciones->addWidget(Option1);
    opciones->addWidget(Option2);
    opciones->addStretch(1);
    opciones->addWidget(lblTotal);
    auto* division = new QSplitter(Qt::Horizontal, this);
    division->addWidget(ListView1);
    if (Web && Web->widget()) {
        Web->widget()->setObjectName(QStringLiteral("Web"));
        Web->widget()->setMinimumWidth(400);
        division->addWidget(Web->widget());
    }
    division->setStretchFactor(0, 3);
    division->setStretchFactor(1, 2);
    division->setSizes({740, 420});
    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {cmdNuevoPago, cmdModificarPago, cmdBorrarPago, cmdDesglocePagos, cmdSaldarPago, cmdImprimirPago})
        botones->addWidget(b);
    botones->addStretch(1);
    botones->addWidget(cmdRegresar);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(opciones);
    todo->addWidget(division, 1);
    todo->addLayout(botones);
    resize(1180, 540);

    ui::Conecta(Option1, &QRadioButton::clicked, this, origen, &pagoFacturasMain::Option1_Click);
    ui::Conecta(Option2, &QRadioButton::clicked, this, origen, &pagoFacturasMain::Option2_Click);
    ui::Conecta(cmdNuevoPago, &QPushButton::clicked, this, origen, &pagoFacturasMain::cmdNuevoPago_Click);
    ui::Conecta(cmdModificarPago, &QPushButton::clicked, this, origen, &pagoFacturasMain::cmdModificarPago_Click);
    ui::Conecta(cmdBorrarPago, &QPushButton::clicked, this, origen, &pagoFacturasMain::cmdBorrarPago_Click);
    ui::Conecta(cmdDesglocePagos, &QPushButton::clicked, this, origen, &pagoFacturasMain::cmdDesglocePagos_Click);
    ui::Conecta(cmdSaldarPago, &QPushButton::clicked, this, origen, &pagoFacturasMain::cmdSaldarPago_Click);
    ui::Conecta(cmdImprimirPago, &QPushButton::clicked, this, origen, &pagoFacturasMain::cmdImprimirPago_Click);
    ui::Conecta(cmdRegresar, &QPushButton::clicked, this, origen, &pagoFacturasMain::cmdRegresar_Click);
    ui::Conecta(ListView1, &controles::ListView::ColumnClick, this, origen, &pagoFacturasMain::ListView1_ColumnClick);
    // A click of the mouse only: a row reached with the keys is the KeyUp's.
    connect(ListView1, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item, int) {
        ui::Protegido(origen, [this, item] { ListView1_ItemClick(static_cast<controles::ListItem*>(item)); });
    });
    ListView1->installEventFilter(this);
}

pagoFacturasMain::~pagoFacturasMain() = default;

bool pagoFacturasMain::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == ListView1 && evento->type() == QEvent::KeyRelease)
        ui::Protegido(origen, [this] { ListView1_KeyUp(); });
    return QDialog::eventFilter(objeto, evento);
}

void pagoFacturasMain::Form_Load() {
    ListView1->View(controles::ListView::lvwReport);
    ListView1->ColumnHeaders().Clear();
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES | controles::ListView::LVS_EX_FULLROWSELECT, -1);
    const std::pair<const char*, int> columnas[] = {
        {"Clave", 700},        {"Estado", 1100},     {"Fuente recursos", 1800}, {"Proveedor", 2200},
        {"Monto a pagar", 1500}, {"Fecha Sol.", 1200}, {"Fecha Pago", 1200},      {"Concepto", 2600},
        {"Observaciones", 2600}, {"IdFinanciamiento", 1300}};
    for (const auto& [texto, ancho] : columnas) ListView1->ColumnHeaders().Add(QString::fromUtf8(texto), ancho);
    if (Web) Web->Navigate(QStringLiteral("about:blank"));
    idPago_ = RefrescaListView();
    ActualizaDetalleBrowser(ListView1->ListItems().Count() > 0 ? 1 : 0);
}

long pagoFacturasMain::RefrescaListView() {
    ListView1->ListItems().Clear();
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("IdPagoFactura,iif(Estado='P','Pagado','Solicitado')as Edo,FuenteFinanciamiento, "
                              "Proveedores.Empresa, Monto, FechaSolicitud, FechaPago, Concepto, Observaciones,IdFinanciamiento ");
    c.Tabla.clear();
    c.Orden.clear();
    c.Clave = QStringLiteral("([PagoFacturasGral] LEFT JOIN Proveedores ON [PagoFacturasGral].IdProveedor = Proveedores.[No])");
    if (Option2->isChecked()) c.Clave += QStringLiteral(" WHERE Estado='S'");
    Datos::LlenaListaCondicion(c, *ListView1);

    const int n = ListView1->ListItems().Count();
    lblTotal->setText(QStringLiteral("Pedidos de facturas encontrados: ") + QString::number(n));
    if (n == 0) {
        cmdNuevoPago->setEnabled(true);
        for (QPushButton* b : {cmdDesglocePagos, cmdModificarPago, cmdBorrarPago, cmdSaldarPago, cmdImprimirPago})
            b->setEnabled(false);
        indice_ = 0;
        return 0;
    }
    cmdDesglocePagos->setEnabled(true);
    cmdImprimirPago->setEnabled(true);
    indice_ = 1;
    return static_cast<long>(vb::Val(ListView1->ListItems()(1).Text()));
}

void pagoFacturasMain::ActualizaDetalleBrowser(int indice) {
    if (!Web) return;
    QCoreApplication::processEvents();
    ui::EsperaVista(*Web, 40000);

    QString html = QStringLiteral(
        "<HTML><HEAD><STYLE type='text/css'>table {font-family:tahoma, verdana, arial;font-size:8pt;} "
        ".td1 {font-weight:bold; text-align:right;}</STYLE></HEAD>"
        "<BODY leftmargin=20 topmargin=5 marginwidth=0 marginheight=0>"
        "<TABLE border=0 cellspacing=1><tr><td class=td1>");
    if (indice > 0) {
        controles::ListItem& r = ListView1->ListItems()(indice);
        auto texto = [&r](int i) { return r.SubItems(i).toHtmlEscaped(); };
        const QString monto = vb::Trim(r.SubItems(4));
        const QString pago = vb::Trim(r.SubItems(6));
        html += QStringLiteral("Clave de pago: </td><td>") + vb::Format(vb::Variant(vb::Val(r.Text())), QStringLiteral("000")) +
                QStringLiteral("</td><td>&nbsp;") +
                (r.SubItems(1) == QLatin1String("Pagado") ? QStringLiteral("<b>PAGADO</b>")
                                                          : QStringLiteral("<font color=red><b>Pendiente de pago</b></font>")) +
                separador;
        html += QStringLiteral("Financiamiento: </td><td>") + texto(2) + separador;
        html += QStringLiteral("Cliente/Proveedor: </td><td>") + texto(3) + separador;
        html += QStringLiteral("Cantidad a pagar: </td><td>") +
                vb::Format(vb::IsNumeric(vb::Variant(monto)) ? vb::Variant(vb::CCur(vb::Variant(monto))) : vb::Variant(monto),
                           QStringLiteral("$###,###,##0.00")) +
                separador;
        html += QStringLiteral("Fecha de solicitud: </td><td>") + FechaComo(r.SubItems(5), QStringLiteral("dd/mmm/yyyy")) + separador;
        html += QStringLiteral("Fecha de pago: </td><td>") +
                (pago.isEmpty() ? QStringLiteral("-- sin pago --") : FechaComo(pago, QStringLiteral("dd/mmm/yyyy"))) + separador;
        html += QStringLiteral("Concepto: </td><td>") + texto(7) + QStringLiteral("</td></tr>");
    } else {
        html += QStringLiteral("<b>No hay solicitudes de pago disponibles</b></td></tr>");
    }
    html += QStringLiteral("</table></body></html>");
    Web->DocumentOpen();
    Web->DocumentWrite(html);
    Web->DocumentClose();
}

int pagoFacturasMain::ObtenerIndiceListView(long id) {
    for (int i = 1; i <= ListView1->ListItems().Count(); ++i) {
        if (static_cast<long>(vb::Val(ListView1->ListItems()(i).Text())) == id)
            return i;
    }
    return 0;
}

void pagoFacturasMain::ActivarBotonSaldar() {
    const controles::ListItem* item = ListView1->SelectedItem();
    const QString monto = item ? vb::Trim(item->SubItems(4)) : QString();
    if (vb::IsNumeric(vb::Variant(monto)))
        cmdSaldarPago->setEnabled(vb::CCur(vb::Variant(monto)) != vb::Currency());
    else
        cmdSaldarPago->setEnabled(false);
}

void pagoFacturasMain::Selecciona(int indice) {
    controles::ListItem& r = ListView1->ListItems()(indice);
    r.setSelected(true);
    r.EnsureVisible();
    indice_ = indice;
    idPago_ = static_cast<long>(vb::Val(r.Text()));
}

void pagoFacturasMain::Reselecciona() {
    RefrescaListView();
    if (ListView1->ListItems().Count() == 0) {
        ActualizaDetalleBrowser(0);
        return;
    }
    const int indice = ObtenerIndiceListView(globales::IdPagoActual);
    Selecciona(indice > 0 ? indice : 1);
    ActualizaDetalleBrowser(indice_);
    ActivarBotonSaldar();
}

void pagoFacturasMain::Opcion_Click() {
    idPago_ = RefrescaListView();
    ActualizaDetalleBrowser(ListView1->ListItems().Count() > 0 ? indice_ : 0);
}
void pagoFacturasMain::Option1_Click() { Opcion_Click(); }
void pagoFacturasMain::Option2_Click() { Opcion_Click(); }

void pagoFacturasMain::ListView1_ItemClick(controles::ListItem* item) {
    if (!item || ListView1->ListItems().Count() == 0) return;
    indice_ = item->Index();
    idPago_ = static_cast<long>(vb::Val(item->Text()));
    globales::IdPagoActual = idPago_;
    ActualizaDetalleBrowser(indice_);
    ActivarBotonSaldar();
    cmdModificarPago->setEnabled(true);
    cmdBorrarPago->setEnabled(true);
}

void pagoFacturasMain::ListView1_KeyUp() {
    const controles::ListItem* item = ListView1->SelectedItem();
    if (!item || ListView1->ListItems().Count() == 0) return;
    indice_ = item->Index();
    idPago_ = static_cast<long>(vb::Val(item->Text()));
    globales::IdPagoActual = idPago_;
    ActivarBotonSaldar();
}

void pagoFacturasMain::ListView1_ColumnClick(int indiceEncabezado) {
    controles::OrdenaPorColumna(*ListView1, indiceEncabezado);
}

void pagoFacturasMain::AbreCaptura(bool modifica) {
    globales::PagoModifica = modifica;
    globales::PagoGrabado = false;
    if (modifica) globales::IdPagoActual = idPago_;
    {
        pagoFacturasGral captura(this);
        captura.Form_Load();
        ui::Sistema().MuestraModal(captura);
    }
    if (globales::PagoGrabado) Reselecciona();
    ListView1->setFocus();
    globales::PagoModifica = false;
}

void pagoFacturasMain::cmdNuevoPago_Click() { AbreCaptura(false); }
void pagoFacturasMain::cmdModificarPago_Click() { AbreCaptura(true); }

void pagoFacturasMain::cmdBorrarPago_Click() {
    const QString id = QString::number(idPago_);
    const int r = ui::Sistema().MsgBox(QStringLiteral("¿Está ud. seguro que desea borrar la solicitud de pago ") + id + crlf +
                                           QStringLiteral("junto con todo el desgloce de sus facturas relacionadas?"),
                                       ui::vbQuestion + ui::vbYesNo, QStringLiteral("Confirmación de borrado de solicitud"));
    if (r == ui::vbYes) {
        dao::Database& base = globales::Base();
        base.Execute(QStringLiteral("DELETE FROM pagoFacturasGral WHERE IdPagoFactura=") + id, dao::dbFailOnError);
        base.Execute(QStringLiteral("DELETE FROM pagoFacturasDetalle WHERE IdPagoFactura=") + id, dao::dbFailOnError);
        ui::Sistema().MsgBox(QStringLiteral("Solicitud de pago ") + id + QStringLiteral(" borrada con éxito"), ui::vbInformation,
                             QStringLiteral("Borrado de solicitud"));
        idPago_ = RefrescaListView();
        if (ListView1->ListItems().Count() > 0) {
            Selecciona(1);
            ActualizaDetalleBrowser(indice_);
        } else {
            ActualizaDetalleBrowser(0);
        }
    } else {
        ui::Sistema().Beep();
    }
    ListView1->setFocus();
}

void pagoFacturasMain::cmdDesglocePagos_Click() {
    globales::IdPagoActual = idPago_;
    const controles::ListItem& r = ListView1->ListItems()(indice_);
    globales::FuentePago = vb::Trim(r.SubItems(9));
    globales::PagoSaldado = vb::UCase(r.SubItems(1)) == QLatin1String("PAGADO");
    {
        pagoFacturasDetalle desgloce(this);
        desgloce.Form_Load();
        ui::Sistema().MuestraModal(desgloce);
        // The sum of the invoices reaches the request as the breakdown unloads.
        desgloce.close();
    }
    Reselecciona();
    ListView1->setFocus();
}

void pagoFacturasMain::cmdSaldarPago_Click() {
    globales::IdPagoActual = idPago_;
    const controles::ListItem& r = ListView1->ListItems()(indice_);
    const QString monto = vb::Trim(r.SubItems(4));
    globales::MontoPago = vb::IsNumeric(vb::Variant(monto)) ? vb::CCur(vb::Variant(monto)) : vb::Currency();
    globales::IdFinanciamientoPago = static_cast<long>(vb::Val(r.SubItems(9)));
    globales::ObservacionesPago = r.SubItems(8);
    globales::PagoSaldado = vb::UCase(r.SubItems(1)) == QLatin1String("PAGADO");
    if (globales::PagoSaldado && vb::IsDate(vb::Variant(r.SubItems(6))))
        globales::FechaPagoActual = vb::CDate(vb::Variant(r.SubItems(6)));
    AbreSaldar();
    Reselecciona();
}

void pagoFacturasMain::cmdImprimirPago_Click() {
    if (ListView1->ListItems().Count() == 0) {
        ui::Sistema().Beep();
        return;
    }
    globales::IdPagoActual = idPago_;
    const controles::ListItem& r = ListView1->ListItems()(indice_);
    globales::FuentePago = vb::Trim(r.SubItems(2));
    globales::ConceptoPago = vb::Trim(r.SubItems(7));
    globales::PagoSaldado = vb::UCase(r.SubItems(1)) == QLatin1String("PAGADO");
    // Loaded, never shown: the printed form walks its list of invoices.
    pagoFacturasDetalle desgloce(this);
    desgloce.Form_Load();
    AbreImprimir(desgloce);
    desgloce.close();
}

void pagoFacturasMain::AbreSaldar() {
    pagoFacturasSaldar saldar(this);
    saldar.Form_Load();
    ui::Sistema().MuestraModal(saldar);
}

void pagoFacturasMain::AbreImprimir(pagoFacturasDetalle& detalle) {
    // The printed request takes the breakdown's rows as its list shows them, and its total.
    std::vector<RenglonFactura> renglones;
    const int n = detalle.ListView1->ListItems().Count();
    renglones.reserve(static_cast<size_t>(n));
    for (int i = 1; i <= n; ++i) {
        const controles::ListItem& f = detalle.ListView1->ListItems()(i);
        renglones.push_back({f.Text(), f.SubItems(1), f.SubItems(2), f.SubItems(3)});
    }
    const controles::ListItem& r = ListView1->ListItems()(indice_);
    pagoFacturasImprimir imprimir(std::move(renglones), detalle.Total(), vb::Trim(r.SubItems(3)), this);
    imprimir.Form_Load();
    ui::Sistema().MuestraModal(imprimir);
}

void pagoFacturasMain::cmdRegresar_Click() { close(); }
