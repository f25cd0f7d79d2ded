#include "workflow/Sol_Libros.h"

#include "catalog/CatMod.h"
#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/CampoEnlazado.h"
#include "core/controles/ComboBox.h"
#include "core/controles/SoloDigitos.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "workflow/Form2.h"
#include "workflow/Sol1.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("Sol_Libros");

// The number a field holds, as a statement takes it: an empty or wordy field is 0.
QString NumeroDe(const QString& texto) { return vb::CStr(vb::Variant(vb::Val(texto))); }

QString EstadoEnPalabras(const QString& estado) {
    if (estado == u"A") return QStringLiteral("Adquirido");
    if (estado == u"I") return QStringLiteral("Imposible de Adquirir");
    if (estado == u"P") return QStringLiteral("Pedido");
    return QStringLiteral("Solicitado");
}

}  // namespace

Sol_Libros::Sol_Libros(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Sol_Libros"));
    setWindowTitle(QStringLiteral("Agregar libros a la solicitud"));

    Text3 = new QLineEdit(this);
    Text4 = new QLineEdit(this);
    Text1 = new QLineEdit(this);
    Text2 = new QLineEdit(this);
    Combo1 = new controles::ComboBox(this);
    Command2 = new QPushButton(QStringLiteral("..."), this);
    Text5 = new QLineEdit(this);
    TxtISBN = new QLineEdit(this);
    LblEstadoLibro = new QLabel(this);
    Command1 = new QPushButton(QStringLiteral("&Grabar"), this);
    Command3 = new QPushButton(QStringLiteral("&Regresar"), this);
    const std::pair<QWidget*, const char*> nombres[] = {
        {Text3, "Text3"},     {Text4, "Text4"},     {Text1, "Text1"},     {Text2, "Text2"},
        {Combo1, "Combo1"},   {Command2, "Command2"}, {Text5, "Text5"},   {TxtISBN, "TxtISBN"},
        {LblEstadoLibro, "LblEstadoLibro"}, {Command1, "Command1"}, {Command3, "Command3"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));
    for (QLineEdit* t : {Text1, Text2, Text5}) controles::SoloDigitos::Instala(t);
    for (QLineEdit* t : {Text3, Text4, Text1, Text2, Text5, TxtISBN}) t->installEventFilter(this);

    auto* g = new QGridLayout;
    g->addWidget(new QLabel(QStringLiteral("Título:"), this), 0, 0);
    g->addWidget(Text3, 0, 1, 1, 3);
    g->addWidget(new QLabel(QStringLiteral("Autor:"), this), 1, 0);
    g->addWidget(Text4, 1, 1, 1, 3);
    g->addWidget(new QLabel(QStringLiteral("Edición:"), this), 2, 0);
    g->addWidget(Text1, 2, 1);
    g->addWidget(new QLabel(QStringLiteral("Editorial:"), this), 3, 0);
    g->addWidget(Text2, 3, 1);
    g->addWidget(Combo1, 3, 2);
    g->addWidget(Command2, 3, 3);
    g->addWidget(new QLabel(QStringLiteral("Ejemplares:"), this), 4, 0);
    g->addWidget(Text5, 4, 1);
    g->addWidget(new QLabel(QStringLiteral("ISBN:"), this), 5, 0);
    g->addWidget(TxtISBN, 5, 1, 1, 2);
    g->addWidget(new QLabel(QStringLiteral("Estado:"), this), 6, 0);
    g->addWidget(LblEstadoLibro, 6, 1, 1, 2);
    g->setColumnStretch(2, 1);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    botones->addWidget(Command3);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(g);
    todo->addLayout(botones);
    resize(620, 300);
    controles::OrdenDeTabulacion({Text3, Text4, Text1, Text2, Combo1, Command2, Text5, TxtISBN, Command1, Command3});

    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Sol_Libros::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &Sol_Libros::Command2_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &Sol_Libros::Command3_Click);
    ui::Conecta(Combo1, &controles::ComboBox::Click, this, origen, &Sol_Libros::Combo1_Click);
    ui::Conecta(Text2, &QLineEdit::textChanged, this, origen, &Sol_Libros::Text2_Change);
}

Sol_Libros::~Sol_Libros() = default;

bool Sol_Libros::eventFilter(QObject* objeto, QEvent* evento) {
    auto* campo = qobject_cast<QLineEdit*>(objeto);
    if (!campo) return QDialog::eventFilter(objeto, evento);
    if (evento->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent*>(evento)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            ui::Sistema().FocoSiguiente(campo);
            return true;
        }
    } else if (evento->type() == QEvent::FocusOut && campo == Text5) {
        ui::Protegido(origen, [this] { Text5_LostFocus(); });
    }
    return QDialog::eventFilter(objeto, evento);
}

