#include "reports/Listado.h"

#include "core/Globales.h"
#include "core/controles/ComboBox.h"
#include "core/dao/Dao.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"
#include "core/vb/Formato.h"
#include "reports/Reportes.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

const QString saltoLinea = QStringLiteral("\r\n");
const QString tituloPrecaucion = QStringLiteral("Precuación");
// The save dialog's flags: overwrite prompt (2) and keep the current directory (8).
constexpr int FlagsGuardar = 10;

bool EsFecha(const QLineEdit* caja) { return vb::IsDate(vb::Variant(caja->text())); }

}  // namespace

Listado::Listado(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Listado"));
    setWindowTitle(QStringLiteral("Generador de reportes"));

    Combo1 = new controles::ComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text2 = new QLineEdit(this);
    Text2->setObjectName(QStringLiteral("Text2"));
    lblFinanciamiento = new QLabel(QStringLiteral("Fuente de financiamiento:"), this);
    cboFinanciamiento = new controles::ComboBox(this);
    cboFinanciamiento->setObjectName(QStringLiteral("cboFinanciamiento"));
    Option1[0] = new QRadioButton(QStringLiteral("Por Escuela"), this);
    Option1[1] = new QRadioButton(QStringLiteral("Por Biblioteca"), this);
    Option1[1]->setChecked(true);
    Frame1[0] = new QGroupBox(QStringLiteral("Bibliotecas"), this);
    Frame1[1] = new QGroupBox(QStringLiteral("Escuelas"), this);
    for (int i = 0; i < 2; ++i) {
        List1[i] = new QListWidget(Frame1[i]);
        List1[i]->setSelectionMode(QAbstractItemView::MultiSelection);
        auto* l = new QVBoxLayout(Frame1[i]);
        l->addWidget(List1[i]);
    }
    Frame1[1]->setVisible(false);
    Command1 = new QPushButton(QStringLiteral("Generar reporte"), this);
    Command2 = new QPushButton(QStringLiteral("Grabar reporte en disco "), this);
    Command3 = new QPushButton(QStringLiteral("Imprimir reporte"), this);
    Command4 = new QPushButton(QStringLiteral("Configurar impresora"), this);
    Command5 = new QPushButton(QStringLiteral("&Regresar"), this);
    WebBrowser1 = ui::Sistema().CreaVistaHtml(this);

    // The choices keep to a column of their own, so that the page beside them has the width of a report.
    auto* panel = new QWidget(this);
    panel->setMaximumWidth(400);
    // The long first item of the sources must not push the labels out of the column.
    for (QComboBox* c : {static_cast<QComboBox*>(Combo1), static_cast<QComboBox*>(cboFinanciamiento)}) {
        c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        c->setMinimumContentsLength(16);
    }
    auto* datos = new QGridLayout(panel);
    datos->setContentsMargins(0, 0, 0, 0);
    datos->addWidget(new QLabel(QStringLiteral("Tipo de reporte:"), this), 0, 0);
    datos->addWidget(Combo1, 0, 1, 1, 3);
    datos->addWidget(new QLabel(QStringLiteral("Inicial"), this), 1, 0);
    datos->addWidget(Text1, 1, 1);
    datos->addWidget(new QLabel(QStringLiteral("Final"), this), 1, 2);
    datos->addWidget(Text2, 1, 3);
    datos->addWidget(lblFinanciamiento, 2, 0);
    datos->addWidget(cboFinanciamiento, 2, 1, 1, 3);
    datos->addWidget(Option1[0], 3, 0, 1, 2);
    datos->addWidget(Option1[1], 3, 2, 1, 2);
    datos->addWidget(Frame1[0], 4, 0, 1, 4);
    datos->addWidget(Frame1[1], 5, 0, 1, 4);
    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {Command1, Command2, Command3, Command4, Command5}) botones->addWidget(b);
    auto* todo = new QVBoxLayout(this);
    auto* arriba = new QHBoxLayout;
    arriba->addWidget(panel);
    if (WebBrowser1 && WebBrowser1->widget()) arriba->addWidget(WebBrowser1->widget(), 1);
    todo->addLayout(arriba, 1);
    todo->addLayout(botones);
    resize(1200, 720);

    const QString origen = QStringLiteral("Listado");
    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Listado::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &Listado::Command2_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &Listado::Command3_Click);
    ui::Conecta(Command4, &QPushButton::clicked, this, origen, &Listado::Command4_Click);
    ui::Conecta(Command5, &QPushButton::clicked, this, origen, &Listado::Command5_Click);
    ui::Conecta(Combo1, &controles::ComboBox::Click, this, origen, &Listado::Combo1_Click);
    ui::Conecta(Text1, &QLineEdit::textChanged, this, origen, &Listado::Text1_Change);
    ui::Conecta(Text2, &QLineEdit::textChanged, this, origen, &Listado::Text2_Change);
    for (int i = 0; i < 2; ++i) {
        ui::Conecta(Option1[i], &QRadioButton::clicked, this, origen, &Listado::Option1_Click, i);
        ui::Conecta(List1[i], &QListWidget::itemDoubleClicked, this, origen, &Listado::List1_DblClick, i);
    }
}

