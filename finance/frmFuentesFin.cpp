#include "finance/frmFuentesFin.h"

#include "core/Globales.h"
#include "core/controles/CampoEnlazado.h"
#include "core/dao/Dao.h"
#include "core/jet/ErroresMotor.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("frmFuentesFin");
const QString mascaraMonto = QStringLiteral("$###,###,##0.00");
const QString mascaraFecha = QStringLiteral("dd-mmm-yyyy");
const QString crlf = QStringLiteral("\r\n");
const QString sqlFuentes = QStringLiteral("SELECT * FROM adqFinanciamiento ORDER BY 1");
const QString tituloForma = QStringLiteral("Fuentes de financiamiento");

// Engine's "record is deleted": the row the recordset stands on is gone.
constexpr int ErrRegistroBorrado = 3167;
// The language's overflow.
constexpr int ErrDesbordamiento = 6;

vb::Currency MonedaDe(const vb::Variant& v) { return v.isNull() ? vb::Currency() : v.toCurrency(); }
QString Monto(const vb::Variant& v) { return vb::Format(v, mascaraMonto); }
// A shown amount read back, its leading "$" cut off.
vb::Currency MontoDeTexto(const QString& texto) {
    QString t = texto.trimmed();
    if (t.startsWith(u'$')) t = t.mid(1);
    return vb::Currency::parse(t).value_or(vb::Currency());
}
QString FechaComo(const QString& texto, const QString& mascara) {
    return vb::Format(vb::Variant(vb::CDate(vb::Variant(texto))), mascara);
}
QString Analista() { return vb::Left(globales::LoginAnalista, 10); }

}  // namespace

