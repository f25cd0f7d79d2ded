#include "workflow/Sol_Edi.h"

#include "catalog/CatMod.h"
#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/CampoEnlazado.h"
#include "core/controles/ComboBox.h"
#include "core/controles/SoloDigitos.h"
#include "core/dao/Dao.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"
#include "workflow/Form2.h"
#include "workflow/Sol1.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("Sol_Edi");
const QString avisoBiblioteca = QStringLiteral("Número de Biblioteca inválido, seleccione uno de la lista...");
const QString avisoEscuela = QStringLiteral("Número de escuela inválido, seleccione uno de la lista...");

// A number as the language prints it: whole numbers without decimals.
QString Numero(double valor) {
    if (valor == static_cast<double>(static_cast<qint64>(valor))) return QString::number(static_cast<qint64>(valor));
    return QString::number(valor, 'g', 15);
}
QString NumeroDe(const QString& texto) { return Numero(vb::Val(texto)); }
// The number at the head of a combo item ("001 - Central" is 1).
double NumeroItem(const QString& item) { return vb::Val(vb::Mid(item, 1, 4)); }

// A typed date through a mask; a text that is no date goes through as it is.
QString FormatoFecha(const QString& texto, const QString& mascara) {
    if (vb::IsDate(vb::Variant(texto))) return vb::Format(vb::Variant(vb::CDate(vb::Variant(texto))), mascara);
    return vb::Format(vb::Variant(texto), mascara);
}

}  // namespace

Sol_Edi::Sol_Edi(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Sol_Edi"));
    setWindowTitle(QStringLiteral("Captura de solicitud"));

    Label6 = new QLabel(this);
    Text2 = new QLineEdit(this);
    Text3 = new QLineEdit(this);
    Text4 = new QLineEdit(this);
    Combo1 = new controles::ComboBox(this);
    Combo1->setEditable(true);
    Command2 = new QPushButton(QStringLiteral("..."), this);
    Text5 = new QLineEdit(this);
    Combo2 = new controles::ComboBox(this);
    Command4 = new QPushButton(QStringLiteral("..."), this);
    txtIdFinanciamiento = new QLineEdit(this);
    cboFinanciamiento = new controles::ComboBox(this);
    lblFinanciamiento = new QLabel(QStringLiteral("Financiamiento"), this);
    lblWarning = new QLabel(this);
    lblWarning->setStyleSheet(QStringLiteral("color: red"));
    Command1 = new QPushButton(QStringLiteral("&Grabar"), this);
    Command3 = new QPushButton(QStringLiteral("&Regresar"), this);
    const std::pair<QWidget*, const char*> nombres[] = {
        {Label6, "Label6"}, {Text2, "Text2"}, {Text3, "Text3"}, {Text4, "Text4"}, {Combo1, "Combo1"},
        {Command2, "Command2"}, {Text5, "Text5"}, {Combo2, "Combo2"}, {Command4, "Command4"},
        {txtIdFinanciamiento, "txtIdFinanciamiento"}, {cboFinanciamiento, "cboFinanciamiento"},
        {lblFinanciamiento, "lblFinanciamiento"}, {lblWarning, "lblWarning"}, {Command1, "Command1"}, {Command3, "Command3"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));
    controles::SoloDigitos::Instala(Text4);
    controles::SoloDigitos::Instala(Text5);
    lblWarning->hide();
    MuestraFinanciamiento(false);

    auto* g = new QGridLayout;
    g->addWidget(new QLabel(QStringLiteral("Número:"), this), 0, 0);
    g->addWidget(Label6, 0, 1);
    g->addWidget(new QLabel(QStringLiteral("Fecha:"), this), 1, 0);
    g->addWidget(Text2, 1, 1);
    g->addWidget(new QLabel(QStringLiteral("Solicitante:"), this), 2, 0);
    g->addWidget(Text3, 2, 1, 1, 3);
    g->addWidget(new QLabel(globales::NombreBiblioteca + u':', this), 3, 0);
    g->addWidget(Text5, 3, 1);
    g->addWidget(Combo2, 3, 2);
    g->addWidget(Command4, 3, 3);
    g->addWidget(new QLabel(globales::EtiquetaEscuela + u':', this), 4, 0);
    g->addWidget(Text4, 4, 1);
    g->addWidget(Combo1, 4, 2);
    g->addWidget(Command2, 4, 3);
    g->addWidget(lblFinanciamiento, 5, 0);
    g->addWidget(txtIdFinanciamiento, 5, 1);
    g->addWidget(cboFinanciamiento, 5, 2);
    g->setColumnStretch(2, 1);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    botones->addWidget(Command3);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(g);
    todo->addWidget(lblWarning);
    todo->addLayout(botones);
    // As the screen reads: the date, who asks, the library and then its schools, the source, the buttons.
    controles::OrdenDeTabulacion({Text2, Text3, Text5, Combo2, Command4, Text4, Combo1, Command2, txtIdFinanciamiento,
                                  cboFinanciamiento, Command1, Command3});

    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Sol_Edi::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &Sol_Edi::Command2_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &Sol_Edi::Command3_Click);
    ui::Conecta(Command4, &QPushButton::clicked, this, origen, &Sol_Edi::Command4_Click);
    ui::Conecta(Combo1, &controles::ComboBox::Click, this, origen, &Sol_Edi::Combo1_Click);
    ui::Conecta(Combo1, &controles::ComboBox::Change, this, origen, &Sol_Edi::Combo1_Change);
    ui::Conecta(Combo2, &controles::ComboBox::Click, this, origen, &Sol_Edi::Combo2_Click);
    ui::Conecta(cboFinanciamiento, &controles::ComboBox::Click, this, origen, &Sol_Edi::cboFinanciamiento_Click);
    ui::Conecta(Text4, &QLineEdit::textChanged, this, origen, &Sol_Edi::Text4_Change);
    ui::Conecta(Text5, &QLineEdit::textChanged, this, origen, &Sol_Edi::Text5_Change);
    ui::Conecta(txtIdFinanciamiento, &QLineEdit::textChanged, this, origen, &Sol_Edi::txtIdFinanciamiento_Change);
}

