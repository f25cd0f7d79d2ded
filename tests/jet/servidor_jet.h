#pragma once
// A scratch database on the PostgreSQL server named by ADQ_PRUEBA_SERVIDOR (a URI such as
// postgresql://user@127.0.0.1:5432/postgres), made for one test and dropped after it, with the dialect's
// library installed; and the program's tables on it, from an SQLite file made with esquema::CreaTablas that
// the resolver reads as its catalog. Without the variable the tests that need a server are skipped.
#include "core/Esquema.h"
#include "core/dao/Dao.h"
#include "core/jet/EmisorPostgres.h"
#include "core/jet/EsquemaPostgres.h"
#include "core/jet/FuncionesPostgres.h"
#include "core/jet/Parser.h"
#include "core/jet/Resolver.h"
#include "core/vb/Currency.h"
#include "core/vb/Fecha.h"
#include "tools/ConsolaSql.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <libpq-fe.h>

#include <atomic>
#include <memory>
#include <optional>

namespace servidor {

// What one statement gave on the server: its rows as text (Null as nullopt), the rows it touched, or the
// engine's error number with the server's message.
struct Resultado {
    std::vector<std::vector<std::optional<QString>>> filas;
    long long afectadas = 0;
    int error = 0;
    QString mensaje;
};

// The engine's number for a failure of the server: the library's own "JET:n:..." or the server's state.
inline int NumeroDeError(const QString& estado, const QString& mensaje) {
    if (mensaje.startsWith(QLatin1String("JET:"))) return mensaje.section(u':', 1, 1).toInt();
    if (estado == QLatin1String("23505")) return 3022;   // unique key
    if (estado == QLatin1String("23502")) return 3314;   // required
    if (estado == QLatin1String("22001")) return 3163;   // too long
    if (estado == QLatin1String("22003")) return 3349;   // out of range
    if (estado == QLatin1String("21000")) return 3354;   // a subquery gave more than one row
    if (estado == QLatin1String("22012")) return 11;     // division by zero
    if (estado == QLatin1String("42803"))                // an aggregate where no group is, or a field outside it
        return mensaje.startsWith(QLatin1String("aggregate functions are not allowed")) ? 3095 : 3122;
    return 3000;
}

inline QString Valor(const std::optional<QString>& texto, jet::TipoCampo tipo);

class Base {
public:
    Base() {
        const QByteArray uri = qgetenv("ADQ_PRUEBA_SERVIDOR");
        if (uri.isEmpty()) return;
        static std::atomic<int> serie{0};
        nombre_ = QStringLiteral("adq_prueba_%1_%2").arg(QCoreApplication::applicationPid()).arg(serie++).toUtf8();
        admin_ = PQconnectdb(uri.constData());
        if (PQstatus(admin_) != CONNECTION_OK) {
            error_ = QString::fromUtf8(PQerrorMessage(admin_));
            return;
        }
        PQclear(PQexec(admin_, ("CREATE DATABASE " + nombre_ + " TEMPLATE template0 ENCODING 'UTF8'").constData()));
        const char* claves[] = {"dbname", "dbname", nullptr};
        const char* valores[] = {uri.constData(), nombre_.constData(), nullptr};
        con_ = PQconnectdbParams(claves, valores, 1);
        if (PQstatus(con_) != CONNECTION_OK) {
            error_ = QString::fromUtf8(PQerrorMessage(con_));
            return;
        }
        ejecutaVarias(QStringLiteral("SET client_min_messages = warning; SET DateStyle = ISO;"));
        ejecutaVarias(jet::ScriptFuncionesPostgres());
        if (!error_.isEmpty()) return;
        // The catalog the resolver reads: every table of the program.
        catalogo_ = dao::Database::CreateDatabase(dir_.filePath(QStringLiteral("catalogo.mdb")));
        esquema::CreaTablas(*catalogo_);
        for (const jet::TablaDef* t : catalogo_->catalogo().tablas()) ejecutaVarias(jet::CreaTablaPostgres(QString(), *t));
    }
    ~Base() {
        if (con_) PQfinish(con_);
        if (admin_ && !nombre_.isEmpty()) PQclear(PQexec(admin_, ("DROP DATABASE IF EXISTS " + nombre_ + " WITH (FORCE)").constData()));
        if (admin_) PQfinish(admin_);
    }
    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;

    bool disponible() const { return con_ && error_.isEmpty(); }
    QString error() const { return error_; }
    dao::Database& catalogo() { return *catalogo_; }
    PGconn* conexion() { return con_; }

    // Several statements of the program's own (DDL, the library); the first failure is kept in error().
    void ejecutaVarias(const QString& sql) {
        PGresult* r = PQexec(con_, sql.toUtf8().constData());
        if (PQresultStatus(r) != PGRES_COMMAND_OK && PQresultStatus(r) != PGRES_TUPLES_OK && error_.isEmpty())
            error_ = QString::fromUtf8(PQresultErrorMessage(r));
        PQclear(r);
    }

