#include "finance/pagoFacturasSaldar.h"

#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Currency.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("pagoFacturasSaldar");
const QString crlf = QStringLiteral("\r\n");
const QString mascaraMoneda = QStringLiteral("$###,###,##0.00");
const QString mascaraFecha = QStringLiteral("dd-mmm-yyyy");
const QString encabezadoPago = QStringLiteral("Proyecto                                    Monto Asignado            Disponible");
const QString encabezadoDeshacer = QStringLiteral("Proyecto                      Monto Asignado            Disponible");
const QString introResumen = QStringLiteral("El estado financiero de los proyectos involucrados es:");

QString Fecha(const vb::Fecha& f, const QString& mascara) { return vb::Format(vb::Variant(f), mascara); }
QString Moneda(const vb::Variant& v) { return vb::Format(v, mascaraMoneda); }
vb::Currency MonedaDe(const vb::Variant& v) { return v.isNull() ? vb::Currency() : v.toCurrency(); }

// A shown amount read back as money: "$1,234.50" is 1234.5; no amount is 0.
vb::Currency MontoDeTexto(const QString& texto) {
    QString t = texto.trimmed();
    t.remove(u'$').remove(u',');
    try {
        return vb::Currency::parse(t).value_or(vb::Currency());
    } catch (const vb::Error&) {
        return vb::Currency();
    }
}

QString Analista() { return globales::LoginAnalista; }

// The remarks as they go into the statement: NULL when empty, otherwise between quotes as typed.
QString ObservacionesSql(const QString& texto) {
    return texto.isEmpty() ? QStringLiteral("NULL") : u'\'' + texto + u'\'';
}

}  // namespace

pagoFacturasSaldar::pagoFacturasSaldar(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("pagoFacturasSaldar"));
    setWindowTitle(QStringLiteral("Saldar las facturas del pago "));

    txtFechaPago = new QLineEdit(this);
    txtObservaciones = new QTextEdit(this);
    txtObservaciones->setAcceptRichText(false);
    txtObservaciones->setTabChangesFocus(true);
    lblMonto = new QLabel(this);
    lblEstado = new QLabel(QStringLiteral("Solicitud pagada: El pago fue realizado el "), this);
    lblSinPago = new QLabel(QStringLiteral("   Solicitud sin pagar ..."), this);
    cmdCargarPago = new QPushButton(QStringLiteral("Cargar pago"), this);
    cmdDeshacerPago = new QPushButton(QStringLiteral("Deshacer pago"), this);
    cmdRegresar = new QPushButton(QStringLiteral("&Regresar"), this);
    const std::pair<QWidget*, const char*> nombres[] = {
        {txtFechaPago, "txtFechaPago"}, {txtObservaciones, "txtObservaciones"}, {lblMonto, "lblMonto"},
        {lblEstado, "lblEstado"}, {lblSinPago, "lblSinPago"}, {cmdCargarPago, "cmdCargarPago"},
        {cmdDeshacerPago, "cmdDeshacerPago"}, {cmdRegresar, "cmdRegresar"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));

    QFont negrita = lblEstado->font();
    negrita.setBold(true);
    lblEstado->setFont(negrita);
    lblSinPago->setFont(negrita);
    lblEstado->setStyleSheet(QStringLiteral("color: #1a6b1a;"));
    lblSinPago->setStyleSheet(QStringLiteral("color: #a01818;"));
    lblMonto->setFont(negrita);
    lblMonto->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblMonto->setFrameShape(QFrame::StyledPanel);
    lblMonto->setMinimumWidth(170);
    txtFechaPago->setMinimumWidth(130);
    txtFechaPago->setMaximumWidth(170);
    txtObservaciones->setMinimumSize(420, 90);

    auto* g = new QGridLayout;
    g->addWidget(new QLabel(QStringLiteral("Total a pagar:"), this), 0, 0);
    g->addWidget(lblMonto, 0, 1, Qt::AlignLeft);
    g->addWidget(new QLabel(QStringLiteral("Fecha de pago:"), this), 1, 0);
    g->addWidget(txtFechaPago, 1, 1, Qt::AlignLeft);
    g->addWidget(new QLabel(QStringLiteral("Observaciones:"), this), 2, 0, Qt::AlignTop);
    g->addWidget(txtObservaciones, 2, 1);
    g->setColumnStretch(1, 1);
    auto* botones = new QHBoxLayout;
    botones->addWidget(cmdCargarPago);
    botones->addWidget(cmdDeshacerPago);
    botones->addStretch(1);
    botones->addWidget(cmdRegresar);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(lblEstado);
    todo->addWidget(lblSinPago);
    todo->addLayout(g, 1);
    todo->addLayout(botones);
    setTabOrder(txtFechaPago, txtObservaciones);
    setTabOrder(txtObservaciones, cmdCargarPago);
    setTabOrder(cmdCargarPago, cmdDeshacerPago);
    setTabOrder(cmdDeshacerPago, cmdRegresar);

    ui::Conecta(cmdCargarPago, &QPushButton::clicked, this, origen, &pagoFacturasSaldar::cmdCargarPago_Click);
    ui::Conecta(cmdDeshacerPago, &QPushButton::clicked, this, origen, &pagoFacturasSaldar::cmdDeshacerPago_Click);
    ui::Conecta(cmdRegresar, &QPushButton::clicked, this, origen, &pagoFacturasSaldar::cmdRegresar_Click);
}

