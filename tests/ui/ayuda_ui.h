#pragma once
// What the tests of the toolkit seam, the controls and the data routines share: the scripted platform
// installed for each test and, where needed, a fresh database with every table installed as the program's.
#include "../jet/ayuda_jet.h"

#include "core/Esquema.h"
#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "core/ui/PlataformaPrueba.h"

#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace prueba_ui {

class ConSistema : public ::testing::Test {
protected:
    ui::PlataformaPrueba* sistema = nullptr;

    void SetUp() override {
        ASSERT_NE(qobject_cast<QApplication*>(QCoreApplication::instance()), nullptr)
            << "these tests need the QApplication of the suite's main";
        auto p = std::make_unique<ui::PlataformaPrueba>();
        sistema = p.get();
        ui::InstalaPlataforma(std::move(p));
    }
};

class ConBase : public ConSistema {
protected:
    QTemporaryDir dir;

    void SetUp() override {
        ConSistema::SetUp();
        ASSERT_TRUE(dir.isValid());
        globales::BaseDatos = prueba::BaseConTablas(dir);
    }
    void TearDown() override { globales::BaseDatos.reset(); }

    void Ejecuta(const QString& sql) { globales::Base().Execute(sql, dao::dbFailOnError); }
    // The first column of the first row as the engine tests show it ("NULL", dates as yyyy-mm-dd hh:mm:ss);
    // "" with no row.
    QString Valor(const QString& sql) {
        auto rs = globales::Base().OpenRecordset(sql);
        return rs->Eof() ? QString() : ayuda::Texto(rs->Fields(0).Value());
    }
    int Cuenta(const QString& tablaYCondicion) {
        return Valor(QStringLiteral("SELECT Count(*) FROM ") + tablaYCondicion).toInt();
    }
};

}  // namespace prueba_ui
