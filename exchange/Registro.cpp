#include "exchange/Registro.h"

#include "core/ui/Aperturas.h"
#include "exchange/FrmImportaSolicitud.h"

namespace intercambio {

void RegistraComandos() {
    // Opened from the list of requests, which stands below this library.
    ui::RegistraAperturaModal<FrmImportaSolicitud>(QStringLiteral("FrmImportaSolicitud"));
}

}  // namespace intercambio
