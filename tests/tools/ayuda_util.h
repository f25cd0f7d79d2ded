#pragma once
// Runs adq-util as a person would and keeps what it says and how it ends.
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <grp.h>
#include <unistd.h>

namespace ayuda {

inline const QString Util = QStringLiteral(ADQ_BINARY_DIR "/adq-util");

struct Salida {
    int codigo = -1;   // -1 it did not start or end in time, -2 it ended by a signal
    QString out, err;
};

// As nobody (65534) when comoNadie: root passes every permission bit, another user doesn't.
inline Salida Corre(const QStringList& argumentos, const QByteArray& entrada = QByteArray(), bool comoNadie = false) {
    QProcess p;
    if (comoNadie)
        p.setChildProcessModifier([] {
            if (::setgroups(0, nullptr) != 0 || ::setgid(65534) != 0 || ::setuid(65534) != 0) ::_exit(99);
        });
    p.start(Util, argumentos);
    Salida s;
    if (!p.waitForStarted(10000)) return s;
    p.write(entrada);
    p.closeWriteChannel();
    if (!p.waitForFinished(60000)) {
        p.kill();
        p.waitForFinished();
        return s;
    }
    s.codigo = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -2;
    s.out = QString::fromUtf8(p.readAllStandardOutput());
    s.err = QString::fromUtf8(p.readAllStandardError());
    return s;
}

// A temporary folder and the path of the database the test makes there.
class ConCarpeta : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        base = dir.filePath(QStringLiteral("KORVEL8.mdb"));
    }
    QTemporaryDir dir;
    QString base;
};

}  // namespace ayuda
