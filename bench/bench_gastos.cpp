// The expense report by source over a busy year: 5,000 payments of one source, each with its ledger row,
// generated (the query into the list and the running balance) and shown as the page to print, as the
// analyst waits for both; and each of the two steps apart.
#include "core/Esquema.h"
#include "core/Globales.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "core/dao/Dao.h"
#include "finance/frmReporteGastosFuente.h"
#include "plataforma_banco.h"

#include <QApplication>
#include <QDate>
#include <QLineEdit>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

constexpr int Pagos = 5000;

struct BaseGastos {
    QTemporaryDir dir;
    BaseGastos() {
        auto db = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("KORVEL8.mdb")));
        esquema::CreaTablas(*db);
        auto ejecuta = [&db](const QString& sql) { db->Execute(sql, dao::dbFailOnError); };
        sqlite3_exec(db->sqlite(), "BEGIN", nullptr, nullptr, nullptr);
        ejecuta(QStringLiteral("INSERT INTO Proveedores ([No], Empresa) VALUES (1, 'Distribuidora de Libros del Norte')"));
        ejecuta(QStringLiteral("INSERT INTO Proveedores ([No], Empresa) VALUES (2, 'Papelería y Suministros')"));
        ejecuta(QStringLiteral("INSERT INTO adqFinanciamiento (Nombre, MontoTotal, FechaCaptura) VALUES ('Federal', "
                               "50000000, #2025/12/15#)"));
        ejecuta(QStringLiteral("INSERT INTO adqSaldoFinanciamientos VALUES (1, #2025/12/15#, 50000000, 0, '+ADDFinan', 'admin')"));
        for (int i = 1; i <= Pagos; ++i) {
            const QString fecha = QDate(2026, 1, 1).addDays(i % 365).toString(QStringLiteral("yyyy/MM/dd"));
            const QString monto = QStringLiteral("%1.%2").arg(100 + i % 900).arg(i % 100, 2, 10, QLatin1Char('0'));
            ejecuta(QStringLiteral("INSERT INTO PagoFacturasGral (IdPagoFactura, IdFinanciamiento, IdProveedor, Monto, Concepto, "
                                   "FechaPago, Estado) VALUES (%1, 1, %2, %3, 'Compra de material bibliográfico %1', #%4#, 'P')")
                        .arg(i).arg(1 + i % 2).arg(monto, fecha));
            ejecuta(QStringLiteral("INSERT INTO adqSaldoFinanciamientos VALUES (1, #%1#, -%2, 0, '-SALDpag', 'admin')").arg(fecha, monto));
        }
        sqlite3_exec(db->sqlite(), "COMMIT", nullptr, nullptr, nullptr);
        globales::BaseDatos = std::move(db);
    }
};

// The screen with the whole year chosen.
void Prepara(frmReporteGastosFuente& r) {
    globales::ReporteGastosPorEscuela = false;
    r.Form_Load();
    r.cboFuenteFinanciamiento->setListIndex(0);
    r.txtFechaInicial->setText(QStringLiteral("01/01/2026"));
    r.txtFechaFinal->setText(QStringLiteral("31/12/2026"));
}

void Comprueba(benchmark::State& state, frmReporteGastosFuente& r) {
    if (r.ListView1->ListItems().Count() != Pagos) state.SkipWithError("el reporte no salió completo");
}

// What the analyst waits for: the report generated, then shown as the page to print.
void BM_ReportePorFuente(benchmark::State& state) {
    PlataformaBanco& p = InstalaPlataformaBanco();
    for (auto _ : state) {
        frmReporteGastosFuente r;
        Prepara(r);
        r.cmdGenerar_Click();
        r.cmdImprimir_Click();
        Comprueba(state, r);
        if (!r.WebBrowser1->DocumentHtml().contains(QStringLiteral("Totales: "))) state.SkipWithError("sin página");
    }
    if (p.cajas != 0) state.SkipWithError("una caja detuvo el reporte");
}
BENCHMARK(BM_ReportePorFuente)->Unit(benchmark::kMillisecond);

void BM_SoloGenerar(benchmark::State& state) {
    InstalaPlataformaBanco();
    frmReporteGastosFuente r;
    Prepara(r);
    for (auto _ : state) {
        r.cmdGenerar_Click();
        Comprueba(state, r);
    }
}
BENCHMARK(BM_SoloGenerar)->Unit(benchmark::kMillisecond);

void BM_SoloPagina(benchmark::State& state) {
    InstalaPlataformaBanco();
    frmReporteGastosFuente r;
    Prepara(r);
    r.cmdGenerar_Click();
    for (auto _ : state) r.GenerarReporteHTML();
    Comprueba(state, r);
}
BENCHMARK(BM_SoloPagina)->Unit(benchmark::kMillisecond);

}  // namespace
