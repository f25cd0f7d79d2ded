#include "reports/Registro.h"

#include "core/FormPrincipal.h"
#include "reports/Listado.h"

namespace reportes {

void RegistraComandos() {
    FormPrincipal::RegistraModal<Listado>(QStringLiteral("Listados"));
}

}  // namespace reportes
