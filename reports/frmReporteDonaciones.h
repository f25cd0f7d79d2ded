#pragma once
// "Reporte de donaciones por institución": the donations of a period with the number of titles and copies of
// each, by donor and destination library, optionally of one institution and one library; a donation is
// opened from the list, and the list is printed as an HTML report.
#include "core/controles/FechaTextBox.h"
#include "core/vb/Fecha.h"
#include "reports/ReporteLista.h"

#include <QDialog>
#include <memory>

class QGroupBox;
class QLineEdit;
class QPushButton;
namespace controles {
class ComboBox;
class ListItem;
class ListView;
}  // namespace controles
namespace ui { class VistaHtml; }

class frmReporteDonaciones : public QDialog {
    Q_OBJECT
public:
    explicit frmReporteDonaciones(QWidget* padre = nullptr);
    ~frmReporteDonaciones() override;

    QLineEdit* txtFecha1;                       // "Fecha inicial:"
    QLineEdit* txtFecha2;                       // "Fecha final:"
    controles::ComboBox* cboDonadora;           // "Institución donadora:"
    controles::ComboBox* cboBiblio;             // "Biblioteca destino:"
    controles::ComboBox* cboOrdenar;            // "Ordenar por:"; ItemData the result's column
    QPushButton* cmdBuscar;                     // "&Buscar", then "Nueva &búsqueda"
    QGroupBox* Frame2;                          // its caption gives the count
    controles::ListView* ListView1;
    QPushButton* cmdVerFicha;                   // "&Mostrar donación"
    QPushButton* cmdImprimir;                   // "Generar &reporte", then "Imprimir"
    QPushButton* cmdGrabar;                     // "&Guardar"
    QPushButton* cmdRegresar;                   // "&Cancelar"
    QGroupBox* picContenedor;                   // " Vista previa del reporte"
    std::unique_ptr<ui::VistaHtml> WebBrowser1;

    // The report last generated; empty until one is.
    QString DocumentoHtml;
    // The filters; 0 for all.
    int BibliotecaElegida = 0;
    int DonadoraElegida = 0;
    controles::FechaTextBox Fecha1;
    controles::FechaTextBox Fecha2;

    void Form_Load();
    // Selects the first row of the donation `clave` (as the list shows its number) and brings it into view.
    void SeleccionaItem(const QString& clave);
    void GeneraReporteHTML();

    void txtFecha1_Change();
    void txtFecha2_Change();
    void cboBiblio_Click();
    void cboDonadora_Click();
    void cmdBuscar_Click();
    void cmdVerFicha_Click();
    void cmdImprimir_Click();
    void cmdGrabar_Click();
    void cmdRegresar_Click();
    void ListView1_ColumnClick(int indiceEncabezado);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void HabilitaBuscar();
    std::unique_ptr<reportes::ReporteDeLista> Reporte;
    // The period of the last search, for the report.
    vb::Fecha desde_, hasta_;
};
