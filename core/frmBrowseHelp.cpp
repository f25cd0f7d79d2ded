#include "core/frmBrowseHelp.h"

#include "core/ui/Plataforma.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

frmBrowseHelp::frmBrowseHelp(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmBrowseHelp"));
    setWindowTitle(QStringLiteral("Ayuda"));
    picToolBar = new QWidget(this);
    lblTitulo = new QLabel(QStringLiteral("Ayuda del módulo de análisis"), picToolBar);
    QFont f = lblTitulo->font();
    f.setPointSize(f.pointSize() + 3);
    f.setBold(true);
    lblTitulo->setFont(f);
    picLogo = new QLabel(picToolBar);
    picLogo->setPixmap(style()->standardIcon(QStyle::SP_DialogHelpButton).pixmap(32, 32));
    auto* barra = new QHBoxLayout(picToolBar);
    barra->addWidget(lblTitulo);
    barra->addStretch();
    barra->addWidget(picLogo);

    WebBrowser1 = ui::Sistema().CreaVistaHtml(this);

    picBotones = new QWidget(this);
    cmdImprimir = new QPushButton(QStringLiteral("&Imprimir"), picBotones);
    cmdCerrar = new QPushButton(QStringLiteral("&Cerrar"), picBotones);
    auto* botones = new QHBoxLayout(picBotones);
    botones->addStretch();
    botones->addWidget(cmdImprimir);
    botones->addWidget(cmdCerrar);

    // The document fills the window between the title bar and the buttons.
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(picToolBar);
    if (WebBrowser1->widget()) todo->addWidget(WebBrowser1->widget(), 1);
    todo->addWidget(picBotones);
    resize(820, 640);

    connect(cmdCerrar, &QPushButton::clicked, this, [this] { cmdCerrar_Click(); });
    connect(cmdImprimir, &QPushButton::clicked, this, [this] { ui::Protegido(QStringLiteral("frmBrowseHelp"), [this] { cmdImprimir_Click(); }); });
    Form_Load();
}

frmBrowseHelp::~frmBrowseHelp() = default;

void frmBrowseHelp::Form_Load() { WebBrowser1->Navigate(QStringLiteral("about:blank")); }

void frmBrowseHelp::cmdCerrar_Click() { close(); }

void frmBrowseHelp::cmdImprimir_Click() { WebBrowser1->Imprimir(); }
