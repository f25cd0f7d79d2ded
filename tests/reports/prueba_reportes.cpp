// The report builders: the XML document drawn from a query, its transform by each style sheet beside the
// program, the summary page and the lists the report screens fill.
#include "ayuda_reportes.h"
#include "reports/Reportes.h"

#include "core/vb/Formato.h"

#include <QListWidget>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <gtest/gtest.h>
#include <ostream>

namespace {

using globales::ConsultaDatos;

// What a document holds, read back: the root's name and attributes in order, and each record's children.
struct Leido {
    QString raiz;
    QStringList atributos;                      // "name=value" in document order
    QList<QList<QPair<QString, QString>>> filas;
    bool valido = false;
};

Leido Lee(const QString& xml) {
    Leido r;
    QXmlStreamReader x(xml);
    int nivel = 0;
    while (!x.atEnd()) {
        x.readNext();
        if (x.isStartElement()) {
            ++nivel;
            if (nivel == 1) {
                r.raiz = x.name().toString();
                for (const auto& a : x.attributes()) r.atributos << a.name().toString() + u'=' + a.value().toString();
            } else if (nivel == 2) {
                r.filas.append(QList<QPair<QString, QString>>());
            } else if (nivel == 3) {
                const QString nombre = x.name().toString();
                r.filas.last().append({nombre, x.readElementText()});
                --nivel;
            }
        } else if (x.isEndElement()) {
            --nivel;
        }
    }
    r.valido = !x.hasError() && !r.raiz.isEmpty();
    return r;
}

class Reportes : public PruebaReporte {
protected:
    void SetUp() override {
        PruebaReporte::SetUp();
        globales::FechaInicial = vb::Fecha(QDate(2024, 1, 5));
        globales::FechaFinal = vb::Fecha(QDate(2024, 3, 31));
        Ejecuta("INSERT INTO Editoriales ([No], Nombre) VALUES (1, 'Alfa')");
        Ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, NoEscuela, NoBiblioteca, Estado) "
                "VALUES (7, #02/10/2024#, 3, 2, 'S')");
    }
    void Libro(const QString& titulo, const QString& autor, const QString& ejemplares) {
        Ejecuta(QStringLiteral("INSERT INTO [Solicitudes Libros] (Titulo, Autor, [Ejemplares pedidos], NoEditorial, "
                               "Estado, NoSolicitud, ISBN) VALUES ('%1', %2, %3, 1, 'S', 7, '970-1')")
                    .arg(titulo, autor, ejemplares));
    }
    static ConsultaDatos Solicitados(bool conEjemplares) {
        ConsultaDatos c;
        c.Campos = QStringLiteral("[Solicitudes General].NoBiblioteca,  Titulo, Autor, Editoriales.Nombre as Noeditorial, ISBN");
        if (conEjemplares) c.Campos += QStringLiteral(", [Solicitudes Libros].[Ejemplares Pedidos] AS Ejemplares");
        c.Tabla = QStringLiteral("(([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud="
                                 "[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])");
        c.Clave = QStringLiteral(" where ([Solicitudes General].NoBiblioteca > (0 ))");
        c.Orden = QStringLiteral("ClaveLibro");
        return c;
    }
    QString Xml(const ConsultaDatos& c, const QString& distinto = QStringLiteral("Titulo"), bool soloResumen = false) {
        vacio = false;
        resumen = QStringLiteral("basura");
        return reportes::xml_in(c, QStringLiteral("xsls\\Solicitados.xsl"), QStringLiteral("Reporte"),
                                QStringLiteral("Libro"), distinto, vacio, resumen, soloResumen);
    }
    static QString Fmt(const vb::Fecha& f) { return vb::Format(vb::Variant(f), QStringLiteral("dd/mmm/yyyy")); }

    bool vacio = false;
    QString resumen;
};

