#include "finance/Registro.h"

#include "core/FormPrincipal.h"
#include "finance/Proyectos.h"
#include "finance/frmFuentesFin.h"
#include "finance/pagoFacturasMain.h"

namespace finanzas {

void RegistraComandos() {
    FormPrincipal::RegistraModal<frmFuentesFin>(QStringLiteral("menuFinanciamiento"));
    FormPrincipal::RegistraModal<Proyectos>(QStringLiteral("menuProyectos"));
    FormPrincipal::RegistraModal<pagoFacturasMain>(QStringLiteral("menuPagoFacturas"));
}

}  // namespace finanzas
