// Benchmarks of the SQL engine:
//  - translation of every statement of the corpus against SQLite's own prepare of the translated text;
//  - a walk over 100,000 rows through Recordset against a raw sqlite3_step loop over the same SQL;
//  - 10,000 single-row INSERTs, each committed on its own.
#include "core/DatosDemo.h"
#include "core/Esquema.h"
#include "core/dao/Dao.h"
#include "core/jet/EmisorSqlite.h"
#include "core/jet/Parser.h"
#include "core/jet/Resolver.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <chrono>

namespace {

// The corpus statements that run on the main database (those for a second file are left out).
QStringList SentenciasCorpus() {
    QFile f(QStringLiteral(ADQ_SOURCE_DIR "/tests/jet/corpus/sentencias.sql"));
    QStringList sentencias;
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) return sentencias;
    QString actual;
    bool enSentencia = false;
    auto cierra = [&]() {
        if (enSentencia && !actual.trimmed().isEmpty() && !actual.contains(QLatin1String("@OTRA@")))
            sentencias << actual.trimmed();
        actual.clear();
    };
    QTextStream in(&f);
    QString linea;
    while (in.readLineInto(&linea)) {
        if (linea.startsWith(QLatin1String("=== "))) {
            cierra();
            enSentencia = false;
        } else if (linea.startsWith(QLatin1String("expect:"))) {
            enSentencia = true;
        } else if (enSentencia) {
            actual += (actual.isEmpty() ? QString() : QStringLiteral("\n")) + linea;
        }
    }
    cierra();
    return sentencias;
}

struct Traducida {
    QString original;
    QByteArray sqlite;
};

void BM_TraduccionContraPrepare(benchmark::State& state) {
    QTemporaryDir dir;
    auto db = dao::Database::CreateDatabase(dir.filePath("b.mdb"));
    esquema::CreaTablas(*db);
    demo::CargaDemo(*db);
    // Keep the statements that translate (those meant to fail are not what is measured).
    std::vector<Traducida> corpus;
    for (const auto& s : SentenciasCorpus()) {
        try {
            jet::Sentencia st = jet::Analiza(s);
            if (st.clase > jet::Sentencia::Borrado) continue;
            jet::Resolver r(db->catalogo());
            r.resuelve(st);
            jet::EmisorSqlite e;
            corpus.push_back({s, e.emite(st, r.tablaDestino(), false, r.esquemaDestino()).sql.toUtf8()});
        } catch (const vb::Error&) {
        }
    }
    double traduccion = 0, prepare = 0, analisis = 0, resolucion = 0;
    for (auto _ : state) {
        const auto a0 = std::chrono::steady_clock::now();
        std::vector<jet::Sentencia> arboles;
        arboles.reserve(corpus.size());
        for (const auto& c : corpus) arboles.push_back(jet::Analiza(c.original));
        const auto a1 = std::chrono::steady_clock::now();
        for (auto& st : arboles) {
            jet::Resolver r(db->catalogo());
            r.resuelve(st);
        }
        const auto a2 = std::chrono::steady_clock::now();
        analisis += std::chrono::duration<double, std::micro>(a1 - a0).count();
        resolucion += std::chrono::duration<double, std::micro>(a2 - a1).count();
        const auto t0 = std::chrono::steady_clock::now();
        for (const auto& c : corpus) {
            jet::Sentencia st = jet::Analiza(c.original);
            jet::Resolver r(db->catalogo());
            r.resuelve(st);
            jet::EmisorSqlite e;
            benchmark::DoNotOptimize(e.emite(st, r.tablaDestino(), false, r.esquemaDestino()));
        }
        const auto t1 = std::chrono::steady_clock::now();
        for (const auto& c : corpus) {
            sqlite3_stmt* p = nullptr;
            sqlite3_prepare_v2(db->sqlite(), c.sqlite.constData(), static_cast<int>(c.sqlite.size()), &p, nullptr);
            sqlite3_finalize(p);
        }
        const auto t2 = std::chrono::steady_clock::now();
        traduccion += std::chrono::duration<double, std::micro>(t1 - t0).count();
        prepare += std::chrono::duration<double, std::micro>(t2 - t1).count();
    }
    const double n = static_cast<double>(state.iterations()) * static_cast<double>(corpus.size());
    state.counters["sentencias"] = static_cast<double>(corpus.size());
    state.counters["traduccion_us"] = traduccion / n;
    state.counters["prepare_us"] = prepare / n;
    state.counters["razon"] = traduccion / prepare;
    state.counters["analisis_us"] = analisis / n;
    state.counters["resolucion_us"] = resolucion / n;
}
BENCHMARK(BM_TraduccionContraPrepare)->Unit(benchmark::kMillisecond);

constexpr int FilasRecorrido = 100000;
const char* const ConsultaRecorrido =
    "SELECT ClaveLibro, Titulo, Autor, [Ejemplares pedidos], Costo, [Fecha de Recepcion] FROM [Solicitudes Libros]";

