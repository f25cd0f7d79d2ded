// The entry point of the benchmarks that need the toolkit: an offscreen application unless a display is asked
// for, the benchmarks, and the shared database closed before the application goes.
#include "core/Globales.h"
#include "core/dao/Dao.h"

#include <QApplication>
#include <benchmark/benchmark.h>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    globales::BaseDatos.reset();
    return 0;
}
