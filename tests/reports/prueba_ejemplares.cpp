// The copy listing: copies found by accession number and by request or donation number over both sides or
// one, the library filter, the statements that fail on bad input, the detail screens opened from a copy and
// the list rebuilt after its numbers changed, and the report page shown, printed and saved.
#include "ayuda_reportes.h"
#include "reports/Registro.h"
#include "reports/frmListadoEjemplares.h"

#include "core/FormPrincipal.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "core/ui/PlataformaQt.h"
#include "core/vb/Cadenas.h"
#include "workflow/Don_Generales.h"
#include "workflow/Don_Libros.h"
#include "workflow/Recep_Generales.h"
#include "workflow/Recep_Libros.h"
#include "workflow/Registro.h"

#include <QCheckBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>

namespace {

class PruebaEjemplares : public PruebaPantallaReporte<frmListadoEjemplares> {
protected:
    void SetUp() override {
        PruebaReporte::SetUp();
        flujo::RegistraComandos();
        globales::LoginAnalista = QStringLiteral("ana");
        globales::DesdeListadoEjemplares = false;
        Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (1, 'Central')");
        Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (2, 'Norte')");
        Ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, NoBiblioteca, Estado) VALUES (7, #02/01/2024#, 1, 'R')");
        Ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, NoBiblioteca, Estado) VALUES (8, #02/03/2024#, 2, 'R')");
        for (const char* titulo : {"1, 'Rayuela', 7", "2, 'Aura & <Otros>', 8"})
            Ejecuta(QStringLiteral("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, NoSolicitud, Autor, Estado, "
                                   "[Ejemplares recibidos], Costo, [Fecha de Recepcion]) VALUES (%1, 'Autor', 'A', 2, 100, "
                                   "#02/20/2024#)").arg(QString::fromUtf8(titulo)));
        // A title without accession numbers is never listed.
        Ejecuta("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, NoSolicitud, Estado) VALUES (3, 'Sin números', "
                "'Nadie', 7, 'P')");
        Ejecuta("INSERT INTO [Donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca, [Donacion o Intercambio]) "
                "VALUES (10, #03/05/2024#, 1, 2, 'D')");
        Ejecuta("INSERT INTO [Donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca, [Donacion o Intercambio]) "
                "VALUES (11, #03/06/2024#, 1, 1, 'I')");
        Ejecuta("INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, Autor, Ejemplares, Costo, NoDonacion) "
                "VALUES (50, 'Ficciones', 'Borges', 1, 80, 10)");
        Ejecuta("INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, Autor, Ejemplares, Costo, NoDonacion) "
                "VALUES (51, 'El Aleph', 'Borges', 1, 90, 11)");
        // The prefix "A-000" stands on both sides.
        Numero("A-0001", 1, "S");
        Numero("A-0002", 1, "S");
        Numero("A-0101", 2, "S");
        Numero("A-0003", 50, "D");
        Numero("B-0001", 51, "D");
        Abre();
    }

