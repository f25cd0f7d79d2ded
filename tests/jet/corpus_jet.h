#pragma once
// The dialect corpus (tests/jet/corpus): its entries as the runners of every engine read them.
#include <QFile>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <vector>

namespace corpus {

struct Entrada {
    QString etiqueta;
    QString esperado;    // "ok", "rows N", "affected N", "value X", "error NNNN"
    QString sentencia;
};

inline std::vector<Entrada> LeeCorpus(const QString& archivo) {
    QFile f(QStringLiteral(ADQ_SOURCE_DIR "/tests/jet/corpus/") + archivo);
    std::vector<Entrada> entradas;
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) return entradas;
    QTextStream in(&f);
    QString linea;
    Entrada actual;
    QStringList lineas;
    auto cierra = [&]() {
        if (actual.etiqueta.isEmpty()) return;
        while (!lineas.isEmpty() && lineas.last().trimmed().isEmpty()) lineas.removeLast();
        actual.sentencia = lineas.join(u'\n');
        entradas.push_back(actual);
        actual = Entrada();
        lineas.clear();
    };
    while (in.readLineInto(&linea)) {
        if (linea.startsWith(QLatin1String("=== "))) {
            cierra();
            actual.etiqueta = linea.mid(4).trimmed();
        } else if (!actual.etiqueta.isEmpty() && actual.esperado.isEmpty() && linea.startsWith(QLatin1String("expect:"))) {
            actual.esperado = linea.mid(7).trimmed();
        } else if (!actual.etiqueta.isEmpty()) {
            lineas << linea;
        }
    }
    cierra();
    return entradas;
}

inline bool EsConsulta(const QString& s) {
    const QString t = s.trimmed();
    return t.startsWith(QLatin1String("select"), Qt::CaseInsensitive) || t.startsWith(u'(');
}

}  // namespace corpus
