// Start-up on a large database: from the main window's Form_Load to the moment the login dialog would be
// shown (opening the file, reading the settings, the schema steps, the look at Analistas), on a database
// with 100,000 requests and their titles.
#include "core/DatosDemo.h"
#include "core/Esquema.h"
#include "core/FormPrincipal.h"
#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "core/ui/PlataformaPrueba.h"

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

void BM_ArranqueHastaElDialogo(benchmark::State& state) {
    static BaseGrande base;
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

}  // namespace
