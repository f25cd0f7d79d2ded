#pragma once
// "Control de pago de facturas": the list of payment requests beside a small page with the chosen one. From
// here a request is captured or changed (pagoFacturasGral), deleted, broken down into invoices
// (pagoFacturasDetalle), settled and printed.
#include "core/ui/Plataforma.h"

#include <QDialog>
#include <memory>

class QEvent;
class QLabel;
class QPushButton;
class QRadioButton;
class pagoFacturasDetalle;
namespace controles {
class ListItem;
class ListView;
}  // namespace controles

class pagoFacturasMain : public QDialog {
    Q_OBJECT
public:
    explicit pagoFacturasMain(QWidget* padre = nullptr);
    ~pagoFacturasMain() override;

    controles::ListView* ListView1;
    std::unique_ptr<ui::VistaHtml> Web;         // the chosen request
    QLabel* lblTotal;
    QRadioButton* Option1;                      // "Mostrar todos"
    QRadioButton* Option2;                      // "Mostrar sólo pendientes de pago"
    QPushButton* cmdNuevoPago;
    QPushButton* cmdModificarPago;
    QPushButton* cmdBorrarPago;
    QPushButton* cmdDesglocePagos;
    QPushButton* cmdSaldarPago;
    QPushButton* cmdImprimirPago;
    QPushButton* cmdRegresar;

    // Refills the list; the number of its first row, 0 when it is empty.
    long RefrescaListView();
    // Writes the page of the row at `indice`; 0 writes the page of no request.
    void ActualizaDetalleBrowser(int indice);
    // The index of the row whose text is the number, 0 when there is none.
    int ObtenerIndiceListView(long id);
    // "Saldar" only for a request whose invoices add up to something.
    void ActivarBotonSaldar();

    // The row the form stands on and its number.
    int Indice() const { return indice_; }
    long IdPago() const { return idPago_; }

    void Form_Load();
    void Option1_Click();
    void Option2_Click();
    void ListView1_ItemClick(controles::ListItem* item);
    // A row chosen with the keys.
    void ListView1_KeyUp();
    void ListView1_ColumnClick(int indiceEncabezado);
    void cmdNuevoPago_Click();
    void cmdModificarPago_Click();
    void cmdBorrarPago_Click();
    void cmdDesglocePagos_Click();
    void cmdSaldarPago_Click();
    void cmdImprimirPago_Click();
    void cmdRegresar_Click();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void Opcion_Click();
    // Opens the capture of general data, new or change, and stands on the request saved.
    void AbreCaptura(bool modifica);
    // Selects the row at `indice` and makes it the form's.
    void Selecciona(int indice);
    // After a refresh: stands on IdPagoActual's row, or on the first when it has left the list.
    void Reselecciona();
    void AbreSaldar();
    void AbreImprimir(pagoFacturasDetalle& detalle);

    int indice_ = 0;
    long idPago_ = 0;
};
