// The import of a school's request: the same request from an XML document, a binary workbook and an Open
// XML workbook written alike; the review (unknown publishers, mending, deleting); and every way a document
// or a workbook can be wrong, each ending in its box with nothing written.
#include "ayuda_intercambio.h"

#include "core/ui/Aperturas.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "exchange/FrmImportaSolicitud.h"
#include "exchange/FrmImportaSolicitud_1.h"
#include "exchange/FrmProcesando.h"
#include "exchange/Registro.h"
#include "workflow/Sol1.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

const QString CrLf = QStringLiteral("\r\n");

class PruebaImportacion : public PruebaIntercambio {
protected:
    // The import screen as the main window opens it.
    std::unique_ptr<FrmImportaSolicitud> Pantalla() {
        auto f = std::make_unique<FrmImportaSolicitud>();
        f->Form_Load();
        return f;
    }
    // Chooses a file in the screen's browse button; a workbook is converted as FrmProcesando's timer does.
    void Elige(FrmImportaSolicitud& f, const QString& ruta) {
        sistema->archivos.push_back(ui::RespuestaArchivo::Elige(ruta));
        sistema->AlMostrar(QStringLiteral("FrmProcesando"), [](QDialog& d) { static_cast<FrmProcesando&>(d).Timer1_Timer(); });
        f.BtnExmaniar_Click();
    }
    // Loads and saves with every box answered by its first button; the boxes shown.
    QStringList ImportaYGraba(const QString& ruta) {
        auto f = Pantalla();
        Elige(*f, ruta);
        if (f->TxtRuta->text().endsWith(QLatin1String(".xml"))) f->BtnImportar_Click();
        f->BtnGrabar_Click();
        return sistema->Textos();
    }
    static QStringList Fila(controles::ListItem& item) {
        QStringList r{item.Text()};
        for (int i = 1; i <= 6; ++i) r << item.SubItems(i);
        return r;
    }
};

const QString GrabadaBien = QStringLiteral("La solicitud ha sido grabada satisfactoriamente en el sistema !!!");

// ---- The same request, three files ------------------------------------------------------------------------

TEST_F(PruebaImportacion, XmlXlsYXlsxDanLaMismaSolicitudYCadaImportacionEsUnaNueva) {
    const QString xml = Escribe(QStringLiteral("escuela.xml"), Documento());
    const QString xls = Ruta(QStringLiteral("Solicitud marzo.xls"));
    ASSERT_TRUE(QFile::copy(QStringLiteral(ADQ_SOURCE_DIR "/tests/exchange/solicitud.xls"), xls));
    const QString xlsx = LibroXlsx(QStringLiteral("Solicitud abril.xlsx"));

    EXPECT_EQ(ImportaYGraba(xml), QStringList{GrabadaBien});
    EXPECT_EQ(ImportaYGraba(xls), QStringList({GrabadaBien, GrabadaBien}));
    EXPECT_EQ(ImportaYGraba(xlsx), QStringList({GrabadaBien, GrabadaBien, GrabadaBien}));
    // Each workbook left its document beside it, named after it.
    EXPECT_TRUE(QFile::exists(Ruta(QStringLiteral("Solicitud marzo.xml"))));
    EXPECT_TRUE(QFile::exists(Ruta(QStringLiteral("Solicitud abril.xml"))));

    const QStringList esperada{
        QStringLiteral("15/03/2024|Dra. Ana María Núñez|3|1|S|ana"),
        QStringLiteral("Pedro Páramo|Juan Rulfo|2|3|1|978-607-07-0001-1|S|ana"),
        QStringLiteral("Cien años de soledad|Gabriel García Márquez|1|2|2|9786070000002|S|ana"),
        QStringLiteral("El laberinto de la soledad|Octavio Paz|3|1|3||S|ana")};
    // The number comes from the table, never from the file: the same request three times is three requests.
    EXPECT_EQ(Escrita(1), esperada);
    EXPECT_EQ(Escrita(2), esperada);
    EXPECT_EQ(Escrita(3), esperada);
}