TEST_F(Reportes, DocumentoConSusInstruccionesRaizYRegistros) {
    Libro("Rayuela", "'Cortázar'", "2");
    Libro("Ficciones", "Null", "3");
    Libro("Rayuela", "'Cortázar'", "Null");
    const QString xml = Xml(Solicitados(true));
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_FALSE(vacio);
    EXPECT_TRUE(resumen.isEmpty());
    const QStringList lineas = xml.split(u'\n');
    ASSERT_GE(lineas.size(), 3);
    EXPECT_EQ(lineas[0], QStringLiteral("<?xml version=\"1.0\"?>"));
    EXPECT_EQ(lineas[1], QStringLiteral("<?xml-stylesheet href=\"xsls\\Solicitados.xsl\" type=\"text/xsl\"?>"));

    const Leido d = Lee(xml);
    ASSERT_TRUE(d.valido) << xml.toStdString();
    EXPECT_EQ(d.raiz, QStringLiteral("Reporte"));
    // Copies summed over the "Ejemplares" column; the titles are then the rows.
    EXPECT_EQ(d.atributos, (QStringList{"Registros=5", "NumTitulos=3", "fechaReporte=" + Fmt(vb::Fecha::Today()),
                                        "fechaInicial=" + Fmt(globales::FechaInicial),
                                        "fechaFinal=" + Fmt(globales::FechaFinal)}));
    ASSERT_EQ(d.filas.size(), 3);
    const auto& fila = d.filas[1];
    ASSERT_EQ(fila.size(), 6);
    EXPECT_EQ(fila[0], qMakePair(QStringLiteral("NoBiblioteca"), QStringLiteral("2")));
    EXPECT_EQ(fila[2], qMakePair(QStringLiteral("Autor"), QString()));     // Null is empty
    EXPECT_EQ(fila[3], qMakePair(QStringLiteral("Noeditorial"), QStringLiteral("Alfa")));
}

TEST_F(Reportes, RegistrosYTitulosSegunLaColumnaEjemplares) {
    Libro("Rayuela", "'A'", "0");
    Libro("Rayuela", "'A'", "0");
    Libro("Ficciones", "'B'", "0");
    // No "Ejemplares" column, or one that sums to 0: rows, and distinct titles.
    EXPECT_EQ(Lee(Xml(Solicitados(false))).atributos.mid(0, 2), (QStringList{"Registros=3", "NumTitulos=2"}));
    EXPECT_EQ(Lee(Xml(Solicitados(true))).atributos.mid(0, 2), (QStringList{"Registros=3", "NumTitulos=2"}));
    // Without a distinct field there is no NumTitulos.
    const QStringList sin = Lee(Xml(Solicitados(true), QString())).atributos;
    ASSERT_EQ(sin.size(), 4);
    EXPECT_TRUE(sin[1].startsWith(u"fechaReporte="));
}

TEST_F(Reportes, NombresSinBlancosYErrores) {
    Libro("Rayuela", "'A'", "2");
    ConsultaDatos c = Solicitados(false);
    c.Campos = QStringLiteral("Titulo, [Ejemplares pedidos], [Fecha de Recepcion]");
    const Leido d = Lee(Xml(c));
    ASSERT_EQ(d.filas.size(), 1);
    ASSERT_EQ(d.filas[0].size(), 3);
    EXPECT_EQ(d.filas[0][1].first.toLower(), QStringLiteral("ejemplarespedidos"));
    EXPECT_EQ(d.filas[0][1].second, QStringLiteral("2"));
    EXPECT_EQ(d.filas[0][2].first.toLower(), QStringLiteral("fechaderecepcion"));
    EXPECT_EQ(d.filas[0][2].second, QString());

    // A statement the engine refuses: the box, and nothing.
    c.Tabla = QStringLiteral("NoExiste");
    EXPECT_TRUE(Xml(c).isEmpty());
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_TRUE(sistema->cajas[0].texto.startsWith(u"Ocurrió el error: "));
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("Generación de documento XML [xml_in]"));
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbCritical);
}

