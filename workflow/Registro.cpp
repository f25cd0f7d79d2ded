#include "workflow/Registro.h"

#include "core/FormPrincipal.h"
#include "core/ui/Plataforma.h"
#include "workflow/Ped1.h"
#include "workflow/Recep.h"
#include "workflow/Sol1.h"

namespace flujo {

namespace {
// Opens a screen of the workflow modally over the main window.
template <class Pantalla>
void RegistraModal(const QString& comando) {
    FormPrincipal::RegistraPantalla(comando, [](FormPrincipal& principal) {
        Pantalla pantalla(&principal);
        pantalla.Form_Load();
        ui::Sistema().MuestraModal(pantalla);
    });
}
}  // namespace

void RegistraComandos() {
    RegistraModal<Sol1>(QStringLiteral("Solicitudes"));
    RegistraModal<Ped1>(QStringLiteral("Pedidos"));
    RegistraModal<Recep>(QStringLiteral("Recepcion"));
}

}  // namespace flujo