TEST_F(PruebaImportacion, LaRevisionMuestraLaCabezaLasCuentasYLasEditorialesReconocidas) {
    Ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Estado) VALUES (41, 'S')");
    const QString xml = Escribe(QStringLiteral("escuela.xml"), Documento());
    auto f = Pantalla();
    Elige(*f, xml);
    EXPECT_EQ(f->TxtRuta->text(), xml);
    EXPECT_TRUE(sistema->modales.isEmpty());          // an XML document is not converted
    EXPECT_FALSE(f->BtnGrabar->isEnabled());
    EXPECT_EQ(sistema->dialogos.back().dialogo.filtro,
              QStringLiteral("Archivos XML (*.xml)|*.xml|Archivos de Excel (*.xls)|*.xls|Archivos de Excel 2007 (*.xlsx)|*.xlsx"));
    f->BtnImportar_Click();
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_EQ(f->TxtContenido->toPlainText(), QStringLiteral("Solicitud: 42\nFecha: 15/03/2024\nSolicitante: Dra. Ana María Núñez\n"
                                                             "Escuela: Ingeniería\nBiblioteca: Central"));
    EXPECT_EQ(f->Frame1->title(), QStringLiteral("Resultados: Ejemplares=6 Libros=3"));
    ASSERT_EQ(f->LstLibros->ListItems().Count(), 3);
    EXPECT_EQ(Fila(f->LstLibros->ListItems()(2)).join(u'|'),
              QStringLiteral("Cien años de soledad|Gabriel García Márquez|Sudamericana|9786070000002|1|2|2"));
    EXPECT_TRUE(f->BtnGrabar->isEnabled());

    // Deleting asks, and removes the titles selected.
    f->LstLibros->ListItems()(1).setSelected(true);
    sistema->Responde({ui::vbNo});
    f->BtnEliminar_Click();
    EXPECT_EQ(f->LstLibros->ListItems().Count(), 3);
    f->BtnEliminar_Click();
    EXPECT_EQ(sistema->UltimaCaja().texto, QStringLiteral("¿Está seguro que desea borrar el ejemplar?"));
    EXPECT_EQ(sistema->UltimaCaja().titulo, QStringLiteral("Precaución"));
    EXPECT_EQ(f->LstLibros->ListItems().Count(), 2);
    EXPECT_EQ(f->Frame1->title(), QStringLiteral("Resultados: Libros=2"));
    f->BtnGrabar_Click();
    EXPECT_EQ(Escrita(42).size(), 3);
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Solicitudes Libros] WHERE Titulo = 'Pedro Páramo'"), QStringLiteral("0"));
}

// ---- Unknown publishers ---------------------------------------------------------------------------------------

TEST_F(PruebaImportacion, UnaEditorialDesconocidaImpideGrabarHastaQueSeCorrige) {
    QList<QStringList> titulos = Titulos();
    titulos[1][2] = QStringLiteral("Alfaguara");
    const QString xml = Escribe(QStringLiteral("escuela.xml"), Documento(titulos));
    auto f = Pantalla();
    f->CargaDoc(xml);
    controles::ListItem& dudoso = f->LstLibros->ListItems()(2);
    EXPECT_EQ(dudoso.SubItems(2), QStringLiteral("** Alfaguara"));
    EXPECT_EQ(dudoso.SubItems(6), QString());

    f->LstLibros->ListItems()(1).setSelected(true);
    f->BtnGrabar_Click();
    EXPECT_EQ(Caja(sistema->UltimaCaja()),
              Caja(QStringLiteral("KORVEL8"), 0, QStringLiteral("No se puede grabar esta solicitud porque hay material pendiente por revisar")));
    EXPECT_TRUE(dudoso.Selected());
    EXPECT_FALSE(f->LstLibros->ListItems()(1).Selected());
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Solicitudes General]"), QStringLiteral("0"));

    // The editor shows the name the document gave and takes a publisher from the list.
    sistema->AlMostrar(QStringLiteral("FrmImportaSolicitud_1"), [](QDialog& d) {
        auto& e = static_cast<FrmImportaSolicitud_1&>(d);
        EXPECT_EQ(e.EtNoReconocida->text(), QStringLiteral("Editorial NO Reconocida: Alfaguara"));
        EXPECT_EQ(e.TxtTitulo->text(), QStringLiteral("Cien años de soledad"));
        EXPECT_EQ(e.TxtEdicion->text(), QStringLiteral("1"));
        EXPECT_EQ(e.Combo1->ListIndex(), -1);
        e.BtnGrabar_Click();                          // no publisher chosen: it says so and stays
        EXPECT_EQ(e.Combo1->ListCount(), 4);
        e.TxtEditorial->setText(QStringLiteral("12"));
        EXPECT_EQ(e.Combo1->Text(), QStringLiteral("012 - Trillas"));
        e.BtnGrabar_Click();
    });
    f->BtnModificar_Click();
    EXPECT_EQ(sistema->cajas[sistema->cajas.size() - 1].titulo, QStringLiteral("Editorial requerida"));
    EXPECT_EQ(Fila(dudoso).join(u'|'), QStringLiteral("Cien años de soledad|Gabriel García Márquez|Trillas|9786070000002|1|2|12"));
    EXPECT_EQ(f->Frame1->title(), QStringLiteral("Resultados: Libros=3"));
    f->BtnGrabar_Click();
    EXPECT_EQ(sistema->UltimaCaja().texto, GrabadaBien);
    EXPECT_EQ(Valor("SELECT NoEditorial FROM [Solicitudes Libros] WHERE Titulo = 'Cien años de soledad'"), QStringLiteral("12"));
}

