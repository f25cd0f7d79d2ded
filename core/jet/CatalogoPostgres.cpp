#include "core/jet/CatalogoPostgres.h"

#include "core/jet/ConexionPostgres.h"
#include "core/jet/ErroresMotor.h"
#include "core/jet/EsquemaPostgres.h"

namespace jet {

namespace {

// The type of a column that the bookkeeping doesn't describe (a table made on the server by other means),
// from the server's own words for it.
TipoCampo TipoDeServidor(const QString& tipo, int& tamano) {
    tamano = 0;
    if (tipo.startsWith(QLatin1String("character varying"))) {
        tamano = tipo.section(u'(', 1).section(u')', 0, 0).toInt();
        if (tamano <= 0 || tamano > 255) return TipoCampo::Memo;
        return TipoCampo::Text;
    }
    if (tipo == QLatin1String("smallint")) { tamano = 2; return TipoCampo::Integer; }
    if (tipo == QLatin1String("integer") || tipo == QLatin1String("bigint")) { tamano = 4; return TipoCampo::Long; }
    if (tipo == QLatin1String("real")) { tamano = 4; return TipoCampo::Single; }
    if (tipo == QLatin1String("double precision")) { tamano = 8; return TipoCampo::Double; }
    if (tipo.startsWith(QLatin1String("numeric"))) { tamano = 8; return TipoCampo::Currency; }
    if (tipo.startsWith(QLatin1String("timestamp")) || tipo == QLatin1String("date")) { tamano = 8; return TipoCampo::Date; }
    if (tipo == QLatin1String("boolean")) { tamano = 1; return TipoCampo::Boolean; }
    if (tipo == QLatin1String("bytea")) return TipoCampo::LongBinary;
    return TipoCampo::Memo;
}

QString FilaCampo(const QString& tabla, const CampoDef& c) {
    return QStringLiteral("INSERT INTO \"MSysCampos\" VALUES (%1, %2, %3, %4, %5, %6, %7, %8) ON CONFLICT (\"Tabla\", \"Campo\") "
                          "DO UPDATE SET \"Tipo\" = EXCLUDED.\"Tipo\", \"Tamano\" = EXCLUDED.\"Tamano\", "
                          "\"Atributos\" = EXCLUDED.\"Atributos\", \"Requerido\" = EXCLUDED.\"Requerido\", "
                          "\"LongitudCero\" = EXCLUDED.\"LongitudCero\", \"Predeterminado\" = EXCLUDED.\"Predeterminado\";")
        .arg(CitaTexto(tabla), CitaTexto(c.nombre))
        .arg(static_cast<int>(c.tipo)).arg(c.tamano).arg(c.atributos).arg(c.requerido ? 1 : 0)
        .arg(c.permiteLongitudCero ? 1 : 0)
        .arg(c.predeterminado.isEmpty() ? QStringLiteral("NULL") : CitaTexto(c.predeterminado));
}

QString FilaIndice(const QString& tabla, const IndiceDef& i) {
    return QStringLiteral("INSERT INTO \"MSysIndices\" (\"Tabla\", \"Indice\", \"Campos\", \"Primario\", \"Unico\", "
                          "\"Requerido\", \"IgnoraNulos\") VALUES (%1, %2, %3, %4, %5, %6, %7);")
        .arg(CitaTexto(tabla), CitaTexto(i.nombre), CitaTexto(i.campos.join(u';')))
        .arg(i.primario ? 1 : 0).arg(i.unico ? 1 : 0).arg(i.requerido ? 1 : 0).arg(i.ignoraNulos ? 1 : 0);
}

void SoloPrincipal(const QString& esquema) {
    if (esquema.compare(QLatin1String("main"), Qt::CaseInsensitive) != 0) Lanza(ErrOperacionNoValida);
}

}  // namespace

void PreparaMetadatosPostgres(ConexionPostgres& c) {
    c.ejecutaVarias(QStringLiteral(
        "CREATE TABLE IF NOT EXISTS \"MSysCampos\" (\"Tabla\" text NOT NULL, \"Campo\" text NOT NULL, "
        "\"Tipo\" integer NOT NULL, \"Tamano\" integer NOT NULL, \"Atributos\" integer NOT NULL, "
        "\"Requerido\" integer NOT NULL, \"LongitudCero\" integer NOT NULL, \"Predeterminado\" text, "
        "PRIMARY KEY (\"Tabla\", \"Campo\"));"
        "CREATE TABLE IF NOT EXISTS \"MSysIndices\" (\"Tabla\" text NOT NULL, \"Indice\" text NOT NULL, "
        "\"Campos\" text NOT NULL, \"Primario\" integer NOT NULL, \"Unico\" integer NOT NULL, "
        "\"Requerido\" integer NOT NULL, \"IgnoraNulos\" integer NOT NULL, \"Orden\" bigserial, "
        "PRIMARY KEY (\"Tabla\", \"Indice\"));"));
}

long long CatalogoPostgres::version(const QString& esquema) {
    SoloPrincipal(esquema);
    if (c_.esquemaCambiado()) ++version_;
    return version_;
}

void CatalogoPostgres::lee(const QString& esquema, Esquema& nuevo) {
    SoloPrincipal(esquema);
    const ResultadoPg cols = c_.ejecuta(QStringLiteral(
        "SELECT c.relname, a.attname, format_type(a.atttypid, a.atttypmod), a.attnotnull, m.\"Tipo\", m.\"Tamano\", "
        "m.\"Atributos\", m.\"Requerido\", m.\"LongitudCero\", m.\"Predeterminado\", m.\"Tabla\" IS NOT NULL "
        "FROM pg_class c JOIN pg_attribute a ON a.attrelid = c.oid "
        "LEFT JOIN \"MSysCampos\" m ON m.\"Tabla\" = c.relname AND m.\"Campo\" = a.attname "
        "WHERE c.relnamespace = current_schema()::regnamespace AND c.relkind IN ('r', 'p') AND a.attnum > 0 "
        "AND NOT a.attisdropped AND a.attname <> 'rowid' AND c.relname NOT IN ('MSysCampos', 'MSysIndices') "
        "ORDER BY c.oid, a.attnum"));
    TablaDef* actual = nullptr;
    for (int f = 0; f < cols.filas(); ++f) {
        actual = nuevo.tablaDe(actual, cols.texto(f, 0));
        CampoDef c;
        c.nombre = cols.texto(f, 1);
        if (cols.entero(f, 10) == 0 && cols.texto(f, 10) != QLatin1String("t")) {
            c.tipo = TipoDeServidor(cols.texto(f, 2), c.tamano);
            c.atributos = EsTexto(c.tipo) ? AtrVariable : AtrFijo;
            c.requerido = cols.texto(f, 3) == QLatin1String("t");
        } else {
            c.tipo = static_cast<TipoCampo>(cols.entero(f, 4));
            c.tamano = static_cast<int>(cols.entero(f, 5));
            c.atributos = static_cast<int>(cols.entero(f, 6));
            c.requerido = cols.entero(f, 7) != 0;
            c.permiteLongitudCero = cols.entero(f, 8) != 0;
            c.predeterminado = cols.texto(f, 9);
        }
        c.ordinal = static_cast<int>(actual->campos.size());
        actual->campos.push_back(c);
    }
    const ResultadoPg ind = c_.ejecuta(QStringLiteral(
        "SELECT \"Tabla\", \"Indice\", \"Campos\", \"Primario\", \"Unico\", \"Requerido\", \"IgnoraNulos\" "
        "FROM \"MSysIndices\" ORDER BY \"Orden\""));
    for (int f = 0; f < ind.filas(); ++f) {
        TablaDef* t = nuevo.porNombre.value(ClaveNombre(ind.texto(f, 0)));
        if (!t) continue;
        IndiceDef i;
        i.nombre = ind.texto(f, 1);
        i.campos = ind.texto(f, 2).split(u';', Qt::SkipEmptyParts);
        i.primario = ind.entero(f, 3) != 0;
        i.unico = ind.entero(f, 4) != 0;
        i.requerido = ind.entero(f, 5) != 0;
        i.ignoraNulos = ind.entero(f, 6) != 0;
        t->indices.push_back(i);
    }
}

void CatalogoPostgres::cambia(const QString& sql) {
    olvida();
    try {
        c_.transaccion(sql + u';' + ConexionPostgres::AvisoEsquema());
    } catch (...) {
        invalida();
        ++version_;
        throw;
    }
    invalida();
    ++version_;
}

void CatalogoPostgres::aplicaCreaTabla(const TablaDef& def, const QString&) {
    QString sql = CreaTablaPostgres(QString(), def);
    for (const auto& c : def.campos) sql += FilaCampo(def.nombre, c);
    for (const auto& i : def.indices) sql += FilaIndice(def.nombre, i);   // the indexes come with the table
    cambia(sql);
}

void CatalogoPostgres::aplicaAgregaCampo(const TablaDef& t, const CampoDef& campo, const QString&) {
    cambia(AgregaCampoPostgres(QString(), t, campo) + FilaCampo(t.nombre, campo));
}

void CatalogoPostgres::aplicaBorraCampo(const TablaDef& t, const CampoDef& c) {
    // The server drops the column's indexes with it.
    QString sql;
    for (const auto& i : t.indices) {
        if (i.campos.contains(c.nombre, Qt::CaseInsensitive))
            sql += QStringLiteral("DELETE FROM \"MSysIndices\" WHERE \"Tabla\" = %1 AND \"Indice\" = %2;")
                       .arg(CitaTexto(t.nombre), CitaTexto(i.nombre));
    }
    sql += QStringLiteral("ALTER TABLE %1 DROP COLUMN %2; DELETE FROM \"MSysCampos\" WHERE \"Tabla\" = %3 AND \"Campo\" = %4;")
               .arg(CitaNombre(t.nombre), CitaNombre(c.nombre), CitaTexto(t.nombre), CitaTexto(c.nombre));
    cambia(sql);
}

void CatalogoPostgres::aplicaBorraTabla(const TablaDef& t) {
    cambia(QStringLiteral("DROP TABLE %1; DELETE FROM \"MSysCampos\" WHERE \"Tabla\" = %2; "
                          "DELETE FROM \"MSysIndices\" WHERE \"Tabla\" = %2;")
               .arg(CitaNombre(t.nombre), CitaTexto(t.nombre)));
}

void CatalogoPostgres::aplicaCreaIndice(const TablaDef& t, const IndiceDef& indice) {
    cambia(SqlIndicePostgres(QString(), t, indice) + FilaIndice(t.nombre, indice));
}

void CatalogoPostgres::aplicaBorraIndice(const TablaDef& t, const IndiceDef& i) {
    cambia(QStringLiteral("DROP INDEX IF EXISTS %1; DELETE FROM \"MSysIndices\" WHERE \"Tabla\" = %2 AND \"Indice\" = %3;")
               .arg(CitaNombre(NombreIndicePostgres(t.nombre, i.nombre)), CitaTexto(t.nombre), CitaTexto(i.nombre)));
}

void CatalogoPostgres::guardaCampo(const TablaDef& t, const CampoDef& c) { cambia(FilaCampo(t.nombre, c)); }

}  // namespace jet
