#include "finance/Proyectos.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/CampoEnlazado.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "core/dao/Dao.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <optional>

namespace {

const QString origen = QStringLiteral("Proyectos");
const QString crlf = QStringLiteral("\r\n");
const QString mascaraMoneda = QStringLiteral("$###,###,##0.00");
const QString mascaraFecha = QStringLiteral("dd/mmm/yyyy");

// The amount of a money text as typed or shown ("$1,234.50"); nothing when it is no amount a currency holds.
std::optional<vb::Currency> Monto(const QString& texto) {
    QString t = texto;
    t.remove(u'$').remove(u',');
    try {
        return vb::Currency::parse(t);
    } catch (const vb::Error&) {
        return std::nullopt;
    }
}
vb::Currency MontoOCero(const QString& texto) { return Monto(texto).value_or(vb::Currency()); }

// The id of a combo row: the number in its first four characters ("003 - Artes" is 3).
qint32 IdDe(const QString& item) { return static_cast<qint32>(vb::Val(vb::Mid(item, 1, 4))); }
// The name of a combo row: the trimmed text from its sixth character on.
QString NombreDe(const QString& item) { return vb::Trim(vb::Mid(item, 6)); }

QString Fecha(const vb::Fecha& f, const QString& mascara) { return vb::Format(vb::Variant(f), mascara); }
QString FechaDeTexto(const QString& texto, const QString& mascara) { return Fecha(vb::CDate(vb::Variant(texto)), mascara); }
QString Ahora(const QString& mascara) { return Fecha(vb::Fecha::Now(), mascara); }

QString Moneda(const vb::Currency& c) { return vb::Format(vb::Variant(c), mascaraMoneda); }

}  // namespace

Proyectos::Proyectos(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Proyectos"));
    setWindowTitle(QStringLiteral("Asignación de recursos"));

    cboFuenteFinanciamiento = new controles::ComboBox(this);
    cboDES = new controles::ComboBox(this);
    txtNombre = new QLineEdit(this);
    txtFuenteFinanciamiento = new QLineEdit(this);
    txtResponsable = new QLineEdit(this);
    txtTotalAsignado = new QLineEdit(this);
    txtMontoDisponible = new QLineEdit(this);
    txtUltimoMovimiento = new QLineEdit(this);
    txtFechaAsignacion = new QLineEdit(this);
    txtFechaVigencia = new QLineEdit(this);
    txtDescripcion = new QLineEdit(this);
    lblIdProyecto = new QLabel(this);
    lblFFDisp = new QLabel(QStringLiteral("Disponible para asignar:"), this);
    lblFFDispC = new QLabel(this);
    cmdNueva = new QPushButton(QStringLiteral("&Nueva"), this);
    cmdModificar = new QPushButton(QStringLiteral("&Modificar"), this);
    cmdBorrar = new QPushButton(QStringLiteral("&Borrar"), this);
    cmdGrabar = new QPushButton(QStringLiteral("&Grabar"), this);
    cmdCancelar = new QPushButton(QStringLiteral("&Cancelar"), this);
    cmdRegresar = new QPushButton(QStringLiteral("&Regresar"), this);
    ListaPartidas = controles::ListaEnMarco(this, fraLista, QStringLiteral("fraLista"));
    fraLista->setTitle(QStringLiteral("Proyectos capturados:  ( fechas en formato  año/mes/día )"));
    const std::pair<QWidget*, const char*> nombres[] = {
        {cboFuenteFinanciamiento, "cboFuenteFinanciamiento"}, {cboDES, "cboDES"}, {txtNombre, "txtNombre"},
        {txtFuenteFinanciamiento, "txtFuenteFinanciamiento"}, {txtResponsable, "txtResponsable"},
        {txtTotalAsignado, "txtTotalAsignado"}, {txtMontoDisponible, "txtMontoDisponible"},
        {txtUltimoMovimiento, "txtUltimoMovimiento"}, {txtFechaAsignacion, "txtFechaAsignacion"},
        {txtFechaVigencia, "txtFechaVigencia"}, {txtDescripcion, "txtDescripcion"}, {lblIdProyecto, "lblIdProyecto"},
        {lblFFDisp, "lblFFDisp"}, {lblFFDispC, "lblFFDispC"}, {cmdNueva, "cmdNueva"}, {cmdModificar, "cmdModificar"},
        {cmdBorrar, "cmdBorrar"}, {cmdGrabar, "cmdGrabar"}, {cmdCancelar, "cmdCancelar"}, {cmdRegresar, "cmdRegresar"},
        {ListaPartidas, "ListaPartidas"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));
    // The project's name is the school's and the source's name is the combo's: neither is typed.
    txtNombre->hide();
    txtFuenteFinanciamiento->hide();
    lblFFDisp->hide();
    lblFFDispC->hide();
    lblIdProyecto->setMinimumWidth(40);

    auto* g = new QGridLayout;
    auto etiqueta = [this](const char* texto) { return new QLabel(QString::fromUtf8(texto), this); };
    g->addWidget(etiqueta("Núm.:"), 0, 0);
    g->addWidget(lblIdProyecto, 0, 1);
    g->addWidget(etiqueta("DES:"), 1, 0);
    g->addWidget(cboDES, 1, 1, 1, 3);
    g->addWidget(etiqueta("Fuente de financiamiento:"), 2, 0);
    g->addWidget(cboFuenteFinanciamiento, 2, 1, 1, 3);
    g->addWidget(lblFFDisp, 3, 2, Qt::AlignRight);
    g->addWidget(lblFFDispC, 3, 3);
    g->addWidget(etiqueta("Responsable:"), 4, 0);
    g->addWidget(txtResponsable, 4, 1, 1, 3);
    g->addWidget(etiqueta("Presupuesto:"), 5, 0);
    g->addWidget(txtTotalAsignado, 5, 1);
    g->addWidget(etiqueta("Disponible:"), 5, 2, Qt::AlignRight);
    g->addWidget(txtMontoDisponible, 5, 3);
    g->addWidget(etiqueta("Fecha de asignación:"), 6, 0);
    g->addWidget(txtFechaAsignacion, 6, 1);
    g->addWidget(etiqueta("Vigencia:"), 6, 2, Qt::AlignRight);
    g->addWidget(txtFechaVigencia, 6, 3);
    g->addWidget(etiqueta("Último movimiento:"), 7, 0);
    g->addWidget(txtUltimoMovimiento, 7, 1);
    g->addWidget(etiqueta("Descripción:"), 8, 0);
    g->addWidget(txtDescripcion, 8, 1, 1, 3);
    g->setColumnStretch(1, 1);
    g->setColumnStretch(3, 1);
    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {cmdNueva, cmdModificar, cmdBorrar, cmdGrabar, cmdCancelar}) botones->addWidget(b);
    botones->addStretch(1);
    botones->addWidget(cmdRegresar);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(g);
    todo->addWidget(fraLista, 1);
    todo->addLayout(botones);
    resize(980, 600);
    controles::OrdenDeTabulacion({cboDES, cboFuenteFinanciamiento, txtResponsable, txtTotalAsignado, txtFechaAsignacion,
                                  txtFechaVigencia, txtDescripcion, cmdGrabar, cmdCancelar, ListaPartidas, cmdNueva,
                                  cmdModificar, cmdBorrar, cmdRegresar});

    ui::Conecta(cmdNueva, &QPushButton::clicked, this, origen, &Proyectos::cmdNueva_Click);
    ui::Conecta(cmdModificar, &QPushButton::clicked, this, origen, &Proyectos::cmdModificar_Click);
    ui::Conecta(cmdBorrar, &QPushButton::clicked, this, origen, &Proyectos::cmdBorrar_Click);
    ui::Conecta(cmdGrabar, &QPushButton::clicked, this, origen, &Proyectos::cmdGrabar_Click);
    ui::Conecta(cmdCancelar, &QPushButton::clicked, this, origen, &Proyectos::cmdCancelar_Click);
    ui::Conecta(cmdRegresar, &QPushButton::clicked, this, origen, &Proyectos::cmdRegresar_Click);
    ui::Conecta(cboFuenteFinanciamiento, &controles::ComboBox::Click, this, origen, &Proyectos::cboFuenteFinanciamiento_Click);
    ui::Conecta(ListaPartidas, &controles::ListView::DblClick, this, origen, &Proyectos::ListaPartidas_DblClick);
    ui::Conecta(ListaPartidas, &controles::ListView::ColumnClick, this, origen, &Proyectos::ListaPartidas_ColumnClick);
    connect(ListaPartidas, &controles::ListView::ItemClick, this, [this](controles::ListItem* item) {
        ui::Protegido(origen, [this, item] { ListaPartidas_ItemClick(item); });
    });
}

