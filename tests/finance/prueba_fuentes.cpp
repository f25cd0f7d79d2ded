// The funding sources screen on a fresh database: capture, browsing, changes within the amount lock, the
// ledger rows it writes, deletion, cancelling, the recomputation of the balances on opening, and what it
// does with bad input and with a source deleted elsewhere.
#include "../ayuda_prueba.h"

#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"
#include "finance/frmFuentesFin.h"

#include <QCheckBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

class Fuentes : public ::testing::Test {
protected:
    QTemporaryDir dir;
    ui::PlataformaPrueba* sistema = nullptr;
    std::unique_ptr<frmFuentesFin> f;

    void SetUp() override {
        sistema = prueba::InstalaBaseNueva(dir);
        globales::LoginAnalista = QStringLiteral("ana.martinez");   // 12 characters: 10 are written
    }
    void TearDown() override {
        f.reset();
        globales::BaseDatos.reset();
    }
    void Ejecuta(const QString& sql) { globales::Base().Execute(sql, dao::dbFailOnError); }
    void Ejecuta(const char* sql) { Ejecuta(QString::fromUtf8(sql)); }
    // Rows joined by "|", Null as "NULL".
    QStringList Filas(const QString& sql) {
        QStringList r;
        auto rs = globales::Base().OpenRecordset(sql);
        while (!rs->Eof()) {
            QStringList c;
            for (int i = 0; i < rs->Fields().Count(); ++i) {
                const vb::Variant v = rs->Fields(i).Value();
                c << (v.isNull() ? QStringLiteral("NULL") : v.type() == vb::VarType::Date ? v.toDate().toIso() : v.text());
            }
            r << c.join(u'|');
            rs->MoveNext();
        }
        return r;
    }
    QStringList Filas(const char* sql) { return Filas(QString::fromUtf8(sql)); }
    QStringList Fuentes_() {
        return Filas("SELECT IdFinanciamiento, Nombre, FechaCaptura, MontoTotal, MontoXAsignar, MontoAsignadoDisponible, "
                     "IdCapturista FROM adqFinanciamiento ORDER BY 1");
    }
    QStringList Libro() {
        return Filas("SELECT IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista "
                     "FROM adqSaldoFinanciamientos ORDER BY 1, 3");
    }
    frmFuentesFin& Abre() {
        f = std::make_unique<frmFuentesFin>();
        f->Form_Load();
        return *f;
    }
    void Fuente(int id, const char* nombre, const char* total, const char* xAsignar, const char* disponible = "NULL") {
        Ejecuta(QStringLiteral("INSERT INTO adqFinanciamiento (IdFinanciamiento, Nombre, MontoTotal, FechaCaptura, "
                               "MontoXAsignar, MontoAsignadoDisponible, IdCapturista) VALUES (%1, '%2', %3, #01-10-2026#, %4, %5, 'otro')")
                    .arg(id).arg(QString::fromUtf8(nombre), QString::fromUtf8(total), QString::fromUtf8(xAsignar),
                         QString::fromUtf8(disponible)));
    }
    void Movimiento(int id, const char* monto, const char* operacion) {
        Ejecuta(QStringLiteral("INSERT INTO adqSaldoFinanciamientos VALUES (%1, #02-01-2026#, %2, 0, '%3', 'otro')")
                    .arg(id).arg(QString::fromUtf8(monto), QString::fromUtf8(operacion)));
    }
    void Proyecto(int idFuente, const char* total) {
        Ejecuta(QStringLiteral("INSERT INTO adqProyectos (Nombre, IdEscuela, TotalAsignado, MontoDisponible, IdFinanciamiento) "
                               "VALUES ('P', 1, %1, %1, %2)").arg(QString::fromUtf8(total)).arg(idFuente));
    }
    bool Editando() const { return !f->Frame2->isHidden() && f->Frame1->isHidden(); }
    bool Navegable(int i) const { return f->cmdMover[static_cast<size_t>(i)]->isEnabled(); }
    void Captura(const char* fecha, const char* nombre, const char* monto) {
        f->txtFecha->setText(QString::fromUtf8(fecha));
        f->txtNombre->setText(QString::fromUtf8(nombre));
        f->txtMontoTotal->setText(QString::fromUtf8(monto));
    }
};

