#pragma once
// "Captura de pagos de facturas": the general data of one payment request, new or changed. Its number is
// chosen here when the screen opens; its amount comes from the breakdown of its invoices and is only shown.
#include "core/controles/FechaTextBox.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
namespace controles { class ComboBox; }

class pagoFacturasGral : public QDialog {
    Q_OBJECT
public:
    explicit pagoFacturasGral(QWidget* padre = nullptr);
    ~pagoFacturasGral() override;

    QLineEdit* txtClave;                        // not captured
    QLineEdit* txtFechaSol;
    QLineEdit* txtFechaPago;
    controles::ComboBox* cboFinanciamiento;
    controles::ComboBox* cboProveedores;
    QLineEdit* txtIdProveedor;                  // digits only, in step with cboProveedores
    QPushButton* cmdBrowseProveedores;
    QPushButton* cmdBrowseFinanciamientos;      // sources have no catalog of their own: kept hidden
    QLineEdit* txtConcepto;
    QLineEdit* txtObservaciones;
    QLabel* lblMonto;
    QPushButton* cmdAceptar;
    QPushButton* cmdCancelar;

    void Form_Load();
    void txtIdProveedor_Change();
    void cboProveedores_Click();
    void cmdBrowseProveedores_Click();
    void cmdAceptar_Click();
    void cmdCancelar_Click();

private:
    void CargaPago();
    void Numera();

    controles::FechaTextBox fechaSol_;
    controles::FechaTextBox fechaPago_;
    // True while one of the two supplier controls writes the other.
    bool sincronizando_ = false;
};
