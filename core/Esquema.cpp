#include "core/Esquema.h"

#include "core/dao/Dao.h"

namespace esquema {

const QStringList& SentenciasCreacion() {
    static const QStringList sentencias = {
        // The suite's settings and users.
        "CREATE TABLE Configuracion ([Descripción] TEXT(50) CONSTRAINT PrimaryKey PRIMARY KEY, Valor TEXT(255))",
        "CREATE TABLE Analistas (Login TEXT(10) CONSTRAINT PrimaryKey PRIMARY KEY, [password] TEXT(255), "
        "Nombre TEXT(100))",
        // Master catalogs.
        "CREATE TABLE Bibliotecas ([No] SHORT CONSTRAINT PrimaryKey PRIMARY KEY, Nombre TEXT(100), "
        "[Nombre corto] TEXT(30), Director TEXT(100), Telefono TEXT(30), Email TEXT(60))",
        "CREATE TABLE Escuelas ([No] SHORT CONSTRAINT PrimaryKey PRIMARY KEY, Nombre TEXT(100), "
        "[Nombre corto] TEXT(30), Responsable TEXT(100), [E-mail] TEXT(60), NoBiblioteca SHORT)",
        "CREATE TABLE Editoriales ([No] SHORT CONSTRAINT PrimaryKey PRIMARY KEY, Nombre TEXT(100), "
        "Representante TEXT(100))",
        "CREATE TABLE Instituciones ([No] SHORT CONSTRAINT PrimaryKey PRIMARY KEY, Nombre TEXT(100), "
        "Representante TEXT(100), Direccion TEXT(150), Ciudad TEXT(60), [Telefono/Fax] TEXT(30), [E-mail] TEXT(60))",
        "CREATE TABLE Proveedores ([No] SHORT CONSTRAINT PrimaryKey PRIMARY KEY, Empresa TEXT(100), "
        "Representante TEXT(100), Domicilio TEXT(150), [Ciudad/Estado] TEXT(60), [Télefono/Fax] TEXT(30), "
        "[E-mail] TEXT(60), [Número de cuenta] TEXT(30))",
        // Circulation: only counted by account number here.
        "CREATE TABLE Prestamos (NoCuenta TEXT(20), NoAdquisicion TEXT(20), FechaPrestamo DATETIME, "
        "FechaDevolucion DATETIME)",
        "CREATE TABLE [Prestamos Internos] (NoCuenta TEXT(20), NoAdquisicion TEXT(20), FechaPrestamo DATETIME, "
        "FechaDevolucion DATETIME)",
        // Requests, titles, accession numbers, donations.
        "CREATE TABLE [Solicitudes General] (NoSolicitud LONG CONSTRAINT PrimaryKey PRIMARY KEY, Fecha DATETIME, "
        "Solicitante TEXT(100), NoEscuela SHORT, NoBiblioteca SHORT, Estado TEXT(1) DEFAULT \"S\", "
        "FechaPedido DATETIME, FechaRecepcion DATETIME, FechaCaptura DATETIME, FechaEnvio DATETIME, "
        "IdCapturista TEXT(10), TipoMaterial SHORT, IdFinanciamiento SHORT)",
        "CREATE TABLE [Solicitudes Libros] (ClaveLibro COUNTER CONSTRAINT PrimaryKey PRIMARY KEY, Titulo TEXT(100), "
        "Autor TEXT(100), [Ejemplares pedidos] SHORT, NoEditorial SHORT, Edicion SHORT, [Fecha de Recepcion] DATETIME, "
        "[Ejemplares recibidos] SHORT, Costo CURRENCY, Factura TEXT(50), Estado TEXT(1), NoSolicitud SHORT, "
        "IdCapturista TEXT(10), Ejemp_Recibidos SHORT, ISBN TEXT(20))",
        "CREATE INDEX NoSolicitud ON [Solicitudes Libros] (NoSolicitud)",
        "CREATE TABLE [Adquisiciones Numadqui] (NoAdquisicion TEXT(20), ClaveLibro LONG, "
        "[Solicitud o donacion] TEXT(1), IdCapturista TEXT(10), FechaIngreso DATETIME, MatComplementario TEXT(15))",
        "CREATE INDEX NoAdquisicion ON [Adquisiciones Numadqui] (NoAdquisicion)",
        "CREATE INDEX ClaveLibro ON [Adquisiciones Numadqui] (ClaveLibro)",
        "CREATE TABLE [Donaciones General] (NoDonacion LONG CONSTRAINT PrimaryKey PRIMARY KEY, Fecha DATETIME, "
        "NoInstitucion SHORT, NoBiblioteca SHORT, [Donacion o Intercambio] TEXT(1))",
        "CREATE TABLE [Donaciones Libros] (ClaveLibro COUNTER CONSTRAINT PrimaryKey PRIMARY KEY, Titulo TEXT(100), "
        "Autor TEXT(100), Ejemplares SHORT, NoEditorial SHORT, Edicion SHORT, NoDonacion LONG, IdCapturista TEXT(10), "
        "Costo CURRENCY, FechaCaptura DATETIME)",
        "CREATE INDEX NoDonacion ON [Donaciones Libros] (NoDonacion)",
        // Money: sources, projects, their ledgers, payment requests and invoices.
        "CREATE TABLE adqFinanciamiento (IdFinanciamiento COUNTER CONSTRAINT PrimaryKey PRIMARY KEY, "
        "Nombre TEXT(100), MontoTotal CURRENCY DEFAULT 0, FechaCaptura DATETIME, "
        "MontoAsignadoDisponible CURRENCY DEFAULT 0, UltimoMovimiento DATETIME, MontoXAsignar CURRENCY DEFAULT 0, "
        "IdCapturista TEXT(10))",
        "CREATE TABLE adqProyectos (IdProyecto COUNTER CONSTRAINT PrimaryKey PRIMARY KEY, Nombre TEXT(100), "
        "Responsable TEXT(100), IdEscuela SHORT, FuenteFinanciamiento TEXT(100), FechaAsignacion DATETIME, "
        "FechaVigencia DATETIME, TotalAsignado CURRENCY, UltimoMovimiento DATETIME, "
        "MontoDisponible CURRENCY, Descripcion MEMO, FechaCaptura DATETIME, IdCapturista TEXT(10), "
        "IdFinanciamiento SHORT NOT NULL)",
        "CREATE TABLE adqSaldoFinanciamientos (IdFinanciamiento LONG NOT NULL, UltimoMovimiento DATETIME, "
        "Monto CURRENCY DEFAULT 0, Saldo CURRENCY DEFAULT 0, Operacion TEXT(10), IdCapturista TEXT(10))",
        "CREATE TABLE adqSaldoProyectos (IdEscuela LONG NOT NULL, IdFinanciamiento LONG NOT NULL, "
        "UltimoMovimiento DATETIME, Monto CURRENCY DEFAULT 0, Saldo CURRENCY DEFAULT 0, Operacion TEXT(10), "
        "IdCapturista TEXT(10))",
        "CREATE TABLE PagoFacturasGral (IdPagoFactura COUNTER CONSTRAINT PK_IdPagoFactura PRIMARY KEY, "
        "FuenteFinanciamiento TEXT(40), IdProveedor LONG, Monto CURRENCY, Concepto TEXT(100), Observaciones MEMO, "
        "FechaSolicitud DATETIME, FechaPago DATETIME, FechaMod DATETIME, IdCapturista TEXT(10), IdCapMod TEXT(10), "
        "Estado TEXT(1), IdFinanciamiento LONG)",
        "CREATE TABLE PagoFacturasDetalle (IdFacturaItem COUNTER CONSTRAINT PK_IdFacturaItem PRIMARY KEY, "
        "IdPagoFactura LONG, IdProyecto LONG, NoFactura TEXT(20), MontoFactura CURRENCY, Observaciones MEMO, "
        "FechaCaptura DATETIME, FechaMod DATETIME, IdCapturista TEXT(10), IdCapMod TEXT(10), IdSolicitud LONG, "
        "IdEscuela LONG)",
        "CREATE TABLE adqMaterialComplementario (IdMatComp COUNTER CONSTRAINT PK_IdMatComp PRIMARY KEY, "
        "ClaveLibro LONG NOT NULL, FechaCaptura DATETIME NOT NULL, Titulo TEXT(255) NOT NULL, Observaciones MEMO, "
        "IdCapturista TEXT(10) NOT NULL, TipoMatComp LONG NOT NULL)",
    };
    return sentencias;
}

void CreaTablas(dao::Database& db) {
    for (const auto& s : SentenciasCreacion()) db.Execute(s, dao::dbFailOnError);
    CreaIndicesDeConsulta(db);
}

void CreaIndicesDeConsulta(dao::Database& db) {
    db.AseguraIndiceDeConsulta(QStringLiteral("saldo_proyectos"), QStringLiteral("adqSaldoProyectos"),
                               {QStringLiteral("IdEscuela"), QStringLiteral("IdFinanciamiento")});
    db.AseguraIndiceDeConsulta(QStringLiteral("saldo_financiamientos"), QStringLiteral("adqSaldoFinanciamientos"),
                               {QStringLiteral("IdFinanciamiento")});
    db.AseguraIndiceDeConsulta(QStringLiteral("proyectos_fuente"), QStringLiteral("adqProyectos"),
                               {QStringLiteral("IdFinanciamiento"), QStringLiteral("IdEscuela")});
    db.AseguraIndiceDeConsulta(QStringLiteral("facturas_pago"), QStringLiteral("PagoFacturasDetalle"),
                               {QStringLiteral("IdPagoFactura")});
}

}  // namespace esquema
