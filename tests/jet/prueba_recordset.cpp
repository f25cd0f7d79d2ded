// The recordset as the screens walk and edit it: the edges of navigation, Find with criteria of each
// type, AddNew with the counter known before Update, Edit, CancelUpdate, Delete, Requery and the fields.
#include "ayuda_jet.h"

#include "core/jet/ErroresMotor.h"

namespace {

using ayuda::BaseJet;
using ayuda::ErrorDe;
using ayuda::Texto;

class Recordset : public BaseJet {
protected:
    void SetUp() override {
        BaseJet::SetUp();
        ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante) VALUES (10, #2026/10/05#, 'Ing. Raúl Salinas')");
        ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante) VALUES (20, #2026/09/14 12:05:00#, 'Dra. Ana Martínez')");
        ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante) VALUES (30, #2026/08/03#, 'Dr. Luis Cantú')");
    }
    static QString actual(dao::Recordset& rs) { return Texto(rs.Fields("NoSolicitud").Value()); }
};

TEST_F(Recordset, VacioTieneEofYBofALaVez) {
    for (int tipo : {dao::dbOpenDynaset, dao::dbOpenSnapshot}) {
        auto rs = abre("SELECT * FROM [Solicitudes General] WHERE NoSolicitud > 100", tipo);
        EXPECT_TRUE(rs->Eof());
        EXPECT_TRUE(rs->Bof());
        EXPECT_EQ(rs->RecordCount(), 0);
        EXPECT_EQ(rs->AbsolutePosition(), -1);
        EXPECT_EQ(ErrorDe([&] { rs->MoveNext(); }), jet::ErrNoHayRegistroActual);
        EXPECT_EQ(ErrorDe([&] { rs->MoveFirst(); }), jet::ErrNoHayRegistroActual);
        EXPECT_EQ(ErrorDe([&] { rs->Fields(0).Value(); }), jet::ErrNoHayRegistroActual);
        rs->FindFirst("NoSolicitud = 10");
        EXPECT_TRUE(rs->NoMatch());
    }
}

TEST_F(Recordset, NavegacionHastaLosBordes) {
    for (int tipo : {dao::dbOpenDynaset, dao::dbOpenSnapshot}) {
        SCOPED_TRACE(tipo);
        auto rs = abre("SELECT NoSolicitud, Solicitante FROM [Solicitudes General] ORDER BY NoSolicitud", tipo);
        EXPECT_FALSE(rs->Bof());
        EXPECT_EQ(actual(*rs), "10");
        // Counting the rows reads them all but keeps the current one.
        EXPECT_EQ(rs->RecordCount(), 3);
        EXPECT_EQ(actual(*rs), "10");
        EXPECT_EQ(rs->AbsolutePosition(), 0);
        rs->MoveNext();
        rs->MoveNext();
        EXPECT_EQ(actual(*rs), "30");
        EXPECT_EQ(rs->AbsolutePosition(), 2);
        rs->MoveNext();
        EXPECT_TRUE(rs->Eof());
        EXPECT_FALSE(rs->Bof());
        EXPECT_EQ(rs->AbsolutePosition(), -1);
        EXPECT_EQ(ErrorDe([&] { rs->MoveNext(); }), jet::ErrNoHayRegistroActual);
        rs->MovePrevious();
        EXPECT_EQ(actual(*rs), "30");
        rs->MoveFirst();
        rs->MovePrevious();
        EXPECT_TRUE(rs->Bof());
        EXPECT_EQ(ErrorDe([&] { rs->MovePrevious(); }), jet::ErrNoHayRegistroActual);
        rs->MoveNext();
        EXPECT_EQ(actual(*rs), "10");
        rs->Move(2);
        EXPECT_EQ(actual(*rs), "30");
        rs->Move(-1);
        EXPECT_EQ(actual(*rs), "20");
        rs->Move(5);
        EXPECT_TRUE(rs->Eof());
        rs->MoveLast();
        EXPECT_EQ(actual(*rs), "30");
        rs->setAbsolutePosition(1);
        EXPECT_EQ(actual(*rs), "20");
    }
}

TEST_F(Recordset, BuscarConCriteriosDeCadaTipo) {
    auto rs = abre("SELECT * FROM [Solicitudes General] ORDER BY NoSolicitud");
    struct Caso { QString criterio; QString esperado; };
    const std::vector<Caso> casos = {
        {"Solicitante = 'dra. ana martínez'", "20"},
        {"Solicitante LIKE '*cantú'", "30"},
        {"NoSolicitud > 5 AND Estado = 'S'", "10"},
        {"Fecha = #2026/10/05#", "10"},
        {"Fecha >= #09/01/2026# AND Fecha < #09/15/2026#", "20"},
        {"[solicitudes general].nosolicitud = 20", "20"},
        {"NoSolicitud = 99", ""},
    };
    for (const auto& c : casos) {
        rs->MoveLast();
        rs->FindFirst(c.criterio);
        EXPECT_EQ(rs->NoMatch(), c.esperado.isEmpty()) << c.criterio.toStdString();
        if (!rs->NoMatch()) {
            EXPECT_EQ(actual(*rs), c.esperado) << c.criterio.toStdString();
        }
    }
    rs->FindFirst("NoSolicitud >= 20");
    rs->FindNext("NoSolicitud >= 20");
    EXPECT_EQ(actual(*rs), "30");
    rs->FindNext("NoSolicitud >= 20");
    EXPECT_TRUE(rs->NoMatch());
    rs->FindLast("NoSolicitud < 30");
    EXPECT_EQ(actual(*rs), "20");
    EXPECT_EQ(ErrorDe([&] { rs->FindFirst("Apellido = 'x'"); }), jet::ErrPocosParametros);
}

TEST_F(Recordset, AltaConElContadorAntesDeGuardar) {
    ejecuta("INSERT INTO adqFinanciamiento (Nombre) VALUES ('uno')");
    ejecuta("INSERT INTO adqFinanciamiento (Nombre) VALUES ('dos')");
    ejecuta("DELETE FROM adqFinanciamiento WHERE Nombre = 'dos'");
    auto rs = abre("SELECT * FROM adqFinanciamiento");
    rs->AddNew();
    EXPECT_EQ(rs->EditMode(), dao::dbEditAdd);
    // A counter is never handed out twice, not even the one of a deleted row.
    const vb::Variant id = rs->Fields("IdFinanciamiento").Value();
    EXPECT_EQ(Texto(id), "3");
    EXPECT_EQ(Texto(rs->Fields("MontoTotal").Value()), "0");   // the default is there before Update
    rs->Fields("Nombre") = vb::Variant("tres");
    rs->Fields("MontoTotal") = vb::Variant(1500.255);
    rs->Update();
    EXPECT_EQ(rs->EditMode(), dao::dbEditNone);
    EXPECT_EQ(filas("SELECT IdFinanciamiento, Nombre, MontoTotal FROM adqFinanciamiento WHERE Nombre = 'tres'"),
              QStringList{"3|tres|1500.255"});
    EXPECT_EQ(rs->RecordCount(), 2);

    // What the field refuses is refused as it is given; what is missing, at Update.
    rs->AddNew();
    EXPECT_EQ(ErrorDe([&] { rs->Fields("IdCapturista") = vb::Variant("demasiado largo"); }), jet::ErrCampoDemasiadoPequeno);
    rs->CancelUpdate();
    EXPECT_EQ(rs->EditMode(), dao::dbEditNone);
    EXPECT_EQ(cuenta("adqFinanciamiento"), 2);
    auto proyectos = abre("SELECT Nombre FROM adqProyectos");
    proyectos->AddNew();
    proyectos->Fields(0) = vb::Variant("sin fuente");
    EXPECT_EQ(ErrorDe([&] { proyectos->Update(); }), jet::ErrRequerido);
}

TEST_F(Recordset, FuenteDeFinanciamientoComoLaGrabaSuPantalla) {
    // The funding screen holds its recordset, numbers the ledger row with the counter that AddNew handed
    // out, runs the ledger statement while the record is still being added, then stores it.
    auto rs = abre("SELECT * FROM adqFinanciamiento");
    EXPECT_TRUE(rs->Eof());
    for (const char* nombre : {"Fondo A", "Fondo B"}) {
        rs->AddNew();
        const QString id = Texto(rs->Fields(0).Value());
        rs->Fields("Fechacaptura") = vb::Variant("15-01-2026");
        rs->Fields("Nombre") = vb::Variant(nombre);
        rs->Fields("MontoTotal") = vb::Variant("1,500.50");
        rs->Fields("MontoxAsignar") = vb::Variant("1500.5");
        db->Execute("INSERT INTO adqSaldoFinanciamientos VALUES (" + id + ",#01-15-2026#,1500.50,0,'+ADDFinan','admin')");
        rs->Update();
        rs->Requery();
        rs->MoveLast();
        EXPECT_EQ(Texto(rs->Fields(0).Value()), id);
    }
    EXPECT_EQ(filas("SELECT f.IdFinanciamiento, f.Nombre, f.FechaCaptura, f.MontoTotal, s.Monto FROM adqFinanciamiento f "
                    "INNER JOIN adqSaldoFinanciamientos s ON s.IdFinanciamiento = f.IdFinanciamiento ORDER BY 1"),
              (QStringList{"1|Fondo A|2026-01-15 00:00:00|1500.5|1500.5", "2|Fondo B|2026-01-15 00:00:00|1500.5|1500.5"}));
    // Editing: the place is kept as a number and found again after Requery.
    rs->MoveFirst();
    rs->Edit();
    const long lugar = rs->AbsolutePosition();
    rs->Fields("MontoTotal") = vb::Variant(vb::Currency::fromRaw(20000025));
    db->Execute("UPDATE adqSaldoFinanciamientos SET Monto=2000.0025 WHERE IdFinanciamiento=1");
    rs->Update();
    rs->Requery();
    rs->Move(lugar);
    EXPECT_EQ(Texto(rs->Fields("MontoTotal").Value()), "2000.0025");
    rs->Delete();
    rs->Requery();
    EXPECT_EQ(rs->RecordCount(), 1);
    EXPECT_EQ(cuenta("adqSaldoFinanciamientos"), 2);
}

TEST_F(Recordset, EdicionCancelacionYBorrado) {
    auto rs = abre("SELECT NoSolicitud, Solicitante, Estado FROM [Solicitudes General] ORDER BY NoSolicitud");
    EXPECT_EQ(ErrorDe([&] { rs->Fields(1) = vb::Variant("x"); }), jet::ErrSinAddNewNiEdit);
    rs->MoveNext();
    rs->Edit();
    EXPECT_EQ(rs->EditMode(), dao::dbEditInProgress);
    rs->Fields("solicitante") = vb::Variant("Otra persona");
    EXPECT_EQ(Texto(rs->Fields(1).Value()), "Otra persona");
    rs->CancelUpdate();
    EXPECT_EQ(Texto(rs->Fields(1).Value()), "Dra. Ana Martínez");
    rs->Edit();
    rs->Fields("ESTADO") = vb::Variant("P");
    EXPECT_EQ(ErrorDe([&] { rs->Fields("NoSolicitud") = vb::Variant(1e10); }), jet::ErrDesbordamientoCampo);
    rs->Update();
    EXPECT_EQ(Texto(rs->Fields("Estado").Value()), "P");
    EXPECT_EQ(filas("SELECT Estado FROM [Solicitudes General] ORDER BY NoSolicitud"), (QStringList{"S", "P", "S"}));

    // Deleting leaves no current row until the next move, which lands on the row after it.
    rs->Delete();
    EXPECT_EQ(ErrorDe([&] { rs->Fields(0).Value(); }), jet::ErrNoHayRegistroActual);
    rs->MoveNext();
    EXPECT_EQ(actual(*rs), "30");
    EXPECT_EQ(rs->RecordCount(), 2);
    EXPECT_EQ(cuenta("[Solicitudes General]"), 2);

    // A snapshot, a join or a grouped query is read-only.
    auto foto = abre("SELECT * FROM [Solicitudes General]", dao::dbOpenSnapshot);
    EXPECT_EQ(ErrorDe([&] { foto->Edit(); }), jet::ErrSoloLectura);
    auto grupo = abre("SELECT Estado, Count(*) FROM [Solicitudes General] GROUP BY Estado");
    EXPECT_EQ(ErrorDe([&] { grupo->AddNew(); }), jet::ErrSoloLectura);
}

TEST_F(Recordset, RequeryVeLoQueOtrosEscribieron) {
    auto rs = abre("SELECT NoSolicitud FROM [Solicitudes General] ORDER BY NoSolicitud DESC");
    EXPECT_EQ(actual(*rs), "30");
    ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud) VALUES (40)");
    ejecuta("UPDATE [Solicitudes General] SET Solicitante = 'nuevo' WHERE NoSolicitud = 30");
    rs->Requery();
    EXPECT_EQ(actual(*rs), "40");
    EXPECT_EQ(rs->RecordCount(), 4);
    // A dynaset over one table shows a row as the table holds it when the walk comes back to it.
    auto dyn = abre("SELECT NoSolicitud, Solicitante FROM [Solicitudes General] WHERE NoSolicitud >= 30");
    dyn->MoveLast();
    dyn->MoveFirst();
    EXPECT_EQ(Texto(dyn->Fields(1).Value()), "nuevo");
    ejecuta("UPDATE [Solicitudes General] SET Solicitante = 'otra vez' WHERE NoSolicitud = 30");
    dyn->MoveNext();
    dyn->MovePrevious();
    EXPECT_EQ(Texto(dyn->Fields(1).Value()), "otra vez");
}

