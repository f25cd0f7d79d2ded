#pragma once
// The small data pages that several screens write into their embedded view: a label in bold on the right,
// its value beside it, one row per item, written after the view has loaded an empty page.
#include "core/ui/Plataforma.h"

#include <QString>

class QBoxLayout;
#include <utility>
#include <vector>

namespace ui {

// Lets events through until the view's document is complete, for at most the given number of turns.
// True when the view is ready.
bool EsperaVista(VistaHtml& vista, long vueltas = 40001);

using FilaFicha = std::pair<QString, QString>;   // label (with its ": "), value

// Loads an empty page, waits for it, and writes the rows. Values are escaped; labels are the screen's own.
// `cierre` closes the table and the page, in the spelling each screen has always used.
void EscribeFicha(VistaHtml& vista, const std::vector<FilaFicha>& filas,
                  const QString& cierre = QStringLiteral("</table></body></html>"), long vueltas = 40001);

// Puts a view for such a page at the top of a screen's layout, a few rows high, named "Web".
void ColocaFicha(QBoxLayout& disposicion, VistaHtml* vista);

// The page itself, as written by EscribeFicha.
QString Ficha(const std::vector<FilaFicha>& filas, const QString& cierre = QStringLiteral("</table></body></html>"));

}  // namespace ui
