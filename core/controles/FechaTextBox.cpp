#include "core/controles/Colores.h"
#include "core/controles/FechaTextBox.h"

#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Formato.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>

namespace controles {

namespace {
const QString MascaraFecha = QStringLiteral("dd/MMM/yyyy");

// Selects the trimmed text from the start, as SelStart 0 and SelLength Len(Trim(text)).
void SeleccionaTexto(QLineEdit* caja) { caja->setSelection(0, vb::Len(vb::Trim(caja->text()))); }
}  // namespace

int CodigoTecla(const QKeyEvent& e) {
    switch (e.key()) {
    case Qt::Key_Backtab: return 0;     // Shift+Tab types nothing
    case Qt::Key_Tab: return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter: return 13;
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Escape: return 27;
    default: break;
    }
    const QString t = e.text();
    return t.isEmpty() ? 0 : static_cast<int>(t.at(0).unicode());
}

// ---------------------------------------------------------------------------------------------------------
// Date fields

FechaTextBox::FechaTextBox(QLineEdit* caja, QObject* padre) : QObject(padre) { setTextBox(caja); }

FechaTextBox::~FechaTextBox() {
    if (caja_) caja_->removeEventFilter(this);
}

void FechaTextBox::setTextBox(QLineEdit* caja) {
    if (caja_) {
        caja_->removeEventFilter(this);
        disconnect(cambio_);
    }
    caja_ = caja;
    if (!caja_) return;
    // A date box shows a whole date ("24/sep/2026") whatever the layout around it.
    const int ancho = caja_->fontMetrics().horizontalAdvance(QStringLiteral("00/mmm/00000")) + 16;
    if (caja_->minimumWidth() < ancho) caja_->setMinimumWidth(ancho);
    caja_->installEventFilter(this);
    cambio_ = connect(caja_, &QLineEdit::textChanged, this, [this] { ui::Protegido(QStringLiteral("FechaTextBox"), [this] { Change(); }); });
}

void FechaTextBox::GotFocus() {
    if (!caja_) return;
    Change();
    SeleccionaTexto(caja_);
    PonColorFondo(caja_, ColorFondoCaptura);
}

void FechaTextBox::Change() {
    if (!caja_) return;
    if (vb::IsDate(vb::Variant(caja_->text()))) {
        PonColorTexto(caja_, ColorNegro);
        caja_->setToolTip(QStringLiteral("Formato de fecha correcto"));
    } else {
        PonColorTexto(caja_, ColorRojo);
        caja_->setToolTip(QStringLiteral("Formato de fecha incorrecto"));
    }
}

bool FechaTextBox::KeyPress(int teclaAscii) {
    if (!caja_ || (teclaAscii != 9 && teclaAscii != 13)) return false;
    // Fewer than three characters: the key does what it always does.
    if (vb::Len(caja_->text()) < 3) return false;
    const vb::Variant texto(caja_->text());
    if (!vb::IsDate(texto)) {
        ui::Sistema().Beep();
        return true;
    }
    caja_->setText(vb::Format(vb::Variant(vb::CDate(texto)), MascaraFecha));
    caja_->setCursorPosition(vb::Len(vb::Trim(caja_->text())));
    ui::Sistema().FocoSiguiente(caja_);
    return true;
}

void FechaTextBox::LostFocus() {
    if (!caja_) return;
    const vb::Variant texto(caja_->text());
    if (vb::IsDate(texto)) caja_->setText(vb::Format(vb::Variant(vb::CDate(texto)), MascaraFecha));
    PonColorFondo(caja_, ColorBlanco);
}

bool FechaTextBox::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto != caja_) return false;
    bool tragada = false;
    switch (evento->type()) {
    case QEvent::FocusIn: ui::Protegido(QStringLiteral("FechaTextBox"), [this] { GotFocus(); }); break;
    case QEvent::FocusOut: ui::Protegido(QStringLiteral("FechaTextBox"), [this] { LostFocus(); }); break;
    case QEvent::KeyPress: {
        const int tecla = CodigoTecla(*static_cast<QKeyEvent*>(evento));
        ui::Protegido(QStringLiteral("FechaTextBox"), [&] { tragada = KeyPress(tecla); });
        break;
    }
    default: break;
    }
    return tragada;
}

}  // namespace controles
