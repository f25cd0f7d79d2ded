// The program on a PostgreSQL server (run with ADQ_PRUEBA_SERVIDOR=postgresql://user@host:port/postgres, e.g.
// under scripts/servidor-prueba.sh exec): each measure of the program beside the same work done with plain
// libpq calls, and start-up to the login dialog on a database of 100,000 requests.
//   - the dialect corpus through Database/Recordset, and its statements as the server receives them sent with
//     PQexec, every row of every answer read;
//   - a walk over 100,000 rows with Recordset, and the same rows read with PQexec into the program's types.
#include "../tests/jet/corpus_jet.h"
#include "core/DatosDemo.h"
#include "core/Esquema.h"
#include "core/FormPrincipal.h"
#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "core/jet/ConexionPostgres.h"
#include "core/jet/EmisorPostgres.h"
#include "core/jet/FuncionesSqlite.h"
#include "core/jet/Parser.h"
#include "core/jet/Resolver.h"
#include "core/ui/PlataformaPrueba.h"

#include <QTemporaryDir>
#include <QUrl>
#include <benchmark/benchmark.h>
#include <libpq-fe.h>
#include <unistd.h>

namespace {

constexpr int Solicitudes = 100000;

QString Uri(const QString& base) {
    QUrl u(qEnvironmentVariable("ADQ_PRUEBA_SERVIDOR"));
    u.setPath(u'/' + base);
    return QString::fromUtf8(u.toEncoded());
}

bool HayServidor(benchmark::State& state) {
    if (!qEnvironmentVariableIsEmpty("ADQ_PRUEBA_SERVIDOR")) return true;
    state.SkipWithError("sin ADQ_PRUEBA_SERVIDOR");
    return false;
}

// Databases made for the run, dropped at its end.
struct Bases {
    QStringList nombres;
    QString nueva(const QString& clase) {
        const QString n = QStringLiteral("adqbench_%1_%2_%3").arg(clase).arg(::getpid()).arg(nombres.size());
        nombres << n;
        return n;
    }
    ~Bases() {
        for (const auto& n : nombres) {
            try {
                dao::Database::DropDatabase(Uri(n));
            } catch (...) {
            }
        }
    }
};
Bases& LasBases() {
    static Bases b;
    return b;
}

// 100,000 requests and their titles, added by the server itself.
struct BaseGrande {
    QString uri;
    QTemporaryDir dir;
    BaseGrande() {
        uri = Uri(LasBases().nueva(QStringLiteral("grande")));
        auto db = dao::Database::CreateDatabase(uri);
        esquema::CreaTablas(*db);
        demo::CargaDemo(*db);
        db->postgres()->ejecuta(QStringLiteral(
            "INSERT INTO \"Solicitudes General\" (\"NoSolicitud\", \"Fecha\", \"Solicitante\", \"NoEscuela\", \"NoBiblioteca\", "
            "\"Estado\", \"FechaCaptura\", \"IdCapturista\", \"IdFinanciamiento\") SELECT i, '2026-03-01', 'Solicitante ' || i, "
            "1, 2, 'S', '2026-03-01 10:00:00', 'admin', 0 FROM generate_series(10, %1) i").arg(Solicitudes + 9));
        db->postgres()->ejecuta(QStringLiteral(
            "INSERT INTO \"Solicitudes Libros\" (\"Titulo\", \"Autor\", \"Ejemplares pedidos\", \"NoEditorial\", \"Estado\", "
            "\"NoSolicitud\", \"IdCapturista\") SELECT 'Título', 'Autor', 1, 1, 'S', i % 30000, 'admin' "
            "FROM generate_series(10, %1) i").arg(Solicitudes + 9));
        db->postgres()->ejecuta(QStringLiteral("VACUUM ANALYZE"));
    }
};
BaseGrande& Grande() {
    static BaseGrande b;
    return b;
}

void BM_ArranqueHastaElDialogoEnServidor(benchmark::State& state) {
    if (!HayServidor(state)) return;
    BaseGrande& base = Grande();
    for (auto _ : state) {
        auto plataforma = std::make_unique<ui::PlataformaPrueba>();
        plataforma->rutaPrograma = base.dir.path();
        plataforma->directorioActual = base.dir.path();
        ui::InstalaPlataforma(std::move(plataforma));
        FormPrincipal principal;
        principal.NombreBase = base.uri;
        if (!principal.ArranqueHastaLogin()) state.SkipWithError("no llegó al diálogo");
        state.PauseTiming();
        globales::BaseDatos.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_ArranqueHastaElDialogoEnServidor)->Unit(benchmark::kMillisecond);

const char* const ConsultaRecorrido =
    "SELECT NoSolicitud, Fecha, Solicitante, NoEscuela, Estado FROM [Solicitudes General] ORDER BY NoSolicitud";

void BM_RecorridoRecordset(benchmark::State& state) {
    if (!HayServidor(state)) return;
    auto db = dao::Database::OpenDatabase(Grande().uri);
    for (auto _ : state) {
        auto rs = db->OpenRecordset(QString::fromLatin1(ConsultaRecorrido), dao::dbOpenSnapshot);
        dao::Field& n = rs->Fields(0);
        dao::Field& f = rs->Fields(1);
        dao::Field& s = rs->Fields(2);
        dao::Field& e = rs->Fields(3);
        dao::Field& t = rs->Fields(4);
        long filas = 0;
        for (; !rs->Eof(); rs->MoveNext(), ++filas) {
            benchmark::DoNotOptimize(n.Value());
            benchmark::DoNotOptimize(f.Value());
            benchmark::DoNotOptimize(s.Value());
            benchmark::DoNotOptimize(e.Value());
            benchmark::DoNotOptimize(t.Value());
        }
        if (filas < Solicitudes) state.SkipWithError("faltan filas");
    }
    state.SetItemsProcessed(state.iterations() * Solicitudes);
}
BENCHMARK(BM_RecorridoRecordset)->Unit(benchmark::kMillisecond);

// The same rows with PQexec, each value read into the program's own types.
void BM_RecorridoLibpq(benchmark::State& state) {
    if (!HayServidor(state)) return;
    PGconn* c = PQconnectdb(Grande().uri.toUtf8().constData());
    PQexec(c, "SET DateStyle = 'ISO, YMD'");
    for (auto _ : state) {
        PGresult* r = PQexec(c, "SELECT \"NoSolicitud\", \"Fecha\", \"Solicitante\", \"NoEscuela\", \"Estado\" FROM "
                                "\"Solicitudes General\" ORDER BY \"NoSolicitud\" NULLS FIRST");
        const int filas = PQntuples(r);
        for (int i = 0; i < filas; ++i) {
            benchmark::DoNotOptimize(vb::Variant::Long(static_cast<qint32>(std::strtol(PQgetvalue(r, i, 0), nullptr, 10))));
            benchmark::DoNotOptimize(jet::FechaAlmacenada(PQgetvalue(r, i, 1), PQgetlength(r, i, 1)));
            benchmark::DoNotOptimize(vb::Variant(QString::fromUtf8(PQgetvalue(r, i, 2), PQgetlength(r, i, 2))));
            benchmark::DoNotOptimize(vb::Variant::Long(static_cast<qint32>(std::strtol(PQgetvalue(r, i, 3), nullptr, 10))));
            benchmark::DoNotOptimize(vb::Variant(QString::fromUtf8(PQgetvalue(r, i, 4), PQgetlength(r, i, 4))));
        }
        PQclear(r);
        if (filas < Solicitudes) state.SkipWithError("faltan filas");
    }
    PQfinish(c);
    state.SetItemsProcessed(state.iterations() * Solicitudes);
}
BENCHMARK(BM_RecorridoLibpq)->Unit(benchmark::kMillisecond);

// The corpus: its data, then every statement that reads or writes rows (the schema changes and the writes into
// another file are left out of both sides), on a fresh copy of a database with every table.
struct Corpus {
    QString plantilla;
    std::vector<corpus::Entrada> entradas;     // data first, then the statements
    std::vector<QByteArray> sql;               // the same, as the server receives them
    Corpus() {
        plantilla = LasBases().nueva(QStringLiteral("corpus"));
        {
            auto db = dao::Database::CreateDatabase(Uri(plantilla));
            esquema::CreaTablas(*db);
        }
        for (const auto& e : corpus::LeeCorpus(QStringLiteral("datos.sql"))) entradas.push_back(e);
        for (const auto& e : corpus::LeeCorpus(QStringLiteral("sentencias.sql"))) entradas.push_back(e);
        auto db = dao::Database::OpenDatabase(Uri(plantilla));
        std::vector<corpus::Entrada> usadas;
        for (const auto& e : entradas) {
            try {
                jet::Sentencia s = jet::Analiza(e.sentencia);
                if (s.clase != jet::Sentencia::Consulta && s.clase != jet::Sentencia::Insercion &&
                    s.clase != jet::Sentencia::Actualizacion && s.clase != jet::Sentencia::Borrado)
                    continue;
                if (!s.baseExterna.isEmpty()) continue;
                jet::Resolver resolver(db->catalogo());
                resolver.resuelve(s);
                sql.push_back(jet::EmisorPostgres().emite(s, resolver.tablaDestino()).sql.toUtf8());
                usadas.push_back(e);
            } catch (const vb::Error&) {
                // refused before it reaches the server: the same on both sides, left out
            }
        }
        entradas = std::move(usadas);
    }
};
Corpus& ElCorpus() {
    static Corpus c;
    return c;
}

QString Copia(Corpus& c) {
    const QString nombre = LasBases().nueva(QStringLiteral("c"));
    dao::Database::CopiaBaseEnServidor(Uri(c.plantilla), Uri(nombre));
    return nombre;
}

void BM_CorpusDao(benchmark::State& state) {
    if (!HayServidor(state)) return;
    Corpus& c = ElCorpus();
    for (auto _ : state) {
        state.PauseTiming();
        const QString nombre = Copia(c);
        auto db = dao::Database::OpenDatabase(Uri(nombre));
        state.ResumeTiming();
        for (const auto& e : c.entradas) {
            try {
                if (corpus::EsConsulta(e.sentencia)) {
                    auto rs = db->OpenRecordset(e.sentencia, dao::dbOpenSnapshot);
                    for (; !rs->Eof(); rs->MoveNext())
                        for (int i = 0; i < rs->Fields().Count(); ++i) benchmark::DoNotOptimize(rs->Fields(i).Value());
                } else {
                    db->Execute(e.sentencia, dao::dbFailOnError);
                }
            } catch (const vb::Error&) {
            }
        }
        state.PauseTiming();
        db.reset();
        dao::Database::DropDatabase(Uri(nombre));
        LasBases().nombres.removeAll(nombre);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<long>(c.entradas.size()));
}
BENCHMARK(BM_CorpusDao)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_CorpusLibpq(benchmark::State& state) {
    if (!HayServidor(state)) return;
    Corpus& c = ElCorpus();
    for (auto _ : state) {
        state.PauseTiming();
        const QString nombre = Copia(c);
        PGconn* con = PQconnectdb(Uri(nombre).toUtf8().constData());
        PQexec(con, "SET DateStyle = 'ISO, YMD'");
        state.ResumeTiming();
        for (const QByteArray& sql : c.sql) {
            PGresult* r = PQexec(con, sql.constData());
            const int filas = PQntuples(r), columnas = PQnfields(r);
            for (int f = 0; f < filas; ++f)
                for (int k = 0; k < columnas; ++k)
                    benchmark::DoNotOptimize(QString::fromUtf8(PQgetvalue(r, f, k), PQgetlength(r, f, k)));
            PQclear(r);
        }
        state.PauseTiming();
        PQfinish(con);
        dao::Database::DropDatabase(Uri(nombre));
        LasBases().nombres.removeAll(nombre);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<long>(c.sql.size()));
}
BENCHMARK(BM_CorpusLibpq)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace
