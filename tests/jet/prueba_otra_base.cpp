// INSERT INTO t IN '<file>': rows written into another database file of this program from the open one, by
// SELECT and by VALUES, converted to the other file's own field types; the ways the statement can't run.
#include "ayuda_jet.h"

#include "core/jet/ErroresMotor.h"

#include <QFile>
#include <QFileInfo>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using ayuda::BaseJet;
using ayuda::ErrorDe;
using ayuda::Texto;

// Whether another process would find the file's shared range locked: what SQLite holds on a database that a
// connection has open. A process never sees its own locks, so a child looks.
bool OtroProcesoVeBloqueo(const QString& ruta) {
    const QByteArray r = QFile::encodeName(ruta);
    const pid_t hijo = ::fork();
    if (hijo == 0) {
        const int fd = ::open(r.constData(), O_RDONLY);
        struct flock f {};
        f.l_type = F_WRLCK;
        f.l_whence = SEEK_SET;
        f.l_start = 0x40000002;     // SQLite's shared range
        f.l_len = 510;
        const bool bloqueado = fd >= 0 && ::fcntl(fd, F_GETLK, &f) == 0 && f.l_type != F_UNLCK;
        ::_exit(bloqueado ? 1 : 0);
    }
    int estado = 0;
    ::waitpid(hijo, &estado, 0);
    return WIFEXITED(estado) && WEXITSTATUS(estado) == 1;
}

class OtraBase : public BaseJet {
protected:
    void SetUp() override {
        BaseJet::SetUp();
        ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado) "
                "VALUES (7, #2024/03/05 10:20:30#, 'Dra. Peña', 3, 1, 'P')");
        ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca) "
                "VALUES (40000, #2024/04/01#, 'Lic. Ávila', 4, 2)");
        ejecuta("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Costo, NoSolicitud, [Fecha de Recepcion]) "
                "VALUES (11, 'Cálculo', 1234.5678, 7, #2024/05/06 07:08:09#)");
        ejecuta("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Costo, NoSolicitud) VALUES (12, 'Álgebra', 0.1, 7)");
    }

    // A new file with one table shaped as the exchange file shapes its tables: fields of its own types, no keys.
    QString archivoConTabla(const QString& nombre, const std::vector<std::tuple<QString, int, int>>& campos,
                            const QString& tabla = QStringLiteral("Destino")) {
        const QString r = ruta(nombre);
        auto otra = dao::Database::CreateDatabase(r, dao::dbLangSpanish, dao::dbVersion40);
        auto t = otra->CreateTableDef(tabla);
        for (const auto& [campo, tipo, tamano] : campos) t->Fields().Append(t->CreateField(campo, tipo, tamano));
        otra->TableDefs().Append(std::move(t));
        return r;
    }
    QStringList filasDe(const QString& archivo, const QString& sql) {
        return ayuda::Filas(*dao::Database::OpenDatabase(archivo, true), sql);
    }
};

TEST_F(OtraBase, SelectYValuesEnUnArchivoConBlancosYEnes) {
    const QString archivo = archivoConTabla(QStringLiteral("Intercambio de año 2024.exp"),
                                            {{"NoSolicitud", dao::dbLong, 0}, {"Fecha", dao::dbDate, 0},
                                             {"Solicitante", dao::dbText, 100}});
    ejecuta("INSERT INTO [Destino] IN '" + archivo + "' SELECT NoSolicitud, Fecha, Solicitante FROM [Solicitudes General] "
            "WHERE NoSolicitud BETWEEN 1 AND 50000");
    EXPECT_EQ(db->RecordsAffected(), 2);
    ejecuta("INSERT INTO destino IN '" + archivo + "' VALUES (9, #2025-01-02 03:04:05#, 'Niño')");
    EXPECT_EQ(db->RecordsAffected(), 1);
    ejecuta("INSERT INTO [Destino] IN '" + archivo + "' SELECT NoSolicitud, Fecha, Solicitante FROM [Solicitudes General] "
            "WHERE NoSolicitud BETWEEN 100 AND 200");
    EXPECT_EQ(db->RecordsAffected(), 0);
    EXPECT_EQ(filasDe(archivo, "SELECT * FROM Destino ORDER BY NoSolicitud"),
              (QStringList{"7|2024-03-05 10:20:30|Dra. Peña", "9|2025-01-02 03:04:05|Niño",
                           "40000|2024-04-01 00:00:00|Lic. Ávila"}));
    // The other file is let go after each statement: the main database goes on alone.
    EXPECT_EQ(cuenta("[Solicitudes General]"), 2);
    EXPECT_EQ(ErrorDe([&] { db->OpenRecordset("SELECT * FROM Destino"); }), jet::ErrTablaNoEncontrada);
}

