#include "core/jet/Catalogo.h"

#include "core/jet/ErroresMotor.h"
#include "core/jet/FuncionesSqlite.h"

#include <sqlite3.h>

namespace jet {

QString CitaNombre(const QString& nombre) {
    QString r;
    r.reserve(nombre.size() + 2);
    r += u'"';
    for (QChar c : nombre) {
        if (c == u'"') r += u'"';
        r += c;
    }
    r += u'"';
    return r;
}

QString CitaTexto(const QString& texto) {
    QString r = texto;
    r.replace(u'\'', QStringLiteral("''"));
    // SQLite ends a literal at a NUL: one inside the text is joined in as a character of its own.
    if (r.contains(QChar(0))) return QStringLiteral("('") + r.replace(QChar(0), QStringLiteral("' || char(0) || '")) + QStringLiteral("')");
    return u'\'' + r + u'\'';
}

QString ClaveNombre(const QString& nombre) { return nombre.toCaseFolded(); }

TablaDef* Catalogo::Esquema::tablaDe(TablaDef* actual, const QString& tabla) {
    if (actual && actual->nombre == tabla) return actual;
    tablas.push_back(std::make_shared<TablaDef>());
    TablaDef* t = tablas.back().get();
    t->nombre = tabla;
    porNombre.insert(ClaveNombre(tabla), t);
    return t;
}

const CampoDef* TablaDef::campo(const QString& n) const {
    // Most statements spell a name as the schema does: the exact comparison goes first.
    for (const auto& c : campos)
        if (c.nombre == n) return &c;
    for (const auto& c : campos)
        if (c.nombre.size() == n.size() && c.nombre.compare(n, Qt::CaseInsensitive) == 0) return &c;
    return nullptr;
}

const CampoDef* TablaDef::contador() const {
    for (const auto& c : campos)
        if (c.contador()) return &c;
    return nullptr;
}

namespace {

class Sentencia3 {
public:
    Sentencia3(sqlite3* db, const QString& sql) {
        const QByteArray u = sql.toUtf8();
        const int rc = sqlite3_prepare_v2(db, u.constData(), static_cast<int>(u.size()), &st_, nullptr);
        if (rc != SQLITE_OK) {
            st_ = nullptr;
            LanzaSqlite(db, rc);
        }
    }
    ~Sentencia3() { sqlite3_finalize(st_); }
    bool paso() { return sqlite3_step(st_) == SQLITE_ROW; }
    QString texto(int i) const {
        auto p = reinterpret_cast<const char*>(sqlite3_column_text(st_, i));
        return p ? QString::fromUtf8(p, sqlite3_column_bytes(st_, i)) : QString();
    }
    long long entero(int i) const { return sqlite3_column_int64(st_, i); }
    bool nulo(int i) const { return sqlite3_column_type(st_, i) == SQLITE_NULL; }

private:
    sqlite3_stmt* st_ = nullptr;
};

// A column created outside the engine: its type told from SQLite's declared type.
TipoCampo TipoDeDeclarado(const QString& declarado, int& tamano) {
    const QString u = declarado.toUpper();
    tamano = 0;
    if (u.contains("INT")) { tamano = 4; return TipoCampo::Long; }
    if (u.contains("REAL") || u.contains("FLOA") || u.contains("DOUB")) { tamano = 8; return TipoCampo::Double; }
    if (u.contains("DATE") || u.contains("TIME")) { tamano = 8; return TipoCampo::Date; }
    if (u.contains("DEC") || u.contains("MONEY") || u.contains("CURR")) { tamano = 8; return TipoCampo::Currency; }
    if (u.contains("BLOB")) return TipoCampo::LongBinary;
    return TipoCampo::Memo;
}

QString TipoSqlite(const CampoDef& c) {
    switch (c.tipo) {
    case TipoCampo::Boolean: return QStringLiteral("BOOLEAN");
    case TipoCampo::Byte: return QStringLiteral("TINYINT");
    case TipoCampo::Integer: return QStringLiteral("SMALLINT");
    case TipoCampo::Long: return QStringLiteral("INTEGER");
    case TipoCampo::Currency: return QStringLiteral("DECIMAL(19,4)");
    case TipoCampo::Single: return QStringLiteral("FLOAT");
    case TipoCampo::Double: return QStringLiteral("DOUBLE");
    case TipoCampo::Date: return QStringLiteral("DATETIME");
    case TipoCampo::Text: return QStringLiteral("VARCHAR(%1)").arg(c.tamano);
    case TipoCampo::Memo: return QStringLiteral("TEXT");
    case TipoCampo::Guid: return QStringLiteral("VARCHAR(38)");
    default: return QStringLiteral("BLOB");
    }
}

QString DefinicionColumna(const CampoDef& c, bool conRestricciones) {
    QString d = CitaNombre(c.nombre) + u' ';
    if (c.contador()) return d + QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT");
    d += TipoSqlite(c);
    if (conRestricciones && c.requerido) d += QStringLiteral(" NOT NULL");
    const QString pred = PredeterminadoSqlite(c.predeterminado, c.tipo);
    if (!pred.isEmpty()) d += QStringLiteral(" DEFAULT ") + pred;
    return d;
}

QString NombreIndiceSqlite(const QString& tabla, const QString& indice) { return tabla + u'.' + indice; }

}  // namespace

Predeterminado LeePredeterminado(const QString& jet, TipoCampo tipo) {
    Predeterminado p;
    QString t = jet.trimmed();
    if (t.startsWith(u'=')) t = t.mid(1).trimmed();
    if (t.isEmpty()) return p;
    if ((t.startsWith(u'"') && t.endsWith(u'"') && t.size() >= 2) ||
        (t.startsWith(u'\'') && t.endsWith(u'\'') && t.size() >= 2)) {
        p.clase = Predeterminado::Texto;
        p.texto = t.mid(1, t.size() - 2);
        return p;
    }
    bool ok = false;
    const double d = t.toDouble(&ok);
    if (ok && tipo == TipoCampo::Currency) {
        try {
            const auto m = vb::Currency::parse(t);
            p.moneda = m ? *m : vb::Currency::fromDouble(d);
            p.clase = Predeterminado::Moneda;
        } catch (const vb::Error&) {
        }
        return p;
    }
    if (ok) {
        p.clase = EsTexto(tipo) ? Predeterminado::Texto : Predeterminado::Numero;
        p.texto = t;
        return p;
    }
    const QString u = t.toUpper();
    if (u == "NOW()") p.clase = Predeterminado::Ahora;
    else if (u == "DATE()") p.clase = Predeterminado::Hoy;
    else if (u == "TRUE" || u == "YES") p.clase = Predeterminado::Verdadero;
    else if (u == "FALSE" || u == "NO") p.clase = Predeterminado::Falso;
    return p;
}

QString PredeterminadoSqlite(const QString& jet, TipoCampo tipo) {
    const Predeterminado p = LeePredeterminado(jet, tipo);
    switch (p.clase) {
    case Predeterminado::Ninguno: return {};
    case Predeterminado::Texto: return CitaTexto(p.texto);
    case Predeterminado::Numero: return p.texto;
    case Predeterminado::Moneda: return QString::number(p.moneda.raw());   // money is kept in ten-thousandths
    case Predeterminado::Ahora: return QStringLiteral("(strftime('%Y-%m-%d %H:%M:%S','now','localtime'))");
    case Predeterminado::Hoy: return QStringLiteral("(strftime('%Y-%m-%d 00:00:00','now','localtime'))");
    case Predeterminado::Verdadero: return QStringLiteral("-1");
    case Predeterminado::Falso: return QStringLiteral("0");
    }
    return {};
}

void PreparaMetadatos(sqlite3* db, const QString& esquema) {
    const QString e = CitaNombre(esquema);
    const QString sql =
        QStringLiteral("CREATE TABLE IF NOT EXISTS %1.MSysCampos (Tabla TEXT NOT NULL, Campo TEXT NOT NULL, "
                       "Tipo INTEGER NOT NULL, Tamano INTEGER NOT NULL, Atributos INTEGER NOT NULL, "
                       "Requerido INTEGER NOT NULL, LongitudCero INTEGER NOT NULL, Predeterminado TEXT, "
                       "PRIMARY KEY (Tabla, Campo));"
                       "CREATE TABLE IF NOT EXISTS %1.MSysIndices (Tabla TEXT NOT NULL, Indice TEXT NOT NULL, "
                       "Campos TEXT NOT NULL, Primario INTEGER NOT NULL, Unico INTEGER NOT NULL, "
                       "Requerido INTEGER NOT NULL, IgnoraNulos INTEGER NOT NULL, PRIMARY KEY (Tabla, Indice));")
            .arg(e);
    char* error = nullptr;
    const int rc = sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, &error);
    if (rc != SQLITE_OK) {
        sqlite3_free(error);
        LanzaSqlite(db, rc);
    }
}