TEST_F(Reportes, MasDeQuinientosPreguntaPorElResumen) {
    // A forced summary applies to a short result too, but not to an empty one.
    EXPECT_FALSE(Xml(Solicitados(false), QStringLiteral("Titulo"), true).isEmpty());
    EXPECT_TRUE(vacio);
    EXPECT_TRUE(resumen.isEmpty());
    Libro("T0", "'A'", "Null");
    EXPECT_TRUE(Xml(Solicitados(false), QStringLiteral("Titulo"), true).isEmpty());
    EXPECT_EQ(resumen, QStringLiteral("<TR><TD>1 títulos y 1 ejemplares</TD></TR>"));
    for (int i = 1; i < 500; ++i) Libro(QStringLiteral("T%1").arg(i % 7), "'A'", "Null");
    // Exactly 500 rows: no question.
    EXPECT_EQ(Lee(Xml(Solicitados(false))).filas.size(), 500);
    EXPECT_TRUE(sistema->cajas.empty());

    Libro("T1", "'A'", "Null");
    sistema->Responde({ui::vbYes});
    EXPECT_TRUE(Xml(Solicitados(false)).isEmpty());
    EXPECT_FALSE(vacio);
    EXPECT_EQ(resumen, QStringLiteral("<TR><TD>7 títulos y 501 ejemplares</TD></TR>"));
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].texto, QStringLiteral("El reporte solicitado incluirá demasiados títulos,\r\n"
                                                      "¿desea ver solo el resumen de la consulta?"));
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("Demasiada información para generar reporte"));
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbYesNo + ui::vbExclamation);

    // Forced summary: no question.
    EXPECT_TRUE(Xml(Solicitados(false), QStringLiteral("Titulo"), true).isEmpty());
    EXPECT_EQ(sistema->cajas.size(), 1u);
}

// A document with the given root, record and columns; each value is "<column>_<row>".
QString Documento(const QString& raiz, const QStringList& columnas, int filas) {
    QString x = QStringLiteral("<?xml version=\"1.0\"?>\n") + QStringLiteral("<%1 Registros=\"%2\" NumTitulos=\"%2\" fechaReporte=\"01/abr/2024\" fechaInicial=\"05/ene/2024\" "
                        "fechaFinal=\"31/mar/2024\">").arg(raiz).arg(filas);
    for (int i = 0; i < filas; ++i) {
        x += QStringLiteral("<Libro>");
        for (const QString& c : columnas) x += QStringLiteral("<%1>%1_%2</%1>").arg(c).arg(i);
        x += QStringLiteral("</Libro>");
    }
    return x + QStringLiteral("</%1>").arg(raiz);
}

TEST_F(Reportes, CadaHojaMuestraLasFilas) {
    const QStringList base{"NoBiblioteca", "Titulo", "Autor", "Noeditorial", "ISBN", "NoEscuela", "Fecha"};
    // `oculto`: columns not shown as they stand (an internal key; a cost that is no number).
    const struct { const char* hoja; const char* raiz; QStringList columnas; QStringList oculto; } casos[] = {
        {"xsls\\Formato.xsl", "Pedidos",
         {"ClaveLibro", "Solicitud", "Titulo", "ISBN", "Autor", "EjemplaresPedidos", "Editorial", "Edicion"}, {"ClaveLibro"}},
        {"xsls\\formato2.xsl", "Reporte", base, {}},
        {"xsls\\Solicitados.xsl", "Reporte", base + QStringList{"Ejemplares"}, {}},
        {"xsls\\Pedidos.xsl", "Reporte", base, {}},
        {"xsls\\ImpAdq.xsl", "Reporte", base, {}},
        {"xsls\\Adquiridos.xsl", "Reporte",
         base.mid(0, 6) + QStringList{"Edicion", "Ejemplaresrecibidos", "Costo", "Factura", "NoAdquisicion", "FechadeRecepcion"},
         {"Costo"}},
        {"xsls\\Donaciones.xsl", "Reporte",
         {"Noadquisicion", "NoBiblioteca", "Nombre", "Titulo", "Autor", "Ejemplares", "Noeditorial", "Edicion", "Fecha"}, {}},
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.hoja);
        const bool pedido = c.raiz == QLatin1String("Pedidos");
        for (int filas : {3, 0}) {
            auto vista = sistema->CreaVistaHtml(nullptr);
            const QString html = reportes::Htm_gen(Documento(QLatin1String(c.raiz), c.columnas, filas), *vista,
                                                   QLatin1String(c.hoja));
            EXPECT_TRUE(sistema->cajas.empty()) << sistema->cajas.back().texto.toStdString();
            sistema->cajas.clear();
            EXPECT_EQ(vista->DocumentHtml(), html);
            EXPECT_TRUE(html.contains(u"01/abr/2024"));
            // An order has no period; every other report states it.
            EXPECT_EQ(html.contains(u"Periodo"), !pedido);
            EXPECT_EQ(html.contains(u"05/ene/2024") && html.contains(u"31/mar/2024"), !pedido);
            // The header row and one row per record; every column of the record is shown.
            EXPECT_EQ(html.count(QRegularExpression(QStringLiteral("<tr[ >]"))), 1 + std::max(filas, 1)) << html.toStdString();
            for (int i = 0; i < filas; ++i)
                for (const QString& col : c.columnas)
                    EXPECT_EQ(html.contains(QStringLiteral(">%1_%2<").arg(col).arg(i)), !c.oculto.contains(col))
                        << col.toStdString();
        }
    }
}

