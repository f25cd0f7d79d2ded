// The seam to the toolkit: the wrapper every handler runs through, the scripted platform the tests rely on,
// and the parts of the Qt platform that run without a person: filters, documents, the embedded view.
#include "ayuda_ui.h"

#include "core/ui/Ficha.h"
#include "core/ui/PlataformaQt.h"

#include <QDialog>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QFontMetrics>
#include <QTimer>
#include <QDialogButtonBox>
#include <QLibraryInfo>
#include <QPushButton>
#include <QFile>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QTextDocument>
#include <QVBoxLayout>
#include <stdexcept>

namespace {

using prueba_ui::ConSistema;

class Plataforma_ : public ConSistema {};

TEST_F(Plataforma_, ProtegidoMuestraLaFallaYNoLaDejaSalir) {
    int antes = 0;
    EXPECT_NO_THROW(ui::Protegido(QStringLiteral("Command1_Click"), [&] {
        ++antes;
        throw vb::Error(3022, QStringLiteral("Valor duplicado"));
    }));
    EXPECT_EQ(antes, 1);
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].texto, QStringLiteral("Se produjo el error 3022\r\nValor duplicado"));
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbCritical);
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("Adquisiciones"));

    // Anything else that escapes is shown too.
    EXPECT_NO_THROW(ui::Protegido(QString(), [] { throw std::runtime_error("roto"); }));
    EXPECT_NO_THROW(ui::Protegido(QString(), [] { throw 7; }));
    ui::Protegido(QString(), [] {});   // a handler that ends well shows nothing
    ASSERT_EQ(sistema->cajas.size(), 3u);
    EXPECT_TRUE(sistema->cajas[1].texto.startsWith(QStringLiteral("Se produjo el error 51\r\n")));
    EXPECT_TRUE(sistema->cajas[1].texto.contains(QStringLiteral("roto")));
    EXPECT_EQ(sistema->cajas[2].flags, ui::vbCritical);
    EXPECT_FALSE(sistema->terminado);
}

TEST_F(Plataforma_, DuranteElArranqueLaFallaTerminaElPrograma) {
    {
        const ui::ArranqueEnCurso arranque;
        { const ui::ArranqueEnCurso anidado; }
        // The end comes after the box.
        int terminacionesAlMostrar = -1;
        sistema->contesta = [this, &terminacionesAlMostrar](const ui::CajaMensaje&) {
            terminacionesAlMostrar = sistema->terminaciones;
            return ui::vbOK;
        };
        ui::Protegido(QString(), [] { throw vb::Error(3024, QStringLiteral("No se encontró el archivo")); });
        sistema->contesta = nullptr;
        EXPECT_EQ(terminacionesAlMostrar, 0);
        ASSERT_EQ(sistema->cajas.size(), 1u);
        EXPECT_EQ(sistema->cajas[0].texto, QStringLiteral("Se produjo el error 3024\r\nNo se encontró el archivo"));
        EXPECT_EQ(sistema->terminaciones, 1);
    }
    EXPECT_FALSE(ui::ArranqueEnCurso::Activo());
    ui::Protegido(QString(), [] { throw vb::Error(3022, QStringLiteral("Valor duplicado")); });
    EXPECT_EQ(sistema->cajas.size(), 2u);
    EXPECT_EQ(sistema->terminaciones, 1);
}

