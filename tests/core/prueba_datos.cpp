// The data routines: the statements they build and run, how the fillers format each column by its type,
// the texts joined by "|", and the boxes of the routines that trap their failures.
#include "../ui/ayuda_ui.h"

#include "core/Datos.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "core/vb/Fecha.h"

namespace {

using globales::AltaDatos;
using globales::ConsultaDatos;

class Datos_ : public prueba_ui::ConBase {
protected:
    void SetUp() override {
        ConBase::SetUp();
        for (const char* s : {
                 "INSERT INTO Escuelas ([No], Nombre, NoBiblioteca) VALUES (3, 'Norte', 1)",
                 "INSERT INTO Escuelas ([No], Nombre, NoBiblioteca) VALUES (12, 'Centro', 1)",
                 "INSERT INTO Escuelas ([No], Nombre, NoBiblioteca) VALUES (1250, 'Anexo', 2)",
                 "INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado) "
                 "VALUES (5, #2024/01/05#, 'Ana', 7, 1, 'S')",
                 "INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado) "
                 "VALUES (6, #2024/03/20#, 'Beto', 12, 2, 'S')",
                 "INSERT INTO [Solicitudes Libros] (Titulo, Costo, NoSolicitud, Estado) VALUES ('Uno', 0.5, 5, 'S')",
                 "INSERT INTO [Solicitudes Libros] (Titulo, Costo, NoSolicitud, Estado) VALUES ('Dos', 1234567.891, 5, 'S')",
                 "INSERT INTO [Solicitudes Libros] (Titulo, Costo, NoSolicitud, Estado) VALUES ('Tres', NULL, 6, 'S')",
             })
            Ejecuta(QString::fromUtf8(s));
    }

    // A list with as many columns as the statement gives.
    void Columnas(int n) {
        lista.ColumnHeaders().Clear();
        for (int i = 0; i < n; ++i) lista.ColumnHeaders().Add(QStringLiteral("c%1").arg(i));
    }
    QStringList Renglon(int indice) {
        controles::ListItem& item = lista.ListItems()(indice);
        QStringList r{item.Text()};
        for (int c = 1; c < lista.ColumnHeaders().Count(); ++c) r << item.SubItems(c);
        return r;
    }

