// adq-util and the database file: a killed demo leaves nothing at its target, a backup taken while
// another process writes is whole and consistent, verificar tells a sound file from a damaged one, the
// password leaves the command line, and a user other than root reads a read-only database and writes past
// the log files another session left.
#include "ayuda_util.h"

#include "core/Credenciales.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>
#include <grp.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using ayuda::Corre;
using ayuda::Salida;
using ayuda::Util;

QString Valor(const QString& base, const QString& sql) {
    const Salida s = Corre({QStringLiteral("sql"), base, sql});
    return s.out.section(u'\n', 1, 1);
}

class Respaldo : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        base = dir.filePath(QStringLiteral("KORVEL8.mdb"));
    }
    QStringList temporales() const {
        return QDir(dir.path()).entryList({QStringLiteral(".KORVEL8.mdb.tmp-*")}, QDir::Files | QDir::Hidden);
    }
    QTemporaryDir dir;
    QString base;
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
        if (p.exitStatus() == QProcess::CrashExit) {
            EXPECT_FALSE(QFileInfo::exists(base));
        } else {
            ASSERT_TRUE(QFile::remove(base));          // done before the kill: try again
        }
    }
    ASSERT_GT(interrumpidas, 0);
    EXPECT_FALSE(temporales().isEmpty());
    const Salida c = Corre({QStringLiteral("crear"), base});
    EXPECT_EQ(c.codigo, 0) << c.err.toStdString();
    EXPECT_EQ(Valor(base, QStringLiteral("SELECT Count(*) FROM Analistas")), QStringLiteral("0"));
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
    escritor.start(Util, {QStringLiteral("sql"), base});
    ASSERT_TRUE(escritor.waitForStarted(10000));
    escritor.write(entrada);
    escritor.closeWriteChannel();
    QByteArray salida;
    while (!salida.contains("N\n") && escritor.waitForReadyRead(10000)) salida += escritor.readAllStandardOutput();
    ASSERT_TRUE(salida.contains("N\n"));            // the writer is under way

    const QString copia = dir.filePath(QStringLiteral("respaldo/KORVEL8-copia.mdb"));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(copia).path()));
    const Salida r = Corre({QStringLiteral("respaldar"), base, copia});
    EXPECT_EQ(r.codigo, 0) << r.err.toStdString();
    EXPECT_TRUE(r.out.contains(QStringLiteral("páginas"))) << r.out.toStdString();
    ASSERT_TRUE(escritor.waitForFinished(60000));
    EXPECT_EQ(escritor.exitCode(), 0) << escritor.readAllStandardError().constData();   // never held back

    const Salida v = Corre({QStringLiteral("verificar"), copia});
    EXPECT_EQ(v.codigo, 0);
    EXPECT_EQ(v.out, QStringLiteral("La base de datos está íntegra.\n"));
    // What was committed when the copy was taken: rows 1..k, each whole.
    const QString cuenta = Valor(copia, QStringLiteral("SELECT Count(*) & '|' & Max([No]) & '|' & Sum(IIf(Nombre = 'Editorial ' & [No], 1, 0)) FROM Editoriales"));
    const QStringList partes = cuenta.split(u'|');
    ASSERT_EQ(partes.size(), 3) << cuenta.toStdString();
    const int k = partes[0].toInt();
    RecordProperty("filas_en_la_copia", k);
    EXPECT_GE(k, 200);
    EXPECT_LE(k, Filas);
    EXPECT_EQ(partes[1].toInt(), k);
    EXPECT_EQ(partes[2].toInt(), k);
    EXPECT_EQ(QDir(QFileInfo(copia).path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("KORVEL8-copia.mdb")});

    // An existing target is left as it is.
    const QByteArray antes = [&] { QFile f(copia); f.open(QIODevice::ReadOnly); return f.readAll(); }();
    const Salida otra = Corre({QStringLiteral("respaldar"), base, copia});
    EXPECT_EQ(otra.codigo, 1);
    EXPECT_TRUE(otra.err.contains(QStringLiteral("no se sobrescribe")));
    QFile f(copia);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), antes);
}

