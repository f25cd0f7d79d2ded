#include "core/controles/TimerReacomodo.h"

#include "core/ui/Plataforma.h"

#include <QEvent>
#include <QWidget>

namespace controles {

TimerReacomodo::TimerReacomodo(QObject* padre, std::function<void()> reacomoda, int intervaloMs)
    : QTimer(padre), reacomoda_(std::move(reacomoda)) {
    setObjectName(QStringLiteral("Timer1"));
    setInterval(intervaloMs);
    setSingleShot(false);
    connect(this, &QTimer::timeout, this, &TimerReacomodo::Timer);
}

void TimerReacomodo::Enabled(bool habilitado) {
    if (habilitado)
        start();
    else
        stop();
}

void TimerReacomodo::Timer() {
    stop();
    if (reacomoda_) ui::Protegido(QStringLiteral("Timer1"), reacomoda_);
}

void TimerReacomodo::VigilaRedimension(QWidget* forma) {
    if (forma_) forma_->removeEventFilter(this);
    forma_ = forma;
    if (forma) forma->installEventFilter(this);
}

bool TimerReacomodo::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == forma_ && evento->type() == QEvent::Resize) Enabled(true);
    return QTimer::eventFilter(objeto, evento);
}

}  // namespace controles
