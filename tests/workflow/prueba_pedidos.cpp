// The order screens: which requests can be ordered, the marks and the select-all box, the list of numbers
// handed to the order document, what the document holds, marking as ordered, leaving without marking, and
// saving the document by the file type chosen.
#include "ayuda_cajas.h"
#include "ayuda_flujo.h"

#include "core/vb/Cadenas.h"
#include "core/vb/Error.h"
#include "workflow/Ped1.h"
#include "workflow/Ped1_Repor.h"

#include <QCheckBox>
#include <QDateTime>
#include <QFile>
#include <QGroupBox>
#include <QPushButton>
#include <QXmlStreamReader>

namespace {

class PruebaPedidos : public PruebaFlujo {
protected:
    void SetUp() override {
        PruebaFlujo::SetUp();
        sistema->rutaPrograma = QStringLiteral(ADQ_SOURCE_DIR);
        Ejecuta("INSERT INTO Editoriales ([No], Nombre) VALUES (12, 'Planeta')");
    }
    // 7 and 12 can be ordered; 15 has no titles, 20 is already ordered.
    void Solicitudes() {
        for (const char* s : {"7, #2024/03/05#, 'Luis', 3, 1, 'S'", "12, #2024/04/10#, 'Marta', 5, 2, 'S'",
                              "15, #2024/04/11#, 'Eva', 4, 1, 'S'", "20, #2024/01/02#, 'Ana', 4, 1, 'P'"})
            Ejecuta(QStringLiteral("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, "
                                   "NoBiblioteca, Estado) VALUES (") + QString::fromUtf8(s) + u')');
        for (const char* t : {"70, 7, 'Cálculo', 12, 'S'", "71, 7, 'Física', NULL, 'I'", "72, 7, 'Química', 12, NULL",
                              "120, 12, 'Ética', 12, 'S'", "200, 20, 'Retórica', 12, 'P'"})
            Ejecuta(QStringLiteral("INSERT INTO [Solicitudes Libros] (ClaveLibro, NoSolicitud, Titulo, NoEditorial, Estado) "
                                   "VALUES (") + QString::fromUtf8(t) + u')');
    }
    static int Marca(controles::ListView& l, int i) { return l.ListItems()(i).SmallIcon().text().toInt(); }
    static void Clic(Ped1& f, int i) {
        f.ListView1->ListItems()(i).setSelected(true);
        emit f.ListView1->Click();
    }
};

TEST_F(PruebaPedidos, SinSolicitudesQuePedirAvisaYDeshabilita) {
    Solicitudes();
    Ejecuta("DELETE FROM [Solicitudes Libros] WHERE NoSolicitud IN (7, 12)");
    Ped1 f;
    f.Form_Load();
    EXPECT_EQ(f.ListView1->ListItems().Count(), 0);     // without titles, or already ordered
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(Caja(sistema->cajas[0]), Caja("No es posible hacer un pedido", ui::vbExclamation,
                                            "No hay ninguna solicitud en proceso."));
    EXPECT_FALSE(f.Check1->isEnabled());
    EXPECT_FALSE(f.Command1->isEnabled());
    EXPECT_EQ(f.Frame2->title(), "Listado de solicitudes pendientes de pedir: 0");
    f.Command1_Click();
    EXPECT_EQ(sistema->UltimaCaja().texto, "No existe informacióin a procesar");
    EXPECT_EQ(sistema->UltimaCaja().titulo, "Error");
    EXPECT_TRUE(sistema->modales.isEmpty());
}

TEST_F(PruebaPedidos, ListaMarcasYSeleccionarTodas) {
    Solicitudes();
    Ped1 f;
    f.Form_Load();
    controles::ListView& l = *f.ListView1;
    EXPECT_EQ(Textos(l), (QStringList{"012", "007"}));
    EXPECT_EQ(l.ListItems()(2).SubItems(3), "Ingeniería");
    EXPECT_EQ(vb::Trim(l.ListItems()(2).SubItems(5)).toInt(), 3);
    EXPECT_EQ(f.Frame2->title(), "Listado de solicitudes pendientes de pedir: 2");
    EXPECT_TRUE(f.Check1->isEnabled());
    EXPECT_FALSE(f.Command1->isEnabled());
    EXPECT_TRUE(sistema->cajas.empty());

    Clic(f, 2);                                          // an unset mark counts as unmarked
    EXPECT_EQ(Marca(l, 2), 1);
    EXPECT_EQ(f.Contar(), 1);
    EXPECT_TRUE(f.Command1->isEnabled());
    Clic(f, 2);
    EXPECT_EQ(Marca(l, 2), 0);
    EXPECT_FALSE(f.Command1->isEnabled());

    f.Check1->setChecked(true);
    EXPECT_EQ(f.Contar(), 2);
    EXPECT_TRUE(f.Command1->isEnabled());
    Clic(f, 1);                                          // the box doesn't follow the rows
    EXPECT_TRUE(f.Check1->isChecked());
    EXPECT_EQ(f.Contar(), 1);
    f.Check1->setChecked(false);                         // unmarks also what was marked by hand
    EXPECT_EQ(f.Contar(), 0);
    EXPECT_FALSE(f.Command1->isEnabled());
}

TEST_F(PruebaPedidos, DocumentoYMarcarComoPedidos) {
    Solicitudes();
    globales::NavValor = vb::Variant(QStringLiteral("012, 007"));
    Ped1_Repor r;
    r.Form_Load();
    EXPECT_TRUE(r.DocumentoXml.contains("href=\"xsls\\Formato.xsl\""));
    EXPECT_EQ(r.DocumentoXml.count("<Libro>"), 4);    // whatever the title's own state
    EXPECT_FALSE(r.DocumentoXml.contains("Retórica"));
    EXPECT_EQ(UltimoDocumento(), r.DocumentoHtml);
    EXPECT_TRUE(r.DocumentoHtml.contains("Química"));

    r.Command1_Click();
    EXPECT_TRUE(r.Marcado);
    EXPECT_FALSE(r.Command1->isEnabled());
    EXPECT_EQ(Caja(sistema->UltimaCaja()), Caja("Libros marcados", ui::vbInformation,
                                            "Los libros ya fueron marcados como pedidos"));
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Solicitudes General] WHERE Estado='P' AND NoSolicitud IN (7, 12)"), "2");
    const QDateTime pedido = QDateTime::fromString(
        Valor("SELECT Format(FechaPedido,'yyyy/mm/dd hh:nn:ss') FROM [Solicitudes General] WHERE NoSolicitud=12"),
        "yyyy/MM/dd HH:mm:ss");
    EXPECT_LT(std::abs(pedido.secsTo(QDateTime::currentDateTime())), 120);
    EXPECT_EQ(Valor("SELECT Estado & IIf(IsNull(FechaPedido), ' sin fecha', ' con fecha') FROM [Solicitudes General] "
                    "WHERE NoSolicitud=15"), "S sin fecha");
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Solicitudes Libros] WHERE Estado='P'"), "5");
    const size_t cajas = sistema->cajas.size();
    r.Command3_Click();                                  // marked: leaves without asking
    EXPECT_EQ(sistema->cajas.size(), cajas);
}

