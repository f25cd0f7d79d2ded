// An exchange of 1,000 requests with 10,000 titles and 20,000 accession numbers: the export of the whole range
// into a new file (goal: under 3 s), and its import, row by row, into another installation (goal: under 10 s).
#include "core/Esquema.h"
#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "exchange/frmExportacion.h"
#include "exchange/frmImportar.h"
#include "plataforma_banco.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

constexpr int Solicitudes = 1000;
constexpr int TitulosPorSolicitud = 10;
constexpr int EjemplaresPorTitulo = 2;
constexpr long long FilasExportadas =
    Solicitudes + Solicitudes * TitulosPorSolicitud * (1 + EjemplaresPorTitulo) + 1;   // and the Metadata row

struct Instalaciones {
    QTemporaryDir dir;
    std::unique_ptr<dao::Database> origen;
    QString archivo;            // one export made once, for the import
    int exportaciones = 0;
    int importaciones = 0;

    Instalaciones() {
        origen = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("KORVEL8.mdb")));
        esquema::CreaTablas(*origen);
        auto ejecuta = [this](const QString& sql) { origen->Execute(sql, dao::dbFailOnError); };
        sqlite3_exec(origen->sqlite(), "BEGIN", nullptr, nullptr, nullptr);
        int clave = 0, numero = 0;
        for (int s = 1; s <= Solicitudes; ++s) {
            ejecuta(QStringLiteral("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, "
                                   "Estado, FechaPedido, IdCapturista) VALUES (%1, #2024/02/%2 09:30:00#, 'Solicitante %1', %3, "
                                   "1, 'R', #2024/03/01#, 'ana')")
                        .arg(s).arg(1 + s % 28).arg(1 + s % 40));
            for (int t = 0; t < TitulosPorSolicitud; ++t) {
                ++clave;
                ejecuta(QStringLiteral("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], "
                                       "NoEditorial, Edicion, [Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, "
                                       "Estado, NoSolicitud) VALUES (%1, 'Título número %1', 'Autor %2', 2, %3, 1, "
                                       "#2024/04/01 10:00:00#, 2, 349.9, 'F-%2', 'A', %4)")
                            .arg(clave).arg(clave % 700).arg(1 + clave % 90).arg(s));
                for (int e = 0; e < EjemplaresPorTitulo; ++e)
                    ejecuta(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] VALUES ('EX%1', %2, 'S', 'ana', "
                                           "#2024/04/02 11:00:00#, NULL)")
                                .arg(++numero, 7, 10, QLatin1Char('0'))
                                .arg(clave));
            }
        }
        sqlite3_exec(origen->sqlite(), "COMMIT", nullptr, nullptr, nullptr);
        globales::LoginAnalista = QStringLiteral("ana");
    }

    // The whole range exported into a new file of the folder.
    QString Exporta() {
        const QString ruta = dir.filePath(QStringLiteral("envío %1.exp").arg(++exportaciones));
        globales::BaseDatos = std::move(origen);
        frmExportacion f;
        f.Form_Load();
        f.txtInicio->setText(QStringLiteral("1"));
        f.txtFinal->setText(QString::number(Solicitudes));
        f.txtArchivo->setText(ruta);
        f.Command1_Click();
        origen = std::move(globales::BaseDatos);
        return f.TotalExportados == FilasExportadas ? ruta : QString();
    }
};

Instalaciones& Escenario() {
    static Instalaciones i;
    return i;
}

void BM_Exporta(benchmark::State& state) {
    Instalaciones& d = Escenario();
    PlataformaBanco& p = InstalaPlataformaBanco();
    const int cajas = p.cajas;
    for (auto _ : state)
        if (d.Exporta().isEmpty()) state.SkipWithError("la exportación no escribió todas las filas");
    if (p.cajas - cajas != state.iterations()) state.SkipWithError("una caja de más detuvo la exportación");
    state.counters["filas"] = static_cast<double>(FilasExportadas);
}
BENCHMARK(BM_Exporta)->Unit(benchmark::kMillisecond)->Iterations(3);

// Each import goes into a new installation that already has numbers of its own, so that every request and
// title is renumbered.
void BM_Importa(benchmark::State& state) {
    Instalaciones& d = Escenario();
    PlataformaBanco& p = InstalaPlataformaBanco();
    if (d.archivo.isEmpty()) d.archivo = d.Exporta();
    for (auto _ : state) {
        state.PauseTiming();
        const QString ruta = d.dir.filePath(QStringLiteral("destino%1.mdb").arg(++d.importaciones));
        auto destino = dao::Database::CreateDatabase(ruta);
        esquema::CreaTablas(*destino);
        destino->Execute(QStringLiteral("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha) VALUES (500, #2023/01/01#)"),
                         dao::dbFailOnError);
        destino->Execute(QStringLiteral("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, NoSolicitud) VALUES (7000, 'x', 500)"),
                         dao::dbFailOnError);
        globales::BaseDatos = std::move(destino);
        globales::LoginAnalista = QStringLiteral("luz");
        const int cajas = p.cajas;
        frmImportar f;
        f.Form_Load();
        f.Dialog1.archivo = d.archivo;
        f.txtArchivo->setText(d.archivo);
        f.txtInicio->setText(QStringLiteral("1"));
        f.txtFinal->setText(QString::number(Solicitudes));
        state.ResumeTiming();

        f.Command1_Click();

        state.PauseTiming();
        if (f.List1->count() != 0 || p.cajas != cajas + 1) state.SkipWithError("la importación rechazó números o se detuvo");
        auto rs = globales::Base().OpenRecordset(
            QStringLiteral("SELECT Count(*) FROM [Adquisiciones Numadqui] N INNER JOIN [Solicitudes Libros] L ON "
                           "N.ClaveLibro = L.ClaveLibro WHERE L.NoSolicitud > 500"));
        if (rs->Fields(0).Value().toLong() != Solicitudes * TitulosPorSolicitud * EjemplaresPorTitulo)
            state.SkipWithError("la importación no escribió todos los ejemplares");
        rs.reset();
        globales::BaseDatos.reset();
        state.ResumeTiming();
    }
    state.counters["filas"] = static_cast<double>(FilasExportadas - 1);
}
BENCHMARK(BM_Importa)->Unit(benchmark::kMillisecond)->Iterations(2);

}  // namespace
