#include "core/ui/Plataforma.h"

#include "core/ui/PlataformaQt.h"
#include "core/vb/Error.h"

#include <QWidget>
#include <exception>
#include <new>

namespace ui {

namespace {
bool arrancando = false;

std::unique_ptr<Plataforma>& Instalada() {
    static std::unique_ptr<Plataforma> p;
    return p;
}

// Shows the default failure box; a failure while showing it is swallowed, as nothing may leave a handler.
void MuestraFalla(int numero, const QString& descripcion) {
    try {
        Sistema().MsgBox(TextoFallaPredeterminada(numero, descripcion), vbCritical, TituloPrograma);
    } catch (...) {
    }
}
}  // namespace

Plataforma& Sistema() {
    auto& p = Instalada();
    // Nothing installed yet: the program's own toolkit.
    if (!p) p = std::make_unique<PlataformaQt>();
    return *p;
}

void InstalaPlataforma(std::unique_ptr<Plataforma> p) { Instalada() = std::move(p); }

QString TextoFallaAtrapada(int numero, const QString& descripcion, const QString& procedimiento, const QString& donde,
                           int linea) {
    return QStringLiteral("Error ") + QString::number(numero) + QStringLiteral(" (") + descripcion +
           QStringLiteral(") in procedure ") + procedimiento + QStringLiteral(" of ") + donde +
           QStringLiteral("\r\nlinea:  ") + QString::number(linea);
}

QString TextoFallaPredeterminada(int numero, const QString& descripcion) {
    return QStringLiteral("Se produjo el error ") + QString::number(numero) + QStringLiteral("\r\n") + descripcion;
}

void Protegido(const QString& origen, const std::function<void()>& manejador) {
    (void)origen;
    bool fallo = true;
    try {
        manejador();
        fallo = false;
    } catch (const vb::Error& e) {
        MuestraFalla(e.Number(), e.Description());
    } catch (const std::bad_alloc&) {
        MuestraFalla(7, QStringLiteral("Memoria insuficiente"));
    } catch (const std::exception& e) {
        MuestraFalla(51, QStringLiteral("Error interno: ") + QString::fromLocal8Bit(e.what()));
    } catch (...) {
        MuestraFalla(51, QStringLiteral("Error interno"));
    }
    // Before the main window stands there is nothing to go back to: the box, then the end.
    if (fallo && arrancando) {
        try {
            Sistema().Termina();
        } catch (...) {
        }
    }
}

ArranqueEnCurso::ArranqueEnCurso() : anterior_(arrancando) { arrancando = true; }
ArranqueEnCurso::~ArranqueEnCurso() { arrancando = anterior_; }
bool ArranqueEnCurso::Activo() { return arrancando; }

CursorEspera::CursorEspera(QWidget* pantalla) : pantalla_(pantalla) {
    if (pantalla_) pantalla_->setCursor(Qt::WaitCursor);
}
CursorEspera::~CursorEspera() {
    if (pantalla_) pantalla_->unsetCursor();
}

}  // namespace ui