Proyectos::~Proyectos() = default;

void Proyectos::showEvent(QShowEvent* e) {
    QDialog::showEvent(e);
    ui::Protegido(origen, [this] { Form_Activate(); });
}

QString Proyectos::Modo() const { return txtNombre->property("Tag").toString(); }
void Proyectos::PonModo(const QString& modo) { txtNombre->setProperty("Tag", modo); }

void Proyectos::Form_Load() {
    QString marca = QStringLiteral("antes combo idFinan");
    try {
        Datos::LlenaCombo(*cboFuenteFinanciamiento, QStringLiteral("[IdFinanciamiento], Nombre"), QStringLiteral("adqFinanciamiento"), QStringLiteral("Nombre"));
        if (cboFuenteFinanciamiento->ListCount() == 0) {
            ui::Sistema().Beep();
            ui::Sistema().MsgBox(QStringLiteral("No podrá asignar recursos en este momento porque") + crlf +
                                     QStringLiteral("no existe ninguna fuente de financiamiento,") + crlf + crlf +
                                     QStringLiteral("primero deberá utilizar la opción de 'Fuentes de financiamiento'"),
                                 ui::vbExclamation, QStringLiteral("No hay fuentes de financiamiento"));
            cmdNueva->setEnabled(false);
            cmdModificar->setEnabled(false);
            cmdBorrar->setEnabled(false);
            return;
        }

        marca = QStringLiteral("antes combo idescuela");
        Datos::LlenaCombo(*cboDES, QStringLiteral("[No], Nombre"), QStringLiteral("Escuelas"), QStringLiteral("Nombre"));

        marca = QStringLiteral("antes lsitview");
        ActualizaMontoDisponibledeProyectos();
        ListaPartidas->View(controles::ListView::lvwReport);
        ListaPartidas->ColumnHeaders().Clear();
        ListaPartidas->EstiloExtendido(controles::ListView::LVS_EX_GRIDLINES | controles::ListView::LVS_EX_FULLROWSELECT, -1);
        const std::pair<const char*, int> columnas[] = {
            {"Núm.", 500},  {"Nombre", 2200},      {"Responsable", 2000}, {"Escuela", 800},
            {"Fuente", 1800}, {"Inicio", 1100},    {"Vigencia", 1100},    {"Presupuesto", 1400},
            {"Último movimiento", 1600}, {"Disponible", 1400}, {"Descripción", 2000}, {"IdFinanciamiento", 1200}};
        for (const auto& [texto, ancho] : columnas) ListaPartidas->ColumnHeaders().Add(QString::fromUtf8(texto), ancho);
        LlenaLista(true);

        marca = QStringLiteral("despues lsitview");
        if (ListaPartidas->ListItems().Count() == 0) {
            ui::Sistema().MsgBox(QStringLiteral("No hay ningún proyecto asignado..."), ui::vbExclamation,
                                 QStringLiteral("Listado de asignación de recursos"));
            EstableceEstado(QStringLiteral("NSE"));
        } else {
            EstableceEstado(QStringLiteral("NCE"));
        }

        marca = QStringLiteral("final...");
        BloqueaControles(true, false);
        fechaAsignacion_.setTextBox(txtFechaAsignacion);
        fechaVigencia_.setTextBox(txtFechaVigencia);
        ultimoMovimiento_.setTextBox(txtUltimoMovimiento);
        QLineEdit* capturas[] = {txtNombre, txtResponsable, txtTotalAsignado, txtMontoDisponible, txtDescripcion};
        for (size_t i = 0; i < captura_.size(); ++i) captura_[i].setTextBox(capturas[i]);
        controles::LimitaAlCampo(*txtResponsable, QStringLiteral("adqProyectos"), QStringLiteral("Responsable"));
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(marca + QStringLiteral(": ") + QString::number(e.Number()) + QStringLiteral(": ") + e.Description(),
                             ui::vbCritical, QStringLiteral("Load proyectos"));
    }
}