TEST_F(PruebaPedidos, ProcesarPasaLosNumerosEnElOrdenDeLaListaYSalirSinMarcarPregunta) {
    Solicitudes();
    sistema->muestraModales = true;
    bool abiertaTrasNo = false, abiertaTrasEscape = false;
    sistema->AlMostrar("Ped1_Repor", [&](QDialog& d) {
        sistema->Responde({ui::vbNo, ui::vbNo, ui::vbYes});
        d.close();                                       // the close box
        abiertaTrasNo = d.isVisible();
        d.reject();                                      // Escape
        abiertaTrasEscape = d.isVisible();
        static_cast<Ped1_Repor&>(d).Command3->click();
    });
    Ped1 f;
    f.Form_Load();
    f.Check1->setChecked(true);
    emit f.ListView1->ColumnClick(3);                    // by requester: Luis (007) first
    f.Command1_Click();
    EXPECT_EQ(globales::NavValor.text(), "007, 012");
    EXPECT_TRUE(abiertaTrasNo);
    EXPECT_TRUE(abiertaTrasEscape);
    ASSERT_EQ(sistema->cajas.size(), 3u);
    EXPECT_EQ(Caja(sistema->cajas[0]), Caja("Precaución", ui::vbYesNo,
                                            "No ha marcado los libros como pedidos.\r\n ¿Desea salir de todos modos ?"));
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Solicitudes General] WHERE Estado='S'"), "3");
    // Loaded again, nothing marked.
    EXPECT_EQ(f.ListView1->ListItems().Count(), 2);
    EXPECT_EQ(f.Contar(), 0);
    EXPECT_FALSE(f.Check1->isChecked());
    EXPECT_FALSE(f.Command1->isEnabled());

    f.Command1_Click();                                  // nothing marked: the list is "0"
    EXPECT_EQ(globales::NavValor.text(), "0");
}

