#include "workflow/Recep_Libros.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/CampoEnlazado.h"
#include "core/dao/Dao.h"
#include "core/ui/Ficha.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"
#include "workflow/NumerosAdquisicion.h"
#include "workflow/Recep_Generales.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("Recep_Libros");
const QString CrLf = QStringLiteral("\r\n");
const QString ColumnasTitulo =
    QStringLiteral("[Fecha de Recepcion]|[Ejemplares Recibidos]|Costo|Factura|Estado|IdCapturista");

// A key typed where a field is already full; typing over a selection makes room.
bool CampoLleno(const QLineEdit& campo, int largo) {
    return vb::Len(campo.text()) - vb::Len(campo.selectedText()) >= largo;
}

}  // namespace

Recep_Libros::Recep_Libros(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Recep_Libros"));
    setWindowTitle(QStringLiteral("Recepción de libros"));

    Web = ui::Sistema().CreaVistaHtml(this);
    Text2 = new QLineEdit(this);
    Text3 = new QLineEdit(this);
    Text4 = new QLineEdit(this);
    Text5 = new QLineEdit(this);
    Text6 = new QLineEdit(this);
    auto* marcoLista = new QGroupBox(QStringLiteral("Control de números de adquisición:"), this);
    List1 = new QListWidget(marcoLista);
    Command4 = new QPushButton(QStringLiteral("&Agregar"), this);
    Command5 = new QPushButton(QStringLiteral("&Borrar "), this);
    lblInfoNumAdq = new QLabel(this);
    Command3 = new QPushButton(QStringLiteral("&Regresar"), this);
    Command1 = new QPushButton(QStringLiteral("&Modificar"), this);
    Command2 = new QPushButton(QStringLiteral("Borrar &todos"), this);
    const std::pair<QWidget*, const char*> nombres[] = {
        {Text2, "Text2"},       {Text3, "Text3"},       {Text4, "Text4"},
        {Text5, "Text5"},       {Text6, "Text6"},       {List1, "List1"},
        {Command4, "Command4"}, {Command5, "Command5"}, {lblInfoNumAdq, "lblInfoNumAdq"},
        {Command3, "Command3"}, {Command1, "Command1"}, {Command2, "Command2"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));

    // Nothing can be listed until copies are received; the number buttons wait for their turn.
    Text6->setEnabled(false);
    List1->setEnabled(false);
    Command4->setEnabled(false);
    Command5->setEnabled(false);
    Command1->setEnabled(false);
    Command2->setEnabled(false);
    lblInfoNumAdq->hide();
    Text3->installEventFilter(this);
    Text4->installEventFilter(this);

    auto* g = new QGridLayout;
    g->addWidget(new QLabel(QStringLiteral("Fecha de recepción"), this), 0, 0);
    g->addWidget(Text2, 0, 1);
    g->addWidget(new QLabel(QStringLiteral("Ejemplares recibidos"), this), 1, 0);
    g->addWidget(Text3, 1, 1);
    g->addWidget(new QLabel(QStringLiteral("Costo"), this), 2, 0);
    g->addWidget(Text4, 2, 1);
    g->addWidget(new QLabel(QStringLiteral("Factura"), this), 3, 0);
    g->addWidget(Text5, 3, 1);
    g->setRowStretch(4, 1);

    auto* captura = new QHBoxLayout;
    captura->addWidget(new QLabel(QStringLiteral("Núm. adq"), this));
    captura->addWidget(Text6, 1);
    captura->addWidget(Command4);
    auto* botonesLista = new QHBoxLayout;
    botonesLista->addWidget(Command1);
    botonesLista->addWidget(Command5);
    botonesLista->addWidget(Command2);
    botonesLista->addStretch(1);
    auto* numeros = new QVBoxLayout(marcoLista);
    numeros->addLayout(captura);
    numeros->addWidget(List1, 1);
    numeros->addWidget(lblInfoNumAdq);
    numeros->addLayout(botonesLista);

    auto* centro = new QHBoxLayout;
    centro->addLayout(g);
    centro->addWidget(marcoLista, 1);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command3);
    auto* todo = new QVBoxLayout(this);
    ui::ColocaFicha(*todo, Web.get());
    todo->addLayout(centro, 1);
    todo->addLayout(botones);
    resize(720, 480);
    // The title's reception down the left, then the numbers: the one to add, its button, the list, its buttons.
    controles::OrdenDeTabulacion({Text2, Text3, Text4, Text5, Text6, Command4, List1, Command1, Command5, Command2, Command3});

    ui::Conecta(Command4, &QPushButton::clicked, this, origen, &Recep_Libros::Command4_Click);
    ui::Conecta(Command5, &QPushButton::clicked, this, origen, &Recep_Libros::Command5_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &Recep_Libros::Command3_Click);
    ui::Conecta(Text3, &QLineEdit::textChanged, this, origen, &Recep_Libros::Text3_Change);
    ui::Conecta(Text4, &QLineEdit::textChanged, this, origen, &Recep_Libros::Text4_Change);
    ui::Conecta(Text6, &QLineEdit::textChanged, this, origen, &Recep_Libros::Text6_Change);
    // A click on a row, or a move to another row with the keyboard. A mouse press that moves the row is
    // followed by its click, which alone runs the handler. Moves made by the screen itself fire nothing.
    ui::Conecta(List1, &QListWidget::itemClicked, this, origen, &Recep_Libros::List1_Click);
    connect(List1, &QListWidget::currentRowChanged, this, [this] {
        if (QApplication::mouseButtons() != Qt::NoButton) return;
        ui::Protegido(origen, [this] { List1_Click(); });
    });
}

