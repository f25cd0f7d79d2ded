// The expense reports, by source and by school, over a small known ledger: which payments each lists, the
// opening balance read from the ledger before the period, the balance left after each row, the boxes that
// stop a report, and the page that is printed.
#include "ayuda_finanzas.h"

#include "core/FormPrincipal.h"
#include "core/controles/ComboBox.h"
#include "core/vb/Fecha.h"
#include "finance/Registro.h"
#include "finance/frmReporteGastosFuente.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace {

class PruebaGastos : public PruebaFinanzas {
protected:
    // Combo rows in the order of their names: sources "003 - Estatal", "001 - Federal", "002 - Municipal";
    // schools "004 - Artes", "003 - Ingeniería", "005 - Medicina".
    static constexpr int Estatal = 0, Federal = 1, Municipal = 2;
    static constexpr int Artes = 0, Ingenieria = 1, Medicina = 2;

    void SetUp() override {
        PruebaFinanzas::SetUp();
        globales::NombreInstitucion = "Universidad del Norte";
        Ejecuta("INSERT INTO Proveedores ([No], Empresa) VALUES (1, 'Libros SA')");
        Ejecuta("INSERT INTO Proveedores ([No], Empresa) VALUES (2, 'Papelería')");
        for (const auto& [nombre, monto] : {std::pair{"Federal", 10000}, {"Municipal", 200}, {"Estatal", 0}})
            Ejecuta(QStringLiteral("INSERT INTO adqFinanciamiento (Nombre, MontoTotal, FechaCaptura) VALUES ('%1', %2, #2024/01/10#)")
                        .arg(QLatin1String(nombre)).arg(monto));
        Ejecuta("INSERT INTO adqSaldoFinanciamientos VALUES (1, #2024/01/10#, 10000, 0, '+ADDFinan', 'ana')");
        Ejecuta("INSERT INTO adqSaldoFinanciamientos VALUES (2, #2024/01/10#, 200, 0, '+ADDFinan', 'ana')");
        // Projects: 1 Ingeniería, 2 and 3 Artes (two assignment dates), 4 Medicina on the second source.
        Proyecto(3, 1, "4000", "2024/02/01");
        Proyecto(4, 1, "3000", "2024/02/01");
        Proyecto(4, 1, "500", "2024/03/01");
        Proyecto(5, 2, "200", "2024/02/01");
        // Payments: id, source, supplier, amount, date paid, state, project, invoice.
        Pago(1, 1, 1, "1000", "#2024/02/10#", "P", 1, "A-1");
        Pago(2, 1, 2, "250.25", "#2024/03/05#", "P", 1, "B-7");
        Pago(3, 1, 1, "300", "#2024/03/20#", "P", 2, "C-3");
        Pago(4, 1, 2, "99.99", "#2024/03/22#", "P", 1, "D-2");   // paid, undone and paid again
        Pago(5, 1, 1, "50", "NULL", "S", 1, "E-5");                // undone, still unpaid
        Pago(6, 2, 1, "200", "#2024/02/05#", "P", 4, "F-1");       // Medicina's whole budget
        Pago(7, 2, 2, "40", "#2024/03/10#", "P", 4, "F-2");
        for (const char* fila : {"1, #2024/02/10#, -1000, 0, '-SALDpag'", "1, #2024/02/15#, -99.99, 0, '-SALDpag'",
                                 "1, #2024/02/20#, 99.99, 0, '+DESHACpag'", "1, #2024/03/05#, -250.25, 0, '-SALDpag'",
                                 "1, #2024/03/20#, -300, 0, '-SALDpag'", "1, #2024/03/22#, -99.99, 0, '-SALDpag'",
                                 "2, #2024/02/05#, -200, 0, '-SALDpag'", "2, #2024/03/10#, -40, 0, '-SALDpag'"})
            Ejecuta(QStringLiteral("INSERT INTO adqSaldoFinanciamientos VALUES (%1, 'ana')").arg(QLatin1String(fila)));
        for (const char* fila : {"3, 1, #2024/02/10#, -1000, 0, '-CARG 0001'", "3, 1, #2024/02/15#, -99.99, 0, '-CARG 0004'",
                                 "3, 1, #2024/02/20#, 99.99, 0, '+DESHpag'", "3, 1, #2024/03/05#, -250.25, 0, '-CARG 0002'",
                                 "4, 1, #2024/03/20#, -300, 0, '-CARG 0003'", "3, 1, #2024/03/22#, -99.99, 0, '-CARG 0004'",
                                 "5, 2, #2024/02/05#, -200, 0, '-CARG 0006'", "5, 2, #2024/03/10#, -40, 0, '-CARG 0007'"})
            Ejecuta(QStringLiteral("INSERT INTO adqSaldoProyectos VALUES (%1, 'ana')").arg(QLatin1String(fila)));
    }
    void Proyecto(int escuela, int fuente, const char* total, const char* fecha) {
        Ejecuta(QStringLiteral("INSERT INTO adqProyectos (Nombre, IdEscuela, FechaAsignacion, TotalAsignado, MontoDisponible, "
                               "IdFinanciamiento) VALUES ('x', %1, #%3#, %2, %2, %4)")
                    .arg(escuela).arg(QLatin1String(total), QLatin1String(fecha)).arg(fuente));
        Ejecuta(QStringLiteral("INSERT INTO adqSaldoProyectos VALUES (%1, %2, #%4#, %3, 0, '+ADDproy', 'ana')")
                    .arg(escuela).arg(fuente).arg(QLatin1String(total), QLatin1String(fecha)));
    }
    void Pago(int id, int fuente, int proveedor, const char* monto, const char* fecha, const char* estado, int proyecto,
              const char* factura) {
        Ejecuta(QStringLiteral("INSERT INTO PagoFacturasGral (IdPagoFactura, IdFinanciamiento, IdProveedor, Monto, Concepto, "
                               "FechaPago, Estado) VALUES (%1, %2, %3, %4, 'Concepto %1', %5, '%6')")
                    .arg(id).arg(fuente).arg(proveedor).arg(QLatin1String(monto), QLatin1String(fecha), QLatin1String(estado)));
        Ejecuta(QStringLiteral("INSERT INTO PagoFacturasDetalle (IdPagoFactura, IdProyecto, NoFactura, MontoFactura) "
                               "VALUES (%1, %2, '%3', %4)")
                    .arg(id).arg(proyecto).arg(QLatin1String(factura), QLatin1String(monto)));
    }

