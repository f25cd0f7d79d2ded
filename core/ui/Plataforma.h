#pragma once
// The seam between the screens and the toolkit. Every message box, modal showing, beep, file dialog,
// embedded document view, focus move, clock change, address lookup, program start and program end goes
// through the one installed Plataforma: the Qt one when the program runs, a scripted double in the tests,
// which records every box and answers from a script.
#include "core/vb/Error.h"

#include <QDate>
#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <memory>

class QWidget;
class QDialog;

namespace ui {

// Message box flags and answers, with the language's values.
enum : int {
    vbOKOnly = 0, vbOKCancel = 1, vbAbortRetryIgnore = 2, vbYesNoCancel = 3, vbYesNo = 4, vbRetryCancel = 5,
    vbCritical = 16, vbQuestion = 32, vbExclamation = 48, vbInformation = 64,
    vbDefaultButton1 = 0, vbDefaultButton2 = 256, vbDefaultButton3 = 512
};
enum Respuesta : int { vbOK = 1, vbCancel = 2, vbAbort = 3, vbRetry = 4, vbIgnore = 5, vbYes = 6, vbNo = 7 };

// The program's name: the title of a box shown with an empty title.
inline const QString TituloPrograma = QStringLiteral("Adquisiciones");

// The embedded document view: navigate to a file or "about:blank", write a document, print it, set up the
// page, save it as PDF.
class VistaHtml {
public:
    virtual ~VistaHtml() = default;
    virtual void Navigate(const QString& direccion) = 0;     // a file path, "file:" URL or "about:blank"
    virtual int ReadyState() const = 0;                     // 4 once the document is complete
    virtual void DocumentOpen() = 0;                        // starts a new, empty document
    virtual void DocumentWrite(const QString& html) = 0;    // appends to it
    virtual void DocumentClose() = 0;                       // shows what was written
    virtual QString DocumentHtml() const = 0;               // the document as last loaded or written
    virtual QString LocationURL() const = 0;
    virtual bool Imprimir(bool conDialogo = true) = 0;      // ExecWB print; false when cancelled
    virtual bool ConfigurarPagina() = 0;                    // ExecWB page set-up; false when cancelled
    virtual bool GuardarPdf(const QString& ruta) = 0;
    virtual QWidget* widget() = 0;
    // Pages printed or saved as PDF across (landscape) or upright, until changed: wide reports go across.
    virtual void PaginaApaisada(bool apaisada) = 0;
};

// The common file dialog: Filter "Texto (*.x)|*.x|...", FilterIndex 1-based, FileName in and out.
struct DialogoArchivo {
    QString titulo;
    QString filtro;
    int indiceFiltro = 1;
    QString archivo;
    int flags = 0;
    bool cancelado = false;
};

class Plataforma {
public:
    virtual ~Plataforma() = default;

