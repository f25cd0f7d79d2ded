// Changing the machine's date, and the help screen.
#include "../ui/ayuda_ui.h"

#include "core/frmBrowseHelp.h"
#include "core/frmFecha.h"
#include "core/vb/Formato.h"

#include <QLabel>
#include <QLineEdit>

namespace {

using CambioDeFecha = prueba_ui::ConSistema;

TEST_F(CambioDeFecha, ProponeHoyYDiceLaFechaEnPalabras) {
    frmFecha f;
    EXPECT_EQ(f.Text1->text(), vb::Format(vb::Variant(vb::Fecha::Today()), QStringLiteral("dd/mmm/yyyy")));
    f.Text1->setText(QStringLiteral("5/1/2026"));
    EXPECT_EQ(f.Label2->text(), QStringLiteral("lunes, 5 de enero de 2026"));
    f.Text1->setText(QStringLiteral("31/02/2026"));
    EXPECT_EQ(f.Label2->text(), QStringLiteral("* Fecha inválida*"));
}

TEST_F(CambioDeFecha, LaMismaFechaDeHoyNoTocaElReloj) {
    frmFecha f;
    f.show();
    f.Command1_Click();
    EXPECT_TRUE(sistema->fechasFijadas.empty());
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_FALSE(f.isVisible());
}

TEST_F(CambioDeFecha, OtraFechaSeFijaYSiElSistemaSeNiegaSeAvisa) {
    frmFecha f;
    f.Text1->setText(QStringLiteral("15/03/2027"));
    f.Command1_Click();
    ASSERT_EQ(sistema->fechasFijadas.size(), 1u);
    EXPECT_EQ(sistema->fechasFijadas[0], QDate(2027, 3, 15));
    EXPECT_TRUE(sistema->cajas.empty());

    sistema->resultadoFijaFecha = false;
    frmFecha g;
    g.Text1->setText(QStringLiteral("16/03/2027"));
    g.Command1_Click();
    EXPECT_EQ(sistema->Textos(), QStringList{QStringLiteral("No es posible cambiar la fecha del sistema")});
}

TEST_F(CambioDeFecha, FechasInvalidasOPosterioresA2099SeRechazan) {
    for (const QString& texto : {QStringLiteral("01/01/2100"), QStringLiteral("no es fecha"), QString()}) {
        sistema->cajas.clear();
        frmFecha f;
        f.show();
        f.Text1->setText(texto);
        f.Command1_Click();
        ASSERT_EQ(sistema->cajas.size(), 1u) << texto.toStdString();
        EXPECT_EQ(sistema->cajas[0].texto, QStringLiteral("La fecha NO es correcta"));
        EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("ERROR"));
        EXPECT_EQ(sistema->cajas[0].flags, ui::vbExclamation);
        EXPECT_TRUE(sistema->fechasFijadas.empty());
        EXPECT_TRUE(f.isVisible());
    }
    frmFecha f;
    f.Text1->setText(QStringLiteral("31/12/2099"));
    f.Command1_Click();
    EXPECT_EQ(sistema->fechasFijadas.size(), 1u);
}

TEST_F(CambioDeFecha, LaAyudaEmpiezaEnBlancoEImprime) {
    frmBrowseHelp ayuda;
    ASSERT_EQ(sistema->vistas.size(), 1u);
    EXPECT_EQ(sistema->vistas[0]->navegaciones, QStringList{QStringLiteral("about:blank")});
    EXPECT_EQ(ayuda.lblTitulo->text(), QStringLiteral("Ayuda del módulo de análisis"));
    ayuda.cmdImprimir_Click();
    EXPECT_EQ(sistema->vistas[0]->impresiones, 1);
}

}  // namespace