Recep_Libros::~Recep_Libros() = default;

bool Recep_Libros::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto != Text3 && objeto != Text4) return QDialog::eventFilter(objeto, evento);
    auto* campo = static_cast<QLineEdit*>(objeto);
    if (evento->type() == QEvent::FocusIn) {
        // After the field has taken the focus, or a mouse press would place the caret over the selection.
        QTimer::singleShot(0, campo, [campo] { campo->selectAll(); });
    } else if (evento->type() == QEvent::KeyPress) {
        const auto& tecla = *static_cast<QKeyEvent*>(evento);
        const int codigo = tecla.key() == Qt::Key_Delete ? 0 : controles::CodigoTecla(tecla);
        // Keys that type nothing, and those that move the focus or reach the buttons, pass untouched.
        if (codigo == 0 || codigo == 9 || codigo == 13 || codigo == 27) return false;
        bool tragada = false;
        ui::Protegido(origen, [&] { tragada = campo == Text3 ? Text3_KeyPress(codigo) : Text4_KeyPress(codigo); });
        return tragada;
    }
    return QDialog::eventFilter(objeto, evento);
}

// ---- Loading ------------------------------------------------------------------------------------------------

void Recep_Libros::Form_Load() {
    Fecha.setTextBox(Text2);
    controles::LimitaAlCampo(*Text5, QStringLiteral("Solicitudes Libros"), QStringLiteral("Factura"));
    {
        const QSignalBlocker bloqueo(List1);
        List1->clear();
    }
    const QString clave = globales::TitValor.text();
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("Titulo, Autor,  Editoriales.Nombre, [Ejemplares Pedidos], Edicion");
    c.Orden.clear();
    c.Clave = QStringLiteral("([Solicitudes Libros] left join Editoriales on [Solicitudes Libros].NoEditorial = "
                             "Editoriales.[No]) where ClaveLibro=") +
              clave;
    QString datos = Datos::Consultas_in(c);
    std::vector<ui::FilaFicha> filas;
    for (const QString& etiqueta : {QStringLiteral("Título: "), QStringLiteral("Autor: "), QStringLiteral("Editorial: "),
                                    QStringLiteral("Ejemplares pedidos: "), QStringLiteral("Edición: ")})
        filas.emplace_back(etiqueta, Datos::TomaCampo(datos));
    if (Web) ui::EscribeFicha(*Web, filas, QStringLiteral("</TABLE></BODY></HTML>"), 40000);

    c.Campos = QStringLiteral("[Fecha de Recepcion], [Ejemplares Recibidos], Costo, Factura");
    c.Tabla = QStringLiteral("[Solicitudes Libros]");
    c.Clave = QStringLiteral("ClaveLibro");
    c.Valor = clave;
    c.Orden.clear();
    QString titulo = Datos::ConsultaCampos(c);
    const QString fecha = Datos::TomaCampo(titulo);
    const QString recibidos = Datos::TomaCampo(titulo);
    const QString costo = Datos::TomaCampo(titulo);
    const QString factura = Datos::TomaCampo(titulo);
    // A title not yet received proposes today.
    const vb::Variant dia = fecha.isEmpty() ? vb::Variant(vb::Fecha::Today()) : vb::Variant(vb::CDate(vb::Variant(fecha)));
    Text2->setText(vb::Format(dia, QStringLiteral("dd/MMM/yyyy")));
    Text3->setText(recibidos);
    Text4->setText(costo);
    Text5->setText(factura);

    c.Campos = QStringLiteral("NoAdquisicion");
    c.Tabla = QStringLiteral("[Adquisiciones Numadqui]");
    c.Clave = QStringLiteral("ClaveLibro");
    c.Valor = clave;
    c.Orden.clear();
    numadq::LlenaLista(*List1, Datos::ConsultaCampos(c, QStringLiteral(" AND [Solicitud o donacion]='S' ")));
}

