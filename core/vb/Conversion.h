#pragma once
// IsDate / CDate / Val and the numeric tests the screens use on typed text.
#include "core/vb/Variant.h"

#include <optional>

namespace vb {

// What an analyst in a Spanish-speaking office types: day first. "5/1/2024", "05-01-24", "5 ene 2024",
// "05/Ene/2024", "5-enero-2024", "2024/01/05" (year first when the first number has four digits),
// optionally followed by a time "hh:nn[:ss]". A two-digit year is expanded as the runtime does:
// 00..29 -> 2000..2029, 30..99 -> 1930..1999. Day and month out of range are refused, except that a
// first number above 12 with a second at most 12 is still day-first; a first number at most 12 and a second
// above 12 is taken month-first (the runtime's fallback).
// Also read, as the runtime does: day and month alone ("5/1", this year), month and year ("1/2024", "mar 2024",
// the 1st), a time alone ("10:30", on the zero date), "a.m."/"p.m." after the time, and the long date
// ("viernes, 5 de enero de 2024"). Month names and abbreviations in any case, with or without a point.
std::optional<Fecha> LeeFecha(const QString& texto);
bool IsDate(const Variant& v);            // a Date, or a text that LeeFecha accepts
Fecha CDate(const Variant& v);            // 13 if it is no date

// The leading number of a text: blanks skipped anywhere, "&H"/"&O" prefixes, sign, digits, point,
// exponent; 0 if there is none. Val("12abc") = 12, Val(" 1 2") = 12, Val("abc") = 0, Val("") = 0.
double Val(const QString& texto);
bool IsNumeric(const Variant& v);         // text that reads whole as a number (blanks, sign, "$", "," allowed)
// The whole text as a number, as IsNumeric and the conversions read it; nullopt when it is none.
std::optional<double> LeeNumero(const QString& texto);

// The conversion functions, as the methods of Variant.
inline qint16 CInt(const Variant& v) { return v.toInteger(); }
inline qint32 CLng(const Variant& v) { return v.toLong(); }
inline double CDbl(const Variant& v) { return v.toDouble(); }
inline Currency CCur(const Variant& v) { return v.toCurrency(); }
inline QString CStr(const Variant& v) { return v.toString(); }
inline bool CBool(const Variant& v) { return v.toBool(); }
inline bool IsNull(const Variant& v) { return v.isNull(); }
inline bool IsEmpty(const Variant& v) { return v.isEmpty(); }

// Round to a number of decimals, half to even as the runtime does: Round(2.5) = 2, Round(0.125, 2) = 0.12.
// The double is first read to 15 significant digits, so Round(2.675, 2) = 2.68 (2.675 is its shortest form).
double Round(double valor, int decimales = 0);
Currency Round(Currency valor, int decimales = 0);
// Hexadecimal digits in capitals; a negative number is shown as a 32-bit (or, beyond, 64-bit) complement.
QString Hex(qint64 valor);

}  // namespace vb
