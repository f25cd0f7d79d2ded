// The donations by institution: the titles and copies of each donation of a period, the institution and
// library filters, same-named institutions and libraries kept apart, the order, dates that are no dates,
// the donation opened from the list, and the report page.
#include "ayuda_reportes.h"
#include "reports/frmReporteDonaciones.h"

#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "core/vb/Formato.h"
#include "workflow/Don1.h"
#include "workflow/Don_Generales.h"
#include "workflow/Registro.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

class PruebaReporteDonaciones : public PruebaPantallaReporte<frmReporteDonaciones> {
protected:
    void SetUp() override {
        PruebaReporte::SetUp();
        flujo::RegistraComandos();
        // Two institutions and two libraries share a name.
        Ejecuta("INSERT INTO Instituciones ([No], Nombre) VALUES (1, 'Fundación Sur')");
        Ejecuta("INSERT INTO Instituciones ([No], Nombre) VALUES (2, 'Fundación Sur')");
        Ejecuta("INSERT INTO Instituciones ([No], Nombre) VALUES (3, 'Embajada')");
        Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (1, 'Central')");
        Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (2, 'Central')");
        Ejecuta("INSERT INTO Bibliotecas ([No], Nombre) VALUES (3, 'Norte')");
        Donacion(10, "02/05/2024", 1, 1);
        Donacion(11, "02/05/2024", 2, 2);
        Donacion(12, "03/01/2024", 3, 3);
        Donacion(13, "02/10/2024", 3, 1);   // no titles: never counted
        Donacion(14, "12/31/2023", 1, 1);   // before the period
        Titulo(100, 10, 2);
        Titulo(101, 10, 3);
        Titulo(102, 11, 1);
        Titulo(103, 12, 4);
        Titulo(104, 12, 1);
        Titulo(105, 14, 7);
        Abre();
    }

    void Donacion(int no, const char* fecha, int institucion, int biblioteca) {
        Ejecuta(QStringLiteral("INSERT INTO [Donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca, [Donacion o "
                               "Intercambio]) VALUES (%1, #%2#, %3, %4, 'D')")
                    .arg(no).arg(QLatin1String(fecha)).arg(institucion).arg(biblioteca));
    }
    void Titulo(int clave, int donacion, int ejemplares) {
        Ejecuta(QStringLiteral("INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, Autor, Ejemplares, NoDonacion) "
                               "VALUES (%1, 'Obra %1', 'Autor', %2, %3)")
                    .arg(clave).arg(ejemplares).arg(donacion));
    }
    // February and March of 2024, in the order chosen (0 date, 1 institution, 2 library, 3 donation).
    int Busca(int orden = 3, const QString& desde = QStringLiteral("01/02/2024"),
              const QString& hasta = QStringLiteral("31/03/2024")) {
        pantalla->txtFecha1->setText(desde);
        pantalla->txtFecha2->setText(hasta);
        pantalla->cboOrdenar->setListIndex(orden);
        pantalla->cmdBuscar->click();
        return pantalla->ListView1->ListItems().Count();
    }
    // Each row as "<institution>|<titles>|<copies>|<library>|<date>|<donation>".
    QStringList Filas() const {
        QStringList r = ayuda_reportes::Columna(*pantalla->ListView1, 0);
        for (int c = 1; c <= 5; ++c) {
            const QStringList columna = ayuda_reportes::Columna(*pantalla->ListView1, c);
            for (qsizetype i = 0; i < r.size(); ++i) r[i] += u'|' + columna[i];
        }
        return r;
    }
    int Habilitados() const {
        return pantalla->cmdVerFicha->isEnabled() + pantalla->cmdImprimir->isEnabled() + pantalla->cmdGrabar->isEnabled();
    }
};

