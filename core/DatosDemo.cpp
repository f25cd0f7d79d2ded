#include "core/DatosDemo.h"

#include "core/Credenciales.h"
#include "core/dao/Dao.h"
#include "core/vb/Fecha.h"
#include "core/vb/Formato.h"

namespace demo {

namespace {

QString Cita(const QString& t) {
    QString r = t;
    r.replace(u'\'', QStringLiteral("''"));
    return u'\'' + r + u'\'';
}

}  // namespace

void AgregaAnalista(dao::Database& db, const QString& login, const QString& clave, const QString& derechos,
                    const QString& modulos) {
    db.Execute(QStringLiteral("DELETE FROM Analistas WHERE Login=%1").arg(Cita(login)), dao::dbFailOnError);
    db.Execute(QStringLiteral("INSERT INTO Analistas (Login, [password], Nombre) VALUES (%1, %2, %3)")
                   .arg(Cita(login), Cita(credenciales::Registro(login, clave, derechos, modulos)), Cita(login)),
               dao::dbFailOnError);
}

void CargaDemo(dao::Database& db) {
    const QString hoy = vb::Format(vb::Variant(vb::Fecha::Today()), QStringLiteral("yyyy-mm-dd"));
    const QStringList sentencias = {
        "INSERT INTO Configuracion VALUES ('BIBLIOTECA', 'Biblioteca')",
        "INSERT INTO Configuracion VALUES ('INSTITUCION', 'Universidad Autónoma del Noreste')",
        "INSERT INTO Configuracion VALUES ('ALUMNO', 'Alumno')",
        "INSERT INTO Configuracion VALUES ('NODECUENTA', 'No. de cuenta')",
        "INSERT INTO Configuracion VALUES ('NUMADQUI', 'No. de adquisición')",
        "INSERT INTO Configuracion VALUES ('PROVEEDOR', 'Proveedor')",
        "INSERT INTO Configuracion VALUES ('ESCUELA', 'Escuela')",
        "INSERT INTO Configuracion VALUES ('FixSolDonNumAdqui', '83.26a=" + hoy + "')",

        "INSERT INTO Bibliotecas VALUES (1, 'Biblioteca Central', 'Central', 'Mtra. Laura Garza', '81 8329 4000', 'central@biblio.example')",
        "INSERT INTO Bibliotecas VALUES (2, 'Biblioteca de Ingeniería', 'Ingeniería', 'Ing. Jorge Treviño', '81 8329 4010', 'ingenieria@biblio.example')",
        "INSERT INTO Bibliotecas VALUES (3, 'Biblioteca de Humanidades', 'Humanidades', 'Dra. Elena Ríos', '81 8329 4020', 'humanidades@biblio.example')",
        "INSERT INTO Escuelas VALUES (1, 'Facultad de Ingeniería Mecánica', 'FIME', 'Ing. Raúl Salinas', 'fime@uni.example', 2)",
        "INSERT INTO Escuelas VALUES (2, 'Facultad de Filosofía y Letras', 'FFyL', 'Dra. Ana Martínez', 'ffyl@uni.example', 3)",
        "INSERT INTO Escuelas VALUES (3, 'Facultad de Medicina', 'Medicina', 'Dr. Luis Cantú', 'medicina@uni.example', 1)",
        "INSERT INTO Escuelas VALUES (4, 'Facultad de Ciencias Físico Matemáticas', 'FCFM', 'Dr. Óscar Leal', 'fcfm@uni.example', 1)",
        "INSERT INTO Editoriales VALUES (1, 'Alfaomega', 'Carlos Méndez')",
        "INSERT INTO Editoriales VALUES (2, 'Fondo de Cultura Económica', 'Patricia Sosa')",
        "INSERT INTO Editoriales VALUES (3, 'Siglo XXI Editores', 'Martín Ochoa')",
        "INSERT INTO Editoriales VALUES (4, 'Pearson Educación', 'Gabriela Núñez')",
        "INSERT INTO Instituciones VALUES (1, 'Fundación Cultural del Norte', 'Lic. Sofía Garza', 'Av. Constitución 400', 'Monterrey', '81 8340 1200', 'contacto@fundacion.example')",
        "INSERT INTO Instituciones VALUES (2, 'Embajada de España', 'Agregado cultural', 'Galileo 114', 'Ciudad de México', '55 5282 2271', 'cultura@embajada.example')",
        "INSERT INTO Proveedores VALUES (1, 'Librería Internacional, S.A.', 'Roberto Flores', 'Padre Mier 222 Ote.', 'Monterrey, N.L.', '81 8345 6789', 'ventas@libint.example', '0123456789')",
        "INSERT INTO Proveedores VALUES (2, 'Distribuidora de Libros del Centro', 'Mónica Ibarra', 'Juárez 85', 'Querétaro, Qro.', '442 212 3344', 'pedidos@dlc.example', '9876543210')",

        // Money at work: two sources, three school budgets, one request paid and one waiting. Every balance is
        // what the ledger below gives, as the screens would have left it.
        "INSERT INTO adqFinanciamiento (Nombre, MontoTotal, FechaCaptura, MontoAsignadoDisponible, UltimoMovimiento, MontoXAsignar, IdCapturista) "
        "VALUES ('Fondo institucional 2026', 250000, #2026/01/15#, 226727.85, #2026/09/10 12:30:00#, 70000, 'admin')",
        "INSERT INTO adqSaldoFinanciamientos VALUES (1, #01-15-2026#, 250000, 0, '+ADDFinan', 'admin')",
        "INSERT INTO adqFinanciamiento (Nombre, MontoTotal, FechaCaptura, MontoAsignadoDisponible, UltimoMovimiento, MontoXAsignar, IdCapturista) "
        "VALUES ('Programa federal de bibliotecas', 120000, #2026/03/01#, 120000, #2026/03/10#, 60000, 'admin')",
        "INSERT INTO adqSaldoFinanciamientos VALUES (2, #03-01-2026#, 120000, 0, '+ADDFinan', 'admin')",
        "INSERT INTO adqProyectos (Nombre, Responsable, IdEscuela, FuenteFinanciamiento, FechaAsignacion, FechaVigencia, "
        "TotalAsignado, UltimoMovimiento, MontoDisponible, Descripcion, FechaCaptura, IdCapturista, IdFinanciamiento) "
        "VALUES ('Acervo de ingeniería 2026', 'Ing. Raúl Salinas', 1, 'Fondo institucional 2026', #2026/02/01#, "
        "#2026/12/31#, 100000, #2026/09/10 12:30:00#, 85048.25, 'Bibliografía básica de los programas de ingeniería', "
        "#2026/02/01#, 'admin', 1)",
        "INSERT INTO adqSaldoProyectos VALUES (1, 1, #02-01-2026#, 100000, 0, '+ADDproy', 'admin')",
        "INSERT INTO adqProyectos (Nombre, Responsable, IdEscuela, FuenteFinanciamiento, FechaAsignacion, FechaVigencia, "
        "TotalAsignado, UltimoMovimiento, MontoDisponible, Descripcion, FechaCaptura, IdCapturista, IdFinanciamiento) "
        "VALUES ('Acervo de humanidades 2026', 'Dra. Ana Martínez', 2, 'Fondo institucional 2026', #2026/02/15#, "
        "#2026/12/31#, 80000, #2026/09/10 12:30:00#, 71679.6, 'Clásicos y crítica literaria', #2026/02/15#, 'admin', 1)",
        "INSERT INTO adqSaldoProyectos VALUES (2, 1, #02-15-2026#, 80000, 0, '+ADDproy', 'admin')",
        "INSERT INTO adqProyectos (Nombre, Responsable, IdEscuela, FuenteFinanciamiento, FechaAsignacion, FechaVigencia, "
        "TotalAsignado, UltimoMovimiento, MontoDisponible, Descripcion, FechaCaptura, IdCapturista, IdFinanciamiento) "
        "VALUES ('Biblioteca médica 2026', 'Dr. Luis Cantú', 3, 'Programa federal de bibliotecas', #2026/03/10#, "
        "#2026/12/31#, 60000, #2026/03/10#, 60000, 'Textos de anatomía, fisiología y farmacología', #2026/03/10#, 'admin', 2)",
        "INSERT INTO adqSaldoProyectos VALUES (3, 2, #03-10-2026#, 60000, 0, '+ADDproy', 'admin')",

        "INSERT INTO PagoFacturasGral (IdPagoFactura, FuenteFinanciamiento, IdProveedor, Monto, Concepto, Observaciones, "
        "FechaSolicitud, FechaPago, FechaMod, IdCapturista, IdCapMod, Estado, IdFinanciamiento) VALUES (1, "
        "'Fondo institucional 2026', 1, 23272.15, 'Bibliografía de ingeniería y humanidades', 'Pagado con cheque 4471', "
        "#2026/09/02#, #2026/09/10 12:30:00#, #2026/09/10 12:30:00#, 'admin', 'admin', 'P', 1)",
        "INSERT INTO PagoFacturasDetalle (IdPagoFactura, IdProyecto, NoFactura, MontoFactura, FechaCaptura, IdCapturista, "
        "IdSolicitud, IdEscuela) VALUES (1, 1, 'A-1187', 12450.75, #2026/09/02#, 'admin', NULL, 1)",
        "INSERT INTO PagoFacturasDetalle (IdPagoFactura, IdProyecto, NoFactura, MontoFactura, FechaCaptura, IdCapturista, "
        "IdSolicitud, IdEscuela) VALUES (1, 1, 'A-1203', 2501, #2026/09/02#, 'admin', 1, 1)",
        "INSERT INTO PagoFacturasDetalle (IdPagoFactura, IdProyecto, NoFactura, MontoFactura, FechaCaptura, IdCapturista, "
        "IdSolicitud, IdEscuela) VALUES (1, 2, 'B-0442', 8320.4, #2026/09/02#, 'admin', 2, 2)",
        "INSERT INTO adqSaldoProyectos VALUES (1, 1, #2026/09/10 12:30#, -14951.75, 0, '-CARG 0001', 'admin')",
        "INSERT INTO adqSaldoProyectos VALUES (2, 1, #2026/09/10 12:30#, -8320.4, 0, '-CARG 0001', 'admin')",
        "INSERT INTO adqSaldoFinanciamientos VALUES (1, #2026/09/10 12:30#, -23272.15, 0, '-SALDpag', 'admin')",

        "INSERT INTO PagoFacturasGral (IdPagoFactura, FuenteFinanciamiento, IdProveedor, Monto, Concepto, Observaciones, "
        "FechaSolicitud, FechaPago, FechaMod, IdCapturista, IdCapMod, Estado, IdFinanciamiento) VALUES (2, "
        "'Programa federal de bibliotecas', 2, 5655.5, 'Libros de anatomía y fisiología', NULL, #2026/11/05#, NULL, "
        "#2026/11/05#, 'admin', NULL, 'S', 2)",
        "INSERT INTO PagoFacturasDetalle (IdPagoFactura, IdProyecto, NoFactura, MontoFactura, FechaCaptura, IdCapturista, "
        "IdSolicitud, IdEscuela) VALUES (2, 3, 'C-7781', 4380, #2026/11/05#, 'admin', 3, 3)",
        "INSERT INTO PagoFacturasDetalle (IdPagoFactura, IdProyecto, NoFactura, MontoFactura, FechaCaptura, IdCapturista, "
        "IdSolicitud, IdEscuela) VALUES (2, 3, 'C-7795', 1275.5, #2026/11/05#, 'admin', NULL, 3)",

        "INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado, "
        "FechaCaptura, IdCapturista, TipoMaterial, IdFinanciamiento) VALUES (1, #2026/10/05#, 'Ing. Raúl Salinas', "
        "1, 2, 'S', #2026/10/05 10:20:00#, 'admin', 1, 1)",
        "INSERT INTO [Solicitudes Libros] (Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, Estado, "
        "NoSolicitud, IdCapturista) VALUES ('Mecánica de materiales', 'Gere, James M.', 3, 4, 8, 'S', 1, 'admin')",
        "INSERT INTO [Solicitudes Libros] (Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, Estado, "
        "NoSolicitud, IdCapturista) VALUES ('Termodinámica', 'Cengel, Yunus A.', 2, 1, 7, 'S', 1, 'admin')",
        "INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado, "
        "FechaPedido, FechaCaptura, IdCapturista, TipoMaterial, IdFinanciamiento) VALUES (2, #2026/09/14#, "
        "'Dra. Ana Martínez', 2, 3, 'P', #2026/09/20 09:00:00#, #2026/09/14 12:05:00#, 'admin', 1, 0)",
        "INSERT INTO [Solicitudes Libros] (Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, Estado, "
        "NoSolicitud, IdCapturista) VALUES ('El laberinto de la soledad', 'Paz, Octavio', 2, 2, 3, 'P', 2, 'admin')",
        "INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado, "
        "FechaPedido, FechaRecepcion, FechaCaptura, IdCapturista, TipoMaterial, IdFinanciamiento) VALUES (3, "
        "#2026/08/03#, 'Dr. Luis Cantú', 3, 1, 'R', #2026/08/10 11:30:00#, #2026/09/01 16:45:00#, "
        "#2026/08/03 08:15:00#, 'admin', 1, 0)",
        "INSERT INTO [Solicitudes Libros] (Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, "
        "[Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud, IdCapturista, "
        "Ejemp_Recibidos, ISBN) VALUES ('Anatomía humana', 'Latarjet, Michel', 2, 4, 5, #2026/09/01#, 2, 1250.5, "
        "'F-20931', 'A', 3, 'admin', 2, '9786077743699')",
        "INSERT INTO [Adquisiciones Numadqui] VALUES ('000312', 4, 'S', 'admin', #2026/09/01 16:40:00#, NULL)",
        "INSERT INTO [Adquisiciones Numadqui] VALUES ('000313', 4, 'S', 'admin', #2026/09/01 16:41:00#, NULL)",

        "INSERT INTO [Donaciones General] VALUES (1, #2026/07/12#, 1, 3, 'D')",
        "INSERT INTO [Donaciones Libros] (Titulo, Autor, Ejemplares, NoEditorial, Edicion, NoDonacion, IdCapturista, "
        "Costo, FechaCaptura) VALUES ('Pedro Páramo', 'Rulfo, Juan', 1, 2, 1, 1, 'admin', 180, #2026/07/12 13:00:00#)",
        "INSERT INTO [Adquisiciones Numadqui] VALUES ('000314', 1, 'D', 'admin', #2026/07/12 13:10:00#, NULL)",
        // An exchange with another institution: two titles, three copies.
        "INSERT INTO [Donaciones General] VALUES (2, #2026/10/20#, 2, 3, 'I')",
        "INSERT INTO [Donaciones Libros] (Titulo, Autor, Ejemplares, NoEditorial, Edicion, NoDonacion, IdCapturista, "
        "Costo, FechaCaptura) VALUES ('Don Quijote de la Mancha', 'Cervantes Saavedra, Miguel de', 2, 2, 4, 2, 'admin', 450, "
        "#2026/10/20 10:30:00#)",
        "INSERT INTO [Donaciones Libros] (Titulo, Autor, Ejemplares, NoEditorial, Edicion, NoDonacion, IdCapturista, "
        "Costo, FechaCaptura) VALUES ('Cien años de soledad', 'García Márquez, Gabriel', 1, 3, 2, 2, 'admin', 320.5, "
        "#2026/10/20 10:40:00#)",
        "INSERT INTO [Adquisiciones Numadqui] VALUES ('000315', 2, 'D', 'admin', #2026/10/20 10:35:00#, NULL)",
        "INSERT INTO [Adquisiciones Numadqui] VALUES ('000316', 2, 'D', 'admin', #2026/10/20 10:35:00#, NULL)",
        "INSERT INTO [Adquisiciones Numadqui] VALUES ('000317', 3, 'D', 'admin', #2026/10/20 10:45:00#, NULL)",
    };
    for (const auto& s : sentencias) db.Execute(s, dao::dbFailOnError);
    AgregaAnalista(db, QStringLiteral("admin"), QStringLiteral("admin"), QStringLiteral("011"), QStringLiteral("1"));
    AgregaAnalista(db, QStringLiteral("visita"), QStringLiteral("visita"), QStringLiteral("001"), QStringLiteral("1"));
}

}  // namespace demo