void Proyectos::Form_Activate() {
    if (!ListaPartidas->isEnabled()) return;
    ListaPartidas->setFocus();
    if (ListaPartidas->ListItems().Count() > 0) ListaPartidas->ListItems()(1).setSelected(true);
}

void Proyectos::LlenaLista(bool conFuente) {
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = conFuente ? QStringLiteral("IdProyecto, Nombre, Responsable, IdEscuela, FuenteFinanciamiento, FechaAsignacion, "
                                          "FechaVigencia, TotalAsignado, UltimoMovimiento, MontoDisponible, Descripcion, "
                                          "IdFinanciamiento ")
                         : QStringLiteral("IdProyecto, Nombre, Responsable, IdEscuela, FuenteFinanciamiento, FechaAsignacion, "
                                          "FechaVigencia, TotalAsignado, UltimoMovimiento, MontoDisponible, Descripcion");
    c.Tabla = QStringLiteral("adqProyectos");
    c.Clave.clear();
    c.Valor.clear();
    c.Orden = QStringLiteral("IdProyecto");
    ListaPartidas->ListItems().Clear();
    Datos::LlenaListaCondicion(c, *ListaPartidas);
}

void Proyectos::ActualizaMontoDisponibledeProyectos() {
    dao::Database& base = globales::Base();
    auto proyectos = base.OpenRecordset(QStringLiteral("SELECT * FROM adqProyectos ORDER BY IdEscuela"));
    while (!proyectos->Eof()) {
        const QString esc = proyectos->Fields(QStringLiteral("IdEscuela")).Value().toString();
        const QString fin = proyectos->Fields(QStringLiteral("IdFinanciamiento")).Value().toString();
        auto rs = base.OpenRecordset(
            QStringLiteral("SELECT idEscuela, TotalAsignado, MontoDisponible, (SELECT ccur(iif(isnull(abs(sum(monto))),0,abs(sum(monto)))) "
                           "FROM adqSaldoProyectos WHERE mid(Operacion,1,5)='-CARG' AND adqSaldoProyectos.IdEscuela=") +
            esc + QStringLiteral(" AND adqSaldoProyectos.idFinanciamiento = ") + fin +
            QStringLiteral(") AS Pagos, (adqProyectos.TotalAsignado-Pagos) AS Disponible FROM adqProyectos  WHERE "
                           "adqProyectos.idFinanciamiento = ") +
            fin + QStringLiteral(" AND adqProyectos.IdEscuela=") + esc + QStringLiteral(" ORDER BY 1"));
        if (!rs->Eof()) {
            const vb::Variant d = rs->Fields(QStringLiteral("Disponible")).Value();
            const vb::Currency disponible = d.isNull() ? vb::Currency() : vb::CCur(d);
            base.Execute(QStringLiteral("UPDATE adqProyectos SET MontoDisponible=") + disponible.toSql() +
                             QStringLiteral(" WHERE IdFinanciamiento=") + fin + QStringLiteral(" AND adqProyectos.IdEscuela=") + esc,
                         dao::dbFailOnError);
            if (base.RecordsAffected() == 0) ui::Sistema().MsgBox(QStringLiteral("posible error"));
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        }
        rs->Close();
        proyectos->MoveNext();
    }
    proyectos->Close();
}

