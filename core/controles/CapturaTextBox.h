#pragma once
// The behaviour of a plain capture field: pale yellow with its text selected while it has the focus, and Tab
// or Enter move on to the next field.
#include <QLineEdit>
#include <QObject>
#include <QPointer>

namespace controles {

class CapturaTextBox : public QObject {
    Q_OBJECT
public:
    explicit CapturaTextBox(QLineEdit* caja = nullptr, QObject* padre = nullptr);
    ~CapturaTextBox() override;

    void setTextBox(QLineEdit* caja);
    QLineEdit* TextBox() const { return caja_; }

    void GotFocus();
    bool KeyPress(int teclaAscii);     // true when the key is swallowed
    void LostFocus();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    QPointer<QLineEdit> caja_;
};

}  // namespace controles
