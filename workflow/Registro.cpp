#include "workflow/Registro.h"

#include "core/FormPrincipal.h"
#include "core/ui/Aperturas.h"
#include "workflow/Don1.h"
#include "workflow/Don_Libros.h"
#include "workflow/Ped1.h"
#include "workflow/Recep.h"
#include "workflow/Recep_Generales.h"
#include "workflow/Recep_Libros.h"
#include "workflow/Sol1.h"

namespace flujo {

void RegistraComandos() {
    FormPrincipal::RegistraModal<Sol1>(QStringLiteral("Solicitudes"));
    FormPrincipal::RegistraModal<Ped1>(QStringLiteral("Pedidos"));
    FormPrincipal::RegistraModal<Recep>(QStringLiteral("Recepcion"));
    FormPrincipal::RegistraModal<Don1>(QStringLiteral("DonacionCambio"));
    FormPrincipal::RegistraModal<Don1>(QStringLiteral("DonacionModal"));

    // What the report screens open of a copy: its title, its request or donation. Opened so, the screens
    // have no list of their own beneath them to refresh.
    ui::RegistraAperturaModal<Recep_Libros>(QStringLiteral("Recep_Libros"));
    ui::RegistraAperturaModal<Don_Libros>(QStringLiteral("Don_Libros"));
    ui::RegistraAperturaModal<Recep_Generales>(QStringLiteral("Recep_Generales"));
    ui::RegistraApertura(QStringLiteral("Don_Generales"), [](QWidget* padre) { Don1::MuestraGenerales(nullptr, padre); });
}

}  // namespace flujo
