#include "core/ArchivosTemporales.h"

#include "core/dao/Dao.h"
#include "core/jet/ErroresMotor.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

namespace archivos {

namespace {

[[noreturn]] void Falla(int numero, const QString& texto) {
    throw vb::Error(numero, texto, QStringLiteral("Motor de base de datos"));
}

// A database made on the server and left unfinished goes away again. The back end that can reach a server
// is the one that can drop a database there; without it no server database is ever made here either.
template <typename Base>
void SueltaDelServidor(const QString& uri) {
    if constexpr (requires(const QString& u) { Base::DropDatabase(u); }) {
        try {
            Base::DropDatabase(uri);
        } catch (...) {
            // The failure that brought us here is the one to report.
        }
    }
}

}  // namespace

QString TemporalJunto(const QString& destino) {
    const QFileInfo i(destino);
    return i.absoluteDir().filePath(QStringLiteral(".%1.tmp-%2").arg(i.fileName()).arg(QCoreApplication::applicationPid()));
}

bool MueveSinReemplazar(const QString& temporal, const QString& destino, QString& error) {
    const QByteArray t = QFile::encodeName(temporal);
    const QByteArray d = QFile::encodeName(destino);
    if (::renameat2(AT_FDCWD, t.constData(), AT_FDCWD, d.constData(), RENAME_NOREPLACE) == 0) return true;
    if (errno == EINVAL || errno == ENOSYS) {
        // A filesystem without the no-replace rename: a link fails just the same on an existing name.
        if (::link(t.constData(), d.constData()) == 0) {
            ::unlink(t.constData());
            return true;
        }
    }
    error = errno == EEXIST ? QStringLiteral("El archivo '%1' ya existe; no se sobrescribe.").arg(destino)
                            : QStringLiteral("No se pudo dar al archivo el nombre '%1': %2.")
                                  .arg(destino, QString::fromLocal8Bit(std::strerror(errno)));
    return false;
}

void BorraTemporal(const QString& temporal) {
    for (const char* resto : {"", "-wal", "-shm", "-journal"}) QFile::remove(temporal + QLatin1String(resto));
}

void BorraTemporalesHuerfanos(const QString& destino) {
    const QFileInfo i(destino);
    const QString prefijo = QStringLiteral(".%1.tmp-").arg(i.fileName());
    const QDir carpeta = i.absoluteDir();
    for (const QString& nombre : carpeta.entryList({prefijo + QLatin1Char('*')}, QDir::Files | QDir::Hidden)) {
        bool esNumero = false;
        const qint64 pid = nombre.mid(prefijo.size()).toLongLong(&esNumero);
        if (!esNumero || pid <= 0) continue;
        if (::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH) BorraTemporal(carpeta.filePath(nombre));
    }
}

bool EsUri(const QString& base) {
    return base.startsWith(QLatin1String("postgresql://"), Qt::CaseInsensitive) ||
           base.startsWith(QLatin1String("postgres://"), Qt::CaseInsensitive);
}

void ExigeNueva(const QString& destino) {
    if (EsUri(destino)) return;
    const QFileInfo i(destino);
    if (i.exists() || i.isSymLink())
        Falla(jet::ErrBaseYaExiste,
              QStringLiteral("El archivo '%1' ya existe; no se sobrescribe.").arg(QDir::toNativeSeparators(destino)));
}

void CreaBaseEntera(const QString& destino, const std::function<void(dao::Database&)>& llena) {
    if (EsUri(destino)) {
        // The server refuses a name it already has (3204): then nothing of ours is there to drop.
        auto db = dao::Database::CreateDatabase(destino);
        try {
            llena(*db);
            db.reset();
        } catch (...) {
            db.reset();
            SueltaDelServidor<dao::Database>(destino);
            throw;
        }
        return;
    }
    ExigeNueva(destino);
    BorraTemporalesHuerfanos(destino);
    const QString temporal = TemporalJunto(destino);
    BorraTemporal(temporal);
    try {
        auto db = dao::Database::CreateDatabase(temporal);
        // Nobody sees the file until it is renamed into place, and a build cut short is thrown away: no
        // commit of the build waits for the disk, only the last step below.
        sqlite3_exec(db->sqlite(), "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
        llena(*db);
        if (sqlite3_exec(db->sqlite(), "PRAGMA synchronous=FULL; PRAGMA wal_checkpoint(TRUNCATE)", nullptr, nullptr, nullptr) != SQLITE_OK)
            db->lanzaSqlite(sqlite3_errcode(db->sqlite()));
        db.reset();
        // Closed, everything is back in the one file: a log left beside it would be lost by the rename.
        if (QFile::exists(temporal + QStringLiteral("-wal")))
            Falla(jet::ErrDiscoORed, QStringLiteral("No se pudo terminar la base de datos '%1'.").arg(QDir::toNativeSeparators(destino)));
        QString error;
        if (!MueveSinReemplazar(temporal, destino, error))
            Falla(QFileInfo::exists(destino) ? jet::ErrBaseYaExiste : jet::ErrDiscoORed, error);
    } catch (...) {
        BorraTemporal(temporal);
        throw;
    }
}

}  // namespace archivos
