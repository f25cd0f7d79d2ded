// The report generator: each kind of report drawn from a small data set, the choice of libraries, schools
// and funding source, the empty page and the summary, and saving the report as HTML or XML.
#include "ayuda_reportes.h"
#include "reports/Listado.h"
#include "reports/Registro.h"

#include "core/FormPrincipal.h"
#include "core/controles/ComboBox.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <ostream>

namespace {

class PruebaListado : public PruebaPantallaReporte<Listado> {
protected:
    void SetUp() override {
        PruebaReporte::SetUp();
        Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (1, 'Central')");
        Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (2, 'Norte')");
        Ejecuta("INSERT INTO Escuelas ([No], Nombre) VALUES (3, 'Ingeniería')");
        Ejecuta("INSERT INTO Escuelas ([No], Nombre) VALUES (4, 'Artes')");
        Ejecuta("INSERT INTO Editoriales ([No], Nombre) VALUES (1, 'Alfa')");
        Ejecuta("INSERT INTO Instituciones ([No], Nombre) VALUES (1, 'Fundación Sur')");
        Ejecuta("INSERT INTO adqFinanciamiento (Nombre) VALUES ('Federal')");
        Ejecuta("INSERT INTO adqFinanciamiento (Nombre) VALUES ('Estatal')");
        // Requests: number, date, school, library, state, funding source.
        Solicitud(1, "02/10/2024", 3, 1, "S", 1);
        Solicitud(2, "02/12/2024", 4, 2, "S", 2);
        Solicitud(3, "02/15/2024", 3, 1, "P", 1);
        Solicitud(4, "01/01/2023", 3, 1, "S", 1);
        Solicitud(5, "02/18/2024", 3, 1, "A", 1);
        Solicitud(6, "02/19/2024", 4, 2, "C", 2);
        Libro(1, "Rayuela", 2, "S", 1);
        Libro(2, "Ficciones", 3, "S", 2);
        Libro(3, "Aura", 1, "P", 3);
        Libro(4, "Pedro Páramo", 1, "I", 6);
        Libro(5, "Viejo", 5, "S", 4);
        Libro(6, "Comala", 2, "A", 5);
        Ejecuta("UPDATE [Solicitudes Libros] SET [Fecha de Recepcion]=#02/20/2024#, [Ejemplares recibidos]=2, "
                "Costo=1234.5, Factura='F-9' WHERE ClaveLibro=6");
        Numero("A-002", 6, "S");
        Numero("A-001", 6, "S");
        Ejecuta("INSERT INTO [Donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca) VALUES (10, #02/11/2024#, 1, 2)");
        Ejecuta("INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, Autor, Ejemplares, NoEditorial, NoDonacion) "
                "VALUES (50, 'Donado', 'Anónimo', 2, 1, 10)");
        Numero("D-001", 50, "D");
    }
    void Solicitud(int no, const char* fecha, int escuela, int biblioteca, const char* estado, int fuente) {
        Ejecuta(QStringLiteral("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, NoEscuela, NoBiblioteca, Estado, "
                               "IdFinanciamiento) VALUES (%1, #%2#, %3, %4, '%5', %6)")
                    .arg(no).arg(QLatin1String(fecha)).arg(escuela).arg(biblioteca).arg(QLatin1String(estado)).arg(fuente));
    }
    void Libro(int clave, const QString& titulo, int ejemplares, const char* estado, int solicitud) {
        Ejecuta(QStringLiteral("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], "
                               "NoEditorial, Estado, NoSolicitud, ISBN) VALUES (%1, '%2', 'Autor', %3, 1, '%4', %5, '970')")
                    .arg(clave).arg(titulo).arg(ejemplares).arg(QLatin1String(estado)).arg(solicitud));
    }

