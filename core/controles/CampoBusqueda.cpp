#include "core/controles/CampoBusqueda.h"

#include "core/ui/Plataforma.h"
#include "core/vb/Cadenas.h"
#include "core/vb/Conversion.h"
#include "core/vb/Variant.h"

#include <QComboBox>
#include <QLineEdit>

namespace controles {

double NumeroDeElemento(const QString& texto) { return vb::Val(vb::Mid(texto, 1, 4)); }

bool SeleccionaPorNumero(QComboBox& combo, double valor) {
    for (int i = 0; i < combo.count(); ++i) {
        if (NumeroDeElemento(combo.itemText(i)) == valor) {
            combo.setCurrentIndex(i);
            return true;
        }
    }
    return false;
}

CampoBusqueda::CampoBusqueda(QLineEdit* campo, QComboBox* combo, QObject* padre)
    : QObject(padre ? padre : campo), campo_(campo), combo_(combo) {
    connect(combo, &QComboBox::currentIndexChanged, this, [this](int i) {
        if (i >= 0) ui::Protegido(QStringLiteral("CampoBusqueda"), [this] { Combo_Click(); });
    });
    // Choosing the item already chosen changes no index, yet puts its number back in an emptied field.
    connect(combo, &QComboBox::activated, this, [this](int i) {
        if (i >= 0) ui::Protegido(QStringLiteral("CampoBusqueda"), [this] { Combo_Click(); });
    });
    connect(campo, &QLineEdit::textChanged, this,
            [this] { ui::Protegido(QStringLiteral("CampoBusqueda"), [this] { Campo_Change(); }); });
}

void CampoBusqueda::Combo_Click() {
    if (!campo_ || !combo_ || combo_->currentIndex() < 0) return;
    campo_->setText(vb::Variant(NumeroDeElemento(combo_->currentText())).toString());
}

void CampoBusqueda::Campo_Change() {
    if (!campo_ || !combo_) return;
    if (SeleccionaPorNumero(*combo_, vb::Val(campo_->text()))) return;
    if (SinCoincidencia) {
        SinCoincidencia();
        return;
    }
    ui::Sistema().Beep();
    campo_->clear();
}

}  // namespace controles
