#pragma once
// The scripted platform the tests install: it records every box, beep, focus move, program start and end,
// answers boxes and file dialogs from a script, runs a script for each modal screen shown, and keeps every
// document written into an embedded view.
#include "core/ui/Plataforma.h"

#include <QDate>
#include <QHash>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace ui {

// One box as it was shown.
struct CajaMensaje {
    QString texto;
    int flags = 0;
    QString titulo;
    int respuesta = 0;      // what the script answered
};

// The answer to one file dialog: a file (and, if not 0, the filter chosen), or a cancel.
struct RespuestaArchivo {
    QString archivo;
    int indiceFiltro = 0;
    bool cancelar = false;
    static RespuestaArchivo Elige(const QString& archivo, int indiceFiltro = 0) { return {archivo, indiceFiltro, false}; }
    static RespuestaArchivo Cancela() { return {QString(), 0, true}; }
};

// A file dialog as it was opened (before it was answered) and how it was answered.
struct DialogoRegistrado {
    DialogoArchivo dialogo;
    bool guardar = false;
    RespuestaArchivo respuesta;
};

class PlataformaPrueba;

// The embedded view of the tests: keeps what was navigated to and written; loads files from disk as they are.
class VistaHtmlPrueba : public VistaHtml {
public:
    VistaHtmlPrueba(QWidget* padre, PlataformaPrueba* plataforma);
    ~VistaHtmlPrueba() override;

    void Navigate(const QString& direccion) override;
    int ReadyState() const override { return estado; }
    void DocumentOpen() override;
    void DocumentWrite(const QString& html) override;
    void DocumentClose() override;
    QString DocumentHtml() const override { return html; }
    QString LocationURL() const override { return url; }
    bool Imprimir(bool conDialogo = true) override;
    bool ConfigurarPagina() override;
    bool GuardarPdf(const QString& ruta) override;
    QWidget* widget() override { return widget_; }
    void PaginaApaisada(bool a) override { apaisada = a; }

    QString html;
    QString url = QStringLiteral("about:blank");
    int estado = 0;
    QStringList navegaciones;         // every address navigated to
    int impresiones = 0;
    bool apaisada = false;            // pages across, as last asked
    int configuraciones = 0;
    QStringList pdfs;                 // the paths saved to
    // What the dialogs answer: false as if the user cancelled.
    bool aceptaImprimir = true;
    bool aceptaConfigurar = true;

private:
    friend class PlataformaPrueba;
    QPointer<QWidget> widget_;
    PlataformaPrueba* plataforma_;
};

class PlataformaPrueba : public Plataforma {
public:
    PlataformaPrueba();
    ~PlataformaPrueba() override;

    // --- Boxes -------------------------------------------------------------------------------------------
    std::vector<CajaMensaje> cajas;
    // Answers for the next boxes, in order. When none is queued: `contesta` if set, otherwise the first
    // button (OK for OK-only and OK/Cancel, Yes for Yes/No, ...).
    std::deque<int> respuestas;
    std::function<int(const CajaMensaje&)> contesta;
    void Responde(std::initializer_list<int> r) { respuestas.insert(respuestas.end(), r); }
    // The texts of the boxes, in order; the last box (fails the test if none).
    QStringList Textos() const;
    const CajaMensaje& UltimaCaja() const;

    // --- Screens -----------------------------------------------------------------------------------------
    // A script for a modal screen, by class name (metaObject()->className()) or object name. It runs
    // inside MuestraModal and may work the screen and close it; without one MuestraModal returns at once.
    void AlMostrar(const QString& pantalla, std::function<void(QDialog&)> guion);
    QStringList modales;              // class names of the modal screens shown, in order
    QStringList mostradas;            // class names of the screens shown without waiting
    // Show the dialog (so that its show and focus events run) before the script, and hide it after.
    bool muestraModales = false;

    // --- The rest of the system ----------------------------------------------------------------------------
    int beeps = 0;
    std::vector<QPointer<QWidget>> focos;     // the widgets FocoSiguiente was called from
    // Move the focus for real (as the program does) besides recording it.
    bool mueveFoco = false;
    std::vector<QDate> fechasFijadas;
    bool resultadoFijaFecha = true;
    QStringList programas;
    bool resultadoIniciaPrograma = true;
    bool terminado = false;
    int terminaciones = 0;
    QString direccionLocal;
    QString rutaPrograma;
    QString directorioActual;

    // --- File dialogs ------------------------------------------------------------------------------------
    std::deque<RespuestaArchivo> archivos;    // answers in order; when none is left the dialog is cancelled
    std::vector<DialogoRegistrado> dialogos;

    // --- Documents ---------------------------------------------------------------------------------------
    std::vector<VistaHtmlPrueba*> vistas;     // the views alive now
    QStringList documentos;                   // every document completed in any view (written or loaded)

    // Plataforma
    int MsgBox(const QString& texto, int flags = vbOKOnly, const QString& titulo = QString()) override;
    void MuestraModal(QDialog& pantalla) override;
    void Muestra(QWidget& pantalla) override;
    void Beep() override { ++beeps; }
    bool AbreArchivo(DialogoArchivo& d) override;
    bool GuardaArchivo(DialogoArchivo& d) override;
    std::unique_ptr<VistaHtml> CreaVistaHtml(QWidget* padre) override;
    void FocoSiguiente(QWidget* desde) override;
    bool FijaFechaSistema(const QDate& fecha) override;
    QString DireccionLocal() override { return direccionLocal; }
    bool IniciaPrograma(const QString& ruta) override;
    void Termina() override;
    QString RutaPrograma() override { return rutaPrograma; }
    QString DirectorioActual() override { return directorioActual; }

    // The answer a box gets when nothing is scripted: its first button.
    static int PrimerBoton(int flags);

private:
    friend class VistaHtmlPrueba;
    bool dialogoArchivo(DialogoArchivo& d, bool guardar);
    QHash<QString, std::function<void(QDialog&)>> guiones_;
};

}  // namespace ui