// The order as the supplier and the department read it: the saved XML names the copies ordered
// `EjemplaresPedidos`, and the page adds them up.
TEST_F(PruebaPedidos, ElPedidoGuardadoLlevaLosEjemplaresPedidos) {
    Solicitudes();
    Ejecuta("UPDATE [Solicitudes Libros] SET [Ejemplares Pedidos]=ClaveLibro - 68 WHERE NoSolicitud=7");   // 2, 3, 4
    globales::NavValor = vb::Variant(QStringLiteral("007"));
    Ped1_Repor r;
    r.Form_Load();
    const QString xml = dir.filePath("pedido.xml");
    sistema->archivos = {ui::RespuestaArchivo::Elige(xml, 2)};
    r.Command2_Click();
    QFile f(xml);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    QXmlStreamReader x(QString::fromLatin1(f.readAll()));   // written in the single-byte code page
    QStringList copias, otros;
    while (!x.atEnd()) {
        if (x.readNext() != QXmlStreamReader::StartElement) continue;
        if (x.name() == QStringLiteral("EjemplaresPedidos")) copias << x.readElementText();
        else if (x.name().compare(QStringLiteral("EjemplaresPedidos"), Qt::CaseInsensitive) == 0) otros << x.name().toString();
    }
    EXPECT_FALSE(x.hasError()) << x.errorString().toStdString();
    EXPECT_EQ(copias, (QStringList{"2", "3", "4"}));
    EXPECT_TRUE(otros.isEmpty());

    EXPECT_TRUE(r.DocumentoHtml.contains("Títulos: 3. Ejemplares pedidos: 9"));
    EXPECT_FALSE(r.DocumentoHtml.contains("Periodo"));
    // Request 7: school 3, library 1.
    for (const char* dato : {">Ingeniería<", ">Central<", ">05/mar/2024<"}) EXPECT_TRUE(r.DocumentoHtml.contains(dato)) << dato;
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(PruebaPedidos, GuardarPorTipoDeArchivoEImprimir) {
    Solicitudes();
    globales::NavValor = vb::Variant(QStringLiteral("007"));
    Ped1_Repor r;
    r.Form_Load();
    const QString html = dir.filePath("pedido.xml"), xml = dir.filePath("pedido.htm"), otro = dir.filePath("otro.txt");
    sistema->archivos = {ui::RespuestaArchivo::Elige(html, 1), ui::RespuestaArchivo::Elige(xml, 2),
                         ui::RespuestaArchivo::Elige(otro, 3), ui::RespuestaArchivo::Cancela()};
    for (int i = 0; i < 4; ++i) r.Command2_Click();
    ASSERT_EQ(sistema->dialogos.size(), 4u);
    EXPECT_EQ(sistema->dialogos[0].dialogo.filtro, "(Archivos HTML) | *.htm| (Archivos XML) | *.xml|");
    auto lee = [](const QString& ruta) {
        QFile f(ruta);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(no existe)");
    };
    // The file type decides, not the extension typed.
    EXPECT_EQ(lee(html), vb::Windows1252(r.DocumentoHtml + "\r\n"));
    EXPECT_EQ(lee(xml), vb::Windows1252(r.DocumentoXml + "\r\n"));
    EXPECT_FALSE(QFile::exists(otro));
    EXPECT_FALSE(r.Marcado);
    EXPECT_TRUE(sistema->cajas.empty());

    auto* vista = static_cast<ui::VistaHtmlPrueba*>(r.ListView1.get());
    vista->aceptaImprimir = false;                       // cancelled: no box
    r.Command4->click();
    r.Command5->click();
    EXPECT_EQ(vista->configuraciones, 1);
    EXPECT_TRUE(sistema->cajas.empty());

    struct VistaQueFalla : ui::VistaHtmlPrueba {
        using VistaHtmlPrueba::VistaHtmlPrueba;
        bool Imprimir(bool) override { throw vb::Error(482, "Error de impresora"); }
    };
    r.ListView1 = std::make_unique<VistaQueFalla>(&r, sistema);
    r.Command4->click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(Caja(sistema->cajas[0]), Caja(QString(), ui::vbCritical, "Error de impresora"));
}

}  // namespace
