#include "catalog/CatalogoSimple.h"

#include "catalog/CatalogoClase.h"
#include "catalog/FormReporte.h"
#include "catalog/ModuloCatalogo.h"
#include "core/Datos.h"
#include "core/Globales.h"
#include "core/controles/CampoEnlazado.h"
#include "core/controles/Colores.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "core/controles/TimerReacomodo.h"
#include "core/dao/Dao.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Formato.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include <algorithm>

namespace {

constexpr int TwipsPorPixel = 15;
constexpr int Px(int twips) { return twips / TwipsPorPixel; }
const QString saltoLinea = QStringLiteral("\r\n");
constexpr int RenglonesVisibles = 6;

void Fondo(QWidget* w, const QColor& c, QPalette::ColorRole rol = QPalette::Base) {
    QPalette p = w->palette();
    p.setColor(rol, c);
    w->setPalette(p);
}

QString Comillas(const QString& texto) { return Datos::DuplicaComillas(texto); }

}  // namespace

CatalogoSimple::CatalogoSimple(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("CatalogoSimple"));
    setWindowTitle(QStringLiteral("Catálogo"));
    const QString origen = objectName();

    LstView = new controles::ListView(this);
    LstView->setObjectName(QStringLiteral("LstView"));

    PictBotones = new QFrame(this);
    PictBotones->setObjectName(QStringLiteral("PictBotones"));
    static const char* const leyendas[8] = {"Nuevo", "Modificar", "Borrar", "Grabar", "Cancelar", "Reporte", "&Regresar", "&Buscar"};
    for (int i = 0; i < 8; ++i) {
        auto* b = new QPushButton(QString::fromUtf8(leyendas[i]), PictBotones);
        b->setObjectName(QStringLiteral("Cmd_%1").arg(i));
        b->setAutoDefault(false);
        b->resize(Px(1080), Px(360));
        Cmd[static_cast<size_t>(i)] = b;
        ui::Conecta(b, &QPushButton::clicked, this, origen, &CatalogoSimple::Cmd_Click, i);
    }

    PctCaptura = new QFrame(this);
    PctCaptura->setObjectName(QStringLiteral("PctCaptura"));
    PctCaptura->setFrameShape(QFrame::StyledPanel);
    PctCaptura->setAutoFillBackground(true);
    VScroll1 = new QScrollBar(Qt::Vertical, PctCaptura);
    VScroll1->setObjectName(QStringLiteral("VScroll1"));
    VScroll1->installEventFilter(this);
    ui::Conecta(VScroll1, &QScrollBar::valueChanged, this, origen, &CatalogoSimple::VScroll1_Change);
    ui::Conecta(VScroll1, &QScrollBar::sliderMoved, this, origen, &CatalogoSimple::VScroll1_Scroll);
    CreaRenglon(0);

    picBusqueda = new QFrame(this);
    picBusqueda->setObjectName(QStringLiteral("picBusqueda"));
    picBusqueda->setFrameShape(QFrame::Box);
    picBusqueda->setAutoFillBackground(true);
    lblExpresion = new QLabel(QStringLiteral("Expresión"), picBusqueda);
    txtBuscar = new QLineEdit(picBusqueda);
    txtBuscar->setObjectName(QStringLiteral("txtBuscar"));
    txtBuscar->installEventFilter(this);
    lblEnCampo = new QLabel(QStringLiteral("en campo"), picBusqueda);
    cboCriteriosBusqueda = new controles::ComboBox(picBusqueda);
    cboCriteriosBusqueda->setObjectName(QStringLiteral("cboCriteriosBusqueda"));
    chkParcial = new QCheckBox(QStringLiteral("No requerir palabras completas"), picBusqueda);
    cmdBuscar = new QPushButton(QStringLiteral("Buscar"), picBusqueda);
    cmdBuscarSiguiente = new QPushButton(QStringLiteral("&Siguiente"), picBusqueda);
    cmdBCancelar = new QPushButton(QStringLiteral("Cancelar"), picBusqueda);
    lblXsalir = new QLabel(QStringLiteral("X"), picBusqueda);
    lblXsalir->setObjectName(QStringLiteral("lblXsalir"));
    lblXsalir->setCursor(Qt::PointingHandCursor);
    lblXsalir->installEventFilter(this);
    for (QPushButton* b : {cmdBuscar, cmdBuscarSiguiente, cmdBCancelar}) b->setAutoDefault(false);
    cmdBuscar->setEnabled(false);
    cmdBuscarSiguiente->setEnabled(false);
    lblExpresion->setGeometry(Px(120), Px(120), Px(900), Px(285));
    txtBuscar->setGeometry(Px(1020), Px(90), Px(2760), Px(315));
    lblEnCampo->setGeometry(Px(3900), Px(120), Px(1000), Px(285));
    cboCriteriosBusqueda->setGeometry(Px(4940), Px(90), Px(2200), Px(315));
    chkParcial->setGeometry(Px(1020), Px(480), Px(3400), Px(285));
    cmdBuscar->setGeometry(Px(4500), Px(450), Px(1000), Px(345));
    cmdBuscarSiguiente->setGeometry(Px(5580), Px(450), Px(1000), Px(345));
    cmdBCancelar->setGeometry(Px(6660), Px(450), Px(1000), Px(345));
    lblXsalir->setGeometry(Px(7500), Px(30), Px(240), Px(285));
    picBusqueda->resize(Px(7800), Px(900));
    picBusqueda->setVisible(false);
    ui::Conecta(txtBuscar, &QLineEdit::textChanged, this, origen, &CatalogoSimple::txtBuscar_Change);
    ui::Conecta(cboCriteriosBusqueda, &controles::ComboBox::Click, this, origen, &CatalogoSimple::cboCriteriosBusqueda_Click);
    ui::Conecta(cmdBuscar, &QPushButton::clicked, this, origen, &CatalogoSimple::cmdBuscar_Click);
    ui::Conecta(cmdBuscarSiguiente, &QPushButton::clicked, this, origen, &CatalogoSimple::cmdBuscarSiguiente_Click);
    ui::Conecta(cmdBCancelar, &QPushButton::clicked, this, origen, &CatalogoSimple::cmdBCancelar_Click);

    StatusBar1 = new QStatusBar(this);
    StatusBar1->setSizeGripEnabled(false);
    lblNumRegs = new QLabel(StatusBar1);
    lblNumRegs->setObjectName(QStringLiteral("lblNumRegs"));
    StatusBar1->addWidget(lblNumRegs, 1);

    Timer1 = new controles::TimerReacomodo(this, [this] { ReacomodaTodo(); });

    ui::Conecta(LstView, &controles::ListView::Click, this, origen, &CatalogoSimple::LstView_Click);
    ui::Conecta(LstView, &controles::ListView::DblClick, this, origen, &CatalogoSimple::LstView_DblClick);
    ui::Conecta(LstView, &controles::ListView::ColumnClick, this, origen, &CatalogoSimple::LstView_ColumnClick);

    resize(Px(10000), Px(7000));
    ui::Protegido(origen, [this] { Form_Load(); });
}

