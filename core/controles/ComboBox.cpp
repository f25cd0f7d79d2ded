#include "core/controles/ComboBox.h"

#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Error.h"

#include <QChildEvent>
#include <QEvent>
#include <QLineEdit>
#include <QSignalBlocker>


namespace controles {

namespace {
[[noreturn]] void IndiceNoValido() { throw vb::Error(381, QStringLiteral("Índice de matriz de propiedades no válido")); }
}  // namespace

ComboBox::ComboBox(QWidget* padre) : QComboBox(padre) {
    setInsertPolicy(QComboBox::NoInsert);
    connect(this, &QComboBox::currentIndexChanged, this, [this](int i) {
        if (i >= 0) emit Click();
    });
    connect(this, &QComboBox::editTextChanged, this, [this] { emit Change(); });
    // A choice of another item has fired Click through the change of index just before; the item already
    // chosen, chosen again, fires it here.
    connect(this, &QComboBox::activated, this, [this](int i) {
        const bool mismo = i >= 0 && i == antesDeElegir_;
        antesDeElegir_ = -2;
        if (mismo) emit Click();
    });
}

void ComboBox::showPopup() {
    antesDeElegir_ = currentIndex();
    QComboBox::showPopup();
}

bool ComboBox::event(QEvent* e) {
    switch (e->type()) {
    case QEvent::KeyPress:
    case QEvent::Wheel:
    case QEvent::MouseButtonPress:
        antesDeElegir_ = currentIndex();
        break;
    default:
        break;
    }
    return QComboBox::event(e);
}

// The text box of an editable combo takes the keys first (Enter on an item's text chooses it).
void ComboBox::childEvent(QChildEvent* e) {
    if (e->added() && e->child()->isWidgetType()) e->child()->installEventFilter(this);
    QComboBox::childEvent(e);
}

bool ComboBox::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) antesDeElegir_ = currentIndex();
    return QComboBox::eventFilter(objeto, evento);
}

void ComboBox::AddItem(const QString& texto, int indice) {
    // Adding chooses nothing and fires no event: a combo that had no choice keeps none.
    const QSignalBlocker bloqueo(this);
    const int antes = currentIndex();
    const QString escrito = isEditable() ? currentText() : QString();
    if (indice < 0 || indice >= count()) {
        addItem(texto);
        nuevo_ = count() - 1;
    } else {
        insertItem(indice, texto);
        nuevo_ = indice;
    }
    if (antes < 0 && currentIndex() >= 0) {
        setCurrentIndex(-1);
        if (isEditable()) setEditText(escrito);
    }
}

void ComboBox::RemoveItem(int indice) {
    if (indice < 0 || indice >= count()) IndiceNoValido();
    const QSignalBlocker bloqueo(this);
    const bool eraElegido = indice == currentIndex();
    removeItem(indice);
    if (eraElegido) setCurrentIndex(-1);
}

void ComboBox::Clear() {
    const QSignalBlocker bloqueo(this);
    clear();
}

void ComboBox::setListIndex(int indice) {
    if (indice < -1 || indice >= count()) throw vb::Error(380, QStringLiteral("Valor de propiedad no válido"));
    setCurrentIndex(indice);
}

qint32 ComboBox::ItemData(int indice) const {
    if (indice < 0 || indice >= count()) IndiceNoValido();
    return ItemDataDe(*this, indice);
}

void ComboBox::setItemData(int indice, qint32 valor) {
    if (indice < 0 || indice >= count()) IndiceNoValido();
    PonItemData(*this, indice, valor);
}

QString ComboBox::List(int indice) const {
    if (indice < 0 || indice >= count()) return QString();
    return itemText(indice);
}

void ComboBox::setText(const QString& texto) {
    if (isEditable()) {
        setEditText(texto);
        return;
    }
    const int i = findText(texto, Qt::MatchFixedString);
    if (i < 0) throw vb::Error(383, QStringLiteral("La propiedad 'Text' es de sólo lectura"));
    setCurrentIndex(i);
}

double NumeroDeItem(const QString& item) { return vb::Val(vb::Mid(item, 1, 4)); }

bool EligePorNumero(ComboBox& combo, const QString& valorDelCampo) {
    const double valor = vb::Val(valorDelCampo);
    for (int i = 0; i < combo.ListCount(); ++i) {
        if (NumeroDeItem(combo.List(i)) == valor) {
            if (combo.ListIndex() != i) combo.setListIndex(i);
            return true;
        }
    }
    return false;
}

void PonNumeroDelItem(const ComboBox& combo, QLineEdit& campo) {
    if (combo.ListIndex() < 0) return;
    campo.setText(vb::CStr(vb::Variant(NumeroDeItem(combo.Text()))));
}

qint32 ItemDataDe(const QComboBox& combo, int indice) {
    const QVariant v = combo.itemData(indice, Qt::UserRole);
    return v.isValid() ? v.toInt() : 0;
}

void PonItemData(QComboBox& combo, int indice, qint32 valor) { combo.setItemData(indice, valor, Qt::UserRole); }

}  // namespace controles
