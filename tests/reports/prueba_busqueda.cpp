// The holdings search: titles of requests and donations found by title, author and accession number, the
// captions and the hidden key, the details of one title, and a statement broken by a double quote.
#include "ayuda_reportes.h"
#include "reports/Busqueda.h"
#include "reports/Dato.h"
#include "reports/Registro.h"

#include "core/FormPrincipal.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <gtest/gtest.h>

namespace {

class PruebaBusqueda : public PruebaPantallaReporte<Busqueda> {
protected:
    void SetUp() override {
        PruebaReporte::SetUp();
        Ejecuta("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca) "
                "VALUES (7, #02/10/2024#, 'Ana Ruiz', 3, 1)");
        for (const char* titulo : {"1, 'Cien años de soledad', 'García Márquez', 7, 'A'",
                                   "2, 'El coronel no tiene quien le escriba', 'García Márquez', 7, 'P'",
                                   "3, 'Rayuela', 'Cortázar', 7, 'S'"})
            Ejecuta(QStringLiteral("INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, NoSolicitud, Estado) VALUES (%1)")
                        .arg(QString::fromUtf8(titulo)));
        Ejecuta("INSERT INTO [Donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca) "
                "VALUES (10, #03/05/2024#, 5, 2)");
        // The same key on the donation side: only the discriminator tells the two apart.
        Ejecuta("INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, Autor, Edicion, NoDonacion) "
                "VALUES (1, 'Ficciones', 'Borges', 2, 10)");
        Numero("A-100", 1, "S");
        Numero("A-101", 1, "S");
        Numero("D-1", 1, "D");
        Abre();
    }

