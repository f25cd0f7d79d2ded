#include "tools/Archivos.h"

#include "core/jet/FuncionesSqlite.h"

#include "core/dao/Dao.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <csignal>
#include <fcntl.h>
#include <sqlite3.h>
#include <thread>
#include <unistd.h>

namespace archivos {

namespace {

QString Texto(sqlite3* c) { return QString::fromUtf8(sqlite3_errmsg(c)); }

}  // namespace

int Respalda(const QString& base, const QString& destino, QTextStream& out, QTextStream& err) {
    if (QFileInfo::exists(destino)) {
        err << "El archivo '" << destino << "' ya existe; no se sobrescribe.\n";
        return 1;
    }
    std::unique_ptr<dao::Database> origen;
    try {
        origen = dao::Database::OpenDatabase(base, true);
    } catch (const vb::Error& e) {
        err << "Error " << e.Number() << ": " << e.Description() << '\n';
        return 1;
    }
    const QString temporal = TemporalJunto(destino);
    BorraTemporal(temporal);
    sqlite3* copia = nullptr;
    auto falla = [&](const QString& porque) {
        sqlite3_close_v2(copia);
        BorraTemporal(temporal);
        err << "No se pudo respaldar '" << base << "': " << porque << '\n';
        return 1;
    };
    if (sqlite3_open_v2(QFile::encodeName(temporal).constData(), &copia,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_EXCLUSIVE, nullptr) != SQLITE_OK)
        return falla(Texto(copia));
    // The copy is checked with the engine's collation, which its text keys use.
    jet::RegistraFunciones(copia);
    sqlite3_backup* respaldo = sqlite3_backup_init(copia, "main", origen->sqlite(), "main");
    if (!respaldo) return falla(Texto(copia));
    // A few pages at a time, with a short rest between steps so that writers keep going. Each write by
    // another connection starts the copy over; when writers never rest, the rest is taken in one step, a
    // read that in WAL mode holds no writer back.
    constexpr int PaginasPorPaso = 64;
    int pasos = 0;
    int rc = SQLITE_OK;
    while (rc == SQLITE_OK || rc == SQLITE_BUSY || rc == SQLITE_LOCKED) {
        const int total = sqlite3_backup_pagecount(respaldo);
        const bool deUnaVez = pasos > 4 * (total / PaginasPorPaso + 1) + 50;
        rc = sqlite3_backup_step(respaldo, deUnaVez ? -1 : PaginasPorPaso);
        ++pasos;
        if (rc == SQLITE_OK || rc == SQLITE_BUSY || rc == SQLITE_LOCKED)
            std::this_thread::sleep_for(std::chrono::milliseconds(rc == SQLITE_OK ? 2 : 20));
    }
    const int paginas = sqlite3_backup_pagecount(respaldo);
    sqlite3_backup_finish(respaldo);
    if (rc != SQLITE_DONE) return falla(sqlite3_errstr(rc));
    origen.reset();
    // The copy stands on its own: no log beside it.
    sqlite3_exec(copia, "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr);
    QStringList problemas;
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(copia, "PRAGMA integrity_check", -1, &st, nullptr);
    while (sqlite3_step(st) == SQLITE_ROW) problemas << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)));
    sqlite3_finalize(st);
    if (problemas != QStringList{QStringLiteral("ok")})
        return falla(QStringLiteral("la copia no pasó la revisión de integridad: ") + problemas.join(QStringLiteral("; ")));
    if (sqlite3_close(copia) != SQLITE_OK) return falla(Texto(copia));
    copia = nullptr;
    {
        QFile f(temporal);
        if (f.open(QIODevice::ReadWrite)) ::fsync(f.handle());
    }
    QString error;
    if (!MueveSinReemplazar(temporal, destino, error)) {
        BorraTemporal(temporal);
        err << error << '\n';
        return 1;
    }
    out << "Respaldo de '" << base << "' en '" << destino << "': " << paginas << " páginas, "
        << QFileInfo(destino).size() << " bytes.\n";
    return 0;
}

int Verifica(const QString& base, QTextStream& out, QTextStream& err) {
    const QStringList problemas = dao::RevisaBaseDeDatos(base);
    if (problemas.isEmpty()) {
        out << "La base de datos está íntegra.\n";
        return 0;
    }
    out << "La base de datos '" << base << "' tiene problemas; hay que restaurarla desde su respaldo:\n";
    for (const QString& p : problemas) out << p << '\n';
    return 1;
}

}  // namespace archivos
