// The export: the file's tables, fields and Metadata row, the count told (the Metadata row included), a file
// that exists already (replaced, kept, or the program's own database), a range or a path that breaks the
// statements.
#include "ayuda_archivos_intercambio.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>

namespace {

// Each table of a file with its fields as "name:type:size", and its indexes, as the catalog sees them.
QStringList Estructura(dao::Database& base) {
    QStringList r;
    for (int t = 0; t < base.TableDefs().Count(); ++t) {
        dao::TableDef& td = base.TableDefs()[t];
        QStringList campos;
        for (const auto& f : td.Fields()) campos << QStringLiteral("%1:%2:%3").arg(f->Name()).arg(f->Type()).arg(f->Size());
        r << td.Name() + QStringLiteral(" (") + campos.join(QStringLiteral(", ")) + QStringLiteral(") indices ") +
                 QString::number(td.Indexes().size());
    }
    return r;
}

class Exportacion : public PruebaArchivosIntercambio {};

TEST_F(Exportacion, SolicitudesConSusTablasCamposYMetadata) {
    const QString archivo = Ruta(QStringLiteral("Intercambio del año 2024.exp"));
    const vb::Fecha antes = vb::Fecha::Now();
    Exporta(true, QStringLiteral("2"), QStringLiteral("3"), archivo);
    // Two heads, three titles, three copies and the Metadata row.
    EXPECT_EQ(UltimaCaja(), Caja(QStringLiteral("Exportación terminada"), 0, QStringLiteral("Se exportaron exitosamente 9 registros")));
    ASSERT_EQ(sistema->cajas.size(), 1u);
    // The file travels alone, and nothing of this session holds it.
    EXPECT_FALSE(QFileInfo::exists(archivo + QStringLiteral("-wal")));
    EXPECT_FALSE(QFileInfo::exists(archivo + QStringLiteral("-journal")));
    EXPECT_FALSE(dao::Database::AbiertaEnEsteProceso(archivo));

    auto exp = dao::Database::OpenDatabase(archivo, true);
    EXPECT_EQ(Estructura(*exp),
              (QStringList{
                  "Solicitudes General (NoSolicitud:4:4, Fecha:8:8, Solicitante:10:100, NoEscuela:3:2, NoBiblioteca:3:2, "
                  "Estado:10:1, FechaPedido:8:8, FechaRecepcion:8:8, FechaCaptura:8:8, FechaEnvio:8:8, IdCapturista:10:10, "
                  "TipoMaterial:3:2, IdFinanciamiento:3:2) indices 0",
                  "Solicitudes Libros (ClaveLibro:4:4, Titulo:10:100, Autor:10:100, Ejemplares pedidos:3:2, NoEditorial:3:2, "
                  "Edicion:3:2, Fecha de Recepcion:8:8, Ejemplares recibidos:3:2, Costo:5:8, Factura:10:50, Estado:10:1, "
                  "NoSolicitud:3:2, IdCapturista:10:10, Ejemp_Recibidos:3:2, ISBN:10:20) indices 0",
                  "Adquisiciones Numadqui (NoAdquisicion:10:20, ClaveLibro:4:4, Solicitud o donacion:10:1, IdCapturista:10:10, "
                  "FechaIngreso:8:8, MatComplementario:10:15) indices 0",
                  "Metadata (NoSolicitudes:4:4, NoDonaciones:4:4, NoTitulos:4:4, NoEjemplares:4:4, IdCapturista:10:10, "
                  "FechaExportacion:8:8) indices 0",
              }));
    dao::Field& estado = exp->TableDefs()["Solicitudes General"].Fields()["Estado"];
    EXPECT_EQ(estado.DefaultValue(), QStringLiteral("\"S\""));
    EXPECT_TRUE(estado.AllowZeroLength());
    EXPECT_FALSE(estado.Required());

    // Every column travels as it is, also those the import leaves behind.
    EXPECT_EQ(Filas(*exp, "SELECT NoSolicitud, Fecha, Solicitante, Estado, FechaPedido, IdCapturista, TipoMaterial FROM "
                          "[Solicitudes General] ORDER BY NoSolicitud"),
              (QStringList{"2|2024-02-15 09:30:00|Dra. Peña|R|2024-02-20 08:00:00|ana|2",
                           "3|2024-03-20 00:00:00|Lic. Soto|P|2024-03-21 00:00:00|ana|2"}));
    const QStringList metadata = Filas(*exp, "SELECT * FROM Metadata");
    ASSERT_EQ(metadata.size(), 1);
    EXPECT_TRUE(metadata[0].startsWith(QStringLiteral("2|0|3|3|ana|"))) << metadata[0].toStdString();
    const auto fecha = vb::Fecha::fromIso(metadata[0].section(u'|', 5));
    ASSERT_TRUE(fecha.has_value());
    EXPECT_GE(fecha->toSerial(), antes.toSerial() - 1.0 / 86400);
    EXPECT_LE(fecha->toSerial(), vb::Fecha::Now().toSerial() + 1.0 / 86400);
}

// OK deletes the file (and the logs of a database of that name) and writes it anew; Cancel writes nothing,
// tells 0 rows and then fails on the file it never opened; the program's own database is never deleted.
TEST_F(Exportacion, ArchivoQueYaExiste) {
    const QString archivo = Ruta(QStringLiteral("ya existe.exp"));
    for (const QString& nombre : {archivo, archivo + QStringLiteral("-wal")}) Escribe(QFileInfo(nombre).fileName(), "lo que habia");
    sistema->Responde({ui::vbCancel});
    Exporta(true, QStringLiteral("2"), QStringLiteral("3"), archivo);
    EXPECT_EQ(sistema->Textos(),
              (QStringList{archivo + QStringLiteral(" ya existe desea remplazarlo"), QStringLiteral("Se exportaron exitosamente 0 registros"),
                           ui::TextoFallaPredeterminada(91, QStringLiteral("Variable de tipo Object o la variable de bloque With no está "
                                                                           "establecida"))}));
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("Mensaje"));
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbOKCancel);
    EXPECT_EQ(Lee(archivo), QByteArray("lo que habia"));

    sistema->cajas.clear();
    Exporta(true, QStringLiteral("2"), QStringLiteral("3"), archivo);
    EXPECT_EQ(sistema->Textos(), (QStringList{archivo + QStringLiteral(" ya existe desea remplazarlo"),
                                              QStringLiteral("Se exportaron exitosamente 9 registros")}));
    EXPECT_FALSE(QFileInfo::exists(archivo + QStringLiteral("-wal")));
    EXPECT_EQ(Filas(*dao::Database::OpenDatabase(archivo, true), "SELECT Count(*) FROM [Solicitudes Libros]"), QStringList{"3"});

    // The program's own database as the file to replace.
    sistema->cajas.clear();
    Exporta(true, QStringLiteral("2"), QStringLiteral("3"), globales::Base().Name());
    EXPECT_EQ(UltimaCaja(), Falla(70, QStringLiteral("Permiso denegado")));
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Solicitudes General]"), QStringLiteral("4"));
}

