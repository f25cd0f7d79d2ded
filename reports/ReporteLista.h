#pragma once
// The report of a list screen (the copy listing, the donations by institution): the list as it stands made
// into a page under a title and a line of totals, with the department's footer and the report style
// "xsls\korvel8v324.css"; shown in a preview, printed and saved as HTML.
#include <QString>
#include <functional>
#include <memory>
#include <vector>

class QGroupBox;
class QPushButton;
class QWidget;
namespace controles {
class ListItem;
class ListView;
}  // namespace controles
namespace ui { class VistaHtml; }

namespace reportes {

// How the cells of a column are written in the page.
enum class Celda {
    Texto,      // as the list shows it
    Numero,     // on the right
    Fecha,      // the list's "yyyy/mm/dd" as "dd/mmm/yyyy"
};

struct ColumnaReporte {
    Celda formato = Celda::Texto;
    // The name of a coded value, from the row it stands in; empty leaves the value as it is.
    std::function<QString(const controles::ListItem& fila, const QString& valor)> nombre;
};

// The whole of the report style beside the program; empty when it can't be read, which leaves the report
// unstyled.
QString EstiloListados();

// The page: `titulo` as the document's title and heading, `resumen` on the right above the table, then one
// head cell per column of the list and one row per row, and the footer with the moment it was made. Columns
// hidden on screen (width 0) are left out; `columnas` says how each list column (from 1) is written, and a
// column it doesn't reach is text.
QString PaginaDeLista(const QString& titulo, const QString& resumen, controles::ListView& lista,
                      const std::vector<ColumnaReporte>& columnas);

// The preview of a list screen's report: a frame " Vista previa del reporte" over `pantalla` holding the
// document view it makes in `vista`, hidden until a report is shown.
QGroupBox* CreaVistaPrevia(QWidget* pantalla, std::unique_ptr<ui::VistaHtml>& vista);

// Selects the first row of the list whose column `columna` (1 its text, as ColumnHeaders counts) is `valor`,
// and brings it into view; without one, nothing changes.
void SeleccionaFila(controles::ListView& lista, int columna, const QString& valor);

// Loads an empty page into the view, waits for it at most `vueltas` turns, and writes `html`.
void MuestraPagina(ui::VistaHtml& vista, const QString& html, long vueltas = 50000);

// The buttons and preview of a list screen's report. "Generar reporte" makes the page if there is none,
// shows the preview and becomes "Imprimir", which prints across the page; "Guardar" saves the page as an HTML
// file. The page
// itself is the screen's: `documento` is its text, `genera` makes it.
class ReporteDeLista {
public:
    ReporteDeLista(QWidget* pantalla, QPushButton* imprimir, QPushButton* grabar, QWidget* contenedor,
                   ui::VistaHtml* vista, QString& documento, std::function<void()> genera);

    void Imprimir();     // cmdImprimir
    void Grabar();       // cmdGrabar
    // A new search: the button back to "Generar &reporte", the preview hidden, the last page dropped.
    void Descarta();

private:
    void Asegura();
    QWidget* pantalla_;
    QPushButton* imprimir_;
    QPushButton* grabar_;
    QWidget* contenedor_;
    ui::VistaHtml* vista_;
    QString& documento_;
    std::function<void()> genera_;
};

}  // namespace reportes