void Proyectos::cboFuenteFinanciamiento_Click() {
    auto rs = globales::Base().OpenRecordset(QStringLiteral("SELECT MontoXAsignar FROM adqFinanciamiento WHERE IdFinanciamiento=") +
                                             QString::number(IdDe(cboFuenteFinanciamiento->Text())));
    const bool hay = !rs->Eof();
    if (hay) {
        const vb::Variant v = rs->Fields(0).Value();
        lblFFDispC->setText(v.isNull() ? QString() : vb::Format(v, QStringLiteral("$###,###,###,##0.00")));
    }
    rs->Close();
    lblFFDisp->setVisible(hay);
    lblFFDispC->setVisible(hay);
}

void Proyectos::ListaPartidas_ItemClick(controles::ListItem* item) {
    if (!item || !ListaPartidas->isEnabled() || ListaPartidas->ListItems().Count() == 0) return;
    MuestraProyecto(item->Index());
}

void Proyectos::ListaPartidas_DblClick() {
    const controles::ListItem* item = ListaPartidas->SelectedItem();
    if (item) MuestraProyecto(item->Index());
}

void Proyectos::ListaPartidas_ColumnClick(int indiceEncabezado) { controles::OrdenaPorColumna(*ListaPartidas, indiceEncabezado); }

void Proyectos::MuestraProyecto(int indice) {
    controles::ListItem& r = ListaPartidas->ListItems()(indice);
    lblIdProyecto->setText(r.Text());
    txtNombre->setText(vb::Trim(r.SubItems(1)));
    txtResponsable->setText(vb::Trim(r.SubItems(2)));
    auto eligePorId = [](controles::ComboBox& combo, const QString& id) {
        combo.setListIndex(-1);
        if (vb::Trim(id).isEmpty()) return;
        const qint32 buscado = static_cast<qint32>(vb::Val(id));
        for (int i = 0; i < combo.ListCount(); ++i) {
            if (IdDe(combo.List(i)) == buscado) {
                combo.setListIndex(i);
                return;
            }
        }
    };
    eligePorId(*cboDES, r.SubItems(3));
    eligePorId(*cboFuenteFinanciamiento, r.SubItems(11));
    auto fecha = [](const QString& texto) {
        return vb::IsDate(vb::Variant(texto)) ? FechaDeTexto(texto, mascaraFecha) : QString();
    };
    auto moneda = [](const QString& texto) {
        const std::optional<vb::Currency> m = Monto(vb::Trim(texto));
        return m ? Moneda(*m) : QString();
    };
    txtFechaAsignacion->setText(fecha(r.SubItems(5)));
    txtFechaVigencia->setText(fecha(r.SubItems(6)));
    txtTotalAsignado->setText(moneda(r.SubItems(7)));
    txtUltimoMovimiento->setText(fecha(r.SubItems(8)));
    txtMontoDisponible->setText(moneda(r.SubItems(9)));
    txtDescripcion->setText(r.SubItems(10));
}

void Proyectos::BloqueaControles(bool bloquear, bool limpiar) {
    for (QLineEdit* t : {txtNombre, txtFuenteFinanciamiento, txtResponsable, txtTotalAsignado, txtMontoDisponible,
                         txtUltimoMovimiento, txtFechaAsignacion, txtFechaVigencia, txtDescripcion}) {
        t->setEnabled(!bloquear);
        QPalette p = t->palette();
        p.setColor(QPalette::Text, bloquear ? QColor(128, 128, 128) : QColor(0, 0, 0));
        t->setPalette(p);
        if (limpiar) t->clear();
    }
    cboDES->setEnabled(!bloquear);
    cboFuenteFinanciamiento->setEnabled(!bloquear);
    if (limpiar) lblIdProyecto->clear();
}

void Proyectos::EstableceEstado(const QString& estadoPedido) {
    QString estado = estadoPedido;
    if (estado == QLatin1String("GRA")) estado = QStringLiteral("NCE");
    if (estado == QLatin1String("CAN"))
        estado = ListaPartidas->ListItems().Count() == 0 ? QStringLiteral("NSE") : QStringLiteral("NCE");
    estado_ = estado;
    for (QPushButton* b : {cmdNueva, cmdModificar, cmdBorrar, cmdGrabar, cmdCancelar, cmdRegresar}) b->setEnabled(false);
    ListaPartidas->setEnabled(false);
    if (estado == QLatin1String("NCE") || estado == QLatin1String("ELI")) {
        for (QPushButton* b : {cmdNueva, cmdModificar, cmdBorrar, cmdRegresar}) b->setEnabled(true);
        ListaPartidas->setEnabled(true);
    } else if (estado == QLatin1String("NSE")) {
        cmdNueva->setEnabled(true);
        cmdRegresar->setEnabled(true);
        ListaPartidas->setEnabled(true);
    } else if (estado == QLatin1String("AGR")) {
        cmdGrabar->setEnabled(true);
        cmdCancelar->setEnabled(true);
    } else if (estado == QLatin1String("MOD")) {
        cmdGrabar->setEnabled(true);
        cmdCancelar->setEnabled(true);
        cboDES->setEnabled(false);
        cboFuenteFinanciamiento->setEnabled(false);
    }
}