frmFuentesFin::frmFuentesFin(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmFuentesFin"));
    setWindowTitle(tituloForma);

    picContenedor = new QFrame(this);
    frameDatos = new QGroupBox(QStringLiteral("Datos:"), picContenedor);
    txtFecha = new QLineEdit(frameDatos);
    txtNombre = new QLineEdit(frameDatos);
    txtMontoTotal = new QLineEdit(frameDatos);
    Check1 = new QCheckBox(QStringLiteral("Información adicional"), picContenedor);
    frameDetalles = new QGroupBox(QStringLiteral("Información adicional:"), picContenedor);
    lblMontoXAsignar = new QLabel(frameDetalles);
    lblMontoAsignadoDisponible = new QLabel(frameDetalles);
    lblMontoAsignado = new QLabel(frameDetalles);
    lblUltimoMovimiento = new QLabel(frameDetalles);
    lblStatus = new QLabel(this);
    lblStatus->setAlignment(Qt::AlignCenter);
    lblStatus->setMinimumWidth(90);
    const char* flechas[] = {"|<", "<", ">", ">|"};
    for (int i = 0; i < 4; ++i) {
        cmdMover[static_cast<size_t>(i)] = new QPushButton(QLatin1String(flechas[i]), this);
        cmdMover[static_cast<size_t>(i)]->setObjectName(QStringLiteral("cmdMover%1").arg(i));
        cmdMover[static_cast<size_t>(i)]->setFixedWidth(40);
    }
    Frame1 = new QFrame(this);
    cmdNuevo = new QPushButton(QStringLiteral("&Nuevo"), Frame1);
    cmdModificar = new QPushButton(QStringLiteral("&Modificar"), Frame1);
    cmdBorrar = new QPushButton(QStringLiteral("&Borrar"), Frame1);
    cmdRegresar = new QPushButton(QStringLiteral("&Regresar"), Frame1);
    Frame2 = new QFrame(this);
    cmdGrabar = new QPushButton(QStringLiteral("&Grabar"), Frame2);
    cmdCancelar = new QPushButton(QStringLiteral("&Cancelar"), Frame2);
    const std::pair<QWidget*, const char*> nombres[] = {
        {picContenedor, "picContenedor"}, {frameDatos, "frameDatos"}, {txtFecha, "txtFecha"}, {txtNombre, "txtNombre"},
        {txtMontoTotal, "txtMontoTotal"}, {Check1, "Check1"}, {frameDetalles, "frameDetalles"},
        {lblMontoXAsignar, "lblMontoXAsignar"}, {lblMontoAsignadoDisponible, "lblMontoAsignadoDisponible"},
        {lblMontoAsignado, "lblMontoAsignado"}, {lblUltimoMovimiento, "lblUltimoMovimiento"}, {lblStatus, "lblStatus"},
        {Frame1, "Frame1"}, {cmdNuevo, "cmdNuevo"}, {cmdModificar, "cmdModificar"}, {cmdBorrar, "cmdBorrar"},
        {cmdRegresar, "cmdRegresar"}, {Frame2, "Frame2"}, {cmdGrabar, "cmdGrabar"}, {cmdCancelar, "cmdCancelar"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));

    auto* datos = new QGridLayout(frameDatos);
    datos->addWidget(new QLabel(QStringLiteral("Fecha:"), frameDatos), 0, 0);
    datos->addWidget(txtFecha, 0, 1);
    datos->addWidget(new QLabel(QStringLiteral("Nombre:"), frameDatos), 1, 0);
    datos->addWidget(txtNombre, 1, 1, 1, 2);
    datos->addWidget(new QLabel(QStringLiteral("Monto Asignado:"), frameDatos), 2, 0);
    datos->addWidget(txtMontoTotal, 2, 1);
    datos->setColumnStretch(2, 1);
    txtFecha->setMinimumWidth(130);
    txtMontoTotal->setMinimumWidth(130);
    txtNombre->setMinimumWidth(360);

    auto* detalles = new QGridLayout(frameDetalles);
    const std::pair<const char*, QLabel*> renglones[] = {
        {"Monto disponible para asignar", lblMontoXAsignar},
        {"Monto que ya fue asignado", lblMontoAsignado},
        {"Monto disponible para ejercer", lblMontoAsignadoDisponible},
        {"Fecha del último movimiento", lblUltimoMovimiento}};
    int r = 0;
    for (const auto& [texto, etiqueta] : renglones) {
        detalles->addWidget(new QLabel(QString::fromUtf8(texto) + u':', frameDetalles), r, 0);
        etiqueta->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        etiqueta->setFrameShape(QFrame::StyledPanel);
        etiqueta->setMinimumWidth(150);
        detalles->addWidget(etiqueta, r++, 1);
    }
    detalles->setColumnStretch(2, 1);

    auto* contenedor = new QVBoxLayout(picContenedor);
    contenedor->setContentsMargins(0, 0, 0, 0);
    contenedor->addWidget(frameDatos);
    contenedor->addWidget(Check1);
    contenedor->addWidget(frameDetalles);

    auto* navegacion = new QHBoxLayout;
    navegacion->addStretch(1);
    navegacion->addWidget(cmdMover[0]);
    navegacion->addWidget(cmdMover[1]);
    navegacion->addWidget(lblStatus);
    navegacion->addWidget(cmdMover[2]);
    navegacion->addWidget(cmdMover[3]);
    navegacion->addStretch(1);

    auto* b1 = new QHBoxLayout(Frame1);
    b1->setContentsMargins(0, 0, 0, 0);
    for (QPushButton* b : {cmdNuevo, cmdModificar, cmdBorrar}) b1->addWidget(b);
    b1->addStretch(1);
    b1->addWidget(cmdRegresar);
    auto* b2 = new QHBoxLayout(Frame2);
    b2->setContentsMargins(0, 0, 0, 0);
    b2->addStretch(1);
    b2->addWidget(cmdGrabar);
    b2->addWidget(cmdCancelar);

    auto* todo = new QVBoxLayout(this);
    todo->addWidget(picContenedor);
    todo->addLayout(navegacion);
    todo->addWidget(Frame1);
    todo->addWidget(Frame2);
    // The form takes the size of what it shows: reduced while the details are hidden.
    todo->setSizeConstraint(QLayout::SetFixedSize);
    controles::OrdenDeTabulacion({txtFecha, txtNombre, txtMontoTotal, Check1, cmdMover[0], cmdMover[1], cmdMover[2],
                                  cmdMover[3], cmdNuevo, cmdModificar, cmdBorrar, cmdRegresar, cmdGrabar, cmdCancelar});

    for (int i = 0; i < 4; ++i)
        ui::Conecta(cmdMover[static_cast<size_t>(i)], &QPushButton::clicked, this, origen, &frmFuentesFin::cmdMover_Click, i);
    ui::Conecta(cmdNuevo, &QPushButton::clicked, this, origen, &frmFuentesFin::cmdNuevo_Click);
    ui::Conecta(cmdModificar, &QPushButton::clicked, this, origen, &frmFuentesFin::cmdModificar_Click);
    ui::Conecta(cmdGrabar, &QPushButton::clicked, this, origen, &frmFuentesFin::cmdGrabar_Click);
    ui::Conecta(cmdBorrar, &QPushButton::clicked, this, origen, &frmFuentesFin::cmdBorrar_Click);
    ui::Conecta(cmdCancelar, &QPushButton::clicked, this, origen, &frmFuentesFin::cmdCancelar_Click);
    ui::Conecta(cmdRegresar, &QPushButton::clicked, this, origen, &frmFuentesFin::cmdRegresar_Click);
    ui::Conecta(Check1, &QCheckBox::clicked, this, origen, &frmFuentesFin::Check1_Click);

    frameDetalles->hide();
    Frame2->hide();
}

