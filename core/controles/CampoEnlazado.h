#pragma once
// What a capture field takes from the column it is saved into, and the order the Tab key walks a screen's
// fields in.
#include <QString>

#include <initializer_list>

class QLineEdit;
class QWidget;
namespace dao { class Field; }

namespace controles {

// A text column holds at most its size in characters: the box bound to it takes no more, so that typing
// never reaches the engine's "field too small". A field of any other type (numbers, dates, memo) leaves the
// box without a limit.
void LimitaAlCampo(QLineEdit& caja, const dao::Field& campo);
// The same from the definition of a table of the open database. A table or column that isn't there leaves
// the box as it is.
void LimitaAlCampo(QLineEdit& caja, const QString& tabla, const QString& columna);

// Tab walks the widgets in this order, the first after the last of them as before.
void OrdenDeTabulacion(std::initializer_list<QWidget*> controles);

}  // namespace controles