    // A report opened, its choices made and generated.
    void Genera(frmReporteGastosFuente& r, int fuente, const char* desde, const char* hasta, int escuela = -1) {
        if (escuela >= 0) r.cboEscuela->setListIndex(escuela);
        r.cboFuenteFinanciamiento->setListIndex(fuente);
        r.txtFechaInicial->setText(QString::fromUtf8(desde));
        r.txtFechaFinal->setText(QString::fromUtf8(hasta));
        ASSERT_TRUE(r.cmdGenerar->isEnabled());
        r.cmdGenerar_Click();
    }
    // Each row as "number|date|col 3|col 4|amount|balance", cells trimmed.
    static QStringList Renglones(frmReporteGastosFuente& r) {
        QStringList filas;
        for (int i = 1; i <= r.ListView1->ListItems().Count(); ++i) {
            const controles::ListItem& f = r.ListView1->ListItems()(i);
            QStringList c{f.Text()};
            for (int s = 1; s <= 5; ++s) c << f.SubItems(s).trimmed();
            filas << c.join(u'|');
        }
        return filas;
    }
    static QString Totales(frmReporteGastosFuente& r) {
        return r.lblTotalMonto->text() + u' ' + r.lblSaldoFinal->text();
    }
};

TEST_F(PruebaGastos, PorFuenteSaldoInicialDelLibroYSaldoPorRenglon) {
    globales::ReporteGastosPorEscuela = false;
    frmReporteGastosFuente r;
    r.Form_Load();
    EXPECT_EQ(r.windowTitle(), "Reporte de Gastos por Fuente de Financiamiento");
    EXPECT_TRUE(r.cboEscuela->isHidden() && r.lblEscuela->isHidden());
    QStringList columnas;
    for (int i = 1; i <= r.ListView1->ColumnHeaders().Count(); ++i) columnas << r.ListView1->ColumnHeaders()(i).Text();
    EXPECT_EQ(columnas, (QStringList{"Pago", "Fecha", "Concepto", "Proveedor", "Monto pagado", "Saldo"}));

    // Generating needs a source and two dates.
    EXPECT_FALSE(r.cmdGenerar->isEnabled());
    r.txtFechaInicial->setText("01/03/2024");
    r.txtFechaFinal->setText("31/03/2024");
    EXPECT_FALSE(r.cmdGenerar->isEnabled());
    r.cboFuenteFinanciamiento->setListIndex(Federal);
    EXPECT_TRUE(r.cmdGenerar->isEnabled());
    r.txtFechaFinal->setText("31/13/2024");
    EXPECT_FALSE(r.cmdGenerar->isEnabled());

    // March: the ledger before it holds the source, a payment, and a payment undone (9,000). The payment
    // undone and paid again in March shows once, the one still unpaid not at all.
    Genera(r, Federal, "01/03/2024", "31/03/2024");
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_EQ(Renglones(r), (QStringList{"002|2024/03/05|Concepto 2|Papelería|250.25|$8,749.75",
                                         "003|2024/03/20|Concepto 3|Libros SA|300.00|$8,449.75",
                                         "004|2024/03/22|Concepto 4|Papelería|99.99|$8,349.76"}));
    EXPECT_EQ(Totales(r), "$650.24 $8,349.76");
    EXPECT_EQ(r.lblPresupuesto->text(), "El presupuesto asignado para 'Federal' es de $10,000.00");
    EXPECT_EQ(r.lblSaldoAnterior->text(), "fue asignado el 10-ene-2024 y el saldo disponible al 01/03/2024 es de $9,000.00     ");
    EXPECT_FALSE(r.lblPresupuesto->isHidden());
    EXPECT_TRUE(r.cmdImprimir->isEnabled());

    // From before the source existed: nothing in the ledger yet (NULL) starts from the whole budget, and the
    // label tells no balance.
    Genera(r, Federal, "01/01/2024", "31/12/2024");
    EXPECT_EQ(Renglones(r).size(), 4);
    EXPECT_EQ(r.ListView1->ListItems()(1).SubItems(5), "$9,000.00");
    EXPECT_EQ(Totales(r), "$1,650.24 $8,349.76");
    EXPECT_EQ(r.lblSaldoAnterior->text(), "fue asignado el 10-ene-2024");

    // The list's selection lets the breakdown open; the payment in hand is the row's.
    r.ListView1->ListItems()(2).setSelected(true);
    r.ListView1_Click();
    EXPECT_TRUE(r.cmdDesgloce->isEnabled());
    globales::PagoSaldado = false;
    bool desdeReporte = false;
    sistema->AlMostrar("pagoFacturasDetalle", [&](QDialog&) { desdeReporte = globales::PagoDesdeReporte; });
    const size_t cajas = sistema->cajas.size();
    r.cmdDesgloce_Click();
    // The breakdown opens on the payment without warning that it is settled.
    EXPECT_TRUE(desdeReporte);
    EXPECT_EQ(sistema->modales.back(), "pagoFacturasDetalle");
    EXPECT_EQ(sistema->cajas.size(), cajas);
    EXPECT_EQ(globales::IdPagoActual, 2);
    EXPECT_EQ(globales::FuentePago, "1");
    EXPECT_TRUE(globales::PagoSaldado);
    EXPECT_FALSE(globales::PagoDesdeReporte);
}

