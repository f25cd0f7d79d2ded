#pragma once
// "Saldar las facturas del pago <clave>": turns the payment request in hand into money spent, and back.
// Paying checks each project's invoices against what the project has left, lowers the balances of the
// projects and of the source, writes the ledger rows and marks the request paid; undoing returns the
// balances and marks it requested again. The request comes in the payment globals set by the opener.
#include "core/controles/FechaTextBox.h"

#include <QDialog>
#include <QString>

class QLabel;
class QLineEdit;
class QPushButton;
class QTextEdit;

class pagoFacturasSaldar : public QDialog {
    Q_OBJECT
public:
    explicit pagoFacturasSaldar(QWidget* padre = nullptr);
    ~pagoFacturasSaldar() override;

    QLineEdit* txtFechaPago;
    QTextEdit* txtObservaciones;
    QLabel* lblMonto;            // the request's amount, "Total a pagar"
    QLabel* lblEstado;           // shown for a paid request
    QLabel* lblSinPago;          // shown for one not yet paid
    QPushButton* cmdCargarPago;
    QPushButton* cmdDeshacerPago;
    QPushButton* cmdRegresar;

    // The opener calls it before showing the form.
    void Form_Load();
    void cmdCargarPago_Click();
    void cmdDeshacerPago_Click();
    void cmdRegresar_Click();

private:
    controles::FechaTextBox fechaPago_;
};
