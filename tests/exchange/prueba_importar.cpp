// The import: a round trip of requests and of donations between two installations (new numbers here, titles
// under their new heads, accession numbers kept or refused and listed), a second import of the same file, an
// empty range, files that are no exchange files, a missing table, a Metadata row of another shape or with the
// wrong flag, apostrophes in titles, the enabling of the buttons and the preview.
#include "ayuda_archivos_intercambio.h"

#include "exchange/ArchivoIntercambio.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFrame>
#include <QLabel>
#include <QRegularExpression>

namespace {

class Importacion : public PruebaArchivosIntercambio {
protected:
    // The requests 2 and 3 exported from the first installation; the second is the program's database then.
    // Requests 2 and 3, or donations 1 and 2, exported from the first installation; the second is the
    // program's database then.
    QString ExportaYCambia(bool solicitudes = true, const QString& nombre = QStringLiteral("solicitudes.exp")) {
        const QString archivo = Ruta(nombre);
        Exporta(solicitudes, solicitudes ? QStringLiteral("2") : QStringLiteral("1"),
                solicitudes ? QStringLiteral("3") : QStringLiteral("2"), archivo);
        CambiaDeInstalacion();
        sistema->cajas.clear();
        return archivo;
    }
    QString ExportaDonaciones() { return ExportaYCambia(false, QStringLiteral("donaciones.exp")); }
    QStringList Cabezas() {
        return Filas("SELECT NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado, FechaPedido, IdCapturista FROM "
                     "[Solicitudes General] WHERE NoSolicitud > 10 ORDER BY NoSolicitud");
    }
    QStringList Titulos() {
        return Filas("SELECT ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, [Fecha de Recepcion], "
                     "[Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud FROM [Solicitudes Libros] WHERE ClaveLibro > 40 "
                     "ORDER BY ClaveLibro");
    }
    QStringList Ejemplares() {
        return Filas("SELECT NoAdquisicion, ClaveLibro, [Solicitud o donacion], IdCapturista, FechaIngreso, MatComplementario "
                     "FROM [Adquisiciones Numadqui] WHERE [Solicitud o donacion] = 'S' ORDER BY ClaveLibro, NoAdquisicion");
    }
    static QString Rechazados(const QString& numeros) {
        return Caja(QStringLiteral("Mensaje"), ui::vbExclamation,
                    QStringLiteral("No se agregaron los siguientes libros \r\n") + numeros +
                        QStringLiteral("por tener número de adquisición repetido"));
    }
    static QString NoImportable() {
        return Caja(QStringLiteral("Mensaje"), ui::vbInformation, QStringLiteral("Este archivo no es un formato importable"));
    }
    static QString Satisfactoria() { return Caja(QStringLiteral("Mensaje"), 0, QStringLiteral("Importación satisfactoria")); }
};

TEST_F(Importacion, IdaYVueltaDeSolicitudes) {
    const QString archivo = ExportaYCambia(true, QStringLiteral("Envío de peticiones.exp"));
    frmImportar f;
    f.Form_Load();
    Elige(f, archivo);
    EXPECT_EQ(sistema->dialogos.back().dialogo.titulo, QStringLiteral("Importar Archivo"));
    EXPECT_FALSE(sistema->dialogos.back().guardar);
    EXPECT_EQ(f.txtArchivo->text(), archivo);
    EXPECT_FALSE(f.picEstatus->isHidden());
    QStringList resumen;
    for (QLabel* l : f.lblData) resumen << l->text();
    EXPECT_EQ(resumen.mid(0, 4), (QStringList{"2", "0", "3", "3"}));
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^\\d\\d-[a-z]{3}-\\d{4} \\d\\d:\\d\\d$")).match(resumen[4]).hasMatch()) << resumen[4].toStdString();
    EXPECT_FALSE(f.EsDonacion);
    Rango(f, QStringLiteral("2"), QStringLiteral("3"));
    f.Command1->click();
    // The copy whose number this installation has already stays behind, its title one copy short.
    EXPECT_EQ(UltimaCaja(), Rechazados(QStringLiteral("A-0003, ")));
    EXPECT_EQ(Cabezas(), (QStringList{"11|2024-02-15 09:30:00|Dra. Peña|3|1|R|NULL|NULL",
                                      "12|2024-03-20 00:00:00|Lic. Soto|4|2|P|NULL|NULL"}));
    EXPECT_EQ(Titulos(), (QStringList{"41|Cálculo|Stewart|2|5|3|2024-03-01 10:00:00|2|450.5|F-1|A|11",
                                      "42|Física|Resnick|1|5|1|NULL|0|300||P|11",
                                      "43|Álgebra|Baldor|1|5|2|2024-04-02 00:00:00|1|99.9999|F-2|A|12"}));
    // Numbers kept, the session's analyst, the date of entry to the minute.
    EXPECT_EQ(Ejemplares(), (QStringList{"A-0003|40|S|NULL|NULL|NULL", "A-0001|41|S|luz|2024-03-01 10:20:00|CD",
                                         "A-0002|41|S|luz|2024-03-01 10:21:00|"}));
    // The file was only read.
    EXPECT_FALSE(QFileInfo::exists(archivo + QStringLiteral("-wal")));
    EXPECT_FALSE(QFileInfo::exists(archivo + QStringLiteral("-shm")));

    // Again: two more heads and titles, every copy refused.
    Importa(archivo, QStringLiteral("2"), QStringLiteral("3"));
    EXPECT_EQ(UltimaCaja(), Rechazados(QStringLiteral("A-0001, A-0002, A-0003, ")));
    EXPECT_EQ(Cabezas().size(), 4);
    EXPECT_EQ(Titulos().mid(3), (QStringList{"44|Cálculo|Stewart|2|5|3|2024-03-01 10:00:00|2|450.5|F-1|A|13",
                                             "45|Física|Resnick|1|5|1|NULL|0|300||P|13",
                                             "46|Álgebra|Baldor|1|5|2|2024-04-02 00:00:00|1|99.9999|F-2|A|14"}));
    EXPECT_EQ(Ejemplares().size(), 3);
}

TEST_F(Importacion, IdaYVueltaDeDonaciones) {
    const QString archivo = ExportaDonaciones();
    // The copies of donated titles travel without their complementary material.
    EXPECT_EQ(Filas(*dao::Database::OpenDatabase(archivo, true), "SELECT * FROM [Adquisiciones Numadqui] WHERE ClaveLibro = 32"),
              QStringList{"D-0003|32|D|ana|2024-02-08 00:00:00"});
    frmImportar f;
    f.Form_Load();
    Elige(f, archivo);
    EXPECT_EQ(f.lblData[1]->text(), QStringLiteral("2"));
    EXPECT_EQ(f.lblData[3]->text(), QStringLiteral("3"));
    EXPECT_TRUE(f.EsDonacion);
    Rango(f, QStringLiteral("1"), QStringLiteral("2"));
    f.Command1->click();
    EXPECT_EQ(UltimaCaja(), Rechazados(QStringLiteral("D-0002, ")));
    EXPECT_EQ(Filas("SELECT NoDonacion, Fecha, NoInstitucion, NoBiblioteca, [Donacion o Intercambio] FROM [Donaciones General] "
                    "WHERE NoDonacion > 5 ORDER BY 1"),
              (QStringList{"6|2024-01-05 00:00:00|12|1|D", "7|2024-02-07 00:00:00|12|2|I"}));
    // The cost, the analyst and the date of capture stay behind.
    EXPECT_EQ(Filas("SELECT * FROM [Donaciones Libros] WHERE ClaveLibro > 60 ORDER BY 1"),
              (QStringList{"61|Atlas|INEGI|2|5|1|6|NULL|NULL|NULL", "62|Mapas|Guía Roji|1|5|1|7|NULL|NULL|NULL"}));
    EXPECT_EQ(Filas("SELECT NoAdquisicion, ClaveLibro, [Solicitud o donacion], IdCapturista, FechaIngreso FROM "
                    "[Adquisiciones Numadqui] WHERE ClaveLibro > 60 ORDER BY 1"),
              (QStringList{"D-0001|61|D|NULL|NULL", "D-0003|62|D|NULL|NULL"}));
}

// A range without rows makes a valid file whose Metadata holds zeros, the count told being its one row.
TEST_F(Importacion, RangoVacioYArchivoSinFilas) {
    Exporta(true, QStringLiteral("100"), QStringLiteral("200"), Ruta(QStringLiteral("vacio.exp")));
    EXPECT_EQ(UltimaCaja(), Caja(QStringLiteral("Exportación terminada"), 0, QStringLiteral("Se exportaron exitosamente 1 registros")));
    CambiaDeInstalacion();
    frmImportar f;
    Importa(f, Ruta(QStringLiteral("vacio.exp")), QStringLiteral("1"), QStringLiteral("5"));
    EXPECT_EQ(f.lblData[0]->text() + f.lblData[1]->text() + f.lblData[2]->text() + f.lblData[3]->text(), QStringLiteral("0000"));
    EXPECT_EQ(UltimaCaja(), Satisfactoria());
    EXPECT_TRUE(Cabezas().isEmpty());

    // A range of the file without rows.
    CambiaDeInstalacion();
    const QString archivo = ExportaYCambia();
    Importa(archivo, QStringLiteral("7"), QStringLiteral("9"));
    EXPECT_EQ(UltimaCaja(), Satisfactoria());
    EXPECT_TRUE(Cabezas().isEmpty());
}

// Anything but an exchange file is refused with the screen's box, and nothing is written; the summary stays
// hidden for a file that can't be read.
TEST_F(Importacion, ArchivosQueNoSonDeIntercambio) {
    const QByteArray bytes = Lee(ExportaYCambia());
    {
        auto soloMetadata = dao::Database::CreateDatabase(Ruta(QStringLiteral("metadata.exp")));
        soloMetadata->Execute(QStringLiteral("CREATE TABLE Metadata (NoSolicitudes LONG, NoDonaciones LONG, NoTitulos LONG, "
                                             "NoEjemplares LONG, IdCapturista TEXT(10), FechaExportacion DATETIME)"));
        soloMetadata->Execute(QStringLiteral("INSERT INTO Metadata VALUES (1, 0, 1, 1, 'x', #2024/01/01#)"));
    }
    struct Caso {
        QString archivo;
        bool conResumen;
    };
    const Caso casos[] = {
        {Escribe(QStringLiteral("texto.exp"), "NoSolicitud;Fecha\r\n2;2024-02-15\r\n"), false},
        {Escribe(QStringLiteral("vacio.exp"), QByteArray()), false},
        {Escribe(QStringLiteral("cortado.exp"), bytes.left(bytes.size() / 2 + 100)), false},
        {Escribe(QStringLiteral("cabecera.exp"), bytes.left(100)), false},
        {Ruta(QStringLiteral("metadata.exp")), true},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.archivo.toStdString());
        sistema->cajas.clear();
        frmImportar f;
        Importa(f, c.archivo, QStringLiteral("1"), QStringLiteral("5"));
        EXPECT_EQ(f.picEstatus->isHidden(), !c.conResumen);
        EXPECT_EQ(sistema->Textos().size(), 1);
        EXPECT_EQ(UltimaCaja(), NoImportable());
    }
    // An exchange file under another extension; a file that isn't there.
    sistema->cajas.clear();
    Importa(Escribe(QStringLiteral("solicitudes.txt"), bytes), QStringLiteral("2"), QStringLiteral("3"));
    EXPECT_EQ(UltimaCaja(), NoImportable());
    frmImportar f;
    f.Form_Load();
    f.txtArchivo->setText(Ruta(QStringLiteral("no-esta.exp")));
    Rango(f, QStringLiteral("2"), QStringLiteral("3"));
    f.Command1->click();
    EXPECT_EQ(UltimaCaja(), Caja(QStringLiteral("Importación"), ui::vbInformation,
                                 QStringLiteral("No se encontró el archivo con los datos a importar")));
    EXPECT_TRUE(Cabezas().isEmpty());
    EXPECT_TRUE(Titulos().isEmpty());
}