TEST_F(PruebaImportacion, UnTituloAgregadoTomaLaEditorialDelCatalogoYLaListaLaCuenta) {
    const QString xml = Escribe(QStringLiteral("escuela.xml"), Documento());
    auto f = Pantalla();
    f->CargaDoc(xml);
    // The catalog refills the combo as "12 Trillas": number and name are taken apart all the same.
    sistema->AlMostrar(QStringLiteral("FrmImportaSolicitud_1"), [](QDialog& d) {
        auto& e = static_cast<FrmImportaSolicitud_1&>(d);
        e.TxtTitulo->setText(QStringLiteral("Balún Canán"));
        e.TxtAutor->setText(QStringLiteral("Rosario Castellanos"));
        e.TxtEdicion->setText(QStringLiteral("4"));
        e.TxtEjemplar->setText(QStringLiteral("5"));
        e.BtnCatalogo_Click();
        e.Combo1->setListIndex(e.Combo1->ListCount() - 1);
        EXPECT_EQ(e.Combo1->Text(), QStringLiteral("12 Trillas"));
        e.BtnGrabar_Click();
    });
    f->BtnAgregar_Click();
    ASSERT_EQ(f->LstLibros->ListItems().Count(), 4);
    EXPECT_EQ(Fila(f->LstLibros->ListItems()(4)).join(u'|'), QStringLiteral("Balún Canán|Rosario Castellanos|Trillas||4|5|12"));
    EXPECT_EQ(f->Frame1->title(), QStringLiteral("Resultados: Libros=4"));
}

// ---- What the document and the database decide ------------------------------------------------------------------

TEST_F(PruebaImportacion, UnaBibliotecaMayorQue255NoSeEscribeYUnaEscuelaSinBibliotecaTampoco) {
    for (const char* escuela : {"8", "9"}) {
        auto f = Pantalla();
        f->CargaDoc(Escribe(QStringLiteral("escuela.xml"), Documento(Titulos(), QString(), QLatin1String(escuela))));
        f->BtnGrabar_Click();
    }
    EXPECT_EQ(Escrita(1).front(), QStringLiteral("15/03/2024|Dra. Ana María Núñez|8|NULL|S|ana"));
    EXPECT_EQ(Escrita(2).front(), QStringLiteral("15/03/2024|Dra. Ana María Núñez|9|NULL|S|ana"));
    EXPECT_EQ(sistema->Textos(), QStringList({GrabadaBien, GrabadaBien}));
}

TEST_F(PruebaImportacion, UnNumeroTomadoEntreLaCargaYLaGrabacionEsLaCajaDeLaClave) {
    auto f = Pantalla();
    f->CargaDoc(Escribe(QStringLiteral("escuela.xml"), Documento()));
    // Another analyst saves request 1 meanwhile.
    Ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Estado) VALUES (1, 'S')");
    f->BtnGrabar_Click();
    EXPECT_EQ(sistema->UltimaCaja().texto, QStringLiteral("La solicitud que intenta grabar ya fue grabada anteriormente") + CrLf +
                                               QStringLiteral("No. Solicitud = 1"));
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Solicitudes Libros]"), QStringLiteral("0"));
}