pagoFacturasSaldar::~pagoFacturasSaldar() = default;

void pagoFacturasSaldar::Form_Load() {
    fechaPago_.setTextBox(txtFechaPago);
    if (globales::PagoSaldado) {
        lblEstado->setText(QStringLiteral("Solicitud pagada: El pago fue realizado el ") + u' ' +
                           Fecha(globales::FechaPagoActual, mascaraFecha));
        lblEstado->show();
        lblSinPago->hide();
        txtFechaPago->setText(Fecha(globales::FechaPagoActual, mascaraFecha));
        txtFechaPago->setEnabled(false);
        cmdCargarPago->setEnabled(false);
        cmdDeshacerPago->setEnabled(true);
    } else {
        lblEstado->hide();
        lblSinPago->show();
        txtFechaPago->setText(Fecha(vb::Fecha::Today(), mascaraFecha));
        txtFechaPago->setEnabled(true);
        cmdCargarPago->setEnabled(true);
        cmdDeshacerPago->setEnabled(false);
    }
    lblMonto->setText(vb::Format(vb::Variant(globales::MontoPago), QStringLiteral("$###,###,###,##0.00")));
    txtObservaciones->setPlainText(globales::ObservacionesPago);
    setWindowTitle(QStringLiteral("Saldar las facturas del pago ") +
                   vb::Format(vb::Variant::Long(static_cast<qint32>(globales::IdPagoActual)), QStringLiteral("000")));
}