    // Searches as the analyst does: the expression, what it is, which side, "Buscar"; the rows found.
    int Busca(const QString& texto, QRadioButton* modo = nullptr, QRadioButton* lado = nullptr) {
        pantalla->txtBuscar->setText(texto);
        (modo ? modo : pantalla->Option1)->setChecked(true);
        (lado ? lado : pantalla->OptAmbas)->setChecked(true);
        pantalla->cmdBuscar->click();
        return pantalla->ListView1->ListItems().Count();
    }
    // A column of every row: 1 the accession number, 2 the request or donation, 9 the side.
    QStringList Columna(int subItem) const { return ayuda_reportes::Columna(*pantalla->ListView1, subItem); }
    void SeleccionaNumero(const QString& numero) {
        auto& filas = pantalla->ListView1->ListItems();
        for (int i = 1; i <= filas.Count(); ++i)
            if (filas(i).SubItems(1) == numero) filas(i).setSelected(true);
    }
    QString NumeroSeleccionado() const {
        const controles::ListItem* fila = pantalla->ListView1->SelectedItem();
        return fila ? fila->SubItems(1) : QString();
    }
    int Habilitados() const {
        return pantalla->cmdDetalleNA->isEnabled() + pantalla->cmdVerFicha->isEnabled() + pantalla->cmdImprimir->isEnabled() +
               pantalla->cmdGrabar->isEnabled();
    }
    void EligeBiblioteca(int indice) {
        pantalla->Check1->click();
        pantalla->cboBiblio->setListIndex(indice);
    }
    // The widths in hundredths that the cells of a row of the page carry, in order.
    static QList<int> Anchos(const QString& fila) {
        QList<int> r;
        static const QRegularExpression ancho(QStringLiteral("<TD[^>]* width=(\\d+)%"));
        for (auto m = ancho.globalMatch(fila); m.hasNext();) r << m.next().captured(1).toInt();
        return r;
    }
};

TEST_F(PruebaEjemplares, AbreDesdeElMenuConLasOpcionesOcultas) {
    reportes::RegistraComandos();
    EXPECT_TRUE(FormPrincipal::PantallaDisponible(QStringLiteral("EjemAdq")));
    EXPECT_EQ(ayuda_reportes::Encabezados(*pantalla->ListView1), QStringList({"Clave Libro", "NúmAdq.", "Solicitud", "Titulo", "Autor", "Recibidos", "Costo", "Fecha",
                                     "Estado", "S/D"}));
    EXPECT_EQ(pantalla->ListView1->ColumnHeaders()(1).Width(), 0);
    EXPECT_EQ(pantalla->cboBiblio->List(2), QStringLiteral("002 - Norte"));
    EXPECT_EQ(Habilitados(), 0);
    EXPECT_FALSE(pantalla->cmdBuscar->isEnabled());
    pantalla->txtBuscar->setText(QStringLiteral("A"));
    EXPECT_TRUE(pantalla->cmdBuscar->isEnabled());

    EXPECT_TRUE(pantalla->frameNumSol->isHidden());
    EXPECT_FALSE(pantalla->picInfo->isHidden());
    pantalla->chkAvanzadas->click();
    EXPECT_FALSE(pantalla->frameNumSol->isHidden());
    EXPECT_TRUE(pantalla->picInfo->isHidden());
    EXPECT_TRUE(pantalla->ejemRango->isHidden());
    pantalla->Option2->click();
    EXPECT_FALSE(pantalla->ejemRango->isHidden());
    pantalla->Option1->click();
    EXPECT_TRUE(pantalla->ejemRango->isHidden());
}

TEST_F(PruebaEjemplares, NumeroDeAdquisicionPorPrefijoEnCadaLado) {
    EXPECT_EQ(Busca(QStringLiteral("A-000")), 3);
    EXPECT_EQ(Columna(1), QStringList({"A-0001", "A-0002", "A-0003"}));
    EXPECT_EQ(Columna(9), QStringList({"S", "S", "D"}));
    EXPECT_EQ(Columna(0), QStringList({"001", "001", "050"}));
    EXPECT_EQ(Columna(3), QStringList({"Rayuela", "Rayuela", "Ficciones"}));
    // The donation's own kind stands in the state's column.
    EXPECT_EQ(pantalla->ListView1->ListItems()(3).SubItems(8), QStringLiteral("D"));
    EXPECT_EQ(pantalla->ListView1->ListItems()(1).SubItems(7), QStringLiteral("2024/02/20"));
    EXPECT_EQ(pantalla->Frame2->title(), QStringLiteral("Se encontraron 3 ejemplare(s)"));
    EXPECT_EQ(pantalla->cmdBuscar->text(), QStringLiteral("Nueva &búsqueda"));
    EXPECT_EQ(Habilitados(), 3);
    EXPECT_FALSE(pantalla->cmdGrabar->isEnabled());

    EXPECT_EQ(Busca(QStringLiteral("A-000"), nullptr, pantalla->OptSol), 2);
    EXPECT_EQ(Columna(9), QStringList({"S", "S"}));
    EXPECT_EQ(Busca(QStringLiteral("A-000"), nullptr, pantalla->OptDon), 1);
    EXPECT_EQ(Columna(2), QStringList({"10"}));
    // A dash in this mode is part of the pattern.
    EXPECT_EQ(Busca(QStringLiteral("A-01")), 1);
    EXPECT_EQ(Columna(1), QStringList({"A-0101"}));
    EXPECT_TRUE(sistema->cajas.empty());

    // Only a prefix matches.
    EXPECT_EQ(Busca(QStringLiteral("0001")), 0);
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].texto, QStringLiteral("No se encontraron ejemplares con este criterio de búsqueda..."));
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("Listado de ejemplares"));
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbExclamation);
    EXPECT_EQ(pantalla->Frame2->title(), QStringLiteral("Se encontraron 0 ejemplares"));
    EXPECT_EQ(pantalla->cmdBuscar->text(), QStringLiteral("&Buscar"));
    EXPECT_EQ(Habilitados(), 0);
}

