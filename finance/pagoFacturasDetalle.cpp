#include "finance/pagoFacturasDetalle.h"

#include "core/ActualizaBDsAdq.h"
#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/CampoEnlazado.h"
#include "core/controles/Colores.h"
#include "core/controles/ComboBox.h"
#include "core/controles/FechaTextBox.h"
#include "core/controles/ListView.h"
#include "core/dao/Dao.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("pagoFacturasDetalle");
const QString crlf = QStringLiteral("\r\n");
const QString tituloAviso = QStringLiteral("Desgloce de Facturas");
constexpr long ColorRojoOscuro = 192;
constexpr long ColorAzul = 16711680;

// The number at the head of a combo row ("003 - Lab. de física" is 3).
qint32 IdDe(const QString& item) { return static_cast<qint32>(vb::Val(vb::Mid(item, 1, 4))); }
QString Hoy() { return vb::Format(vb::Variant(vb::Fecha::Today()), QStringLiteral("yyyy/mm/dd")); }
QString Analista() { return vb::Left(globales::LoginAnalista, 10); }
// An amount of the list ("      1,234.50") as a currency; 0 when it is none.
vb::Currency MontoDe(const QString& texto) {
    const QString t = vb::Trim(texto);
    return vb::IsNumeric(vb::Variant(t)) ? vb::CCur(vb::Variant(t)) : vb::Currency();
}

}  // namespace

