#include "workflow/Don_Libros.h"

#include "catalog/CatMod.h"
#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/CampoEnlazado.h"
#include "core/controles/ComboBox.h"
#include "core/controles/FechaTextBox.h"
#include "core/controles/SoloDigitos.h"
#include "core/dao/Dao.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"
#include "workflow/Don_Generales.h"
#include "workflow/NumerosAdquisicion.h"

#include <QEvent>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("Don_Libros");
const QString CrLf = QStringLiteral("\r\n");

QString Entrecomillado(const QString& texto) { return u'\'' + Datos::DuplicaComillas(texto) + u'\''; }

}  // namespace

Don_Libros::Don_Libros(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Don_Libros"));
    setWindowTitle(QStringLiteral("Agregar títulos a donación"));

    Text2 = new QLineEdit(this);
    Text5 = new QLineEdit(this);
    Combo1 = new controles::ComboBox(this);
    Text4 = new QLineEdit(this);
    Command2 = new QPushButton(QStringLiteral("..."), this);
    Text3 = new QLineEdit(this);
    Text7 = new QLineEdit(this);
    txtCosto = new QLineEdit(QStringLiteral("0.0"), this);
    Text8 = new QLineEdit(this);
    auto* marcoLista = new QGroupBox(QStringLiteral("Registrar números de adquisición:"), this);
    List1 = new QListWidget(marcoLista);
    Command4 = new QPushButton(QStringLiteral("Agregar -->"), this);
    Command5 = new QPushButton(QStringLiteral("<-- Borrar "), this);
    Command1 = new QPushButton(QStringLiteral("&Guardar"), this);
    Command3 = new QPushButton(QStringLiteral("&Regresar"), this);
    const std::pair<QWidget*, const char*> nombres[] = {
        {Text2, "Text2"},       {Text5, "Text5"},       {Combo1, "Combo1"},     {Text4, "Text4"},
        {Command2, "Command2"}, {Text3, "Text3"},       {Text7, "Text7"},       {txtCosto, "txtCosto"},
        {Text8, "Text8"},       {List1, "List1"},       {Command4, "Command4"}, {Command5, "Command5"},
        {Command1, "Command1"}, {Command3, "Command3"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));
    controles::SoloDigitos::Instala(Text4);
    for (QLineEdit* t : {Text3, Text7, txtCosto}) t->installEventFilter(this);
    Text8->setMaxLength(15);
    Command2->setFixedWidth(32);
    // Numbers are added once there are copies to number; the buttons wait for a number or a row.
    List1->setEnabled(false);
    Command4->setEnabled(false);
    Command5->setEnabled(false);

    auto* g = new QGridLayout;
    g->addWidget(new QLabel(QStringLiteral("Título:"), this), 0, 0);
    g->addWidget(Text2, 0, 1, 1, 3);
    g->addWidget(new QLabel(QStringLiteral("Autor:"), this), 1, 0);
    g->addWidget(Text5, 1, 1, 1, 3);
    g->addWidget(new QLabel(QStringLiteral("Editorial:"), this), 2, 0);
    g->addWidget(Text4, 2, 1);
    g->addWidget(Combo1, 2, 2);
    g->addWidget(Command2, 2, 3);
    g->addWidget(new QLabel(QStringLiteral("Ejemplares:"), this), 3, 0);
    g->addWidget(Text3, 3, 1);
    g->addWidget(new QLabel(QStringLiteral("Edición:"), this), 4, 0);
    g->addWidget(Text7, 4, 1);
    g->addWidget(new QLabel(QStringLiteral("Costo:"), this), 5, 0);
    g->addWidget(txtCosto, 5, 1);
    g->setColumnStretch(2, 1);
    g->setRowStretch(6, 1);

    auto* captura = new QVBoxLayout;
    captura->addWidget(new QLabel(QStringLiteral("Número"), this));
    captura->addWidget(Text8);
    captura->addWidget(Command4);
    captura->addWidget(Command5);
    captura->addStretch(1);
    auto* numeros = new QHBoxLayout(marcoLista);
    numeros->addLayout(captura);
    numeros->addWidget(List1, 1);

    auto* centro = new QHBoxLayout;
    centro->addLayout(g, 3);
    centro->addWidget(marcoLista, 2);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    botones->addWidget(Command3);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(centro, 1);
    todo->addLayout(botones);
    resize(780, 340);
    controles::OrdenDeTabulacion({Text2, Text5, Text4, Combo1, Command2, Text3, Text7, txtCosto, Text8, Command4, List1,
                                  Command5, Command1, Command3});

    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Don_Libros::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &Don_Libros::Command2_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &Don_Libros::Command3_Click);
    ui::Conecta(Command4, &QPushButton::clicked, this, origen, &Don_Libros::Command4_Click);
    ui::Conecta(Command5, &QPushButton::clicked, this, origen, &Don_Libros::Command5_Click);
    ui::Conecta(Combo1, &controles::ComboBox::Click, this, origen, &Don_Libros::Combo1_Click);
    ui::Conecta(Text4, &QLineEdit::textChanged, this, origen, &Don_Libros::Text4_Change);
    ui::Conecta(Text8, &QLineEdit::textChanged, this, origen, &Don_Libros::Text8_Change);
    for (QLineEdit* t : {Text2, Text5, Text7})
        ui::Conecta(t, &QLineEdit::textChanged, this, origen, &Don_Libros::CambioDeDatos);
    ui::Conecta(List1, &QListWidget::itemClicked, this, origen, &Don_Libros::List1_Click);
}

