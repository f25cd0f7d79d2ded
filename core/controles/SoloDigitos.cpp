#include "core/controles/SoloDigitos.h"

#include <QEvent>
#include <QKeyEvent>
#include <QWidget>

namespace controles {

SoloDigitos* SoloDigitos::Instala(QWidget* campo) {
    auto* filtro = new SoloDigitos(campo);
    campo->installEventFilter(filtro);
    return filtro;
}

bool SoloDigitos::Permitida(const QKeyEvent& e) {
    switch (e.key()) {
    case Qt::Key_Backspace:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Delete: return true;
    default: break;
    }
    const QString t = e.text();
    if (t.isEmpty()) return true;            // a key that types nothing
    const char16_t c = t.at(0).unicode();
    // Digits only; a control character (Ctrl+V and the like) is a character too and is swallowed.
    return c >= u'0' && c <= u'9';
}

bool SoloDigitos::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) return !Permitida(*static_cast<QKeyEvent*>(evento));
    return QObject::eventFilter(objeto, evento);
}

}  // namespace controles
