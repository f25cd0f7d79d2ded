// Fuzz target of the statement front end: any bytes, read as a statement (or, after a first byte 0x01, as a
// recordset's criterion), go through the reader, the resolver against the program's tables and the writer,
// and what comes out is prepared by SQLite; a query also runs for a bounded number of steps. Any engine
// error is a fine outcome; a crash, a sanitizer report, an exception that is not the engine's, or a
// statement SQLite refuses with a message the engine did not translate is a fault.
#include "core/DatosDemo.h"
#include "core/Esquema.h"
#include "core/dao/Dao.h"
#include "core/jet/EmisorSqlite.h"
#include "core/jet/FuncionesSqlite.h"
#include "core/jet/Parser.h"
#include "core/jet/Resolver.h"

#include <QTemporaryDir>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

namespace {

struct Base {
    QTemporaryDir dir;
    std::unique_ptr<dao::Database> db;
    Base() {
        db = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("fuzz.mdb")));
        esquema::CreaTablas(*db);
        demo::CargaDemo(*db);
        // A runaway query stops after a bounded number of steps.
        sqlite3_progress_handler(db->sqlite(), 1000, [](void*) { return ++pasos > 200 ? 1 : 0; }, nullptr);
    }
    static inline int pasos = 0;
};

Base& LaBase() {
    static Base b;
    return b;
}

QByteArray ultimoSql;
QString ultimoMensaje;

void Prueba(const QString& texto, bool criterio) {
    Base& b = LaBase();
    Base::pasos = 0;
    if (criterio) {
        jet::ExprPtr e = jet::AnalizaExpresion(texto);
        std::vector<jet::ColumnaSalida> columnas(3);
        columnas[0].nombre = QStringLiteral("Titulo");
        columnas[0].tipo = jet::TipoCampo::Text;
        columnas[1].nombre = QStringLiteral("Costo");
        columnas[1].tipo = jet::TipoCampo::Currency;
        columnas[2].nombre = QStringLiteral("Fecha");
        columnas[2].tipo = jet::TipoCampo::Date;
        jet::Resolver r(b.db->catalogo());
        r.resuelveCriterio(*e, columnas);
        jet::EmisorSqlite emisor;
        (void)emisor.expresion(*e);
        return;
    }
    jet::Sentencia s = jet::Analiza(texto);
    if (s.clase > jet::Sentencia::Borrado) return;   // schema changes would make runs depend on each other
    jet::Resolver r(b.db->catalogo());
    r.resuelve(s);
    jet::EmisorSqlite emisor;
    const jet::Emision e = emisor.emite(s, r.tablaDestino(), false, r.esquemaDestino());
    const QByteArray sql = e.sql.toUtf8();
    sqlite3_stmt* st = nullptr;
    int rc = sqlite3_prepare_v2(b.db->sqlite(), sql.constData(), static_cast<int>(sql.size()), &st, nullptr);
    if (rc == SQLITE_OK && s.clase == jet::Sentencia::Consulta) {
        while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
        }
    }
    sqlite3_finalize(st);
    if (rc != SQLITE_OK && rc != SQLITE_DONE && rc != SQLITE_INTERRUPT) {
        // What SQLite was given and what it said, for the report of a fault.
        ultimoSql = sql;
        ultimoMensaje = QString::fromUtf8(sqlite3_errmsg(b.db->sqlite()));
        jet::LanzaSqlite(b.db->sqlite(), rc);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
    if (tamano > 20000) return -1;
    const bool criterio = tamano > 0 && datos[0] == 1;
    const QString texto = QString::fromUtf8(reinterpret_cast<const char*>(datos) + (criterio ? 1 : 0),
                                            static_cast<qsizetype>(tamano - (criterio ? 1 : 0)));
    try {
        Prueba(texto, criterio);
    } catch (const vb::Error& e) {
        // The engine's refusals are expected; an untranslated message from SQLite is not.
        // 3000 is what the engine says of a refusal of SQLite it has no number for: the writer wrote
        // something SQLite does not take.
        static const char* const ingles[] = {"no such", "syntax error", "near \"", "unrecognized", "misuse",
                                             "too many", "parser stack", "datatype"};
        bool sinTraducir = e.Number() == 3000;
        for (const char* i : ingles)
            if (e.Description().contains(QLatin1String(i))) sinTraducir = true;
        if (sinTraducir) {
            std::fprintf(stderr, "Mensaje sin traducir: %d %s\nSQLite: %s\n%s\n", e.Number(), e.Description().toUtf8().constData(),
                         ultimoMensaje.toUtf8().constData(), ultimoSql.left(2000).constData());
            std::abort();
        }
    }
    return 0;
}