void CatalogoSqlite::transaccion(const QString& sql) {
    try {
        ejecuta(QStringLiteral("BEGIN; ") + sql + QStringLiteral(" COMMIT;"));
    } catch (...) {
        sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
    invalida();
}

void CatalogoSqlite::ejecuta(const QString& sql) {
    olvida();
    char* error = nullptr;
    const int rc = sqlite3_exec(db_, sql.toUtf8().constData(), nullptr, nullptr, &error);
    if (rc != SQLITE_OK) {
        sqlite3_free(error);
        invalida();
        LanzaSqlite(db_, rc);
    }
}

Catalogo::Esquema& Catalogo::carga(const QString& esquema) {
    const QString clave = esquema.toLower();
    if (verificados_.contains(clave)) {
        auto it = esquemas_.find(clave);
        if (it != esquemas_.end()) return *it;
    }
    verificados_.insert(clave);
    const long long version = this->version(esquema);
    auto it = esquemas_.find(clave);
    if (it != esquemas_.end() && it->version == version) return *it;

    Esquema nuevo;
    nuevo.version = version;
    lee(esquema, nuevo);
    esquemas_.insert(clave, std::move(nuevo));
    return esquemas_[clave];
}

void CatalogoSqlite::lee(const QString& esquema, Esquema& nuevo) {
    const QString e = CitaNombre(esquema);
    // SQLite's own view of the columns, in their order.
    Sentencia3 cols(db_, QStringLiteral(
        "SELECT m.name, p.name, p.type, p.\"notnull\", p.pk FROM %1.sqlite_master m, "
        "pragma_table_info(m.name, '%2') p WHERE m.type = 'table' AND m.name NOT LIKE 'sqlite\\_%' ESCAPE '\\' "
        "AND m.name NOT IN ('MSysCampos', 'MSysIndices') ORDER BY m.rowid, p.cid").arg(e, esquema));
    TablaDef* actual = nullptr;
    while (cols.paso()) {
        actual = nuevo.tablaDe(actual, cols.texto(0));
        CampoDef c;
        c.nombre = cols.texto(1);
        c.tipo = TipoDeDeclarado(cols.texto(2), c.tamano);
        c.atributos = EsTexto(c.tipo) ? AtrVariable : AtrFijo;
        c.requerido = cols.entero(3) != 0;
        if (cols.entero(4) != 0 && cols.texto(2).compare("INTEGER", Qt::CaseInsensitive) == 0)
            c.atributos = AtrFijo | AtrAutoIncremento;
        c.ordinal = static_cast<int>(actual->campos.size());
        actual->campos.push_back(c);
    }
    // The engine's own words for them, where it created them.
    bool hayMetadatos = false;
    {
        Sentencia3 existe(db_, QStringLiteral("SELECT 1 FROM %1.sqlite_master WHERE name = 'MSysCampos'").arg(e));
        hayMetadatos = existe.paso();
    }
    if (hayMetadatos) {
        Sentencia3 meta(db_, QStringLiteral("SELECT Tabla, Campo, Tipo, Tamano, Atributos, Requerido, LongitudCero, "
                                            "Predeterminado FROM %1.MSysCampos").arg(e));
        while (meta.paso()) {
            TablaDef* t = nuevo.porNombre.value(ClaveNombre(meta.texto(0)));
            if (!t) continue;
            for (auto& c : t->campos) {
                if (c.nombre.compare(meta.texto(1), Qt::CaseInsensitive) != 0) continue;
                c.tipo = static_cast<TipoCampo>(meta.entero(2));
                c.tamano = static_cast<int>(meta.entero(3));
                c.atributos = static_cast<int>(meta.entero(4));
                c.requerido = meta.entero(5) != 0;
                c.permiteLongitudCero = meta.entero(6) != 0;
                c.predeterminado = meta.texto(7);
            }
        }
        Sentencia3 ind(db_, QStringLiteral("SELECT Tabla, Indice, Campos, Primario, Unico, Requerido, IgnoraNulos "
                                           "FROM %1.MSysIndices ORDER BY rowid").arg(e));
        while (ind.paso()) {
            TablaDef* t = nuevo.porNombre.value(ClaveNombre(ind.texto(0)));
            if (!t) continue;
            IndiceDef i;
            i.nombre = ind.texto(1);
            i.campos = ind.texto(2).split(u';', Qt::SkipEmptyParts);
            i.primario = ind.entero(3) != 0;
            i.unico = ind.entero(4) != 0;
            i.requerido = ind.entero(5) != 0;
            i.ignoraNulos = ind.entero(6) != 0;
            t->indices.push_back(i);
        }
    }
}

CatalogoSqlite::~CatalogoSqlite() {
    for (sqlite3_stmt* st : std::as_const(versiones_)) sqlite3_finalize(st);
}

long long CatalogoSqlite::version(const QString& esquema) {
    const QString clave = esquema.toLower();
    sqlite3_stmt* st = versiones_.value(clave, nullptr);
    if (!st) {
        const QByteArray sql = QStringLiteral("PRAGMA %1.schema_version").arg(CitaNombre(esquema)).toUtf8();
        if (sqlite3_prepare_v2(db_, sql.constData(), -1, &st, nullptr) != SQLITE_OK) {
            sqlite3_finalize(st);
            return -1;
        }
        // An attached database comes and goes under the same name: only the main one keeps its statement.
        if (clave == QLatin1String("main")) versiones_.insert(clave, st);
    }
    long long v = -1;
    if (sqlite3_step(st) == SQLITE_ROW) v = sqlite3_column_int64(st, 0);
    sqlite3_reset(st);
    if (!versiones_.contains(clave)) sqlite3_finalize(st);
    return v;
}

const TablaDef* Catalogo::tabla(const QString& nombre, const QString& esquema) {
    return carga(esquema).porNombre.value(ClaveNombre(nombre), nullptr);
}

std::vector<const TablaDef*> Catalogo::tablas(const QString& esquema) {
    std::vector<const TablaDef*> r;
    for (const auto& t : carga(esquema).tablas) r.push_back(t.get());
    return r;
}

namespace {

QString FilaCampo(const QString& e, const QString& tabla, const CampoDef& c) {
    return QStringLiteral("INSERT OR REPLACE INTO %1.MSysCampos VALUES (%2, %3, %4, %5, %6, %7, %8, %9);")
        .arg(e, CitaTexto(tabla), CitaTexto(c.nombre))
        .arg(static_cast<int>(c.tipo)).arg(c.tamano).arg(c.atributos).arg(c.requerido ? 1 : 0)
        .arg(c.permiteLongitudCero ? 1 : 0)
        .arg(c.predeterminado.isEmpty() ? QStringLiteral("NULL") : CitaTexto(c.predeterminado));
}

QString FilaIndice(const QString& e, const QString& tabla, const IndiceDef& i) {
    return QStringLiteral("INSERT OR REPLACE INTO %1.MSysIndices VALUES (%2, %3, %4, %5, %6, %7, %8);")
        .arg(e, CitaTexto(tabla), CitaTexto(i.nombre), CitaTexto(i.campos.join(u';')))
        .arg(i.primario ? 1 : 0).arg(i.unico ? 1 : 0).arg(i.requerido ? 1 : 0).arg(i.ignoraNulos ? 1 : 0);
}

// The SQLite index behind an engine index; none for a primary key on the counter alone, which SQLite
// keeps as the row id.
QString SqlIndice(const QString& e, const TablaDef& t, const IndiceDef& i) {
    if (i.campos.size() == 1) {
        const CampoDef* c = t.campo(i.campos.first());
        if (c && c->contador() && i.unico) return {};
    }
    QStringList cols;
    for (const auto& n : i.campos) {
        const CampoDef* c = t.campo(n);
        QString col = CitaNombre(c ? c->nombre : n);
        // Text keys compare as the engine compares text: case-blind in every alphabet, accents kept.
        if (c && EsTexto(c->tipo)) col += QStringLiteral(" COLLATE JETTEXT");
        cols << col;
    }
    return QStringLiteral("CREATE %1INDEX %2.%3 ON %4 (%5);")
        .arg(i.unico ? QStringLiteral("UNIQUE ") : QString(), e, CitaNombre(NombreIndiceSqlite(t.nombre, i.nombre)),
             CitaNombre(t.nombre), cols.join(QStringLiteral(", ")));
}

}  // namespace

void ActualizaIndicesDeTexto(sqlite3* db) {
    // Files made before text keys folded every alphabet compared them in ASCII only: JOSÉ and josé were
    // two keys. Each such index is rebuilt; one whose rows already hold such a pair keeps its old form.
    QStringList antiguos;
    {
        Sentencia3 st(db, QStringLiteral("SELECT sql FROM main.sqlite_master WHERE type = 'index' AND sql LIKE "
                                         "'%COLLATE NOCASE%'"));
        while (st.paso()) antiguos << st.texto(0);
    }
    for (const QString& sql : antiguos) {
        const int on = static_cast<int>(sql.indexOf(QLatin1String(" ON "), 0, Qt::CaseInsensitive));
        const int inicio = static_cast<int>(sql.indexOf(QLatin1String("INDEX "), 0, Qt::CaseInsensitive));
        if (on < 0 || inicio < 0) continue;
        const QString nombre = sql.mid(inicio + 6, on - inicio - 6).trimmed();
        QString nuevo = sql;
        nuevo.replace(QLatin1String("COLLATE NOCASE"), QLatin1String("COLLATE JETTEXT"));
        const QByteArray u = (QStringLiteral("SAVEPOINT indice; DROP INDEX ") + nombre + QStringLiteral("; ") + nuevo +
                              QStringLiteral("; RELEASE indice;")).toUtf8();
        if (sqlite3_exec(db, u.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
            sqlite3_exec(db, "ROLLBACK TO indice; RELEASE indice;", nullptr, nullptr, nullptr);
    }
}

int VersionMoneda(sqlite3* db, const QString& esquema) {
    Sentencia3 st(db, QStringLiteral("PRAGMA %1.user_version").arg(CitaNombre(esquema)));
    return st.paso() ? static_cast<int>(st.entero(0)) : 0;
}

bool ActualizaMoneda(sqlite3* db, Catalogo& catalogo, const QString& esquema) {
    // The check and the change under one write lock: two sessions opening the same old file convert it
    // once between them.
    if (VersionMoneda(db, esquema) >= MonedaEnDiezmilesimosVersion) return true;
    if (sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK) return false;
    bool bien = true;
    if (VersionMoneda(db, esquema) < MonedaEnDiezmilesimosVersion) {
        QString sql;
        const QString e = CitaNombre(esquema);
        std::vector<const TablaDef*> tablas;
        try {
            tablas = catalogo.tablas(esquema);
        } catch (const vb::Error&) {
            bien = false;
        }
        for (const TablaDef* t : tablas) {
            QStringList sets;
            for (const auto& c : t->campos)
                if (c.tipo == TipoCampo::Currency)
                    sets << QStringLiteral("%1 = CAST(round(%1 * 10000) AS INTEGER)").arg(CitaNombre(c.nombre));
            if (!sets.isEmpty())
                sql += QStringLiteral("UPDATE %1.%2 SET %3;").arg(e, CitaNombre(t->nombre), sets.join(QStringLiteral(", ")));
        }
        sql += QStringLiteral("PRAGMA %1.user_version = %2;").arg(e).arg(MonedaEnDiezmilesimosVersion);
        bien = bien && sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
    }
    if (!bien || sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK) {
        sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
        return false;
    }
    return true;
}

void Catalogo::creaTabla(const TablaDef& def, const QString& esquema) {
    if (tabla(def.nombre, esquema)) Lanza(ErrTablaYaExiste, def.nombre);
    if (def.campos.empty()) Lanza(ErrSintaxisCreateTable);
    aplicaCreaTabla(def, esquema);
}

void Catalogo::agregaCampo(const QString& nombreTabla, const CampoDef& campo, const QString& esquema) {
    const TablaDef* t = tabla(nombreTabla, esquema);
    if (!t) Lanza(ErrTablaNoEncontrada, nombreTabla);
    if (t->campo(campo.nombre)) Lanza(ErrCampoYaExiste, campo.nombre, t->nombre);
    if (campo.contador()) Lanza(ErrSintaxisAlterTable);
    aplicaAgregaCampo(*t, campo, esquema);
}

void Catalogo::borraCampo(const QString& nombreTabla, const QString& campo) {
    const TablaDef* t = tabla(nombreTabla);
    if (!t) Lanza(ErrTablaNoEncontrada, nombreTabla);
    const CampoDef* c = t->campo(campo);
    if (!c) Lanza(ErrElementoNoEncontrado);
    aplicaBorraCampo(*t, *c);
}

void Catalogo::borraTabla(const QString& nombreTabla) {
    const TablaDef* t = tabla(nombreTabla);
    if (!t) Lanza(ErrTablaNoEncontrada, nombreTabla);
    aplicaBorraTabla(*t);
}

void Catalogo::creaIndice(const QString& nombreTabla, const IndiceDef& indice) {
    const TablaDef* t = tabla(nombreTabla);
    if (!t) Lanza(ErrTablaNoEncontrada, nombreTabla);
    for (const auto& i : t->indices)
        if (i.nombre.compare(indice.nombre, Qt::CaseInsensitive) == 0) Lanza(ErrCampoYaExiste, indice.nombre, t->nombre);
    for (const auto& n : indice.campos)
        if (!t->campo(n)) Lanza(ErrElementoNoEncontrado);
    try {
        aplicaCreaIndice(*t, indice);
    } catch (const vb::Error& e) {
        if (e.Number() == ErrDiscoORed) throw;
        Lanza(ErrValorDuplicado);   // the rows already break the new unique index
    }
}

void Catalogo::borraIndice(const QString& nombreTabla, const QString& indice) {
    const TablaDef* t = tabla(nombreTabla);
    if (!t) Lanza(ErrTablaNoEncontrada, nombreTabla);
    for (const auto& i : t->indices) {
        if (i.nombre.compare(indice, Qt::CaseInsensitive) != 0) continue;
        aplicaBorraIndice(*t, i);
        return;
    }
    Lanza(ErrElementoNoEncontrado);
}

void Catalogo::cambiaPredeterminado(const QString& nombreTabla, const QString& campo, const QString& valor) {
    const TablaDef* t = tabla(nombreTabla);
    if (!t || !t->campo(campo)) Lanza(ErrElementoNoEncontrado);
    CampoDef c = *t->campo(campo);
    c.predeterminado = valor;
    guardaCampo(*t, c);
}

void Catalogo::cambiaRequerido(const QString& nombreTabla, const QString& campo, bool requerido) {
    const TablaDef* t = tabla(nombreTabla);
    if (!t || !t->campo(campo)) Lanza(ErrElementoNoEncontrado);
    CampoDef c = *t->campo(campo);
    c.requerido = requerido;
    guardaCampo(*t, c);
}

void CatalogoSqlite::aplicaCreaTabla(const TablaDef& def, const QString& esquema) {
    const QString e = CitaNombre(esquema);
    PreparaMetadatos(db_, esquema);
    QStringList columnas;
    for (const auto& c : def.campos) columnas << DefinicionColumna(c, true);
    QString sql = QStringLiteral("CREATE TABLE %1.%2 (%3);")
                      .arg(e, CitaNombre(def.nombre), columnas.join(QStringLiteral(", ")));
    for (const auto& c : def.campos) sql += FilaCampo(e, def.nombre, c);
    for (const auto& i : def.indices) {
        sql += SqlIndice(e, def, i);
        sql += FilaIndice(e, def.nombre, i);
    }
    transaccion(sql);
}

void CatalogoSqlite::aplicaAgregaCampo(const TablaDef& t, const CampoDef& c, const QString& esquema) {
    const QString e = CitaNombre(esquema);
    PreparaMetadatos(db_, esquema);
    // SQLite can't add a NOT NULL column without a default to a table; the required flag is then kept in
    // the bookkeeping and checked on every write.
    const bool restriccion = c.requerido && !PredeterminadoSqlite(c.predeterminado, c.tipo).isEmpty();
    QString sql = QStringLiteral("ALTER TABLE %1.%2 ADD COLUMN %3;")
                      .arg(e, CitaNombre(t.nombre), DefinicionColumna(c, restriccion));
    sql += FilaCampo(e, t.nombre, c);
    transaccion(sql);
}

void CatalogoSqlite::aplicaBorraCampo(const TablaDef& t, const CampoDef& c) {
    QString sql;
    for (const auto& i : t.indices) {
        if (i.campos.contains(c.nombre, Qt::CaseInsensitive)) {
            sql += QStringLiteral("DROP INDEX IF EXISTS %1; DELETE FROM MSysIndices WHERE Tabla = %2 AND Indice = %3;")
                       .arg(CitaNombre(NombreIndiceSqlite(t.nombre, i.nombre)), CitaTexto(t.nombre), CitaTexto(i.nombre));
        }
    }
    sql += QStringLiteral("ALTER TABLE %1 DROP COLUMN %2; DELETE FROM MSysCampos WHERE Tabla = %3 AND Campo = %4;")
               .arg(CitaNombre(t.nombre), CitaNombre(c.nombre), CitaTexto(t.nombre), CitaTexto(c.nombre));
    transaccion(sql);
}

void CatalogoSqlite::aplicaBorraTabla(const TablaDef& t) {
    QString sql = QStringLiteral("DROP TABLE %1;").arg(CitaNombre(t.nombre));
    PreparaMetadatos(db_);
    sql += QStringLiteral("DELETE FROM MSysCampos WHERE Tabla = %1; DELETE FROM MSysIndices WHERE Tabla = %1;")
               .arg(CitaTexto(t.nombre));
    transaccion(sql);
}

void CatalogoSqlite::aplicaCreaIndice(const TablaDef& t, const IndiceDef& indice) {
    PreparaMetadatos(db_);
    transaccion(SqlIndice(QStringLiteral("\"main\""), t, indice) + FilaIndice(QStringLiteral("\"main\""), t.nombre, indice));
}

void CatalogoSqlite::aplicaBorraIndice(const TablaDef& t, const IndiceDef& i) {
    transaccion(QStringLiteral("DROP INDEX IF EXISTS %1; DELETE FROM MSysIndices WHERE Tabla = %2 AND Indice = %3;")
                    .arg(CitaNombre(NombreIndiceSqlite(t.nombre, i.nombre)), CitaTexto(t.nombre), CitaTexto(i.nombre)));
}

void CatalogoSqlite::guardaCampo(const TablaDef& t, const CampoDef& c) {
    PreparaMetadatos(db_);
    ejecuta(FilaCampo(QStringLiteral("\"main\""), t.nombre, c));
    invalida();
}

}  // namespace jet