Don_Libros::~Don_Libros() = default;

bool Don_Libros::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto != Text3 && objeto != Text7 && objeto != txtCosto) return QDialog::eventFilter(objeto, evento);
    if (evento->type() == QEvent::FocusOut && objeto == Text3) {
        // Only a move to another control of the screen leaves the field; another window or a popup doesn't.
        const Qt::FocusReason razon = static_cast<QFocusEvent*>(evento)->reason();
        if (razon != Qt::ActiveWindowFocusReason && razon != Qt::PopupFocusReason)
            ui::Protegido(origen, [this] { Text3_LostFocus(); });
    } else if (evento->type() == QEvent::KeyPress) {
        const auto& tecla = *static_cast<QKeyEvent*>(evento);
        const int codigo = tecla.key() == Qt::Key_Delete ? 0 : controles::CodigoTecla(tecla);
        if (codigo == 0 || codigo == 9 || codigo == 27) return false;
        if (objeto == Text3) {
            ValorAnterior = vb::Trim(Text3->text());
            return codigo != 8 && (codigo < '0' || codigo > '9');
        }
        if (codigo == 13) {
            // The edition goes on to the next field; the cost keeps its Enter to itself.
            if (objeto == Text7) ui::Sistema().FocoSiguiente(Text7);
            return true;
        }
        const bool vale = codigo == 8 || (codigo >= '0' && codigo <= '9') || (objeto == txtCosto && codigo >= 43 && codigo <= 46);
        if (!vale) ui::Sistema().Beep();
        return !vale;
    }
    return QDialog::eventFilter(objeto, evento);
}

// ---- Loading --------------------------------------------------------------------------------------------------

