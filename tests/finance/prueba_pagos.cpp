// Payment requests and their invoices: the numbering and the two statements of the general data, the page of
// the chosen request, which buttons stand enabled, deletion, the list of pending requests; the invoices'
// projects, the check of the purchase request, the four statements of an invoice and the sum written into
// the request whenever the breakdown unloads.
#include "ayuda_finanzas.h"

#include "core/controles/ComboBox.h"
#include "core/controles/Colores.h"
#include "core/vb/Fecha.h"
#include "finance/pagoFacturasDetalle.h"
#include "finance/pagoFacturasGral.h"
#include "finance/pagoFacturasMain.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {

class PruebaPagos : public PruebaFinanzas {
protected:
    void SetUp() override {
        PruebaFinanzas::SetUp();
        mascaraFecha = "yyyy/mm/dd";
        globales::PagoModifica = globales::PagoGrabado = globales::PagoSaldado = globales::PagoDesdeReporte = false;
        globales::IdPagoActual = 0;
        globales::FuentePago.clear();
        Ejecuta("INSERT INTO adqFinanciamiento (Nombre, MontoTotal) VALUES ('Federal', 10000)");
        Ejecuta("INSERT INTO adqFinanciamiento (Nombre, MontoTotal) VALUES ('Estatal', 5000)");
        Ejecuta("INSERT INTO Proveedores ([No], Empresa) VALUES (1, 'Librería Sur')");
        Ejecuta("INSERT INTO Proveedores ([No], Empresa) VALUES (2, 'Papelera Norte')");
        // Projects 1 and 2 of the federal source, 3 of the state one.
        for (const auto& [nombre, escuela, fuente] : {std::tuple{"Lab Ingeniería", 3, 1}, {"Taller Artes", 4, 1}, {"Clínica", 5, 2}})
            Ejecuta(QStringLiteral("INSERT INTO adqProyectos (Nombre, IdEscuela, IdFinanciamiento, TotalAsignado) VALUES ('%1', %2, %3, 1000)")
                        .arg(QString::fromUtf8(nombre)).arg(escuela).arg(fuente));
    }
    static QString Hoy() { return vb::Format(vb::Variant(vb::Fecha::Today()), "yyyy/mm/dd"); }
    void Pago(int id, const char* estado, const char* monto, int fuente = 1, const char* pago = "NULL") {
        Ejecuta(QStringLiteral("INSERT INTO PagoFacturasGral (IdPagoFactura, FuenteFinanciamiento, IdProveedor, Monto, Concepto, "
                               "FechaSolicitud, FechaPago, Estado, IdFinanciamiento) VALUES (%1, '%2', 1, %3, 'Libros %1', "
                               "#2024/03/05#, %4, '%5', %6)")
                    .arg(id).arg(fuente == 1 ? "Federal" : "Estatal").arg(QLatin1String(monto)).arg(QLatin1String(pago))
                    .arg(QLatin1String(estado)).arg(fuente));
    }
    void Factura(int pago, int proyecto, const char* numero, const char* monto) {
        Ejecuta(QStringLiteral("INSERT INTO PagoFacturasDetalle (IdPagoFactura, IdProyecto, NoFactura, MontoFactura) VALUES (%1, %2, '%3', %4)")
                    .arg(pago).arg(proyecto).arg(QLatin1String(numero)).arg(QLatin1String(monto)));
    }
    QString Monto(int pago) { return Valor(QStringLiteral("SELECT Monto FROM PagoFacturasGral WHERE IdPagoFactura=%1").arg(pago)); }
    // A breakdown of request `pago`, loaded as the list screen loads it.
    void Desgloce(pagoFacturasDetalle& d, long pago, const char* fuente = "1") {
        globales::IdPagoActual = pago;
        globales::FuentePago = QString::fromLatin1(fuente);
        d.Form_Load();
    }
    static void Elige(pagoFacturasMain& m, int fila) {
        m.ListView1->ListItems()(fila).setSelected(true);
        m.ListView1_ItemClick(&m.ListView1->ListItems()(fila));
    }
};

