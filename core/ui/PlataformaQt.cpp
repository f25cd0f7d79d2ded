#include "core/ui/PlataformaQt.h"

#include "core/vb/Cadenas.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QGridLayout>
#include <QHash>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextFrame>
#include <QSpacerItem>
#include <QTimer>
#include <QTranslator>
#include <QUrl>

#include <arpa/inet.h>
#include <cstdlib>
#include <ctime>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

namespace ui {

// ---------------------------------------------------------------------------------------------------------
// Message boxes

int PlataformaQt::MsgBox(const QString& texto, int flags, const QString& titulo) {
    QMessageBox caja(QApplication::activeWindow());
    caja.setWindowTitle(titulo.isEmpty() ? TituloPrograma : titulo);
    caja.setTextFormat(Qt::PlainText);
    caja.setText(texto);
    switch (flags & 0x70) {
    case vbCritical: caja.setIcon(QMessageBox::Critical); break;
    case vbQuestion: caja.setIcon(QMessageBox::Question); break;
    case vbExclamation: caja.setIcon(QMessageBox::Warning); break;
    case vbInformation: caja.setIcon(QMessageBox::Information); break;
    default: break;
    }
    // The buttons in the order the language shows them, each with its answer.
    struct Boton {
        QMessageBox::StandardButton qt;
        int respuesta;
    };
    std::vector<Boton> botones;
    switch (flags & 7) {
    case vbOKCancel: botones = {{QMessageBox::Ok, vbOK}, {QMessageBox::Cancel, vbCancel}}; break;
    case vbAbortRetryIgnore:
        botones = {{QMessageBox::Abort, vbAbort}, {QMessageBox::Retry, vbRetry}, {QMessageBox::Ignore, vbIgnore}};
        break;
    case vbYesNoCancel: botones = {{QMessageBox::Yes, vbYes}, {QMessageBox::No, vbNo}, {QMessageBox::Cancel, vbCancel}}; break;
    case vbYesNo: botones = {{QMessageBox::Yes, vbYes}, {QMessageBox::No, vbNo}}; break;
    case vbRetryCancel: botones = {{QMessageBox::Retry, vbRetry}, {QMessageBox::Cancel, vbCancel}}; break;
    default: botones = {{QMessageBox::Ok, vbOK}}; break;
    }
    QMessageBox::StandardButtons conjunto;
    for (const auto& b : botones) conjunto |= b.qt;
    caja.setStandardButtons(conjunto);
    // Spanish captions, whatever the system's translations.
    for (const auto& b : botones) {
        QAbstractButton* boton = caja.button(b.qt);
        switch (b.respuesta) {
        case vbOK: boton->setText(QStringLiteral("Aceptar")); break;
        case vbCancel: boton->setText(QStringLiteral("Cancelar")); break;
        case vbAbort: boton->setText(QStringLiteral("&Anular")); break;
        case vbRetry: boton->setText(QStringLiteral("&Reintentar")); break;
        case vbIgnore: boton->setText(QStringLiteral("&Omitir")); break;
        case vbYes: boton->setText(QStringLiteral("&Sí")); break;
        case vbNo: boton->setText(QStringLiteral("&No")); break;
        }
    }
    // The whole title in the title bar: the box is at least as wide as the title, its frame's buttons and
    // margins. The bar's font is the window manager's; a bold one of the program's size is a fair measure.
    QFont letraTitulo = caja.font();
    letraTitulo.setBold(true);
    const int anchoTitulo = QFontMetrics(letraTitulo).horizontalAdvance(caja.windowTitle()) + 140;
    if (auto* rejilla = qobject_cast<QGridLayout*>(caja.layout()))
        rejilla->addItem(new QSpacerItem(anchoTitulo, 0, QSizePolicy::Minimum, QSizePolicy::Fixed), rejilla->rowCount(), 0,
                         1, rejilla->columnCount());
    const size_t predeterminado = static_cast<size_t>((flags & 0x300) >> 8);
    caja.setDefaultButton(botones[predeterminado < botones.size() ? predeterminado : 0].qt);
    caja.exec();
    QAbstractButton* pulsado = caja.clickedButton();
    for (const auto& b : botones)
        if (caja.button(b.qt) == pulsado) return b.respuesta;
    // Closed without a button: what Escape answers.
    for (const auto& b : botones)
        if (b.respuesta == vbCancel || b.respuesta == vbNo) return b.respuesta;
    return botones.front().respuesta;
}

void PlataformaQt::MuestraModal(QDialog& pantalla) { pantalla.exec(); }

void PlataformaQt::Muestra(QWidget& pantalla) {
    pantalla.show();
    pantalla.raise();
    pantalla.activateWindow();
}

void PlataformaQt::Beep() { QApplication::beep(); }

// ---------------------------------------------------------------------------------------------------------
// File dialogs

QStringList FiltrosQt(const QString& filtro) {
    QStringList resultado;
    if (filtro.trimmed().isEmpty()) return resultado;
    const QStringList partes = filtro.split(u'|');
    static const QRegularExpression patronesAlFinal(QStringLiteral("\\s*\\([^()]*\\)\\s*$"));
    for (qsizetype i = 0; i < partes.size(); i += 2) {
        QString descripcion = partes[i].trimmed();
        const QString patron = i + 1 < partes.size() ? partes[i + 1] : QStringLiteral("*");
        if (descripcion.isEmpty() && patron.trimmed().isEmpty()) continue;
        QStringList patrones;
        for (const QString& p : patron.split(u';', Qt::SkipEmptyParts))
            if (!p.trimmed().isEmpty()) patrones << p.trimmed();
        if (patrones.isEmpty()) patrones << QStringLiteral("*");
        descripcion.remove(patronesAlFinal);
        if (descripcion.isEmpty()) descripcion = patrones.join(u' ');
        resultado << descripcion + QStringLiteral(" (") + patrones.join(u' ') + u')';
    }
    return resultado;
}

namespace {

// Pattern i (1-based) of a filter "Texto (*.htm)|*.htm|Todos (*.*)|*.*"; out of range, the first.
QString PatronDelFiltro(const QString& filtro, int indiceFiltro) {
    const QStringList partes = filtro.split(u'|');
    const int pares = static_cast<int>((partes.size() + 1) / 2);
    if (pares == 0) return QString();
    const int i = indiceFiltro >= 1 && indiceFiltro <= pares ? indiceFiltro : 1;
    const qsizetype posicion = 2 * (i - 1) + 1;
    return posicion < partes.size() ? partes[posicion] : QString();
}

}  // namespace

QString ExtensionDelFiltro(const QString& filtro, int indiceFiltro) {
    const QString primero = PatronDelFiltro(filtro, indiceFiltro).section(u';', 0, 0).trimmed();
    static const QRegularExpression simple(QStringLiteral("^\\*\\.([^*?\\[\\]/\\\\ ]+)$"));
    const QRegularExpressionMatch m = simple.match(primero);
    if (!m.hasMatch()) return QString();
    const QString extension = m.captured(1);
    return extension.endsWith(u'.') ? QString() : extension;
}

QString ConExtensionDelFiltro(const QString& archivo, const QString& filtro, int indiceFiltro) {
    const qsizetype barra = std::max(archivo.lastIndexOf(u'/'), archivo.lastIndexOf(u'\\'));
    const QString nombre = archivo.mid(barra + 1);
    if (nombre.isEmpty()) return archivo;
    const qsizetype punto = nombre.lastIndexOf(u'.');
    // "informe.txt" has one; ".oculto" and "informe." don't.
    if (punto > 0 && punto < nombre.size() - 1) return archivo;
    const QString extension = ExtensionDelFiltro(filtro, indiceFiltro);
    if (extension.isEmpty()) return archivo;
    QString resultado = archivo;
    while (resultado.endsWith(u'.') && resultado.size() > barra + 2) resultado.chop(1);
    return resultado + u'.' + extension;
}

namespace {

enum : int { cdlOFNOverwritePrompt = 2 };

bool DialogoDeArchivo(DialogoArchivo& d, bool guardar) {
    QFileDialog dialogo(QApplication::activeWindow(), d.titulo);
    dialogo.setAcceptMode(guardar ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialogo.setFileMode(guardar ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (guardar && !(d.flags & cdlOFNOverwritePrompt)) dialogo.setOption(QFileDialog::DontConfirmOverwrite);
    const QStringList filtros = FiltrosQt(d.filtro);
    if (!filtros.isEmpty()) {
        dialogo.setNameFilters(filtros);
        const int i = d.indiceFiltro >= 1 && d.indiceFiltro <= filtros.size() ? d.indiceFiltro : 1;
        dialogo.selectNameFilter(filtros[i - 1]);
        if (guardar) {
            // The dialog adds the chosen filter's extension itself, so that its question before
            // overwriting is about the file that will be written.
            const QString filtro = d.filtro;
            dialogo.setDefaultSuffix(ExtensionDelFiltro(filtro, i));
            QObject::connect(&dialogo, &QFileDialog::filterSelected, &dialogo, [&dialogo, filtros, filtro](const QString& elegido) {
                dialogo.setDefaultSuffix(ExtensionDelFiltro(filtro, static_cast<int>(filtros.indexOf(elegido)) + 1));
            });
        }
    }
    if (!d.archivo.isEmpty()) dialogo.selectFile(d.archivo);
    if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty()) {
        d.cancelado = true;
        return false;
    }
    d.cancelado = false;
    d.archivo = QDir::toNativeSeparators(dialogo.selectedFiles().constFirst());
    if (!filtros.isEmpty()) {
        const qsizetype i = filtros.indexOf(dialogo.selectedNameFilter());
        if (i >= 0) d.indiceFiltro = static_cast<int>(i) + 1;
        if (guardar) d.archivo = ConExtensionDelFiltro(d.archivo, d.filtro, d.indiceFiltro);
    }
    return true;
}

}  // namespace

bool PlataformaQt::AbreArchivo(DialogoArchivo& d) { return DialogoDeArchivo(d, false); }
bool PlataformaQt::GuardaArchivo(DialogoArchivo& d) { return DialogoDeArchivo(d, true); }

// ---------------------------------------------------------------------------------------------------------
// Qt's own texts in Spanish

namespace {

// What Qt's Spanish catalogue still lacks of the dialogs the program shows: the kinds of entry in the file
// dialog's list. Asked before the catalogue, it answers only these.
class ComplementoEspanol : public QTranslator {
public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char* contexto, const char* texto, const char* desambiguacion, int n) const override {
        (void)desambiguacion;
        (void)n;
        if (qstrcmp(contexto, "QAbstractFileIconProvider") != 0 || !texto) return QString();
        static const QHash<QByteArray, QString> textos = {
            {"Folder", QStringLiteral("Carpeta")},
            {"File Folder", QStringLiteral("Carpeta de archivos")},
            {"Drive", QStringLiteral("Unidad")},
            {"File", QStringLiteral("Archivo")},
            {"%1 File", QStringLiteral("Archivo %1")},
        };
        return textos.value(QByteArray(texto));
    }
};

}  // namespace

bool CargaTraducciones() {
    static bool cargada = false;
    static bool hecho = false;
    if (hecho || !QCoreApplication::instance()) return cargada;
    hecho = true;
    // Dates and month names in the toolkit's own widgets (the file dialog's list) in Spanish as well; the
    // program's own formats don't depend on it.
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Mexico));
    const QString carpeta = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    for (const char* nombre : {"qtbase_es", "qt_es"}) {
        auto* traductor = new QTranslator(QCoreApplication::instance());
        if (traductor->load(QString::fromLatin1(nombre), carpeta) && QCoreApplication::installTranslator(traductor)) {
            if (qstrcmp(nombre, "qtbase_es") == 0) cargada = true;
        } else {
            delete traductor;
        }
    }
    QCoreApplication::installTranslator(new ComplementoEspanol(QCoreApplication::instance()));
    return cargada;
}

