#include "finance/Registro.h"

#include "core/FormPrincipal.h"

namespace finanzas {

void RegistraComandos() {
}

}  // namespace finanzas