TEST_F(PruebaPagos, CapturaNumeraGrabaYCambiaLaSolicitud) {
    {
        pagoFacturasGral g;
        g.Form_Load();
        EXPECT_EQ(globales::IdPagoActual, 1);
        EXPECT_EQ(g.txtClave->text(), "001");
        EXPECT_EQ(g.windowTitle(), "Captura de nuevo pago de facturas");
        EXPECT_EQ(g.txtFechaSol->text(), vb::Format(vb::Variant(vb::Fecha::Today()), "dd/mmm/yyyy"));
        // Sources in the order of their names: "002 - Estatal", "001 - Federal".
        g.cboFinanciamiento->setListIndex(1);
        g.txtIdProveedor->setText("2");
        EXPECT_EQ(g.cboProveedores->ListIndex(), 1);
        g.cboProveedores->setListIndex(0);
        EXPECT_EQ(g.txtIdProveedor->text(), "1");
        Teclea(g.txtIdProveedor, "x2");
        EXPECT_EQ(g.txtIdProveedor->text(), "12");
        g.txtIdProveedor->setText("2");
        g.txtFechaSol->setText("05/03/2024");
        g.txtConcepto->setText("Libros de texto");
        g.txtObservaciones->setText("urgente");
        g.cmdAceptar_Click();
        Caja(1, nullptr, "Registro guardado con éxito...", ui::vbOKOnly);
    }
    EXPECT_TRUE(globales::PagoGrabado);
    EXPECT_EQ(Filas("SELECT * FROM PagoFacturasGral"),
              QStringList{"1|Federal|2|NULL|Libros de texto|urgente|2024/03/05|NULL|NULL|ana|NULL|S|1"});

    pagoFacturasGral siguiente;
    siguiente.Form_Load();
    EXPECT_EQ(siguiente.txtClave->text(), "002");

    // A change: every field written again, empty dates as Null, the analyst as the one who changed it.
    Ejecuta("UPDATE PagoFacturasGral SET Monto=1234.5, FechaPago=#2024/04/01# WHERE IdPagoFactura=1");
    globales::PagoModifica = true;
    globales::IdPagoActual = 1;
    globales::LoginAnalista = "beto";
    sistema->cajas.clear();
    pagoFacturasGral c;
    c.Form_Load();
    EXPECT_EQ((QStringList{c.txtClave->text(), c.txtFechaSol->text(), c.cboFinanciamiento->Text(), c.cboProveedores->Text(),
                           c.lblMonto->text(), c.txtFechaPago->text()}),
              (QStringList{"001", "05/mar/2024", "001 - Federal", "002 - Papelera Norte", "$1,234.50", "01/abr/2024"}));
    c.cboFinanciamiento->setListIndex(0);
    c.txtFechaPago->clear();
    c.txtConcepto->setText("Revistas");
    c.cmdAceptar_Click();
    Caja(1, nullptr, "Registro actualizado con éxito...", ui::vbOKOnly);
    EXPECT_EQ(Filas("SELECT * FROM PagoFacturasGral"),
              QStringList{"1|Estatal|2|1234.5|Revistas|urgente|2024/03/05|NULL|" + Hoy() + "|ana|beto|S|2"});

    // A quote breaks the statement: the program's failure box, nothing written, the screen not left as saved.
    globales::PagoGrabado = false;
    sistema->cajas.clear();
    pagoFacturasGral q;
    q.Form_Load();
    q.txtConcepto->setText("Libros d'arte");
    q.cmdAceptar->click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbCritical);
    EXPECT_TRUE(sistema->cajas[0].texto.startsWith("Se produjo el error "));
    EXPECT_FALSE(globales::PagoGrabado);
    EXPECT_EQ(Valor("SELECT Concepto FROM PagoFacturasGral"), "Revistas");

    // The suppliers' catalog refills the combo with its own texts; the row last clicked there is the one taken.
    pagoFacturasGral b;
    b.Form_Load();
    sistema->AlMostrar("CatalogoSimple", [](QDialog&) { globales::NoCuentaSeleccionada = "2"; });
    b.cmdBrowseProveedores_Click();
    EXPECT_EQ(sistema->modales.back(), "CatalogoSimple");
    EXPECT_EQ(b.txtIdProveedor->text(), "2");
    EXPECT_EQ(b.cboProveedores->Text(), "2 Papelera Norte");
}

