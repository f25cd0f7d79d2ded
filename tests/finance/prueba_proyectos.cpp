// The budgets of the schools: what each add, change and delete writes in the project, in its source's
// balances and in the ledger; the checks before a save; the text test before a delete; the recomputation of
// what is left of each budget; and what happens when another workstation deleted the row in hand.
#include "workflow/ayuda_flujo.h"

#include "core/FormPrincipal.h"
#include "core/controles/ComboBox.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"
#include "finance/Proyectos.h"
#include "finance/Registro.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

const QString crlf = QStringLiteral("\r\n");
const QString encabezado = QStringLiteral("Se ha detectado que falta información o que existen datos inconsistentes,\r\n"
                                          "por favor verifique que: \r\n");
const QString excede = QStringLiteral("El 'monto total' asignado al proyecto no puede ser mayor\r\n"
                                      "que el 'Monto disponible para asignar'\r\n"
                                      " de la Fuente de Financiamiento seleccionada. \r\n");

class PruebaProyectos : public PruebaFlujo {
protected:
    // Combo rows in the order of their names: sources "002 - Estatal", "001 - Federal"; schools
    // "004 - Artes", "003 - Ingeniería", "005 - Medicina".
    static constexpr int Estatal = 0, Federal = 1;
    static constexpr int Artes = 0, Ingenieria = 1;

    void SetUp() override {
        PruebaFlujo::SetUp();
        Ejecuta("INSERT INTO adqFinanciamiento (Nombre, MontoTotal, FechaCaptura, MontoAsignadoDisponible, UltimoMovimiento, "
                "MontoXAsignar, IdCapturista) VALUES ('Federal', 10000, #2024/01/10#, 0, #2024/01/10#, 10000, 'ana')");
        Ejecuta("INSERT INTO adqFinanciamiento (Nombre, MontoTotal, FechaCaptura, MontoAsignadoDisponible, UltimoMovimiento, "
                "MontoXAsignar, IdCapturista) VALUES ('Estatal', 5000, #2024/01/11#, 0, #2024/01/11#, 5000, 'ana')");
        Ejecuta("INSERT INTO adqSaldoFinanciamientos VALUES (1, #2024/01/10#, 10000, 0, '+ADDFinan', 'ana')");
        Ejecuta("INSERT INTO adqSaldoFinanciamientos VALUES (2, #2024/01/11#, 5000, 0, '+ADDFinan', 'ana')");
        hoy = vb::Format(vb::Variant(vb::Fecha::Today()), QStringLiteral("yyyy/mm/dd"));
    }

    QString hoy;

    // Every value of every row, a row's values joined by "|"; dates as yyyy/mm/dd.
    QStringList Filas(const QString& sql) {
        QStringList r;
        auto rs = globales::Base().OpenRecordset(sql);
        while (!rs->Eof()) {
            QStringList v;
            for (int i = 0; i < rs->Fields().Count(); ++i) {
                const vb::Variant x = rs->Fields(i).Value();
                v << (x.isNull() ? QStringLiteral("NULL")
                       : x.type() == vb::VarType::Date ? vb::Format(x, QStringLiteral("yyyy/mm/dd"))
                                                        : x.text());
            }
            r << v.join(u'|');
            rs->MoveNext();
        }
        return r;
    }
    QStringList Filas(const char* sql) { return Filas(QString::fromUtf8(sql)); }
    QString Fuente(int id) {
        return Filas(QStringLiteral("SELECT MontoTotal, MontoXAsignar, MontoAsignadoDisponible, UltimoMovimiento FROM "
                                    "adqFinanciamiento WHERE IdFinanciamiento=") + QString::number(id))
            .value(0);
    }
    QString Proyecto(int id) {
        return Filas(QStringLiteral("SELECT IdEscuela, IdFinanciamiento, Nombre, FuenteFinanciamiento, Responsable, TotalAsignado, "
                                    "MontoDisponible, UltimoMovimiento, IdCapturista FROM adqProyectos WHERE IdProyecto=") +
                     QString::number(id))
            .value(0);
    }
    QStringList Libro() {
        return Filas("SELECT IdEscuela, IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista "
                     "FROM adqSaldoProyectos ORDER BY Operacion, IdEscuela, Monto");
    }

