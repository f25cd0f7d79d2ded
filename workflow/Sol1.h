#pragma once
// "Control de solicitudes de libros": the list of purchase requests, newest first, with the buttons that
// create, edit, delete a request and open its titles.
#include <QDialog>
#include <array>

class QGroupBox;
class QPushButton;
class QRadioButton;
namespace controles {
class ListView;
class TimerReacomodo;
}

class Sol1 : public QDialog {
    Q_OBJECT
public:
    explicit Sol1(QWidget* padre = nullptr);
    ~Sol1() override;

    controles::ListView* ListView1;
    QGroupBox* Frame2;                          // its caption gives the count
    std::array<QRadioButton*, 2> Option1{};     // "Ver todas las Solicitudes", "Ignorar las solicitudes ya procesadas"
    QPushButton* Command1;                      // "&Nueva"
    QPushButton* Command2;                      // "&Editar"
    QPushButton* Command3;                      // "&Borrar"
    QPushButton* cmdAgregarTitulos;             // "&Captura / Edición  de títulos"
    QPushButton* BtnImportarSolicitud;          // "&Importar Solicitud"
    QPushButton* Command5;                      // "&Regresar"
    controles::TimerReacomodo* Timer1;

    void Form_Load();
    void Form_Activate();
    void Refrescar();
    void ReacomodaTodo();
    void Option1_Click(int Index);
    void ListView1_Click();
    void ListView1_DblClick();
    void ListView1_ColumnClick(int indiceEncabezado);
    void Command1_Click();           // Nueva
    void Command2_Click();           // Editar
    void Command3_Click();           // Borrar
    void cmdAgregarTitulos_Click();
    void BtnImportarSolicitud_Click();
    void Command5_Click();           // Regresar

protected:
    bool event(QEvent* e) override;

private:
    void HabilitaBotones(bool habilita);
    // The text of the selected row; error 91 when no row is selected.
    QString TextoSeleccionado() const;
};
