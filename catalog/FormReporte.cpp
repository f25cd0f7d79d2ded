#include "catalog/FormReporte.h"

#include "core/Globales.h"
#include "core/Rutas.h"
#include "core/controles/Colores.h"
#include "core/controles/ComboBox.h"
#include "core/dao/Dao.h"
#include "core/ui/Ficha.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Formato.h"

#include <QApplication>
#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QResizeEvent>
#include <QVBoxLayout>
#include <algorithm>

namespace {

const QString saltoLinea = QStringLiteral("\r\n");
constexpr int TwipsPorPixel = 15;
constexpr int VueltasEspera = 50000;
constexpr int cdlOFNOverwritePrompt = 2;

}  // namespace

FormReporte::FormReporte(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("FormReporte"));
    setWindowTitle(QStringLiteral("Reporte del"));
    Option1[0] = new QRadioButton(QStringLiteral("Todos los registros"), this);
    Option1[1] = new QRadioButton(QStringLiteral("Registros que contengan:"), this);
    Combo1 = new controles::ComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Label1 = new QLabel(QStringLiteral("ordenados por:"), this);
    Combo2 = new controles::ComboBox(this);
    Combo2->setObjectName(QStringLiteral("Combo2"));
    Combo3 = new controles::ComboBox(this);
    Combo3->setObjectName(QStringLiteral("Combo3"));
    Combo3->setVisible(false);
    Command1 = new QPushButton(QStringLiteral("Generar"), this);
    Command2 = new QPushButton(QStringLiteral("Regresar"), this);
    Command3 = new QPushButton(QStringLiteral("Imprimir"), this);
    Command4 = new QPushButton(QStringLiteral("Guardar"), this);
    Command5 = new QPushButton(QStringLiteral("Configurar"), this);
    for (QPushButton* b : {Command1, Command2, Command3, Command4, Command5}) b->setAutoDefault(false);
    Command3->setEnabled(false);
    Command4->setEnabled(false);
    Command5->setEnabled(false);
    lblTotal = new QLabel(this);
    lblTotal->setObjectName(QStringLiteral("lblTotal"));

    auto* criterios = new QGridLayout;
    criterios->addWidget(Option1[0], 0, 0);
    criterios->addWidget(Option1[1], 1, 0);
    criterios->addWidget(Combo1, 1, 1);
    criterios->addWidget(Text1, 1, 2);
    criterios->addWidget(Label1, 2, 0);
    criterios->addWidget(Combo2, 2, 1);
    criterios->addWidget(Combo3, 2, 2);
    criterios->setColumnStretch(2, 1);
    auto* botones = new QHBoxLayout;
    for (QPushButton* b : {Command1, Command3, Command4, Command5}) botones->addWidget(b);
    botones->addStretch(1);
    botones->addWidget(Command2);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(criterios);
    todo->addLayout(botones);
    todo->addWidget(lblTotal);

    const QString origen = objectName();
    for (int i = 0; i < 2; ++i)
        ui::Conecta(Option1[static_cast<size_t>(i)], &QRadioButton::clicked, this, origen, &FormReporte::Option1_Click, i);
    ui::Conecta(Text1, &QLineEdit::textChanged, this, origen, &FormReporte::Text1_Change);
    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &FormReporte::Command1_Click);
    ui::Conecta(Command2, &QPushButton::clicked, this, origen, &FormReporte::Command2_Click);
    ui::Conecta(Command3, &QPushButton::clicked, this, origen, &FormReporte::Command3_Click);
    ui::Conecta(Command4, &QPushButton::clicked, this, origen, &FormReporte::Command4_Click);
    ui::Conecta(Command5, &QPushButton::clicked, this, origen, &FormReporte::Command5_Click);

    resize(9000 / TwipsPorPixel, 6500 / TwipsPorPixel);
    ui::Protegido(origen, [this, todo] {
        WebBrowser1 = ui::Sistema().CreaVistaHtml(this);
        if (WebBrowser1 && WebBrowser1->widget()) todo->insertWidget(2, WebBrowser1->widget(), 1);
        Form_Load();
    });
}

FormReporte::~FormReporte() = default;

void FormReporte::Form_Load() {
    if (WebBrowser1) WebBrowser1->Navigate(QStringLiteral("about:blank"));
    Option1[0]->setChecked(true);
    Option1_Click(0);
}