TEST_F(PruebaImportacion, UnTituloQueLaTablaNoAdmiteSeSenalaAntesDeEscribirNada) {
    QList<QStringList> titulos = Titulos();
    titulos[2][4] = QStringLiteral("2a");                  // an edition that is no number
    auto f = Pantalla();
    f->CargaDoc(Escribe(QStringLiteral("escuela.xml"), Documento(titulos)));
    f->BtnGrabar_Click();
    EXPECT_EQ(sistema->UltimaCaja().texto, QStringLiteral("No se puede grabar esta solicitud porque hay material pendiente por revisar"));
    EXPECT_TRUE(f->LstLibros->ListItems()(3).Selected());
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Solicitudes General]"), QStringLiteral("0"));
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Solicitudes Libros]"), QStringLiteral("0"));
}

// ---- Documents that are wrong ---------------------------------------------------------------------------------

TEST_F(PruebaImportacion, DocumentosMalosDanSuCajaYNoDejanNadaQueGrabar) {
    struct Caso {
        const char* nombre;
        QByteArray contenido;
        QString caja;
    };
    const QString formato = QStringLiteral("KORVEL8|0|El formato del archivo no es el correcto") + CrLf +
                            QStringLiteral("No se logró realizar la Importación");
    QByteArray sinDirector = Documento();
    sinDirector.replace("Director>", "Directora>");
    QByteArray ficharCorta = Documento();
    ficharCorta.replace("      <ISBN></ISBN>\n", "");
    QList<QStringList> conComilla = Titulos();
    conComilla[0][2] = QStringLiteral("O'Reilly");
    const Caso casos[] = {
        {"roto.xml", QByteArray("<Solicitud><InformacionGeneral>"), QStringLiteral("|0|Ha ocurrido un error.")},
        {"vacio.xml", QByteArray(), QStringLiteral("|0|Ha ocurrido un error.")},
        {"latin.xml", Documento().replace("encoding=\"ISO-8859-1\"", "encoding=\"UTF-8\""),
         QStringLiteral("|0|Ha ocurrido un error.")},
        {"sindirector.xml", sinDirector,
         QStringLiteral("KORVEL8|0|No se reconoce el formato del Archivo XML par su importación a KORVEL") + CrLf +
             QStringLiteral("Por favor, verifique el archivo")},
        // More titles announced than the document holds.
        {"total.xml", Documento(Titulos(), QStringLiteral("4")), formato},
        {"totalletras.xml", Documento(Titulos(), QStringLiteral("tres")), formato},
        // A Ficha with five children.
        {"corta.xml", ficharCorta, formato},
        // The name goes into the search between quotes as it is.
        {"comilla.xml", Documento(conComilla), formato},
        {"escuela.xml", Documento(Titulos(), QString(), QStringLiteral("tres")),
         QStringLiteral("|0|Error No. 3061") + CrLf + QStringLiteral("Pocos parámetros. Se esperaba 1.")},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.nombre);
        sistema->cajas.clear();
        auto f = Pantalla();
        f->CargaDoc(Escribe(QLatin1String(c.nombre), c.contenido));
        ASSERT_EQ(sistema->cajas.size(), 1u);
        EXPECT_EQ(Caja(sistema->cajas[0]), c.caja);
        EXPECT_EQ(f->LstLibros->ListItems().Count(), 0);
        EXPECT_EQ(f->Frame1->title(), QStringLiteral("Resultados"));
        EXPECT_FALSE(f->BtnGrabar->isEnabled());
    }
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Solicitudes General]"), QStringLiteral("0"));
}