void Don_Libros::Form_Load() {
    DatosGrabados = false;
    TituloCreado = false;
    List1->clear();
    Datos::LlenaCombo(*Combo1, QStringLiteral("[No], Nombre"), QStringLiteral("Editoriales"), QStringLiteral("Nombre"));
    const QString tabla = QStringLiteral("Donaciones Libros");
    controles::LimitaAlCampo(*Text2, tabla, QStringLiteral("Titulo"));
    controles::LimitaAlCampo(*Text5, tabla, QStringLiteral("Autor"));
    if (globales::TitModo == 2) {
        setWindowTitle(QStringLiteral("Modificar título de la donación"));
        const QString clave = globales::TitValor.text();
        globales::ConsultaDatos& c = globales::Consulta;
        c.Campos = QStringLiteral("Titulo, Autor, NoEditorial, Ejemplares, Edicion, Costo");
        c.Tabla = QStringLiteral("[Donaciones Libros]");
        c.Clave = QStringLiteral("ClaveLibro");
        c.Valor = clave;
        c.Orden.clear();
        QString datos = Datos::ConsultaCampos(c);
        for (QLineEdit* t : {Text2, Text5, Text4, Text3, Text7, txtCosto}) t->setText(Datos::TomaCampo(datos));
        TituloCreado = true;
        c.Campos = QStringLiteral("NoAdquisicion");
        c.Tabla = QStringLiteral("[Adquisiciones Numadqui]");
        c.Clave = QStringLiteral("ClaveLibro");
        c.Valor = clave + QStringLiteral(" AND [Adquisiciones numadqui].[solicitud o donacion]='D'");
        numadq::LlenaLista(*List1, Datos::ConsultaCampos(c));
    }
    if (List1->count() > 0) List1->setEnabled(true);
}

// ---- Fields ---------------------------------------------------------------------------------------------------

void Don_Libros::CambioDeDatos() { DatosGrabados = false; }

void Don_Libros::Text4_Change() {
    CambioDeDatos();
    controles::EligePorNumero(*Combo1, Text4->text());
}

void Don_Libros::Combo1_Click() { controles::PonNumeroDelItem(*Combo1, *Text4); }

void Don_Libros::Command2_Click() {
    CatMod::CatalogoParaComboEligiendo(*Combo1, QStringLiteral("editoriales"),
                                      QStringLiteral("SELECT [No] & ' ' & Nombre as Resultado  FROM Editoriales"));
}

void Don_Libros::Text3_LostFocus() {
    DatosGrabados = false;
    numadq::ReglaEjemplares(*Text3, ValorAnterior,
                            QStringLiteral("No puede haber más Números de Adquisición que el número de Libros Donados") +
                                CrLf +
                                QStringLiteral("Si quiere reducir este valor primero quite algunos Números de Adquisición "
                                               "de la lista"),
                            *Text8, *List1, *Command4, *Command5);
}

void Don_Libros::Text8_Change() {
    Command4->setEnabled(!Text8->text().isEmpty());
    Command4->setDefault(true);
}

void Don_Libros::List1_Click() { Command5->setEnabled(List1->count() > 0); }

// ---- Numbers --------------------------------------------------------------------------------------------------

bool Don_Libros::EscribeTitulo() {
    if (DatosGrabados) return true;
    if (!TituloCreado) {
        // The first number makes the title's row; its key is the highest one.
        globales::AltaDatos& a = globales::Alta;
        a.Campos = QStringLiteral("Titulo, Autor, NoEditorial, Ejemplares, Edicion, NoDonacion");
        a.Valores = Entrecomillado(vb::Trim(Text2->text())) + QStringLiteral(", ") + Entrecomillado(vb::Trim(Text5->text())) +
                    QStringLiteral(", ") + Text4->text() + QStringLiteral(", ") + Text3->text() + QStringLiteral(", ") +
                    Text7->text() + QStringLiteral(", ") + globales::NavValor.text();
        a.Tabla = QStringLiteral("[Donaciones Libros]");
        if (!Datos::GrabarX(a)) return false;
        globales::ConsultaDatos& c = globales::Consulta;
        c.Campos = QStringLiteral("Max(ClaveLibro) as MaxS");
        c.Tabla = QStringLiteral("[Donaciones Libros]");
        c.Clave.clear();
        c.Orden.clear();
        globales::TitValor = vb::Variant(Datos::ConsultaCampos(c));
        TituloCreado = true;
        return true;
    }
    DatosGrabados = true;
    globales::ConsultaDatos& c = globales::Consulta;
    c.Tabla = QStringLiteral("[Donaciones Libros]");
    c.Clave = QStringLiteral("ClaveLibro");
    c.Valor = globales::TitValor.text();
    c.Campos = QStringLiteral("Titulo|Autor|NoEditorial|Ejemplares|Edicion");
    c.Orden = Entrecomillado(vb::Trim(Text2->text())) + u'|' + Entrecomillado(vb::Trim(Text5->text())) + u'|' + Text4->text() +
              u'|' + Text3->text() + u'|' + Text7->text();
    return Datos::CambiaGenerico_X(c);
}

