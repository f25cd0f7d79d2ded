#include "workflow/Registro.h"

#include "core/FormPrincipal.h"
#include "core/ui/Plataforma.h"
#include "workflow/Sol1.h"

namespace flujo {

void RegistraComandos() {
    FormPrincipal::RegistraPantalla(QStringLiteral("Solicitudes"), [](FormPrincipal& principal) {
        Sol1 pantalla(&principal);
        pantalla.Form_Load();
        ui::Sistema().MuestraModal(pantalla);
    });
}

}  // namespace flujo