TEST_F(PruebaPagos, ListaPaginaBotonesYSoloPendientes) {
    {
        pagoFacturasMain vacio;
        vacio.Form_Load();
        EXPECT_EQ(vacio.lblTotal->text(), "Pedidos de facturas encontrados: 0");
        EXPECT_TRUE(vacio.cmdNuevoPago->isEnabled());
        for (QPushButton* b : {vacio.cmdModificarPago, vacio.cmdBorrarPago, vacio.cmdDesglocePagos, vacio.cmdSaldarPago,
                               vacio.cmdImprimirPago}) EXPECT_FALSE(b->isEnabled()) << b->objectName().toStdString();
        EXPECT_EQ(UltimoDocumento(),
                  "<HTML><HEAD><STYLE type='text/css'>table {font-family:tahoma, verdana, arial;font-size:8pt;} .td1 "
                  "{font-weight:bold; text-align:right;}</STYLE></HEAD><BODY leftmargin=20 topmargin=5 marginwidth=0 "
                  "marginheight=0><TABLE border=0 cellspacing=1><tr><td class=td1><b>No hay solicitudes de pago "
                  "disponibles</b></td></tr></table></body></html>");
    }
    Pago(1, "P", "1234.5", 1, "#2024/04/01#");
    Pago(2, "S", "NULL", 2);
    Pago(3, "S", "0", 1);
    pagoFacturasMain m;
    m.Form_Load();
    EXPECT_EQ(m.lblTotal->text(), "Pedidos de facturas encontrados: 3");
    EXPECT_EQ(m.IdPago(), 1);
    EXPECT_FALSE(m.cmdSaldarPago->isEnabled());
    const QString pagina = UltimoDocumento();
    EXPECT_TRUE(pagina.contains("<TABLE border=0 cellspacing=1><tr><td class=td1>Clave de pago: </td><td>001</td><td>&nbsp;"
                                "<b>PAGADO</b></td></tr><tr><td class=td1>Financiamiento: </td><td>Federal</td></tr><tr><td "
                                "class=td1>Cliente/Proveedor: </td><td>Librería Sur</td></tr><tr><td class=td1>Cantidad a "
                                "pagar: </td><td>$1,234.50</td></tr><tr><td class=td1>Fecha de solicitud: </td><td>05/mar/2024"
                                "</td></tr><tr><td class=td1>Fecha de pago: </td><td>01/abr/2024</td></tr><tr><td class=td1>"
                                "Concepto: </td><td>Libros 1</td></tr></table></body></html>")) << pagina.toStdString();

    // Settling needs invoices that add up to something.
    Elige(m, 2);
    EXPECT_EQ(globales::IdPagoActual, 2);
    EXPECT_TRUE(UltimoDocumento().contains("<font color=red><b>Pendiente de pago</b></font>"));
    EXPECT_TRUE(UltimoDocumento().contains("Fecha de pago: </td><td>-- sin pago --</td>"));
    EXPECT_FALSE(m.cmdSaldarPago->isEnabled());
    EXPECT_TRUE(m.cmdModificarPago->isEnabled() && m.cmdBorrarPago->isEnabled());
    Elige(m, 3);
    EXPECT_FALSE(m.cmdSaldarPago->isEnabled());
    Elige(m, 1);
    EXPECT_TRUE(m.cmdSaldarPago->isEnabled());

    m.Option2->setChecked(true);
    m.Option2_Click();
    EXPECT_EQ(Textos(*m.ListView1), (QStringList{"002", "003"}));
    EXPECT_EQ(m.lblTotal->text(), "Pedidos de facturas encontrados: 2");
    EXPECT_TRUE(UltimoDocumento().contains("Clave de pago: </td><td>002</td>"));

    // Settling hands the row to the settling form; a request paid meanwhile leaves the pending list, and the
    // list stands on its first row.
    Ejecuta("UPDATE PagoFacturasGral SET Monto=80.25, Observaciones='parcial' WHERE IdPagoFactura=3");
    m.Option2_Click();
    Elige(m, 2);
    Ejecuta("UPDATE PagoFacturasGral SET Estado='P' WHERE IdPagoFactura=3");
    m.cmdSaldarPago_Click();
    EXPECT_EQ(globales::MontoPago, vb::Currency::fromDouble(80.25));
    EXPECT_EQ(globales::IdFinanciamientoPago, 1);
    EXPECT_EQ(globales::ObservacionesPago, "parcial");
    EXPECT_FALSE(globales::PagoSaldado);
    EXPECT_EQ(Textos(*m.ListView1), QStringList{"002"});
    EXPECT_EQ(m.ListView1->SelectedItem()->Text(), "002");
    EXPECT_TRUE(UltimoDocumento().contains("Clave de pago: </td><td>002</td>"));
}

