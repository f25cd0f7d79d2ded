// Searching the list, and the refill of a data-entry screen's combo after its catalog closes.
#include "ayuda_catalogo.h"

#include "catalog/CatMod.h"
#include "catalog/CatalogoClase.h"
#include "catalog/ModuloCatalogo.h"
#include "catalog/Registro.h"
#include "core/FormPrincipal.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>

using namespace prueba;

TEST_F(BaseCatalogo, BusquedaPorPalabraCompletaParcialYEnLasDemasColumnas) {
    CargaEscuelas();
    catalogo::RegistraComandos();
    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        f.Cmd_Click(7);
        // Entry 0 starts partial.
        EXPECT_TRUE(f.chkParcial->isChecked());
        f.txtBuscar->setText(QStringLiteral("coleg"));
        f.cmdBuscar_Click();
        EXPECT_EQ(f.PosicionBusqueda, 1);
        EXPECT_EQ(f.Text1[1]->text(), QStringLiteral("Colegio Centro"));
        EXPECT_TRUE(f.cmdBuscarSiguiente->isEnabled());
        f.cmdBuscarSiguiente_Click();
        EXPECT_EQ(f.PosicionBusqueda, 2);
        EXPECT_EQ(IndiceSeleccionado(f), 2);
        EXPECT_EQ(f.Text1[1]->text(), QStringLiteral("Colegio Sur"));
        f.cmdBuscarSiguiente_Click();   // nothing further down
        EXPECT_EQ(f.PosicionBusqueda, 0);
        EXPECT_FALSE(f.cmdBuscarSiguiente->isEnabled());
        // Whole words only: the beginning of a text is not enough.
        f.chkParcial->setChecked(false);
        f.cmdBuscar_Click();
        EXPECT_FALSE(f.cmdBuscarSiguiente->isEnabled());
        f.txtBuscar->setText(QStringLiteral("escuela norte"));
        f.cmdBuscar_Click();
        EXPECT_EQ(f.PosicionBusqueda, 3);
        // The other columns: always whole words.
        f.cboCriteriosBusqueda->setCurrentIndex(1);
        EXPECT_FALSE(f.chkParcial->isChecked());
        EXPECT_FALSE(f.chkParcial->isEnabled());
        f.txtBuscar->setText(QStringLiteral("Ana Gil"));
        f.cmdBuscar_Click();
        EXPECT_EQ(f.PosicionBusqueda, 2);
        f.txtBuscar->clear();
        EXPECT_EQ(f.PosicionBusqueda, 0);
        EXPECT_FALSE(f.cmdBuscar->isEnabled());
    });
    FormPrincipal principal;
    principal.Ejecuta(QStringLiteral("Escuelas"));
    ASSERT_EQ(Cajas().size(), 2u);
    for (const auto& c : Cajas()) EXPECT_EQ(c.texto, QStringLiteral("No se ha hallado el elemento buscado"));
    EXPECT_EQ(sistema->beeps, 0);
}

TEST_F(BaseCatalogo, BuscarEnUnaListaVaciaOAlFinalPita) {
    Ejecuta(QStringLiteral("INSERT INTO Editoriales ([No], Nombre) VALUES (1, 'Trillas')"));
    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        f.Cmd_Click(7);
        f.txtBuscar->setText(QStringLiteral("Trillas"));
        f.cmdBuscar_Click();
        EXPECT_EQ(f.PosicionBusqueda, 1);
        f.cmdBuscarSiguiente_Click();
        EXPECT_EQ(sistema->beeps, 1);
        EXPECT_FALSE(f.cmdBuscarSiguiente->isEnabled());
    });
    CatalogoClase c;
    c.CATALOGO("Editoriales", "Nombre", "Nombre", QString(), "Editoriales", "select Nombre from Editoriales", 1);
    EXPECT_TRUE(Cajas().empty());

    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        f.txtBuscar->setText(QStringLiteral("a"));
        f.cmdBuscar_Click();
    });
    CatalogoClase vacio;
    vacio.CATALOGO("Instituciones", "No", "No", QString(), "Instituciones", "select * from Instituciones", 1);
    ASSERT_EQ(Cajas().size(), 1u);
    EXPECT_EQ(Cajas()[0].texto, QStringLiteral("No hay elementos en el catálogo"));
    EXPECT_EQ(sistema->beeps, 2);
}

