// Every statement the program sends, run in order on one database seeded with a small data set, each
// checked against what it must do: run, return so many rows, touch so many rows, give a first value, or
// fail with the engine's number.
#include "base_prueba.h"
#include "corpus_jet.h"

#include "core/Esquema.h"
#include "core/dao/Dao.h"
#include "tools/ConsolaSql.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using corpus::Entrada;
using corpus::EsConsulta;
using corpus::LeeCorpus;

// Runs one entry and returns what went wrong, or an empty text.
QString Corre(dao::Database& db, const Entrada& e) {
    const QString clase = e.esperado.section(u' ', 0, 0);
    const QString dato = e.esperado.section(u' ', 1);
    try {
        if (EsConsulta(e.sentencia)) {
            auto rs = db.OpenRecordset(e.sentencia, dao::dbOpenSnapshot);
            if (clase == QLatin1String("rows")) {
                const long n = rs->RecordCount();
                if (n != dato.toLong()) return QStringLiteral("devolvió %1 filas").arg(n);
            } else if (clase == QLatin1String("value")) {
                if (rs->Eof()) return QStringLiteral("no devolvió filas");
                const QString v = consola::TextoValor(rs->Fields(0).Value());
                if (v != dato) return QStringLiteral("dio el valor '%1'").arg(v);
            } else if (clase != QLatin1String("ok")) {
                return QStringLiteral("corrió sin error");
            }
        } else {
            db.Execute(e.sentencia, dao::dbFailOnError);
            if (clase == QLatin1String("affected")) {
                if (db.RecordsAffected() != dato.toLongLong())
                    return QStringLiteral("tocó %1 filas").arg(db.RecordsAffected());
            } else if (clase != QLatin1String("ok")) {
                return QStringLiteral("corrió sin error");
            }
        }
    } catch (const vb::Error& err) {
        if (clase == QLatin1String("error") && err.Number() == dato.toInt()) return {};
        return QStringLiteral("falló con %1: %2").arg(err.Number()).arg(err.Description());
    }
    return {};
}

TEST(Corpus, CadaSentenciaHaceLoQueDebe) {
    QTemporaryDir dir;
    const QString otra = dir.filePath(QStringLiteral("intercambio.exp"));
    {
        auto db = dao::Database::CreateDatabase(otra);
        esquema::CreaTablas(*db);
        db->Execute(QStringLiteral("CREATE TABLE Metadata (NoSolicitudes LONG, NoDonaciones LONG, NoTitulos LONG, "
                                   "NoEjemplares LONG, IdCapturista TEXT(10), FechaExportacion DATETIME)"));
    }
    auto db = prueba::BaseConTablas(dir);

    const auto datos = LeeCorpus(QStringLiteral("datos.sql"));
    ASSERT_GT(datos.size(), 10u);
    for (const auto& e : datos) {
        const QString falla = Corre(*db, e);
        ASSERT_TRUE(falla.isEmpty()) << e.etiqueta.toStdString() << ": " << falla.toStdString();
    }

    auto corpus = LeeCorpus(QStringLiteral("sentencias.sql"));
    ASSERT_GT(corpus.size(), 100u);
    int fallas = 0;
    for (auto& e : corpus) {
        e.sentencia.replace(QLatin1String("@OTRA@"), otra);
        const QString falla = Corre(*db, e);
        if (!falla.isEmpty()) {
            ++fallas;
            ADD_FAILURE() << "[" << e.etiqueta.toStdString() << "] se esperaba " << e.esperado.toStdString() << " y "
                          << falla.toStdString() << "\n    " << e.sentencia.toStdString();
        }
    }
    EXPECT_EQ(fallas, 0) << "de " << corpus.size() << " sentencias";
}

}  // namespace