TEST_F(PruebaPagos, BorraLaSolicitudConSusFacturas) {
    Pago(1, "S", "100", 1);
    Pago(2, "P", "50", 1);
    Factura(2, 1, "F-1", "50");
    Factura(1, 1, "F-2", "100");
    pagoFacturasMain m;
    m.Form_Load();
    Elige(m, 2);
    sistema->Responde({ui::vbNo});
    m.cmdBorrarPago_Click();
    EXPECT_EQ(sistema->beeps, 1);
    Caja(1, "Confirmación de borrado de solicitud",
         "¿Está ud. seguro que desea borrar la solicitud de pago 2\r\njunto con todo el desgloce de sus facturas relacionadas?",
         ui::vbQuestion + ui::vbYesNo);
    EXPECT_EQ(Cuenta("PagoFacturasGral"), 2);

    // A paid request goes too.
    m.cmdBorrarPago_Click();
    Caja(3, "Borrado de solicitud", "Solicitud de pago 2 borrada con éxito", ui::vbInformation);
    EXPECT_EQ(Filas("SELECT IdPagoFactura FROM PagoFacturasGral"), QStringList{"1"});
    EXPECT_EQ(Filas("SELECT NoFactura FROM PagoFacturasDetalle"), QStringList{"F-2"});
    EXPECT_EQ(m.ListView1->SelectedItem()->Text(), "001");
    EXPECT_TRUE(UltimoDocumento().contains("Clave de pago: </td><td>001</td>"));

    m.cmdBorrarPago_Click();
    EXPECT_EQ(Cuenta("PagoFacturasGral"), 0);
    EXPECT_TRUE(UltimoDocumento().contains("No hay solicitudes de pago disponibles"));
}

TEST_F(PruebaPagos, DesgloceProyectosDeLaFuenteYAvisos) {
    Pago(1, "S", "NULL", 1);
    Factura(1, 3, "F-9", "1500.25");
    {
        pagoFacturasDetalle d;
        Desgloce(d, 1);
        EXPECT_EQ(d.cboProyectos->ListCount(), 2);
        EXPECT_EQ(d.cboProyectos->List(0), "001 - Lab Ingeniería");
        EXPECT_EQ(d.cboProyectos->ItemData(1), 4);
        EXPECT_EQ((QStringList{d.windowTitle(), d.frameLista->title(), d.lblMontoFacturas->text()}),
                  (QStringList{"Desgloce de facturas contenidas en el pago [001]", "1 facturas",
                               "   Total en facturas:   $1,500.25     "}));
        d.Form_Activate();
        EXPECT_TRUE(sistema->cajas.empty());
    }
    // The printed form hands a name: no project, but the invoices are all there.
    {
        pagoFacturasDetalle d;
        Desgloce(d, 1, "Federal");
        d.Form_Activate();
        Caja(1, "Desgloce de Facturas",
             "No se encontró ningún proyecto relacionado \r\ncon la fuente de financiamiento 'Federal'\r\n"
             "por lo que no podrá cargar ninguna factura para cobro.", ui::vbExclamation);
        EXPECT_FALSE(d.cmdNuevaFactura->isEnabled());
        EXPECT_EQ(d.Total(), vb::Currency::fromDouble(1500.25));
    }
    sistema->cajas.clear();
    globales::PagoSaldado = true;
    {
        pagoFacturasDetalle d;
        Desgloce(d, 1);
        d.Form_Activate();
        Caja(1, "Desgloce de Facturas",
             "Esta solicitud de pago ya ha sido saldada\r\npor lo que no se podrán hacer modificaciones.\r\n\r\n"
             "En caso de que requiera efectuar cambios en las facturas\r\nprimero tendrá que deshacer el pago en la opción "
             "de 'Saldar pago' ", ui::vbExclamation);
        EXPECT_TRUE(d.lblEstado->isVisibleTo(&d));
        d.ListView1_ItemClick(&d.ListView1->ListItems()(1));
        EXPECT_FALSE(d.cmdBorrarFactura->isEnabled());
    }
    // From the expense report no warning.
    sistema->cajas.clear();
    globales::PagoDesdeReporte = true;
    pagoFacturasDetalle r;
    Desgloce(r, 1);
    r.Form_Activate();
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(PruebaPagos, NumeroDeSolicitudValidadoContraLaEscuelaDelProyecto) {
    Pago(1, "S", "NULL", 1);
    Ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, NoEscuela) VALUES (10, 3)");
    Ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, NoEscuela) VALUES (11, 4)");
    pagoFacturasDetalle d;
    Desgloce(d, 1);
    d.cmdNuevaFactura_Click();
    d.cboProyectos->setListIndex(0);     // Lab Ingeniería, school 3
    d.txtNumFactura->setText("A-1");
    d.txtMontoFactura->setText("250");
    EXPECT_TRUE(d.cmdGrabarFactura->isEnabled());

    d.txtIDS->setText("11");
    EXPECT_TRUE(d.cmdValidarIDS->isEnabled());
    EXPECT_TRUE(d.lblNotaIDS->isVisibleTo(&d));
    EXPECT_FALSE(d.cmdGrabarFactura->isEnabled());
    d.cmdValidarIDS_Click();
    EXPECT_EQ(d.lblMessage->text(), "Verificar. No se encontro con este valor alguna solicitud asociada a este proyecto.");
    EXPECT_EQ(d.lblMessage->palette().color(QPalette::WindowText), controles::ColorVB(192));
    EXPECT_FALSE(d.cmdGrabarFactura->isEnabled());

    d.txtIDS->setText("10");
    EXPECT_TRUE(d.lblMessage->text().isEmpty());
    d.cmdValidarIDS_Click();
    EXPECT_EQ(d.lblMessage->text(), "Continuar. Valor aceptado de numero de solicitud");
    EXPECT_EQ(d.lblMessage->palette().color(QPalette::WindowText), controles::ColorVB(16711680));
    EXPECT_TRUE(d.cmdGrabarFactura->isEnabled());
    // A second change wants a new validation.
    d.txtIDS->setText("100");
    EXPECT_FALSE(d.cmdGrabarFactura->isEnabled());

    d.txtIDS->setText("-4");
    EXPECT_FALSE(d.cmdValidarIDS->isEnabled());
    d.cmdValidarIDS_Click();
    EXPECT_EQ(d.lblMessage->text(), "Corregir. No es un valor valido para el numero de una solicitud");
    EXPECT_EQ(d.lblMessage->palette().color(QPalette::WindowText), controles::ColorVB(192));
    EXPECT_TRUE(d.txtIDS->text().isEmpty());
    EXPECT_FALSE(d.cmdGrabarFactura->isEnabled());

    // The amount takes only digits and separators; zero or no number can't be saved.
    d.txtMontoFactura->clear();
    Teclea(d.txtMontoFactura, "1a2,5.0");
    EXPECT_EQ(d.txtMontoFactura->text(), "12,5.0");
    d.txtMontoFactura->setText("0.00");
    EXPECT_FALSE(d.cmdGrabarFactura->isEnabled());
}

