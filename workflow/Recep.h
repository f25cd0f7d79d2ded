#pragma once
// "Recepción de material adquirido": the orders awaiting reception (or those already received), from which
// one order is opened to register what arrived.
#include <QDialog>
#include <array>

class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
namespace controles {
class ListView;
class TimerReacomodo;
}

class Recep : public QDialog {
    Q_OBJECT
public:
    explicit Recep(QWidget* padre = nullptr);
    ~Recep() override;

    controles::ListView* ListView1;             // the orders
    std::array<QRadioButton*, 2> Option1{};     // pending orders (the default), orders already processed
    QGroupBox* Frame2;                          // its caption gives the count
    QPushButton* Command1;                      // "Registrar"
    QPushButton* Command2;                      // "Regresar"
    QLabel* Label1;                             // the note
    QLabel* Label2;                             // the heading
    controles::TimerReacomodo* Timer1;

    void Form_Load();
    void Form_Activate();
    void Refresca();
    void ReacomodaTodo();
    void Option1_Click(int Index);
    void ListView1_ColumnClick(int indiceEncabezado);
    void Command1_Click();           // Registrar
    void Command2_Click();           // Regresar

protected:
    bool event(QEvent* e) override;

private:
    void Registrar();
};
