#pragma once
// Screens that open a screen of another subsystem do it by the screen's name: the subsystem that owns the
// screen registers how it is opened, so that a library built below it (the reports below the workflow) can
// open it without knowing its class.
#include "core/ui/Plataforma.h"

#include <QString>
#include <functional>

class QWidget;

namespace ui {

// Opens a screen over `padre`, modally, with what the globals hold at that moment.
using Apertura = std::function<void(QWidget* padre)>;

void RegistraApertura(const QString& pantalla, Apertura abre);
bool AperturaDisponible(const QString& pantalla);
// Opens the screen registered under that name; error 5 when no subsystem of this build registered it.
void AbrePantalla(const QString& pantalla, QWidget* padre);

// The usual opening: the screen over `padre`, loaded, shown modally.
template <class Pantalla>
void RegistraAperturaModal(const QString& pantalla) {
    RegistraApertura(pantalla, [](QWidget* padre) {
        Pantalla p(padre);
        p.Form_Load();
        Sistema().MuestraModal(p);
    });
}

}  // namespace ui