pagoFacturasDetalle::pagoFacturasDetalle(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("pagoFacturasDetalle"));
    setWindowTitle(QStringLiteral("Desgloce de pago de facturas"));

    ListView1 = controles::ListaEnMarco(this, frameLista, QStringLiteral("frameLista"));
    lblMontoFacturas = new QLabel(frameLista);
    lblEstado = new QLabel(QStringLiteral("Pago saldado, imposible hacer cambios en facturas... "), frameLista);
    cmdNuevaFactura = new QPushButton(QStringLiteral("&Nueva"), frameLista);
    cmdModificarFactura = new QPushButton(QStringLiteral("&Modificar"), frameLista);
    cmdBorrarFactura = new QPushButton(QStringLiteral("&Borrar"), frameLista);
    cmdRegresar = new QPushButton(QStringLiteral("&Regresar"), frameLista);
    frameCaptura = new QGroupBox(QStringLiteral("Datos de la factura por pagar:"), this);
    cboProyectos = new controles::ComboBox(frameCaptura);
    txtNumFactura = new QLineEdit(frameCaptura);
    txtMontoFactura = new QLineEdit(frameCaptura);
    txtIDS = new QLineEdit(frameCaptura);
    cmdValidarIDS = new QPushButton(QStringLiteral("Validar..."), frameCaptura);
    lblNotaIDS = new QLabel(QStringLiteral("NOTA: Si se conoce el numero de la Solicitud relacionada con el pago de la factura, es "
                                           "importante anotar este dato..."),
                            frameCaptura);
    lblMessage = new QLabel(frameCaptura);
    cmdGrabarFactura = new QPushButton(QStringLiteral("&Grabar"), frameCaptura);
    cmdCancelarFactura = new QPushButton(QStringLiteral("&Cancelar"), frameCaptura);
    const std::pair<QWidget*, const char*> nombres[] = {
        {lblMontoFacturas, "lblMontoFacturas"}, {lblEstado, "lblEstado"}, {cmdNuevaFactura, "cmdNuevaFactura"},
        {cmdModificarFactura, "cmdModificarFactura"}, {cmdBorrarFactura, "cmdBorrarFactura"}, {cmdRegresar, "cmdRegresar"},
        {frameCaptura, "frameCaptura"}, {cboProyectos, "cboProyectos"}, {txtNumFactura, "txtNumFactura"},
        {txtMontoFactura, "txtMontoFactura"}, {txtIDS, "txtIDS"}, {cmdValidarIDS, "cmdValidarIDS"},
        {lblNotaIDS, "lblNotaIDS"}, {lblMessage, "lblMessage"}, {cmdGrabarFactura, "cmdGrabarFactura"},
        {cmdCancelarFactura, "cmdCancelarFactura"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));
    lblEstado->setStyleSheet(QStringLiteral("color: rgb(192, 0, 0); font-weight: bold"));
    lblEstado->hide();
    lblNotaIDS->setWordWrap(true);
    lblNotaIDS->hide();
    lblMessage->setWordWrap(true);
    cmdValidarIDS->setEnabled(false);
    lblMontoFacturas->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont negrita = lblMontoFacturas->font();
    negrita.setBold(true);
    lblMontoFacturas->setFont(negrita);
    controles::LimitaAlCampo(*txtNumFactura, QStringLiteral("PagoFacturasDetalle"), QStringLiteral("NoFactura"));

    auto* lista = static_cast<QVBoxLayout*>(frameLista->layout());
    auto* pie = new QHBoxLayout;
    pie->addWidget(lblEstado);
    pie->addStretch(1);
    pie->addWidget(lblMontoFacturas);
    lista->addLayout(pie);
    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {cmdNuevaFactura, cmdModificarFactura, cmdBorrarFactura}) botones->addWidget(b);
    botones->addStretch(1);
    botones->addWidget(cmdRegresar);
    lista->addLayout(botones);

    auto* g = new QGridLayout(frameCaptura);
    auto etiqueta = [this](const char* texto) { return new QLabel(QString::fromUtf8(texto), frameCaptura); };
    g->addWidget(etiqueta("Proyecto:"), 0, 0);
    g->addWidget(cboProyectos, 0, 1, 1, 3);
    g->addWidget(etiqueta("Núm. de factura:"), 1, 0);
    g->addWidget(txtNumFactura, 1, 1);
    g->addWidget(etiqueta("Monto:"), 1, 2, Qt::AlignRight);
    g->addWidget(txtMontoFactura, 1, 3);
    g->addWidget(etiqueta("Núm. de solicitud:"), 2, 0);
    g->addWidget(txtIDS, 2, 1);
    g->addWidget(cmdValidarIDS, 2, 2);
    g->addWidget(lblNotaIDS, 3, 0, 1, 4);
    g->addWidget(lblMessage, 4, 0, 1, 4);
    auto* grabar = new QHBoxLayout;
    grabar->addStretch(1);
    grabar->addWidget(cmdGrabarFactura);
    grabar->addWidget(cmdCancelarFactura);
    g->addLayout(grabar, 5, 0, 1, 4);
    g->setRowStretch(6, 1);
    g->setColumnStretch(1, 1);
    g->setColumnStretch(3, 1);
    frameCaptura->hide();

    auto* todo = new QVBoxLayout(this);
    todo->addWidget(frameLista, 1);
    todo->addWidget(frameCaptura, 1);
    resize(700, 420);
    controles::OrdenDeTabulacion({cboProyectos, txtNumFactura, txtMontoFactura, txtIDS, cmdValidarIDS, cmdGrabarFactura,
                                  cmdCancelarFactura});

    ui::Conecta(cmdNuevaFactura, &QPushButton::clicked, this, origen, &pagoFacturasDetalle::cmdNuevaFactura_Click);
    ui::Conecta(cmdModificarFactura, &QPushButton::clicked, this, origen, &pagoFacturasDetalle::cmdModificarFactura_Click);
    ui::Conecta(cmdBorrarFactura, &QPushButton::clicked, this, origen, &pagoFacturasDetalle::cmdBorrarFactura_Click);
    ui::Conecta(cmdRegresar, &QPushButton::clicked, this, origen, &pagoFacturasDetalle::cmdRegresar_Click);
    ui::Conecta(cmdValidarIDS, &QPushButton::clicked, this, origen, &pagoFacturasDetalle::cmdValidarIDS_Click);
    ui::Conecta(cmdGrabarFactura, &QPushButton::clicked, this, origen, &pagoFacturasDetalle::cmdGrabarFactura_Click);
    ui::Conecta(cmdCancelarFactura, &QPushButton::clicked, this, origen, &pagoFacturasDetalle::cmdCancelarFactura_Click);
    ui::Conecta(txtIDS, &QLineEdit::textChanged, this, origen, &pagoFacturasDetalle::txtIDS_Change);
    ui::Conecta(txtMontoFactura, &QLineEdit::textChanged, this, origen, &pagoFacturasDetalle::txtMontoFactura_Change);
    ui::Conecta(txtNumFactura, &QLineEdit::textChanged, this, origen, &pagoFacturasDetalle::txtNumFactura_Change);
    ui::Conecta(ListView1, &controles::ListView::ColumnClick, this, origen, &pagoFacturasDetalle::ListView1_ColumnClick);
    connect(ListView1, &controles::ListView::ItemClick, this, [this](controles::ListItem* item) {
        ui::Protegido(origen, [this, item] { ListView1_ItemClick(item); });
    });
    txtMontoFactura->installEventFilter(this);
}