    controles::ListView lista;
};

TEST_F(Datos_, LlenaListaClaveFormateaCadaColumnaPorSuTipo) {
    Columnas(5);
    ConsultaDatos c{QStringLiteral("NoSolicitud, Fecha, Solicitante, NoEscuela, FechaPedido"),
                    QStringLiteral("[Solicitudes General]"), QString(), QString(), QStringLiteral("NoSolicitud")};
    Datos::LlenaListaClave(c, lista);
    ASSERT_EQ(lista.ListItems().Count(), 2);
    // A Long key in three digits, the date year first with the month's abbreviation, a small number in "#00",
    // a NULL date as empty text.
    EXPECT_EQ(Renglon(1), (QStringList{"005", "2024/ene/05", "Ana", "07", ""}));
    EXPECT_EQ(Renglon(2), (QStringList{"006", "2024/mar/20", "Beto", "12", ""}));

    // Money padded to 14 on the right, without a leading zero below 1; NoSolicitud of the titles (Integer)
    // keeps "#00" here; the counter key in three digits.
    Columnas(4);
    c = {QStringLiteral("ClaveLibro, Costo, NoSolicitud, Titulo"), QStringLiteral("[Solicitudes Libros]"),
         QStringLiteral("NoSolicitud"), QStringLiteral("5"), QStringLiteral("ClaveLibro")};
    Datos::LlenaListaClave(c, lista);
    ASSERT_EQ(lista.ListItems().Count(), 2);
    EXPECT_EQ(Renglon(1), (QStringList{"001", "           .50", "05", "Uno"}));
    EXPECT_EQ(Renglon(2), (QStringList{"002", "  1,234,567.89", "05", "Dos"}));

    // With Tabla empty, Clave carries the FROM text; a column 0 that is no Long shows as it is.
    Columnas(2);
    c = {QStringLiteral("Nombre, [No]"), QString(), QStringLiteral("Escuelas WHERE NoBiblioteca=1"), QStringLiteral("99"),
         QStringLiteral("Nombre")};
    Datos::LlenaListaClave(c, lista);
    EXPECT_EQ(Renglon(1), (QStringList{"Centro", "12"}));
    EXPECT_EQ(Renglon(2), (QStringList{"Norte", "03"}));
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(Datos_, LlenaListaCondicionUsaSusPropiasMascaras) {
    Columnas(5);
    ConsultaDatos c{QStringLiteral("L.ClaveLibro, S.Fecha, L.Costo, L.NoSolicitud, S.NoEscuela"),
                    QStringLiteral("[Solicitudes Libros] L"),
                    QStringLiteral(" left join [Solicitudes General] S on L.NoSolicitud=S.NoSolicitud"), QStringLiteral("no usado"),
                    QStringLiteral("L.ClaveLibro")};
    Datos::LlenaListaCondicion(c, lista);
    ASSERT_EQ(lista.ListItems().Count(), 3);
    EXPECT_EQ(Renglon(1), (QStringList{"001", "2024/01/05", "          0.50", "005", "07"}));
    EXPECT_EQ(Renglon(2), (QStringList{"002", "2024/01/05", "  1,234,567.89", "005", "07"}));
    // NULL money as empty text.
    EXPECT_EQ(Renglon(3), (QStringList{"003", "2024/03/20", "", "006", "12"}));

    // Tabla and Clave are joined without a blank; an empty result leaves the list empty, without a box.
    Columnas(2);
    c = {QStringLiteral("[No], Nombre"), QStringLiteral("Escuelas"), QStringLiteral(" WHERE [No] > 5000"), QString(), QString()};
    Datos::LlenaListaCondicion(c, lista);
    EXPECT_EQ(lista.ListItems().Count(), 0);
    EXPECT_TRUE(sistema->cajas.empty());

    // No trap: a bad statement comes up to the caller.
    c.Clave = QStringLiteral(" WHERE");
    EXPECT_THROW(Datos::LlenaListaCondicion(c, lista), vb::Error);
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(Datos_, LlenaComboConColumnaDeIdentificador) {
    controles::ComboBox combo;
    int clics = 0;
    QObject::connect(&combo, &controles::ComboBox::Click, [&clics] { ++clics; });
    ConsultaDatos c{QStringLiteral("[No], Nombre"), QStringLiteral("Escuelas"), QString(), QString(), QStringLiteral("Nombre")};
    Datos::LlenaCombo(c, combo, QString());
    ASSERT_EQ(combo.ListCount(), 3);
    // Numbers in three digits and a hyphen; above 999 the number is shown whole.
    EXPECT_EQ(combo.List(0), QStringLiteral("1250 - Anexo"));
    EXPECT_EQ(combo.List(1), QStringLiteral("012 - Centro"));
    EXPECT_EQ(combo.List(2), QStringLiteral("003 - Norte"));
    EXPECT_EQ(combo.ItemData(1), 0);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(c.Campos, QStringLiteral("[No], Nombre"));

    // The id column is added to Campos for good and fills ItemData.
    c = {QStringLiteral("Nombre"), QStringLiteral("Escuelas"), QStringLiteral("NoBiblioteca"), QStringLiteral("1"),
         QStringLiteral("Nombre")};
    Datos::LlenaCombo(c, combo, QStringLiteral("[No]"));
    EXPECT_EQ(c.Campos, QStringLiteral("Nombre, [No] as Invisible "));
    ASSERT_EQ(combo.ListCount(), 2);
    EXPECT_EQ(combo.List(0), QStringLiteral("Centro"));
    EXPECT_EQ(combo.ItemData(0), 12);
    EXPECT_EQ(combo.ItemData(1), 3);

    // A second call with the same record adds the column a second time.
    try {
        Datos::LlenaCombo(c, combo, QStringLiteral("[No]"));
    } catch (const vb::Error&) {
    }
    EXPECT_EQ(c.Campos, QStringLiteral("Nombre, [No] as Invisible , [No] as Invisible "));
    EXPECT_TRUE(sistema->cajas.empty());
    // Filling fires no Click.
    EXPECT_EQ(clics, 0);
}

TEST_F(Datos_, ConsultaCamposYConsultasInUnenLosValores) {
    ConsultaDatos c{QStringLiteral("Fecha, Solicitante, NoEscuela"), QStringLiteral("[Solicitudes General]"),
                    QStringLiteral("NoSolicitud"), QStringLiteral("5"), QString()};
    // Three columns of one row: three values.
    EXPECT_EQ(Datos::ConsultaCampos(c), QStringLiteral("05/01/2024|Ana|7"));
    // Rows can't be told from columns; the extra text goes before the ORDER BY; a NULL adds only the "|".
    c = {QStringLiteral("Solicitante, FechaPedido"), QStringLiteral("[Solicitudes General]"), QString(), QString(),
         QStringLiteral("NoSolicitud DESC")};
    EXPECT_EQ(Datos::ConsultaCampos(c, QStringLiteral(" WHERE Estado='S'")), QStringLiteral("Beto||Ana|"));
    c.Orden.clear();
    EXPECT_EQ(Datos::ConsultaCampos(c, QStringLiteral(" WHERE Estado='X'")), QString());
    c.Tabla = QStringLiteral("NoHay");
    EXPECT_THROW(Datos::ConsultaCampos(c), vb::Error);
    EXPECT_TRUE(sistema->cajas.empty());

    ConsultaDatos in{QStringLiteral("Titulo, Costo"), QStringLiteral("ignorada"),
                     QStringLiteral("[Solicitudes Libros] WHERE NoSolicitud=5"), QString(), QStringLiteral("Titulo DESC")};
    EXPECT_EQ(Datos::Consultas_in(in), QStringLiteral("Uno|0.5|Dos|1234567.891"));
    EXPECT_TRUE(sistema->cajas.empty());
    // Its failure: the box, and the empty text.
    in.Clave = QStringLiteral("NoHay");
    EXPECT_EQ(Datos::Consultas_in(in), QString());
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("ConsultaIN"));
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbCritical);
    EXPECT_TRUE(sistema->cajas[0].texto.startsWith(QStringLiteral("Error 3078 (")));
    EXPECT_TRUE(sistema->cajas[0].texto.endsWith(QStringLiteral(") in procedure Consultas_in of Módulo Datos\r\nlinea:  1")));
}

TEST_F(Datos_, GrabarXYBorrarX) {
    AltaDatos a{QStringLiteral("[No], Nombre, NoBiblioteca"), QStringLiteral("40, 'Sur', 2"), QStringLiteral(" Escuelas")};
    EXPECT_TRUE(Datos::GrabarX(a));
    EXPECT_EQ(Valor(QStringLiteral("SELECT Nombre FROM Escuelas WHERE [No]=40")), QStringLiteral("Sur"));
    // A duplicate key: the box and False.
    EXPECT_FALSE(Datos::GrabarX(a));
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("GrabarX"));
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbCritical);
    EXPECT_TRUE(sistema->cajas[0].texto.startsWith(QStringLiteral("Error: '")));
    EXPECT_TRUE(sistema->cajas[0].texto.endsWith(QStringLiteral("' Línea: 1")));

    ConsultaDatos c{QString(), QStringLiteral("Escuelas"), QStringLiteral("NoBiblioteca"), QStringLiteral("2"), QString()};
    // The extra text follows the key after a blank.
    EXPECT_TRUE(Datos::BorrarX(c, QStringLiteral("and Nombre='Sur'")));
    EXPECT_EQ(Cuenta(QStringLiteral("Escuelas")), 3);
    // Nothing to delete is still True.
    EXPECT_TRUE(Datos::BorrarX(c, QStringLiteral("and Nombre='Sur'")));
    c.Valor.clear();
    EXPECT_FALSE(Datos::BorrarX(c));
    ASSERT_EQ(sistema->cajas.size(), 2u);
    EXPECT_EQ(sistema->cajas[1].titulo, QStringLiteral("BorrarX"));
    EXPECT_TRUE(sistema->cajas[1].texto.endsWith(QStringLiteral("' Línea 1")));
    EXPECT_EQ(Cuenta(QStringLiteral("Escuelas")), 3);
}