TEST_F(PruebaReporteDonaciones, AbreDesdeDonacionesConSusListas) {
    Don1 donaciones;
    donaciones.Form_Load();
    EXPECT_TRUE(donaciones.cmdReporte->isEnabled());
    donaciones.cmdReporte->click();
    EXPECT_EQ(sistema->modales, QStringList({"frmReporteDonaciones"}));

    EXPECT_EQ(pantalla->txtFecha2->text(), vb::Format(vb::Variant(vb::Fecha::Today()), QStringLiteral("dd/mm/yyyy")));
    QStringList donadoras, bibliotecas;
    for (int i = 0; i < pantalla->cboDonadora->count(); ++i) donadoras << pantalla->cboDonadora->List(i);
    for (int i = 0; i < pantalla->cboBiblio->count(); ++i) bibliotecas << pantalla->cboBiblio->List(i);
    EXPECT_EQ(donadoras, QStringList({" -- Todas las instituciones --", "003 - Embajada", "001 - Fundación Sur",
                                      "002 - Fundación Sur"}));
    EXPECT_EQ(bibliotecas, QStringList({" -- Todas las bibliotecas --", "001 - Central", "002 - Central", "003 - Norte"}));
    EXPECT_EQ(Habilitados(), 0);
    // Searching waits for both dates.
    EXPECT_FALSE(pantalla->cmdBuscar->isEnabled());
    pantalla->txtFecha1->setText(QStringLiteral("01/02/2024"));
    EXPECT_TRUE(pantalla->cmdBuscar->isEnabled());
}

TEST_F(PruebaReporteDonaciones, TitulosYEjemplaresPorDonacion) {
    EXPECT_EQ(Busca(), 3);
    // The same names stay two rows through the donation's number.
    EXPECT_EQ(Filas(), QStringList({"Fundación Sur|02|05|Central|2024/02/05|10", "Fundación Sur|01|01|Central|2024/02/05|11",
                                    "Embajada|02|05|Norte|2024/03/01|12"}));
    EXPECT_EQ(pantalla->Frame2->title(), QStringLiteral("Se encontraron 3 donacion(es)"));
    EXPECT_EQ(pantalla->cmdBuscar->text(), QStringLiteral("Nueva &búsqueda"));
    EXPECT_TRUE(pantalla->cmdVerFicha->isEnabled());
    EXPECT_TRUE(pantalla->cmdImprimir->isEnabled());
    EXPECT_FALSE(pantalla->cmdGrabar->isEnabled());
    EXPECT_TRUE(sistema->cajas.empty());

    // By institution: the embassy comes first.
    EXPECT_EQ(Busca(1), 3);
    EXPECT_TRUE(Filas().front().startsWith(QStringLiteral("Embajada|")));
    // The last day of the period counts whole.
    EXPECT_EQ(Busca(3, QStringLiteral("01/03/2024"), QStringLiteral("01/03/2024")), 1);
}

TEST_F(PruebaReporteDonaciones, FiltrosDeInstitucionYBiblioteca) {
    pantalla->cboBiblio->setListIndex(3);
    EXPECT_EQ(pantalla->BibliotecaElegida, 3);
    EXPECT_EQ(Busca(), 1);
    EXPECT_TRUE(Filas().front().endsWith(QStringLiteral("|12")));

    pantalla->cboBiblio->setListIndex(0);
    pantalla->cboDonadora->setListIndex(3);   // the second "Fundación Sur"
    EXPECT_EQ(pantalla->DonadoraElegida, 2);
    EXPECT_EQ(Busca(), 1);
    EXPECT_TRUE(Filas().front().endsWith(QStringLiteral("|11")));

    // Both filters at once: the first foundation gave nothing to the second "Central".
    pantalla->cboDonadora->setListIndex(2);
    pantalla->cboBiblio->setListIndex(2);
    EXPECT_EQ(Busca(), 0);
    EXPECT_EQ(Habilitados(), 0);
    EXPECT_EQ(pantalla->Frame2->title(), QStringLiteral("Se encontraron 0 donaciones"));
    EXPECT_EQ(pantalla->cmdBuscar->text(), QStringLiteral("&Buscar"));
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].texto, QStringLiteral("No se encontraron ejemplares con este criterio de búsqueda..."));
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("Listado de donaciones por institución"));
    pantalla->cboBiblio->setListIndex(1);
    EXPECT_EQ(Busca(), 1);
    EXPECT_TRUE(Filas().front().endsWith(QStringLiteral("|10")));
}

