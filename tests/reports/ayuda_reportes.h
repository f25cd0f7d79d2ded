#pragma once
// What the report suites share: the program's folder with a copy of the installation's style sheets, the
// test platform installed on it, and a fresh database there as the open database.
#include "ayuda_prueba.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

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

}  // namespace ayuda_reportes
