// The order document for a large order: 5,000 titles in 50 marked requests, built and shown as the order
// screen does when it loads (the query into XML, the style sheet into HTML, the HTML into the Qt view), then
// until the screen shows it, and each step apart, to tell where the time goes.
#include "core/Esquema.h"
#include "core/Globales.h"
#include "core/Rutas.h"
#include "core/dao/Dao.h"
#include "core/ui/PlataformaQt.h"
#include "reports/Reportes.h"
#include "workflow/Ped1_Repor.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QStringList>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <libxml/parser.h>
#include <libxslt/transform.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>
#include <sqlite3.h>

namespace {

constexpr int Solicitudes = 50;
constexpr int TitulosPorSolicitud = 100;
const QString hoja = QStringLiteral("xsls\\Formato.xsl");

// The Qt platform, with the style sheets of the source tree and a box that answers No: the question of a
// long report is then "no, the whole document".
class PlataformaBanco : public ui::PlataformaQt {
public:
    int cajas = 0;
    int MsgBox(const QString&, int, const QString&) override {
        ++cajas;
        return ui::vbNo;
    }
    // ADQ_RUTA_PROGRAMA points at another folder "xsls", to try a style sheet before it is installed.
    QString RutaPrograma() override { return qEnvironmentVariable("ADQ_RUTA_PROGRAMA", QStringLiteral(ADQ_SOURCE_DIR)); }
};

struct BasePedido {
    QTemporaryDir dir;
    QString lista;      // the request numbers as Ped1 hands them over, "010, 011, ..."
    BasePedido() {
        auto db = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("KORVEL8.mdb")));
        esquema::CreaTablas(*db);
        db->Execute(QStringLiteral("INSERT INTO Editoriales ([No], Nombre) VALUES (1, 'Editorial del Estado')"),
                    dao::dbFailOnError);
        sqlite3* s = db->sqlite();
        sqlite3_exec(s, "BEGIN", nullptr, nullptr, nullptr);
        sqlite3_stmt* sg = nullptr;
        sqlite3_stmt* sl = nullptr;
        sqlite3_prepare_v2(s,
                           "INSERT INTO \"Solicitudes General\" (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, "
                           "Estado, IdFinanciamiento) VALUES (?1, '2026-03-01 00:00:00', 'Solicitante', 1, 1, 'S', 0)",
                           -1, &sg, nullptr);
        sqlite3_prepare_v2(s,
                           "INSERT INTO \"Solicitudes Libros\" (Titulo, Autor, ISBN, \"Ejemplares pedidos\", NoEditorial, "
                           "Edicion, Estado, NoSolicitud, IdCapturista) VALUES (?2, 'Autor de la obra', '970-10-0000-0', 2, "
                           "1, 3, 'S', ?1, 'admin')",
                           -1, &sl, nullptr);
        QStringList numeros;
        for (int n = 10; n < 10 + Solicitudes; ++n) {
            sqlite3_bind_int(sg, 1, n);
            sqlite3_step(sg);
            sqlite3_reset(sg);
            for (int t = 0; t < TitulosPorSolicitud; ++t) {
                const QByteArray titulo = QStringLiteral("Título número %1 de la solicitud %2").arg(t).arg(n).toUtf8();
                sqlite3_bind_int(sl, 1, n);
                sqlite3_bind_text(sl, 2, titulo.constData(), static_cast<int>(titulo.size()), SQLITE_TRANSIENT);
                sqlite3_step(sl);
                sqlite3_reset(sl);
            }
            numeros << QStringLiteral("%1").arg(n, 3, 10, QLatin1Char('0'));
        }
        sqlite3_finalize(sg);
        sqlite3_finalize(sl);
        sqlite3_exec(s, "COMMIT", nullptr, nullptr, nullptr);
        lista = numeros.join(QStringLiteral(", "));
        globales::BaseDatos = std::move(db);
    }
};

PlataformaBanco& Instala() {
    static PlataformaBanco* p = [] {
        auto nueva = std::make_unique<PlataformaBanco>();
        PlataformaBanco* r = nueva.get();
        ui::InstalaPlataforma(std::move(nueva));
        return r;
    }();
    return *p;
}

BasePedido& Base() {
    static BasePedido base;
    return base;
}

// The query of the order screen, for the reports' routines measured alone.
globales::ConsultaDatos ConsultaPedido() {
    globales::ConsultaDatos c;
    Ped1_Repor::PreparaConsulta(c, Base().lista);
    return c;
}