void FormReporte::resizeEvent(QResizeEvent* e) {
    QDialog::resizeEvent(e);
    if (isMinimized()) return;
    const int minAncho = 8500 / TwipsPorPixel, minAlto = 3500 / TwipsPorPixel;
    if (width() < minAncho || height() < minAlto) resize(std::max(width(), minAncho), std::max(height(), minAlto));
}

void FormReporte::LlenaCampos(controles::ComboBox* combo, const QString& sql, bool conTipo) {
    combo->Clear();
    auto rs = globales::Base().OpenRecordset(sql);
    for (auto& f : rs->Fields()) {
        combo->AddItem(f->Name());
        if (conTipo) combo->setItemData(combo->NewIndex(), f->Type());
    }
    rs->Close();
    if (combo->ListCount() > 0) combo->setListIndex(0);
}

void FormReporte::mInit(const QString& strSQL, const QString& strTitle, const QString& Opcion) {
    SQLbase = vb::Trim(strSQL);
    TituloReporte = vb::Trim(strTitle);
    setWindowTitle(windowTitle() + QStringLiteral(" ") + TituloReporte);
    try {
        LlenaCampos(Combo1, QStringLiteral("SELECT TOP 1 ") + SQLbase, true);
        LlenaCampos(Combo2, QStringLiteral("SELECT TOP 1 ") + SQLbase, true);
        if (!Opcion.isEmpty()) LlenaCampos(Combo3, QStringLiteral("SELECT TOP 1 ") + RutinaQuitaAlias(SQLbase), false);
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(e.Description(), ui::vbCritical, QStringLiteral("Error ") + QString::number(e.Number()));
    }
}

QString FormReporte::RutinaQuitaAlias(const QString& sqlSentencia) {
    const int p = vb::InStr(1, sqlSentencia, QStringLiteral("FROM"), true);
    const QString lista = p > 0 ? vb::Left(sqlSentencia, p - 1) : sqlSentencia;
    const QString resto = p > 0 ? vb::Mid(sqlSentencia, p) : QString();
    QStringList campos;
    for (const QString& elemento : lista.split(u',')) {
        QString campo = vb::Trim(elemento);
        const int a = vb::InStr(1, campo, QStringLiteral("AS"), true);
        if (a > 0) campo = vb::Left(campo, a - 1);
        campos << campo;
    }
    return campos.join(QStringLiteral(", ")) + QStringLiteral(" ") + resto;
}

QString FormReporte::ValorCriterio(const QString& texto, int Tipo) {
    switch (Tipo) {
    case 1: {
        bool verdadero = false;
        try {
            verdadero = vb::CBool(vb::Variant(texto));
        } catch (const vb::Error&) {
            verdadero = false;
        }
        return verdadero ? QStringLiteral("true") : QStringLiteral("false");
    }
    case 2: case 3: case 4: case 5: case 6: case 7: case 16: case 19: case 20: case 21: case 23: {
        QString numero = vb::Format(vb::Variant(vb::Val(texto)));
        return QStringLiteral(" = ") + numero;
    }
    case 8:
        if (vb::IsDate(vb::Variant(texto)))
            return QStringLiteral(" = #") + vb::Format(vb::Variant(vb::CDate(vb::Variant(texto))), QStringLiteral("dd/MMM/yyyy")) +
                   QStringLiteral("#");
        return QStringLiteral(" = #12/12/2012#");
    case 10: case 12: case 18: case 22:
        return QStringLiteral(" LIKE '*") + vb::Replace(texto, QStringLiteral("'"), QStringLiteral("''")) + QStringLiteral("*'");
    case 9: case 11: case 15: case 17:
        return QStringLiteral(" IS NOT NULL");
    default:
        return texto;
    }
}

void FormReporte::mBusyForm(QWidget* frmObj, bool freeEvents, bool Status) {
    if (!frmObj) return;
    if (Status)
        frmObj->setCursor(Qt::WaitCursor);
    else
        frmObj->unsetCursor();
    frmObj->setEnabled(!Status);
    if (freeEvents) QApplication::processEvents();
}

void FormReporte::Option1_Click(int Index) {
    const bool contengan = Index == 1;
    Text1->setEnabled(contengan);
    Combo1->setEnabled(contengan);
    for (QWidget* w : {static_cast<QWidget*>(Text1), static_cast<QWidget*>(Combo1)}) {
        QPalette p = w->palette();
        p.setColor(QPalette::Base, contengan ? QApplication::palette().color(QPalette::Base) : controles::ColorVB(0xF0F0F0));
        w->setPalette(p);
    }
    Text1_Change();
    if (contengan && !Text1->isHidden()) Text1->setFocus();
}