TEST_F(Plataforma_, ArchivosYVistas) {
    sistema->archivos = {ui::RespuestaArchivo::Elige(QStringLiteral("/tmp/a.xml"), 2)};
    ui::DialogoArchivo d{QStringLiteral("Guardar"), QStringLiteral("HTML (*.htm)|*.htm|XML (*.xml)|*.xml"), 1, QString(), 0};
    EXPECT_TRUE(ui::Sistema().GuardaArchivo(d));
    EXPECT_EQ(d.indiceFiltro, 2);
    // Nothing scripted: cancelled, the file name left as it was.
    EXPECT_FALSE(ui::Sistema().AbreArchivo(d));
    EXPECT_TRUE(d.cancelado);
    EXPECT_EQ(d.archivo, QStringLiteral("/tmp/a.xml"));
    ASSERT_EQ(sistema->dialogos.size(), 2u);
    EXPECT_FALSE(sistema->dialogos[1].guardar);

    // Views: written documents are kept, files are read by their encoding, a view that goes leaves the list.
    QTemporaryDir dir;
    const QString ruta = dir.filePath(QStringLiteral("r.htm"));
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("<html><body>Cat\xE1logo</body></html>");
    f.close();
    {
        QWidget padre;
        auto vista = ui::Sistema().CreaVistaHtml(&padre);
        ASSERT_EQ(sistema->vistas.size(), 1u);
        vista->Navigate(QStringLiteral("about:blank"));
        vista->DocumentOpen();
        vista->DocumentWrite(QStringLiteral("<p>uno"));
        vista->DocumentWrite(QStringLiteral("</p>"));
        vista->DocumentClose();
        EXPECT_EQ(vista->DocumentHtml(), QStringLiteral("<p>uno</p>"));
        vista->Navigate(ruta);
        EXPECT_TRUE(vista->DocumentHtml().contains(QStringLiteral("Catálogo")));
        EXPECT_TRUE(vista->Imprimir());
        EXPECT_EQ(sistema->vistas[0]->impresiones, 1);
    }
    EXPECT_TRUE(sistema->vistas.empty());
    EXPECT_EQ(sistema->documentos.size(), 2);
    EXPECT_EQ(sistema->documentos[0], QStringLiteral("<p>uno</p>"));
}

