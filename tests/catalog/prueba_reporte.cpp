// The catalog report: the statement built from the list's SQL and the criterion, the HTML and XML
// documents, and saving them.
#include "ayuda_catalogo.h"

#include "catalog/FormReporte.h"
#include "catalog/Registro.h"
#include "core/FormPrincipal.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace prueba;

TEST(ValorCriterio, CondicionSegunElTipoDelCampo) {
    struct Caso {
        QString texto;
        int tipo;
        QString condicion;
    };
    const std::vector<Caso> casos = {
        {QStringLiteral("o'hara"), 10, QStringLiteral(" LIKE '*o''hara*'")},
        {QStringLiteral("nota"), 12, QStringLiteral(" LIKE '*nota*'")},
        {QStringLiteral("12abc"), 3, QStringLiteral(" = 12")},
        {QStringLiteral("2.5"), 5, QStringLiteral(" = 2.5")},
        {QStringLiteral("nada"), 4, QStringLiteral(" = 0")},
        {QStringLiteral("5/1/2024"), 8, QStringLiteral(" = #05/ene/2024#")},
        {QStringLiteral("mañana"), 8, QStringLiteral(" = #12/12/2012#")},
        {QStringLiteral("x"), 11, QStringLiteral(" IS NOT NULL")},
        {QStringLiteral("Verdadero"), 1, QStringLiteral("true")},
        {QStringLiteral("0"), 1, QStringLiteral("false")},
        {QStringLiteral("tal cual"), 99, QStringLiteral("tal cual")},
    };
    for (const Caso& c : casos) EXPECT_EQ(FormReporte::ValorCriterio(c.texto, c.tipo), c.condicion) << c.texto.toStdString();
}

TEST(RutinaQuitaAlias, DejaLasColumnasVerdaderasEnSuLugar) {
    EXPECT_EQ(FormReporte::RutinaQuitaAlias(QStringLiteral("NOMBRE,[NO] AS NÚM,DIRECTOR,TELEFONO FROM BIBLIOTECAS ORDER BY 1 ASC")),
              QStringLiteral("NOMBRE, [NO] , DIRECTOR, TELEFONO FROM BIBLIOTECAS ORDER BY 1 ASC"));
    EXPECT_EQ(FormReporte::RutinaQuitaAlias(QStringLiteral("NOMBRE,[NO] AS NÚM,RESPONSABLE,NOBIBLIOTECA AS NUMBIB FROM ESCUELAS")),
              QStringLiteral("NOMBRE, [NO] , RESPONSABLE, NOBIBLIOTECA  FROM ESCUELAS"));
    // Any case; a name holding the two letters is cut there too.
    EXPECT_EQ(FormReporte::RutinaQuitaAlias(QStringLiteral("Casa as C, b from t")), QStringLiteral("C, b from t"));
}