TEST_F(PruebaGastos, PorFuenteLasCajasQueDetienenElReporte) {
    globales::ReporteGastosPorEscuela = false;
    frmReporteGastosFuente r;
    r.Form_Load();
    Genera(r, Federal, "01/03/2024", "31/03/2024");
    ASSERT_TRUE(r.cmdImprimir->isEnabled());

    Genera(r, Estatal, "01/01/2024", "31/12/2024");
    Caja(1, "Imposible generar Reporte de Gastos",
         "Para esta fuente de financiamiento 'Estatal' no se tiene ningún presupuesto asignado...", ui::vbExclamation);
    EXPECT_FALSE(r.cmdImprimir->isEnabled());
    EXPECT_EQ(r.ListView1->ListItems().Count(), 0);

    Genera(r, Federal, "01/01/2023", "31/12/2023");
    Caja(2, "Reporte de gastos", "No se encontró ningún pago efectuado en este periodo", ui::vbInformation);
    EXPECT_TRUE(r.lblPresupuesto->isHidden());
    EXPECT_EQ(Totales(r), "$0.00 $0.00");
    EXPECT_FALSE(r.cmdDesgloce->isEnabled());
}

TEST_F(PruebaGastos, PorEscuelaSaldoInicialPrimerGrupoYCeroExacto) {
    globales::ReporteGastosPorEscuela = true;
    frmReporteGastosFuente r;
    r.Form_Load();
    EXPECT_EQ(r.windowTitle(), "Reporte de gastos por escuela");
    EXPECT_FALSE(r.cboEscuela->isHidden());
    EXPECT_EQ(r.lblEscuela->text(), "Escuela / proyecto");
    EXPECT_EQ(r.cboEscuela->List(Ingenieria), "003 - Ingeniería");
    EXPECT_EQ(r.ListView1->ColumnHeaders()(3).Text() + u'|' + r.ListView1->ColumnHeaders()(4).Text(), "Proveedor|Núm.factura");

    // The undone payment (no FechaPago) is left out; the opening balance holds the charge, the undoing and
    // the charge undone.
    Genera(r, Federal, "01/02/2024", "31/03/2024", Ingenieria);
    EXPECT_EQ(Renglones(r), (QStringList{"001|2024/02/10|Libros SA|A-1|1,000.00|$3,000.00",
                                         "002|2024/03/05|Papelería|B-7|250.25|$2,749.75",
                                         "004|2024/03/22|Papelería|D-2|99.99|$2,649.76"}));
    EXPECT_EQ(r.lblSaldoAnterior->text(), "fue asignado el 01-feb-2024 y el saldo disponible al 01/02/2024 es de $4,000.00     ");
    Genera(r, Federal, "01/03/2024", "31/03/2024", Ingenieria);
    EXPECT_EQ(r.ListView1->ListItems()(1).SubItems(5), "$2,749.75");
    EXPECT_EQ(Totales(r), "$350.24 $2,649.76");
    EXPECT_EQ(r.lblPresupuesto->text(), "El presupuesto asignado para 'Ingeniería' es de $4,000.00");

    // Two assignment dates: only the first group's 3,000 counts as the budget.
    Genera(r, Federal, "01/03/2024", "31/03/2024", Artes);
    EXPECT_EQ(Renglones(r), QStringList{"003|2024/03/20|Libros SA|C-3|300.00|$2,700.00"});
    EXPECT_EQ(r.lblPresupuesto->text(), "El presupuesto asignado para 'Artes' es de $3,000.00");

    // A budget spent to the last cent before the period sums to exactly 0 and starts over from the budget.
    Genera(r, Municipal, "01/03/2024", "31/03/2024", Medicina);
    EXPECT_EQ(Renglones(r), QStringList{"007|2024/03/10|Papelería|F-2|40.00|$160.00"});
    EXPECT_TRUE(sistema->cajas.empty());

    Ejecuta("UPDATE adqProyectos SET TotalAsignado=0 WHERE IdEscuela=3");
    Genera(r, Federal, "01/03/2024", "31/03/2024", Ingenieria);
    Caja(1, "No hay presupuesto", "No existe presupuesto vigente para esta dependencia en el rango de fechas indicado",
         ui::vbInformation);
    EXPECT_EQ(r.ListView1->ListItems().Count(), 0);
}

