#include "core/frmFecha.h"

#include "core/controles/FechaTextBox.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Conversion.h"
#include "core/vb/Formato.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmFecha::frmFecha(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmFecha"));
    setWindowTitle(QStringLiteral("Cambiar fecha"));
    Label1 = new QLabel(QStringLiteral("Nueva fecha:"), this);
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Label2 = new QLabel(this);
    Label2->setObjectName(QStringLiteral("Label2"));
    Label2->setMinimumWidth(260);
    Command1 = new QPushButton(QStringLiteral("&Cambiar"), this);
    Command2 = new QPushButton(QStringLiteral("&Regresar"), this);
    Command1->setAutoDefault(false);
    Command2->setAutoDefault(false);
    auto* rejilla = new QGridLayout(this);
    rejilla->addWidget(Label1, 0, 0);
    rejilla->addWidget(Text1, 0, 1);
    rejilla->addWidget(Label2, 1, 0, 1, 2);
    rejilla->addWidget(Command1, 2, 0);
    rejilla->addWidget(Command2, 2, 1);
    connect(Text1, &QLineEdit::textChanged, this, [this] { ui::Protegido(QStringLiteral("frmFecha"), [this] { Text1_Change(); }); });
    connect(Command1, &QPushButton::clicked, this, [this] { ui::Protegido(QStringLiteral("frmFecha"), [this] { Command1_Click(); }); });
    connect(Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });
    Form_Load();
}

frmFecha::~frmFecha() = default;

void frmFecha::Form_Load() {
    fechaTexto_ = std::make_unique<controles::FechaTextBox>(Text1);
    Text1->setText(vb::Format(vb::Variant(vb::Fecha::Today()), QStringLiteral("dd/mmm/yyyy")));
}

void frmFecha::Text1_Change() {
    if (vb::IsDate(vb::Variant(Text1->text())))
        Label2->setText(vb::Format(vb::Variant(vb::CDate(vb::Variant(Text1->text()))), QStringLiteral("long date")));
    else
        Label2->setText(QStringLiteral("* Fecha inválida*"));
}

void frmFecha::Command1_Click() {
    const vb::Variant texto(Text1->text());
    const bool valida = vb::IsDate(texto) && vb::CDate(texto) <= vb::Fecha(QDate(2099, 12, 31));
    if (!valida) {
        ui::Sistema().MsgBox(QStringLiteral("La fecha NO es correcta"), ui::vbExclamation, QStringLiteral("ERROR"));
        Text1->setFocus();
        return;
    }
    const QDate nueva = vb::CDate(texto).date();
    if (nueva != QDate::currentDate() && !ui::Sistema().FijaFechaSistema(nueva))
        ui::Sistema().MsgBox(QStringLiteral("No es posible cambiar la fecha del sistema"), ui::vbCritical);
    close();
}

void frmFecha::Command2_Click() { close(); }
