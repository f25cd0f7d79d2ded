// Setting up a catalog: the field lists, the capture rows derived from the table, the list, the combo row.
#include "ayuda_catalogo.h"

#include "catalog/CatalogoClase.h"
#include "catalog/CatalogoSimple.h"
#include "catalog/Registro.h"
#include "core/FormPrincipal.h"
#include "core/controles/ListView.h"
#include "core/vb/Error.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

using prueba::BaseCatalogo;

TEST(ListasDeCampos, AliasSoloCuandoElRotuloDifiereMasAllaDeMayusculas) {
    struct Caso {
        QString lista, captura, tabla;
    };
    const std::vector<Caso> casos = {
        {QStringLiteral("No=No de escuela,Nombre,Nombre corto"), QStringLiteral("[No] as [No de escuela],[Nombre],[Nombre corto]"),
         QStringLiteral("[No],[Nombre],[Nombre corto]")},
        {QStringLiteral(" Telefono = TELEFONO , Ciudad/Estado "), QStringLiteral("[Telefono],[Ciudad/Estado]"),
         QStringLiteral("[Telefono],[Ciudad/Estado]")},
        {QStringLiteral("Télefono/Fax=Teléfono/Fax"), QStringLiteral("[Télefono/Fax] as [Teléfono/Fax]"), QStringLiteral("[Télefono/Fax]")},
        {QStringLiteral("a=b=c"), QStringLiteral("[a] as [b=c]"), QStringLiteral("[a]")},
        {QString(), QStringLiteral("*"), QStringLiteral("*")},
    };
    for (const Caso& c : casos) {
        QString l1, l2;
        CatalogoClase::ListasDeCampos(c.lista, l1, l2);
        EXPECT_EQ(l1, c.captura) << c.lista.toStdString();
        EXPECT_EQ(l2, c.tabla) << c.lista.toStdString();
    }
}

TEST(CatalogoClase, LosRenglonesVanDe0A100) {
    CatalogoClase c;
    c.ActivarBotonCombo(100, QStringLiteral("Bibliotecas"), QStringLiteral("NoBiblioteca"), QStringLiteral("select 1"));
    EXPECT_EQ(c.Botones_Leyenda(100), QStringLiteral("Bibliotecas"));
    for (int malo : {-1, 101}) {
        try {
            c.Combo_Text(malo);
            ADD_FAILURE() << malo;
        } catch (const vb::Error& e) {
            EXPECT_EQ(e.Number(), 9);
        }
    }
}

TEST_F(BaseCatalogo, EscuelasDelMenuArmaRenglonesListaYComboDeBibliotecas) {
    CargaEscuelas();
    catalogo::RegistraComandos();
    ASSERT_TRUE(FormPrincipal::PantallaDisponible(QStringLiteral("Escuelas")));
    bool visto = false;
    Guion("CatalogoSimple", [&](QDialog& d) {
        visto = true;
        auto& f = static_cast<CatalogoSimple&>(d);
        ASSERT_EQ(f.NumCampos, 6);
        EXPECT_EQ(f.Label1[0]->text(), QStringLiteral("No de escuela"));
        EXPECT_EQ(f.InfoCampos[0].Tipo, 2);
        EXPECT_EQ(f.InfoCampos[1].Tipo, 1);
        // The sixth row is the library combo, in the query's order, with its button.
        EXPECT_TRUE(f.Text1[5]->isHidden());
        EXPECT_FALSE(f.Combo1[5]->isHidden());
        ASSERT_EQ(f.Combo1[5]->count(), 3);
        EXPECT_EQ(f.Combo1[5]->itemText(1), QStringLiteral("Biblioteca Norte"));
        // The list: aliases as headers, sorted by the name, numbers right-aligned in ten characters.
        ASSERT_EQ(f.LstView->ColumnHeaders().Count(), 4);
        EXPECT_EQ(f.LstView->ColumnHeaders()(2).Text(), QStringLiteral("Núm"));
        ASSERT_EQ(prueba::CuentaItems(f), 3);
        EXPECT_EQ(prueba::TextoItem(f, 1), QStringLiteral("Colegio Centro"));
        EXPECT_EQ(f.LstView->ListItems()(1).SubItems(1), QStringLiteral("         3"));
        EXPECT_EQ(f.LstView->ListItems()(1).SubItems(3), QStringLiteral("          "));
        EXPECT_EQ(f.lblNumRegs->text(), QStringLiteral("3 registro(s) disponible(s)"));
        // The first row is loaded; a school without library leaves the combo without selection.
        EXPECT_EQ(f.Text1[0]->text(), QStringLiteral("3"));
        EXPECT_EQ(f.Combo1[5]->currentIndex(), -1);
        // Browsing buttons; rows locked.
        for (int i : {0, 1, 2, 5, 7}) EXPECT_TRUE(f.Cmd[static_cast<size_t>(i)]->isEnabled()) << i;
        for (int i : {3, 4}) EXPECT_FALSE(f.Cmd[static_cast<size_t>(i)]->isEnabled()) << i;
        EXPECT_FALSE(f.Text1[0]->isEnabled());
        // A school with a library shows the library's name; the menu's lists have no "No" column.
        prueba::Selecciona(f, 2);
        EXPECT_EQ(f.Text1[1]->text(), QStringLiteral("Colegio Sur"));
        EXPECT_EQ(f.Combo1[5]->currentText(), QStringLiteral("Biblioteca Central"));
        EXPECT_TRUE(globales::NoCuentaSeleccionada.isEmpty());
        // A click on the number's head sorts by number (the padding makes the text sort right); again, backwards.
        f.LstView_ColumnClick(2);
        EXPECT_EQ(prueba::TextoItem(f, 1), QStringLiteral("Colegio Sur"));
        f.LstView_ColumnClick(2);
        EXPECT_EQ(prueba::TextoItem(f, 1), QStringLiteral("Colegio Centro"));
        f.Cmd_Click(6);
    });
    FormPrincipal principal;
    principal.Ejecuta(QStringLiteral("Escuelas"));
    EXPECT_TRUE(visto);
    EXPECT_TRUE(Cajas().empty());
}