frmFuentesFin::~frmFuentesFin() = default;

void frmFuentesFin::Form_Load() {
    // Reduced: the details hidden.
    Check1->setChecked(false);
    frameDetalles->hide();
    ActualizaMontoDisponibledeFinanciamientos();
    rsFuentes = globales::Base().OpenRecordset(sqlFuentes, dao::dbOpenDynaset);
    bloquearControles(true);
    CargarDatos();
}

void frmFuentesFin::bloquearControles(bool& bloquear) {
    txtFecha->setEnabled(!bloquear);
    txtNombre->setEnabled(!bloquear);
    txtMontoTotal->setEnabled(!bloquear);
    bloquear = !bloquear;
}

void frmFuentesFin::ActualizaMontoDisponibledeFinanciamientos() {
    QString sql = sqlFuentes;
    try {
        dao::Database& db = globales::Base();
        auto fuentes = db.OpenRecordset(sql);
        if (fuentes->Eof()) return;
        while (!fuentes->Eof()) {
            const QString id = fuentes->Fields(QStringLiteral("IdFinanciamiento")).Value().text();
            sql = QStringLiteral(
                      "SELECT idfinanciamiento, montoTotal, (SELECT ccur( iif (isnull( abs(sum(monto)) ),0,abs(sum(monto)))) "
                      "FROM adqsaldoFinanciamientos WHERE Operacion='-SALDpag' AND adqsaldoFinanciamientos.IdFinanciamiento=") +
                  id +
                  QStringLiteral(") AS Pagos, (adqFinanciamiento.MontoTotal-Pagos) AS Disponible FROM adqFinanciamiento "
                                 "WHERE adqFinanciamiento.idFinanciamiento = ") +
                  id + QStringLiteral(" ORDER BY 1");
            auto pagos = db.OpenRecordset(sql);
            vb::Currency montoTotal;
            if (!pagos->Eof()) {
                montoTotal = MonedaDe(pagos->Fields(QStringLiteral("montoTotal")).Value());
                const vb::Currency disponible = MonedaDe(pagos->Fields(QStringLiteral("Disponible")).Value());
                sql = QStringLiteral("UPDATE adqFinanciamiento SET MontoAsignadoDisponible=") + disponible.toSql() +
                      QStringLiteral(" WHERE IdFinanciamiento=") + id;
                db.Execute(sql);
                if (db.RecordsAffected() == 0) ui::Sistema().MsgBox(QStringLiteral("posible error"));
                QCoreApplication::processEvents();
            }
            pagos.reset();
            sql = QStringLiteral("SELECT IdFinanciamiento, sum(TotalAsignado) as TAsignado FROM adqProyectos WHERE "
                                 "IdFinanciamiento= ") +
                  id + QStringLiteral(" GROUP BY IdFinanciamiento");
            auto proyectos = db.OpenRecordset(sql);
            if (!proyectos->Eof()) {
                const vb::Currency asignado = MonedaDe(proyectos->Fields(QStringLiteral("TAsignado")).Value());
                sql = QStringLiteral("UPDATE adqFinanciamiento SET MontoXAsignar=") + (montoTotal - asignado).toSql() +
                      QStringLiteral(" WHERE IdFinanciamiento=") + id;
                db.Execute(sql);
                if (db.RecordsAffected() == 0) ui::Sistema().MsgBox(QStringLiteral("posible error"));
                QCoreApplication::processEvents();
            }
            proyectos.reset();
            fuentes->MoveNext();
        }
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(QStringLiteral("Ocurrió el error: %1 [%2]").arg(e.Number()).arg(e.Description()) + crlf + sql,
                             ui::vbCritical, QStringLiteral("Actualización de monto disponible de Financiamientos"));
    }
}

