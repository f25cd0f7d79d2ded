#pragma once
// Where a test's database lives. By default a file in the test's temporary folder; with
// ADQ_PRUEBA_SERVIDOR set to a PostgreSQL URI (postgresql://user@host:port/postgres), a fresh database on
// that server, so that the same suites run on both back ends. A server database of each test is made from
// a template with every table, built once per test process, and dropped when the process ends.
#include "core/Esquema.h"
#include "core/dao/Dao.h"

#include <QCoreApplication>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>
#include <cstdlib>
#include <memory>
#include <unistd.h>

namespace prueba {

inline QString Servidor() { return qEnvironmentVariable("ADQ_PRUEBA_SERVIDOR"); }
inline bool EnServidor() { return !Servidor().isEmpty(); }

// The same server and user, another database.
inline QString UriDe(const QString& base) {
    QUrl u(Servidor());
    u.setPath(u'/' + base);
    return QString::fromUtf8(u.toEncoded());
}

namespace detalle {

struct BasesDelProceso {
    QStringList bases;
    ~BasesDelProceso() {
        for (const QString& b : bases) {
            try {
                dao::Database::DropDatabase(UriDe(b));
            } catch (...) {
            }
        }
    }
};

inline BasesDelProceso& Bases() {
    static BasesDelProceso b;
    return b;
}

// A fresh database name of this process on the server: "adqp_<pid>_<n>".
inline QString NombreNuevo(const QString& clase) {
    static int n = 0;
    const QString nombre = QStringLiteral("adqp_%1_%2_%3").arg(clase).arg(::getpid()).arg(++n);
    Bases().bases << nombre;
    return nombre;
}

inline QString Plantilla() {
    static QString plantilla;
    if (plantilla.isEmpty()) {
        const QString nombre = NombreNuevo(QStringLiteral("plantilla"));
        {
            auto db = dao::Database::CreateDatabase(UriDe(nombre));
            esquema::CreaTablas(*db);
        }
        plantilla = nombre;
    }
    return plantilla;
}

}  // namespace detalle

// A database with every table of the program: the file `archivo` in `dir`, or a fresh one on the server
// unless the test is about files (`soloArchivo`).
inline std::unique_ptr<dao::Database> BaseConTablas(const QTemporaryDir& dir, const QString& archivo = QStringLiteral("KORVEL8.mdb"),
                                                    bool soloArchivo = false) {
    if (!EnServidor() || soloArchivo) {
        auto db = dao::Database::CreateDatabase(dir.filePath(archivo));
        esquema::CreaTablas(*db);
        return db;
    }
    const QString plantilla = detalle::Plantilla();
    const QString nombre = detalle::NombreNuevo(QStringLiteral("t"));
    dao::Database::CopiaBaseEnServidor(UriDe(plantilla), UriDe(nombre));
    return dao::Database::OpenDatabase(UriDe(nombre));
}

// An empty database, where a file or a server's would be.
inline std::unique_ptr<dao::Database> BaseVacia(const QTemporaryDir& dir, const QString& archivo) {
    if (!EnServidor()) return dao::Database::CreateDatabase(dir.filePath(archivo));
    return dao::Database::CreateDatabase(UriDe(detalle::NombreNuevo(QStringLiteral("v"))));
}

}  // namespace prueba
