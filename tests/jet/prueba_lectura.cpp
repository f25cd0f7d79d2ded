// Reading values back: the stored form of a date read by hand against the toolkit's calendar, a snapshot
// that keeps its rows as they were however it is walked, snapshots whose rows fill several blocks of
// store handed on from one to the next, a dynaset that shows a row as it is now, and a closed recordset
// that reads nothing.
#include "ayuda_jet.h"

#include "core/jet/ErroresMotor.h"
#include "core/jet/FuncionesSqlite.h"

namespace {

using ayuda::ErrorDe;
using ayuda::Texto;

std::optional<vb::Fecha> Almacenada(const QString& texto) {
    const QByteArray u = texto.toUtf8();
    return jet::FechaAlmacenada(u.constData(), static_cast<int>(u.size()));
}

TEST(FechaAlmacenada, CadaDiaComoElCalendarioDelToolkitYNadaMas) {
    // Every day of two centuries around the dates the program meets, and of the calendar's far ends.
    for (const auto& [desde, hasta] : {std::pair{QDate(1899, 1, 1), QDate(2101, 12, 31)}, {QDate(1, 1, 1), QDate(3, 12, 31)},
                                       {QDate(1599, 12, 1), QDate(1601, 3, 31)}, {QDate(9998, 1, 1), QDate(9999, 12, 31)}})
        for (QDate d = desde; d <= hasta; d = d.addDays(1)) {
            const auto f = Almacenada(d.toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(" 00:00:00"));
            ASSERT_TRUE(f.has_value() && f->date() == d) << d.toString(Qt::ISODate).toStdString();
        }
    EXPECT_EQ(Almacenada(QStringLiteral("2026-02-28 23:59:59")), vb::Fecha(QDate(2026, 2, 28), QTime(23, 59, 59)));
    // What is not a stored date is left to the general reading.
    for (const char* t : {"1900-02-29 00:00:00", "2100-02-29 00:00:00", "2023-02-29 00:00:00", "2026-04-31 00:00:00",
                          "2026-13-01 00:00:00", "2026-00-10 00:00:00", "2026-01-00 00:00:00", "0000-01-01 00:00:00",
                          "2026-01-01 24:00:00", "2026-01-01 10:60:00", "2026-01-01 10:00:60", "2026-01-01",
                          "2026-01-01T10:00:00", "2026/01/01 10:00:00", "2026-01-01 10:00:0x", "2026-01-01 10:00:000"})
        EXPECT_FALSE(Almacenada(QString::fromLatin1(t)).has_value()) << t;
}

class Lectura : public ayuda::BaseJet {
protected:
    void SetUp() override {
        BaseJet::SetUp();
        ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante) VALUES (10, #2026/10/05#, 'Ing. Raúl Salinas')");
        ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante) VALUES (20, #2026/09/14 12:05:00#, 'Dra. Ana Martínez')");
        ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante) VALUES (30, #2026/08/03#, NULL)");
    }
    // The current row, every column as text.
    static QString fila(dao::Recordset& rs) {
        QStringList r;
        for (int i = 0; i < rs.Fields().Count(); ++i) r << Texto(rs.Fields(i).Value());
        return r.join(u'|');
    }
    std::unique_ptr<dao::Recordset> abreSolicitudes(int tipo) {
        return abre("SELECT NoSolicitud, Solicitante, Fecha FROM [Solicitudes General] ORDER BY NoSolicitud", tipo);
    }
    void cambiaTodo() { ejecuta("UPDATE [Solicitudes General] SET Solicitante = 'cambiado', Fecha = #2001/01/01# WHERE NoSolicitud IN (10, 20)"); }
    const QStringList antes{"10|Ing. Raúl Salinas|2026-10-05 00:00:00", "20|Dra. Ana Martínez|2026-09-14 12:05:00",
                            "30|NULL|2026-08-03 00:00:00"};
};

TEST_F(Lectura, UnaFotoNoVeLoEscritoDespuesPorMuchoQueSeRecorra) {
    auto foto = abreSolicitudes(dao::dbOpenSnapshot);
    foto->MoveNext();
    EXPECT_EQ(Texto(foto->Fields(2).Value()), "2026-09-14 12:05:00");    // columns read out of order, then again
    // The write makes the snapshot read its remaining rows first: those are kept as they were too.
    cambiaTodo();
    ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Solicitante) VALUES (15, 'nueva')");
    ejecuta("DELETE FROM [Solicitudes General] WHERE NoSolicitud = 30");
    EXPECT_EQ(fila(*foto), antes[1]);
    foto->FindFirst("Solicitante = 'Dra. Ana Martínez'");
    ASSERT_FALSE(foto->NoMatch());
    EXPECT_EQ(foto->AbsolutePosition(), 1);
    QStringList deVuelta;
    for (foto->MoveLast(); !foto->Bof(); foto->MovePrevious()) deVuelta.prepend(fila(*foto));
    EXPECT_EQ(deVuelta, antes);
    // Requery takes a new copy.
    foto->Requery();
    EXPECT_EQ(fila(*foto), "10|cambiado|2001-01-01 00:00:00");
    EXPECT_EQ(foto->RecordCount(), 3);
}

