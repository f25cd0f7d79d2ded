// The road of the money through the real screens: a source funded, assigned to two schools, a payment request
// captured and broken down into invoices over both budgets, settled, undone, and the two recomputations run
// again; every balance and every ledger row is looked at after each step. Then many payments and undoings
// drawn at random against a model kept in exact currency.
#include "ayuda_finanzas.h"

#include "core/controles/ComboBox.h"
#include "core/vb/Currency.h"
#include "core/vb/Fecha.h"
#include "finance/Proyectos.h"
#include "finance/frmFuentesFin.h"
#include "finance/pagoFacturasDetalle.h"
#include "finance/pagoFacturasGral.h"
#include "finance/pagoFacturasMain.h"
#include "finance/pagoFacturasSaldar.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <array>
#include <map>
#include <random>

namespace {

class PruebaDinero : public PruebaFinanzas {
protected:
    void SetUp() override {
        PruebaFinanzas::SetUp();
        mascaraFecha = "yyyy/mm/dd";
        Ejecuta("INSERT INTO Proveedores ([No], Empresa) VALUES (1, 'Librería Norte')");
    }
    static QString Hoy(const char* s) {
        return QString::fromUtf8(s).replace(u'@', vb::Format(vb::Variant(vb::Fecha::Today()), "yyyy/mm/dd"));
    }
    QString Fuente() {
        return Filas("SELECT Nombre, MontoTotal, MontoXAsignar, MontoAsignadoDisponible FROM adqFinanciamiento").value(0);
    }
    QStringList Proyectos_() {
        return Filas("SELECT IdEscuela, TotalAsignado, MontoDisponible FROM adqProyectos ORDER BY IdProyecto");
    }
    QStringList LibroFuente() {
        return Filas("SELECT IdFinanciamiento, UltimoMovimiento, Monto, Operacion, IdCapturista FROM adqSaldoFinanciamientos "
                     "ORDER BY " ORDEN_DEL_LIBRO ", Monto");
    }
    QStringList LibroProyectos() {
        return Filas("SELECT IdEscuela, IdFinanciamiento, UltimoMovimiento, Monto, Operacion, IdCapturista FROM "
                     "adqSaldoProyectos ORDER BY " ORDEN_DEL_LIBRO ", IdEscuela");
    }
    QString Solicitud() {
        return Filas("SELECT IdPagoFactura, Estado, Monto, FechaPago FROM PagoFacturasGral").value(0);
    }
    void Factura(pagoFacturasDetalle& d, int proyecto, const char* numero, const char* monto) {
        d.cmdNuevaFactura_Click();
        d.cboProyectos->setListIndex(proyecto);
        d.txtNumFactura->setText(QString::fromUtf8(numero));
        d.txtMontoFactura->setText(QString::fromUtf8(monto));
        d.cmdGrabarFactura_Click();
    }
};

TEST_F(PruebaDinero, DeLaFuenteAlPagoYDeRegreso) {
    // A source of $50,000.00.
    {
        frmFuentesFin f;
        f.Form_Load();
        f.cmdNuevo_Click();
        f.txtFecha->setText("15-01-2026");
        f.txtNombre->setText("Fondo estatal");
        f.txtMontoTotal->setText("50000");
        f.cmdGrabar_Click();
    }
    EXPECT_EQ(Fuente(), "Fondo estatal|50000|50000|0");
    EXPECT_EQ(LibroFuente(), QStringList{"1|2026/01/15|50000|+ADDFinan|ana"});

    // Two schools' budgets out of it: the free amount falls, the spendable one rises.
    {
        Proyectos p;
        p.Form_Load();
        for (auto [escuela, total] : {std::pair{1, "20000"}, {0, "15000.50"}}) {
            if (p.Estado() != "AGR") p.cmdNueva_Click();
            p.cboDES->setListIndex(escuela);            // 1: Ingeniería (3), 0: Artes (4)
            p.cboFuenteFinanciamiento->setListIndex(0);
            p.txtResponsable->setText("Responsable");
            p.txtTotalAsignado->setText(QString::fromUtf8(total));
            p.txtFechaAsignacion->setText("01/02/2026");
            p.txtFechaVigencia->setText("31/12/2026");
            p.cmdGrabar_Click();
        }
    }
    EXPECT_EQ(Fuente(), "Fondo estatal|50000|14999.5|35000.5");
    EXPECT_EQ(Proyectos_(), (QStringList{"3|20000|20000", "4|15000.5|15000.5"}));
    EXPECT_EQ(LibroProyectos(), (QStringList{Hoy("3|1|@|20000|+ADDproy|ana"), Hoy("4|1|@|15000.5|+ADDproy|ana")}));
    sistema->cajas.clear();

    // A payment request with three invoices over both budgets.
    pagoFacturasMain m;
    m.Form_Load();
    sistema->AlMostrar("pagoFacturasGral", [](QDialog& pantalla) {
        auto& g = static_cast<pagoFacturasGral&>(pantalla);
        g.cboFinanciamiento->setListIndex(0);
        g.txtIdProveedor->setText("1");
        g.txtConcepto->setText("Libros de texto");
        g.cmdAceptar_Click();
    });
    m.cmdNuevoPago_Click();
    EXPECT_EQ(Solicitud(), "1|S|NULL|NULL");
    EXPECT_EQ(sistema->Textos(), QStringList{"Registro guardado con éxito..."});
    sistema->cajas.clear();
    sistema->AlMostrar("pagoFacturasDetalle", [this](QDialog& pantalla) {
        auto& d = static_cast<pagoFacturasDetalle&>(pantalla);
        Factura(d, 0, "F-1", "1234.56");
        Factura(d, 0, "F-2", "100.04");
        Factura(d, 1, "F-3", "5000.25");
        d.cmdRegresar_Click();
    });
    m.cmdDesglocePagos_Click();
    EXPECT_EQ(Solicitud(), "1|S|6334.85|NULL");
    EXPECT_EQ(sistema->Textos(), QStringList(3, "Factura grabada con éxito"));

    // Settled: each budget and the source go down by what was charged to them, one ledger row each.
    m.ListView1_ItemClick(&m.ListView1->ListItems()(1));
    ASSERT_TRUE(m.cmdSaldarPago->isEnabled());
    sistema->AlMostrar("pagoFacturasSaldar", [](QDialog& pantalla) {
        auto& s = static_cast<pagoFacturasSaldar&>(pantalla);
        s.txtFechaPago->setText("20-03-2026");
        s.cmdCargarPago_Click();
    });
    m.cmdSaldarPago_Click();
    EXPECT_EQ(sistema->UltimaCaja().titulo, "El pago se realizó con éxito");
    EXPECT_EQ(Solicitud(), "1|P|6334.85|2026/03/20");
    EXPECT_EQ(Fuente(), "Fondo estatal|50000|14999.5|28665.65");
    EXPECT_EQ(Proyectos_(), (QStringList{"3|20000|18665.4", "4|15000.5|10000.25"}));
    EXPECT_EQ(LibroFuente(), (QStringList{"1|2026/01/15|50000|+ADDFinan|ana", "1|2026/03/20|-6334.85|-SALDpag|ana"}));
    EXPECT_EQ(LibroProyectos().mid(2), (QStringList{"3|1|2026/03/20|-1334.6|-CARG 0001|ana", "4|1|2026/03/20|-5000.25|-CARG 0001|ana"}));

    // Undone. The invoices' table of an up-to-date file has its own IdEscuela, so the undoing's query of the
    // budgets names a column of both its tables and is refused: the request is back to 'S' and the budgets
    // have their money again, but no ledger row is written and the source doesn't move.
    m.ListView1_ItemClick(&m.ListView1->ListItems()(1));
    sistema->AlMostrar("pagoFacturasSaldar", [](QDialog& pantalla) {
        // Through the button, as the analyst does: a failure ends in the program's box.
        static_cast<pagoFacturasSaldar&>(pantalla).cmdDeshacerPago->click();
    });
    m.cmdSaldarPago_Click();
    EXPECT_EQ(sistema->UltimaCaja().flags, ui::vbCritical);
    EXPECT_TRUE(sistema->UltimaCaja().texto.startsWith("Se produjo el error 3079")) << sistema->UltimaCaja().texto.toStdString();
    EXPECT_EQ(Solicitud(), "1|S|6334.85|NULL");
    EXPECT_EQ(Fuente(), "Fondo estatal|50000|14999.5|28665.65");
    EXPECT_EQ(Proyectos_(), (QStringList{"3|20000|20000", "4|15000.5|15000.5"}));
    EXPECT_EQ(LibroFuente().size(), 2);
    EXPECT_EQ(LibroProyectos().size(), 4);

    // The recomputations read only the charges: the undoing is taken back when the screens open again.
    {
        Proyectos p;
        p.Form_Load();
    }
    EXPECT_EQ(Proyectos_(), (QStringList{"3|20000|18665.4", "4|15000.5|10000.25"}));
    {
        frmFuentesFin f;
        f.Form_Load();
    }
    EXPECT_EQ(Fuente(), "Fondo estatal|50000|14999.5|43665.15");

    // Renaming the source rewrites every ledger row of it as its capture; the next opening then finds no payment.
    {
        frmFuentesFin f;
        f.Form_Load();
        f.cmdModificar_Click();
        f.txtNombre->setText("Fondo estatal 2026");
        f.cmdGrabar_Click();
    }
    EXPECT_EQ(LibroFuente(), QStringList(2, "1|2026/01/15|50000|+ADDFinan|ana"));
    {
        frmFuentesFin f;
        f.Form_Load();
    }
    EXPECT_EQ(Fuente(), "Fondo estatal 2026|50000|14999.5|50000");
}

// Many payments and undoings drawn at random over four budgets, each checked against a model in exact
// currency: what the budgets and the source have left, the state of each request, the number of ledger rows,
// and that each budget's ledger still adds up to what it has left. Amounts carry cents and ten-thousandths
// where the screens keep them (the invoices); the source moves by the request's amount as shown, in cents.
TEST_F(PruebaDinero, PagosYDeshechosAlAzarCuadranAlDiezmilesimo) {
    std::mt19937 azar(20261123);
    auto cantidad = [&](int maxPesos, bool diezmilesimos) {
        const qint64 raw = std::uniform_int_distribution<qint64>(1, qint64(maxPesos) * 10000)(azar);
        return vb::Currency::fromRaw(diezmilesimos ? raw : raw / 100 * 100 + 100);
    };
    // An invoice table of an older file, without the request's school: there the undoing runs whole.
    Ejecuta("ALTER TABLE PagoFacturasDetalle DROP COLUMN IdSolicitud");
    Ejecuta("ALTER TABLE PagoFacturasDetalle DROP COLUMN IdEscuela");
    constexpr int nProyectos = 4;
    std::array<vb::Currency, nProyectos> disponible{};
    vb::Currency asignado;
    Ejecuta("INSERT INTO adqFinanciamiento (Nombre, MontoTotal, MontoXAsignar, MontoAsignadoDisponible) VALUES ('F', 1000000, 0, 0)");
    Ejecuta("INSERT INTO adqSaldoFinanciamientos VALUES (1, #2026/01/01#, 1000000, 0, '+ADDFinan', 'ana')");
    for (int p = 0; p < nProyectos; ++p) {
        disponible[p] = cantidad(40000, true) + vb::Currency::fromLong(10000);
        asignado += disponible[p];
        Ejecuta(QStringLiteral("INSERT INTO adqProyectos (Nombre, IdEscuela, TotalAsignado, MontoDisponible, IdFinanciamiento) "
                               "VALUES ('Proyecto %1', %2, %3, %3, 1)").arg(p + 1).arg(p + 10).arg(disponible[p].toSql()));
        Ejecuta(QStringLiteral("INSERT INTO adqSaldoProyectos VALUES (%1, 1, #2026/01/01#, %2, 0, '+ADDproy', 'ana')")
                    .arg(p + 10).arg(disponible[p].toSql()));
    }
    Ejecuta(QStringLiteral("UPDATE adqFinanciamiento SET MontoAsignadoDisponible=%1").arg(asignado.toSql()));
    vb::Currency fuente = asignado;

    struct Solicitud { std::map<int, vb::Currency> porProyecto; vb::Currency monto; bool pagada = false; };
    std::vector<Solicitud> solicitudes(12);
    for (size_t i = 0; i < solicitudes.size(); ++i) {
        Solicitud& s = solicitudes[i];
        const int n = std::uniform_int_distribution<int>(1, 5)(azar);
        for (int k = 0; k < n; ++k) {
            const int p = std::uniform_int_distribution<int>(0, nProyectos - 1)(azar);
            const vb::Currency m = cantidad(9000, k % 2 == 0);
            s.porProyecto[p] += m;
            Ejecuta(QStringLiteral("INSERT INTO PagoFacturasDetalle (IdPagoFactura, IdProyecto, NoFactura, MontoFactura) VALUES (%1, %2, 'F', %3)")
                        .arg(i + 1).arg(p + 1).arg(m.toSql()));
        }
        for (const auto& [p, m] : s.porProyecto) s.monto += m;
        Ejecuta(QStringLiteral("INSERT INTO PagoFacturasGral (IdPagoFactura, IdProveedor, Monto, Estado, IdFinanciamiento) "
                               "VALUES (%1, 1, %2, 'S', 1)").arg(i + 1).arg(s.monto.toSql()));
    }

    int pagos = 0, deshechos = 0, rechazos = 0;
    size_t filasProyectos = nProyectos, filasFuente = 1;
    for (int paso = 0; paso < 120; ++paso) {
        const size_t i = std::uniform_int_distribution<size_t>(0, solicitudes.size() - 1)(azar);
        Solicitud& s = solicitudes[i];
        globales::IdPagoActual = static_cast<long>(i + 1);
        globales::IdFinanciamientoPago = 1;
        globales::MontoPago = s.monto;
        globales::ObservacionesPago = QString();
        globales::PagoSaldado = s.pagada;
        globales::FechaPagoActual = vb::Fecha::Today();
        const size_t cajas = sistema->cajas.size();
        pagoFacturasSaldar f;
        f.Form_Load();
        // The source moves by the amount as the form shows it: in cents.
        const vb::Currency mostrado = *vb::Currency::parse(f.lblMonto->text().remove(u'$').remove(u','));
        if (!s.pagada) {
            bool cabe = true;
            for (const auto& [p, m] : s.porProyecto) cabe = cabe && m <= disponible[p];
            f.cmdCargarPago_Click();
            if (!cabe) {
                ++rechazos;
                ASSERT_EQ(sistema->cajas.size(), cajas + 1);
                EXPECT_EQ(sistema->UltimaCaja().titulo, "Imposible realizar el pago");
            } else {
                ++pagos;
                for (const auto& [p, m] : s.porProyecto) disponible[p] -= m;
                fuente -= mostrado;
                s.pagada = true;
                filasProyectos += s.porProyecto.size();
                ++filasFuente;
            }
        } else {
            ++deshechos;
            f.cmdDeshacerPago_Click();
            for (const auto& [p, m] : s.porProyecto) disponible[p] += m;
            fuente += mostrado;
            s.pagada = false;
            filasProyectos += s.porProyecto.size();
            ++filasFuente;
        }
        SCOPED_TRACE(paso);
        for (int p = 0; p < nProyectos; ++p) {
            EXPECT_EQ(Valor(QStringLiteral("SELECT MontoDisponible FROM adqProyectos WHERE IdProyecto=%1").arg(p + 1)),
                      disponible[p].toSql());
            EXPECT_EQ(Valor(QStringLiteral("SELECT Sum(Monto) FROM adqSaldoProyectos WHERE IdEscuela=%1").arg(p + 10)),
                      disponible[p].toSql());
        }
        EXPECT_EQ(Valor("SELECT MontoAsignadoDisponible FROM adqFinanciamiento"), fuente.toSql());
        EXPECT_EQ(Valor(QStringLiteral("SELECT Estado FROM PagoFacturasGral WHERE IdPagoFactura=%1").arg(i + 1)),
                  s.pagada ? "P" : "S");
        EXPECT_EQ(Valor("SELECT Count(*) FROM adqSaldoProyectos").toULongLong(), filasProyectos);
        EXPECT_EQ(Valor("SELECT Count(*) FROM adqSaldoFinanciamientos").toULongLong(), filasFuente);
        if (HasFailure()) break;
    }
    EXPECT_GT(pagos, 10);
    EXPECT_GT(deshechos, 5);
    EXPECT_GT(rechazos, 0);
}

}  // namespace
