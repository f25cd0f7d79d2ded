#include "core/dao/Dao.h"

#include "core/jet/EmisorSqlite.h"
#include "core/jet/ErroresMotor.h"
#include "core/jet/FuncionesSqlite.h"
#include "core/jet/Parser.h"
#include "core/jet/Resolver.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace dao {

using namespace jet;

namespace {

enum class Formato { Inexistente, Sqlite, Jet, Otro };

Formato FormatoDe(const QString& ruta) {
    QFile f(ruta);
    if (!f.exists()) return Formato::Inexistente;
    if (!f.open(QIODevice::ReadOnly)) return Formato::Otro;
    const QByteArray cabecera = f.read(32);
    if (cabecera.size() == 0) return Formato::Sqlite;   // an empty file becomes a database
    if (cabecera.startsWith(QByteArray("SQLite format 3\0", 16))) return Formato::Sqlite;
    if (cabecera.size() >= 19 && cabecera.mid(4, 15) == QByteArray("Standard Jet DB")) return Formato::Jet;
    if (cabecera.size() >= 19 && cabecera.mid(4, 15) == QByteArray("Standard ACE DB")) return Formato::Jet;
    return Formato::Otro;
}

[[noreturn]] void RechazaFormato(const QString& ruta, Formato f) {
    if (f == Formato::Jet)
        throw vb::Error(ErrFormatoNoReconocido,
                        QStringLiteral("El archivo '%1' está en el formato de base de datos de las instalaciones "
                                       "anteriores; este programa no lo abre ni lo modifica. Hace falta una base de "
                                       "datos nueva, creada con adq-util.").arg(QDir::toNativeSeparators(ruta)),
                        QStringLiteral("Motor de base de datos"));
    Lanza(ErrFormatoNoReconocido, QDir::toNativeSeparators(ruta));
}

bool EsNombreDeTabla(const QString& fuente) {
    const QString t = fuente.trimmed();
    if (t.isEmpty()) return false;
    if (t.startsWith(u'(')) return false;
    const QString primera = t.section(u' ', 0, 0).toUpper();
    return primera != QLatin1String("SELECT") && primera != QLatin1String("TRANSFORM") &&
           primera != QLatin1String("INSERT") && primera != QLatin1String("UPDATE") &&
           primera != QLatin1String("DELETE") && primera != QLatin1String("CREATE") &&
           primera != QLatin1String("ALTER") && primera != QLatin1String("DROP");
}

CampoDef CampoDeColumna(const DefColumna& d, int ordinal) {
    CampoDef c;
    c.nombre = d.nombre;
    c.tipo = d.tipo;
    c.tamano = d.tamano;
    c.atributos = d.contador ? (AtrFijo | AtrAutoIncremento) : (EsTexto(d.tipo) ? AtrVariable : AtrFijo);
    c.requerido = d.noNulo || d.contador || d.clavePrimaria;
    c.predeterminado = d.predeterminado;
    c.ordinal = ordinal;
    return c;
}

}  // namespace

Database::~Database() {
    for (Recordset* rs : abiertos_) rs->registrado_ = false;
    abiertos_.clear();
    Close();
}

void Database::terminaLecturas() {
    for (Recordset* rs : abiertos_) rs->traeTodo();
}

void Database::Close() {
    if (db_) {
        sqlite3_close_v2(db_);
        db_ = nullptr;
    }
}

void Database::lanzaSqlite(int rc) const { LanzaSqlite(db_, rc, ruta_); }

void Database::abre(const QString& ruta, bool crear) {
    ruta_ = ruta;
    const QByteArray r = QFile::encodeName(ruta);
    const int flags = SQLITE_OPEN_READWRITE | (crear ? SQLITE_OPEN_CREATE : 0) | SQLITE_OPEN_NOMUTEX;
    const int rc = sqlite3_open_v2(r.constData(), &db_, flags, nullptr);
    if (rc != SQLITE_OK) {
        const QString msg = db_ ? QString::fromUtf8(sqlite3_errmsg(db_)) : QString();
        Close();
        Lanza(ErrNoSePuedeAbrir, QDir::toNativeSeparators(ruta), msg);
    }
    sqlite3_extended_result_codes(db_, 1);
    sqlite3_busy_timeout(db_, 10000);
    char* error = nullptr;
    if (sqlite3_exec(db_, "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA foreign_keys=OFF;",
                     nullptr, nullptr, &error) != SQLITE_OK) {
        const QString msg = QString::fromUtf8(error ? error : "");
        sqlite3_free(error);
        Close();
        if (msg.contains(QLatin1String("not a database"))) Lanza(ErrFormatoNoReconocido, QDir::toNativeSeparators(ruta));
        Lanza(ErrNoSePuedeAbrir, QDir::toNativeSeparators(ruta), msg);
    }
    RegistraFunciones(db_);
    catalogo_ = std::make_unique<Catalogo>(db_);
    tableDefs_.db_ = this;
    try {
        PreparaMetadatos(db_);
        ActualizaIndicesDeTexto(db_);
    } catch (const vb::Error&) {
        // A database opened read-only by the system still reads; its bookkeeping tables are already there
        // or it was made by hand.
    }
}