TEST_F(PruebaGastos, LasDosFormasDeFechaSonElMismoDia) {
    // 5 March: read month first by school and year first by source, a day that day-first reading would
    // take for 3 May.
    for (bool escuela : {false, true}) {
        globales::ReporteGastosPorEscuela = escuela;
        frmReporteGastosFuente r;
        r.Form_Load();
        Genera(r, Federal, "05/03/2024", "05/03/2024", escuela ? Ingenieria : -1);
        EXPECT_EQ(Renglones(r).size(), 1) << escuela;
        EXPECT_TRUE(Renglones(r).value(0).startsWith("002|2024/03/05|")) << escuela;
    }
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(PruebaGastos, ElDocumentoImpresoYLosBotones) {
    globales::ReporteGastosPorEscuela = false;
    frmReporteGastosFuente r;
    r.Form_Load();
    Genera(r, Federal, "01/03/2024", "31/03/2024");
    r.cmdImprimir_Click();
    EXPECT_TRUE(r.frameDatos->isHidden() && r.cmdDesgloce->isHidden() && !r.picBrowser->isHidden());
    const QString html = r.WebBrowser1->DocumentHtml();
    EXPECT_TRUE(html.startsWith("<HTML><HEAD><STYLE>@page {size: 8.5in 11in auto; margin: 0.5in}.AreadeFirmas {"));
    EXPECT_TRUE(html.contains(".relleno {background-color: lightgrey; border: solid black 1px; height: 10px;  font-weight:bold;}"
                              "</STYLE></HEAD><BODY><center><h3>Reporte de gastos por fuente de financiamiento</h3></center>"));
    EXPECT_TRUE(html.contains("<td>Institución: <b>Universidad del Norte</b><br/> Fuente de financiamiento: <b> Federal</b><br/>"
                              "Presupuesto asignado: <b>$10,000.00</b><br/>  Monto disponible: <b> $9,000.00</b> al "
                              "01-mar-2024</td></tr></table><p/>"));
    EXPECT_TRUE(html.contains("<td  class='relleno'>Concepto</td><td  class='relleno'>Proveedor</td>"));
    EXPECT_EQ(html.count("<tr><td>2024/03/"), 3);   // one row a payment
    EXPECT_TRUE(html.contains("<tr><td>2024/03/22</td><td>Concepto 4</td><td>Papelería</td><td align='right'>"));
    EXPECT_TRUE(html.contains("<td align='right'>$8,349.76</td></tr><tr><td colspan='3' align='right'>Totales: </td>"
                              "<td class='relleno' align='right'>$650.24</td><td align='right' class='relleno'>$8,349.76"
                              "</td></tr></table></center><p/>&nbsp;<p/>&nbsp;<p/><div align='right'>Generado el "));
    EXPECT_TRUE(html.endsWith(" con KORVEL8</div></BODY></HTML>"));

    // The second press prints; a cancelled dialog is no failure, a printer's error is told.
    auto* vista = static_cast<ui::VistaHtmlPrueba*>(r.WebBrowser1.get());
    r.cmdImprimir_Click();
    EXPECT_EQ(vista->impresiones, 1);
    struct VistaQueFalla : ui::VistaHtmlPrueba {
        int numero;
        VistaQueFalla(QWidget* p, ui::PlataformaPrueba* s, int n) : VistaHtmlPrueba(p, s), numero(n) {}
        bool Imprimir(bool) override { throw vb::Error(numero, "Error de impresora"); }
    };
    r.WebBrowser1 = std::make_unique<VistaQueFalla>(&r, sistema, static_cast<int>(0x80040100u));
    r.cmdImprimir_Click();
    EXPECT_TRUE(sistema->cajas.empty());
    r.WebBrowser1 = std::make_unique<VistaQueFalla>(&r, sistema, 482);
    r.cmdImprimir_Click();
    Caja(1, nullptr, "Error de impresora", ui::vbOKOnly);

    r.cmdRegresar_Click();
    EXPECT_TRUE(!r.frameDatos->isHidden() && !r.cmdDesgloce->isHidden() && r.picBrowser->isHidden());

    // By school the page names the school and heads the invoice column.
    globales::ReporteGastosPorEscuela = true;
    frmReporteGastosFuente e;
    e.Form_Load();
    Genera(e, Federal, "01/03/2024", "31/03/2024", Artes);
    e.GenerarReporteHTML();
    const QString porEscuela = e.WebBrowser1->DocumentHtml();
    EXPECT_TRUE(porEscuela.contains("<center><h3>Reporte de gastos por escuela</h3></center><center><h4>Artes</h4></center>"));
    EXPECT_TRUE(porEscuela.contains("Proveedor</td><td  class='relleno'>Núm. factura</td>"));
    EXPECT_TRUE(porEscuela.contains("<td>2024/03/20</td><td>Libros SA</td><td>C-3</td>"));
}

TEST_F(PruebaGastos, LaFechaFinalTomaHoyYLosComandosAbrenElReporte) {
    globales::ReporteGastosPorEscuela = false;
    frmReporteGastosFuente r;
    r.Form_Load();
    r.txtFechaFinal_GotFocus();
    EXPECT_EQ(r.txtFechaFinal->text(), vb::Format(vb::Variant(vb::Fecha::Today()), "dd-mmm-yyyy"));
    r.txtFechaFinal->setText("15/03/2024");
    r.txtFechaFinal_GotFocus();
    EXPECT_EQ(r.txtFechaFinal->text(), "15/03/2024");

    finanzas::RegistraComandos();
    QStringList vistos;
    sistema->AlMostrar("frmReporteGastosFuente", [&](QDialog& d) {
        auto& p = static_cast<frmReporteGastosFuente&>(d);
        vistos << p.windowTitle() + (p.cboEscuela->isHidden() ? "" : " +escuela");
    });
    FormPrincipal principal;
    principal.Ejecuta("menuReporteGastosEscuela");
    principal.Ejecuta("menuReporteGastosFuente");
    EXPECT_EQ(vistos, (QStringList{"Reporte de gastos por escuela +escuela", "Reporte de Gastos por Fuente de Financiamiento"}));
}

}  // namespace
