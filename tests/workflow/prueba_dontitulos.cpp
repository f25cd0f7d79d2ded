// Donated titles: the donation's screen with its head and titles, deleting a title or an empty donation, and
// one title with its accession numbers (the row made by the first number, duplicates across the whole
// table, deleting a number, and "Guardar" on a new and on a changed title).
#include "ayuda_cajas.h"
#include "ayuda_flujo.h"

#include "workflow/Don_Generales.h"
#include "workflow/Don_Libros.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace {

class PruebaDonTitulos : public PruebaFlujo {
protected:
    void SetUp() override {
        PruebaFlujo::SetUp();
        Ejecuta("INSERT INTO Editoriales ([No], Nombre) VALUES (3, 'Planeta')");
        Ejecuta("INSERT INTO Instituciones ([No], Nombre) VALUES (8, 'Fundación Rulfo')");
        Ejecuta("INSERT INTO [Donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca, [Donacion o Intercambio]) "
                "VALUES (7, #2024/03/05#, 8, 2, 'D')");
        globales::NavCampo = "NoDonacion";
        globales::NavValor = vb::Variant(QStringLiteral("7"));
        globales::NavTabla = "[Donaciones General]";
        globales::NavModo = 2;
        globales::ModoCaptura = "NUEVO";
    }
    // A new title typed in, its copies left as the analyst leaves the field.
    static void Llena(Don_Libros& f, const char* titulo, const char* ejemplares) {
        f.Text2->setText(QString::fromUtf8(titulo));
        f.Text5->setText("O'Neil");
        f.Text4->setText("3");
        f.Text3->setText(QString::fromUtf8(ejemplares));
        f.Text3_LostFocus();
    }
    static void Agrega(Don_Libros& f, const char* numero) {
        f.Text8->setText(QString::fromUtf8(numero));
        f.Command4_Click();
    }
    std::unique_ptr<Don_Libros> Libros(int modo, int clave = 0) {
        globales::TitModo = modo;
        globales::TitValor = vb::Variant(QString::number(clave));
        auto f = std::make_unique<Don_Libros>();
        f->Form_Load();
        return f;
    }
    QString Numeros(const QString& clave) {
        return Valor(QStringLiteral("SELECT NoAdquisicion & ',' & [Solicitud o donacion] & ',' & IsNull(FechaIngreso) "
                                    "FROM [Adquisiciones Numadqui] WHERE ClaveLibro=") + clave + " ORDER BY 1");
    }
};

TEST_F(PruebaDonTitulos, DosTitulosConSusNumerosBajoElEncabezado) {
    Don_Generales g;
    g.Form_Load();
    EXPECT_EQ(g.Frame2->title(), "Títulos en esta donación: 0");
    EXPECT_FALSE(g.Command2->isEnabled());
    const QString pagina = UltimoDocumento();
    EXPECT_TRUE(pagina.contains("Donación: </td><td>7<"));
    EXPECT_TRUE(pagina.contains("Fecha: </td><td>05/mar/2024<"));
    EXPECT_TRUE(pagina.contains("Donante:</td><td>Fundación Rulfo<"));
    EXPECT_TRUE(pagina.contains("Biblioteca destino: </td><td>Norte<"));

    sistema->AlMostrar("Don_Libros", [&](QDialog& d) {
        auto& f = static_cast<Don_Libros&>(d);
        Llena(f, "Ética", "2");
        Agrega(f, "000314");
        EXPECT_TRUE(f.TituloCreado);
        EXPECT_FALSE(f.DatosGrabados);
        EXPECT_EQ(f.Text8->text(), "000315");
        EXPECT_EQ(f.Text7->text(), "1");        // no edition is the first
        f.Text2->setText("Ética mínima");
        Agrega(f, "000315");                                    // writes the changed title
        EXPECT_TRUE(f.DatosGrabados);
        Agrega(f, "000316");
        EXPECT_EQ(Caja(sistema->UltimaCaja()), Caja("Precaución", ui::vbOKOnly, QStringLiteral(
            "No se puede introducir más números de adquisición que los ejemplares Recibidos")));
        f.Command3_Click();
    });
    g.Command1_Click();
    sistema->AlMostrar("Don_Libros", [&](QDialog& d) {
        auto& f = static_cast<Don_Libros&>(d);
        Llena(f, "Pedro Páramo", "1");
        Agrega(f, "A-1");
        EXPECT_EQ(f.Text8->text(), "A-1");     // not a number: left to be typed over
        f.Command3_Click();
    });
    g.Command1_Click();
    EXPECT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(Textos(*g.ListView1).size(), 2);
    EXPECT_EQ(g.Frame2->title(), "Títulos en esta donación: 2");
    EXPECT_TRUE(g.Command3->isEnabled());
    const QString primero = Valor("SELECT Min(ClaveLibro) FROM [Donaciones Libros]");
    EXPECT_EQ(Valor("SELECT Titulo & '|' & Autor & '|' & NoEditorial & '|' & Ejemplares & '|' & Edicion & '|' & NoDonacion & "
                    "'|' & IsNull(Costo) & IsNull(IdCapturista) FROM [Donaciones Libros] WHERE ClaveLibro=" + primero),
              Valor("SELECT 'Ética mínima|O''Neil|3|2|1|7|' & True & True"));
    EXPECT_EQ(Numeros(primero), Valor("SELECT '000314,D,' & True"));
    EXPECT_EQ(Cuenta("[Adquisiciones Numadqui]"), 3);
    EXPECT_TRUE(globales::HuboCambiosNumAdq);
}