// A file of an older installation is in the legacy format: it is read through a private copy of this program's
// format and judged by its tables like any other, the file itself untouched; a copy goes once it is closed.
TEST_F(Importacion, ArchivoDeUnaInstalacionAnterior) {
    const QString anterior = Ruta(QStringLiteral("anterior.exp"));
    ASSERT_TRUE(QFile::copy(QStringLiteral(ADQ_SOURCE_DIR "/../shared/testdata/jet/nwind.mdb"), anterior));
    const QByteArray antes = Lee(anterior);
    auto copias = [] {
        return QDir::temp().entryList({QStringLiteral("adq-intercambio-*")}, QDir::Dirs | QDir::NoDotAndDotDot).size();
    };
    const auto copiasAntes = copias();
    {
        auto base = intercambio::AbreBaseIntercambio(anterior);
        EXPECT_EQ(Filas(*base, QStringLiteral("SELECT Count(*), Sum(Freight) FROM Orders")), QStringList{"830|64942.69"});
    }
    {
        auto otra = intercambio::AbreBaseIntercambio(anterior);
        EXPECT_EQ(copias(), copiasAntes + 1);    // the first copy, closed, is gone
    }
    frmImportar f;
    Importa(f, anterior, QStringLiteral("1"), QStringLiteral("5"));
    EXPECT_TRUE(f.picEstatus->isHidden());       // no Metadata
    EXPECT_EQ(UltimaCaja(), NoImportable());     // no table of requests or donations
    EXPECT_TRUE(Cabezas().isEmpty());
    EXPECT_EQ(Lee(anterior), antes);

    // A legacy file cut short is refused like any file that is no exchange file.
    sistema->cajas.clear();
    frmImportar g;
    Importa(g, Escribe(QStringLiteral("cortado.exp"), antes.left(5000)), QStringLiteral("1"), QStringLiteral("5"));
    EXPECT_TRUE(g.picEstatus->isHidden());
    EXPECT_EQ(UltimaCaja(), NoImportable());
}

