// adq-util: the command-line utility of the acquisitions module. It creates databases, fills a demo,
// adds analysts, runs statements of the program's SQL dialect, backs a database up and checks it, and
// copies a whole database between a file and a server.
#include "core/DatosDemo.h"
#include "core/Esquema.h"
#include "core/LineaComandos.h"
#include "core/dao/Dao.h"
#include "core/jet/ErroresMotor.h"
#include "core/legado/Legado.h"
#include "tools/Archivos.h"
#include "tools/Copia.h"
#include "tools/ConsolaSql.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <cstdio>
#include <termios.h>
#include <unistd.h>

namespace {

int Uso(QTextStream& err) {
    err << "Uso:\n"
           "  adq-util crear BASE                      crea una base de datos nueva con todas las tablas\n"
           "  adq-util demo BASE                       crea una base de datos con datos de demostración\n"
           "  adq-util analista BASE LOGIN CLAVE [DERECHOS [MODULOS]]\n"
           "                                           agrega o reemplaza un analista (DERECHOS \"011\", MODULOS \"1\");\n"
           "                                           con CLAVE \"-\" la clave se lee de la entrada\n"
           "  adq-util sql BASE [SENTENCIA]            ejecuta una sentencia, o una por línea de la entrada\n"
           "  adq-util respaldar BASE DESTINO          copia la base de datos mientras otros la usan (un archivo;\n"
           "                                           la de un servidor se respalda con pg_dump)\n"
           "  adq-util verificar BASE                  revisa la integridad de un archivo de base de datos\n"
           "  adq-util migrar ORIGEN DESTINO           copia una base de datos del formato anterior (.mdb, .exp)\n"
           "                                           en una base de datos nueva de este programa\n"
           "  adq-util copiar ORIGEN DESTINO           copia una base de datos entera en una nueva: de un archivo\n"
           "                                           a un servidor, de un servidor a un archivo o entre archivos\n"
           "\n"
           "BASE, ORIGEN y DESTINO son la ruta de un archivo o, en un servidor, un URI de conexión\n"
           "(postgresql://usuario@equipo:puerto/base).\n";
    err.flush();
    return 2;
}

// The whole database is made under a temporary name beside the target and takes the target's name only
// when finished; on a server, it is dropped again if it can't be finished.
int Crea(const QString& base, bool conDemo) {
    archivos::CreaBaseEntera(base, [&](dao::Database& db) {
        esquema::CreaTablas(db);
        if (conDemo) demo::CargaDemo(db);
    });
    return 0;
}

// A whole database into a new one, from a legacy file (migrar) or from a database of this program (copiar):
// one line per table with its rows; on a terminal, the progress of a large table on a line of its own that
// each step writes over; then the totals.
template <typename Copiador>
int CopiaCompleta(Copiador copiador, const char* verbo, const QString& origen, const QString& destino,
                  QTextStream& out, QTextStream& err) {
    const bool terminal = ::isatty(STDERR_FILENO);
    auto progreso = [&](const legado::Progreso& p) {
        if (p.terminada) {
            if (terminal && p.previstas >= 10000) err << "\r\033[K";
            err.flush();
            out << p.tabla << ": " << p.filas << (p.filas == 1 ? " fila\n" : " filas\n");
            out.flush();
        } else if (terminal && p.previstas >= 10000 && p.filas > 0) {
            err << "\r" << p.tabla << ": " << p.filas << " de " << p.previstas << " filas...";
            err.flush();
        }
    };
    const legado::ResultadoMigracion r = copiador(origen, destino, progreso);
    for (const QString& aviso : r.avisos) err << "Aviso: " << aviso << '\n';
    out << "Se " << verbo << ' ' << r.tablas.size() << (r.tablas.size() == 1 ? " tabla" : " tablas") << " con " << r.filas
        << (r.filas == 1 ? " fila" : " filas") << " a '" << destino << "'.\n";
    return 0;
}

// A legacy file straight to a server. Its rows go in through a file's own engine first, into a temporary
// file that is then copied whole to the server; the progress and the lines per table are the migration's.
legado::ResultadoMigracion MigraAServidor(const QString& origen, const QString& destino,
                                          const std::function<void(const legado::Progreso&)>& progreso) {
    QTemporaryDir carpeta;
    if (!carpeta.isValid())
        throw vb::Error(jet::ErrDiscoORed, QStringLiteral("No se pudo crear una carpeta temporal para la migración."),
                        QStringLiteral("Motor de base de datos"));
    const QString intermedio = carpeta.filePath(QStringLiteral("KORVEL8.mdb"));
    const legado::ResultadoMigracion r = legado::Migra(origen, intermedio, progreso);
    copia::Copia(intermedio, destino);
    return r;
}

// One line of standard input, not shown while it is typed at a terminal.
QString LeeClave() {
    termios antes {};
    const bool terminal = ::isatty(STDIN_FILENO) && ::tcgetattr(STDIN_FILENO, &antes) == 0;
    if (terminal) {
        std::fputs("Clave: ", stderr);
        termios sinEco = antes;
        sinEco.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &sinEco);
    }
    QByteArray linea;
    int c;
    while ((c = std::getchar()) != EOF && c != '\n') linea += static_cast<char>(c);
    if (terminal) {
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &antes);
        std::fputs("\n", stderr);
    }
    if (linea.endsWith('\r')) linea.chop(1);
    const QString clave = QString::fromLocal8Bit(linea);
    linea.fill('\0');
    return clave;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QStringList args = app.arguments().mid(1);
    if (args.size() < 2) return Uso(err);
    const QString orden = args[0];
    const QString ruta = args[1];
    try {
        if (orden == QLatin1String("crear") && args.size() == 2) return Crea(ruta, false);
        if (orden == QLatin1String("demo") && args.size() == 2) return Crea(ruta, true);
        if (orden == QLatin1String("analista") && args.size() >= 4 && args.size() <= 6) {
            QString clave = args[3];
            // The password leaves the visible command line as soon as it is read.
            if (argc > 4) linea::BorraArgumento(argv[4]);
            if (clave == QLatin1String("-")) clave = LeeClave();
            auto db = dao::Database::OpenDatabase(ruta);
            demo::AgregaAnalista(*db, args[2], clave, args.value(4, QStringLiteral("011")),
                                 args.value(5, QStringLiteral("1")));
            return 0;
        }
        if (orden == QLatin1String("sql") && args.size() <= 3) {
            auto db = dao::Database::OpenDatabase(ruta);
            if (args.size() == 3) return consola::EjecutaSentencia(*db, args[2], out, err) ? 0 : 1;
            QTextStream in(stdin);
            bool todoBien = true;
            QString linea;
            while (in.readLineInto(&linea)) {
                if (linea.trimmed().isEmpty()) continue;
                if (!consola::EjecutaSentencia(*db, linea, out, err)) todoBien = false;
            }
            return todoBien ? 0 : 1;
        }
        if ((orden == QLatin1String("respaldar") && args.size() == 3) || (orden == QLatin1String("verificar") && args.size() == 2)) {
            // Both work on the file's own pages; a server keeps and checks its databases itself.
            if (archivos::EsUri(ruta) || archivos::EsUri(args.value(2))) {
                err << "'" << orden << "' trabaja sobre archivos; una base de datos en un servidor se respalda con pg_dump.\n";
                return 1;
            }
            return args.size() == 3 ? archivos::Respalda(ruta, args[2], out, err) : archivos::Verifica(ruta, out, err);
        }
        if (orden == QLatin1String("migrar") && args.size() == 3)
            return CopiaCompleta(archivos::EsUri(args[2]) ? MigraAServidor : legado::Migra, "migraron", ruta, args[2], out, err);
        if (orden == QLatin1String("copiar") && args.size() == 3)
            return CopiaCompleta(copia::Copia, "copiaron", ruta, args[2], out, err);
    } catch (const vb::Error& e) {
        out.flush();
        err << "Error " << e.Number() << ": " << e.Description() << '\n';
        return 1;
    }
    return Uso(err);
}
