#include "finance/pagoFacturasGral.h"

#include "catalog/CatMod.h"
#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/CampoEnlazado.h"
#include "core/controles/ComboBox.h"
#include "core/controles/SoloDigitos.h"
#include "core/dao/Dao.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("pagoFacturasGral");
const QString mascaraFecha = QStringLiteral("dd/mmm/yyyy");

// The number at the head of a combo row ("003 - Federal" and "3 Federal" are 3).
qint32 IdDe(const QString& item) { return static_cast<qint32>(vb::Val(vb::Mid(item, 1, 4))); }
// A number as a statement writes it.
QString Numero(const QString& texto) { return QString::number(static_cast<qint64>(vb::Val(texto))); }
// A typed date on its way to a statement: "#yyyy/mm/dd#"; the language's type mismatch when it is no date.
QString FechaSql(const QString& texto) {
    return u'#' + vb::Format(vb::Variant(vb::CDate(vb::Variant(texto))), QStringLiteral("yyyy/mm/dd")) + u'#';
}
QString FechaONull(const QString& texto) { return texto.isEmpty() ? QStringLiteral("NULL") : FechaSql(texto); }
QString Analista() { return vb::Left(globales::LoginAnalista, 10); }
QString Texto(const vb::Variant& v) { return v.isNull() ? QString() : v.text(); }

}  // namespace

pagoFacturasGral::pagoFacturasGral(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("pagoFacturasGral"));
    setWindowTitle(QStringLiteral("Captura de pagos de facturas"));

    txtClave = new QLineEdit(this);
    txtFechaSol = new QLineEdit(this);
    txtFechaPago = new QLineEdit(this);
    cboFinanciamiento = new controles::ComboBox(this);
    cboProveedores = new controles::ComboBox(this);
    txtIdProveedor = new QLineEdit(this);
    cmdBrowseProveedores = new QPushButton(QStringLiteral("..."), this);
    cmdBrowseFinanciamientos = new QPushButton(QStringLiteral("..."), this);
    txtConcepto = new QLineEdit(this);
    txtObservaciones = new QLineEdit(this);
    lblMonto = new QLabel(QStringLiteral("0.00"), this);
    cmdAceptar = new QPushButton(QStringLiteral("&Aceptar"), this);
    cmdCancelar = new QPushButton(QStringLiteral("&Cancelar"), this);
    const std::pair<QWidget*, const char*> nombres[] = {
        {txtClave, "txtClave"}, {txtFechaSol, "txtFechaSol"}, {txtFechaPago, "txtFechaPago"},
        {cboFinanciamiento, "cboFinanciamiento"}, {cboProveedores, "cboProveedores"}, {txtIdProveedor, "txtIdProveedor"},
        {cmdBrowseProveedores, "cmdBrowseProveedores"}, {cmdBrowseFinanciamientos, "cmdBrowseFinanciamientos"},
        {txtConcepto, "txtConcepto"}, {txtObservaciones, "txtObservaciones"}, {lblMonto, "lblMonto"},
        {cmdAceptar, "cmdAceptar"}, {cmdCancelar, "cmdCancelar"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));
    txtClave->setReadOnly(true);
    txtClave->setMaximumWidth(80);
    txtFechaSol->setMaximumWidth(130);
    txtFechaPago->setMaximumWidth(130);
    txtIdProveedor->setMaximumWidth(80);
    cmdBrowseProveedores->setToolTip(QStringLiteral("Catálogo de proveedores"));
    cmdBrowseFinanciamientos->hide();
    controles::SoloDigitos::Instala(txtIdProveedor);
    controles::LimitaAlCampo(*txtConcepto, QStringLiteral("PagoFacturasGral"), QStringLiteral("Concepto"));

    auto* g = new QGridLayout;
    auto etiqueta = [this](const char* texto) { return new QLabel(QString::fromUtf8(texto), this); };
    g->addWidget(etiqueta("Clave:"), 0, 0);
    g->addWidget(txtClave, 0, 1);
    g->addWidget(etiqueta("Fecha de solicitud:"), 1, 0);
    g->addWidget(txtFechaSol, 1, 1);
    g->addWidget(etiqueta("Fecha de pago:"), 1, 2, Qt::AlignRight);
    g->addWidget(txtFechaPago, 1, 3);
    g->addWidget(etiqueta("Fuente de financiamiento:"), 2, 0);
    auto* fuente = new QHBoxLayout;
    fuente->addWidget(cboFinanciamiento, 1);
    fuente->addWidget(cmdBrowseFinanciamientos);
    g->addLayout(fuente, 2, 1, 1, 3);
    g->addWidget(etiqueta("Proveedor:"), 3, 0);
    auto* proveedor = new QHBoxLayout;
    proveedor->addWidget(txtIdProveedor);
    proveedor->addWidget(cboProveedores, 1);
    proveedor->addWidget(cmdBrowseProveedores);
    g->addLayout(proveedor, 3, 1, 1, 3);
    g->addWidget(etiqueta("Concepto:"), 4, 0);
    g->addWidget(txtConcepto, 4, 1, 1, 3);
    g->addWidget(etiqueta("Observaciones:"), 5, 0);
    g->addWidget(txtObservaciones, 5, 1, 1, 3);
    g->addWidget(etiqueta("Monto:"), 6, 0);
    g->addWidget(lblMonto, 6, 1);
    g->setColumnStretch(1, 1);
    g->setColumnStretch(3, 1);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(cmdAceptar);
    botones->addWidget(cmdCancelar);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(g);
    todo->addStretch(1);
    todo->addLayout(botones);
    resize(640, 300);
    controles::OrdenDeTabulacion({txtFechaSol, txtFechaPago, cboFinanciamiento, txtIdProveedor, cboProveedores,
                                  cmdBrowseProveedores, txtConcepto, txtObservaciones, cmdAceptar, cmdCancelar});

    ui::Conecta(txtIdProveedor, &QLineEdit::textChanged, this, origen, &pagoFacturasGral::txtIdProveedor_Change);
    ui::Conecta(cboProveedores, &controles::ComboBox::Click, this, origen, &pagoFacturasGral::cboProveedores_Click);
    ui::Conecta(cmdBrowseProveedores, &QPushButton::clicked, this, origen, &pagoFacturasGral::cmdBrowseProveedores_Click);
    ui::Conecta(cmdAceptar, &QPushButton::clicked, this, origen, &pagoFacturasGral::cmdAceptar_Click);
    ui::Conecta(cmdCancelar, &QPushButton::clicked, this, origen, &pagoFacturasGral::cmdCancelar_Click);
}

