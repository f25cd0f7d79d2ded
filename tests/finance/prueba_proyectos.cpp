// The budgets of the schools: what each add, change and delete writes in the project, in its source's
// balances and in the ledger; the checks before a save; the text test before a delete; the recomputation of
// what is left of each budget; and what happens when another workstation deleted the row in hand.
#include "ayuda_finanzas.h"

#include "core/FormPrincipal.h"
#include "core/controles/ComboBox.h"
#include "core/vb/Fecha.h"
#include "finance/Proyectos.h"
#include "finance/Registro.h"

#include <QLabel>
#include <QPushButton>

namespace {

const QString encabezado = QStringLiteral("Se ha detectado que falta información o que existen datos inconsistentes,\r\n"
                                          "por favor verifique que: \r\n");
const QString excede = QStringLiteral("El 'monto total' asignado al proyecto no puede ser mayor\r\n"
                                      "que el 'Monto disponible para asignar'\r\n"
                                      " de la Fuente de Financiamiento seleccionada. \r\n");

class PruebaProyectos : public PruebaFinanzas {
protected:
    // Combo rows in the order of their names: sources "002 - Estatal", "001 - Federal"; schools
    // "004 - Artes", "003 - Ingeniería", "005 - Medicina".
    static constexpr int Estatal = 0, Federal = 1;
    static constexpr int Artes = 0, Ingenieria = 1;

    void SetUp() override {
        PruebaFinanzas::SetUp();
        mascaraFecha = "yyyy/mm/dd";
        for (const auto& [id, nombre, monto] : {std::tuple{1, "Federal", 10000}, {2, "Estatal", 5000}}) {
            Ejecuta(QStringLiteral("INSERT INTO adqFinanciamiento (Nombre, MontoTotal, FechaCaptura, MontoAsignadoDisponible, UltimoMovimiento, "
                                   "MontoXAsignar, IdCapturista) VALUES ('%1', %2, #2024/01/1%3#, 0, #2024/01/1%3#, %2, 'ana')").arg(nombre).arg(monto).arg(id - 1));
            Ejecuta(QStringLiteral("INSERT INTO adqSaldoFinanciamientos VALUES (%1, #2024/01/1%2#, %3, 0, '+ADDFinan', 'ana')").arg(id).arg(id - 1).arg(monto));
        }
    }
    // The text with each "@" replaced by today's date.
    static QString Hoy(const char* s) {
        return QString::fromUtf8(s).replace(u'@', vb::Format(vb::Variant(vb::Fecha::Today()), "yyyy/mm/dd"));
    }
    QString Fuente(int id) {
        return Filas(QStringLiteral("SELECT MontoTotal, MontoXAsignar, MontoAsignadoDisponible, UltimoMovimiento FROM "
                                    "adqFinanciamiento WHERE IdFinanciamiento=%1").arg(id)).value(0);
    }
    QString Proyecto(int id) {
        return Filas(QStringLiteral("SELECT IdEscuela, IdFinanciamiento, Nombre, FuenteFinanciamiento, Responsable, TotalAsignado, "
                                    "MontoDisponible, UltimoMovimiento, IdCapturista FROM adqProyectos WHERE IdProyecto=%1").arg(id))
            .value(0);
    }
    QStringList Libro() {
        return Filas("SELECT IdEscuela, IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista "
                     "FROM adqSaldoProyectos ORDER BY " ORDEN_DEL_LIBRO ", IdEscuela, Monto");
    }
    void Abre(Proyectos& p) { p.Form_Load(); sistema->cajas.clear(); }
    // A new project filled in on the screen (begun unless it already is), not yet saved.
    void Captura(Proyectos& p, int escuela, int fuente, const char* total, const char* responsable = "Dra. López",
                 const char* asignacion = "01/02/2024", const char* vigencia = "31/12/2024") {
        if (p.Estado() != "AGR") p.cmdNueva_Click();
        p.cboDES->setListIndex(escuela);
        p.cboFuenteFinanciamiento->setListIndex(fuente);
        for (auto [campo, texto] : {std::pair{p.txtResponsable, responsable}, {p.txtTotalAsignado, total},
                                    {p.txtFechaAsignacion, asignacion}, {p.txtFechaVigencia, vigencia}})
            campo->setText(QString::fromUtf8(texto));
    }
    void Agrega(Proyectos& p, int escuela, int fuente, const char* total) { Captura(p, escuela, fuente, total); p.cmdGrabar_Click(); }
    void Elige(Proyectos& p, int fila) { p.ListaPartidas_ItemClick(&p.ListaPartidas->ListItems()(fila)); }
    // A fresh screen standing on row `fila`, its change begun with `total`.
    void Modifica(Proyectos& p, int fila, const char* total) {
        Abre(p); Elige(p, fila); p.cmdModificar_Click();
        p.txtTotalAsignado->setText(QString::fromUtf8(total));
    }
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
    Caja(1, "Listado de asignación de recursos", "No hay ningún proyecto asignado...", ui::vbExclamation);
    EXPECT_EQ(p.Estado() + p.cboFuenteFinanciamiento->List(Federal), "NSE001 - Federal");
    sistema->cajas.clear();