TEST_F(PruebaDonTitulos, NumerosRepetidosEnTodaLaTablaYSinEjemplaresNoSeAgrega) {
    Ejecuta("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) VALUES ('O''1', 40, 'S')");
    auto f = Libros(1);
    Llena(*f, "Ética", "0");
    EXPECT_FALSE(f->Text8->isEnabled());
    Agrega(*f, "9");
    EXPECT_EQ(sistema->UltimaCaja().texto, "No se puede introducir más números de adquisición que los ejemplares Recibidos");
    f->Text3->setText("2");
    f->Text3_LostFocus();
    Agrega(*f, "O'1");                                           // held by a request, quotes and all
    EXPECT_EQ(Caja(sistema->UltimaCaja()), Caja("Precaución", ui::vbOKOnly, "El número de adquisición ya existe"));
    EXPECT_EQ(Cuenta("[Donaciones Libros]"), 0);                  // no number, no title
    f->Text5->clear();
    Agrega(*f, "10");
    EXPECT_EQ(Caja(sistema->UltimaCaja()), Caja("Autor requerido", ui::vbCritical,
                                                "Se requiere del dato del autor, por favor escriba uno"));
}

TEST_F(PruebaDonTitulos, BorrarTituloONumeroQuitaLosNumeros) {
    Ejecuta("INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, Autor, Ejemplares, NoEditorial, Edicion, NoDonacion) "
            "VALUES (20, 'Ética', 'Savater', 3, 3, 1, 7)");
    for (const char* n : {"'X1', 20, 'D'", "'X2', 20, 'D'", "'X3', 20, 'S'"})
        Ejecuta(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) "
                               "VALUES (%1)").arg(QLatin1String(n)));
    auto f = Libros(2, 20);
    EXPECT_EQ(f->windowTitle(), "Modificar título de la donación");
    ASSERT_EQ(f->List1->count(), 2);                              // only the donated side
    EXPECT_TRUE(f->List1->isEnabled());
    f->Text3->selectAll();
    Teclea(f->Text3, "x1");                       // fewer copies than numbers; a letter is lost
    EXPECT_EQ(f->Text3->text(), "1");
    f->Text3_LostFocus();
    EXPECT_EQ(f->Text3->text(), "3");
    EXPECT_EQ(Caja(sistema->UltimaCaja()), Caja("Advertencia", ui::vbExclamation, QStringLiteral(
        "No puede haber más Números de Adquisición que el número de Libros Donados\r\nSi quiere reducir este valor "
        "primero quite algunos Números de Adquisición de la lista")));
    f->List1->setCurrentRow(0);
    f->Command5_Click();
    EXPECT_EQ(f->List1->count(), 1);
    EXPECT_EQ(Numeros("20"), Valor("SELECT 'X2,D,' & True"));

    Don_Generales g;
    g.Form_Load();
    g.ListView1->ListItems()(1).setSelected(true);
    sistema->Responde({ui::vbYes});
    g.Command3_Click();
    EXPECT_EQ(Caja(sistema->UltimaCaja()),
              Caja("Confirmación de borrado", ui::vbYesNo, "¿Está seguro que desea borrar el libro?"));
    EXPECT_EQ(Cuenta("[Donaciones Libros]"), 0);
    EXPECT_EQ(Numeros("20"), Valor("SELECT 'X3,S,' & True"));   // a request's number stays
    EXPECT_EQ(g.Frame2->title(), "Títulos en esta donación: 0");
}

