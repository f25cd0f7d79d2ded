#pragma once
// The platform on Qt Widgets: what the program installs when it runs.
#include "core/ui/Plataforma.h"

#include <QPointer>
#include <QStringList>
#include <QTextBrowser>
#include <QTextCursor>
#include <deque>
#include <utility>
#include <vector>

class QPrinter;
class QTimer;

namespace ui {

class PlataformaQt : public Plataforma {
public:
    int MsgBox(const QString& texto, int flags = vbOKOnly, const QString& titulo = QString()) override;
    void MuestraModal(QDialog& pantalla) override;
    void Muestra(QWidget& pantalla) override;
    void Beep() override;
    bool AbreArchivo(DialogoArchivo& d) override;
    bool GuardaArchivo(DialogoArchivo& d) override;
    std::unique_ptr<VistaHtml> CreaVistaHtml(QWidget* padre) override;
    void FocoSiguiente(QWidget* desde) override;
    bool FijaFechaSistema(const QDate& fecha) override;
    QString DireccionLocal() override;
    bool IniciaPrograma(const QString& ruta) override;
    void Termina() override;
    QString RutaPrograma() override;
    QString DirectorioActual() override;
};

// Installs Qt's own Spanish translations (file, print and page set-up dialogs, standard buttons):
// "qtbase_es" and, where it stands, "qt_es", from Qt's translations folder. Once per program; true when
// "qtbase_es" is in place.
bool CargaTraducciones();

// The file dialog's filter "Texto (*.txt)|*.txt|Todos (*.*)|*.*" as Qt's name filters, one per pair:
// "Texto (*.txt)", "Todos (*.*)". Several patterns "*.xls;*.xlsx" become "*.xls *.xlsx".
QStringList FiltrosQt(const QString& filtro);

// The name a save dialog returns: a file name without an extension takes the first pattern's extension of
// the chosen filter (1-based index into "Texto (*.htm)|*.htm|..."); a name with one keeps it, and so does
// any name when that filter has no plain extension ("*.*", "*").
QString ConExtensionDelFiltro(const QString& archivo, const QString& filtro, int indiceFiltro);

// The plain extension of the first pattern of filter `indiceFiltro` ("htm" for "*.htm;*.html"); empty when
// the pattern has none.
QString ExtensionDelFiltro(const QString& filtro, int indiceFiltro);

// A document's text by its declared encoding (meta charset or XML declaration); without one, UTF-8 when the
// bytes are valid UTF-8 and Windows-1252 otherwise.
QString DecodificaDocumento(const QByteArray& bytes);

// The top-level tables of a page, each as [start, end) in the text: "<table ...>" to past its "</table>", not
// inside another table; the scan skips comments and the text of style and script elements.
std::vector<std::pair<qsizetype, qsizetype>> TablasPrincipales(const QString& html);

// The embedded document view on QTextBrowser. Loading a file is synchronous: ReadyState is 4 as soon as
// Navigate returns. A page written is too, unless it is long and made of many tables side by side (a report of
// thousands of rows in blocks): the view then shows at once its first table with what follows its last, and
// puts the tables between in their place one per turn of the event loop, ReadyState 3 meanwhile; a view lays
// out a long table only as a whole, so the analyst would otherwise wait for all of it. Printing and saving as
// PDF put in what is left first; a new page drops it.
class VistaHtmlQt : public VistaHtml {
public:
    explicit VistaHtmlQt(QWidget* padre);
    ~VistaHtmlQt() override;

    void Navigate(const QString& direccion) override;
    int ReadyState() const override { return estado_; }
    void DocumentOpen() override;
    void DocumentWrite(const QString& html) override;
    void DocumentClose() override;
    QString DocumentHtml() const override { return html_; }
    QString LocationURL() const override { return url_; }
    bool Imprimir(bool conDialogo = true) override;
    bool ConfigurarPagina() override;
    bool GuardarPdf(const QString& ruta) override;
    QWidget* widget() override;
    void PaginaApaisada(bool apaisada) override;

    QTextBrowser* navegador() const { return navegador_; }

    // The pages written from this length on are shown as they are read, when they have tables enough.
    static constexpr qsizetype LargoProgresivo = 200000;

private:
    QPrinter& impresora();
    // Puts the next table of a long page in its place; the last one completes the page.
    void sigueCarga();
    void terminaCarga();
    void dejaCarga();
    QPointer<QTextBrowser> navegador_;
    std::unique_ptr<QPrinter> impresora_;
    QString html_;
    QString url_;
    int estado_ = 0;
    // A long page being shown: what is left of it, in order, and where it goes.
    std::deque<QString> pendientes_;
    QTextCursor cursorPendiente_;
    QPointer<QTimer> carga_;
};

}  // namespace ui