// The pieces every report shares, on a small document of known values: names for the numbers of libraries
// and schools (the number when there is none), dates as "dd/mmm/yyyy" with or without a time, money with
// two decimals and thousands separators.
TEST_F(Reportes, NombresFechasYDineroEnLasHojas) {
    Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (2, 'Biblioteca Central')");
    Ejecuta("INSERT INTO Escuelas ([No], Nombre) VALUES (3, 'Escuela de Artes')");
    const QString xml = QStringLiteral(
        "<?xml version=\"1.0\"?>\n<Reporte Registros=\"3\" NumTitulos=\"2\" fechaReporte=\"07/nov/2026\" "
        "fechaInicial=\"01/nov/2026\" fechaFinal=\"30/nov/2026\">"
        "<Libro><NoBiblioteca>2</NoBiblioteca><NoEscuela>3</NoEscuela><Fecha>07/11/2026</Fecha>"
        "<FechadeRecepcion>09/12/2026 10:30:00</FechadeRecepcion><Costo>1234567.5</Costo><Titulo>Uno</Titulo></Libro>"
        "<Libro><NoBiblioteca>99</NoBiblioteca><NoEscuela></NoEscuela><Fecha>01/01/2026</Fecha>"
        "<FechadeRecepcion></FechadeRecepcion><Costo>0</Costo><Titulo>Dos</Titulo></Libro>"
        "<Libro><NoBiblioteca>2</NoBiblioteca><NoEscuela>3</NoEscuela><Fecha></Fecha>"
        "<FechadeRecepcion></FechadeRecepcion><Costo></Costo><Titulo>Tres</Titulo></Libro></Reporte>");
    for (const char* hoja : {"xsls\\Adquiridos.xsl", "xsls\\formato2.xsl"}) {
        SCOPED_TRACE(hoja);
        auto vista = sistema->CreaVistaHtml(nullptr);
        const QString html = reportes::Htm_gen(xml, *vista, QLatin1String(hoja));
        ASSERT_TRUE(sistema->cajas.empty()) << sistema->cajas.back().texto.toStdString();
        EXPECT_EQ(html.count(QStringLiteral(">Biblioteca Central<")), 2) << html.toStdString();
        EXPECT_EQ(html.count(QStringLiteral(">Escuela de Artes<")), 2);
        EXPECT_TRUE(html.contains(u">99<"));                     // a library the table lacks keeps its number
        EXPECT_TRUE(html.contains(u">09/dic/2026<"));
        EXPECT_TRUE(html.contains(u">1,234,567.50<"));
        EXPECT_TRUE(html.contains(u">0.00<"));
        EXPECT_FALSE(html.contains(u"/12/2026"));
        EXPECT_FALSE(html.contains(u"NaN"));
        EXPECT_TRUE(html.contains(u"Periodo: del 01/nov/2026 al 30/nov/2026"));
        // Only this sheet shows the request's date.
        if (QLatin1String(hoja) == u"xsls\\formato2.xsl") {
            EXPECT_TRUE(html.contains(u">07/nov/2026<") && html.contains(u">01/ene/2026<"));
        }
    }
}