TEST_F(PruebaDonTitulos, GuardarNuevoTropiezaYEditadoGrabaCostoFechaYAnalista) {
    auto f = Libros(1);
    f->Command1_Click();
    EXPECT_EQ(Caja(sistema->UltimaCaja()), Caja("Precaución", ui::vbExclamation, "Los datos de la donación están incompletos"));
    Llena(*f, "Ética", "2");
    f->Text7->setText("2");
    f->Command1_Click();
    EXPECT_EQ(Caja(sistema->UltimaCaja()), Caja("Datos incompletos", ui::vbExclamation,
                                                "No se ha registrado ningún ejemplar de este material"));
    Agrega(*f, "77");
    f->txtCosto->setText("99");
    f->Command1_Click();
    EXPECT_EQ(Caja(sistema->UltimaCaja()), Caja(QString(), ui::vbOKOnly, QStringLiteral(
        "Error: 3129,Instrucción SQL no válida; se esperaba 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT' o 'UPDATE'.\r\n")));
    const QString clave = globales::TitValor.text();
    EXPECT_EQ(Valor("SELECT Count(*) & '|' & IsNull(Min(Costo)) FROM [Donaciones Libros]"), Valor("SELECT '1|' & True"));

    const size_t cajas = sistema->cajas.size();
    globales::ModoCaptura = "MODIFICAR";
    auto e = Libros(2, clave.toInt());
    EXPECT_EQ(e->Text7->text(), "2");
    ASSERT_EQ(e->List1->count(), 1);
    e->Text2->setText("L'Ética");
    e->txtCosto->setText("125.5");
    e->Command1_Click();
    EXPECT_EQ(sistema->cajas.size(), cajas);
    EXPECT_TRUE(e->DatosGrabados);
    EXPECT_EQ(Valor("SELECT Titulo & '|' & Costo & '|' & IdCapturista & '|' & IsNull(FechaCaptura) FROM [Donaciones Libros]"),
              Valor("SELECT 'L''Ética|' & CCur(125.5) & '|ana|' & False"));
    e->Text4->setText(QString());                                 // a statement the engine refuses
    e->Command1_Click();
    EXPECT_EQ(Caja(sistema->UltimaCaja()), Caja("Error en captura de Donaciones", ui::vbOKOnly,
                                                "No se pudieron guardar los cambios"));
}

TEST_F(PruebaDonTitulos, RegresarBorraLaDonacionSinTitulosYAvisaDeNumerosFaltantes) {
    Don_Generales g;
    g.Form_Load();
    int refrescos = 0;
    g.RefrescaDonaciones = [&] { ++refrescos; };
    sistema->Responde({ui::vbNo, ui::vbYes});
    g.Command4_Click();
    EXPECT_EQ(Caja(sistema->UltimaCaja()), Caja("Precaución", ui::vbYesNo, QStringLiteral(
        "La solicitud no tiene ningún libro, por lo cual se borrará\r\n ¿Desea salir de todos modos?")));
    EXPECT_EQ(Cuenta("[Donaciones General]"), 1);
    g.Command4_Click();
    EXPECT_EQ(Cuenta("[Donaciones General]"), 0);
    EXPECT_EQ(refrescos, 1);

    Ejecuta("INSERT INTO [Donaciones Libros] (Titulo, NoDonacion) VALUES ('Ética', 8)");
    globales::NavValor = vb::Variant(QStringLiteral("8"));
    g.Command4_Click();                                           // with a title it just closes
    EXPECT_EQ(sistema->cajas.size(), 2u);

    // Leaving a title with fewer numbers than copies asks first; No stays and refreshes nothing.
    auto f = Libros(1);
    f->Generales = &g;
    Llena(*f, "Ética", "3");
    Agrega(*f, "5");
    sistema->Responde({ui::vbNo, ui::vbYes});
    f->Command3_Click();
    EXPECT_EQ(Caja(sistema->UltimaCaja()), Caja("Precaución", ui::vbYesNo, QStringLiteral(
        "Ha ingresado menos números de adquisición que los libros recibidos. ¿Desea salir de todas maneras?")));
    EXPECT_EQ(Textos(*g.ListView1).size(), 0);
    f->Command3_Click();
    EXPECT_EQ(Textos(*g.ListView1).size(), 2);                    // the donation below shows the new title too
}

}  // namespace
