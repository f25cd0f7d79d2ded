#include "core/ArchivosTemporales.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace archivos {

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

}  // namespace archivos