void FormReporte::Text1_Change() {
    Command1->setEnabled(!vb::Trim(Text1->text()).isEmpty() || Option1[0]->isChecked());
}

void FormReporte::Command1_Click() {
    try {
        mBusyForm(this, true, true);
        if (WebBrowser1) WebBrowser1->Navigate(QStringLiteral("about:blank"));
        const int orden = vb::InStr(1, SQLbase, QStringLiteral("ORDER BY"), true);
        if (orden > 0) SQLbase = vb::Left(SQLbase, orden - 1);
        QString sql = QStringLiteral("SELECT TOP 1000 ") + SQLbase + QStringLiteral("§ ORDER BY ") +
                      QString::number(Combo2->ListIndex() + 1);
        if (Option1[1]->isChecked()) {
            const int i = Combo1->ListIndex();
            sql.replace(QStringLiteral("§"), QStringLiteral(" WHERE ([") + Combo3->List(i) + QStringLiteral("]") +
                                                 ValorCriterio(Text1->text(), Combo1->ItemData(i)) + QStringLiteral(")"));
        } else {
            sql.replace(QStringLiteral("§"), QString());
        }
        UltimaSentencia = sql;
        auto rs = globales::Base().OpenRecordset(sql, dao::dbOpenDynaset);
        bool Vacio = false;
        mBuildFile(ContenidoHTML, *rs, FormatoHtml, Vacio);
        if (Vacio) {
            ui::Sistema().MsgBox(QStringLiteral("La búsqueda no arrojó resultados"), ui::vbInformation, windowTitle());
        } else {
            if (WebBrowser1 && ui::EsperaVista(*WebBrowser1, VueltasEspera)) {
                WebBrowser1->DocumentOpen();
                WebBrowser1->DocumentWrite(ContenidoHTML);
                WebBrowser1->DocumentClose();
                Command3->setEnabled(true);
                Command4->setEnabled(true);
                Command5->setEnabled(true);
                mBuildFile(ContenidoXML, *rs, FormatoXml, Vacio);
            } else {
                ui::Sistema().MsgBox(QStringLiteral("¡Imposible presentar visualización en pantalla!"), ui::vbExclamation,
                                     windowTitle());
            }
        }
        rs->Close();
        mBusyForm(this, false, false);
    } catch (const vb::Error& e) {
        mBusyForm(this, false, false);
        ui::Sistema().MsgBox(e.Description(), ui::vbExclamation, QStringLiteral("Error ") + QString::number(e.Number()));
    }
}

bool FormReporte::mBuildFile(QString& Buffer, dao::Recordset& Rs, int Formato, bool& Vacio) {
    try {
        CamposTotal = Rs.Fields().Count();
        Buffer = fValueOnTag(301, Formato);
        Buffer += fValueOnTag(302, Formato, QString(), QString(), 0);
        for (auto& campo : Rs.Fields()) Buffer += fValueOnTag(303, Formato, campo->Name());
        Buffer += fValueOnTag(305, Formato);
        // The recordset may stand at its end after an earlier document: only a recordset without rows is empty.
        if (Rs.Eof() && Rs.Bof()) {
            Vacio = true;
            return true;
        }
        Rs.MoveLast();
        Rs.MoveFirst();
        const long total = Rs.RecordCount();
        lblTotal->setText(QStringLiteral("Se encontraron ") + QString::number(total) +
                          QStringLiteral(" registro(s), por favor espere mientras se cargan los datos ..."));
        long numero = 1;
        while (!Rs.Eof()) {
            Buffer += fValueOnTag(302, Formato, QString(), QString(), numero);
            for (auto& campo : Rs.Fields()) Buffer += fValueOnTag(304, Formato, campo->Name(), campo->Value().text());
            Buffer += fValueOnTag(305, Formato);
            QApplication::processEvents();
            Rs.MoveNext();
            ++numero;
        }
        Buffer += fValueOnTag(306, Formato);
        lblTotal->setText(QStringLiteral("Se encontraron ") + QString::number(total) + QStringLiteral(" registro(s)"));
        return true;
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(QStringLiteral("Error ") + QString::number(e.Number()) + QStringLiteral(": ") + e.Description(),
                             ui::vbCritical, QStringLiteral("[Generación de reporte del catálogo]"));
        return false;
    }
}