// ---------------------------------------------------------------------------------------------------------
// The rest of the system

std::unique_ptr<VistaHtml> PlataformaQt::CreaVistaHtml(QWidget* padre) { return std::make_unique<VistaHtmlQt>(padre); }

namespace {
// focusNextPrevChild is protected; a pointer to it taken through a derived class calls it on any widget.
struct AccesoFoco : QWidget {
    static bool Siguiente(QWidget* w) { return (w->*(&AccesoFoco::focusNextPrevChild))(true); }
};
}  // namespace

void PlataformaQt::FocoSiguiente(QWidget* desde) {
    if (!desde) return;
    // After the handler that asked for it, from whatever has the focus in its window by then, as a posted
    // Tab key would be.
    QPointer<QWidget> origen(desde);
    QTimer::singleShot(0, desde, [origen] {
        if (origen) AccesoFoco::Siguiente(origen);
    });
}

bool PlataformaQt::FijaFechaSistema(const QDate& fecha) {
    if (!fecha.isValid()) return false;
    // The new day at the present time of day.
    const QDateTime nueva(fecha, QTime::currentTime());
    timespec ts{};
    ts.tv_sec = static_cast<time_t>(nueva.toSecsSinceEpoch());
    ts.tv_nsec = 0;
    return clock_settime(CLOCK_REALTIME, &ts) == 0;
}