pagoFacturasDetalle::~pagoFacturasDetalle() { Descarga(); }

void pagoFacturasDetalle::showEvent(QShowEvent* e) {
    QDialog::showEvent(e);
    ui::Protegido(origen, [this] { Form_Activate(); });
}

void pagoFacturasDetalle::closeEvent(QCloseEvent* e) {
    Descarga();
    e->accept();
    QDialog::done(QDialog::Rejected);
}

void pagoFacturasDetalle::reject() { close(); }

void pagoFacturasDetalle::Descarga() {
    if (descargado_) return;
    descargado_ = true;
    ui::Protegido(origen, [this] { Form_Unload(); });
}

bool pagoFacturasDetalle::eventFilter(QObject* objeto, QEvent* evento) {
    // The amount takes digits, the two separators and Backspace; keys that type nothing pass.
    if (objeto == txtMontoFactura && evento->type() == QEvent::KeyPress) {
        const int tecla = controles::CodigoTecla(*static_cast<QKeyEvent*>(evento));
        const bool escribe = tecla >= 32;
        if (escribe && !(tecla >= '0' && tecla <= '9') && tecla != ',' && tecla != '.') return true;
    }
    return QDialog::eventFilter(objeto, evento);
}

QString pagoFacturasDetalle::ClavePago() const {
    return vb::Format(vb::Variant(static_cast<qint32>(globales::IdPagoActual)), QStringLiteral("000"));
}

void pagoFacturasDetalle::Form_Load() {
    // A failure here only ends the loading: the form still opens with what it got.
    try {
        globales::ConsultaDatos& c = globales::Consulta;
        c.Campos = QStringLiteral("adqProyectos.IdProyecto, Nombre");
        c.Tabla = QStringLiteral("adqProyectos WHERE (adqProyectos.idFinanciamiento=") +
                  QString::number(static_cast<qint64>(vb::Val(globales::FuentePago))) + u')';
        c.Clave.clear();
        c.Valor.clear();
        c.Orden = QStringLiteral("adqProyectos.IdProyecto");
        Datos::LlenaCombo(c, *cboProyectos, QStringLiteral("idEscuela"));

        ListView1->View(controles::ListView::lvwReport);
        ListView1->ColumnHeaders().Clear();
        ListView1->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES | controles::ListView::LVS_EX_FULLROWSELECT, -1);
        const std::pair<const char*, int> columnas[] = {
            {"IdFacturaItem", 1300}, {"Proyecto", 3600}, {"Núm.Factura", 1800}, {"Monto", 1600}};
        for (const auto& [texto, ancho] : columnas) ListView1->ColumnHeaders().Add(QString::fromUtf8(texto), ancho);
        RefrescaListView();

        setWindowTitle(QStringLiteral("Desgloce de facturas contenidas en el pago [") + ClavePago() + u']');
        captura_[0].setTextBox(txtNumFactura);
        captura_[1].setTextBox(txtMontoFactura);
    } catch (const vb::Error&) {
    }
}