// Name, amount and balances of no source: a list without sources, or a source being captured.
void frmFuentesFin::VaciaCampos() {
    txtNombre->clear();
    txtMontoTotal->clear();
    lblUltimoMovimiento->clear();
    lblMontoXAsignar->setText(QStringLiteral("0.00"));
    lblMontoAsignado->setText(QStringLiteral("0.00"));
    lblMontoAsignadoDisponible->setText(QStringLiteral("0.00"));
}

void frmFuentesFin::CargarDatos() {
    dao::Recordset& rs = *rsFuentes;
    if (rs.RecordCount() == 0) {
        cmdModificar->setEnabled(false);
        cmdBorrar->setEnabled(false);
        for (QPushButton* b : cmdMover) b->setEnabled(false);
        txtFecha->clear();
        VaciaCampos();
        lblStatus->setText(QStringLiteral("0 registros"));
        return;
    }
    cmdModificar->setEnabled(true);
    cmdBorrar->setEnabled(true);
    if (rs.Eof()) {
        ui::Sistema().Beep();
        cmdMover[2]->setEnabled(false);
        cmdMover[3]->setEnabled(false);
        return;
    }
    // Before the first record there is nothing to show either: what was shown stays.
    if (!rs.Bof()) {
        txtFecha->setText(vb::Format(rs.Fields(QStringLiteral("FechaCaptura")).Value(), mascaraFecha));
        txtNombre->setText(vb::Trim(rs.Fields(QStringLiteral("Nombre")).Value().text()));
        txtMontoTotal->setText(Monto(rs.Fields(QStringLiteral("MontoTotal")).Value()));
        lblMontoXAsignar->setText(Monto(rs.Fields(QStringLiteral("Montoxasignar")).Value()));
        const vb::Variant disponible = rs.Fields(QStringLiteral("MontoAsignadoDisponible")).Value();
        lblMontoAsignadoDisponible->setText(Monto(disponible.isNull() ? vb::Variant(QStringLiteral("0")) : disponible));
        lblMontoAsignado->setText(
            Monto(vb::Variant(MontoDeTexto(txtMontoTotal->text()) - MontoDeTexto(lblMontoXAsignar->text()))));
        lblUltimoMovimiento->setText(vb::Format(rs.Fields(QStringLiteral("Ultimomovimiento")).Value(), mascaraFecha));
        cmdMover[2]->setEnabled(true);
        cmdMover[3]->setEnabled(true);
        lblStatus->setText(QStringLiteral("%1 / %2").arg(rs.AbsolutePosition() + 1).arg(rs.RecordCount()));
    }
    if (rs.Bof()) {
        ui::Sistema().Beep();
        cmdMover[0]->setEnabled(false);
        cmdMover[1]->setEnabled(false);
    } else {
        cmdMover[0]->setEnabled(true);
        cmdMover[1]->setEnabled(true);
    }
    if (!rs.Bof() && rs.AbsolutePosition() + 1 == rs.RecordCount()) {
        cmdMover[2]->setEnabled(false);
        cmdMover[3]->setEnabled(false);
    }
}

void frmFuentesFin::Edicion(bool editando) {
    Frame2->setVisible(editando);
    Frame1->setVisible(!editando);
}

bool frmFuentesFin::FuenteExiste() {
    const QString id = rsFuentes->Fields(0).Value().text();
    auto rs = globales::Base().OpenRecordset(QStringLiteral("SELECT IdFinanciamiento FROM adqFinanciamiento WHERE IdFinanciamiento=") + id);
    return !rs->Eof();
}

void frmFuentesFin::SobreFuenteVigente(const std::function<void()>& paso) {
    try {
        paso();
    } catch (const vb::Error& e) {
        if (e.Number() != ErrRegistroBorrado) throw;
        ui::Sistema().Beep();
        ui::Sistema().MsgBox(QStringLiteral("Esta fuente de financiamiento fue borrada desde otra estación de trabajo."),
                             ui::vbExclamation, tituloForma);
        if (rsFuentes->EditMode() != dao::dbEditNone) rsFuentes->CancelUpdate();
        rsFuentes->Requery();
        if (rsFuentes->RecordCount() > 0) rsFuentes->MoveLast();
        bloquearControles(true);
        CargarDatos();
        Edicion(false);
    }
}

