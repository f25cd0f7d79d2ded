// The demo database's money: its balances are the ones its ledger and budgets give, so a new user who opens
// the sources or the budgets first sees nothing move; and the lookup indexes that keep those openings quick
// stay out of the tables' definition.
#include "ayuda_finanzas.h"

#include "core/DatosDemo.h"
#include "core/Esquema.h"
#include "core/jet/ConexionPostgres.h"
#include "finance/Proyectos.h"
#include "finance/frmFuentesFin.h"

#include <sqlite3.h>

namespace {

class PruebaDemo : public PruebaFinanzas {
protected:
    void SetUp() override {
        sistema = prueba::InstalaBaseNueva(dir);
        demo::CargaDemo(globales::Base());
        globales::LoginAnalista = "admin";
    }
    QStringList Saldos() {
        return Filas("SELECT IdFinanciamiento, MontoTotal, MontoXAsignar, MontoAsignadoDisponible FROM adqFinanciamiento "
                     "ORDER BY 1") + Filas("SELECT IdProyecto, TotalAsignado, MontoDisponible FROM adqProyectos ORDER BY 1");
    }
};

TEST_F(PruebaDemo, LosSaldosSonLosQueDaElLibro) {
    const QStringList antes = Saldos();
    ASSERT_EQ(antes.size(), 5);
    {
        frmFuentesFin fuentes;
        fuentes.Form_Load();
    }
    {
        Proyectos proyectos;
        proyectos.Form_Load();
    }
    EXPECT_EQ(Saldos(), antes);
    EXPECT_TRUE(sistema->cajas.empty());
    // Each source's ledger adds up to what it has left; each budget's to what it has left.
    EXPECT_EQ(Filas("SELECT F.IdFinanciamiento FROM adqFinanciamiento F WHERE F.MontoAsignadoDisponible <> "
                    "(SELECT Sum(Monto) FROM adqSaldoFinanciamientos S WHERE S.IdFinanciamiento = F.IdFinanciamiento)"),
              QStringList());
    EXPECT_EQ(Filas("SELECT P.IdProyecto FROM adqProyectos P WHERE P.MontoDisponible <> (SELECT Sum(Monto) FROM "
                    "adqSaldoProyectos S WHERE S.IdFinanciamiento = P.IdFinanciamiento AND S.IdEscuela = P.IdEscuela)"),
              QStringList());
    // One request paid, one waiting, each worth the sum of its invoices.
    EXPECT_EQ(Filas("SELECT G.IdPagoFactura, G.Estado FROM PagoFacturasGral G WHERE G.Monto = (SELECT Sum(MontoFactura) "
                    "FROM PagoFacturasDetalle D WHERE D.IdPagoFactura = G.IdPagoFactura) ORDER BY 1"),
              (QStringList{"1|P", "2|S"}));
}

TEST_F(PruebaDemo, LosIndicesDeConsultaNoSonDeLaTabla) {
    dao::Database& db = globales::Base();
    EXPECT_TRUE(db.TableDefs()["adqSaldoProyectos"].Indexes().empty());
    auto indices = [&db] {
        if (db.EnServidor())
            return db.postgres()->ejecuta(QStringLiteral("SELECT count(*) FROM pg_indexes WHERE indexname LIKE 'adq_consulta_%'"))
                .entero(0, 0);
        sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(db.sqlite(), "SELECT count(*) FROM sqlite_master WHERE type = 'index' AND name LIKE 'adq_consulta_%'",
                           -1, &st, nullptr);
        sqlite3_step(st);
        const qint64 n = sqlite3_column_int64(st, 0);
        sqlite3_finalize(st);
        return n;
    };
    EXPECT_EQ(indices(), 4);
    // Asked again, nothing changes; a table an older file lacks is no failure of the opening.
    esquema::CreaIndicesDeConsulta(db);
    EXPECT_FALSE(db.AseguraIndiceDeConsulta("x", "NoHay", {"Columna"}));
    EXPECT_EQ(Valor("SELECT Count(*) FROM adqSaldoProyectos WHERE IdEscuela = 1 AND IdFinanciamiento = 1"), "2");
}

}  // namespace
