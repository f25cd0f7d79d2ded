#include "core/Leepasswd.h"

#include "core/Credenciales.h"
#include "core/Globales.h"
#include "core/dao/Dao.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <algorithm>

QString TomaElementoComa(const QString& texto, qint16 n) {
    QString resto = texto;
    QString elemento;
    for (int i = 1; i <= n; ++i) {
        if (resto.isEmpty()) return QString();
        const int coma = vb::InStr(resto, QStringLiteral(","));
        if (coma > 0) {
            elemento = vb::Trim(vb::Left(resto, coma - 1));
            resto = vb::Trim(vb::Mid(resto, coma + 1));
        } else {
            elemento = vb::Trim(resto);
            resto.clear();
        }
    }
    return elemento;
}

QString ValidaAnalista(const QString& login, const QString& clave, QString& mensaje) {
    auto rs = globales::Base().OpenRecordset(QStringLiteral("select * from Analistas where Login='") + login +
                                                 QStringLiteral("'"),
                                             dao::dbOpenDynaset);
    if (rs->Eof()) return QString();
    const QString enTabla = rs->Fields(QStringLiteral("Login")).Value().text();
    if (vb::UCase(enTabla) != vb::UCase(login)) return QString();
    const QString plano = credenciales::DescifraClave(rs->Fields(QStringLiteral("password")).Value().text());
    if (TomaElementoComa(plano, 2) != clave) return QString();
    if (TomaElementoComa(plano, 1) != enTabla) {
        mensaje = QStringLiteral("Se ha detectado corrupción en la base de usuarios");
        return QString();
    }
    if (vb::Left(TomaElementoComa(plano, 4), 1) != QLatin1String("1")) {
        mensaje = QStringLiteral("No tiene permiso para entrar a este módulo");
        return QString();
    }
    const QString derechos = TomaElementoComa(plano, 3);
    for (int i = 0; i < 3; ++i) globales::Derechos[static_cast<size_t>(i)] = static_cast<int>(vb::Val(vb::Mid(derechos, i + 1, 1)));
    return enTabla;
}

Leepasswd::Leepasswd(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Leepasswd"));
    setWindowTitle(QStringLiteral("  Entrada al sistema"));
    Picture1 = new QLabel(this);
    Picture1->setPixmap(style()->standardIcon(QStyle::SP_DialogApplyButton).pixmap(48, 48));
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text2 = new QLineEdit(this);
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setEchoMode(QLineEdit::Password);
    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command1->setAutoDefault(false);
    Command2->setAutoDefault(false);

    auto* rejilla = new QGridLayout;
    rejilla->addWidget(new QLabel(QStringLiteral("Nombre de usuario"), this), 0, 0);
    rejilla->addWidget(Text1, 0, 1);
    rejilla->addWidget(new QLabel(QStringLiteral("Contraseña"), this), 1, 0);
    rejilla->addWidget(Text2, 1, 1);
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* todo = new QGridLayout(this);
    todo->addWidget(Picture1, 0, 0, 2, 1, Qt::AlignTop);
    todo->addLayout(rejilla, 0, 1);
    todo->addLayout(botones, 1, 1);

    connect(Command1, &QPushButton::clicked, this, [this] { ui::Protegido(QStringLiteral("Leepasswd"), [this] { Command1_Click(); }); });
    connect(Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });
    // Typing in the password makes Aceptar the default button; typing in the name takes that away.
    connect(Text2, &QLineEdit::textEdited, this, [this] { Command1->setDefault(true); });
    connect(Text1, &QLineEdit::textEdited, this, [this] { Command1->setDefault(false); });
    Text1->installEventFilter(this);
    Text2->installEventFilter(this);
    Form_Load();
}

void Leepasswd::Form_Load() { fallas_ = 0; }

void Leepasswd::Form_Activate() { Text1->setFocus(); }

void Leepasswd::showEvent(QShowEvent* e) {
    // Centred over the main window, or over the screen without one, and inside the screen.
    const QWidget* sobre = parentWidget() ? parentWidget()->window() : nullptr;
    if (QScreen* pantalla = sobre ? sobre->screen() : screen()) {
        const QRect libre = pantalla->availableGeometry();
        const QPoint centro = sobre && sobre->isVisible() ? sobre->frameGeometry().center() : libre.center();
        QRect lugar(QPoint(), frameGeometry().size().expandedTo(size()));
        lugar.moveCenter(centro);
        lugar.moveLeft(std::clamp(lugar.left(), libre.left(), std::max(libre.left(), libre.right() - lugar.width())));
        lugar.moveTop(std::clamp(lugar.top(), libre.top(), std::max(libre.top(), libre.bottom() - lugar.height())));
        move(lugar.topLeft());
    }
    QDialog::showEvent(e);
    Form_Activate();
}

bool Leepasswd::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) {
        auto* tecla = static_cast<QKeyEvent*>(evento);
        if (tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter) {
            if (objeto == Text1) {
                ui::Sistema().FocoSiguiente(Text1);
                return true;
            }
            if (objeto == Text2) {
                ui::Protegido(QStringLiteral("Leepasswd"), [this] { Command1_Click(); });
                return true;
            }
        }
    }
    return QDialog::eventFilter(objeto, evento);
}

void Leepasswd::Command1_Click() {
    Mensaje.clear();
    try {
        globales::LoginAnalista = ValidaAnalista(Text1->text(), Text2->text(), Mensaje);
    } catch (...) {
        // An attempt whose check fails (an apostrophe in the name breaks the statement) counts as well;
        // the failure goes on to the default box, which ends the program.
        ++fallas_;
        if (fallas_ >= 4) hide();
        throw;
    }
    if (!globales::LoginAnalista.isEmpty()) {
        Resultado = QStringLiteral("OK");
        hide();
        return;
    }
    ui::Sistema().Beep();
    ++fallas_;
    if (fallas_ < 4) {
        ui::Sistema().MsgBox(Mensaje.isEmpty() ? QStringLiteral("Clave Erronea") : Mensaje, ui::vbCritical,
                             QStringLiteral("Error de acceso"));
        Text1->clear();
        Text2->clear();
        Text1->setFocus();
    } else {
        ui::Sistema().MsgBox(QStringLiteral("Ha hecho demasiados intentos"), ui::vbCritical,
                             QStringLiteral("Clave incorrecta"));
        hide();
    }
}

void Leepasswd::Command2_Click() {
    Resultado.clear();
    hide();
}
