#include "core/jet/FuncionesSqlite.h"

#include "core/jet/ErroresMotor.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Formato.h"

#include <QDir>
#include <sqlite3.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>

namespace jet {

std::optional<vb::Fecha> FechaAlmacenada(const char* p, int n);

namespace {

// The longest text a function builds, far beyond any field and well within what one value may hold.
constexpr double LargoMaximoTexto = 100'000'000.0;

// The primary key of a text for sorting: case-folded, accents dropped, ñ as a letter after n.
QString ClavePrimaria(const QString& s) {
    QString r;
    r.reserve(s.size() + 2);
    for (QChar c : s) {
        const ushort u = c.unicode();
        if (u < 0x80) {
            r += (u >= 'A' && u <= 'Z') ? QChar(u + 32) : c;
        } else if (u == 0x00F1 || u == 0x00D1) {
            r += u'n';
            r += QChar(0x7F);
        } else {
            const QString d = QString(c).normalized(QString::NormalizationForm_D);
            for (QChar x : d)
                if (x.category() != QChar::Mark_NonSpacing) r += x.toCaseFolded();
        }
    }
    return r;
}

bool EsAscii(const void* p, int n) {
    const auto* b = static_cast<const unsigned char*>(p);
    for (int i = 0; i < n; ++i)
        if (b[i] >= 0x80) return false;
    return true;
}

int ColacionJet(void*, int n1, const void* p1, int n2, const void* p2) {
    if (EsAscii(p1, n1) && EsAscii(p2, n2)) {
        const auto* a = static_cast<const unsigned char*>(p1);
        const auto* b = static_cast<const unsigned char*>(p2);
        const int n = std::min(n1, n2);
        for (int i = 0; i < n; ++i) {
            int x = a[i], y = b[i];
            if (x >= 'A' && x <= 'Z') x += 32;
            if (y >= 'A' && y <= 'Z') y += 32;
            if (x != y) return x - y;
        }
        return n1 - n2;
    }
    return ComparaTexto(QString::fromUtf8(static_cast<const char*>(p1), n1),
                        QString::fromUtf8(static_cast<const char*>(p2), n2));
}

[[noreturn]] void FallaFuncion(int numero, const QString& argumento = QString()) {
    throw vb::Error(numero, DescripcionError(numero, argumento), QStringLiteral("JET"));
}

// A value as SQLite holds it, without a declared type: integers, reals, text.
vb::Variant Natural(sqlite3_value* v) {
    switch (sqlite3_value_type(v)) {
    case SQLITE_INTEGER: {
        const sqlite3_int64 i = sqlite3_value_int64(v);
        if (i >= std::numeric_limits<qint32>::min() && i <= std::numeric_limits<qint32>::max())
            return vb::Variant::Long(static_cast<qint32>(i));
        return vb::Variant(static_cast<double>(i));
    }
    case SQLITE_FLOAT: return vb::Variant(sqlite3_value_double(v));
    case SQLITE_TEXT:
        return vb::Variant(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(v)), sqlite3_value_bytes(v)));
    case SQLITE_BLOB:
        return vb::Variant(QString::fromLatin1(static_cast<const char*>(sqlite3_value_blob(v)), sqlite3_value_bytes(v)));
    default: return vb::Variant::Null();
    }
}

vb::Fecha ComoFecha(const vb::Variant& v) {
    if (v.type() == vb::VarType::String) {
        if (auto f = vb::Fecha::fromIso(v.toString())) return *f;
    }
    if (v.type() == vb::VarType::Date) return v.toDate();
    if (v.isNumeric()) return vb::Fecha::fromSerial(v.toDouble());
    return vb::CDate(v);
}

void Devuelve(sqlite3_context* ctx, const vb::Variant& v) {
    switch (v.type()) {
    case vb::VarType::Empty:
    case vb::VarType::Null: sqlite3_result_null(ctx); return;
    case vb::VarType::Integer:
    case vb::VarType::Long:
    case vb::VarType::Byte: sqlite3_result_int64(ctx, v.toLong()); return;
    case vb::VarType::Boolean: sqlite3_result_int64(ctx, v.toBool() ? -1 : 0); return;
    case vb::VarType::Currency: sqlite3_result_int64(ctx, v.toCurrency().raw()); return;
    case vb::VarType::Single:
    case vb::VarType::Double: sqlite3_result_double(ctx, v.toDouble()); return;
    case vb::VarType::Date: {
        const QByteArray u = v.toDate().toIso().toUtf8();
        sqlite3_result_text(ctx, u.constData(), static_cast<int>(u.size()), SQLITE_TRANSIENT);
        return;
    }
    case vb::VarType::String: {
        const QByteArray u = v.toString().toUtf8();
        sqlite3_result_text(ctx, u.constData(), static_cast<int>(u.size()), SQLITE_TRANSIENT);
        return;
    }
    }
}

using Cuerpo = std::function<vb::Variant(sqlite3_value**, int)>;