    // Generates a report of the given kind for February 2024.
    void Genera(const QString& tipo, const QString& desde = QStringLiteral("01/02/2024"),
                const QString& hasta = QStringLiteral("29/02/2024")) {
        pantalla->Combo1->setText(tipo);
        pantalla->Text1->setText(desde);
        pantalla->Text2->setText(hasta);
        pantalla->Command1_Click();
    }
    void Selecciona(int lista, std::initializer_list<int> filas) {
        QListWidget* l = pantalla->List1[static_cast<size_t>(lista)];
        l->clearSelection();
        for (int f : filas) l->item(f)->setSelected(true);
    }
    // The texts of the given element in the kept document, in order.
    QStringList Valores(const QString& elemento) const {
        QStringList r;
        const QString abre = u'<' + elemento + u'>';
        qsizetype i = 0;
        while ((i = pantalla->DocumentoXml.indexOf(abre, i)) >= 0) {
            i += abre.size();
            QString v = pantalla->DocumentoXml.mid(i, pantalla->DocumentoXml.indexOf(u'<', i) - i);
            // Characters outside ASCII come as references.
            static const QRegularExpression referencia(QStringLiteral("&#x([0-9A-Fa-f]+);"));
            for (auto m = referencia.match(v); m.hasMatch(); m = referencia.match(v))
                v.replace(m.capturedStart(), m.capturedLength(), QChar(m.captured(1).toInt(nullptr, 16)));
            r << v;
        }
        return r;
    }
    // How many of "Grabar", "Imprimir" and "Configurar" may be pressed.
    int Salidas() const {
        return pantalla->Command2->isEnabled() + pantalla->Command3->isEnabled() + pantalla->Command4->isEnabled();
    }
    QByteArray LeeArchivo(const QString& ruta) {
        QFile f(ruta);
        EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << ruta.toStdString();
        return f.readAll();
    }
};

TEST_F(PruebaListado, CargaLasListasLosTiposYLasFuentes) {
    Listado& l = Abre();
    EXPECT_EQ(l.Combo1->ListCount(), 6);
    ASSERT_EQ(l.List1[0]->count(), 3);
    EXPECT_EQ(l.List1[0]->item(2)->text(), QStringLiteral("2 Norte"));
    EXPECT_EQ(l.List1[1]->item(1)->text(), QStringLiteral("3 Ingeniería"));
    EXPECT_TRUE(l.List1[1]->item(0)->isSelected());
    ASSERT_EQ(l.cboFinanciamiento->ListCount(), 3);
    EXPECT_EQ(l.cboFinanciamiento->ListIndex(), 0);
    EXPECT_FALSE(l.cboFinanciamiento->isHidden());
    EXPECT_TRUE(l.Option1[1]->isChecked());
    EXPECT_FALSE(l.Command1->isEnabled());
    EXPECT_EQ(Vista().navegaciones, QStringList{QStringLiteral("about:blank")});

    // Generating needs both dates.
    l.Text1->setText(QStringLiteral("01/02/2024"));
    EXPECT_FALSE(l.Command1->isEnabled());
    l.Text2->setText(QStringLiteral("31/02/2024"));
    EXPECT_FALSE(l.Command1->isEnabled());
    l.Text2->setText(QStringLiteral("29/02/2024"));
    EXPECT_TRUE(l.Command1->isEnabled());

    // Without funding sources the filter is not offered.
    Ejecuta("DELETE FROM adqFinanciamiento");
    Abre();
    EXPECT_TRUE(pantalla->cboFinanciamiento->isHidden());
    EXPECT_TRUE(pantalla->lblFinanciamiento->isHidden());
    EXPECT_EQ(pantalla->cboFinanciamiento->ListCount(), 1);
}

TEST_F(PruebaListado, ElTipoDeReporteFijaLugarYListas) {
    Listado& l = Abre();
    // The frame on screen is the list the report filters by.
    const auto muestraBibliotecas = [&l] { return !l.Frame1[0]->isHidden() && l.Frame1[1]->isHidden(); };
    const auto muestraEscuelas = [&l] { return l.Frame1[0]->isHidden() && !l.Frame1[1]->isHidden(); };
    EXPECT_TRUE(muestraBibliotecas());
    // Donations and shipments force "Por Biblioteca" as a click would: the schools chosen before leave the screen.
    for (const QString& tipo : {QStringLiteral("Donaciones"), QStringLiteral("Envíos")}) {
        SCOPED_TRACE(tipo.toStdString());
        l.Combo1->setText(QStringLiteral("Solicitados"));
        l.Option1[0]->click();
        ASSERT_TRUE(muestraEscuelas());
        l.Combo1->setText(tipo);
        EXPECT_TRUE(l.Option1[1]->isChecked());
        EXPECT_FALSE(l.Option1[0]->isEnabled());
        EXPECT_TRUE(muestraBibliotecas());
    }
    l.Combo1->setText(QStringLiteral("Donaciones"));
    EXPECT_TRUE(l.List1[0]->isEnabled());
    l.Combo1->setText(QStringLiteral("Envíos"));
    EXPECT_FALSE(l.List1[0]->isEnabled());
    EXPECT_FALSE(l.List1[1]->isEnabled());
    l.Combo1->setText(QStringLiteral("Pedidos"));
    EXPECT_TRUE(l.Option1[0]->isEnabled());
    EXPECT_TRUE(l.List1[0]->isEnabled());
    EXPECT_TRUE(l.List1[1]->isEnabled());
    EXPECT_TRUE(muestraBibliotecas());

    l.List1[0]->clearSelection();
    l.List1_DblClick(0);
    EXPECT_EQ(l.List1[0]->selectedItems().size(), 3);
}

TEST_F(PruebaListado, FaltaLugarOFechasSeAvisa) {
    Listado& l = Abre();
    l.List1[0]->clearSelection();
    Genera(QStringLiteral("Solicitados"));
    l.Option1[0]->setChecked(true);
    l.List1[1]->clearSelection();
    Genera(QStringLiteral("Solicitados"));
    l.List1[1]->item(0)->setSelected(true);
    Genera(QStringLiteral("Solicitados"), QStringLiteral("01/02/2024"), QStringLiteral("nada"));
    EXPECT_EQ(sistema->Textos(), (QStringList{QStringLiteral("No ha seleccionado ninguna biblioteca"),
                                              QStringLiteral("No ha seleccionado ninguna Escuela"),
                                              QStringLiteral("Rango de Fechas Incorrectas")}));
    for (const auto& c : sistema->cajas) EXPECT_EQ(c.titulo, QStringLiteral("Precuación"));
    EXPECT_TRUE(l.DocumentoXml.isEmpty());
    EXPECT_EQ(Vista().navegaciones.size(), 1);
}

TEST_F(PruebaListado, SolicitadosDelPeriodoFiltradosPorBibliotecasEscuelasYFuente) {
    Listado& l = Abre();
    Genera(QStringLiteral("Solicitados"));
    ASSERT_TRUE(sistema->cajas.empty()) << sistema->Textos().join(u'|').toStdString();
    EXPECT_EQ(Valores(QStringLiteral("Titulo")), (QStringList{"Rayuela", "Ficciones"}));
    EXPECT_TRUE(l.DocumentoXml.contains(QStringLiteral("Registros=\"5\"")));
    EXPECT_EQ(Valores(QStringLiteral("Ejemplares")), (QStringList{"2", "3"}));
    EXPECT_EQ(globales::FechaInicial, vb::Fecha(QDate(2024, 2, 1)));
    EXPECT_EQ(globales::FechaFinal, vb::Fecha(QDate(2024, 2, 29)));

    Selecciona(0, {2});
    Genera(QStringLiteral("Solicitados"));
    EXPECT_EQ(Valores(QStringLiteral("Titulo")), QStringList{"Ficciones"});
    // The first item wins over the others selected with it.
    Selecciona(0, {0, 2});
    Genera(QStringLiteral("Solicitados"));
    EXPECT_EQ(Valores(QStringLiteral("Titulo")), (QStringList{"Rayuela", "Ficciones"}));

    l.Option1[0]->setChecked(true);
    Selecciona(1, {1, 2});
    Genera(QStringLiteral("Solicitados"));
    EXPECT_EQ(Valores(QStringLiteral("Titulo")), (QStringList{"Rayuela", "Ficciones"}));
    Selecciona(1, {1});
    Genera(QStringLiteral("Solicitados"));
    EXPECT_EQ(Valores(QStringLiteral("Titulo")), QStringList{"Rayuela"});

    l.Option1[1]->setChecked(true);
    Selecciona(0, {0});
    l.cboFinanciamiento->setListIndex(2);
    Genera(QStringLiteral("Solicitados"));
    EXPECT_EQ(Valores(QStringLiteral("Titulo")), QStringList{"Ficciones"});
    EXPECT_TRUE(sistema->cajas.empty());
}

// The rows of the other kinds: each from its own states and sheet; donations and shipments take no funding
// source; shipments join both sides in one document.
TEST_F(PruebaListado, CadaTipoTraeSusFilasYSuHoja) {
    Listado& l = Abre();
    Genera(QStringLiteral("Pedidos"));
    EXPECT_EQ(Valores(QStringLiteral("Titulo")), QStringList{"Aura"});
    EXPECT_TRUE(l.DocumentoXml.contains(QStringLiteral("xsls\\Pedidos.xsl")));
    EXPECT_TRUE(l.DocumentoXml.contains(QStringLiteral("Registros=\"1\"")));

    Genera(QStringLiteral("Imposibles de adquirir"));
    EXPECT_EQ(Valores(QStringLiteral("Titulo")), QStringList{QStringLiteral("Pedro Páramo")});
    EXPECT_TRUE(l.DocumentoXml.contains(QStringLiteral("xsls\\ImpAdq.xsl")));

    // One row per accession number, in their order; each element named as the statement writes its column.
    Genera(QStringLiteral("Adquiridos"));
    EXPECT_EQ(Valores(QStringLiteral("Noadquisicion")), (QStringList{"A-001", "A-002"}));
    EXPECT_EQ(Valores(QStringLiteral("Titulo")), (QStringList{"Comala", "Comala"}));
    EXPECT_EQ(Valores(QStringLiteral("Factura")), (QStringList{"F-9", "F-9"}));
    EXPECT_TRUE(l.DocumentoXml.contains(QStringLiteral("xsls\\Adquiridos.xsl")));

    l.cboFinanciamiento->setListIndex(1);
    Genera(QStringLiteral("Donaciones"));
    EXPECT_EQ(Valores(QStringLiteral("Titulo")), QStringList{"Donado"});
    EXPECT_EQ(Valores(QStringLiteral("Nombre")), QStringList{QStringLiteral("Fundación Sur")});
    EXPECT_TRUE(l.DocumentoXml.contains(QStringLiteral("Registros=\"1\"")));

    Genera(QStringLiteral("Envíos"));
    ASSERT_TRUE(sistema->cajas.empty()) << sistema->Textos().join(u'|').toStdString();
    const QString& x = l.DocumentoXml;
    EXPECT_TRUE(x.startsWith(QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-7\"?>")));
    EXPECT_EQ(x.count(QStringLiteral("<?xml")), 2);     // declaration and style sheet, once
    EXPECT_TRUE(x.contains(QStringLiteral("<Reportes><AReporte")));
    EXPECT_TRUE(x.trimmed().endsWith(QStringLiteral("</DReporte>\n</Reportes>")) ||
                x.trimmed().endsWith(QStringLiteral("</DReporte></Reportes>")));
    EXPECT_EQ(Valores(QStringLiteral("NoAdquisicion")), (QStringList{"A-001", "A-002", "D-001"}));
    EXPECT_TRUE(x.contains(QStringLiteral("xsls\\Envios.xsl")));
    EXPECT_EQ(Salidas(), 3);

