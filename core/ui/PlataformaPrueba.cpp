#include "core/ui/PlataformaPrueba.h"

#include "core/ui/PlataformaQt.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QUrl>
#include <algorithm>
#include <stdexcept>

namespace ui {

namespace {
// focusNextPrevChild is protected; reached through a pointer to member taken in a derived class.
struct AccesoFoco : QWidget {
    static bool Siguiente(QWidget* w) { return (w->*(&AccesoFoco::focusNextPrevChild))(true); }
};
}  // namespace

// ---------------------------------------------------------------------------------------------------------
// The view

VistaHtmlPrueba::VistaHtmlPrueba(QWidget* padre, PlataformaPrueba* plataforma)
    : widget_(new QWidget(padre)), plataforma_(plataforma) {
    widget_->setObjectName(QStringLiteral("VistaHtml"));
    plataforma_->vistas.push_back(this);
}

VistaHtmlPrueba::~VistaHtmlPrueba() {
    if (plataforma_) std::erase(plataforma_->vistas, this);
    delete widget_.data();
}

void VistaHtmlPrueba::Navigate(const QString& direccion) {
    navegaciones << direccion;
    html.clear();
    if (direccion.trimmed().compare(u"about:blank", Qt::CaseInsensitive) == 0) {
        url = QStringLiteral("about:blank");
    } else {
        const QUrl u = direccion.startsWith(u"file:", Qt::CaseInsensitive)
                           ? QUrl(direccion)
                           : QUrl::fromLocalFile(QDir::fromNativeSeparators(direccion));
        url = u.toString();
        QFile f(u.toLocalFile());
        if (f.open(QIODevice::ReadOnly)) html = DecodificaDocumento(f.readAll());
        if (plataforma_) plataforma_->documentos << html;
    }
    estado = 4;
}

void VistaHtmlPrueba::DocumentOpen() {
    html.clear();
    estado = 1;
}

void VistaHtmlPrueba::DocumentWrite(const QString& texto) { html += texto; }

void VistaHtmlPrueba::DocumentClose() {
    estado = 4;
    if (plataforma_) plataforma_->documentos << html;
}

bool VistaHtmlPrueba::Imprimir(bool) {
    if (!aceptaImprimir) return false;
    ++impresiones;
    return true;
}

bool VistaHtmlPrueba::ConfigurarPagina() {
    if (!aceptaConfigurar) return false;
    ++configuraciones;
    return true;
}

bool VistaHtmlPrueba::GuardarPdf(const QString& ruta) {
    pdfs << ruta;
    // A file stands there afterwards, with the document in it, so that a test can look at it.
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly)) return false;
    f.write(html.toUtf8());
    return true;
}

// ---------------------------------------------------------------------------------------------------------
// The platform

PlataformaPrueba::PlataformaPrueba()
    : rutaPrograma(QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QDir::currentPath()),
      directorioActual(QDir::currentPath()) {}

PlataformaPrueba::~PlataformaPrueba() {
    // Views outliving the platform stop reporting to it.
    for (VistaHtmlPrueba* v : vistas) v->plataforma_ = nullptr;
}

int PlataformaPrueba::PrimerBoton(int flags) {
    switch (flags & 7) {
    case vbAbortRetryIgnore: return vbAbort;
    case vbYesNoCancel:
    case vbYesNo: return vbYes;
    case vbRetryCancel: return vbRetry;
    default: return vbOK;
    }
}

int PlataformaPrueba::MsgBox(const QString& texto, int flags, const QString& titulo) {
    CajaMensaje caja{texto, flags, titulo, 0};
    if (!respuestas.empty()) {
        caja.respuesta = respuestas.front();
        respuestas.pop_front();
    } else if (contesta) {
        caja.respuesta = contesta(caja);
    } else {
        caja.respuesta = PrimerBoton(flags);
    }
    cajas.push_back(caja);
    return caja.respuesta;
}

QStringList PlataformaPrueba::Textos() const {
    QStringList t;
    for (const auto& c : cajas) t << c.texto;
    return t;
}

const CajaMensaje& PlataformaPrueba::UltimaCaja() const {
    if (cajas.empty()) throw std::logic_error("no se mostró ninguna caja");
    return cajas.back();
}

void PlataformaPrueba::AlMostrar(const QString& pantalla, std::function<void(QDialog&)> guion) {
    guiones_.insert(pantalla, std::move(guion));
}

void PlataformaPrueba::MuestraModal(QDialog& pantalla) {
    const QString clase = QString::fromLatin1(pantalla.metaObject()->className());
    modales << clase;
    auto guion = guiones_.value(clase);
    if (!guion && !pantalla.objectName().isEmpty()) guion = guiones_.value(pantalla.objectName());
    if (!guion) return;
    if (muestraModales) pantalla.show();
    // A copy: the script may register other scripts while it runs.
    guion(pantalla);
    if (muestraModales && pantalla.isVisible()) pantalla.hide();
}

void PlataformaPrueba::Muestra(QWidget& pantalla) {
    mostradas << QString::fromLatin1(pantalla.metaObject()->className());
    pantalla.show();
}

bool PlataformaPrueba::dialogoArchivo(DialogoArchivo& d, bool guardar) {
    DialogoRegistrado r{d, guardar, RespuestaArchivo::Cancela()};
    if (!archivos.empty()) {
        r.respuesta = archivos.front();
        archivos.pop_front();
    }
    dialogos.push_back(r);
    if (r.respuesta.cancelar) {
        d.cancelado = true;
        return false;
    }
    d.cancelado = false;
    d.archivo = r.respuesta.archivo;
    if (r.respuesta.indiceFiltro > 0) d.indiceFiltro = r.respuesta.indiceFiltro;
    return true;
}

bool PlataformaPrueba::AbreArchivo(DialogoArchivo& d) { return dialogoArchivo(d, false); }
bool PlataformaPrueba::GuardaArchivo(DialogoArchivo& d) { return dialogoArchivo(d, true); }

std::unique_ptr<VistaHtml> PlataformaPrueba::CreaVistaHtml(QWidget* padre) {
    return std::make_unique<VistaHtmlPrueba>(padre, this);
}

void PlataformaPrueba::FocoSiguiente(QWidget* desde) {
    focos.emplace_back(desde);
    if (mueveFoco && desde) AccesoFoco::Siguiente(desde);
}

bool PlataformaPrueba::FijaFechaSistema(const QDate& fecha) {
    fechasFijadas.push_back(fecha);
    return resultadoFijaFecha;
}

bool PlataformaPrueba::IniciaPrograma(const QString& ruta) {
    programas << ruta;
    return resultadoIniciaPrograma;
}

void PlataformaPrueba::Termina() {
    terminado = true;
    ++terminaciones;
}

}  // namespace ui