CatalogoSimple::~CatalogoSimple() = default;

QString CatalogoSimple::UltimaSentencia() const { return ModuloCatalogo::UltimaSentencia(); }

// ---------------------------------------------------------------------------------------------------------
// Set-up

void CatalogoSimple::Form_Load() {
    LstView->View(controles::ListView::lvwReport);
    LstView->LabelEdit(controles::ListView::lvwManual);
    LstView->EstiloExtendido(controles::ListView::LVS_EX_FULLROWSELECT, -1);
}

void CatalogoSimple::AplicaEstilo(int Estilo) {
    if (Estilo == 1) {
        resize(Px(10000), Px(7000));
        Fondo(PctCaptura, Command1[0]->palette().color(QPalette::Button), QPalette::Window);
        Fondo(LstView, QColor(255, 255, 200));
    } else if (Estilo == 2) {
        resize(Px(8000), Px(6000));
        Fondo(PctCaptura, Qt::white, QPalette::Window);
        Fondo(LstView, Qt::white);
    }
}

int CatalogoSimple::AltoRenglon() const { return Text1[0]->sizeHint().height() + Px(30); }

void CatalogoSimple::CreaRenglon(int i) {
    auto* etiqueta = new QLabel(PctCaptura);
    auto* etiqueta2 = new QLabel(PctCaptura);
    auto* texto = new QLineEdit(PctCaptura);
    auto* combo = new controles::ComboBox(PctCaptura);
    auto* boton = new QPushButton(PctCaptura);
    etiqueta->setObjectName(QStringLiteral("Label1_%1").arg(i));
    etiqueta2->setObjectName(QStringLiteral("Label2_%1").arg(i));
    texto->setObjectName(QStringLiteral("Text1_%1").arg(i));
    combo->setObjectName(QStringLiteral("Combo1_%1").arg(i));
    boton->setObjectName(QStringLiteral("Command1_%1").arg(i));
    boton->setAutoDefault(false);
    etiqueta2->setVisible(false);
    combo->setVisible(false);
    boton->setVisible(false);
    for (QWidget* w : {static_cast<QWidget*>(texto), static_cast<QWidget*>(combo), static_cast<QWidget*>(boton)}) {
        w->setProperty("renglon", i);
        w->installEventFilter(this);
    }
    const QString origen = objectName();
    ui::Conecta(boton, &QPushButton::clicked, this, origen, &CatalogoSimple::Command1_Click, i);
    Label1.push_back(etiqueta);
    Label2.push_back(etiqueta2);
    Text1.push_back(texto);
    Combo1.push_back(combo);
    Command1.push_back(boton);
}

void CatalogoSimple::QuitaRenglon(int i) {
    const auto k = static_cast<size_t>(i);
    for (QWidget* w : {static_cast<QWidget*>(Text1[k]), static_cast<QWidget*>(Label1[k]), static_cast<QWidget*>(Label2[k]),
                       static_cast<QWidget*>(Combo1[k]), static_cast<QWidget*>(Command1[k])}) {
        w->removeEventFilter(this);
        w->hide();
        w->deleteLater();
    }
    Text1.erase(Text1.begin() + i);
    Label1.erase(Label1.begin() + i);
    Label2.erase(Label2.begin() + i);
    Combo1.erase(Combo1.begin() + i);
    Command1.erase(Command1.begin() + i);
}