// A range with one end, a path with an apostrophe: the statements fail in the failure box and the screen stays;
// a second try over the same file replaces what the first left.
TEST_F(Exportacion, RangoOArchivoQueRompenLasSentencias) {
    frmExportacion f;
    Exporta(f, true, QString(), QString(), Ruta(QStringLiteral("x.exp")));
    EXPECT_EQ(UltimaCaja(), Caja(QStringLiteral("Mensaje"), ui::vbExclamation, QStringLiteral("Necesita especificar un rango")));
    f.txtFinal->setText(QStringLiteral("3"));
    f.txtArchivo->clear();
    f.Command1->click();
    EXPECT_EQ(UltimaCaja(),
              Caja(QStringLiteral("Mensaje"), ui::vbExclamation, QStringLiteral("Necesita especificar el archivo de salida")));
    EXPECT_FALSE(QFileInfo::exists(Ruta(QStringLiteral("x.exp"))));

    const QString archivo = Ruta(QStringLiteral("medio.exp"));
    f.txtArchivo->setText(archivo);
    f.txtFinal->clear();
    f.txtInicio->setText(QStringLiteral("2"));
    f.Command1->click();
    EXPECT_TRUE(UltimaCaja().startsWith(Caja(ui::TituloPrograma, ui::vbCritical, QStringLiteral("Se produjo el error 3075"))))
        << UltimaCaja().toStdString();
    EXPECT_TRUE(QFileInfo::exists(archivo));
    f.txtFinal->setText(QStringLiteral("3"));
    f.Command1->click();
    EXPECT_EQ(UltimaCaja(), Caja(QStringLiteral("Exportación terminada"), 0, QStringLiteral("Se exportaron exitosamente 9 registros")));

    const QString conApostrofo = Ruta(QStringLiteral("O'Brien.exp"));
    Exporta(true, QStringLiteral("2"), QStringLiteral("3"), conApostrofo);
    EXPECT_TRUE(UltimaCaja().startsWith(Caja(ui::TituloPrograma, ui::vbCritical, QStringLiteral("Se produjo el error 3075"))));
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Solicitudes General]"), QStringLiteral("4"));
}

}  // namespace
