#include "workflow/Don_Edi.h"

#include "catalog/CatMod.h"
#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/CampoEnlazado.h"
#include "core/controles/ComboBox.h"
#include "core/controles/SoloDigitos.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"
#include "workflow/Don1.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("Don_Edi");

// A number as the language prints it: whole numbers without decimals.
QString Numero(double valor) {
    if (valor == static_cast<double>(static_cast<qint64>(valor))) return QString::number(static_cast<qint64>(valor));
    return QString::number(valor, 'g', 15);
}
QString NumeroDe(const QString& texto) { return Numero(vb::Val(texto)); }

// A date through a mask; a text that is no date goes through as it is.
QString FormatoFecha(const QString& texto, const QString& mascara) {
    if (vb::IsDate(vb::Variant(texto))) return vb::Format(vb::Variant(vb::CDate(vb::Variant(texto))), mascara);
    return vb::Format(vb::Variant(texto), mascara);
}

// Selects each item whose numeric value is the field's; a number that matches none leaves the combo as it was.
void SeleccionaPorNumero(const QLineEdit& campo, controles::ComboBox& combo) {
    const double valor = vb::Val(campo.text());
    for (int i = 0; i < combo.ListCount(); ++i)
        if (vb::Val(combo.List(i)) == valor) combo.setListIndex(i);
}

}  // namespace

Don_Edi::Don_Edi(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Don_Edi"));
    setWindowTitle(QStringLiteral("Agregar una donación"));

    Label6 = new QLabel(this);
    Text2 = new QLineEdit(this);
    Combo3 = new controles::ComboBox(this);
    Combo3->setEditable(true);
    Combo3->AddItem(QStringLiteral("Donación"));
    Combo3->AddItem(QStringLiteral("Intercambio"));
    Combo3->setText(QStringLiteral("Donación"));   // a gift unless told otherwise
    Combo1 = new controles::ComboBox(this);
    Text4 = new QLineEdit(this);
    Command2 = new QPushButton(QStringLiteral("..."), this);
    Combo2 = new controles::ComboBox(this);
    Text5 = new QLineEdit(this);
    Command4 = new QPushButton(QStringLiteral("..."), this);
    Command1 = new QPushButton(QStringLiteral("&Grabar"), this);
    Command3 = new QPushButton(QStringLiteral("&Regresar"), this);
    const std::pair<QWidget*, const char*> nombres[] = {
        {Label6, "Label6"}, {Text2, "Text2"}, {Combo3, "Combo3"}, {Combo1, "Combo1"}, {Text4, "Text4"},
        {Command2, "Command2"}, {Combo2, "Combo2"}, {Text5, "Text5"}, {Command4, "Command4"},
        {Command1, "Command1"}, {Command3, "Command3"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));
    controles::SoloDigitos::Instala(Text4);
    controles::SoloDigitos::Instala(Text5);

    auto* g = new QGridLayout;
    g->addWidget(new QLabel(QStringLiteral("Núm. de donación"), this), 0, 0);
    g->addWidget(Label6, 0, 1);
    g->addWidget(new QLabel(QStringLiteral("Fecha"), this), 1, 0);
    g->addWidget(Text2, 1, 1);
    g->addWidget(new QLabel(QStringLiteral("Donación o intercambio"), this), 2, 0);
    g->addWidget(Combo3, 2, 1, 1, 2);
    g->addWidget(new QLabel(QStringLiteral("Núm. de institución"), this), 3, 0);
    g->addWidget(Text4, 3, 1);
    g->addWidget(Combo1, 3, 2);
    g->addWidget(Command2, 3, 3);
    g->addWidget(new QLabel(QStringLiteral("Núm. de biblioteca"), this), 4, 0);
    g->addWidget(Text5, 4, 1);
    g->addWidget(Combo2, 4, 2);
    g->addWidget(Command4, 4, 3);
    g->setColumnStretch(2, 1);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    botones->addWidget(Command3);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(g);
    todo->addLayout(botones);
    resize(560, 230);
    controles::OrdenDeTabulacion({Text2, Combo3, Text4, Combo1, Command2, Text5, Combo2, Command4, Command1, Command3});

    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Don_Edi::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &Don_Edi::Command2_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &Don_Edi::Command3_Click);
    ui::Conecta(Command4, &QPushButton::clicked, this, origen, &Don_Edi::Command4_Click);
    ui::Conecta(Combo1, &controles::ComboBox::Click, this, origen, &Don_Edi::Combo1_Click);
    ui::Conecta(Combo2, &controles::ComboBox::Click, this, origen, &Don_Edi::Combo2_Click);
    ui::Conecta(Text4, &QLineEdit::textChanged, this, origen, &Don_Edi::Text4_Change);
    ui::Conecta(Text5, &QLineEdit::textChanged, this, origen, &Don_Edi::Text5_Change);
}

Don_Edi::~Don_Edi() = default;

