// The funding sources screen on a fresh database: capture, browsing, changes within the amount lock, the
// ledger rows it writes, deletion, cancelling, the recomputation of the balances on opening, and what it
// does with bad input and with a source deleted elsewhere.
#include "ayuda_finanzas.h"

#include "core/vb/Fecha.h"
#include "finance/frmFuentesFin.h"

#include <QCheckBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace {

class Fuentes : public PruebaFinanzas {
protected:
    std::unique_ptr<frmFuentesFin> f;

    void SetUp() override {
        PruebaFinanzas::SetUp();
        globales::LoginAnalista = "ana.martinez";   // 12 characters: 10 are written
    }
    void TearDown() override { f.reset(); PruebaFinanzas::TearDown(); }
    QStringList Fuentes_() {
        return Filas("SELECT IdFinanciamiento, Nombre, FechaCaptura, MontoTotal, MontoXAsignar, MontoAsignadoDisponible, "
                     "IdCapturista FROM adqFinanciamiento ORDER BY 1");
    }
    QStringList Libro() {
        return Filas("SELECT IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista "
                     "FROM adqSaldoFinanciamientos ORDER BY 1, 3");
    }
    void Abre() {
        f = std::make_unique<frmFuentesFin>();
        f->Form_Load();
    }
    void Fuente(int id, const char* nombre, const char* total, const char* xAsignar, const char* disponible = "NULL") {
        Ejecuta(QStringLiteral("INSERT INTO adqFinanciamiento (IdFinanciamiento, Nombre, MontoTotal, FechaCaptura, MontoXAsignar, "
                               "MontoAsignadoDisponible, IdCapturista) VALUES (%1, '%2', %3, #01-10-2026#, %4, %5, 'otro')")
                    .arg(id).arg(QString::fromUtf8(nombre), total, xAsignar, disponible));
    }
    void Movimiento(int id, const char* monto, const char* operacion) {
        Ejecuta(QStringLiteral("INSERT INTO adqSaldoFinanciamientos VALUES (%1, #02-01-2026#, %2, 0, '%3', 'otro')").arg(id).arg(monto, operacion));
    }
    void Proyecto(const char* total) {
        Ejecuta(QStringLiteral("INSERT INTO adqProyectos (Nombre, IdEscuela, TotalAsignado, MontoDisponible, IdFinanciamiento) "
                               "VALUES ('P', 1, %1, %1, 1)").arg(total));
    }
    bool Editando() const { return !f->Frame2->isHidden() && f->Frame1->isHidden(); }
    // The four arrows, first to last, "1" for each one enabled.
    QString Flechas() const {
        QString r;
        for (size_t i = 0; i < 4; ++i) r += f->cmdMover[i]->isEnabled() ? u'1' : u'0';
        return r;
    }
    // The record counter and the name shown.
    QString Vista() const { return f->lblStatus->text() + u' ' + f->txtNombre->text(); }
    QStringList Montos() const {
        return {f->lblMontoXAsignar->text(), f->lblMontoAsignadoDisponible->text(), f->lblMontoAsignado->text()};
    }
    void Captura(const char* fecha, const char* nombre, const char* monto) {
        for (auto [campo, texto] : {std::pair{f->txtFecha, fecha}, {f->txtNombre, nombre}, {f->txtMontoTotal, monto}})
            campo->setText(QString::fromUtf8(texto));
    }
};

