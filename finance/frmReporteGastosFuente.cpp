#include "finance/frmReporteGastosFuente.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "core/dao/Dao.h"
#include "core/ui/Ficha.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"
#include "finance/pagoFacturasDetalle.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <optional>

namespace {

const QString origen = QStringLiteral("frmReporteGastosFuente");
const QString crlf = QStringLiteral("\r\n");
const QString mascaraMoneda = QStringLiteral("$###,###,##0.00");
const QString mascaraPresupuesto = QStringLiteral("$###,###,###,##0.00");
// The printer's answer when the analyst cancels its dialog: no failure.
constexpr int CanceladoPorUsuario = static_cast<int>(0x80040100u);

QString Moneda(const vb::Currency& c, const QString& mascara = mascaraMoneda) { return vb::Format(vb::Variant(c), mascara); }
QString Fecha(const vb::Fecha& f, const QString& mascara) { return vb::Format(vb::Variant(f), mascara); }

// The id of a combo row: the number in its first four characters ("003 - Artes" is 3).
qint32 IdDe(const QString& item) { return static_cast<qint32>(vb::Val(vb::Mid(item, 1, 4))); }
// The name of a combo row: the trimmed text from its sixth character on.
QString NombreDe(const QString& item) { return vb::Trim(vb::Mid(item, 6)); }

// An amount as the list shows it ("  1,234.50", "$1,234.50"); an empty or unreadable cell counts 0.
vb::Currency MontoDeCelda(const QString& texto) {
    QString t = texto;
    t.remove(u'$').remove(u',');
    try {
        return vb::Currency::parse(t).value_or(vb::Currency());
    } catch (const vb::Error&) {
        return vb::Currency();
    }
}

// A money column of a one-row query; NULL, or no row, gives nothing.
std::optional<vb::Currency> MontoDe(dao::Recordset& rs, const QString& campo) {
    if (rs.Eof()) return std::nullopt;
    const vb::Variant v = rs.Fields(campo).Value();
    if (v.isNull()) return std::nullopt;
    return vb::CCur(v);
}

bool EsFecha(const QLineEdit* caja) { return !caja->text().isEmpty() && vb::IsDate(vb::Variant(caja->text())); }

}  // namespace