void pagoFacturasSaldar::cmdCargarPago_Click() {
    dao::Database& db = globales::Base();
    const QString id = QString::number(globales::IdPagoActual);
    const QString fin = QString::number(globales::IdFinanciamientoPago);

    // Each project's invoices in this request against what the project has left.
    auto rs = db.OpenRecordset(
        QStringLiteral("SELECT SUM(MontoFactura) AS Suma,Nombre,PagofacturasDetalle.IdProyecto FROM PagoFacturasDetalle, "
                       "adqProyectos WHERE IdPagoFactura=") +
            id +
            QStringLiteral("  AND PagofacturasDetalle.IdProyecto=adqProyectos.IdProyecto GROUP BY Nombre, "
                           "PagofacturasDetalle.IdProyecto"),
        dao::dbOpenDynaset);
    for (; !rs->Eof(); rs->MoveNext()) {
        const QString proyecto = rs->Fields(QStringLiteral("IdProyecto")).Value().text();
        auto disp = db.OpenRecordset(QStringLiteral("SELECT MontoDisponible FROM adqProyectos WHERE IdProyecto=") + proyecto,
                                     dao::dbOpenSnapshot);
        if (disp->Eof()) {
            ui::Sistema().Beep();
            return;
        }
        const vb::Variant suma = rs->Fields(QStringLiteral("Suma")).Value();
        const vb::Variant disponible = disp->Fields(QStringLiteral("Montodisponible")).Value();
        if (MonedaDe(suma) > MonedaDe(disponible)) {
            ui::Sistema().MsgBox(
                QStringLiteral("Se ha detectado que el total de las facturas por pagar (") + Moneda(suma) +
                    QStringLiteral(") para '") + rs->Fields(QStringLiteral("Nombre")).Value().text() +
                    QStringLiteral("' es mayor que la cantidad de recursos disponibles para este proyecto (") +
                    Moneda(disponible) +
                    QStringLiteral("), por lo que no se puede realizar esta operación.") + crlf + crlf +
                    QStringLiteral("Será necesario que verifique sus facturas y elimine aquellas que excedan el Monto "
                                   "Disponible del proyecto"),
                ui::vbCritical, QStringLiteral("Imposible realizar el pago"));
            cmdCargarPago->setEnabled(false);
            return;
        }
    }

    // The date of payment as typed, at midnight and with the present time.
    const vb::Fecha fecha = vb::CDate(vb::Variant(txtFechaPago->text()));
    const vb::Fecha ahora = vb::Fecha::Now();
    const QString fechaSola = Fecha(fecha, QStringLiteral("yyyy/mm/dd hh:nn"));

    // An empty request has no first row: the action ends here with nothing written.
    rs->MoveFirst();
    for (; !rs->Eof(); rs->MoveNext()) {
        db.Execute(QStringLiteral("UPDATE adqProyectos SET MontoDisponible=(Montodisponible-") +
                       MonedaDe(rs->Fields(QStringLiteral("Suma")).Value()).toSql() +
                       QStringLiteral("),UltimoMovimiento=#") + fechaSola + QStringLiteral("# WHERE IdProyecto=") +
                       rs->Fields(QStringLiteral("IdProyecto")).Value().text(),
                   dao::dbFailOnError);
    }

    globales::ObservacionesPago = ObservacionesSql(txtObservaciones->toPlainText());
    db.Execute(QStringLiteral("UPDATE PagoFacturasGral SET Estado='P',Observaciones=") + globales::ObservacionesPago +
                   QStringLiteral(",FechaMod=#") + Fecha(vb::Fecha::Today(), QStringLiteral("yyyy/mm/dd hh:nn")) +
                   QStringLiteral("#,FechaPago=#") + Fecha(fecha, QStringLiteral("yyyy/mm/dd")) + u' ' +
                   Fecha(ahora, QStringLiteral("hh:mm:ss")) + QStringLiteral("#,IdCapMod='") + Analista() +
                   QStringLiteral("' WHERE IdPagoFactura=") + id,
               dao::dbFailOnError);

    QString resumen = vb::String(67, u'=') + crlf + encabezadoPago + crlf + vb::String(96, u'-') + crlf;
    auto proyectos = db.OpenRecordset(
        QStringLiteral("SELECT DISTINCT Nombre,TotalAsignado,MontoDisponible,adqProyectos.IdEscuela,(SELECT SUM(MontoFactura) "
                       "FROM PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=") +
            id +
            QStringLiteral(") AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)) AS TotalFacturas FROM "
                           "adqProyectos, PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=") +
            id + QStringLiteral(") AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)"),
        dao::dbOpenSnapshot);
    // The field's day with the present time, to the minute.
    const QString fechaConHora =
        Fecha(vb::Fecha(fecha.date(), ahora.time()), QStringLiteral("yyyy/mm/dd hh:mm"));
    const QString operacion = QStringLiteral("-CARG ") +
                              vb::Format(vb::Variant::Long(static_cast<qint32>(globales::IdPagoActual)), QStringLiteral("0000"));
    for (; !proyectos->Eof(); proyectos->MoveNext()) {
        const vb::Currency facturas = MonedaDe(proyectos->Fields(QStringLiteral("TotalFacturas")).Value());
        db.Execute(QStringLiteral("INSERT INTO  adqSaldoProyectos VALUES (") +
                       proyectos->Fields(QStringLiteral("IdEscuela")).Value().text() + u',' + fin + QStringLiteral(",#") +
                       fechaConHora + QStringLiteral("#,") + (-facturas).toSql() + QStringLiteral(",0,'") + operacion +
                       QStringLiteral("','") + Analista() + QStringLiteral("')"),
                   dao::dbFailOnError);
        // Columns of 40, 17 and 17 characters, filled with dashes; a longer amount loses its left end.
        resumen += vb::Left(proyectos->Fields(QStringLiteral("Nombre")).Value().text() + vb::String(47, u'-'), 40) +
                   vb::Right(vb::String(13, u'-') + Moneda(proyectos->Fields(QStringLiteral("TotalAsignado")).Value()), 17) +
                   vb::Right(vb::String(14, u'-') + Moneda(proyectos->Fields(QStringLiteral("MontoDisponible")).Value()), 17) +
                   crlf;
    }
    resumen += vb::String(67, u'=');
    ui::Sistema().MsgBox(introResumen + crlf + resumen, ui::vbInformation, QStringLiteral("El pago se realizó con éxito"));

    const vb::Currency monto = MontoDeTexto(lblMonto->text());
    db.Execute(QStringLiteral("INSERT INTO  adqSaldoFinanciamientos VALUES (") + fin + QStringLiteral(",#") + fechaSola +
                   QStringLiteral("#,") + (-monto).toSql() + QStringLiteral(",0,'-SALDpag','") + Analista() +
                   QStringLiteral("')"),
               dao::dbFailOnError);
    db.Execute(QStringLiteral("UPDATE adqFinanciamiento SET MontoAsignadoDisponible=(MontoAsignadoDisponible-") +
                   monto.toSql() + QStringLiteral("), UltimoMovimiento=#") + fechaSola +
                   QStringLiteral("# WHERE IdFinanciamiento=") + fin,
               dao::dbFailOnError);
    proyectos.reset();
    rs.reset();
    close();
}