bool CatalogoSimple::InicializaBase(const QString& SQLcaptura, const QString& SQLdatos_, const QString& SQLtabla,
                                    const QString& CampoClave_, const QString& CampoClave2_, CatalogoClase& Padre_) {
    try {
        SQLdatos = SQLdatos_;
        if (vb::InStr(vb::UCase(SQLdatos), QStringLiteral("ORDER BY")) == 0) SQLdatos += QStringLiteral(" ORDER BY 1 ASC");
        setCursor(Qt::WaitCursor);
        auto& base = globales::Base();
        RsCaptura = base.OpenRecordset(SQLcaptura);
        RsVista = base.OpenRecordset(SQLdatos);
        Padre = &Padre_;
        CampoClave = CampoClave_;
        CampoClave2 = CampoClave2_;

        NumCampos = RsCaptura->Fields().Count();
        InfoCampos.resize(static_cast<size_t>(NumCampos) + 1);

        // Rows of an earlier use go; rows 1 to NumCampos-1 are made anew.
        while (Text1.size() > 1) QuitaRenglon(static_cast<int>(Text1.size()) - 1);
        for (int i = 1; i < NumCampos; ++i) CreaRenglon(i);

        for (int i = 0; i < NumCampos; ++i) {
            dao::Field& campo = RsCaptura->Fields(i);
            InfoCampo& info = InfoCampos[static_cast<size_t>(i)];
            switch (campo.Type()) {
            case dao::dbText: info = {1, campo.Size()}; break;
            case dao::dbInteger: info = {2, 4}; break;
            case dao::dbLong: info = {2, 9}; break;
            case dao::dbCurrency: info = {3, 15}; break;
            case dao::dbDate: info = {4, 12}; break;
            default:
                ui::Sistema().MsgBox(QStringLiteral("Campo Desconocido (") + campo.Name() + QStringLiteral(") Tipo ") +
                                         QString::number(campo.Type()),
                                     ui::vbCritical, QStringLiteral("Advertencia"));
                info = {1, 255};
                break;
            }
        }

        for (int i = 0; i < NumCampos; ++i) {
            const auto k = static_cast<size_t>(i);
            dao::Field& campo = RsCaptura->Fields(i);
            Text1[k]->clear();
            Text1[k]->setEnabled(false);
            Combo1[k]->setEnabled(false);
            Label1[k]->setEnabled(false);
            Command1[k]->setEnabled(true);
            Label1[k]->setText(campo.Name());
            QFont f = Label1[k]->font();
            f.setBold(campo.Required());
            Label1[k]->setFont(f);
            QPalette p = Label1[k]->palette();
            p.setColor(QPalette::WindowText, campo.Required() ? controles::ColorVB(0x800000) : palette().color(QPalette::WindowText));
            Label1[k]->setPalette(p);
            const int largo = InfoCampos[k].Largo;
            Text1[k]->resize(largo >= 35 ? Px(5260) : Px(largo * 150), Text1[k]->sizeHint().height());
            controles::LimitaAlCampo(*Text1[k], campo);
            Label1[k]->adjustSize();
            Label1[k]->setVisible(true);
            Text1[k]->setVisible(true);
            Combo1[k]->setVisible(false);
            Command1[k]->setVisible(false);
            Command1[k]->setText(Padre->Botones_Leyenda(i));
        }
        for (int i = 0; i < NumCampos; ++i) {
            const auto k = static_cast<size_t>(i);
            if (!Padre->Combo_CampoValor(i).isEmpty()) {
                Text1[k]->setVisible(false);
                // A list of names needs room even when the field is a short number.
                Combo1[k]->resize(std::max(Text1[k]->width(), Px(3000)), Combo1[k]->sizeHint().height());
                Combo1[k]->setVisible(true);
                Cargar_Valores_Combo(i);
            }
        }
        ColocaRenglones();
        QWidget* anterior = nullptr;
        for (int i = 0; i < NumCampos; ++i) {
            const auto k = static_cast<size_t>(i);
            for (QWidget* w : {static_cast<QWidget*>(Text1[k]), static_cast<QWidget*>(Combo1[k]),
                               static_cast<QWidget*>(Command1[k])}) {
                if (anterior) setTabOrder(anterior, w);
                anterior = w;
            }
        }

        VScroll1->setPageStep(RenglonesVisibles);
        VScroll1->setSingleStep(1);
        if (NumCampos < RenglonesVisibles + 1) {
            VScroll1->setVisible(false);
        } else {
            VScroll1->blockSignals(true);
            VScroll1->setRange(RenglonesVisibles, NumCampos);
            VScroll1->setValue(RenglonesVisibles);
            VScroll1->blockSignals(false);
            VScroll1->setVisible(true);
        }

        Botones(RsCaptura->Eof() ? Botonera::SinRegistros : Botonera::ConRegistros);

        RsCaptura->Close();
        RsCaptura = base.OpenRecordset(SQLtabla);

        strCamposObligatorios.clear();
        bool status = false;
        ObtenerCamposObligatoriosPorCatalogo(RsCaptura.get(), strCamposObligatorios, status);

        ActualizarVista();
        EstadoEdicion = 0;
        unsetCursor();
        ReacomodaTodo();
        return true;
    } catch (const vb::Error& e) {
        QString texto = QStringLiteral("Ocurrió el error ") + QString::number(e.Number()) + QStringLiteral(" ") + e.Description();
        if (e.Number() == 3061)
            texto += saltoLinea + QStringLiteral(" Asegúrese de que no se haya modificado la estructura interna de ninguna de "
                                                 "las tablas de los catálogos");
        ui::Sistema().MsgBox(texto, ui::vbCritical, QStringLiteral("Inicializa Base [Catalogos]"));
        unsetCursor();
        Form_Unload();
        QDialog::done(QDialog::Rejected);
        return false;
    }
}

void CatalogoSimple::ColocaRenglones() {
    const int primero = VScroll1->isHidden() ? 0 : VScroll1->value() - VScroll1->minimum();
    const int paso = AltoRenglon();
    int columna = Px(1500);
    for (int i = 0; i < NumCampos && i < static_cast<int>(Label1.size()); ++i) {
        const int derecha = Px(120) + Label1[static_cast<size_t>(i)]->width() + Px(60);
        if (derecha > columna) columna = derecha;
    }
    for (int i = 0; i < static_cast<int>(Text1.size()); ++i) {
        const auto k = static_cast<size_t>(i);
        const int arriba = paso * (i - primero) + Px(120);
        Label1[k]->move(Px(120), arriba + 3);
        Text1[k]->move(columna, arriba);
        Combo1[k]->move(columna, arriba);
        Command1[k]->resize(Command1[k]->sizeHint().width(), Text1[k]->height());
        Command1[k]->move(columna + Combo1[k]->width() + Px(120), arriba);
    }
}

void CatalogoSimple::Botones(Botonera estado) {
    static const std::array<int, 7> indices = {0, 1, 2, 3, 4, 5, 7};
    for (int i : indices) {
        bool activo = false;
        switch (estado) {
        case Botonera::ConRegistros: activo = i != 3 && i != 4; break;
        case Botonera::Edicion: activo = i == 3 || i == 4; break;
        case Botonera::SinRegistros: activo = i == 0; break;
        }
        Cmd[static_cast<size_t>(i)]->setEnabled(activo);
    }
}

void CatalogoSimple::Cargar_Valores_Combo(int Index) {
    controles::ComboBox* combo = Combo1[static_cast<size_t>(Index)];
    combo->Clear();
    auto rs = globales::Base().OpenRecordset(Padre->Combo_SQLdatos(Index));
    while (!rs->Eof()) {
        combo->AddItem(rs->Fields(QStringLiteral("Mensaje")).Value().text());
        rs->MoveNext();
    }
    rs->Close();
    combo->setCurrentIndex(-1);
}

vb::Variant CatalogoSimple::Obtener_Valor_desde_Mensaje(int Index, const QString& mensaje) {
    auto rs = globales::Base().OpenRecordset(Padre->Combo_SQLdatos(Index));
    vb::Variant valor;
    while (!rs->Eof()) {
        if (rs->Fields(QStringLiteral("Mensaje")).Value().text() == mensaje) {
            valor = rs->Fields(QStringLiteral("valor")).Value();
            break;
        }
        rs->MoveNext();
    }
    rs->Close();
    return valor;
}

QString CatalogoSimple::Obtener_Mensaje_desde_Valor(int Index, const vb::Variant& Valor) {
    auto rs = globales::Base().OpenRecordset(Padre->Combo_SQLdatos(Index));
    QString mensaje;
    const QString buscado = Valor.text();
    while (!rs->Eof()) {
        if (rs->Fields(QStringLiteral("Valor")).Value().text() == buscado) {
            mensaje = rs->Fields(QStringLiteral("Mensaje")).Value().text();
            break;
        }
        rs->MoveNext();
    }
    rs->Close();
    return mensaje;
}

void CatalogoSimple::ObtenerCamposObligatoriosPorCatalogo(dao::Recordset* queRS, QString& obligatorios, bool& Status) {
    if (queRS && !queRS->Name().isEmpty()) {
        const QString nombre = queRS->Name();
        const int p = vb::InStr(1, nombre, QStringLiteral("FROM "), true);
        QString tabla = vb::Mid(nombre, p + 5 + 1);
        const int cierre = vb::InStr(tabla, QStringLiteral("]"));
        if (cierre > 0) tabla = vb::Left(tabla, cierre - 1);
        if (vb::UCase(vb::Trim(tabla)) == QStringLiteral("USUARIOS")) obligatorios = QStringLiteral("1,2,3,4");
    }
    Status = true;
}

