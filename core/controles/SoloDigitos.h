#pragma once
// The filter of number fields: only the digits 0 to 9 and Backspace are typed; any other character is
// swallowed. Keys that type nothing (arrows, Delete, Home...) and Tab, Enter and Escape pass.
#include <QObject>

class QKeyEvent;
class QWidget;

namespace controles {

class SoloDigitos : public QObject {
    Q_OBJECT
public:
    // Installs the filter on a field; it lives as long as the field.
    static SoloDigitos* Instala(QWidget* campo);
    // Whether a key reaches the field.
    static bool Permitida(const QKeyEvent& e);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    explicit SoloDigitos(QObject* padre) : QObject(padre) {}
};

}  // namespace controles