TEST_F(PruebaEjemplares, SolicitudDonacionYRangos) {
    // Over both sides a number is a prefix of the request's or the donation's.
    EXPECT_EQ(Busca(QStringLiteral("1"), pantalla->Option2), 2);
    EXPECT_EQ(Columna(1), QStringList({"A-0003", "B-0001"}));
    EXPECT_EQ(Busca(QStringLiteral("7 - 10"), pantalla->Option2), 4);
    EXPECT_EQ(Columna(1), QStringList({"A-0001", "A-0002", "A-0003", "A-0101"}));
    // One side alone takes the plain number whole.
    EXPECT_EQ(Busca(QStringLiteral("8"), pantalla->Option2, pantalla->OptSol), 1);
    EXPECT_EQ(Columna(1), QStringList({"A-0101"}));
    EXPECT_EQ(Busca(QStringLiteral("11"), pantalla->Option2, pantalla->OptDon), 1);
    EXPECT_EQ(Columna(1), QStringList({"B-0001"}));
    EXPECT_EQ(Busca(QStringLiteral("7-8"), pantalla->Option2, pantalla->OptSol), 3);
    EXPECT_EQ(Columna(2), QStringList({"007", "007", "008"}));
    EXPECT_TRUE(sistema->cajas.empty());
    // A reversed range finds nothing.
    EXPECT_EQ(Busca(QStringLiteral("15-12"), pantalla->Option2), 0);
    EXPECT_EQ(sistema->UltimaCaja().titulo, QStringLiteral("Listado de ejemplares"));
}

TEST_F(PruebaEjemplares, LaBibliotecaFiltraAmbosLados) {
    EligeBiblioteca(2);
    EXPECT_TRUE(pantalla->cboBiblio->isEnabled());
    EXPECT_EQ(pantalla->BibliotecaElegida, 2);
    EXPECT_EQ(Busca(QStringLiteral("A-")), 2);
    EXPECT_EQ(Columna(1), QStringList({"A-0003", "A-0101"}));
    EXPECT_EQ(Busca(QStringLiteral("7-11"), pantalla->Option2, pantalla->OptDon), 1);
    EXPECT_EQ(Columna(1), QStringList({"A-0003"}));
    EXPECT_EQ(Busca(QStringLiteral("7"), pantalla->Option2, pantalla->OptSol), 0);

    // The first item filters nothing, and neither does the box once unchecked.
    pantalla->cboBiblio->setListIndex(0);
    EXPECT_EQ(pantalla->BibliotecaElegida, 0);
    EXPECT_EQ(Busca(QStringLiteral("A-")), 4);
    pantalla->cboBiblio->setListIndex(1);
    EXPECT_EQ(Busca(QStringLiteral("A-")), 2);
    EXPECT_EQ(Columna(1), QStringList({"A-0001", "A-0002"}));
    pantalla->Check1->click();
    EXPECT_FALSE(pantalla->cboBiblio->isEnabled());
    EXPECT_EQ(pantalla->BibliotecaElegida, 0);
    EXPECT_EQ(Busca(QStringLiteral("A-")), 4);
    // Checked again, the choice starts from the first item.
    pantalla->Check1->click();
    EXPECT_EQ(pantalla->cboBiblio->ListIndex(), 0);
}

