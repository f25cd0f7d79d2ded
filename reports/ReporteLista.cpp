#include "reports/ReporteLista.h"

#include "core/Rutas.h"
#include "core/controles/ListView.h"
#include "core/ui/Ficha.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Error.h"
#include "core/vb/Formato.h"

#include <QFile>
#include <QPushButton>
#include <QWidget>

namespace reportes {

namespace {

const QString saltoLinea = QStringLiteral("\r\n");
const QString captionGenerar = QStringLiteral("Generar &reporte");
const QString captionImprimir = QStringLiteral("Imprimir");
// The save dialog's flags: overwrite prompt (2) and keep the current directory (8).
constexpr int FlagsGuardar = 10;

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

QString CeldaHtml(const controles::ListItem& fila, int columna, const ColumnaReporte* c) {
    QString valor = columna == 1 ? fila.Text() : fila.SubItems(columna - 1);
    if (!c) return QStringLiteral("<TD>") + TextoHtml(valor) + QStringLiteral("</TD>");
    if (c->nombre) {
        const QString nombre = c->nombre(fila, valor);
        if (!nombre.isEmpty()) valor = nombre;
    }
    switch (c->formato) {
    case Celda::Numero:
        return QStringLiteral("<TD align=right>") + TextoHtml(valor.trimmed()) + QStringLiteral("</TD>");
    case Celda::Fecha: {
        const QDate dia = QDate::fromString(valor, QStringLiteral("yyyy/MM/dd"));
        if (dia.isValid()) valor = vb::Format(vb::Variant(vb::Fecha(dia)), QStringLiteral("dd/mmm/yyyy"));
        return QStringLiteral("<TD>") + TextoHtml(valor) + QStringLiteral("</TD>");
    }
    case Celda::Texto: break;
    }
    return QStringLiteral("<TD>") + TextoHtml(valor) + QStringLiteral("</TD>");
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
    const auto formato = [&columnas](int c) {
        return static_cast<size_t>(c) <= columnas.size() ? &columnas[static_cast<size_t>(c - 1)] : nullptr;
    };

    controles::ListItemCollection& filas = lista.ListItems();
    const int n = filas.Count();
    QString h;
    h.reserve(4096 + n * (static_cast<int>(visibles.size()) * 24 + 16));
    // The saved page is written in the system's code page, and says so.
    h += QStringLiteral("<HTML><HEAD><TITLE>") + titulo +
         QStringLiteral("</TITLE><META http-equiv=Content-Type content=\"text/html; charset=windows-1252\">"
                        "<STYLE type=text/css>") +
         EstiloListados() + QStringLiteral("</STYLE></HEAD>") + saltoLinea;
    h += QStringLiteral("<BODY><h3>") + titulo + QStringLiteral("</h3><div align=right>") + resumen +
         QStringLiteral("</div><TABLE border=1><TR>") + saltoLinea;
    for (int c : visibles) h += QStringLiteral("<TD class='tdHead'>") + TextoHtml(encabezados(c).Text()) + QStringLiteral("</TD>");
    h += QStringLiteral("</TR>") + saltoLinea;
    for (int i = 1; i <= n; ++i) {
        const controles::ListItem& fila = filas(i);
        h += QStringLiteral("<TR>");
        for (int c : visibles) h += CeldaHtml(fila, c, formato(c));
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
      genera_(std::move(genera)) {}

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
