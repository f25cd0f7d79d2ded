// Opening the funding sources on a department's worth of money: 500 sources, 2,000 school budgets and 50,000
// ledger rows. The opening recomputes both balance columns of every source from the ledger and the budgets,
// statement by statement, before the first source is shown; the budgets' screen does the same per project.
#include "core/Esquema.h"
#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "finance/Proyectos.h"
#include "finance/frmFuentesFin.h"

#include "plataforma_banco.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

constexpr int Fuentes = 500;
constexpr int ProyectosPorFuente = 4;
constexpr int Pagos = 23750;   // a source's row and a project's row each: with the captures, 50,000 ledger rows
constexpr int Escuelas = 40;

struct BaseFuentes {
    QTemporaryDir dir;
    BaseFuentes() {
        InstalaPlataformaBanco();
        auto db = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("KORVEL8.mdb")));
        esquema::CreaTablas(*db);
        // Written through the engine, as the screens write them, in one transaction for a quick set-up.
        sqlite3_exec(db->sqlite(), "BEGIN", nullptr, nullptr, nullptr);
        auto ejecuta = [&](const QString& sql) { db->Execute(sql, dao::dbFailOnError); };
        for (int f = 1; f <= Fuentes; ++f) {
            ejecuta(QStringLiteral("INSERT INTO adqFinanciamiento (Nombre, MontoTotal, FechaCaptura, MontoAsignadoDisponible, "
                                   "UltimoMovimiento, MontoXAsignar, IdCapturista) VALUES ('Fuente %1', 1000000.5, #2026/01/02#, "
                                   "0, #2026/01/02#, 0, 'admin')").arg(f));
            ejecuta(QStringLiteral("INSERT INTO adqSaldoFinanciamientos VALUES (%1, #2026/01/02#, 1000000.5, 0, '+ADDFinan', 'admin')").arg(f));
            for (int p = 0; p < ProyectosPorFuente; ++p) {
                const int escuela = (f * ProyectosPorFuente + p) % Escuelas + 1;
                ejecuta(QStringLiteral("INSERT INTO adqProyectos (Nombre, Responsable, IdEscuela, FuenteFinanciamiento, "
                                       "FechaAsignacion, FechaVigencia, TotalAsignado, UltimoMovimiento, MontoDisponible, "
                                       "FechaCaptura, IdCapturista, IdFinanciamiento) VALUES ('Proyecto %1-%2', 'Responsable', "
                                       "%3, 'Fuente %1', #2026/01/10#, #2026/12/31#, 200000.25, #2026/01/10#, 200000.25, "
                                       "#2026/01/10#, 'admin', %1)")
                            .arg(f).arg(p).arg(escuela));
                ejecuta(QStringLiteral("INSERT INTO adqSaldoProyectos VALUES (%1, %2, #2026/01/10#, 200000.25, 0, '+ADDproy', 'admin')")
                            .arg(escuela).arg(f));
            }
        }
        for (int i = 0; i < Pagos; ++i) {
            const int f = i % Fuentes + 1;
            const QString monto = QStringLiteral("%1.%2").arg(10 + i % 900).arg(i % 100, 2, 10, QLatin1Char('0'));
            ejecuta(QStringLiteral("INSERT INTO adqSaldoFinanciamientos VALUES (%1, #2026/03/04 10:00#, -%2, 0, '-SALDpag', 'admin')")
                        .arg(f).arg(monto));
            ejecuta(QStringLiteral("INSERT INTO adqSaldoProyectos VALUES (%1, %2, #2026/03/04 10:00#, -%3, 0, '-CARG %4', 'admin')")
                        .arg(i % Escuelas + 1).arg(f).arg(monto).arg(i % 10000, 4, 10, QLatin1Char('0')));
        }
        sqlite3_exec(db->sqlite(), "COMMIT", nullptr, nullptr, nullptr);
        globales::BaseDatos = std::move(db);
        globales::LoginAnalista = QStringLiteral("admin");
    }
};

BaseFuentes& Base() {
    static BaseFuentes base;
    return base;
}

// The analyst's wait from the menu command to the first source on screen.
void BM_AbreFuentes(benchmark::State& state) {
    Base();
    for (auto _ : state) {
        frmFuentesFin pantalla;
        pantalla.Form_Load();
        if (!pantalla.rsFuentes || pantalla.rsFuentes->Eof()) state.SkipWithError("no se leyó ninguna fuente");
    }
    state.counters["fuentes"] = Fuentes;
}
BENCHMARK(BM_AbreFuentes)->Unit(benchmark::kMillisecond);

// The budgets' screen on the same data: its recomputation runs per project.
void BM_AbreProyectos(benchmark::State& state) {
    Base();
    for (auto _ : state) {
        Proyectos pantalla;
        pantalla.Form_Load();
    }
    state.counters["proyectos"] = Fuentes * ProyectosPorFuente;
}
BENCHMARK(BM_AbreProyectos)->Unit(benchmark::kMillisecond);

}  // namespace
