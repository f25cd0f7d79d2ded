// The resource request form: replacing and repeating the template's elements, one table row per invoice in
// the list's order, the missing template and the missing tag, the texts changed for one printing, and the
// template that the program installs.
#include "ayuda_finanzas.h"

#include "core/vb/Fecha.h"
#include "finance/pagoFacturasImprimir.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QUrl>

namespace {

// Every tag of the header and one row element, each with its sample.
const char* plantillaCorta = "<html><body>\n<h1><institucion>I</institucion></h1><h2><depSolicitante>D</depSolicitante></h2>"
    "<p><proyectoGral>P</proyectoGral>|<resp_PGral>R</resp_PGral>|<NombdepSolicitante>N</NombdepSolicitante>|"
    "<NoFolio>0</NoFolio>|<fondo>F</fondo>|<proveedor>V</proveedor>|<fecha>H</fecha>|<concepto>C</concepto></p>"
    "<img src=\"<rutalogo>x.gif</rutalogo>\">\n<table>\n"
    "<renglonDetalle><tr><td><IdPagoDetalle>n</IdPagoDetalle></td><td><proyecto>p</proyecto></td>"
    "<td><numFactura>f</numFactura></td><td><Importe>i</Importe></td></tr></renglonDetalle>\n"
    "<tr><td>Total</td><td><total>T</total></td></tr></table></body></html>";

class PruebaImprimir : public PruebaFinanzas {
protected:
    QString programa;
    void SetUp() override {
        PruebaFinanzas::SetUp();
        programa = dir.filePath("programa");
        QDir().mkpath(programa + "/xsls");
        QFile logo(programa + "/xsls/logo.gif");
        ASSERT_TRUE(logo.open(QIODevice::WriteOnly));
        sistema->rutaPrograma = programa;
        globales::IdPagoActual = 42;
        globales::FuentePago = "Federal";
        globales::ConceptoPago = "Libros de texto";
        globales::NombreInstitucion = "Universidad del Valle";
    }
    void TearDown() override {
        globales::NombreInstitucion = "Institución";
        PruebaFinanzas::TearDown();
    }
    void Plantilla(const QString& texto) {
        QFile f(programa + "/xsls/adqSolRecursos.fdc");
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(texto.toUtf8());
    }
    static std::vector<RenglonFactura> Tres() {
        return {{"1", "Artes", "A-10", "$100.00"}, {"2", "Ingeniería", "B-20", "$250.50"}, {"3", "Artes", "A-11", "$9.99"}};
    }
    QString Documento(const pagoFacturasImprimir& f) { return f.WebBrowser1->DocumentHtml(); }
    int Errores() const {
        int n = 0;
        for (const auto& c : sistema->cajas) n += c.texto == QLatin1String("err");
        return n;
    }
};

TEST_F(PruebaImprimir, ReemplazaYDuplicaSobreTextosCortos) {
    pagoFacturasImprimir f({}, vb::Currency(), QString());
    bool ok = false;
    QString t = "a<x>1</x>b<x>2</x>c";
    f.ReemplazaTag(t, "<x>", "V", true, ok);
    EXPECT_EQ(t + (ok ? "+" : "-"), "aVbVc+");
    t = "a<x>1</x>b<x>2</x>c";
    f.ReemplazaTag(t, "<x>", "V", false, ok);
    EXPECT_EQ(t + (ok ? "+" : "-"), "aVb<x>2</x>c+");
    // Failures leave the text as it was: no closing tag, an empty value, a tag of other case.
    for (const auto& [texto, valor] : {std::pair{"a<x>1 b", "V"}, {"a<x>1</x>b", ""}, {"a<X>1</X>b", "V"}}) {
        t = QString::fromUtf8(texto);
        ok = true;
        f.ReemplazaTag(t, "<x>", QString::fromUtf8(valor), true, ok);
        EXPECT_EQ(t, QString::fromUtf8(texto));
        EXPECT_FALSE(ok) << texto;
    }
    // With every element, one that lost its closing tag stops the work as a failure.
    t = "a<x>1</x>b<x>2 c";
    f.ReemplazaTag(t, "<x>", "V", true, ok);
    EXPECT_EQ(t + (ok ? "+" : "-"), "aVb<x>2 c-");

    // The copies start with the character in front of the tag, which also stays before them.
    t = "ab<r>R</r>c";
    f.DuplicaTag(t, "<r>", 2, ok);
    EXPECT_EQ(t + (ok ? "+" : "-"), "abb<r>R</r>\r\nb<r>R</r>\r\nc+");
    t = "ab<r>R</r>c";
    f.DuplicaTag(t, "<r>", 0, ok);
    EXPECT_EQ(t + (ok ? "+" : "-"), "abc+");
    t = "ab<r>R c";
    f.DuplicaTag(t, "<r>", 2, ok);
    EXPECT_EQ(t + (ok ? "+" : "-"), "ab<r>R c-");
    t = "<r>R</r>c";
    EXPECT_THROW(f.DuplicaTag(t, "<r>", 1, ok), vb::Error);
}

TEST_F(PruebaImprimir, UnRenglonPorFacturaEnElOrdenDeLaLista) {
    Plantilla(QString::fromUtf8(plantillaCorta));
    pagoFacturasImprimir f(Tres(), *vb::Currency::parse("360.49"), "  Librería Sur  ");
    f.Form_Load();
    EXPECT_EQ(Errores(), 0);
    const QString logo = QUrl::fromLocalFile(programa + "/xsls/logo.gif").toString();
    EXPECT_EQ(Documento(f), "<html><body>\n<h1>Universidad del Valle</h1><h2>Dirección General de Acervos</h2>"
              "<p>Fortalecimiento del acervo institucional|Mtra. Ilsa Morvane|Dra. Tessa Quorlin|042|Federal|Librería Sur|" +
                  vb::Format(vb::Variant(vb::Fecha::Today()), "dd-mmm-yyyy") +
                  "|Libros de texto</p><img src=\"" + logo + "\">\n<table>\n"
                  "\n<renglonDetalle><tr><td>1</td><td>Artes</td><td>A-10</td><td>$100.00</td></tr></renglonDetalle>\r\n"
                  "\n<renglonDetalle><tr><td>2</td><td>Ingeniería</td><td>B-20</td><td>$250.50</td></tr></renglonDetalle>\r\n"
                  "\n<renglonDetalle><tr><td>3</td><td>Artes</td><td>A-11</td><td>$9.99</td></tr></renglonDetalle>\r\n"
                  "\n<tr><td>Total</td><td>$360.49</td></tr></table></body></html>");

    // An invoice without a number costs one "err": the next number takes the element it left, and the sample
    // stays in the last row. No invoices remove the row element.
    auto renglones = Tres();
    renglones[1].numFactura.clear();
    pagoFacturasImprimir g(renglones, vb::Currency(), "x");
    sistema->cajas.clear();
    g.Form_Load();
    EXPECT_EQ(Errores(), 1);
    EXPECT_TRUE(Documento(g).contains("<td>2</td><td>Ingeniería</td><td>A-11</td><td>$250.50</td>"));
    EXPECT_TRUE(Documento(g).contains("<td>3</td><td>Artes</td><td><numFactura>f</numFactura></td>"));

    pagoFacturasImprimir h({}, vb::Currency(), "x");
    sistema->cajas.clear();
    h.Form_Load();
    EXPECT_EQ(Errores(), 0);
    EXPECT_TRUE(Documento(h).contains("<table>\n\n<tr><td>Total</td><td>$0.00</td></tr>"));
    EXPECT_FALSE(Documento(h).contains("renglonDetalle"));
}

TEST_F(PruebaImprimir, SinPlantillaOSinLogo) {
    pagoFacturasImprimir f(Tres(), vb::Currency(), "x");
    f.Form_Load();
    Caja(1, "Imposible imprimir reporte",
         "No se localizó la plantilla para la impresión del reporte,\r\nasegúrese de que el archivo "
         "'adqSolRecursos.fdc'\r\nse encuentre en la carpeta '\\KORVEL8\\XSLs\\'", ui::vbCritical);
    EXPECT_FALSE(f.cmdImprimir->isEnabled());
    EXPECT_FALSE(f.cmdPersonalizar->isEnabled());
    EXPECT_EQ(f.WebBrowser1->LocationURL(), "about:blank");

    // A template without the logo's element costs one box, and the page is still shown. The program's
    // folder may end in a separator.
    QString sinLogo = QString::fromUtf8(plantillaCorta);
    sinLogo.replace("<img src=\"<rutalogo>x.gif</rutalogo>\">", QString());
    Plantilla(sinLogo);
    sistema->rutaPrograma = programa + u'/';
    pagoFacturasImprimir g(Tres(), vb::Currency(), "x");
    sistema->cajas.clear();
    g.Form_Load();
    EXPECT_EQ(sistema->Textos(), QStringList{"err"});
    EXPECT_TRUE(Documento(g).contains("<td>3</td><td>Artes</td><td>A-11</td>"));
    EXPECT_TRUE(g.cmdImprimir->isEnabled());
}

TEST_F(PruebaImprimir, LosTextosCambiadosDuranLoQueLaForma) {
    Plantilla(QString::fromUtf8(plantillaCorta));
    {
        pagoFacturasImprimir f(Tres(), vb::Currency(), "x");
        f.Form_Load();
        f.show();
        f.cmdPersonalizar_Click();
        EXPECT_TRUE(f.picPersonaliza->isVisible() && !f.cmdPersonalizar->isEnabled());
        QStringList textos;
        for (QLineEdit* t : f.Text) textos << t->text();
        EXPECT_EQ(textos, (QStringList{"Universidad del Valle", "Dirección General de Acervos",
                                       "Fortalecimiento del acervo institucional", "Mtra. Ilsa Morvane", "Dra. Tessa Quorlin"}));
        // Cancelled, nothing changes; accepted, the page is made again with the new texts.
        f.Text[0]->setText("Otra");
        f.Command1_Click();
        EXPECT_TRUE(!f.picPersonaliza->isVisible() && f.cmdPersonalizar->isEnabled());
        f.cmdPersonalizar_Click();
        EXPECT_EQ(f.Text[0]->text(), "Universidad del Valle");
        f.Text[0]->setText("Instituto Norte");
        f.Text[4]->setText("Lic. Ana Paz");
        f.cmdAceptar_Click();
        EXPECT_FALSE(f.picPersonaliza->isVisible());
        EXPECT_TRUE(Documento(f).contains("<h1>Instituto Norte</h1>"));
        EXPECT_TRUE(Documento(f).contains("|Lic. Ana Paz|042|"));
    }
    // A new form starts from the defaults; without an institution text, the standing name.
    globales::NombreInstitucion.clear();
    pagoFacturasImprimir g(Tres(), vb::Currency(), "x");
    g.Form_Load();
    EXPECT_TRUE(Documento(g).contains("<h1>UNIVERSIDAD DE TARVENA</h1>"));
    EXPECT_TRUE(Documento(g).contains("|Dra. Tessa Quorlin|042|"));
    EXPECT_EQ(Errores(), 0);
}

TEST_F(PruebaImprimir, LaPlantillaInstaladaLlevaCadaEtiqueta) {
    sistema->rutaPrograma = QStringLiteral(ADQ_SOURCE_DIR);
    pagoFacturasImprimir f(Tres(), *vb::Currency::parse("360.49"), "Librería Sur");
    f.Form_Load();
    EXPECT_TRUE(sistema->cajas.empty()) << sistema->Textos().join(u',').toStdString();
    const QString html = Documento(f);
    for (const char* tag : {"institucion", "depSolicitante", "proyectoGral", "resp_PGral", "NombdepSolicitante", "NoFolio",
                            "fondo", "proveedor", "fecha", "total", "concepto", "rutalogo", "IdPagoDetalle", "proyecto",
                            "numFactura", "Importe"}) EXPECT_FALSE(html.contains(u'<' + QLatin1String(tag) + u'>')) << tag;
    EXPECT_EQ(html.count("<renglonDetalle>"), 3);
    EXPECT_LT(html.indexOf("A-10"), html.indexOf("B-20"));
    EXPECT_LT(html.indexOf("B-20"), html.indexOf("A-11"));
    const QFileInfo logo(QStringLiteral(ADQ_SOURCE_DIR "/xsls/logo.gif"));
    EXPECT_TRUE(html.contains(QUrl::fromLocalFile(logo.absoluteFilePath()).toString()));
    EXPECT_LT(logo.size(), 10 * 1024);
}

}  // namespace
