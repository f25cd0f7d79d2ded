// Recordsets of a database on a PostgreSQL server: the rows of a query come in one answer and are kept as a
// snapshot keeps them; a recordset that can be written keeps each row's id beside its values and writes by it.
#include "core/dao/Dao.h"

#include "core/jet/ConexionPostgres.h"
#include "core/jet/EmisorPostgres.h"
#include "core/jet/EmisorSqlite.h"
#include "core/jet/ErroresMotor.h"
#include "core/jet/EsquemaPostgres.h"
#include "core/jet/FuncionesSqlite.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <sqlite3.h>

namespace dao {

using namespace jet;

namespace {

// Type oids of the server's built-in types.
enum : unsigned {
    OidBool = 16, OidBytea = 17, OidInt8 = 20, OidInt2 = 21, OidInt4 = 23, OidFloat4 = 700, OidFloat8 = 701,
    OidDate = 1082, OidTimestamp = 1114, OidTimestampTz = 1184, OidNumeric = 1700
};

enum class Lectura { Entero, Real, Dinero, Numero, Logico, Bytes, Texto, Dia, Momento };

Lectura LecturaDe(unsigned oid, TipoCampo tipo) {
    switch (oid) {
    case OidInt2:
    case OidInt4:
    case OidInt8: return Lectura::Entero;
    case OidFloat4:
    case OidFloat8: return Lectura::Real;
    case OidNumeric: return tipo == TipoCampo::Currency ? Lectura::Dinero : Lectura::Numero;
    case OidBool: return Lectura::Logico;
    case OidBytea: return Lectura::Bytes;
    case OidDate: return Lectura::Dia;
    case OidTimestamp:
    case OidTimestampTz: return Lectura::Momento;
    default: return Lectura::Texto;
    }
}

// A decimal numeral as a whole number, rounded half to even; false when it doesn't fit in 64 bits.
bool EnteroDeDecimal(const char* t, qint64& r) {
    const bool negativo = *t == '-';
    if (*t == '-' || *t == '+') ++t;
    unsigned long long v = 0;
    for (; *t >= '0' && *t <= '9'; ++t) {
        if (v > (~0ULL - 9) / 10) return false;
        v = v * 10 + static_cast<unsigned>(*t - '0');
    }
    if (*t == '.') {
        ++t;
        const int primera = *t >= '0' && *t <= '9' ? *t - '0' : 0;
        bool resto = false;
        if (*t) ++t;
        for (; *t >= '0' && *t <= '9'; ++t) resto = resto || *t != '0';
        if (primera > 5 || (primera == 5 && (resto || (v & 1)))) ++v;
    }
    if (*t != '\0') return false;
    if (v > static_cast<unsigned long long>(std::numeric_limits<qint64>::max()) + (negativo ? 1 : 0)) return false;
    r = negativo ? static_cast<qint64>(0 - v) : static_cast<qint64>(v);
    return true;
}

int Hex(char c) { return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10; }

// One value of the answer in the stored form a file gives it, so that the rest of the recordset reads both
// alike. Bytes decoded and dates completed go into `memoria`, which the caller keeps until it is stored.
ValorCrudo CrudoDe(const ResultadoPg& r, int fila, int columna, Lectura l, QByteArray& memoria) {
    ValorCrudo v;
    if (r.nulo(fila, columna)) return v;
    const char* t = r.valor(fila, columna);
    switch (l) {
    case Lectura::Entero:
        v.clase = SQLITE_INTEGER;
        v.entero = std::strtoll(t, nullptr, 10);
        return v;
    case Lectura::Real:
        v.clase = SQLITE_FLOAT;
        v.real = std::strtod(t, nullptr);
        return v;
    case Lectura::Logico:
        v.clase = SQLITE_INTEGER;
        v.entero = *t == 't' ? -1 : 0;
        return v;
    case Lectura::Dinero:
    case Lectura::Numero:
        if (EnteroDeDecimal(t, v.entero) && (l == Lectura::Dinero || !std::strchr(t, '.'))) {
            v.clase = SQLITE_INTEGER;
        } else {
            v.clase = SQLITE_FLOAT;
            v.real = std::strtod(t, nullptr);
        }
        return v;
    case Lectura::Bytes: {
        const int n = r.bytes(fila, columna);
        memoria.clear();
        if (n >= 2 && t[0] == '\\' && t[1] == 'x') {
            memoria.reserve((n - 2) / 2);
            for (int i = 2; i + 1 < n; i += 2) memoria.append(static_cast<char>(Hex(t[i]) * 16 + Hex(t[i + 1])));
        }
        v.clase = SQLITE_BLOB;
        v.texto = memoria.constData();
        v.bytes = static_cast<int>(memoria.size());
        return v;
    }
    case Lectura::Dia:
        memoria = QByteArray(t) + " 00:00:00";
        v.clase = SQLITE_TEXT;
        v.texto = memoria.constData();
        v.bytes = static_cast<int>(memoria.size());
        return v;
    case Lectura::Momento:
        v.clase = SQLITE_TEXT;
        v.texto = t;
        v.bytes = std::min(r.bytes(fila, columna), 19);   // whole seconds
        return v;
    case Lectura::Texto:
        v.clase = SQLITE_TEXT;
        v.texto = t;
        v.bytes = r.bytes(fila, columna);
        return v;
    }
    return v;
}

// Where criteria over the rows at hand and the fields' defaults are worked out: an in-memory SQLite with the
// dialect's functions, the same meaning as a file's, without a trip to the server per row.
sqlite3* EvaluadorLocal() {
    thread_local struct Evaluador {
        sqlite3* db = nullptr;
        Evaluador() {
            sqlite3_open_v2(":memory:", &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
            RegistraFunciones(db);
        }
        ~Evaluador() { sqlite3_close_v2(db); }
    } evaluador;
    return evaluador.db;
}

}  // namespace

qint64 Recordset::rowidDe(long fila) const {
    if (porClave_) return filas_.rowid(fila);
    const ValorCrudo& v = filas_.crudo(fila, columnaRowid_);
    return v.clase == SQLITE_INTEGER ? v.entero : static_cast<qint64>(v.real);
}

void Recordset::abreEnServidor(const Emision& e) {
    const ResultadoPg r = db_->postgres()->ejecuta(e.sql);
    const int visibles = static_cast<int>(tipos_.size());
    const int ancho = visibles + (actualizable_ ? 1 : 0);
    columnaRowid_ = actualizable_ ? visibles : -1;
    filas_.reinicia(ancho, false, db_->bloquesLibres_);
    std::vector<Lectura> lecturas(static_cast<size_t>(ancho));
    for (int c = 0; c < ancho && c < r.columnas(); ++c)
        lecturas[static_cast<size_t>(c)] = LecturaDe(r.tipo(c), c < visibles ? tipos_[static_cast<size_t>(c)] : TipoCampo::Long);
    std::vector<ValorCrudo> valores(static_cast<size_t>(ancho));
    std::vector<QByteArray> memoria(static_cast<size_t>(ancho));
    const int filas = r.filas();
    const int columnas = std::min(ancho, r.columnas());
    for (int f = 0; f < filas; ++f) {
        for (int c = 0; c < columnas; ++c)
            valores[static_cast<size_t>(c)] = CrudoDe(r, f, c, lecturas[static_cast<size_t>(c)], memoria[static_cast<size_t>(c)]);
        filas_.agregaCrudos(valores.data());
    }
    completo_ = true;
}

void Recordset::releeEnServidor() const {
    const qint64 id = rowidDe(pos_);
    const ResultadoPg r = db_->postgres()->ejecuta(sqlPorFila_, {ParametroDe(vb::Variant(static_cast<double>(id)), false)});
    if (r.filas() == 0) Lanza(3167);   // another hand deleted it
    const int visibles = static_cast<int>(tipos_.size());
    std::vector<ValorCrudo> valores(static_cast<size_t>(visibles + 1));
    std::vector<QByteArray> memoria(static_cast<size_t>(visibles));
    for (int c = 0; c < visibles && c < r.columnas(); ++c)
        valores[static_cast<size_t>(c)] =
            CrudoDe(r, 0, c, LecturaDe(r.tipo(c), tipos_[static_cast<size_t>(c)]), memoria[static_cast<size_t>(c)]);
    ValorCrudo& fila = valores[static_cast<size_t>(visibles)];
    fila.clase = SQLITE_INTEGER;
    fila.entero = id;
    const_cast<Filas&>(filas_).reemplazaCrudos(pos_, valores.data());
    valoresAlDia_ = true;
}

sqlite3* Recordset::motorLocal() const { return db_->EnServidor() ? EvaluadorLocal() : db_->sqlite(); }

qint64 Recordset::escribeEnServidor(const QStringList& columnas, const std::vector<vb::Variant>& valores) {
    std::vector<ParametroPg> parametros;
    parametros.reserve(valores.size() + 1);
    for (size_t i = 0; i < valores.size(); ++i) {
        // Bytes travel as they are: one character of the value a byte, as they were read.
        QString nombre = columnas[static_cast<qsizetype>(i)];
        nombre = nombre.mid(1, nombre.size() - 2).replace(QStringLiteral("\"\""), QStringLiteral("\""));
        const CampoDef* campo = tabla_->campo(nombre);
        const bool bytes = campo && (campo->tipo == TipoCampo::Binary || campo->tipo == TipoCampo::LongBinary);
        if (bytes && valores[i].type() == vb::VarType::String) {
            ParametroPg p;
            p.valor = valores[i].toString().toLatin1();
            p.nulo = false;
            p.binario = true;
            parametros.push_back(std::move(p));
        } else {
            parametros.push_back(ParametroDe(valores[i], false));
        }
    }
    QString sql;
    if (modo_ == dbEditAdd) {
        QStringList marcas;
        for (int i = 1; i <= columnas.size(); ++i) marcas << QStringLiteral("$%1").arg(i);
        sql = columnas.isEmpty() ? QStringLiteral("INSERT INTO %1 DEFAULT VALUES RETURNING rowid").arg(CitaNombre(tabla_->nombre))
                                 : QStringLiteral("INSERT INTO %1 (%2) VALUES (%3) RETURNING rowid")
                                       .arg(CitaNombre(tabla_->nombre), columnas.join(QStringLiteral(", ")),
                                            marcas.join(QStringLiteral(", ")));
        const qint64 id = db_->postgres()->ejecuta(sql, parametros).entero(0, 0);
        db_->escritoEnServidor();
        return id;
    }
    QStringList sets;
    for (int i = 0; i < columnas.size(); ++i) sets << QStringLiteral("%1 = $%2").arg(columnas[i]).arg(i + 1);
    const qint64 id = rowidDe(pos_);
    parametros.push_back(ParametroDe(vb::Variant(static_cast<double>(id)), false));
    sql = QStringLiteral("UPDATE %1 SET %2 WHERE rowid = $%3::bigint")
              .arg(CitaNombre(tabla_->nombre), sets.join(QStringLiteral(", ")))
              .arg(columnas.size() + 1);
    const bool escrita = db_->postgres()->ejecuta(sql, parametros).afectadas() > 0;
    db_->escritoEnServidor();
    if (!escrita) Lanza(3167);   // another hand deleted it
    return id;
}

void Recordset::borraEnServidor() {
    const ParametroPg id = ParametroDe(vb::Variant(static_cast<double>(rowidDe(pos_))), false);
    db_->postgres()->ejecuta(QStringLiteral("DELETE FROM %1 WHERE rowid = $1::bigint").arg(CitaNombre(tabla_->nombre)), {id});
    db_->escritoEnServidor();
}

}  // namespace dao
