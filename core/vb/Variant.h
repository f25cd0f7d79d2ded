#pragma once
// Variant: the language's all-purpose value. Empty (never assigned) and Null (no data) are distinct from
// every value and from each other. Conversions follow the language: Empty reads as 0 or "", Null raises
// error 94 where a value is needed, text that is not a number raises 13, out-of-range raises 6.
#include "core/vb/Currency.h"
#include "core/vb/Fecha.h"

#include <QString>
#include <variant>

namespace vb {

enum class VarType {
    Empty = 0, Null = 1, Integer = 2, Long = 3, Single = 4, Double = 5, Currency = 6, Date = 7,
    String = 8, Boolean = 11, Byte = 17
};

class Variant {
public:
    Variant() = default;                                          // Empty
    static Variant Null() { Variant v; v.valor_ = NullTag{}; return v; }
    static Variant Integer(qint16 v) { Variant r; r.valor_ = v; return r; }
    static Variant Long(qint32 v) { Variant r; r.valor_ = v; return r; }
    static Variant Byte(quint8 v) { Variant r; r.valor_ = v; return r; }
    static Variant Single(float v) { Variant r; r.valor_ = v; return r; }
    Variant(double v) : valor_(v) {}
    Variant(Currency v) : valor_(v) {}
    Variant(Fecha v) : valor_(v) {}
    Variant(QString v) : valor_(std::move(v)) {}
    Variant(const char* v) : valor_(QString::fromUtf8(v)) {}
    Variant(bool v) : valor_(v) {}
    Variant(int v) : valor_(static_cast<qint32>(v)) {}            // a plain int is a Long

    VarType type() const;
    bool isEmpty() const { return std::holds_alternative<std::monostate>(valor_); }
    bool isNull() const { return std::holds_alternative<NullTag>(valor_); }
    bool isNumeric() const;       // Integer, Long, Byte, Single, Double, Currency, Boolean, Empty
    bool isString() const { return type() == VarType::String; }

    // Conversions as CInt, CLng, CDbl, CCur, CDate, CStr, CBool. Text is read as the program reads what an
    // analyst typed: a point for decimals, "," as thousands separator, a leading "$" allowed.
    qint16 toInteger() const;     // rounds half to even; 6 if outside -32768..32767
    qint32 toLong() const;
    double toDouble() const;
    Currency toCurrency() const;
    Fecha toDate() const;         // text through CDate (day first); 13 if it is no date
    QString toString() const;     // Null -> 94; Empty -> ""; numbers plain with a point; dates "dd/mm/yyyy"
                                  // (with " hh:nn:ss" when the time is not midnight); True/False -> "Verdadero"/"Falso"
    bool toBool() const;

    // Text for a list or a message: like toString() but Null reads as "" (the language's `v & ""`).
    QString text() const;

    bool operator==(const Variant& o) const;   // same type and value; Null == Null here (not the language's)

private:
    struct NullTag { bool operator==(const NullTag&) const = default; };
    std::variant<std::monostate, NullTag, qint16, qint32, quint8, float, double, Currency, Fecha, QString, bool>
        valor_;
};

}  // namespace vb
