// Settling a large payment request: 200 invoices charged to 50 projects of one source, from the press of
// "Cargar pago" to the form's close, the success box answered at once. Each round starts from the same
// unpaid request; putting it back is not measured.
#include "core/Esquema.h"
#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "finance/pagoFacturasSaldar.h"

#include "plataforma_banco.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int Proyectos = 50;
constexpr int Facturas = 200;
constexpr long Pago = 31;

struct BasePago {
    QTemporaryDir dir;
    BasePago() {
        auto db = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("KORVEL8.mdb")));
        esquema::CreaTablas(*db);
        auto ejecuta = [&](const QString& sql) { db->Execute(sql, dao::dbFailOnError); };
        ejecuta(QStringLiteral("INSERT INTO adqFinanciamiento (Nombre, MontoTotal, MontoAsignadoDisponible, MontoXAsignar) "
                               "VALUES ('Federal', 10000000, 10000000, 0)"));
        for (int p = 1; p <= Proyectos; ++p)
            ejecuta(QStringLiteral("INSERT INTO adqProyectos (Nombre, IdEscuela, TotalAsignado, MontoDisponible, "
                                   "IdFinanciamiento) VALUES ('Proyecto de la escuela %1', %1, 200000, 200000, 1)").arg(p));
        ejecuta(QStringLiteral("INSERT INTO PagoFacturasGral (IdPagoFactura, Monto, Estado, IdFinanciamiento) VALUES (%1, "
                               "%2, 'S', 1)").arg(Pago).arg(Facturas * 125.5));
        for (int f = 0; f < Facturas; ++f)
            ejecuta(QStringLiteral("INSERT INTO PagoFacturasDetalle (IdPagoFactura, IdProyecto, NoFactura, MontoFactura) "
                                   "VALUES (%1, %2, 'F-%3', 125.5)").arg(Pago).arg(f % Proyectos + 1).arg(f));
        globales::BaseDatos = std::move(db);
    }
    // The request unpaid again and the balances as they were.
    static void Restablece() {
        dao::Database& db = globales::Base();
        db.Execute(QStringLiteral("UPDATE adqProyectos SET MontoDisponible=200000"), dao::dbFailOnError);
        db.Execute(QStringLiteral("UPDATE adqFinanciamiento SET MontoAsignadoDisponible=10000000"), dao::dbFailOnError);
        db.Execute(QStringLiteral("UPDATE PagoFacturasGral SET Estado='S'"), dao::dbFailOnError);
        db.Execute(QStringLiteral("DELETE FROM adqSaldoProyectos"), dao::dbFailOnError);
        db.Execute(QStringLiteral("DELETE FROM adqSaldoFinanciamientos"), dao::dbFailOnError);
    }
};

void BM_SaldarPago(benchmark::State& state) {
    PlataformaBanco& plataforma = InstalaPlataformaBanco();
    static BasePago base;
    globales::LoginAnalista = QStringLiteral("admin");
    globales::IdPagoActual = Pago;
    globales::IdFinanciamientoPago = 1;
    globales::MontoPago = vb::Currency::fromLong(Facturas) * *vb::Currency::parse(QStringLiteral("125.5"));
    globales::PagoSaldado = false;
    for (auto _ : state) {
        state.PauseTiming();
        BasePago::Restablece();
        // The request's screen sets the remarks before each opening; the form leaves them quoted.
        globales::ObservacionesPago = QStringLiteral("Pago de prueba");
        pagoFacturasSaldar pantalla;
        pantalla.Form_Load();
        const int cajas = plataforma.cajas;
        state.ResumeTiming();
        pantalla.cmdCargarPago_Click();
        state.PauseTiming();
        if (plataforma.cajas != cajas + 1 ||
            globales::Base().OpenRecordset(QStringLiteral("SELECT Count(*) FROM adqSaldoProyectos"))->Fields(0).Value().text() !=
                QString::number(Proyectos))
            state.SkipWithError("el pago no se completó");
        state.ResumeTiming();
    }
}
BENCHMARK(BM_SaldarPago)->Unit(benchmark::kMillisecond);

}  // namespace