    Selecciona(0, {1});
    Genera(QStringLiteral("Donaciones"));
    EXPECT_TRUE(Vista().html.contains(QStringLiteral("<h5>Reporte de material recibido como donación</h5>")));
}

// What the analyst reads on each page: libraries and schools by name, dates as "dd/mmm/yyyy", money with
// two decimals and thousands separators, totals that add what they say.
TEST_F(PruebaListado, CadaReporteSeLeeConNombresFechasYDinero) {
    Listado& l = Abre();
    const struct {
        const char* tipo;
        QStringList muestra;
        QStringList nunca;
    } casos[] = {
        {"Solicitados",
         {"Central", "Norte", "Ingeniería", "Artes", "10/feb/2024", "12/feb/2024", "Alfa",
          "Títulos: 2. Ejemplares solicitados: 5", "Periodo: del 01/feb/2024 al 29/feb/2024"},
         {"10/02/2024"}},
        {"Pedidos", {"Central", "Ingeniería", "15/feb/2024", "Títulos pedidos: 1"}, {"15/02/2024"}},
        {"Imposibles de adquirir", {"Norte", "Artes", "19/feb/2024", "Títulos no adquiridos: 1"}, {"19/02/2024"}},
        {"Adquiridos",
         {"Central", "Ingeniería", "20/feb/2024", "1,234.50", "A-001", "A-002",
          "Ejemplares adquiridos (números de adquisición): 2. Títulos: 1"},
         {"20/02/2024", "1234.5"}},
        {"Donaciones",
         {"Norte", "Fundación Sur", "11/feb/2024", "D-001", "Ejemplares recibidos (números de adquisición): 1"},
         {"11/02/2024"}},
        {"Envíos",
         {"Adquisiciones", "Donaciones", "Central", "Norte", "A-001", "D-001", "Ejemplares enviados: 2", "Ejemplares enviados: 1"},
         {}},
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.tipo);
        Genera(QString::fromUtf8(c.tipo));
        ASSERT_TRUE(sistema->cajas.empty()) << sistema->Textos().join(u'|').toStdString();
        const QString& html = l.DocumentoHtml;
        ASSERT_EQ(Vista().html, html);
        for (const QString& t : c.muestra) EXPECT_TRUE(html.contains(t)) << t.toStdString() << "\n" << html.toStdString();
        for (const QString& t : c.nunca) EXPECT_FALSE(html.contains(t)) << t.toStdString();
        // The document saved as XML keeps the numbers the query gave.
        EXPECT_FALSE(l.DocumentoXml.contains(QStringLiteral("Central")));
    }
}