void pagoFacturasSaldar::cmdDeshacerPago_Click() {
    if (ui::Sistema().MsgBox(
            QStringLiteral("La opción para deshacer el pago afectará los movimientos registrados") + crlf +
                QStringLiteral("y por lo tanto el dinero disponible para cada proyecto que esté relacionado...") + crlf +
                crlf + QStringLiteral("¿Está seguro en deshacer el pago? "),
            ui::vbQuestion + ui::vbYesNo, QStringLiteral("Confirmación para deshacer el pago")) == ui::vbNo) {
        ui::Sistema().Beep();
        return;
    }
    dao::Database& db = globales::Base();
    const QString id = QString::number(globales::IdPagoActual);
    const QString fin = QString::number(globales::IdFinanciamientoPago);
    const vb::Fecha ahora = vb::Fecha::Now();

    globales::ObservacionesPago = ObservacionesSql(txtObservaciones->toPlainText());
    db.Execute(QStringLiteral("UPDATE PagoFacturasGral SET Estado='S',Observaciones=") + globales::ObservacionesPago +
                   QStringLiteral(",FechaMod=#") + Fecha(ahora, QStringLiteral("yyyy/mm/dd")) + u' ' +
                   Fecha(ahora, QStringLiteral("hh:mm:ss")) + QStringLiteral("#,FechaPago=NULL,IdCapMod='") + Analista() +
                   QStringLiteral("' WHERE IdPagoFactura=") + id,
               dao::dbFailOnError);

    const QString fechaSola = Fecha(vb::CDate(vb::Variant(txtFechaPago->text())), QStringLiteral("yyyy/mm/dd hh:nn"));
    auto sumas = db.OpenRecordset(QStringLiteral("SELECT SUM(MontoFactura) AS Suma,IdProyecto FROM PagoFacturasDetalle "
                                                 "WHERE IdPagoFactura=") +
                                      id + QStringLiteral(" GROUP BY IdProyecto"),
                                  dao::dbOpenSnapshot);
    for (; !sumas->Eof(); sumas->MoveNext()) {
        db.Execute(QStringLiteral("UPDATE adqProyectos SET MontoDisponible=(Montodisponible+") +
                       MonedaDe(sumas->Fields(QStringLiteral("Suma")).Value()).toSql() +
                       QStringLiteral("),UltimoMovimiento=#") + fechaSola + QStringLiteral("# WHERE IdProyecto=") +
                       sumas->Fields(QStringLiteral("IdProyecto")).Value().text(),
                   dao::dbFailOnError);
    }
    sumas.reset();

    const QString regla = vb::String(74, u'-');
    QString resumen = regla + crlf + encabezadoDeshacer + crlf + regla + crlf;
    auto proyectos = db.OpenRecordset(
        QStringLiteral("SELECT DISTINCT Nombre,TotalAsignado,MontoDisponible,IdEscuela,(SELECT SUM(MontoFactura) FROM "
                       "PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=") +
            id +
            QStringLiteral(") AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)) AS TotalFacturas FROM "
                           "adqProyectos, PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=") +
            id + QStringLiteral(") AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)"),
        dao::dbOpenSnapshot);
    for (; !proyectos->Eof(); proyectos->MoveNext()) {
        db.Execute(QStringLiteral("INSERT INTO  adqSaldoProyectos VALUES (") +
                       proyectos->Fields(QStringLiteral("IdEscuela")).Value().text() + u',' + fin + QStringLiteral(",#") +
                       fechaSola + QStringLiteral("#,") +
                       MonedaDe(proyectos->Fields(QStringLiteral("TotalFacturas")).Value()).toSql() +
                       QStringLiteral(",0,'+DESHACpag','") + Analista() + QStringLiteral("')"),
                   dao::dbFailOnError);
        resumen += proyectos->Fields(QStringLiteral("Nombre")).Value().text() + u'\t' +
                   Moneda(proyectos->Fields(QStringLiteral("TotalAsignado")).Value()) + u'\t' +
                   Moneda(proyectos->Fields(QStringLiteral("MontoDisponible")).Value()) + crlf;
    }
    resumen += regla;
    ui::Sistema().MsgBox(introResumen + crlf + resumen, ui::vbInformation, QStringLiteral("El pago se deshizo con éxito"));

    const vb::Currency monto = MontoDeTexto(lblMonto->text());
    db.Execute(QStringLiteral("INSERT INTO  adqSaldoFinanciamientos VALUES (") + fin + QStringLiteral(",#") + fechaSola +
                   QStringLiteral("#,") + monto.toSql() + QStringLiteral(",0,'+DESHpag','") + Analista() +
                   QStringLiteral("')"),
               dao::dbFailOnError);
    db.Execute(QStringLiteral("UPDATE adqFinanciamiento SET MontoAsignadoDisponible=(MontoAsignadoDisponible+") +
                   monto.toSql() + QStringLiteral("), UltimoMovimiento=#") + fechaSola +
                   QStringLiteral("# WHERE IdFinanciamiento=") + fin,
               dao::dbFailOnError);
    proyectos.reset();
    close();
}

void pagoFacturasSaldar::cmdRegresar_Click() { close(); }
