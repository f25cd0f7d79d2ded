=== carga inicial Bibliotecas 1
expect: affected 1
INSERT INTO Bibliotecas ([No], Nombre, [Nombre corto], Director, Telefono, Email) VALUES (1, 'Biblioteca Central', 'Central', 'Ana Ruiz', '555-0101', 'central@tarvena.mx')

=== carga inicial Bibliotecas 2
expect: affected 1
INSERT INTO Bibliotecas ([No], Nombre, [Nombre corto], Director, Telefono, Email) VALUES (2, 'Biblioteca de Ingeniería', 'Ingeniería', 'Jorge Lara', '555-0102', 'ing@tarvena.mx')

=== carga inicial Bibliotecas 3
expect: affected 1
INSERT INTO Bibliotecas ([No], Nombre, [Nombre corto], Director, Telefono, Email) VALUES (3, 'Biblioteca Norte', 'Norte', 'Elena Mora', NULL, NULL)

=== carga inicial Escuelas 1
expect: affected 1
INSERT INTO Escuelas ([No], Nombre, [Nombre corto], Responsable, [E-mail], NoBiblioteca) VALUES (1, 'Escuela de Artes', 'Artes', 'Marta Ibarra', 'artes@tarvena.mx', 1)

=== carga inicial Escuelas 2
expect: affected 1
INSERT INTO Escuelas ([No], Nombre, [Nombre corto], Responsable, [E-mail], NoBiblioteca) VALUES (2, 'Facultad de Ingeniería', 'FI', 'Ricardo Peña', 'fi@tarvena.mx', 2)

=== carga inicial Escuelas 3
expect: affected 1
INSERT INTO Escuelas ([No], Nombre, [Nombre corto], Responsable, [E-mail], NoBiblioteca) VALUES (3, 'Escuela de Música', 'Música', 'Sofía Lenz', NULL, 1)

=== carga inicial Escuelas 4
expect: affected 1
INSERT INTO Escuelas ([No], Nombre, [Nombre corto], Responsable, [E-mail], NoBiblioteca) VALUES (4, 'Preparatoria Norte', 'Prepa N', 'Raúl Soto', NULL, 3)

=== carga inicial Escuelas 5
expect: affected 1
INSERT INTO Escuelas ([No], Nombre, [Nombre corto], Responsable, [E-mail], NoBiblioteca) VALUES (5, 'Colegio O''Higgins', 'O''Higgins', 'Irene Vidal', NULL, 2)

=== carga inicial Editoriales 1
expect: affected 1
INSERT INTO Editoriales ([No], Nombre, Representante) VALUES (1, 'Alfaguara', 'Luis Ortega')

=== carga inicial Editoriales 2
expect: affected 1
INSERT INTO Editoriales ([No], Nombre, Representante) VALUES (2, 'Anagrama', 'Paula Vives')

=== carga inicial Editoriales 3
expect: affected 1
INSERT INTO Editoriales ([No], Nombre, Representante) VALUES (3, 'Siglo XXI', 'Tomás Rey')

=== carga inicial Instituciones 1
expect: affected 1
INSERT INTO Instituciones ([No], Nombre, Representante, Direccion, Ciudad, [Telefono/Fax], [E-mail]) VALUES (1, 'Fundación Lectura', 'Carla Montes', 'Av. Reforma 10', 'Tarvena', '555-0200', 'fundacion@lectura.org')

=== carga inicial Instituciones 2
expect: affected 1
INSERT INTO Instituciones ([No], Nombre, Representante, Direccion, Ciudad, [Telefono/Fax], [E-mail]) VALUES (2, 'Embajada de Francia', 'Pierre Blanc', 'Calle Sur 5', 'Tarvena', '555-0300', NULL)

=== carga inicial Proveedores 1
expect: affected 1
INSERT INTO Proveedores ([No], Empresa, Representante, Domicilio, [Ciudad/Estado], [Télefono/Fax], [E-mail], [Número de cuenta]) VALUES (1, 'Librería Gandhi', 'Hugo Paz', 'Av. Juárez 1', 'Tarvena/TV', '555-0400', 'ventas@gandhi.mx', '0123456789')

