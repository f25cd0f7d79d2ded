#pragma once
// Format: the language's Format function for the date and number masks the program uses, with Spanish
// month names ("ene", "feb", ... "dic"; "enero" ... "diciembre").
#include "core/vb/Variant.h"

namespace vb {

// Date masks: "dd/mmm/yyyy", "dd/MMM/yyyy", "dd-mmm-yyyy", "yyyy/mm/dd", "yyyy/mm/dd hh:nn:ss",
// "yyyy/mm/dd hh:mm:ss" (mm after hh is minutes), "mm/dd/yyyy", "mm-dd-yyyy", "yyyy-mm-dd", "dd/mm/yyyy",
// "yyyy/mmm/dd", "dd-mmm-yyyy hh:mm:ss", "dd/mmm/yyyy hh:nn", "hh:mm:ss", and the named "long date".
// Number masks: "000", "#00", "0000", "###,###,###.00", "###,###,##0.00", "$###,###,##0.00",
// "$###,###,###,##0.00", "###,###.00" and any mask built of the same pieces.
// Null gives "", Empty gives "" for a date mask and formats as 0 for a number mask. A text that reads as a
// number or a date is formatted as one; any other text comes back unchanged.
// The letters of a date mask have no case ("MMM" is "mmm": "05/ene/2024"); "long date" is
// "viernes, 5 de enero de 2024". Number masks round half away from zero on the decimal digits shown, put
// "-" before everything ("-$1,234.50"), and take up to three sections "positive;negative;zero", quoted or
// "\"-escaped literals, "%" and a trailing "," that divides by a thousand. The named formats "general date",
// "medium date", "short date", "long time", "medium time", "short time", "general number", "currency",
// "fixed", "standard", "percent", "yes/no", "true/false" and "on/off" are known too.
QString Format(const Variant& valor, const QString& mascara);
QString Format(const Variant& valor);     // no mask: as toString(), Null -> ""

// Month names and abbreviations, 1-based.
QString NombreMes(int mes);               // "enero"
QString AbreviaturaMes(int mes);          // "ene"

}  // namespace vb
