// The behaviours attached to fields: date fields, capture fields, digit-only fields, the lookup field beside
// a combo, the combo itself, and the timer that defers a screen's layout.
#include "../ui/ayuda_ui.h"

#include "core/controles/CampoBusqueda.h"
#include "core/controles/CampoEnlazado.h"
#include "core/controles/CapturaTextBox.h"
#include "core/controles/Colores.h"
#include "core/controles/ComboBox.h"
#include "core/controles/FechaTextBox.h"
#include "core/controles/SoloDigitos.h"
#include "core/controles/TimerReacomodo.h"

#include <QAbstractItemView>
#include <QEventLoop>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QResizeEvent>

namespace {

using controles::ColorFondo;
using controles::ColorTexto;

const QColor Amarillo(0xFC, 0xFD, 0xD7);

class Campos : public prueba_ui::ConSistema {
protected:
    void Tecla(QWidget* w, int tecla, const QString& texto = QString(), Qt::KeyboardModifiers mod = Qt::NoModifier) {
        QKeyEvent e(QEvent::KeyPress, tecla, mod, texto);
        QCoreApplication::sendEvent(w, &e);
    }
    void Foco(QWidget* w, bool entra) {
        QFocusEvent e(entra ? QEvent::FocusIn : QEvent::FocusOut, Qt::TabFocusReason);
        QCoreApplication::sendEvent(w, &e);
    }
    // The analyst's choice of item `i` in the open list, with Enter.
    static void EligeEnLaLista(QComboBox& combo, int i) {
        combo.showPopup();
        combo.view()->setCurrentIndex(combo.model()->index(i, 0));
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(combo.view(), &enter);
    }
    void Espera(int ms) {
        QEventLoop bucle;
        QTimer::singleShot(ms, &bucle, &QEventLoop::quit);
        bucle.exec();
    }
    QWidget ventana;
};

TEST_F(Campos, FechaTextBox) {
    auto* caja = new QLineEdit(&ventana);
    controles::FechaTextBox fecha(caja);
    caja->setText(QStringLiteral("31/02/2024"));
    EXPECT_EQ(ColorTexto(caja), QColor(Qt::red));
    EXPECT_EQ(caja->toolTip(), QStringLiteral("Formato de fecha incorrecto"));
    caja->setText(QStringLiteral("5/1/24 "));
    EXPECT_EQ(ColorTexto(caja), QColor(Qt::black));
    EXPECT_EQ(caja->toolTip(), QStringLiteral("Formato de fecha correcto"));

    // With the focus: pale yellow, the text up to its trimmed length selected.
    Foco(caja, true);
    EXPECT_EQ(ColorFondo(caja), Amarillo);
    EXPECT_EQ(caja->selectedText(), QStringLiteral("5/1/24"));
    // Leaving it: white, the date written back in full with its year expanded.
    Foco(caja, false);
    EXPECT_EQ(ColorFondo(caja), QColor(Qt::white));
    EXPECT_EQ(caja->text(), QStringLiteral("05/ene/2024"));

    // An empty field is red while it has the focus, and white and empty after.
    caja->clear();
    Foco(caja, true);
    EXPECT_EQ(ColorTexto(caja), QColor(Qt::red));
    Foco(caja, false);
    EXPECT_EQ(ColorFondo(caja), QColor(Qt::white));
    EXPECT_EQ(caja->text(), QString());
    EXPECT_TRUE(sistema->focos.empty());

    int enter = 0;
    QObject::connect(caja, &QLineEdit::returnPressed, [&enter] { ++enter; });

    // A date and Enter: written back, the caret at its end, the key swallowed, the focus sent on.
    caja->setText(QStringLiteral("7-3-99"));
    Tecla(caja, Qt::Key_Return, QStringLiteral("\r"));
    EXPECT_EQ(caja->text(), QStringLiteral("07/mar/1999"));
    EXPECT_EQ(caja->cursorPosition(), 11);
    EXPECT_EQ(enter, 0);
    ASSERT_EQ(sistema->focos.size(), 1u);
    EXPECT_EQ(sistema->focos[0].data(), caja);

    // Two characters and Enter: nothing special, the key goes on as usual.
    caja->setText(QStringLiteral("12"));
    Tecla(caja, Qt::Key_Return, QStringLiteral("\r"));
    EXPECT_EQ(caja->text(), QStringLiteral("12"));
    EXPECT_EQ(enter, 1);
    EXPECT_EQ(sistema->beeps, 0);

    // No date: a beep, and the field keeps the focus and its text.
    caja->setText(QStringLiteral("hoy mismo"));
    EXPECT_TRUE(fecha.KeyPress(9));
    Tecla(caja, Qt::Key_Return, QStringLiteral("\r"));
    EXPECT_EQ(sistema->beeps, 2);
    EXPECT_EQ(enter, 1);
    EXPECT_EQ(caja->text(), QStringLiteral("hoy mismo"));
    EXPECT_EQ(sistema->focos.size(), 1u);
    // Other keys are the field's.
    EXPECT_FALSE(fecha.KeyPress('5'));

    // Let go of the field: its events are its own again.
    fecha.setTextBox(nullptr);
    caja->setText(QStringLiteral("x"));
    Tecla(caja, Qt::Key_Return, QStringLiteral("\r"));
    EXPECT_EQ(enter, 2);
    EXPECT_EQ(caja->toolTip(), QStringLiteral("Formato de fecha incorrecto"));
}

TEST_F(Campos, CapturaTextBox) {
    auto* caja = new QLineEdit(&ventana);
    controles::CapturaTextBox captura(caja);
    caja->setText(QStringLiteral("abc  "));
    Foco(caja, true);
    EXPECT_EQ(ColorFondo(caja), Amarillo);
    EXPECT_EQ(caja->selectedText(), QStringLiteral("abc"));
    int enter = 0;
    QObject::connect(caja, &QLineEdit::returnPressed, [&enter] { ++enter; });
    // Enter and Tab move on, whatever the field holds.
    Tecla(caja, Qt::Key_Enter, QStringLiteral("\r"));
    Tecla(caja, Qt::Key_Tab, QStringLiteral("\t"));
    EXPECT_EQ(enter, 0);
    EXPECT_EQ(sistema->focos.size(), 2u);
    Foco(caja, false);
    EXPECT_EQ(ColorFondo(caja), QColor(Qt::white));
}

TEST_F(Campos, SoloDigitos) {
    auto* caja = new QLineEdit(&ventana);
    controles::SoloDigitos::Instala(caja);
    Tecla(caja, Qt::Key_1, QStringLiteral("1"));
    Tecla(caja, Qt::Key_A, QStringLiteral("a"));
    Tecla(caja, Qt::Key_Minus, QStringLiteral("-"));
    Tecla(caja, Qt::Key_2, QStringLiteral("2"));
    EXPECT_EQ(caja->text(), QStringLiteral("12"));
    // Backspace is let through, and keys that type nothing still move the caret.
    Tecla(caja, Qt::Key_Backspace, QStringLiteral("\b"));
    Tecla(caja, Qt::Key_Home);
    Tecla(caja, Qt::Key_9, QStringLiteral("9"));
    EXPECT_EQ(caja->text(), QStringLiteral("91"));
    // A control character is a character: pasting with Ctrl+V is swallowed.
    QKeyEvent pega(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier, QStringLiteral("\x16"));
    EXPECT_FALSE(controles::SoloDigitos::Permitida(pega));
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    EXPECT_TRUE(controles::SoloDigitos::Permitida(enter));
}

TEST_F(Campos, CampoBusquedaYComboBox) {
    auto* campo = new QLineEdit(&ventana);
    auto* combo = new controles::ComboBox(&ventana);
    for (const char* t : {"001 - Uno", "012 - Doce", "1250 - Grande"}) combo->AddItem(QString::fromLatin1(t));
    // Adding chooses nothing.
    EXPECT_EQ(combo->ListIndex(), -1);
    controles::CampoBusqueda busqueda(campo, combo);

    // Choosing an item writes its number; typing a number chooses its item.
    combo->setListIndex(1);
    EXPECT_EQ(campo->text(), QStringLiteral("12"));
    campo->setText(QStringLiteral("1"));
    EXPECT_EQ(combo->ListIndex(), 0);
    campo->setText(QStringLiteral("1250"));
    EXPECT_EQ(combo->ListIndex(), 2);
    // No item with that number: a beep, the field emptied, the choice kept.
    campo->setText(QStringLiteral("77"));
    EXPECT_GE(sistema->beeps, 1);
    EXPECT_EQ(campo->text(), QString());
    EXPECT_EQ(combo->ListIndex(), 2);
    // A screen may answer otherwise.
    int sinCoincidir = 0;
    busqueda.SinCoincidencia = [&sinCoincidir] { ++sinCoincidir; };
    const int beeps = sistema->beeps;
    campo->setText(QStringLiteral("5"));
    EXPECT_EQ(sinCoincidir, 1);
    EXPECT_EQ(campo->text(), QStringLiteral("5"));
    EXPECT_EQ(sistema->beeps, beeps);
    EXPECT_EQ(controles::NumeroDeElemento(QStringLiteral("007 - Siete")), 7);
    EXPECT_EQ(controles::NumeroDeElemento(QStringLiteral("Sin número")), 0);

    // The combo's own API.
    combo->setListIndex(-1);
    EXPECT_EQ(combo->Text(), QString());
    EXPECT_THROW(combo->setListIndex(3), vb::Error);
    combo->setItemData(2, 1250);
    EXPECT_EQ(combo->ItemData(0), 0);
    EXPECT_THROW(combo->ItemData(3), vb::Error);
    EXPECT_EQ(combo->List(3), QString());
    combo->AddItem(QStringLiteral("000 - Primero"), 0);
    EXPECT_EQ(combo->NewIndex(), 0);
    EXPECT_EQ(combo->ItemData(3), 1250);
    combo->setText(QStringLiteral("012 - Doce"));
    EXPECT_EQ(combo->ListIndex(), 2);
    EXPECT_THROW(combo->setText(QStringLiteral("no está")), vb::Error);
    combo->setEditable(true);
    combo->setText(QStringLiteral("no está"));
    EXPECT_EQ(combo->Text(), QStringLiteral("no está"));
}

TEST_F(Campos, TimerReacomodoUnaVezPorSerieDeCambios) {
    int reacomodos = 0;
    controles::TimerReacomodo timer(&ventana, [&reacomodos] { ++reacomodos; }, 20);
    timer.VigilaRedimension(&ventana);
    for (int i = 0; i < 3; ++i) {
        QResizeEvent e(QSize(300 + i, 200), QSize(300, 200));
        QCoreApplication::sendEvent(&ventana, &e);
    }
    EXPECT_EQ(reacomodos, 0);
    Espera(150);
    EXPECT_EQ(reacomodos, 1);
    EXPECT_FALSE(timer.Enabled());

    // A failure while laying out is shown in the default box, and the timer stays off.
    timer.setReacomoda([] { throw vb::Error(5, QStringLiteral("Llamada a procedimiento o argumento no válido")); });
    timer.Enabled(true);
    timer.Timer();
    EXPECT_FALSE(timer.Enabled());
    ASSERT_EQ(sistema->cajas.size(), 1u);
    EXPECT_EQ(sistema->cajas[0].flags, ui::vbCritical);
}

}  // namespace