    // Searches as the analyst does: the text, where to look, which side, "Buscar".
    int Busca(const QString& texto, const QString& ubicar, bool donados = false) {
        pantalla->Text1->setText(texto);
        pantalla->Combo1->setText(ubicar);
        pantalla->Option1[donados ? 1 : 0]->setChecked(true);
        pantalla->Command2->click();
        return pantalla->ListView1->ListItems().Count();
    }
    QStringList Encabezados() { return ayuda_reportes::Encabezados(*pantalla->ListView1); }
    QStringList Titulos() {
        QStringList r = ayuda_reportes::Columna(*pantalla->ListView1, 1);
        r.sort();
        return r;
    }
    // The text of Dato opened by a double click on the first row.
    QString Detalles() {
        QString texto;
        sistema->AlMostrar(QStringLiteral("Dato"), [&texto](QDialog& d) { texto = static_cast<Dato&>(d).Label1->text(); });
        pantalla->ListView1->ListItems()(1).setSelected(true);
        emit pantalla->ListView1->DblClick();
        return texto;
    }
};

TEST_F(PruebaBusqueda, AbreDesdeElMenuConBuscarSoloConTexto) {
    reportes::RegistraComandos();
    EXPECT_TRUE(FormPrincipal::PantallaDisponible(QStringLiteral("Consultas")));
    EXPECT_EQ(Encabezados(), QStringList({"Título", "Autor", "Núm. Solicitud", "Fecha de Recepción", "Estado"}));
    EXPECT_FALSE(pantalla->Command2->isEnabled());
    pantalla->Text1->setText(QStringLiteral("x"));
    EXPECT_TRUE(pantalla->Command2->isEnabled());
    pantalla->Text1->clear();
    EXPECT_FALSE(pantalla->Command2->isEnabled());
}

TEST_F(PruebaBusqueda, TituloYAutorEnCualquierParteConComodines) {
    EXPECT_EQ(Busca(QStringLiteral("  soledad "), QStringLiteral("Título")), 1);
    EXPECT_EQ(pantalla->Frame2->title(), QStringLiteral("Resultados obtenidos: 1"));
    EXPECT_EQ(Encabezados(), QStringList({"", "Título", "Autor", "Núm. Solicitud", "Fecha Recepción", "Estado"}));
    EXPECT_EQ(pantalla->ListView1->ColumnHeaders()(1).Width(), 0);
    const controles::ListItem& fila = pantalla->ListView1->ListItems()(1);
    EXPECT_EQ(fila.Text(), QStringLiteral("001"));
    EXPECT_EQ(fila.SubItems(1), QStringLiteral("Cien años de soledad"));
    EXPECT_EQ(fila.SubItems(3), QStringLiteral("007"));

    EXPECT_EQ(Busca(QStringLiteral("c?ronel"), QStringLiteral("Título")), 1);
    EXPECT_EQ(Busca(QStringLiteral("garc*MÁRQUEZ"), QStringLiteral("Autor")), 2);
    EXPECT_EQ(Titulos(), QStringList({"Cien años de soledad", "El coronel no tiene quien le escriba"}));
    EXPECT_EQ(pantalla->Frame2->title(), QStringLiteral("Resultados obtenidos: 2"));
    EXPECT_EQ(Busca(QStringLiteral("Cortázar"), QStringLiteral("Título")), 0);
    EXPECT_EQ(pantalla->Frame2->title(), QStringLiteral("Resultados obtenidos: 0"));

    EXPECT_EQ(Busca(QStringLiteral("icci"), QStringLiteral("Título"), true), 1);
    EXPECT_EQ(Encabezados(), QStringList({"", "Título", "Autor", "Donación", "Edición"}));
    EXPECT_EQ(pantalla->ListView1->ListItems()(1).SubItems(3), QStringLiteral("10"));
    EXPECT_EQ(Busca(QStringLiteral("Borg"), QStringLiteral("Autor"), true), 1);
    EXPECT_EQ(Busca(QStringLiteral("soledad"), QStringLiteral("Título"), true), 0);
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(PruebaBusqueda, NumeroDeAdquisicionEnteroYDelLadoElegido) {
    EXPECT_EQ(Busca(QStringLiteral("A-101"), QStringLiteral("No. Adquisición")), 1);
    EXPECT_EQ(pantalla->ListView1->ListItems()(1).SubItems(1), QStringLiteral("Cien años de soledad"));
    EXPECT_EQ(pantalla->Frame2->title(), QStringLiteral("Resultados obtenidos: 1"));
    // Part of a number, a number of the other side and one that does not exist find nothing.
    EXPECT_EQ(Busca(QStringLiteral("A-10"), QStringLiteral("No. Adquisición")), 0);
    EXPECT_EQ(Busca(QStringLiteral("A-100"), QStringLiteral("No. Adquisición"), true), 0);
    EXPECT_EQ(Busca(QStringLiteral("Z-9"), QStringLiteral("No. Adquisición")), 0);
    EXPECT_EQ(pantalla->Frame2->title(), QStringLiteral("Resultados obtenidos: 0"));
    EXPECT_EQ(Busca(QStringLiteral("D-1"), QStringLiteral("No. Adquisición"), true), 1);
    EXPECT_EQ(pantalla->ListView1->ListItems()(1).SubItems(1), QStringLiteral("Ficciones"));
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(PruebaBusqueda, DetallesDeSolicitudDonacionYTituloSinNumeros) {
    ASSERT_EQ(Busca(QStringLiteral("soledad"), QStringLiteral("Título")), 1);
    EXPECT_EQ(Detalles(), QStringLiteral("Núm. solicitud: 7    10/feb/2024\nSolicitante: Ana Ruiz\n"
                                         "Escuela: 3    Biblioteca: 1\nNúm. adquisición: (A-100) (A-101) "));
    EXPECT_EQ(globales::NavTabla, QStringLiteral("[Solicitudes"));
    EXPECT_EQ(globales::NavCampo, QStringLiteral("ClaveLibro"));
    EXPECT_EQ(globales::NavValor.text(), QStringLiteral("001"));

    ASSERT_EQ(Busca(QStringLiteral("Ficciones"), QStringLiteral("Título"), true), 1);
    EXPECT_EQ(Detalles(), QStringLiteral("Núm. donación: 10    Fecha: 05/mar/2024\n"
                                         "Núm. institución: 5    Biblioteca: 2\nNúm. adquisición: (D-1) "));
    EXPECT_EQ(globales::NavTabla, QStringLiteral("[Donaciones"));

    ASSERT_EQ(Busca(QStringLiteral("Rayuela"), QStringLiteral("Título")), 1);
    EXPECT_EQ(Detalles(), QStringLiteral("No tiene números de adquisición asociados"));
    EXPECT_EQ(sistema->modales, QStringList({"Dato", "Dato", "Dato"}));
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(PruebaBusqueda, ComillaDobleTerminaEnLaCajaDeFalla) {
    Busca(QStringLiteral("Cien \"años"), QStringLiteral("Título"));
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].flags & ui::vbCritical, ui::vbCritical);
    EXPECT_EQ(pantalla->ListView1->ListItems().Count(), 0);
    // The screen goes on working.
    EXPECT_EQ(Busca(QStringLiteral("Cien"), QStringLiteral("Título")), 1);
}

}  // namespace
