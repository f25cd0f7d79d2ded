#pragma once
// "Reporte de Gastos por Fuente de Financiamiento": what was paid from a funding source within a period, row
// by row with the balance left after each payment, and the same as an HTML page to print. With the session
// flag ReporteGastosPorEscuela the one screen reports the invoices charged to one school's project instead.
// The opening balance of the period is the sum of the ledger rows dated before it.
#include "core/controles/FechaTextBox.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Currency.h"

#include <QDialog>
#include <memory>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;
namespace controles {
class ComboBox;
class ListView;
}  // namespace controles

class frmReporteGastosFuente : public QDialog {
    Q_OBJECT
public:
    explicit frmReporteGastosFuente(QWidget* padre = nullptr);
    ~frmReporteGastosFuente() override;

    QGroupBox* frameDatos;
    controles::ComboBox* cboEscuela;
    QLabel* lblEscuela;                         // "Escuela / proyecto"
    controles::ComboBox* cboFuenteFinanciamiento;
    QLineEdit* txtFechaInicial;
    QLineEdit* txtFechaFinal;
    QPushButton* cmdGenerar;
    controles::ListView* ListView1;
    QLabel* lblPresupuesto;
    QLabel* lblSaldoAnterior;
    QLabel* lblSaldoFinal;
    QLabel* lblTotalMonto;
    QWidget* picBrowser;                        // holds the page view; shown in place of frameDatos
    std::unique_ptr<ui::VistaHtml> WebBrowser1;
    QPushButton* cmdImprimir;
    QPushButton* cmdDesgloce;
    QPushButton* cmdRegresar;

    // The amounts of the last report generated.
    vb::Currency Presupuesto;
    vb::Currency SaldoCorriente;
    vb::Currency SaldoAnterior;

    void Form_Load();
    void cboFuenteFinanciamiento_Click();
    void txtFechaInicial_Change();
    void txtFechaFinal_Change();
    void txtFechaFinal_GotFocus();
    void cmdGenerar_Click();
    void ListView1_Click();
    void cmdDesgloce_Click();
    void cmdImprimir_Click();
    void cmdRegresar_Click();

    // Writes the report of the list as it stands into WebBrowser1.
    void GenerarReporteHTML();

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void HabilitaGenerar();
    // Opens the invoice breakdown of the payment in hand, modally.
    void AbreDesglose();

    bool porEscuela_ = false;
    controles::FechaTextBox fechaInicial_;
    controles::FechaTextBox fechaFinal_;
};