pagoFacturasGral::~pagoFacturasGral() = default;

void pagoFacturasGral::Form_Load() {
    fechaSol_.setTextBox(txtFechaSol);
    fechaPago_.setTextBox(txtFechaPago);
    Datos::LlenaCombo(*cboProveedores, QStringLiteral("[No], Empresa"), QStringLiteral("Proveedores"), QStringLiteral("[No]"));
    Datos::LlenaCombo(*cboFinanciamiento, QStringLiteral("[IdFinanciamiento], Nombre"), QStringLiteral("adqFinanciamiento"), QStringLiteral("Nombre"));

    if (globales::PagoModifica)
        CargaPago();
    else
        Numera();
    setWindowTitle(QStringLiteral("Captura de nuevo pago de facturas"));
}

void pagoFacturasGral::CargaPago() {
    auto rs = globales::Base().OpenRecordset(QStringLiteral("SELECT * FROM PagoFacturasGral WHERE IdPagoFactura=") +
                                             QString::number(globales::IdPagoActual) + QStringLiteral(" ORDER BY 1 DESC "));
    if (!rs->Eof()) {
        auto campo = [&rs](const char* nombre) { return rs->Fields(QString::fromLatin1(nombre)).Value(); };
        txtClave->setText(vb::Format(campo("IdPagoFactura"), QStringLiteral("000")));
        txtFechaSol->setText(vb::Format(campo("FechaSolicitud"), mascaraFecha));
        const vb::Variant fin = campo("IdFinanciamiento");
        const qint32 idFin = fin.isNull() ? 0 : vb::CLng(fin);
        for (int i = 0; i < cboFinanciamiento->ListCount(); ++i) {
            if (IdDe(cboFinanciamiento->List(i)) == idFin) {
                cboFinanciamiento->setListIndex(i);
                break;
            }
        }
        txtIdProveedor->setText(Texto(campo("IdProveedor")));
        txtConcepto->setText(Texto(campo("Concepto")));
        txtObservaciones->setText(Texto(campo("Observaciones")));
        const vb::Variant monto = campo("Monto");
        lblMonto->setText(monto.isNull() ? QStringLiteral("0.00") : vb::Format(monto, QStringLiteral("$###,###,##0.00")));
        const vb::Variant pago = campo("FechaPago");
        if (!pago.isNull()) txtFechaPago->setText(vb::Format(pago, mascaraFecha));
    }
    rs->Close();
}