std::unique_ptr<Database> Database::OpenDatabase(const QString& ruta) {
    const Formato f = FormatoDe(ruta);
    if (f == Formato::Inexistente) Lanza(ErrArchivoNoEncontrado, QDir::toNativeSeparators(ruta));
    if (f != Formato::Sqlite) RechazaFormato(ruta, f);
    std::unique_ptr<Database> db(new Database);
    db->abre(ruta, false);
    return db;
}

std::unique_ptr<Database> Database::CreateDatabase(const QString& ruta, const QString& idioma, int opciones) {
    Q_UNUSED(idioma);
    Q_UNUSED(opciones);
    if (QFileInfo::exists(ruta)) Lanza(ErrBaseYaExiste);
    std::unique_ptr<Database> db(new Database);
    db->abre(ruta, true);
    return db;
}

QString Database::adjunta(const QString& ruta) {
    QString r = ruta;
    r.replace(u'\\', u'/');
    const Formato f = FormatoDe(r);
    if (f == Formato::Inexistente) Lanza(ErrArchivoNoEncontrado, QDir::toNativeSeparators(r));
    if (f != Formato::Sqlite) RechazaFormato(r, f);
    const QString esquema = QStringLiteral("ext%1").arg(adjuntas_.size() + 1);
    sqlite3_stmt* st = nullptr;
    const QByteArray sql = QStringLiteral("ATTACH DATABASE ?1 AS %1").arg(esquema).toUtf8();
    sqlite3_prepare_v2(db_, sql.constData(), -1, &st, nullptr);
    const QByteArray archivo = r.toUtf8();
    sqlite3_bind_text(st, 1, archivo.constData(), -1, SQLITE_TRANSIENT);
    const int rc = sqlite3_step(st);
    sqlite3_finalize(st);
    if (rc != SQLITE_DONE) lanzaSqlite(rc);
    adjuntas_ << esquema;
    return esquema;
}

void Database::sueltaAdjuntas() {
    if (adjuntas_.isEmpty()) return;
    for (const auto& e : adjuntas_) {
        const QByteArray sql = QStringLiteral("DETACH DATABASE %1").arg(e).toUtf8();
        sqlite3_exec(db_, sql.constData(), nullptr, nullptr, nullptr);
    }
    adjuntas_.clear();
    catalogo_->invalida();
}

void Database::ejecutaDdl(const Sentencia& s) {
    Catalogo& cat = *catalogo_;
    switch (s.clase) {
    case Sentencia::CreaTabla: {
        TablaDef t;
        t.nombre = s.tabla;
        int ordinal = 0;
        for (const auto& d : s.defColumnas) {
            if (t.campo(d.nombre)) Lanza(ErrCampoYaExiste, d.nombre, s.tabla);
            t.campos.push_back(CampoDeColumna(d, ordinal++));
            if (d.clavePrimaria || d.unico) {
                IndiceDef i;
                i.nombre = d.nombreRestriccion.isEmpty() ? (d.clavePrimaria ? QStringLiteral("PrimaryKey") : d.nombre)
                                                         : d.nombreRestriccion;
                i.campos << d.nombre;
                i.primario = d.clavePrimaria;
                i.unico = true;
                i.requerido = d.clavePrimaria;
                t.indices.push_back(i);
            }
        }
        for (const auto& r : s.restricciones) {
            IndiceDef i;
            i.nombre = r.nombre;
            for (const auto& c : r.columnas) {
                const CampoDef* campo = t.campo(c);
                if (!campo) Lanza(ErrSintaxisCreateTable);
                i.campos << campo->nombre;
            }
            i.primario = r.primaria;
            i.unico = true;
            i.requerido = r.primaria;
            t.indices.push_back(i);
        }
        cat.creaTabla(t);
        break;
    }
    case Sentencia::AlteraTabla: {
        const TablaDef* t = cat.tabla(s.tabla);
        if (!t) Lanza(ErrTablaNoEncontrada, s.tabla);
        if (!s.columnaBorrada.isEmpty()) cat.borraCampo(t->nombre, s.columnaBorrada);
        t = cat.tabla(s.tabla);
        if (!s.defColumnas.empty()) {
            CampoDef c = CampoDeColumna(s.defColumnas.front(), static_cast<int>(t->campos.size()));
            cat.agregaCampo(t->nombre, c);
        }
        for (const auto& r : s.restricciones) {
            IndiceDef i;
            i.nombre = r.nombre;
            i.campos = r.columnas;
            i.primario = r.primaria;
            i.unico = true;
            i.requerido = r.primaria;
            cat.creaIndice(t->nombre, i);
        }
        if (!s.restriccionBorrada.isEmpty()) cat.borraIndice(t->nombre, s.restriccionBorrada);
        break;
    }
    case Sentencia::BorraTabla:
        cat.borraTabla(s.tabla);
        break;
    case Sentencia::CreaIndice: {
        IndiceDef i;
        i.nombre = s.indice;
        i.campos = s.columnas;
        i.unico = s.indiceUnico;
        i.primario = s.indicePrimario;
        i.requerido = s.indicePrimario;
        cat.creaIndice(s.tabla, i);
        break;
    }
    case Sentencia::BorraIndice:
        cat.borraIndice(s.tabla, s.indice);
        break;
    default:
        break;
    }
    tableDefs_.cargada_ = false;
}