void Don_Libros::Command4_Click() {
    ui::Plataforma& sistema = ui::Sistema();
    if (Text2->text().isEmpty()) {
        sistema.MsgBox(QStringLiteral("Se requiere del dato del título, por favor escriba uno"), ui::vbCritical,
                       QStringLiteral("Título requerido"));
        Text2->setFocus();
        return;
    }
    if (Text5->text().isEmpty()) {
        sistema.MsgBox(QStringLiteral("Se requiere del dato del autor, por favor escriba uno"), ui::vbCritical,
                       QStringLiteral("Autor requerido"));
        Text5->setFocus();
        return;
    }
    if (Text4->text().isEmpty()) {
        sistema.MsgBox(QStringLiteral("Se requiere seleccionar una editorial de la lista, por favor indique una"), ui::vbCritical,
                       QStringLiteral("Editorial requerida"));
        Combo1->setFocus();
        return;
    }
    if (vb::Val(Text7->text()) <= 0) Text7->setText(QStringLiteral("1"));
    const QString numero = vb::Trim(Text8->text());
    if (numero.isEmpty()) {
        sistema.MsgBox(QStringLiteral("Escriba un número de adquisición valido"));
        return;
    }
    if (!(vb::Val(Text3->text()) > List1->count())) {
        sistema.MsgBox(QStringLiteral("No se puede introducir más números de adquisición que los ejemplares Recibidos"),
                       ui::vbOKOnly, QStringLiteral("Precaución"));
        return;
    }
    // A number is unique across the table: one held by a request is refused here too.
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("NoAdquisicion");
    c.Tabla = QStringLiteral("[Adquisiciones Numadqui]");
    c.Clave = QStringLiteral("NoAdquisicion");
    c.Valor = Entrecomillado(numero);
    c.Orden.clear();
    if (!Datos::ConsultaCampos(c).isEmpty()) {
        sistema.MsgBox(QStringLiteral("El número de adquisición ya existe"), ui::vbOKOnly, QStringLiteral("Precaución"));
        return;
    }
    if (!EscribeTitulo()) {
        sistema.MsgBox(QStringLiteral("No se pudo agregar el registro"), ui::vbCritical, QStringLiteral("Donaciones"));
        return;
    }
    globales::AltaDatos& a = globales::Alta;
    a.Campos = QStringLiteral("NoAdquisicion, Clavelibro, [Solicitud o Donacion]");
    a.Valores = u'\'' + numero + QStringLiteral("', ") + globales::TitValor.text() + QStringLiteral(", 'D'");
    a.Tabla = QStringLiteral("[Adquisiciones Numadqui]");
    if (!Datos::GrabarX(a)) {
        sistema.MsgBox(QStringLiteral("No se pudo crear el registro"), ui::vbOKOnly, QStringLiteral("Donaciones"));
        return;
    }
    globales::HuboCambiosNumAdq = true;
    List1->addItem(Text8->text());
    numadq::PreparaSiguiente(*Text8);
}

void Don_Libros::Command5_Click() {
    const int indice = List1->currentRow();
    if (List1->count() == 0 || indice < 0) return;
    // Whichever screen entered the number, it goes.
    if (!numadq::BorraNumero(List1->item(indice)->text(), QString(), QStringLiteral("Error al tratar de borrar el reguistro")))
        return;
    delete List1->takeItem(indice);
    globales::HuboCambiosNumAdq = true;
}

// ---- Guardar and Regresar ---------------------------------------------------------------------------------------

void Don_Libros::Command1_Click() {
    // Every failure is trapped here: the screen stays open with what was typed.
    try {
        Guardar();
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(QStringLiteral("Error: ") + QString::number(e.Number()) + u',' + e.Description() + CrLf);
    }
}

