#include "core/ui/Aperturas.h"

#include "core/vb/Error.h"

#include <QHash>

namespace ui {

namespace {

QHash<QString, Apertura>& Registradas() {
    static QHash<QString, Apertura> aperturas;
    return aperturas;
}

}  // namespace

void RegistraApertura(const QString& pantalla, Apertura abre) { Registradas().insert(pantalla, std::move(abre)); }

bool AperturaDisponible(const QString& pantalla) { return Registradas().contains(pantalla); }

void AbrePantalla(const QString& pantalla, QWidget* padre) {
    const auto it = Registradas().constFind(pantalla);
    if (it == Registradas().constEnd())
        throw vb::Error(5, QStringLiteral("La pantalla ") + pantalla + QStringLiteral(" no está disponible"));
    // A copy: the opening may run for as long as the screen stays open.
    const Apertura abre = *it;
    abre(padre);
}

}  // namespace ui