=== carga inicial Proveedores 2
expect: affected 1
INSERT INTO Proveedores ([No], Empresa, Representante, Domicilio, [Ciudad/Estado], [Télefono/Fax], [E-mail], [Número de cuenta]) VALUES (2, 'Distribuidora Sur', 'Nora Gil', 'Calle 8', 'Sur/TV', '555-0500', NULL, NULL)

=== carga inicial Configuracion 1
expect: affected 1
INSERT INTO Configuracion ([Descripción], Valor) VALUES ('Institucion', 'Universidad de Tarvena')

=== carga inicial Configuracion 2
expect: affected 1
INSERT INTO Configuracion ([Descripción], Valor) VALUES ('Escuela', 'Dependencia')

=== carga inicial Configuracion 3
expect: affected 1
INSERT INTO Configuracion ([Descripción], Valor) VALUES ('NumAdqui', 'Núm. adquisición')

=== carga inicial Analistas 1
expect: affected 1
INSERT INTO Analistas (Login, [password]) VALUES ('admin', '5C9546174F064C2E5E834E0A4E060E7A0CDD1A')

=== carga inicial Analistas 2
expect: affected 1
INSERT INTO Analistas (Login, [password]) VALUES ('maria', '5090591740065C275C874E52101A0E670C')

=== carga inicial Solicitudes General 1
expect: affected 1
INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado, FechaPedido, FechaRecepcion, FechaCaptura, IdCapturista, TipoMaterial, IdFinanciamiento) VALUES (1, #2008/09/01#, 'Juan Pérez', 1, 1, 'R', #2008/09/05 09:00:00#, #2008/09/20 12:00:00#, #2008/09/01 10:15:00#, 'admin', 1, 1)

=== carga inicial Solicitudes General 2
expect: affected 1
INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado, FechaPedido, FechaRecepcion, FechaCaptura, IdCapturista, TipoMaterial, IdFinanciamiento) VALUES (2, #2008/10/02#, 'Laura Gómez', 2, 2, 'P', #2008/10/10 11:30:00#, NULL, #2008/10/02 16:40:00#, 'admin', 1, 1)

=== carga inicial Solicitudes General 3
expect: affected 1
INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado, FechaPedido, FechaRecepcion, FechaCaptura, IdCapturista, TipoMaterial, IdFinanciamiento) VALUES (3, #2008/11/03#, 'Pedro Sánchez', 3, 1, 'S', NULL, NULL, #2008/11/03 08:05:00#, 'maria', 1, 3)

=== carga inicial Solicitudes General 4
expect: affected 1
INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado, FechaPedido, FechaRecepcion, FechaCaptura, IdCapturista, TipoMaterial, IdFinanciamiento) VALUES (4, #2008/11/15#, 'Rosa Díaz', 4, 3, 'S', NULL, NULL, #2008/11/15 13:20:00#, 'maria', 1, 0)

=== carga inicial Solicitudes General 5
expect: affected 1
INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado, FechaPedido, FechaRecepcion, FechaCaptura, IdCapturista, TipoMaterial, IdFinanciamiento) VALUES (5, #2008/06/20#, 'Mario O''Neill', 1, 1, '', #2008/06/25 10:00:00#, NULL, #2008/06/20 09:00:00#, NULL, NULL, 0)

=== carga inicial Solicitudes General 6
expect: affected 1
INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado, FechaPedido, FechaRecepcion, FechaCaptura, IdCapturista, TipoMaterial, IdFinanciamiento) VALUES (6, #2008/11/20#, 'Laura Gómez', 2, 2, 'S', NULL, NULL, #2008/11/20 17:00:00#, 'admin', 1, 1)

=== carga inicial Solicitudes Libros 1
expect: affected 1
INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, [Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud, IdCapturista, ISBN) VALUES (1, 'Cien años de soledad', 'Gabriel García Márquez', 2, 1, 1, #2008/09/18#, 2, 250.5, 'F-100', 'A', 1, 'admin', '978-0307474728')

=== carga inicial Solicitudes Libros 2
expect: affected 1
INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, [Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud, IdCapturista, ISBN) VALUES (2, 'Rayuela', 'Julio Cortázar', 1, 2, 3, NULL, 0, 0, '', 'I', 1, 'admin', '978-8437604572')

=== carga inicial Solicitudes Libros 3
expect: affected 1
INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, [Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud, IdCapturista, ISBN) VALUES (3, 'Pedro Páramo', 'Juan Rulfo', 3, 3, 1, NULL, 0, 0, '', 'P', 2, 'admin', '978-8437604183')

=== carga inicial Solicitudes Libros 4
expect: affected 1
INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, [Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud, IdCapturista, ISBN) VALUES (4, 'Ficciones', 'Jorge Luis Borges', 1, 1, 2, #2008/10/20#, 1, 120, 'F-200', 'A', 2, 'admin', '978-8420633121')

=== carga inicial Solicitudes Libros 5
expect: affected 1
INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, [Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud, IdCapturista, ISBN) VALUES (5, 'La región más transparente', 'Carlos Fuentes', 2, 0, 1, NULL, 0, 0, NULL, 'S', 3, 'maria', NULL)

=== carga inicial Solicitudes Libros 6
expect: affected 1
INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, [Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud, IdCapturista, ISBN) VALUES (6, 'El laberinto de la soledad', 'Octavio Paz', 1, 3, 4, NULL, 0, 0, NULL, 'S', 3, 'maria', '978-9681600')

=== carga inicial Solicitudes Libros 7
expect: affected 1
INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, [Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud, IdCapturista, ISBN) VALUES (7, 'Aura', 'Carlos Fuentes', 1, 1, 1, #2008/06/30#, 1, 80, 'F-050', 'A', 5, NULL, NULL)

=== carga inicial Solicitudes Libros 8
expect: affected 1
INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, [Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud, IdCapturista, ISBN) VALUES (8, 'Los de abajo', 'Mariano Azuela', 2, 2, 2, NULL, 0, 0, NULL, '', 6, 'admin', '978-9681')

=== carga inicial Adquisiciones Numadqui 1
expect: affected 1
INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], IdCapturista, FechaIngreso, MatComplementario) VALUES ('000101', 1, 'S', 'admin', #2008/09/18 10:00:00#, NULL)

=== carga inicial Adquisiciones Numadqui 2
expect: affected 1
INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], IdCapturista, FechaIngreso, MatComplementario) VALUES ('000102', 1, 'S', 'admin', #2008/09/18 10:05:00#, 'CD')

=== carga inicial Adquisiciones Numadqui 3
expect: affected 1
INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], IdCapturista, FechaIngreso, MatComplementario) VALUES ('000201', 4, 'S', 'admin', #2008/10/20 11:00:00#, NULL)

=== carga inicial Adquisiciones Numadqui 4
expect: affected 1
INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], IdCapturista, FechaIngreso, MatComplementario) VALUES ('000050', 7, 'S', NULL, NULL, NULL)