    void Abre(Proyectos& p) {
        p.Form_Load();
        sistema->cajas.clear();
    }
    void Llena(Proyectos& p, const QString& total, const QString& asignacion = QStringLiteral("01/02/2024"),
               const QString& vigencia = QStringLiteral("31/12/2024")) {
        p.txtTotalAsignado->setText(total);
        p.txtFechaAsignacion->setText(asignacion);
        p.txtFechaVigencia->setText(vigencia);
    }
    // A new project captured on the screen and saved.
    void Agrega(Proyectos& p, int escuela, int fuente, const QString& total, const QString& responsable = QStringLiteral("Dra. López")) {
        p.cmdNueva_Click();
        p.cboDES->setListIndex(escuela);
        p.cboFuenteFinanciamiento->setListIndex(fuente);
        p.txtResponsable->setText(responsable);
        Llena(p, total);
        p.cmdGrabar_Click();
    }
    void Elige(Proyectos& p, int fila) { p.ListaPartidas_ItemClick(&p.ListaPartidas->ListItems()(fila)); }
    // A project written directly, with the charges already paid against its school and source.
    void ProyectoConPagos(int escuela, int fuente, const char* total, const char* pagado) {
        Ejecuta(QStringLiteral("INSERT INTO adqProyectos (Nombre, Responsable, IdEscuela, FuenteFinanciamiento, FechaAsignacion, "
                               "FechaVigencia, TotalAsignado, UltimoMovimiento, MontoDisponible, IdCapturista, IdFinanciamiento) "
                               "VALUES ('x', 'y', %1, 'Federal', #2024/02/01#, #2024/12/31#, %2, #2024/03/01#, %2, 'ana', %3)")
                    .arg(escuela).arg(QLatin1String(total)).arg(fuente));
        Ejecuta(QStringLiteral("INSERT INTO adqSaldoProyectos VALUES (%1, %2, #2024/01/15#, %3, 0, '+ADDproy', 'ana')")
                    .arg(escuela).arg(fuente).arg(QLatin1String(total)));
        Ejecuta(QStringLiteral("INSERT INTO adqSaldoProyectos VALUES (%1, %2, #2024/03/01#, -%3, 0, '-CARG 0001', 'ana')")
                    .arg(escuela).arg(fuente).arg(QLatin1String(pagado)));
    }
};

