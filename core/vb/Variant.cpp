#include "core/vb/Variant.h"

#include "core/vb/Conversion.h"
#include "core/vb/Error.h"

#include <cmath>
#include <limits>

namespace vb {

namespace {

template <class... F> struct Visitante : F... { using F::operator()...; };
template <class... F> Visitante(F...) -> Visitante<F...>;

// The runtime's text of a floating value: up to `precision` significant digits, exponent form
// ("1E+15", "1.5E-05") below 1E-4 and from 10^precision up.
QString TextoDeFlotante(double v, int precision) {
    if (v == 0 || !std::isfinite(v)) return QStringLiteral("0");
    const QString e = QString::number(std::fabs(v), 'e', precision - 1);
    const qsizetype pe = e.indexOf(u'e');
    const int exponente = e.mid(pe + 1).toInt();
    QString digitos = e.left(1) + e.mid(2, pe - 2);
    while (digitos.size() > 1 && digitos.endsWith(u'0')) digitos.chop(1);
    QString r;
    if (exponente < -4 || exponente >= precision) {
        r = digitos.left(1);
        if (digitos.size() > 1) r += u'.' + digitos.mid(1);
        r += QStringLiteral("E%1%2").arg(QChar(exponente < 0 ? u'-' : u'+')).arg(std::abs(exponente), 2, 10, QChar(u'0'));
    } else if (exponente < 0) {
        r = QStringLiteral("0.") + QString(-exponente - 1, u'0') + digitos;
    } else if (digitos.size() <= exponente + 1) {
        r = digitos + QString(exponente + 1 - digitos.size(), u'0');
    } else {
        r = digitos.left(exponente + 1) + u'.' + digitos.mid(exponente + 1);
    }
    return v < 0 ? u'-' + r : r;
}

double NumeroDeTexto(const QString& s) {
    if (const auto n = LeeNumero(s)) return *n;
    ErrorTiposNoCoinciden();
}

// Round half to even and check the range of the target type.
template <class T> T EnteroDe(double d) {
    if (!std::isfinite(d)) ErrorDesbordamiento();
    const double r = std::nearbyint(d);
    if (r < static_cast<double>(std::numeric_limits<T>::min()) || r > static_cast<double>(std::numeric_limits<T>::max()))
        ErrorDesbordamiento();
    return static_cast<T>(r);
}

template <class T> T EnteroDe(Currency c) {
    const qint64 q = Round(c, 0).raw() / Currency::Escala;
    if (q < std::numeric_limits<T>::min() || q > std::numeric_limits<T>::max()) ErrorDesbordamiento();
    return static_cast<T>(q);
}

template <class T> T EnteroDe(const Variant& v) {
    if (v.isNull()) ErrorUsoNoValidoDeNull();
    if (v.type() == VarType::Currency) return EnteroDe<T>(v.toCurrency());
    return EnteroDe<T>(v.toDouble());
}

}  // namespace

VarType Variant::type() const {
    return std::visit(Visitante{
                          [](std::monostate) { return VarType::Empty; },
                          [](NullTag) { return VarType::Null; },
                          [](qint16) { return VarType::Integer; },
                          [](qint32) { return VarType::Long; },
                          [](quint8) { return VarType::Byte; },
                          [](float) { return VarType::Single; },
                          [](double) { return VarType::Double; },
                          [](const Currency&) { return VarType::Currency; },
                          [](const Fecha&) { return VarType::Date; },
                          [](const QString&) { return VarType::String; },
                          [](bool) { return VarType::Boolean; },
                      },
                      valor_);
}

bool Variant::isNumeric() const {
    switch (type()) {
    case VarType::Empty:
    case VarType::Integer:
    case VarType::Long:
    case VarType::Byte:
    case VarType::Single:
    case VarType::Double:
    case VarType::Currency:
    case VarType::Boolean:
        return true;
    default:
        return false;
    }
}

qint16 Variant::toInteger() const { return EnteroDe<qint16>(*this); }
qint32 Variant::toLong() const { return EnteroDe<qint32>(*this); }

double Variant::toDouble() const {
    return std::visit(Visitante{
                          [](std::monostate) { return 0.0; },
                          [](NullTag) -> double { ErrorUsoNoValidoDeNull(); },
                          [](qint16 v) { return double(v); },
                          [](qint32 v) { return double(v); },
                          [](quint8 v) { return double(v); },
                          [](float v) { return double(v); },
                          [](double v) { return v; },
                          [](const Currency& v) { return v.toDouble(); },
                          [](const Fecha& v) { return v.toSerial(); },
                          [](const QString& v) { return NumeroDeTexto(v); },
                          [](bool v) { return v ? -1.0 : 0.0; },
                      },
                      valor_);
}

Currency Variant::toCurrency() const {
    return std::visit(Visitante{
                          [](std::monostate) { return Currency(); },
                          [](NullTag) -> Currency { ErrorUsoNoValidoDeNull(); },
                          [](qint16 v) { return Currency::fromLong(v); },
                          [](qint32 v) { return Currency::fromLong(v); },
                          [](quint8 v) { return Currency::fromLong(v); },
                          [](float v) { return Currency::fromDouble(v); },
                          [](double v) { return Currency::fromDouble(v); },
                          [](const Currency& v) { return v; },
                          [](const Fecha& v) { return Currency::fromDouble(v.toSerial()); },
                          [](const QString& v) {
                              if (const auto c = Currency::parse(v)) return *c;
                              // "&HFF" and the like are numbers too
                              return Currency::fromDouble(NumeroDeTexto(v));
                          },
                          [](bool v) { return Currency::fromLong(v ? -1 : 0); },
                      },
                      valor_);
}

Fecha Variant::toDate() const {
    switch (type()) {
    case VarType::Empty:
        return Fecha();
    case VarType::Null:
        ErrorUsoNoValidoDeNull();
    case VarType::Date:
        return std::get<Fecha>(valor_);
    case VarType::String:
        if (const auto f = LeeFecha(std::get<QString>(valor_))) return *f;
        ErrorTiposNoCoinciden();
    default:
        return Fecha::fromSerial(toDouble());
    }
}

QString Variant::toString() const {
    return std::visit(Visitante{
                          [](std::monostate) { return QString(); },
                          [](NullTag) -> QString { ErrorUsoNoValidoDeNull(); },
                          [](qint16 v) { return QString::number(v); },
                          [](qint32 v) { return QString::number(v); },
                          [](quint8 v) { return QString::number(v); },
                          [](float v) { return TextoDeFlotante(v, 7); },
                          [](double v) { return TextoDeFlotante(v, 15); },
                          [](const Currency& v) { return v.toSql(); },
                          [](const Fecha& f) {
                              const QString hora = f.time().toString(QStringLiteral("HH:mm:ss"));
                              // A time alone (on the zero date) prints without its date, as the runtime does.
                              if (f.date() == Fecha().date() && f.hasTime()) return hora;
                              const QString dia = f.date().toString(QStringLiteral("dd/MM/yyyy"));
                              return f.hasTime() ? dia + u' ' + hora : dia;
                          },
                          [](const QString& v) { return v; },
                          [](bool v) { return v ? QStringLiteral("Verdadero") : QStringLiteral("Falso"); },
                      },
                      valor_);
}

bool Variant::toBool() const {
    switch (type()) {
    case VarType::Null:
        ErrorUsoNoValidoDeNull();
    case VarType::Boolean:
        return std::get<bool>(valor_);
    case VarType::Currency:
        return std::get<Currency>(valor_).raw() != 0;
    case VarType::String: {
        const QString s = std::get<QString>(valor_).trimmed();
        if (s.compare(u"Verdadero", Qt::CaseInsensitive) == 0 || s.compare(u"True", Qt::CaseInsensitive) == 0)
            return true;
        if (s.compare(u"Falso", Qt::CaseInsensitive) == 0 || s.compare(u"False", Qt::CaseInsensitive) == 0)
            return false;
        return NumeroDeTexto(s) != 0;
    }
    default:
        return toDouble() != 0;
    }
}

QString Variant::text() const { return isNull() ? QString() : toString(); }

bool Variant::operator==(const Variant& o) const { return valor_ == o.valor_; }

}  // namespace vb