// The order document, as the screen builds it.
QString DocumentoPedido(const globales::ConsultaDatos& c = ConsultaPedido()) {
    bool vacio = false;
    QString resumen;
    return reportes::xml_in(c, hoja, QStringLiteral("Pedidos"), QStringLiteral("Libro"), QString(), vacio, resumen, false);
}

// What the screen's load does, as the analyst waits for it.
void BM_CargaDelPedido(benchmark::State& state) {
    Instala();
    globales::NavValor = vb::Variant(Base().lista);
    for (auto _ : state) {
        Ped1_Repor pantalla;
        pantalla.Form_Load();
        if (pantalla.DocumentoHtml.isEmpty() || pantalla.DocumentoXml.count(QStringLiteral("<Libro>")) != 5000)
            state.SkipWithError("el documento no salió completo");
    }
}
BENCHMARK(BM_CargaDelPedido)->Unit(benchmark::kMillisecond);

// The load, then the screen shown until the first page of the document is painted: the view lays the
// document out only when it is shown, and that is part of the analyst's wait.
void BM_CargaHastaVerElPedido(benchmark::State& state) {
    Instala();
    globales::NavValor = vb::Variant(Base().lista);
    for (auto _ : state) {
        Ped1_Repor pantalla;
        pantalla.Form_Load();
        pantalla.show();
        QCoreApplication::processEvents();
        if (auto* area = qobject_cast<QAbstractScrollArea*>(pantalla.ListView1->widget())) area->viewport()->repaint();
        state.PauseTiming();
        pantalla.hide();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_CargaHastaVerElPedido)->Unit(benchmark::kMillisecond);

void BM_SoloXml(benchmark::State& state) {
    Instala();
    const globales::ConsultaDatos c = ConsultaPedido();
    for (auto _ : state) {
        const QString xml = DocumentoPedido(c);
        benchmark::DoNotOptimize(xml.size());
    }
}
BENCHMARK(BM_SoloXml)->Unit(benchmark::kMillisecond);

void BM_SoloHtmlEnLaVista(benchmark::State& state) {
    PlataformaBanco& p = Instala();
    const QString xml = DocumentoPedido();
    QWidget padre;
    auto vista = p.CreaVistaHtml(&padre);
    for (auto _ : state) {
        const QString html = reportes::Htm_gen(xml, *vista, hoja);
        if (html.isEmpty()) state.SkipWithError("sin HTML");
    }
}
BENCHMARK(BM_SoloHtmlEnLaVista)->Unit(benchmark::kMillisecond);

// The style sheet alone, as Htm_gen runs it: parse the document and the sheet, transform, serialise.
void BM_SoloTransformacion(benchmark::State& state) {
    Instala();
    const QByteArray xml = DocumentoPedido().toUtf8();
    const QByteArray ruta = rutas::Instalacion(hoja).toLocal8Bit();
    for (auto _ : state) {
        xmlDoc* doc = xmlReadMemory(xml.constData(), static_cast<int>(xml.size()), nullptr, "UTF-8", XML_PARSE_NONET);
        xsltStylesheet* estilo = xsltParseStylesheetFile(reinterpret_cast<const xmlChar*>(ruta.constData()));
        xmlDoc* resultado = (doc && estilo) ? xsltApplyStylesheet(estilo, doc, nullptr) : nullptr;
        xmlChar* texto = nullptr;
        int largo = 0;
        if (resultado) xsltSaveResultToString(&texto, &largo, resultado, estilo);
        if (!texto) state.SkipWithError("la hoja no transformó el documento");
        xmlFree(texto);
        if (resultado) xmlFreeDoc(resultado);
        if (estilo) xsltFreeStylesheet(estilo);
        if (doc) xmlFreeDoc(doc);
    }
}
BENCHMARK(BM_SoloTransformacion)->Unit(benchmark::kMillisecond);

// The finished page written into the Qt view alone.
void BM_SoloVistaQt(benchmark::State& state) {
    PlataformaBanco& p = Instala();
    const QString xml = DocumentoPedido();
    QWidget padre;
    auto vista = p.CreaVistaHtml(&padre);
    const QString html = reportes::Htm_gen(xml, *vista, hoja);
    for (auto _ : state) {
        vista->Navigate(QStringLiteral("about:blank"));
        vista->DocumentOpen();
        vista->DocumentWrite(html);
        vista->DocumentClose();
    }
}
BENCHMARK(BM_SoloVistaQt)->Unit(benchmark::kMillisecond);

}  // namespace