TEST_F(PruebaProyectos, AsignaADosEscuelasYMueveLaFuente) {
    Proyectos p;
    p.Form_Load();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].texto, QStringLiteral("No hay ningún proyecto asignado..."));
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("Listado de asignación de recursos"));
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbExclamation);
    EXPECT_EQ(p.Estado(), QStringLiteral("NSE"));
    EXPECT_FALSE(p.cmdModificar->isEnabled());
    EXPECT_EQ(p.cboFuenteFinanciamiento->List(Federal), QStringLiteral("001 - Federal"));
    sistema->cajas.clear();

    p.cmdNueva_Click();
    EXPECT_EQ(p.Estado(), QStringLiteral("AGR"));
    EXPECT_EQ(p.lblIdProyecto->text(), QStringLiteral("000"));
    EXPECT_FALSE(p.txtMontoDisponible->isEnabled());
    p.cboFuenteFinanciamiento->setListIndex(Federal);
    EXPECT_TRUE(p.lblFFDispC->isVisibleTo(&p));
    EXPECT_EQ(p.lblFFDispC->text(), QStringLiteral("$10,000.00"));
    p.cboDES->setListIndex(Ingenieria);
    p.txtResponsable->setText(QStringLiteral("Dra. López"));
    Llena(p, QStringLiteral("$2,500.50"));
    p.cmdGrabar_Click();
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_EQ(Proyecto(1), QStringLiteral("3|1|Ingeniería|Federal|Dra. López|2500.5|2500.5|NULL|ana"));
    EXPECT_EQ(Fuente(1), QStringLiteral("10000|7499.5|2500.5|") + hoy);
    EXPECT_EQ(Fuente(2), QStringLiteral("5000|5000|0|2024/01/11"));
    EXPECT_EQ(Libro(), QStringList{QStringLiteral("3|1|") + hoy + QStringLiteral("|2500.5|0|+ADDproy|ana")});
    EXPECT_EQ(p.Estado(), QStringLiteral("NCE"));
    ASSERT_EQ(p.ListaPartidas->ListItems().Count(), 1);

    globales::LoginAnalista = QStringLiteral("beto");
    p.cmdNueva_Click();
    EXPECT_EQ(p.lblIdProyecto->text(), QStringLiteral("002"));
    p.cboDES->setListIndex(Artes);
    p.cboFuenteFinanciamiento->setListIndex(Federal);
    p.txtResponsable->setText(QStringLiteral("Mtro. Ruiz"));
    Llena(p, QStringLiteral("1000"));
    p.cmdGrabar_Click();
    EXPECT_EQ(Proyecto(2), QStringLiteral("4|1|Artes|Federal|Mtro. Ruiz|1000|1000|NULL|beto"));
    EXPECT_EQ(Proyecto(1), QStringLiteral("3|1|Ingeniería|Federal|Dra. López|2500.5|2500.5|NULL|ana"));
    EXPECT_EQ(Fuente(1), QStringLiteral("10000|6499.5|3500.5|") + hoy);
    EXPECT_EQ(Libro(), (QStringList{QStringLiteral("3|1|") + hoy + QStringLiteral("|2500.5|0|+ADDproy|ana"),
                                    QStringLiteral("4|1|") + hoy + QStringLiteral("|1000|0|+ADDproy|beto")}));
    EXPECT_EQ(p.ListaPartidas->SelectedItem()->Index(), 2);
}

TEST_F(PruebaProyectos, CambioSinPagosDevuelveLoAnteriorYCobraLoNuevo) {
    Proyectos p;
    Abre(p);
    Agrega(p, Ingenieria, Federal, QStringLiteral("2500"));
    Agrega(p, Ingenieria, Federal, QStringLiteral("500"));     // the same school and source: a second ledger row

    Elige(p, 1);
    EXPECT_EQ(p.txtTotalAsignado->text(), QStringLiteral("$2,500.00"));
    EXPECT_EQ(p.txtMontoDisponible->text(), QStringLiteral("$2,500.00"));
    EXPECT_EQ(p.txtFechaAsignacion->text(), QStringLiteral("01/feb/2024"));
    // After a save the list has no source column: the source combo stays empty and the save is refused.
    EXPECT_EQ(p.cboFuenteFinanciamiento->ListIndex(), -1);
    p.cmdModificar_Click();
    p.cmdGrabar_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].texto,
              encabezado + QStringLiteral(" la 'fuente de financiamiento' del proyecto es un valor requerido, \r\n"));
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("Error en captura de datos"));
    EXPECT_EQ(p.Estado(), QStringLiteral("MOD"));
    p.cmdCancelar_Click();
    EXPECT_EQ(p.Estado(), QStringLiteral("NCE"));
    sistema->cajas.clear();

    // Opened again, the list carries the source.
    Proyectos q;
    Abre(q);
    Elige(q, 1);
    EXPECT_EQ(q.cboFuenteFinanciamiento->ListIndex(), Federal);
    q.cmdModificar_Click();
    EXPECT_EQ(q.Estado(), QStringLiteral("MOD"));
    EXPECT_FALSE(q.cboDES->isEnabled());
    q.txtTotalAsignado->setText(QStringLiteral("3000"));
    q.cmdGrabar_Click();
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_EQ(Proyecto(1), QStringLiteral("3|1|Ingeniería|Federal|Dra. López|3000|3000|NULL|ana"));
    // 10000 − 2500 − 500, then 2500 back, 3000 off; the assigned money up by the difference.
    EXPECT_EQ(Fuente(1), QStringLiteral("10000|6500|3500|") + hoy);
    EXPECT_EQ(Libro(), (QStringList{QStringLiteral("3|1|") + hoy + QStringLiteral("|3000|0|+ADDproy|ana"),
                                    QStringLiteral("3|1|") + hoy + QStringLiteral("|3000|0|+ADDproy|ana")}));

    // Lowering it moves the assigned money down by the difference.
    Proyectos r;
    Abre(r);
    Elige(r, 1);
    r.cmdModificar_Click();
    r.txtTotalAsignado->setText(QStringLiteral("2000"));
    r.cmdGrabar_Click();
    EXPECT_EQ(Proyecto(1), QStringLiteral("3|1|Ingeniería|Federal|Dra. López|2000|2000|NULL|ana"));
    EXPECT_EQ(Fuente(1), QStringLiteral("10000|7500|2500|") + hoy);
}

