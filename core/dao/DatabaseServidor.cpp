// The database on a PostgreSQL server: opening and creating it, and the statements that write.
#include "core/dao/Dao.h"

#include "core/jet/CatalogoPostgres.h"
#include "core/jet/ConexionPostgres.h"
#include "core/jet/EmisorPostgres.h"
#include "core/jet/ErroresMotor.h"
#include "core/jet/FuncionesPostgres.h"
#include "core/jet/Parser.h"
#include "core/jet/Resolver.h"

#include <sqlite3.h>

namespace dao {

using namespace jet;

namespace {

const QString Origen = QStringLiteral("Motor de base de datos");

// The server's library of the dialect's functions, installed or brought up to date by whichever
// workstation gets there first; the others wait on the same lock and find it done.
void AseguraFunciones(ConexionPostgres& c) {
    const ResultadoPg r = c.ejecuta(QStringLiteral(
        "SELECT CASE WHEN to_regprocedure('jet_version()') IS NULL THEN -1 ELSE 0 END"));
    int version = static_cast<int>(r.entero(0, 0));
    if (version == 0) version = static_cast<int>(c.ejecuta(QStringLiteral("SELECT jet_version()")).entero(0, 0));
    if (version >= VersionFuncionesPostgres() && version >= 0) return;
    c.transaccion(QStringLiteral("SELECT pg_advisory_xact_lock(8120531); ") + ScriptFuncionesPostgres());
}

bool EsBaseDelPrograma(ConexionPostgres& c) {
    return c.ejecuta(QStringLiteral("SELECT to_regclass('\"MSysCampos\"') IS NOT NULL")).texto(0, 0) == QLatin1String("t");
}

bool EstaVacia(ConexionPostgres& c) {
    return c.ejecuta(QStringLiteral("SELECT count(*) FROM pg_class WHERE relnamespace = current_schema()::regnamespace "
                                    "AND relkind IN ('r', 'p', 'v')")).entero(0, 0) == 0;
}

}  // namespace

void Database::abreServidor(const QString& uri, bool crear) {
    ruta_ = uri;
    const DatosUri datos = AnalizaUri(uri);
    if (crear) {
        bool noExiste = false;
        try {
            pg_ = ConexionPostgres::Conecta(uri, &noExiste);
        } catch (const vb::Error&) {
            if (!noExiste) throw;
        }
        if (pg_) {
            // A database an administrator made empty for the program is taken; one with anything in it is not.
            if (EsBaseDelPrograma(*pg_) || !EstaVacia(*pg_)) {
                pg_.reset();
                Lanza(ErrBaseYaExiste);
            }
        } else {
            auto mantenimiento = ConexionPostgres::Conecta(datos.uriMantenimiento);
            try {
                mantenimiento->ejecuta(QStringLiteral("CREATE DATABASE %1 TEMPLATE template0 ENCODING 'UTF8'")
                                           .arg(CitaNombre(datos.base)));
            } catch (const vb::Error& e) {
                if (e.Number() == ErrDiscoORed) throw;
                throw vb::Error(ErrNoSePuedeAbrir,
                                QStringLiteral("El servidor %1 no creó la base de datos '%2': el usuario necesita el "
                                               "permiso de crear bases de datos, o el administrador puede crearla vacía.")
                                    .arg(datos.anfitrion, datos.base),
                                Origen);
            }
            pg_ = ConexionPostgres::Conecta(uri);
        }
        AseguraFunciones(*pg_);
        PreparaMetadatosPostgres(*pg_);
    } else {
        pg_ = ConexionPostgres::Conecta(uri);
        if (!EsBaseDelPrograma(*pg_)) {
            pg_.reset();
            throw vb::Error(ErrFormatoNoReconocido,
                            QStringLiteral("La base de datos '%1' del servidor %2 no es una base de datos de este programa; "
                                           "se prepara con adq-util crear o adq-util copiar.")
                                .arg(datos.base, datos.anfitrion),
                            Origen);
        }
        AseguraFunciones(*pg_);
    }
    catalogo_ = std::make_unique<CatalogoPostgres>(*pg_);
    tableDefs_.db_ = this;
    monedaAntigua_.clear();
    soloLectura_ = false;
}

bool Database::DropDatabase(const QString& uri) {
    const DatosUri datos = AnalizaUri(uri);
    auto mantenimiento = ConexionPostgres::Conecta(datos.uriMantenimiento);
    const ResultadoPg r = mantenimiento->ejecuta(QStringLiteral("SELECT 1 FROM pg_database WHERE datname = $1"),
                                                 {ParametroDe(vb::Variant(datos.base), false)});
    if (r.filas() == 0) return false;
    mantenimiento->ejecuta(QStringLiteral("DROP DATABASE %1").arg(CitaNombre(datos.base)));
    return true;
}

void Database::CopiaBaseEnServidor(const QString& origen, const QString& destino) {
    const DatosUri o = AnalizaUri(origen);
    const DatosUri d = AnalizaUri(destino);
    auto mantenimiento = ConexionPostgres::Conecta(d.uriMantenimiento);
    mantenimiento->ejecuta(QStringLiteral("CREATE DATABASE %1 TEMPLATE %2").arg(CitaNombre(d.base), CitaNombre(o.base)));
}

void Database::escritoEnServidor() {
    for (Recordset* rs : abiertos_)
        if (rs->releeServidor_) rs->envejece();
}

void Database::ejecutaEnServidor(Sentencia& s, int opciones) {
    Resolver resolver(*catalogo_, [](const QString&) -> QString {
        throw vb::Error(ErrOperacionNoValida,
                        QStringLiteral("Una base de datos del servidor no escribe en otro archivo de base de datos."),
                        Origen);
    });
    resolver.resuelve(s);
    EmisorPostgres emisor;
    const Emision e = emisor.emite(s, resolver.tablaDestino(), false);
    QString sql = e.sql;
    const bool ignoraRepetidos = !(opciones & dbFailOnError);
    if (ignoraRepetidos && s.clase == Sentencia::Insercion) sql += QStringLiteral(" ON CONFLICT DO NOTHING");
    struct Escrito {
        Database* db;
        ~Escrito() { db->escritoEnServidor(); }
    } escrito{this};
    try {
        afectados_ = pg_->ejecuta(sql).afectadas();
    } catch (const vb::Error& x) {
        // Without dbFailOnError a change that would repeat a key is left out, as the rows of an INSERT are.
        if (!ignoraRepetidos || x.Number() != ErrValorDuplicado) throw;
        afectados_ = 0;
    }
}

void Database::insertaEnArchivo(const QString& sentencia, const Sentencia& s, int opciones) {
    afectados_ = 0;
    QString ruta = s.baseExterna;
    ruta.replace(u'\\', u'/');
    auto archivo = OpenDatabase(ruta);
    const QString tabla = QStringLiteral("[%1]").arg(s.tabla);
    if (s.posSelect < 0) {
        // Values written in the statement: the file runs it as its own.
        archivo->Execute(QStringLiteral("INSERT INTO ") + tabla + u' ' + sentencia.mid(s.posFuente), opciones);
        afectados_ = archivo->RecordsAffected();
        return;
    }
    const TablaDef* destino = archivo->catalogo().tabla(s.tabla);
    if (!destino) Lanza(ErrTablaNoEncontrada, s.tabla);
    // Each column of the query goes to the field named in the list, else to the field of its own name, as a
    // statement within one database takes them.
    const QString consulta = sentencia.mid(s.posSelect);
    QStringList campos = s.columnas;
    for (const QString& c : campos)
        if (!destino->campo(c)) Lanza(ErrCampoInsertDesconocido, c);
    if (campos.isEmpty()) {
        Sentencia q = Analiza(consulta);
        Resolver(*catalogo_).resuelve(q);
        campos = CamposDeInsercion(*q.select, *destino);
    }
    auto origen = OpenRecordset(consulta, dbOpenSnapshot);
    FieldsCollection& salida = origen->Fields();
    if (salida.Count() != campos.size()) Lanza(ErrValoresYCampos);
    // All the rows or none: the file takes them in one transaction of its own.
    sqlite3* destinoSqlite = archivo->sqlite();
    if (sqlite3_exec(destinoSqlite, "SAVEPOINT desde_servidor", nullptr, nullptr, nullptr) != SQLITE_OK)
        archivo->lanzaSqlite(sqlite3_errcode(destinoSqlite));
    try {
        auto filas = archivo->OpenRecordset(QStringLiteral("SELECT * FROM %1 WHERE 1 = 0").arg(tabla), dbOpenDynaset);
        long long escritas = 0;
        for (; !origen->Eof(); origen->MoveNext()) {
            filas->AddNew();
            for (int i = 0; i < salida.Count(); ++i)
                if (!campos[i].isEmpty()) filas->Fields(campos[i]).setValue(salida[i].Value());
            filas->Update();
            ++escritas;
        }
        filas.reset();
        if (sqlite3_exec(destinoSqlite, "RELEASE desde_servidor", nullptr, nullptr, nullptr) != SQLITE_OK)
            archivo->lanzaSqlite(sqlite3_errcode(destinoSqlite));
        afectados_ = escritas;
    } catch (...) {
        sqlite3_exec(destinoSqlite, "ROLLBACK TO desde_servidor; RELEASE desde_servidor", nullptr, nullptr, nullptr);
        throw;
    }
}

bool Database::indiceEnServidor(const QString& nombre, const QString& tabla, const QStringList& columnas) {
    QStringList c;
    for (const auto& col : columnas) c << CitaNombre(col);
    try {
        pg_->ejecuta(QStringLiteral("CREATE INDEX IF NOT EXISTS %1 ON %2 (%3)")
                         .arg(CitaNombre(QStringLiteral("adq_consulta_") + nombre), CitaNombre(tabla), c.join(QStringLiteral(", "))));
        return true;
    } catch (const vb::Error&) {
        return false;
    }
}

}  // namespace dao