TEST_F(PruebaEjemplares, EntradaMalaTerminaEnLaCajaDeFallaYLaPantallaSigue) {
    ASSERT_EQ(Busca(QStringLiteral("A-")), 4);
    // Names where numbers go, a quote that ends the literal, a range without its start.
    const QList<std::pair<QString, QRadioButton*>> malas = {{QStringLiteral("a-b"), pantalla->Option2},
                                                            {QStringLiteral("A'0"), pantalla->Option1},
                                                            {QStringLiteral("-5"), pantalla->Option2}};
    for (const auto& [texto, modo] : malas) {
        sistema->cajas.clear();
        EXPECT_EQ(Busca(texto, modo), 0) << texto.toStdString();
        ASSERT_EQ(sistema->cajas.size(), 1u) << texto.toStdString();
        EXPECT_EQ(sistema->cajas[0].flags & ui::vbCritical, ui::vbCritical);
        EXPECT_EQ(Habilitados(), 0);
        EXPECT_EQ(pantalla->Frame2->title(), QStringLiteral("Se encontraron 0 ejemplares"));
    }
    // A plain text where one side takes a number whole fails the same way.
    sistema->cajas.clear();
    EXPECT_EQ(Busca(QStringLiteral("abc"), pantalla->Option2, pantalla->OptSol), 0);
    EXPECT_EQ(sistema->UltimaCaja().flags & ui::vbCritical, ui::vbCritical);

    // Pipes, double quotes and a very long text are plain characters of the pattern.
    sistema->cajas.clear();
    EXPECT_EQ(Busca(QStringLiteral("A|0\"")), 0);
    EXPECT_EQ(Busca(QString(3000, u'A')), 0);
    EXPECT_EQ(sistema->cajas.size(), 2u);
    EXPECT_EQ(sistema->UltimaCaja().titulo, QStringLiteral("Listado de ejemplares"));
    EXPECT_EQ(Busca(QStringLiteral("A-")), 4);
}

TEST_F(PruebaEjemplares, DetallesDeUnEjemplarVuelvenABuscarYSeleccionanLaClave) {
    ASSERT_EQ(Busca(QStringLiteral("A-")), 4);
    SeleccionaNumero(QStringLiteral("A-0101"));
    bool desdeListado = false;
    sistema->AlMostrar(QStringLiteral("Recep_Libros"), [&desdeListado](QDialog& d) {
        auto& libros = static_cast<Recep_Libros&>(d);
        desdeListado = globales::DesdeListadoEjemplares;
        EXPECT_EQ(globales::TitValor.text(), QStringLiteral("002"));
        EXPECT_EQ(libros.List1->count(), 1);
        // The second copy of two gets its number.
        libros.Text6->setText(QStringLiteral("A-0102"));
        libros.Command4_Click();
        libros.Command3_Click();
    });
    pantalla->cmdDetalleNA->click();
    EXPECT_TRUE(desdeListado);
    EXPECT_FALSE(globales::DesdeListadoEjemplares);
    EXPECT_EQ(sistema->modales, QStringList({"Recep_Libros"}));
    // The search ran again and the copy's title is selected again.
    EXPECT_EQ(Columna(1), QStringList({"A-0001", "A-0002", "A-0003", "A-0101", "A-0102"}));
    EXPECT_EQ(NumeroSeleccionado(), QStringLiteral("A-0101"));
    EXPECT_EQ(pantalla->Frame2->title(), QStringLiteral("Se encontraron 5 ejemplare(s)"));
    EXPECT_TRUE(sistema->cajas.empty());

    // A donated copy opens its title; without a change of numbers the list stays as it was.
    SeleccionaNumero(QStringLiteral("A-0003"));
    QString titulo;
    sistema->AlMostrar(QStringLiteral("Don_Libros"), [&titulo](QDialog& d) {
        titulo = static_cast<Don_Libros&>(d).Text2->text();
        EXPECT_EQ(globales::TitModo, 2);
        EXPECT_EQ(globales::TitCampo, QStringLiteral("ClaveLibro"));
        EXPECT_EQ(globales::TitTabla, QStringLiteral("[Donaciones Libros]"));
        d.close();
    });
    Ejecuta("DELETE FROM [Adquisiciones Numadqui] WHERE NoAdquisicion='A-0001'");
    pantalla->cmdDetalleNA->click();
    EXPECT_EQ(titulo, QStringLiteral("Ficciones"));
    EXPECT_FALSE(globales::HuboCambiosNumAdq);
    EXPECT_EQ(pantalla->ListView1->ListItems().Count(), 5);
    EXPECT_EQ(NumeroSeleccionado(), QStringLiteral("A-0003"));
}