TEST_F(Datos_, CambiaGenericoX) {
    ConsultaDatos c{QStringLiteral("Solicitante| NoEscuela| Fecha"), QStringLiteral("[Solicitudes General]"),
                    QStringLiteral("NoSolicitud"), QStringLiteral("5"), QStringLiteral("'Luis'|9|#2024/02/01#")};
    EXPECT_TRUE(Datos::CambiaGenerico_X(c));
    EXPECT_EQ(Valor(QStringLiteral("SELECT Solicitante & '/' & NoEscuela FROM [Solicitudes General] WHERE NoSolicitud=5")),
              QStringLiteral("Luis/9"));
    EXPECT_EQ(Valor(QStringLiteral("SELECT Fecha FROM [Solicitudes General] WHERE NoSolicitud=5")),
              QStringLiteral("2024-02-01 00:00:00"));
    // The record is left as it was; no row touched is still True; NULL goes as the word.
    EXPECT_EQ(c.Campos, QStringLiteral("Solicitante| NoEscuela| Fecha"));
    c.Campos = QStringLiteral("NoEscuela");
    c.Orden = QStringLiteral("NULL");
    c.Valor = QStringLiteral("99");
    EXPECT_TRUE(Datos::CambiaGenerico_X(c));
    c.Valor = QStringLiteral("5");
    EXPECT_TRUE(Datos::CambiaGenerico_X(c));
    EXPECT_EQ(Valor(QStringLiteral("SELECT NoEscuela FROM [Solicitudes General] WHERE NoSolicitud=5")), QStringLiteral("NULL"));
    EXPECT_TRUE(sistema->cajas.empty());

    // More columns than values: once the values run out, the last one is taken again for every column left.
    c.Campos = QStringLiteral("Solicitante|NoEscuela|NoBiblioteca");
    c.Orden = QStringLiteral("'Eva'|4");
    EXPECT_TRUE(Datos::CambiaGenerico_X(c));
    EXPECT_EQ(Valor(QStringLiteral("SELECT NoEscuela & '/' & NoBiblioteca FROM [Solicitudes General] WHERE NoSolicitud=5")),
              QStringLiteral("4/4"));
    // An empty value fails on the statement: the box shows it.
    c.Orden = QStringLiteral("'Eva'||3");
    EXPECT_FALSE(Datos::CambiaGenerico_X(c));
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].titulo, QStringLiteral("CambiaGenerico_X"));
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbCritical);
    EXPECT_TRUE(sistema->cajas[0].texto.endsWith(
        QStringLiteral("' Línea: 1\r\n[source]: UPDATE [Solicitudes General] SET Solicitante='Eva', NoEscuela=, "
                       "NoBiblioteca=3 WHERE NoSolicitud=5")));
}

