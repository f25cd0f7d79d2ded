#pragma once
// Two installations and an exchange between them: the one that exports (requests 1 to 4, two donations, with
// titles and accession numbers) and the one that imports (numbers of its own already taken, and accession
// numbers that collide with the other's). Each is the program's database in its turn. The screens are worked
// through their buttons, so that what a handler lets escape ends in the failure box as in the program.
#include "ayuda_intercambio.h"
#include "jet/ayuda_jet.h"
#include "workflow/ayuda_cajas.h"

#include "core/FormPrincipal.h"
#include "exchange/frmExportacion.h"
#include "exchange/frmImportar.h"

#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <gtest/gtest.h>

class PruebaArchivosIntercambio : public ::testing::Test {
protected:
    QTemporaryDir dir;
    ui::PlataformaPrueba* sistema = nullptr;
    std::unique_ptr<dao::Database> guardada;     // the installation not in use now

    void SetUp() override {
        ASSERT_TRUE(QDir(dir.path()).mkdir(QStringLiteral("destino")));
        auto plataforma = std::make_unique<ui::PlataformaPrueba>();
        sistema = plataforma.get();
        ui::InstalaPlataforma(std::move(plataforma));
        // The importing installation, with numbers of its own.
        globales::LoginAnalista = QStringLiteral("luz");
        auto destino = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("destino/KORVEL8.mdb")));
        esquema::CreaTablas(*destino);
        globales::BaseDatos = std::move(destino);
        Catalogos(QStringLiteral("Escuela de Ingeniería"));
        for (int n = 1; n <= 10; ++n)
            Ejecuta(QStringLiteral("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca) "
                                   "VALUES (%1, #2023/01/01#, 'Local', 3, 1)").arg(n));
        Ejecuta("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, NoSolicitud) VALUES (40, 'Existente', 1)");
        Ejecuta("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) VALUES ('A-0003', 40, 'S')");
        for (int n = 1; n <= 5; ++n)
            Ejecuta(QStringLiteral("INSERT INTO [Donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca, "
                                   "[Donacion o Intercambio]) VALUES (%1, #2023/01/01#, 12, 1, 'D')").arg(n));
        Ejecuta("INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, NoDonacion) VALUES (60, 'Local', 1)");
        Ejecuta("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) VALUES ('D-0002', 60, 'D')");
        guardada = std::move(globales::BaseDatos);

        // The exporting installation.
        auto origen = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("KORVEL8.mdb")));
        esquema::CreaTablas(*origen);
        globales::BaseDatos = std::move(origen);
        globales::LoginAnalista = QStringLiteral("ana");
        Catalogos(QStringLiteral("Ingeniería"));
        for (const char* fila : {
                 "1, #2024/01/10#, 'Dr. Uno', 3, 1, 'S', NULL",
                 "2, #2024/02/15 09:30:00#, 'Dra. Peña', 3, 1, 'R', #2024/02/20 08:00:00#",
                 "3, #2024/03/20#, 'Lic. Soto', 4, 2, 'P', #2024/03/21#",
                 "4, #2024/05/01#, 'Otro', 3, 1, 'S', NULL",
             })
            Ejecuta(QStringLiteral("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, "
                                   "Estado, FechaPedido) VALUES (%1)").arg(QString::fromUtf8(fila)));
        Ejecuta("UPDATE [Solicitudes General] SET IdCapturista = 'ana', TipoMaterial = 2");
        for (const char* fila : {
                 "21, 'Cálculo', 'Stewart', 2, 5, 3, #2024/03/01 10:00:00#, 2, 450.5, 'F-1', 'A', 2",
                 "22, 'Física', 'Resnick', 1, 5, 1, NULL, 0, 300, '', 'P', 2",
                 "23, 'Álgebra', 'Baldor', 1, 5, 2, #2024/04/02#, 1, 99.9999, 'F-2', 'A', 3",
                 "24, 'Fuera', 'Nadie', 1, 5, 1, NULL, 0, 1, '', 'S', 4",
             })
            Ejecuta(QStringLiteral("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, "
                                   "Edicion, [Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud) "
                                   "VALUES (%1)").arg(QString::fromUtf8(fila)));
        for (const char* fila : {
                 "'A-0001', 21, 'S', 'ana', #2024/03/01 10:20:30#, 'CD'",
                 "'A-0002', 21, 'S', 'ana', #2024/03/01 10:21:00#, NULL",
                 "'A-0003', 23, 'S', 'ana', #2024/04/02 12:00:00#, NULL",
                 "'A-0009', 24, 'S', 'ana', #2024/05/02#, NULL",
             })
            Ejecuta(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] VALUES (%1)").arg(QString::fromUtf8(fila)));
        Ejecuta("INSERT INTO [Donaciones General] VALUES (1, #2024/01/05#, 12, 1, 'D')");
        Ejecuta("INSERT INTO [Donaciones General] VALUES (2, #2024/02/07#, 12, 2, 'I')");
        Ejecuta("INSERT INTO [Donaciones Libros] VALUES (31, 'Atlas', 'INEGI', 2, 5, 1, 1, 'ana', 10, #2024/01/05#)");
        Ejecuta("INSERT INTO [Donaciones Libros] VALUES (32, 'Mapas', 'Guía Roji', 1, 5, 1, 2, 'ana', 20, #2024/02/07#)");
        for (const char* fila : {"'D-0001', 31", "'D-0002', 31", "'D-0003', 32"})
            Ejecuta(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] VALUES (%1, 'D', 'ana', #2024/02/08#, NULL)")
                        .arg(QString::fromUtf8(fila)));
    }
    void TearDown() override {
        globales::BaseDatos.reset();
        guardada.reset();
    }

    void Catalogos(const QString& escuela) {
        Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (1, 'Central')");
        Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (2, 'Norte')");
        Ejecuta(QStringLiteral("INSERT INTO Escuelas ([No], Nombre) VALUES (3, '%1')").arg(escuela));
        Ejecuta("INSERT INTO Escuelas ([No], Nombre) VALUES (4, 'Artes')");
        Ejecuta("INSERT INTO Editoriales ([No], Nombre) VALUES (5, 'Trillas')");
        Ejecuta("INSERT INTO Instituciones ([No], Nombre) VALUES (12, 'Fundación Alba')");
    }

    // The other installation becomes the program's database, with its analyst.
    void CambiaDeInstalacion() {
        std::swap(guardada, globales::BaseDatos);
        globales::LoginAnalista = globales::LoginAnalista == QLatin1String("ana") ? QStringLiteral("luz") : QStringLiteral("ana");
    }

    void Ejecuta(const char* sql) { globales::Base().Execute(QString::fromUtf8(sql), dao::dbFailOnError); }
    void Ejecuta(const QString& sql) { globales::Base().Execute(sql, dao::dbFailOnError); }
    QString Valor(const QString& sql) { return prueba::Valor(sql); }
    QString Valor(const char* sql) { return Valor(QString::fromUtf8(sql)); }
    // Every row of a query, its columns joined by '|': on the program's database, or on another.
    QStringList Filas(const char* sql) { return Filas(globales::Base(), QString::fromUtf8(sql)); }
    static QStringList Filas(dao::Database& base, const QString& sql) { return ayuda::Filas(base, sql); }

    // An export through the screen, as the analyst runs it; the screen stays for a look afterwards.
    void Exporta(frmExportacion& f, bool solicitudes, const QString& inicio, const QString& final_, const QString& archivo) {
        f.Form_Load();
        (solicitudes ? f.Option1 : f.Option2)->click();
        f.txtInicio->setText(inicio);
        f.txtFinal->setText(final_);
        f.txtArchivo->setText(archivo);
        f.Command1->click();
    }
    void Exporta(bool solicitudes, const QString& inicio, const QString& final_, const QString& archivo) {
        frmExportacion f;
        Exporta(f, solicitudes, inicio, final_, archivo);
    }
    // The file chosen with "Examinar", then the range, then "Importar".
    void Elige(frmImportar& f, const QString& archivo) {
        sistema->archivos.push_back(ui::RespuestaArchivo::Elige(archivo));
        f.Command3->click();
    }
    static void Rango(frmImportar& f, const QString& inicio, const QString& final_) {
        f.txtInicio->setText(inicio);
        f.txtFinal->setText(final_);
    }
    void Importa(frmImportar& f, const QString& archivo, const QString& inicio, const QString& final_) {
        f.Form_Load();
        Elige(f, archivo);
        Rango(f, inicio, final_);
        f.Command1->click();
    }
    void Importa(const QString& archivo, const QString& inicio, const QString& final_) {
        frmImportar f;
        Importa(f, archivo, inicio, final_);
    }

    QString Ruta(const QString& nombre) const { return dir.filePath(nombre); }
    QString Escribe(const QString& nombre, const QByteArray& bytes) const { return ayuda_intercambio::Escribe(Ruta(nombre), bytes); }
    static QByteArray Lee(const QString& ruta) { return ayuda_intercambio::Lee(ruta); }
    QString UltimaCaja() const { return sistema->cajas.empty() ? QString() : Caja(sistema->cajas.back()); }
    static QString Falla(int numero, const QString& descripcion) {
        return Caja(ui::TituloPrograma, ui::vbCritical, ui::TextoFallaPredeterminada(numero, descripcion));
    }
};