QString PlataformaQt::DireccionLocal() {
    ifaddrs* lista = nullptr;
    if (getifaddrs(&lista) != 0) return QString();
    QString direccion;
    for (ifaddrs* i = lista; i; i = i->ifa_next) {
        if (!i->ifa_addr || i->ifa_addr->sa_family != AF_INET) continue;
        if ((i->ifa_flags & IFF_LOOPBACK) || !(i->ifa_flags & IFF_UP)) continue;
        char texto[INET_ADDRSTRLEN] = {};
        const auto* a = reinterpret_cast<const sockaddr_in*>(i->ifa_addr);
        if (inet_ntop(AF_INET, &a->sin_addr, texto, sizeof texto)) {
            direccion = QString::fromLatin1(texto);
            break;
        }
    }
    freeifaddrs(lista);
    return direccion;
}

bool PlataformaQt::IniciaPrograma(const QString& ruta) {
    if (ruta.trimmed().isEmpty()) return false;
    if (QFileInfo::exists(ruta)) return QProcess::startDetached(ruta, {});
    QStringList partes = QProcess::splitCommand(ruta);
    if (partes.isEmpty()) return false;
    const QString programa = partes.takeFirst();
    return QProcess::startDetached(programa, partes);
}

void PlataformaQt::Termina() {
    // The language's End: nothing after it runs.
    if (QCoreApplication::instance()) QCoreApplication::exit(0);
    std::exit(0);
}

