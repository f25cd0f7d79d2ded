#pragma once
// The combo box of the screens: items with a whole number each (ItemData), a selected index that is -1 when
// nothing is chosen, and the Click event both for the user's choice and for a ListIndex set by code. The
// user's choice fires Click once, also when it is the item already chosen: a field kept in step with the
// combo is put right by choosing its item again.
#include <QComboBox>

class QLineEdit;

namespace controles {

class ComboBox : public QComboBox {
    Q_OBJECT
public:
    explicit ComboBox(QWidget* padre = nullptr);

    // At the end, or before `indice` (0-based). Neither adding, removing nor clearing fires Click, and adding
    // chooses nothing; removing the chosen item leaves no choice.
    void AddItem(const QString& texto, int indice = -1);
    void RemoveItem(int indice);                 // 381 outside
    void Clear();
    int ListCount() const { return count(); }
    int ListIndex() const { return currentIndex(); }
    void setListIndex(int indice);               // -1 clears the choice; 380 outside
    qint32 ItemData(int indice) const;           // 381 outside; 0 when never set
    void setItemData(int indice, qint32 valor);  // 381 outside
    using QComboBox::setItemData;
    QString List(int indice) const;              // "" outside
    // The chosen item's text, or what is typed in an editable combo.
    QString Text() const { return currentText(); }
    // An editable combo takes any text; a list-only one selects the item with exactly that text
    // (383 if there is none).
    void setText(const QString& texto);
    int NewIndex() const { return nuevo_; }      // the index of the last item added

signals:
    void Click();
    void Change();

public:
    void showPopup() override;

protected:
    void childEvent(QChildEvent* e) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    bool event(QEvent* e) override;

private:
    int nuevo_ = -1;
    // The choice as it stood when the user's last action on the combo began (a key, the wheel, the list
    // opened); -2 when none is under way. A choice that leaves it unchanged fires no change of index.
    int antesDeElegir_ = -2;
};

// A lookup field beside a combo of numbered items ("012 - Planeta" as LlenaCombo fills it, "12 Planeta" as a
// catalog refills it).
// The number at the head of an item, read from its four first characters as the screens read it.
double NumeroDeItem(const QString& item);
// Typing in the field: the first item whose number is the field's value is chosen, unless it is already;
// false when no item has it.
bool EligePorNumero(ComboBox& combo, const QString& valorDelCampo);
// A choice in the combo: the field shows the chosen item's number; nothing happens when none is chosen.
void PonNumeroDelItem(const ComboBox& combo, QLineEdit& campo);

// ItemData as LlenaCombo and ComboBox keep it (Qt::UserRole), read from any QComboBox: 0 when never set.
qint32 ItemDataDe(const QComboBox& combo, int indice);
void PonItemData(QComboBox& combo, int indice, qint32 valor);

}  // namespace controles