void Recep_Libros::AgregaALista(const QString& numero) {
    const QSignalBlocker bloqueo(List1);
    List1->addItem(numero);
}

// ---- The dates of entry ---------------------------------------------------------------------------------------

QString& Recep_Libros::PosicionFecha(int posicion) {
    if (posicion < 0 || posicion >= static_cast<int>(FechasEjemplar.size()))
        throw vb::Error(9, QStringLiteral("El subíndice está fuera del intervalo"));
    return FechasEjemplar[static_cast<size_t>(posicion)];
}

int Recep_Libros::CargarMetadataEjemplar() {
    const int n = List1->count();
    if (n == 0) return 0;
    FechasEjemplar.assign(static_cast<size_t>(n) + 1, QString());
    QStringList lista;
    for (int i = 0; i < n; ++i) lista << u'\'' + List1->item(i)->text() + u'\'';
    // The rows are taken in the order they come: nothing ties a row to its number in the list.
    auto rs = globales::Base().OpenRecordset(
        QStringLiteral("SELECT NoAdquisicion,FechaIngreso FROM [Adquisiciones Numadqui] WHERE NoAdquisicion IN (") +
            lista.join(u',') + u')',
        dao::dbOpenSnapshot);
    int filas = 0;
    while (!rs->Eof()) {
        ++filas;
        const vb::Variant ingreso = rs->Fields(1).Value();
        PosicionFecha(filas) = ingreso.isNull() ? QString() : vb::Format(ingreso, QStringLiteral("dd-mmm-yyyy hh:mm:ss"));
        rs->MoveNext();
    }
    rs->Close();
    return filas;
}

void Recep_Libros::MostrarMetadataEjemplar(int indice) {
    const QString fecha = PosicionFecha(indice + 1);
    if (!fecha.isEmpty()) {
        lblInfoNumAdq->setText(QStringLiteral("Este ejemplar fue agregado el ") + fecha);
        lblInfoNumAdq->show();
    } else {
        lblInfoNumAdq->clear();
        lblInfoNumAdq->hide();
    }
}