TEST_F(BaseCatalogo, ListaVaciaDaAsteriscoYSieteCamposTraenBarra) {
    Ejecuta(QStringLiteral("INSERT INTO Proveedores ([No], Empresa) VALUES (4, 'Papelera Sol')"));
    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        ASSERT_EQ(f.NumCampos, 8);
        EXPECT_FALSE(f.VScroll1->isHidden());
        EXPECT_EQ(f.VScroll1->minimum(), 6);
        EXPECT_EQ(f.VScroll1->maximum(), 8);
        // A number list: the row clicked leaves its number for the caller.
        EXPECT_EQ(prueba::TextoItem(f, 1), QStringLiteral("4"));
        EXPECT_EQ(globales::NoCuentaSeleccionada, QStringLiteral("4"));
        // Focus on the last row scrolls it into view.
        f.Text1_GotFocus(7);
        EXPECT_EQ(f.VScroll1->value(), 8);
        f.Text1_GotFocus(0);
        EXPECT_EQ(f.VScroll1->value(), 6);
    });
    CatalogoClase c;
    c.CATALOGO("Proveedores", "No", "No", QString(), "Catálogo de Proveedores", "select * from Proveedores order by Empresa", 1);

    // Seven fields bring the scroll bar, six don't.
    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        EXPECT_EQ(f.VScroll1->isHidden(), f.NumCampos == 6);
        if (f.NumCampos == 7) {
            EXPECT_EQ(f.VScroll1->maximum(), 7);
        }
    });
    CatalogoClase i;
    i.CATALOGO("Instituciones", "No", "No", QString(), "Instituciones", "select * from Instituciones", 1);
    EXPECT_EQ(i.Forma().NumCampos, 7);
    CatalogoClase b;
    b.CATALOGO("Bibliotecas", "No", "No", QString(), "Catálogo de Bibliotecas", "select * from Bibliotecas", 2);
    EXPECT_EQ(b.Forma().NumCampos, 6);
    EXPECT_EQ(b.Forma().Label1[2]->text(), QStringLiteral("Nombre corto"));
    // An empty table: only "Nuevo".
    for (int i = 0; i < 8; ++i)
        if (i != 6) {
            EXPECT_EQ(b.Forma().Cmd[static_cast<size_t>(i)]->isEnabled(), i == 0) << i;
        }
    EXPECT_TRUE(Cajas().empty());
}

TEST_F(BaseCatalogo, MemoYCamposObligatoriosAlAbrir) {
    Ejecuta(QStringLiteral("CREATE TABLE Notas ([No] SHORT CONSTRAINT PrimaryKey PRIMARY KEY, Titulo TEXT(20) NOT NULL, Texto MEMO)"));
    int aperturas = 0;
    Guion("CatalogoSimple", [&](QDialog& d) {
        auto& f = static_cast<CatalogoSimple&>(d);
        ++aperturas;
        EXPECT_EQ(f.InfoCampos[2].Tipo, 1);
        EXPECT_EQ(f.InfoCampos[2].Largo, 255);
        EXPECT_EQ(f.InfoCampos[1].Largo, 20);
        EXPECT_TRUE(f.Label1[1]->font().bold());
        EXPECT_FALSE(f.Label1[2]->font().bold());
    });
    CatalogoClase c;
    for (int i = 0; i < 2; ++i)
        c.CATALOGO("Notas", "No", "No", "No,Titulo=Título,Texto", "Notas", "select [No], Titulo from Notas", 1);
    EXPECT_EQ(aperturas, 2);
    ASSERT_EQ(Cajas().size(), 2u);
    for (const auto& caja : Cajas()) {
        EXPECT_EQ(caja.texto, QStringLiteral("Campo Desconocido (Texto) Tipo 12"));
        EXPECT_EQ(caja.titulo, QStringLiteral("Advertencia"));
        EXPECT_EQ(caja.flags, ui::vbCritical);
    }
    EXPECT_EQ(c.Forma().Text1.size(), 3u);
}

TEST_F(BaseCatalogo, UnaTablaQueNoCargaAvisaYNoSeMuestra) {
    bool mostrado = false;
    Guion("CatalogoSimple", [&](QDialog&) { mostrado = true; });
    CatalogoClase c;
    c.CATALOGO("Editoriales", "No", "No", "No,Sello", "Editoriales", "select * from Editoriales", 1);
    c.CATALOGO("NoExiste", "No", "No", QString(), "x", "select * from Editoriales", 1);
    EXPECT_FALSE(mostrado);
    ASSERT_EQ(Cajas().size(), 2u);
    EXPECT_EQ(Cajas()[0].titulo, QStringLiteral("Inicializa Base [Catalogos]"));
    EXPECT_EQ(Cajas()[0].flags, ui::vbCritical);
    EXPECT_TRUE(Cajas()[0].texto.startsWith(QStringLiteral("Ocurrió el error 3061 ")));
    EXPECT_TRUE(Cajas()[0].texto.endsWith(
        QStringLiteral("\r\n Asegúrese de que no se haya modificado la estructura interna de ninguna de las tablas de los catálogos")));
    EXPECT_TRUE(Cajas()[1].texto.startsWith(QStringLiteral("Ocurrió el error 3078 ")));
    EXPECT_FALSE(Cajas()[1].texto.contains(QStringLiteral("\r\n")));
}
