#include "exchange/Registro.h"

#include "core/FormPrincipal.h"
#include "exchange/frmExportacion.h"
#include "exchange/frmImportar.h"

namespace intercambio {

void RegistraComandos() {
    FormPrincipal::RegistraModal<frmExportacion>(QStringLiteral("Exportacion"));
    FormPrincipal::RegistraModal<frmImportar>(QStringLiteral("Importacion"));
}

}  // namespace intercambio