// ---- Fields ---------------------------------------------------------------------------------------------------

void Recep_Libros::Text3_Change() {
    numadq::ReglaEjemplares(*Text3, ValorAnterior,
                            QStringLiteral("No puede haber más Números de Adquisición que Ejemplares Recibidos") + CrLf +
                                QStringLiteral("Si quiere reducir este valor primero quite algunos Números de Adquisición "
                                               "de la lista"),
                            *Text6, *List1, *Command4, *Command5);
}

bool Recep_Libros::Text3_KeyPress(int KeyAscii) {
    ValorAnterior = vb::Trim(Text3->text());
    if (KeyAscii == 8) return false;
    if (KeyAscii < '0' || KeyAscii > '9') return true;
    return CampoLleno(*Text3, 3);
}

bool Recep_Libros::Text4_KeyPress(int KeyAscii) {
    if (KeyAscii == 8) return false;
    if ((KeyAscii < '0' || KeyAscii > '9') && KeyAscii != '.') return true;
    return CampoLleno(*Text4, 8);
}

void Recep_Libros::HabilitaAgregar() {
    const QString costo = Text4->text();
    // No number without a cost above 0.
    const bool listo = vb::IsNumeric(vb::Variant(costo)) && vb::Val(costo) > 0 && !Text6->text().isEmpty();
    Command4->setEnabled(listo);
    if (listo) Command4->setDefault(true);
}

void Recep_Libros::Text4_Change() { HabilitaAgregar(); }

void Recep_Libros::Text6_Change() { HabilitaAgregar(); }

void Recep_Libros::List1_Click() {
    if (List1->count() == 0) return;
    Command5->setEnabled(true);
    Command5->setDefault(true);
    if (CargarMetadataEjemplar() > 0) MostrarMetadataEjemplar(List1->currentRow());
}

// ---- Buttons --------------------------------------------------------------------------------------------------

QString Recep_Libros::ValoresPantalla() const {
    return u'#' + vb::Format(vb::Variant(Text2->text()), QStringLiteral("yyyy/mm/dd")) + QStringLiteral("#| ") + Text3->text() + QStringLiteral("| ") +
           vb::CStr(vb::Variant(vb::Val(Text4->text()))) + QStringLiteral("| '") + Datos::DuplicaComillas(Text5->text()) +
           QStringLiteral("'| 'A'|'") + globales::LoginAnalista + u'\'';
}

bool Recep_Libros::EscribeTitulo(const QString& valores) {
    globales::ConsultaDatos& c = globales::Consulta;
    c.Tabla = QStringLiteral("[Solicitudes Libros]");
    c.Clave = QStringLiteral("ClaveLibro");
    c.Valor = globales::TitValor.text();
    c.Campos = ColumnasTitulo;
    c.Orden = valores;
    return Datos::CambiaGenerico_X(c);
}

