// Settling a payment request and undoing it: the balances of the projects and of the source, every ledger
// row, the request's state and dates, the two summaries as the analyst reads them, the refusal of a project
// without money enough, and what stays written when a statement fails halfway.
#include "ayuda_finanzas.h"

#include "core/vb/Fecha.h"
#include "finance/pagoFacturasSaldar.h"

#include <QLabel>
#include <QPushButton>
#include <QTextEdit>

namespace {

const QString nombreLargo = "Fortalecimiento del acervo de la Facultad de Ingeniería Civil";
const QString intro = "El estado financiero de los proyectos involucrados es:\r\n";

class PruebaSaldar : public PruebaFinanzas {
protected:
    void SetUp() override {
        PruebaFinanzas::SetUp();
        mascaraFecha = "yyyy/mm/dd hh:nn:ss";
        Ejecuta("INSERT INTO adqFinanciamiento (Nombre, MontoTotal, FechaCaptura, MontoAsignadoDisponible, UltimoMovimiento, "
                "MontoXAsignar, IdCapturista) VALUES ('Federal', 10000, #2024/01/10#, 10000, #2024/01/10#, 0, 'ana')");
        Ejecuta("INSERT INTO adqSaldoFinanciamientos VALUES (1, #2024/01/10#, 10000, 0, '+ADDFinan', 'ana')");
        Proyecto(nombreLargo, 3, "5000");
        Proyecto("Artes", 4, "123456789012.5");
        Solicitud(7, "1750.25");
        Factura(7, 1, "A-1", "1000");
        Factura(7, 2, "B-7", "250");
        Factura(7, 1, "A-2", "500.25");
    }
    void Proyecto(const QString& nombre, int escuela, const char* total) {
        Ejecuta(QStringLiteral("INSERT INTO adqProyectos (Nombre, Responsable, IdEscuela, FuenteFinanciamiento, TotalAsignado, "
                               "MontoDisponible, UltimoMovimiento, IdCapturista, IdFinanciamiento) VALUES ('%1', 'r', %2, "
                               "'Federal', %3, %3, #2024/02/01#, 'ana', 1)").arg(nombre).arg(escuela).arg(QLatin1String(total)));
    }
    void Solicitud(int id, const char* monto) {
        Ejecuta(QStringLiteral("INSERT INTO PagoFacturasGral (IdPagoFactura, FuenteFinanciamiento, IdProveedor, Monto, Concepto, "
                               "FechaSolicitud, IdCapturista, Estado, IdFinanciamiento) VALUES (%1, 'Federal', 1, %2, "
                               "'Libros', #2024/03/01#, 'ana', 'S', 1)").arg(id).arg(QLatin1String(monto)));
    }
    void Factura(int pago, int proyecto, const char* numero, const char* monto) {
        Ejecuta(QStringLiteral("INSERT INTO PagoFacturasDetalle (IdPagoFactura, IdProyecto, NoFactura, MontoFactura) "
                               "VALUES (%1, %2, '%3', %4)").arg(pago).arg(proyecto).arg(QLatin1String(numero), QLatin1String(monto)));
    }
    // The payment globals as the request's screen leaves them, and the form opened over them.
    void Abre(pagoFacturasSaldar& s, long id, const char* monto, bool pagado, const vb::Fecha& fechaPago = vb::Fecha()) {
        globales::IdPagoActual = id;
        globales::IdFinanciamientoPago = 1;
        globales::MontoPago = *vb::Currency::parse(QString::fromUtf8(monto));
        globales::ObservacionesPago = "nota previa";
        globales::PagoSaldado = pagado;
        globales::FechaPagoActual = fechaPago;
        s.Form_Load();
        s.show();
    }
    QStringList Proyectos() { return Filas("SELECT MontoDisponible, UltimoMovimiento FROM adqProyectos ORDER BY IdProyecto"); }
    QString Fuente() { return Filas("SELECT MontoAsignadoDisponible, UltimoMovimiento FROM adqFinanciamiento").value(0); }
    QStringList LibroProyectos(const char* operacion) {
        return Filas(QStringLiteral("SELECT IdEscuela, IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista "
                                    "FROM adqSaldoProyectos WHERE Operacion LIKE '%1*' ORDER BY IdEscuela").arg(QLatin1String(operacion)));
    }
    QStringList LibroFuente() {
        return Filas("SELECT IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista FROM "
                     "adqSaldoFinanciamientos ORDER BY " ORDEN_DEL_LIBRO);
    }
    QString Pedido(int id) {
        return Filas(QStringLiteral("SELECT Estado, Observaciones, FechaMod, FechaPago, IdCapMod FROM PagoFacturasGral WHERE "
                                    "IdPagoFactura=%1").arg(id)).value(0);
    }
    // A date-and-time text taken between two readings of the clock, to the minute, in the given mask.
    static bool EntreMinutos(const QString& texto, const QString& mascara, const vb::Fecha& antes, const vb::Fecha& despues) {
        for (const vb::Fecha& f : {antes, despues}) if (texto == vb::Format(vb::Variant(f), mascara)) return true;
        return false;
    }
    // The form shows the default failure of error `numero` and stays open.
    void Falla(const pagoFacturasSaldar& s, int numero) {
        ASSERT_FALSE(sistema->cajas.empty());
        EXPECT_EQ(sistema->UltimaCaja().flags, ui::vbCritical);
        EXPECT_TRUE(sistema->UltimaCaja().texto.startsWith(QStringLiteral("Se produjo el error %1\r\n").arg(numero)))
            << sistema->UltimaCaja().texto.toStdString();
        EXPECT_TRUE(s.isVisible());
    }
};

TEST_F(PruebaSaldar, PagoDeDosEscuelasConSuResumenAlineado) {
    pagoFacturasSaldar s;
    Abre(s, 7, "1750.25", false);
    EXPECT_EQ(s.windowTitle(), "Saldar las facturas del pago 007");
    EXPECT_EQ(s.lblMonto->text(), "$1,750.25");
    EXPECT_EQ(s.txtFechaPago->text(), vb::Format(vb::Variant(vb::Fecha::Today()), "dd-mmm-yyyy"));
    EXPECT_EQ(s.txtObservaciones->toPlainText(), "nota previa");
    EXPECT_TRUE(s.lblSinPago->isVisible() && !s.lblEstado->isVisible());
    EXPECT_TRUE(s.cmdCargarPago->isEnabled() && !s.cmdDeshacerPago->isEnabled() && s.txtFechaPago->isEnabled());

    s.txtFechaPago->setText("15-mar-2024");
    s.txtObservaciones->setPlainText("Cheque 114");
    globales::LoginAnalista = "beto";
    const vb::Fecha antes = vb::Fecha::Now();
    s.cmdCargarPago->click();
    const vb::Fecha despues = vb::Fecha::Now();

    // Long names are cut at 40 and amounts longer than the column lose their left end; shorter ones are
    // filled with dashes. The projects come sorted by name, as the distinct rows of the query are.
    Caja(1, "El pago se realizó con éxito", intro + QString(67, u'=') + "\r\n" +
             "Proyecto                                    Monto Asignado            Disponible\r\n" + QString(96, u'-') + "\r\n"
             "Artes-----------------------------------23,456,789,012.5023,456,788,762.50\r\n"
             "Fortalecimiento del acervo de la Faculta--------$5,000.00--------$3,499.75\r\n" + QString(67, u'='),
         ui::vbInformation);
    EXPECT_FALSE(s.isVisible());
    EXPECT_EQ(globales::ObservacionesPago, "'Cheque 114'");

    EXPECT_EQ(Proyectos(), (QStringList{"3499.75|2024/03/15 00:00:00", "123456788762.5|2024/03/15 00:00:00"}));
    EXPECT_EQ(Fuente(), "8249.75|2024/03/15 00:00:00");
    EXPECT_EQ(LibroFuente(), (QStringList{"1|2024/01/10 00:00:00|10000|0|+ADDFinan|ana",
                                          "1|2024/03/15 00:00:00|-1750.25|0|-SALDpag|beto"}));
    // The project rows carry the day typed with the present time, to the minute.
    QStringList cargos = LibroProyectos("-CARG");
    for (QString& c : cargos) {
        QStringList x = c.split(u'|');
        EXPECT_TRUE(EntreMinutos(x[2], "2024/03/15 hh:nn:00", antes, despues)) << x[2].toStdString();
        x[2] = u'@';
        c = x.join(u'|');
    }
    EXPECT_EQ(cargos, (QStringList{"3|1|@|-1500.25|0|-CARG 0007|beto", "4|1|@|-250|0|-CARG 0007|beto"}));
    // FechaMod is today at midnight; FechaPago the day typed with the clock of now.
    const QStringList p = Pedido(7).split(u'|');
    EXPECT_EQ((QStringList{p[0], p[1], p[2], p[4]}),
              (QStringList{"P", "Cheque 114", vb::Format(vb::Variant(vb::Fecha::Today()), mascaraFecha), "beto"}));
    EXPECT_TRUE(EntreMinutos(p[3].left(16), "2024/03/15 hh:nn", antes, despues)) << p[3].toStdString();

    // Undoing, where the invoices carry a school of their own: the row query names IdEscuela of both tables
    // and stops there, after the request and the project balances were changed.
    pagoFacturasSaldar d;
    Abre(d, 7, "1750.25", true, vb::Fecha(QDate(2024, 3, 15), QTime(10, 20, 30)));
    EXPECT_EQ(d.lblEstado->text(), "Solicitud pagada: El pago fue realizado el  15-mar-2024");
    EXPECT_EQ(d.txtFechaPago->text(), "15-mar-2024");
    EXPECT_TRUE(d.lblEstado->isVisible() && !d.lblSinPago->isVisible());
    EXPECT_TRUE(!d.cmdCargarPago->isEnabled() && d.cmdDeshacerPago->isEnabled() && !d.txtFechaPago->isEnabled());
    sistema->cajas.clear();
    d.cmdDeshacerPago->click();
    ASSERT_EQ(sistema->cajas.size(), 2u);
    Falla(d, 3079);
    EXPECT_EQ(Pedido(7).section(u'|', 0, 1), "S|nota previa");
    EXPECT_EQ(Proyectos(), (QStringList{"5000|2024/03/15 00:00:00", "123456789012.5|2024/03/15 00:00:00"}));
    EXPECT_TRUE(LibroProyectos("+").isEmpty());
    EXPECT_EQ(Fuente(), "8249.75|2024/03/15 00:00:00");
}

TEST_F(PruebaSaldar, DeshacerDevuelveCadaSaldoConOtroRenglon) {
    // An older table of invoices, without the school column.
    Ejecuta("DROP TABLE PagoFacturasDetalle");
    Ejecuta("CREATE Table PagoFacturasDetalle(IdFacturaItem COUNTER CONSTRAINT PK_IdFacturaItem PRIMARY KEY, IdPagoFactura "
            "LONG, IdProyecto LONG, NoFactura TEXT(20), MontoFactura CURRENCY, Observaciones MEMO, FechaCaptura DATETIME, "
            "FechaMod DATETIME, IdCapturista TEXT(10), IdCapMod TEXT(10) )");
    Ejecuta("UPDATE adqProyectos SET Nombre='Ingeniería', TotalAsignado=5000, MontoDisponible=5000");
    Factura(7, 1, "A-1", "1000");
    Factura(7, 2, "B-7", "250");
    Factura(7, 1, "A-2", "500.25");
    pagoFacturasSaldar s;
    Abre(s, 7, "1750.25", false);
    s.txtFechaPago->setText("15-mar-2024");
    s.cmdCargarPago->click();
    ASSERT_EQ(sistema->cajas.size(), 1u);

    pagoFacturasSaldar d;
    Abre(d, 7, "1750.25", true, vb::Fecha(QDate(2024, 3, 15), QTime(10, 20, 30)));
    sistema->Responde({ui::vbNo});
    d.cmdDeshacerPago->click();
    EXPECT_EQ(sistema->beeps, 1);
    Caja(2, "Confirmación para deshacer el pago",
         "La opción para deshacer el pago afectará los movimientos registrados\r\ny por lo tanto el dinero disponible para "
         "cada proyecto que esté relacionado...\r\n\r\n¿Está seguro en deshacer el pago? ",
         ui::vbQuestion + ui::vbYesNo);
    EXPECT_EQ(Pedido(7).left(2), "P|");

    d.txtObservaciones->clear();
    const vb::Fecha antes = vb::Fecha::Now();
    d.cmdDeshacerPago->click();
    const vb::Fecha despues = vb::Fecha::Now();
    Caja(4, "El pago se deshizo con éxito",
         intro + QString(74, u'-') + "\r\nProyecto                      Monto Asignado            Disponible\r\n" +
             QString(74, u'-') + "\r\nIngeniería\t$5,000.00\t$5,000.00\r\nIngeniería\t$5,000.00\t$5,000.00\r\n" +
             QString(74, u'-'), ui::vbInformation);
    EXPECT_FALSE(d.isVisible());
    EXPECT_EQ(globales::ObservacionesPago, "NULL");

    // Undone at the paid day's midnight, with rows of the other sign beside the charges.
    EXPECT_EQ(Proyectos(), (QStringList{"5000|2024/03/15 00:00:00", "5000|2024/03/15 00:00:00"}));
    EXPECT_EQ(LibroProyectos("+DESHACpag"), (QStringList{"3|1|2024/03/15 00:00:00|1500.25|0|+DESHACpag|ana",
                                                         "4|1|2024/03/15 00:00:00|250|0|+DESHACpag|ana"}));
    EXPECT_EQ(LibroProyectos("-CARG").size(), 2);
    EXPECT_EQ(Fuente(), "10000|2024/03/15 00:00:00");
    EXPECT_EQ(LibroFuente(), (QStringList{"1|2024/01/10 00:00:00|10000|0|+ADDFinan|ana",
                                          "1|2024/03/15 00:00:00|1750.25|0|+DESHpag|ana",
                                          "1|2024/03/15 00:00:00|-1750.25|0|-SALDpag|ana"}));
    // FechaMod carries the clock of now; FechaPago is gone.
    const QStringList p = Pedido(7).split(u'|');
    EXPECT_EQ((QStringList{p[0], p[1], p[3], p[4]}), (QStringList{"S", "NULL", "NULL", "ana"}));
    EXPECT_TRUE(EntreMinutos(p[2].left(16), "yyyy/mm/dd hh:nn", antes, despues)) << p[2].toStdString();
}

TEST_F(PruebaSaldar, UnProyectoSinDineroBastanteDetieneElPago) {
    Ejecuta("UPDATE adqProyectos SET MontoDisponible=249.99 WHERE IdProyecto=2");
    pagoFacturasSaldar s;
    Abre(s, 7, "1750.25", false);
    s.cmdCargarPago->click();
    Caja(1, "Imposible realizar el pago",
         "Se ha detectado que el total de las facturas por pagar ($250.00) para 'Artes' es mayor que la cantidad de "
         "recursos disponibles para este proyecto ($249.99), por lo que no se puede realizar esta operación.\r\n\r\n"
         "Será necesario que verifique sus facturas y elimine aquellas que excedan el Monto Disponible del proyecto",
         ui::vbCritical);
    EXPECT_FALSE(s.cmdCargarPago->isEnabled());
    EXPECT_TRUE(s.isVisible());
    EXPECT_EQ(Proyectos(), (QStringList{"5000|2024/02/01 00:00:00", "249.99|2024/02/01 00:00:00"}));
    EXPECT_EQ(Pedido(7).left(2), "S|");
    EXPECT_EQ(Cuenta("adqSaldoProyectos") + Cuenta("adqSaldoFinanciamientos"), 1);

    // Exactly what is left passes.
    Ejecuta("UPDATE adqProyectos SET MontoDisponible=250 WHERE IdProyecto=2");
    pagoFacturasSaldar t;
    Abre(t, 7, "1750.25", false);
    t.cmdCargarPago->click();
    EXPECT_EQ(sistema->cajas.back().titulo, "El pago se realizó con éxito");
    EXPECT_EQ(Proyectos()[1], "0|" + vb::Format(vb::Variant(vb::Fecha::Today()), mascaraFecha));
    EXPECT_EQ(Pedido(7).left(2), "P|");
}

TEST_F(PruebaSaldar, UnaSentenciaQueFallaDejaLoQueYaCorrio) {
    // A quote in the remarks breaks the request's statement: the projects are already charged.
    pagoFacturasSaldar s;
    Abre(s, 7, "1750.25", false);
    s.txtFechaPago->setText("15-mar-2024");
    s.txtObservaciones->setPlainText("Pago de l'Artes");
    s.cmdCargarPago->click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->UltimaCaja().flags, ui::vbCritical);
    EXPECT_TRUE(s.isVisible());
    EXPECT_EQ(Proyectos(), (QStringList{"3499.75|2024/03/15 00:00:00", "123456788762.5|2024/03/15 00:00:00"}));
    EXPECT_EQ(Pedido(7).left(2), "S|");
    EXPECT_EQ(Cuenta("adqSaldoProyectos") + Cuenta("adqSaldoFinanciamientos"), 1);

    // A request without invoices has no first row to go back to: nothing is written.
    Solicitud(8, "0");
    pagoFacturasSaldar v;
    Abre(v, 8, "0", false);
    sistema->cajas.clear();
    v.cmdCargarPago->click();
    Falla(v, 3021);
    EXPECT_EQ(Pedido(8).left(2), "S|");
    EXPECT_EQ(Cuenta("adqSaldoProyectos") + Cuenta("adqSaldoFinanciamientos"), 1);

    // A request numbered 10000 or more makes an operation code longer than its column: the ledger refuses it
    // after the request was marked paid and the project charged.
    Solicitud(12345, "10");
    Factura(12345, 1, "C-1", "10");
    pagoFacturasSaldar g;
    Abre(g, 12345, "10", false);
    sistema->cajas.clear();
    g.cmdCargarPago->click();
    Falla(g, 3163);
    EXPECT_EQ(Pedido(12345).left(2), "P|");
    EXPECT_EQ(Proyectos()[0].left(8), "3489.75|");
    EXPECT_EQ(Cuenta("adqSaldoProyectos") + Cuenta("adqSaldoFinanciamientos"), 1);
    EXPECT_EQ(Fuente(), "10000|2024/01/10 00:00:00");
}

}  // namespace
