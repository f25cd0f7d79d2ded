#include "finance/Registro.h"

#include "core/FormPrincipal.h"
#include "core/Globales.h"
#include "core/ui/Plataforma.h"
#include "finance/Proyectos.h"
#include "finance/frmFuentesFin.h"
#include "finance/pagoFacturasMain.h"
#include "finance/frmReporteGastosFuente.h"

namespace finanzas {

namespace {
// One screen serves both expense reports; the flag tells it which before it loads.
FormPrincipal::Apertura ReporteDeGastos(bool porEscuela) {
    return [porEscuela](FormPrincipal& principal) {
        globales::ReporteGastosPorEscuela = porEscuela;
        frmReporteGastosFuente pantalla(&principal);
        pantalla.Form_Load();
        ui::Sistema().MuestraModal(pantalla);
    };
}
}  // namespace

void RegistraComandos() {
    FormPrincipal::RegistraModal<frmFuentesFin>(QStringLiteral("menuFinanciamiento"));
    FormPrincipal::RegistraModal<Proyectos>(QStringLiteral("menuProyectos"));
    FormPrincipal::RegistraModal<pagoFacturasMain>(QStringLiteral("menuPagoFacturas"));
    FormPrincipal::RegistraPantalla(QStringLiteral("menuReporteGastosFuente"), ReporteDeGastos(false));
    FormPrincipal::RegistraPantalla(QStringLiteral("menuReporteGastosEscuela"), ReporteDeGastos(true));
}

}  // namespace finanzas
