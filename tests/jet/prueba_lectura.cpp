// Reading values back: the stored form of a date read by hand against the toolkit's calendar, a snapshot
// that keeps its rows as they were however it is walked, snapshots whose rows fill several blocks of
// store handed on from one to the next, a dynaset that shows a row as it is now, and a closed recordset
// that reads nothing.
#include "ayuda_jet.h"

#include "core/jet/ErroresMotor.h"
#include "core/jet/FuncionesSqlite.h"

namespace {

using ayuda::BaseJet;
using ayuda::ErrorDe;
using ayuda::Texto;

std::optional<vb::Fecha> Almacenada(const QString& texto) {
    const QByteArray u = texto.toUtf8();
    return jet::FechaAlmacenada(u.constData(), static_cast<int>(u.size()));
}

TEST(FechaAlmacenada, CadaDiaComoElCalendarioDelToolkit) {
    // Every day of two centuries around the dates the program meets, and of the calendar's far ends.
    std::vector<std::pair<QDate, QDate>> tramos = {
        {QDate(1899, 1, 1), QDate(2101, 12, 31)}, {QDate(1, 1, 1), QDate(3, 12, 31)},
        {QDate(1599, 12, 1), QDate(1601, 3, 31)}, {QDate(9998, 1, 1), QDate(9999, 12, 31)}};
    for (const auto& [desde, hasta] : tramos) {
        for (QDate d = desde; d <= hasta; d = d.addDays(1)) {
            const auto f = Almacenada(d.toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(" 00:00:00"));
            ASSERT_TRUE(f.has_value()) << d.toString(Qt::ISODate).toStdString();
            ASSERT_EQ(f->date(), d) << d.toString(Qt::ISODate).toStdString();
        }
    }
    const auto f = Almacenada(QStringLiteral("2026-02-28 23:59:59"));
    ASSERT_TRUE(f.has_value());
    EXPECT_EQ(*f, vb::Fecha(QDate(2026, 2, 28), QTime(23, 59, 59)));
    EXPECT_EQ(f->toIso(), "2026-02-28 23:59:59");
    EXPECT_EQ(*Almacenada(QStringLiteral("1899-12-30 00:00:00")), vb::Fecha());
}

TEST(FechaAlmacenada, LoQueNoEsUnaFechaGuardadaSeDejaALaLecturaGeneral) {
    for (const char* t : {"1900-02-29 00:00:00", "2100-02-29 00:00:00", "2023-02-29 00:00:00", "2026-04-31 00:00:00",
                          "2026-13-01 00:00:00", "2026-00-10 00:00:00", "2026-01-00 00:00:00", "0000-01-01 00:00:00",
                          "2026-01-01 24:00:00", "2026-01-01 10:60:00", "2026-01-01 10:00:60", "2026-01-01",
                          "2026-01-01T10:00:00", "2026/01/01 10:00:00", "2026-01-01 10:00:0x", "2026-01-01 10:00:000"})
        EXPECT_FALSE(Almacenada(QString::fromLatin1(t)).has_value()) << t;
    EXPECT_TRUE(Almacenada(QStringLiteral("2000-02-29 12:00:00")).has_value());
    EXPECT_TRUE(Almacenada(QStringLiteral("2024-02-29 12:00:00")).has_value());
}

class Lectura : public BaseJet {
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
    static const char* consulta() {
        return "SELECT NoSolicitud, Solicitante, Fecha FROM [Solicitudes General] ORDER BY NoSolicitud";
    }
    const QStringList antes{"10|Ing. Raúl Salinas|2026-10-05 00:00:00", "20|Dra. Ana Martínez|2026-09-14 12:05:00",
                            "30|NULL|2026-08-03 00:00:00"};
};

TEST_F(Lectura, UnaFotoNoVeLoEscritoDespuesPorMuchoQueSeRecorra) {
    auto foto = abre(consulta(), dao::dbOpenSnapshot);
    EXPECT_EQ(fila(*foto), antes[0]);
    foto->MoveNext();
    // Columns read out of order and twice give the same row.
    EXPECT_EQ(Texto(foto->Fields(2).Value()), "2026-09-14 12:05:00");
    EXPECT_EQ(Texto(foto->Fields(0).Value()), "20");
    EXPECT_EQ(fila(*foto), antes[1]);
    ejecuta("UPDATE [Solicitudes General] SET Solicitante = 'cambiado', Fecha = #2001/01/01# WHERE NoSolicitud IN (10, 20, 30)");
    ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Solicitante) VALUES (15, 'nueva')");
    ejecuta("DELETE FROM [Solicitudes General] WHERE NoSolicitud = 30");
    EXPECT_EQ(fila(*foto), antes[1]);
    foto->MovePrevious();
    EXPECT_EQ(fila(*foto), antes[0]);
    foto->MoveNext();
    foto->MoveNext();
    EXPECT_EQ(fila(*foto), antes[2]);
    foto->MoveNext();
    EXPECT_TRUE(foto->Eof());
    foto->MoveFirst();
    EXPECT_EQ(fila(*foto), antes[0]);
    foto->setAbsolutePosition(2);
    EXPECT_EQ(fila(*foto), antes[2]);
    foto->FindFirst("Solicitante = 'Dra. Ana Martínez'");
    ASSERT_FALSE(foto->NoMatch());
    EXPECT_EQ(foto->AbsolutePosition(), 1);
    EXPECT_EQ(fila(*foto), antes[1]);
    foto->FindNext("Solicitante = 'cambiado'");
    EXPECT_TRUE(foto->NoMatch());
    EXPECT_EQ(foto->RecordCount(), 3);
    QStringList deVuelta;
    for (foto->MoveLast(); !foto->Bof(); foto->MovePrevious()) deVuelta.prepend(fila(*foto));
    EXPECT_EQ(deVuelta, antes);
    // Requery takes a new copy.
    foto->Requery();
    EXPECT_EQ(fila(*foto), "10|cambiado|2001-01-01 00:00:00");
    EXPECT_EQ(foto->RecordCount(), 3);
}