Sol_Edi::~Sol_Edi() = default;

void Sol_Edi::showEvent(QShowEvent* e) {
    QDialog::showEvent(e);
    ui::Protegido(origen, [this] { Form_Activate(); });
}

void Sol_Edi::MuestraFinanciamiento(bool visible) {
    lblFinanciamiento->setVisible(visible);
    txtIdFinanciamiento->setVisible(visible);
    cboFinanciamiento->setVisible(visible);
}

void Sol_Edi::Form_Load() {
    Fecha.setTextBox(Text2);
    controles::LimitaAlCampo(*Text3, QStringLiteral("Solicitudes General"), QStringLiteral("Solicitante"));
    Datos::LlenaCombo(*Combo1, QStringLiteral("[No], Nombre"), QStringLiteral("Escuelas"), QStringLiteral("Nombre"));
    Datos::LlenaCombo(*Combo2, QStringLiteral("[No], Nombre"), QStringLiteral("Bibliotecas"), QStringLiteral("Nombre"));
    globales::ConsultaDatos& c = globales::Consulta;   // left with no key by the fillings above

    if (globales::NavModo != 2) {
        {
            auto rs = globales::Base().OpenRecordset(QStringLiteral("SELECT * FROM adqFinanciamiento"));
            MuestraFinanciamiento(!rs->Eof());
        }
        setWindowTitle(QStringLiteral("Captura de nueva solicitud"));
        Text2->setText(vb::Format(vb::Variant(vb::Fecha::Now()), QStringLiteral("dd/mmm/yyyy")));
        c.Campos = QStringLiteral("Max(Nosolicitud) as MaxS");
        c.Tabla = QStringLiteral("[Solicitudes General]");
        c.Orden.clear();
        const QString maximo = Datos::ConsultaCampos(c);
        Label6->setText(maximo.isEmpty() ? QStringLiteral("1") : Numero(vb::Val(maximo) + 1));
        Text3->clear();
        Text4->clear();
        Text5->clear();
    } else {
        setWindowTitle(QStringLiteral("Modificando solicitud"));
        Label6->setText(globales::NavValor.text());
        c.Campos = QStringLiteral("Fecha, Solicitante , Nobiblioteca, NoEscuela, IdFinanciamiento ");
        c.Tabla = QStringLiteral("[Solicitudes General]");
        c.Clave = globales::NavCampo;
        c.Valor = globales::NavValor.text();
        c.Orden.clear();
        QString valores = Datos::ConsultaCampos(c);
        Text2->setText(FormatoFecha(Datos::TomaCampo(valores), QStringLiteral("dd/mmm/yyyy")));
        Text3->setText(Datos::TomaCampo(valores));
        Text5->setText(Datos::TomaCampo(valores));
        Text4->setText(Datos::TomaCampo(valores));
        txtIdFinanciamiento->setText(Datos::TomaCampo(valores));
        if (!cboFinanciamiento->Text().isEmpty()) {
            txtIdFinanciamiento->setText(Numero(NumeroItem(cboFinanciamiento->Text())));
            MuestraFinanciamiento(true);
        }
    }
}

void Sol_Edi::Form_Activate() { Text2->setFocus(); }