    // One statement with its host values in text form.
    Resultado corre(const QString& sql, const std::vector<QByteArray>& valores = {}) {
        Resultado res;
        std::vector<const char*> p;
        for (const auto& v : valores) p.push_back(v.isNull() ? nullptr : v.constData());
        PGresult* r = PQexecParams(con_, sql.toUtf8().constData(), static_cast<int>(p.size()), nullptr, p.data(), nullptr,
                                   nullptr, 0);
        const auto estado = PQresultStatus(r);
        if (estado == PGRES_TUPLES_OK) {
            for (int i = 0; i < PQntuples(r); ++i) {
                std::vector<std::optional<QString>> fila;
                for (int j = 0; j < PQnfields(r); ++j) {
                    if (PQgetisnull(r, i, j)) fila.emplace_back();
                    else fila.emplace_back(QString::fromUtf8(PQgetvalue(r, i, j)));
                }
                res.filas.push_back(std::move(fila));
            }
        } else if (estado == PGRES_COMMAND_OK) {
            res.afectadas = QByteArray(PQcmdTuples(r)).toLongLong();
        } else {
            res.mensaje = QString::fromUtf8(PQresultErrorField(r, PG_DIAG_MESSAGE_PRIMARY));
            res.error = NumeroDeError(QString::fromLatin1(PQresultErrorField(r, PG_DIAG_SQLSTATE)), res.mensaje);
        }
        PQclear(r);
        return res;
    }

    // A table of the test's own: made in the catalog by the dialect's CREATE TABLE, and on the server.
    void creaTabla(const QString& ddl, const QString& nombre) {
        catalogo_->Execute(ddl);
        ejecutaVarias(jet::CreaTablaPostgres(QString(), *catalogo_->catalogo().tabla(nombre)));
    }

    // A statement of the dialect run on the server; a query's first column as the corpus writes values.
    QStringList columna(const QString& sentencia) {
        jet::Emision e;
        try {
            e = emite(sentencia);
        } catch (const vb::Error& err) {
            return {QStringLiteral("error %1: %2").arg(err.Number()).arg(err.Description())};
        }
        const Resultado r = corre(e.sql);
        if (r.error) return {QStringLiteral("error %1: %2").arg(r.error).arg(r.mensaje)};
        QStringList l;
        for (const auto& f : r.filas) l << Valor(f.front(), e.columnas.front().tipo);
        return l;
    }
    // An action statement: the rows it touched, or minus the engine's error number.
    long long ejecuta(const QString& sentencia) {
        jet::Emision e;
        try {
            e = emite(sentencia);
        } catch (const vb::Error& err) {
            return -err.Number();
        }
        const Resultado r = corre(e.sql);
        return r.error ? -r.error : r.afectadas;
    }

    // A statement of the dialect written for the server (DML or query; `conRowid` for an updatable one).
    jet::Emision emite(const QString& sentencia, bool conRowid = false) {
        jet::Sentencia s = jet::Analiza(sentencia);
        jet::Resolver resolver(catalogo_->catalogo());
        resolver.resuelve(s);
        jet::EmisorPostgres emisor;
        return emisor.emite(s, resolver.tablaDestino(), conRowid, resolver.esquemaDestino());
    }

private:
    QTemporaryDir dir_;
    QByteArray nombre_;
    PGconn* admin_ = nullptr;
    PGconn* con_ = nullptr;
    QString error_;
    std::unique_ptr<dao::Database> catalogo_;
};

// A value the server returned, read by its output column's type, as the corpus writes it.
inline QString Valor(const std::optional<QString>& texto, jet::TipoCampo tipo) {
    if (!texto) return QStringLiteral("NULL");
    const QString& t = *texto;
    switch (tipo) {
    case jet::TipoCampo::Currency: {
        // Ten-thousandths, perhaps with a zero fraction.
        const QString entero = t.section(u'.', 0, 0);
        return consola::TextoValor(vb::Variant(vb::Currency::fromRaw(entero.toLongLong())));
    }
    case jet::TipoCampo::Boolean: return consola::TextoValor(vb::Variant(t.toInt() != 0));
    case jet::TipoCampo::Byte:
    case jet::TipoCampo::Integer:
    case jet::TipoCampo::Long: return consola::TextoValor(vb::Variant::Long(t.toInt()));
    case jet::TipoCampo::Single:
    case jet::TipoCampo::Double: return consola::TextoValor(vb::Variant(t.toDouble()));
    case jet::TipoCampo::Date: {
        if (auto f = vb::Fecha::fromIso(t)) return consola::TextoValor(vb::Variant(*f));
        return t;
    }
    default: return t;
    }
}

}  // namespace servidor
