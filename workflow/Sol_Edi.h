#pragma once
// "Captura de solicitud": the head of one purchase request (date, requester, school, library and funding
// source), new or changed. A new request goes on to its titles once saved.
#include "core/controles/FechaTextBox.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class Form2;
class Sol1;
namespace controles { class ComboBox; }

class Sol_Edi : public QDialog {
    Q_OBJECT
public:
    explicit Sol_Edi(QWidget* padre = nullptr);
    ~Sol_Edi() override;

    QLabel* Label6;                             // number of the request
    QLineEdit* Text2;                           // date
    QLineEdit* Text3;                           // requester
    QLineEdit* Text4;                           // school number
    controles::ComboBox* Combo1;                // schools
    QPushButton* Command2;                      // catalog of schools
    QLineEdit* Text5;                           // library number
    controles::ComboBox* Combo2;                // libraries
    QPushButton* Command4;                      // catalog of libraries
    QLineEdit* txtIdFinanciamiento;
    controles::ComboBox* cboFinanciamiento;
    QLabel* lblFinanciamiento;                  // "Financiamiento"
    QLabel* lblWarning;
    QPushButton* Command1;                      // "&Grabar"
    QPushButton* Command3;                      // "&Regresar"

    controles::FechaTextBox Fecha;
    // The list that opened this screen, refreshed after a change; may be null.
    Sol1* Lista = nullptr;
    // The titles screen below this one when the head is edited from there; may be null.
    Form2* Titulos = nullptr;

    void Form_Load();
    void Form_Activate();
    void Combo1_Click();
    void Combo1_Change();
    void Combo2_Click();
    void cboFinanciamiento_Click();
    void Text4_Change();
    void Text5_Change();
    void txtIdFinanciamiento_Change();
    void Command1_Click();           // Grabar
    void Command2_Click();           // catalog of schools
    void Command3_Click();           // Regresar
    void Command4_Click();           // catalog of libraries

protected:
    void showEvent(QShowEvent* e) override;

private:
    void LlenaFinanciamiento(const QString& noEscuela, const QString& orden);
    void MuestraFinanciamiento(bool visible);
    // The save itself; `linea` tells the step reached, for the box of a failure.
    void Grabar(int& linea);
};