void Sol_Edi::Combo2_Click() {
    const QString numero = Numero(NumeroItem(Combo2->Text()));
    Text5->setText(numero);
    Datos::LlenaCombo(*Combo1, QStringLiteral("[No], Nombre"), QStringLiteral("Escuelas WHERE NoBiblioteca=") + numero, QStringLiteral("Nombre"));
    Text4->clear();
    if (Combo1->ListCount() > 0) {
        Combo1->setListIndex(0);
        Text4->setText(Numero(NumeroItem(Combo1->List(0))));
    }
}

void Sol_Edi::LlenaFinanciamiento(const QString& noEscuela, const QString& orden) {
    globales::ConsultaDatos& c = globales::Consulta;
    c.Clave.clear();
    c.Valor.clear();
    c.Campos = QStringLiteral("adqFinanciamiento.[IdFinanciamiento], adqFinanciamiento.Nombre");
    c.Tabla = QStringLiteral("adqFinanciamiento, adqProyectos WHERE adqFinanciamiento.IdFinanciamiento=adqProyectos.IdFinanciamiento "
                             "AND adqProyectos.IdEscuela=") + noEscuela;
    c.Orden = orden;
    txtIdFinanciamiento->clear();
    Datos::LlenaCombo(c, *cboFinanciamiento);
    if (cboFinanciamiento->ListCount() > 0) {
        cboFinanciamiento->setListIndex(0);
        txtIdFinanciamiento->setText(Numero(NumeroItem(cboFinanciamiento->List(0))));
    }
}

void Sol_Edi::Combo1_Click() {
    cboFinanciamiento->Clear();
    const QString numero = Numero(NumeroItem(Combo1->Text()));
    Text4->setText(numero);
    LlenaFinanciamiento(numero, QStringLiteral("adqFinanciamiento.[IdFinanciamiento]"));
}

void Sol_Edi::Combo1_Change() {
    cboFinanciamiento->Clear();
    LlenaFinanciamiento(Numero(NumeroItem(Combo1->Text())), QStringLiteral("[IdFinanciamiento]"));
}

void Sol_Edi::cboFinanciamiento_Click() {
    txtIdFinanciamiento->setText(Numero(NumeroItem(cboFinanciamiento->Text())));
}

void Sol_Edi::Text4_Change() {
    const QString texto = Text4->text();
    const double valor = vb::Val(texto);
    for (int i = 0; i < Combo1->ListCount(); ++i) {
        if (NumeroItem(Combo1->List(i)) == valor) {
            Combo1->setListIndex(i);
            return;
        }
    }
    for (int i = 0; i < Combo1->ListCount(); ++i)
        if (vb::Mid(Combo1->List(i), 1, 4).contains(texto)) return;
    ui::Sistema().Beep();
    Text4->clear();
    lblWarning->show();
}

namespace {
// Selects each item whose leading number is the field's value; without one, beeps and clears the field.
void SeleccionaPorNumero(QLineEdit& campo, controles::ComboBox& combo) {
    const double valor = vb::Val(campo.text());
    bool hallado = false;
    for (int i = 0; i < combo.ListCount(); ++i) {
        if (NumeroItem(combo.List(i)) == valor) {
            combo.setListIndex(i);
            hallado = true;
        }
    }
    if (hallado) return;
    ui::Sistema().Beep();
    campo.clear();
}
}  // namespace

void Sol_Edi::Text5_Change() { SeleccionaPorNumero(*Text5, *Combo2); }

void Sol_Edi::txtIdFinanciamiento_Change() { SeleccionaPorNumero(*txtIdFinanciamiento, *cboFinanciamiento); }

void Sol_Edi::Command2_Click() {
    CatMod::CatalogoParaCombo(*Combo1, QStringLiteral("escuelas"), QStringLiteral("Resultado"),
                              QStringLiteral("SELECT [No] & ' ' & Nombre as Resultado  FROM Escuelas"), QString());
    Combo2_Click();
    if (Combo1->ListCount() > 0 && Combo1->ListIndex() < 0) Combo1->setListIndex(0);
    Combo1->setFocus();
}

void Sol_Edi::Command4_Click() {
    CatMod::CatalogoParaComboEligiendo(*Combo2, QStringLiteral("bibliotecas"),
                                      QStringLiteral("SELECT [No] & ' ' & Nombre as Resultado  FROM Bibliotecas"));
}

void Sol_Edi::Command3_Click() { close(); }

void Sol_Edi::Command1_Click() {
    // Every failure is trapped here: the screen stays open with what was typed, and the box names the step.
    int linea = 0;
    try {
        Grabar(linea);
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(ui::TextoFallaAtrapada(e.Number(), e.Description(), QStringLiteral("Command1_Click"),
                                                    QStringLiteral("Formulario Sol_Edi"), linea),
                             ui::vbCritical);
    }
}