// ---------------------------------------------------------------------------------------------------------
// Editing

void CatalogoSimple::Cmd_Click(int Index) {
    switch (Index) {
    case 0: IniciaNuevo(); break;
    case 1: ModificarRegistro(); break;
    case 2: EliminarRegistro(); break;
    case 3: GrabarRegistro(); break;
    case 4: CancelarRegistro(); break;
    case 5: Reporte(); break;
    case 6:
        globales::CatRegistroAgregado = RegistroAgregado;
        globales::CatRegistroModificado = RegistroModificado;
        close();
        break;
    case 7:
        picBusqueda->setVisible(true);
        picBusqueda->raise();
        txtBuscar->setFocus();
        break;
    default: break;
    }
}

void CatalogoSimple::IniciaNuevo() {
    Botones(Botonera::Edicion);
    for (int i = 0; i < NumCampos; ++i) {
        const auto k = static_cast<size_t>(i);
        Label1[k]->setEnabled(true);
        Combo1[k]->setEnabled(true);
        Combo1[k]->setCurrentIndex(-1);
        Text1[k]->setEnabled(true);
        Text1[k]->clear();
        Command1[k]->setVisible(!Padre->Botones_Leyenda(i).isEmpty());
    }
    EstadoEdicion = 1;
    LstView->setEnabled(false);
    Text1[0]->setFocus();
}

void CatalogoSimple::ModificarRegistro() {
    Botones(Botonera::Edicion);
    for (int i = 0; i < NumCampos; ++i) {
        const auto k = static_cast<size_t>(i);
        Label1[k]->setEnabled(true);
        Combo1[k]->setEnabled(true);
        Text1[k]->setEnabled(true);
        Command1[k]->setVisible(!Padre->Botones_Leyenda(i).isEmpty());
    }
    EstadoEdicion = 2;
    LstView->setEnabled(false);
    Text1[0]->setFocus();
}

void CatalogoSimple::DeshabilitaRenglones() {
    for (int i = 0; i < NumCampos; ++i) {
        const auto k = static_cast<size_t>(i);
        Label1[k]->setEnabled(false);
        Combo1[k]->setEnabled(false);
        Text1[k]->setEnabled(false);
        Command1[k]->setVisible(false);
    }
}

QString CatalogoSimple::NombreTabla() const {
    const QString sql = RsCaptura->Name();
    const int p = vb::InStr(vb::UCase(sql), QStringLiteral("FROM"));
    if (p == 0) return vb::Trim(sql);
    const QString resto = vb::Trim(vb::Mid(sql, p + 4));
    if (resto.startsWith(u'[')) {
        const int cierre = vb::InStr(resto, QStringLiteral("]"));
        return cierre > 0 ? vb::Mid(resto, 2, cierre - 2) : vb::Mid(resto, 2);
    }
    const int blanco = vb::InStr(resto, QStringLiteral(" "));
    return blanco > 0 ? vb::Left(resto, blanco - 1) : resto;
}

