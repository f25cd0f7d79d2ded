#include "core/Rutas.h"

#include "core/ui/Plataforma.h"

#include <QDir>
#include <QFileInfo>

namespace rutas {

QString ArchivoInstalacion(const QString& ruta) {
    QString r = ruta;
    r.replace(u'\\', u'/');
    if (QFileInfo::exists(r)) return r;
    const QStringList partes = r.split(u'/', Qt::KeepEmptyParts);
    QString actual = r.startsWith(u'/') ? QStringLiteral("/") : QString();
    for (int i = 0; i < partes.size(); ++i) {
        const QString& parte = partes[i];
        if (parte.isEmpty()) continue;
        const QDir dir(actual.isEmpty() ? QStringLiteral(".") : actual);
        QString encontrada;
        if (QFileInfo::exists(dir.filePath(parte))) {
            encontrada = parte;
        } else {
            for (const QString& e : dir.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden)) {
                if (e.compare(parte, Qt::CaseInsensitive) == 0) {
                    encontrada = e;
                    break;
                }
            }
        }
        if (encontrada.isEmpty()) return r;
        actual = actual.isEmpty() ? encontrada : (actual.endsWith(u'/') ? actual + encontrada : actual + u'/' + encontrada);
    }
    return actual;
}

QString Instalacion(const QString& relativa) {
    QString base = ui::Sistema().RutaPrograma();
    if (!base.endsWith(u'/') && !base.endsWith(u'\\')) base += u'/';
    return ArchivoInstalacion(base + relativa);
}

}  // namespace rutas
