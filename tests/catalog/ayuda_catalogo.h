#pragma once
// What the catalog tests share: a fresh database with every table in a temporary folder, installed as the
// program's database, and the scripted platform that records boxes, answers them and drives the modal
// screens.
#include "ayuda_prueba.h"

#include <QApplication>
#include <QDialog>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace prueba {

inline void AseguraAplicacion() {
    if (QApplication::instance()) return;
    static int argc = 1;
    static char nombre[] = "pruebas_catalogo";
    static char* argv[] = {nombre, nullptr};
    new QApplication(argc, argv);
}

class BaseCatalogo : public ::testing::Test {
protected:
    QTemporaryDir dir;
    ui::PlataformaPrueba* sistema = nullptr;

    void SetUp() override {
        AseguraAplicacion();
        sistema = InstalaBaseNueva(dir);
        sistema->rutaPrograma = QStringLiteral(ADQ_SOURCE_DIR);
        globales::NoCuentaSeleccionada.clear();
        globales::EsCatalogoUsuarios = false;
    }
    void TearDown() override { globales::BaseDatos.reset(); }

    void Ejecuta(const QString& sql) { globales::Base().Execute(sql, dao::dbFailOnError); }
    QString Valor(const QString& sql) { return prueba::Valor(sql); }
    void Guion(const char* clase, std::function<void(QDialog&)> f) { sistema->AlMostrar(QLatin1String(clase), std::move(f)); }
    std::vector<ui::CajaMensaje>& Cajas() { return sistema->cajas; }
    void Responde(std::initializer_list<int> r) { sistema->Responde(r); }

    void CargaBibliotecas() {
        Ejecuta(QStringLiteral("INSERT INTO Bibliotecas ([No], Nombre, Director, Telefono) VALUES (1, 'Biblioteca Central', 'Rosa Paz', '555-0101')"));
        Ejecuta(QStringLiteral("INSERT INTO Bibliotecas ([No], Nombre, Director, Telefono) VALUES (2, 'Biblioteca Norte', 'Luis O''Hara', '555-0102')"));
        Ejecuta(QStringLiteral("INSERT INTO Bibliotecas ([No], Nombre, Director, Telefono) VALUES (3, 'Biblioteca de Artes', NULL, '555-0103')"));
    }
    void CargaEscuelas() {
        CargaBibliotecas();
        Ejecuta(QStringLiteral("INSERT INTO Escuelas ([No], Nombre, Responsable, NoBiblioteca) VALUES (1, 'Colegio Sur', 'Ana Gil', 1)"));
        Ejecuta(QStringLiteral("INSERT INTO Escuelas ([No], Nombre, Responsable, NoBiblioteca) VALUES (2, 'Escuela Norte', 'Juan Paz', 2)"));
        Ejecuta(QStringLiteral("INSERT INTO Escuelas ([No], Nombre, Responsable, NoBiblioteca) VALUES (3, 'Colegio Centro', NULL, NULL)"));
    }
};

}  // namespace prueba

#include "catalog/CatalogoSimple.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"

#include <QLineEdit>

namespace prueba {

// Types the values into the capture rows, from row 0.
inline void Escribe(CatalogoSimple& f, const QStringList& valores) {
    for (int i = 0; i < valores.size(); ++i) f.Text1[static_cast<size_t>(i)]->setText(valores[i]);
}

// Clicks the list item at a 1-based position.
inline void Selecciona(CatalogoSimple& f, int indice) {
    f.LstView->ListItems()(indice).setSelected(true);
    f.LstView_Click();
}

inline QString TextoItem(CatalogoSimple& f, int indice) { return f.LstView->ListItems()(indice).Text(); }
inline int CuentaItems(CatalogoSimple& f) { return f.LstView->ListItems().Count(); }
inline int IndiceSeleccionado(CatalogoSimple& f) {
    return f.LstView->SelectedItem() ? f.LstView->SelectedItem()->Index() : 0;
}

}  // namespace prueba