frmReporteGastosFuente::frmReporteGastosFuente(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmReporteGastosFuente"));
    setWindowTitle(QStringLiteral("Reporte de Gastos por Fuente de Financiamiento"));

    frameDatos = new QGroupBox(this);
    cboEscuela = new controles::ComboBox(frameDatos);
    lblEscuela = new QLabel(QStringLiteral("Escuela / proyecto"), frameDatos);
    cboFuenteFinanciamiento = new controles::ComboBox(frameDatos);
    txtFechaInicial = new QLineEdit(frameDatos);
    txtFechaFinal = new QLineEdit(frameDatos);
    cmdGenerar = new QPushButton(QStringLiteral("&Generar"), frameDatos);
    ListView1 = new controles::ListView(frameDatos);
    lblPresupuesto = new QLabel(this);
    lblSaldoAnterior = new QLabel(this);
    lblSaldoFinal = new QLabel(QStringLiteral("$0.00"), this);
    lblTotalMonto = new QLabel(QStringLiteral("$0.00"), this);
    picBrowser = new QWidget(this);
    WebBrowser1 = ui::Sistema().CreaVistaHtml(picBrowser);
    cmdImprimir = new QPushButton(QStringLiteral("&Imprimir"), this);
    cmdDesgloce = new QPushButton(QStringLiteral("&Desgloce"), this);
    cmdRegresar = new QPushButton(QStringLiteral("&Regresar"), this);
    const std::pair<QWidget*, const char*> nombres[] = {
        {frameDatos, "frameDatos"}, {cboEscuela, "cboEscuela"}, {lblEscuela, "lblEscuela"},
        {cboFuenteFinanciamiento, "cboFuenteFinanciamiento"}, {txtFechaInicial, "txtFechaInicial"},
        {txtFechaFinal, "txtFechaFinal"}, {cmdGenerar, "cmdGenerar"}, {ListView1, "ListView1"},
        {lblPresupuesto, "lblPresupuesto"}, {lblSaldoAnterior, "lblSaldoAnterior"}, {lblSaldoFinal, "lblSaldoFinal"},
        {lblTotalMonto, "lblTotalMonto"}, {picBrowser, "picBrowser"}, {cmdImprimir, "cmdImprimir"},
        {cmdDesgloce, "cmdDesgloce"}, {cmdRegresar, "cmdRegresar"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));

    cboEscuela->hide();
    lblEscuela->hide();
    lblPresupuesto->hide();
    lblSaldoAnterior->hide();
    picBrowser->hide();
    cmdGenerar->setEnabled(false);
    cmdImprimir->setEnabled(false);
    cmdDesgloce->setEnabled(false);
    lblPresupuesto->setWordWrap(true);
    lblSaldoAnterior->setWordWrap(true);

    auto* datos = new QGridLayout;
    datos->addWidget(lblEscuela, 0, 0);
    datos->addWidget(cboEscuela, 0, 1, 1, 5);
    datos->addWidget(new QLabel(QStringLiteral("Fuente de financiamiento:"), frameDatos), 1, 0);
    datos->addWidget(cboFuenteFinanciamiento, 1, 1, 1, 5);
    datos->addWidget(new QLabel(QStringLiteral("Fecha inicial:"), frameDatos), 2, 0);
    datos->addWidget(txtFechaInicial, 2, 1);
    datos->addWidget(new QLabel(QStringLiteral("Fecha final:"), frameDatos), 2, 2, Qt::AlignRight);
    datos->addWidget(txtFechaFinal, 2, 3);
    datos->addWidget(cmdGenerar, 2, 5);
    datos->setColumnStretch(4, 1);
    auto* marco = new QVBoxLayout(frameDatos);
    marco->addLayout(datos);
    marco->addWidget(ListView1, 1);

    auto* vista = new QVBoxLayout(picBrowser);
    vista->setContentsMargins(0, 0, 0, 0);
    if (WebBrowser1 && WebBrowser1->widget()) vista->addWidget(WebBrowser1->widget());

    auto* totales = new QGridLayout;
    totales->addWidget(lblPresupuesto, 0, 0, 1, 4);
    totales->addWidget(lblSaldoAnterior, 1, 0, 1, 4);
    totales->addWidget(new QLabel(QStringLiteral("Total pagado:"), this), 2, 0, Qt::AlignRight);
    totales->addWidget(lblTotalMonto, 2, 1);
    totales->addWidget(new QLabel(QStringLiteral("Saldo final:"), this), 2, 2, Qt::AlignRight);
    totales->addWidget(lblSaldoFinal, 2, 3);
    totales->setColumnStretch(1, 1);
    totales->setColumnStretch(3, 1);
    auto* botones = new QHBoxLayout;
    botones->addWidget(cmdImprimir);
    botones->addWidget(cmdDesgloce);
    botones->addStretch(1);
    botones->addWidget(cmdRegresar);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(frameDatos, 1);
    todo->addWidget(picBrowser, 1);
    todo->addLayout(totales);
    todo->addLayout(botones);
    resize(1000, 640);

    ui::Conecta(cmdGenerar, &QPushButton::clicked, this, origen, &frmReporteGastosFuente::cmdGenerar_Click);
    ui::Conecta(cmdImprimir, &QPushButton::clicked, this, origen, &frmReporteGastosFuente::cmdImprimir_Click);
    ui::Conecta(cmdDesgloce, &QPushButton::clicked, this, origen, &frmReporteGastosFuente::cmdDesgloce_Click);
    ui::Conecta(cmdRegresar, &QPushButton::clicked, this, origen, &frmReporteGastosFuente::cmdRegresar_Click);
    ui::Conecta(cboFuenteFinanciamiento, &controles::ComboBox::Click, this, origen,
                &frmReporteGastosFuente::cboFuenteFinanciamiento_Click);
    ui::Conecta(cboFuenteFinanciamiento, &controles::ComboBox::Change, this, origen,
                &frmReporteGastosFuente::cboFuenteFinanciamiento_Click);
    ui::Conecta(txtFechaInicial, &QLineEdit::textChanged, this, origen, &frmReporteGastosFuente::txtFechaInicial_Change);
    ui::Conecta(txtFechaFinal, &QLineEdit::textChanged, this, origen, &frmReporteGastosFuente::txtFechaFinal_Change);
    ui::Conecta(ListView1, &controles::ListView::Click, this, origen, &frmReporteGastosFuente::ListView1_Click);
    ui::Conecta(ListView1, &QTreeWidget::itemSelectionChanged, this, origen, &frmReporteGastosFuente::ListView1_Click);
}