    Captura(p, Ingenieria, Federal, "$2,500.50");
    EXPECT_TRUE(p.lblFFDispC->isVisibleTo(&p));
    EXPECT_EQ(p.lblIdProyecto->text() + p.lblFFDispC->text(), "000$10,000.00");
    p.cmdGrabar_Click();
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_EQ(Proyecto(1), "3|1|Ingeniería|Federal|Dra. López|2500.5|2500.5|NULL|ana");
    EXPECT_EQ(Fuente(1) + Fuente(2), Hoy("10000|7499.5|2500.5|@5000|5000|0|2024/01/11"));
    EXPECT_EQ(Libro(), QStringList{Hoy("3|1|@|2500.5|0|+ADDproy|ana")});
    EXPECT_EQ(p.Estado(), "NCE");

    globales::LoginAnalista = "beto";
    Captura(p, Artes, Federal, "1000", "Mtro. Ruiz");
    EXPECT_EQ(p.lblIdProyecto->text(), "002");
    p.cmdGrabar_Click();
    EXPECT_EQ(Proyecto(2), "4|1|Artes|Federal|Mtro. Ruiz|1000|1000|NULL|beto");
    EXPECT_EQ(Fuente(1), Hoy("10000|6499.5|3500.5|@"));
    EXPECT_EQ(p.ListaPartidas->SelectedItem()->Index(), 2);
}

TEST_F(PruebaProyectos, CambioSinPagosDevuelveLoAnteriorYCobraLoNuevo) {
    Proyectos p;
    Abre(p);
    Agrega(p, Ingenieria, Federal, "2500");
    Agrega(p, Ingenieria, Federal, "500");     // the same school and source: a second ledger row

    Elige(p, 1);
    EXPECT_EQ((QStringList{p.txtTotalAsignado->text(), p.txtMontoDisponible->text(), p.txtFechaAsignacion->text()}),
              (QStringList{"$2,500.00", "$2,500.00", "01/feb/2024"}));
    // After a save the list has no source column: the source combo stays empty and the save is refused.
    EXPECT_EQ(p.cboFuenteFinanciamiento->ListIndex(), -1);
    p.cmdModificar_Click();
    p.cmdGrabar_Click();
    Caja(1, "Error en captura de datos", encabezado + " la 'fuente de financiamiento' del proyecto es un valor requerido, \r\n",
         ui::vbExclamation);
    EXPECT_EQ(p.Estado(), "MOD");
    p.cmdCancelar_Click();
    EXPECT_EQ(p.Estado(), "NCE");

    // Opened again, the list carries the source.
    Proyectos q;
    Modifica(q, 1, "3000");
    EXPECT_EQ(q.cboFuenteFinanciamiento->ListIndex(), Federal);
    EXPECT_FALSE(q.cboDES->isEnabled());
    q.cmdGrabar_Click();
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_EQ(Proyecto(1), "3|1|Ingeniería|Federal|Dra. López|3000|3000|NULL|ana");
    // 10000 − 2500 − 500, then 2500 back, 3000 off; the assigned money up by the difference.
    EXPECT_EQ(Fuente(1), Hoy("10000|6500|3500|@"));
    EXPECT_EQ(Libro(), (QStringList{Hoy("3|1|@|3000|0|+ADDproy|ana"), Hoy("3|1|@|3000|0|+ADDproy|ana")}));
}

TEST_F(PruebaProyectos, CambioConPagosMueveLoDisponibleDeAmbos) {
    ProyectoConPagos(3, 1, "2500", "400");
    Ejecuta("UPDATE adqFinanciamiento SET MontoXAsignar=7500, MontoAsignadoDisponible=2100 WHERE IdFinanciamiento=1");
    Proyectos p;
    Modifica(p, 1, "3000");
    EXPECT_EQ(p.txtMontoDisponible->text(), "$2,100.00");
    p.cmdGrabar_Click();
    EXPECT_EQ(Proyecto(1), "3|1|Ingeniería|Federal|y|3000|2600|2024/03/01|ana");
    EXPECT_EQ(Fuente(1), Hoy("10000|7000|1600|@"));
    EXPECT_EQ(Libro(), (QStringList{Hoy("3|1|@|3000|0|+ADDproy|ana"), "3|1|2024/03/01|-400|0|-CARG 0001|ana"}));
}

TEST_F(PruebaProyectos, ElMontoNoPasaDeLoQueLaFuenteTienePorAsignar) {
    Proyectos p;
    Abre(p);
    Agrega(p, Ingenieria, Federal, "2500");
    Proyectos q;
    Modifica(q, 1, "10000.01");   // 7500.01 more, with 7500 left
    q.cmdGrabar_Click();
    Caja(1, nullptr, excede, ui::vbExclamation);
    EXPECT_EQ(Fuente(1), Hoy("10000|7500|2500|@"));
    q.txtTotalAsignado->setText("10000");   // all that is left
    q.cmdGrabar_Click();
    EXPECT_EQ(Fuente(1) + QString::number(sistema->cajas.size()), Hoy("10000|0|10000|@1"));

    // A new project can't take more than the source has left.
    Captura(q, Artes, Federal, "0.01");
    q.cmdGrabar_Click();
    Caja(2, nullptr, excede, ui::vbExclamation);
    EXPECT_EQ(Cuenta("adqProyectos"), 1);
}

TEST_F(PruebaProyectos, LaValidacionDiceCadaFaltaEnSuOrden) {
    Proyectos p;
    Abre(p);
    p.cmdNueva_Click();
    p.cmdGrabar_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].texto, encabezado + QStringLiteral(" el 'responsable' del proyecto es un valor requerido, \r\n"
                                          " la 'fuente de financiamiento' del proyecto es un valor requerido, \r\n"
                                          " La 'DES' seleccionada no es correcta, \r\n"
                                          " el 'monto total' asignado al proyecto es un valor requerido, \r\n"
                                          " la 'fecha de asignación' del proyecto es un valor requerido, \r\n"
                                          " la 'fecha de asignación' es incorrecta \r\n"
                                          " la 'fecha de vigencia' del proyecto es un valor requerido, \r\n"
                                          " la 'fecha de vigencia' es incorrecta \r\n"));

    Captura(p, Artes, Estatal, "100", "r", "05/03/2024", "05/03/2024");
    p.cmdGrabar_Click();
    EXPECT_EQ(sistema->cajas.back().texto, encabezado + " la 'fecha de vigencia' sea mayor que la 'fecha de asignación' \r\n");

    // Amounts that are no money: words, below zero, beyond what a currency holds. Nothing is written.
    const std::pair<const char*, const char*> malos[] = {
        {"cien", " el 'monto total' asignado al proyecto es un valor requerido, \r\n"},
        {"-5", " el 'monto total' asignado al proyecto no puede ser negativo, \r\n"},
        {"99999999999999999999", " el 'monto total' asignado al proyecto excede el máximo permitido, \r\n"}};
    for (const auto& [monto, linea] : malos) {
        Captura(p, Artes, Estatal, monto, "r");
        p.cmdGrabar_Click();
        EXPECT_EQ(sistema->cajas.back().texto, encabezado + QString::fromUtf8(linea)) << monto;
    }
    EXPECT_EQ(Cuenta("adqProyectos") + Cuenta("adqSaldoProyectos"), 0);
    EXPECT_EQ(Fuente(2) + p.Estado(), "5000|5000|0|2024/01/11AGR");
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
    Caja(1, "¡Operación no permitida!",
         "Lo sentimos pero no podrá eliminar está asignación de recursos,\r\npuesto que ya existen operaciones de pagos "
         "relacionadas,\r\nsi desea eliminar este proyecto tendrá que cancelar cada una de \r\n"
         "las operaciones de pago relacionadas con este proyecto", ui::vbCritical);
    EXPECT_EQ(sistema->beeps + Cuenta("adqProyectos"), 1 + 3);

    // Answered No: nothing goes.
    Elige(p, 1);
    sistema->Responde({ui::vbNo});
    p.cmdBorrar_Click();
    Caja(2, "Confirmación para eliminar datos de proyecto",
         "¿Está seguro que desea borrar los datos del proyecto 'x'?,\r\nuna vez borrada esta información no podrá recuperarla ...",
         ui::vbQuestion + ui::vbYesNo);
    EXPECT_EQ(Cuenta("adqProyectos"), 3);

    sistema->Responde({ui::vbYes});
    p.cmdBorrar_Click();
    Caja(4, nullptr, "los datos del proyecto 001 fueron eliminados con éxito", ui::vbInformation);
    EXPECT_EQ(Filas("SELECT IdProyecto FROM adqProyectos ORDER BY 1"), (QStringList{"2", "3"}));
    EXPECT_EQ(Fuente(1), Hoy("10000|8900|90|@"));
    EXPECT_EQ(Cuenta("adqSaldoProyectos"), 6);     // the deleted project's rows stay
    EXPECT_EQ(p.Estado(), "ELI");

    Elige(p, 2);
    EXPECT_EQ(p.txtMontoDisponible->text(), "$100.00");
    sistema->Responde({ui::vbYes});
    p.cmdBorrar_Click();
    EXPECT_EQ(Filas("SELECT IdProyecto FROM adqProyectos"), QStringList{"2"});
}