void CatalogoSimple::GrabarRegistro() {
    auto& s = ui::Sistema();
    try {
        const QString textoClave = Text1[0]->text();
        if (EstadoEdicion == 0) return;
        const QString tabla = NombreTabla();

        auto faltaValor = [&](int i, QWidget* foco) {
            s.MsgBox(QStringLiteral("el campo '") + RsCaptura->Fields(i).Name() +
                         QStringLiteral("' es obligatorio, agregue un valor apropiado por favor..."),
                     ui::vbExclamation, QStringLiteral("Campo obligatorio"));
            foco->setFocus();
        };
        auto valorNoNumerico = [&](int i) {
            s.MsgBox(QStringLiteral("el campo '") + RsCaptura->Fields(i).Name() +
                         QStringLiteral("' es obligatorio y no contiene un valor apropiado,") + saltoLinea +
                         QStringLiteral("por favor corrija este dato e intente de nuevo"),
                     ui::vbExclamation, QStringLiteral("Error en valor de campo obligatorio"));
            Text1[static_cast<size_t>(i)]->setFocus();
        };

        // A field shown as a combo takes the value behind the chosen item; a required one left empty is reported.
        enum class DeCombo { NoEsCombo, Elegido, Vacio, Falta };
        auto leeCombo = [&](int i, QString& valor) {
            if (Padre->Combo_CampoValor(i).isEmpty()) return DeCombo::NoEsCombo;
            const auto k = static_cast<size_t>(i);
            const vb::Variant v = Obtener_Valor_desde_Mensaje(i, Combo1[k]->currentText());
            if (!v.isEmpty()) {
                valor = v.text();
                return DeCombo::Elegido;
            }
            if (!RsCaptura->Fields(i).Required()) return DeCombo::Vacio;
            faltaValor(i, Combo1[k]);
            return DeCombo::Falta;
        };

        if (EstadoEdicion == 1) {
            QString campos, valores;
            for (int i = 0; i < NumCampos; ++i) {
                const auto k = static_cast<size_t>(i);
                dao::Field& campo = RsCaptura->Fields(i);
                const QString texto = Text1[k]->text();
                QString valor;
                const DeCombo combo = leeCombo(i, valor);
                if (combo == DeCombo::Falta) return;
                if (combo == DeCombo::Vacio) {
                    valor = QStringLiteral("NULL");
                } else if (combo == DeCombo::Elegido) {
                    // the item's value, as read
                } else if (campo.Required() && vb::Trim(texto).isEmpty()) {
                    faltaValor(i, Text1[k]);
                    return;
                } else {
                    switch (campo.Type()) {
                    case dao::dbText:
                    case dao::dbMemo:
                        valor = vb::Trim(texto).isEmpty() ? QStringLiteral("NULL")
                                                          : QStringLiteral("'") + Comillas(texto) + QStringLiteral("'");
                        break;
                    case dao::dbDate:
                        valor = vb::Trim(texto).isEmpty()
                                    ? QStringLiteral("NULL")
                                    : QStringLiteral("#") + vb::Format(vb::Variant(texto), QStringLiteral("yyyy/mm/dd hh:mm:ss")) +
                                          QStringLiteral("#");
                        break;
                    case dao::dbLong:
                    case dao::dbInteger:
                        if (!vb::IsNumeric(vb::Variant(texto))) {
                            if (campo.Required()) {
                                valorNoNumerico(i);
                                return;
                            }
                            valor = QStringLiteral("0");
                        } else {
                            valor = texto;
                        }
                        break;
                    default:
                        valor = vb::Trim(texto).isEmpty() ? QStringLiteral("0") : texto;
                        break;
                    }
                }
                if (i > 0) {
                    campos += QStringLiteral(",");
                    valores += QStringLiteral(",");
                }
                campos += QStringLiteral("[") + campo.Name() + QStringLiteral("]");
                valores += valor;
            }
            if (ModuloCatalogo::AgregarRegistroTabla(campos, valores, tabla) != 0) {
                Text1[0]->setFocus();
                return;
            }
            DeshabilitaRenglones();
            Botones(Botonera::ConRegistros);
            EstadoEdicion = 0;
            RegistroAgregado = true;
            LstView->setEnabled(true);
            ActualizarVista();
        } else if (EstadoEdicion == 2) {
            QString asignaciones;
            for (int i = 0; i < NumCampos; ++i) {
                const auto k = static_cast<size_t>(i);
                dao::Field& campo = RsCaptura->Fields(i);
                const QString texto = Text1[k]->text();
                const QString nombre = QStringLiteral("[") + campo.Name() + QStringLiteral("] = ");
                QString valor;
                const DeCombo combo = leeCombo(i, valor);
                if (combo == DeCombo::Falta) return;
                if (combo == DeCombo::Vacio) continue;   // left out of the statement
                if (combo == DeCombo::Elegido) {
                    // the item's value, as read
                } else if (campo.Required() && vb::Trim(texto).isEmpty()) {
                    faltaValor(i, Text1[k]);
                    return;
                } else {
                    switch (campo.Type()) {
                    case dao::dbText:
                    case dao::dbMemo:
                        valor = QStringLiteral("'") + Comillas(texto) + QStringLiteral("'");
                        break;
                    case dao::dbDate:
                        if (vb::Trim(texto).isEmpty()) {
                            valor = QStringLiteral("NULL");
                        } else if (vb::IsDate(vb::Variant(texto))) {
                            valor = QStringLiteral("#") + vb::Format(vb::Variant(vb::CDate(vb::Variant(texto))), QStringLiteral("mm/dd/yyyy")) +
                                    QStringLiteral("#");
                        } else {
                            // The comma before the field stays and nothing follows it: the statement fails.
                            s.MsgBox(QStringLiteral("Error en la fecha"), ui::vbCritical, QString());
                            asignaciones += QStringLiteral(",");
                            continue;
                        }
                        break;
                    case dao::dbLong:
                    case dao::dbInteger:
                        if (campo.Required() && !vb::IsNumeric(vb::Variant(texto))) {
                            valorNoNumerico(i);
                            return;
                        }
                        valor = vb::Trim(texto).isEmpty() ? QStringLiteral("NULL") : vb::Trim(texto);
                        break;
                    default:
                        valor = vb::Trim(texto).isEmpty() ? QStringLiteral("NULL") : vb::Trim(texto);
                        break;
                    }
                }
                if (!asignaciones.isEmpty()) asignaciones += QStringLiteral(",");
                asignaciones += nombre + valor;
            }

            controles::ListItem* seleccionado = LstView->SelectedItem();
            const QString valorClave = seleccionado ? seleccionado->Text() : QString();
            QString criterio;
            switch (RsCaptura->Fields(CampoClave).Type()) {
            case dao::dbText:
            case dao::dbMemo: criterio = QStringLiteral("'") + Comillas(valorClave) + QStringLiteral("'"); break;
            case dao::dbDate:
                criterio = QStringLiteral("#") + vb::Format(vb::Variant(valorClave), QStringLiteral("yyyy/mm/dd hh:mm:ss")) +
                           QStringLiteral("#");
                break;
            default: criterio = valorClave; break;
            }
            if (ModuloCatalogo::ActualizarRegistroTabla(asignaciones, QStringLiteral("[") + CampoClave + QStringLiteral("]=") + criterio,
                                                        tabla) != 0) {
                Text1[0]->setFocus();
                return;
            }
            DeshabilitaRenglones();
            Botones(Botonera::ConRegistros);
            EstadoEdicion = 0;
            RegistroModificado = true;
            LstView->setEnabled(true);
            ActualizarVista();
        }

        if (controles::ListItem* encontrado = LstView->FindItem(textoClave, controles::ListView::lvwSubItem, 1,
                                                                controles::ListView::lvwWholeWord)) {
            SeleccionaEncontrado(encontrado->Index());
            LstView_Click();
            LstView->setFocus();
        }
    } catch (const vb::Error& e) {
        if (e.Number() == 13)
            s.MsgBox(QStringLiteral("Los tipos de datos no coinciden") + saltoLinea + saltoLinea +
                         QStringLiteral("Verifique que no introdujo letras en los campos numéricos y que las fechas estén correctas"),
                     ui::vbExclamation, QStringLiteral("Advertencia"));
        else
            s.MsgBox(QStringLiteral("Ocurrió el error: ") + QString::number(e.Number()) + saltoLinea + e.Description() +
                         QStringLiteral(" Error No. "),
                     ui::vbCritical, QStringLiteral("[Catálogo] Grabar registro"));
    }
}

void CatalogoSimple::CancelarRegistro() {
    if (ui::Sistema().MsgBox(QStringLiteral("¿Desea cancelar la edición del registro?"), 52, QStringLiteral("Cancelar")) != ui::vbYes)
        return;
    DeshabilitaRenglones();
    Botones(Botonera::ConRegistros);
    EstadoEdicion = 0;
    LstView->setEnabled(true);
    if (LstView->ListItems().Count() > 0) {
        const int indice = LstView->SelectedItem() ? LstView->SelectedItem()->Index() : 1;
        ActualizarVista();
        if (indice >= 1 && indice <= LstView->ListItems().Count()) {
            SeleccionaEncontrado(indice);
            LstView_Click();
        }
    }
    LstView->setFocus();
}

void CatalogoSimple::PonTextoCombo(int i, const QString& texto) { Combo1[static_cast<size_t>(i)]->setText(texto); }

