#include "reports/Registro.h"

#include "core/FormPrincipal.h"
#include "core/ui/Plataforma.h"
#include "reports/Listado.h"

namespace reportes {

void RegistraComandos() {
    FormPrincipal::RegistraPantalla(QStringLiteral("Listados"), [](FormPrincipal& principal) {
        Listado pantalla(&principal);
        pantalla.Form_Load();
        ui::Sistema().MuestraModal(pantalla);
    });
}

}  // namespace reportes