frmReporteGastosFuente::~frmReporteGastosFuente() = default;

bool frmReporteGastosFuente::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == txtFechaFinal && evento->type() == QEvent::FocusIn)
        ui::Protegido(origen, [this] { txtFechaFinal_GotFocus(); });
    return QDialog::eventFilter(objeto, evento);
}

void frmReporteGastosFuente::Form_Load() {
    porEscuela_ = globales::ReporteGastosPorEscuela;
    fechaInicial_.setTextBox(txtFechaInicial);
    fechaFinal_.setTextBox(txtFechaFinal);
    // Installed after the date behaviour so that it runs first: the behaviour then selects the date it put.
    txtFechaFinal->installEventFilter(this);

    if (porEscuela_) {
        Datos::LlenaCombo(*cboEscuela, QStringLiteral("[No], Nombre"), QStringLiteral("Escuelas"), QStringLiteral("Nombre"));
        cboEscuela->show();
        lblEscuela->show();
        setWindowTitle(QStringLiteral("Reporte de gastos por escuela"));
    }
    Datos::LlenaCombo(*cboFuenteFinanciamiento, QStringLiteral("[IdFinanciamiento], Nombre"), QStringLiteral("adqFinanciamiento"), QStringLiteral("Nombre"));

    ListView1->View(controles::ListView::lvwReport);
    ListView1->ColumnHeaders().Clear();
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES, -1);
    ListView1->EstiloExtendido(controles::ListView::LVS_EX_FULLROWSELECT, -1);
    const auto derecha = controles::ListView::lvwColumnRight;
    ListView1->ColumnHeaders().Add(QStringLiteral("Pago"), 700);
    ListView1->ColumnHeaders().Add(QStringLiteral("Fecha"), 1100);
    if (porEscuela_) {
        ListView1->ColumnHeaders().Add(QStringLiteral("Proveedor"), 3200);
        ListView1->ColumnHeaders().Add(QStringLiteral("Núm.factura"), 1400);
    } else {
        ListView1->ColumnHeaders().Add(QStringLiteral("Concepto"), 3200);
        ListView1->ColumnHeaders().Add(QStringLiteral("Proveedor"), 2600);
    }
    ListView1->ColumnHeaders().Add(QStringLiteral("Monto pagado"), 1500, derecha);
    ListView1->ColumnHeaders().Add(QStringLiteral("Saldo"), 1500, derecha);
    HabilitaGenerar();
}

void frmReporteGastosFuente::HabilitaGenerar() {
    cmdGenerar->setEnabled(cboFuenteFinanciamiento->ListIndex() >= 0 && EsFecha(txtFechaInicial) && EsFecha(txtFechaFinal));
}

void frmReporteGastosFuente::cboFuenteFinanciamiento_Click() { HabilitaGenerar(); }
void frmReporteGastosFuente::txtFechaInicial_Change() { HabilitaGenerar(); }
void frmReporteGastosFuente::txtFechaFinal_Change() { HabilitaGenerar(); }

void frmReporteGastosFuente::txtFechaFinal_GotFocus() {
    if (txtFechaFinal->text().isEmpty())
        txtFechaFinal->setText(Fecha(vb::Fecha::Today(), QStringLiteral("dd-mmm-yyyy")));
}

