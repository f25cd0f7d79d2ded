#pragma once
// Colours as the screens give them: a 24-bit number with red in the low byte and blue in the high byte.
#include <QColor>
#include <QWidget>

namespace controles {

constexpr long ColorFondoCaptura = 14155260;   // the pale yellow of a field being typed in
constexpr long ColorBlanco = 0xFFFFFF;
constexpr long ColorNegro = 0;
constexpr long ColorRojo = 255;

inline QColor ColorVB(long valor) {
    return QColor(static_cast<int>(valor & 0xFF), static_cast<int>((valor >> 8) & 0xFF), static_cast<int>((valor >> 16) & 0xFF));
}

// BackColor and ForeColor of a text field.
inline void PonColorFondo(QWidget* w, long valor) {
    QPalette p = w->palette();
    p.setColor(QPalette::Base, ColorVB(valor));
    w->setPalette(p);
}
inline void PonColorTexto(QWidget* w, long valor) {
    QPalette p = w->palette();
    p.setColor(QPalette::Text, ColorVB(valor));
    w->setPalette(p);
}
inline QColor ColorFondo(const QWidget* w) { return w->palette().color(QPalette::Base); }
inline QColor ColorTexto(const QWidget* w) { return w->palette().color(QPalette::Text); }

}  // namespace controles