TEST_F(PruebaProyectos, BorrarElUltimoDejaLaListaVacia) {
    Proyectos p;
    Abre(p);
    Agrega(p, Artes, Estatal, "800");
    Elige(p, 1);
    sistema->Responde({ui::vbYes});
    p.cmdBorrar_Click();
    EXPECT_EQ(Cuenta("adqProyectos"), 0);
    EXPECT_EQ(Fuente(2) + p.Estado() + p.txtTotalAsignado->text(), Hoy("5000|5000|0|@NSE"));
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
    EXPECT_EQ(Filas("SELECT MontoDisponible FROM adqProyectos ORDER BY IdProyecto"), (QStringList{"850", "850", "700"}));
    EXPECT_EQ(p.ListaPartidas->ListItems()(1).SubItems(9).trimmed(), "850.00");
}

TEST_F(PruebaProyectos, LoQueOtraEstacionBorroNoMueveSaldos) {
    Proyectos p;
    Abre(p);
    Agrega(p, Ingenieria, Federal, "2500");

    // Changed after another workstation deleted it: no balance moves.
    Proyectos q;
    Modifica(q, 1, "3000");
    Ejecuta("DELETE FROM adqProyectos");
    q.cmdGrabar_Click();
    EXPECT_EQ(sistema->Textos(), QStringList{"El proyecto 1 ya no existe, otra estación de trabajo lo eliminó."});
    EXPECT_EQ(Fuente(1) + Libro().value(0) + q.Estado(), Hoy("10000|7500|2500|@3|1|@|2500|0|+ADDproy|anaNSE"));

    // Deleted here after it was deleted there: its money goes back once only, by the other's hand.
    Agrega(p, Artes, Federal, "400");
    Proyectos r;
    Abre(r); Elige(r, 1);
    Ejecuta("DELETE FROM adqProyectos");
    sistema->cajas.clear();
    sistema->Responde({ui::vbYes});
    r.cmdBorrar_Click();
    ASSERT_EQ(sistema->cajas.size(), 2u);
    EXPECT_EQ(sistema->cajas[1].titulo + ": " + sistema->cajas[1].texto, "Proyectos: No se pudo eliminar el proyecto");
    EXPECT_EQ(Fuente(1), Hoy("10000|7100|2900|@"));

    // A source deleted meanwhile: the new project is refused before anything is written.
    Captura(r, Artes, Estatal, "10", "r");
    Ejecuta("DELETE FROM adqFinanciamiento WHERE IdFinanciamiento=2");
    r.cmdGrabar_Click();
    EXPECT_EQ(sistema->cajas.back().texto, "La fuente de financiamiento seleccionada ya no existe,\r\notra estación de trabajo la eliminó.");
    EXPECT_EQ(Valor("SELECT Count(*) FROM adqProyectos") + r.Estado(), "0AGR");
}

TEST_F(PruebaProyectos, SinFuentesNoSePuedeAsignar) {
    Ejecuta("DELETE FROM adqFinanciamiento");
    Proyectos p;
    p.Form_Load();
    Caja(1, "No hay fuentes de financiamiento", "No podrá asignar recursos en este momento porque\r\nno existe ninguna fuente de "
         "financiamiento,\r\n\r\nprimero deberá utilizar la opción de 'Fuentes de financiamiento'", ui::vbExclamation);
    EXPECT_EQ(sistema->beeps, 1);
    EXPECT_FALSE(p.cmdNueva->isEnabled() || p.cmdBorrar->isEnabled());
    finanzas::RegistraComandos();
    EXPECT_TRUE(FormPrincipal::PantallaDisponible("menuProyectos"));
}

}  // namespace
