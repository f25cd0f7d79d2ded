#pragma once
// "Agregar libros a la solicitud": one title of a request, new or changed: title, author, edition,
// publisher, copies and ISBN.
#include <QDialog>

class Form2;
class QLabel;
class QLineEdit;
class QPushButton;
namespace controles { class ComboBox; }

class Sol_Libros : public QDialog {
    Q_OBJECT
public:
    explicit Sol_Libros(QWidget* padre = nullptr);
    ~Sol_Libros() override;

    QLineEdit* Text3;                           // title
    QLineEdit* Text4;                           // author
    QLineEdit* Text1;                           // edition
    QLineEdit* Text2;                           // publisher's number
    controles::ComboBox* Combo1;                // publishers
    QPushButton* Command2;                      // catalog of publishers
    QLineEdit* Text5;                           // copies
    QLineEdit* TxtISBN;
    QLabel* LblEstadoLibro;                     // the title's state in words
    QPushButton* Command1;                      // "&Grabar"
    QPushButton* Command3;                      // "&Regresar"

    // The titles screen that opened this one; its list and the request list are refreshed after a save.
    Form2* Titulos = nullptr;

    void Form_Load();
    void Combo1_Click();
    void Text2_Change();
    void Text5_LostFocus();
    void Command1_Click();           // Grabar
    void Command2_Click();           // catalog of publishers
    void Command3_Click();           // Regresar

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void DespuesDeGrabar();
};