TEST_F(PruebaImportacion, RutaVaciaExtensionAjenaYCancelar) {
    auto f = Pantalla();
    // No path: it says so and opens the dialog, whose cancel is the failure the program shows.
    ui::Protegido(QStringLiteral("prueba"), [&] { f->BtnImportar_Click(); });
    ASSERT_EQ(sistema->cajas.size(), 2u);
    EXPECT_EQ(Caja(sistema->cajas[0]), Caja(QStringLiteral("KORVEL8"), 16, QStringLiteral("No ha seleccionado la ruta del archivo")));
    EXPECT_EQ(sistema->cajas[1].texto, ui::TextoFallaPredeterminada(32755, QStringLiteral("Se seleccionó Cancelar.")));
    EXPECT_EQ(sistema->dialogos.size(), 1u);

    sistema->cajas.clear();
    sistema->archivos.push_back(ui::RespuestaArchivo::Elige(Ruta(QStringLiteral("solicitud.csv"))));
    f->BtnExmaniar_Click();
    EXPECT_EQ(Caja(sistema->UltimaCaja()),
              Caja(QStringLiteral("KORVEL8"), 16,
                   QStringLiteral("El archivo seleccionado no contiene un formato válido para realizar la importación") + CrLf +
                       QStringLiteral("Por favor seleccione un archivo con extensión XML ó XLS")));
    EXPECT_EQ(f->TxtRuta->text(), QString());
}

// ---- Workbooks ------------------------------------------------------------------------------------------------

TEST_F(PruebaImportacion, ElDocumentoDeUnLibroSeLlamaComoElHastaElPrimerPuntoYReemplazaAlAnterior) {
    const QString xlsx = LibroXlsx(QStringLiteral("Sol.2024.marzo.xlsx"));
    Escribe(QStringLiteral("Sol.xml"), QByteArray("lo que estaba"));
    auto f = Pantalla();
    Elige(*f, xlsx);
    EXPECT_EQ(sistema->modales, QStringList{QStringLiteral("FrmProcesando")});
    EXPECT_EQ(f->TxtRuta->text(), Ruta(QStringLiteral("Sol.xml")));
    EXPECT_EQ(f->LstLibros->ListItems().Count(), 3);
    const QByteArray documento = Lee(Ruta(QStringLiteral("Sol.xml")));
    EXPECT_TRUE(documento.startsWith("<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<Solicitud>\r\n<InformacionGeneral>\r\n"
                                     "<FechaEnvio>15/03/2024</FechaEnvio>\r\n<Director>Dra. Ana Mar\xed" "a N\xfa\xf1" "ez</Director>\r\n"));
    EXPECT_TRUE(documento.contains("<Ficha Id=\"3\">\r\n<Libro>El laberinto de la soledad</Libro>\r\n<Autor>Octavio Paz</Autor>\r\n"
                                   "<Editorial>S.N.</Editorial>\r\n<ISBN></ISBN>\r\n<Publicacion>3</Publicacion>\r\n"
                                   "<Ejemplares>1</Ejemplares>\r\n</Ficha>\r\n</Bibliografia>\r\n</Solicitud>"));
    EXPECT_TRUE(documento.contains("<TotalLibros>3</TotalLibros>\r\n<TotalEjemplares>6</TotalEjemplares>\r\n"));
}

TEST_F(PruebaImportacion, UnaHojaSinTitulosDaUnaSolicitudSinFichas) {
    // The titles start a row late: the first is not read, nor any after it.
    const QString xlsx = LibroXlsx(QStringLiteral("vacia.xlsx"), {}, 8);
    auto f = Pantalla();
    Elige(*f, xlsx);
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_EQ(f->Frame1->title(), QStringLiteral("Resultados: Ejemplares=0 Libros=0"));
    EXPECT_EQ(f->LstLibros->ListItems().Count(), 0);
    EXPECT_FALSE(Lee(Ruta(QStringLiteral("vacia.xml"))).contains("<Ficha"));
}