namespace {

class Reporte : public BaseCatalogo {
protected:
    QString css;
    void SetUp() override {
        BaseCatalogo::SetUp();
        CargaBibliotecas();
        QFile hoja(QStringLiteral(ADQ_SOURCE_DIR "/xsls/korvel8v324.css"));
        ASSERT_TRUE(hoja.open(QIODevice::ReadOnly));
        css = QString::fromUtf8(hoja.readAll());
        catalogo::RegistraComandos();
    }
    ui::VistaHtmlPrueba& Vista() { return *sistema->vistas.back(); }
    // Opens the library catalog of the menu, presses "Reporte" and works the report.
    void EnReporte(std::function<void(FormReporte&)> guion) {
        Guion("CatalogoSimple", [](QDialog& d) { static_cast<CatalogoSimple&>(d).Cmd_Click(5); });
        Guion("FormReporte", [guion](QDialog& d) { guion(static_cast<FormReporte&>(d)); });
        FormPrincipal principal;
        principal.Ejecuta(QStringLiteral("Bibliotecas"));
    }
};

const QString N = QStringLiteral("\r\n");

QString Html(const QString& css, const QStringList& cabeza, const QList<QStringList>& filas) {
    QString h = QStringLiteral("<html><head><style type=text/css>") + N + css + N + QStringLiteral("</style></head>") + N +
                QStringLiteral("  <body style = \"margin: 4px;\">") + N +
                QStringLiteral("    <table  width = '100%'  cellspacing = '0'  cellpadding = '2'  border = '1'>") + N +
                QStringLiteral("      <tr>") + N + QStringLiteral("        <th  colspan = '4'><b>Catálogo de Bibliotecas</b></th>") + N +
                QStringLiteral("      </tr>") + N + QStringLiteral("      <tr  id = '0'>") + N;
    for (const QString& c : cabeza) h += QStringLiteral("        <th class='tdHead'>") + c + QStringLiteral("</th>") + N;
    h += QStringLiteral("      </tr>") + N;
    for (int i = 0; i < filas.size(); ++i) {
        h += QStringLiteral("      <tr  id = '%1'>").arg(i + 1) + N;
        for (const QString& v : filas[i]) h += QStringLiteral("        <td>") + v + QStringLiteral("</td>") + N;
        h += QStringLiteral("      </tr>") + N;
    }
    return h + QStringLiteral("    </table>") + N + QStringLiteral("  </body>") + N + QStringLiteral("</html>") + N;
}

QString Xml(const QStringList& cabeza, const QList<QStringList>& filas) {
    QString x = QStringLiteral("<?xml  version = '1.0'  encoding = \"iso-8859-1\" ?>") + N + QStringLiteral("<Reporte>") + N +
                QStringLiteral("  <Registro  num = '0'>") + N;
    for (const QString& c : cabeza) x += QStringLiteral("    <Campo>") + c + QStringLiteral("</Campo>") + N;
    x += QStringLiteral("  </Registro>") + N;
    for (int i = 0; i < filas.size(); ++i) {
        x += QStringLiteral("  <Registro  num = '%1'>").arg(i + 1) + N;
        for (int j = 0; j < cabeza.size(); ++j)
            x += QStringLiteral("    <") + cabeza[j] + u'>' + filas[i][j] + QStringLiteral("</") + cabeza[j] + u'>' + N;
        x += QStringLiteral("  </Registro>") + N;
    }
    return x + QStringLiteral("</Reporte>") + N;
}

// The list's SQL is upper-cased, aliases included; the engine names a column without alias as the table
// spells it, so the heads of those columns are compared without regard to case.
::testing::AssertionResult Igual(const QString& obtenido, const QString& esperado) {
    if (obtenido.compare(esperado, Qt::CaseInsensitive) == 0) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << obtenido.toStdString() << "\n--- esperado ---\n" << esperado.toStdString();
}

}  // namespace

TEST_F(Reporte, TodosLosRegistrosTextoYNumero) {
    const QStringList cabeza = {QStringLiteral("NOMBRE"), QStringLiteral("NÚM"), QStringLiteral("DIRECTOR"), QStringLiteral("TELEFONO")};
    const QStringList central = {QStringLiteral("Biblioteca Central"), QStringLiteral("1"), QStringLiteral("Rosa Paz"), QStringLiteral("555-0101")};
    const QStringList norte = {QStringLiteral("Biblioteca Norte"), QStringLiteral("2"), QStringLiteral("Luis O'Hara"), QStringLiteral("555-0102")};
    const QStringList artes = {QStringLiteral("Biblioteca de Artes"), QStringLiteral("3"), QString(), QStringLiteral("555-0103")};
    bool visto = false;
    EnReporte([&](FormReporte& r) {
        visto = true;
        EXPECT_EQ(r.SQLbase, QStringLiteral("NOMBRE,[NO] AS NÚM,DIRECTOR,TELEFONO FROM BIBLIOTECAS ORDER BY 1 ASC"));
        ASSERT_EQ(r.Combo1->count(), 4);
        EXPECT_EQ(r.Combo1->itemText(1), QStringLiteral("NÚM"));
        EXPECT_TRUE(r.Command1->isEnabled());
        EXPECT_FALSE(r.Command4->isEnabled());
        EXPECT_FALSE(r.Text1->isEnabled());

        r.Combo2->setCurrentIndex(1);
        r.Command1_Click();
        EXPECT_EQ(r.UltimaSentencia, QStringLiteral("SELECT TOP 1000 NOMBRE,[NO] AS NÚM,DIRECTOR,TELEFONO FROM BIBLIOTECAS  ORDER BY 2"));
        EXPECT_TRUE(Igual(Vista().html, Html(css, cabeza, {central, norte, artes})));
        EXPECT_EQ(r.ContenidoHTML, Vista().html);
        EXPECT_TRUE(Igual(r.ContenidoXML, Xml(cabeza, {central, norte, artes})));
        EXPECT_TRUE(r.ContenidoXML.contains(QStringLiteral("<NÚM>1</NÚM>")));
        EXPECT_EQ(r.lblTotal->text(), QStringLiteral("Se encontraron 3 registro(s)"));
        for (QPushButton* b : {r.Command3, r.Command4, r.Command5}) EXPECT_TRUE(b->isEnabled());

        // A text in a field: the text may not be empty; a second "Generar" has no ORDER BY left over.
        r.Option1[1]->setChecked(true);
        r.Option1_Click(1);
        EXPECT_TRUE(r.Text1->isEnabled());
        EXPECT_FALSE(r.Command1->isEnabled());
        r.Combo1->setCurrentIndex(2);
        r.Text1->setText(QStringLiteral("o'hara"));
        EXPECT_TRUE(r.Command1->isEnabled());
        r.Command1_Click();
        EXPECT_TRUE(Igual(r.UltimaSentencia, QStringLiteral("SELECT TOP 1000 NOMBRE,[NO] AS NÚM,DIRECTOR,TELEFONO FROM BIBLIOTECAS  "
                                                            "WHERE ([DIRECTOR] LIKE '*o''hara*') ORDER BY 2")));
        EXPECT_TRUE(Igual(Vista().html, Html(css, cabeza, {norte})));
        EXPECT_EQ(r.lblTotal->text(), QStringLiteral("Se encontraron 1 registro(s)"));

        r.Combo1->setCurrentIndex(1);
        r.Text1->setText(QStringLiteral("3"));
        r.Command1_Click();
        EXPECT_TRUE(Igual(r.UltimaSentencia, QStringLiteral("SELECT TOP 1000 NOMBRE,[NO] AS NÚM,DIRECTOR,TELEFONO FROM BIBLIOTECAS  "
                                                            "WHERE ([NO] = 3) ORDER BY 2")));
        EXPECT_TRUE(Igual(r.ContenidoXML, Xml(cabeza, {artes})));

        r.Text1->setText(QStringLiteral("99"));
        r.Command1_Click();
        EXPECT_TRUE(Igual(r.ContenidoXML, Xml(cabeza, {artes})));
        EXPECT_TRUE(r.isEnabled());
    });
    ASSERT_TRUE(visto);
    ASSERT_EQ(Cajas().size(), 1u);
    EXPECT_EQ(Cajas()[0].texto, QStringLiteral("La búsqueda no arrojó resultados"));
    EXPECT_EQ(Cajas()[0].flags, ui::vbInformation);
    EXPECT_EQ(Cajas()[0].titulo, QStringLiteral("Reporte del Catálogo de Bibliotecas"));
}