void Don_Edi::Form_Load() {
    Fecha.setTextBox(Text2);
    ::Datos::LlenaCombo(*Combo1, QStringLiteral("[No], Nombre"), QStringLiteral("Instituciones"), QStringLiteral("Nombre"));
    ::Datos::LlenaCombo(*Combo2, QStringLiteral("[No], Nombre"), QStringLiteral("Bibliotecas"), QStringLiteral("Nombre"));
    globales::ConsultaDatos& c = globales::Consulta;
    c.Orden.clear();
    if (globales::NavModo != 2) {
        setWindowTitle(QStringLiteral("Agregar nueva donación"));
        Text2->setText(vb::Format(vb::Variant(vb::Fecha::Now()), QStringLiteral("dd/mmm/yyyy")));
        c.Campos = QStringLiteral("Max(NoDonacion) as MaxS");
        c.Tabla = QStringLiteral("[Donaciones General]");
        c.Clave.clear();
        c.Valor.clear();
        const QString maximo = ::Datos::ConsultaCampos(c);
        Label6->setText(maximo.isEmpty() ? QStringLiteral("1") : Numero(vb::Val(maximo) + 1));
        Text4->clear();
        Text5->clear();
        return;
    }
    setWindowTitle(QStringLiteral("Modificación de datos de la donación"));
    Label6->setText(globales::NavValor.text());
    c.Campos = QStringLiteral("Fecha, NoInstitucion, Nobiblioteca,[Donacion o Intercambio] ");
    c.Tabla = QStringLiteral("[Donaciones General]");
    c.Clave = QStringLiteral("NoDonacion");
    c.Valor = NumeroDe(globales::NavValor.text());
    QString valores = ::Datos::ConsultaCampos(c);
    Text2->setText(FormatoFecha(::Datos::TomaCampo(valores), QStringLiteral("dd/mmm/yyyy")));
    Text4->setText(::Datos::TomaCampo(valores));
    Text5->setText(::Datos::TomaCampo(valores));
    Combo3->setText(::Datos::TomaCampo(valores));
}

void Don_Edi::Combo1_Click() { Text4->setText(NumeroDe(Combo1->Text())); }

void Don_Edi::Combo2_Click() { Text5->setText(NumeroDe(Combo2->Text())); }

void Don_Edi::Text4_Change() { SeleccionaPorNumero(*Text4, *Combo1); }

void Don_Edi::Text5_Change() { SeleccionaPorNumero(*Text5, *Combo2); }

void Don_Edi::Command2_Click() {
    CatMod::CatalogoParaComboEligiendo(*Combo1, QStringLiteral("instituciones"),
                                      QStringLiteral("SELECT [No] & ' ' & Nombre as Resultado  FROM Instituciones"));
}

void Don_Edi::Command4_Click() {
    CatMod::CatalogoParaComboEligiendo(*Combo2, QStringLiteral("bibliotecas"),
                                      QStringLiteral("SELECT [No] & ' ' & Nombre as Resultado  FROM Bibliotecas"));
}

void Don_Edi::Command3_Click() { close(); }

void Don_Edi::Command1_Click() {
    ui::Plataforma& sistema = ui::Sistema();
    const QString salto = QStringLiteral("\r\n");
    if (vb::Trim(Text4->text()).isEmpty()) {
        sistema.MsgBox(QStringLiteral("Se requiere seleccionar a la institución donadora,") + salto + QStringLiteral(" por favor indique una..."),
                       ui::vbCritical, QStringLiteral("Institución requerida"));
        Combo1->setFocus();
        return;
    }
    if (vb::Trim(Text5->text()).isEmpty()) {
        sistema.MsgBox(QStringLiteral("Se requiere seleccionar a la biblioteca destino,") + salto + QStringLiteral(" por favor indique una..."),
                       ui::vbCritical, QStringLiteral("Biblioteca requerida"));
        Combo2->setFocus();
        return;
    }
    if (!Text2->text().isEmpty() && !vb::IsDate(vb::Variant(Text2->text()))) {
        sistema.MsgBox(QStringLiteral("Esta no es una fecha válida"), ui::vbCritical, QStringLiteral("Fecha incorrecta"));
        Text2->setFocus();
        return;
    }
    const QString fecha = FormatoFecha(Text2->text(), QStringLiteral("yyyy/mm/dd"));
    const QString letra = vb::Left(Combo3->Text(), 1);
    const QString institucion = NumeroDe(Text4->text());
    const QString biblioteca = NumeroDe(Text5->text());

    if (globales::NavModo != 2) {
        globales::AltaDatos& a = globales::Alta;
        a.Campos = QStringLiteral("NoDonacion, Fecha , NoInstitucion, Nobiblioteca, [Donacion o Intercambio]");
        a.Valores = NumeroDe(Label6->text()) + QStringLiteral(", #") + fecha + QStringLiteral("#, ") + institucion +
                    QStringLiteral(", ") + biblioteca + QStringLiteral(", '") + letra + u'\'';
        a.Tabla = QStringLiteral("[Donaciones General]");
        if (!::Datos::GrabarX(a)) {
            sistema.MsgBox(QStringLiteral("La ficha no se ha podido guardar"), ui::vbOKOnly, QStringLiteral("Error"));
            return;
        }
        globales::NavCampo = QStringLiteral("NoDonacion");
        globales::NavValor = vb::Variant(vb::Trim(Label6->text()));
        globales::NavTabla = QStringLiteral("[Donaciones General]");
        globales::NavModo = 2;
        close();
        globales::ModoCaptura = QStringLiteral("NUEVO");
        if (Lista) Lista->Refrescar();
        // A new donation goes straight on to its titles.
        AbreGenerales();
        return;
    }

    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("Fecha| NoInstitucion| NoBiblioteca| [Donacion o Intercambio]");
    c.Orden = u'#' + fecha + QStringLiteral("#|") + institucion + u'|' + biblioteca + QStringLiteral("|'") + letra + u'\'';
    c.Tabla = QStringLiteral("[Donaciones General]");
    c.Clave = QStringLiteral("NoDonacion");
    c.Valor = NumeroDe(Label6->text());
    if (!::Datos::CambiaGenerico_X(c)) {
        sistema.MsgBox(QStringLiteral("La ficha no ha podido actualizarse"), ui::vbOKOnly, QStringLiteral("Error"));
        return;
    }
    if (Lista) Lista->Refrescar();
    close();
}

void Don_Edi::AbreGenerales() {
    // This screen is already closed: the titles open over the list of donations.
    Don1::MuestraGenerales(Lista, Lista ? static_cast<QWidget*>(Lista) : parentWidget());
}
