#include "core/controles/CapturaTextBox.h"
#include "core/controles/Colores.h"
#include "core/controles/FechaTextBox.h"

#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>

namespace controles {

// ---------------------------------------------------------------------------------------------------------
// Capture fields

CapturaTextBox::CapturaTextBox(QLineEdit* caja, QObject* padre) : QObject(padre) { setTextBox(caja); }

CapturaTextBox::~CapturaTextBox() {
    if (caja_) caja_->removeEventFilter(this);
}

void CapturaTextBox::setTextBox(QLineEdit* caja) {
    if (caja_) caja_->removeEventFilter(this);
    caja_ = caja;
    if (caja_) caja_->installEventFilter(this);
}

void CapturaTextBox::GotFocus() {
    if (!caja_) return;
    caja_->setSelection(0, vb::Len(vb::Trim(caja_->text())));
    PonColorFondo(caja_, ColorFondoCaptura);
}

bool CapturaTextBox::KeyPress(int teclaAscii) {
    if (!caja_ || (teclaAscii != 9 && teclaAscii != 13)) return false;
    ui::Sistema().FocoSiguiente(caja_);
    return true;
}

void CapturaTextBox::LostFocus() {
    if (caja_) PonColorFondo(caja_, ColorBlanco);
}

bool CapturaTextBox::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto != caja_) return false;
    bool tragada = false;
    switch (evento->type()) {
    case QEvent::FocusIn: ui::Protegido(QStringLiteral("CapturaTextBox"), [this] { GotFocus(); }); break;
    case QEvent::FocusOut: ui::Protegido(QStringLiteral("CapturaTextBox"), [this] { LostFocus(); }); break;
    case QEvent::KeyPress: {
        const int tecla = CodigoTecla(*static_cast<QKeyEvent*>(evento));
        ui::Protegido(QStringLiteral("CapturaTextBox"), [&] { tragada = KeyPress(tecla); });
        break;
    }
    default: break;
    }
    return tragada;
}

}  // namespace controles
