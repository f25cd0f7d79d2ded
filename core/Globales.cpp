#include "core/Globales.h"

#include "core/dao/Dao.h"

namespace globales {

std::unique_ptr<dao::Database> BaseDatos;

dao::Database& Base() {
    if (!BaseDatos) throw vb::Error(91, QStringLiteral("Variable de objeto o bloque With no establecido"));
    return *BaseDatos;
}

QString LoginAnalista;
std::array<int, 3> Derechos = {0, 0, 0};
bool EnRedInstitucional = false;
bool AvisoRedMostrado = false;
QString NombreBiblioteca = QStringLiteral("Biblioteca");
QString NombreInstitucion = QStringLiteral("Institución");
QString EtiquetaAlumno = QStringLiteral("Alumno");
QString EtiquetaNodeCuenta = QStringLiteral("NodeCuenta");
QString EtiquetaNumAdqui = QStringLiteral("NumAdqui");
QString EtiquetaProveedor = QStringLiteral("Proveedor");
QString EtiquetaEscuela = QStringLiteral("Escuela");
bool FixSolDonNumAdqui = false;

ConsultaDatos Consulta;
AltaDatos Alta;
vb::Fecha FechaInicial;
vb::Fecha FechaFinal;

QString NavTabla, NavCampo;
vb::Variant NavValor;
int NavModo = 0;
QString TitTabla, TitCampo;
vb::Variant TitValor;
int TitModo = 0;
QString ModoCaptura;
bool HuboCambiosNumAdq = false;
bool DesdeListadoEjemplares = false;
long IdPagoActual = 0;
long IdFinanciamientoPago = 0;
vb::Currency MontoPago;
vb::Fecha FechaPagoActual;
QString ObservacionesPago, FuentePago, ConceptoPago;
bool PagoModifica = false, PagoGrabado = false, PagoSaldado = false, PagoDesdeReporte = false;
bool ReporteGastosPorEscuela = false;
QString NoCuentaSeleccionada;
bool CatRegistroAgregado = false, CatRegistroModificado = false, EsCatalogoUsuarios = false;

}  // namespace globales