void Proyectos::EjecutaSQL(const QString& sql, bool& correcto) {
    correcto = false;
    try {
        globales::Base().Execute(sql, dao::dbFailOnError);
        correcto = true;
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(QStringLiteral("Error: '") + e.Description() + u'\'', ui::vbCritical,
                             QStringLiteral("Error al agregar nuevo registro"));
    }
}

void Proyectos::cmdNueva_Click() {
    EstableceEstado(QStringLiteral("AGR"));
    BloqueaControles(false, true);
    PonModo(QStringLiteral("AGR"));
    txtMontoDisponible->setEnabled(false);
    txtUltimoMovimiento->setEnabled(false);
    const int n = ListaPartidas->ListItems().Count();
    const double ultimo = n > 0 ? vb::Val(ListaPartidas->ListItems()(n).Text()) : -1;
    lblIdProyecto->setText(vb::Format(vb::Variant(ultimo + 1), QStringLiteral("000")));
    cboDES->setFocus();
}

void Proyectos::cmdModificar_Click() {
    FuenteAnterior = IdDe(cboFuenteFinanciamiento->Text());
    DisponibleAnterior = MontoOCero(txtMontoDisponible->text());
    TotalAnterior = MontoOCero(txtTotalAsignado->text());
    BloqueaControles(false, false);
    EstableceEstado(QStringLiteral("MOD"));
    txtMontoDisponible->setEnabled(false);
    txtUltimoMovimiento->setEnabled(false);
    txtResponsable->setFocus();
    PonModo(QStringLiteral("MOD"));
    const controles::ListItem* item = ListaPartidas->SelectedItem();
    IndiceAnterior = item ? item->Index() : 0;
}

void Proyectos::cmdCancelar_Click() {
    BloqueaControles(true, false);
    EstableceEstado(QStringLiteral("CAN"));
    TotalAnterior = vb::Currency();
    FuenteAnterior = 0;
    ListaPartidas->setFocus();
}

void Proyectos::cmdRegresar_Click() { close(); }