void pagoFacturasDetalle::Form_Activate() {
    if (cboProyectos->ListCount() == 0) {
        ui::Sistema().MsgBox(QStringLiteral("No se encontró ningún proyecto relacionado ") + crlf +
                                 QStringLiteral("con la fuente de financiamiento '") + globales::FuentePago + u'\'' + crlf +
                                 QStringLiteral("por lo que no podrá cargar ninguna factura para cobro."),
                             ui::vbExclamation, tituloAviso);
        for (QPushButton* b : {cmdNuevaFactura, cmdModificarFactura, cmdBorrarFactura}) b->setEnabled(false);
    } else if (globales::PagoSaldado && !globales::PagoDesdeReporte) {
        ui::Sistema().MsgBox(QStringLiteral("Esta solicitud de pago ya ha sido saldada") + crlf +
                                 QStringLiteral("por lo que no se podrán hacer modificaciones.") + crlf + crlf +
                                 QStringLiteral("En caso de que requiera efectuar cambios en las facturas") + crlf +
                                 QStringLiteral("primero tendrá que deshacer el pago en la opción de 'Saldar pago' "),
                             ui::vbExclamation, tituloAviso);
        for (QPushButton* b : {cmdNuevaFactura, cmdModificarFactura, cmdBorrarFactura}) b->setEnabled(false);
        lblEstado->show();
    }
}

void pagoFacturasDetalle::Form_Unload() { ActualizarMontosdePagos(); }

long pagoFacturasDetalle::RefrescaListView() {
    ListView1->ListItems().Clear();
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("IdFacturaItem,adqProyectos.Nombre,NoFactura,MontoFactura");
    c.Tabla.clear();
    c.Orden.clear();
    c.Clave = QStringLiteral("([PagoFacturasDetalle] LEFT JOIN adqProyectos ON [PagoFacturasDetalle].IdProyecto= "
                             "adqProyectos.IdProyecto) WHERE [PagoFacturasDetalle].IdPagoFactura=") +
              QString::number(globales::IdPagoActual);
    Datos::LlenaListaCondicion(c, *ListView1);

    const int n = ListView1->ListItems().Count();
    frameLista->setTitle(QString::number(n) + QStringLiteral(" facturas"));
    if (globales::PagoSaldado) {
        for (QPushButton* b : {cmdNuevaFactura, cmdModificarFactura, cmdBorrarFactura}) b->setEnabled(false);
    } else {
        cmdNuevaFactura->setEnabled(true);
        cmdModificarFactura->setEnabled(false);
        cmdBorrarFactura->setEnabled(false);
    }
    total_ = vb::Currency();
    for (int i = 1; i <= n; ++i) total_ = total_ + MontoDe(ListView1->ListItems()(i).SubItems(3));
    lblMontoFacturas->setText(QStringLiteral("   Total en facturas:   ") +
                              vb::Format(vb::Variant(total_), QStringLiteral("$###,###,##0.00")) + QStringLiteral("     "));
    indice_ = 0;
    return n > 0 ? static_cast<long>(vb::Val(ListView1->ListItems()(1).Text())) : 0;
}

void pagoFacturasDetalle::ActualizarMontosdePagos() {
    globales::Base().Execute(QStringLiteral("UPDATE PagoFacturasGral SET Monto=") + total_.toSql() + QStringLiteral(", FechaMod=#") +
                                 Hoy() + QStringLiteral("#,IdCapMod='") + Analista() + QStringLiteral("' WHERE IdPagoFactura=") +
                                 QString::number(globales::IdPagoActual),
                             dao::dbFailOnError);
}

void pagoFacturasDetalle::ListView1_ItemClick(controles::ListItem* item) {
    const bool hay = item && ListView1->ListItems().Count() > 0;
    if (!hay) {
        cmdModificarFactura->setEnabled(false);
        cmdBorrarFactura->setEnabled(false);
        return;
    }
    indice_ = item->Index();
    if (!globales::PagoSaldado) {
        cmdModificarFactura->setEnabled(true);
        cmdBorrarFactura->setEnabled(true);
    }
}

void pagoFacturasDetalle::ListView1_ColumnClick(int indiceEncabezado) {
    controles::OrdenaPorColumna(*ListView1, indiceEncabezado);
}

