// The import of a large request: a workbook of 5,000 titles turned into the request document, that document
// loaded into the import screen (each publisher looked up, the list filled), and the whole request written;
// and the opening of a binary workbook, whose reader runs in a child process.
#include "core/Esquema.h"
#include "core/Globales.h"
#include "core/controles/ListView.h"
#include "core/dao/Dao.h"
#include "exchange/FrmImportaSolicitud.h"
#include "exchange/HojaSolicitud.h"
#include "exchange/LectorXls.h"
#include "exchange/LectorXlsx.h"
#include "plataforma_banco.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <xlsxwriter.h>

namespace {

constexpr int Titulos = 5000;
constexpr int Editoriales = 200;

struct Escenario {
    QTemporaryDir dir;
    QString libro, documento;
    Escenario() {
        InstalaPlataformaBanco();
        globales::LoginAnalista = QStringLiteral("banco");
        auto db = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("KORVEL8.mdb")));
        esquema::CreaTablas(*db);
        db->Execute(QStringLiteral("INSERT INTO Bibliotecas ([No], Nombre) VALUES (1, 'Central')"));
        db->Execute(QStringLiteral("INSERT INTO Escuelas ([No], Nombre, NoBiblioteca) VALUES (3, 'Ingeniería', 1)"));
        for (int i = 1; i <= Editoriales; ++i)
            db->Execute(QStringLiteral("INSERT INTO Editoriales ([No], Nombre) VALUES (%1, 'Editorial número %1')").arg(i));
        globales::BaseDatos = std::move(db);

        libro = dir.filePath(QStringLiteral("Solicitud grande.xlsx"));
        lxw_workbook* l = workbook_new(libro.toLocal8Bit().constData());
        lxw_worksheet* h = workbook_add_worksheet(l, "Solicitud");
        lxw_format* fecha = workbook_add_format(l);
        format_set_num_format(fecha, "dd/mm/yyyy");
        lxw_datetime dia = {2024, 3, 15, 0, 0, 0};
        worksheet_write_datetime(h, 0, 1, &dia, fecha);
        worksheet_write_string(h, 1, 1, "Dra. Ana María Núñez", nullptr);
        worksheet_write_number(h, 2, 1, 3, nullptr);
        for (int i = 0; i < Titulos; ++i) {
            const lxw_row_t f = static_cast<lxw_row_t>(6 + i);
            worksheet_write_string(h, f, 0, QStringLiteral("Título de la obra %1").arg(i).toUtf8().constData(), nullptr);
            worksheet_write_string(h, f, 1, QStringLiteral("Autor %1").arg(i % 900).toUtf8().constData(), nullptr);
            worksheet_write_string(h, f, 2, QStringLiteral("Editorial número %1").arg(1 + i % Editoriales).toUtf8().constData(), nullptr);
            worksheet_write_number(h, f, 3, 1 + i % 4, nullptr);
            worksheet_write_number(h, f, 4, 1 + i % 6, nullptr);
            worksheet_write_string(h, f, 5, QStringLiteral("978-607-%1").arg(i, 5, 10, QLatin1Char('0')).toUtf8().constData(), nullptr);
        }
        workbook_close(l);
        documento = Convierte();
    }
    QString Convierte() const {
        intercambio::LectorXlsx hoja;
        hoja.Abre(libro);
        const QString salida = intercambio::ArchivoDeSalida(dir.path(), QStringLiteral("Solicitud grande.xlsx"));
        intercambio::GuardaDocumento(salida, intercambio::DocumentoDeHoja(hoja, libro));
        hoja.Cierra();
        return salida;
    }
};

Escenario& ElEscenario() {
    static Escenario e;
    return e;
}

void BM_ConvierteXlsx(benchmark::State& state) {
    Escenario& e = ElEscenario();
    for (auto _ : state) benchmark::DoNotOptimize(e.Convierte());
}
BENCHMARK(BM_ConvierteXlsx)->Unit(benchmark::kMillisecond);

void BM_CargaDocumento(benchmark::State& state) {
    Escenario& e = ElEscenario();
    for (auto _ : state) {
        FrmImportaSolicitud f;
        f.Form_Load();
        f.CargaDoc(e.documento);
        if (f.LstLibros->ListItems().Count() != Titulos) state.SkipWithError("the list is not whole");
    }
}
BENCHMARK(BM_CargaDocumento)->Unit(benchmark::kMillisecond);

void BM_GrabaSolicitud(benchmark::State& state) {
    Escenario& e = ElEscenario();
    PlataformaBanco& cajas = InstalaPlataformaBanco();
    for (auto _ : state) {
        state.PauseTiming();
        FrmImportaSolicitud f;
        f.Form_Load();
        f.CargaDoc(e.documento);
        cajas.cajas = 0;
        state.ResumeTiming();
        f.BtnGrabar_Click();
        if (cajas.cajas != 1) state.SkipWithError("the request was not written");
    }
}
BENCHMARK(BM_GrabaSolicitud)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_AbreXls(benchmark::State& state) {
    for (auto _ : state) {
        intercambio::LectorXls hoja;
        hoja.Abre(QStringLiteral(ADQ_SOURCE_DIR "/tests/exchange/solicitud.xls"));
        benchmark::DoNotOptimize(hoja.Celda(7, 1));
    }
}
BENCHMARK(BM_AbreXls)->Unit(benchmark::kMillisecond);

}  // namespace