TEST_F(PruebaListado, PeriodoSinMaterialMuestraLaPaginaVacia) {
    Abre();
    Genera(QStringLiteral("Solicitados"));
    ASSERT_EQ(Salidas(), 3);
    Genera(QStringLiteral("Pedidos"), QStringLiteral("01/01/2020"), QStringLiteral("31/01/2020"));
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_TRUE(Vista().html.contains(
        QStringLiteral("<h5>Reporte de material pedido</h5><b>No se encontró ningún material</b> para generar este reporte, "
                       "<br/>por favor intente de nuevo modificando los parámetros del criterio de búsqueda")));
    EXPECT_EQ(Salidas(), 0);
    EXPECT_EQ(sistema->beeps, 1);
    Genera(QStringLiteral("Envíos"), QStringLiteral("01/01/2020"), QStringLiteral("31/01/2020"));
    EXPECT_TRUE(Vista().html.contains(QStringLiteral("<h5>Reporte de material enviado</h5>")));
    EXPECT_EQ(sistema->beeps, 2);
}

TEST_F(PruebaListado, MasDeQuinientosOfreceElResumen) {
    for (int i = 0; i < 501; ++i)
        Libro(100 + i, QStringLiteral("Serie %1").arg(i % 7), 1, "P", 3);
    Abre();
    sistema->Responde({ui::vbYes});
    Genera(QStringLiteral("Pedidos"));
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("Demasiada información para generar reporte"));
    EXPECT_TRUE(Vista().html.contains(QStringLiteral(
        "<h5>Resumen de la consulta</h5><TABLE><TR><TD>8 títulos y 502 ejemplares</TD></TR></TABLE>")));
    EXPECT_EQ(Salidas(), 0);
    EXPECT_EQ(sistema->beeps, 1);

    // A No builds the whole report.
    sistema->Responde({ui::vbNo});
    Genera(QStringLiteral("Pedidos"));
    EXPECT_EQ(Valores(QStringLiteral("Titulo")).size(), 502);
    EXPECT_EQ(Salidas(), 3);
}

