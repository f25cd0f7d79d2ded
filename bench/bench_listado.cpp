// The copy listing on the large collection of coleccion_banco.h (100,000 requested titles, 20,000 donated
// ones, 250,000 accession numbers): the copies of one series of numbers, 5,000 over requests and donations,
// found and filled into the list; then their report page made and shown until the preview is painted.
#include "coleccion_banco.h"
#include "core/controles/ListView.h"
#include "core/ui/Ficha.h"
#include "plataforma_banco.h"
#include "reports/ReporteLista.h"
#include "reports/frmListadoEjemplares.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <benchmark/benchmark.h>

namespace {

const QString serie = QStringLiteral("2012-");

// The screen with its search for one series over both sides, by accession number.
struct Listado {
    PlataformaBanco& plataforma;
    frmListadoEjemplares pantalla;
    Listado() : plataforma(InstalaPlataformaBanco()) {
        banco::Coleccion();
        // The report's style sheet, as installed beside the program.
        plataforma.rutaPrograma = QStringLiteral(ADQ_SOURCE_DIR);
        pantalla.Form_Load();
        pantalla.txtBuscar->setText(serie);
        pantalla.Option1->setChecked(true);
        pantalla.OptAmbas->setChecked(true);
    }
    bool Completo() const { return pantalla.ListView1->ListItems().Count() == banco::PorSerie && plataforma.cajas == 0; }
};

void BM_ListadoAmbosLados(benchmark::State& state) {
    Listado l;
    for (auto _ : state) {
        l.pantalla.cmdBuscar_Click();
        if (!l.Completo()) state.SkipWithError("la búsqueda no halló la serie entera");
    }
}
BENCHMARK(BM_ListadoAmbosLados)->Unit(benchmark::kMillisecond);

// "Generar reporte" on the list found: the page made, written into the preview, and the screen shown until
// the preview is painted (the view lays the page out only when it shows it).
void BM_ReporteDelListado(benchmark::State& state) {
    Listado l;
    l.pantalla.cmdBuscar_Click();
    if (!l.Completo()) state.SkipWithError("la búsqueda no halló la serie entera");
    l.pantalla.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        l.pantalla.cmdImprimir_Click();
        QCoreApplication::processEvents();
        if (auto* vista = qobject_cast<QAbstractScrollArea*>(l.pantalla.WebBrowser1->widget())) vista->viewport()->repaint();
        state.PauseTiming();
        if (l.pantalla.picContenedor->isHidden() || !l.pantalla.DocumentoHtml.contains(QStringLiteral("Total: 5000 ejemplar(es)")))
            state.SkipWithError("el reporte no se mostró");
        // Back to the state after a search, for the next round.
        l.pantalla.cmdImprimir->setText(QStringLiteral("Generar &reporte"));
        l.pantalla.picContenedor->hide();
        l.pantalla.DocumentoHtml.clear();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_ReporteDelListado)->Unit(benchmark::kMillisecond);

// The same until the whole page is in the preview, as the view puts its blocks in while the analyst reads the
// first: what printing would wait for.
void BM_ReporteEnteroEnLaVista(benchmark::State& state) {
    Listado l;
    l.pantalla.cmdBuscar_Click();
    l.pantalla.show();
    for (auto _ : state) {
        l.pantalla.cmdImprimir_Click();
        if (!ui::EsperaVista(*l.pantalla.WebBrowser1, 1000000)) state.SkipWithError("la vista no terminó la página");
        state.PauseTiming();
        l.pantalla.cmdImprimir->setText(QStringLiteral("Generar &reporte"));
        l.pantalla.DocumentoHtml.clear();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_ReporteEnteroEnLaVista)->Unit(benchmark::kMillisecond);

// The page alone, made from the list.
void BM_SoloPagina(benchmark::State& state) {
    Listado l;
    l.pantalla.cmdBuscar_Click();
    for (auto _ : state) {
        const QString html = reportes::PaginaDeLista(QStringLiteral("Reporte"), QString(), *l.pantalla.ListView1, {});
        benchmark::DoNotOptimize(html.size());
    }
}
BENCHMARK(BM_SoloPagina)->Unit(benchmark::kMillisecond);

}  // namespace
