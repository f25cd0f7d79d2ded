#pragma once
// "Importacion de Solicitudes - KORVEL8", the title editor of the import: one title of the list, new or the
// one selected, with its publisher chosen from Editoriales. Saving writes it back into the list only.
#include <QDialog>

class FrmImportaSolicitud;
class QLabel;
class QLineEdit;
class QPushButton;
namespace controles { class ComboBox; }

class FrmImportaSolicitud_1 : public QDialog {
    Q_OBJECT
public:
    explicit FrmImportaSolicitud_1(QWidget* padre = nullptr);
    ~FrmImportaSolicitud_1() override;

    QLineEdit* TxtTitulo;
    QLineEdit* TxtAutor;
    QLineEdit* TxtEditorial;             // the publisher's number; digits only
    controles::ComboBox* Combo1;         // publishers
    QPushButton* BtnCatalogo;            // the catalog of publishers
    QLineEdit* TxtISBN;
    QLineEdit* TxtEdicion;               // digits only
    QLineEdit* TxtEjemplar;              // digits only
    QLabel* LblEstadoLibro;              // "Solicitado"
    QLabel* EtNoReconocida;              // the publisher the document named, when Editoriales doesn't know it
    QPushButton* BtnGrabar;              // "&Grabar"
    QPushButton* BtnRegresar;            // "&Regresar"

    // The import screen whose list is written.
    FrmImportaSolicitud* Importacion = nullptr;
    // A new list item, or the one selected.
    bool Nuevo = true;

    void Form_Load();
    void TxtEditorial_Change();
    void Combo1_Click();
    void BtnCatalogo_Click();
    void BtnGrabar_Click();
    void BtnRegresar_Click();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
};