TEST(PlataformaQt, FiltrosYCodificaciones) {
    EXPECT_EQ(ui::FiltrosQt(QStringLiteral("Texto (*.txt)|*.txt|Hojas|*.xls;*.xlsx|Todos los archivos (*.*)|*.*")),
              (QStringList{"Texto (*.txt)", "Hojas (*.xls *.xlsx)", "Todos los archivos (*.*)"}));
    EXPECT_TRUE(ui::FiltrosQt(QString()).isEmpty());

    // Declared encoding first; without one, UTF-8 when it reads as such, else Windows-1252.
    EXPECT_EQ(ui::DecodificaDocumento(QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xF1</a>")),
              QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>ñ</a>"));
    EXPECT_EQ(ui::DecodificaDocumento(QByteArray("a\xC3\xB1")), QStringLiteral("añ"));
    EXPECT_EQ(ui::DecodificaDocumento(QByteArray("\x80 \x93x\x94")), QStringLiteral("€ “x”"));
}

// What a save dialog returns: a bare name takes the chosen filter's extension, a name with one keeps it.
TEST(PlataformaQt, ExtensionDelFiltroAlGuardar) {
    const QString filtro = QStringLiteral("Texto (*.htm)|*.htm|Documento XML (*.xml)|*.xml|Libros (*.xls;*.xlsx)|*.xls;*.xlsx|Todos (*.*)|*.*");
    // Several patterns: the first; "*.*" names none; out of range: the first filter; a dot in a folder is no extension.
    const std::tuple<const char*, int, const char*> casos[] = {
        {"/home/ana/pedido4", 3, "/home/ana/pedido4.xls"}, {"/home/ana/pedido4", 4, "/home/ana/pedido4"},
        {"/home/ana/pedido4", 0, "/home/ana/pedido4.htm"}, {"/home/ana/pedido4", 9, "/home/ana/pedido4.htm"},
        {"/home/ana/pedido4.HTM", 2, "/home/ana/pedido4.HTM"}, {"C:\\datos.1\\pedido4", 2, "C:\\datos.1\\pedido4.xml"},
        {"/home/ana/.pedido", 1, "/home/ana/.pedido.htm"}, {"/home/ana/pedido4.", 1, "/home/ana/pedido4.htm"},
        {"/home/ana/", 1, "/home/ana/"}};
    for (const auto& [archivo, indice, esperado] : casos)
        EXPECT_EQ(ui::ConExtensionDelFiltro(QString::fromUtf8(archivo), filtro, indice), QString::fromUtf8(esperado)) << archivo << " " << indice;
    // Filters without a plain extension, or none at all, leave the name alone.
    EXPECT_EQ(ui::ConExtensionDelFiltro(QStringLiteral("pedido4"), QStringLiteral("Copias (pedido?.*)|pedido?.*"), 1), QStringLiteral("pedido4"));
    EXPECT_EQ(ui::ConExtensionDelFiltro(QStringLiteral("pedido4"), QString(), 1), QStringLiteral("pedido4"));
    EXPECT_EQ(ui::ExtensionDelFiltro(QStringLiteral("Intercambio (*.exp)|*.exp"), 1), QStringLiteral("exp"));
}

// The real save dialog, answered as a person would: a bare name comes back with the chosen filter's
// extension, and the filter chosen is reported.
TEST(PlataformaQt, DialogoDeGuardarAgregaLaExtension) {
    QTemporaryDir carpeta;
    ui::PlataformaQt plataforma;
    const QString filtro = QStringLiteral("Página HTML (*.htm)|*.htm|Documento XML (*.xml)|*.xml|Todos (*.*)|*.*");
    const QStringList filtros = ui::FiltrosQt(filtro);
    const struct {
        const char* escrito;
        int filtroElegido;      // 0: the one offered
        const char* esperado;
        int indice;
    } casos[] = {{"pedido4", 0, "pedido4.htm", 1}, {"pedido4", 2, "pedido4.xml", 2}, {"pedido4.txt", 0, "pedido4.txt", 1}};
    for (const auto& c : casos) {
        QTimer::singleShot(0, [&] {
            auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialogo) return;
            if (c.filtroElegido) {
                dialogo->selectNameFilter(filtros[c.filtroElegido - 1]);
                emit dialogo->filterSelected(filtros[c.filtroElegido - 1]);
            }
            dialogo->selectFile(carpeta.filePath(QString::fromUtf8(c.escrito)));
            QMetaObject::invokeMethod(dialogo, "accept");
        });
        ui::DialogoArchivo d{QStringLiteral("Guardar pedido"), filtro, 1, carpeta.filePath(QStringLiteral("x")), 0};
        ASSERT_TRUE(plataforma.GuardaArchivo(d)) << c.escrito;
        EXPECT_EQ(d.archivo, carpeta.filePath(QString::fromUtf8(c.esperado))) << c.escrito << " " << c.filtroElegido;
        EXPECT_EQ(d.indiceFiltro, c.indice);
    }
}

// Qt's own dialogs and buttons speak Spanish once the translations are loaded.
TEST(PlataformaQt, TraduccionesDeQtEnEspanol) {
    ASSERT_TRUE(ui::CargaTraducciones()) << "qtbase_es.qm en " << QLibraryInfo::path(QLibraryInfo::TranslationsPath).toStdString();
    EXPECT_TRUE(ui::CargaTraducciones());   // once is enough, twice does no harm
    QDialogButtonBox botones(QDialogButtonBox::Yes | QDialogButtonBox::Cancel);
    EXPECT_EQ(botones.button(QDialogButtonBox::Yes)->text().remove(u'&'), QStringLiteral("Sí"));
    EXPECT_NE(QCoreApplication::translate("QPrintDialog", "Print"), QStringLiteral("Print"));
    // What the catalogue lacks comes from the program; the rest is left to the catalogue.
    EXPECT_EQ(QCoreApplication::translate("QAbstractFileIconProvider", "Folder", "All other platforms"), QStringLiteral("Carpeta"));
    EXPECT_EQ(QCoreApplication::translate("QFileDialog", "Look in:"), QStringLiteral("Ver en:"));
}

// A box is at least as wide as its title, whatever the length of its text.
TEST(PlataformaQt, CajaTanAnchaComoSuTitulo) {
    ui::PlataformaQt plataforma;
    const QString titulo = QStringLiteral("Actualización de tabla [ Solicitudes Libros ] - una larga, muy larga");
    int ancho = 0;
    QTimer::singleShot(0, [&ancho] {
        if (QWidget* caja = QApplication::activeModalWidget()) {
            ancho = caja->width();
            caja->close();
        }
    });
    EXPECT_EQ(plataforma.MsgBox(QStringLiteral("Sí"), ui::vbCritical, titulo), ui::vbOK);
    QFont negrita = QApplication::font();
    negrita.setBold(true);
    EXPECT_GT(ancho, QFontMetrics(negrita).horizontalAdvance(titulo));
}

TEST(PlataformaQt, VistaSobreQTextBrowser) {
    QTemporaryDir dir;
    QWidget padre;
    ui::VistaHtmlQt vista(&padre);
    EXPECT_EQ(vista.ReadyState(), 0);
    vista.Navigate(QStringLiteral("about:blank"));
    EXPECT_EQ(vista.LocationURL(), QStringLiteral("about:blank"));
    vista.DocumentOpen();
    vista.DocumentWrite(QStringLiteral("<html><body><table><tr><td>Solicitud: </td><td>005</td></tr></table>"));
    vista.DocumentWrite(QStringLiteral("</body></html>"));
    vista.DocumentClose();
    EXPECT_EQ(vista.ReadyState(), 4);
    EXPECT_TRUE(vista.navegador()->toPlainText().contains(QStringLiteral("005")));

    const QString pdf = dir.filePath(QStringLiteral("r.pdf"));
    ASSERT_TRUE(vista.GuardarPdf(pdf));
    QFile f(pdf);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_TRUE(f.read(5).startsWith("%PDF"));

    const QString htm = dir.filePath(QStringLiteral("d.htm"));
    QFile h(htm);
    ASSERT_TRUE(h.open(QIODevice::WriteOnly));
    h.write("<html><head><meta charset=\"utf-8\"></head><body>A\xC3\xB1o</body></html>");
    h.close();
    vista.Navigate(QStringLiteral("file://") + htm);
    EXPECT_TRUE(vista.navegador()->toPlainText().contains(QStringLiteral("Año")));
    EXPECT_EQ(vista.widget()->parentWidget(), &padre);

    ui::PlataformaQt qt;
    const QString ip = qt.DireccionLocal();
    if (!ip.isEmpty()) {
        EXPECT_TRUE(QRegularExpression(QStringLiteral("^\\d+\\.\\d+\\.\\d+\\.\\d+$")).match(ip).hasMatch()) << ip.toStdString();
        EXPECT_FALSE(ip.startsWith(QStringLiteral("127.")));
    }
    EXPECT_EQ(qt.RutaPrograma(), QCoreApplication::applicationDirPath());
}

TEST(PlataformaQt, TablasPrincipalesDeUnaPagina) {
    const QString pagina = QStringLiteral(
        "<html><head><style>table { border: 0 } /* <table> */</style></head><body>"
        "<TABLE border=1><tr><td><table><tr><td>dentro</td></tr></table></td></tr></TABLE>"
        "<!-- <table> en un comentario --><tablero>no</tablero>"
        "<table><tr><td>dos</td></tr></table><p>fin</p></body></html>");
    const auto tablas = ui::TablasPrincipales(pagina);
    ASSERT_EQ(tablas.size(), 2u);
    const auto texto = [&pagina](std::pair<qsizetype, qsizetype> t) { return pagina.mid(t.first, t.second - t.first); };
    EXPECT_TRUE(texto(tablas[0]).startsWith(QStringLiteral("<TABLE border=1>")));
    EXPECT_TRUE(texto(tablas[0]).endsWith(QStringLiteral("</td></tr></TABLE>")));
    EXPECT_EQ(texto(tablas[1]), QStringLiteral("<table><tr><td>dos</td></tr></table>"));
    // A table left open has no end to give.
    EXPECT_TRUE(ui::TablasPrincipales(QStringLiteral("<table><tr><td>x")).empty());
}

// A long page of many tables shows its first table and its end at once, and the tables between as the
// event loop turns; once complete it reads as the same page loaded whole.
TEST(PlataformaQt, PaginaLargaSeMuestraMientrasSeLee) {
    QString pagina = QStringLiteral("<html><head><style>td { color: #123456; }</style></head><body><h3>Listado</h3>");
    int fila = 0;
    for (int t = 0; t < 40; ++t) {
        pagina += QStringLiteral("<table border=1>");
        for (int r = 0; r < 50; ++r, ++fila)
            pagina += QStringLiteral("<tr><td>fila %1</td><td>%2</td></tr>\r\n").arg(fila).arg(QString(70, u'x'));
        pagina += QStringLiteral("</table>");
    }
    pagina += QStringLiteral("<p>Antes del pie</p><table><tr><td>Pie</td></tr></table></body></html>");
    ASSERT_GE(pagina.size(), ui::VistaHtmlQt::LargoProgresivo);

    QWidget padre;
    ui::VistaHtmlQt vista(&padre);
    const auto escribe = [&vista, &pagina] {
        vista.Navigate(QStringLiteral("about:blank"));
        vista.DocumentOpen();
        vista.DocumentWrite(pagina);
        vista.DocumentClose();
    };
    const auto lineas = [](const QString& texto) {
        QStringList r = texto.split(u'\n');
        r.removeAll(QString());
        return r;
    };
    escribe();
    EXPECT_EQ(vista.ReadyState(), 3);
    const QString inicio = vista.navegador()->toPlainText();
    EXPECT_TRUE(inicio.contains(QStringLiteral("fila 49\n")));
    EXPECT_FALSE(inicio.contains(QStringLiteral("fila 50\n")));
    EXPECT_TRUE(inicio.contains(QStringLiteral("Antes del pie")));
    EXPECT_EQ(vista.DocumentHtml(), pagina);
    EXPECT_TRUE(ui::EsperaVista(vista));
    QTextBrowser entera;
    entera.setHtml(pagina);
    EXPECT_EQ(lineas(vista.navegador()->toPlainText()), lineas(entera.toPlainText()));
    // The tables put in later have the page's style too.
    const QTextCursor ultima = vista.navegador()->document()->find(QStringLiteral("fila 1999"));
    ASSERT_FALSE(ultima.isNull());
    EXPECT_EQ(ultima.charFormat().foreground().color(), QColor(0x12, 0x34, 0x56));

    // Saving as PDF puts in what is left first; a new page drops it.
    QTemporaryDir dir;
    escribe();
    ASSERT_TRUE(vista.GuardarPdf(dir.filePath(QStringLiteral("largo.pdf"))));
    EXPECT_EQ(vista.ReadyState(), 4);
    EXPECT_TRUE(vista.navegador()->toPlainText().contains(QStringLiteral("fila 1999")));
    escribe();
    vista.Navigate(QStringLiteral("about:blank"));
    EXPECT_EQ(vista.ReadyState(), 4);
    QCoreApplication::processEvents();
    EXPECT_TRUE(vista.navegador()->toPlainText().isEmpty());
    // A short page loads whole at once.
    vista.DocumentOpen();
    vista.DocumentWrite(QStringLiteral("<table><tr><td>a</td></tr></table><table><tr><td>b</td></tr></table><table></table>"));
    vista.DocumentClose();
    EXPECT_EQ(vista.ReadyState(), 4);
}

TEST(PlataformaQt, FocoSiguienteDespuesDelManejador) {
    QWidget ventana;
    auto* uno = new QLineEdit(&ventana);
    auto* dos = new QLineEdit(&ventana);
    auto* capa = new QVBoxLayout(&ventana);
    capa->addWidget(uno);
    capa->addWidget(dos);
    ventana.show();
    QApplication::setActiveWindow(&ventana);
    uno->setFocus();
    QCoreApplication::processEvents();
    ASSERT_TRUE(uno->hasFocus());
    ui::PlataformaQt qt;
    qt.FocoSiguiente(uno);
    // Not while the handler runs: once the events are let through.
    EXPECT_TRUE(uno->hasFocus());
    QCoreApplication::processEvents();
    EXPECT_TRUE(dos->hasFocus());
}

}  // namespace