void CatalogoSimple::CargarRegistroEnTEXTBOXES(const QString& valor) {
    RsCaptura->Requery();
    QString criterio;
    switch (RsCaptura->Fields(CampoClave).Type()) {
    case dao::dbText:
    case dao::dbMemo:
        criterio = QStringLiteral("\"") + vb::Replace(valor, QStringLiteral("\""), QStringLiteral("\"\"")) + QStringLiteral("\"");
        break;
    case dao::dbDate:
        criterio = QStringLiteral("#") + vb::Format(vb::Variant(valor), QStringLiteral("mm/dd/yyyy")) + QStringLiteral("#");
        break;
    default: criterio = valor; break;
    }
    RsCaptura->FindFirst(QStringLiteral("[") + CampoClave + QStringLiteral("]=") + criterio);
    if (RsCaptura->NoMatch()) {
        ui::Sistema().MsgBox(valor + QStringLiteral("=") + CampoClave + QStringLiteral(" no encontrado "), ui::vbCritical,
                             QStringLiteral("ERROR"));
        return;
    }
    for (int i = 0; i < NumCampos; ++i) {
        const auto k = static_cast<size_t>(i);
        Text1[k]->setText(RsCaptura->Fields(i).Value().text());
        if (!Padre->Combo_CampoValor(i).isEmpty()) {
            const QString mensaje = Obtener_Mensaje_desde_Valor(i, vb::Variant(Text1[k]->text()));
            if (!mensaje.isEmpty())
                PonTextoCombo(i, mensaje);
            else
                Combo1[k]->setCurrentIndex(-1);
        }
    }
}

void CatalogoSimple::EliminarRegistro() {
    auto& s = ui::Sistema();
    if (s.MsgBox(QStringLiteral("¿Desea eliminar definitivamente este registro?"), ui::vbOKCancel + ui::vbQuestion,
                 QStringLiteral("Borrar registro")) == ui::vbCancel)
        return;
    controles::ListItem* seleccionado = LstView->SelectedItem();
    if (!seleccionado) throw vb::Error(91, QStringLiteral("Variable de objeto o bloque With no establecido"));
    const QString valor = seleccionado->Text();
    QString criterio;
    if (RsCaptura->Fields(CampoClave).Type() == dao::dbText)
        criterio = QStringLiteral("[") + CampoClave + QStringLiteral("]='") + Comillas(valor) + QStringLiteral("'");
    else
        criterio = QStringLiteral("[") + CampoClave + QStringLiteral("]=") + valor;
    const QString tabla = NombreTabla();

    if (globales::EsCatalogoUsuarios) {
        const QString cuenta = Text1[0]->text();
        auto cuentaPrestamos = [&](const QString& desde) {
            auto rs = globales::Base().OpenRecordset(QStringLiteral("SELECT COUNT(*) AS Prestamos FROM ") + desde +
                                                     QStringLiteral(" WHERE NoCuenta = '") + cuenta + QStringLiteral("'"));
            const vb::Variant n = rs->Fields(QStringLiteral("Prestamos")).Value();
            rs->Close();
            return n;
        };
        vb::Variant n = cuentaPrestamos(QStringLiteral("Prestamos"));
        if (n.toDouble() > 0) {
            s.MsgBox(QStringLiteral("Este usuario tiene ") + n.text() +
                         QStringLiteral(" libro(s) pendientes por entregar en Prestamo Externo.") + saltoLinea +
                         QStringLiteral(" Debe regesar los libros que tiene prestados para eliminar éste usuario"),
                     ui::vbCritical);
            return;
        }
        n = cuentaPrestamos(QStringLiteral("[Prestamos Internos]"));
        if (n.toDouble() > 0) {
            s.MsgBox(QStringLiteral("Este usuario tiene ") + n.text() +
                         QStringLiteral(" libros(s) pendientes por entregar en Prestamo Interno.") + saltoLinea +
                         QStringLiteral("  Debe regesar los libros que tiene prestados para eliminar éste usuario"),
                     ui::vbCritical);
            return;
        }
    }

    const long borrados = ModuloCatalogo::EliminarRegistroTabla(criterio, tabla);
    if (borrados > 1)
        s.MsgBox(QString::number(borrados) + QStringLiteral(" registros eliminados"), ui::vbCritical, QStringLiteral("Advertencia"));
    ActualizarVista();
}

bool CatalogoSimple::ValidaCamposRequeridos(const QString& lista, bool& Status) {
    Status = true;
    if (lista.isEmpty()) return true;
    for (const QString& item : lista.split(u',')) {
        const int fila = static_cast<int>(vb::Val(item)) - 1;
        if (fila < 0 || fila >= static_cast<int>(Text1.size())) continue;
        const auto k = static_cast<size_t>(fila);
        if (Text1[k]->text().isEmpty() && Combo1[k]->currentText().isEmpty()) return false;
    }
    return true;
}

void CatalogoSimple::RecalculaGrabar() {
    if (EstadoEdicion == 0) return;
    bool status = false;
    Cmd[3]->setEnabled(ValidaCamposRequeridos(strCamposObligatorios, status));
}

void CatalogoSimple::Text1_GotFocus(int Index) {
    QLineEdit* t = Text1[static_cast<size_t>(Index)];
    controles::PonColorFondo(t, 0xC0FFFF);
    QFont f = t->font();
    f.setBold(true);
    t->setFont(f);
    t->setSelection(0, t->text().size());
    MantenVisible(Index);
    RecalculaGrabar();
}

void CatalogoSimple::Text1_LostFocus(int Index) {
    QLineEdit* t = Text1[static_cast<size_t>(Index)];
    controles::PonColorFondo(t, controles::ColorBlanco);
    QFont f = t->font();
    f.setBold(false);
    t->setFont(f);
    RecalculaGrabar();
}

void CatalogoSimple::Combo1_GotFocus(int Index) {
    MantenVisible(Index);
    RecalculaGrabar();
}

void CatalogoSimple::Combo1_LostFocus(int Index) { RecalculaGrabar(); }

void CatalogoSimple::Command1_GotFocus(int Index) { MantenVisible(Index); }

void CatalogoSimple::Command1_Click(int Index) {
    controles::ComboBox* combo = Combo1[static_cast<size_t>(Index)];
    vb::Variant valor;
    if (!combo->isHidden()) valor = Obtener_Valor_desde_Mensaje(Index, combo->currentText());
    Padre->EventoClick(Index);
    if (!combo->isHidden()) {
        Cargar_Valores_Combo(Index);
        const QString mensaje = Obtener_Mensaje_desde_Valor(Index, valor);
        if (!mensaje.isEmpty()) PonTextoCombo(Index, mensaje);
    }
}

void CatalogoSimple::Form_QueryUnload(bool& Cancel) {
    if (EstadoEdicion > 0 &&
        ui::Sistema().MsgBox(QStringLiteral("¿Desea salir sin grabar el registro?"), 36, QStringLiteral("Salir sin grabar")) == ui::vbNo)
        Cancel = true;
}

void CatalogoSimple::Form_Unload() {
    globales::EsCatalogoUsuarios = false;
    Timer1->Enabled(false);
}