void frmReporteGastosFuente::cmdGenerar_Click() {
    ui::Plataforma& sistema = ui::Sistema();
    dao::Database& base = globales::Base();
    const QString fuente = cboFuenteFinanciamiento->Text();
    const QString fin = QString::number(IdDe(fuente));
    const QString esc = QString::number(IdDe(cboEscuela->Text()));
    const vb::Fecha f1 = vb::CDate(vb::Variant(txtFechaInicial->text()));
    const vb::Fecha f2 = vb::CDate(vb::Variant(txtFechaFinal->text()));
    vb::Fecha FechaBase;
    vb::Currency TotalMonto;

    ListView1->ListItems().Clear();
    lblPresupuesto->hide();
    lblSaldoAnterior->hide();
    lblSaldoFinal->setText(QStringLiteral("$0.00"));
    lblTotalMonto->setText(QStringLiteral("$0.00"));

    globales::ConsultaDatos& c = globales::Consulta;
    c.Clave.clear();
    c.Valor.clear();
    if (porEscuela_) {
        // The invoices charged to the school's projects of the source, whatever the state of their request:
        // an undone payment has lost its FechaPago.
        const QString desde = Fecha(f1, QStringLiteral("mm-dd-yyyy"));
        const QString hasta = Fecha(f2, QStringLiteral("mm-dd-yyyy"));
        c.Campos = QStringLiteral("PagoFacturasGral.IdPagoFactura, PagoFacturasGral.FechaPago, Proveedores.Empresa, "
                                  "PagoFacturasDetalle.NoFactura, PagoFacturasDetalle.MontoFactura, '0' AS Saldo ");
        c.Tabla = QStringLiteral(" ((adqProyectos INNER JOIN PagoFacturasDetalle ON adqProyectos.IdProyecto = "
                                 "PagoFacturasDetalle.IdProyecto)  INNER JOIN PagoFacturasGral ON "
                                 "PagoFacturasDetalle.IdPagoFactura = PagoFacturasGral.IdPagoFactura)  INNER JOIN "
                                 "Proveedores ON PagoFacturasGral.IdProveedor = Proveedores.[No] WHERE  "
                                 "(adqProyectos.IdEscuela=") +
                  esc + QStringLiteral(") AND  (adqProyectos.IdFinanciamiento=") + fin +
                  QStringLiteral(") AND  (PagoFacturasGral.FechaPago BETWEEN #") + desde + QStringLiteral(" 00:00# AND #") +
                  hasta + QStringLiteral(" 23:59#)");
        c.Orden.clear();
    } else {
        auto rs = base.OpenRecordset(QStringLiteral(" SELECT SUM(MontoTotal) AS Presupuesto FROM adqFinanciamiento WHERE "
                                                    "IdFinanciamiento=") +
                                     fin);
        Presupuesto = MontoDe(*rs, QStringLiteral("Presupuesto")).value_or(vb::Currency());
        rs->Close();
        if (Presupuesto == vb::Currency()) {
            cmdImprimir->setEnabled(false);
            cmdDesgloce->setEnabled(false);
            sistema.MsgBox(QStringLiteral("Para esta fuente de financiamiento '") + NombreDe(fuente) +
                               QStringLiteral("' no se tiene ningún presupuesto asignado..."),
                           ui::vbExclamation, QStringLiteral("Imposible generar Reporte de Gastos"));
            return;
        }
        lblPresupuesto->setText(QStringLiteral("El presupuesto asignado para '") + NombreDe(fuente) +
                                QStringLiteral("' es de ") + Moneda(Presupuesto, mascaraPresupuesto) +
                                QStringLiteral("        ."));
        // Only what is paid now: a payment undone and paid again shows once.
        const QString desde = Fecha(f1, QStringLiteral("yyyy/mm/dd"));
        const QString hasta = Fecha(f2, QStringLiteral("yyyy/mm/dd"));
        c.Campos = QStringLiteral("IdPagofactura,FechaPago,Concepto,Empresa,Monto,(") + Presupuesto.toSql() +
                   QStringLiteral("-Monto) AS Saldo ");
        c.Tabla = QStringLiteral("PagoFacturasGral, Proveedores WHERE (IdFinanciamiento=") + fin +
                  QStringLiteral(") AND (FechaPago BETWEEN #") + desde + QStringLiteral(" 00:00# AND #") + hasta +
                  QStringLiteral(" 23:59#) AND (Proveedores.No=PagoFacturasGral.IdProveedor) AND Estado='P'");
        c.Orden = QStringLiteral(" 1 ASC");
    }

    Datos::LlenaListaCondicion(c, *ListView1);
    if (ListView1->ListItems().Count() == 0) {
        cmdImprimir->setEnabled(false);
        cmdDesgloce->setEnabled(false);
        sistema.MsgBox(QStringLiteral("No se encontró ningún pago efectuado en este periodo"), ui::vbInformation,
                       QStringLiteral("Reporte de gastos"));
        return;
    }

    // The opening balance: every ledger row before the period, undoings included.
    const QString antes = Fecha(f1, QStringLiteral("mm-dd-yyyy"));
    QString nombre;
    if (porEscuela_) {
        nombre = NombreDe(cboEscuela->Text());
        auto rs = base.OpenRecordset(QStringLiteral("SELECT SUM(TotalAsignado) as Asignado, FechaAsignacion FROM adqProyectos "
                                                    "WHERE IdFinanciamiento=") +
                                     fin + QStringLiteral(" AND IdEscuela=") + esc + QStringLiteral(" GROUP BY FechaAsignacion"));
        if (!rs->Eof()) {
            Presupuesto = MontoDe(*rs, QStringLiteral("Asignado")).value_or(vb::Currency());
            const vb::Variant asignacion = rs->Fields(QStringLiteral("FechaAsignacion")).Value();
            if (!asignacion.isNull()) FechaBase = asignacion.toDate();
        }
        rs->Close();
        if (Presupuesto == vb::Currency()) {
            sistema.MsgBox(QStringLiteral("No existe presupuesto vigente para esta dependencia en el rango de fechas indicado"),
                           ui::vbInformation, QStringLiteral("No hay presupuesto"));
            ListView1->ListItems().Clear();
            return;
        }
        rs = base.OpenRecordset(QStringLiteral("SELECT SUM(Monto) as Disponible FROM adqSaldoProyectos WHERE UltimoMovimiento < #") +
                                antes + QStringLiteral("# AND IdFinanciamiento=") + fin + QStringLiteral(" AND IdEscuela=") + esc);
        if (!rs->Eof()) {
            SaldoCorriente = MontoDe(*rs, QStringLiteral("Disponible")).value_or(vb::Currency());
            // An exact 0 reads as no movement yet.
            if (SaldoCorriente == vb::Currency()) SaldoCorriente = Presupuesto;
        }
        rs->Close();
        SaldoAnterior = SaldoCorriente;
    } else {
        nombre = NombreDe(fuente);
        auto rs = base.OpenRecordset(QStringLiteral("SELECT FechaCaptura FROM adqFinanciamiento WHERE IdFinanciamiento=") + fin);
        if (!rs->Eof()) {
            const vb::Variant captura = rs->Fields(0).Value();
            if (!captura.isNull()) FechaBase = captura.toDate();
        }
        rs->Close();
        rs = base.OpenRecordset(QStringLiteral("SELECT SUM(Monto) as SaldoActual FROM adqSaldoFinanciamientos WHERE UltimoMovimiento< #") +
                                antes + QStringLiteral("# AND IdFinanciamiento=") + fin);
        if (rs->Eof()) {
            SaldoCorriente = Presupuesto;
            SaldoAnterior = Presupuesto;
        } else {
            rs->MoveLast();
            SaldoCorriente = MontoDe(*rs, QStringLiteral("SaldoActual")).value_or(Presupuesto);
            SaldoAnterior = SaldoCorriente;
        }
        rs->Close();
    }

    lblPresupuesto->setText(QStringLiteral("El presupuesto asignado para '") + nombre + QStringLiteral("' es de ") +
                            Moneda(Presupuesto, mascaraPresupuesto));
    QString saldo = QStringLiteral("fue asignado el ") + Fecha(FechaBase, QStringLiteral("dd-mmm-yyyy"));
    if (!(f1 < FechaBase))
        saldo += QStringLiteral(" y el saldo disponible al ") + txtFechaInicial->text() + QStringLiteral(" es de ") +
                 Moneda(SaldoAnterior) + QStringLiteral("     ");
    lblSaldoAnterior->setText(saldo);
    lblPresupuesto->show();
    lblSaldoAnterior->show();

    // The query only reserved the balance column: each row shows what is left after its payment.
    controles::ListItemCollection& filas = ListView1->ListItems();
    const int n = filas.Count();
    for (int i = 1; i <= n; ++i) {
        controles::ListItem& fila = filas(i);
        const vb::Currency monto = MontoDeCelda(fila.SubItems(4));
        TotalMonto += monto;
        SaldoCorriente -= monto;
        fila.setSubItems(5, Moneda(SaldoCorriente));
    }
    lblTotalMonto->setText(Moneda(TotalMonto));
    lblSaldoFinal->setText(Moneda(SaldoCorriente));
    cmdImprimir->setEnabled(true);
}