TEST_F(Datos_, MarcaPedidasYMarcaSolicitada) {
    const vb::Fecha antes = vb::Fecha::Now();
    ConsultaDatos c{QString(), QStringLiteral("[Solicitudes General]"), QString(), QStringLiteral("005, 6"), QString()};
    Datos::MarcaPedidas(c);
    EXPECT_EQ(Cuenta(QStringLiteral("[Solicitudes General] WHERE Estado='P'")), 2);
    const vb::Fecha pedido = globales::Base()
                                 .OpenRecordset(QStringLiteral("SELECT FechaPedido FROM [Solicitudes General] WHERE NoSolicitud=5"))
                                 ->Fields(0)
                                 .Value()
                                 .toDate();
    EXPECT_GE(pedido.toSerial() + 1.0 / 86400, antes.toSerial());
    EXPECT_LE(pedido, vb::Fecha::Now());

    // Any other table: the state only.
    c = {QString(), QStringLiteral("[Solicitudes Libros]"), QString(), QStringLiteral("5"), QString()};
    Datos::MarcaPedidas(c);
    EXPECT_EQ(Cuenta(QStringLiteral("[Solicitudes Libros] WHERE Estado='P'")), 2);

    c = {QString(), QStringLiteral("[Solicitudes General]"), QString(), QStringLiteral("6"), QString()};
    Datos::MarcaSolicitada(c);
    EXPECT_EQ(Valor(QStringLiteral("SELECT Estado FROM [Solicitudes General] WHERE NoSolicitud=6")), QStringLiteral("S"));
    EXPECT_TRUE(sistema->cajas.empty());

    // An empty list is a syntax error: the box with an empty title, and nothing changed.
    c.Valor.clear();
    Datos::MarcaPedidas(c);
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].titulo, QString());
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbCritical);
    EXPECT_TRUE(sistema->cajas[0].texto.startsWith(QStringLiteral("Error: '")));
    EXPECT_TRUE(sistema->cajas[0].texto.endsWith(u'\''));
    EXPECT_EQ(Cuenta(QStringLiteral("[Solicitudes General] WHERE Estado='P'")), 1);
}

