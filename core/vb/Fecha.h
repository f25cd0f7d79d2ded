#pragma once
// Date: the language's date-and-time value, to the second. The zero date is 1899-12-30 00:00:00, the
// origin of the serial (OLE) numbering that date arithmetic uses.
#include <QDate>
#include <QDateTime>
#include <QString>
#include <QTime>
#include <compare>
#include <optional>

namespace vb {

class Fecha {
public:
    Fecha();                                   // 1899-12-30 00:00:00
    Fecha(QDate dia, QTime hora = QTime(0, 0));
    explicit Fecha(const QDateTime& dt) : Fecha(dt.date(), dt.time()) {}

    static Fecha Now();                        // local date and time, seconds kept
    static Fecha Today();                      // local date, midnight
    static Fecha fromSerial(double serial);    // days since 1899-12-30, fraction = time of day
    double toSerial() const;

    // "yyyy-mm-dd hh:nn:ss", the form the database stores and the utility prints.
    QString toIso() const;
    static std::optional<Fecha> fromIso(const QString& texto);
    // A valid day and a second of that day (0..86399) taken as they are, for a reader that has checked both.
    static constexpr Fecha deDiaYSegundo(QDate dia, int segundo) {
        return Fecha(Revisada{}, dia, QTime::fromMSecsSinceStartOfDay(segundo * 1000));
    }

    QDate date() const { return dia_; }
    QTime time() const { return hora_; }
    QDateTime toDateTime() const { return QDateTime(dia_, hora_); }
    bool hasTime() const { return hora_ != QTime(0, 0); }

    auto operator<=>(const Fecha& o) const {
        if (auto c = dia_.toJulianDay() <=> o.dia_.toJulianDay(); c != 0) return c;
        return hora_.msecsSinceStartOfDay() <=> o.hora_.msecsSinceStartOfDay();
    }
    bool operator==(const Fecha& o) const { return dia_ == o.dia_ && hora_ == o.hora_; }

private:
    struct Revisada {};
    constexpr Fecha(Revisada, QDate dia, QTime hora) : dia_(dia), hora_(hora) {}
    QDate dia_;
    QTime hora_;
};

// The language's date functions.
int Year(const Fecha& f);
int Month(const Fecha& f);
int Day(const Fecha& f);
int Hour(const Fecha& f);
int Minute(const Fecha& f);
int Second(const Fecha& f);
int Weekday(const Fecha& f, int primerDia = 1);   // 1 = Sunday .. 7 = Saturday with the default first day
// Out-of-range months and days carry over (month 13 is January of the next year, day 0 the last of the
// month before); a year 0..29 is 2000..2029 and 30..99 is 1930..1999. Outside 100..9999 -> error 5.
Fecha DateSerial(int anio, int mes, int dia);
// Intervals "yyyy", "q", "m", "y", "d", "w", "ww", "h", "n", "s" (any case); another -> error 5.
// Adding months keeps the day when it exists, else the month's last day (31/01 + 1 month = 29/02/2024).
Fecha DateAdd(const QString& intervalo, qint64 cuanto, const Fecha& f);
// Boundaries crossed from a to b: DateDiff("yyyy", 31/12/2023, 01/01/2024) = 1, "d" counts midnights,
// "ww" counts Sundays, "w" whole weeks of days.
qint64 DateDiff(const QString& intervalo, const Fecha& a, const Fecha& b);

}  // namespace vb
