#include "workflow/Registro.h"

#include "core/FormPrincipal.h"
#include "workflow/Don1.h"
#include "workflow/Ped1.h"
#include "workflow/Recep.h"
#include "workflow/Sol1.h"

namespace flujo {

void RegistraComandos() {
    FormPrincipal::RegistraModal<Sol1>(QStringLiteral("Solicitudes"));
    FormPrincipal::RegistraModal<Ped1>(QStringLiteral("Pedidos"));
    FormPrincipal::RegistraModal<Recep>(QStringLiteral("Recepcion"));
    FormPrincipal::RegistraModal<Don1>(QStringLiteral("DonacionCambio"));
    FormPrincipal::RegistraModal<Don1>(QStringLiteral("DonacionModal"));
}

}  // namespace flujo