TEST_F(BaseCatalogo, CatalogoParaComboRellenaYConservaLaSeleccion) {
    CargaBibliotecas();
    controles::ComboBox combo;
    int clics = 0;
    QObject::connect(&combo, &controles::ComboBox::Click, [&clics] { ++clics; });
    auto rellena = [&] {
        combo.clear();
        for (const char* t : {"1 Biblioteca Central", "2 Biblioteca Norte", "3 Biblioteca de Artes"}) combo.addItem(QString::fromUtf8(t));
    };
    rellena();
    combo.setCurrentIndex(1);
    clics = 0;
    QString titulo;
    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        titulo = f.windowTitle();
        EXPECT_EQ(TextoItem(f, 1), QStringLiteral("1"));
        f.Cmd_Click(0);
        Escribe(f, {QStringLiteral("4"), QStringLiteral("Biblioteca Sur")});
        f.Cmd_Click(3);
        Selecciona(f, 2);
        f.Cmd_Click(6);
    });
    CatMod::CatalogoParaCombo(combo, QStringLiteral("bibliotecas"), QStringLiteral("Resultado"),
                              QStringLiteral("SELECT [No] & ' ' & Nombre as Resultado  FROM Bibliotecas"), QStringLiteral("(ninguna)"));
    EXPECT_EQ(titulo, QStringLiteral("Catálogo de Bibliotecas"));
    ASSERT_EQ(combo.count(), 5);
    EXPECT_EQ(combo.itemText(0), QStringLiteral("(ninguna)"));
    EXPECT_EQ(combo.itemText(4), QStringLiteral("4 Biblioteca Sur"));
    EXPECT_EQ(combo.currentText(), QStringLiteral("2 Biblioteca Norte"));
    EXPECT_EQ(clics, 1);
    EXPECT_EQ(globales::NoCuentaSeleccionada, QStringLiteral("2"));
    EXPECT_TRUE(Cajas().empty());

    // An unknown catalog opens nothing; a selected text that is gone leaves no selection.
    Ejecuta(QStringLiteral("UPDATE Bibliotecas SET Nombre = 'Biblioteca Poniente' WHERE [No] = 2"));
    titulo.clear();
    CatMod::CatalogoParaCombo(combo, QStringLiteral("Bibliotecas"), QStringLiteral("Resultado"),
                              QStringLiteral("SELECT [No] & ' ' & Nombre as Resultado  FROM Bibliotecas"), QString());
    EXPECT_TRUE(titulo.isEmpty());
    EXPECT_EQ(combo.count(), 4);
    EXPECT_EQ(combo.currentIndex(), -1);
}

TEST_F(BaseCatalogo, ElBotonDelRenglonAbreBibliotecasYRecargaElCombo) {
    CargaEscuelas();
    catalogo::RegistraComandos();
    QStringList abiertos;
    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        abiertos << f.windowTitle();
        if (f.windowTitle() == QStringLiteral("Catálogo de Bibliotecas")) {
            // The library catalog opened from the school's row: style 2, every column.
            EXPECT_EQ(f.NumCampos, 6);
            EXPECT_EQ(f.Label1[5]->text(), QStringLiteral("Email"));
            Selecciona(f, 1);
            f.Cmd_Click(1);
            f.Text1[1]->setText(QStringLiteral("Biblioteca Matriz"));
            f.Cmd_Click(3);
            return;
        }
        Selecciona(f, 2);
        ASSERT_EQ(f.Combo1[5]->currentText(), QStringLiteral("Biblioteca Central"));
        f.Cmd_Click(1);
        EXPECT_FALSE(f.Command1[5]->isHidden());
        EXPECT_TRUE(f.Command1[4]->isHidden());
        f.Command1_Click(5);
        EXPECT_EQ(f.Combo1[5]->currentText(), QStringLiteral("Biblioteca Matriz"));
        f.Cmd_Click(3);
        EXPECT_TRUE(ModuloCatalogo::UltimaSentencia().endsWith(QStringLiteral(",[Nobiblioteca] = 1 where ([Nombre]='Colegio Sur')"),
                                                             Qt::CaseInsensitive));
        // Without a library chosen, an optional combo row is left out of the change.
        Selecciona(f, 2);
        f.Cmd_Click(1);
        f.Combo1[5]->setCurrentIndex(-1);
        f.Cmd_Click(3);
        EXPECT_TRUE(ModuloCatalogo::UltimaSentencia().endsWith(QStringLiteral("[E-mail] = '' where ([Nombre]='Colegio Sur')")));
    });
    FormPrincipal principal;
    principal.Ejecuta(QStringLiteral("Escuelas"));
    EXPECT_EQ(abiertos, QStringList({QStringLiteral("Catálogo de Escuelas"), QStringLiteral("Catálogo de Bibliotecas")}));
    EXPECT_EQ(Valor(QStringLiteral("SELECT Nombre FROM Bibliotecas WHERE [No] = 1")), QStringLiteral("Biblioteca Matriz"));
    EXPECT_TRUE(Cajas().empty());
}
