// The holdings search on the large collection of coleccion_banco.h: 100,000 requested titles, 20,000 donated
// ones and 250,000 accession numbers. A search by part of a title reads every title and fills about a
// thousand rows into the list; a search by accession number goes through its index.
#include "coleccion_banco.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "plataforma_banco.h"
#include "reports/Busqueda.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <benchmark/benchmark.h>

namespace {

using banco::Donados;
using banco::Solicitados;

void Busca(benchmark::State& state, const QString& texto, const QString& ubicar, bool donados, int esperados) {
    banco::Coleccion();
    PlataformaBanco& p = InstalaPlataformaBanco();
    Busqueda b;
    b.Form_Load();
    b.Text1->setText(texto);
    b.Combo1->setText(ubicar);
    b.Option1[donados ? 1 : 0]->setChecked(true);
    for (auto _ : state) {
        b.Command2_Click();
        if (b.ListView1->ListItems().Count() != esperados) state.SkipWithError("la búsqueda no halló lo esperado");
    }
    if (p.cajas != 0) state.SkipWithError("una caja detuvo la búsqueda");
}

// About a thousand requested titles of one subject, out of 100,000.
void BM_TituloSolicitado(benchmark::State& state) {
    Busca(state, QStringLiteral("materia 37,"), QStringLiteral("Título"), false, Solicitados / 100);
}
BENCHMARK(BM_TituloSolicitado)->Unit(benchmark::kMillisecond);

void BM_TituloDonado(benchmark::State& state) {
    Busca(state, QStringLiteral("materia 37,"), QStringLiteral("Título"), true, Donados / 100);
}
BENCHMARK(BM_TituloDonado)->Unit(benchmark::kMillisecond);

void BM_NumeroDeAdquisicion(benchmark::State& state) {
    Busca(state, banco::NumeroDeAdquisicion(123455), QStringLiteral("No. Adquisición"), false, 1);
}
BENCHMARK(BM_NumeroDeAdquisicion)->Unit(benchmark::kMillisecond);

}  // namespace
