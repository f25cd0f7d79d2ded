// adq-util and the database file: a killed demo leaves nothing at its target, a backup taken while
// another process writes is whole and consistent, verificar tells a sound file from a damaged one, the
// password leaves the command line, and a user other than root writes past the log files another session
// left.
#include "ayuda_util.h"

#include "core/Credenciales.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

namespace {

using ayuda::Corre;
using ayuda::Salida;
using ayuda::Util;

const QString Integra = QStringLiteral("La base de datos está íntegra.\n");

QString Valor(const QString& base, const QString& sql) { return Corre({QStringLiteral("sql"), base, sql}).out.section(u'\n', 1, 1); }

QByteArray Bytes(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

class Respaldo : public ayuda::ConCarpeta {
protected:
    QStringList temporales() const {
        return QDir(dir.path()).entryList({QStringLiteral(".KORVEL8.mdb.tmp-*")}, QDir::Files | QDir::Hidden);
    }
    // An "adq-util sql" session fed `entrada` (its input closed if `cierra`), under way once its output holds `hasta`.
    void arranca(QProcess& p, const QByteArray& entrada, const QByteArray& hasta, bool cierra) {
        p.start(Util, {QStringLiteral("sql"), base});
        ASSERT_TRUE(p.waitForStarted(10000));
        p.write(entrada);
        if (cierra) p.closeWriteChannel();
        QByteArray salida;
        while (!salida.contains(hasta) && p.waitForReadyRead(10000)) salida += p.readAllStandardOutput();
        ASSERT_TRUE(salida.contains(hasta));
    }
};

TEST_F(Respaldo, DemoInterrumpidaNoDejaNadaEnElDestino) {
    // Killed while it builds: the half-made file lies under its temporary name, never at the target.
    int interrumpidas = 0;
    for (int intento = 0; intento < 8 && interrumpidas < 2; ++intento) {
        QProcess p;
        p.start(Util, {QStringLiteral("demo"), base});
        ASSERT_TRUE(p.waitForStarted(10000));
        const QString temporal = dir.filePath(QStringLiteral(".KORVEL8.mdb.tmp-%1").arg(p.processId()));
        QElapsedTimer reloj;
        reloj.start();
        while (!QFileInfo::exists(temporal) && p.state() == QProcess::Running && reloj.elapsed() < 10000)
            QThread::usleep(200);
        if (p.state() == QProcess::Running && QFileInfo::exists(temporal)) {
            p.kill();
            ++interrumpidas;
        }
        p.waitForFinished(10000);
        if (p.exitStatus() == QProcess::CrashExit)
            EXPECT_FALSE(QFileInfo::exists(base));
        else
            ASSERT_TRUE(QFile::remove(base));          // done before the kill: try again
    }
    ASSERT_GT(interrumpidas, 0);
    EXPECT_FALSE(temporales().isEmpty());
    const Salida c = Corre({QStringLiteral("crear"), base});
    EXPECT_EQ(c.codigo, 0) << c.err.toStdString();
    // The files of the killed runs are gone with them; the new one stands alone.
    EXPECT_TRUE(temporales().isEmpty()) << temporales().join(u' ').toStdString();
    EXPECT_FALSE(QFileInfo::exists(base + "-wal"));
    EXPECT_EQ(Corre({QStringLiteral("demo"), base}).codigo, 1);
}

TEST_F(Respaldo, CopiaConsistenteMientrasOtroEscribe) {
    ASSERT_EQ(Corre({QStringLiteral("crear"), base}).codigo, 0);
    constexpr int Filas = 4000;
    QByteArray entrada;
    for (int i = 1; i <= Filas; ++i) {
        entrada += QStringLiteral("INSERT INTO Editoriales ([No], Nombre) VALUES (%1, 'Editorial %1')\n").arg(i).toUtf8();
        if (i == 200) entrada += "SELECT Count(*) AS N FROM Editoriales\n";
    }
    QProcess escritor;
    arranca(escritor, entrada, "N\n", true);

    const QString copia = dir.filePath(QStringLiteral("respaldo/KORVEL8-copia.mdb"));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(copia).path()));
    const Salida r = Corre({QStringLiteral("respaldar"), base, copia});
    EXPECT_EQ(r.codigo, 0) << r.err.toStdString();
    EXPECT_TRUE(r.out.contains(QStringLiteral("páginas"))) << r.out.toStdString();
    ASSERT_TRUE(escritor.waitForFinished(60000));
    EXPECT_EQ(escritor.exitCode(), 0) << escritor.readAllStandardError().constData();   // never held back
    const Salida v = Corre({QStringLiteral("verificar"), copia});
    EXPECT_TRUE(v.codigo == 0 && v.out == Integra) << v.codigo << ' ' << v.out.toStdString();
    // What was committed when the copy was taken: rows 1..k, each whole.
    const QString cuenta = Valor(copia, QStringLiteral("SELECT Count(*) & '|' & Max([No]) & '|' & Sum(IIf(Nombre = 'Editorial ' & [No], 1, 0)) FROM Editoriales"));
    const QStringList partes = cuenta.split(u'|');
    ASSERT_EQ(partes.size(), 3) << cuenta.toStdString();
    const int k = partes[0].toInt();
    EXPECT_TRUE(k >= 200 && k <= Filas) << k;
    EXPECT_EQ(partes[1].toInt(), k);
    EXPECT_EQ(partes[2].toInt(), k);
    EXPECT_EQ(QDir(QFileInfo(copia).path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("KORVEL8-copia.mdb")});
    // An existing target is left as it is.
    const QByteArray antes = Bytes(copia);
    const Salida otra = Corre({QStringLiteral("respaldar"), base, copia});
    EXPECT_EQ(otra.codigo, 1);
    EXPECT_TRUE(otra.err.contains(QStringLiteral("no se sobrescribe")));
    EXPECT_EQ(Bytes(copia), antes);
}