TEST_F(PruebaListado, ResumenDeEnviosConYSinDonaciones) {
    for (int i = 0; i < 501; ++i) {
        Libro(100 + i, QStringLiteral("Serie %1").arg(i % 5), 1, "A", 1);
        Ejecuta(QStringLiteral("UPDATE [Solicitudes Libros] SET [Fecha de Recepcion]=#02/21/2024# WHERE ClaveLibro=%1").arg(100 + i));
        Ejecuta(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) "
                               "VALUES ('B-%1', %2, 'S')").arg(i, 3, 10, QLatin1Char('0')).arg(100 + i));
    }
    Abre();
    sistema->Responde({ui::vbYes});
    Genera(QStringLiteral("Envíos"));
    ASSERT_EQ(sistema->cajas.size(), 1u);     // the donations are summed up without asking
    const QString esperado = QStringLiteral("<TR><TD><i>Adquisiciones</i></TD></TR>\r\n<TR><TD>6 títulos y 503 ejemplares</TD></TR>"
                                            "\r\n<TR><TD><i><br/>Donaciones</i></TD></TR>\r\n<TR><TD>1 títulos y 1 ejemplares</TD></TR>");
    EXPECT_TRUE(Vista().html.contains(esperado)) << Vista().html.toStdString();

    sistema->Responde({ui::vbYes});
    Genera(QStringLiteral("Envíos"), QStringLiteral("15/02/2024"), QStringLiteral("29/02/2024"));
    EXPECT_TRUE(Vista().html.contains(QStringLiteral("<TR><TD><i><br/>* No hubo material de donación</i></TD></TR>")))
        << Vista().html.toStdString();
}

