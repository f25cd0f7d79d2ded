#pragma once
// The timer of a list screen that defers its layout: every resize enables it, and when it fires it disables
// itself and lays the screen out once, so that a series of resize events costs one relayout.
#include <QTimer>
#include <functional>

class QWidget;

namespace controles {

class TimerReacomodo : public QTimer {
    Q_OBJECT
public:
    explicit TimerReacomodo(QObject* padre, std::function<void()> reacomoda = {}, int intervaloMs = 100);

    void Enabled(bool habilitado);           // Form_Resize: Enabled(true)
    bool Enabled() const { return isActive(); }
    void setReacomoda(std::function<void()> reacomoda) { reacomoda_ = std::move(reacomoda); }
    // Enables the timer on every resize of `forma`, as the form's Resize event does.
    void VigilaRedimension(QWidget* forma);
    // What the timer does when it fires: disable itself, then lay out (through the handler wrapper).
    void Timer();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    std::function<void()> reacomoda_;
    QObject* forma_ = nullptr;
};

}  // namespace controles
