// The dialect corpus on a PostgreSQL server: every statement written by the generator for PostgreSQL over
// tables made by its DDL, run in order, each checked against what it must do. Changes of schema go through
// the SQLite catalog (which refuses what the engine refuses) and reach the server as the difference they
// made. The entries that write into a second database file are left out: a server has no files.
#include "corpus_jet.h"
#include "servidor_jet.h"

#include <gtest/gtest.h>

namespace {

using corpus::Entrada;

// The server's statements that take a table from `antes` (absent: nullptr) to `despues` (dropped: nullptr).
QString Diferencia(const jet::TablaDef* antes, const jet::TablaDef* despues) {
    if (!antes && despues) return jet::CreaTablaPostgres(QString(), *despues);
    if (antes && !despues) return QStringLiteral("DROP TABLE %1;").arg(jet::CitaNombre(antes->nombre));
    if (!antes) return {};
    QString sql;
    for (const auto& i : antes->indices) {
        bool sigue = false;
        for (const auto& j : despues->indices) sigue = sigue || (j.nombre == i.nombre && j.campos == i.campos);
        if (!sigue) sql += QStringLiteral("DROP INDEX IF EXISTS %1;").arg(jet::CitaNombre(jet::NombreIndicePostgres(antes->nombre, i.nombre)));
    }
    for (const auto& c : antes->campos)
        if (!despues->campo(c.nombre))
            sql += QStringLiteral("ALTER TABLE %1 DROP COLUMN %2;").arg(jet::CitaNombre(antes->nombre), jet::CitaNombre(c.nombre));
    for (const auto& c : despues->campos)
        if (!antes->campo(c.nombre)) sql += jet::AgregaCampoPostgres(QString(), *antes, c);
    for (const auto& j : despues->indices) {
        bool estaba = false;
        for (const auto& i : antes->indices) estaba = estaba || (j.nombre == i.nombre && j.campos == i.campos);
        if (!estaba) sql += jet::SqlIndicePostgres(QString(), *despues, j);
    }
    return sql;
}

class CorredorServidor {
public:
    explicit CorredorServidor(servidor::Base& base) : base_(base) {}

    // What went wrong with one entry, or an empty text.
    QString corre(const Entrada& e) {
        const QString clase = e.esperado.section(u' ', 0, 0);
        const QString dato = e.esperado.section(u' ', 1);
        auto fallo = [&](int numero, const QString& mensaje) {
            if (clase == QLatin1String("error") && numero == dato.toInt()) return QString();
            return QStringLiteral("falló con %1: %2").arg(numero).arg(mensaje);
        };
        jet::Sentencia s;
        jet::Emision emision;
        try {
            s = jet::Analiza(e.sentencia);
            if (s.clase != jet::Sentencia::Consulta && s.clase != jet::Sentencia::Insercion &&
                s.clase != jet::Sentencia::Actualizacion && s.clase != jet::Sentencia::Borrado)
                return esquema(e, s, fallo);
            emision = base_.emite(e.sentencia, s.clase == jet::Sentencia::Consulta);
        } catch (const vb::Error& err) {
            return fallo(err.Number(), err.Description());
        }
        sql_ = emision.sql;
        const servidor::Resultado r = base_.corre(emision.sql);
        if (r.error) return fallo(r.error, r.mensaje);
        if (s.clase == jet::Sentencia::Consulta) {
            if (emision.actualizable && !r.filas.empty()) {
                // The row read again by its row id, the hidden last column.
                const auto& id = r.filas.front().back();
                const servidor::Resultado una = base_.corre(emision.sqlPorFila, {id ? id->toUtf8() : QByteArray()});
                if (una.error || una.filas.size() != 1) return QStringLiteral("no se relee la fila por su rowid: %1").arg(una.mensaje);
            }
            if (clase == QLatin1String("rows") && static_cast<long>(r.filas.size()) != dato.toLong())
                return QStringLiteral("devolvió %1 filas").arg(r.filas.size());
            if (clase == QLatin1String("value")) {
                if (r.filas.empty()) return QStringLiteral("no devolvió filas");
                const QString v = servidor::Valor(r.filas.front().front(), emision.columnas.front().tipo);
                if (v != dato) return QStringLiteral("dio el valor '%1'").arg(v);
            }
            if (clase == QLatin1String("error") || clase == QLatin1String("affected")) return QStringLiteral("corrió sin error");
            return {};
        }
        if (clase == QLatin1String("affected") && r.afectadas != dato.toLongLong())
            return QStringLiteral("tocó %1 filas").arg(r.afectadas);
        if (clase != QLatin1String("ok") && clase != QLatin1String("affected")) return QStringLiteral("corrió sin error");
        return {};
    }