TEST_F(Respaldo, VerificarDistingueSanaDeDanada) {
    ASSERT_EQ(Corre({QStringLiteral("demo"), base}).codigo, 0);
    const QByteArray bytes = Bytes(base);
    QByteArray rota = bytes;          // a page of the tables overwritten in the middle, the size kept
    for (int i = 4096 * 5 + 8; i < 4096 * 6; ++i) rota[i] = static_cast<char>(i * 7);
    const std::pair<QString, QByteArray> copias[] = {{QStringLiteral("cortada.mdb"), bytes.left(bytes.size() - 700)},
                                                     {QStringLiteral("danada.mdb"), rota}};
    for (const auto& [nombre, datos] : copias) {
        QFile f(dir.filePath(nombre));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(datos);
    }
    for (const QString& r : {QStringLiteral("cortada.mdb"), QStringLiteral("danada.mdb"), QStringLiteral("no-existe.mdb")}) {
        const Salida s = Corre({QStringLiteral("verificar"), dir.filePath(r)});
        EXPECT_EQ(s.codigo, 1) << r.toStdString();
        EXPECT_TRUE(s.out.contains(QStringLiteral("restaurarla desde su respaldo"))) << s.out.toStdString();
        EXPECT_GE(s.out.count(u'\n'), 2);
    }
}

TEST_F(Respaldo, LaClaveNoQuedaEnLaLineaDeComandos) {
    ASSERT_EQ(Corre({QStringLiteral("crear"), base}).codigo, 0);
    // The database held by a writer here, so that adq-util waits in the middle of its work.
    sqlite3* bloqueo = nullptr;
    ASSERT_EQ(sqlite3_open(QFile::encodeName(base).constData(), &bloqueo), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(bloqueo, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    QProcess p;
    p.start(Util, {QStringLiteral("analista"), base, QStringLiteral("luis"), QStringLiteral("s3creta")});
    ASSERT_TRUE(p.waitForStarted(10000));
    QByteArray visible;
    QElapsedTimer reloj;
    reloj.start();
    // Until the program's own line shows (not the one of the fork before exec, nor an empty read) without
    // the password.
    do {
        visible = Bytes(QStringLiteral("/proc/%1/cmdline").arg(p.processId()));
        if (visible.contains("analista") && !visible.contains("s3creta")) break;
        QThread::usleep(500);
    } while (reloj.elapsed() < 8000);
    visible.replace('\0', ' ');
    EXPECT_EQ(p.state(), QProcess::Running) << p.readAllStandardError().constData();
    EXPECT_TRUE(visible.contains("analista") && visible.contains("luis")) << visible.constData();
    EXPECT_FALSE(visible.contains("s3creta")) << visible.constData();
    sqlite3_exec(bloqueo, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(bloqueo);
    ASSERT_TRUE(p.waitForFinished(20000));
    EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().constData();
    // From standard input with "-".
    EXPECT_EQ(Corre({QStringLiteral("analista"), base, QStringLiteral("ana"), QStringLiteral("-")}, "clave de ana\n").codigo, 0);
    const Salida s = Corre({QStringLiteral("sql"), base, QStringLiteral("SELECT Login, [password] FROM Analistas ORDER BY Login")});
    const QStringList filas = s.out.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(filas.size(), 3) << s.out.toStdString();
    EXPECT_EQ(credenciales::DescifraClave(filas[1].section(u'\t', 1)), QStringLiteral("ana,clave de ana,011,1"));
    EXPECT_EQ(credenciales::DescifraClave(filas[2].section(u'\t', 1)), QStringLiteral("luis,s3creta,011,1"));
}

TEST_F(Respaldo, OtroUsuarioEscribePeseAlRegistroQueDejoOtraSesion) {
    if (::getuid() != 0) GTEST_SKIP() << "hace falta root para correr como otro usuario";
    const auto modo = [](const QString& ruta, mode_t m) { ASSERT_EQ(::chmod(QFile::encodeName(ruta).constData(), m), 0); };
    modo(dir.path(), 0777);
    ASSERT_EQ(Corre({QStringLiteral("crear"), base}).codigo, 0);
    modo(base, 0666);
    // root's session commits a row and is killed: its -wal (holding the row) and -shm stay, root's, 0644.
    QProcess otra;
    arranca(otra, "INSERT INTO Editoriales ([No], Nombre) VALUES (7, 'Porrúa')\nSELECT Count(*) AS N FROM Editoriales\n", "N\n1\n", false);
    otra.kill();
    otra.waitForFinished(10000);
    ASSERT_GT(QFileInfo(base + "-wal").size(), 0);
    modo(base + "-wal", 0644);
    modo(base + "-shm", 0644);
    const Salida e = Corre({QStringLiteral("sql"), base, QStringLiteral("INSERT INTO Editoriales ([No], Nombre) VALUES (8, 'Reverté')")}, {}, true);
    EXPECT_EQ(e.codigo, 0) << e.err.toStdString();
    const Salida l = Corre({QStringLiteral("sql"), base, QStringLiteral("SELECT Nombre FROM Editoriales ORDER BY [No]")}, {}, true);
    EXPECT_EQ(l.out, QStringLiteral("Nombre\nPorrúa\nReverté\n"));
}

}  // namespace
