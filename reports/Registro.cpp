#include "reports/Registro.h"

#include "core/FormPrincipal.h"
#include "reports/Busqueda.h"
#include "reports/Listado.h"
#include "reports/frmListadoEjemplares.h"

namespace reportes {

void RegistraComandos() {
    FormPrincipal::RegistraModal<Listado>(QStringLiteral("Listados"));
    FormPrincipal::RegistraModal<Busqueda>(QStringLiteral("Consultas"));
    FormPrincipal::RegistraModal<frmListadoEjemplares>(QStringLiteral("EjemAdq"));
}

}  // namespace reportes
