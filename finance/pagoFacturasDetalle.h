#pragma once
// "Desgloce de pago de facturas": the invoices of one payment request, each charged to a project of the
// request's source and perhaps tied to a purchase request. The window has two faces, the list and the
// capture of one invoice. Whenever it unloads it writes the sum of its invoices into the request.
#include "core/controles/CapturaTextBox.h"
#include "core/vb/Currency.h"

#include <QDialog>
#include <array>

class QEvent;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
namespace controles {
class ComboBox;
class ListItem;
class ListView;
}  // namespace controles

class pagoFacturasDetalle : public QDialog {
    Q_OBJECT
public:
    explicit pagoFacturasDetalle(QWidget* padre = nullptr);
    // Unloads the form if nobody did: a form loaded and never shown writes its sum too.
    ~pagoFacturasDetalle() override;

    QGroupBox* frameLista;                      // caption "<n> facturas"
    controles::ListView* ListView1;
    QLabel* lblMontoFacturas;
    QLabel* lblEstado;                          // shown for a settled request
    QPushButton* cmdNuevaFactura;
    QPushButton* cmdModificarFactura;
    QPushButton* cmdBorrarFactura;
    QPushButton* cmdRegresar;
    QGroupBox* frameCaptura;                    // "Datos de la factura por pagar:"
    controles::ComboBox* cboProyectos;          // the projects of the request's source; ItemData the school
    QLineEdit* txtNumFactura;
    QLineEdit* txtMontoFactura;
    QLineEdit* txtIDS;                          // the purchase request the invoice belongs to
    QPushButton* cmdValidarIDS;
    QLabel* lblNotaIDS;
    QLabel* lblMessage;
    QPushButton* cmdGrabarFactura;
    QPushButton* cmdCancelarFactura;

    // The sum of the invoices in the list.
    vb::Currency Total() const { return total_; }
    int Indice() const { return indice_; }

    void Form_Load();
    void Form_Activate();
    void Form_Unload();
    // Refills the list and the total; the number of the first row, 0 when it is empty.
    long RefrescaListView();
    // Writes the sum of the invoices into the request.
    void ActualizarMontosdePagos();

    void ListView1_ItemClick(controles::ListItem* item);
    void ListView1_ColumnClick(int indiceEncabezado);
    void cmdNuevaFactura_Click();
    void cmdModificarFactura_Click();
    void cmdBorrarFactura_Click();
    void cmdRegresar_Click();
    void txtIDS_Change();
    void cmdValidarIDS_Click();
    void txtMontoFactura_Change();
    void txtNumFactura_Change();
    void cmdGrabarFactura_Click();
    void cmdCancelarFactura_Click();

protected:
    void showEvent(QShowEvent* e) override;
    void closeEvent(QCloseEvent* e) override;
    void reject() override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    // Runs Form_Unload the first time only.
    void Descarga();
    void MuestraCaptura(bool captura);
    // The key of the invoice in hand: the selected row's number.
    QString FacturaSeleccionada() const;
    QString ClavePago() const;
    void PonMensaje(const QString& texto, long color);

    std::array<controles::CapturaTextBox, 2> captura_;
    int indice_ = 0;
    qint32 idEscuela_ = 0;
    vb::Currency total_;
    bool descargado_ = false;
};
