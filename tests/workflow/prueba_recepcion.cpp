// Reception: the order list and its two filters, closing or reopening an order, marking a title as not
// received, and the reception of one title with its accession numbers (the guards on the count, duplicates,
// the stepping of the next number, deleting, and how leaving settles the title).
#include "ayuda_cajas.h"
#include "ayuda_flujo.h"

#include "core/vb/Formato.h"
#include "workflow/Recep.h"
#include "workflow/Recep_Generales.h"
#include "workflow/Recep_Libros.h"
#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

namespace {

class PruebaRecepcion : public PruebaFlujo {
protected:
    void Pedido(int n, const char* estado) {
        Ejecuta(QStringLiteral("INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, "
                               "Estado, FechaRecepcion) VALUES (%1, #2024/04/10#, 'Marta', 5, 2, '%2', #2024/05/01#)")
                    .arg(n).arg(QLatin1String(estado)));
    }
    void Titulo(int clave, int pedido, const char* estado, const char* recibidos = "NULL", const char* costo = "NULL") {
        Ejecuta(QStringLiteral("INSERT INTO [Solicitudes Libros] (ClaveLibro, NoSolicitud, Titulo, Autor, [Ejemplares Pedidos], "
                               "Estado, [Ejemplares Recibidos], Costo) VALUES (%1, %2, 'Álgebra', 'Baldor', 3, '%3', %4, %5)")
                    .arg(clave).arg(pedido).arg(QLatin1String(estado), QLatin1String(recibidos), QLatin1String(costo)));
    }
    void Numero(const char* numero, int clave, const char* lado = "S") {
        Ejecuta(QStringLiteral("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) "
                               "VALUES ('%1', %2, '%3')").arg(QLatin1String(numero)).arg(clave).arg(QLatin1String(lado)));
    }
    std::unique_ptr<Recep_Libros> Libros(int clave) {
        globales::TitValor = vb::Variant(QString::number(clave));
        auto f = std::make_unique<Recep_Libros>();
        f->Form_Load();
        return f;
    }
    std::unique_ptr<Recep_Generales> Generales(int pedido) {
        globales::NavValor = vb::Variant(QString::number(pedido));
        auto f = std::make_unique<Recep_Generales>();
        f->Form_Load();
        return f;
    }
    static void Agrega(Recep_Libros& f, const QString& numero) {
        f.Text6->setText(numero);
        f.Command4_Click();
    }
    QString Estado(int clave) {
        return Valor(QStringLiteral("SELECT Estado FROM [Solicitudes Libros] WHERE ClaveLibro=%1").arg(clave));
    }
    int Numeros(int clave) {
        return Valor(QStringLiteral("SELECT Count(*) FROM [Adquisiciones Numadqui] WHERE ClaveLibro=%1").arg(clave)).toInt();
    }
};

// ---- Recep --------------------------------------------------------------------------------------------------

TEST_F(PruebaRecepcion, ListaPendientesOProcesadasConElEstadoVacioComoProcesado) {
    Pedido(1, "S");
    Pedido(2, "P");
    Pedido(3, "R");
    Pedido(4, "");
    Pedido(5, "P");
    Recep f;
    f.Form_Load();
    EXPECT_EQ(Textos(*f.ListView1), (QStringList{"005", "002"}));
    EXPECT_EQ(f.Frame2->title(), "Pedidos disponibles: 2");
    f.ListView1->ListItems()(2).setSelected(true);
    f.Form_Activate();                                   // the first row is chosen again
    EXPECT_EQ(f.ListView1->SelectedItem()->Text(), "005");

    f.Option1[1]->setChecked(true);
    f.Option1_Click(1);
    EXPECT_EQ(Textos(*f.ListView1), (QStringList{"004", "003"}));

    Ejecuta("DELETE FROM [Solicitudes General]");
    f.Option1[0]->setChecked(true);
    f.Option1_Click(0);
    EXPECT_EQ(f.Frame2->title(), "Pedidos disponibles: 0 ");
    EXPECT_FALSE(f.Command1->isEnabled());
}

TEST_F(PruebaRecepcion, RegistrarAbreElPedidoYLasFallasSeAtrapan) {
    Pedido(2, "P");
    Titulo(10, 2, "P");
    Titulo(11, 2, "I");
    Recep f;
    f.Form_Load();
    QString pagina;
    sistema->AlMostrar("Recep_Generales", [&](QDialog& d) {
        auto& g = static_cast<Recep_Generales&>(d);
        pagina = g.Web ? g.Web->DocumentHtml() : QString();
        EXPECT_EQ(g.Frame2->title(), "Libros contenidos en el pedido: 2");
    });
    f.Command1_Click();
    EXPECT_TRUE(pagina.contains("Fecha: </td><td>10/abr/2024"));

    f.ListView1->ListItems()(1).setSelected(false);
    f.Command1_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_TRUE(sistema->cajas[0].texto.startsWith("Error 91 ("));
    EXPECT_TRUE(sistema->cajas[0].texto.endsWith(") in procedure Command1_Click of Formulario Recep\r\nlinea:  1"));

    globales::NavValor = vb::Variant(QStringLiteral("2 2"));   // a broken statement
    Recep_Generales g;
    g.Form_Load();
    EXPECT_TRUE(sistema->UltimaCaja().texto.endsWith(" in procedure Refresca of Formulario Recep_Generales\r\nlinea:  1"));
}

// ---- Recep_Generales ----------------------------------------------------------------------------------------

TEST_F(PruebaRecepcion, RegresarReabreConTituloPedidoOCierraSinEl) {
    Pedido(3, "R");
    Titulo(10, 3, "A");
    Titulo(11, 3, "P");
    Titulo(12, 3, "S");                                  // a title never ordered holds nothing back
    Recep lista;
    lista.Form_Load();
    auto g = Generales(3);
    g->Lista = &lista;
    sistema->Responde({ui::vbNo, ui::vbYes});
    g->Command3_Click();
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(Caja(sistema->cajas[0]), Caja("Precaución", ui::vbYesNo, QStringLiteral(
        "Aún no se han procesado todos los libros, el pedido seguirá estando sin recibir. \r\n ¿Desea salir?")));
    EXPECT_EQ(Valor("SELECT Estado FROM [Solicitudes General]"), "R");
    g->Command3_Click();
    EXPECT_EQ(Valor("SELECT Estado & '|' & IdCapturista & '|' & IsNull(FechaRecepcion) FROM [Solicitudes General]"),
              Valor("SELECT 'P|ana|' & True"));
    EXPECT_EQ(Textos(*lista.ListView1), QStringList{"003"});   // pending again

    Ejecuta("UPDATE [Solicitudes Libros] SET Estado='I' WHERE ClaveLibro=11");
    Ejecuta("UPDATE [Solicitudes General] SET IdCapturista='pepe'");
    g->Command3_Click();                                 // nothing left in 'P': closed without a question
    EXPECT_EQ(sistema->cajas.size(), 2u);
    EXPECT_EQ(Valor("SELECT Estado & '|' & IdCapturista FROM [Solicitudes General]"), "R|ana");
}

TEST_F(PruebaRecepcion, NoRecibidoBorraTodosLosNumerosDeLaClave) {
    Pedido(2, "P");
    Titulo(10, 2, "A", "2", "150");
    Titulo(11, 2, "A", "1", "80");
    Numero("0001", 10);
    Numero("0002", 10);
    Numero("D-7", 10, "D");                              // a donated title with the same key
    Numero("0003", 11);
    auto g = Generales(2);
    g->ListView1->ListItems()(1).setSelected(true);
    sistema->Responde({ui::vbNo});
    g->Command2_Click();
    EXPECT_EQ(Numeros(10), 3);
    EXPECT_FALSE(globales::HuboCambiosNumAdq);

    g->Command2_Click();                                 // Yes
    EXPECT_EQ(sistema->cajas.back().texto, "¿Deseas marcar el ejemplar como 'Imposible de Adquirir'?");
    EXPECT_EQ(sistema->cajas.back().titulo, "Aviso");
    EXPECT_EQ(Valor("SELECT Estado & '|' & [Ejemplares Recibidos] & '|' & Costo & '|' & IdCapturista & '|' & "
                    "IsNull([Fecha de Recepcion]) FROM [Solicitudes Libros] WHERE ClaveLibro=10"),
              Valor("SELECT 'I|0|0|ana|' & True"));
    EXPECT_EQ(Numeros(10), 0);
    EXPECT_EQ(Numeros(11), 1);
    EXPECT_TRUE(globales::HuboCambiosNumAdq);
    EXPECT_EQ(g->ListView1->ListItems()(1).SubItems(2), "No adquirido");
}

// ---- Recep_Libros -------------------------------------------------------------------------------------------

TEST_F(PruebaRecepcion, CargaLaRecepcionYSoloLosNumerosDeSolicitud) {
    Pedido(2, "P");
    Titulo(10, 2, "A", "3", "150.5");
    Ejecuta("UPDATE [Solicitudes Libros] SET [Fecha de Recepcion]=#2024/03/05#, Factura='F-1' WHERE ClaveLibro=10");
    Numero("0001", 10);
    Numero("D-7", 10, "D");
    Numero("0002", 10);
    auto f = Libros(10);
    EXPECT_EQ((QStringList{f->Text2->text(), f->Text3->text(), f->Text4->text(), f->Text5->text()}),
              (QStringList{"05/mar/2024", "3", "150.5", "F-1"}));
    ASSERT_EQ(f->List1->count(), 2);
    EXPECT_TRUE(f->Text6->isEnabled());
    EXPECT_TRUE(UltimoDocumento().contains("Título: </td><td>Álgebra"));

    Titulo(11, 2, "A", "0", "10");                       // nothing received: today, nothing to list
    auto nuevo = Libros(11);
    EXPECT_EQ(nuevo->Text2->text(), vb::Format(vb::Variant(vb::Fecha::Today()), "dd/MMM/yyyy"));
    EXPECT_FALSE(nuevo->Text6->isEnabled());
    sistema->Responde({ui::vbNo});                       // no copies asks before leaving too
    nuevo->Command3_Click();
    EXPECT_EQ(sistema->UltimaCaja().titulo, "¡Precaución!");
    EXPECT_EQ(Estado(11), "A");
}

TEST_F(PruebaRecepcion, AgregarHastaLosEjemplaresYLuegoRehusa) {
    Pedido(2, "P");
    Titulo(10, 2, "P");
    auto f = Libros(10);
    f->Text3->setText("2");
    f->Text4->setText("0");
    f->Text6->setText("000314");
    EXPECT_FALSE(f->Command4->isEnabled());              // no number without a cost
    f->Text4->setText("150");
    EXPECT_TRUE(f->Command4->isEnabled());
    f->Text5->setText("O'Hara");
    f->Command4_Click();
    EXPECT_EQ(Valor("SELECT Estado & '|' & [Ejemplares Recibidos] & '|' & Costo & '|' & Factura FROM [Solicitudes Libros]"),
              "A|2|150|O'Hara");
    f->Command4_Click();
    f->Command4_Click();                                 // a third number for two copies
    EXPECT_EQ(sistema->UltimaCaja().texto, "No se puede introducir más Números de Adquisición que los Ejemplares Recibidos");
    EXPECT_EQ(sistema->UltimaCaja().titulo, "Precaución");
    EXPECT_EQ(f->Text6->text(), QString());
    EXPECT_FALSE(f->Command4->isEnabled());
    EXPECT_EQ(Numeros(10), 2);

    f->Text6->setText("   ");
    f->Command4_Click();
    EXPECT_EQ(sistema->UltimaCaja().texto, "Escriba un número de adquisición valido");
}

TEST_F(PruebaRecepcion, ElSiguienteNumeroYLosDuplicadosSoloDelLadoDeSolicitudes) {
    Titulo(10, 2, "P", "9", "10");
    Titulo(20, 4, "A", "1", "10");
    Numero("500", 20);
    Numero("600", 77, "D");
    auto f = Libros(10);
    Agrega(*f, "500");
    EXPECT_EQ(sistema->UltimaCaja().texto, "El número de Adquisición ya existe");
    EXPECT_EQ(f->List1->count(), 0);
    EXPECT_EQ(Estado(10), "P");          // refused before the title is touched
    Agrega(*f, "700");
    // Dates of entry: the new number shows when it was entered.
    f->List1->setCurrentRow(0);
    EXPECT_TRUE(f->Command5->isEnabled());
    EXPECT_FALSE(f->lblInfoNumAdq->isHidden());
    EXPECT_TRUE(f->lblInfoNumAdq->text().startsWith("Este ejemplar fue agregado el "));
    EXPECT_TRUE(f->lblInfoNumAdq->text().contains(vb::Format(vb::Variant(vb::Fecha::Today()), "dd-mmm-yyyy")));

    Agrega(*f, "600");                   // the donation's number is accepted here
    EXPECT_EQ(f->List1->count(), 2);

    // "600" now answers twice for two places: a subscript failure, shown and survived.
    const size_t antes = sistema->cajas.size();
    f->List1->setCurrentRow(1);
    ASSERT_EQ(sistema->cajas.size(), antes + 1);
    EXPECT_EQ(sistema->UltimaCaja().texto, ui::TextoFallaPredeterminada(9, "El subíndice está fuera del intervalo"));

    // The next number steps up keeping its width, or comes back selected when it isn't a number.
    Agrega(*f, "999");
    EXPECT_EQ(f->Text6->text(), "1000");
    Agrega(*f, "0099");
    EXPECT_EQ(f->Text6->text(), "0100");
    Agrega(*f, "AB-12");
    EXPECT_EQ(f->Text6->text(), "AB-12");
    EXPECT_EQ(f->Text6->selectedText(), "AB-12");
    EXPECT_EQ(f->List1->count(), 5);
}

TEST_F(PruebaRecepcion, EjemplaresNoBajanDeLaListaYBorrarTodosDevuelveElTituloAPedido) {
    Pedido(2, "P");
    Titulo(10, 2, "A", "3", "10");
    for (const char* n : {"1", "2", "3"}) Numero(n, 10);
    Numero("3", 30, "D");                                // same number, other side: it stays
    auto g = Generales(2);
    globales::TitValor = vb::Variant(QStringLiteral("10"));
    Recep_Libros f;
    f.Generales = g.get();
    f.Form_Load();
    ASSERT_EQ(f.List1->count(), 3);
    f.Text3->selectAll();
    Teclea(f.Text3, "2");
    EXPECT_EQ(f.Text3->text(), "3");
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(Caja(sistema->cajas[0]), Caja("Advertencia", ui::vbExclamation, QStringLiteral(
        "No puede haber más Números de Adquisición que Ejemplares Recibidos\r\n"
        "Si quiere reducir este valor primero quite algunos Números de Adquisición de la lista")));
    // The key filter: letters are lost, three digits at most.
    f.Text3->setCursorPosition(1);
    Teclea(f.Text3, "x12345");
    EXPECT_EQ(f.Text3->text(), "312");

    // Rows chosen without their click: "3" would read the donation's row too (see the subscript case). Each
    // deletion chooses the number left in its place, so three clicks delete them all.
    const QSignalBlocker sinClic(f.List1);
    f.List1->setCurrentRow(2);
    for (int i = 0; i < 3; ++i) f.Command5_Click();
    EXPECT_EQ(f.List1->count(), 0);
    EXPECT_EQ(Numeros(10), 0);
    EXPECT_EQ(Numeros(30), 1);
    EXPECT_EQ(Estado(10), "A");          // settled only on leaving

    sistema->Responde({ui::vbYes});
    f.Command3_Click();
    ASSERT_EQ(sistema->cajas.size(), 2u);
    EXPECT_EQ(Caja(sistema->cajas[1]), Caja("¡Precaución!", ui::vbYesNo + ui::vbQuestion, QStringLiteral(
        "Este título no tiene ningún número de adquisición registrado,\r\npor lo que en su estado aparecerá como 'Pedido'"
        "\r\n\r\n ¿Desea salir de todos modos?")));
    EXPECT_EQ(Valor("SELECT Estado & '|' & [Ejemplares Recibidos] & '|' & Costo & '|' & Factura & '|' & "
                    "IsNull([Fecha de Recepcion]) FROM [Solicitudes Libros]"), Valor("SELECT 'P|0|0||' & True"));
    EXPECT_EQ(g->ListView1->ListItems()(1).SubItems(2), "-Pedido-");   // the order screen follows
}

TEST_F(PruebaRecepcion, MenosNumerosQueEjemplaresPreguntaConNoPorOmision) {
    Pedido(2, "P");
    Titulo(10, 2, "P", "3", "10");
    Numero("1", 10);
    auto g = Generales(2);
    globales::TitValor = vb::Variant(QStringLiteral("10"));
    globales::DesdeListadoEjemplares = true;
    Recep_Libros f;
    f.Generales = g.get();
    f.Form_Load();
    f.Text5->setText("F'9");
    sistema->Responde({ui::vbNo, ui::vbYes});
    f.Command3_Click();
    EXPECT_EQ(Estado(10), "P");
    f.Command3_Click();
    EXPECT_EQ(sistema->UltimaCaja().texto, QStringLiteral("Ha agregado menos Números de Adquisición que Libros Recibidos. "
                                                         "\r\n ¿Desea salir dejando incompleta la recepción?"));
    EXPECT_EQ(sistema->UltimaCaja().flags, ui::vbYesNo + ui::vbDefaultButton2);
    EXPECT_EQ(Valor("SELECT Estado & '|' & Factura FROM [Solicitudes Libros]"), "A|F'9");
    // From the copy listing the order screen isn't asked to refresh.
    EXPECT_EQ(g->ListView1->ListItems()(1).SubItems(2), "-Pedido-");
}

TEST_F(PruebaRecepcion, TrasBorrarElNumeroQueQuedaElegidoSeComportaComoClicado) {
    Pedido(2, "P");
    Titulo(10, 2, "A", "4", "10");
    Numero("100", 10);
    Ejecuta("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], FechaIngreso) "
            "VALUES ('101', 10, 'S', #2024/03/02 10:15:00#)");
    Ejecuta("INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], FechaIngreso) "
            "VALUES ('102', 10, 'S', #2024/03/09 08:00:05#)");
    Numero("103", 10);
    auto f = Libros(10);
    ASSERT_EQ(f->List1->count(), 4);

    // Deleting the last number chooses the one before, with its date of entry and its button.
    f->List1->setCurrentRow(3);
    f->List1_Click();
    EXPECT_TRUE(f->lblInfoNumAdq->isHidden());           // "103" has no date
    f->Command5_Click();
    EXPECT_EQ(f->List1->currentItem()->text(), "102");
    EXPECT_TRUE(f->Command5->isEnabled());
    EXPECT_TRUE(f->Command5->isDefault());
    EXPECT_FALSE(f->lblInfoNumAdq->isHidden());
    EXPECT_EQ(f->lblInfoNumAdq->text(), "Este ejemplar fue agregado el 09-mar-2024 08:00:05");

    // Below the second place the first number takes the choice; one without a date hides the label.
    f->List1->setCurrentRow(1);
    f->Command5_Click();
    EXPECT_EQ(f->List1->currentItem()->text(), "100");
    EXPECT_TRUE(f->Command5->isEnabled());
    EXPECT_TRUE(f->lblInfoNumAdq->isHidden());

    // The last one gone: nothing is chosen, the button and the label stay off.
    f->Command5_Click();
    f->Command5_Click();
    EXPECT_EQ(f->List1->count(), 0);
    EXPECT_FALSE(f->Command5->isEnabled());
    EXPECT_TRUE(f->lblInfoNumAdq->isHidden());
    EXPECT_TRUE(sistema->cajas.empty());
}

TEST_F(PruebaRecepcion, CamposDeLaRecepcionLimitadosYEnOrdenDeTabulacion) {
    Pedido(2, "P");
    Titulo(10, 2, "P", "1", "10");
    auto f = Libros(10);
    f->Text5->clear();                                   // Factura TEXT(50)
    Teclea(f->Text5, QString(60, u'f'));
    EXPECT_EQ(f->Text5->text(), QString(50, u'f'));
    f->Text6->setText("7");
    f->Command4_Click();
    EXPECT_TRUE(sistema->cajas.empty());
    EXPECT_EQ(Valor("SELECT Len(Factura) FROM [Solicitudes Libros] WHERE ClaveLibro=10"), "50");

    const QList<QWidget*> orden{f->Text2, f->Text3, f->Text4,    f->Text5,    f->Text6, f->Command4,
                                f->List1, f->Command1, f->Command5, f->Command2, f->Command3};
    EXPECT_EQ(OrdenDeFoco(orden), orden);
}

}  // namespace