bool Proyectos::ValidaProyecto(QString& sql, QString& mensaje, QWidget*& control, bool& correcto) {
    correcto = false;
    mensaje.clear();
    control = nullptr;
    auto falta = [&](QWidget* w, const QString& linea) {
        mensaje += linea + crlf;
        if (!control) control = w;
    };
    const QString des = cboDES->Text();
    const QString fuente = cboFuenteFinanciamiento->Text();
    const QString fa = txtFechaAsignacion->text();
    const QString fv = txtFechaVigencia->text();

    if (txtResponsable->text().isEmpty())
        falta(txtResponsable, QStringLiteral(" el 'responsable' del proyecto es un valor requerido, "));
    if (fuente.isEmpty())
        falta(cboFuenteFinanciamiento, QStringLiteral(" la 'fuente de financiamiento' del proyecto es un valor requerido, "));
    if (!vb::IsNumeric(vb::Variant(vb::Mid(des, 1, 3))))
        falta(cboDES, QStringLiteral(" La 'DES' seleccionada no es correcta, "));

    const bool numerico = vb::IsNumeric(vb::Variant(txtTotalAsignado->text()));
    const std::optional<vb::Currency> total = numerico ? Monto(txtTotalAsignado->text()) : std::nullopt;
    if (!numerico) {
        falta(txtTotalAsignado, QStringLiteral(" el 'monto total' asignado al proyecto es un valor requerido, "));
    } else if (!total) {
        falta(txtTotalAsignado, QStringLiteral(" el 'monto total' asignado al proyecto excede el máximo permitido, "));
    } else if (*total < vb::Currency()) {
        falta(txtTotalAsignado, QStringLiteral(" el 'monto total' asignado al proyecto no puede ser negativo, "));
    } else {
        const qint32 idFuente = IdDe(fuente);
        DiferenciaAsignada = TotalAnterior != vb::Currency() ? *total - TotalAnterior : *total;
        auto rs = globales::Base().OpenRecordset(QStringLiteral("SELECT MontoXAsignar FROM adqFinanciamiento WHERE IdFinanciamiento=") +
                                                 QString::number(idFuente));
        if (!rs->Eof()) {
            const vb::Variant v = rs->Fields(0).Value();
            const vb::Currency porAsignar = v.isNull() ? vb::Currency() : vb::CCur(v);
            rs->Close();
            if (DiferenciaAsignada > porAsignar || (FuenteAnterior != idFuente && *total > porAsignar)) {
                control = txtTotalAsignado;
                mensaje = QStringLiteral("El 'monto total' asignado al proyecto no puede ser mayor") + crlf +
                          QStringLiteral("que el 'Monto disponible para asignar'") + crlf +
                          QStringLiteral(" de la Fuente de Financiamiento seleccionada. ") + crlf;
                return false;
            }
            if (FuenteAnterior != idFuente && !txtMontoDisponible->text().isEmpty() &&
                MontoOCero(txtMontoDisponible->text()) != TotalAnterior) {
                control = txtTotalAsignado;
                mensaje = QStringLiteral("No se puede modificar la fuente de financiamiento del proyecto") + crlf +
                          QStringLiteral("debido a que ya se han realizado operaciones con estos recursos") + crlf +
                          QStringLiteral("si en realidad desea hacer estos cambios, primero deberá deshacer todos los pagos "
                                         "relacionados...");
                return false;
            }
        }
    }

    if (fa.isEmpty())
        falta(txtFechaAsignacion, QStringLiteral(" la 'fecha de asignación' del proyecto es un valor requerido, "));
    if (!vb::IsDate(vb::Variant(fa))) falta(txtFechaAsignacion, QStringLiteral(" la 'fecha de asignación' es incorrecta "));
    if (fv.isEmpty()) falta(txtFechaVigencia, QStringLiteral(" la 'fecha de vigencia' del proyecto es un valor requerido, "));
    if (!vb::IsDate(vb::Variant(fv))) falta(txtFechaVigencia, QStringLiteral(" la 'fecha de vigencia' es incorrecta "));
    if (vb::IsDate(vb::Variant(fa)) && vb::IsDate(vb::Variant(fv)) && !(vb::CDate(vb::Variant(fv)) > vb::CDate(vb::Variant(fa))))
        falta(txtFechaVigencia, QStringLiteral(" la 'fecha de vigencia' sea mayor que la 'fecha de asignación' "));

    if (!mensaje.isEmpty()) {
        mensaje = QStringLiteral("Se ha detectado que falta información o que existen datos inconsistentes,") + crlf +
                  QStringLiteral("por favor verifique que: ") + crlf + mensaje;
        return false;
    }

    totalValidado_ = *total;
    const QString mascara = QStringLiteral("yyyy/mm/dd hh:mm:ss");
    const QString totalSql = total->toSql();
    const QString ultimo = txtUltimoMovimiento->text().isEmpty()
                               ? QStringLiteral("NULL")
                               : u'#' + FechaDeTexto(txtUltimoMovimiento->text(), mascara) + u'#';
    const std::optional<vb::Currency> disponible = Monto(txtMontoDisponible->text());
    const QString disp = disponible ? disponible->toSql() : totalSql;
    const QString desc = txtDescripcion->text().isEmpty()
                             ? QStringLiteral("NULL")
                             : u'\'' + Datos::DuplicaComillas(vb::Trim(txtDescripcion->text())) + u'\'';
    const QString nombre = Datos::DuplicaComillas(Datos::DuplicaComillas(NombreDe(des)));
    const QString nombreFuente = Datos::DuplicaComillas(NombreDe(fuente));
    const QString resp = Datos::DuplicaComillas(vb::Trim(txtResponsable->text()));
    const QString idEscuela = QString::number(IdDe(des));
    const QString idFin = QString::number(IdDe(fuente));
    const QString asignacion = FechaDeTexto(fa, mascara);
    const QString vigencia = FechaDeTexto(fv, mascara);
    const QString ahora = Ahora(mascara);
    const QString& analista = globales::LoginAnalista;

    if (Modo() == QLatin1String("AGR")) {
        sql = QStringLiteral("INSERT INTO adqProyectos  (Nombre, Responsable, IdEscuela, FuenteFinanciamiento,   FechaAsignacion, "
                             "FechaVigencia, TotalAsignado, UltimoMovimiento,   MontoDisponible, Descripcion, IdCapturista, "
                             "FechaCaptura,IdFinanciamiento) VALUES  ('") +
              nombre + QStringLiteral("','") + resp + QStringLiteral("', ") + idEscuela + QStringLiteral(",'") + nombreFuente +
              QStringLiteral("', #") + asignacion + QStringLiteral("#, #") + vigencia + QStringLiteral("#, ") + totalSql +
              QStringLiteral(", ") + ultimo + u',' + disp + QStringLiteral(", ") + desc + QStringLiteral(", '") + analista +
              QStringLiteral("', #") + ahora + QStringLiteral("#, ") + idFin + QStringLiteral(") ");
    } else {
        sql = QStringLiteral("UPDATE adqProyectos SET Nombre='") + nombre + QStringLiteral("', Responsable='") + resp +
              QStringLiteral("', FuenteFinanciamiento='") + nombreFuente + QStringLiteral("', IdEscuela=") + idEscuela +
              QStringLiteral(", FechaAsignacion=#") + asignacion + QStringLiteral("#, FechaVigencia=#") + vigencia +
              QStringLiteral("#, TotalAsignado=") + totalSql + QStringLiteral(",UltimoMovimiento=") + ultimo +
              QStringLiteral(", MontoDisponible=") + disp + QStringLiteral(", Descripcion=") + desc +
              QStringLiteral(",IdCapturista='") + analista + QStringLiteral("', FechaCaptura=#") + ahora +
              QStringLiteral("#, IdFinanciamiento=") + idFin + QStringLiteral(" WHERE IdProyecto=") +
              QString::number(static_cast<qint64>(vb::Val(lblIdProyecto->text())));
    }
    correcto = true;
    return true;
}

