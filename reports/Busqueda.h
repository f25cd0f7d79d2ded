#pragma once
// "Consultas": the titles of the requests or of the donations found by part of their title, part of their
// author or one of their accession numbers; a double click on a result shows its details.
#include <QDialog>
#include <array>

class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
namespace controles {
class ComboBox;
class ListView;
}

class Busqueda : public QDialog {
    Q_OBJECT
public:
    explicit Busqueda(QWidget* padre = nullptr);
    ~Busqueda() override;

    QLineEdit* Text1;                           // "Expresión"
    controles::ComboBox* Combo1;                // "Ubicar en"
    std::array<QRadioButton*, 2> Option1{};     // "Solicitados", "Donados"
    QPushButton* Command2;                      // "Buscar"
    QPushButton* Command1;                      // "Regresar"
    QGroupBox* Frame2;                          // its caption gives the count
    controles::ListView* ListView1;             // the titles found

    void Form_Load();
    void Text1_Change();
    void Command2_Click();           // Buscar
    void Command1_Click();           // Regresar
    void ListView1_DblClick();
    void ListView1_ColumnClick(int indiceEncabezado);

private:
    void PonResultados(int n);
};
