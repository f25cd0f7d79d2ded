// adq-util copiar between two files: a database of 20,000 titles under their requests copied whole, in
// rows a second. Every row goes through a new record of the DAO, as it would to a server.
#include "core/Esquema.h"
#include "core/dao/Dao.h"
#include "tools/Copia.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

void BM_CopiaEntreArchivos(benchmark::State& state) {
    QTemporaryDir dir;
    const QString origen = dir.filePath(QStringLiteral("KORVEL8.mdb"));
    const int titulos = static_cast<int>(state.range(0));
    {
        auto db = dao::Database::CreateDatabase(origen);
        esquema::CreaTablas(*db);
        auto sol = db->OpenRecordset(QStringLiteral("Solicitudes General"));
        for (int i = 1; i <= titulos / 10; ++i) {
            sol->AddNew();
            sol->Fields(QStringLiteral("NoSolicitud")) = i;
            sol->Fields(QStringLiteral("Solicitante")) = QStringLiteral("Solicitante %1").arg(i);
            sol->Fields(QStringLiteral("Estado")) = QStringLiteral("S");
            sol->Update();
        }
        auto libros = db->OpenRecordset(QStringLiteral("Solicitudes Libros"));
        for (int i = 1; i <= titulos; ++i) {
            libros->AddNew();
            libros->Fields(QStringLiteral("NoSolicitud")) = (i - 1) / 10 + 1;
            libros->Fields(QStringLiteral("Titulo")) = QStringLiteral("Título de la obra número %1, segunda edición").arg(i);
            libros->Fields(QStringLiteral("Autor")) = QStringLiteral("Autor %1").arg(i % 977);
            libros->Fields(QStringLiteral("Costo")) = vb::Currency::fromRaw(1234500 + i);
            libros->Fields(QStringLiteral("Estado")) = QStringLiteral("S");
            libros->Update();
        }
    }
    qint64 filas = 0;
    int n = 0;
    for (auto _ : state) {
        const QString destino = dir.filePath(QStringLiteral("copia-%1.mdb").arg(++n));
        filas += copia::Copia(origen, destino).filas;
        state.PauseTiming();
        QFile::remove(destino);
        state.ResumeTiming();
    }
    state.counters["filas/s"] = benchmark::Counter(static_cast<double>(filas), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_CopiaEntreArchivos)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