Listado::~Listado() = default;

bool Listado::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == Text2 && evento->type() == QEvent::FocusIn)
        ui::Protegido(QStringLiteral("Listado"), [this] { Text2_GotFocus(); });
    return QDialog::eventFilter(objeto, evento);
}

void Listado::Form_Load() {
    FechaInicio.setTextBox(Text1);
    FechaFin.setTextBox(Text2);
    // Installed after the date behaviour, so that it runs first: the behaviour then selects today's date.
    Text2->installEventFilter(this);
    WebBrowser1->Navigate(QStringLiteral("about:blank"));

    globales::ConsultaDatos& c = globales::Consulta;
    c.Clave.clear();
    c.Valor.clear();
    c.Campos = QStringLiteral("[No], Nombre ");
    c.Tabla = QStringLiteral("Bibliotecas");
    c.Orden = QStringLiteral("[No]");
    reportes::LlenaListaTodas(c, *List1[0]);
    c.Campos = QStringLiteral("[No], Nombre");
    c.Tabla = QStringLiteral("Escuelas");
    reportes::LlenaListaTodas(c, *List1[1]);
    for (QListWidget* l : List1)
        if (l->count() > 0) l->item(0)->setSelected(true);

    Combo1->Clear();
    for (const char* tipo : {"Solicitados", "Pedidos", "Adquiridos", "Imposibles de adquirir", "Donaciones", "Envíos"})
        Combo1->AddItem(QString::fromUtf8(tipo));
    Combo1->setListIndex(0);

    cboFinanciamiento->Clear();
    cboFinanciamiento->AddItem(QStringLiteral(" -- cualquier fuente de financiamiento --"));
    auto rs = globales::Base().OpenRecordset(QStringLiteral("SELECT * FROM adqFinanciamiento ORDER BY IdFinanciamiento"));
    bool hay = false;
    while (!rs->Eof()) {
        hay = true;
        cboFinanciamiento->AddItem(vb::Format(rs->Fields(QStringLiteral("IdFinanciamiento")).Value(), QStringLiteral("000")) +
                                   QStringLiteral(" - ") + rs->Fields(QStringLiteral("Nombre")).Value().text());
        rs->MoveNext();
    }
    rs->Close();
    lblFinanciamiento->setVisible(hay);
    cboFinanciamiento->setVisible(hay);
    cboFinanciamiento->setListIndex(0);

    Command1->setEnabled(false);
}

void Listado::HabilitaGenerar() { Command1->setEnabled(EsFecha(Text1) && EsFecha(Text2)); }

void Listado::Text1_Change() { HabilitaGenerar(); }
void Listado::Text2_Change() { HabilitaGenerar(); }

void Listado::Text2_GotFocus() {
    Text2->setText(vb::Format(vb::Variant(vb::Fecha::Today()), QStringLiteral("dd/mmm/yyyy")));
}

void Listado::Option1_Click(int Index) {
    Frame1[1]->setVisible(Index == 0);
    Frame1[0]->setVisible(Index == 1);
}

void Listado::List1_DblClick(int Index) {
    if (Index != 0) return;
    for (int i = 0; i < List1[0]->count(); ++i) List1[0]->item(i)->setSelected(true);
}

void Listado::Combo1_Click() {
    const QString tipo = Combo1->Text();
    const bool donaciones = tipo == QStringLiteral("Donaciones");
    const bool envios = tipo == QStringLiteral("Envíos");
    if (donaciones || envios) {
        Option1[1]->setChecked(true);
        Option1[0]->setChecked(false);
        // Forced as though clicked: the libraries' frame comes up and a list of schools chosen before goes.
        Option1_Click(1);
        Option1[0]->setEnabled(false);
        List1[0]->setEnabled(!envios);
        List1[1]->setEnabled(!envios);
    } else {
        Option1[0]->setEnabled(true);
        List1[0]->setEnabled(true);
        List1[1]->setEnabled(true);
    }
}

