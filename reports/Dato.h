#pragma once
// "Detalles del material seleccionado": the head of the request or donation that owns the title in hand
// (globales::NavTabla, NavCampo, NavValor) and the accession numbers of its copies.
#include <QDialog>

class QLabel;
class QPushButton;

class Dato : public QDialog {
    Q_OBJECT
public:
    explicit Dato(QWidget* padre = nullptr);
    ~Dato() override;

    QLabel* Label1;                  // the details
    QPushButton* Command1;           // "Cerrar"

    void Form_Load();
    void Command1_Click();           // Cerrar
};
