#include "core/vb/Fecha.h"

#include "core/vb/Error.h"

#include <QRegularExpression>
#include <cmath>

namespace vb {

namespace {

// Day 0 of the language's dates, 30 December 1899. A constant expression: other files' statics are built
// from it before this file's own initialisers would run.
constexpr QDate CeroFecha = QDate::fromJulianDay(2415019);
constexpr qint64 SegundosDia = 86400;
// 01/01/100 and 31/12/9999, the runtime's limits, as serials.
constexpr double SerialMinimo = -657434.0;
constexpr double SerialMaximo = 2958466.0;

QTime HoraASegundos(QTime t) { return t.isValid() ? QTime(t.hour(), t.minute(), t.second()) : QTime(0, 0); }

bool AnioValido(const QDate& d) { return d.isValid() && d.year() >= 100 && d.year() <= 9999; }

// Seconds counted from the zero date; the clock runs forward inside each day whatever the sign.
qint64 SegundosAbsolutos(const Fecha& f) {
    return (f.date().toJulianDay() - CeroFecha.toJulianDay()) * SegundosDia + f.time().msecsSinceStartOfDay() / 1000;
}

Fecha DesdeSegundos(qint64 s) {
    qint64 dias = s / SegundosDia;
    qint64 resto = s % SegundosDia;
    if (resto < 0) {
        resto += SegundosDia;
        --dias;
    }
    const QDate d = CeroFecha.addDays(dias);
    if (!AnioValido(d)) ErrorArgumentoNoValido();
    return Fecha(d, QTime(0, 0).addSecs(static_cast<int>(resto)));
}

int MesesAbsolutos(const QDate& d) { return d.year() * 12 + d.month() - 1; }

}  // namespace

Fecha::Fecha() : dia_(CeroFecha), hora_(0, 0) {}

Fecha::Fecha(QDate dia, QTime hora) : dia_(dia.isValid() ? dia : CeroFecha), hora_(HoraASegundos(hora)) {}

Fecha Fecha::Now() {
    const QDateTime ahora = QDateTime::currentDateTime();
    return Fecha(ahora.date(), ahora.time());
}

Fecha Fecha::Today() { return Fecha(QDate::currentDate()); }

Fecha Fecha::fromSerial(double serial) {
    if (!std::isfinite(serial) || serial < SerialMinimo - 1 || serial >= SerialMaximo) ErrorDesbordamiento();
    // The whole part counts days from the zero date; the fraction is the time of day, also for negative
    // serials: -1.25 is the day before the zero date at 06:00.
    double dias = std::trunc(serial);
    qint64 segundos = std::llround(std::fabs(serial - dias) * SegundosDia);
    if (segundos >= SegundosDia) {
        segundos = 0;
        dias += serial < 0 ? -1 : 1;
    }
    const QDate d = CeroFecha.addDays(static_cast<qint64>(dias));
    if (!AnioValido(d)) ErrorDesbordamiento();
    return Fecha(d, QTime(0, 0).addSecs(static_cast<int>(segundos)));
}

double Fecha::toSerial() const {
    const double dias = static_cast<double>(dia_.toJulianDay() - CeroFecha.toJulianDay());
    const double fraccion = hora_.msecsSinceStartOfDay() / 1000 / static_cast<double>(SegundosDia);
    return dias < 0 ? dias - fraccion : dias + fraccion;
}

QString Fecha::toIso() const {
    return QStringLiteral("%1-%2-%3 %4:%5:%6")
        .arg(dia_.year(), 4, 10, QChar(u'0'))
        .arg(dia_.month(), 2, 10, QChar(u'0'))
        .arg(dia_.day(), 2, 10, QChar(u'0'))
        .arg(hora_.hour(), 2, 10, QChar(u'0'))
        .arg(hora_.minute(), 2, 10, QChar(u'0'))
        .arg(hora_.second(), 2, 10, QChar(u'0'));
}

std::optional<Fecha> Fecha::fromIso(const QString& texto) {
    static const QRegularExpression forma(QStringLiteral(
        R"(^(\d{4})-(\d{1,2})-(\d{1,2})(?:[ T](\d{1,2}):(\d{2})(?::(\d{2})(?:\.\d+)?)?)?$)"));
    const auto m = forma.match(texto.trimmed());
    if (!m.hasMatch()) return std::nullopt;
    const QDate d(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    if (!AnioValido(d)) return std::nullopt;
    QTime t(0, 0);
    if (m.hasCaptured(4)) {
        t = QTime(m.captured(4).toInt(), m.captured(5).toInt(), m.captured(6).toInt());
        if (!t.isValid()) return std::nullopt;
    }
    return Fecha(d, t);
}

int Year(const Fecha& f) { return f.date().year(); }
int Month(const Fecha& f) { return f.date().month(); }
int Day(const Fecha& f) { return f.date().day(); }
int Hour(const Fecha& f) { return f.time().hour(); }
int Minute(const Fecha& f) { return f.time().minute(); }
int Second(const Fecha& f) { return f.time().second(); }

int Weekday(const Fecha& f, int primerDia) {
    if (primerDia < 1 || primerDia > 7) ErrorArgumentoNoValido();
    const int domingoEsUno = f.date().dayOfWeek() % 7 + 1;
    return (domingoEsUno - primerDia + 7) % 7 + 1;
}

Fecha DateSerial(int anio, int mes, int dia) {
    if (anio >= 0 && anio < 30) anio += 2000;
    else if (anio >= 30 && anio < 100) anio += 1900;
    const QDate base = QDate(anio, 1, 1);
    if (!base.isValid()) ErrorArgumentoNoValido();
    const QDate d = base.addMonths(mes - 1).addDays(qint64(dia) - 1);
    if (!AnioValido(d)) ErrorArgumentoNoValido();
    return Fecha(d);
}

Fecha DateAdd(const QString& intervalo, qint64 cuanto, const Fecha& f) {
    const QString i = intervalo.toLower();
    auto sumaMeses = [&](qint64 meses) {
        if (meses > 120000 || meses < -120000) ErrorArgumentoNoValido();
        const QDate d = f.date().addMonths(static_cast<int>(meses));
        if (!AnioValido(d)) ErrorArgumentoNoValido();
        return Fecha(d, f.time());
    };
    auto sumaSegundos = [&](qint64 porUnidad) {
        if (cuanto > 400000000000LL / porUnidad || cuanto < -400000000000LL / porUnidad) ErrorArgumentoNoValido();
        return DesdeSegundos(SegundosAbsolutos(f) + cuanto * porUnidad);
    };
    if (i == u"yyyy") return sumaMeses(cuanto * 12);
    if (i == u"q") return sumaMeses(cuanto * 3);
    if (i == u"m") return sumaMeses(cuanto);
    if (i == u"y" || i == u"d" || i == u"w") return sumaSegundos(SegundosDia);
    if (i == u"ww") return sumaSegundos(7 * SegundosDia);
    if (i == u"h") return sumaSegundos(3600);
    if (i == u"n") return sumaSegundos(60);
    if (i == u"s") return sumaSegundos(1);
    ErrorArgumentoNoValido();
}

qint64 DateDiff(const QString& intervalo, const Fecha& a, const Fecha& b) {
    const QString i = intervalo.toLower();
    auto pisoDiv = [](qint64 n, qint64 d) { return n / d - ((n % d != 0) && ((n < 0) != (d < 0))); };
    const qint64 sa = SegundosAbsolutos(a);
    const qint64 sb = SegundosAbsolutos(b);
    const qint64 diasA = a.date().toJulianDay();
    const qint64 diasB = b.date().toJulianDay();
    if (i == u"yyyy") return b.date().year() - a.date().year();
    if (i == u"q") {
        return (b.date().year() * 4 + (b.date().month() - 1) / 3) - (a.date().year() * 4 + (a.date().month() - 1) / 3);
    }
    if (i == u"m") return MesesAbsolutos(b.date()) - MesesAbsolutos(a.date());
    if (i == u"y" || i == u"d") return diasB - diasA;
    if (i == u"w") return (diasB - diasA) / 7;
    if (i == u"ww") {
        // Julian day 0 was a Monday: day + 1 counts weeks that begin on Sunday.
        return pisoDiv(diasB + 1, 7) - pisoDiv(diasA + 1, 7);
    }
    if (i == u"h") return pisoDiv(sb, 3600) - pisoDiv(sa, 3600);
    if (i == u"n") return pisoDiv(sb, 60) - pisoDiv(sa, 60);
    if (i == u"s") return sb - sa;
    ErrorArgumentoNoValido();
}

}  // namespace vb
