#pragma once
// What the report suites share: the program's folder with a copy of the installation's style sheets, the
// test platform installed on it, and a fresh database there as the open database; the screen under test,
// closed before the database; and readers of a list's columns.
#include "ayuda_prueba.h"

#include "core/controles/ListView.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace ayuda_reportes {

inline ui::PlataformaPrueba* PreparaPrograma(const QTemporaryDir& dir) {
    const QDir origen(QStringLiteral(ADQ_SOURCE_DIR "/xsls"));
    QDir(dir.path()).mkdir(QStringLiteral("xsls"));
    for (const QString& f : origen.entryList(QDir::Files))
        QFile::copy(origen.filePath(f), dir.filePath(QStringLiteral("xsls/") + f));
    ui::PlataformaPrueba* sistema = prueba::InstalaBaseNueva(dir);
    sistema->rutaPrograma = dir.path();
    return sistema;
}

// A column of every row: 0 the row's own text, n its n-th subitem.
inline QStringList Columna(controles::ListView& lista, int subItem) {
    QStringList r;
    auto& filas = lista.ListItems();
    for (int i = 1; i <= filas.Count(); ++i) r << (subItem == 0 ? filas(i).Text() : filas(i).SubItems(subItem));
    return r;
}
inline QStringList Encabezados(controles::ListView& lista) {
    QStringList r;
    auto& h = lista.ColumnHeaders();
    for (int i = 1; i <= h.Count(); ++i) r << h(i).Text();
    return r;
}

}  // namespace ayuda_reportes

class PruebaReporte : public ::testing::Test {
protected:
    QTemporaryDir dir;
    ui::PlataformaPrueba* sistema = nullptr;

    void SetUp() override {
        sistema = ayuda_reportes::PreparaPrograma(dir);
        // Leftovers of another screen must not leak into the statements.
        globales::Consulta.Clave = QStringLiteral("Nombre");
        globales::Consulta.Valor = QStringLiteral("'x'");
    }
    void TearDown() override { globales::BaseDatos.reset(); }

    void Ejecuta(const QString& sql) { globales::Base().Execute(sql, dao::dbFailOnError); }
    void Ejecuta(const char* sql) { Ejecuta(QString::fromUtf8(sql)); }
    // An accession number of a title, on the side 'S' or 'D'.
    void Numero(const char* numero, int clave, const char* lado) {
        Ejecuta(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) "
                               "VALUES ('%1', %2, '%3')").arg(QLatin1String(numero)).arg(clave).arg(QLatin1String(lado)));
    }
};

// A report screen, opened as the menu opens it and closed before the database.
template <class Pantalla>
class PruebaPantallaReporte : public PruebaReporte {
protected:
    std::unique_ptr<Pantalla> pantalla;

    Pantalla& Abre() {
        pantalla = std::make_unique<Pantalla>();
        pantalla->Form_Load();
        return *pantalla;
    }
    void TearDown() override {
        pantalla.reset();
        PruebaReporte::TearDown();
    }
    ui::VistaHtmlPrueba& Vista() { return *dynamic_cast<ui::VistaHtmlPrueba*>(pantalla->WebBrowser1.get()); }
};