TEST_F(PruebaProyectos, CambioConPagosMueveLoDisponibleDeAmbos) {
    ProyectoConPagos(3, 1, "2500", "400");
    Ejecuta("UPDATE adqFinanciamiento SET MontoXAsignar=7500, MontoAsignadoDisponible=2100 WHERE IdFinanciamiento=1");
    Proyectos p;
    Abre(p);
    Elige(p, 1);
    EXPECT_EQ(p.txtMontoDisponible->text(), QStringLiteral("$2,100.00"));
    p.cmdModificar_Click();
    p.txtTotalAsignado->setText(QStringLiteral("3000"));
    p.cmdGrabar_Click();
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_EQ(Proyecto(1), QStringLiteral("3|1|Ingeniería|Federal|y|3000|2600|2024/03/01|ana"));
    EXPECT_EQ(Fuente(1), QStringLiteral("10000|7000|1600|") + hoy);
    EXPECT_EQ(Libro(), (QStringList{QStringLiteral("3|1|") + hoy + QStringLiteral("|3000|0|+ADDproy|ana"),
                                    QStringLiteral("3|1|2024/03/01|-400|0|-CARG 0001|ana")}));

    // The same amount again: a difference of 0 runs the whole path and moves nothing.
    Proyectos q;
    Abre(q);
    Elige(q, 1);
    q.cmdModificar_Click();
    q.cmdGrabar_Click();
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_EQ(Fuente(1), QStringLiteral("10000|7000|1600|") + hoy);
}

TEST_F(PruebaProyectos, ElMontoNoPasaDeLoQueLaFuenteTienePorAsignar) {
    Proyectos p;
    Abre(p);
    Agrega(p, Ingenieria, Federal, QStringLiteral("2500"));
    Proyectos q;
    Abre(q);
    Elige(q, 1);
    q.cmdModificar_Click();
    q.txtTotalAsignado->setText(QStringLiteral("10000.01"));   // 7500.01 more, with 7500 left
    q.cmdGrabar_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].texto, excede);
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbExclamation);
    EXPECT_EQ(Fuente(1), QStringLiteral("10000|7500|2500|") + hoy);
    q.txtTotalAsignado->setText(QStringLiteral("10000"));
    q.cmdGrabar_Click();
    EXPECT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(Fuente(1), QStringLiteral("10000|0|10000|") + hoy);

    // A new project can't take more than the source has left.
    q.cmdNueva_Click();
    q.cboDES->setListIndex(Artes);
    q.cboFuenteFinanciamiento->setListIndex(Federal);
    q.txtResponsable->setText(QStringLiteral("r"));
    Llena(q, QStringLiteral("0.01"));
    q.cmdGrabar_Click();
    EXPECT_EQ(sistema->cajas.back().texto, excede);
    EXPECT_EQ(Cuenta("adqProyectos"), 1);
}