void Don_Libros::Guardar() {
    ui::Plataforma& sistema = ui::Sistema();
    if (Text2->text().isEmpty() || Text3->text().isEmpty() || Text7->text().isEmpty()) {
        sistema.MsgBox(QStringLiteral("Los datos de la donación están incompletos"), ui::vbExclamation,
                       QStringLiteral("Precaución"));
        return;
    }
    if (List1->count() == 0) {
        sistema.MsgBox(QStringLiteral("No se ha registrado ningún ejemplar de este material"), ui::vbExclamation,
                       QStringLiteral("Datos incompletos"));
        if (Text8->isEnabled()) Text8->setFocus();
        return;
    }
    if (txtCosto->text().isEmpty()) txtCosto->setText(QStringLiteral("0.0"));
    if (globales::ModoCaptura != u"NUEVO") {
        globales::ConsultaDatos& c = globales::Consulta;
        c.Tabla = QStringLiteral("[Donaciones Libros]");
        c.Clave = QStringLiteral("ClaveLibro");
        c.Valor = globales::TitValor.text();
        c.Campos = QStringLiteral("Titulo|Autor|NoEditorial|Ejemplares|Edicion|Costo|FechaCaptura|IdCapturista");
        c.Orden = Entrecomillado(Text2->text()) + u'|' + Entrecomillado(Text5->text()) + QStringLiteral("| ") + Text4->text() +
                  QStringLiteral("| ") + Text3->text() + QStringLiteral("| ") + Text7->text() + QStringLiteral("| ") +
                  vb::CStr(vb::Variant(vb::CCur(vb::Variant(txtCosto->text())))) + QStringLiteral("|#") +
                  vb::Format(vb::Variant(vb::Fecha::Now()), QStringLiteral("yyyy/mm/dd hh:nn:ss")) + QStringLiteral("#|") +
                  Entrecomillado(globales::LoginAnalista);
        if (!Datos::CambiaGenerico_X(c)) {
            sistema.MsgBox(QStringLiteral("No se pudieron guardar los cambios"), ui::vbOKOnly,
                           QStringLiteral("Error en captura de Donaciones"));
            return;
        }
        DatosGrabados = true;
        close();
        return;
    }
    // A new title's row was made by "Agregar -->"; this statement is refused by the engine and the trap tells.
    dao::Database& base = globales::Base();
    base.Execute(QStringLiteral("INSERTO INTO [Donaciones Libros] (Titulo,Autor,NoEditorial,Ejemplares,Edicion,Costo,"
                                "FechaCaptura,IdCapturista) VALUES ("));
    if (base.RecordsAffected() > 1)
        sistema.MsgBox(QStringLiteral("Grabado con exito"));
    else
        sistema.MsgBox(QStringLiteral("No se pudieron insertar los datos"), ui::vbOKOnly,
                       QStringLiteral("Error en captura de Donaciones"));
}

void Don_Libros::CierraYRefresca(bool mirarListado) {
    close();
    if (Generales && !(mirarListado && globales::DesdeListadoEjemplares)) Generales->Refresca();
}

void Don_Libros::Command3_Click() {
    // Nothing of the title is written here: what changed since the last number added is lost.
    if (!(vb::Val(Text3->text()) > List1->count())) {
        CierraYRefresca(true);
        return;
    }
    if (List1->count() == 0) {
        const int r = ui::Sistema().MsgBox(
            QStringLiteral("No ha agregado ningun número de Adquisición,los cambios no se grabarán. ¿Desea continuar?"),
            ui::vbYesNo, QStringLiteral("Precaución"));
        if (r == ui::vbYes) CierraYRefresca(false);
        return;
    }
    const int r = ui::Sistema().MsgBox(
        QStringLiteral("Ha ingresado menos números de adquisición que los libros recibidos. ¿Desea salir de todas maneras?"),
        ui::vbYesNo, QStringLiteral("Precaución"));
    if (r == ui::vbYes) CierraYRefresca(true);
}
