#pragma once
// What the suites that work on a database share: the scripted platform installed, a fresh database with every
// table in a temporary folder open as the program's database, and a reader of single values.
#include "texto_gtest.h"
#include "base_prueba.h"

#include "core/Esquema.h"
#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "core/ui/PlataformaPrueba.h"

#include <QTemporaryDir>
#include <memory>

namespace prueba {

inline ui::PlataformaPrueba* InstalaBaseNueva(const QTemporaryDir& dir) {
    auto p = std::make_unique<ui::PlataformaPrueba>();
    ui::PlataformaPrueba* sistema = p.get();
    ui::InstalaPlataforma(std::move(p));
    globales::BaseDatos = BaseConTablas(dir);
    return sistema;
}

// The first column of the first row as text: "NULL" for Null, "" when there is no row.
inline QString Valor(const QString& sql) {
    auto rs = globales::Base().OpenRecordset(sql);
    if (rs->Eof()) return QString();
    const vb::Variant v = rs->Fields(0).Value();
    return v.isNull() ? QStringLiteral("NULL") : v.text();
}

}  // namespace prueba
