#pragma once
// What the report suites share: the program's folder with a copy of the installation's style sheets, the
// test platform installed on it, and a fresh database there as the open database.
#include "core/Esquema.h"
#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "core/ui/PlataformaPrueba.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace ayuda_reportes {

inline ui::PlataformaPrueba* PreparaPrograma(const QTemporaryDir& dir) {
    auto p = std::make_unique<ui::PlataformaPrueba>();
    ui::PlataformaPrueba* sistema = p.get();
    const QDir origen(QStringLiteral(ADQ_SOURCE_DIR "/xsls"));
    QDir(dir.path()).mkdir(QStringLiteral("xsls"));
    for (const QString& f : origen.entryList(QDir::Files))
        QFile::copy(origen.filePath(f), dir.filePath(QStringLiteral("xsls/") + f));
    sistema->rutaPrograma = dir.path();
    ui::InstalaPlataforma(std::move(p));
    auto db = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("KORVEL8.mdb")));
    esquema::CreaTablas(*db);
    globales::BaseDatos = std::move(db);
    return sistema;
}

}  // namespace ayuda_reportes
