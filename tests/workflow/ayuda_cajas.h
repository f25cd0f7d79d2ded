#pragma once
// A box as "title|flags|text", the one shown or the one expected, to compare all three at once.
#include "core/ui/PlataformaPrueba.h"

inline QString Caja(const QString& titulo, int flags, const QString& texto) {
    return titulo + u'|' + QString::number(flags) + u'|' + texto;
}
inline QString Caja(const ui::CajaMensaje& c) { return Caja(c.titulo, c.flags, c.texto); }