TEST_F(Campos, ComboBoxUnClicPorEleccionTambienDelElementoYaElegido) {
    for (const bool editable : {false, true}) {
        auto* combo = new controles::ComboBox(&ventana);
        combo->setEditable(editable);
        for (const char* t : {"001 - Uno", "002 - Dos", "003 - Tres"}) combo->AddItem(QString::fromLatin1(t));
        int clics = 0;
        QObject::connect(combo, &controles::ComboBox::Click, [&clics] { ++clics; });
        EligeEnLaLista(*combo, 1);
        EligeEnLaLista(*combo, 1);                    // the same item again
        EXPECT_EQ(clics, 2) << "editable " << editable;
        // A key that moves the choice: one click.
        Tecla(combo, Qt::Key_Down);
        EXPECT_EQ(combo->ListIndex(), 2);
        EXPECT_EQ(clics, 3) << "editable " << editable;
        // By code: a click for a new index only, and a code change leaves no trace on the next choice.
        combo->setListIndex(0);
        combo->setListIndex(0);
        EXPECT_EQ(clics, 4);
        EligeEnLaLista(*combo, 0);
        EXPECT_EQ(clics, 5);
        EligeEnLaLista(*combo, 2);
        EXPECT_EQ(clics, 6);
    }

    // The lookup field, emptied by a number that is no item, is filled again by choosing the item shown.
    auto* campo = new QLineEdit(&ventana);
    auto* lista = new QComboBox(&ventana);
    lista->addItems({QStringLiteral("004 - Artes"), QStringLiteral("007 - Letras")});
    controles::CampoBusqueda busqueda(campo, lista);
    EligeEnLaLista(*lista, 1);
    campo->setText(QStringLiteral("9"));
    EXPECT_EQ(campo->text(), QString());
    EligeEnLaLista(*lista, 1);
    EXPECT_EQ(campo->text(), QStringLiteral("7"));
}