void CatalogoSimple::closeEvent(QCloseEvent* e) {
    bool cancelar = false;
    ui::Protegido(objectName(), [this, &cancelar] { Form_QueryUnload(cancelar); });
    if (cancelar) {
        e->ignore();
        return;
    }
    ui::Protegido(objectName(), [this] { Form_Unload(); });
    e->accept();
    QDialog::done(QDialog::Rejected);
}

void CatalogoSimple::reject() { close(); }

// ---------------------------------------------------------------------------------------------------------
// List and search

void CatalogoSimple::ActualizarVista() {
    RsVista->Requery();
    LstView->View(controles::ListView::lvwReport);
    LstView->ColumnHeaders().Clear();
    const double anchoI = fontMetrics().horizontalAdvance(QLatin1Char('I')) * TwipsPorPixel;
    // Fixed widths were made for a smaller type than this screen's: they grow with it.
    const double escala = std::max(1.0, LstView->fontMetrics().averageCharWidth() / 5.0);
    const int n = RsVista->Fields().Count();
    for (int j = 0; j < n; ++j) {
        dao::Field& campo = RsVista->Fields(j);
        double ancho = 700 * escala;
        switch (campo.Type()) {
        case dao::dbText: ancho = campo.Size() * anchoI * 0.8; break;
        case dao::dbMemo: ancho = 2500 * escala; break;
        case dao::dbDate: ancho = 1100 * escala; break;
        default: break;
        }
        LstView->ColumnHeaders().Add(campo.Name(), static_cast<int>(ancho));
    }
    cboCriteriosBusqueda->clear();
    cboCriteriosBusqueda->addItem(RsVista->Fields(0).Name());
    cboCriteriosBusqueda->addItem(QStringLiteral(" todos los demás"));
    cboCriteriosBusqueda->setCurrentIndex(0);

    if (RsVista->RecordCount() < 1) {
        Botones(Botonera::SinRegistros);
        return;
    }
    RsVista->MoveFirst();
    LstView->ListItems().Clear();
    while (!RsVista->Eof()) {
        controles::ListItem* item = LstView->ListItems().Add(RsVista->Fields(0).Value().text());
        for (int j = 1; j < n; ++j) {
            dao::Field& campo = RsVista->Fields(j);
            const vb::Variant v = campo.Value();
            QString texto;
            switch (campo.Type()) {
            case 3: case 4: case 19: case 2: case 6: case 7:
                texto = vb::Right(vb::Space(10) + v.text(), 10);
                break;
            case 5: case 20: texto = vb::Format(v, QStringLiteral("###,###.00")); break;
            case 8: case 22: case 23: texto = vb::Format(v, QStringLiteral("yyyy-mm-dd")); break;
            default: texto = v.text(); break;
            }
            item->setSubItems(j, texto);
        }
        RsVista->MoveNext();
    }
    if (LstView->ListItems().Count() > 0) {
        SeleccionaEncontrado(1);
        LstView_Click();
        lblNumRegs->setText(QString::number(LstView->ListItems().Count()) + QStringLiteral(" registro(s) disponible(s)"));
    }
}

void CatalogoSimple::SeleccionaEncontrado(int indice) {
    for (int i = 1; i <= LstView->ListItems().Count(); ++i) LstView->ListItems()(i).setSelected(false);
    controles::ListItem& item = LstView->ListItems()(indice);
    item.setSelected(true);
    item.EnsureVisible();
}

void CatalogoSimple::LstView_Click() {
    if (LstView->ListItems().Count() == 0) return;
    controles::ListItem* item = LstView->SelectedItem();
    if (!item || item->Text().isEmpty()) return;
    CargarRegistroEnTEXTBOXES(item->Text());
    bool status = false;
    globales::NoCuentaSeleccionada = ObtenerNoCuenta(status);
}

void CatalogoSimple::LstView_DblClick() { LstView_Click(); }

QString CatalogoSimple::ObtenerNoCuenta(bool& Status) {
    Status = true;
    controles::ListItem* item = LstView->SelectedItem();
    for (int c = 1; c <= LstView->ColumnHeaders().Count(); ++c) {
        const QString titulo = LstView->ColumnHeaders()(c).Text();
        // The header is the column's name as the view's statement writes it ("[NO]" in some catalogs).
        if (titulo.compare(QLatin1String("No"), Qt::CaseInsensitive) == 0 ||
            titulo.compare(QLatin1String("NoCuenta"), Qt::CaseInsensitive) == 0) {
            if (!item) return QString();
            return c == 1 ? item->Text() : item->SubItems(c - 1);
        }
    }
    return QString();
}

void CatalogoSimple::LstView_ColumnClick(int Column) { LV_ColumnSort(*LstView, Column); }

void CatalogoSimple::LV_ColumnSort(controles::ListView& ListViewControl, int Column) {
    controles::OrdenaPorColumna(ListViewControl, Column);
}

void CatalogoSimple::txtBuscar_Change() {
    if (!txtBuscar->text().isEmpty()) {
        cmdBuscar->setEnabled(true);
    } else {
        cmdBuscar->setEnabled(false);
        cmdBuscarSiguiente->setEnabled(false);
        PosicionBusqueda = 0;
    }
}

void CatalogoSimple::txtBuscar_GotFocus() { txtBuscar->selectAll(); }

void CatalogoSimple::cboCriteriosBusqueda_Click() {
    if (cboCriteriosBusqueda->ListIndex() == 0) {
        chkParcial->setChecked(true);
        chkParcial->setEnabled(true);
    } else if (cboCriteriosBusqueda->ListIndex() == 1) {
        chkParcial->setChecked(false);
        chkParcial->setEnabled(false);
    }
}

void CatalogoSimple::cmdBuscar_Click() {
    if (LstView->ListItems().Count() == 0) {
        ui::Sistema().Beep();
        ui::Sistema().MsgBox(QStringLiteral("No hay elementos en el catálogo"));
        return;
    }
    const int match = chkParcial->isChecked() ? controles::ListView::lvwPartial : controles::ListView::lvwWholeWord;
    int donde = cboCriteriosBusqueda->ListIndex() == 1 ? controles::ListView::lvwSubItem : controles::ListView::lvwText;
    if (match == controles::ListView::lvwPartial) donde = controles::ListView::lvwText;
    controles::ListItem* encontrado = LstView->FindItem(txtBuscar->text(), donde, 1, match);
    if (!encontrado) {
        ui::Sistema().MsgBox(QStringLiteral("No se ha hallado el elemento buscado"));
        cmdBuscarSiguiente->setEnabled(false);
        txtBuscar->setFocus();
        return;
    }
    SeleccionaEncontrado(encontrado->Index());
    LstView_Click();
    PosicionBusqueda = encontrado->Index();
    cmdBuscarSiguiente->setEnabled(true);
    LstView->setFocus();
}