TEST_F(PruebaReporteDonaciones, PeriodoVacioYFechasQueNoSonFechas) {
    ASSERT_EQ(Busca(), 3);
    pantalla->cmdImprimir->click();
    EXPECT_EQ(Habilitados(), 3);
    // A period with a donation without titles and nothing else: the buttons go off.
    EXPECT_EQ(Busca(3, QStringLiteral("10/02/2024"), QStringLiteral("10/02/2024")), 0);
    EXPECT_EQ(Habilitados(), 0);
    EXPECT_EQ(sistema->cajas.size(), 1u);

    for (const QString& mala : {QStringLiteral("31/02/2024"), QStringLiteral("ayer"), QStringLiteral("'#|"), QString()}) {
        pantalla->txtFecha1->setText(mala);
        EXPECT_FALSE(pantalla->cmdBuscar->isEnabled()) << mala.toStdString();
        pantalla->cmdBuscar->click();
    }
    EXPECT_EQ(sistema->cajas.size(), 1u);
    pantalla->txtFecha1->setText(QStringLiteral("01/02/2024"));
    pantalla->txtFecha2->setText(QStringLiteral("2024"));
    EXPECT_FALSE(pantalla->cmdBuscar->isEnabled());
    // Run anyway, the statement fails in the program's failure box and the screen goes on.
    pantalla->txtFecha2->setText(QStringLiteral("no es fecha"));
    ui::Protegido(QStringLiteral("prueba"), [this] { pantalla->cmdBuscar_Click(); });
    ASSERT_EQ(sistema->cajas.size(), 2u);
    EXPECT_EQ(sistema->cajas[1].flags & ui::vbCritical, ui::vbCritical);
    EXPECT_EQ(Habilitados(), 0);
    EXPECT_EQ(Busca(), 3);
}

TEST_F(PruebaReporteDonaciones, MostrarDonacionVuelveABuscarYSeleccionaLaDonacion) {
    ASSERT_EQ(Busca(), 3);
    pantalla->ListView1->ListItems()(3).setSelected(true);
    sistema->AlMostrar(QStringLiteral("Don_Generales"), [](QDialog& d) {
        auto& generales = static_cast<Don_Generales&>(d);
        EXPECT_EQ(generales.ListView1->ListItems().Count(), 2);
        // One of the two titles goes, with the answer Yes.
        generales.Command3->click();
        generales.Command4->click();
    });
    pantalla->cmdVerFicha->click();
    EXPECT_EQ(globales::NavCampo, QStringLiteral("NoDonacion"));
    EXPECT_EQ(globales::NavValor.text(), QStringLiteral("12"));
    EXPECT_EQ(globales::NavModo, 2);
    EXPECT_EQ(globales::NavTabla, QStringLiteral("[Donaciones Libros]"));
    EXPECT_TRUE(Filas().back().startsWith(QStringLiteral("Embajada|01|"))) << Filas().back().toStdString();
    ASSERT_NE(pantalla->ListView1->SelectedItem(), nullptr);
    EXPECT_EQ(pantalla->ListView1->SelectedItem()->SubItems(5), QStringLiteral("12"));
}

TEST_F(PruebaReporteDonaciones, ReporteConElPeriodoYLasCuentas) {
    ASSERT_EQ(Busca(), 3);
    pantalla->cmdImprimir->click();
    const QString& html = pantalla->DocumentoHtml;
    EXPECT_TRUE(html.startsWith(QStringLiteral("<HTML><HEAD><TITLE>Reporte de donaciones por institución</TITLE>")));
    EXPECT_TRUE(html.contains(QStringLiteral("<BODY><h3>Reporte de donaciones por institución</h3><div align=right>Periodo: de "
                                             "01/feb/2024 a 31/mar/2024<br/>Total: 3 donacion(es)</div><TABLE border=1 width=100%><TR>")));
    EXPECT_TRUE(html.contains(QStringLiteral("<TR><TD>Embajada</TD><TD align=right>02</TD><TD align=right>05</TD>"
                                             "<TD>Norte</TD><TD>01/mar/2024</TD><TD align=right>12</TD></TR>")));
    EXPECT_TRUE(html.contains(QStringLiteral("Departamento de adquisiciones")));
    EXPECT_FALSE(pantalla->picContenedor->isHidden());
    EXPECT_EQ(pantalla->cmdImprimir->text(), QStringLiteral("Imprimir"));
    // The period is the search's, whatever the fields hold by now.
    pantalla->txtFecha1->setText(QStringLiteral("01/01/2020"));
    pantalla->GeneraReporteHTML();
    EXPECT_TRUE(html.contains(QStringLiteral("Periodo: de 01/feb/2024 a 31/mar/2024")));
}

}  // namespace