void Sol_Edi::Grabar(int& linea) {
    ui::Plataforma& sistema = ui::Sistema();
    linea = 1;
    lblWarning->hide();
    if (vb::Trim(Text3->text()).isEmpty()) {
        lblWarning->setText(QStringLiteral("Se requiere el nombre del solicitante..."));
        Text3->setFocus();
        sistema.Beep();
        return;
    }
    if (vb::Trim(Text5->text()).isEmpty()) {
        lblWarning->setText(avisoBiblioteca);
        lblWarning->show();
        Text5->setFocus();
        sistema.Beep();
        return;
    }
    if (vb::Trim(Text4->text()).isEmpty()) {
        lblWarning->setText(avisoEscuela);
        lblWarning->show();
        Text4->setFocus();
        sistema.Beep();
        return;
    }
    linea = 5;
    if (!Text2->text().isEmpty() && !vb::IsDate(vb::Variant(Text2->text()))) {
        sistema.MsgBox(QStringLiteral("Esta no es una fecha válida"), ui::vbCritical, QStringLiteral("Fecha incorrecta"));
        Text2->setFocus();
        return;
    }
    linea = 6;
    if (NumeroItem(Combo1->Text()) != vb::Val(Text4->text())) {
        sistema.Beep();
        Text4->clear();
        Text4->setFocus();
        lblWarning->setText(avisoEscuela);
        lblWarning->show();
        return;
    }
    linea = 7;
    const QString Fin = cboFinanciamiento->ListIndex() >= 0 ? Numero(NumeroItem(cboFinanciamiento->Text())) : QStringLiteral("0");
    const QString ahora = vb::Format(vb::Variant(vb::Fecha::Now()), QStringLiteral("yyyy/mm/dd hh:nn:ss"));
    const QString fecha = FormatoFecha(Text2->text(), QStringLiteral("yyyy/mm/dd"));
    const QString solicitante = Datos::DuplicaComillas(vb::Trim(Text3->text()));

    if (globales::NavModo != 2) {
        linea = 8;
        globales::AltaDatos& a = globales::Alta;
        a.Campos = QStringLiteral("NoSolicitud, Fecha , Solicitante, Noescuela, Nobiblioteca, Estado, FechaCaptura, IdCapturista, IdFinanciamiento");
        a.Tabla = QStringLiteral("[Solicitudes General]");
        a.Valores = NumeroDe(Label6->text()) + QStringLiteral(",#") + fecha + QStringLiteral("#, '") + solicitante +
                    QStringLiteral("',") + NumeroDe(Text4->text()) + u',' + NumeroDe(Text5->text()) +
                    QStringLiteral(",'S', #") + ahora + QStringLiteral("#, '") + globales::LoginAnalista + QStringLiteral("',") + Fin;
        if (Datos::GrabarX(a)) {
            globales::NavCampo = QStringLiteral("NoSolicitud");
            globales::NavValor = vb::Variant(vb::Trim(Label6->text()));
            globales::NavTabla = QStringLiteral("[Solicitudes General]");
            globales::NavModo = 2;
            close();
            // A new request goes straight on to its titles.
            Form2 titulos(parentWidget());
            titulos.Lista = Lista;
            titulos.Form_Load();
            sistema.MuestraModal(titulos);
        } else {
            sistema.MsgBox(QStringLiteral("La solicitud no se ha podido guardar"), ui::vbOKOnly, QStringLiteral("Error"));
        }
        return;
    }

    linea = 9;
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("Fecha| FechaCaptura| Solicitante| NoEscuela| NoBiblioteca| IdCapturista| IdFinanciamiento");
    c.Orden = u'#' + fecha + QStringLiteral("#|#") + ahora + QStringLiteral("#|'") + solicitante + QStringLiteral("'|") +
              NumeroDe(Text4->text()) + u'|' + NumeroDe(Text5->text()) + QStringLiteral("|'") + globales::LoginAnalista +
              QStringLiteral("'|") + Fin;
    c.Valor = NumeroDe(Label6->text());
    c.Clave = QStringLiteral("NoSolicitud");
    c.Tabla = QStringLiteral("[Solicitudes General]");
    if (Datos::CambiaGenerico_X(c)) {
        if (Titulos) Titulos->RefrescaTitulos();
        if (Lista) Lista->Refrescar();
        close();
    } else {
        sistema.MsgBox(QStringLiteral("La solicitud no ha podido actualizarse"), ui::vbOKOnly, QStringLiteral("Error"));
    }
}
