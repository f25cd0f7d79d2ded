#include "exchange/FrmImportaSolicitud_1.h"

#include "catalog/CatMod.h"
#include "core/Datos.h"
#include "core/controles/CampoEnlazado.h"
#include "core/controles/Colores.h"
#include "core/controles/ComboBox.h"
#include "core/controles/ListView.h"
#include "core/controles/SoloDigitos.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Conversion.h"
#include "exchange/FrmImportaSolicitud.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("FrmImportaSolicitud_1");

// A publisher's item, "012 - Planeta" as the list fills it or "12 Planeta" as the catalog refills it: its
// number stands before the "-" and the blank, its name behind them.
void PartesDeEditorial(const QString& item, QString& numero, QString& nombre) {
    qsizetype i = 0;
    while (i < item.size() && item[i] == u' ') ++i;
    const qsizetype inicio = i;
    while (i < item.size() && item[i].isDigit()) ++i;
    numero = vb::CStr(vb::Variant(vb::Val(item.mid(inicio, i - inicio))));
    while (i < item.size() && item[i] == u' ') ++i;
    if (i < item.size() && item[i] == u'-') ++i;
    if (i < item.size() && item[i] == u' ') ++i;
    nombre = item.mid(i);
}

}  // namespace

FrmImportaSolicitud_1::FrmImportaSolicitud_1(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("FrmImportaSolicitud_1"));
    setWindowTitle(QStringLiteral("Importacion de Solicitudes - KORVEL8"));

    TxtTitulo = new QLineEdit(this);
    TxtAutor = new QLineEdit(this);
    TxtEditorial = new QLineEdit(this);
    Combo1 = new controles::ComboBox(this);
    BtnCatalogo = new QPushButton(QStringLiteral("..."), this);
    TxtISBN = new QLineEdit(this);
    TxtEdicion = new QLineEdit(this);
    TxtEjemplar = new QLineEdit(this);
    LblEstadoLibro = new QLabel(QStringLiteral("Solicitado"), this);
    EtNoReconocida = new QLabel(this);
    BtnGrabar = new QPushButton(QStringLiteral("&Grabar"), this);
    BtnRegresar = new QPushButton(QStringLiteral("&Regresar"), this);
    const std::pair<QWidget*, const char*> nombres[] = {
        {TxtTitulo, "TxtTitulo"},     {TxtAutor, "TxtAutor"},       {TxtEditorial, "TxtEditorial"},
        {Combo1, "Combo1"},           {BtnCatalogo, "BtnCatalogo"}, {TxtISBN, "TxtISBN"},
        {TxtEdicion, "TxtEdicion"},   {TxtEjemplar, "TxtEjemplar"}, {LblEstadoLibro, "LblEstadoLibro"},
        {EtNoReconocida, "EtNoReconocida"}, {BtnGrabar, "BtnGrabar"}, {BtnRegresar, "BtnRegresar"}};
    for (const auto& [w, n] : nombres) w->setObjectName(QLatin1String(n));
    for (QLineEdit* t : {TxtEditorial, TxtEdicion, TxtEjemplar}) {
        controles::SoloDigitos::Instala(t);
        t->setMaxLength(5);
    }
    for (QLineEdit* t : {TxtTitulo, TxtAutor, TxtEditorial, TxtISBN, TxtEdicion, TxtEjemplar}) t->installEventFilter(this);
    BtnCatalogo->setFixedWidth(32);
    QPalette rojo = EtNoReconocida->palette();
    rojo.setColor(QPalette::WindowText, controles::ColorVB(controles::ColorRojo));
    EtNoReconocida->setPalette(rojo);
    EtNoReconocida->setWordWrap(true);

    auto* g = new QGridLayout;
    g->addWidget(new QLabel(QStringLiteral("Título:"), this), 0, 0);
    g->addWidget(TxtTitulo, 0, 1, 1, 3);
    g->addWidget(new QLabel(QStringLiteral("Autor:"), this), 1, 0);
    g->addWidget(TxtAutor, 1, 1, 1, 3);
    g->addWidget(new QLabel(QStringLiteral("Editorial:"), this), 2, 0);
    g->addWidget(TxtEditorial, 2, 1);
    g->addWidget(Combo1, 2, 2);
    g->addWidget(BtnCatalogo, 2, 3);
    g->addWidget(EtNoReconocida, 3, 1, 1, 3);
    g->addWidget(new QLabel(QStringLiteral("ISBN:"), this), 4, 0);
    g->addWidget(TxtISBN, 4, 1, 1, 2);
    g->addWidget(new QLabel(QStringLiteral("Edición:"), this), 5, 0);
    g->addWidget(TxtEdicion, 5, 1);
    g->addWidget(new QLabel(QStringLiteral("Ejemplares:"), this), 6, 0);
    g->addWidget(TxtEjemplar, 6, 1);
    g->addWidget(new QLabel(QStringLiteral("Estado:"), this), 7, 0);
    g->addWidget(LblEstadoLibro, 7, 1, 1, 2);
    g->setColumnStretch(2, 1);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(BtnGrabar);
    botones->addWidget(BtnRegresar);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(g);
    todo->addStretch(1);
    todo->addLayout(botones);
    resize(620, 300);
    controles::OrdenDeTabulacion({TxtTitulo, TxtAutor, TxtEditorial, Combo1, BtnCatalogo, TxtISBN, TxtEdicion, TxtEjemplar,
                                  BtnGrabar, BtnRegresar});

    ui::Conecta(BtnGrabar, &QPushButton::clicked, this, origen, &FrmImportaSolicitud_1::BtnGrabar_Click);
    ui::Conecta(BtnRegresar, &QPushButton::clicked, this, origen, &FrmImportaSolicitud_1::BtnRegresar_Click);
    ui::Conecta(BtnCatalogo, &QPushButton::clicked, this, origen, &FrmImportaSolicitud_1::BtnCatalogo_Click);
    ui::Conecta(Combo1, &controles::ComboBox::Click, this, origen, &FrmImportaSolicitud_1::Combo1_Click);
    ui::Conecta(TxtEditorial, &QLineEdit::textChanged, this, origen, &FrmImportaSolicitud_1::TxtEditorial_Change);
}