TEST_F(PruebaProyectos, LaValidacionDiceCadaFaltaEnSuOrden) {
    Proyectos p;
    Abre(p);
    p.cmdNueva_Click();
    p.cmdGrabar_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].texto,
              encabezado + QStringLiteral(" el 'responsable' del proyecto es un valor requerido, \r\n"
                                          " la 'fuente de financiamiento' del proyecto es un valor requerido, \r\n"
                                          " La 'DES' seleccionada no es correcta, \r\n"
                                          " el 'monto total' asignado al proyecto es un valor requerido, \r\n"
                                          " la 'fecha de asignación' del proyecto es un valor requerido, \r\n"
                                          " la 'fecha de asignación' es incorrecta \r\n"
                                          " la 'fecha de vigencia' del proyecto es un valor requerido, \r\n"
                                          " la 'fecha de vigencia' es incorrecta \r\n"));
    EXPECT_EQ(QApplication::focusWidget() == p.txtResponsable || !p.isVisible(), true);

    p.cboDES->setListIndex(Artes);
    p.cboFuenteFinanciamiento->setListIndex(Estatal);
    p.txtResponsable->setText(QStringLiteral("r"));
    Llena(p, QStringLiteral("100"), QStringLiteral("05/03/2024"), QStringLiteral("05/03/2024"));
    p.cmdGrabar_Click();
    EXPECT_EQ(sistema->cajas.back().texto,
              encabezado + QStringLiteral(" la 'fecha de vigencia' sea mayor que la 'fecha de asignación' \r\n"));

    // Amounts that are no money: words, below zero, beyond what a currency holds. Nothing is written.
    const std::pair<const char*, const char*> malos[] = {
        {"cien", " el 'monto total' asignado al proyecto es un valor requerido, \r\n"},
        {"-5", " el 'monto total' asignado al proyecto no puede ser negativo, \r\n"},
        {"99999999999999999999", " el 'monto total' asignado al proyecto excede el máximo permitido, \r\n"}};
    for (const auto& [monto, linea] : malos) {
        Llena(p, QString::fromUtf8(monto));
        p.cmdGrabar_Click();
        EXPECT_EQ(sistema->cajas.back().texto, encabezado + QString::fromUtf8(linea)) << monto;
    }
    EXPECT_EQ(Cuenta("adqProyectos"), 0);
    EXPECT_EQ(Cuenta("adqSaldoProyectos"), 0);
    EXPECT_EQ(Fuente(2), QStringLiteral("5000|5000|0|2024/01/11"));
    EXPECT_EQ(p.Estado(), QStringLiteral("AGR"));
}