// A file without its copies' table imports up to the first lookup of copies and stops there in the failure box,
// with what it wrote kept; its preview tells that the file's structure is not the expected one.
TEST_F(Importacion, ArchivoAlQueLeFaltaUnaTabla) {
    const QString archivo = ExportaYCambia();
    dao::Database::OpenDatabase(archivo)->TableDefs().Delete(QStringLiteral("Adquisiciones Numadqui"));
    frmImportar f;
    Importa(f, archivo, QStringLiteral("2"), QStringLiteral("3"));
    EXPECT_TRUE(UltimaCaja().startsWith(Caja(ui::TituloPrograma, ui::vbCritical, QStringLiteral("Se produjo el error 3078"))))
        << UltimaCaja().toStdString();
    EXPECT_EQ(Cabezas().size(), 1);
    EXPECT_EQ(Titulos().size(), 1);

    f.cmdPreview->click();
    EXPECT_EQ(UltimaCaja(), Caja(QStringLiteral("[Importar: Vista Previa]"), ui::vbCritical,
                                 QStringLiteral("La estructura del archivo seleccionado no coincide con la estructura esperada "
                                                "de adquisiciones, probablemente el archivo esté corrupto o haya sido generado "
                                                "con información de otro módulo de KORVEL.\r\nPor favor escoja un archivo "
                                                "diferente")));
    EXPECT_TRUE(f.txtArchivo->text().isEmpty());
}

