#pragma once
// The behaviour of a date field: it shows in red while its text is no date, turns pale yellow while it has
// the focus, and rewrites a date as "dd/MMM/yyyy" when left or when Tab or Enter is pressed on it. A screen
// creates one per date field and hands it the field; the screen keeps its own events on the field.
#include <QLineEdit>
#include <QObject>
#include <QPointer>

namespace controles {

class FechaTextBox : public QObject {
    Q_OBJECT
public:
    explicit FechaTextBox(QLineEdit* caja = nullptr, QObject* padre = nullptr);
    ~FechaTextBox() override;

    // Attaches to a field (and lets go of the one before).
    void setTextBox(QLineEdit* caja);
    QLineEdit* TextBox() const { return caja_; }

    // The field's events, as the behaviour answers them.
    void GotFocus();
    void Change();
    bool KeyPress(int teclaAscii);     // true when the key is swallowed
    void LostFocus();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    QPointer<QLineEdit> caja_;
    QMetaObject::Connection cambio_;
};

// The character code of a key as the field's KeyPress sees it (Tab 9, Enter 13, Backspace 8), 0 for a key
// that types nothing.
int CodigoTecla(const class QKeyEvent& e);

}  // namespace controles
