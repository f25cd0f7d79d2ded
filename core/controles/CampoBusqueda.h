#pragma once
// A number field beside a combo whose items begin with a three-digit key ("007 - Biblioteca Central"):
// choosing an item writes its number into the field, and typing a number selects the item that begins
// with it. The number is read from the first four characters of the item.
#include <QComboBox>
#include <QLineEdit>
#include <QObject>
#include <QPointer>
#include <functional>

namespace controles {

// The leading number of a combo item: Val(Mid(texto, 1, 4)).
double NumeroDeElemento(const QString& texto);
// Selects the first item whose leading number equals `valor`; false, with the choice untouched, if none does.
bool SeleccionaPorNumero(QComboBox& combo, double valor);

class CampoBusqueda : public QObject {
    Q_OBJECT
public:
    CampoBusqueda(QLineEdit* campo, QComboBox* combo, QObject* padre = nullptr);

    // What happens when the typed number matches no item; by default a beep and the field emptied.
    std::function<void()> SinCoincidencia;

    // The two events, as the behaviour answers them.
    void Combo_Click();
    void Campo_Change();

private:
    QPointer<QLineEdit> campo_;
    QPointer<QComboBox> combo_;
};

}  // namespace controles