    // MsgBox(texto, flags, título): the answer. Title empty means the program's name.
    virtual int MsgBox(const QString& texto, int flags = vbOKOnly, const QString& titulo = QString()) = 0;
    // Shows a screen modally and returns when it is hidden or closed.
    virtual void MuestraModal(QDialog& pantalla) = 0;
    // Shows a screen without waiting.
    virtual void Muestra(QWidget& pantalla) = 0;
    virtual void Beep() = 0;
    // ShowOpen / ShowSave: true with a file chosen; false (and `cancelado`) when cancelled.
    virtual bool AbreArchivo(DialogoArchivo& d) = 0;
    virtual bool GuardaArchivo(DialogoArchivo& d) = 0;
    virtual std::unique_ptr<VistaHtml> CreaVistaHtml(QWidget* padre) = 0;
    // Moves the focus to the next control in tab order, after the current handler ends.
    virtual void FocoSiguiente(QWidget* desde) = 0;
    // Sets the machine's date; false when the system refuses (no right to set the clock).
    virtual bool FijaFechaSistema(const QDate& fecha) = 0;
    // The machine's first non-loopback IPv4 address, empty without network.
    virtual QString DireccionLocal() = 0;
    // Starts a program in a normal window; false if it can't.
    virtual bool IniciaPrograma(const QString& ruta) = 0;
    // The language's End: the program ends at once.
    virtual void Termina() = 0;
    // The program's own folder (App.Path) and the current directory.
    virtual QString RutaPrograma() = 0;
    virtual QString DirectorioActual() = 0;
};

// The installed platform. The program installs the Qt one at start; tests install the double.
Plataforma& Sistema();
void InstalaPlataforma(std::unique_ptr<Plataforma> p);

// Runs a handler the way the program runs every handler that traps nothing: an error that escapes it is
// shown in the program's default failure box (the error's number and description, critical icon) and what
// ran before stays applied. Once the main window stands the program goes on; before that (start-up and the
// login) the box is followed by the program's end. Never lets an exception reach the event loop.
void Protegido(const QString& origen, const std::function<void()>& manejador);

// The start of the program, while it lasts: from the opening of the database until the main window stands.
// A failure that nothing traps meanwhile ends the program after its box. Nested starts are one.
class ArranqueEnCurso {
public:
    ArranqueEnCurso();
    ~ArranqueEnCurso();
    ArranqueEnCurso(const ArranqueEnCurso&) = delete;
    ArranqueEnCurso& operator=(const ArranqueEnCurso&) = delete;
    // Whether the program is starting now.
    static bool Activo();

private:
    bool anterior_;
};

// Connects a signal to a handler of a screen (a member function without arguments), run through Protegido:
// whatever the handler throws ends in the failure box, never in the event loop. The connection ends with
// the screen.
template <class Emisor, class Senal, class Pantalla, class Clase>
void Conecta(Emisor* emisor, Senal senal, Pantalla* pantalla, const QString& origen, void (Clase::*manejador)()) {
    QObject::connect(emisor, senal, pantalla, [pantalla, manejador, origen] {
        Protegido(origen, [pantalla, manejador] { (pantalla->*manejador)(); });
    });
}

// The same for a handler that takes the signal's number (a column clicked, a row).
template <class Emisor, class Senal, class Pantalla, class Clase>
void Conecta(Emisor* emisor, Senal senal, Pantalla* pantalla, const QString& origen, void (Clase::*manejador)(int)) {
    QObject::connect(emisor, senal, pantalla, [pantalla, manejador, origen](int valor) {
        Protegido(origen, [pantalla, manejador, valor] { (pantalla->*manejador)(valor); });
    });
}

// The same for one control of an array of them: the handler gets the control's index.
template <class Emisor, class Senal, class Pantalla, class Clase>
void Conecta(Emisor* emisor, Senal senal, Pantalla* pantalla, const QString& origen, void (Clase::*manejador)(int),
             int indice) {
    QObject::connect(emisor, senal, pantalla, [pantalla, manejador, origen, indice] {
        Protegido(origen, [pantalla, manejador, indice] { (pantalla->*manejador)(indice); });
    });
}

// The hourglass over a screen while it lives, for work the analyst waits on. Boxes shown meanwhile keep
// their own arrow; the cursor comes back however the work ends.
class CursorEspera {
public:
    explicit CursorEspera(QWidget* pantalla);
    ~CursorEspera();
    CursorEspera(const CursorEspera&) = delete;
    CursorEspera& operator=(const CursorEspera&) = delete;

private:
    QPointer<QWidget> pantalla_;
};

// The text of the default failure box for an error.
QString TextoFallaPredeterminada(int numero, const QString& descripcion);
// The text of a failure a routine traps: "Error <n> (<descripción>) in procedure <p> of <where>" and the
// line "linea:  <n>", where names the form ("Formulario Sol_Edi") or the module ("Módulo Datos").
QString TextoFallaAtrapada(int numero, const QString& descripcion, const QString& procedimiento, const QString& donde,
                           int linea);

}  // namespace ui
