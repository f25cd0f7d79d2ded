#pragma once
// "Agregar títulos a donación": one donated title with the accession numbers of its copies. The title's row is
// made by the first number added; each later number writes the fields again if they changed.
#include <QDialog>

class Don_Generales;
class QLineEdit;
class QListWidget;
class QPushButton;
namespace controles { class ComboBox; }

class Don_Libros : public QDialog {
    Q_OBJECT
public:
    explicit Don_Libros(QWidget* padre = nullptr);
    ~Don_Libros() override;

    QLineEdit* Text2;                           // title
    QLineEdit* Text5;                           // author
    controles::ComboBox* Combo1;                // publishers
    QLineEdit* Text4;                           // publisher's number
    QPushButton* Command2;                      // catalog of publishers
    QLineEdit* Text3;                           // copies
    QLineEdit* Text7;                           // edition
    QLineEdit* txtCosto;
    QLineEdit* Text8;                           // the accession number to add
    QListWidget* List1;                         // the title's accession numbers
    QPushButton* Command4;                      // "Agregar -->"
    QPushButton* Command5;                      // "<-- Borrar "
    QPushButton* Command1;                      // "&Guardar"
    QPushButton* Command3;                      // "&Regresar"

    // The title's fields were written by the last number added and not changed since.
    bool DatosGrabados = false;
    // The title's row exists.
    bool TituloCreado = false;
    // The trimmed content of Text3 before the last key typed in it.
    QString ValorAnterior;
    // The donation screen below this one, refreshed on leaving.
    Don_Generales* Generales = nullptr;

    void Form_Load();
    void CambioDeDatos();            // a change of Text2, Text5, Text7 or Text4
    void Text3_LostFocus();
    void Text4_Change();
    void Combo1_Click();
    void Text8_Change();
    void List1_Click();
    void Command2_Click();           // catalog of publishers
    void Command4_Click();           // Agregar -->
    void Command5_Click();           // <-- Borrar
    void Command1_Click();           // Guardar
    void Command3_Click();           // Regresar

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    bool EscribeTitulo();
    void Guardar();
    void CierraYRefresca(bool mirarListado);
};