namespace {
class CamposConBase : public prueba_ui::ConBase {};
}  // namespace

TEST_F(CamposConBase, LargoDelCampoDeTextoYOrdenDeTabulacion) {
    QWidget ventana;
    auto* caja = new QLineEdit(&ventana);
    const int sinLimite = caja->maxLength();
    controles::LimitaAlCampo(*caja, QStringLiteral("Solicitudes General"), QStringLiteral("solicitante"));
    EXPECT_EQ(caja->maxLength(), 100);
    caja->setText(QString(120, u'x'));
    EXPECT_EQ(caja->text().size(), 100);
    // A table or column that isn't there changes nothing; a number, a date or a memo takes any length.
    controles::LimitaAlCampo(*caja, QStringLiteral("No existe"), QStringLiteral("Nombre"));
    controles::LimitaAlCampo(*caja, QStringLiteral("Solicitudes General"), QStringLiteral("No existe"));
    EXPECT_EQ(caja->maxLength(), 100);
    controles::LimitaAlCampo(*caja, QStringLiteral("Solicitudes General"), QStringLiteral("NoEscuela"));
    EXPECT_EQ(caja->maxLength(), sinLimite);
    Ejecuta(QStringLiteral("CREATE TABLE Notas (Texto MEMO, Clave TEXT(7))"));
    globales::Base().TableDefs().Refresh();
    controles::LimitaAlCampo(*caja, QStringLiteral("Notas"), QStringLiteral("Clave"));
    EXPECT_EQ(caja->maxLength(), 7);
    controles::LimitaAlCampo(*caja, QStringLiteral("Notas"), QStringLiteral("Texto"));
    EXPECT_EQ(caja->maxLength(), sinLimite);

    // Tab goes the way it is told, not the way the widgets were made.
    auto* a = new QLineEdit(&ventana);
    auto* b = new QLineEdit(&ventana);
    auto* c = new QPushButton(&ventana);
    controles::OrdenDeTabulacion({c, a, b});
    QList<QWidget*> visto;
    QWidget* w = c;
    for (int paso = 0; paso < 50 && visto.size() < 3; ++paso, w = w->nextInFocusChain())
        if ((w == a || w == b || w == c) && !visto.contains(w)) visto << w;
    EXPECT_EQ(visto, (QList<QWidget*>{c, a, b}));
}