QString PlataformaQt::RutaPrograma() { return QCoreApplication::applicationDirPath(); }

QString PlataformaQt::DirectorioActual() { return QDir::currentPath(); }

// ---------------------------------------------------------------------------------------------------------
// Documents

QString DecodificaDocumento(const QByteArray& bytes) {
    if (bytes.startsWith("\xEF\xBB\xBF")) return QString::fromUtf8(bytes.mid(3));
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF")) {
        QStringDecoder d(QStringConverter::Utf16);
        return d.decode(bytes);
    }
    static const QRegularExpression declarada(
        QStringLiteral("(?:charset|encoding)\\s*=\\s*[\"']?\\s*([A-Za-z0-9_.:-]+)"),
        QRegularExpression::CaseInsensitiveOption);
    const QString cabeza = QString::fromLatin1(bytes.left(2048));
    const QRegularExpressionMatch m = declarada.match(cabeza);
    const QString nombre = m.hasMatch() ? m.captured(1).toLower() : QString();
    if (nombre == u"utf-8" || nombre == u"utf8") return QString::fromUtf8(bytes);
    if (nombre.isEmpty()) {
        QStringDecoder utf8(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
        const QString texto = utf8.decode(bytes);
        if (!utf8.hasError()) return texto;
    }
    // Windows-1252 (ISO-8859-1 differs only in the control range, which documents never use).
    QString texto;
    texto.reserve(bytes.size());
    for (char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        if (b >= 0x80 && b < 0xA0)
            texto += vb::Chr(b);
        else
            texto += QChar(static_cast<char16_t>(b));
    }
    return texto;
}