void pagoFacturasDetalle::MuestraCaptura(bool captura) {
    frameCaptura->setVisible(captura);
    frameLista->setVisible(!captura);
}

QString pagoFacturasDetalle::FacturaSeleccionada() const {
    const controles::ListItem* item = ListView1->SelectedItem();
    if (!item && indice_ > 0) item = &ListView1->ListItems()(indice_);
    if (!item) throw vb::Error(91, QStringLiteral("Variable de tipo Object o la variable de bloque With no está establecida"));
    return QString::number(static_cast<qint64>(vb::Val(item->Text())));
}

void pagoFacturasDetalle::cmdNuevaFactura_Click() {
    setWindowTitle(QStringLiteral("Agregar factura para el pago ") + ClavePago());
    MuestraCaptura(true);
    txtNumFactura->clear();
    txtMontoFactura->setText(QStringLiteral("0.0"));
    cboProyectos->setFocus();
    globales::PagoModifica = false;
}

void pagoFacturasDetalle::cmdModificarFactura_Click() {
    const controles::ListItem* item = ListView1->SelectedItem();
    if (ListView1->ListItems().Count() == 0 || !item) return;
    setWindowTitle(QStringLiteral("Modificar factura para el pago ") + ClavePago());
    MuestraCaptura(true);
    // Projects are told by name: of two with one name the first is taken.
    for (int i = 0; i < cboProyectos->ListCount(); ++i) {
        if (vb::Trim(vb::Mid(cboProyectos->List(i), 6)) == item->SubItems(1)) {
            cboProyectos->setListIndex(i);
            break;
        }
    }
    txtNumFactura->setText(item->SubItems(2));
    // The list shows money with thousands separators, which a statement can't take.
    txtMontoFactura->setText(vb::Trim(item->SubItems(3)).remove(u','));
    globales::PagoModifica = true;
}

void pagoFacturasDetalle::cmdCancelarFactura_Click() {
    MuestraCaptura(false);
    setWindowTitle(QStringLiteral("Desgloce de facturas contenidas en el pago ") + ClavePago());
}

void pagoFacturasDetalle::cmdBorrarFactura_Click() {
    if (ListView1->ListItems().Count() == 0) return;
    globales::Base().Execute(QStringLiteral("DELETE FROM PAgoFacturasDetalle WHERE IdFacturaItem=") + FacturaSeleccionada(),
                             dao::dbFailOnError);
    RefrescaListView();
}

void pagoFacturasDetalle::cmdRegresar_Click() { close(); }

void pagoFacturasDetalle::PonMensaje(const QString& texto, long color) {
    lblMessage->setText(texto);
    QPalette p = lblMessage->palette();
    p.setColor(QPalette::WindowText, controles::ColorVB(color));
    lblMessage->setPalette(p);
}

void pagoFacturasDetalle::txtIDS_Change() {
    const bool numero = !txtIDS->text().isEmpty() && vb::Val(txtIDS->text()) > 0;
    // A number must be validated before the invoice can be saved.
    cmdValidarIDS->setEnabled(numero);
    lblNotaIDS->setVisible(numero);
    lblMessage->clear();
    cmdGrabarFactura->setEnabled(!numero);
}

void pagoFacturasDetalle::cmdValidarIDS_Click() {
    if (txtIDS->text().isEmpty() || vb::Val(txtIDS->text()) <= 0) {
        txtIDS->clear();
        PonMensaje(QStringLiteral("Corregir. No es un valor valido para el numero de una solicitud"), ColorRojoOscuro);
        cmdGrabarFactura->setEnabled(false);
        return;
    }
    // The request belongs to the project's school.
    auto rs = globales::Base().OpenRecordset(
        QStringLiteral("SELECT count(SG.noescuela) as Valor FROM [Solicitudes General] SG INNER JOIN [adqProyectos] Pr ON "
                       "Pr.idescuela=SG.noescuela WHERE SG.nosolicitud = ") +
        txtIDS->text() + QStringLiteral(" AND Pr.Idproyecto=") + QString::number(IdDe(cboProyectos->Text())));
    const vb::Variant cuenta = rs->Eof() ? vb::Variant(0) : rs->Fields(0).Value();
    rs->Close();
    if (cuenta.isNull() || vb::CLng(cuenta) < 1) {
        PonMensaje(QStringLiteral("Verificar. No se encontro con este valor alguna solicitud asociada a este proyecto."),
                   ColorRojoOscuro);
        cmdGrabarFactura->setEnabled(false);
    } else {
        PonMensaje(QStringLiteral("Continuar. Valor aceptado de numero de solicitud"), ColorAzul);
        cmdGrabarFactura->setEnabled(true);
    }
}