FrmImportaSolicitud_1::~FrmImportaSolicitud_1() = default;

bool FrmImportaSolicitud_1::eventFilter(QObject* objeto, QEvent* evento) {
    auto* campo = qobject_cast<QLineEdit*>(objeto);
    if (campo && evento->type() == QEvent::KeyPress) {
        // Enter moves on, as Tab does: the title is written by the button only.
        const int tecla = static_cast<QKeyEvent*>(evento)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            ui::Sistema().FocoSiguiente(campo);
            return true;
        }
    }
    return QDialog::eventFilter(objeto, evento);
}

void FrmImportaSolicitud_1::Form_Load() {
    Datos::LlenaCombo(*Combo1, QStringLiteral("[No], Nombre"), QStringLiteral("Editoriales"), QStringLiteral("[Nombre]"));
    const QString tabla = QStringLiteral("Solicitudes Libros");
    controles::LimitaAlCampo(*TxtTitulo, tabla, QStringLiteral("Titulo"));
    controles::LimitaAlCampo(*TxtAutor, tabla, QStringLiteral("Autor"));
    controles::LimitaAlCampo(*TxtISBN, tabla, QStringLiteral("ISBN"));
}

void FrmImportaSolicitud_1::TxtEditorial_Change() { controles::EligePorNumero(*Combo1, TxtEditorial->text()); }

void FrmImportaSolicitud_1::Combo1_Click() { controles::PonNumeroDelItem(*Combo1, *TxtEditorial); }

void FrmImportaSolicitud_1::BtnCatalogo_Click() {
    CatMod::CatalogoParaComboEligiendo(*Combo1, QStringLiteral("editoriales"),
                                      QStringLiteral("SELECT [No] & ' ' & Nombre as Resultado  FROM Editoriales"));
}

void FrmImportaSolicitud_1::BtnGrabar_Click() {
    if (Combo1->ListIndex() < 0) {
        ui::Sistema().MsgBox(QStringLiteral("Se requiere seleccionar una editorial de la lista, por favor indique una"),
                             ui::vbCritical, QStringLiteral("Editorial requerida"));
        Combo1->setFocus();
        return;
    }
    QString numero, nombre;
    PartesDeEditorial(Combo1->Text(), numero, nombre);
    controles::ListView& lista = *Importacion->LstLibros;
    controles::ListItem* item = Nuevo ? nullptr : lista.SelectedItem();
    if (item)
        item->setText(TxtTitulo->text());
    else
        item = lista.ListItems().Add(TxtTitulo->text());
    item->setSubItems(1, TxtAutor->text());
    item->setSubItems(2, nombre);
    item->setSubItems(3, TxtISBN->text());
    item->setSubItems(4, TxtEdicion->text());
    item->setSubItems(5, TxtEjemplar->text());
    item->setSubItems(6, numero);
    Importacion->MuestraCuentaDeLibros();
    Importacion->ReparteAnchoLibre();
    close();
}

void FrmImportaSolicitud_1::BtnRegresar_Click() { close(); }
