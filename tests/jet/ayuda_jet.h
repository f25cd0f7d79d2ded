#pragma once
// What the engine's tests share: a fresh database with every table of the program in a temporary folder,
// and short ways to run a statement, read a value, or catch the engine's error number.
#include "texto_gtest.h"
#include "base_prueba.h"

#include "core/Esquema.h"
#include "core/dao/Dao.h"

#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace ayuda {

// The error number a call raises; 0 if it runs.
inline int ErrorDe(const std::function<void()>& f) {
    try {
        f();
    } catch (const vb::Error& e) {
        return e.Number();
    }
    return 0;
}

// A value as the tests compare it: Null as NULL, dates yyyy-mm-dd hh:mm:ss, money and numbers plain.
inline QString Texto(const vb::Variant& v) {
    switch (v.type()) {
    case vb::VarType::Empty: return QStringLiteral("EMPTY");
    case vb::VarType::Null: return QStringLiteral("NULL");
    case vb::VarType::Date: return v.toDate().toIso();
    case vb::VarType::Currency: return v.toCurrency().toSql();
    case vb::VarType::Boolean: return v.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    default: return v.toString();
    }
}

// Every row of a query on a database, its columns joined by '|'.
inline QStringList Filas(dao::Database& base, const QString& sql) {
    QStringList r;
    auto rs = base.OpenRecordset(sql, dao::dbOpenSnapshot);
    while (!rs->Eof()) {
        QStringList f;
        for (int i = 0; i < rs->Fields().Count(); ++i) f << Texto(rs->Fields(i).Value());
        r << f.join(u'|');
        rs->MoveNext();
    }
    return r;
}

class BaseJet : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        db = prueba::BaseConTablas(dir, QStringLiteral("KORVEL8.mdb"), soloArchivo());
    }

    QString ruta(const QString& nombre) const { return dir.filePath(nombre); }
    // Tests of what happens to files keep their database in one whatever the back end of the run.
    virtual bool soloArchivo() const { return false; }

    void ejecuta(const QString& sql) { db->Execute(sql, dao::dbFailOnError); }

    std::unique_ptr<dao::Recordset> abre(const QString& sql, int tipo = 0) { return db->OpenRecordset(sql, tipo); }

    // The first column of the first row; Empty if there is none.
    vb::Variant valor(const QString& sql) {
        auto rs = abre(sql, dao::dbOpenSnapshot);
        return rs->Eof() ? vb::Variant() : rs->Fields(0).Value();
    }

    // The first value as text, or the error it raises as "Error <número>".
    QString texto(const QString& sql) {
        try {
            return Texto(valor(sql));
        } catch (const vb::Error& e) {
            return QStringLiteral("Error %1").arg(e.Number());
        }
    }

    // Every row, its columns joined by '|'.
    QStringList filas(const QString& sql) { return Filas(*db, sql); }

    long cuenta(const QString& tabla) { return valor(QStringLiteral("SELECT Count(*) FROM ") + tabla).toLong(); }

    int error(const QString& sql) {
        return ErrorDe([&] {
            const QString t = sql.trimmed();
            if (t.startsWith(QLatin1String("SELECT"), Qt::CaseInsensitive) || t.startsWith(u'('))
                filas(sql);
            else
                ejecuta(sql);
        });
    }

    QTemporaryDir dir;
    std::unique_ptr<dao::Database> db;
};

}  // namespace ayuda