// Each value takes the type of the field it lands in, by the other file's own catalog: a Long of the head
// into the 16-bit field of a title, money kept exact, money as text, numbers as text; what doesn't fit fails
// the whole statement and writes nothing.
TEST_F(OtraBase, LosValoresTomanElTipoDelCampoDeDestino) {
    const QString archivo = archivoConTabla(QStringLiteral("tipos.exp"),
                                            {{"Corto", dao::dbInteger, 0}, {"Monto", dao::dbCurrency, 0},
                                             {"MontoTexto", dao::dbText, 20}, {"Dia", dao::dbDate, 0},
                                             {"Nombre", dao::dbText, 5}});
    ejecuta("INSERT INTO Destino IN '" + archivo + "' (Corto, Monto, MontoTexto, Dia, Nombre) SELECT L.NoSolicitud, "
            "L.Costo, L.Costo, L.[Fecha de Recepcion], L.ClaveLibro FROM [Solicitudes Libros] L");
    EXPECT_EQ(db->RecordsAffected(), 2);
    EXPECT_EQ(filasDe(archivo, "SELECT * FROM Destino ORDER BY Monto"),
              (QStringList{"7|0.1|0.1|NULL|12", "7|1234.5678|1234.5678|2024-05-06 07:08:09|11"}));
    auto rs = dao::Database::OpenDatabase(archivo, true)->OpenRecordset("SELECT Corto, Monto, Nombre FROM Destino");
    EXPECT_EQ(rs->Fields(0).Value().type(), vb::VarType::Integer);
    EXPECT_EQ(rs->Fields(1).Value().type(), vb::VarType::Currency);
    EXPECT_EQ(rs->Fields(2).Value().type(), vb::VarType::String);
    // A request number beyond 16 bits, a text beyond the field's size.
    EXPECT_EQ(error("INSERT INTO Destino IN '" + archivo + "' (Corto) SELECT NoSolicitud FROM [Solicitudes General]"),
              jet::ErrDesbordamientoCampo);
    EXPECT_EQ(error("INSERT INTO Destino IN '" + archivo + "' (Nombre) SELECT Titulo FROM [Solicitudes Libros]"),
              jet::ErrCampoDemasiadoPequeno);
    EXPECT_EQ(error("INSERT INTO Destino IN '" + archivo + "' (Corto) VALUES ('siete')"), jet::ErrTiposNoCoinciden);
    EXPECT_EQ(filasDe(archivo, "SELECT Count(*) FROM Destino"), QStringList{"2"});
}

// The rows of a table copied by a * into a table of fewer fields: what the target lacks stays behind. A column
// named in the list, or one whose absence would change the rows (DISTINCT), is still unknown to the target.
TEST_F(OtraBase, UnaEstrellaEnUnaTablaDeMenosCampos) {
    const QString archivo = archivoConTabla(QStringLiteral("menos.exp"),
                                            {{"Titulo", dao::dbText, 100}, {"ClaveLibro", dao::dbLong, 0}},
                                            QStringLiteral("Solicitudes Libros"));
    ejecuta("INSERT INTO [Solicitudes Libros] IN '" + archivo + "' SELECT L.* FROM [Solicitudes General] G INNER JOIN "
            "[Solicitudes Libros] L ON L.NoSolicitud = G.NoSolicitud WHERE G.NoSolicitud BETWEEN 1 AND 10");
    EXPECT_EQ(db->RecordsAffected(), 2);
    EXPECT_EQ(filasDe(archivo, "SELECT * FROM [Solicitudes Libros] ORDER BY ClaveLibro"), (QStringList{"Cálculo|11", "Álgebra|12"}));
    EXPECT_EQ(error("INSERT INTO [Solicitudes Libros] IN '" + archivo + "' SELECT ClaveLibro, Autor FROM [Solicitudes Libros]"),
              jet::ErrCampoInsertDesconocido);
    EXPECT_EQ(error("INSERT INTO [Solicitudes Libros] IN '" + archivo + "' SELECT DISTINCT * FROM [Solicitudes Libros]"),
              jet::ErrCampoInsertDesconocido);
    EXPECT_EQ(error("INSERT INTO [Solicitudes Libros] IN '" + archivo + "' SELECT * FROM Bibliotecas"),
              jet::ErrCampoInsertDesconocido);
    EXPECT_EQ(filasDe(archivo, "SELECT Count(*) FROM [Solicitudes Libros]"), QStringList{"2"});
}