TEST_F(Recordset, RecorridoMientrasSeEscribeEnLaTabla) {
    for (int i = 1; i <= 5; ++i)
        ejecuta(QStringLiteral("INSERT INTO [Solicitudes Libros] (Titulo, NoSolicitud) VALUES ('t%1', %1)").arg(i));
    // Each row is met once, though the write moves it along the index the walk goes by, and rows written
    // meanwhile stay out.
    auto rs = abre("SELECT ClaveLibro, NoSolicitud FROM [Solicitudes Libros] WHERE NoSolicitud >= 1");
    auto foto = abre("SELECT NoSolicitud FROM [Solicitudes Libros] WHERE NoSolicitud >= 1", dao::dbOpenSnapshot);
    QStringList vistos;
    while (!rs->Eof() && vistos.size() < 20) {
        const QString clave = Texto(rs->Fields(0).Value());
        vistos << clave;
        ejecuta("UPDATE [Solicitudes Libros] SET NoSolicitud = NoSolicitud + 10 WHERE ClaveLibro = " + clave);
        ejecuta("INSERT INTO [Solicitudes Libros] (Titulo, NoSolicitud) VALUES ('nuevo', 2)");
        rs->Move(0);   // the current row read again, as a dynaset shows it once it moves
        EXPECT_EQ(Texto(rs->Fields(1).Value()), QString::number(clave.toInt() + 10));
        rs->MoveNext();
    }
    EXPECT_EQ(vistos, (QStringList{"1", "2", "3", "4", "5"}));
    // A snapshot keeps the rows as they were when it was opened.
    QStringList antes;
    for (; !foto->Eof(); foto->MoveNext()) antes << Texto(foto->Fields(0).Value());
    EXPECT_EQ(antes, (QStringList{"1", "2", "3", "4", "5"}));
    // A table can be dropped while a recordset over it is open.
    ejecuta("CREATE TABLE Temporal (x LONG)");
    ejecuta("INSERT INTO Temporal VALUES (1)");
    ejecuta("INSERT INTO Temporal VALUES (2)");
    auto t = abre("SELECT x FROM Temporal", dao::dbOpenSnapshot);
    ejecuta("DROP TABLE Temporal");
    EXPECT_EQ(cuenta("[Solicitudes Libros]"), 10);
}

