#pragma once
// "Cambiar fecha": sets the machine's date.
#include <QDialog>
#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;
namespace controles { class FechaTextBox; }

class frmFecha : public QDialog {
    Q_OBJECT
public:
    explicit frmFecha(QWidget* padre = nullptr);
    ~frmFecha() override;

    QLabel* Label1;         // "Nueva fecha:"
    QLineEdit* Text1;
    QLabel* Label2;         // the date in words
    QPushButton* Command1;  // "&Cambiar"
    QPushButton* Command2;  // "&Regresar"

    void Form_Load();
    void Text1_Change();
    void Command1_Click();
    void Command2_Click();

private:
    std::unique_ptr<controles::FechaTextBox> fechaTexto_;
};