TEST_F(Lectura, UnDynasetMuestraComoEstaHoyUnaFilaYaRecorridaYCerradoNoLeeNada) {
    auto rs = abreSolicitudes(dao::dbOpenDynaset);
    rs->MoveNext();
    EXPECT_EQ(fila(*rs), antes[1]);
    cambiaTodo();
    EXPECT_EQ(fila(*rs), "20|cambiado|2001-01-01 00:00:00");    // the row the walk stands on
    // A row deleted by another statement cannot be read once the walk comes back to it.
    ejecuta("DELETE FROM [Solicitudes General] WHERE NoSolicitud = 10");
    rs->MoveFirst();
    EXPECT_EQ(ErrorDe([&] { rs->Fields(0).Value(); }), 3167);
    for (int tipo : {dao::dbOpenDynaset, dao::dbOpenSnapshot}) {
        auto cerrado = abreSolicitudes(tipo);
        cerrado->Close();
        EXPECT_EQ(ErrorDe([&] { cerrado->Fields(0).Value(); }), jet::ErrOperacionNoValida) << tipo;
    }
}

// Rows of long texts fill several blocks of a snapshot's store, one row more than a block on its own.
class Notas : public ayuda::BaseJet {
protected:
    void SetUp() override {
        BaseJet::SetUp();
        ejecuta("CREATE TABLE Notas (Id LONG, Texto MEMO)");
        auto rs = abre("SELECT Id, Texto FROM Notas", dao::dbOpenDynaset);
        for (int i = 0; i < 8; ++i) {
            rs->AddNew();
            rs->Fields(0) = vb::Variant(i);
            rs->Fields(1) = vb::Variant(nota(i, 'a'));
            rs->Update();
        }
    }
    static QString nota(int i, char letra) {
        return QString::number(i) + QString(i == 5 ? 300 * 1024 : 90 * 1024 + i, QChar::fromLatin1(letra));
    }
    std::unique_ptr<dao::Recordset> foto(const char* columnas = "Id, Texto") {
        return abre(QStringLiteral("SELECT %1 FROM Notas ORDER BY Id").arg(QLatin1String(columnas)), dao::dbOpenSnapshot);
    }
    // Every row, checked whole: the number of rows whose text differs from `letra`'s; a second text
    // column, if any, must be the first with an "x" after it.
    static int distintas(dao::Recordset& rs, char letra) {
        int malas = 0, i = 0;
        for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext(), ++i)
            if (rs.Fields(0).Value().toLong() != i || rs.Fields(1).Value().toString() != nota(i, letra) ||
                (rs.Fields().Count() > 2 && rs.Fields(2).Value().toString() != nota(i, letra) + u'x'))
                ++malas;
        return malas + (i == 8 ? 0 : 100);
    }
};

TEST_F(Notas, LosBloquesDeUnaFotoQueSeVaSirvenALaSiguienteSinMezclarFilas) {
    auto primera = foto();
    EXPECT_EQ(distintas(*primera, 'a'), 0);
    primera.reset();
    ejecuta("UPDATE Notas SET Texto = Replace(Texto, 'a', 'b')");
    auto segunda = foto();
    EXPECT_EQ(distintas(*segunda, 'b'), 0);
    // Another snapshot open at the same time writes into blocks of its own.
    ejecuta("UPDATE Notas SET Texto = Replace(Texto, 'b', 'c')");
    auto tercera = foto();
    EXPECT_EQ(distintas(*tercera, 'c'), 0);
    EXPECT_EQ(distintas(*segunda, 'b'), 0);
    // Requery writes over the blocks the snapshot already holds.
    segunda->Requery();
    EXPECT_EQ(distintas(*segunda, 'c'), 0);
    tercera->Close();
    EXPECT_EQ(distintas(*foto(), 'c') + distintas(*segunda, 'c'), 0);
    // Two long texts a row: a row that outgrows its block moves with the text already written.
    EXPECT_EQ(distintas(*foto("Id, Texto, Texto & 'x'"), 'c'), 0);
    // A recordset may outlive its database and still give its blocks back.
    db.reset();
    segunda.reset();
}

}  // namespace