QString Listado::CondicionLugar() const {
    const bool porBiblioteca = Option1[1]->isChecked();
    const QListWidget* lista = List1[porBiblioteca ? 0 : 1];
    const QString campo = porBiblioteca ? QStringLiteral("[Solicitudes General].NoBiblioteca")
                                        : QStringLiteral("[Solicitudes General].NoEscuela");
    QString c;
    if (lista->count() > 0 && lista->item(0)->isSelected()) {
        c = QStringLiteral("(") + campo + QStringLiteral(" > (0 ");
    } else {
        c = QStringLiteral("(") + campo + QStringLiteral(" in (");
        for (int i = 0; i < lista->count(); ++i)
            if (lista->item(i)->isSelected()) c += vb::Format(vb::Variant(vb::Val(lista->item(i)->text()))) + QStringLiteral(",");
    }
    c.chop(1);
    return c;
}

void Listado::HabilitaSalida(bool habilita) {
    Command2->setEnabled(habilita);
    Command3->setEnabled(habilita);
    Command4->setEnabled(habilita);
}

void Listado::Command1_Click() {
    const ui::CursorEspera espera(this);
    QString xsl = QStringLiteral("xsls\\formato2.xsl");

    if (Option1[1]->isChecked()) {
        if (List1[0]->selectedItems().isEmpty()) {
            ui::Sistema().MsgBox(QStringLiteral("No ha seleccionado ninguna biblioteca"), ui::vbOKOnly, tituloPrecaucion);
            return;
        }
    } else if (List1[1]->selectedItems().isEmpty()) {
        ui::Sistema().MsgBox(QStringLiteral("No ha seleccionado ninguna Escuela"), ui::vbOKOnly, tituloPrecaucion);
        return;
    }
    if (!EsFecha(Text1) || !EsFecha(Text2)) {
        ui::Sistema().MsgBox(QStringLiteral("Rango de Fechas Incorrectas"), ui::vbOKOnly, tituloPrecaucion);
        return;
    }

    QString f;
    if (cboFinanciamiento->ListIndex() > 0)
        f = QStringLiteral(" AND IdFinanciamiento=") +
            vb::Format(vb::Variant(vb::Val(vb::Mid(cboFinanciamiento->Text(), 1, 4))));

    globales::ConsultaDatos& q = globales::Consulta;
    q.Campos = QStringLiteral("[Solicitudes General].NoBiblioteca,  Titulo, Autor, Editoriales.Nombre as Noeditorial, ISBN");
    q.Tabla = QStringLiteral(
        "(([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes "
        "General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])");
    q.Clave.clear();
    q.Orden.clear();

    const QString c = CondicionLugar();
    const vb::Fecha inicial = vb::CDate(vb::Variant(Text1->text()));
    const vb::Fecha final_ = vb::CDate(vb::Variant(Text2->text()));
    const QString i = vb::Format(vb::Variant(inicial), QStringLiteral("mm/dd/yyyy"));
    const QString e = vb::Format(vb::Variant(final_), QStringLiteral("mm/dd/yyyy"));
    globales::FechaInicial = inicial;
    globales::FechaFinal = final_;
    const QString rango = QStringLiteral(" between #") + i + QStringLiteral("# and #") + e + QStringLiteral("#");
    const QString donde = QStringLiteral(" where ") + c + QStringLiteral(")") + f;

    const QString tipo = Combo1->Text();
    QString titulo;
    bool vacio = false;
    QString resumen;
    if (tipo == QStringLiteral("Solicitados")) {
        q.Campos += QStringLiteral(
            ", [Solicitudes General].NoEscuela, [Solicitudes General].Fecha, [Solicitudes Libros].[Ejemplares Pedidos] AS "
            "Ejemplares");
        q.Clave = donde + QStringLiteral(" and  [Solicitudes General].Fecha") + rango +
                  QStringLiteral(" and [Solicitudes General].Estado='S')");
        xsl = QStringLiteral("xsls\\Solicitados.xsl");
        titulo = QStringLiteral("Reporte de material solicitado");
    } else if (tipo == QStringLiteral("Pedidos") || tipo == QStringLiteral("Imposibles de adquirir")) {
        const bool pedidos = tipo == QStringLiteral("Pedidos");
        q.Campos += QStringLiteral(", [Solicitudes General].NoEscuela, [Solicitudes General].Fecha");
        q.Clave = donde + QStringLiteral("  and  [Solicitudes General].Fecha") + rango +
                  (pedidos ? QStringLiteral(" and [Solicitudes General].Estado='P')")
                           : QStringLiteral(" and [Solicitudes Libros].Estado='I')"));
        xsl = pedidos ? QStringLiteral("xsls\\Pedidos.xsl") : QStringLiteral("xsls\\ImpAdq.xsl");
        titulo = pedidos ? QStringLiteral("Reporte de material pedido")
                         : QStringLiteral("Reporte de material que no se pudo adquirir");
    } else if (tipo == QStringLiteral("Adquiridos")) {
        q.Campos += QStringLiteral(
            ", [Solicitudes General].NoEscuela, Edicion, [Ejemplares recibidos], Costo, Factura, [Adquisiciones "
            "Numadqui].Noadquisicion, [Fecha de Recepcion]");
        q.Tabla += QStringLiteral(
            " left join [Adquisiciones Numadqui] on [Solicitudes Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro ");
        q.Orden = QStringLiteral("[Adquisiciones Numadqui].Noadquisicion");
        q.Clave = donde + QStringLiteral("  and  [Fecha de Recepcion]") + rango +
                  QStringLiteral(" and [Solicitudes Libros].Estado='A' AND [Adquisiciones Numadqui].[solicitud o donacion]='S')");
        xsl = QStringLiteral("xsls\\Adquiridos.xsl");
        titulo = QStringLiteral("Reporte de material adquirido");
    } else if (tipo == QStringLiteral("Donaciones")) {
        QString cd = c;
        cd.replace(QStringLiteral("Solicitudes"), QStringLiteral("Donaciones"));
        q.Campos = QStringLiteral(
            "  [Adquisiciones Numadqui].Noadquisicion, [Donaciones General].NoBiblioteca,  [Instituciones].Nombre, Titulo, "
            "Autor,Ejemplares, Editoriales.Nombre as Noeditorial, Edicion, [Donaciones General].Fecha");
        q.Tabla = QStringLiteral(
            "((([Donaciones Libros] left join [Donaciones General] on [Donaciones Libros].Nodonacion=[Donaciones "
            "General].Nodonacion) left join [Adquisiciones Numadqui] on [Donaciones Libros].ClaveLibro=[Adquisiciones "
            "Numadqui].ClaveLibro) left join Editoriales on [Donaciones Libros].NoEditorial=Editoriales.[No]) LEFT JOIN "
            "[Instituciones] ON [Donaciones General].[NoInstitucion]=[Instituciones].[No]");
        q.Clave = QStringLiteral(" WHERE ") + cd + QStringLiteral(") and  [Donaciones General].Fecha") + rango +
                  QStringLiteral(") AND [Adquisiciones numadqui].[solicitud o donacion]='D'");
        q.Orden = QStringLiteral("[Adquisiciones Numadqui].Noadquisicion");
        xsl = QStringLiteral("xsls\\Donaciones.xsl");
        titulo = QStringLiteral("Reporte de material recibido como donación");
    } else if (tipo == QStringLiteral("Envíos")) {
        xsl = QStringLiteral("xsls\\Envios.xsl");
        q.Campos = QStringLiteral("Titulo, Autor, [Adquisiciones Numadqui].NoAdquisicion, [Solicitudes General].NoBiblioteca");
        q.Tabla = QStringLiteral(
            "(([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes "
            "General].NoSolicitud)left join [Adquisiciones Numadqui] on [Solicitudes Libros].ClaveLibro=[Adquisiciones "
            "Numadqui].ClaveLibro)");
        q.Clave = QStringLiteral(" WHERE  ([Fecha de Recepcion] >= #") + i + QStringLiteral("# AND [Fecha de Recepcion] <= #") +
                  e + QStringLiteral("# AND [Solicitudes Libros].Estado='A'") + f +
                  QStringLiteral(" AND [Adquisiciones numadqui].[solicitud o donacion]='S')");
        q.Orden = QStringLiteral("[Adquisiciones Numadqui].Noadquisicion");
        bool vacioA = false;
        QString resumenA;
        QString a = reportes::xml_in(q, xsl, QStringLiteral("AReporte"), QStringLiteral("Libro"), QStringLiteral("Titulo"),
                                     vacioA, resumenA, false);
        if (a.isEmpty() && resumenA.isEmpty()) {
            ui::Sistema().MsgBox(
                QStringLiteral("No se puede generar esta consulta, por favor contacte al personal de soporte técnico de KORVEL"),
                ui::vbCritical, QStringLiteral("Error crítico: Reporte de envíos [Adquisiciones]"));
            return;
        }
        a.replace(QStringLiteral("<AReporte"), QStringLiteral("<Reportes><AReporte"));

        q.Campos = QStringLiteral("Titulo, Autor, [Adquisiciones Numadqui].NoAdquisicion, [Donaciones General].NoBiblioteca");
        q.Tabla = QStringLiteral(
            "(([Donaciones Libros] left join [Donaciones General] on [Donaciones Libros].NoDonacion=[Donaciones "
            "General].NoDonacion) left join [Adquisiciones Numadqui] on [Donaciones Libros].ClaveLibro=[Adquisiciones "
            "Numadqui].ClaveLibro)");
        q.Clave = QStringLiteral(" WHERE  ([Donaciones General].Fecha BETWEEN  #") + i + QStringLiteral("# AND #") + e +
                  QStringLiteral("#  AND [Adquisiciones numadqui].[solicitud o donacion]='D')");
        bool vacioD = false;
        QString resumenD;
        QString d = reportes::xml_in(q, xsl, QStringLiteral("DReporte"), QStringLiteral("Libro"), QStringLiteral("Titulo"),
                                     vacioD, resumenD, !resumenA.isEmpty());
        const qsizetype inicio = d.indexOf(QStringLiteral("<DReporte"));
        if (inicio >= 0) d = d.mid(inicio);
        DocumentoXml = a + d + QStringLiteral("</Reportes>");
        titulo = QStringLiteral("Reporte de material enviado");
        vacio = vacioA && vacioD;
        if (!resumenA.isEmpty()) {
            resumen = QStringLiteral("<TR><TD><i>Adquisiciones</i></TD></TR>") + saltoLinea + resumenA + saltoLinea;
            if (!resumenD.isEmpty())
                resumen += QStringLiteral("<TR><TD><i><br/>Donaciones</i></TD></TR>") + saltoLinea + resumenD;
            else
                resumen += QStringLiteral("<TR><TD><i><br/>* No hubo material de donación</i></TD></TR>");
        }
    }

    if (tipo != QStringLiteral("Envíos"))
        DocumentoXml = reportes::xml_in(q, xsl, QStringLiteral("Reporte"), QStringLiteral("Libro"), QStringLiteral("Titulo"),
                                        vacio, resumen, false);

    if (!resumen.isEmpty()) {
        reportes::Htm_resumen(QStringLiteral("<h5>Resumen de la consulta</h5><TABLE>") + resumen + QStringLiteral("</TABLE>"),
                              *WebBrowser1);
        HabilitaSalida(false);
        Text1->setFocus();
        ui::Sistema().Beep();
    } else if (vacio) {
        reportes::Htm_resumen(QStringLiteral("<h5>") + titulo +
                                  QStringLiteral("</h5><b>No se encontró ningún material</b> para generar este reporte, "
                                                 "<br/>por favor intente de nuevo modificando los parámetros del criterio "
                                                 "de búsqueda"),
                              *WebBrowser1);
        HabilitaSalida(false);
        Text1->setFocus();
        ui::Sistema().Beep();
    } else {
        DocumentoHtml = reportes::Htm_gen(DocumentoXml, *WebBrowser1, xsl);
        // The saved document declares the encoding the original program wrote in its first line.
        const QString declaracion = QStringLiteral("<?xml version=\"1.0\"?>");
        if (DocumentoXml.startsWith(declaracion))
            DocumentoXml.replace(0, declaracion.size(), QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-7\"?>"));
        HabilitaSalida(true);
    }
}

