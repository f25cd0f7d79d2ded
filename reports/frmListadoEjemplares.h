#pragma once
// "Listado de ejemplares adquiridos": copies found by part of their accession number or by request or
// donation number (one or a range), over requests, donations or both, optionally of one library. From the list
// a copy's title or its request or donation is opened, and the list is printed as an HTML report.
#include "reports/ReporteLista.h"

#include <QDialog>
#include <memory>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QWidget;
namespace controles {
class ComboBox;
class ListView;
}  // namespace controles
namespace ui { class VistaHtml; }

class frmListadoEjemplares : public QDialog {
    Q_OBJECT
public:
    explicit frmListadoEjemplares(QWidget* padre = nullptr);
    ~frmListadoEjemplares() override;

    QLineEdit* txtBuscar;                       // "Expresión "
    QPushButton* cmdBuscar;                     // "&Buscar", then "Nueva &búsqueda"
    QCheckBox* chkAvanzadas;                    // "Usar opciones avanzadas de búsqueda"
    QWidget* picInfo;                           // the help text, while the options are hidden
    QGroupBox* frameNumSol;                     // the options: what the expression is and where to look
    QRadioButton* Option1;                      // "Números de adquisición"
    QRadioButton* Option2;                      // "Solicitud o rangos de solicitudes / donaciones"
    QLabel* ejemRango;                          // the hint of a range, with Option2
    QGroupBox* frameSolDon;
    QRadioButton* OptAmbas;                     // "Solicitudes y donaciones"
    QRadioButton* OptSol;                       // "Únicamente solicitudes"
    QRadioButton* OptDon;                       // "Únicamente donaciones"
    QCheckBox* Check1;                          // "Solo de la biblioteca"
    controles::ComboBox* cboBiblio;
    QGroupBox* Frame2;                          // its caption gives the count
    controles::ListView* ListView1;
    QPushButton* cmdDetalleNA;                  // "&Detalles ejemplares"
    QPushButton* cmdVerFicha;                   // "&Mostrar solicitud"
    QPushButton* cmdImprimir;                   // "Generar &reporte", then "Imprimir"
    QPushButton* cmdGrabar;                     // "&Guardar"
    QPushButton* cmdRegresar;                   // "&Cancelar"
    QGroupBox* picContenedor;                   // " Vista previa del reporte"
    std::unique_ptr<ui::VistaHtml> WebBrowser1;

    // The report last generated; empty until one is.
    QString DocumentoHtml;
    // The library of the filter; 0 for none.
    int BibliotecaElegida = 0;

    void Form_Load();
    // Selects the first row whose text (the title's key) is `clave` and brings it into view.
    void SeleccionaItem(const QString& clave);
    void GeneraReporteHTML();

    void txtBuscar_Change();
    void chkAvanzadas_Click();
    void Option1_Click();
    void Option2_Click();
    void Check1_Click();
    void cboBiblio_Click();
    void cmdBuscar_Click();
    void cmdDetalleNA_Click();
    void cmdVerFicha_Click();
    void cmdImprimir_Click();
    void cmdGrabar_Click();
    void cmdRegresar_Click();
    void ListView1_ColumnClick(int indiceEncabezado);

private:
    // The list and buttons after a search that found nothing.
    void SinEjemplares();
    // The selected row; error 91 when none is.
    const controles::ListItem& FilaSeleccionada() const;
    std::unique_ptr<reportes::ReporteDeLista> Reporte;
};