TEST_F(PruebaPagos, GrabaFacturasConYSinLasColumnasDeSolicitud) {
    Pago(1, "S", "NULL", 1);
    Ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, NoEscuela) VALUES (10, 4)");
    {
        pagoFacturasDetalle d;
        Desgloce(d, 1);
        d.cmdNuevaFactura_Click();
        d.cboProyectos->setListIndex(1);     // Taller Artes, school 4
        d.txtNumFactura->setText("A-1");
        d.txtMontoFactura->setText("250.5");
        d.txtIDS->setText("10");
        d.cmdGrabarFactura_Click();
        Caja(1, "Captura de facturas", "Factura grabada con éxito", ui::vbInformation);
        d.cmdNuevaFactura_Click();
        d.cboProyectos->setListIndex(0);
        d.txtNumFactura->setText("A-2");
        d.txtMontoFactura->setText("100");
        d.cmdGrabarFactura_Click();
        EXPECT_TRUE(d.frameLista->isVisibleTo(&d) && !d.frameCaptura->isVisibleTo(&d));
        EXPECT_EQ(d.windowTitle(), "Desgloce de facturas contenidas en el pago 001");
        EXPECT_EQ(Filas("SELECT IdPagoFactura, IdProyecto, NoFactura, MontoFactura, FechaCaptura, IdCapturista, IdSolicitud, "
                        "IdEscuela FROM PagoFacturasDetalle ORDER BY 1"),
                  (QStringList{"1|2|A-1|250.5|" + Hoy() + "|ana|10|4", "1|1|A-2|100|" + Hoy() + "|ana|NULL|3"}));

        // A change of the first invoice; its amount comes back without separators.
        Ejecuta("UPDATE PagoFacturasDetalle SET MontoFactura=1250.5 WHERE IdFacturaItem=1");
        d.RefrescaListView();
        d.ListView1->ListItems()(1).setSelected(true);
        d.ListView1_ItemClick(&d.ListView1->ListItems()(1));
        d.cmdModificarFactura_Click();
        EXPECT_EQ(d.cboProyectos->ListIndex(), 1);
        EXPECT_EQ(d.txtMontoFactura->text(), "1250.50");
        d.cboProyectos->setListIndex(0);
        d.txtNumFactura->setText("A-1b");
        d.cmdGrabarFactura_Click();
        Caja(3, "Modificación de facturas", "Factura modificada con éxito", ui::vbInformation);
        EXPECT_EQ(Filas("SELECT IdProyecto, NoFactura, MontoFactura, FechaMod, IdSolicitud, IdEscuela FROM PagoFacturasDetalle "
                        "WHERE IdFacturaItem=1"), QStringList{"1|A-1b|1250.5|" + Hoy() + "|NULL|3"});
        EXPECT_EQ(d.Total(), vb::Currency::fromDouble(1350.5));
    }
    EXPECT_EQ(Monto(1), "1350.5");

    // A database never brought up to date has neither column.
    Ejecuta("ALTER TABLE PagoFacturasDetalle DROP COLUMN IdSolicitud");
    Ejecuta("ALTER TABLE PagoFacturasDetalle DROP COLUMN IdEscuela");
    sistema->cajas.clear();
    pagoFacturasDetalle d;
    Desgloce(d, 1);
    d.cmdNuevaFactura_Click();
    d.cboProyectos->setListIndex(0);
    d.txtNumFactura->setText("B-1");
    d.txtMontoFactura->setText("10");
    d.cmdGrabarFactura_Click();
    d.ListView1->ListItems()(3).setSelected(true);
    d.cmdModificarFactura_Click();
    d.txtMontoFactura->setText("20");
    d.cmdGrabarFactura_Click();
    ASSERT_EQ(sistema->cajas.size(), 2u);
    EXPECT_EQ(sistema->Textos(), (QStringList{"Factura grabada con éxito", "Factura modificada con éxito"}));
    EXPECT_EQ(Filas("SELECT NoFactura, MontoFactura FROM PagoFacturasDetalle WHERE IdFacturaItem=3"), QStringList{"B-1|20"});

    // An invoice goes without a question.
    d.ListView1->ListItems()(1).setSelected(true);
    d.cmdBorrarFactura_Click();
    EXPECT_EQ(Cuenta("PagoFacturasDetalle"), 2);
    EXPECT_EQ(d.frameLista->title(), "2 facturas");
}

