#pragma once
// The program's globals, grouped by purpose. Screens pass parameters to each other through them, and
// nothing clears them between uses: a value a screen forgets to set keeps what the last screen left.
#include "core/vb/Fecha.h"
#include "core/vb/Variant.h"

#include <QString>
#include <array>
#include <memory>

namespace dao { class Database; }

namespace globales {

// The open database, opened once at start-up and never closed by hand.
extern std::unique_ptr<dao::Database> BaseDatos;
dao::Database& Base();     // the open database; error 91 if none is open

// The session.
extern QString LoginAnalista;                 // empty if nobody logged in
extern std::array<int, 3> Derechos;           // Derechos(2) <> 0 administrator; Derechos(1) = 0 visitor
extern bool EnRedInstitucional;
extern bool AvisoRedMostrado;                 // the database-on-a-share box, once a run
extern QString NombreBiblioteca;              // "Biblioteca"
extern QString NombreInstitucion;             // "Institución"
extern QString EtiquetaAlumno;                // "Alumno"
extern QString EtiquetaNodeCuenta;            // "NodeCuenta"
extern QString EtiquetaNumAdqui;              // "NumAdqui"
extern QString EtiquetaProveedor;             // "Proveedor"
extern QString EtiquetaEscuela;               // "Escuela"
extern bool FixSolDonNumAdqui;

// The records the data routines read (Datos).
struct ConsultaDatos {
    QString Campos, Tabla, Clave, Valor, Orden;
};
struct AltaDatos {
    QString Campos, Valores, Tabla;
};
extern ConsultaDatos Consulta;
extern AltaDatos Alta;
extern vb::Fecha FechaInicial;
extern vb::Fecha FechaFinal;

// A request or donation in hand.
extern QString NavTabla, NavCampo;
extern vb::Variant NavValor;
extern int NavModo;
// A title in hand.
extern QString TitTabla, TitCampo;
extern vb::Variant TitValor;
extern int TitModo;
// Reception and copies.
extern QString ModoCaptura;   // "NUEVO" or "MODIFICAR"
extern bool HuboCambiosNumAdq;
extern bool DesdeListadoEjemplares;
// The payment in hand.
extern long IdPagoActual;
extern long IdFinanciamientoPago;
extern vb::Currency MontoPago;
extern vb::Fecha FechaPagoActual;
extern QString ObservacionesPago, FuentePago, ConceptoPago;
extern bool PagoModifica, PagoGrabado, PagoSaldado, PagoDesdeReporte;
// Expense reports.
extern bool ReporteGastosPorEscuela;
// Catalogs.
extern QString NoCuentaSeleccionada;
extern bool CatRegistroAgregado, CatRegistroModificado, EsCatalogoUsuarios;

}  // namespace globales