void Listado::Command2_Click() {
    ui::DialogoArchivo d;
    d.filtro = QStringLiteral("(Archivos HTML) | *.htm|(Archivos XML) | *.xml| ");
    d.flags = FlagsGuardar;
    if (!ui::Sistema().GuardaArchivo(d) || d.archivo.isEmpty()) return;
    QString texto;
    if (d.indiceFiltro == 1) {
        texto = DocumentoHtml;
    } else if (d.indiceFiltro == 2) {
        // The style sheet instruction goes into a comment, so that the file opens as plain XML.
        const qsizetype inicio = DocumentoXml.indexOf(QStringLiteral("<?xml-stylesheet"));
        if (inicio >= 0) {
            DocumentoXml.insert(inicio, QStringLiteral("<!-- "));
            const qsizetype fin = DocumentoXml.indexOf(QStringLiteral("?>"), inicio);
            if (fin >= 0) DocumentoXml.insert(fin + 2, QStringLiteral(" -->"));
        }
        texto = DocumentoXml;
    } else {
        return;
    }
    vb::PrintArchivo(d.archivo, texto);
}

void Listado::Command3_Click() {
    try {
        WebBrowser1->Imprimir(true);   // a cancelled print dialog is no failure
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(e.Description(), ui::vbCritical, QString());
    }
}

void Listado::Command4_Click() { WebBrowser1->ConfigurarPagina(); }

void Listado::Command5_Click() { close(); }