TEST_F(PruebaListado, GrabaHtmlOXmlEImprime) {
    Listado& l = Abre();
    Genera(QStringLiteral("Solicitados"));
    const QString htm = dir.filePath(QStringLiteral("r.htm"));
    const QString xml = dir.filePath(QStringLiteral("r.xml"));
    sistema->archivos = {ui::RespuestaArchivo::Elige(htm, 1), ui::RespuestaArchivo::Elige(xml, 2),
                         ui::RespuestaArchivo::Elige(xml, 2), ui::RespuestaArchivo::Cancela(),
                         ui::RespuestaArchivo::Elige(dir.filePath("r.txt"), 3)};
    l.Command2_Click();
    ASSERT_EQ(sistema->dialogos.size(), 1u);
    EXPECT_TRUE(sistema->dialogos[0].guardar);
    EXPECT_EQ(sistema->dialogos[0].dialogo.filtro, QStringLiteral("(Archivos HTML) | *.htm|(Archivos XML) | *.xml| "));
    EXPECT_EQ(sistema->dialogos[0].dialogo.flags, 10);
    const QByteArray h = LeeArchivo(htm);
    EXPECT_TRUE(h.endsWith("\r\n"));
    EXPECT_EQ(QString::fromLatin1(h.chopped(2)), l.DocumentoHtml);

    l.Command2_Click();
    QString guardado = QString::fromLatin1(LeeArchivo(xml));
    EXPECT_TRUE(guardado.contains(
        QStringLiteral("<!-- <?xml-stylesheet href=\"xsls\\Solicitados.xsl\" type=\"text/xsl\"?> -->")));
    EXPECT_TRUE(guardado.startsWith(QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-7\"?>")));
    EXPECT_EQ(guardado, l.DocumentoXml + QStringLiteral("\r\n"));

    // The kept text was changed: a second save nests the marks.
    l.Command2_Click();
    guardado = QString::fromLatin1(LeeArchivo(xml));
    EXPECT_TRUE(guardado.contains(QStringLiteral("<!-- <!-- <?xml-stylesheet href=\"xsls\\Solicitados.xsl\" "
                                                 "type=\"text/xsl\"?> --> -->")));

    // Cancelled, or a third kind of file: nothing written, nothing changed.
    const QString antes = l.DocumentoXml;
    l.Command2_Click();
    l.Command2_Click();
    EXPECT_EQ(sistema->dialogos.size(), 5u);
    EXPECT_EQ(l.DocumentoXml, antes);
    EXPECT_FALSE(QFile::exists(dir.filePath("r.txt")));

    // A cancelled print dialog is no failure.
    Vista().aceptaImprimir = false;
    l.Command3_Click();
    EXPECT_EQ(Vista().impresiones, 0);
    Vista().aceptaImprimir = true;
    l.Command3_Click();
    l.Command4_Click();
    EXPECT_EQ(Vista().impresiones, 1);
    EXPECT_EQ(Vista().configuraciones, 1);
    EXPECT_TRUE(sistema->cajas.empty());

    reportes::RegistraComandos();
    EXPECT_TRUE(FormPrincipal::PantallaDisponible(QStringLiteral("Listados")));
}

}  // namespace
