#pragma once
// "Pedidos": the requests still in 'S' that have titles. The analyst marks rows (a row's small icon is its
// mark: 1 marked, 0 not) and processes them into an order on Ped1_Repor.
#include <QDialog>

class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;
namespace controles {
class ListView;
class TimerReacomodo;
}

class Ped1 : public QDialog {
    Q_OBJECT
public:
    explicit Ped1(QWidget* padre = nullptr);
    ~Ped1() override;

    QGroupBox* Frame2;                  // its caption gives the count
    controles::ListView* ListView1;
    QLabel* Label2;                     // "Se muestran solamente las solicitudes no procesadas"
    QCheckBox* Check1;                  // "Seleccionar todas las solicitudes"
    QPushButton* Command1;              // "&Procesar pedido"
    QPushButton* Command5;              // "&Regresar"
    controles::TimerReacomodo* Timer1;

    void Form_Load();
    // All rows to mark 1.
    void Marca();
    // All rows to mark 0.
    void Desmarca();
    // The rows whose mark is 1.
    int Contar();
    void ReacomodaTodo();

    void ListView1_Click();
    void ListView1_ColumnClick(int indiceEncabezado);
    void Check1_Click();
    void Command1_Click();              // Procesar pedido
    void Command5_Click();              // Regresar
};
