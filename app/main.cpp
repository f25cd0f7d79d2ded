// adquisiciones: the acquisitions module of KORVEL 8.
//
// Options of the program's own come before the "-u usuario -p clave" of the suite and are removed from the
// command line before start-up reads it:
//   --captura ARCHIVO.png   a few seconds after start, save a picture of the screen (of the login dialog if it
//                           still waits), print its path and end
//   --abrir COMANDO         once start-up is over, run a command of the main window ("Escuelas", "CambioFecha")
//   --base BASE             the database to work on: a file, or a server's URI postgresql://user@host:port/base
//                           (otherwise the setting KORVEL8.base beside the program, or KORVEL8.mdb there)
#include "catalog/Registro.h"
#include "core/FormPrincipal.h"
#include "core/LineaComandos.h"
#include "core/ui/Plataforma.h"
#include "core/ui/PlataformaQt.h"
#include "exchange/Registro.h"
#include "finance/Registro.h"
#include "reports/Registro.h"
#include "workflow/Registro.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>
#include <cstdio>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Adquisiciones"));
    ui::InstalaPlataforma(std::make_unique<ui::PlataformaQt>());
    // Qt's own dialogs and buttons in Spanish.
    ui::CargaTraducciones();
    // The screens of each subsystem, as the main window opens them.
    catalogo::RegistraComandos();
    reportes::RegistraComandos();
    flujo::RegistraComandos();
    finanzas::RegistraComandos();
    intercambio::RegistraComandos();

    QStringList argumentos = app.arguments().mid(1);
    QString captura, abrir, base;
    while (!argumentos.isEmpty() && argumentos.first().startsWith(QLatin1String("--"))) {
        const QString opcion = argumentos.takeFirst();
        if (opcion == QLatin1String("--captura") && !argumentos.isEmpty()) captura = argumentos.takeFirst();
        else if (opcion == QLatin1String("--abrir") && !argumentos.isEmpty()) abrir = argumentos.takeFirst();
        else if (opcion == QLatin1String("--base") && !argumentos.isEmpty()) base = argumentos.takeFirst();
    }

    FormPrincipal principal;
    principal.LineaComandos = argumentos.join(u' ');
    principal.NombreBase = base;
    // The password of "-u usuario -p clave" leaves the visible command line now that it is read.
    linea::BorraClaveDeLaLinea(argc, argv, argc - static_cast<int>(argumentos.size()));
    if (!captura.isEmpty()) {
        // The picture is taken once the splash has gone, with whatever screen is open then: the login dialog
        // too, when it is still waiting.
        QTimer::singleShot(abrir.isEmpty() ? 5600 : 7000, &principal, [&principal, captura] {
            QScreen* pantalla = principal.screen();
            const QPixmap imagen = QApplication::activeModalWidget() && pantalla ? pantalla->grabWindow(0) : principal.grab();
            imagen.save(captura, "PNG");
            std::printf("%s\n", captura.toLocal8Bit().constData());
            std::fflush(stdout);
            QApplication::exit(0);
        });
    }
    // Start-up traps nothing: an engine error (no database, an unreadable file), there or in the login
    // dialog, is shown in the failure box and the program ends.
    const bool seguir = principal.Arranca();
    if (!seguir) return 0;

    if (!abrir.isEmpty()) QTimer::singleShot(5500, &principal, [&principal, abrir] { principal.Ejecuta(abrir); });
    return app.exec();
}