TEST_F(Recordset, CamposPorPosicionYPorNombre) {
    auto rs = abre("[solicitudes general]");
    EXPECT_EQ(rs->Type(), dao::dbOpenTable);
    EXPECT_EQ(rs->Fields().Count(), 13);
    EXPECT_EQ(rs->Fields(0).Name(), "NoSolicitud");
    EXPECT_EQ(&rs->Fields("nosolicitud"), &rs->Fields(0));
    EXPECT_EQ(&(*rs)("FECHACAPTURA"), &rs->Fields(8));
    EXPECT_EQ(rs->Fields("Fecha").Type(), dao::dbDate);
    EXPECT_EQ(Texto(rs->Fields("Fecha").Value()), "2026-10-05 00:00:00");
    EXPECT_EQ(Texto(rs->Fields("FechaPedido").Value()), "NULL");
    EXPECT_EQ(ErrorDe([&] { rs->Fields("Apellido"); }), jet::ErrElementoNoEncontrado);
    EXPECT_EQ(ErrorDe([&] { rs->Fields(13); }), jet::ErrElementoNoEncontrado);
    EXPECT_EQ(ErrorDe([&] { abre("Nada"); }), jet::ErrTablaNoEncontrada);
    // Two columns of one name from two tables are told apart by their table.
    auto j = abre("SELECT g.NoSolicitud, l.NoSolicitud FROM [Solicitudes General] g, [Solicitudes Libros] l");
    EXPECT_EQ(j->Fields(0).Name(), "g.NoSolicitud");
    EXPECT_EQ(j->Fields(1).Name(), "l.NoSolicitud");
}

}  // namespace
