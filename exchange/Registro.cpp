#include "exchange/Registro.h"

#include "core/FormPrincipal.h"
#include "exchange/FrmImportaSolicitud.h"

namespace intercambio {

void RegistraComandos() { FormPrincipal::RegistraModal<FrmImportaSolicitud>(QStringLiteral("FrmImportaSolicitud")); }

}  // namespace intercambio