void Despacha(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    auto* f = static_cast<Cuerpo*>(sqlite3_user_data(ctx));
    try {
        Devuelve(ctx, (*f)(argv, argc));
    } catch (const vb::Error& e) {
        // The language's own errors inside an expression are reported by the engine as mismatches, save
        // for the engine's numbers, which pass through.
        const int n = e.Number() >= 3000 ? e.Number() : (e.Number() == 94 || e.Number() == 6 ? e.Number() : ErrTiposNoCoinciden);
        const QByteArray m = QStringLiteral("JET:%1:%2").arg(n).arg(e.Number() >= 3000 ? e.Description() : QString()).toUtf8();
        sqlite3_result_error(ctx, m.constData(), static_cast<int>(m.size()));
    } catch (const std::bad_alloc&) {
        const QByteArray m = QStringLiteral("JET:%1:").arg(ErrRecursosExcedidos).toUtf8();
        sqlite3_result_error(ctx, m.constData(), static_cast<int>(m.size()));
    } catch (const std::exception&) {
        const QByteArray m = QStringLiteral("JET:%1:").arg(ErrReservado).toUtf8();
        sqlite3_result_error(ctx, m.constData(), static_cast<int>(m.size()));
    }
}

void Registra(sqlite3* db, const char* nombre, int argc, Cuerpo cuerpo, bool determinista = true) {
    auto* copia = new Cuerpo(std::move(cuerpo));
    sqlite3_create_function_v2(db, nombre, argc, SQLITE_UTF8 | (determinista ? SQLITE_DETERMINISTIC : 0), copia,
                               &Despacha, nullptr, nullptr, [](void* p) { delete static_cast<Cuerpo*>(p); });
}

bool CoincideDesde(const QString& v, int i, const QString& p, int j) {
    while (j < p.size()) {
        const QChar c = p[j];
        if (c == u'*') {
            while (j < p.size() && p[j] == u'*') ++j;
            if (j == p.size()) return true;
            for (int k = i; k <= v.size(); ++k)
                if (CoincideDesde(v, k, p, j)) return true;
            return false;
        }
        if (i >= v.size()) return false;
        if (c == u'?') {
        } else if (c == u'#') {
            if (!v[i].isDigit()) return false;
        } else if (c == u'[') {
            const int cierre = static_cast<int>(p.indexOf(u']', j + 1));
            if (cierre < 0) FallaFuncion(ErrSintaxisExpresion, p);
            QString clase = p.mid(j + 1, cierre - j - 1);
            bool negada = false;
            if (clase.startsWith(u'!')) { negada = true; clase = clase.mid(1); }
            bool dentro = false;
            for (int k = 0; k < clase.size(); ++k) {
                if (k + 2 < clase.size() && clase[k + 1] == u'-') {
                    if (v[i] >= clase[k] && v[i] <= clase[k + 2]) dentro = true;
                    k += 2;
                } else if (clase[k] == v[i]) {
                    dentro = true;
                }
            }
            if (dentro == negada) return false;
            j = cierre;
        } else if (c != v[i]) {
            return false;
        }
        ++i;
        ++j;
    }
    return i == v.size();
}

double Redondea(double x, int decimales) {
    const double f = std::pow(10.0, decimales);
    const double y = x * f;
    double r = std::nearbyint(y);   // half to even under the default rounding mode
    if (std::fabs(y - std::trunc(y)) != 0.5) r = std::round(y);
    return r / f;
}

}  // namespace

int ComparaTexto(const QString& a, const QString& b) {
    const int p = ClavePrimaria(a).compare(ClavePrimaria(b));
    if (p != 0) return p;
    return a.toCaseFolded().compare(b.toCaseFolded());
}

bool Coincide(const QString& valor, const QString& patron) {
    return CoincideDesde(valor.toCaseFolded(), 0, patron.toCaseFolded(), 0);
}

bool ErrorDeFuncion(const QString& mensaje, int& numero, QString& argumento) {
    if (!mensaje.startsWith(QLatin1String("JET:"))) return false;
    const int dos = static_cast<int>(mensaje.indexOf(u':', 4));
    if (dos < 0) return false;
    numero = mensaje.mid(4, dos - 4).toInt();
    argumento = mensaje.mid(dos + 1);
    return true;
}

QString TextoDe(const vb::Variant& v) {
    if (v.isNull() || v.isEmpty()) return QString();
    return v.toString();
}