=== carga inicial Adquisiciones Numadqui 5
expect: affected 1
INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], IdCapturista, FechaIngreso, MatComplementario) VALUES ('000099', 7, NULL, NULL, NULL, NULL)

=== carga inicial Adquisiciones Numadqui 6
expect: affected 1
INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], IdCapturista, FechaIngreso, MatComplementario) VALUES ('000098', 99, 'x', NULL, NULL, NULL)

=== carga inicial Adquisiciones Numadqui 7
expect: affected 1
INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], IdCapturista, FechaIngreso, MatComplementario) VALUES ('D00001', 1, 'D', NULL, NULL, NULL)

=== carga inicial Adquisiciones Numadqui 8
expect: affected 1
INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], IdCapturista, FechaIngreso, MatComplementario) VALUES ('D00002', 1, 'D', NULL, NULL, NULL)

=== carga inicial Adquisiciones Numadqui 9
expect: affected 1
INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], IdCapturista, FechaIngreso, MatComplementario) VALUES ('D00003', 2, 'D', NULL, NULL, NULL)

=== carga inicial Adquisiciones Numadqui 10
expect: affected 1
INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], IdCapturista, FechaIngreso, MatComplementario) VALUES ('D00004', 3, 'D', NULL, NULL, NULL)

