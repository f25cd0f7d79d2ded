// Start-up on a large database: from the main window's Form_Load to the moment the login dialog would be
// shown (opening the file, reading the settings, the schema steps, the look at Analistas), on a database
// with 100,000 requests and their titles.
#include "core/DatosDemo.h"
#include "core/Esquema.h"
#include "core/FormPrincipal.h"
#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "core/ui/PlataformaPrueba.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

constexpr int Solicitudes = 100000;

struct BaseGrande {
    QTemporaryDir dir;
    BaseGrande() {
        auto db = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("KORVEL8.mdb")));
        esquema::CreaTablas(*db);
        demo::CargaDemo(*db);
        sqlite3* s = db->sqlite();
        sqlite3_exec(s, "BEGIN", nullptr, nullptr, nullptr);
        sqlite3_stmt* sg = nullptr;
        sqlite3_stmt* sl = nullptr;
        sqlite3_prepare_v2(s,
                           "INSERT INTO \"Solicitudes General\" (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, "
                           "Estado, FechaCaptura, IdCapturista, IdFinanciamiento) VALUES (?1, '2026-03-01 00:00:00', "
                           "'Solicitante', 1, 2, 'S', '2026-03-01 10:00:00', 'admin', 0)",
                           -1, &sg, nullptr);
        sqlite3_prepare_v2(s,
                           "INSERT INTO \"Solicitudes Libros\" (Titulo, Autor, \"Ejemplares pedidos\", NoEditorial, Estado, "
                           "NoSolicitud, IdCapturista) VALUES ('Título', 'Autor', 1, 1, 'S', ?1, 'admin')",
                           -1, &sl, nullptr);
        for (int i = 10; i < Solicitudes + 10; ++i) {
            sqlite3_bind_int(sg, 1, i);
            sqlite3_step(sg);
            sqlite3_reset(sg);
            sqlite3_bind_int(sl, 1, i % 30000);
            sqlite3_step(sl);
            sqlite3_reset(sl);
        }
        sqlite3_finalize(sg);
        sqlite3_finalize(sl);
        sqlite3_exec(s, "COMMIT", nullptr, nullptr, nullptr);
    }
};

BaseGrande& Grande() {
    static BaseGrande base;
    return base;
}

void BM_ArranqueHastaElDialogo(benchmark::State& state) {
    BaseGrande& base = Grande();
    for (auto _ : state) {
        auto plataforma = std::make_unique<ui::PlataformaPrueba>();
        plataforma->rutaPrograma = base.dir.path();
        plataforma->directorioActual = base.dir.path();
        ui::InstalaPlataforma(std::move(plataforma));
        FormPrincipal principal;
        if (!principal.ArranqueHastaLogin()) state.SkipWithError("no llegó al diálogo");
        state.PauseTiming();
        globales::BaseDatos.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_ArranqueHastaElDialogo)->Unit(benchmark::kMillisecond);

// Opening alone, with the look at the header and the read-only quick check that come before any write.
void BM_AbrirLaBase(benchmark::State& state) {
    BaseGrande& base = Grande();
    const QString ruta = base.dir.filePath(QStringLiteral("KORVEL8.mdb"));
    for (auto _ : state) {
        auto db = dao::Database::OpenDatabase(ruta);
        benchmark::DoNotOptimize(db.get());
    }
}
BENCHMARK(BM_AbrirLaBase)->Unit(benchmark::kMillisecond);

// The quick check by itself, on a connection of its own.
void BM_RevisionRapida(benchmark::State& state) {
    BaseGrande& base = Grande();
    const QByteArray ruta = QFile::encodeName(base.dir.filePath(QStringLiteral("KORVEL8.mdb")));
    sqlite3* c = nullptr;
    sqlite3_open_v2(ruta.constData(), &c, SQLITE_OPEN_READONLY, nullptr);
    for (auto _ : state) sqlite3_exec(c, "PRAGMA quick_check(20)", nullptr, nullptr, nullptr);
    sqlite3_close(c);
}
BENCHMARK(BM_RevisionRapida)->Unit(benchmark::kMillisecond);

}  // namespace