TEST_F(Respaldo, VerificarDistingueSanaDeDanada) {
    ASSERT_EQ(Corre({QStringLiteral("demo"), base}).codigo, 0);
    const Salida sana = Corre({QStringLiteral("verificar"), base});
    EXPECT_EQ(sana.codigo, 0);
    EXPECT_EQ(sana.out, QStringLiteral("La base de datos está íntegra.\n"));

    QFile f(base);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray bytes = f.readAll();
    f.close();
    const QString cortada = dir.filePath(QStringLiteral("cortada.mdb"));
    const QString danada = dir.filePath(QStringLiteral("danada.mdb"));
    QFile c(cortada), d(danada);
    ASSERT_TRUE(c.open(QIODevice::WriteOnly) && d.open(QIODevice::WriteOnly));
    c.write(bytes.left(bytes.size() - 700));
    // A page of the tables overwritten in the middle, the size kept.
    QByteArray rota = bytes;
    for (int i = 4096 * 5 + 8; i < 4096 * 6; ++i) rota[i] = static_cast<char>(i * 7);
    d.write(rota);
    c.close();
    d.close();
    for (const QString& r : {cortada, danada, dir.filePath(QStringLiteral("no-existe.mdb"))}) {
        const Salida s = Corre({QStringLiteral("verificar"), r});
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
    const QString cmdline = QStringLiteral("/proc/%1/cmdline").arg(p.processId());
    QByteArray visible;
    QElapsedTimer reloj;
    reloj.start();
    // Until the program's own line shows (not the one of the fork before exec, nor an empty read) without
    // the password.
    do {
        QFile f(cmdline);
        if (f.open(QIODevice::ReadOnly)) visible = f.readAll();
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

class OtroUsuario : public Respaldo {
protected:
    void SetUp() override {
        if (::getuid() != 0) GTEST_SKIP() << "hace falta root para correr como otro usuario";
        Respaldo::SetUp();
        ::chmod(QFile::encodeName(dir.path()).constData(), 0777);
    }
    static void modo(const QString& ruta, mode_t m) { ASSERT_EQ(::chmod(QFile::encodeName(ruta).constData(), m), 0); }
};

TEST_F(OtroUsuario, LeeUnaBaseDeSoloLecturaYNoLaEscribe) {
    ASSERT_EQ(Corre({QStringLiteral("demo"), base}).codigo, 0);
    modo(base, 0444);
    modo(dir.path(), 0555);
    const Salida lee = Corre({QStringLiteral("sql"), base, QStringLiteral("SELECT Count(*) AS N FROM Bibliotecas")}, {}, true);
    EXPECT_EQ(lee.codigo, 0) << lee.err.toStdString();
    EXPECT_EQ(lee.out, QStringLiteral("N\n3\n"));
    const Salida escribe = Corre({QStringLiteral("sql"), base, QStringLiteral("DELETE FROM Bibliotecas")}, {}, true);
    EXPECT_EQ(escribe.codigo, 1);
    EXPECT_TRUE(escribe.err.startsWith(QStringLiteral("Error 3027: "))) << escribe.err.toStdString();
    EXPECT_TRUE(Corre({QStringLiteral("verificar"), base}, {}, true).codigo == 0);
    modo(dir.path(), 0777);
}

TEST_F(OtroUsuario, EscribePeseAlRegistroQueDejoOtraSesion) {
    ASSERT_EQ(Corre({QStringLiteral("crear"), base}).codigo, 0);
    modo(base, 0666);
    // root's session commits a row and is killed: its -wal (holding the row) and -shm stay, root's, 0644.
    QProcess otra;
    otra.start(Util, {QStringLiteral("sql"), base});
    ASSERT_TRUE(otra.waitForStarted(10000));
    otra.write("INSERT INTO Editoriales ([No], Nombre) VALUES (7, 'Porrúa')\nSELECT Count(*) AS N FROM Editoriales\n");
    QByteArray salida;
    while (!salida.contains("N\n1\n") && otra.waitForReadyRead(10000)) salida += otra.readAllStandardOutput();
    ASSERT_TRUE(salida.contains("N\n1\n"));
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