TEST_F(Reporte, GuardaHtmlXmlONadaYCancelarEsUnError) {
    const QString htm = dir.filePath(QStringLiteral("reporte.HTM")), xml = dir.filePath(QStringLiteral("reporte.xml")),
                  otro = dir.filePath(QStringLiteral("reporte.txt"));
    Ejecuta(QStringLiteral("UPDATE Bibliotecas SET Director = 'Óscar Núñez' WHERE [No] = 1"));
    sistema->archivos = {ui::RespuestaArchivo::Elige(htm), ui::RespuestaArchivo::Elige(xml, 2), ui::RespuestaArchivo::Elige(otro, 1),
                         ui::RespuestaArchivo::Cancela()};
    QString html, documentoXml;
    int impresiones = 0, configuraciones = 0;
    EnReporte([&](FormReporte& r) {
        r.Command1_Click();
        html = r.ContenidoHTML;
        documentoXml = r.ContenidoXML;
        for (int i = 0; i < 4; ++i) r.Command4_Click();
        r.Command3_Click();
        r.Command5_Click();
        impresiones = Vista().impresiones;
        configuraciones = Vista().configuraciones;
    });
    ASSERT_EQ(sistema->dialogos.size(), 4u);
    EXPECT_EQ(sistema->dialogos[0].dialogo.filtro, QStringLiteral("Archivo HTML (*.htm)|*.htm|Documento XML (*.xml)|*.xml"));
    EXPECT_TRUE(sistema->dialogos[0].guardar);
    auto lee = [](const QString& ruta) {
        QFile f(ruta);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(no existe)");
    };
    const QByteArray bytesHtml = lee(htm);
    EXPECT_TRUE(bytesHtml.contains("<td>\xD3scar N\xFA\xF1" "ez</td>"));
    EXPECT_TRUE(bytesHtml.endsWith("</html>\r\n\r\n"));
    EXPECT_EQ(QString::fromLatin1(lee(xml)), documentoXml + N);
    EXPECT_TRUE(QFile::exists(otro));
    EXPECT_TRUE(lee(otro).isEmpty());
    ASSERT_EQ(Cajas().size(), 1u);
    EXPECT_EQ(Cajas()[0].titulo, QStringLiteral("Error 32755"));
    EXPECT_EQ(Cajas()[0].flags, ui::vbExclamation);
    EXPECT_EQ(impresiones, 1);
    EXPECT_EQ(configuraciones, 1);
    EXPECT_TRUE(html.startsWith(QStringLiteral("<html><head><style type=text/css>\r\n/*")));
}
