#include "exchange/Registro.h"

#include "core/FormPrincipal.h"
#include "core/ui/Aperturas.h"
#include "exchange/FrmImportaSolicitud.h"
#include "exchange/frmExportacion.h"
#include "exchange/frmImportar.h"

namespace intercambio {

void RegistraComandos() {
    FormPrincipal::RegistraModal<frmExportacion>(QStringLiteral("Exportacion"));
    FormPrincipal::RegistraModal<frmImportar>(QStringLiteral("Importacion"));
    // Opened from the list of requests, which stands below this library.
    ui::RegistraAperturaModal<FrmImportaSolicitud>(QStringLiteral("FrmImportaSolicitud"));
}

}  // namespace intercambio
