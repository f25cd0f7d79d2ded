#pragma once
// Report documents: a query result becomes an XML document (xml_in), and a style sheet from the folder
// "xsls" beside the program turns it into the HTML shown in an embedded view (Htm_gen). Htm_resumen shows
// a short text as a page; LlenaListaTodas and LlenaListaNumerada fill the lists the report screens offer.
#include "core/Globales.h"
#include <QString>

class QComboBox;
class QListWidget;
namespace ui { class VistaHtml; }
namespace controles { class ComboBox; }

namespace reportes {

// The rows above which a report offers to show only its summary.
inline constexpr long LimiteReporte = 500;

// The document of "SELECT <Campos> FROM <Tabla> <Clave> [ORDER BY <Orden>]": processing instructions for
// XML 1.0 and for the style sheet `hoja`, root `raiz` with Registros, NumTitulos (only with a
// `campoDistinto`), fechaReporte, fechaInicial, fechaFinal, and one `registro` element per row.
// `vacio` is set when the query gives no rows (the empty document is still returned). Above 500 rows the
// user may choose the summary, and `soloResumen` forces it for any number of rows: then `resumen` holds a
// table row with the counts and the result is empty. On a failure a box is shown and the result is empty.
QString xml_in(const globales::ConsultaDatos& consulta, const QString& hoja, const QString& raiz,
               const QString& registro, const QString& campoDistinto, bool& vacio, QString& resumen,
               bool soloResumen);

// Transforms `xml` with the style sheet `hoja` (relative to the program's folder), writes the HTML into
// `navegador` and returns it; empty after a failure, which is shown in a box.
QString Htm_gen(const QString& xml, ui::VistaHtml& navegador, const QString& hoja);

// Shows `texto` wrapped in a small page.
void Htm_resumen(const QString& texto, ui::VistaHtml& navegador);

// Fills `lista` with "TODAS LAS <TABLA>" and then each row's values joined by blanks; false (and the list
// left empty) when there are no rows.
bool LlenaListaTodas(const globales::ConsultaDatos& consulta, QListWidget& lista);

// Fills `lista` with each row: integer values as "000 - ", other values followed by a blank; false when
// there are no rows.
bool LlenaListaNumerada(const globales::ConsultaDatos& consulta, QListWidget& lista);
// The same rows added to a combo after the items it has (its first item, "-- Todas ... --", stays); adding
// fires no event of the combo.
bool LlenaListaNumerada(const globales::ConsultaDatos& consulta, QComboBox& lista);
// The filter list of a report screen: emptied, `primero` ("-- Todas ... --"), then the rows of `campos` of
// `tabla` in `orden` through the shared query, as the screens set it.
void LlenaListaNumerada(controles::ComboBox& lista, const QString& primero, const QString& campos, const QString& tabla,
                        const QString& orden);

}  // namespace reportes