TEST_F(PruebaProyectos, ElBorradoComparaLosMontosComoTexto) {
    ProyectoConPagos(3, 1, "1000", "100");     // "$900.00" against "$1,000.00": '9' after '1', it goes
    ProyectoConPagos(4, 1, "100", "90");       // "$10.00" against "$100.00": '.' before '0', refused
    ProyectoConPagos(5, 1, "1000", "900");     // "$100.00" against "$1,000.00": '0' after ',', it goes
    Ejecuta("UPDATE adqFinanciamiento SET MontoXAsignar=7900, MontoAsignadoDisponible=1090 WHERE IdFinanciamiento=1");
    Proyectos p;
    Abre(p);

    Elige(p, 2);
    p.cmdBorrar_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("¡Operación no permitida!"));
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbCritical);
    EXPECT_EQ(sistema->cajas[0].texto,
              QStringLiteral("Lo sentimos pero no podrá eliminar está asignación de recursos,\r\n"
                             "puesto que ya existen operaciones de pagos relacionadas,\r\n"
                             "si desea eliminar este proyecto tendrá que cancelar cada una de \r\n"
                             "las operaciones de pago relacionadas con este proyecto"));
    EXPECT_EQ(sistema->beeps, 1);
    EXPECT_EQ(Cuenta("adqProyectos"), 3);

    // Answered No: nothing goes.
    Elige(p, 1);
    sistema->Responde({ui::vbNo});
    p.cmdBorrar_Click();
    EXPECT_EQ(sistema->cajas.back().titulo, QStringLiteral("Confirmación para eliminar datos de proyecto"));
    EXPECT_EQ(sistema->cajas.back().texto, QStringLiteral("¿Está seguro que desea borrar los datos del proyecto 'x'?,\r\n"
                                                          "una vez borrada esta información no podrá recuperarla ..."));
    EXPECT_EQ(sistema->cajas.back().flags, ui::vbQuestion + ui::vbYesNo);
    EXPECT_EQ(Cuenta("adqProyectos"), 3);

    sistema->Responde({ui::vbYes});
    p.cmdBorrar_Click();
    EXPECT_EQ(sistema->cajas.back().texto, QStringLiteral("los datos del proyecto 001 fueron eliminados con éxito"));
    EXPECT_EQ(sistema->cajas.back().flags, ui::vbInformation);
    EXPECT_EQ(Filas("SELECT IdProyecto FROM adqProyectos ORDER BY 1"), (QStringList{QStringLiteral("2"), QStringLiteral("3")}));
    EXPECT_EQ(Fuente(1), QStringLiteral("10000|8900|90|") + hoy);
    EXPECT_EQ(Cuenta("adqSaldoProyectos"), 6);     // the deleted project's rows stay
    EXPECT_EQ(p.Estado(), QStringLiteral("ELI"));

    Elige(p, 2);
    EXPECT_EQ(p.txtMontoDisponible->text(), QStringLiteral("$100.00"));
    sistema->Responde({ui::vbYes});
    p.cmdBorrar_Click();
    EXPECT_EQ(Filas("SELECT IdProyecto FROM adqProyectos"), QStringList{QStringLiteral("2")});
}

TEST_F(PruebaProyectos, BorrarElUltimoDejaLaListaVacia) {
    Proyectos p;
    Abre(p);
    Agrega(p, Artes, Estatal, QStringLiteral("800"));
    Elige(p, 1);
    sistema->Responde({ui::vbYes});
    p.cmdBorrar_Click();
    EXPECT_EQ(Cuenta("adqProyectos"), 0);
    EXPECT_EQ(Fuente(2), QStringLiteral("5000|5000|0|") + hoy);
    EXPECT_EQ(p.Estado(), QStringLiteral("NSE"));
    EXPECT_TRUE(p.txtTotalAsignado->text().isEmpty());
    EXPECT_FALSE(p.cmdBorrar->isEnabled());
}

TEST_F(PruebaProyectos, LaAperturaRecalculaLoDisponiblePorEscuelaYFuente) {
    ProyectoConPagos(3, 1, "1000", "100");
    ProyectoConPagos(3, 1, "1000", "50");      // the same pair: both share the 150 paid
    ProyectoConPagos(4, 2, "700", "0");
    Ejecuta("INSERT INTO adqSaldoProyectos VALUES (4, 2, #2024/03/02#, 30, 0, '+DESHACpag', 'ana')");
    Ejecuta("INSERT INTO adqSaldoProyectos VALUES (4, 2, #2024/03/02#, -20, 0, '-SALDpag', 'ana')");
    Ejecuta("INSERT INTO adqSaldoProyectos VALUES (4, 1, #2024/03/02#, -60, 0, '-CARG 0002', 'ana')");
    Ejecuta("UPDATE adqProyectos SET MontoDisponible=1");
    Proyectos p;
    Abre(p);
    EXPECT_EQ(Filas("SELECT MontoDisponible FROM adqProyectos ORDER BY IdProyecto"),
              (QStringList{QStringLiteral("850"), QStringLiteral("850"), QStringLiteral("700")}));
    EXPECT_EQ(p.ListaPartidas->ListItems()(1).SubItems(9).trimmed(), QStringLiteral("850.00"));
}