TEST_F(PruebaEjemplares, MostrarSolicitudODonacionDelEjemplar) {
    ASSERT_EQ(Busca(QStringLiteral("A-")), 4);
    int titulos = -1;
    sistema->AlMostrar(QStringLiteral("Don_Generales"), [&titulos](QDialog& d) {
        titulos = static_cast<Don_Generales&>(d).ListView1->ListItems().Count();
        d.close();
    });
    sistema->AlMostrar(QStringLiteral("Recep_Generales"), [&titulos](QDialog& d) {
        titulos = static_cast<Recep_Generales&>(d).ListView1->ListItems().Count();
        d.close();
    });
    SeleccionaNumero(QStringLiteral("A-0003"));
    pantalla->cmdVerFicha->click();
    EXPECT_EQ(titulos, 1);
    EXPECT_EQ(globales::NavCampo, QStringLiteral("NoDonacion"));
    EXPECT_EQ(globales::NavValor.text(), QStringLiteral("10"));
    EXPECT_EQ(globales::NavModo, 2);
    EXPECT_EQ(globales::NavTabla, QStringLiteral("[Donaciones Libros]"));

    SeleccionaNumero(QStringLiteral("A-0002"));
    pantalla->cmdVerFicha->click();
    EXPECT_EQ(titulos, 2);
    EXPECT_EQ(globales::NavCampo, QStringLiteral("NoSolicitud"));
    EXPECT_EQ(globales::NavValor.text(), QStringLiteral("7"));
    EXPECT_EQ(globales::NavModo, 0);
    EXPECT_EQ(globales::NavTabla, QStringLiteral("[Solicitudes Libros]"));
    EXPECT_EQ(sistema->modales, QStringList({"Don_Generales", "Recep_Generales"}));
    // Closing the order's page by its close box settles nothing.
    EXPECT_EQ(prueba::Valor(QStringLiteral("SELECT Estado FROM [Solicitudes General] WHERE NoSolicitud=7")), QStringLiteral("R"));
    EXPECT_EQ(NumeroSeleccionado(), QStringLiteral("A-0001"));
}

TEST_F(PruebaEjemplares, ReporteMostradoImpresoYGuardado) {
    ASSERT_EQ(Busca(QStringLiteral("A-")), 4);
    EXPECT_TRUE(pantalla->picContenedor->isHidden());
    pantalla->cmdImprimir->click();
    EXPECT_EQ(pantalla->cmdImprimir->text(), QStringLiteral("Imprimir"));
    EXPECT_FALSE(pantalla->picContenedor->isHidden());
    EXPECT_TRUE(pantalla->cmdGrabar->isEnabled());
    EXPECT_EQ(Vista().impresiones, 0);
    const QString& html = pantalla->DocumentoHtml;
    EXPECT_EQ(Vista().html, html);
    EXPECT_TRUE(html.startsWith(QStringLiteral("<HTML><HEAD><TITLE>Reporte de ejemplares existentes</TITLE>")));
    EXPECT_TRUE(html.contains(QStringLiteral(".tdHead")));   // the style sheet, whole
    EXPECT_TRUE(html.contains(QStringLiteral("<BODY><h3>Reporte de ejemplares existentes</h3><div align=right>Total: 4 "
                                             "ejemplar(es)</div><TABLE border=1 width=100%><TR>\r\n<TD class='tdHead' "
                                             "width=")));
    // Each column as wide as its longest value: the title's is the widest, the side's letter the narrowest.
    const qsizetype cabeza = html.indexOf(QStringLiteral("<TR>"));
    const QList<int> anchos = Anchos(html.mid(cabeza, html.indexOf(QStringLiteral("</TR>"), cabeza) - cabeza));
    ASSERT_EQ(anchos.size(), 9);
    EXPECT_EQ(std::accumulate(anchos.begin(), anchos.end(), 0), 100);
    EXPECT_EQ(*std::max_element(anchos.begin(), anchos.end()), anchos[2]);
    EXPECT_EQ(*std::min_element(anchos.begin(), anchos.end()), anchos[8]);
    // The hidden key is no column of the report.
    EXPECT_FALSE(html.contains(QStringLiteral("Clave Libro")));
    EXPECT_TRUE(html.contains(QStringLiteral("<TR><TD>A-0003</TD><TD align=right>010</TD><TD>Ficciones</TD><TD>Borges</TD>"
                                             "<TD align=right>01</TD><TD align=right>80.00</TD><TD>05/mar/2024</TD>"
                                             "<TD>Donación</TD><TD>D</TD></TR>\r\n")));
    EXPECT_TRUE(html.contains(QStringLiteral("<TD>Aura &amp; &lt;Otros&gt;</TD>")));
    EXPECT_TRUE(html.contains(QStringLiteral("<TD>Adquirido</TD><TD>S</TD>")));
    EXPECT_TRUE(html.contains(QStringLiteral("</TABLE><!--- pie de pagina --><table border=0  cellspacing=0 width=100%>"
                                             "<tr><td class=copyR><hr/>Departamento de adquisiciones<br/>Reporte generado el ")));
    EXPECT_TRUE(html.endsWith(QStringLiteral(" con KORVEL8</td></tr></table></BODY></HTML>")));

    pantalla->cmdImprimir->click();
    EXPECT_EQ(Vista().impresiones, 1);
    EXPECT_TRUE(Vista().apaisada);

    const QString archivo = dir.filePath(QStringLiteral("ejemplares.htm"));
    sistema->archivos.push_back(ui::RespuestaArchivo::Elige(archivo));
    pantalla->cmdGrabar->click();
    ASSERT_EQ(sistema->dialogos.size(), 1u);
    EXPECT_EQ(sistema->dialogos[0].dialogo.filtro, QStringLiteral("Archivo HTML (*.htm)|*.htm"));
    EXPECT_EQ(sistema->dialogos[0].dialogo.flags, 10);
    QFile f(archivo);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray escrito = f.readAll();
    EXPECT_EQ(escrito, vb::Windows1252(html + QStringLiteral("\r\n")));
    // A cancelled dialog writes nothing and says nothing; a file that can't be written is told.
    pantalla->cmdGrabar->click();
    sistema->archivos.push_back(ui::RespuestaArchivo::Elige(dir.filePath(QStringLiteral("no/hay/carpeta.htm"))));
    pantalla->cmdGrabar->click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("Error 75"));
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbExclamation);

    // A new search drops the report.
    Busca(QStringLiteral("A-000"));
    EXPECT_EQ(pantalla->cmdImprimir->text(), QStringLiteral("Generar &reporte"));
    EXPECT_TRUE(pantalla->picContenedor->isHidden());
    EXPECT_TRUE(pantalla->DocumentoHtml.isEmpty());
}