TEST_F(Fuentes, SinFuentesSoloQuedaCapturarORegresar) {
    Abre();
    EXPECT_EQ(f->windowTitle(), "Fuentes de financiamiento");
    EXPECT_EQ(f->lblStatus->text(), "0 registros");
    EXPECT_FALSE(f->cmdModificar->isEnabled());
    EXPECT_FALSE(f->cmdBorrar->isEnabled());
    for (int i = 0; i < 4; ++i) EXPECT_FALSE(Navegable(i)) << i;
    EXPECT_TRUE(f->cmdNuevo->isEnabled());
    EXPECT_EQ(f->lblMontoXAsignar->text(), "0.00");
    EXPECT_EQ(f->lblMontoAsignado->text(), "0.00");
    EXPECT_EQ(f->lblMontoAsignadoDisponible->text(), "0.00");
    EXPECT_FALSE(f->txtNombre->isEnabled());
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(Fuentes, AltaEscribeLaFuenteYSuRenglonDelLibro) {
    Abre();
    f->cmdNuevo_Click();
    EXPECT_EQ(f->Tag, "nuevo");
    EXPECT_TRUE(Editando());
    EXPECT_TRUE(f->txtMontoTotal->isEnabled());
    EXPECT_EQ(f->txtFecha->text(), vb::Format(vb::Variant(vb::Fecha::Now()), "dd-mmm-yyyy"));
    Captura("15-01-2026", "Fondo estatal", "$1,500.50");
    f->cmdGrabar_Click();
    EXPECT_FALSE(Editando());
    EXPECT_FALSE(f->txtNombre->isEnabled());
    EXPECT_EQ(Fuentes_(), QStringList{"1|Fondo estatal|2026-01-15 00:00:00|1500.5|1500.5|0|ana.martin"});
    EXPECT_EQ(Filas("SELECT UltimoMovimiento FROM adqFinanciamiento"), QStringList{"NULL"});
    EXPECT_EQ(f->lblUltimoMovimiento->text(), "");
    EXPECT_EQ(Libro(), QStringList{"1|2026-01-15 00:00:00|1500.5|0|+ADDFinan|ana.martin"});
    EXPECT_EQ(f->lblStatus->text(), "1 / 1");
    EXPECT_EQ(f->txtFecha->text(), "15-ene-2026");
    EXPECT_EQ(f->txtMontoTotal->text(), "$1,500.50");
    EXPECT_EQ(f->lblMontoXAsignar->text(), "$1,500.50");
    EXPECT_EQ(f->lblMontoAsignadoDisponible->text(), "$0.00");
    EXPECT_EQ(f->lblMontoAsignado->text(), "$0.00");

    // The second one is numbered before it is stored, and the form stands on it afterwards.
    f->cmdNuevo_Click();
    Captura("3/2/2026", "Donativo", "20000.1234");
    f->cmdGrabar_Click();
    EXPECT_EQ(f->lblStatus->text(), "2 / 2");
    EXPECT_EQ(f->txtNombre->text(), "Donativo");
    EXPECT_EQ(Libro().last(), "2|2026-02-03 00:00:00|20000.1234|0|+ADDFinan|ana.martin");

    // The next opening computes what may still be spent.
    Abre();
    EXPECT_EQ(Filas("SELECT MontoAsignadoDisponible FROM adqFinanciamiento ORDER BY 1"), (QStringList{"1500.5", "20000.1234"}));
    EXPECT_EQ(f->lblMontoAsignadoDisponible->text(), "$1,500.50");
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(Fuentes, RecorridoConLasFlechas) {
    Fuente(1, "A", "100", "100");
    Fuente(2, "B", "200", "150");
    Fuente(3, "C", "300", "300");
    Abre();
    EXPECT_EQ(f->lblStatus->text(), "1 / 3");
    EXPECT_EQ(f->txtNombre->text(), "A");
    EXPECT_TRUE(Navegable(2) && Navegable(3));
    f->cmdMover_Click(2);
    EXPECT_EQ(f->lblStatus->text(), "2 / 3");
    EXPECT_EQ(f->lblMontoAsignado->text(), "$50.00");
    EXPECT_EQ(f->txtFecha->text(), "10-ene-2026");
    f->cmdMover_Click(3);
    EXPECT_EQ(f->lblStatus->text(), "3 / 3");
    EXPECT_FALSE(Navegable(2));
    EXPECT_FALSE(Navegable(3));
    EXPECT_TRUE(Navegable(0) && Navegable(1));
    f->cmdMover_Click(0);
    EXPECT_EQ(f->txtNombre->text(), "A");
    // Before the first: a beep, the way back closed, the first source still shown.
    const int beeps = sistema->beeps;
    f->cmdMover_Click(1);
    EXPECT_EQ(sistema->beeps, beeps + 1);
    EXPECT_FALSE(Navegable(0));
    EXPECT_FALSE(Navegable(1));
    EXPECT_EQ(f->txtNombre->text(), "A");
    f->cmdMover_Click(2);
    EXPECT_EQ(f->txtNombre->text(), "A");     // from before the first, the next is the first
    EXPECT_TRUE(Navegable(0));

    f->Check1->click();
    EXPECT_FALSE(f->frameDetalles->isHidden());
    f->Check1->click();
    EXPECT_TRUE(f->frameDetalles->isHidden());
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(Fuentes, CambioConRecursosAsignadosBloqueaElMontoYReescribeElLibro) {
    Fuente(1, "Fondo", "1000", "600", "800");
    Proyecto(1, "400");
    Movimiento(1, "1000", "+ADDFinan");
    Movimiento(1, "-200", "-SALDpag");
    Fuente(2, "Otro", "50", "50");
    Movimiento(2, "50", "+ADDFinan");
    Abre();
    f->cmdModificar_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->UltimaCaja().titulo, "Imposible modificar monto asignado de 'Fondo'");
    EXPECT_EQ(sistema->UltimaCaja().texto, "De esta fuente de financiamiento ya han sido asignado recursos,\r\n"
                                           "por lo que no podrá modificar el Monto Asignado.");
    EXPECT_EQ(sistema->UltimaCaja().flags, ui::vbExclamation);
    EXPECT_EQ(sistema->beeps, 1);
    EXPECT_FALSE(f->txtMontoTotal->isEnabled());
    EXPECT_TRUE(f->txtNombre->isEnabled());
    EXPECT_TRUE(f->txtFecha->isEnabled());
    EXPECT_EQ(f->Tag, "0");
    EXPECT_TRUE(Editando());

    // Only the name changes, yet every ledger row of the source, its payment among them, becomes the capture.
    f->txtNombre->setText("Fondo federal");
    f->cmdGrabar_Click();
    EXPECT_EQ(Fuentes_().first(), "1|Fondo federal|2026-01-10 00:00:00|1000|600|800|ana.martin");
    EXPECT_EQ(Libro(), (QStringList{"1|2026-01-10 00:00:00|1000|0|+ADDFinan|ana.martin",
                                    "1|2026-01-10 00:00:00|1000|0|+ADDFinan|ana.martin",
                                    "2|2026-02-01 00:00:00|50|0|+ADDFinan|otro"}));
    EXPECT_EQ(f->lblStatus->text(), "1 / 2");
    EXPECT_EQ(f->txtNombre->text(), "Fondo federal");
    // The next opening finds no payments left.
    Abre();
    EXPECT_EQ(Filas("SELECT MontoAsignadoDisponible, MontoXAsignar FROM adqFinanciamiento WHERE IdFinanciamiento=1"),
              QStringList{"1000|600"});
}

TEST_F(Fuentes, CambioDeMontoSinAsignacionesMueveLosTresSaldos) {
    Fuente(1, "A", "10", "10", "10");
    Fuente(2, "B", "1000", "1000", "1000");
    Fuente(3, "C", "30", "30", "30");
    Movimiento(2, "1000", "+ADDFinan");
    Abre();
    f->cmdMover_Click(2);
    f->cmdModificar_Click();
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_TRUE(f->txtMontoTotal->isEnabled());
    EXPECT_EQ(f->Tag, "1");
    f->txtMontoTotal->setText("1,250.25");
    f->cmdGrabar_Click();
    EXPECT_EQ(Fuentes_()[1], "2|B|2026-01-10 00:00:00|1250.25|1250.25|1250.25|ana.martin");
    EXPECT_EQ(Libro(), QStringList{"2|2026-01-10 00:00:00|1250.25|0|+ADDFinan|ana.martin"});
    EXPECT_EQ(f->lblStatus->text(), "2 / 3");    // back on the same source
    EXPECT_EQ(f->txtNombre->text(), "B");

    // Lowered as well.
    f->cmdModificar_Click();
    f->txtMontoTotal->setText("$250.25");
    f->cmdGrabar_Click();
    EXPECT_EQ(Fuentes_()[1], "2|B|2026-01-10 00:00:00|250.25|250.25|250.25|ana.martin");
}

TEST_F(Fuentes, BorradoSoloDeFuentesSinAsignaciones) {
    Fuente(1, "Asignada", "1000", "600");
    Fuente(2, "Libre", "500", "500");
    Movimiento(2, "500", "+ADDFinan");
    Abre();
    f->cmdBorrar_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->UltimaCaja().titulo, "Imposible borrar 'Asignada'");
    EXPECT_EQ(sistema->UltimaCaja().texto,
              "De esta fuente de financiamiento ya han sido asignado recursos,\r\npor lo que no podrá eliminarla.\r\n\r\n"
              "Si realmente desea eliminarla deberá deshacer todas las asignaciones de presupuesto junto con sus respectivos pagos");
    EXPECT_EQ(sistema->UltimaCaja().flags, ui::vbExclamation);
    EXPECT_EQ(Fuentes_().size(), 2);

    f->cmdMover_Click(3);
    sistema->Responde({ui::vbNo});
    f->cmdBorrar_Click();
    EXPECT_EQ(sistema->UltimaCaja().titulo, "Confirmación de borrado");
    EXPECT_EQ(sistema->UltimaCaja().texto, "¿Está seguro que desea borrar 'Libre'");
    EXPECT_EQ(sistema->UltimaCaja().flags, ui::vbQuestion + ui::vbYesNo);
    EXPECT_EQ(Fuentes_().size(), 2);

    sistema->Responde({ui::vbYes});
    f->cmdBorrar_Click();
    EXPECT_EQ(Filas("SELECT Nombre FROM adqFinanciamiento"), QStringList{"Asignada"});
    EXPECT_EQ(Libro().size(), 1);               // its ledger rows stay
    EXPECT_EQ(f->lblStatus->text(), "1 / 1");
    EXPECT_EQ(f->txtNombre->text(), "Asignada");

    Ejecuta("UPDATE adqFinanciamiento SET MontoXAsignar=1000");
    f->cmdMover_Click(0);
    sistema->Responde({ui::vbYes});
    f->cmdBorrar_Click();
    EXPECT_EQ(f->lblStatus->text(), "0 registros");
    EXPECT_FALSE(f->cmdBorrar->isEnabled());
}

TEST_F(Fuentes, CancelarNoDejaNada) {
    Fuente(1, "A", "100", "100");
    Abre();
    f->cmdNuevo_Click();
    Captura("15-01-2026", "Nueva", "99");
    f->cmdCancelar_Click();
    EXPECT_FALSE(Editando());
    EXPECT_FALSE(f->txtNombre->isEnabled());
    EXPECT_EQ(f->txtNombre->text(), "A");
    EXPECT_EQ(f->lblStatus->text(), "1 / 1");

    f->cmdModificar_Click();
    Captura("20-01-2026", "Cambiada", "5");
    f->cmdCancelar_Click();
    EXPECT_EQ(Fuentes_(), QStringList{"1|A|2026-01-10 00:00:00|100|100|100|otro"});
    EXPECT_TRUE(Libro().isEmpty());
    EXPECT_EQ(f->txtMontoTotal->text(), "$100.00");
}

TEST_F(Fuentes, AlAbrirRecalculaLosSaldosConElLibroYLosProyectos) {
    Fuente(1, "Con pagos", "1000", "1000", "999");
    Movimiento(1, "1000", "+ADDFinan");
    Movimiento(1, "-200", "-SALDpag");
    Movimiento(1, "-50.5", "-SALDpag");
    Movimiento(1, "50.5", "+DESHACpag");      // an undone payment still counts
    Movimiento(1, "-300", "-CARG 0001");
    Proyecto(1, "300");
    Proyecto(1, "100.25");
    Fuente(2, "Sin movimientos", "500", "123.45");   // no projects: its stored MontoXAsignar stays
    Abre();
    EXPECT_EQ(Filas("SELECT IdFinanciamiento, MontoAsignadoDisponible, MontoXAsignar FROM adqFinanciamiento ORDER BY 1"),
              (QStringList{"1|749.5|599.75", "2|500|123.45"}));
    EXPECT_EQ(f->lblMontoAsignadoDisponible->text(), "$749.50");
    EXPECT_EQ(f->lblMontoXAsignar->text(), "$599.75");
    EXPECT_EQ(f->lblMontoAsignado->text(), "$400.25");
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(Fuentes, UnaFallaDelRecalculoSeAvisaYLaFormaAbre) {
    Fuente(1, "A", "1000", "1000");
    Movimiento(1, "-100", "-SALDpag");
    Ejecuta("DROP TABLE adqProyectos");
    Abre();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->UltimaCaja().titulo, "Actualización de monto disponible de Financiamientos");
    EXPECT_EQ(sistema->UltimaCaja().flags, ui::vbCritical);
    EXPECT_TRUE(sistema->UltimaCaja().texto.startsWith("Ocurrió el error: 3078 ["));
    EXPECT_TRUE(sistema->UltimaCaja().texto.endsWith(
        "]\r\nSELECT IdFinanciamiento, sum(TotalAsignado) as TAsignado FROM adqProyectos WHERE IdFinanciamiento= 1 "
        "GROUP BY IdFinanciamiento"));
    // What ran before the failure stays.
    EXPECT_EQ(Filas("SELECT MontoAsignadoDisponible FROM adqFinanciamiento"), QStringList{"900"});
    EXPECT_EQ(f->lblStatus->text(), "1 / 1");
}

TEST_F(Fuentes, EntradasRechazadasSeQuedanEnCaptura) {
    Abre();
    f->cmdNuevo_Click();
    struct Caso {
        const char* fecha;
        const char* monto;
        const char* aviso;     // nullptr: a beep alone
    };
    const Caso casos[] = {
        {"15-01-2026", "", nullptr},
        {"15-01-2026", "doce", nullptr},
        {"15-01-2026", "$", nullptr},
        {"15-01-2026", "12abc", nullptr},
        {"15-01-2026", "-5", "El Monto Asignado no puede ser negativo."},
        {"15-01-2026", "$-0.01", "El Monto Asignado no puede ser negativo."},
        {"15-01-2026", "1e20", "El Monto Asignado excede la cantidad máxima que se puede registrar."},
        {"15-01-2026", "922337203685478", "El Monto Asignado excede la cantidad máxima que se puede registrar."},
        {"31-02-2026", "100", nullptr},
        {"mañana", "100", nullptr},
        {"", "100", nullptr},
    };
    for (const Caso& c : casos) {
        sistema->cajas.clear();
        const int beeps = sistema->beeps;
        Captura(c.fecha, "Fondo", c.monto);
        f->cmdGrabar_Click();
        EXPECT_EQ(sistema->beeps, beeps + 1) << c.fecha << " " << c.monto;
        if (c.aviso) {
            ASSERT_EQ(sistema->cajas.size(), 1u) << c.monto;
            EXPECT_EQ(sistema->UltimaCaja().texto, QString::fromUtf8(c.aviso));
            EXPECT_EQ(sistema->UltimaCaja().flags, ui::vbExclamation);
        } else {
            EXPECT_TRUE(sistema->cajas.empty()) << c.fecha << " " << c.monto;
        }
        EXPECT_TRUE(Editando());
    }
    EXPECT_TRUE(Fuentes_().isEmpty());
    EXPECT_TRUE(Libro().isEmpty());
    // After all the refusals the capture still goes through, to the ten-thousandth.
    Captura("15-01-2026", "Fondo", "123,456,789,012.3456");
    f->cmdGrabar_Click();
    EXPECT_FALSE(Editando());
    EXPECT_EQ(Filas("SELECT MontoTotal, MontoXAsignar FROM adqFinanciamiento"), QStringList{"123456789012.3456|123456789012.3456"});
    EXPECT_EQ(Filas("SELECT Monto FROM adqSaldoFinanciamientos"), QStringList{"123456789012.3456"});
}

TEST_F(Fuentes, FuenteBorradaDesdeOtraEstacion) {
    const QString aviso = "Esta fuente de financiamiento fue borrada desde otra estación de trabajo.";
    Fuente(1, "A", "100", "100");
    Fuente(2, "B", "200", "200");
    Fuente(3, "C", "300", "300");
    Fuente(4, "D", "400", "400");
    Fuente(5, "E", "500", "500");
    Movimiento(1, "100", "+ADDFinan");
    Abre();

    // While it is shown: the list is read again and the form stands on its last source.
    Ejecuta("DELETE FROM adqFinanciamiento WHERE IdFinanciamiento=1");
    f->cmdModificar_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->UltimaCaja().texto, aviso);
    EXPECT_EQ(sistema->UltimaCaja().flags, ui::vbExclamation);
    EXPECT_FALSE(Editando());
    EXPECT_FALSE(f->txtNombre->isEnabled());
    EXPECT_EQ(f->lblStatus->text(), "4 / 4");
    EXPECT_EQ(f->txtNombre->text(), "E");

    // While it is being changed: nothing is written, its ledger rows least of all.
    f->cmdMover_Click(0);
    f->cmdModificar_Click();
    f->txtNombre->setText("B cambiada");
    Ejecuta("DELETE FROM adqFinanciamiento WHERE IdFinanciamiento=2");
    Movimiento(2, "200", "+ADDFinan");
    sistema->cajas.clear();
    f->cmdGrabar_Click();
    EXPECT_EQ(sistema->Textos(), QStringList{aviso});
    EXPECT_FALSE(Editando());
    EXPECT_EQ(Filas("SELECT Nombre FROM adqFinanciamiento ORDER BY 1"), (QStringList{"C", "D", "E"}));
    EXPECT_EQ(Libro(), (QStringList{"1|2026-02-01 00:00:00|100|0|+ADDFinan|otro", "2|2026-02-01 00:00:00|200|0|+ADDFinan|otro"}));
    EXPECT_EQ(f->lblStatus->text(), "3 / 3");

    // On the way to it, and when it is to be deleted.
    f->cmdMover_Click(0);
    Ejecuta("DELETE FROM adqFinanciamiento WHERE IdFinanciamiento=4");
    sistema->cajas.clear();
    f->cmdMover_Click(2);
    EXPECT_EQ(sistema->Textos(), QStringList{aviso});
    EXPECT_EQ(f->lblStatus->text(), "2 / 2");
    Ejecuta("DELETE FROM adqFinanciamiento WHERE IdFinanciamiento=5");
    sistema->cajas.clear();
    f->cmdBorrar_Click();
    EXPECT_EQ(sistema->Textos(), QStringList{aviso});
    EXPECT_EQ(f->lblStatus->text(), "1 / 1");
    EXPECT_EQ(f->txtNombre->text(), "C");
}

}  // namespace
