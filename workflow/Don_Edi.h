#pragma once
// "Agregar una donación": the head of one donation (date, kind, donor institution and destination library),
// new or changed. A new head goes on to its titles once saved.
#include "core/controles/FechaTextBox.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class Don1;
namespace controles { class ComboBox; }

class Don_Edi : public QDialog {
    Q_OBJECT
public:
    explicit Don_Edi(QWidget* padre = nullptr);
    ~Don_Edi() override;

    QLabel* Label6;                             // number of the donation
    QLineEdit* Text2;                           // date
    controles::ComboBox* Combo3;                // "Donación" or "Intercambio"; its first letter is stored
    controles::ComboBox* Combo1;                // donor institutions
    QLineEdit* Text4;                           // institution number
    QPushButton* Command2;                      // catalog of institutions
    controles::ComboBox* Combo2;                // destination libraries
    QLineEdit* Text5;                           // library number
    QPushButton* Command4;                      // catalog of libraries
    QPushButton* Command1;                      // "&Grabar"
    QPushButton* Command3;                      // "&Regresar"

    controles::FechaTextBox Fecha;
    // The list that opened this screen, refreshed after a save; may be null.
    Don1* Lista = nullptr;

    void Form_Load();
    void Nombres() {}
    void Datos() {}
    void Combo1_Click();
    void Combo2_Click();
    void Text4_Change();
    void Text5_Change();
    void Command1_Click();           // Grabar
    void Command2_Click();           // catalog of institutions
    void Command3_Click();           // Regresar
    void Command4_Click();           // catalog of libraries

private:
    void AbreGenerales();
};