TEST_F(PruebaEjemplares, ReporteSinFilasYSinHojaDeEstilo) {
    QFile::remove(dir.filePath(QStringLiteral("xsls/korvel8v324.css")));
    Busca(QStringLiteral("Z"));
    pantalla->GeneraReporteHTML();
    const QString& html = pantalla->DocumentoHtml;
    EXPECT_FALSE(html.contains(QStringLiteral(".tdHead")));
    EXPECT_TRUE(html.contains(QStringLiteral("<STYLE type=text/css>\r\ntable {")));
    EXPECT_TRUE(html.contains(QStringLiteral("Total: 0 ejemplar(es)")));
    EXPECT_TRUE(html.contains(QStringLiteral(">S/D</TD></TR>\r\n</TABLE>")));
    EXPECT_EQ(Vista().html, html);
}

// A long list goes into the page in tables of 100 rows, each opening with the columns' widths, so that the
// view shows the first block at once and the blocks line up.
TEST_F(PruebaEjemplares, ReporteLargoEnBloquesAlineados) {
    ASSERT_EQ(Busca(QStringLiteral("A-")), 4);
    for (int i = 0; i < 246; ++i) {
        controles::ListItem* fila = pantalla->ListView1->ListItems().Add(QStringLiteral("900"));
        fila->setSubItems(1, QStringLiteral("Z-%1").arg(i, 4, 10, QLatin1Char('0')));
    }
    pantalla->GeneraReporteHTML();
    const QString& html = pantalla->DocumentoHtml;
    EXPECT_TRUE(html.contains(QStringLiteral("Total: 250 ejemplar(es)")));
    const auto tablas = ui::TablasPrincipales(html);
    ASSERT_EQ(tablas.size(), 4u);   // three blocks and the footer
    const QString cabeza = html.mid(tablas[0].first, html.indexOf(QStringLiteral("</TR>"), tablas[0].first) - tablas[0].first);
    ASSERT_EQ(Anchos(cabeza).size(), 9);
    for (size_t t = 0; t < 3; ++t) {
        const QString bloque = html.mid(tablas[t].first, tablas[t].second - tablas[t].first);
        EXPECT_TRUE(bloque.startsWith(QStringLiteral("<TABLE border=1 width=100%><TR>")));
        EXPECT_EQ(bloque.count(QStringLiteral("<TR>")), t == 0 ? 101 : t == 1 ? 100 : 50);
        // The first row of each block carries the head's widths, and no other row does.
        EXPECT_EQ(Anchos(bloque.left(bloque.indexOf(QStringLiteral("</TR>")))), Anchos(cabeza));
        EXPECT_EQ(bloque.count(QStringLiteral(" width=")), 10);   // the table's own and nine columns
    }
}

}  // namespace