bool frmFuentesFin::LeeMonto(const QString& texto, vb::Currency& monto) {
    auto rechaza = [this](const QString& aviso) {
        ui::Sistema().Beep();
        if (!aviso.isEmpty()) ui::Sistema().MsgBox(aviso, ui::vbExclamation, tituloForma);
        txtMontoTotal->setFocus();
        return false;
    };
    if (txtMontoTotal->text().isEmpty() || !vb::IsNumeric(vb::Variant(texto))) return rechaza(QString());
    std::optional<vb::Currency> leido;
    try {
        leido = vb::Currency::parse(texto);
    } catch (const vb::Error& e) {
        if (e.Number() != ErrDesbordamiento) throw;
        return rechaza(QStringLiteral("El Monto Asignado excede la cantidad máxima que se puede registrar."));
    }
    if (!leido) return rechaza(QString());
    if (*leido < vb::Currency()) return rechaza(QStringLiteral("El Monto Asignado no puede ser negativo."));
    monto = *leido;
    return true;
}

void frmFuentesFin::cmdMover_Click(int Index) {
    SobreFuenteVigente([&] {
        switch (Index) {
        case 0: rsFuentes->MoveFirst(); break;
        case 1: rsFuentes->MovePrevious(); break;
        case 2: rsFuentes->MoveNext(); break;
        case 3: rsFuentes->MoveLast(); break;
        default: return;
        }
        CargarDatos();
    });
}

void frmFuentesFin::cmdNuevo_Click() {
    bloquearControles(false);
    rsFuentes->AddNew();
    txtFecha->setText(vb::Format(vb::Variant(vb::Fecha::Now()), mascaraFecha));
    VaciaCampos();
    txtNombre->setFocus();
    Edicion(true);
    Tag = QStringLiteral("nuevo");
}

void frmFuentesFin::cmdModificar_Click() {
    SobreFuenteVigente([&] {
        dao::Recordset& rs = *rsFuentes;
        // A source gone meanwhile opens nothing.
        if (!FuenteExiste()) jet::Lanza(ErrRegistroBorrado);
        const vb::Currency total = MonedaDe(rs.Fields(QStringLiteral("MontoTotal")).Value());
        const vb::Currency xAsignar = MonedaDe(rs.Fields(QStringLiteral("MontoxAsignar")).Value());
        const QString nombre = rs.Fields(QStringLiteral("Nombre")).Value().text();
        bloquearControles(false);
        if (total != xAsignar) {
            ui::Sistema().Beep();
            ui::Sistema().MsgBox(QStringLiteral("De esta fuente de financiamiento ya han sido asignado recursos,") + crlf +
                                     QStringLiteral("por lo que no podrá modificar el Monto Asignado."),
                                 ui::vbExclamation,
                                 QStringLiteral("Imposible modificar monto asignado de '") + nombre + u'\'');
            txtMontoTotal->setEnabled(false);
        }
        MontoTotalAnterior = MontoDeTexto(txtMontoTotal->text());
        MontoXAsignarAnterior = MontoDeTexto(lblMontoXAsignar->text());
        rs.Edit();
        Tag = QString::number(rs.AbsolutePosition());
        txtNombre->setFocus();
        Edicion(true);
    });
}