TEST_F(Datos_, CascadasDeBorrado) {
    for (const char* s : {
             "INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) VALUES ('A1', 1, 'S')",
             "INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) VALUES ('A2', 2, 'D')",
             "INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) VALUES ('A3', 3, 'S')",
             "INSERT INTO [Donaciones General] (NoDonacion, Fecha) VALUES (1, #2024/01/01#)",
             "INSERT INTO [Donaciones Libros] (Titulo, NoDonacion) VALUES ('D1', 1)",
             "INSERT INTO [Donaciones Libros] (Titulo, NoDonacion) VALUES ('D2', 1)",
         })
        Ejecuta(QString::fromUtf8(s));

    // The request's titles go with their accession numbers, whichever side entered them; the key is read
    // through its numeric value.
    Datos::BorraSolicitud(QStringLiteral("005"));
    EXPECT_EQ(Cuenta(QStringLiteral("[Solicitudes General] WHERE NoSolicitud=5")), 0);
    EXPECT_EQ(Cuenta(QStringLiteral("[Solicitudes Libros] WHERE NoSolicitud=5")), 0);
    EXPECT_EQ(Valor(QStringLiteral("SELECT NoAdquisicion FROM [Adquisiciones Numadqui]")), QStringLiteral("A3"));
    EXPECT_EQ(Cuenta(QStringLiteral("[Adquisiciones Numadqui]")), 1);
    EXPECT_EQ(Cuenta(QStringLiteral("[Solicitudes General]")), 1);

    // A title of a request: its accession numbers stay.
    Datos::BorraLibroSolicitud(QStringLiteral("3"));
    EXPECT_EQ(Cuenta(QStringLiteral("[Solicitudes Libros]")), 0);
    EXPECT_EQ(Cuenta(QStringLiteral("[Adquisiciones Numadqui]")), 1);

    // A donated title takes only the numbers marked 'D' with its key.
    Ejecuta(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) "
                           "VALUES ('A4', 1, 'D')"));
    Ejecuta(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) "
                           "VALUES ('A5', 2, 'D')"));
    Datos::BorraLibroDonacion(QStringLiteral("1"));
    EXPECT_EQ(Cuenta(QStringLiteral("[Donaciones Libros]")), 1);
    EXPECT_EQ(Cuenta(QStringLiteral("[Adquisiciones Numadqui] WHERE ClaveLibro=1")), 0);
    EXPECT_EQ(Cuenta(QStringLiteral("[Adquisiciones Numadqui] WHERE ClaveLibro=3")), 1);

    // A donation: head and titles, but not the numbers of its titles.
    Datos::BorraDonacion(QStringLiteral("1"));
    EXPECT_EQ(Cuenta(QStringLiteral("[Donaciones Libros]")), 0);
    EXPECT_EQ(Cuenta(QStringLiteral("[Donaciones General]")), 0);
    EXPECT_EQ(Cuenta(QStringLiteral("[Adquisiciones Numadqui] WHERE ClaveLibro=2")), 1);
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(Datos_, UnaCascadaQueFallaDejaLoQueYaCorrio) {
    Ejecuta(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) "
                           "VALUES ('A1', 1, 'S')"));
    Ejecuta(QStringLiteral("DROP TABLE [Solicitudes General]"));
    Datos::BorraSolicitud(QStringLiteral("5"));
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].titulo, QString());
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbCritical);
    EXPECT_TRUE(sistema->cajas[0].texto.startsWith(QStringLiteral("Error: '")));
    EXPECT_EQ(Cuenta(QStringLiteral("[Adquisiciones Numadqui]")), 0);
    EXPECT_EQ(Cuenta(QStringLiteral("[Solicitudes Libros] WHERE NoSolicitud=5")), 0);

    // The first statement fails: nothing after it runs.
    Ejecuta(QStringLiteral("DROP TABLE [Donaciones Libros]"));
    Datos::BorraDonacion(QStringLiteral("1"));
    EXPECT_EQ(sistema->cajas.size(), 2u);
}