namespace {

vb::Variant DeCrudoLento(const ValorCrudo& v, TipoCampo tipo) {
    auto natural = [&]() -> vb::Variant {
        switch (v.clase) {
        case SQLITE_INTEGER:
            if (v.entero >= std::numeric_limits<qint32>::min() && v.entero <= std::numeric_limits<qint32>::max())
                return vb::Variant::Long(static_cast<qint32>(v.entero));
            return vb::Variant(static_cast<double>(v.entero));
        case SQLITE_FLOAT: return vb::Variant(v.real);
        case SQLITE_TEXT: return vb::Variant(QString::fromUtf8(v.texto, v.bytes));
        case SQLITE_BLOB: return vb::Variant(QString::fromLatin1(v.texto, v.bytes));
        default: return vb::Variant::Null();
        }
    };
    auto entero = [&]() -> qint64 { return v.clase == SQLITE_FLOAT ? std::llround(v.real) : v.entero; };
    if (v.clase == SQLITE_NULL) return vb::Variant::Null();
    const bool numero = v.clase == SQLITE_INTEGER || v.clase == SQLITE_FLOAT;
    switch (tipo) {
    case TipoCampo::Boolean:
        return numero ? vb::Variant(entero() != 0) : natural();
    case TipoCampo::Byte:
        return numero ? vb::Variant::Byte(static_cast<quint8>(entero())) : natural();
    case TipoCampo::Integer:
    case TipoCampo::Long:
        if (numero) {
            const qint64 i = entero();
            if (tipo == TipoCampo::Integer && i >= -32768 && i <= 32767) return vb::Variant::Integer(static_cast<qint16>(i));
            if (i >= std::numeric_limits<qint32>::min() && i <= std::numeric_limits<qint32>::max())
                return vb::Variant::Long(static_cast<qint32>(i));
            return vb::Variant(static_cast<double>(i));
        }
        return natural();
    case TipoCampo::Currency:
        // Money is kept in ten-thousandths; a real there is a sum that left 64 bits (or an old decimal).
        if (v.clase == SQLITE_INTEGER) return vb::Variant(vb::Currency::fromRaw(v.entero));
        if (v.clase == SQLITE_FLOAT) return vb::Variant(vb::Currency::fromDouble(v.real / vb::Currency::Escala));
        return natural();
    case TipoCampo::Single:
        return numero ? vb::Variant::Single(static_cast<float>(v.clase == SQLITE_FLOAT ? v.real : v.entero)) : natural();
    case TipoCampo::Double:
        return numero ? vb::Variant(v.clase == SQLITE_FLOAT ? v.real : static_cast<double>(v.entero)) : natural();
    case TipoCampo::Date:
        if (v.clase == SQLITE_TEXT) {
            if (auto f = FechaAlmacenada(v.texto, v.bytes)) return vb::Variant(*f);
            const QString t = QString::fromUtf8(v.texto, v.bytes);
            if (auto f = vb::Fecha::fromIso(t)) return vb::Variant(*f);
            return vb::Variant(t);
        }
        return numero ? vb::Variant(vb::Fecha::fromSerial(v.clase == SQLITE_FLOAT ? v.real : static_cast<double>(v.entero)))
                      : natural();
    case TipoCampo::Text:
    case TipoCampo::Memo:
        if (v.clase == SQLITE_TEXT) return vb::Variant(QString::fromUtf8(v.texto, v.bytes));
        return vb::Variant(TextoDe(natural()));
    default:
        return natural();
    }
}

}  // namespace

vb::Variant DeCrudo(const ValorCrudo& v, TipoCampo tipo) {
    // The stored form of each type, read straight; anything unusual goes the long way.
    switch (tipo) {
    case TipoCampo::Text:
    case TipoCampo::Memo:
        if (v.clase == SQLITE_TEXT) return vb::Variant(QString::fromUtf8(v.texto, v.bytes));
        break;
    case TipoCampo::Long:
        if (v.clase == SQLITE_INTEGER && v.entero >= std::numeric_limits<qint32>::min() &&
            v.entero <= std::numeric_limits<qint32>::max())
            return vb::Variant::Long(static_cast<qint32>(v.entero));
        break;
    case TipoCampo::Integer:
        if (v.clase == SQLITE_INTEGER && v.entero >= -32768 && v.entero <= 32767)
            return vb::Variant::Integer(static_cast<qint16>(v.entero));
        break;
    case TipoCampo::Currency:
        if (v.clase == SQLITE_INTEGER) return vb::Variant(vb::Currency::fromRaw(v.entero));
        break;
    case TipoCampo::Date:
        if (v.clase == SQLITE_TEXT) {
            if (auto f = FechaAlmacenada(v.texto, v.bytes)) return vb::Variant(*f);
        }
        break;
    default:
        break;
    }
    return DeCrudoLento(v, tipo);
}

ValorCrudo CrudoDeValor(sqlite3_value* v) {
    ValorCrudo c;
    c.clase = sqlite3_value_type(v);
    switch (c.clase) {
    case SQLITE_INTEGER: c.entero = sqlite3_value_int64(v); break;
    case SQLITE_FLOAT: c.real = sqlite3_value_double(v); break;
    case SQLITE_TEXT:
        c.texto = reinterpret_cast<const char*>(sqlite3_value_text(v));
        c.bytes = sqlite3_value_bytes(v);
        break;
    case SQLITE_BLOB:
        c.texto = static_cast<const char*>(sqlite3_value_blob(v));
        c.bytes = sqlite3_value_bytes(v);
        break;
    default: break;
    }
    return c;
}

vb::Variant LeeValor(sqlite3_value* v, TipoCampo tipo) { return DeCrudo(CrudoDeValor(v), tipo); }

vb::Variant LeeColumna(sqlite3_stmt* st, int columna, TipoCampo tipo) {
    sqlite3_value* v = sqlite3_column_value(st, columna);
    const int clase = sqlite3_value_type(v);
    // The stored form of each type, read straight; anything unusual goes the long way.
    switch (tipo) {
    case TipoCampo::Text:
    case TipoCampo::Memo:
        if (clase == SQLITE_TEXT)
            return vb::Variant(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(v)), sqlite3_value_bytes(v)));
        break;
    case TipoCampo::Long:
        if (clase == SQLITE_INTEGER) {
            const sqlite3_int64 i = sqlite3_value_int64(v);
            if (i >= std::numeric_limits<qint32>::min() && i <= std::numeric_limits<qint32>::max())
                return vb::Variant::Long(static_cast<qint32>(i));
        }
        break;
    case TipoCampo::Integer:
        if (clase == SQLITE_INTEGER) {
            const sqlite3_int64 i = sqlite3_value_int64(v);
            if (i >= -32768 && i <= 32767) return vb::Variant::Integer(static_cast<qint16>(i));
        }
        break;
    case TipoCampo::Currency:
        if (clase == SQLITE_INTEGER) return vb::Variant(vb::Currency::fromRaw(sqlite3_value_int64(v)));
        break;
    case TipoCampo::Date:
        if (clase == SQLITE_TEXT) {
            if (auto f = FechaAlmacenada(reinterpret_cast<const char*>(sqlite3_value_text(v)), sqlite3_value_bytes(v)))
                return vb::Variant(*f);
        }
        break;
    default:
        break;
    }
    return DeCrudo(CrudoDeValor(v), tipo);
}