void frmFuentesFin::cmdGrabar_Click() {
    SobreFuenteVigente([&] {
        dao::Recordset& rs = *rsFuentes;
        const bool nuevo = Tag == QLatin1String("nuevo");
        QString textoMonto = txtMontoTotal->text();
        if (textoMonto.startsWith(u'$')) textoMonto = textoMonto.mid(1);
        vb::Currency monto;
        if (!LeeMonto(textoMonto, monto)) return;
        const vb::Currency xAsignar = nuevo ? monto : MontoXAsignarAnterior;
        if (!vb::IsDate(vb::Variant(txtFecha->text()))) {
            ui::Sistema().Beep();
            txtFecha->setFocus();
            return;
        }
        // A source deleted elsewhere while it was being changed is not written: its ledger rows stay as they are.
        if (!nuevo && !FuenteExiste()) jet::Lanza(ErrRegistroBorrado);

        rs.Fields(QStringLiteral("Fechacaptura")) = vb::Variant(FechaComo(txtFecha->text(), QStringLiteral("dd-mm-yyyy")));
        rs.Fields(QStringLiteral("Nombre")) = vb::Variant(txtNombre->text());
        rs.Fields(QStringLiteral("MontoTotal")) = vb::Variant(monto);
        rs.Fields(QStringLiteral("MontoxAsignar")) = vb::Variant(xAsignar);
        rs.Fields(QStringLiteral("IdCapturista")) = vb::Variant(Analista());
        if (!nuevo && monto != MontoTotalAnterior) {
            const vb::Currency dif = monto - MontoTotalAnterior;
            const vb::Variant disponible = rs.Fields(QStringLiteral("montoasignadodisponible")).Value();
            // Null stays Null: the next opening of the form fills it in.
            if (!disponible.isNull())
                rs.Fields(QStringLiteral("montoasignadodisponible")) = vb::Variant(disponible.toCurrency() + dif);
            rs.Fields(QStringLiteral("MontoxAsignar")) =
                vb::Variant(MonedaDe(rs.Fields(QStringLiteral("MontoxAsignar")).Value()) + dif);
        }
        const QString id = rs.Fields(0).Value().text();
        const QString fecha = FechaComo(txtFecha->text(), QStringLiteral("mm-dd-yyyy"));
        QString sql;
        if (!nuevo) {
            sql = QStringLiteral("UPDATE adqSaldoFinanciamientos SET UltimoMovimiento=#") + fecha + QStringLiteral("#, Monto=") +
                  monto.toSql() + QStringLiteral(",  Operacion='+ADDFinan',IdCapturista='") + Analista() +
                  QStringLiteral("' WHERE IdFinanciamiento=") + id;
        } else {
            sql = QStringLiteral("INSERT INTO adqSaldoFinanciamientos VALUES (") + id + QStringLiteral(",#") + fecha +
                  QStringLiteral("#,") + monto.toSql() + QStringLiteral(",0,'+ADDFinan','") + Analista() + QStringLiteral("')");
        }
        globales::Base().Execute(sql);
        rs.Update();
        rs.Requery();
        if (nuevo) rs.MoveLast();
        else rs.Move(Tag.toLong());
        bloquearControles(true);
        CargarDatos();
        Edicion(false);
    });
}

void frmFuentesFin::cmdBorrar_Click() {
    SobreFuenteVigente([&] {
        dao::Recordset& rs = *rsFuentes;
        if (!FuenteExiste()) jet::Lanza(ErrRegistroBorrado);
        const QString nombre = rs.Fields(QStringLiteral("Nombre")).Value().text();
        if (MonedaDe(rs.Fields(QStringLiteral("MontoTotal")).Value()) !=
            MonedaDe(rs.Fields(QStringLiteral("MontoxAsignar")).Value())) {
            ui::Sistema().Beep();
            ui::Sistema().MsgBox(QStringLiteral("De esta fuente de financiamiento ya han sido asignado recursos,") + crlf +
                                     QStringLiteral("por lo que no podrá eliminarla.") + crlf + crlf +
                                     QStringLiteral("Si realmente desea eliminarla deberá deshacer todas las asignaciones "
                                                    "de presupuesto junto con sus respectivos pagos"),
                                 ui::vbExclamation, QStringLiteral("Imposible borrar '") + nombre + u'\'');
            return;
        }
        if (ui::Sistema().MsgBox(QStringLiteral("¿Está seguro que desea borrar '") + nombre + u'\'',
                                 ui::vbQuestion + ui::vbYesNo, QStringLiteral("Confirmación de borrado")) != ui::vbYes)
            return;
        rs.Delete();
        rs.Requery();
        if (rs.RecordCount() > 0) rs.MoveLast();
        CargarDatos();
    });
}

void frmFuentesFin::cmdCancelar_Click() {
    if (rsFuentes->EditMode() != dao::dbEditNone) rsFuentes->CancelUpdate();
    bloquearControles(true);
    SobreFuenteVigente([&] { CargarDatos(); });
    Edicion(false);
}

void frmFuentesFin::cmdRegresar_Click() { close(); }

void frmFuentesFin::Check1_Click() { frameDetalles->setVisible(Check1->isChecked()); }