void pagoFacturasGral::Numera() {
    // The number is read here and written at the save: two analysts capturing at once get one number, and
    // the second save fails on the key.
    auto rs = globales::Base().OpenRecordset(
        QStringLiteral("SELECT TOP 10 IdPagoFactura FROM PagoFacturasGral ORDER BY 1 DESC "));
    globales::IdPagoActual = rs->Eof() ? 1 : vb::CLng(rs->Fields(0).Value()) + 1;
    rs->Close();
    txtClave->setText(vb::Format(vb::Variant(static_cast<qint32>(globales::IdPagoActual)), QStringLiteral("000")));
    txtFechaSol->setText(vb::Format(vb::Variant(vb::Fecha::Today()), mascaraFecha));
}

void pagoFacturasGral::txtIdProveedor_Change() {
    if (sincronizando_) return;
    const qint32 id = static_cast<qint32>(vb::Val(txtIdProveedor->text()));
    for (int i = 0; i < cboProveedores->ListCount(); ++i) {
        if (IdDe(cboProveedores->List(i)) == id) {
            sincronizando_ = true;
            cboProveedores->setListIndex(i);
            sincronizando_ = false;
            return;
        }
    }
}

void pagoFacturasGral::cboProveedores_Click() {
    if (sincronizando_ || cboProveedores->ListIndex() < 0) return;
    sincronizando_ = true;
    txtIdProveedor->setText(QString::number(IdDe(cboProveedores->Text())));
    sincronizando_ = false;
}

void pagoFacturasGral::cmdBrowseProveedores_Click() {
    globales::NoCuentaSeleccionada.clear();
    CatMod::CatalogoParaComboEligiendo(*cboProveedores, QStringLiteral("proveedores"),
                                      QStringLiteral("SELECT [No] & ' ' & Empresa AS Resultado FROM Proveedores"));
    if (!globales::NoCuentaSeleccionada.isEmpty()) txtIdProveedor->setText(globales::NoCuentaSeleccionada);
}

void pagoFacturasGral::cmdAceptar_Click() {
    const QString fuente = cboFinanciamiento->Text();
    const QString fin = QString::number(IdDe(fuente));
    const QString nombreFuente = vb::Trim(vb::Mid(fuente, 6));
    const QString prov = Numero(txtIdProveedor->text());
    dao::Database& base = globales::Base();
    if (globales::PagoModifica) {
        base.Execute(QStringLiteral("UPDATE PagoFacturasGral SET IdFinanciamiento=") + fin + QStringLiteral(", FuenteFinanciamiento='") +
                         nombreFuente + QStringLiteral("',IdProveedor=") + prov + QStringLiteral(",FechaSolicitud=") +
                         FechaONull(txtFechaSol->text()) + QStringLiteral(",FechaMod=#") +
                         vb::Format(vb::Variant(vb::Fecha::Today()), QStringLiteral("yyyy/mm/dd")) +
                         QStringLiteral("#,FechaPago=") + FechaONull(txtFechaPago->text()) + QStringLiteral(",Concepto='") +
                         txtConcepto->text() + QStringLiteral("',Observaciones='") + txtObservaciones->text() +
                         QStringLiteral("',IdCapMod='") + Analista() + QStringLiteral("' WHERE IdPagoFactura=") +
                         QString::number(globales::IdPagoActual),
                     dao::dbFailOnError);
        ui::Sistema().MsgBox(QStringLiteral("Registro actualizado con éxito..."));
    } else {
        base.Execute(QStringLiteral("INSERT INTO PagoFacturasGral (IdPagoFactura,FuenteFinanciamiento,IdProveedor,FechaSolicitud,"
                                    "FechaPago,FechaMod,Concepto,Observaciones,Monto,IdCapturista,IdCapMod,Estado, "
                                    "IdFinanciamiento) VALUES (") +
                         Numero(txtClave->text()) + QStringLiteral(",'") + nombreFuente + QStringLiteral("',") + prov +
                         QStringLiteral(",") + FechaSql(txtFechaSol->text()) + QStringLiteral(",NULL,NULL,'") +
                         txtConcepto->text() + QStringLiteral("','") + txtObservaciones->text() + QStringLiteral("',NULL,'") +
                         Analista() + QStringLiteral("',NULL,'S',") + fin + QStringLiteral(")"),
                     dao::dbFailOnError);
        ui::Sistema().MsgBox(QStringLiteral("Registro guardado con éxito..."));
        globales::IdPagoActual = static_cast<long>(vb::Val(txtClave->text()));
    }
    globales::PagoGrabado = true;
    close();
}

void pagoFacturasGral::cmdCancelar_Click() {
    globales::PagoGrabado = false;
    close();
}
