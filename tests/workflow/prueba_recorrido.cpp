// The road of a purchase through the screens, as an analyst walks it: a request with two titles is captured,
// ordered, and received: one title with three accession numbers, the other not received; the order closes.
#include "ayuda_flujo.h"

#include "core/vb/Conversion.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"
#include "workflow/Form2.h"
#include "workflow/Ped1.h"
#include "workflow/Ped1_Repor.h"
#include "workflow/Recep.h"
#include "workflow/Recep_Generales.h"
#include "workflow/Recep_Libros.h"
#include "workflow/Sol1.h"
#include "workflow/Sol_Edi.h"
#include "workflow/Sol_Libros.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>

namespace {

class PruebaRecorrido : public PruebaFlujo {
protected:
    void SetUp() override {
        PruebaFlujo::SetUp();
        Ejecuta("INSERT INTO Editoriales ([No], Nombre) VALUES (12, 'Planeta')");
    }

    // Captures a title on the titles screen.
    void AgregaTitulo(Form2& titulos, const QString& titulo, const QString& ejemplares) {
        sistema->AlMostrar("Sol_Libros", [=](QDialog& d) {
            auto& s = static_cast<Sol_Libros&>(d);
            s.Text3->setText(titulo);
            s.Text4->setText(QStringLiteral("Autor de ") + titulo);
            s.Text2->setText("12");
            s.Text5->setText(ejemplares);
            s.Command1_Click();
        });
        titulos.Command1_Click();
    }

