#include "core/controles/CampoEnlazado.h"

#include "core/Globales.h"
#include "core/dao/Dao.h"

#include <QLineEdit>
#include <QWidget>

namespace controles {

namespace {
// The limit of a box that takes any length.
constexpr int SinLimite = 32767;
}  // namespace

void LimitaAlCampo(QLineEdit& caja, const dao::Field& campo) {
    const bool texto = campo.Type() == dao::dbText && campo.Size() > 0;
    caja.setMaxLength(texto ? campo.Size() : SinLimite);
}

void LimitaAlCampo(QLineEdit& caja, const QString& tabla, const QString& columna) {
    dao::TableDef* definicion = globales::Base().TableDefs().busca(tabla);
    if (!definicion) return;
    if (const dao::Field* campo = definicion->Fields().busca(columna)) LimitaAlCampo(caja, *campo);
}

void OrdenDeTabulacion(std::initializer_list<QWidget*> controles) {
    QWidget* anterior = nullptr;
    for (QWidget* w : controles) {
        if (anterior) QWidget::setTabOrder(anterior, w);
        anterior = w;
    }
}

}  // namespace controles
