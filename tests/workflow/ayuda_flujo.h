#pragma once
// The set-up the workflow suites share: a fresh database with its schema, the scripted platform, an analyst
// at work, two libraries and three schools; and the small readers the tests use to look at the rows.
#include "ayuda_prueba.h"

#include "core/controles/ListView.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <gtest/gtest.h>

class PruebaFlujo : public ::testing::Test {
protected:
    QTemporaryDir dir;
    ui::PlataformaPrueba* sistema = nullptr;

    void SetUp() override {
        sistema = prueba::InstalaBaseNueva(dir);
        globales::LoginAnalista = QStringLiteral("ana");
        globales::EtiquetaEscuela = QStringLiteral("Escuela");
        globales::NombreBiblioteca = QStringLiteral("Biblioteca");
        // Leftovers of another screen must not leak into the statements.
        globales::Consulta.Clave = QStringLiteral("Nombre");
        globales::Consulta.Valor = QStringLiteral("'x'");
        globales::Consulta.Tabla = QStringLiteral("Editoriales");
        globales::NavModo = 0;
        globales::TitModo = 0;
        globales::HuboCambiosNumAdq = false;
        globales::DesdeListadoEjemplares = false;

        Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (1, 'Central')");
        Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (2, 'Norte')");
        Ejecuta("INSERT INTO Escuelas ([No], Nombre, NoBiblioteca) VALUES (3, 'Ingeniería', 1)");
        Ejecuta("INSERT INTO Escuelas ([No], Nombre, NoBiblioteca) VALUES (4, 'Artes', 1)");
        Ejecuta("INSERT INTO Escuelas ([No], Nombre, NoBiblioteca) VALUES (5, 'Medicina', 2)");
    }
    void TearDown() override { globales::BaseDatos.reset(); }

    void Ejecuta(const char* sql) { globales::Base().Execute(QString::fromUtf8(sql), dao::dbFailOnError); }
    void Ejecuta(const QString& sql) { globales::Base().Execute(sql, dao::dbFailOnError); }
    // The first column of the first row, "NULL" for Null, "" when there is no row.
    QString Valor(const QString& sql) { return prueba::Valor(sql); }
    QString Valor(const char* sql) { return Valor(QString::fromUtf8(sql)); }
    int Cuenta(const char* tabla) {
        return Valor(QStringLiteral("SELECT Count(*) FROM ") + QString::fromUtf8(tabla)).toInt();
    }
    static QStringList Textos(controles::ListView& l) {
        QStringList r;
        for (int i = 1; i <= l.ListItems().Count(); ++i) r << l.ListItems()(i).Text();
        return r;
    }
    // The analyst's choice of item `i` in a combo's open list, chosen with Enter: the path of a real choice,
    // also when the item is the one already chosen.
    static void EligeEnLaLista(QComboBox& combo, int i) {
        combo.showPopup();
        combo.view()->setCurrentIndex(combo.model()->index(i, 0));
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(combo.view(), &enter);
    }
    // Types into a field key by key, as the analyst does, through the field's filters and its limit.
    static void Teclea(QWidget* campo, const QString& texto) {
        for (const QChar ch : texto) {
            QKeyEvent e(QEvent::KeyPress, ch.isDigit() ? Qt::Key_0 + ch.digitValue() : Qt::Key_A, Qt::NoModifier, QString(ch));
            QApplication::sendEvent(campo, &e);
        }
    }
    // The widgets of `orden` in the order Tab reaches them, starting from the first of them: each one
    // counted where it first comes up in the focus chain.
    static QList<QWidget*> OrdenDeFoco(const QList<QWidget*>& orden) {
        QList<QWidget*> vistos;
        if (orden.isEmpty()) return vistos;
        QWidget* w = orden.front();
        for (int paso = 0; paso < 1000 && vistos.size() < orden.size(); ++paso) {
            if (orden.contains(w) && !vistos.contains(w)) vistos << w;
            w = w->nextInFocusChain();
        }
        return vistos;
    }
    // The document last completed in any view.
    QString UltimoDocumento() const { return sistema->documentos.isEmpty() ? QString() : sistema->documentos.back(); }
};