std::vector<std::pair<qsizetype, qsizetype>> TablasPrincipales(const QString& html) {
    std::vector<std::pair<qsizetype, qsizetype>> tablas;
    const auto esEtiqueta = [&html](qsizetype i, QLatin1String nombre) {
        const qsizetype fin = i + nombre.size();
        if (html.mid(i, nombre.size()).compare(nombre, Qt::CaseInsensitive) != 0) return false;
        return fin >= html.size() || !html[fin].isLetterOrNumber();
    };
    int profundidad = 0;
    qsizetype inicio = 0;
    for (qsizetype i = html.indexOf(u'<'); i >= 0 && i < html.size(); i = html.indexOf(u'<', i + 1)) {
        if (html.mid(i, 4) == QLatin1String("<!--")) {
            const qsizetype fin = html.indexOf(QLatin1String("-->"), i + 4);
            if (fin < 0) break;
            i = fin + 2;
            continue;
        }
        for (const QLatin1String crudo : {QLatin1String("style"), QLatin1String("script")}) {
            if (!esEtiqueta(i + 1, crudo)) continue;
            const qsizetype fin = html.indexOf(QLatin1String("</") + crudo, i + 1, Qt::CaseInsensitive);
            i = fin < 0 ? html.size() : fin;
            break;
        }
        if (i >= html.size()) break;
        if (esEtiqueta(i + 1, QLatin1String("table"))) {
            if (profundidad++ == 0) inicio = i;
        } else if (esEtiqueta(i + 1, QLatin1String("/table")) && profundidad > 0) {
            const qsizetype cierre = html.indexOf(u'>', i);
            if (cierre < 0) break;
            if (--profundidad == 0) tablas.emplace_back(inicio, cierre + 1);
        }
    }
    return tablas;
}

VistaHtmlQt::VistaHtmlQt(QWidget* padre) : navegador_(new QTextBrowser(padre)) {
    navegador_->setObjectName(QStringLiteral("VistaHtml"));
    navegador_->setOpenExternalLinks(false);
    carga_ = new QTimer(navegador_);
    carga_->setInterval(0);
    QObject::connect(carga_, &QTimer::timeout, navegador_, [this] { sigueCarga(); });
}

VistaHtmlQt::~VistaHtmlQt() { delete navegador_.data(); }

QWidget* VistaHtmlQt::widget() { return navegador_; }

void VistaHtmlQt::Navigate(const QString& direccion) {
    dejaCarga();
    estado_ = 1;
    html_.clear();
    if (direccion.trimmed().compare(u"about:blank", Qt::CaseInsensitive) == 0 || direccion.trimmed().isEmpty()) {
        url_ = QStringLiteral("about:blank");
        if (navegador_) {
            navegador_->clear();
            navegador_->setSearchPaths({});
        }
        estado_ = 4;
        return;
    }
    const QUrl url = direccion.startsWith(u"file:", Qt::CaseInsensitive)
                         ? QUrl(direccion)
                         : QUrl::fromLocalFile(QDir::fromNativeSeparators(direccion));
    url_ = url.toString();
    QFile archivo(url.toLocalFile());
    if (archivo.open(QIODevice::ReadOnly)) html_ = DecodificaDocumento(archivo.readAll());
    if (navegador_) {
        // Pictures and style sheets named relative to the document are found beside it.
        navegador_->setSearchPaths({QFileInfo(url.toLocalFile()).absolutePath()});
        navegador_->document()->setBaseUrl(url);
        if (html_.isEmpty() && !archivo.isOpen())
            navegador_->setPlainText(QStringLiteral("No se puede mostrar la página: ") + direccion);
        else
            navegador_->setHtml(html_);
    }
    estado_ = 4;
}

void VistaHtmlQt::DocumentOpen() {
    dejaCarga();
    html_.clear();
    estado_ = 1;
}

void VistaHtmlQt::DocumentWrite(const QString& html) { html_ += html; }

