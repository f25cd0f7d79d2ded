#pragma once
// Currency: an exact count of ten-thousandths in 64 bits, as the language keeps money.
#include <QString>
#include <compare>
#include <cstdint>
#include <optional>

namespace vb {

class Currency {
public:
    static constexpr qint64 Escala = 10000;

    constexpr Currency() = default;
    static constexpr Currency fromRaw(qint64 diezmilesimos) { Currency c; c.raw_ = diezmilesimos; return c; }
    static Currency fromLong(qint64 entero);            // overflow -> error 6
    static Currency fromDouble(double valor);           // rounds half to even at the 4th decimal; overflow -> 6
    // Typed text: "1234.5", "-3", " 12 ", "$1,234.50", "1,234", "(5.00)" is not accepted. Empty -> nullopt.
    static std::optional<Currency> parse(const QString& texto);

    constexpr qint64 raw() const { return raw_; }
    double toDouble() const;
    // Plain decimal with a point and no thousands separator, trailing zeros dropped: "1234.5", "-0.25", "0".
    QString toSql() const;

    Currency operator-() const;
    Currency operator+(Currency o) const;   // overflow -> error 6
    Currency operator-(Currency o) const;
    Currency operator*(qint64 n) const;
    Currency operator*(Currency o) const;   // rounded half to even
    Currency operator/(Currency o) const;   // rounded half to even; division by zero -> error 11
    Currency& operator+=(Currency o) { return *this = *this + o; }
    Currency& operator-=(Currency o) { return *this = *this - o; }
    constexpr auto operator<=>(const Currency&) const = default;

private:
    qint64 raw_ = 0;
};

}  // namespace vb