TEST_F(OtraBase, RutasQueNoSirven) {
    // An apostrophe ends the file's name where it stands: the rest is a syntax error, and no file is made.
    const QString conApostrofo = ruta("O'Brien.exp");
    EXPECT_EQ(error("INSERT INTO Destino IN '" + conApostrofo + "' SELECT * FROM Bibliotecas"), jet::ErrSintaxisExpresion);
    EXPECT_FALSE(QFileInfo::exists(conApostrofo));
    // A file that isn't there is not created.
    EXPECT_EQ(error("INSERT INTO Bibliotecas IN '" + ruta("falta.exp") + "' SELECT * FROM Bibliotecas"),
              jet::ErrArchivoNoEncontrado);
    EXPECT_FALSE(QFileInfo::exists(ruta("falta.exp")));
    // A text file is no database, and is left as it was.
    const QByteArray csv("NoSolicitud,Fecha\n1,2024-01-01\n");
    QFile texto(ruta("texto.exp"));
    ASSERT_TRUE(texto.open(QIODevice::WriteOnly));
    texto.write(csv);
    texto.close();
    EXPECT_EQ(error("INSERT INTO Bibliotecas IN '" + ruta("texto.exp") + "' VALUES (1, 'x', 'y', 'z', 'a', 'b')"),
              jet::ErrFormatoNoReconocido);
    ASSERT_TRUE(texto.open(QIODevice::ReadOnly));
    EXPECT_EQ(texto.readAll(), csv);
    // A database without the table.
    const QString otra = archivoConTabla(QStringLiteral("otra.exp"), {{"x", dao::dbLong, 0}});
    EXPECT_EQ(error("INSERT INTO [Solicitudes General] IN '" + otra + "' SELECT * FROM [Solicitudes General]"),
              jet::ErrTablaNoEncontrada);
    EXPECT_EQ(error("INSERT INTO Destino IN '" + otra + "' (y) VALUES (1)"), jet::ErrCampoInsertDesconocido);
}

// The file written into may be open in this program already, as the export keeps its new file open while the
// main database fills it. Its locks stay as they were: nobody else may take the file meanwhile.
TEST_F(OtraBase, ArchivoAbiertoEnElProgramaConservaSusBloqueos) {
    if (db->EnServidor()) GTEST_SKIP() << "the locks of the program's own file";
    const QString archivo = archivoConTabla(QStringLiteral("abierto.exp"), {{"NoSolicitud", dao::dbLong, 0}});
    auto abierta = dao::Database::OpenDatabase(archivo);
    EXPECT_EQ(abierta->OpenRecordset("SELECT Count(*) FROM Destino")->Fields(0).Value().toLong(), 0);
    ASSERT_TRUE(OtroProcesoVeBloqueo(archivo));
    ejecuta("INSERT INTO Destino IN '" + archivo + "' SELECT NoSolicitud FROM [Solicitudes General]");
    EXPECT_EQ(db->RecordsAffected(), 2);
    EXPECT_TRUE(OtroProcesoVeBloqueo(archivo));
    EXPECT_EQ(abierta->OpenRecordset("SELECT Count(*) FROM Destino")->Fields(0).Value().toLong(), 2);
    // The main database written into as another file: the same rows, and its own locks kept too.
    ASSERT_TRUE(OtroProcesoVeBloqueo(ruta("KORVEL8.mdb")));
    ejecuta("INSERT INTO Bibliotecas IN '" + ruta("KORVEL8.mdb") + "' ([No], Nombre) VALUES (5, 'Sur')");
    EXPECT_EQ(texto("SELECT Nombre FROM Bibliotecas WHERE [No] = 5"), "Sur");
    EXPECT_TRUE(OtroProcesoVeBloqueo(ruta("KORVEL8.mdb")));
}

}  // namespace