void Database::Execute(const QString& sentencia, int opciones) {
    afectados_ = 0;
    Sentencia s = Analiza(sentencia);
    if (s.clase == Sentencia::Consulta) Lanza(3065);   // a select query can't be executed
    if (s.clase != Sentencia::Insercion && s.clase != Sentencia::Actualizacion && s.clase != Sentencia::Borrado) {
        terminaLecturas();
        ejecutaDdl(s);
        return;
    }
    struct Suelta {
        Database* db;
        ~Suelta() { db->sueltaAdjuntas(); }
    } suelta{this};
    Resolver resolver(*catalogo_, [this](const QString& r) { return adjunta(r); });
    resolver.resuelve(s);
    EmisorSqlite emisor;
    Emision e = emisor.emite(s, resolver.tablaDestino(), false, resolver.esquemaDestino());
    QString sql = e.sql;
    // Without dbFailOnError the engine leaves out the rows it can't write and keeps the rest.
    if (!(opciones & dbFailOnError)) {
        if (sql.startsWith(QLatin1String("INSERT INTO"))) sql.replace(0, 11, QStringLiteral("INSERT OR IGNORE INTO"));
        else if (sql.startsWith(QLatin1String("UPDATE "))) sql.replace(0, 7, QStringLiteral("UPDATE OR IGNORE "));
    }
    const QByteArray u = sql.toUtf8();
    sqlite3_stmt* st = nullptr;
    int rc = sqlite3_prepare_v2(db_, u.constData(), static_cast<int>(u.size()), &st, nullptr);
    if (rc != SQLITE_OK) {
        sqlite3_finalize(st);
        lanzaSqlite(rc);
    }
    terminaLecturas();
    rc = sqlite3_step(st);
    if (rc != SQLITE_DONE) {
        sqlite3_finalize(st);
        lanzaSqlite(rc);
    }
    afectados_ = sqlite3_changes64(db_);
    sqlite3_finalize(st);
}

std::unique_ptr<Recordset> Database::OpenRecordset(const QString& fuente, int tipo, int opciones) {
    Q_UNUSED(opciones);
    QString sql = fuente;
    QString nombre = fuente;
    if (EsNombreDeTabla(fuente)) {
        QString tabla = fuente.trimmed();
        if (tabla.startsWith(u'[') && tabla.endsWith(u']')) tabla = tabla.mid(1, tabla.size() - 2);
        const TablaDef* t = catalogo_->tabla(tabla);
        if (!t) Lanza(ErrTablaNoEncontrada, tabla);
        sql = QStringLiteral("SELECT * FROM [%1]").arg(t->nombre);
        nombre = t->nombre;
        if (tipo == 0) tipo = dbOpenTable;
    } else {
        if (tipo == 0) tipo = dbOpenDynaset;
        if (tipo == dbOpenTable) Lanza(ErrOperacionNoValida);
    }
    std::unique_ptr<Recordset> rs(new Recordset);
    rs->db_ = this;
    rs->sql_ = sql;
    rs->nombre_ = nombre;
    rs->tipo_ = tipo;
    rs->abre();
    return rs;
}

TableDefsCollection& Database::TableDefs() {
    if (!tableDefs_.cargada_) tableDefs_.carga();
    return tableDefs_;
}

std::unique_ptr<TableDef> Database::CreateTableDef(const QString& nombre) const {
    auto t = std::make_unique<TableDef>();
    t->nombre_ = nombre;
    t->campos_.tabla_ = t.get();
    return t;
}

}  // namespace dao