    static controles::ListItem* FilaConTitulo(controles::ListView& l, const QString& titulo) {
        for (int i = 1; i <= l.ListItems().Count(); ++i) if (l.ListItems()(i).SubItems(3) == titulo) return &l.ListItems()(i);
        return nullptr;
    }
};

TEST_F(PruebaRecorrido, DeLaSolicitudAlNumeroDeAdquisicion) {
    const QString hoy = vb::Format(vb::Variant(vb::Fecha::Now()), "yyyy-mm-dd");
    // The day of the date a statement reads.
    const auto Dia = [this](const char* sql) { return vb::Format(vb::Variant(vb::CDate(vb::Variant(Valor(sql)))), "yyyy-mm-dd"); };

    // 1. The request and its two titles.
    Sol1 solicitudes;
    solicitudes.Form_Load();
    sistema->AlMostrar("Form2", [&](QDialog& d) {
        auto& t = static_cast<Form2&>(d);
        AgregaTitulo(t, "Cálculo", "3");
        AgregaTitulo(t, "Álgebra", "1");
        EXPECT_EQ(t.Frame1->title(), "Títulos incluidos en la solicitud: 2");
        t.Command4_Click();
    });
    sistema->AlMostrar("Sol_Edi", [&](QDialog& d) {
        auto& e = static_cast<Sol_Edi&>(d);
        e.Text3->setText("Luis Pérez");
        e.Text5->setText("1");
        e.Text4->setText("3");
        e.Command1_Click();
    });
    solicitudes.Command1_Click();
    ASSERT_EQ(Valor("SELECT Estado & '|' & Solicitante & '|' & IdCapturista FROM [Solicitudes General] WHERE NoSolicitud=1"),
              "S|Luis Pérez|ana");
    ASSERT_EQ(Cuenta("[Solicitudes Libros]"), 2);

    // 2. The order.
    Ped1 pedidos;
    pedidos.Form_Load();
    ASSERT_EQ(pedidos.ListView1->ListItems().Count(), 1);
    EXPECT_EQ(pedidos.ListView1->ListItems()(1).SubItems(5), "02");   // a count shows with two digits
    pedidos.Check1->setChecked(true);
    QString xml;
    sistema->AlMostrar("Ped1_Repor", [&](QDialog& d) {
        auto& r = static_cast<Ped1_Repor&>(d);
        xml = r.DocumentoXml;
        r.Command1_Click();
        r.Command3_Click();
    });
    pedidos.Command1_Click();
    EXPECT_EQ(pedidos.ListView1->ListItems().Count(), 0);   // ordered: gone from the list
    EXPECT_TRUE(xml.contains("<Pedidos "));
    EXPECT_TRUE(xml.contains("Registros=\"2\""));
    EXPECT_EQ(xml.count("<Libro>"), 2);
    // Letters outside ASCII go as character references: the document is saved in a single-byte code page.
    EXPECT_TRUE(xml.contains("<Titulo>C&#xE1;lculo</Titulo>")) << xml.toStdString();
    EXPECT_TRUE(xml.contains("<Editorial>Planeta</Editorial>")) << xml.toStdString();
    EXPECT_EQ(Valor("SELECT Estado FROM [Solicitudes General] WHERE NoSolicitud=1"), "P");
    EXPECT_EQ(Dia("SELECT FechaPedido FROM [Solicitudes General]"), hoy);
    EXPECT_EQ(Valor("SELECT Count(*) FROM [Solicitudes Libros] WHERE Estado='P'"), "2");

    // 3. The reception.
    Recep recepcion;
    recepcion.Form_Load();
    ASSERT_EQ(recepcion.ListView1->ListItems().Count(), 1);
    recepcion.ListView1->ListItems()(1).setSelected(true);
    sistema->AlMostrar("Recep_Generales", [&](QDialog& d) {
        auto& g = static_cast<Recep_Generales&>(d);
        ASSERT_EQ(g.ListView1->ListItems().Count(), 2);

        controles::ListItem* calculo = FilaConTitulo(*g.ListView1, "Cálculo");
        ASSERT_NE(calculo, nullptr);
        EXPECT_EQ(calculo->SubItems(2), "-Pedido-");
        calculo->setSelected(true);
        sistema->AlMostrar("Recep_Libros", [&](QDialog& dl) {
            auto& l = static_cast<Recep_Libros&>(dl);
            l.Text3->setText("3");
            l.Text4->setText("250.50");
            l.Text5->setText("F-1029");
            l.Text6->setText("000314");
            for (int i = 0; i < 3; ++i) l.Command4_Click();
            EXPECT_EQ(l.List1->count(), 3);
            l.Command3_Click();
        });
        g.Command1_Click();

        controles::ListItem* algebra = FilaConTitulo(*g.ListView1, "Álgebra");
        ASSERT_NE(algebra, nullptr);
        algebra->setSelected(true);
        sistema->Responde({ui::vbYes});
        g.Command2_Click();
        g.Command3_Click();
    });
    recepcion.Command1_Click();
    EXPECT_EQ(recepcion.ListView1->ListItems().Count(), 0);   // no order is pending any more

    // 4. Every row written.
    EXPECT_EQ(Valor("SELECT Estado & '|' & IdCapturista FROM [Solicitudes General] WHERE NoSolicitud=1"), "R|ana");
    EXPECT_EQ(Dia("SELECT FechaRecepcion FROM [Solicitudes General]"), hoy);
    EXPECT_EQ(Valor("SELECT Estado & '|' & [Ejemplares Recibidos] & '|' & Costo & '|' & Factura & '|' & IdCapturista "
                    "FROM [Solicitudes Libros] WHERE Titulo='Cálculo'"), "A|3|250.5|F-1029|ana");
    EXPECT_EQ(Dia("SELECT [Fecha de Recepcion] FROM [Solicitudes Libros] WHERE Titulo='Cálculo'"), hoy);
    EXPECT_EQ(Valor("SELECT Estado & '|' & [Ejemplares Recibidos] & '|' & Costo & '|' & IsNull([Fecha de Recepcion]) "
                    "FROM [Solicitudes Libros] WHERE Titulo='Álgebra'"), "I|0|0|Verdadero");

    QStringList numeros;
    auto rs = globales::Base().OpenRecordset(QStringLiteral(
        "SELECT N.NoAdquisicion, N.[Solicitud o donacion], N.IdCapturista, N.FechaIngreso, L.Titulo "
        "FROM [Adquisiciones Numadqui] N INNER JOIN [Solicitudes Libros] L ON N.ClaveLibro = L.ClaveLibro "
        "ORDER BY N.NoAdquisicion"));
    for (; !rs->Eof(); rs->MoveNext()) {
        numeros << rs->Fields(0).Value().text();
        EXPECT_EQ(rs->Fields(1).Value().text(), "S");
        EXPECT_EQ(rs->Fields(2).Value().text(), "ana");
        EXPECT_EQ(vb::Format(rs->Fields(3).Value(), "yyyy-mm-dd"), hoy);
        EXPECT_EQ(rs->Fields(4).Value().text(), "Cálculo");
    }
    EXPECT_EQ(numeros, (QStringList{"000314", "000315", "000316"}));
    EXPECT_TRUE(globales::HuboCambiosNumAdq);
}

}  // namespace