QString FormReporte::fValueOnTag(int Seccion, int Formato, const QString& Nombre, const QString& Valor, long Numero) {
    QStringList l;
    try {
        if (Formato == FormatoHtml) {
            switch (Seccion) {
            case 301: {
                QString estilo;
                QFile hoja(rutas::Instalacion(QStringLiteral("xsls\\korvel8v324.css")));
                if (hoja.exists() && hoja.open(QIODevice::ReadOnly)) estilo = QString::fromUtf8(hoja.readAll());
                l << QStringLiteral("<html><head><style type=text/css>") << estilo << QStringLiteral("</style></head>")
                  << QStringLiteral("  <body style = \"margin: 4px;\">")
                  << QStringLiteral("    <table  width = '100%'  cellspacing = '0'  cellpadding = '2'  border = '1'>")
                  << QStringLiteral("      <tr>")
                  << QStringLiteral("        <th  colspan = '") + QString::number(CamposTotal) + QStringLiteral("'><b>") +
                         TituloReporte + QStringLiteral("</b></th>")
                  << QStringLiteral("      </tr>");
                break;
            }
            case 302: l << QStringLiteral("      <tr  id = '") + QString::number(Numero) + QStringLiteral("'>"); break;
            case 303: l << QStringLiteral("        <th class='tdHead'>") + Nombre + QStringLiteral("</th>"); break;
            case 304: l << QStringLiteral("        <td>") + Valor + QStringLiteral("</td>"); break;
            case 305: l << QStringLiteral("      </tr>"); break;
            case 306: l << QStringLiteral("    </table>") << QStringLiteral("  </body>") << QStringLiteral("</html>"); break;
            default: break;
            }
        } else if (Formato == FormatoXml) {
            switch (Seccion) {
            case 301:
                l << QStringLiteral("<?xml  version = '1.0'  encoding = \"iso-8859-1\" ?>") << QStringLiteral("<Reporte>");
                break;
            case 302: l << QStringLiteral("  <Registro  num = '") + QString::number(Numero) + QStringLiteral("'>"); break;
            case 303: l << QStringLiteral("    <Campo>") + Nombre + QStringLiteral("</Campo>"); break;
            case 304:
                l << QStringLiteral("    <") + Nombre + QStringLiteral(">") + Valor + QStringLiteral("</") + Nombre + QStringLiteral(">");
                break;
            case 305: l << QStringLiteral("  </Registro>"); break;
            case 306: l << QStringLiteral("</Reporte>"); break;
            default: break;
            }
        }
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(e.Description(), ui::vbCritical, QStringLiteral("Error ") + QString::number(e.Number()));
        return QString();
    }
    QString texto;
    for (const QString& linea : l) texto += linea + saltoLinea;
    return texto;
}

void FormReporte::Command2_Click() { close(); }

void FormReporte::Command3_Click() {
    if (WebBrowser1) WebBrowser1->Imprimir(true);
}

void FormReporte::Command5_Click() {
    if (WebBrowser1) WebBrowser1->ConfigurarPagina();
}

void FormReporte::Command4_Click() {
    try {
        dlgSaveAs.filtro = QStringLiteral("Archivo HTML (*.htm)|*.htm|Documento XML (*.xml)|*.xml");
        dlgSaveAs.flags = cdlOFNOverwritePrompt;
        dlgSaveAs.cancelado = false;
        if (!ui::Sistema().GuardaArchivo(dlgSaveAs)) throw vb::Error(32755, QStringLiteral("Se seleccionó Cancelar."));
        QFile archivo(dlgSaveAs.archivo);
        if (!archivo.open(QIODevice::WriteOnly | QIODevice::Truncate))
            throw vb::Error(75, QStringLiteral("Error de acceso a la ruta o el archivo"));
        if (vb::InStr(vb::UCase(dlgSaveAs.archivo), QStringLiteral(".HTM")) > 0)
            archivo.write(vb::Windows1252(ContenidoHTML + saltoLinea));
        else if (dlgSaveAs.indiceFiltro == 2)
            archivo.write((ContenidoXML + saltoLinea).toLatin1());
        archivo.close();
    } catch (const vb::Error& e) {
        ui::Sistema().MsgBox(e.Description(), ui::vbExclamation, QStringLiteral("Error ") + QString::number(e.Number()));
    }
}