=== carga inicial Donaciones General 1
expect: affected 1
INSERT INTO [Donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca, [Donacion o Intercambio]) VALUES (1, #2008/08/10#, 1, 1, 'D')

=== carga inicial Donaciones General 2
expect: affected 1
INSERT INTO [Donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca, [Donacion o Intercambio]) VALUES (2, #2008/11/20#, 2, 2, 'I')

=== carga inicial Donaciones General 3
expect: affected 1
INSERT INTO [Donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca, [Donacion o Intercambio]) VALUES (3, #2008/12/05#, 1, 3, 'D')

=== carga inicial Donaciones Libros 1
expect: affected 1
INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, Autor, Ejemplares, NoEditorial, Edicion, NoDonacion, IdCapturista, Costo, FechaCaptura) VALUES (1, 'Antología poética', 'Pablo Neruda', 2, 1, 1, 1, 'admin', 0, #2008/08/10 12:00:00#)

=== carga inicial Donaciones Libros 2
expect: affected 1
INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, Autor, Ejemplares, NoEditorial, Edicion, NoDonacion, IdCapturista, Costo, FechaCaptura) VALUES (2, 'Le Petit Prince', 'Antoine de Saint-Exupéry', 1, 2, 5, 2, 'admin', 150, #2008/11/20 09:30:00#)

=== carga inicial Donaciones Libros 3
expect: affected 1
INSERT INTO [Donaciones Libros] (ClaveLibro, Titulo, Autor, Ejemplares, NoEditorial, Edicion, NoDonacion, IdCapturista, Costo, FechaCaptura) VALUES (3, 'Poemas', 'Jaime Sabines', 1, 3, 1, 1, NULL, NULL, NULL)

=== carga inicial adqFinanciamiento 1
expect: affected 1
INSERT INTO adqFinanciamiento (IdFinanciamiento, Nombre, MontoTotal, FechaCaptura, MontoAsignadoDisponible, UltimoMovimiento, MontoXAsignar, IdCapturista) VALUES (1, 'Fondo Federal 2008', 100000, #2008/01/15#, 95000, #2008/06/10#, 50000, 'admin')

=== carga inicial adqFinanciamiento 2
expect: affected 1
INSERT INTO adqFinanciamiento (IdFinanciamiento, Nombre, MontoTotal, FechaCaptura, MontoAsignadoDisponible, UltimoMovimiento, MontoXAsignar, IdCapturista) VALUES (2, 'Donativo Patronato', 20000, #2008/02/01#, NULL, NULL, 20000, 'admin')

=== carga inicial adqFinanciamiento 3
expect: affected 1
INSERT INTO adqFinanciamiento (IdFinanciamiento, Nombre, MontoTotal, FechaCaptura, MontoAsignadoDisponible, UltimoMovimiento, MontoXAsignar, IdCapturista) VALUES (3, 'Ingresos propios', 50000, #2008/03/01#, 50000, #2008/03/05#, 40000, 'maria')

=== carga inicial adqProyectos 1
expect: affected 1
INSERT INTO adqProyectos (IdProyecto, Nombre, Responsable, IdEscuela, FuenteFinanciamiento, FechaAsignacion, FechaVigencia, TotalAsignado, UltimoMovimiento, MontoDisponible, Descripcion, FechaCaptura, IdCapturista, IdFinanciamiento) VALUES (1, 'Escuela de Artes', 'Marta Ibarra', 1, 'Fondo Federal 2008', #2008/02/01#, #2008/12/31#, 30000, #2008/06/10#, 27000, 'Acervo de artes', #2008/02/01 10:00:00#, 'admin', 1)

=== carga inicial adqProyectos 2
expect: affected 1
INSERT INTO adqProyectos (IdProyecto, Nombre, Responsable, IdEscuela, FuenteFinanciamiento, FechaAsignacion, FechaVigencia, TotalAsignado, UltimoMovimiento, MontoDisponible, Descripcion, FechaCaptura, IdCapturista, IdFinanciamiento) VALUES (2, 'Facultad de Ingeniería', 'Ricardo Peña', 2, 'Fondo Federal 2008', #2008/02/01#, #2008/12/31#, 20000, #2008/06/10#, 18000, NULL, #2008/02/01 10:10:00#, 'admin', 1)

=== carga inicial adqProyectos 3
expect: affected 1
INSERT INTO adqProyectos (IdProyecto, Nombre, Responsable, IdEscuela, FuenteFinanciamiento, FechaAsignacion, FechaVigencia, TotalAsignado, UltimoMovimiento, MontoDisponible, Descripcion, FechaCaptura, IdCapturista, IdFinanciamiento) VALUES (3, 'Escuela de Música', 'Sofía Lenz', 3, 'Ingresos propios', #2008/03/05#, #2009/03/05#, 10000, NULL, 10000, 'Partituras', #2008/03/05 09:00:00#, 'maria', 3)

=== carga inicial adqSaldoFinanciamientos 1
expect: affected 1
INSERT INTO adqSaldoFinanciamientos (IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista) VALUES (1, #2008/01/15#, 100000, 0, '+ADDFinan', 'admin')

=== carga inicial adqSaldoFinanciamientos 2
expect: affected 1
INSERT INTO adqSaldoFinanciamientos (IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista) VALUES (2, #2008/02/01#, 20000, 0, '+ADDFinan', 'admin')

=== carga inicial adqSaldoFinanciamientos 3
expect: affected 1
INSERT INTO adqSaldoFinanciamientos (IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista) VALUES (3, #2008/03/01#, 50000, 0, '+ADDFinan', 'maria')

=== carga inicial adqSaldoFinanciamientos 4
expect: affected 1
INSERT INTO adqSaldoFinanciamientos (IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista) VALUES (1, #2008/06/10#, -5000, 0, '-SALDpag', 'admin')

=== carga inicial adqSaldoProyectos 1
expect: affected 1
INSERT INTO adqSaldoProyectos (IdEscuela, IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista) VALUES (1, 1, #2008/02/01#, 30000, 0, '+ADDproy', 'admin')

=== carga inicial adqSaldoProyectos 2
expect: affected 1
INSERT INTO adqSaldoProyectos (IdEscuela, IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista) VALUES (2, 1, #2008/02/01#, 20000, 0, '+ADDproy', 'admin')

=== carga inicial adqSaldoProyectos 3
expect: affected 1
INSERT INTO adqSaldoProyectos (IdEscuela, IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista) VALUES (3, 3, #2008/03/05#, 10000, 0, '+ADDproy', 'maria')

=== carga inicial adqSaldoProyectos 4
expect: affected 1
INSERT INTO adqSaldoProyectos (IdEscuela, IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista) VALUES (1, 1, #2008/06/10 12:00:00#, -3000, 0, '-CARG 0001', 'admin')

=== carga inicial adqSaldoProyectos 5
expect: affected 1
INSERT INTO adqSaldoProyectos (IdEscuela, IdFinanciamiento, UltimoMovimiento, Monto, Saldo, Operacion, IdCapturista) VALUES (2, 1, #2008/06/10 12:00:00#, -2000, 0, '-CARG 0001', 'admin')

=== carga inicial PagoFacturasGral 1
expect: affected 1
INSERT INTO PagoFacturasGral (IdPagoFactura, FuenteFinanciamiento, IdProveedor, Monto, Concepto, Observaciones, FechaSolicitud, FechaPago, FechaMod, IdCapturista, IdCapMod, Estado, IdFinanciamiento) VALUES (1, 'Fondo Federal 2008', 1, 5000, 'Compra de libros', NULL, #2008/06/01#, #2008/06/10 12:00:00#, #2008/06/10#, 'admin', 'admin', 'P', 1)

=== carga inicial PagoFacturasGral 2
expect: affected 1
INSERT INTO PagoFacturasGral (IdPagoFactura, FuenteFinanciamiento, IdProveedor, Monto, Concepto, Observaciones, FechaSolicitud, FechaPago, FechaMod, IdCapturista, IdCapMod, Estado, IdFinanciamiento) VALUES (2, 'Fondo Federal 2008', 2, 1500, 'Suscripciones', NULL, #2008/11/01#, NULL, #2008/11/05#, 'admin', NULL, 'S', 1)

=== carga inicial PagoFacturasGral 3
expect: affected 1
INSERT INTO PagoFacturasGral (IdPagoFactura, FuenteFinanciamiento, IdProveedor, Monto, Concepto, Observaciones, FechaSolicitud, FechaPago, FechaMod, IdCapturista, IdCapMod, Estado, IdFinanciamiento) VALUES (3, 'Ingresos propios', 1, NULL, 'Material audiovisual', NULL, #2008/12/01#, NULL, NULL, 'maria', NULL, 'S', 3)

=== carga inicial PagoFacturasDetalle 1
expect: affected 1
INSERT INTO PagoFacturasDetalle (IdFacturaItem, IdPagoFactura, IdProyecto, NoFactura, MontoFactura, Observaciones, FechaCaptura, FechaMod, IdCapturista, IdCapMod, IdSolicitud, IdEscuela) VALUES (1, 1, 1, 'A-001', 3000, NULL, #2008/06/02#, NULL, 'admin', NULL, NULL, 1)

=== carga inicial PagoFacturasDetalle 2
expect: affected 1
INSERT INTO PagoFacturasDetalle (IdFacturaItem, IdPagoFactura, IdProyecto, NoFactura, MontoFactura, Observaciones, FechaCaptura, FechaMod, IdCapturista, IdCapMod, IdSolicitud, IdEscuela) VALUES (2, 1, 2, 'A-002', 2000, NULL, #2008/06/02#, NULL, 'admin', NULL, NULL, 2)

=== carga inicial PagoFacturasDetalle 3
expect: affected 1
INSERT INTO PagoFacturasDetalle (IdFacturaItem, IdPagoFactura, IdProyecto, NoFactura, MontoFactura, Observaciones, FechaCaptura, FechaMod, IdCapturista, IdCapMod, IdSolicitud, IdEscuela) VALUES (3, 2, 1, 'B-010', 1000, NULL, #2008/11/02#, NULL, 'admin', NULL, 1, 1)

=== carga inicial PagoFacturasDetalle 4
expect: affected 1
INSERT INTO PagoFacturasDetalle (IdFacturaItem, IdPagoFactura, IdProyecto, NoFactura, MontoFactura, Observaciones, FechaCaptura, FechaMod, IdCapturista, IdCapMod, IdSolicitud, IdEscuela) VALUES (4, 2, 2, 'B-011', 500, 'Renovación anual', #2008/11/02#, NULL, 'admin', NULL, NULL, 2)

=== carga inicial adqMaterialComplementario 1
expect: affected 1
INSERT INTO adqMaterialComplementario (IdMatComp, ClaveLibro, FechaCaptura, Titulo, Observaciones, IdCapturista, TipoMatComp) VALUES (1, 1, #2008/09/18 10:05:00#, 'Disco compacto de lecturas', NULL, 'admin', 1)

=== carga inicial Prestamos 1
expect: affected 1
INSERT INTO Prestamos (NoCuenta) VALUES ('2008001')