void VistaHtmlQt::DocumentClose() {
    dejaCarga();
    estado_ = 4;
    if (!navegador_) return;
    std::vector<std::pair<qsizetype, qsizetype>> tablas;
    if (html_.size() >= LargoProgresivo) tablas = TablasPrincipales(html_);
    if (tablas.size() < 3) {
        navegador_->setHtml(html_);
        return;
    }
    // The first table and what follows the last now; each table between, with the text before it, later.
    // The pieces read the page's style from the document, as the first part reads it from its head.
    QString estilo;
    const qsizetype primera = tablas.front().first;
    for (qsizetype i = html_.indexOf(QLatin1String("<style"), 0, Qt::CaseInsensitive); i >= 0 && i < primera;
         i = html_.indexOf(QLatin1String("<style"), i + 1, Qt::CaseInsensitive)) {
        const qsizetype desde = html_.indexOf(u'>', i);
        const qsizetype hasta = html_.indexOf(QLatin1String("</style"), i, Qt::CaseInsensitive);
        if (desde < 0 || hasta < desde) break;
        estilo += html_.mid(desde + 1, hasta - desde - 1);
    }
    navegador_->document()->setDefaultStyleSheet(estilo);
    const size_t ultima = tablas.size() - 1;
    navegador_->setHtml(html_.left(tablas.front().second) + html_.mid(tablas[ultima - 1].second));
    for (size_t t = 1; t < ultima; ++t)
        pendientes_.push_back(html_.mid(tablas[t - 1].second, tablas[t].second - tablas[t - 1].second));
    // Right after the first table, in the document as shown.
    const QList<QTextFrame*> marcos = navegador_->document()->rootFrame()->childFrames();
    if (marcos.isEmpty()) {
        pendientes_.clear();
        navegador_->setHtml(html_);
        return;
    }
    cursorPendiente_ = QTextCursor(navegador_->document());
    cursorPendiente_.setPosition(marcos.front()->lastPosition() + 1);
    estado_ = 3;
    carga_->start();
}

void VistaHtmlQt::sigueCarga() {
    if (pendientes_.empty() || !navegador_) {
        dejaCarga();
        estado_ = 4;
        return;
    }
    cursorPendiente_.insertHtml(pendientes_.front());
    pendientes_.pop_front();
    if (pendientes_.empty()) {
        carga_->stop();
        estado_ = 4;
    }
}

void VistaHtmlQt::terminaCarga() {
    while (!pendientes_.empty()) sigueCarga();
}

void VistaHtmlQt::dejaCarga() {
    if (carga_) carga_->stop();
    pendientes_.clear();
    cursorPendiente_ = QTextCursor();
    if (navegador_) navegador_->document()->setDefaultStyleSheet(QString());
}

QPrinter& VistaHtmlQt::impresora() {
    if (!impresora_) impresora_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *impresora_;
}

bool VistaHtmlQt::Imprimir(bool conDialogo) {
    if (!navegador_) return false;
    terminaCarga();
    QPrinter& p = impresora();
    if (conDialogo) {
        QPrintDialog dialogo(&p, navegador_);
        if (dialogo.exec() != QDialog::Accepted) return false;
    }
    navegador_->document()->print(&p);
    return true;
}

void VistaHtmlQt::PaginaApaisada(bool apaisada) {
    impresora().setPageOrientation(apaisada ? QPageLayout::Landscape : QPageLayout::Portrait);
}

bool VistaHtmlQt::ConfigurarPagina() {
    QPageSetupDialog dialogo(&impresora(), navegador_);
    return dialogo.exec() == QDialog::Accepted;
}

bool VistaHtmlQt::GuardarPdf(const QString& ruta) {
    if (!navegador_) return false;
    terminaCarga();
    QPrinter pdf(QPrinter::HighResolution);
    pdf.setOutputFormat(QPrinter::PdfFormat);
    pdf.setOutputFileName(ruta);
    if (impresora_) pdf.setPageLayout(impresora_->pageLayout());
    navegador_->document()->print(&pdf);
    return QFileInfo::exists(ruta);
}

}  // namespace ui
