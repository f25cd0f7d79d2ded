// The pieces under the import screens: the document loader (positions, names, what it refuses), the two
// workbook readers (every kind of cell they meet) and the sheet's conversion to the request document.
#include "ayuda_intercambio.h"

#include "core/vb/Error.h"
#include "exchange/DocumentoSolicitud.h"
#include "exchange/HojaSolicitud.h"
#include "exchange/LectorHoja.h"
#include "exchange/LectorXls.h"
#include "exchange/LectorXlsx.h"

#include <QHash>

namespace {

using intercambio::DocumentoXml;

class PruebaHojas : public PruebaIntercambio {};

// A sheet held in memory, for the conversion alone.
class HojaDePrueba : public intercambio::LectorHoja {
public:
    QHash<QPair<int, int>, QString> celdas;
    void Abre(const QString&) override {}
    QString Celda(int fila, int columna) override { return celdas.value({fila, columna}); }
    void Cierra() override {}
};

// ---- The document loader -------------------------------------------------------------------------------------

TEST(DocumentoSolicitud, CadaFichaSeLeePorPosicionYLaEditorialPorNombre) {
    DocumentoXml d;
    // ISBN before the publisher: it lands in the publisher's column by its position, and the publisher, found
    // by name, overwrites it; a comment counts as a child. Entities and CDATA are the text they stand for.
    ASSERT_TRUE(d.loadXML("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><Solicitud><Bibliografia>"
                          "<Ficha Id=\"1\"><Libro> A &amp; B </Libro><Autor><![CDATA[<An\xf3nimo>]]></Autor><ISBN>123</ISBN>"
                          "<Editorial>  Planeta </Editorial><Publicacion>2</Publicacion><Ejemplares>4</Ejemplares></Ficha>"
                          "<Ficha><Libro>C</Libro><!-- nota --><Autor>D</Autor><Editorial>Nadie</Editorial><ISBN/>"
                          "<Publicacion/><Ejemplares/></Ficha></Bibliografia></Solicitud>"));
    QStringList buscadas;
    const auto filas = intercambio::LeeFichas(d, QStringLiteral("2"), [&](const QString& nombre) {
        buscadas << nombre;
        return nombre == u"Planeta" ? 7 : 0;
    });
    ASSERT_EQ(filas.size(), 2u);
    EXPECT_EQ(filas[0].Titulo, QStringLiteral("A & B"));
    EXPECT_EQ(filas[0].SubItems[1], QStringLiteral("<Anónimo>"));
    EXPECT_EQ(filas[0].SubItems[2], QStringLiteral("Planeta"));
    EXPECT_EQ(filas[0].SubItems[3], QString());
    EXPECT_EQ(filas[0].SubItems[4], QStringLiteral("2"));
    EXPECT_EQ(filas[0].SubItems[6], QStringLiteral("7"));
    // The comment took the author's place; the author, third, gave way to the publisher.
    EXPECT_EQ(filas[1].SubItems[1], QStringLiteral("nota"));
    EXPECT_EQ(filas[1].SubItems[2], QStringLiteral("** Nadie"));
    EXPECT_EQ(filas[1].SubItems[6], QString());
    EXPECT_EQ(buscadas, QStringList({QStringLiteral("Planeta"), QStringLiteral("Nadie")}));
    // Six children are read: the second Ficha's last one is missing.
    try {
        DocumentoXml corto;
        ASSERT_TRUE(corto.loadXML("<Solicitud><Ficha><a/><b/><c/><d/><e/></Ficha></Solicitud>"));
        intercambio::LeeFichas(corto, QStringLiteral("1"), [](const QString&) { return 1; });
        ADD_FAILURE();
    } catch (const vb::Error& e) {
        EXPECT_EQ(e.Number(), 91);
    }
}

TEST(DocumentoSolicitud, NoCargaLoQueNoEsXmlBienFormadoNiUnaDeclaracionDeTipo) {
    DocumentoXml d;
    EXPECT_FALSE(d.loadXML(QByteArray()));
    EXPECT_FALSE(d.loadXML("<a><b></a>"));
    EXPECT_FALSE(d.loadXML("<a>\xff\xfe</a>"));                 // no valid UTF-8, and no other encoding declared
    EXPECT_FALSE(d.load(QStringLiteral("/no/existe.xml")));
    // Entities of a document type could grow a few bytes into gigabytes: the declaration alone refuses it.
    EXPECT_FALSE(d.loadXML("<!DOCTYPE a [<!ENTITY x \"xxxxxxxxxx\"><!ENTITY y \"&x;&x;&x;&x;&x;\">]><a>&y;</a>"));
    EXPECT_FALSE(d.cargado());
    ASSERT_TRUE(d.loadXML("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><s:Solicitud xmlns:s=\"u\"><Director>Pe\xf1" "a</Director>"
                          "</s:Solicitud>"));
    EXPECT_EQ(DocumentoXml::nodeName(d.documentElement()), QStringLiteral("s:Solicitud"));
    EXPECT_EQ(DocumentoXml::text(d.getElementsByTagName(QStringLiteral("Director")).at(0)), QStringLiteral("Peña"));
    EXPECT_TRUE(d.getElementsByTagName(QStringLiteral("director")).empty());
}

// ---- The binary workbook --------------------------------------------------------------------------------------

// Its dates, numbers and texts reach the request written by the import of the same workbook; here, the cells
// outside the sheet and the reader once closed.
TEST(LectorXls, FueraDeLaHojaYCerradoNoHayCeldas) {
    intercambio::LectorXls hoja;
    hoja.Abre(QStringLiteral(ADQ_SOURCE_DIR "/tests/exchange/solicitud.xls"));
    EXPECT_EQ(hoja.Celda(7, 1), QStringLiteral("Pedro Páramo"));
    EXPECT_EQ(hoja.Celda(70000, 300), QString());
    EXPECT_EQ(hoja.Celda(0, 0), QString());
    hoja.Cierra();
    EXPECT_EQ(hoja.Celda(7, 1), QString());
}

// ---- The Open XML workbook ------------------------------------------------------------------------------------

TEST_F(PruebaHojas, LectorXlsxSigueLasRelacionesYDaCadaClaseDeCelda) {
    const QByteArray principal = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
    const QByteArray rel = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
    const QString ruta = Zip(
        QStringLiteral("raro.xlsx"),
        {{"_rels/.rels", "<Relationships><Relationship Id=\"r1\" Type=\"" + rel + "/officeDocument\" Target=\"xl/libro.xml\"/>"
                         "</Relationships>"},
         {"xl/libro.xml", "<x:workbook xmlns:x=\"" + principal + "\" xmlns:r=\"" + rel + "\"><x:workbookPr date1904=\"1\"/>"
                          "<x:sheets><x:sheet name=\"Primera\" r:id=\"rId7\"/><x:sheet name=\"Segunda\" r:id=\"rId8\"/>"
                          "</x:sheets></x:workbook>"},
         {"xl/_rels/libro.xml.rels",
          "<Relationships><Relationship Id=\"rId8\" Type=\"" + rel + "/worksheet\" Target=\"hojas/dos.xml\"/>"
          "<Relationship Id=\"rId7\" Type=\"" + rel + "/worksheet\" Target=\"/xl/hojas/uno.xml\"/>"
          "<Relationship Id=\"rId9\" Type=\"" + rel + "/sharedStrings\" Target=\"cadenas.xml\"/>"
          "<Relationship Id=\"rId10\" Type=\"" + rel + "/styles\" Target=\"../xl/estilos.xml\"/></Relationships>"},
         {"xl/cadenas.xml", "<sst><si><t>simple</t></si><si><r><t xml:space=\"preserve\">rica </t></r><r><rPr/><t>en partes</t></r>"
                            "<rPh><t>guía</t></rPh></si></sst>"},
         {"xl/estilos.xml", "<styleSheet><numFmts><numFmt numFmtId=\"164\" formatCode=\"[$-80A]dd\\/mmm\\/yyyy\"/>"
                            "<numFmt numFmtId=\"165\" formatCode=\"0.00&quot; días&quot;\"/><numFmt numFmtId=\"166\" formatCode=\"[h]:mm\"/>"
                            "</numFmts><cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/><xf numFmtId=\"164\"/><xf numFmtId=\"165\"/>"
                            "<xf numFmtId=\"166\"/><xf numFmtId=\"49\"/></cellXfs></styleSheet>"},
         {"xl/hojas/uno.xml",
          "<worksheet><sheetData>"
          "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" t=\"s\"><v>1</v></c><c r=\"C1\" t=\"s\"><v>9</v></c></row>"
          "<row r=\"2\"><c t=\"inlineStr\"><is><t>en línea</t></is></c><c t=\"str\"><f>A1&amp;\"\"</f><v>fórmula</v></c>"
          "<c r=\"D2\" t=\"b\"><v>1</v></c></row>"
          "<row><c r=\"A3\" s=\"1\"><v>0</v></c><c r=\"B3\" s=\"2\"><v>43904</v></c><c r=\"C3\" s=\"3\"><v>2.5</v></c>"
          "<c r=\"D3\" s=\"4\"><v>1.5</v></c><c r=\"E3\" s=\"5\"><v>7</v></c><c r=\"F3\"><v>3</v></c><c r=\"G3\" t=\"e\"><v>#N/A</v></c>"
          "<c r=\"H3\" s=\"1\"><v>99999999</v></c></row>"
          "<row r=\"7\"><c r=\"A7\"><v>1.5E+20</v></c><c r=\"B7\"><v>0.1</v></c><c r=\"C7\"/><c r=\"zz9\"><v>1</v></c></row>"
          "</sheetData></worksheet>"},
         {"xl/hojas/dos.xml", "<worksheet><sheetData><row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t>segunda</t></is></c></row>"
                              "</sheetData></worksheet>"}});
    intercambio::LectorXlsx hoja;
    hoja.Abre(ruta);
    const QList<std::tuple<int, int, QString>> esperadas = {
        {1, 1, QStringLiteral("simple")},       {1, 2, QStringLiteral("rica en partes")}, {1, 3, QString()},
        {2, 1, QStringLiteral("en línea")},     {2, 2, QStringLiteral("fórmula")},        {2, 4, QStringLiteral("Verdadero")},
        // The 1904 date system, a built-in and a custom date format, a quoted "d" that is no day, an elapsed
        // time, a text format, a serial beyond the last date.
        {3, 1, QStringLiteral("01/01/1904")},   {3, 2, QStringLiteral("15/03/2024")},     {3, 3, QStringLiteral("2.5")},
        {3, 4, QStringLiteral("02/01/1904 12:00:00")}, {3, 5, QStringLiteral("7")},       {3, 6, QStringLiteral("3")},
        {3, 7, QStringLiteral("#N/A")},         {3, 8, QStringLiteral("99999999")},
        {7, 1, QStringLiteral("1.5E+20")},      {7, 2, QStringLiteral("0.1")},            {7, 3, QString()},
        {4, 1, QString()},                      {1048577, 1, QString()}};
    for (const auto& [fila, columna, texto] : esperadas) EXPECT_EQ(hoja.Celda(fila, columna), texto) << fila << "," << columna;
}

TEST_F(PruebaHojas, LectorXlsxRehusaUnaParteDesmedida) {
    // 65 MB of blanks pack into a few kilobytes.
    const QString ruta = Zip(QStringLiteral("bomba.xlsx"),
                             {{"xl/workbook.xml", "<workbook><sheets><sheet r:id=\"a\" xmlns:r=\"r\"/></sheets></workbook>"},
                              {"xl/_rels/workbook.xml.rels", "<Relationships><Relationship Id=\"a\" Target=\"h.xml\"/></Relationships>"},
                              {"xl/h.xml", "<worksheet>" + QByteArray(65 * 1024 * 1024, ' ') + "</worksheet>"}});
    intercambio::LectorXlsx hoja;
    try {
        hoja.Abre(ruta);
        ADD_FAILURE();
    } catch (const vb::Error& e) {
        EXPECT_EQ(e.Number(), 1004);
        EXPECT_EQ(e.Description(), QStringLiteral("No se pudo abrir el libro 'bomba.xlsx': una parte del libro es demasiado grande para leerla."));
    }
}

// ---- The conversion ------------------------------------------------------------------------------------------

TEST(HojaSolicitud, EditorialEnBlancoCopiasSumadasYValoresSinEscapar) {
    HojaDePrueba h;
    h.celdas = {{{1, 2}, QStringLiteral("1/3/24")}, {{2, 2}, QStringLiteral("Ana <directora>")}, {{3, 2}, QStringLiteral("3")},
                {{7, 1}, QStringLiteral("Uno")},    {{7, 3}, QStringLiteral(" ")},            {{7, 5}, QStringLiteral("1.5")},
                {{8, 1}, QStringLiteral("Dos")},    {{8, 3}, QStringLiteral("  ")},
                {{9, 1}, QStringLiteral("Tres")},   {{9, 3}, QStringLiteral("   ")},          {{9, 5}, QStringLiteral("2")},
                {{11, 1}, QStringLiteral("Después del hueco")}};
    const QString doc = intercambio::DocumentoDeHoja(h, QStringLiteral("x.xls"));
    const QStringList lineas = doc.split(QStringLiteral("\r\n"));
    EXPECT_EQ(lineas.mid(3, 3), QStringList({QStringLiteral("<FechaEnvio>1/3/24</FechaEnvio>"),
                                             QStringLiteral("<Director>Ana <directora></Director>"),
                                             QStringLiteral("<ClaveEscuela>3</ClaveEscuela>")}));
    EXPECT_EQ(lineas.mid(6, 2), QStringList({QStringLiteral("<TotalLibros>3</TotalLibros>"),
                                             QStringLiteral("<TotalEjemplares>3.5</TotalEjemplares>")}));
    EXPECT_EQ(doc.count(QStringLiteral("<Editorial>S.N.</Editorial>")), 2);
    EXPECT_TRUE(doc.contains(QStringLiteral("<Editorial>   </Editorial>")));
    EXPECT_FALSE(doc.contains(QStringLiteral("Después")));
    EXPECT_TRUE(doc.endsWith(QStringLiteral("</Ficha>\r\n</Bibliografia>\r\n</Solicitud>")));
}

TEST_F(PruebaHojas, ElDocumentoSeEscribeEnLatin1JuntoAlLibro) {
    EXPECT_EQ(intercambio::ArchivoDeSalida(QStringLiteral("/a/b/"), QStringLiteral("Sol.2024.marzo.xls")), QStringLiteral("/a/b/Sol.xml"));
    EXPECT_EQ(intercambio::ArchivoDeSalida(QStringLiteral("/a/b"), QStringLiteral("x.xlsx")), QStringLiteral("/a/b/x.xml"));
    EXPECT_EQ(intercambio::ArchivoDeSalida(QStringLiteral("C:\\Envios\\"), QStringLiteral("Sol")), QStringLiteral("C:\\Envios\\Sol.xml"));
    EXPECT_EQ(intercambio::ArchivoDeSalida(QString(), QStringLiteral("s.xls")), QStringLiteral("s.xml"));
    const QString ruta = Ruta(QStringLiteral("s.xml"));
    intercambio::GuardaDocumento(ruta, QStringLiteral("Peña 5 € — fin"));
    EXPECT_EQ(Lee(ruta), QByteArray("Pe\xf1" "a 5 ? ? fin"));
    try {
        intercambio::GuardaDocumento(Ruta(QStringLiteral("no/hay/carpeta.xml")), QStringLiteral("x"));
        ADD_FAILURE();
    } catch (const vb::Error& e) {
        EXPECT_EQ(e.Number(), 75);
    }
}

}  // namespace