std::optional<vb::Fecha> FechaAlmacenada(const char* p, int n) {
    // "yyyy-mm-dd hh:nn:ss", the form every date is stored in, read by hand: every value of a date column
    // passes here. The checks are gathered into few branches so that the compiler keeps the reading on
    // its fast road.
    if (n != 19) [[unlikely]]
        return std::nullopt;
    bool malo = p[4] != '-' || p[7] != '-' || p[10] != ' ' || p[13] != ':' || p[16] != ':';
    for (int i : {0, 1, 2, 3, 5, 6, 8, 9, 11, 12, 14, 15, 17, 18}) malo |= static_cast<unsigned>(p[i] - '0') > 9u;
    if (malo) [[unlikely]]
        return std::nullopt;
    auto dos = [p](int i) { return (p[i] - '0') * 10 + (p[i + 1] - '0'); };
    const int h = dos(11), mi = dos(14), se = dos(17);
    const int anio = dos(0) * 100 + dos(2), mes = dos(5), dia = dos(8);
    // The Gregorian calendar as the date type counts it, which has no year 0.
    static constexpr int DiasDelMes[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool bisiesto = anio % 4 == 0 && (anio % 100 != 0 || anio % 400 == 0);
    if (h > 23 || mi > 59 || se > 59 || anio < 1 || mes < 1 || mes > 12 || dia < 1 ||
        dia > DiasDelMes[mes - 1] + (mes == 2 && bisiesto ? 1 : 0)) [[unlikely]]
        return std::nullopt;
    // The day's Julian number, counting years from March so that February's length comes last.
    const int a = (14 - mes) / 12;
    const qint64 y = anio + 4800 - a;
    const int m = mes + 12 * a - 3;
    const qint64 juliano = dia + (153 * m + 2) / 5 + 365 * y + y / 4 - y / 100 + y / 400 - 32045;
    return vb::Fecha::deDiaYSegundo(QDate::fromJulianDay(juliano), (h * 60 + mi) * 60 + se);
}

void Enlaza(sqlite3_stmt* st, int i, const vb::Variant& v) {
    switch (v.type()) {
    case vb::VarType::Empty:
    case vb::VarType::Null: sqlite3_bind_null(st, i); return;
    case vb::VarType::Integer:
    case vb::VarType::Long:
    case vb::VarType::Byte: sqlite3_bind_int64(st, i, v.toLong()); return;
    case vb::VarType::Boolean: sqlite3_bind_int64(st, i, v.toBool() ? -1 : 0); return;
    case vb::VarType::Currency: sqlite3_bind_int64(st, i, v.toCurrency().raw()); return;
    case vb::VarType::Single:
    case vb::VarType::Double: sqlite3_bind_double(st, i, v.toDouble()); return;
    case vb::VarType::Date: {
        const QByteArray u = v.toDate().toIso().toUtf8();
        sqlite3_bind_text(st, i, u.constData(), static_cast<int>(u.size()), SQLITE_TRANSIENT);
        return;
    }
    case vb::VarType::String: {
        const QByteArray u = v.toString().toUtf8();
        sqlite3_bind_text(st, i, u.constData(), static_cast<int>(u.size()), SQLITE_TRANSIENT);
        return;
    }
    }
}

vb::Variant ConvierteParaCampo(const vb::Variant& valor, const CampoDef& c) {
    if (valor.isNull() || valor.isEmpty()) {
        if (c.requerido && !c.contador()) FallaFuncion(ErrRequerido, c.nombre);
        return vb::Variant::Null();
    }
    auto numero = [&]() -> double {
        if (valor.isString() && !vb::IsNumeric(valor)) FallaFuncion(ErrTiposNoCoinciden);
        if (valor.type() == vb::VarType::Date) return valor.toDate().toSerial();
        return valor.toDouble();
    };
    switch (c.tipo) {
    case TipoCampo::Text:
    case TipoCampo::Memo: {
        const QString t = valor.type() == vb::VarType::String ? valor.toString() : TextoDe(valor);
        if (c.tipo == TipoCampo::Text && c.tamano > 0 && t.size() > c.tamano) FallaFuncion(ErrCampoDemasiadoPequeno, c.nombre);
        if (t.isEmpty() && !c.permiteLongitudCero) FallaFuncion(ErrLongitudCero, c.nombre);
        return vb::Variant(t);
    }
    case TipoCampo::Boolean:
        if (valor.type() == vb::VarType::Boolean) return valor;
        return vb::Variant(numero() != 0);
    case TipoCampo::Byte:
    case TipoCampo::Integer:
    case TipoCampo::Long: {
        const double d = Redondea(numero(), 0);
        const double minimo = c.tipo == TipoCampo::Byte ? 0 : c.tipo == TipoCampo::Integer ? -32768 : -2147483648.0;
        const double maximo = c.tipo == TipoCampo::Byte ? 255 : c.tipo == TipoCampo::Integer ? 32767 : 2147483647.0;
        if (!(d >= minimo && d <= maximo)) FallaFuncion(ErrDesbordamientoCampo, c.nombre);
        if (c.tipo == TipoCampo::Byte) return vb::Variant::Byte(static_cast<quint8>(d));
        if (c.tipo == TipoCampo::Integer) return vb::Variant::Integer(static_cast<qint16>(d));
        return vb::Variant::Long(static_cast<qint32>(d));
    }
    case TipoCampo::Currency: {
        if (valor.type() == vb::VarType::Currency) return valor;
        if (valor.isString()) {
            if (auto m = vb::Currency::parse(valor.toString())) return vb::Variant(*m);
            FallaFuncion(ErrTiposNoCoinciden);
        }
        if (valor.type() == vb::VarType::Integer || valor.type() == vb::VarType::Long || valor.type() == vb::VarType::Byte ||
            valor.type() == vb::VarType::Boolean)
            return vb::Variant(vb::Currency::fromRaw(valor.toLong() * vb::Currency::Escala));
        const double d = numero();
        try {
            return vb::Variant(vb::Currency::fromDouble(d));
        } catch (const vb::Error&) {
            FallaFuncion(ErrDesbordamientoCampo, c.nombre);
        }
    }
    case TipoCampo::Single: return vb::Variant::Single(static_cast<float>(numero()));
    case TipoCampo::Double: return vb::Variant(numero());
    case TipoCampo::Date: {
        if (valor.type() == vb::VarType::Date) return valor;
        if (valor.isString()) {
            if (auto f = vb::Fecha::fromIso(valor.toString())) return vb::Variant(*f);
            if (auto f = vb::LeeFecha(valor.toString())) return vb::Variant(*f);
            FallaFuncion(ErrTiposNoCoinciden);
        }
        return vb::Variant(vb::Fecha::fromSerial(numero()));
    }
    default:
        return valor;
    }
}

void LanzaSqlite(sqlite3* db, int rc, const QString& ruta) {
    const QString msg = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString();
    int numero = 0;
    QString argumento;
    if (ErrorDeFuncion(msg, numero, argumento)) {
        if (numero >= 3000) throw vb::Error(numero, argumento, QStringLiteral("Motor de base de datos"));
        if (numero == 94) throw vb::Error(94, QStringLiteral("Uso no válido de Null"), QStringLiteral("Motor de base de datos"));
        Lanza(numero);
    }
    const int extendido = db ? sqlite3_extended_errcode(db) : rc;
    switch (extendido) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        Lanza(ErrValorDuplicado);
    case SQLITE_CONSTRAINT_NOTNULL: {
        // "NOT NULL constraint failed: Tabla.Campo"
        QString campo = msg.section(u':', 1).trimmed();
        campo = campo.mid(campo.lastIndexOf(u'.') + 1);
        Lanza(ErrRequerido, campo);
    }
    default:
        break;
    }
    switch (rc & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED: Lanza(ErrBloqueado);
    case SQLITE_READONLY: Lanza(ErrSoloLectura);
    case SQLITE_CONSTRAINT: Lanza(ErrValorDuplicado);
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB: Lanza(ErrFormatoNoReconocido, QDir::toNativeSeparators(ruta));
    case SQLITE_CANTOPEN: Lanza(ErrNoSePuedeAbrir, QDir::toNativeSeparators(ruta));
    case SQLITE_FULL:
    case SQLITE_NOMEM:
    case SQLITE_TOOBIG: Lanza(ErrRecursosExcedidos);
    case SQLITE_IOERR:
    case SQLITE_PROTOCOL: Lanza(ErrDiscoORed);
    case SQLITE_MISMATCH: Lanza(ErrTiposNoCoinciden);
    default: break;
    }
    // The statements SQLite is given are the engine's own: what it refuses of them is told by the engine's
    // numbers, never by SQLite's English.
    if (msg.contains(QLatin1String("parser stack overflow")) || msg.contains(QLatin1String("too large (maximum depth")) ||
        msg.contains(QLatin1String("too many terms")) || msg.contains(QLatin1String("too many arguments")) ||
        msg.contains(QLatin1String("too many FROM clause terms")) || msg.contains(QLatin1String("too many levels")) ||
        msg.contains(QLatin1String("at most 64 tables")))
        Lanza(ErrConsultaCompleja);
    if (msg.contains(QLatin1String("too many columns"))) Lanza(ErrDemasiadosCampos);
    // "misuse of aggregate function count()", "misuse of aggregate: max()": an aggregate where no group is.
    if (msg.startsWith(QLatin1String("misuse of aggregate"))) {
        QString funcion = msg.mid(msg.lastIndexOf(u' ') + 1);
        if (funcion.startsWith(QLatin1String("jet_"))) funcion = funcion.mid(4);
        Lanza(ErrAgregadoEnExpresion, funcion);
    }
    // A sum of money beyond 64 bits of ten-thousandths.
    if (msg.contains(QLatin1String("integer overflow"))) Lanza(ErrDesbordamiento);
    Lanza(ErrReservado, QString::number(extendido));
}