void frmReporteGastosFuente::ListView1_Click() { cmdDesgloce->setEnabled(ListView1->ListItems().Count() > 0); }

void frmReporteGastosFuente::cmdDesgloce_Click() {
    controles::ListItem* fila = ListView1->SelectedItem();
    if (!fila) return;
    globales::IdPagoActual = static_cast<long>(vb::Val(fila->Text()));
    globales::FuentePago = QString::number(IdDe(cboFuenteFinanciamiento->Text()));
    globales::PagoSaldado = true;
    globales::PagoDesdeReporte = true;
    AbreDesglose();
    globales::PagoDesdeReporte = false;
    ListView1->setFocus();
}

void frmReporteGastosFuente::AbreDesglose() {
    pagoFacturasDetalle desgloce(this);
    desgloce.Form_Load();
    ui::Sistema().MuestraModal(desgloce);
    // The invoices' sum is written back as the breakdown unloads, as from the payments' list.
    desgloce.close();
}

void frmReporteGastosFuente::cmdImprimir_Click() {
    if (picBrowser->isHidden()) {
        cmdDesgloce->hide();
        frameDatos->hide();
        picBrowser->show();
        GenerarReporteHTML();
        return;
    }
    // A cancelled print dialog is no failure; any other is told and the screen goes on.
    try {
        WebBrowser1->Imprimir(true);
    } catch (const vb::Error& e) {
        if (e.Number() != CanceladoPorUsuario) ui::Sistema().MsgBox(e.Description());
    } catch (const std::exception& e) {
        ui::Sistema().MsgBox(QString::fromLocal8Bit(e.what()));
    }
}

