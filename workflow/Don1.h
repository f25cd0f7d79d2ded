#pragma once
// "Donaciones": the donation heads, newest first, with the buttons that create a head, open its titles,
// delete it and report the gifts by donor institution.
#include <QDialog>

class QGroupBox;
class QPushButton;
namespace controles {
class ListView;
class TimerReacomodo;
}

class Don1 : public QDialog {
    Q_OBJECT
public:
    explicit Don1(QWidget* padre = nullptr);
    ~Don1() override;

    controles::ListView* ListView1;
    QGroupBox* Frame2;                          // its caption gives the count
    QPushButton* Command1;                      // "&Nueva"
    QPushButton* Command2;                      // "&Editar"
    QPushButton* Command3;                      // "&Borrar"
    QPushButton* cmdReporte;                    // "Reporte por Institucion donadora"
    QPushButton* Command5;                      // "&Regresar"
    controles::TimerReacomodo* Timer1;

    void Form_Load();
    void Refrescar();
    // The page and titles of the donation in hand (NavValor, NavModo 2), over `padre`; with the list of
    // donations, deleting the donation there refreshes it and "Editar donación" opens its head here; without
    // it (from a report) the head opens over the page.
    static void MuestraGenerales(Don1* lista, QWidget* padre);
    void ReacomodaTodo();
    void ListView1_DblClick();
    void ListView1_ColumnClick(int indiceEncabezado);
    void Command1_Click();           // Nueva
    void Command2_Click();           // Editar: the titles of the donation
    void Command3_Click();           // Borrar
    void cmdReporte_Click();         // the donations by institution
    void Command5_Click();           // Regresar

private:
    // Fills the list; `habilita` turns the row buttons on when there are rows.
    void Llena(bool habilita);
    void AbreGenerales();
    // The head's screen over `padre`: a new head (NavModo 0) or the donation in hand's; `lista`, if any, is
    // refreshed by it.
    static void MuestraCabecera(Don1* lista, QWidget* padre);
};