void Proyectos::cmdGrabar_Click() {
    ui::Plataforma& sistema = ui::Sistema();
    dao::Database& base = globales::Base();
    const QString modo = Modo();
    QString sql;
    QString mensaje;
    QWidget* control = nullptr;
    bool correcto = false;
    if (!ValidaProyecto(sql, mensaje, control, correcto)) {
        sistema.MsgBox(mensaje, ui::vbExclamation, QStringLiteral("Error en captura de datos"));
        if (control) control->setFocus();
        return;
    }
    const QString esc = QString::number(IdDe(cboDES->Text()));
    const QString fin = QString::number(IdDe(cboFuenteFinanciamiento->Text()));
    const QString id = QString::number(static_cast<qint64>(vb::Val(lblIdProyecto->text())));

    // Another workstation may have deleted the source since the combo was filled: its balances can't move.
    {
        auto rs = base.OpenRecordset(QStringLiteral("SELECT IdFinanciamiento FROM adqFinanciamiento WHERE IdFinanciamiento=") + fin);
        const bool existe = !rs->Eof();
        rs->Close();
        if (!existe) {
            sistema.MsgBox(QStringLiteral("La fuente de financiamiento seleccionada ya no existe,") + crlf +
                               QStringLiteral("otra estación de trabajo la eliminó."),
                           ui::vbExclamation, QStringLiteral("Error en captura de datos"));
            return;
        }
    }

    EjecutaSQL(sql, correcto);
    if (!correcto) return;
    if (modo != QLatin1String("AGR") && base.RecordsAffected() == 0) {
        // Deleted by another workstation meanwhile: nothing of it is left to move balances for.
        sistema.MsgBox(QStringLiteral("El proyecto ") + id + QStringLiteral(" ya no existe, otra estación de trabajo lo eliminó."),
                       ui::vbExclamation, QStringLiteral("Proyectos"));
        TotalAnterior = vb::Currency();
        FuenteAnterior = 0;
        LlenaLista(false);
        BloqueaControles(true, false);
        EstableceEstado(QStringLiteral("CAN"));
        ListaPartidas->setFocus();
        return;
    }

    const QString total = totalValidado_.toSql();
    const QString analista = globales::LoginAnalista;
    const QString diferencia = (DiferenciaAsignada > vb::Currency() ? DiferenciaAsignada : -DiferenciaAsignada).toSql();
    if (modo == QLatin1String("AGR")) {
        const QString hoy = Ahora(QStringLiteral("yyyy/mm/dd"));
        EjecutaSQL(QStringLiteral("INSERT INTO adqSaldoProyectos VALUES (") + esc + u',' + fin + QStringLiteral(",#") + hoy +
                       QStringLiteral("#,") + total + QStringLiteral(",0,'+ADDproy','") + analista + QStringLiteral("')"),
                   correcto);
        EjecutaSQL(QStringLiteral("UPDATE adqFinanciamiento SET UltimoMovimiento=#") + hoy +
                       QStringLiteral("#, MontoXAsignar=(MontoXAsignar-") + total +
                       QStringLiteral(")  , MontoAsignadoDisponible=(MontoAsignadoDisponible+") + total +
                       QStringLiteral(") WHERE IdFinanciamiento=") + fin,
                   correcto);
    } else if (txtUltimoMovimiento->text().isEmpty()) {
        const QString ahora = Ahora(QStringLiteral("yyyy/mm/dd hh:mm:ss"));
        EjecutaSQL(QStringLiteral("UPDATE adqProyectos SET MontoDisponible = ") + total + QStringLiteral(",IdCapturista='") +
                       analista + QStringLiteral("', FechaCaptura=#") + ahora + QStringLiteral("# WHERE IdProyecto=") + id,
                   correcto);
        EjecutaSQL(QStringLiteral("UPDATE adqSaldoProyectos SET UltimoMovimiento=#") + ahora + QStringLiteral("#, Monto=") + total +
                       QStringLiteral(", IdCapturista='") + analista + QStringLiteral("' WHERE IdEscuela=") + esc +
                       QStringLiteral(" AND IdFinanciamiento=") + fin + QStringLiteral(" AND Operacion='+ADDproy'"),
                   correcto);
        EjecutaSQL(QStringLiteral("UPDATE adqFinanciamiento SET MontoXAsignar=(MontoXAsignar+") + DisponibleAnterior.toSql() +
                       QStringLiteral(") WHERE IdFinanciamiento=") + fin,
                   correcto);
        const QString signo = (DiferenciaAsignada > vb::Currency() ? QStringLiteral("+") : QStringLiteral("-")) + diferencia;
        EjecutaSQL(QStringLiteral("UPDATE adqFinanciamiento SET UltimoMovimiento=#") + ahora +
                       QStringLiteral("#, MontoXAsignar=(MontoXAsignar-") + total +
                       QStringLiteral(")  ,MontoAsignadoDisponible=(MontoAsignadoDisponible") + signo +
                       QStringLiteral(") WHERE IdFinanciamiento=") + fin,
                   correcto);
        TotalAnterior = vb::Currency();
        FuenteAnterior = 0;
    } else {
        const vb::Currency disponible = MontoOCero(txtMontoDisponible->text()) + DiferenciaAsignada;
        const QString ahora = Ahora(QStringLiteral("yyyy/mm/dd hh:nn:ss"));
        EjecutaSQL(QStringLiteral("UPDATE adqProyectos SET MontoDisponible = ") + disponible.toSql() +
                       QStringLiteral(",IdCapturista='") + analista + QStringLiteral("', FechaCaptura=#") +
                       Ahora(QStringLiteral("yyyy/mm/dd hh:mm:ss")) + QStringLiteral("# WHERE IdProyecto=") + id,
                   correcto);
        EjecutaSQL(QStringLiteral("UPDATE adqSaldoProyectos SET UltimoMovimiento=#") + ahora + QStringLiteral("#, Monto=") + total +
                       QStringLiteral(", IdCapturista='") + analista + QStringLiteral("' WHERE IdEscuela=") + esc +
                       QStringLiteral(" AND IdFinanciamiento=") + fin + QStringLiteral(" AND Operacion='+ADDproy'"),
                   correcto);
        const QString signo = (DiferenciaAsignada > vb::Currency() ? QStringLiteral("-") : QStringLiteral("+")) + diferencia;
        EjecutaSQL(QStringLiteral("UPDATE adqFinanciamiento SET UltimoMovimiento=#") + ahora +
                       QStringLiteral("#, MontoXAsignar=(MontoXAsignar") + signo +
                       QStringLiteral(") ,MontoAsignadoDisponible=(MontoAsignadoDisponible") + signo +
                       QStringLiteral(") WHERE IdFinanciamiento=") + fin,
                   correcto);
        TotalAnterior = vb::Currency();
    }

    LlenaLista(false);
    BloqueaControles(true, false);
    EstableceEstado(QStringLiteral("GRA"));
    ListaPartidas->setFocus();
    const int n = ListaPartidas->ListItems().Count();
    const int fila = modo == QLatin1String("AGR") ? n : IndiceAnterior;
    if (fila >= 1 && fila <= n) ListaPartidas->ListItems()(fila).setSelected(true);
}