// The summary takes what a Metadata row of another shape gives; the flag of donations in it is only a hint:
// the tables decide what is imported.
TEST_F(Importacion, MetadataDeOtraFormaODeshonesta) {
    const QString archivo = ExportaDonaciones();
    {
        auto exp = dao::Database::OpenDatabase(archivo);
        exp->TableDefs().Delete(QStringLiteral("Metadata"));
        exp->Execute(QStringLiteral("CREATE TABLE Metadata (NoSolicitudes LONG, NoDonaciones TEXT(5), NoTitulos LONG, "
                                    "NoEjemplares LONG)"));
        exp->Execute(QStringLiteral("INSERT INTO Metadata VALUES (7, 'cero', 2, 3)"));
    }
    frmImportar f;
    f.Form_Load();
    f.lblData[4]->setText(QStringLiteral("de antes"));
    Elige(f, archivo);
    EXPECT_FALSE(f.picEstatus->isHidden());
    EXPECT_EQ(f.lblData[0]->text(), QStringLiteral("7"));
    EXPECT_EQ(f.lblData[1]->text(), QStringLiteral("cero"));
    EXPECT_EQ(f.lblData[4]->text(), QStringLiteral("de antes"));
    EXPECT_FALSE(f.EsDonacion);
    EXPECT_TRUE(sistema->cajas.empty());
    // Believed, the flag sends the preview to requests the file doesn't have.
    Rango(f, QStringLiteral("1"), QStringLiteral("2"));
    f.cmdPreview->click();
    EXPECT_EQ(sistema->cajas.back().titulo, QStringLiteral("[Importar: Vista Previa]"));
    f.txtArchivo->setText(archivo);
    Rango(f, QStringLiteral("1"), QStringLiteral("2"));
    f.Command1->click();
    EXPECT_EQ(UltimaCaja(), Rechazados(QStringLiteral("D-0002, ")));
    EXPECT_EQ(Filas("SELECT Count(*) FROM [Donaciones General]"), QStringList{"7"});
}