TEST_F(PruebaProyectos, LoQueOtraEstacionBorroNoMueveSaldos) {
    Proyectos p;
    Abre(p);
    Agrega(p, Ingenieria, Federal, QStringLiteral("2500"));
    Proyectos q;
    Abre(q);

    // Changed after another workstation deleted it: no balance moves.
    Elige(q, 1);
    q.cmdModificar_Click();
    Ejecuta("DELETE FROM adqProyectos");
    q.txtTotalAsignado->setText(QStringLiteral("3000"));
    q.cmdGrabar_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].texto, QStringLiteral("El proyecto 1 ya no existe, otra estación de trabajo lo eliminó."));
    EXPECT_EQ(Fuente(1), QStringLiteral("10000|7500|2500|") + hoy);
    EXPECT_EQ(Libro().value(0), QStringLiteral("3|1|") + hoy + QStringLiteral("|2500|0|+ADDproy|ana"));
    EXPECT_EQ(q.Estado(), QStringLiteral("NSE"));

    // Deleted here after it was deleted there: its money goes back once only, by the other's hand.
    Agrega(p, Artes, Federal, QStringLiteral("400"));
    Proyectos r;
    Abre(r);
    Elige(r, 1);
    Ejecuta("DELETE FROM adqProyectos");
    sistema->cajas.clear();
    sistema->Responde({ui::vbYes});
    r.cmdBorrar_Click();
    ASSERT_EQ(sistema->cajas.size(), 2u);
    EXPECT_EQ(sistema->cajas[1].texto, QStringLiteral("No se pudo eliminar el proyecto"));
    EXPECT_EQ(sistema->cajas[1].titulo, QStringLiteral("Proyectos"));
    EXPECT_EQ(Fuente(1), QStringLiteral("10000|7100|2900|") + hoy);

    // A source deleted meanwhile: the new project is refused before anything is written.
    r.cmdNueva_Click();
    r.cboDES->setListIndex(Artes);
    r.cboFuenteFinanciamiento->setListIndex(Estatal);
    r.txtResponsable->setText(QStringLiteral("r"));
    Llena(r, QStringLiteral("10"));
    Ejecuta("DELETE FROM adqFinanciamiento WHERE IdFinanciamiento=2");
    r.cmdGrabar_Click();
    EXPECT_EQ(sistema->cajas.back().texto, QStringLiteral("La fuente de financiamiento seleccionada ya no existe,\r\n"
                                                          "otra estación de trabajo la eliminó."));
    EXPECT_EQ(Cuenta("adqProyectos"), 0);
    EXPECT_EQ(r.Estado(), QStringLiteral("AGR"));
}

TEST_F(PruebaProyectos, SinFuentesNoSePuedeAsignar) {
    Ejecuta("DELETE FROM adqFinanciamiento");
    Proyectos p;
    p.Form_Load();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("No hay fuentes de financiamiento"));
    EXPECT_EQ(sistema->cajas[0].texto, QStringLiteral("No podrá asignar recursos en este momento porque\r\n"
                                                      "no existe ninguna fuente de financiamiento,\r\n\r\n"
                                                      "primero deberá utilizar la opción de 'Fuentes de financiamiento'"));
    EXPECT_EQ(sistema->beeps, 1);
    EXPECT_FALSE(p.cmdNueva->isEnabled());
    EXPECT_FALSE(p.cmdBorrar->isEnabled());
}

TEST_F(PruebaProyectos, ElMenuAbreLaPantalla) {
    finanzas::RegistraComandos();
    EXPECT_TRUE(FormPrincipal::PantallaDisponible(QStringLiteral("menuProyectos")));
}

}  // namespace