void frmReporteGastosFuente::cmdRegresar_Click() {
    if (!picBrowser->isHidden()) {
        picBrowser->hide();
        cmdDesgloce->show();
        frameDatos->show();
        return;
    }
    close();
}

void frmReporteGastosFuente::GenerarReporteHTML() {
    ui::VistaHtml& vista = *WebBrowser1;
    vista.Navigate(QStringLiteral("about:blank"));
    ui::EsperaVista(vista, 500000);

    QString h;
    h += QStringLiteral("<HTML><HEAD><STYLE>");
    h += QStringLiteral("@page {size: 8.5in 11in auto; margin: 0.5in}");
    h += QStringLiteral(".AreadeFirmas {margin-left: 1cm; position:absolute; top: 6in; left: 0in} ");
    h += QStringLiteral("marco {border: solid black 2px;}");
    h += QStringLiteral("body {font-family:arial, tahoma, verdana; font-size:8pt; color:#000000;}");
    h += QStringLiteral(".conCopiaPara {text-align: left; font-family:arial, tahoma, verdana; font-size:8pt; color:#000000; "
                        "margin-left: 1cm; position:absolute; top: 7.5in; left: 0in}");
    h += QStringLiteral("td {background-color: #ffffff; font-family:arial, tahoma, verdana; font-size:10pt; color:#000000; "
                        "border: solid white 1px;}");
    h += QStringLiteral(".cent {text-align: center; background-color: #ffffff; font-family:arial, tahoma, verdana; "
                        "font-size:10pt; color:#000000; font-weight:bold;}");
    h += QStringLiteral(".relleno {background-color: lightgrey; border: solid black 1px; height: 10px;  font-weight:bold;}");
    h += QStringLiteral("</STYLE></HEAD><BODY>");

    if (porEscuela_) {
        h += QStringLiteral("<center><h3>Reporte de gastos por escuela</h3></center>");
        h += QStringLiteral("<center><h4>") + NombreDe(cboEscuela->Text()) + QStringLiteral("</h4></center>");
    } else {
        h += QStringLiteral("<center><h3>Reporte de gastos por fuente de financiamiento</h3></center>");
    }

    h += QStringLiteral("<center><table border='1' width='85%' class='marco'><tr><td>Institución: <b>") +
         globales::NombreInstitucion + QStringLiteral("</b><br/> ");
    h += QStringLiteral("Fuente de financiamiento: <b> ") + NombreDe(cboFuenteFinanciamiento->Text()) + QStringLiteral("</b><br/>");
    h += QStringLiteral("Presupuesto asignado: <b>") + Moneda(Presupuesto) + QStringLiteral("</b><br/>  ");
    h += QStringLiteral("Monto disponible: <b> ") + Moneda(SaldoAnterior) + QStringLiteral("</b> al ") +
         Fecha(vb::CDate(vb::Variant(txtFechaInicial->text())), QStringLiteral("dd-mmm-yyyy")) +
         QStringLiteral("</td></tr></table><p/>");

    h += QStringLiteral("<div class='cent'>Detalle de operaciones</div>");
    h += QStringLiteral("<center><table border='1' width='85%'><tr><td class='relleno'>Fecha</td><td  class='relleno'>");
    h += porEscuela_ ? QStringLiteral("Proveedor</td><td  class='relleno'>Núm. factura")
                     : QStringLiteral("Concepto</td><td  class='relleno'>Proveedor");
    h += QStringLiteral("</td><td  class='relleno'>Monto</td><td  class='relleno'>Saldo</td></tr>");
    h += crlf;

    vb::Currency total;
    vb::Currency ultimo;
    controles::ListItemCollection& filas = ListView1->ListItems();
    const int n = filas.Count();
    for (int i = 1; i <= n; ++i) {
        const controles::ListItem& fila = filas(i);
        const QString monto = fila.SubItems(4);
        const QString saldo = fila.SubItems(5);
        h += QStringLiteral("<tr><td>") + fila.SubItems(1) + QStringLiteral("</td><td>") + fila.SubItems(2) +
             QStringLiteral("</td><td>") + fila.SubItems(3) + QStringLiteral("</td><td align='right'>") + monto +
             QStringLiteral("</td><td align='right'>") + saldo + QStringLiteral("</td></tr>");
        total += MontoDeCelda(monto);
        ultimo = MontoDeCelda(saldo);
    }
    h += QStringLiteral("<tr><td colspan='3' align='right'>Totales: </td><td class='relleno' align='right'>") + Moneda(total) +
         QStringLiteral("</td><td align='right' class='relleno'>") + Moneda(ultimo) +
         QStringLiteral("</td></tr></table></center>");
    h += QStringLiteral("<p/>&nbsp;<p/>&nbsp;<p/><div align='right'>Generado el ") +
         Fecha(vb::Fecha::Now(), QStringLiteral("dd-mmm-yyyy hh:nn")) + QStringLiteral(" con KORVEL8</div>");
    h += QStringLiteral("</BODY></HTML>");

    vista.DocumentOpen();
    vista.DocumentWrite(h);
    vista.DocumentClose();
}
