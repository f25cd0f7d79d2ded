// Several workstations on one database at once, each a process of its own with its own connection: they
// capture requests numbered by the maximum plus one, add invoice lines through a recordset and settle the
// payment they belong to, for a bounded time. Two stations may take the same request number; one of them
// then gets the duplicate-key error the capture shows, and that is all: no row lost or doubled, no lock
// error shown, and the payment's amount is the sum of its lines to the ten-thousandth.
#include "ayuda_jet.h"

#include <QElapsedTimer>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Cuenta {
    long solicitudes = 0;       // captured
    long repetidas = 0;         // refused with 3022: another station took the number first
    long lineas = 0;            // invoice lines stored and settled
    qint64 diezmilesimos = 0;   // their amounts
    long otrosErrores = 0;
    int ultimoError = 0;
};

// One workstation: its own connection, a mix of the three tasks until the time is up.
Cuenta Estacion(const QString& base, int estacion, int milisegundos) {
    Cuenta c;
    auto db = dao::Database::OpenDatabase(base);
    QElapsedTimer reloj;
    reloj.start();
    unsigned semilla = 7919u * static_cast<unsigned>(estacion + 1);
    for (int vuelta = 0; reloj.elapsed() < milisegundos; ++vuelta) {
        try {
            if (vuelta % 2 == 0) {
                auto rs = db->OpenRecordset(QStringLiteral("SELECT Max(NoSolicitud) AS MaxS FROM [Solicitudes General]"));
                const long siguiente = rs->Fields(0).Value().isNull() ? 1 : rs->Fields(0).Value().toLong() + 1;
                rs->Close();
                try {
                    db->Execute(QStringLiteral("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, "
                                               "NoBiblioteca, IdCapturista) VALUES (%1, #11/24/2026#, 'Estación %2', 1, 1, 'est%2')")
                                    .arg(siguiente).arg(estacion),
                                dao::dbFailOnError);
                    ++c.solicitudes;
                } catch (const vb::Error& e) {
                    if (e.Number() != 3022) throw;
                    ++c.repetidas;
                }
            } else {
                semilla = semilla * 1103515245u + 12345u;
                const qint64 monto = 10000 + static_cast<qint64>((semilla >> 8) % 9999999);   // 1.0000 to 1000.9998
                auto rs = db->OpenRecordset(QStringLiteral("SELECT * FROM PagoFacturasDetalle WHERE IdFacturaItem = 0"));
                rs->AddNew();
                rs->Fields(QStringLiteral("IdPagoFactura")).setValue(vb::Variant::Long(1));
                rs->Fields(QStringLiteral("NoFactura")).setValue(vb::Variant(QStringLiteral("E%1-%2").arg(estacion).arg(vuelta)));
                rs->Fields(QStringLiteral("MontoFactura")).setValue(vb::Variant(vb::Currency::fromRaw(monto)));
                rs->Fields(QStringLiteral("IdCapturista")).setValue(vb::Variant(QStringLiteral("est%1").arg(estacion)));
                rs->Update();
                rs->Close();
                db->Execute(QStringLiteral("UPDATE PagoFacturasGral SET Monto = Monto + %1 WHERE IdPagoFactura = 1")
                                .arg(vb::Currency::fromRaw(monto).toSql()),
                            dao::dbFailOnError);
                ++c.lineas;
                c.diezmilesimos += monto;
            }
        } catch (const vb::Error& e) {
            ++c.otrosErrores;
            c.ultimoError = e.Number();
        }
    }
    return c;
}

class Concurrencia : public ayuda::BaseJet, public ::testing::WithParamInterface<int> {};

TEST_P(Concurrencia, NadaSePierdeNiSeDuplicaYLosMontosCuadran) {
    const int estaciones = GetParam();
    ejecuta(QStringLiteral("INSERT INTO PagoFacturasGral (FuenteFinanciamiento, Monto, Estado) VALUES ('Fondo', 0, 'S')"));
    const QString base = db->Name();
    if (!db->EnServidor()) db.reset();   // a file is shared through its own locks, not through this connection

    std::vector<pid_t> hijos;
    std::vector<int> lecturas;
    for (int i = 0; i < estaciones; ++i) {
        int tubo[2];
        ASSERT_EQ(::pipe(tubo), 0);
        const pid_t pid = ::fork();
        ASSERT_GE(pid, 0);
        if (pid == 0) {
            ::close(tubo[0]);
            Cuenta c;
            try {
                c = Estacion(base, i, 2500);
            } catch (...) {
                c.otrosErrores = 1000000;
            }
            const ssize_t escrito = ::write(tubo[1], &c, sizeof c);
            ::_exit(escrito == static_cast<ssize_t>(sizeof c) ? 0 : 1);
        }
        ::close(tubo[1]);
        hijos.push_back(pid);
        lecturas.push_back(tubo[0]);
    }
    Cuenta total;
    for (size_t i = 0; i < hijos.size(); ++i) {
        Cuenta c;
        ASSERT_EQ(::read(lecturas[i], &c, sizeof c), static_cast<ssize_t>(sizeof c));
        ::close(lecturas[i]);
        int estado = 0;
        ::waitpid(hijos[i], &estado, 0);
        EXPECT_TRUE(WIFEXITED(estado) && WEXITSTATUS(estado) == 0);
        EXPECT_EQ(c.otrosErrores, 0) << "station " << i << " got error " << c.ultimoError;
        total.solicitudes += c.solicitudes;
        total.repetidas += c.repetidas;
        total.lineas += c.lineas;
        total.diezmilesimos += c.diezmilesimos;
    }
    if (!db) db = dao::Database::OpenDatabase(base);
    EXPECT_GT(total.solicitudes, 0);
    EXPECT_GT(total.lineas, 0);
    EXPECT_EQ(texto(QStringLiteral("SELECT Count(*) FROM [Solicitudes General]")), QString::number(total.solicitudes));
    EXPECT_EQ(texto(QStringLiteral("SELECT Count(*) FROM (SELECT DISTINCT NoSolicitud FROM [Solicitudes General])")),
              QString::number(total.solicitudes));
    EXPECT_EQ(texto(QStringLiteral("SELECT Count(*) FROM PagoFacturasDetalle")), QString::number(total.lineas));
    EXPECT_EQ(texto(QStringLiteral("SELECT Count(*) FROM (SELECT DISTINCT IdFacturaItem FROM PagoFacturasDetalle)")),
              QString::number(total.lineas));
    const QString suma = vb::Currency::fromRaw(total.diezmilesimos).toSql();
    EXPECT_EQ(texto(QStringLiteral("SELECT Sum(MontoFactura) FROM PagoFacturasDetalle")), suma);
    EXPECT_EQ(texto(QStringLiteral("SELECT Monto FROM PagoFacturasGral WHERE IdPagoFactura = 1")), suma);
}

INSTANTIATE_TEST_SUITE_P(Estaciones, Concurrencia, ::testing::Values(2, 8));

}  // namespace
