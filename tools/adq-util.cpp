// adq-util: the command-line utility of the acquisitions module. It creates databases, fills a demo,
// adds analysts and runs statements of the program's SQL dialect.
#include "core/DatosDemo.h"
#include "core/Esquema.h"
#include "core/dao/Dao.h"
#include "tools/ConsolaSql.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

namespace {

int Uso(QTextStream& err) {
    err << "Uso:\n"
           "  adq-util crear BASE                      crea una base de datos nueva con todas las tablas\n"
           "  adq-util demo BASE                       crea una base de datos con datos de demostración\n"
           "  adq-util analista BASE LOGIN CLAVE [DERECHOS [MODULOS]]\n"
           "                                           agrega o reemplaza un analista (DERECHOS \"011\", MODULOS \"1\")\n"
           "  adq-util sql BASE [SENTENCIA]            ejecuta una sentencia, o una por línea de la entrada\n";
    err.flush();
    return 2;
}

int Crea(const QString& ruta, bool conDemo, QTextStream& err) {
    if (QFile::exists(ruta)) {
        err << "El archivo '" << ruta << "' ya existe; no se sobrescribe.\n";
        return 1;
    }
    auto db = dao::Database::CreateDatabase(ruta);
    esquema::CreaTablas(*db);
    if (conDemo) demo::CargaDemo(*db);
    return 0;
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
        if (orden == QLatin1String("crear") && args.size() == 2) return Crea(ruta, false, err);
        if (orden == QLatin1String("demo") && args.size() == 2) return Crea(ruta, true, err);
        if (orden == QLatin1String("analista") && args.size() >= 4 && args.size() <= 6) {
            auto db = dao::Database::OpenDatabase(ruta);
            demo::AgregaAnalista(*db, args[2], args[3], args.value(4, QStringLiteral("011")),
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
    } catch (const vb::Error& e) {
        err << "Error " << e.Number() << ": " << e.Description() << '\n';
        return 1;
    }
    return Uso(err);
}