struct BaseGrande {
    QTemporaryDir dir;
    std::unique_ptr<dao::Database> db;
    QByteArray sqlTraducida;
    BaseGrande() {
        db = dao::Database::CreateDatabase(dir.filePath("g.mdb"));
        esquema::CreaTablas(*db);
        sqlite3_exec(db->sqlite(), "BEGIN", nullptr, nullptr, nullptr);
        sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(db->sqlite(),
                           "INSERT INTO \"Solicitudes Libros\" (Titulo, Autor, \"Ejemplares pedidos\", Costo, "
                           "\"Fecha de Recepcion\", NoSolicitud) VALUES (?1, ?2, ?3, ?4, ?5, ?6)",
                           -1, &st, nullptr);
        for (int i = 0; i < FilasRecorrido; ++i) {
            const QByteArray titulo = QStringLiteral("Título número %1 de la colección").arg(i).toUtf8();
            const QByteArray autor = QStringLiteral("Autor %1, Nombre").arg(i % 977).toUtf8();
            const QByteArray fecha = QStringLiteral("2026-%1-%2 00:00:00").arg(i % 12 + 1, 2, 10, QLatin1Char('0'))
                                         .arg(i % 28 + 1, 2, 10, QLatin1Char('0')).toUtf8();
            sqlite3_bind_text(st, 1, titulo.constData(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_text(st, 2, autor.constData(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_int(st, 3, i % 5 + 1);
            sqlite3_bind_double(st, 4, 100.25 + i % 1000);
            sqlite3_bind_text(st, 5, fecha.constData(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_int(st, 6, i % 30000);
            sqlite3_step(st);
            sqlite3_reset(st);
        }
        sqlite3_finalize(st);
        sqlite3_exec(db->sqlite(), "COMMIT", nullptr, nullptr, nullptr);
        jet::Sentencia s = jet::Analiza(QString::fromUtf8(ConsultaRecorrido));
        jet::Resolver r(db->catalogo());
        r.resuelve(s);
        jet::EmisorSqlite e;
        sqlTraducida = e.emite(s, nullptr).sql.toUtf8();
    }
};

BaseGrande& Grande() {
    static BaseGrande b;
    return b;
}

// A query over one table opens as a dynaset, the default: it keeps row ids and reads values live. A
// snapshot keeps a copy of every row it meets. Each iteration opens a new recordset over the same
// database, so from the second on a snapshot copies its rows into the store blocks that the one before
// gave back, as a screen that opens its list again does.
void BM_RecorridoRecordset(benchmark::State& state) {
    auto& b = Grande();
    const int tipo = static_cast<int>(state.range(0));
    for (auto _ : state) {
        auto rs = b.db->OpenRecordset(QString::fromUtf8(ConsultaRecorrido), tipo);
        long filas = 0;
        while (!rs->Eof()) {
            for (int i = 0; i < 6; ++i) benchmark::DoNotOptimize(rs->Fields(i).Value());
            ++filas;
            rs->MoveNext();
        }
        if (filas != FilasRecorrido) state.SkipWithError("filas de menos");
    }
    state.SetItemsProcessed(state.iterations() * FilasRecorrido);
}
BENCHMARK(BM_RecorridoRecordset)->Unit(benchmark::kMillisecond)->ArgName("tipo")->Arg(dao::dbOpenDynaset)->Arg(dao::dbOpenSnapshot);

// The same rows through sqlite3_step, each value read into its plain C++ form (text as QString). The
// date is taken as its text: making that QString costs no less than the engine's reading of the stored
// text into a Date, so this loop is not spared work there.
void BM_RecorridoSqliteDirecto(benchmark::State& state) {
    auto& b = Grande();
    for (auto _ : state) {
        sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(b.db->sqlite(), b.sqlTraducida.constData(), -1, &st, nullptr);
        long filas = 0;
        while (sqlite3_step(st) == SQLITE_ROW) {
            benchmark::DoNotOptimize(sqlite3_column_int64(st, 0));
            benchmark::DoNotOptimize(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 1)),
                                                       sqlite3_column_bytes(st, 1)));
            benchmark::DoNotOptimize(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 2)),
                                                       sqlite3_column_bytes(st, 2)));
            benchmark::DoNotOptimize(sqlite3_column_int64(st, 3));
            benchmark::DoNotOptimize(sqlite3_column_double(st, 4));
            benchmark::DoNotOptimize(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 5)),
                                                       sqlite3_column_bytes(st, 5)));
            ++filas;
        }
        sqlite3_finalize(st);
        if (filas != FilasRecorrido) state.SkipWithError("filas de menos");
    }
    state.SetItemsProcessed(state.iterations() * FilasRecorrido);
}
BENCHMARK(BM_RecorridoSqliteDirecto)->Unit(benchmark::kMillisecond);

void BM_DiezMilInserciones(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir dir;
        auto db = dao::Database::CreateDatabase(dir.filePath("i.mdb"));
        esquema::CreaTablas(*db);
        state.ResumeTiming();
        for (int i = 1; i <= 10000; ++i) {
            db->Execute(QStringLiteral("INSERT INTO adqSaldoFinanciamientos VALUES (%1,#11-22-2026#,%2.5,0,'+ADDFinan','admin')")
                            .arg(i % 50 + 1).arg(i),
                        dao::dbFailOnError);
        }
        state.PauseTiming();
        db.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * 10000);
}
BENCHMARK(BM_DiezMilInserciones)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
