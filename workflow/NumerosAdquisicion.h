#pragma once
// What the screens that give accession numbers to the copies of a title share: the list read back from the
// table, the rule that keeps the count of copies above the numbers listed, and the next number proposed.
#include <QString>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace numadq {

// Adds each number of a "|"-joined answer to the list, firing nothing. A blank answer adds nothing.
void LlenaLista(QListWidget& lista, QString numeros);

// The rule on the count of copies. Below the numbers listed: the field gets `valorAnterior` back and the
// warning `aviso` is shown. Empty: it becomes "0". At 0 or less the capture is shut and the list emptied
// (only the screen's list: nothing is deleted). Above 0 the number field and the list open.
void ReglaEjemplares(QLineEdit& ejemplares, const QString& valorAnterior, const QString& aviso, QLineEdit& numero,
                     QListWidget& lista, QPushButton& agregar, QPushButton& borrar);

// Deletes one accession number (its row; `condicion` narrows it, e.g. to one side). A refusal shows the
// screen's own `textoError` in an "Error" box and answers false.
bool BorraNumero(const QString& numero, const QString& condicion, const QString& textoError);

// Ready for the next copy: a number steps on keeping its width ("000314" to "000315"), anything else is
// selected to be typed over. The field takes the focus.
void PreparaSiguiente(QLineEdit& numero);

}  // namespace numadq
