#pragma once
// "Recepción de libros": the reception of one title: date, copies received, cost, invoice, and the
// accession number of each copy. Opened from an order, or from the copy listing.
#include "core/controles/FechaTextBox.h"
#include "core/ui/Plataforma.h"

#include <QDialog>
#include <memory>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class Recep_Generales;

class Recep_Libros : public QDialog {
    Q_OBJECT
public:
    explicit Recep_Libros(QWidget* padre = nullptr);
    ~Recep_Libros() override;

    std::unique_ptr<ui::VistaHtml> Web;         // the title's data
    QLineEdit* Text2;                           // date of reception
    QLineEdit* Text3;                           // copies received
    QLineEdit* Text4;                           // cost
    QLineEdit* Text5;                           // invoice
    QLineEdit* Text6;                           // the accession number to add
    QListWidget* List1;                         // the title's accession numbers
    QPushButton* Command4;                      // "&Agregar"
    QPushButton* Command5;                      // "&Borrar "
    QLabel* lblInfoNumAdq;                      // when the selected number was entered
    QPushButton* Command3;                      // "&Regresar"
    QPushButton* Command1;                      // "&Modificar": never enabled
    QPushButton* Command2;                      // "Borrar &todos": never enabled

    // The trimmed content of Text3 before the last key typed in it.
    QString ValorAnterior;
    // The date of entry of each listed number, from position 1; position 0 is not used.
    std::vector<QString> FechasEjemplar;
    controles::FechaTextBox Fecha;
    // The order screen below this one, refreshed on leaving; null when opened from the copy listing.
    Recep_Generales* Generales = nullptr;

    void Form_Load();
    // Reads the date of entry of the listed numbers into FechasEjemplar; the rows read.
    int CargarMetadataEjemplar();
    // Shows the date of entry of the number at list index `indice` (from 0), or hides the label.
    void MostrarMetadataEjemplar(int indice);

    void Text3_Change();
    // The key filters: true when the key is swallowed.
    bool Text3_KeyPress(int KeyAscii);
    bool Text4_KeyPress(int KeyAscii);
    void Text4_Change();
    void Text6_Change();
    void List1_Click();
    void Command4_Click();           // Agregar
    void Command5_Click();           // Borrar
    void Command3_Click();           // Regresar

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void HabilitaAgregar();
    void AgregaALista(const QString& numero);
    // The title's columns as the screen holds them, in state 'A'.
    QString ValoresPantalla() const;
    bool EscribeTitulo(const QString& valores);
    // Position `posicion` of FechasEjemplar; error 9 outside the array.
    QString& PosicionFecha(int posicion);
};