    QString ultimoSql() const { return sql_; }

private:
    servidor::Base& base_;
    QString sql_;

    template <class Fallo> QString esquema(const Entrada& e, const jet::Sentencia& s, Fallo fallo) {
        jet::Catalogo& cat = base_.catalogo().catalogo();
        std::optional<jet::TablaDef> antes;
        if (const jet::TablaDef* t = cat.tabla(s.tabla)) antes = *t;
        try {
            base_.catalogo().Execute(e.sentencia, dao::dbFailOnError);
        } catch (const vb::Error& err) {
            return fallo(err.Number(), err.Description());
        }
        cat.invalida();
        const jet::TablaDef* despues = cat.tabla(s.tabla);
        sql_ = Diferencia(antes ? &*antes : nullptr, despues);
        if (sql_.isEmpty()) return e.esperado == QLatin1String("ok") ? QString() : QStringLiteral("corrió sin error");
        const QString completo = QStringLiteral("BEGIN;") + sql_ + QStringLiteral("COMMIT;");
        PGresult* r = PQexec(base_.conexion(), completo.toUtf8().constData());
        const bool bien = PQresultStatus(r) == PGRES_COMMAND_OK;
        const QString mensaje = QString::fromUtf8(PQresultErrorField(r, PG_DIAG_MESSAGE_PRIMARY));
        const QString estado = QString::fromLatin1(PQresultErrorField(r, PG_DIAG_SQLSTATE));
        PQclear(r);
        if (bien) return e.esperado == QLatin1String("ok") ? QString() : QStringLiteral("corrió sin error");
        PQclear(PQexec(base_.conexion(), "ROLLBACK"));
        // The server refused what the catalog took (a unique index over repeated rows): the catalog forgets it.
        if (s.clase == jet::Sentencia::CreaIndice) cat.borraIndice(s.tabla, s.indice);
        return fallo(servidor::NumeroDeError(estado, mensaje), mensaje);
    }
};

TEST(CorpusServidor, CadaSentenciaHaceLoQueDebe) {
    servidor::Base base;
    if (qEnvironmentVariableIsEmpty("ADQ_PRUEBA_SERVIDOR")) GTEST_SKIP() << "sin ADQ_PRUEBA_SERVIDOR";
    ASSERT_TRUE(base.disponible()) << base.error().toStdString();
    CorredorServidor corredor(base);

    for (const auto& e : corpus::LeeCorpus(QStringLiteral("datos.sql"))) {
        const QString falla = corredor.corre(e);
        ASSERT_TRUE(falla.isEmpty()) << e.etiqueta.toStdString() << ": " << falla.toStdString() << "\n    "
                                     << corredor.ultimoSql().toStdString();
    }
    const auto entradas = corpus::LeeCorpus(QStringLiteral("sentencias.sql"));
    ASSERT_GT(entradas.size(), 100u);
    int fallas = 0, corridas = 0;
    for (const auto& e : entradas) {
        if (e.sentencia.contains(QLatin1String("@OTRA@"))) continue;
        ++corridas;
        const QString falla = corredor.corre(e);
        if (!falla.isEmpty()) {
            ++fallas;
            ADD_FAILURE() << "[" << e.etiqueta.toStdString() << "] se esperaba " << e.esperado.toStdString() << " y "
                          << falla.toStdString() << "\n    " << e.sentencia.toStdString() << "\n    "
                          << corredor.ultimoSql().toStdString();
        }
    }
    EXPECT_EQ(fallas, 0) << "de " << corridas << " sentencias";
}

}  // namespace