// A title with an apostrophe goes in when it was received, since only that statement doubles the quotes; the
// other breaks its statement, with the head already written.
TEST_F(Importacion, TituloConApostrofo) {
    Ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado) VALUES "
            "(5, #2024/06/01#, 'Mtra. Ruiz', 3, 1, 'R')");
    Ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado) VALUES "
            "(6, #2024/06/02#, 'Mtra. Ruiz', 3, 1, 'S')");
    Ejecuta("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, "
            "[Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud) VALUES (25, 'L''Étranger', "
            "'Camus', 1, 5, 1, #2024/06/10#, 1, 15, 'F''9', 'A', 5)");
    Ejecuta("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, "
            "[Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud) VALUES (26, 'O''Neill', 'Autor', 1, 5, 1, 0, 15, '', "
            "'S', 6)");
    const QString archivo = Ruta(QStringLiteral("apostrofos.exp"));
    Exporta(true, QStringLiteral("5"), QStringLiteral("6"), archivo);
    CambiaDeInstalacion();
    Importa(archivo, QStringLiteral("5"), QStringLiteral("6"));
    EXPECT_TRUE(UltimaCaja().startsWith(Caja(ui::TituloPrograma, ui::vbCritical, QStringLiteral("Se produjo el error 3075"))))
        << UltimaCaja().toStdString();
    EXPECT_EQ(Filas("SELECT NoSolicitud, Solicitante FROM [Solicitudes General] WHERE NoSolicitud > 10"),
              (QStringList{"11|Mtra. Ruiz", "12|Mtra. Ruiz"}));
    EXPECT_EQ(Filas("SELECT Titulo, Factura, NoSolicitud FROM [Solicitudes Libros] WHERE ClaveLibro > 40"),
              QStringList{"L'Étranger|F'9|11"});
}

// A number the file holds as Null leaves a gap in its statement, which fails with the head already written;
// only the date of reception has a statement without it.
TEST_F(Importacion, NuloEnUnaColumnaNumerica) {
    Ejecuta("UPDATE [Solicitudes Libros] SET [Ejemplares recibidos] = NULL WHERE ClaveLibro = 23");
    const QString archivo = ExportaYCambia();
    Importa(archivo, QStringLiteral("3"), QStringLiteral("3"));
    EXPECT_TRUE(UltimaCaja().startsWith(Caja(ui::TituloPrograma, ui::vbCritical, QStringLiteral("Se produjo el error 3134"))))
        << UltimaCaja().toStdString();
    EXPECT_EQ(Cabezas().size(), 1);
    EXPECT_TRUE(Titulos().isEmpty());
}

TEST_F(Importacion, RangoHabilitaImportarYPrevisualizar) {
    const QString archivo = ExportaYCambia();
    frmImportar f;
    f.Form_Load();
    EXPECT_FALSE(f.Command1->isEnabled());
    EXPECT_FALSE(f.cmdPreview->isEnabled());
    for (const auto& [inicio, final_, habilita] : {std::tuple{"2", "", false}, {"", "3", false}, {"2", "3", true},
                                                   {"3", "3", true}, {"4", "3", false}, {"2", "tres", false}}) {
        Rango(f, QString::fromUtf8(inicio), QString::fromUtf8(final_));
        EXPECT_EQ(f.Command1->isEnabled() + 2 * f.cmdPreview->isEnabled(), habilita ? 3 : 0) << inicio << " " << final_;
    }
    // Another file with a range in place: the range is emptied for the new file, the page blanked.
    Rango(f, QStringLiteral("2"), QStringLiteral("3"));
    f.txtArchivo->setText(archivo);
    EXPECT_TRUE(f.txtInicio->text().isEmpty());
    EXPECT_TRUE(f.txtFinal->text().isEmpty());
    EXPECT_FALSE(f.Command1->isEnabled());
    EXPECT_FALSE(f.cmdPreview->isEnabled());
    // A name that isn't a file leaves the range and turns "Importar" off.
    Rango(f, QStringLiteral("2"), QStringLiteral("3"));
    f.txtArchivo->setText(archivo + QStringLiteral("x"));
    EXPECT_EQ(f.txtInicio->text(), QStringLiteral("2"));
    EXPECT_FALSE(f.Command1->isEnabled());
    // The preview with a range turned bad meanwhile only beeps.
    f.cmdPreview_Click();
    EXPECT_TRUE(f.Command1->isEnabled());
    f.txtFinal->setText(QStringLiteral("1"));
    f.cmdPreview_Click();
    EXPECT_EQ(sistema->beeps, 1);
    EXPECT_FALSE(f.Command1->isEnabled());
}

