// Migration of a legacy file (nwind.mdb, the 1997 generation: nine tables, 4,032 rows with money, dates,
// memos and OLE pictures) into a new database of this program, whole: the reader process, the decoding of
// its stream, the tables made through the engine's catalog, every row inserted, the indexes, the file put
// in place. Rows per second over the whole work; the goal is above 50,000.
//  - BM_MigraNeptuno: legado::Migra, start to end.
//  - BM_LeeNeptuno: the reading alone (the reader process and the decoding), for where the time goes.
#include "core/legado/Legado.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

const QString Neptuno = QStringLiteral(ADQ_SOURCE_DIR "/../shared/testdata/jet/nwind.mdb");

void BM_MigraNeptuno(benchmark::State& state) {
    QTemporaryDir dir;
    qint64 filas = 0;
    int vuelta = 0;
    for (auto _ : state) {
        const QString destino = dir.filePath(QStringLiteral("n%1.mdb").arg(vuelta++));
        filas += legado::Migra(Neptuno, destino).filas;
        state.PauseTiming();
        QFile::remove(destino);
        state.ResumeTiming();
    }
    state.counters["filas/s"] = benchmark::Counter(static_cast<double>(filas), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_MigraNeptuno)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_LeeNeptuno(benchmark::State& state) {
    struct Cuenta : legado::Receptor {
        qint64 filas = 0;
        void Tabla(const legado::Tabla&, legado::Formato) override {}
        void Fila(const std::vector<legado::Valor>&) override { ++filas; }
    } cuenta;
    for (auto _ : state) legado::Lee(Neptuno, cuenta);
    state.counters["filas/s"] = benchmark::Counter(static_cast<double>(cuenta.filas), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_LeeNeptuno)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