TEST_F(PruebaImportacion, LibrosMalosDanSuCajaYNoCarganNada) {
    const QString conAmpersand = LibroXlsx(QStringLiteral("ampersand.xlsx"), [](lxw_worksheet* h) {
        worksheet_write_string(h, 7, 1, "García & Márquez", nullptr);
    });
    const QString conLetras = LibroXlsx(QStringLiteral("letras.xlsx"), [](lxw_worksheet* h) {
        worksheet_write_string(h, 8, 4, "uno", nullptr);
    });
    const QString hojaVacia = Zip(QStringLiteral("hojavacia.xlsx"),
                                  {{"xl/workbook.xml", "<workbook><sheets><sheet name=\"H\" r:id=\"rId1\" "
                                                       "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"/>"
                                                       "</sheets></workbook>"},
                                   {"xl/_rels/workbook.xml.rels",
                                    "<Relationships><Relationship Id=\"rId1\" Type=\"x/worksheet\" Target=\"worksheets/h.xml\"/>"
                                    "</Relationships>"},
                                   {"xl/worksheets/h.xml", "<worksheet><sheetData/></worksheet>"}});
    const QString texto = Escribe(QStringLiteral("texto.xls"), QByteArray("Título,Autor\nPedro Páramo,Juan Rulfo\n"));
    const QString zipSinLibro = Zip(QStringLiteral("otro.xlsx"), {{"word/document.xml", "<document/>"}});
    const QString noZip = Escribe(QStringLiteral("nozip.xlsx"), QByteArray(2000, 'x'));
    const QString ausente = Ruta(QStringLiteral("no existe.xls"));

    const QString error = QStringLiteral("|0|Error No. ");
    const struct {
        QString ruta, caja;
    } casos[] = {
        {conAmpersand, QStringLiteral("|0|Ha ocurrido un error.")},
        {conLetras, error + QStringLiteral("13") + CrLf + QStringLiteral("No coinciden los tipos")},
        {hojaVacia, error + QStringLiteral("1004") + CrLf +
                        QStringLiteral("La primera hoja del libro 'hojavacia.xlsx' no contiene una solicitud: están vacías la "
                                       "fecha (B1), el solicitante (B2), la escuela (B3) y el primer título (A7).")},
        {texto, error + QStringLiteral("1004") + CrLf +
                    QStringLiteral("No se pudo abrir el libro 'texto.xls': el archivo no es un libro de Excel (.xls).")},
        {zipSinLibro, error + QStringLiteral("1004") + CrLf +
                          QStringLiteral("No se pudo abrir el libro 'otro.xlsx': el archivo no es un libro de Excel (.xlsx).")},
        {noZip, error + QStringLiteral("1004") + CrLf +
                    QStringLiteral("No se pudo abrir el libro 'nozip.xlsx': el archivo no es un libro de Excel (.xlsx).")},
        {ausente, error + QStringLiteral("1004") + CrLf +
                      QStringLiteral("No se pudo abrir el libro 'no existe.xls': no se encontró el archivo o no se puede leer.")},
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(c.ruta.toStdString());
        sistema->cajas.clear();
        auto f = Pantalla();
        Elige(*f, c.ruta);
        ASSERT_EQ(sistema->cajas.size(), 1u);
        EXPECT_EQ(Caja(sistema->cajas[0]), c.caja);
        EXPECT_EQ(f->LstLibros->ListItems().Count(), 0);
        EXPECT_FALSE(f->BtnGrabar->isEnabled());
    }
    // The document with the ampersand was written, as the offices' conversion always wrote it.
    EXPECT_TRUE(Lee(Ruta(QStringLiteral("ampersand.xml"))).contains("<Autor>Garc\xed" "a & M\xe1rquez</Autor>"));
    EXPECT_FALSE(QFile::exists(Ruta(QStringLiteral("letras.xml"))));
}

// ---- Reached from the list of requests -----------------------------------------------------------------------

TEST_F(PruebaImportacion, Sol1AbreLaImportacionPorSuNombre) {
    intercambio::RegistraComandos();
    ASSERT_TRUE(ui::AperturaDisponible(QStringLiteral("FrmImportaSolicitud")));
    Sol1 lista;
    lista.Form_Load();
    sistema->AlMostrar(QStringLiteral("FrmImportaSolicitud"), [](QDialog& d) {
        auto& f = static_cast<FrmImportaSolicitud&>(d);
        EXPECT_NE(f.Conexion(), nullptr);
        EXPECT_EQ(f.LstLibros->ColumnHeaders().Count(), 7);
        EXPECT_EQ(f.LstLibros->ColumnHeaders()(7).Width(), 0);
    });
    lista.BtnImportarSolicitud->click();
    EXPECT_EQ(sistema->modales, QStringList{QStringLiteral("FrmImportaSolicitud")});
    EXPECT_TRUE(sistema->cajas.empty());
}

}  // namespace
