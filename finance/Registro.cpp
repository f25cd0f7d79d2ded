#include "finance/Registro.h"

#include "core/FormPrincipal.h"
#include "finance/Proyectos.h"

namespace finanzas {

void RegistraComandos() {
    FormPrincipal::RegistraModal<Proyectos>(QStringLiteral("menuProyectos"));
}

}  // namespace finanzas