TEST_F(Fuentes, AltaEscribeLaFuenteYSuRenglonDelLibro) {
    Abre();
    // Nothing to show: only capturing is open, and the amounts are bare zeros.
    EXPECT_EQ(Vista() + Flechas(), "0 registros 0000");
    EXPECT_FALSE(f->cmdModificar->isEnabled() || f->cmdBorrar->isEnabled() || f->txtNombre->isEnabled());
    EXPECT_TRUE(f->cmdNuevo->isEnabled());
    EXPECT_EQ(Montos(), (QStringList{"0.00", "0.00", "0.00"}));

    f->cmdNuevo_Click();
    EXPECT_TRUE(Editando() && f->txtMontoTotal->isEnabled());
    EXPECT_EQ(f->txtFecha->text(), vb::Format(vb::Variant(vb::Fecha::Now()), "dd-mmm-yyyy"));
    Captura("15-01-2026", "Fondo estatal", "$1,500.50");
    f->cmdGrabar_Click();
    EXPECT_FALSE(Editando());
    EXPECT_EQ(Fuentes_(), QStringList{"1|Fondo estatal|2026-01-15 00:00:00|1500.5|1500.5|0|ana.martin"});
    EXPECT_EQ(Filas("SELECT UltimoMovimiento FROM adqFinanciamiento"), QStringList{"NULL"});
    EXPECT_EQ(Libro(), QStringList{"1|2026-01-15 00:00:00|1500.5|0|+ADDFinan|ana.martin"});
    EXPECT_EQ((QStringList{f->lblStatus->text(), f->txtFecha->text(), f->txtMontoTotal->text()} + Montos()),
              (QStringList{"1 / 1", "15-ene-2026", "$1,500.50", "$1,500.50", "$0.00", "$0.00"}));

    // The second one is numbered before it is stored, and the form stands on it afterwards.
    f->cmdNuevo_Click();
    Captura("3/2/2026", "Donativo", "20000.1234");
    f->cmdGrabar_Click();
    EXPECT_EQ(Vista(), "2 / 2 Donativo");
    EXPECT_EQ(Libro().last(), "2|2026-02-03 00:00:00|20000.1234|0|+ADDFinan|ana.martin");
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(Fuentes, RecorridoConLasFlechas) {
    for (const char* n : {"A", "B", "C"}) Fuente(n[0] - 'A' + 1, n, "100", "100");
    Abre();
    EXPECT_EQ(Vista() + Flechas().right(2), "1 / 3 A11");
    f->cmdMover_Click(3);
    EXPECT_EQ(Vista() + Flechas(), "3 / 3 C1100");
    f->cmdMover_Click(0);
    // Before the first: a beep, the way back closed, the first source still shown.
    f->cmdMover_Click(1);
    EXPECT_EQ(sistema->beeps, 1);
    EXPECT_EQ(f->txtNombre->text() + Flechas().left(2), "A00");
    f->cmdMover_Click(2);
    EXPECT_EQ(f->txtNombre->text() + Flechas().left(1), "A1");     // from before the first, the next is the first

    f->Check1->click();
    const bool mostrado = !f->frameDetalles->isHidden();
    f->Check1->click();
    EXPECT_TRUE(mostrado && f->frameDetalles->isHidden());
}

TEST_F(Fuentes, CambioConRecursosAsignadosBloqueaElMontoYReescribeElLibro) {
    Fuente(1, "Fondo", "1000", "600", "800");
    Proyecto("400");
    Movimiento(1, "1000", "+ADDFinan");
    Movimiento(1, "-200", "-SALDpag");
    Fuente(2, "Otro", "50", "50");
    Movimiento(2, "50", "+ADDFinan");
    Abre();
    f->cmdModificar_Click();
    Caja(1, "Imposible modificar monto asignado de 'Fondo'",
         "De esta fuente de financiamiento ya han sido asignado recursos,\r\npor lo que no podrá modificar el Monto Asignado.",
         ui::vbExclamation);
    EXPECT_EQ(sistema->beeps, 1);
    EXPECT_FALSE(f->txtMontoTotal->isEnabled());
    EXPECT_TRUE(f->txtNombre->isEnabled() && f->txtFecha->isEnabled() && Editando());

    // Only the name changes, yet every ledger row of the source, its payment among them, becomes the capture.
    f->txtNombre->setText("Fondo federal");
    f->cmdGrabar_Click();
    EXPECT_EQ(Fuentes_().first(), "1|Fondo federal|2026-01-10 00:00:00|1000|600|800|ana.martin");
    EXPECT_EQ(Libro(), (QStringList{"1|2026-01-10 00:00:00|1000|0|+ADDFinan|ana.martin",
                                    "1|2026-01-10 00:00:00|1000|0|+ADDFinan|ana.martin", "2|2026-02-01 00:00:00|50|0|+ADDFinan|otro"}));
    // The next opening finds no payments left.
    Abre();
    EXPECT_EQ(Filas("SELECT MontoAsignadoDisponible, MontoXAsignar FROM adqFinanciamiento WHERE IdFinanciamiento=1"),
              QStringList{"1000|600"});
}

TEST_F(Fuentes, CancelarNoDejaNadaYElCambioDeMontoMueveLosTresSaldos) {
    Fuente(1, "A", "10", "10", "10");
    Fuente(2, "B", "1000", "1000", "1000");
    Fuente(3, "C", "30", "30", "30");
    Movimiento(2, "1000", "+ADDFinan");
    Abre();
    f->cmdMover_Click(2);
    f->cmdNuevo_Click();
    Captura("15-01-2026", "Nueva", "99");
    f->cmdCancelar_Click();
    EXPECT_FALSE(Editando() || f->txtNombre->isEnabled());
    EXPECT_EQ(Vista(), "2 / 3 B");
    f->cmdModificar_Click();
    Captura("20-01-2026", "Cambiada", "5");
    f->cmdCancelar_Click();
    EXPECT_EQ(Fuentes_()[1], "2|B|2026-01-10 00:00:00|1000|1000|1000|otro");
    EXPECT_EQ(Libro(), QStringList{"2|2026-02-01 00:00:00|1000|0|+ADDFinan|otro"});
    EXPECT_EQ(f->txtMontoTotal->text(), "$1,000.00");

    // Without assignments the amount is open, and all three balances and the ledger take the new one.
    f->cmdModificar_Click();
    EXPECT_TRUE(sistema->cajas.empty() && f->txtMontoTotal->isEnabled());
    f->txtMontoTotal->setText("1,250.25");
    f->cmdGrabar_Click();
    EXPECT_EQ(Fuentes_()[1], "2|B|2026-01-10 00:00:00|1250.25|1250.25|1250.25|ana.martin");
    EXPECT_EQ(Libro(), QStringList{"2|2026-01-10 00:00:00|1250.25|0|+ADDFinan|ana.martin"});
    EXPECT_EQ(Vista(), "2 / 3 B");    // back on the same source
}

TEST_F(Fuentes, BorradoSoloDeFuentesSinAsignaciones) {
    Fuente(1, "Asignada", "1000", "600");
    Fuente(2, "Libre", "500", "500");
    Movimiento(2, "500", "+ADDFinan");
    Abre();
    f->cmdBorrar_Click();
    Caja(1, "Imposible borrar 'Asignada'",
         "De esta fuente de financiamiento ya han sido asignado recursos,\r\npor lo que no podrá eliminarla.\r\n\r\n"
         "Si realmente desea eliminarla deberá deshacer todas las asignaciones de presupuesto junto con sus respectivos pagos",
         ui::vbExclamation);
    f->cmdMover_Click(3);
    sistema->Responde({ui::vbNo});
    f->cmdBorrar_Click();
    Caja(2, "Confirmación de borrado", "¿Está seguro que desea borrar 'Libre'", ui::vbQuestion + ui::vbYesNo);
    EXPECT_EQ(Fuentes_().size(), 2);

    sistema->Responde({ui::vbYes});
    f->cmdBorrar_Click();
    EXPECT_EQ(Filas("SELECT Nombre FROM adqFinanciamiento"), QStringList{"Asignada"});
    EXPECT_EQ(Libro().size(), 1);               // its ledger rows stay
    EXPECT_EQ(Vista(), "1 / 1 Asignada");
    // The last one gone: nothing left to delete.
    Ejecuta("UPDATE adqFinanciamiento SET MontoXAsignar=1000");
    f->cmdMover_Click(0);
    sistema->Responde({ui::vbYes});
    f->cmdBorrar_Click();
    EXPECT_EQ(Vista(), "0 registros ");
    EXPECT_FALSE(f->cmdBorrar->isEnabled());
}

TEST_F(Fuentes, AlAbrirRecalculaLosSaldosConElLibroYLosProyectos) {
    Fuente(1, "Con pagos", "1000", "1000", "999");
    Movimiento(1, "1000", "+ADDFinan");
    Movimiento(1, "-200", "-SALDpag");
    Movimiento(1, "-50.5", "-SALDpag");
    Movimiento(1, "50.5", "+DESHACpag");      // an undone payment still counts
    Movimiento(1, "-300", "-CARG 0001");
    Proyecto("300");
    Proyecto("100.25");
    Fuente(2, "Sin movimientos", "500", "123.45");   // no projects: its stored MontoXAsignar stays
    Abre();
    EXPECT_EQ(Filas("SELECT IdFinanciamiento, MontoAsignadoDisponible, MontoXAsignar FROM adqFinanciamiento ORDER BY 1"),
              (QStringList{"1|749.5|599.75", "2|500|123.45"}));
    EXPECT_EQ(Montos(), (QStringList{"$599.75", "$749.50", "$400.25"}));
    EXPECT_TRUE(sistema->cajas.empty());

    // A failure on the way is told, what ran before it stays, and the form opens.
    Ejecuta("UPDATE adqFinanciamiento SET MontoAsignadoDisponible=0");
    Ejecuta("DROP TABLE adqProyectos");
    Abre();
    const QString texto = sistema->cajas.empty() ? QString() : sistema->UltimaCaja().texto;
    Caja(1, "Actualización de monto disponible de Financiamientos", texto, ui::vbCritical);
    EXPECT_TRUE(texto.startsWith("Ocurrió el error: 3078 [") &&
                texto.endsWith("]\r\nSELECT IdFinanciamiento, sum(TotalAsignado) as TAsignado FROM adqProyectos WHERE IdFinanciamiento= 1 "
                               "GROUP BY IdFinanciamiento")) << texto.toStdString();
    EXPECT_EQ(Filas("SELECT IdFinanciamiento, MontoAsignadoDisponible FROM adqFinanciamiento ORDER BY 1"), (QStringList{"1|749.5", "2|0"}));
    EXPECT_EQ(f->lblStatus->text(), "1 / 2");
}

TEST_F(Fuentes, EntradasRechazadasSeQuedanEnCaptura) {
    Abre();
    f->cmdNuevo_Click();
    const char* negativo = "El Monto Asignado no puede ser negativo.";
    const char* excesivo = "El Monto Asignado excede la cantidad máxima que se puede registrar.";
    // Date, amount, and the warning; nullptr: a beep alone.
    const std::tuple<const char*, const char*, const char*> casos[] = {
        {"15-01-2026", "", nullptr},      {"15-01-2026", "$", nullptr},        {"15-01-2026", "12abc", nullptr},
        {"15-01-2026", "$-0.01", negativo}, {"15-01-2026", "1e20", excesivo}, {"15-01-2026", "922337203685478", excesivo},
        {"31-02-2026", "100", nullptr},   {"", "100", nullptr}};
    for (const auto& [fecha, monto, aviso] : casos) {
        sistema->cajas.clear();
        const int beeps = sistema->beeps;
        Captura(fecha, "Fondo", monto);
        f->cmdGrabar_Click();
        EXPECT_EQ(sistema->beeps, beeps + 1) << fecha << " " << monto;
        if (aviso) Caja(1, nullptr, aviso, ui::vbExclamation);
        EXPECT_TRUE(aviso || sistema->cajas.empty()) << fecha << " " << monto;
        EXPECT_TRUE(Editando());
    }
    EXPECT_TRUE(Fuentes_().isEmpty() && Libro().isEmpty());
    // After all the refusals the capture still goes through, to the ten-thousandth.
    Captura("15-01-2026", "Fondo", "123,456,789,012.3456");
    f->cmdGrabar_Click();
    EXPECT_FALSE(Editando());
    EXPECT_EQ(Filas("SELECT f.MontoTotal, f.MontoXAsignar, s.Monto FROM adqFinanciamiento AS f, adqSaldoFinanciamientos AS s"),
              QStringList{"123456789012.3456|123456789012.3456|123456789012.3456"});
}

TEST_F(Fuentes, FuenteBorradaDesdeOtraEstacion) {
    const QString aviso = "Esta fuente de financiamiento fue borrada desde otra estación de trabajo.";
    for (const char* n : {"A", "B", "C", "D", "E"}) Fuente(n[0] - 'A' + 1, n, "100", "100");
    Movimiento(1, "100", "+ADDFinan");
    Abre();
    // While it is shown: the list is read again and the form stands on its last source.
    Ejecuta("DELETE FROM adqFinanciamiento WHERE IdFinanciamiento=1");
    f->cmdModificar_Click();
    Caja(1, nullptr, aviso, ui::vbExclamation);
    EXPECT_FALSE(Editando());
    EXPECT_EQ(Vista(), "4 / 4 E");

    // While it is being changed: nothing is written, its ledger rows least of all.
    f->cmdMover_Click(0);
    f->cmdModificar_Click();
    f->txtNombre->setText("B cambiada");
    Ejecuta("DELETE FROM adqFinanciamiento WHERE IdFinanciamiento=2");
    Movimiento(2, "200", "+ADDFinan");
    sistema->cajas.clear();
    f->cmdGrabar_Click();
    EXPECT_TRUE(sistema->Textos() == QStringList{aviso} && !Editando());
    EXPECT_EQ(Filas("SELECT Nombre FROM adqFinanciamiento ORDER BY 1"), (QStringList{"C", "D", "E"}));
    EXPECT_EQ(Libro(), (QStringList{"1|2026-02-01 00:00:00|100|0|+ADDFinan|otro", "2|2026-02-01 00:00:00|200|0|+ADDFinan|otro"}));
    EXPECT_EQ(f->lblStatus->text(), "3 / 3");

    // On the way to it, and when it is to be deleted.
    f->cmdMover_Click(0);
    Ejecuta("DELETE FROM adqFinanciamiento WHERE IdFinanciamiento=4");
    sistema->cajas.clear();
    f->cmdMover_Click(2);
    EXPECT_EQ(sistema->Textos() << f->lblStatus->text(), (QStringList{aviso, "2 / 2"}));
    Ejecuta("DELETE FROM adqFinanciamiento WHERE IdFinanciamiento=5");
    sistema->cajas.clear();
    f->cmdBorrar_Click();
    EXPECT_EQ(sistema->Textos() << Vista(), (QStringList{aviso, "1 / 1 C"}));
}

}  // namespace