TEST(Datos, TextosUnidosYReemplazos) {
    QString t = QStringLiteral("a|b||c");
    EXPECT_EQ(Datos::TomaCampo(t), QStringLiteral("a"));
    EXPECT_EQ(t, QStringLiteral("b||c"));
    EXPECT_EQ(Datos::TomaCampo(t), QStringLiteral("b"));
    EXPECT_EQ(Datos::TomaCampo(t), QString());
    EXPECT_EQ(t, QStringLiteral("c"));
    // Without "|": the whole text, left as it was.
    EXPECT_EQ(Datos::TomaCampo(t), QStringLiteral("c"));
    EXPECT_EQ(t, QStringLiteral("c"));
    t = QStringLiteral("x|");
    EXPECT_EQ(Datos::TomaCampo(t), QStringLiteral("x"));
    EXPECT_EQ(t, QString());

    EXPECT_EQ(Datos::DuplicaComillas(QStringLiteral("D'Artagnan y 'Aramis'")), QStringLiteral("D''Artagnan y ''Aramis''"));

    // The search goes on behind each replacement, so a replacement holding the sought text is not searched.
    QString s = QStringLiteral("O'Hara's");
    EXPECT_EQ(Datos::ReemplazaTexto(s, QStringLiteral("'"), QStringLiteral("''")), QStringLiteral("O''Hara''s"));
    EXPECT_EQ(s, QStringLiteral("O''Hara''s"));
    s = QStringLiteral("aXbXX");
    EXPECT_EQ(Datos::ReemplazaTexto(s, QStringLiteral("X"), QString()), QStringLiteral("ab"));
    s = QStringLiteral("abab");
    EXPECT_EQ(Datos::ReemplazaTexto(s, QStringLiteral("ab"), QStringLiteral("b")), QStringLiteral("bb"));
    // An empty text to look for changes nothing.
    s = QStringLiteral("sin nada");
    EXPECT_EQ(Datos::ReemplazaTexto(s, QString(), QStringLiteral("y")), QStringLiteral("sin nada"));
}

}  // namespace