TEST_F(Lectura, UnaFotoLeidaSoloEnParteGuardaElRestoAntesDeUnaEscritura) {
    // The write makes the snapshot read its remaining rows first: those are kept as they were too.
    auto foto = abre(consulta(), dao::dbOpenSnapshot);
    EXPECT_EQ(fila(*foto), antes[0]);
    ejecuta("UPDATE [Solicitudes General] SET Solicitante = 'cambiado'");
    QStringList vistos;
    for (; !foto->Eof(); foto->MoveNext()) vistos << fila(*foto);
    EXPECT_EQ(vistos, antes);
}

TEST_F(Lectura, UnDynasetMuestraComoEstaHoyUnaFilaYaRecorrida) {
    auto rs = abre(consulta(), dao::dbOpenDynaset);
    EXPECT_EQ(fila(*rs), antes[0]);
    rs->MoveNext();
    EXPECT_EQ(fila(*rs), antes[1]);
    ejecuta("UPDATE [Solicitudes General] SET Solicitante = 'cambiado', Fecha = #2001/01/01# WHERE NoSolicitud IN (10, 20)");
    // The row the walk stands on, the one it passed and the one it has not reached yet.
    EXPECT_EQ(fila(*rs), "20|cambiado|2001-01-01 00:00:00");
    rs->MovePrevious();
    EXPECT_EQ(fila(*rs), "10|cambiado|2001-01-01 00:00:00");
    rs->MoveNext();
    rs->MoveNext();
    EXPECT_EQ(fila(*rs), antes[2]);
    // A row deleted by another statement cannot be read once the walk comes back to it.
    ejecuta("DELETE FROM [Solicitudes General] WHERE NoSolicitud = 10");
    rs->MoveFirst();
    EXPECT_EQ(ErrorDe([&] { rs->Fields(0).Value(); }), 3167);
}

TEST_F(Lectura, CerradoNoLeeNada) {
    for (int tipo : {dao::dbOpenDynaset, dao::dbOpenSnapshot}) {
        SCOPED_TRACE(tipo);
        auto rs = abre(consulta(), tipo);
        EXPECT_EQ(Texto(rs->Fields(0).Value()), "10");
        rs->Close();
        EXPECT_EQ(ErrorDe([&] { rs->Fields(0).Value(); }), jet::ErrOperacionNoValida);
    }
}

// Rows of long texts fill several blocks of a snapshot's store, one row more than a block on its own.
class Notas : public BaseJet {
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
        const int largo = i == 5 ? 300 * 1024 : 90 * 1024 + i;
        return QString::number(i) + QString(largo, QChar::fromLatin1(letra));
    }
    // Every row, checked whole: the number of rows whose text differs from `letra`'s.
    static int distintas(dao::Recordset& rs, char letra) {
        int malas = 0, i = 0;
        for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext(), ++i)
            if (rs.Fields(0).Value().toLong() != i || rs.Fields(1).Value().toString() != nota(i, letra)) ++malas;
        return malas + (i == 8 ? 0 : 100);
    }
};

TEST_F(Notas, LosBloquesDeUnaFotoQueSeVaSirvenALaSiguienteSinMezclarFilas) {
    auto primera = abre("SELECT Id, Texto FROM Notas ORDER BY Id", dao::dbOpenSnapshot);
    EXPECT_EQ(distintas(*primera, 'a'), 0);
    primera.reset();
    ejecuta("UPDATE Notas SET Texto = Replace(Texto, 'a', 'b')");
    auto segunda = abre("SELECT Id, Texto FROM Notas ORDER BY Id", dao::dbOpenSnapshot);
    EXPECT_EQ(distintas(*segunda, 'b'), 0);
    // Another snapshot open at the same time writes into blocks of its own.
    ejecuta("UPDATE Notas SET Texto = Replace(Texto, 'b', 'c')");
    auto tercera = abre("SELECT Id, Texto FROM Notas ORDER BY Id", dao::dbOpenSnapshot);
    EXPECT_EQ(distintas(*tercera, 'c'), 0);
    EXPECT_EQ(distintas(*segunda, 'b'), 0);
    // Requery writes over the blocks the snapshot already holds.
    segunda->Requery();
    EXPECT_EQ(distintas(*segunda, 'c'), 0);
    tercera->Close();
    tercera.reset();
    auto cuarta = abre("SELECT Id, Texto FROM Notas ORDER BY Id", dao::dbOpenSnapshot);
    EXPECT_EQ(distintas(*cuarta, 'c'), 0);
    EXPECT_EQ(distintas(*segunda, 'c'), 0);
    // Two long texts a row: a row that outgrows its block moves with the text already written.
    auto doble = abre("SELECT Texto, Id, Texto & 'x' FROM Notas ORDER BY Id", dao::dbOpenSnapshot);
    int i = 0, malas = 0;
    for (; !doble->Eof(); doble->MoveNext(), ++i)
        if (doble->Fields(0).Value().toString() != nota(i, 'c') || doble->Fields(1).Value().toLong() != i ||
            doble->Fields(2).Value().toString() != nota(i, 'c') + u'x')
            ++malas;
    EXPECT_EQ(i, 8);
    EXPECT_EQ(malas, 0);
    doble->MoveFirst();
    EXPECT_EQ(doble->Fields(0).Value().toString(), nota(0, 'c'));
    // A recordset may outlive its database and still give its blocks back.
    db.reset();
    segunda.reset();
}

}  // namespace