TEST_F(PruebaPagos, ElMontoSeEscribeUnaVezAlDescargar) {
    Pago(1, "S", "NULL", 1);
    Pago(2, "S", "75", 1);
    Factura(1, 1, "F-1", "40");
    Factura(1, 2, "F-2", "2.5");
    {
        // Loaded and never shown, as for printing.
        pagoFacturasDetalle d;
        Desgloce(d, 1);
    }
    EXPECT_EQ(Monto(1), "42.5");
    {
        pagoFacturasDetalle d;
        Desgloce(d, 2);
        d.close();
        EXPECT_EQ(Monto(2), "0");
        // Once only: what happens after the unload is not written again.
        Ejecuta("UPDATE PagoFacturasGral SET Monto=5 WHERE IdPagoFactura=2");
    }
    EXPECT_EQ(Monto(2), "5");

    // From the list: the breakdown closes with no invoices left, and the request can't be settled.
    Factura(2, 1, "F-3", "5");
    pagoFacturasMain m;
    m.Form_Load();
    Elige(m, 2);
    EXPECT_TRUE(m.cmdSaldarPago->isEnabled());
    sistema->AlMostrar("pagoFacturasDetalle", [](QDialog& pantalla) {
        auto& d = static_cast<pagoFacturasDetalle&>(pantalla);
        d.ListView1->ListItems()(1).setSelected(true);
        d.cmdBorrarFactura_Click();
        d.cmdRegresar_Click();
    });
    m.cmdDesglocePagos_Click();
    EXPECT_EQ(globales::FuentePago, "01");
    EXPECT_EQ(Monto(2), "0");
    EXPECT_EQ(m.ListView1->SelectedItem()->Text(), "002");
    EXPECT_FALSE(m.cmdSaldarPago->isEnabled());

    // Printing hands the source's name and still writes the sum.
    Ejecuta("UPDATE PagoFacturasGral SET Monto=NULL WHERE IdPagoFactura=1");
    Elige(m, 1);
    m.cmdImprimirPago_Click();
    EXPECT_EQ(globales::FuentePago, "Federal");
    EXPECT_EQ(globales::ConceptoPago, "Libros 1");
    EXPECT_EQ(Monto(1), "42.5");
}

}  // namespace