void Sol_Libros::Form_Load() {
    Datos::LlenaCombo(*Combo1, QStringLiteral("[No], Nombre"), QStringLiteral("Editoriales"), QStringLiteral("Nombre"));
    const QString tabla = QStringLiteral("Solicitudes Libros");
    controles::LimitaAlCampo(*Text3, tabla, QStringLiteral("Titulo"));
    controles::LimitaAlCampo(*Text4, tabla, QStringLiteral("Autor"));
    controles::LimitaAlCampo(*TxtISBN, tabla, QStringLiteral("ISBN"));

    if (globales::TitModo != 2) {
        setWindowTitle(QStringLiteral("Agregando nuevo libro a solicitud"));
        for (QLineEdit* t : {Text3, Text4, Text5, Text1, Text2}) t->clear();
        // The state shown is the one the titles screen keeps, left by the last title chosen for a change;
        // a new title is saved as requested all the same.
        LblEstadoLibro->setText(EstadoEnPalabras(Titulos ? Titulos->EstadoTitulo : QString()));
        return;
    }
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("Titulo, Autor , Edicion, Noeditorial, [Ejemplares Pedidos], ISBN ");
    c.Tabla = QStringLiteral("[Solicitudes Libros]");
    c.Clave = globales::TitCampo;
    c.Valor = globales::TitValor.text();
    c.Orden.clear();
    QString valores = Datos::ConsultaCampos(c);
    Text3->setText(Datos::TomaCampo(valores));
    Text4->setText(Datos::TomaCampo(valores));
    Text1->setText(Datos::TomaCampo(valores));
    Text2->setText(Datos::TomaCampo(valores));
    Text5->setText(Datos::TomaCampo(valores));
    TxtISBN->setText(Datos::TomaCampo(valores));
    setWindowTitle(QStringLiteral("Modificando datos del libro"));
    LblEstadoLibro->setText(EstadoEnPalabras(Titulos ? Titulos->EstadoTitulo : QString()));
}

void Sol_Libros::Combo1_Click() { controles::PonNumeroDelItem(*Combo1, *Text2); }

void Sol_Libros::Text2_Change() { controles::EligePorNumero(*Combo1, Text2->text()); }

void Sol_Libros::Text5_LostFocus() {
    if (Text5->text().isEmpty()) Text5->setText(QStringLiteral("0"));
}

void Sol_Libros::Command2_Click() {
    CatMod::CatalogoParaCombo(*Combo1, QStringLiteral("editoriales"), QStringLiteral("Resultado"),
                              QStringLiteral("SELECT [No] & ' ' & Nombre as Resultado  FROM Editoriales"), QString());
}

void Sol_Libros::Command3_Click() { close(); }

void Sol_Libros::DespuesDeGrabar() {
    close();
    if (Titulos) {
        Titulos->RefrescaTitulos();
        if (Titulos->Lista) Titulos->Lista->Refrescar();
    }
}

void Sol_Libros::Command1_Click() {
    ui::Plataforma& sistema = ui::Sistema();
    // A title may have no publisher.
    if (Text2->text().isEmpty()) Text2->setText(QStringLiteral("0"));
    if (vb::Trim(Text3->text()).isEmpty()) {
        sistema.MsgBox(QStringLiteral("No ha introducido un título, favor de ingresarlo y volver a intentar"), ui::vbOKOnly,
                       QStringLiteral("Precaución"));
        Text3->setFocus();
        return;
    }
    if (vb::Val(Text5->text()) == 0) {
        sistema.MsgBox(
            QStringLiteral("El número de ejemplares tiene un dato incorrecto, favor de modificarlo y volver a intentar"));
        Text5->setFocus();
        return;
    }
    const QString titulo = Datos::DuplicaComillas(Text3->text());
    const QString autor = Datos::DuplicaComillas(Text4->text());
    const QString solicitud = globales::NavValor.text();

    if (globales::TitModo == 2) {
        const QString estado = Titulos ? Titulos->EstadoTitulo : QString();
        globales::ConsultaDatos& c = globales::Consulta;
        c.Campos = QStringLiteral("Titulo| Autor | Edicion| Noeditorial| [Ejemplares Pedidos]| Estado| NoSolicitud| ISBN");
        c.Orden = u'\'' + titulo + QStringLiteral("'|'") + autor + QStringLiteral("'|") + NumeroDe(Text1->text()) + u'|' +
                  NumeroDe(Text2->text()) + u'|' + NumeroDe(Text5->text()) + QStringLiteral("|'") + estado +
                  QStringLiteral("'|") + solicitud + QStringLiteral("|'") + TxtISBN->text() + u'\'';
        c.Clave = globales::TitCampo;
        c.Valor = globales::TitValor.text();
        c.Tabla = globales::TitTabla;
        if (Datos::CambiaGenerico_X(c))
            DespuesDeGrabar();
        else
            sistema.MsgBox(QStringLiteral("Los datos del libro no se han podido actualizar"), ui::vbOKOnly,
                           QStringLiteral("Error"));
        return;
    }

    globales::AltaDatos& a = globales::Alta;
    a.Campos = QStringLiteral("Titulo, Autor , Edicion, Noeditorial, [Ejemplares Pedidos], Estado, NoSolicitud, ISBN");
    a.Tabla = QStringLiteral("[Solicitudes Libros]");
    a.Valores = u'\'' + titulo + QStringLiteral("','") + autor + QStringLiteral("',") + NumeroDe(Text1->text()) + u',' +
                NumeroDe(Text2->text()) + u',' + NumeroDe(Text5->text()) + QStringLiteral(",'S',") + solicitud +
                QStringLiteral(",'") + TxtISBN->text() + u'\'';
    if (Datos::GrabarX(a))
        DespuesDeGrabar();
    else
        sistema.MsgBox(QStringLiteral("Los datos del libro no se han podido grabar"), ui::vbOKOnly, QStringLiteral("Error"));
}
