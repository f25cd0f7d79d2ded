#include "core/vb/Currency.h"

#include "core/vb/Error.h"

#include <cmath>
#include <limits>

namespace vb {

namespace {

__extension__ typedef __int128 Entero128;

constexpr Entero128 MaximoRaw = std::numeric_limits<qint64>::max();
constexpr Entero128 MinimoRaw = std::numeric_limits<qint64>::min();

qint64 AjustaRango(Entero128 v) {
    if (v > MaximoRaw || v < MinimoRaw) ErrorDesbordamiento();
    return static_cast<qint64>(v);
}

// Division rounding half to even, as the runtime rounds money.
Entero128 DivideAlPar(Entero128 n, Entero128 d) {
    Entero128 q = n / d;
    Entero128 r = n % d;
    if (r == 0) return q;
    const Entero128 ar = r < 0 ? -r : r;
    const Entero128 ad = d < 0 ? -d : d;
    const int signo = ((n < 0) != (d < 0)) ? -1 : 1;
    if (2 * ar > ad || (2 * ar == ad && (q % 2) != 0)) q += signo;
    return q;
}

bool EsBlanco(QChar c) { return c == u' ' || c == u'\t'; }

}  // namespace

Currency Currency::fromLong(qint64 entero) {
    qint64 r;
    if (__builtin_mul_overflow(entero, Escala, &r)) ErrorDesbordamiento();
    return fromRaw(r);
}

Currency Currency::fromDouble(double valor) {
    if (!std::isfinite(valor)) ErrorDesbordamiento();
    // The runtime scales first and then rounds the scaled double to the nearest even integer.
    const double escalado = std::nearbyint(valor * static_cast<double>(Escala));
    if (escalado >= 9223372036854775808.0 || escalado < -9223372036854775808.0) ErrorDesbordamiento();
    return fromRaw(static_cast<qint64>(escalado));
}

std::optional<Currency> Currency::parse(const QString& texto) {
    const QString s = texto.trimmed();
    if (s.isEmpty()) return std::nullopt;
    qsizetype i = 0;
    const qsizetype n = s.size();
    bool negativo = false;
    bool haySigno = false;
    bool hayPeso = false;
    auto saltaBlancos = [&] { while (i < n && EsBlanco(s[i])) ++i; };
    // Sign and "$" in either order: "-$5", "$-5".
    for (int vuelta = 0; vuelta < 2 && i < n; ++vuelta) {
        if (!haySigno && (s[i] == u'-' || s[i] == u'+')) {
            negativo = s[i] == u'-';
            haySigno = true;
            ++i;
            saltaBlancos();
        } else if (!hayPeso && s[i] == u'$') {
            hayPeso = true;
            ++i;
            saltaBlancos();
        }
    }
    QString digitos;
    int decimales = 0;
    bool hayDigito = false;
    while (i < n) {
        const QChar c = s[i];
        if (c.isDigit() && c.unicode() < 128) {
            digitos += c;
            hayDigito = true;
        } else if (c == u',' && hayDigito) {
            // thousands separator: the runtime does not check its position
        } else {
            break;
        }
        ++i;
    }
    if (i < n && s[i] == u'.') {
        ++i;
        while (i < n && s[i].isDigit() && s[i].unicode() < 128) {
            digitos += s[i];
            ++decimales;
            hayDigito = true;
            ++i;
        }
    }
    if (!hayDigito) return std::nullopt;
    int exponente = 0;
    if (i < n && (s[i] == u'e' || s[i] == u'E')) {
        ++i;
        bool expNegativo = false;
        if (i < n && (s[i] == u'+' || s[i] == u'-')) expNegativo = s[i++] == u'-';
        if (i >= n || !s[i].isDigit()) return std::nullopt;
        while (i < n && s[i].isDigit() && s[i].unicode() < 128) {
            exponente = std::min(exponente * 10 + (s[i].unicode() - u'0'), 1000);
            ++i;
        }
        if (expNegativo) exponente = -exponente;
    }
    if (i != n) return std::nullopt;

    // Value = digitos * 10^(exponente - decimales); kept in ten-thousandths.
    const int desplazamiento = exponente - decimales + 4;
    qsizetype corte = digitos.size();
    if (desplazamiento < 0) corte = std::max<qsizetype>(0, digitos.size() + desplazamiento);
    Entero128 valor = 0;
    const Entero128 tope = Entero128(1) << 70;
    for (qsizetype k = 0; k < corte; ++k) {
        valor = valor * 10 + (digitos[k].unicode() - u'0');
        if (valor > tope) ErrorDesbordamiento();
    }
    for (int k = 0; k < desplazamiento; ++k) {
        valor *= 10;
        if (valor > tope) ErrorDesbordamiento();
    }
    if (desplazamiento < 0) {
        // Round half to even on the dropped digits.
        const QString resto = digitos.mid(corte);
        const QChar primero = resto.isEmpty() ? QChar(u'0') : resto[0];
        bool sube = primero > u'5';
        if (primero == u'5') {
            bool masDeMedio = false;
            for (qsizetype k = 1; k < resto.size(); ++k) masDeMedio = masDeMedio || resto[k] != u'0';
            sube = masDeMedio || (valor % 2) != 0;
        }
        if (sube) ++valor;
    }
    return fromRaw(AjustaRango(negativo ? -valor : valor));
}

double Currency::toDouble() const { return static_cast<double>(raw_) / static_cast<double>(Escala); }

QString Currency::toSql() const {
    const quint64 absoluto = raw_ < 0 ? quint64(0) - quint64(raw_) : quint64(raw_);
    QString s = QString::number(absoluto / Escala);
    if (const quint64 fraccion = absoluto % Escala; fraccion != 0) {
        QString f = QStringLiteral("%1").arg(fraccion, 4, 10, QChar(u'0'));
        while (f.endsWith(u'0')) f.chop(1);
        s += u'.' + f;
    }
    return raw_ < 0 ? u'-' + s : s;
}

Currency Currency::operator-() const {
    if (raw_ == std::numeric_limits<qint64>::min()) ErrorDesbordamiento();
    return fromRaw(-raw_);
}

Currency Currency::operator+(Currency o) const {
    qint64 r;
    if (__builtin_add_overflow(raw_, o.raw_, &r)) ErrorDesbordamiento();
    return fromRaw(r);
}

Currency Currency::operator-(Currency o) const {
    qint64 r;
    if (__builtin_sub_overflow(raw_, o.raw_, &r)) ErrorDesbordamiento();
    return fromRaw(r);
}

Currency Currency::operator*(qint64 n) const {
    qint64 r;
    if (__builtin_mul_overflow(raw_, n, &r)) ErrorDesbordamiento();
    return fromRaw(r);
}

Currency Currency::operator*(Currency o) const {
    return fromRaw(AjustaRango(DivideAlPar(Entero128(raw_) * o.raw_, Escala)));
}

Currency Currency::operator/(Currency o) const {
    if (o.raw_ == 0) ErrorDivisionPorCero();
    return fromRaw(AjustaRango(DivideAlPar(Entero128(raw_) * Escala, o.raw_)));
}

}  // namespace vb
