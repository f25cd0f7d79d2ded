// The holdings search on a large collection: 100,000 requested titles, 20,000 donated ones and 250,000
// accession numbers. A search by part of a title reads every title and fills about a thousand rows into
// the list; a search by accession number goes through its index.
#include "core/Esquema.h"
#include "core/Globales.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "core/dao/Dao.h"
#include "plataforma_banco.h"
#include "reports/Busqueda.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

constexpr int Solicitados = 100000;
constexpr int Donados = 20000;
constexpr int Numeros = 250000;

struct BaseColeccion {
    QTemporaryDir dir;
    BaseColeccion() {
        auto db = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("KORVEL8.mdb")));
        esquema::CreaTablas(*db);
        auto ejecuta = [&db](const QString& sql) { db->Execute(sql, dao::dbFailOnError); };
        sqlite3_exec(db->sqlite(), "BEGIN", nullptr, nullptr, nullptr);
        for (int i = 1; i <= Solicitados; ++i)
            ejecuta(QStringLiteral("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, NoSolicitud, Estado, "
                                   "[Fecha de Recepcion]) VALUES (%1, 'Curso de materia %2, tomo %1', 'Autor número %3', "
                                   "%4, 'A', #2025/03/%5#)")
                        .arg(i).arg(i % 100).arg(i % 5000).arg(1 + i % 30000).arg(1 + i % 28));
        for (int i = 1; i <= Donados; ++i)
            ejecuta(QStringLiteral("INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, Autor, Edicion, NoDonacion) "
                                   "VALUES (%1, 'Obra donada de materia %2, tomo %1', 'Donante %3', 1, %4)")
                        .arg(i).arg(i % 100).arg(i % 700).arg(1 + i % 2000));
        // Two numbers in ten belong to donated titles.
        for (int i = 1; i <= Numeros; ++i) {
            const bool donado = i % 10 < 2;
            ejecuta(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) "
                                   "VALUES ('AQ%1', %2, '%3')")
                        .arg(i, 7, 10, QLatin1Char('0'))
                        .arg(donado ? 1 + i % Donados : 1 + i % Solicitados)
                        .arg(donado ? QLatin1Char('D') : QLatin1Char('S')));
        }
        sqlite3_exec(db->sqlite(), "COMMIT", nullptr, nullptr, nullptr);
        globales::BaseDatos = std::move(db);
    }
};

BaseColeccion& Coleccion() {
    static BaseColeccion base;
    return base;
}

void Busca(benchmark::State& state, const QString& texto, const QString& ubicar, bool donados, int esperados) {
    Coleccion();
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
    Busca(state, QStringLiteral("AQ0123455"), QStringLiteral("No. Adquisición"), false, 1);
}
BENCHMARK(BM_NumeroDeAdquisicion)->Unit(benchmark::kMillisecond);

}  // namespace