void Recep_Libros::Command4_Click() {
    ui::Plataforma& sistema = ui::Sistema();
    const QString numero = vb::Trim(Text6->text());
    if (numero.isEmpty()) {
        sistema.MsgBox(QStringLiteral("Escriba un número de adquisición valido"));
        return;
    }
    if (!(vb::Val(Text3->text()) > List1->count())) {
        sistema.MsgBox(QStringLiteral("No se puede introducir más Números de Adquisición que los Ejemplares Recibidos"),
                       ui::vbOKOnly, QStringLiteral("Precaución"));
        Command4->setEnabled(false);
        Text6->clear();
        return;
    }
    // Numbers of donated titles may repeat one of a request: only this side is searched.
    globales::ConsultaDatos& c = globales::Consulta;
    c.Campos = QStringLiteral("NoAdquisicion");
    c.Tabla = QStringLiteral("[Adquisiciones Numadqui]");
    c.Clave = QStringLiteral("NoAdquisicion");
    c.Valor = u'\'' + numero + u'\'';
    c.Orden.clear();
    if (!Datos::ConsultaCampos(c, QStringLiteral(" AND [Solicitud o donacion]='S'")).isEmpty()) {
        sistema.MsgBox(QStringLiteral("El número de Adquisición ya existe"), ui::vbOKOnly, QStringLiteral("Precaución"));
        return;
    }
    // The title is acquired from here on, also if the number below fails.
    if (!EscribeTitulo(ValoresPantalla())) {
        sistema.MsgBox(QStringLiteral("No se pudo agregar el Registro [error al actualizar Solicitudes-Libros]"));
        return;
    }
    globales::AltaDatos& a = globales::Alta;
    a.Campos = QStringLiteral("NoAdquisicion, Clavelibro, [Solicitud o Donacion],IdCapturista,FechaIngreso");
    a.Valores = u'\'' + numero + QStringLiteral("', ") + globales::TitValor.text() + QStringLiteral(", 'S','") +
                globales::LoginAnalista + QStringLiteral("',#") +
                vb::Format(vb::Variant(vb::Fecha::Now()), QStringLiteral("yyyy/mm/dd hh:nn:ss")) + u'#';
    a.Tabla = QStringLiteral("[Adquisiciones Numadqui]");
    if (!Datos::GrabarX(a)) {
        sistema.MsgBox(QStringLiteral("No se pudo agregar el núm. de adquisición '") + numero + u'\'');
        return;
    }
    AgregaALista(Text6->text());
    globales::HuboCambiosNumAdq = true;

    numadq::PreparaSiguiente(*Text6);
}

void Recep_Libros::Command5_Click() {
    const int indice = List1->currentRow();
    if (List1->count() == 0 || indice < 0) return;
    if (!numadq::BorraNumero(List1->item(indice)->text(), QStringLiteral(" AND [Solicitud o donacion]='S'"),
                             QStringLiteral("Error al tratar de borrar el registro")))
        return;
    // The copies received and the title's state stay as they are until "Regresar".
    const QSignalBlocker bloqueo(List1);
    delete List1->takeItem(indice);
    Command5->setEnabled(false);
    globales::HuboCambiosNumAdq = true;
    lblInfoNumAdq->hide();
    if (List1->count() == 0) return;
    List1->setCurrentRow(indice < 2 ? 0 : indice - 1);
    // The number chosen in its place is as good as clicked: its button and its date of entry follow it.
    List1_Click();
}

void Recep_Libros::Command3_Click() {
    ui::Plataforma& sistema = ui::Sistema();
    const double recibidos = vb::Val(Text3->text());
    const int listados = List1->count();
    QString valores = ValoresPantalla();
    if (recibidos > listados || recibidos == 0) {
        if (listados == 0) {
            const int r = sistema.MsgBox(
                QStringLiteral("Este título no tiene ningún número de adquisición registrado,") + CrLf +
                    QStringLiteral("por lo que en su estado aparecerá como 'Pedido'") + CrLf + CrLf +
                    QStringLiteral(" ¿Desea salir de todos modos?"),
                ui::vbYesNo + ui::vbQuestion, QStringLiteral("¡Precaución!"));
            if (r != ui::vbYes) return;
            // Without a number the title is back to ordered, its reception emptied.
            valores = QStringLiteral(" NULL| 0| 0| ''| 'P'|'") + globales::LoginAnalista + u'\'';
        } else {
            const int r = sistema.MsgBox(QStringLiteral("Ha agregado menos Números de Adquisición que Libros Recibidos. ") +
                                             CrLf + QStringLiteral(" ¿Desea salir dejando incompleta la recepción?"),
                                         ui::vbYesNo + ui::vbDefaultButton2, QStringLiteral("Precaución"));
            if (r != ui::vbYes) return;
        }
    }
    EscribeTitulo(valores);
    if (!globales::DesdeListadoEjemplares && Generales) Generales->Refresca();
    close();
}