// The order: the requests it comes from by name, no period, and the copies added up from the one column
// the document names them by.
TEST_F(Reportes, ElPedidoSumaSusEjemplares) {
    Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (2, 'Biblioteca Central')");
    Ejecuta("INSERT INTO Escuelas ([No], Nombre) VALUES (3, 'Escuela de Artes')");
    Ejecuta("UPDATE [Solicitudes General] SET Solicitante='Luis Pérez' WHERE NoSolicitud=7");
    QString xml = QStringLiteral("<?xml version=\"1.0\"?>\n<Pedidos Registros=\"4\" fechaReporte=\"07/nov/2026\" "
                                 "fechaInicial=\"01/nov/2026\" fechaFinal=\"30/nov/2026\">");
    for (const char* copias : {"2", "3", "", "12"})
        xml += QStringLiteral("<Libro><Solicitud>7</Solicitud><Titulo>T</Titulo><EjemplaresPedidos>%1</EjemplaresPedidos>"
                              "</Libro>").arg(QLatin1String(copias));
    // A column spelled otherwise is not the copies ordered.
    xml += QStringLiteral("<Libro><Solicitud>7</Solicitud><Titulo>T</Titulo><Ejemplarespedidos>100</Ejemplarespedidos>"
                          "</Libro></Pedidos>");
    auto vista = sistema->CreaVistaHtml(nullptr);
    const QString html = reportes::Htm_gen(xml, *vista, QStringLiteral("xsls\\Formato.xsl"));
    ASSERT_TRUE(sistema->cajas.empty()) << sistema->cajas.back().texto.toStdString();
    EXPECT_TRUE(html.contains(u"Títulos: 5. Ejemplares pedidos: 17")) << html.toStdString();
    EXPECT_FALSE(html.contains(u">100<"));
    EXPECT_FALSE(html.contains(u"Periodo"));
    EXPECT_FALSE(html.contains(u"01/nov/2026"));
    // The request once, with its date, requester, school and library.
    EXPECT_EQ(html.count(u">Luis Pérez<"), 1);
    EXPECT_TRUE(html.contains(u">10/feb/2024<"));
    EXPECT_TRUE(html.contains(u">Escuela de Artes<") && html.contains(u">Biblioteca Central<"));
}

TEST_F(Reportes, FallasDeLaTransformacion) {
    auto vista = sistema->CreaVistaHtml(nullptr);
    EXPECT_TRUE(reportes::Htm_gen(Documento("Reporte", {"Titulo"}, 1), *vista, QStringLiteral("xsls\\NoHay.xsl")).isEmpty());
    EXPECT_TRUE(reportes::Htm_gen(QString(), *vista, QStringLiteral("xsls\\Pedidos.xsl")).isEmpty());
    ASSERT_EQ(sistema->cajas.size(), 2u);
    for (const auto& caja : sistema->cajas) {
        EXPECT_EQ(caja.titulo, QStringLiteral("Mod Htm_gen"));
        EXPECT_EQ(caja.flags, ui::vbCritical);
        // The number, CR LF, and the description between brackets and blanks.
        static const QRegularExpression forma(QStringLiteral("^Ocurrió el error: -?\\d+\r\n \\[[^\r\n]+\\] $"));
        EXPECT_TRUE(forma.match(caja.texto).hasMatch()) << caja.texto.toStdString();
    }
}

TEST_F(Reportes, Listas) {
    QListWidget lista;
    ConsultaDatos c;
    c.Campos = QStringLiteral("[No], Nombre");
    c.Tabla = QStringLiteral("Bibliotecas");
    c.Orden = QStringLiteral("[No]");
    lista.addItem(QStringLiteral("viejo"));
    EXPECT_FALSE(reportes::LlenaListaTodas(c, lista));
    EXPECT_EQ(lista.count(), 0);

    Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (12, 'Central')");
    Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (3, Null)");
    ASSERT_TRUE(reportes::LlenaListaTodas(c, lista));
    ASSERT_EQ(lista.count(), 3);
    EXPECT_EQ(lista.item(0)->text(), QStringLiteral("TODAS LAS BIBLIOTECAS"));
    EXPECT_EQ(lista.item(1)->text(), QStringLiteral("3"));

    c.Clave = QStringLiteral("[No]");
    c.Valor = QStringLiteral("12");
    EXPECT_TRUE(reportes::LlenaListaNumerada(c, lista));
    ASSERT_EQ(lista.count(), 1);
    EXPECT_EQ(lista.item(0)->text(), QStringLiteral("012 - Central"));
}

}  // namespace
