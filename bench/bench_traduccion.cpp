// Translation of long statements: a select list of 2,000 columns and a WHERE of 10,000 OR'ed terms, each
// read, resolved against the program's tables and written for SQLite. Every phase is linear in the
// statement's length, so both stay far below the time an analyst would notice.
#include "core/Esquema.h"
#include "core/dao/Dao.h"
#include "core/jet/EmisorSqlite.h"
#include "core/jet/Parser.h"
#include "core/jet/Resolver.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

struct Base {
    QTemporaryDir dir;
    std::unique_ptr<dao::Database> db;
    Base() {
        db = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("t.mdb")));
        esquema::CreaTablas(*db);
    }
};

Base& LaBase() {
    static Base b;
    return b;
}

QString Columnas(int n) {
    QStringList c;
    for (int i = 0; i < n; ++i)
        c << (i % 3 == 0 ? QStringLiteral("Titulo") : i % 3 == 1 ? QStringLiteral("Costo * %1 AS c%1").arg(i)
                                                                  : QStringLiteral("[Ejemplares pedidos]"));
    return QStringLiteral("SELECT ") + c.join(QStringLiteral(", ")) + QStringLiteral(" FROM [Solicitudes Libros]");
}

QString Terminos(int n) {
    QStringList c;
    for (int i = 0; i < n; ++i) c << QStringLiteral("NoSolicitud = %1").arg(i);
    return QStringLiteral("SELECT Titulo FROM [Solicitudes Libros] WHERE ") + c.join(QStringLiteral(" OR "));
}

void Traduce(benchmark::State& state, const QString& sentencia) {
    Base& b = LaBase();
    for (auto _ : state) {
        jet::Sentencia s = jet::Analiza(sentencia);
        jet::Resolver r(b.db->catalogo());
        r.resuelve(s);
        jet::EmisorSqlite e;
        benchmark::DoNotOptimize(e.emite(s, r.tablaDestino(), true));
    }
    state.counters["caracteres"] = static_cast<double>(sentencia.size());
}

void BM_SelectDeColumnas(benchmark::State& state) { Traduce(state, Columnas(static_cast<int>(state.range(0)))); }
BENCHMARK(BM_SelectDeColumnas)->Unit(benchmark::kMillisecond)->Arg(2000)->Arg(20000)->Arg(128000);

void BM_CadenaDeOr(benchmark::State& state) { Traduce(state, Terminos(static_cast<int>(state.range(0)))); }
BENCHMARK(BM_CadenaDeOr)->Unit(benchmark::kMillisecond)->Arg(10000)->Arg(100000);

// The whole road for the OR chain: translated, prepared by SQLite and run over an empty table.
void BM_CadenaDeOrEjecutada(benchmark::State& state) {
    Base& b = LaBase();
    const QString sentencia = Terminos(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        auto rs = b.db->OpenRecordset(sentencia, dao::dbOpenSnapshot);
        benchmark::DoNotOptimize(rs->Eof());
    }
}
BENCHMARK(BM_CadenaDeOrEjecutada)->Unit(benchmark::kMillisecond)->Arg(10000);

}  // namespace

BENCHMARK_MAIN();