void Proyectos::cmdBorrar_Click() {
    ui::Plataforma& sistema = ui::Sistema();
    controles::ListItem* item = ListaPartidas->SelectedItem();
    if (ListaPartidas->ListItems().Count() == 0 || !item) return;
    // Compared as texts, character by character, as the fields show them.
    if (txtMontoDisponible->text() < txtTotalAsignado->text()) {
        sistema.MsgBox(QStringLiteral("Lo sentimos pero no podrá eliminar está asignación de recursos,") + crlf +
                           QStringLiteral("puesto que ya existen operaciones de pagos relacionadas,") + crlf +
                           QStringLiteral("si desea eliminar este proyecto tendrá que cancelar cada una de ") + crlf +
                           QStringLiteral("las operaciones de pago relacionadas con este proyecto"),
                       ui::vbCritical, QStringLiteral("¡Operación no permitida!"));
        sistema.Beep();
        return;
    }
    if (sistema.MsgBox(QStringLiteral("¿Está seguro que desea borrar los datos del proyecto '") + item->SubItems(1) +
                           QStringLiteral("'?,") + crlf + QStringLiteral("una vez borrada esta información no podrá recuperarla ..."),
                       ui::vbQuestion | ui::vbYesNo, QStringLiteral("Confirmación para eliminar datos de proyecto")) != ui::vbYes)
        return;
    const QString id = QString::number(static_cast<qint64>(vb::Val(item->Text())));
    // After a save the list carries no source and its combo stays empty: the project's own row tells it then.
    QString fin = QString::number(IdDe(cboFuenteFinanciamiento->Text()));
    if (cboFuenteFinanciamiento->ListIndex() < 0) {
        auto rs = globales::Base().OpenRecordset(QStringLiteral("SELECT IdFinanciamiento FROM adqProyectos WHERE IdProyecto=") + id);
        if (!rs->Eof()) fin = rs->Fields(0).Value().toString();
        rs->Close();
    }
    bool correcto = false;
    EjecutaSQL(QStringLiteral("DELETE FROM adqProyectos WHERE IdProyecto=") + id, correcto);
    // A project that another workstation deleted first gives its money back only once.
    if (correcto && globales::Base().RecordsAffected() == 0) correcto = false;
    if (correcto) {
        const std::optional<vb::Currency> total = Monto(txtTotalAsignado->text());
        const QString monto = total ? total->toSql() : QStringLiteral("0");
        bool bien = false;
        EjecutaSQL(QStringLiteral("UPDATE adqFinanciamiento SET UltimoMovimiento=#") + Ahora(QStringLiteral("yyyy/mm/dd")) +
                       QStringLiteral("#, MontoXAsignar=(MontoXAsignar+") + monto +
                       QStringLiteral(")  , MontoAsignadoDisponible=(MontoAsignadoDisponible-") + monto +
                       QStringLiteral(") WHERE IdFinanciamiento=") + fin,
                   bien);
        sistema.MsgBox(QStringLiteral("los datos del proyecto ") + item->Text() + QStringLiteral(" fueron eliminados con éxito"),
                       ui::vbInformation, QStringLiteral("Proyectos"));
    } else {
        sistema.MsgBox(QStringLiteral("No se pudo eliminar el proyecto"), ui::vbOKOnly, QStringLiteral("Proyectos"));
    }
    LlenaLista(false);
    BloqueaControles(true, false);
    EstableceEstado(QStringLiteral("ELI"));
    ListaPartidas->setFocus();
    const int n = ListaPartidas->ListItems().Count();
    if (n > 0) {
        ListaPartidas->ListItems()(n).setSelected(true);
    } else {
        BloqueaControles(true, true);
        EstableceEstado(QStringLiteral("NSE"));
    }
}