TEST_F(Importacion, VistaPreviaDeSolicitudesYDeDonaciones) {
    const QString archivo = ExportaYCambia();
    frmImportar f;
    f.Form_Load();
    Elige(f, archivo);
    Rango(f, QStringLiteral("2"), QStringLiteral("3"));
    f.cmdPreview->click();
    ASSERT_FALSE(sistema->documentos.isEmpty());
    const QString html = sistema->documentos.back();
    EXPECT_TRUE(html.startsWith(QStringLiteral(" <HTML><STYLE type='text/css'>table, body {font-family:tahoma, verdana, "
                                               "arial;font-size:8pt;}</STYLE><BODY><P>No. de Solicitud: <b>2</b><br> ")));
    EXPECT_TRUE(html.endsWith(QStringLiteral("</TABLE><p>Libros de esta solicitud: 1</p><HR/> </BODY> </HTML>")));
    // The names are this installation's.
    EXPECT_TRUE(html.contains(QStringLiteral("Fecha: <b>15/02/2024 09:30:00</b><br>Solicitante: <b>Dra. Peña</b><br>Escuela: "
                                             "<b>Escuela de Ingeniería</b><br>Biblioteca: <b>Central</b><br>Estado: "
                                             "<b>Adquirido</b><br></p><table width=\"100%\" border=\".5\"><tr  "
                                             "bgcolor=\"#CCCCCC\"><TD>No. Adquisicion</TD><TD>Título</TD>")));
    EXPECT_TRUE(html.contains(QStringLiteral("<TR><TD>A-0001</TD><TD>Cálculo</TD><TD>Stewart</TD><TD>2</TD><TD>Trillas</TD>"
                                             "<TD>3</TD><TD>01/03/2024 10:00:00</TD><TD>2</TD><TD>F-1</TD><TD>Adquirido</TD></TR>")));
    EXPECT_TRUE(html.contains(QStringLiteral("<TR><TD></TD><TD>Física</TD><TD>Resnick</TD><TD>1</TD><TD>Trillas</TD><TD>1</TD>"
                                             "<TD></TD><TD>0</TD><TD></TD><TD>Pedido</TD></TR>")));
    EXPECT_TRUE(html.contains(QStringLiteral("Libros de esta solicitud: 3</p><HR/><P>No. de Solicitud: <b>3</b>")));
    EXPECT_TRUE(f.Label5->text().isEmpty());
    EXPECT_TRUE(sistema->cajas.empty());

    CambiaDeInstalacion();
    const QString donaciones = ExportaDonaciones();
    Elige(f, donaciones);
    Rango(f, QStringLiteral("1"), QStringLiteral("2"));
    f.cmdPreview->click();
    const QString d = sistema->documentos.back();
    EXPECT_TRUE(d.contains(QStringLiteral("<P>No. de Donacion: 1<br> Fecha: 05/01/2024<br>Escuela: Fundación Alba<br>Escuela: "
                                          "Central<br>Donación<br></p><table")));
    EXPECT_TRUE(d.contains(QStringLiteral("<TD>No. Adquisicion</TD><TD>Título</TD><TD>Autor</TD><TD>Editorial</TD>"
                                          "<TD>Edici&oacute;n</TD></TR><TR><TD>D-0001</TD><TD>Atlas</TD><TD>INEGI</TD>"
                                          "<TD>Trillas</TD><TD>1</TD></TR>")));
    EXPECT_TRUE(d.contains(QStringLiteral("Libros de esta donación: 2</p><HR/><P>No. de Donacion: 2<br>")));
}

}  // namespace