void CatalogoSimple::cmdBuscarSiguiente_Click() {
    if (LstView->ListItems().Count() == 0) {
        ui::Sistema().Beep();
        ui::Sistema().MsgBox(QStringLiteral("No hay elementos en el catálogo"));
        return;
    }
    const int match = chkParcial->isChecked() ? controles::ListView::lvwPartial : controles::ListView::lvwWholeWord;
    int donde = cboCriteriosBusqueda->ListIndex() == 1 ? controles::ListView::lvwSubItem : controles::ListView::lvwText;
    if (match == controles::ListView::lvwPartial) donde = controles::ListView::lvwText;
    if (PosicionBusqueda + 1 > LstView->ListItems().Count()) {
        ui::Sistema().Beep();
        cmdBuscarSiguiente->setEnabled(false);
        return;
    }
    controles::ListItem* encontrado = LstView->FindItem(txtBuscar->text(), donde, PosicionBusqueda + 1, match);
    if (!encontrado) {
        PosicionBusqueda = 0;
        cmdBuscarSiguiente->setEnabled(false);
        ui::Sistema().MsgBox(QStringLiteral("No se ha hallado el elemento buscado"));
        txtBuscar->setFocus();
        return;
    }
    SeleccionaEncontrado(encontrado->Index());
    LstView_Click();
    PosicionBusqueda = encontrado->Index();
    LstView->setFocus();
}

void CatalogoSimple::cmdBCancelar_Click() {
    txtBuscar->clear();
    PosicionBusqueda = 0;
    picBusqueda->setVisible(false);
}

void CatalogoSimple::lblXsalir_Click() { cmdBCancelar_Click(); }

// ---------------------------------------------------------------------------------------------------------
// Scrolling and layout

void CatalogoSimple::VScroll1_Change() { ColocaRenglones(); }

void CatalogoSimple::VScroll1_Scroll() { ColocaRenglones(); }

void CatalogoSimple::VScroll1_GotFocus() { LstView->setFocus(); }

void CatalogoSimple::MantenVisible(int i) {
    if (VScroll1->isHidden()) return;
    const int primero = VScroll1->value() - VScroll1->minimum();
    if (i < primero)
        VScroll1->setValue(VScroll1->minimum() + i);
    else if (i > primero + RenglonesVisibles - 1)
        VScroll1->setValue(i - RenglonesVisibles + VScroll1->minimum() + 1);
}

void CatalogoSimple::Form_Resize() { Timer1->Enabled(true); }

void CatalogoSimple::resizeEvent(QResizeEvent* e) {
    QDialog::resizeEvent(e);
    Form_Resize();
}

void CatalogoSimple::Timer1_Timer() { Timer1->Timer(); }

void CatalogoSimple::ReacomodaTodo() {
    if (isMinimized()) return;
    if (width() < Px(8200)) {
        resize(Px(8200), height());
        Timer1->Enabled(true);
        return;
    }
    if (height() < Px(4200)) {
        resize(width(), Px(4200));
        Timer1->Enabled(true);
        return;
    }
    const int margen = Px(120);
    const int ancho = width() - Px(240);
    const int altoBotones = Px(480);
    const int altoCaptura = Px(120) + RenglonesVisibles * AltoRenglon();
    const int altoEstado = StatusBar1->sizeHint().height();
    const int altoLista = std::max(height() - altoCaptura - altoBotones - altoEstado - Px(430), Px(300));
    LstView->setGeometry(margen, margen, ancho, altoLista);
    PictBotones->setGeometry(margen, margen + altoLista + Px(60), ancho, altoBotones);
    const int separacion = Px(60);
    const int anchoBoton = std::min(Px(1080), (ancho - 7 * separacion) / 8);
    for (int i = 0; i < 8; ++i)
        Cmd[static_cast<size_t>(i)]->setGeometry(i * (anchoBoton + separacion), Px(60), anchoBoton, Px(360));
    PctCaptura->setGeometry(margen, PictBotones->geometry().bottom() + Px(60), ancho, altoCaptura);
    VScroll1->setGeometry(PctCaptura->width() - VScroll1->sizeHint().width() - 2, 2, VScroll1->sizeHint().width(),
                          PctCaptura->height() - 4);
    StatusBar1->setGeometry(0, height() - altoEstado, width(), altoEstado);
    picBusqueda->move(margen + Px(120), margen + std::max(altoLista - picBusqueda->height() - Px(120), 0));
    ColocaRenglones();
}

bool CatalogoSimple::eventFilter(QObject* objeto, QEvent* evento) {
    const QEvent::Type tipo = evento->type();
    if (tipo != QEvent::FocusIn && tipo != QEvent::FocusOut && tipo != QEvent::MouseButtonRelease)
        return QDialog::eventFilter(objeto, evento);
    const QString origen = objectName();
    const bool entra = tipo == QEvent::FocusIn;
    if (objeto == lblXsalir) {
        if (tipo == QEvent::MouseButtonRelease) ui::Protegido(origen, [this] { lblXsalir_Click(); });
    } else if (objeto == txtBuscar) {
        if (entra) ui::Protegido(origen, [this] { txtBuscar_GotFocus(); });
    } else if (objeto == VScroll1) {
        if (entra) ui::Protegido(origen, [this] { VScroll1_GotFocus(); });
    } else if (tipo != QEvent::MouseButtonRelease) {
        const QVariant renglon = objeto->property("renglon");
        if (renglon.isValid()) {
            const int i = renglon.toInt();
            if (i >= 0 && i < static_cast<int>(Text1.size())) {
                const auto k = static_cast<size_t>(i);
                if (objeto == Text1[k])
                    ui::Protegido(origen, [this, i, entra] { entra ? Text1_GotFocus(i) : Text1_LostFocus(i); });
                else if (objeto == Combo1[k])
                    ui::Protegido(origen, [this, i, entra] { entra ? Combo1_GotFocus(i) : Combo1_LostFocus(i); });
                else if (objeto == Command1[k] && entra)
                    ui::Protegido(origen, [this, i] { Command1_GotFocus(i); });
            }
        }
    }
    return QDialog::eventFilter(objeto, evento);
}

void CatalogoSimple::Reporte() {
    QString sql = vb::UCase(vb::Trim(SQLdatos));
    if (vb::Left(sql, 6) != QStringLiteral("SELECT")) return;
    sql = vb::Mid(sql, 7);
    FormReporte reporte;
    reporte.mInit(sql, windowTitle(), QStringLiteral("QuitarAlias"));
    ui::Sistema().MuestraModal(reporte);
}