void pagoFacturasDetalle::txtMontoFactura_Change() {
    const QString monto = txtMontoFactura->text();
    cmdGrabarFactura->setEnabled(cboProyectos->ListIndex() >= 0 && !txtNumFactura->text().isEmpty() &&
                                 vb::IsNumeric(vb::Variant(monto)) && MontoDe(monto) != vb::Currency());
}

void pagoFacturasDetalle::txtNumFactura_Change() { txtMontoFactura_Change(); }

void pagoFacturasDetalle::cmdGrabarFactura_Click() {
    if (cboProyectos->ListIndex() >= 0) idEscuela_ = cboProyectos->ItemData(cboProyectos->ListIndex());
    const QString escuela = idEscuela_ == 0 ? QStringLiteral("NULL") : QString::number(idEscuela_);
    const qint64 numeroIds = static_cast<qint64>(vb::Val(txtIDS->text()));
    const QString ids = numeroIds == 0 ? QStringLiteral("NULL") : QString::number(numeroIds);
    const QString proy = QString::number(IdDe(cboProyectos->Text()));
    const QString hoy = Hoy();
    const bool conSolicitud = ActualizaBDsAdq::ExisteCampo(QStringLiteral("PagoFacturasDetalle"), QStringLiteral("IdSolicitud"));
    dao::Database& base = globales::Base();
    if (globales::PagoModifica) {
        QString sql = QStringLiteral("UPDATE PagoFacturasDetalle SET IdProyecto=") + proy + QStringLiteral(",NoFactura='") +
                      txtNumFactura->text() + QStringLiteral("',MontoFactura=") + txtMontoFactura->text() +
                      QStringLiteral(",FechaMod=#") + hoy + QStringLiteral("#,IdCapMod='") + Analista() + u'\'';
        if (conSolicitud) sql += QStringLiteral(",IdSolicitud=") + ids + QStringLiteral(",IdEscuela=") + escuela;
        sql += QStringLiteral(" WHERE IdFacturaItem=") + FacturaSeleccionada();
        base.Execute(sql, dao::dbFailOnError);
        ui::Sistema().MsgBox(QStringLiteral("Factura modificada con éxito"), ui::vbInformation, QStringLiteral("Modificación de facturas"));
    } else {
        QString sql = QStringLiteral("INSERT INTO PagoFacturasDetalle (IdPagoFactura,IdProyecto,NoFactura,MontoFactura,FechaCaptura,"
                                     "IdCapturista");
        sql += conSolicitud ? QStringLiteral(",IdSolicitud,IdEscuela) VALUES (") : QStringLiteral(") VALUES (");
        sql += QString::number(globales::IdPagoActual) + u',' + proy + QStringLiteral(",'") + txtNumFactura->text() +
               QStringLiteral("',") + txtMontoFactura->text() + QStringLiteral(",#") + hoy + QStringLiteral("#,'") + Analista() +
               u'\'';
        if (conSolicitud) sql += u',' + ids + u',' + escuela;
        sql += u')';
        base.Execute(sql, dao::dbFailOnError);
        ui::Sistema().MsgBox(QStringLiteral("Factura grabada con éxito"), ui::vbInformation, QStringLiteral("Captura de facturas"));
    }
    txtIDS->clear();
    RefrescaListView();
    cmdCancelarFactura_Click();
}
