#include "reports/ReporteLista.h"

#include "core/Rutas.h"
#include "core/controles/ListView.h"
#include "core/ui/Ficha.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Error.h"
#include "core/vb/Formato.h"

#include <QFile>
#include <QGroupBox>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <QPushButton>
#include <QWidget>

namespace reportes {

namespace {

const QString saltoLinea = QStringLiteral("\r\n");
const QString captionGenerar = QStringLiteral("Generar &reporte");
const QString captionImprimir = QStringLiteral("Imprimir");
// The save dialog's flags: overwrite prompt (2) and keep the current directory (8).
constexpr int FlagsGuardar = 10;
// The rows of each table of the page, and how each table opens.
constexpr int FilasPorBloque = 100;
const QString TablaDeBloque = QStringLiteral("<TABLE border=1 width=100%>");
// The characters of value beyond which a column grows no wider: longer values wrap.
constexpr qsizetype LargoMaximoColumna = 40;
// A cell's margins, in characters.
constexpr qsizetype MargenDeCelda = 2;
// The tables of these reports in a type a little smaller than the style's and with narrower margins, so that
// the columns of a wide list keep their words whole across a page.
const QString EstiloDeLaLista = QStringLiteral("\r\ntable { font-size: 7.5pt; } td { padding: 1px 3px; }\r\n");

// A value as page text: markup characters escaped, and what the saved file's code page lacks written as a
// character reference, so that nothing turns into "?" on disk.
QString TextoHtml(const QString& texto) {
    const QString escapado = texto.toHtmlEscaped();
    QString r;
    r.reserve(escapado.size());
    for (const QChar c : escapado) {
        if (c.unicode() < 0x80 || vb::Asc(QString(c)) != u'?')
            r += c;
        else
            r += QStringLiteral("&#") + QString::number(c.unicode()) + u';';
    }
    return r;
}

// A cell of the page: its text as the list shows it, named and formatted for the report.
struct ValorCelda {
    QString texto;
    bool derecha = false;
};

ValorCelda LeeCelda(const controles::ListItem& fila, int columna, const ColumnaReporte* c) {
    ValorCelda v{columna == 1 ? fila.Text() : fila.SubItems(columna - 1)};
    if (!c) return v;
    if (c->nombre) {
        const QString nombre = c->nombre(fila, v.texto);
        if (!nombre.isEmpty()) v.texto = nombre;
    }
    if (c->formato == Celda::Numero) {
        v.derecha = true;
        v.texto = v.texto.trimmed();
    } else if (c->formato == Celda::Fecha) {
        const QDate dia = QDate::fromString(v.texto, QStringLiteral("yyyy/MM/dd"));
        if (dia.isValid()) v.texto = vb::Format(vb::Variant(vb::Fecha(dia)), QStringLiteral("dd/mmm/yyyy"));
    }
    return v;
}

// How much room a column's values ask for, in characters: its longest word, which must stay whole, and its
// longest value, up to a limit past which values wrap.
struct Medida {
    qsizetype palabra = 1;
    qsizetype valor = 1;
    // `extra` characters more for a text in a wider type (a head in bold).
    void Mide(const QString& texto, qsizetype extra = 0) {
        qsizetype actual = 0;
        for (const QChar c : texto) {
            actual = c.isSpace() ? 0 : actual + 1;
            palabra = std::max(palabra, std::min(actual + extra, LargoMaximoColumna));
        }
        valor = std::max(valor, std::min(texto.size() + extra, LargoMaximoColumna));
    }
};

// The columns' widths in hundredths of the page, as " width=<n>%": in proportion to the longest value of each
// (its longest word at least, and its margins), rounded as they add up, so that they make 100 in all. Values
// are counted up to a limit, so that a row of the widest list fits a page across in the tables' type.
std::vector<QString> Anchos(const std::vector<Medida>& medidas) {
    std::vector<double> pesos;
    for (const Medida& m : medidas) pesos.push_back(static_cast<double>(std::max(m.valor, m.palabra) + MargenDeCelda));
    const double total = std::accumulate(pesos.begin(), pesos.end(), 0.0);
    std::vector<QString> anchos;
    double acumulado = 0;
    long antes = 0;
    for (double peso : pesos) {
        acumulado += peso;
        const long hasta = std::lround(100 * acumulado / total);
        anchos.push_back(QStringLiteral(" width=") + QString::number(std::max(hasta - antes, 1L)) + u'%');
        antes = hasta;
    }
    return anchos;
}

}  // namespace

QString EstiloListados() {
    QFile hoja(rutas::Instalacion(QStringLiteral("xsls\\korvel8v324.css")));
    if (!hoja.open(QIODevice::ReadOnly)) return QString();
    return QString::fromUtf8(hoja.readAll());
}

QString PaginaDeLista(const QString& titulo, const QString& resumen, controles::ListView& lista,
                      const std::vector<ColumnaReporte>& columnas) {
    controles::ColumnHeaderCollection& encabezados = lista.ColumnHeaders();
    std::vector<int> visibles;
    for (int c = 1; c <= encabezados.Count(); ++c)
        if (encabezados(c).Width() > 0) visibles.push_back(c);
    const size_t v = visibles.size();
    const auto formato = [&columnas](int c) {
        return static_cast<size_t>(c) <= columnas.size() ? &columnas[static_cast<size_t>(c - 1)] : nullptr;
    };

    // The cells first, to size the columns.
    controles::ListItemCollection& filas = lista.ListItems();
    const int n = filas.Count();
    std::vector<ValorCelda> celdas;
    celdas.reserve(static_cast<size_t>(n) * v);
    std::vector<Medida> medidas(v);
    for (size_t k = 0; k < v; ++k) medidas[k].Mide(encabezados(visibles[k]).Text(), 1);
    for (int i = 1; i <= n; ++i) {
        const controles::ListItem& fila = filas(i);
        for (size_t k = 0; k < v; ++k) {
            celdas.push_back(LeeCelda(fila, visibles[k], formato(visibles[k])));
            medidas[k].Mide(celdas.back().texto);
        }
    }
    const std::vector<QString> anchos = Anchos(medidas);

    QString h;
    h.reserve(4096 + n * (static_cast<int>(v) * 24 + 16));
    // The saved page is written in the system's code page, and says so.
    h += QStringLiteral("<HTML><HEAD><TITLE>") + titulo +
         QStringLiteral("</TITLE><META http-equiv=Content-Type content=\"text/html; charset=windows-1252\">"
                        "<STYLE type=text/css>") +
         EstiloListados() + EstiloDeLaLista + QStringLiteral("</STYLE></HEAD>") + saltoLinea;
    h += QStringLiteral("<BODY><h3>") + titulo + QStringLiteral("</h3><div align=right>") + resumen +
         QStringLiteral("</div>") + TablaDeBloque + QStringLiteral("<TR>") + saltoLinea;
    for (size_t k = 0; k < v; ++k)
        h += QStringLiteral("<TD class='tdHead'") + anchos[k] + u'>' + TextoHtml(encabezados(visibles[k]).Text()) +
             QStringLiteral("</TD>");
    h += QStringLiteral("</TR>") + saltoLinea;
    for (int i = 0; i < n; ++i) {
        // The rows go in blocks, each a table of its own: the view lays out a long page block by block, the
        // first screenful at once, where one table of thousands of rows would be laid out whole first.
        const bool bloqueNuevo = i > 0 && i % FilasPorBloque == 0;
        if (bloqueNuevo) h += QStringLiteral("</TABLE>") + TablaDeBloque;
        h += QStringLiteral("<TR>");
        for (size_t k = 0; k < v; ++k) {
            const ValorCelda& celda = celdas[static_cast<size_t>(i) * v + k];
            h += QStringLiteral("<TD");
            if (bloqueNuevo) h += anchos[k];
            if (celda.derecha) h += QStringLiteral(" align=right");
            h += u'>' + TextoHtml(celda.texto) + QStringLiteral("</TD>");
        }
        h += QStringLiteral("</TR>") + saltoLinea;
    }
    h += QStringLiteral("</TABLE><!--- pie de pagina -->");
    h += QStringLiteral("<table border=0  cellspacing=0 width=100%>");
    h += QStringLiteral("<tr><td class=copyR><hr/>Departamento de adquisiciones<br/>");
    h += QStringLiteral("Reporte generado el ") + vb::Format(vb::Variant(vb::Fecha::Now()), QStringLiteral("dd/mmm/yyyy hh:nn")) +
         QStringLiteral(" con KORVEL8</td></tr>");
    h += QStringLiteral("</table></BODY></HTML>");
    return h;
}

QGroupBox* CreaVistaPrevia(QWidget* pantalla, std::unique_ptr<ui::VistaHtml>& vista) {
    auto* contenedor = new QGroupBox(QStringLiteral(" Vista previa del reporte"), pantalla);
    contenedor->setObjectName(QStringLiteral("picContenedor"));
    vista = ui::Sistema().CreaVistaHtml(contenedor);
    auto* disposicion = new QVBoxLayout(contenedor);
    if (vista && vista->widget()) disposicion->addWidget(vista->widget());
    contenedor->setVisible(false);
    return contenedor;
}

void SeleccionaFila(controles::ListView& lista, int columna, const QString& valor) {
    controles::ListItemCollection& filas = lista.ListItems();
    for (int i = 1; i <= filas.Count(); ++i) {
        controles::ListItem& fila = filas(i);
        if ((columna == 1 ? fila.Text() : fila.SubItems(columna - 1)) == valor) {
            fila.setSelected(true);
            fila.EnsureVisible();
            return;
        }
    }
}

void MuestraPagina(ui::VistaHtml& vista, const QString& html, long vueltas) {
    vista.Navigate(QStringLiteral("about:blank"));
    ui::EsperaVista(vista, vueltas);
    vista.DocumentOpen();
    vista.DocumentWrite(html);
    vista.DocumentClose();
}

ReporteDeLista::ReporteDeLista(QWidget* pantalla, QPushButton* imprimir, QPushButton* grabar, QWidget* contenedor,
                               ui::VistaHtml* vista, QString& documento, std::function<void()> genera)
    : pantalla_(pantalla),
      imprimir_(imprimir),
      grabar_(grabar),
      contenedor_(contenedor),
      vista_(vista),
      documento_(documento),
      genera_(std::move(genera)) {
    // A list of many columns is printed across the page.
    if (vista_) vista_->PaginaApaisada(true);
}

void ReporteDeLista::Asegura() {
    if (documento_.isEmpty()) genera_();
}

void ReporteDeLista::Imprimir() {
    const ui::CursorEspera espera(pantalla_);
    Asegura();
    if (imprimir_->text() != captionImprimir) {
        imprimir_->setText(captionImprimir);
        contenedor_->show();
        grabar_->setEnabled(true);
        return;
    }
    try {
        if (vista_) vista_->Imprimir(true);   // a cancelled print dialog is no failure
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(e.Description(), ui::vbOKOnly, QStringLiteral("Imprimir"));
    }
}

void ReporteDeLista::Grabar() {
    const ui::CursorEspera espera(pantalla_);
    Asegura();
    ui::DialogoArchivo d;
    d.filtro = QStringLiteral("Archivo HTML (*.htm)|*.htm");
    d.flags = FlagsGuardar;
    // A cancelled dialog writes nothing and says nothing.
    if (!ui::Sistema().GuardaArchivo(d) || d.archivo.isEmpty()) return;
    try {
        vb::PrintArchivo(d.archivo, documento_);
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(e.Description(), ui::vbExclamation, QStringLiteral("Error ") + QString::number(e.Number()));
    }
}

void ReporteDeLista::Descarta() {
    imprimir_->setText(captionGenerar);
    contenedor_->hide();
    documento_.clear();
}

}  // namespace reportes