void RegistraFunciones(sqlite3* db) {
    sqlite3_create_collation_v2(db, "JETTEXT", SQLITE_UTF8, nullptr, &ColacionJet, nullptr);

    auto texto = [](sqlite3_value* v) { return TextoDe(Natural(v)); };
    auto nulo = [](sqlite3_value* v) { return sqlite3_value_type(v) == SQLITE_NULL; };

    Registra(db, "jet_like", 2, [=](sqlite3_value** a, int) {
        if (nulo(a[0]) || nulo(a[1])) return vb::Variant::Null();
        return vb::Variant::Long(Coincide(texto(a[0]), texto(a[1])) ? 1 : 0);
    });
    // jet_cat(a, b, ...): the texts joined, Null as empty.
    Registra(db, "jet_cat", -1, [=](sqlite3_value** a, int n) {
        QString r;
        for (int i = 0; i < n; ++i) r += texto(a[i]);
        return vb::Variant(r);
    });
    // jet_str(x, tipo): the text of a typed value.
    Registra(db, "jet_str", 2, [=](sqlite3_value** a, int) {
        if (nulo(a[0])) return vb::Variant::Null();
        return vb::Variant(TextoDe(LeeValor(a[0], static_cast<TipoCampo>(sqlite3_value_int(a[1])))));
    });
    // jet_conv(x, tipo, tamano, atributos, requerido, longitudCero, nombre): a value made fit for its field.
    // The type MonedaEnDiezmilesimos: a money field given money, already in ten-thousandths.
    Registra(db, "jet_conv", 7, [=](sqlite3_value** a, int) {
        CampoDef c;
        const int tipo = sqlite3_value_int(a[1]);
        if (tipo == MonedaEnDiezmilesimos) {
            switch (sqlite3_value_type(a[0])) {
            case SQLITE_INTEGER: return vb::Variant(vb::Currency::fromRaw(sqlite3_value_int64(a[0])));
            case SQLITE_NULL:
                if (sqlite3_value_int(a[4]) != 0) FallaFuncion(ErrRequerido, texto(a[6]));
                return vb::Variant::Null();
            default: FallaFuncion(ErrDesbordamientoCampo, texto(a[6]));
            }
        }
        c.tipo = static_cast<TipoCampo>(tipo);
        c.tamano = sqlite3_value_int(a[2]);
        c.atributos = sqlite3_value_int(a[3]);
        c.requerido = sqlite3_value_int(a[4]) != 0;
        c.permiteLongitudCero = sqlite3_value_int(a[5]) != 0;
        c.nombre = texto(a[6]);
        return ConvierteParaCampo(Natural(a[0]), c);
    });
    // jet_tipo(x, tipo): a stored value read as its type, then back (dates stay text, money rounds).
    Registra(db, "jet_num", 1, [=](sqlite3_value** a, int) {
        vb::Variant v = Natural(a[0]);
        if (v.isNull()) return v;
        if (v.isString()) {
            if (!vb::IsNumeric(v)) FallaFuncion(ErrTiposNoCoinciden);
            return vb::Variant(v.toDouble());
        }
        return v;
    });
    Registra(db, "jet_mid", -1, [=](sqlite3_value** a, int n) {
        if (nulo(a[0])) return vb::Variant::Null();
        const int inicio = Natural(a[1]).toLong();
        const int largo = n > 2 ? Natural(a[2]).toLong() : -1;
        if (largo < -1) FallaFuncion(ErrTiposNoCoinciden);
        return vb::Variant(vb::Mid(texto(a[0]), inicio, largo));
    });
    Registra(db, "jet_left", 2, [=](sqlite3_value** a, int) {
        if (nulo(a[0])) return vb::Variant::Null();
        return vb::Variant(vb::Left(texto(a[0]), Natural(a[1]).toLong()));
    });
    Registra(db, "jet_right", 2, [=](sqlite3_value** a, int) {
        if (nulo(a[0])) return vb::Variant::Null();
        return vb::Variant(vb::Right(texto(a[0]), Natural(a[1]).toLong()));
    });
    Registra(db, "jet_len", 1, [=](sqlite3_value** a, int) {
        if (nulo(a[0])) return vb::Variant::Null();
        return vb::Variant::Long(static_cast<qint32>(texto(a[0]).size()));
    });
    Registra(db, "jet_trim", 1, [=](sqlite3_value** a, int) {
        return nulo(a[0]) ? vb::Variant::Null() : vb::Variant(vb::Trim(texto(a[0])));
    });
    Registra(db, "jet_ltrim", 1, [=](sqlite3_value** a, int) {
        return nulo(a[0]) ? vb::Variant::Null() : vb::Variant(vb::LTrim(texto(a[0])));
    });
    Registra(db, "jet_rtrim", 1, [=](sqlite3_value** a, int) {
        return nulo(a[0]) ? vb::Variant::Null() : vb::Variant(vb::RTrim(texto(a[0])));
    });
    Registra(db, "jet_ucase", 1, [=](sqlite3_value** a, int) {
        return nulo(a[0]) ? vb::Variant::Null() : vb::Variant(texto(a[0]).toUpper());
    });
    Registra(db, "jet_lcase", 1, [=](sqlite3_value** a, int) {
        return nulo(a[0]) ? vb::Variant::Null() : vb::Variant(texto(a[0]).toLower());
    });
    Registra(db, "jet_instr", -1, [=](sqlite3_value** a, int n) {
        if (n == 2) {
            if (nulo(a[0]) || nulo(a[1])) return vb::Variant::Null();
            return vb::Variant::Long(vb::InStr(1, texto(a[0]), texto(a[1]), true));
        }
        if (nulo(a[1]) || nulo(a[2])) return vb::Variant::Null();
        return vb::Variant::Long(vb::InStr(Natural(a[0]).toLong(), texto(a[1]), texto(a[2]), true));
    });
    Registra(db, "jet_replace", 3, [=](sqlite3_value** a, int) {
        if (nulo(a[0])) return vb::Variant::Null();
        return vb::Variant(vb::Replace(texto(a[0]), texto(a[1]), texto(a[2])));
    });
    Registra(db, "jet_space", 1, [=](sqlite3_value** a, int) {
        // A text longer than the engine keeps is refused before it is built.
        const double n = Natural(a[0]).toDouble();
        if (n > LargoMaximoTexto) FallaFuncion(ErrRecursosExcedidos);
        return vb::Variant(vb::Space(Natural(a[0]).toLong()));
    });
    // Money in ten-thousandths. jet_acur(x): any value as money (overflow: 6).
    Registra(db, "jet_acur", 1, [=](sqlite3_value** a, int) {
        switch (sqlite3_value_type(a[0])) {
        case SQLITE_NULL: return vb::Variant::Null();
        case SQLITE_INTEGER: return vb::Variant(vb::Currency::fromLong(sqlite3_value_int64(a[0])));
        case SQLITE_FLOAT: return vb::Variant(vb::Currency::fromDouble(sqlite3_value_double(a[0])));
        default: {
            const vb::Variant v = Natural(a[0]);
            if (auto m = vb::Currency::parse(v.toString())) return vb::Variant(*m);
            if (!vb::IsNumeric(v)) FallaFuncion(ErrTiposNoCoinciden);
            return vb::Variant(vb::Currency::fromDouble(v.toDouble()));
        }
        }
    });
    // jet_mulcur(a, b, ...): the product of amounts, each step rounded half to even.
    Registra(db, "jet_mulcur", -1, [=](sqlite3_value** a, int n) {
        if (n == 0 || nulo(a[0])) return vb::Variant::Null();
        vb::Currency r = vb::Currency::fromRaw(sqlite3_value_int64(a[0]));
        for (int i = 1; i < n; ++i) {
            if (nulo(a[i])) return vb::Variant::Null();
            if (sqlite3_value_type(a[i]) != SQLITE_INTEGER) FallaFuncion(ErrDesbordamiento);
            r = r * vb::Currency::fromRaw(sqlite3_value_int64(a[i]));
        }
        return vb::Variant(r);
    });
    // jet_promcur(suma, cuenta): the mean of amounts, rounded half to even.
    Registra(db, "jet_promcur", 2, [=](sqlite3_value** a, int) {
        if (nulo(a[0]) || sqlite3_value_int64(a[1]) == 0) return vb::Variant::Null();
        return vb::Variant(vb::Currency::fromRaw(sqlite3_value_int64(a[0])) /
                           vb::Currency::fromLong(sqlite3_value_int64(a[1])));
    });
    // jet_redcur(x, modo[, decimales]): Int (0), Fix (1) or Round (2) of an amount, exact.
    Registra(db, "jet_redcur", -1, [=](sqlite3_value** a, int n) {
        if (nulo(a[0])) return vb::Variant::Null();
        const qint64 x = sqlite3_value_int64(a[0]);
        const int modo = sqlite3_value_int(a[1]);
        qint64 paso = vb::Currency::Escala;
        if (modo == 2 && n > 2) {
            const qint64 dec = Natural(a[2]).toLong();
            if (dec < 0) FallaFuncion(5);
            paso = dec >= 4 ? 1 : dec == 3 ? 10 : dec == 2 ? 100 : dec == 1 ? 1000 : vb::Currency::Escala;
        }
        if (paso == 1) return vb::Variant(vb::Currency::fromRaw(x));
        qint64 q = x / paso;
        const qint64 r = x % paso;
        if (modo == 0 && r < 0) --q;
        if (modo == 2) {
            const qint64 ar = r < 0 ? -r : r;
            if (2 * ar > paso || (2 * ar == paso && q % 2 != 0)) q += r < 0 ? -1 : 1;
        }
        return vb::Variant(vb::Currency::fromRaw(q) * paso);
    });
    Registra(db, "jet_ccur", 1, [=](sqlite3_value** a, int) {
        vb::Variant v = Natural(a[0]);
        if (v.isNull()) FallaFuncion(94);
        return vb::Variant(v.toCurrency());
    });
    Registra(db, "jet_cint", 1, [=](sqlite3_value** a, int) {
        vb::Variant v = Natural(a[0]);
        if (v.isNull()) FallaFuncion(94);
        return vb::Variant::Integer(v.toInteger());
    });
    Registra(db, "jet_clng", 1, [=](sqlite3_value** a, int) {
        vb::Variant v = Natural(a[0]);
        if (v.isNull()) FallaFuncion(94);
        return vb::Variant::Long(v.toLong());
    });
    Registra(db, "jet_cdbl", 1, [=](sqlite3_value** a, int) {
        vb::Variant v = Natural(a[0]);
        if (v.isNull()) FallaFuncion(94);
        return vb::Variant(v.toDouble());
    });
    Registra(db, "jet_cdate", 1, [=](sqlite3_value** a, int) {
        vb::Variant v = Natural(a[0]);
        if (v.isNull()) FallaFuncion(94);
        return vb::Variant(ComoFecha(v));
    });
    Registra(db, "jet_cbool", 1, [=](sqlite3_value** a, int) {
        vb::Variant v = Natural(a[0]);
        if (v.isNull()) FallaFuncion(94);
        return vb::Variant(v.toBool());
    });
    Registra(db, "jet_val", 1, [=](sqlite3_value** a, int) {
        if (nulo(a[0])) FallaFuncion(94);
        return vb::Variant(vb::Val(texto(a[0])));
    });
    Registra(db, "jet_int", 1, [=](sqlite3_value** a, int) {
        vb::Variant v = Natural(a[0]);
        if (v.isNull()) return v;
        if (v.type() == vb::VarType::Long) return v;
        return vb::Variant(std::floor(v.toDouble()));
    });
    Registra(db, "jet_fix", 1, [=](sqlite3_value** a, int) {
        vb::Variant v = Natural(a[0]);
        if (v.isNull()) return v;
        if (v.type() == vb::VarType::Long) return v;
        return vb::Variant(std::trunc(v.toDouble()));
    });
    Registra(db, "jet_sgn", 1, [=](sqlite3_value** a, int) {
        vb::Variant v = Natural(a[0]);
        if (v.isNull()) return v;
        const double d = v.toDouble();
        return vb::Variant::Integer(static_cast<qint16>(d > 0 ? 1 : d < 0 ? -1 : 0));
    });
    Registra(db, "jet_round", -1, [=](sqlite3_value** a, int n) {
        vb::Variant v = Natural(a[0]);
        if (v.isNull()) return v;
        return vb::Variant(Redondea(v.toDouble(), n > 1 ? Natural(a[1]).toLong() : 0));
    });
    Registra(db, "jet_now", 0, [](sqlite3_value**, int) { return vb::Variant(vb::Fecha::Now()); }, false);
    Registra(db, "jet_date", 0, [](sqlite3_value**, int) { return vb::Variant(vb::Fecha::Today()); }, false);
    auto parte = [=](const char* nombre, int (*f)(const vb::Fecha&)) {
        Registra(db, nombre, 1, [=](sqlite3_value** a, int) {
            vb::Variant v = Natural(a[0]);
            if (v.isNull()) return v;
            return vb::Variant::Integer(static_cast<qint16>(f(ComoFecha(v))));
        });
    };
    parte("jet_year", [](const vb::Fecha& f) { return f.date().year(); });
    parte("jet_month", [](const vb::Fecha& f) { return f.date().month(); });
    parte("jet_day", [](const vb::Fecha& f) { return f.date().day(); });
    parte("jet_hour", [](const vb::Fecha& f) { return f.time().hour(); });
    parte("jet_minute", [](const vb::Fecha& f) { return f.time().minute(); });
    parte("jet_second", [](const vb::Fecha& f) { return f.time().second(); });
    parte("jet_weekday", [](const vb::Fecha& f) { return f.date().dayOfWeek() % 7 + 1; });
    // jet_format(x, tipo[, mascara])
    Registra(db, "jet_format", -1, [=](sqlite3_value** a, int n) {
        if (nulo(a[0])) return vb::Variant(QString());
        const vb::Variant v = LeeValor(a[0], static_cast<TipoCampo>(sqlite3_value_int(a[1])));
        return vb::Variant(n > 2 ? vb::Format(v, texto(a[2])) : vb::Format(v));
    });
    Registra(db, "jet_fecha_mas", 2, [=](sqlite3_value** a, int) {
        if (nulo(a[0]) || nulo(a[1])) return vb::Variant::Null();
        return vb::Variant(vb::Fecha::fromSerial(ComoFecha(Natural(a[0])).toSerial() + Natural(a[1]).toDouble()));
    });
    Registra(db, "jet_fecha_dif", 2, [=](sqlite3_value** a, int) {
        if (nulo(a[0]) || nulo(a[1])) return vb::Variant::Null();
        return vb::Variant(ComoFecha(Natural(a[0])).toSerial() - ComoFecha(Natural(a[1])).toSerial());
    });
    Registra(db, "jet_divent", 2, [=](sqlite3_value** a, int) {
        if (nulo(a[0]) || nulo(a[1])) return vb::Variant::Null();
        const double d = Redondea(Natural(a[1]).toDouble(), 0);
        if (d == 0) FallaFuncion(11);
        return vb::Variant(std::trunc(Redondea(Natural(a[0]).toDouble(), 0) / d));
    });
    Registra(db, "jet_mod", 2, [=](sqlite3_value** a, int) {
        if (nulo(a[0]) || nulo(a[1])) return vb::Variant::Null();
        const double d = Redondea(Natural(a[1]).toDouble(), 0);
        if (d == 0) FallaFuncion(11);
        return vb::Variant(std::fmod(Redondea(Natural(a[0]).toDouble(), 0), d));
    });
    Registra(db, "jet_pot", 2, [=](sqlite3_value** a, int) {
        if (nulo(a[0]) || nulo(a[1])) return vb::Variant::Null();
        return vb::Variant(std::pow(Natural(a[0]).toDouble(), Natural(a[1]).toDouble()));
    });
}

}  // namespace jet
