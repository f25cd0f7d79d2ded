=== FormPrincipal Form_Load analistas
expect: rows 2
SELECT * FROM Analistas

=== ValidaAnalista admin
expect: rows 1
select * from Analistas where Login='admin'

=== ValidaAnalista login en otra caja
expect: rows 1
select * from Analistas where Login='ADMIN'

=== ValidaAnalista login inexistente
expect: rows 0
select * from Analistas where Login='pedro'

=== ValidaAnalista login con apostrofo
expect: error 3075
select * from Analistas where Login='o'brien'

=== CorrigeSolDonNumAdqui 1
expect: affected 5
UPDATE [Adquisiciones Numadqui] SET [Solicitud o donacion]='S' WHERE [Solicitud o donacion] <> 'D'

=== CorrigeSolDonNumAdqui 2
expect: affected 1
INSERT INTO Configuracion VALUES ('FixSolDonNumAdqui','83.26a=2008-12-15')

=== AgregaISBN columna ya existente
expect: error 3380
ALTER TABLE [Solicitudes Libros] ADD ISBN TEXT(20)

=== CreaTablasPagoFacturas 1 tabla ya existente
expect: error 3010
CREATE Table PagoFacturasGral(IdPagoFactura COUNTER CONSTRAINT PK_IdPagoFactura PRIMARY KEY, FuenteFinanciamiento TEXT(40), IdProveedor LONG, Monto CURRENCY, Concepto TEXT(100), Observaciones MEMO, FechaSolicitud DATETIME, FechaPago DATETIME, FechaMod DATETIME, IdCapturista TEXT(10), IdCapMod TEXT(10), Estado TEXT(1) )

=== CreaTablasPagoFacturas 2 tabla ya existente
expect: error 3010
CREATE Table PagoFacturasDetalle(IdFacturaItem COUNTER CONSTRAINT PK_IdFacturaItem PRIMARY KEY, IdPagoFactura LONG, IdProyecto LONG, NoFactura TEXT(20), MontoFactura CURRENCY, Observaciones MEMO, FechaCaptura DATETIME, FechaMod DATETIME, IdCapturista TEXT(10), IdCapMod TEXT(10) )

=== CreaMaterialComplementario 1 tabla ya existente
expect: error 3010
CREATE Table adqMaterialComplementario (IdMatComp COUNTER CONSTRAINT PK_IdMatComp PRIMARY KEY, ClaveLibro LONG NOT NULL, FechaCaptura DATETIME NOT NULL, Titulo TEXT(255) NOT NULL, Observaciones MEMO, IdCapturista TEXT(10) NOT NULL, TipoMatComp LONG NOT NULL )

=== CreaMaterialComplementario 2 columna ya existente
expect: error 3380
ALTER TABLE [Adquisiciones Numadqui] ADD COLUMN MatComplementario TEXT(15) NULL 

=== CatalogoSimple InicializaBase Bibliotecas captura
expect: rows 1
select top 1 [No] as [No de Biblioteca],[Nombre],[Nombre corto],[Director],[Telefono] as [Teléfono],[Email] as [E-mail] from [Bibliotecas]

=== CatalogoSimple InicializaBase Bibliotecas vista
expect: rows 3
SELECT Nombre,[NO] as Núm,Director,Telefono FROM Bibliotecas ORDER BY 1 ASC

=== CatalogoSimple InicializaBase Bibliotecas vista primer nombre
expect: value Biblioteca Central
SELECT Nombre,[NO] as Núm,Director,Telefono FROM Bibliotecas ORDER BY 1 ASC

=== CatalogoSimple InicializaBase Bibliotecas tabla
expect: rows 3
select [No],[Nombre],[Nombre corto],[Director],[Telefono],[Email] from [Bibliotecas]

=== ActivarBotonCombo Escuelas Nobiblioteca
expect: rows 3
select [No] as Valor, Nombre as Mensaje from Bibliotecas

=== CatalogoSimple InicializaBase Escuelas captura
expect: rows 1
select top 1 [No] as [No de escuela],[Nombre],[Nombre corto],[Responsable],[E-mail],[Nobiblioteca] as [Biblioteca] from [Escuelas]

=== CatalogoSimple InicializaBase Escuelas vista
expect: rows 5
SELECT Nombre,[NO] as Núm,Responsable,NOBIBLIOTECA as NumBib from Escuelas ORDER BY 1 ASC

=== CatalogoSimple InicializaBase Escuelas vista primer nombre
expect: value Colegio O'Higgins
SELECT Nombre,[NO] as Núm,Responsable,NOBIBLIOTECA as NumBib from Escuelas ORDER BY 1 ASC

=== CatalogoSimple InicializaBase Escuelas tabla
expect: rows 5
select [No],[Nombre],[Nombre corto],[Responsable],[E-mail],[Nobiblioteca] from [Escuelas]

=== CatalogoSimple InicializaBase Proveedores captura
expect: rows 1
select top 1 [No] as [No de Proveedor],[Empresa],[Representante],[Domicilio],[Ciudad/Estado],[Télefono/Fax] as [Teléfono/Fax],[E-mail],[Número de cuenta] as [No de cuenta bancaria] from [Proveedores]

=== CatalogoSimple InicializaBase Proveedores vista
expect: value Distribuidora Sur
SELECT Empresa as Proveedor, [No] as Núm, Representante, Domicilio FROM Proveedores ORDER BY 1 ASC

=== CatalogoSimple InicializaBase Proveedores tabla
expect: rows 2
select [No],[Empresa],[Representante],[Domicilio],[Ciudad/Estado],[Télefono/Fax],[E-mail],[Número de cuenta] from [Proveedores]

=== CatalogoSimple InicializaBase Editoriales captura
expect: rows 1
select top 1 [No] as [No de editorial],[Nombre],[Representante] from [Editoriales]

=== CatalogoSimple InicializaBase Editoriales vista
expect: rows 3
SELECT Nombre,[No] as Número,Representante from Editoriales ORDER BY 1 ASC

=== CatalogoSimple InicializaBase Editoriales tabla
expect: rows 3
select [No],[Nombre],[Representante] from [Editoriales]

=== CatalogoSimple InicializaBase Instituciones captura
expect: rows 1
select top 1 [No] as [No de Institución],[Nombre],[Representante],[Direccion] as [Dirección],[Ciudad],[Telefono/Fax] as [Teléfono y/o Fax],[E-mail] from [Instituciones]

=== CatalogoSimple InicializaBase Instituciones vista
expect: value Embajada de Francia
select Nombre,[No] as Número,Representante,Direccion,Ciudad,[Telefono/Fax],[E-mail] from Instituciones ORDER BY 1 ASC

=== CatalogoSimple InicializaBase Instituciones tabla
expect: rows 2
select [No],[Nombre],[Representante],[Direccion],[Ciudad],[Telefono/Fax],[E-mail] from [Instituciones]

=== CatalogoParaCombo bibliotecas vista
expect: value 1
select [NO],NOMBRE,DIRECTOR,TELEFONO from Bibliotecas ORDER BY 1 ASC

=== CatalogoParaCombo proveedores captura
expect: rows 1
select top 1 * from [Proveedores]

=== CatalogoParaCombo proveedores tabla
expect: rows 2
select * from [Proveedores]

=== CatalogoParaCombo proveedores vista
expect: value 1
select * from Proveedores ORDER BY 1 ASC

=== CatalogoParaCombo editoriales vista
expect: rows 3
select [No],Nombre,Representante from Editoriales ORDER BY 1 ASC

=== CatalogoParaCombo instituciones captura
expect: rows 1
select top 1 [No] as [No de control],[Nombre],[Representante],[Direccion] as [Dirección],[Ciudad],[Telefono/Fax] as [Teléfono y/o Fax],[E-mail] from [Instituciones]

=== CatalogoParaCombo instituciones vista
expect: rows 2
select [No],Nombre,Representante,Direccion,Ciudad,[Telefono/Fax],[E-mail] from Instituciones ORDER BY 1 ASC

=== CatalogoParaCombo escuelas vista
expect: value 1
select [NO],NOMBRE,RESPONSABLE,NOBIBLIOTECA from Escuelas ORDER BY 1 ASC

=== CatEventos_ClickBoton Bibliotecas captura
expect: rows 1
select top 1 * from [Bibliotecas]

=== CatEventos_ClickBoton Bibliotecas tabla
expect: rows 3
select * from [Bibliotecas]

=== CatEventos_ClickBoton Bibliotecas vista
expect: rows 3
select * from Bibliotecas ORDER BY 1 ASC

=== CatalogoParaCombo Sol_Edi Command2 escuelas
expect: rows 5
SELECT [No] & ' ' & Nombre as Resultado  FROM Escuelas

=== CatalogoParaCombo Sol_Edi Command4 bibliotecas
expect: rows 3
SELECT [No] & ' ' & Nombre as Resultado  FROM Bibliotecas

=== CatalogoParaCombo Don_Edi Command2 instituciones
expect: rows 2
SELECT [No] & ' ' & Nombre as Resultado  FROM Instituciones

=== CatalogoParaCombo Don_Libros Command2 editoriales
expect: rows 3
SELECT [No] & ' ' & Nombre as Resultado  FROM Editoriales

=== CatalogoParaCombo pagoFacturasGral proveedores
expect: rows 2
SELECT [No] & ' ' & Empresa AS Resultado FROM Proveedores

=== CatalogoSimple GrabarRegistro nuevo Bibliotecas
expect: affected 1
INSERT INTO [Bibliotecas] ([No],[Nombre],[Nombre corto],[Director],[Telefono],[Email]) VALUES (4,'Biblioteca Sur',NULL,'Luis O''Hara',NULL,NULL)

=== CatalogoSimple GrabarRegistro nuevo Bibliotecas numero repetido
expect: error 3022
INSERT INTO [Bibliotecas] ([No],[Nombre],[Nombre corto],[Director],[Telefono],[Email]) VALUES (4,'Biblioteca Oriente',NULL,NULL,NULL,NULL)

=== CatalogoSimple GrabarRegistro cambio Bibliotecas
expect: affected 1
UPDATE [Bibliotecas] SET [No] = 4,[Nombre] = 'Biblioteca Sur',[Nombre corto] = '',[Director] = 'Luis O''Hara',[Telefono] = '555-0104',[Email] = '' where ([Nombre]='Biblioteca Sur')

=== CatalogoSimple GrabarRegistro cambio Bibliotecas registro no encontrado
expect: affected 0
UPDATE [Bibliotecas] SET [No] = 7,[Nombre] = 'Biblioteca Oeste',[Nombre corto] = '',[Director] = '',[Telefono] = '',[Email] = '' where ([Nombre]='Biblioteca Oeste')

=== CatalogoSimple GrabarRegistro nuevo Escuelas con combo
expect: affected 1
INSERT INTO [Escuelas] ([No],[Nombre],[Nombre corto],[Responsable],[E-mail],[Nobiblioteca]) VALUES (6,'Escuela de Danza',NULL,'Carmen Vela',NULL,4)

=== CatalogoSimple Cargar_Valores_Combo Nobiblioteca
expect: rows 4
select [No] as Valor, Nombre as Mensaje from Bibliotecas

=== CatalogoSimple GrabarRegistro cambio Escuelas con combo
expect: affected 1
UPDATE [Escuelas] SET [No] = 6,[Nombre] = 'Escuela de Danza',[Nombre corto] = 'Danza',[Responsable] = 'Carmen Vela',[E-mail] = '',[Nobiblioteca] = 4 where ([Nombre]='Escuela de Danza')

=== CatalogoSimple GrabarRegistro cambio Escuelas combo vacio
expect: affected 1
UPDATE [Escuelas] SET [No] = 6,[Nombre] = 'Escuela de Danza',[Nombre corto] = 'Danza',[Responsable] = 'Carmen Vela',[E-mail] = '' where ([Nombre]='Escuela de Danza')

=== CatalogoSimple GrabarRegistro nuevo Editoriales 1
expect: affected 1
INSERT INTO [Editoriales] ([No],[Nombre],[Representante]) VALUES (4,'Planeta',NULL)

=== CatalogoSimple GrabarRegistro nuevo Editoriales 2
expect: affected 1
INSERT INTO [Editoriales] ([No],[Nombre],[Representante]) VALUES (5,'Planeta','Irma Solís')

=== CatalogoSimple GrabarRegistro cambio Editoriales homonimos
expect: error 3022
UPDATE [Editoriales] SET [No] = 5,[Nombre] = 'Planeta',[Representante] = 'Irma Solís' where ([Nombre]='PLANETA')

=== CatalogoSimple GrabarRegistro cambio Editoriales numero repetido
expect: error 3022
UPDATE [Editoriales] SET [No] = 1,[Nombre] = 'Planeta',[Representante] = 'Irma Solís' where ([Nombre]='Planeta')

=== CatalogoSimple EliminarRegistro Editoriales homonimos
expect: affected 2
DELETE * FROM [Editoriales] WHERE [Nombre]='Planeta'

=== CatalogoSimple GrabarRegistro nuevo Proveedores
expect: affected 1
INSERT INTO [Proveedores] ([No],[Empresa],[Representante],[Domicilio],[Ciudad/Estado],[Télefono/Fax],[E-mail],[Número de cuenta]) VALUES (3,'Papelería del Centro','Olga Ríos',NULL,NULL,'555-0600',NULL,NULL)

=== CatalogoSimple GrabarRegistro cambio Proveedores por numero
expect: affected 1
UPDATE [Proveedores] SET [No] = 3,[Empresa] = 'Papelería del Centro',[Representante] = 'Olga Ríos',[Domicilio] = 'Av. Hidalgo 3',[Ciudad/Estado] = '',[Télefono/Fax] = '555-0600',[E-mail] = '',[Número de cuenta] = '' where ([No]=3)

=== CatalogoSimple EliminarRegistro Proveedores por numero
expect: affected 1
DELETE * FROM [Proveedores] WHERE [No]=3

=== CatalogoSimple EliminarRegistro registro ya borrado
expect: affected 0
DELETE * FROM [Proveedores] WHERE [No]=3

=== CatalogoSimple EliminarRegistro USUARIOS prestamo externo
expect: value 1
SELECT COUNT(*) AS Prestamos FROM Prestamos WHERE NoCuenta = '2008001'

=== CatalogoSimple EliminarRegistro USUARIOS prestamo interno
expect: value 0
SELECT COUNT(*) AS Prestamos FROM [Prestamos Internos] WHERE NoCuenta = '2008001'

=== FormReporte mInit Combo1 Bibliotecas
expect: value Biblioteca Central
SELECT TOP 1 NOMBRE,[NO] AS NÚM,DIRECTOR,TELEFONO FROM BIBLIOTECAS ORDER BY 1 ASC

=== FormReporte mInit Combo3 Bibliotecas sin alias
expect: rows 1
SELECT TOP 1 NOMBRE, [NO] , DIRECTOR, TELEFONO FROM BIBLIOTECAS ORDER BY 1 ASC

=== FormReporte Generar todos los registros
expect: rows 4
SELECT TOP 1000 NOMBRE,[NO] AS NÚM,DIRECTOR,TELEFONO FROM BIBLIOTECAS  ORDER BY 2

=== FormReporte Generar todos los registros orden por numero
expect: value Biblioteca Central
SELECT TOP 1000 NOMBRE,[NO] AS NÚM,DIRECTOR,TELEFONO FROM BIBLIOTECAS  ORDER BY 2

=== FormReporte Generar texto contenido
expect: rows 1
SELECT TOP 1000 NOMBRE,[NO] AS NÚM,DIRECTOR,TELEFONO FROM BIBLIOTECAS  WHERE ([NOMBRE] LIKE '*norte*') ORDER BY 1

=== FormReporte Generar texto con apostrofo
expect: value Biblioteca Sur
SELECT TOP 1000 NOMBRE,[NO] AS NÚM,DIRECTOR,TELEFONO FROM BIBLIOTECAS  WHERE ([DIRECTOR] LIKE '*O''Hara*') ORDER BY 1

=== FormReporte Generar numero
expect: value Biblioteca de Ingeniería
SELECT TOP 1000 NOMBRE,[NO] AS NÚM,DIRECTOR,TELEFONO FROM BIBLIOTECAS  WHERE ([NO] = 2) ORDER BY 1

=== FormReporte mInit Combo3 Escuelas sin alias
expect: rows 1
SELECT TOP 1 NOMBRE, [NO] , RESPONSABLE, NOBIBLIOTECA  FROM ESCUELAS ORDER BY 1 ASC

=== FormReporte Generar Escuelas por biblioteca
expect: rows 2
SELECT TOP 1000 NOMBRE,[NO] AS NÚM,RESPONSABLE,NOBIBLIOTECA AS NUMBIB FROM ESCUELAS  WHERE ([NOBIBLIOTECA] = 1) ORDER BY 4

=== FormReporte Generar Proveedores por empresa
expect: rows 1
SELECT TOP 1000 EMPRESA AS PROVEEDOR, [NO] AS NÚM, REPRESENTANTE, DOMICILIO FROM PROVEEDORES  WHERE ([EMPRESA] LIKE '*gandhi*') ORDER BY 1

=== FormReporte Generar Instituciones sin coincidencias
expect: rows 0
SELECT TOP 1000 NOMBRE,[NO] AS NÚMERO,REPRESENTANTE,DIRECCION,CIUDAD,[TELEFONO/FAX],[E-MAIL] FROM INSTITUCIONES  WHERE ([CIUDAD] LIKE '*Monterrey*') ORDER BY 3

=== Sol1 Refrescar todas
expect: rows 6
SELECT NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre FROM ([Solicitudes General] LEFT JOIN [Escuelas] ON [Solicitudes General].NoEscuela = [Escuelas].No) LEFT JOIN Bibliotecas ON [Solicitudes General].NoBiblioteca=Bibliotecas.no ORDER BY NoSolicitud Desc

=== Sol1 Refrescar todas primera fila
expect: value 6
SELECT NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre FROM ([Solicitudes General] LEFT JOIN [Escuelas] ON [Solicitudes General].NoEscuela = [Escuelas].No) LEFT JOIN Bibliotecas ON [Solicitudes General].NoBiblioteca=Bibliotecas.no ORDER BY NoSolicitud Desc

=== Sol1 Refrescar sin procesadas
expect: rows 3
SELECT NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre FROM ([Solicitudes General] LEFT JOIN [Escuelas] ON [Solicitudes General].NoEscuela = [Escuelas].No) LEFT JOIN Bibliotecas ON [Solicitudes General].NoBiblioteca=Bibliotecas.no WHERE Estado='S' ORDER BY NoSolicitud Desc

=== Sol_Edi Form_Load combo escuelas
expect: rows 6
SELECT [No], Nombre FROM Escuelas ORDER BY Nombre

=== Sol_Edi Form_Load combo bibliotecas
expect: value 1
SELECT [No], Nombre FROM Bibliotecas ORDER BY Nombre

=== Sol_Edi Form_Load financiamientos
expect: rows 3
SELECT * FROM adqFinanciamiento

=== Sol_Edi Form_Load numero nuevo
expect: value 6
Select Max(Nosolicitud) as MaxS From [Solicitudes General]

=== Sol_Edi Combo2_Click escuelas de la biblioteca
expect: rows 2
SELECT [No], Nombre FROM Escuelas WHERE NoBiblioteca=2 ORDER BY Nombre

=== Sol_Edi Combo1_Click financiamientos de la escuela
expect: value 1
SELECT adqFinanciamiento.[IdFinanciamiento], adqFinanciamiento.Nombre FROM adqFinanciamiento, adqProyectos WHERE adqFinanciamiento.IdFinanciamiento=adqProyectos.IdFinanciamiento AND adqProyectos.IdEscuela=2 ORDER BY adqFinanciamiento.[IdFinanciamiento]

=== Sol_Edi Combo1_Change financiamientos de la escuela
expect: rows 1
SELECT adqFinanciamiento.[IdFinanciamiento], adqFinanciamiento.Nombre FROM adqFinanciamiento, adqProyectos WHERE adqFinanciamiento.IdFinanciamiento=adqProyectos.IdFinanciamiento AND adqProyectos.IdEscuela=2 ORDER BY [IdFinanciamiento]

=== Sol_Edi Combo1_Click escuela sin proyectos
expect: rows 0
SELECT adqFinanciamiento.[IdFinanciamiento], adqFinanciamiento.Nombre FROM adqFinanciamiento, adqProyectos WHERE adqFinanciamiento.IdFinanciamiento=adqProyectos.IdFinanciamiento AND adqProyectos.IdEscuela=4 ORDER BY adqFinanciamiento.[IdFinanciamiento]

=== Sol_Edi Command1 GrabarX nueva solicitud
expect: affected 1
Insert into[Solicitudes General](NoSolicitud, Fecha , Solicitante, Noescuela, Nobiblioteca, Estado, FechaCaptura, IdCapturista, IdFinanciamiento) values (7,#2008/12/15#, 'Ana O''Connor',2,2,'S', #2008/12/15 09:10:00#, 'admin',1)

=== Sol_Edi Command1 GrabarX numero ya usado
expect: error 3022
Insert into[Solicitudes General](NoSolicitud, Fecha , Solicitante, Noescuela, Nobiblioteca, Estado, FechaCaptura, IdCapturista, IdFinanciamiento) values (7,#2008/12/15#, 'Luis Mena',1,1,'S', #2008/12/15 09:11:00#, 'maria',0)

=== Sol_Edi Command1 GrabarX fecha vacia
expect: error 3075
Insert into[Solicitudes General](NoSolicitud, Fecha , Solicitante, Noescuela, Nobiblioteca, Estado, FechaCaptura, IdCapturista, IdFinanciamiento) values (8,##, 'Luis Mena',1,1,'S', #2008/12/15 09:12:00#, 'maria',0)

=== Form2 RefrescaTitulos solicitud sin titulos
expect: rows 0
SELECT ClaveLibro, Titulo, Autor, [Ejemplares Pedidos], Nombre, Edicion, Estado, ISBN FROM ([Solicitudes Libros] left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where  NoSolicitud=7

=== Form2 RefrescaTitulos encabezado
expect: value 7
Select NoSolicitud, Fecha, Solicitante, [Escuelas].Nombre, Bibliotecas.Nombre From ([Solicitudes General] left join [Escuelas] on [Solicitudes General].NoEscuela = [Escuelas].No) left join Bibliotecas on [Solicitudes General].NoBiblioteca=Bibliotecas.no where NoSolicitud=7

=== Sol_Libros Form_Load combo editoriales
expect: rows 3
SELECT [No], Nombre FROM Editoriales ORDER BY Nombre

=== Sol_Libros Command1 GrabarX nuevo titulo 1
expect: affected 1
Insert into[Solicitudes Libros](Titulo, Autor , Edicion, Noeditorial, [Ejemplares Pedidos], Estado, NoSolicitud, ISBN) values ('El llano en llamas','Juan Rulfo',1,3,2,'S',7,'978-8437601')

=== Sol_Libros Command1 GrabarX nuevo titulo 2
expect: affected 1
Insert into[Solicitudes Libros](Titulo, Autor , Edicion, Noeditorial, [Ejemplares Pedidos], Estado, NoSolicitud, ISBN) values ('Balún Canán','Rosario Castellanos',0,0,1,'S',7,'')

=== Sol_Libros Command1 GrabarX ISBN con apostrofo
expect: error 3075
Insert into[Solicitudes Libros](Titulo, Autor , Edicion, Noeditorial, [Ejemplares Pedidos], Estado, NoSolicitud, ISBN) values ('Oficio de tinieblas','Rosario Castellanos',1,1,1,'S',7,'978'84')

=== Sol_Libros Command1 GrabarX solicitud mayor que 32767
expect: error 3349
Insert into[Solicitudes Libros](Titulo, Autor , Edicion, Noeditorial, [Ejemplares Pedidos], Estado, NoSolicitud, ISBN) values ('Oficio de tinieblas','Rosario Castellanos',1,1,1,'S',40000,'')

=== Form2 RefrescaTitulos dos titulos
expect: rows 2
SELECT ClaveLibro, Titulo, Autor, [Ejemplares Pedidos], Nombre, Edicion, Estado, ISBN FROM ([Solicitudes Libros] left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where  NoSolicitud=7

=== Sol_Libros Form_Load modificar
expect: value El llano en llamas
Select Titulo, Autor , Edicion, Noeditorial, [Ejemplares Pedidos], ISBN  From [Solicitudes Libros] where ClaveLibro=9

=== Sol_Libros Command1 CambiaGenerico_X
expect: affected 1
UPDATE [Solicitudes Libros] SET Titulo='El llano en llamas',  Autor ='Juan Rulfo',  Edicion=2,  Noeditorial=3,  [Ejemplares Pedidos]=3,  Estado='S',  NoSolicitud=7,  ISBN='978-8437601' WHERE ClaveLibro=9

=== Sol_Libros Command1 CambiaGenerico_X ISBN con apostrofo
expect: error 3075
UPDATE [Solicitudes Libros] SET Titulo='El llano en llamas',  Autor ='Juan Rulfo',  Edicion=2,  Noeditorial=3,  [Ejemplares Pedidos]=3,  Estado='S',  NoSolicitud=7,  ISBN='978'84' WHERE ClaveLibro=9

=== CambiaGenerico_X mas columnas que valores
expect: error 3144
UPDATE [Solicitudes Libros] SET Titulo='El llano en llamas',  Autor ='Juan Rulfo',  Edicion= WHERE ClaveLibro=9

=== Sol_Edi Form_Load modificar
expect: value 2008-12-15 00:00:00
Select Fecha, Solicitante , Nobiblioteca, NoEscuela, IdFinanciamiento  From [Solicitudes General] where NoSolicitud=7

=== Sol_Edi Command1 CambiaGenerico_X
expect: affected 1
UPDATE [Solicitudes General] SET Fecha=#2008/12/14#,  FechaCaptura=#2008/12/15 09:20:00#,  Solicitante='Ana O''Connor',  NoEscuela=2,  NoBiblioteca=2,  IdCapturista='admin',  IdFinanciamiento=1 WHERE NoSolicitud=7

=== Sol_Edi Command1 CambiaGenerico_X fecha guardada
expect: value 2008-12-14 00:00:00
Select Fecha, Solicitante , Nobiblioteca, NoEscuela, IdFinanciamiento  From [Solicitudes General] where NoSolicitud=7

=== Form2 Command4 titulos de la solicitud
expect: rows 2
Select clavelibro From [Solicitudes Libros] where NoSolicitud=7

=== Form2 Command4 solicitud sin pedir
expect: rows 1
SELECT FechaPedido,FechaRecepcion FROM [Solicitudes General] WHERE Nosolicitud=7 AND IsNull(FechaPedido)

=== Form2 Command4 solicitud ya pedida
expect: rows 0
SELECT FechaPedido,FechaRecepcion FROM [Solicitudes General] WHERE Nosolicitud=2 AND IsNull(FechaPedido)

=== Form2 Command4 MarcaSolicitada
expect: affected 2
update [Solicitudes Libros] set Estado='S' where NoSolicitud=7

=== Form2 Command4 solicitud vacia
expect: rows 0
Select clavelibro From [Solicitudes Libros] where NoSolicitud=4

=== Form2 Command4 BorrarX solicitud vacia
expect: affected 1
DELETE FROM [Solicitudes General] where NoSolicitud=4 

=== Form2 Command3 BorraLibroSolicitud
expect: affected 1
delete from [Solicitudes Libros] where ClaveLibro=10

=== Sol1 Command3 BorraSolicitud 1
expect: affected 2
delete n.* from [adquisiciones numadqui] N inner join [Solicitudes Libros] L on N.ClaveLibro=L.ClaveLibro where L.NoSolicitud=5

=== Sol1 Command3 BorraSolicitud 2
expect: affected 1
delete from [Solicitudes Libros] where NoSolicitud=5

=== Sol1 Command3 BorraSolicitud 3
expect: affected 1
delete from [Solicitudes General] where NoSolicitud=5

=== Sol1 Command3 LlenaListaClave
expect: rows 5
Select NoSolicitud, Fecha, Solicitante, NoEscuela, Nobiblioteca From [Solicitudes General] order by NoSolicitud Desc

=== Ped1 Form_Load lista
expect: rows 3
SELECT [Solicitudes General].NoSolicitud as NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre, Count(claveLibro) as Ejemplares FROM (([Solicitudes General] inner join [Solicitudes Libros] on [Solicitudes General].Nosolicitud=[Solicitudes Libros].NoSolicitud )  left join [Escuelas] on [Solicitudes General].NoEscuela = [Escuelas].[No]) left join Bibliotecas on [Solicitudes General].NoBiblioteca=Bibliotecas.[no]where  [Solicitudes General].estado='S' group by [Solicitudes General].NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre ORDER BY [Solicitudes General].NoSolicitud Desc

=== Ped1_Repor Form_Load xml_in
expect: rows 3
SELECT ClaveLibro, NoSolicitud as Solicitud, Titulo, ISBN, Autor,[Ejemplares Pedidos], Editoriales.Nombre as Editorial, Edicion FROM  ([Solicitudes Libros] left join [Editoriales] on [Solicitudes Libros].NoEditorial = Editoriales.[No]) where NoSolicitud in (003, 007)

=== Ped1_Repor Form_Load xml_in sin marcas
expect: rows 0
SELECT ClaveLibro, NoSolicitud as Solicitud, Titulo, ISBN, Autor,[Ejemplares Pedidos], Editoriales.Nombre as Editorial, Edicion FROM  ([Solicitudes Libros] left join [Editoriales] on [Solicitudes Libros].NoEditorial = Editoriales.[No]) where NoSolicitud in (0)

=== Ped1_Repor Command1 MarcaPedidas solicitudes
expect: affected 2
UPDATE [Solicitudes General] set Estado='P', FechaPedido=#2008/12/15 09:40:00# where NoSolicitud in (003, 007)

=== Ped1_Repor Command1 MarcaPedidas titulos
expect: affected 3
UPDATE [Solicitudes Libros] set Estado='P' where NoSolicitud in (003, 007)

=== MarcaPedidas Valor vacio
expect: error 3075
UPDATE [Solicitudes General] set Estado='P', FechaPedido=#2008/12/15 09:41:00# where NoSolicitud in ()

=== MarcaPedidas Valor vacio titulos
expect: error 3075
UPDATE [Solicitudes Libros] set Estado='P' where NoSolicitud in ()

=== Ped1_Repor Command1 fecha de pedido
expect: value 2008-12-15 09:40:00
SELECT FechaPedido,FechaRecepcion FROM [Solicitudes General] WHERE Nosolicitud=7

=== Ped1 Form_Load lista despues del pedido
expect: value 6
SELECT [Solicitudes General].NoSolicitud as NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre, Count(claveLibro) as Ejemplares FROM (([Solicitudes General] inner join [Solicitudes Libros] on [Solicitudes General].Nosolicitud=[Solicitudes Libros].NoSolicitud )  left join [Escuelas] on [Solicitudes General].NoEscuela = [Escuelas].[No]) left join Bibliotecas on [Solicitudes General].NoBiblioteca=Bibliotecas.[no]where  [Solicitudes General].estado='S' group by [Solicitudes General].NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre ORDER BY [Solicitudes General].NoSolicitud Desc

=== Recep Refresca pendientes
expect: rows 3
SELECT NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre FROM ([Solicitudes General] left join [Escuelas] on [Solicitudes General].NoEscuela = [Escuelas].No) left join Bibliotecas on [Solicitudes General].NoBiblioteca=Bibliotecas.no where estado='P' order by NoSolicitud Desc

=== Recep Refresca pendientes primera fila
expect: value 7
SELECT NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre FROM ([Solicitudes General] left join [Escuelas] on [Solicitudes General].NoEscuela = [Escuelas].No) left join Bibliotecas on [Solicitudes General].NoBiblioteca=Bibliotecas.no where estado='P' order by NoSolicitud Desc

=== Recep Refresca procesados
expect: rows 1
SELECT NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre FROM ([Solicitudes General] left join [Escuelas] on [Solicitudes General].NoEscuela = [Escuelas].No) left join Bibliotecas on [Solicitudes General].NoBiblioteca=Bibliotecas.no WHERE (estado='R') OR (estado='') order by NoSolicitud Desc

=== Recep_Generales Form_Load encabezado
expect: value 2008-10-02 00:00:00
Select Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre From ([Solicitudes General] left join [Escuelas] on [Solicitudes General].NoEscuela = [Escuelas].No) left join Bibliotecas on [Solicitudes General].NoBiblioteca=Bibliotecas.no where NoSolicitud=2

=== Recep_Generales Refresca
expect: rows 2
SELECT ClaveLibro,NoSolicitud, iif(Estado='A','Adquirido',iif(Estado='I','No adquirido',iif(Estado='P','-Pedido-','Solicitado')))as Edo,Titulo, Autor, Editoriales.Nombre, [Ejemplares Pedidos], [Ejemplares recibidos], Edicion FROM ([Solicitudes Libros] left join Editoriales on [Solicitudes Libros].NoEditorial = Editoriales.[No]) where NoSolicitud=2

=== Recep_Generales Command2 CambiaGenerico_X no recibido
expect: affected 1
UPDATE [Solicitudes Libros] SET [Fecha de Recepcion]= NULL, [Ejemplares Recibidos]= 0, Costo= 0, Factura= '', Estado= 'I', IdCapturista='admin' WHERE ClaveLibro=3

=== Recep_Generales Command2 BorrarX numeros de la clave
expect: affected 1
DELETE FROM [Adquisiciones Numadqui] where ClaveLibro=3 

=== Recep_Generales Command3 titulos pedidos
expect: rows 0
Select Estado From [Solicitudes Libros] where NoSolicitud=2 and Estado='P' ORDER BY NoSolicitud Desc

=== Recep_Generales Command3 CambiaGenerico_X recibida
expect: affected 1
UPDATE [Solicitudes General] SET Estado='R', FechaRecepcion=#2008/12/15 10:00:00#, IdCapturista='admin' WHERE NoSolicitud=2

=== Recep_Generales Refresca solicitud 3
expect: rows 2
SELECT ClaveLibro,NoSolicitud, iif(Estado='A','Adquirido',iif(Estado='I','No adquirido',iif(Estado='P','-Pedido-','Solicitado')))as Edo,Titulo, Autor, Editoriales.Nombre, [Ejemplares Pedidos], [Ejemplares recibidos], Edicion FROM ([Solicitudes Libros] left join Editoriales on [Solicitudes Libros].NoEditorial = Editoriales.[No]) where NoSolicitud=3

=== Recep_Libros Form_Load datos del titulo
expect: value La región más transparente
Select Titulo, Autor,  Editoriales.Nombre, [Ejemplares Pedidos], Edicion From ([Solicitudes Libros] left join Editoriales on [Solicitudes Libros].NoEditorial = Editoriales.[No]) where ClaveLibro=5

=== Recep_Libros Form_Load recepcion
expect: value NULL
Select [Fecha de Recepcion], [Ejemplares Recibidos], Costo, Factura From [Solicitudes Libros] where ClaveLibro=5

=== Recep_Libros Form_Load numeros
expect: rows 0
Select NoAdquisicion From [Adquisiciones Numadqui] where ClaveLibro=5 AND [Solicitud o donacion]='S' 

=== Recep_Libros Command4 numero nuevo
expect: rows 0
Select NoAdquisicion From [Adquisiciones Numadqui] where NoAdquisicion='000310' AND [Solicitud o donacion]='S'

=== Recep_Libros Command4 CambiaGenerico_X
expect: affected 1
UPDATE [Solicitudes Libros] SET [Fecha de Recepcion]=#2008/12/15#, [Ejemplares Recibidos]= 2, Costo= 199.9, Factura= 'F-400', Estado= 'A', IdCapturista='admin' WHERE ClaveLibro=5

=== Recep_Libros Command4 GrabarX numero
expect: affected 1
Insert into[Adquisiciones Numadqui](NoAdquisicion, Clavelibro, [Solicitud o Donacion],IdCapturista,FechaIngreso) values ('000310', 5, 'S','admin',#2008/12/15 10:05:00#)

=== Recep_Libros Command4 segundo numero nuevo
expect: rows 0
Select NoAdquisicion From [Adquisiciones Numadqui] where NoAdquisicion='000311' AND [Solicitud o donacion]='S'

=== Recep_Libros Command4 CambiaGenerico_X segundo
expect: affected 1
UPDATE [Solicitudes Libros] SET [Fecha de Recepcion]=#2008/12/15#, [Ejemplares Recibidos]= 2, Costo= 199.9, Factura= 'F-400', Estado= 'A', IdCapturista='admin' WHERE ClaveLibro=5

=== Recep_Libros Command4 GrabarX segundo numero
expect: affected 1
Insert into[Adquisiciones Numadqui](NoAdquisicion, Clavelibro, [Solicitud o Donacion],IdCapturista,FechaIngreso) values ('000311', 5, 'S','admin',#2008/12/15 10:06:00#)

=== Recep_Libros Command4 numero repetido
expect: rows 1
Select NoAdquisicion From [Adquisiciones Numadqui] where NoAdquisicion='000101' AND [Solicitud o donacion]='S'

=== Recep_Libros Form_Load numeros registrados
expect: rows 2
Select NoAdquisicion From [Adquisiciones Numadqui] where ClaveLibro=5 AND [Solicitud o donacion]='S' 

=== Recep_Libros CargarMetadataEjemplar
expect: rows 2
SELECT NoAdquisicion,FechaIngreso FROM [Adquisiciones Numadqui] WHERE NoAdquisicion IN ('000310','000311')

=== Recep_Libros Command5 BorrarX numero
expect: affected 1
DELETE FROM [Adquisiciones Numadqui] where NoAdquisicion='000311'  AND [Solicitud o donacion]='S'

=== Recep_Libros Command4 CambiaGenerico_X factura con barra
expect: affected 1
UPDATE [Solicitudes Libros] SET [Fecha de Recepcion]=#2008/12/15#, [Ejemplares Recibidos]= 1, Costo= 199.9, Factura= 'F-4, Estado=01', IdCapturista= 'A' WHERE ClaveLibro=5

=== Recep_Libros Command3 CambiaGenerico_X adquirido
expect: affected 1
UPDATE [Solicitudes Libros] SET [Fecha de Recepcion]=#2008/12/15#, [Ejemplares Recibidos]= 1, Costo= 199.9, Factura= 'F-400', Estado= 'A', IdCapturista='admin' WHERE ClaveLibro=5

=== Recep_Libros Form_Load numeros titulo 6
expect: rows 0
Select NoAdquisicion From [Adquisiciones Numadqui] where ClaveLibro=6 AND [Solicitud o donacion]='S' 

=== Recep_Libros Command4 numero de una donacion
expect: rows 0
Select NoAdquisicion From [Adquisiciones Numadqui] where NoAdquisicion='D00003' AND [Solicitud o donacion]='S'

=== Recep_Libros Command4 CambiaGenerico_X titulo 6
expect: affected 1
UPDATE [Solicitudes Libros] SET [Fecha de Recepcion]=#2008/12/15#, [Ejemplares Recibidos]= 1, Costo= 99.95, Factura= 'F-401', Estado= 'A', IdCapturista='admin' WHERE ClaveLibro=6

=== Recep_Libros Command4 GrabarX numero de una donacion
expect: affected 1
Insert into[Adquisiciones Numadqui](NoAdquisicion, Clavelibro, [Solicitud o Donacion],IdCapturista,FechaIngreso) values ('D00003', 6, 'S','admin',#2008/12/15 10:20:00#)

=== Recep_Libros CargarMetadataEjemplar numero repetido en donacion
expect: rows 2
SELECT NoAdquisicion,FechaIngreso FROM [Adquisiciones Numadqui] WHERE NoAdquisicion IN ('D00003')

=== Recep_Libros Command5 BorrarX numero de solicitud
expect: affected 1
DELETE FROM [Adquisiciones Numadqui] where NoAdquisicion='D00003'  AND [Solicitud o donacion]='S'

=== Recep_Libros Command3 CambiaGenerico_X regresa a pedido
expect: affected 1
UPDATE [Solicitudes Libros] SET [Fecha de Recepcion]= NULL, [Ejemplares Recibidos]= 0, Costo= 0, Factura= '', Estado= 'P', IdCapturista='admin' WHERE ClaveLibro=6

=== Recep_Generales Command3 titulos pedidos solicitud 3
expect: rows 1
Select Estado From [Solicitudes Libros] where NoSolicitud=3 and Estado='P' ORDER BY NoSolicitud Desc

=== Recep_Generales Command3 CambiaGenerico_X sigue pedida
expect: affected 1
UPDATE [Solicitudes General] SET Estado='P', FechaRecepcion=NULL, IdCapturista='admin' WHERE NoSolicitud=3

=== Recep Refresca procesados despues
expect: value 2
SELECT NoSolicitud,Fecha,solicitante,[Escuelas].Nombre, Bibliotecas.Nombre FROM ([Solicitudes General] left join [Escuelas] on [Solicitudes General].NoEscuela = [Escuelas].No) left join Bibliotecas on [Solicitudes General].NoBiblioteca=Bibliotecas.no WHERE (estado='R') OR (estado='') order by NoSolicitud Desc

=== Don1 Refrescar
expect: rows 3
SELECT NoDonacion,Fecha, [Instituciones].Nombre, Bibliotecas.Nombre FROM ([Donaciones General] left join [Instituciones] on [Donaciones General].NoInstitucion = [Instituciones].No) left join Bibliotecas on [Donaciones General].NoBiblioteca=Bibliotecas.no  ORDER BY NoDonacion Desc

=== Don_Edi Form_Load combo instituciones
expect: value 2
SELECT [No], Nombre FROM Instituciones ORDER BY Nombre

=== Don_Edi Form_Load numero nuevo
expect: value 3
Select Max(NoDonacion) as MaxS From [Donaciones General]

=== Don_Edi Command1 GrabarX nueva donacion
expect: affected 1
Insert into[Donaciones General](NoDonacion, Fecha , NoInstitucion, Nobiblioteca, [Donacion o Intercambio]) values (4,#2008/12/15#,2,1,'I')

=== Don_Edi Command1 GrabarX numero ya usado
expect: error 3022
Insert into[Donaciones General](NoDonacion, Fecha , NoInstitucion, Nobiblioteca, [Donacion o Intercambio]) values (4,#2008/12/15#,1,1,'D')

=== Don_Edi Command1 GrabarX fecha vacia
expect: error 3075
Insert into[Donaciones General](NoDonacion, Fecha , NoInstitucion, Nobiblioteca, [Donacion o Intercambio]) values (5,##,1,1,'D')

=== Don_Edi Form_Load modificar
expect: value 2008-12-15 00:00:00
Select Fecha, NoInstitucion, Nobiblioteca,[Donacion o Intercambio]  From [Donaciones General] where NoDonacion=4

=== Don_Edi Command1 CambiaGenerico_X
expect: affected 1
UPDATE [Donaciones General] SET Fecha=#2008/12/14#,  NoInstitucion=2,  NoBiblioteca=1,  [Donacion o Intercambio]='D' WHERE NoDonacion=4

=== Don_Generales Refresca sin titulos
expect: rows 0
SELECT ClaveLibro, Titulo, Autor, Editoriales.Nombre, Ejemplares, Edicion FROM ([Donaciones Libros] left join Editoriales on [Donaciones Libros].NoEditorial=Editoriales.[No])  where NoDonacion=4

=== Don_Generales Refresca encabezado
expect: value 4
Select NoDonacion, Fecha, [Instituciones].Nombre, Bibliotecas.Nombre, [Donacion o Intercambio] From ([Donaciones General] left join [Instituciones] on [Donaciones General].NoInstitucion = [Instituciones].No) left join Bibliotecas on [Donaciones General].NoBiblioteca=Bibliotecas.no where NoDonacion=4

=== Don_Libros Command4 numero nuevo
expect: rows 0
Select NoAdquisicion From [Adquisiciones Numadqui] where NoAdquisicion='D00010'

=== Don_Libros Command4 GrabarX titulo
expect: affected 1
Insert into[Donaciones Libros](Titulo, Autor, NoEditorial, Ejemplares, Edicion, NoDonacion) values ('Poesía completa','Jaime Sabines',3,2,1,4)

=== Don_Libros Command4 clave del titulo
expect: value 4
Select Max(ClaveLibro) as MaxS From [Donaciones Libros]

=== Don_Libros Command4 GrabarX numero
expect: affected 1
Insert into[Adquisiciones Numadqui](NoAdquisicion, Clavelibro, [Solicitud o Donacion]) values ('D00010', 4, 'D')

=== Don_Libros Command4 segundo numero nuevo
expect: rows 0
Select NoAdquisicion From [Adquisiciones Numadqui] where NoAdquisicion='D00011'

=== Don_Libros Command4 CambiaGenerico_X titulo
expect: affected 1
UPDATE [Donaciones Libros] SET Titulo='Poesía completa', Autor='Jaime Sabines', NoEditorial=3, Ejemplares=2, Edicion=1 WHERE ClaveLibro=4

=== Don_Libros Command4 GrabarX segundo numero
expect: affected 1
Insert into[Adquisiciones Numadqui](NoAdquisicion, Clavelibro, [Solicitud o Donacion]) values ('D00011', 4, 'D')

=== Don_Libros Command4 numero de una solicitud
expect: rows 1
Select NoAdquisicion From [Adquisiciones Numadqui] where NoAdquisicion='000101'

=== Don_Libros Command4 numero con apostrofo
expect: rows 0
Select NoAdquisicion From [Adquisiciones Numadqui] where NoAdquisicion='D''12'

=== Don_Libros Command5 BorrarX numero
expect: affected 1
DELETE FROM [Adquisiciones Numadqui] where NoAdquisicion='D00011' 

=== Don_Libros Command1 alta de titulo nuevo
expect: error 3129
INSERTO INTO [Donaciones Libros] (Titulo,Autor,NoEditorial,Ejemplares,Edicion,Costo,FechaCaptura,IdCapturista) VALUES (

=== Don_Libros Form_Load modificar
expect: value Poesía completa
Select Titulo, Autor, NoEditorial, Ejemplares, Edicion, Costo From [Donaciones Libros] where ClaveLibro=4

=== Don_Libros Form_Load numeros
expect: rows 1
Select NoAdquisicion From [Adquisiciones Numadqui] where ClaveLibro=4 AND [Adquisiciones numadqui].[solicitud o donacion]='D'

=== Don_Libros Command1 CambiaGenerico_X
expect: affected 1
UPDATE [Donaciones Libros] SET Titulo='Poesía completa', Autor='Jaime Sabines', NoEditorial= 3, Ejemplares= 2, Edicion= 1, Costo= 180.5, FechaCaptura=#2008/12/15 11:00:00#, IdCapturista='admin' WHERE ClaveLibro=4

=== Don_Generales Refresca con titulo
expect: rows 2
SELECT ClaveLibro, Titulo, Autor, Editoriales.Nombre, Ejemplares, Edicion FROM ([Donaciones Libros] left join Editoriales on [Donaciones Libros].NoEditorial=Editoriales.[No])  where NoDonacion=1

=== Don_Generales Command3 BorraLibroDonacion 1
expect: affected 1
delete from [Donaciones Libros] where ClaveLibro=3

=== Don_Generales Command3 BorraLibroDonacion 2
expect: affected 0
delete from [Adquisiciones Numadqui] where [Solicitud o donacion]='D' and ClaveLibro=3

=== Don_Generales Command4 titulos de la donacion
expect: rows 0
Select clavelibro From [Donaciones Libros] where NoDonacion=3

=== Don_Generales Command4 BorrarX donacion vacia
expect: affected 1
DELETE FROM [Donaciones General] where NoDonacion=3 

=== frmFuentesFin Form_Load recordset
expect: rows 3
SELECT * FROM adqFinanciamiento ORDER BY 1

=== ActualizaMontoDisponibledeFinanciamientos 1 pagos
expect: rows 1
SELECT idfinanciamiento, montoTotal, (SELECT ccur( iif (isnull( abs(sum(monto)) ),0,abs(sum(monto)))) FROM adqsaldoFinanciamientos WHERE Operacion='-SALDpag' AND adqsaldoFinanciamientos.IdFinanciamiento=1) AS Pagos, (adqFinanciamiento.MontoTotal-Pagos) AS Disponible FROM adqFinanciamiento WHERE adqFinanciamiento.idFinanciamiento = 1 ORDER BY 1

=== ActualizaMontoDisponibledeFinanciamientos 1 disponible
expect: affected 1
UPDATE adqFinanciamiento SET MontoAsignadoDisponible=95000 WHERE IdFinanciamiento=1

=== ActualizaMontoDisponibledeFinanciamientos 1 asignado
expect: rows 1
SELECT IdFinanciamiento, sum(TotalAsignado) as TAsignado FROM adqProyectos WHERE IdFinanciamiento= 1 GROUP BY IdFinanciamiento

=== ActualizaMontoDisponibledeFinanciamientos 1 por asignar
expect: affected 1
UPDATE adqFinanciamiento SET MontoXAsignar=50000 WHERE IdFinanciamiento=1

=== ActualizaMontoDisponibledeFinanciamientos 2 pagos
expect: rows 1
SELECT idfinanciamiento, montoTotal, (SELECT ccur( iif (isnull( abs(sum(monto)) ),0,abs(sum(monto)))) FROM adqsaldoFinanciamientos WHERE Operacion='-SALDpag' AND adqsaldoFinanciamientos.IdFinanciamiento=2) AS Pagos, (adqFinanciamiento.MontoTotal-Pagos) AS Disponible FROM adqFinanciamiento WHERE adqFinanciamiento.idFinanciamiento = 2 ORDER BY 1

=== ActualizaMontoDisponibledeFinanciamientos 2 disponible
expect: affected 1
UPDATE adqFinanciamiento SET MontoAsignadoDisponible=20000 WHERE IdFinanciamiento=2

=== ActualizaMontoDisponibledeFinanciamientos 2 asignado
expect: rows 0
SELECT IdFinanciamiento, sum(TotalAsignado) as TAsignado FROM adqProyectos WHERE IdFinanciamiento= 2 GROUP BY IdFinanciamiento

=== ActualizaMontoDisponibledeFinanciamientos 3 pagos
expect: rows 1
SELECT idfinanciamiento, montoTotal, (SELECT ccur( iif (isnull( abs(sum(monto)) ),0,abs(sum(monto)))) FROM adqsaldoFinanciamientos WHERE Operacion='-SALDpag' AND adqsaldoFinanciamientos.IdFinanciamiento=3) AS Pagos, (adqFinanciamiento.MontoTotal-Pagos) AS Disponible FROM adqFinanciamiento WHERE adqFinanciamiento.idFinanciamiento = 3 ORDER BY 1

=== ActualizaMontoDisponibledeFinanciamientos 3 disponible
expect: affected 1
UPDATE adqFinanciamiento SET MontoAsignadoDisponible=50000 WHERE IdFinanciamiento=3

=== ActualizaMontoDisponibledeFinanciamientos 3 asignado
expect: rows 1
SELECT IdFinanciamiento, sum(TotalAsignado) as TAsignado FROM adqProyectos WHERE IdFinanciamiento= 3 GROUP BY IdFinanciamiento

=== ActualizaMontoDisponibledeFinanciamientos 3 por asignar
expect: affected 1
UPDATE adqFinanciamiento SET MontoXAsignar=40000 WHERE IdFinanciamiento=3

=== frmFuentesFin cmdGrabar saldo de fuente modificada
expect: affected 1
UPDATE adqSaldoFinanciamientos SET UltimoMovimiento=#12-15-2008#, Monto=20000,  Operacion='+ADDFinan',IdCapturista='admin' WHERE IdFinanciamiento=2

=== frmFuentesFin cmdGrabar saldo de fuente nueva
expect: affected 1
INSERT INTO adqSaldoFinanciamientos VALUES (4,#12-15-2008#,30000,0,'+ADDFinan','admin')

=== Proyectos Form_Load combo fuentes
expect: value 2
SELECT [IdFinanciamiento], Nombre FROM adqFinanciamiento ORDER BY Nombre

=== Proyectos Form_Load combo DES
expect: rows 6
SELECT [No], Nombre FROM Escuelas ORDER BY Nombre

=== ActualizaMontoDisponibledeProyectos proyectos
expect: rows 3
SELECT * FROM adqProyectos ORDER BY IdEscuela

=== ActualizaMontoDisponibledeProyectos escuela 1 pagos
expect: rows 1
SELECT idEscuela, TotalAsignado, MontoDisponible, (SELECT ccur(iif(isnull(abs(sum(monto))),0,abs(sum(monto)))) FROM adqSaldoProyectos WHERE mid(Operacion,1,5)='-CARG' AND adqSaldoProyectos.IdEscuela=1 AND adqSaldoProyectos.idFinanciamiento = 1) AS Pagos, (adqProyectos.TotalAsignado-Pagos) AS Disponible FROM adqProyectos  WHERE adqProyectos.idFinanciamiento = 1 AND adqProyectos.IdEscuela=1 ORDER BY 1

=== ActualizaMontoDisponibledeProyectos escuela 1 disponible
expect: affected 1
UPDATE adqProyectos SET MontoDisponible=27000 WHERE IdFinanciamiento=1 AND adqProyectos.IdEscuela=1

=== ActualizaMontoDisponibledeProyectos escuela 2 pagos
expect: rows 1
SELECT idEscuela, TotalAsignado, MontoDisponible, (SELECT ccur(iif(isnull(abs(sum(monto))),0,abs(sum(monto)))) FROM adqSaldoProyectos WHERE mid(Operacion,1,5)='-CARG' AND adqSaldoProyectos.IdEscuela=2 AND adqSaldoProyectos.idFinanciamiento = 1) AS Pagos, (adqProyectos.TotalAsignado-Pagos) AS Disponible FROM adqProyectos  WHERE adqProyectos.idFinanciamiento = 1 AND adqProyectos.IdEscuela=2 ORDER BY 1

=== ActualizaMontoDisponibledeProyectos escuela 2 disponible
expect: affected 1
UPDATE adqProyectos SET MontoDisponible=18000 WHERE IdFinanciamiento=1 AND adqProyectos.IdEscuela=2

=== ActualizaMontoDisponibledeProyectos escuela 3 pagos
expect: rows 1
SELECT idEscuela, TotalAsignado, MontoDisponible, (SELECT ccur(iif(isnull(abs(sum(monto))),0,abs(sum(monto)))) FROM adqSaldoProyectos WHERE mid(Operacion,1,5)='-CARG' AND adqSaldoProyectos.IdEscuela=3 AND adqSaldoProyectos.idFinanciamiento = 3) AS Pagos, (adqProyectos.TotalAsignado-Pagos) AS Disponible FROM adqProyectos  WHERE adqProyectos.idFinanciamiento = 3 AND adqProyectos.IdEscuela=3 ORDER BY 1

=== ActualizaMontoDisponibledeProyectos escuela 3 disponible
expect: affected 1
UPDATE adqProyectos SET MontoDisponible=10000 WHERE IdFinanciamiento=3 AND adqProyectos.IdEscuela=3

=== Proyectos Form_Load lista
expect: rows 3
SELECT IdProyecto, Nombre, Responsable, IdEscuela, FuenteFinanciamiento, FechaAsignacion, FechaVigencia, TotalAsignado, UltimoMovimiento, MontoDisponible, Descripcion, IdFinanciamiento  FROM adqProyectos ORDER BY IdProyecto

=== Proyectos cboFuenteFinanciamiento_Click
expect: value 40000
SELECT MontoXAsignar FROM adqFinanciamiento WHERE IdFinanciamiento=3

=== Proyectos ValidaProyecto monto por asignar
expect: value 40000
SELECT MontoXAsignar FROM adqFinanciamiento WHERE IdFinanciamiento=3

=== Proyectos cmdGrabar alta
expect: affected 1
INSERT INTO adqProyectos  (Nombre, Responsable, IdEscuela, FuenteFinanciamiento,   FechaAsignacion, FechaVigencia, TotalAsignado, UltimoMovimiento,   MontoDisponible, Descripcion, IdCapturista, FechaCaptura,IdFinanciamiento) VALUES  ('Colegio O''''Higgins','Irene Vidal', 5,'Ingresos propios', #2008/12/01 00:00:00#, #2009/12/31 00:00:00#, 15000, NULL,15000, 'Acervo de consulta', 'admin', #2008/12/15 11:10:00#, 3) 

=== Proyectos cmdGrabar alta saldo del proyecto
expect: affected 1
INSERT INTO adqSaldoProyectos VALUES (5,3,#2008/12/15#,15000,0,'+ADDproy','admin')

=== Proyectos cmdGrabar alta saldo de la fuente
expect: affected 1
UPDATE adqFinanciamiento SET UltimoMovimiento=#2008/12/15#, MontoXAsignar=(MontoXAsignar-15000)  , MontoAsignadoDisponible=(MontoAsignadoDisponible+15000) WHERE IdFinanciamiento=3

=== Proyectos cmdGrabar alta lista
expect: rows 4
SELECT IdProyecto, Nombre, Responsable, IdEscuela, FuenteFinanciamiento, FechaAsignacion, FechaVigencia, TotalAsignado, UltimoMovimiento, MontoDisponible, Descripcion FROM adqProyectos ORDER BY IdProyecto

=== Proyectos ValidaProyecto monto por asignar tras alta
expect: value 25000
SELECT MontoXAsignar FROM adqFinanciamiento WHERE IdFinanciamiento=3

=== Proyectos cmdGrabar cambio sin movimientos
expect: affected 1
UPDATE adqProyectos SET Nombre='Escuela de Música', Responsable='Sofía Lenz', FuenteFinanciamiento='Ingresos propios', IdEscuela=3, FechaAsignacion=#2008/03/05 00:00:00#, FechaVigencia=#2009/03/05 00:00:00#, TotalAsignado=12000,UltimoMovimiento=NULL, MontoDisponible=10000, Descripcion='Partituras',IdCapturista='admin', FechaCaptura=#2008/12/15 11:20:00#, IdFinanciamiento=3 WHERE IdProyecto=003

=== Proyectos cmdGrabar cambio sin movimientos disponible
expect: affected 1
UPDATE adqProyectos SET MontoDisponible = 12000,IdCapturista='admin', FechaCaptura=#2008/12/15 11:20:00# WHERE IdProyecto=003

=== Proyectos cmdGrabar cambio sin movimientos saldo del proyecto
expect: affected 1
UPDATE adqSaldoProyectos SET UltimoMovimiento=#2008/12/15 11:20:00#, Monto=12000, IdCapturista='admin' WHERE IdEscuela=3 AND IdFinanciamiento=3 AND Operacion='+ADDproy'

=== Proyectos cmdGrabar cambio sin movimientos fuente 1
expect: affected 1
UPDATE adqFinanciamiento SET MontoXAsignar=(MontoXAsignar+10000) WHERE IdFinanciamiento=3

=== Proyectos cmdGrabar cambio sin movimientos fuente 2
expect: affected 1
UPDATE adqFinanciamiento SET UltimoMovimiento=#2008/12/15 11:20:00#, MontoXAsignar=(MontoXAsignar-12000)  ,MontoAsignadoDisponible=(MontoAsignadoDisponible+2000) WHERE IdFinanciamiento=3

=== Proyectos cboFuenteFinanciamiento_Click tras cambio
expect: value 23000
SELECT MontoXAsignar FROM adqFinanciamiento WHERE IdFinanciamiento=3

=== Proyectos ValidaProyecto monto por asignar fuente 1
expect: value 50000
SELECT MontoXAsignar FROM adqFinanciamiento WHERE IdFinanciamiento=1

=== Proyectos cmdGrabar cambio con movimientos
expect: affected 1
UPDATE adqProyectos SET Nombre='Escuela de Artes', Responsable='Marta Ibarra', FuenteFinanciamiento='Fondo Federal 2008', IdEscuela=1, FechaAsignacion=#2008/02/01 00:00:00#, FechaVigencia=#2008/12/31 00:00:00#, TotalAsignado=32000,UltimoMovimiento=#2008/06/10 00:00:00#, MontoDisponible=27000, Descripcion='Acervo de artes',IdCapturista='admin', FechaCaptura=#2008/12/15 11:30:00#, IdFinanciamiento=1 WHERE IdProyecto=001

=== Proyectos cmdGrabar cambio con movimientos disponible
expect: affected 1
UPDATE adqProyectos SET MontoDisponible = 29000,IdCapturista='admin', FechaCaptura=#2008/12/15 11:30:00# WHERE IdProyecto=001

=== Proyectos cmdGrabar cambio con movimientos saldo del proyecto
expect: affected 1
UPDATE adqSaldoProyectos SET UltimoMovimiento=#2008/12/15 11:30:00#, Monto=32000, IdCapturista='admin' WHERE IdEscuela=1 AND IdFinanciamiento=1 AND Operacion='+ADDproy'

=== Proyectos cmdGrabar cambio con movimientos fuente
expect: affected 1
UPDATE adqFinanciamiento SET UltimoMovimiento=#2008/12/15 11:30:00#, MontoXAsignar=(MontoXAsignar-2000) ,MontoAsignadoDisponible=(MontoAsignadoDisponible-2000) WHERE IdFinanciamiento=1

=== Proyectos cboFuenteFinanciamiento_Click fuente 1
expect: value 48000
SELECT MontoXAsignar FROM adqFinanciamiento WHERE IdFinanciamiento=1

=== pagoFacturasMain RefrescaListView todos
expect: rows 3
SELECT IdPagoFactura,iif(Estado='P','Pagado','Solicitado')as Edo,FuenteFinanciamiento, Proveedores.Empresa, Monto, FechaSolicitud, FechaPago, Concepto, Observaciones,IdFinanciamiento  FROM ([PagoFacturasGral] LEFT JOIN Proveedores ON [PagoFacturasGral].IdProveedor = Proveedores.[No])

=== pagoFacturasMain RefrescaListView pendientes
expect: rows 2
SELECT IdPagoFactura,iif(Estado='P','Pagado','Solicitado')as Edo,FuenteFinanciamiento, Proveedores.Empresa, Monto, FechaSolicitud, FechaPago, Concepto, Observaciones,IdFinanciamiento  FROM ([PagoFacturasGral] LEFT JOIN Proveedores ON [PagoFacturasGral].IdProveedor = Proveedores.[No]) WHERE Estado='S'

=== pagoFacturasGral Form_Load combo proveedores
expect: value 1
SELECT [No], Empresa FROM Proveedores ORDER BY [No]

=== pagoFacturasGral Form_Load combo financiamientos
expect: rows 3
SELECT [IdFinanciamiento], Nombre FROM adqFinanciamiento ORDER BY Nombre

=== pagoFacturasGral Form_Load numero nuevo
expect: value 3
SELECT TOP 10 IdPagoFactura FROM PagoFacturasGral ORDER BY 1 DESC 

=== pagoFacturasGral cmdAceptar alta
expect: affected 1
INSERT INTO PagoFacturasGral (IdPagoFactura,FuenteFinanciamiento,IdProveedor,FechaSolicitud,FechaPago,FechaMod,Concepto,Observaciones,Monto,IdCapturista,IdCapMod,Estado, IdFinanciamiento) VALUES (004,'Ingresos propios',2,#2008/12/15#,NULL,NULL,'Encuadernación','Urgente',NULL,'admin',NULL,'S',3)

=== pagoFacturasGral cmdAceptar alta numero ya usado
expect: error 3022
INSERT INTO PagoFacturasGral (IdPagoFactura,FuenteFinanciamiento,IdProveedor,FechaSolicitud,FechaPago,FechaMod,Concepto,Observaciones,Monto,IdCapturista,IdCapMod,Estado, IdFinanciamiento) VALUES (004,'Ingresos propios',2,#2008/12/15#,NULL,NULL,'Encuadernación','',NULL,'admin',NULL,'S',3)

=== pagoFacturasGral cmdAceptar alta concepto con apostrofo
expect: error 3075
INSERT INTO PagoFacturasGral (IdPagoFactura,FuenteFinanciamiento,IdProveedor,FechaSolicitud,FechaPago,FechaMod,Concepto,Observaciones,Monto,IdCapturista,IdCapMod,Estado, IdFinanciamiento) VALUES (005,'Ingresos propios',2,#2008/12/15#,NULL,NULL,'Libros de O'Neill','',NULL,'admin',NULL,'S',3)

=== pagoFacturasGral Form_Load modificar
expect: value 4
SELECT * FROM PagoFacturasGral WHERE IdPagoFactura=4 ORDER BY 1 DESC 

=== pagoFacturasGral cmdAceptar cambio
expect: affected 1
UPDATE PagoFacturasGral SET IdFinanciamiento=3, FuenteFinanciamiento='Ingresos propios',IdProveedor=1,FechaSolicitud=#2008/12/14#,FechaMod=#2008/12/15#,FechaPago=NULL,Concepto='Encuadernación de tesis',Observaciones='',IdCapMod='admin' WHERE IdPagoFactura=4

=== pagoFacturasGral cmdAceptar cambio fechas guardadas
expect: value 4
SELECT * FROM PagoFacturasGral WHERE IdPagoFactura=4 ORDER BY 1 DESC 

=== pagoFacturasMain cmdBorrarPago solicitud
expect: affected 1
DELETE FROM pagoFacturasGral WHERE IdPagoFactura=4

=== pagoFacturasMain cmdBorrarPago desglose
expect: affected 0
DELETE FROM pagoFacturasDetalle WHERE IdPagoFactura=4

=== pagoFacturasMain RefrescaListView despues de borrar
expect: rows 3
SELECT IdPagoFactura,iif(Estado='P','Pagado','Solicitado')as Edo,FuenteFinanciamiento, Proveedores.Empresa, Monto, FechaSolicitud, FechaPago, Concepto, Observaciones,IdFinanciamiento  FROM ([PagoFacturasGral] LEFT JOIN Proveedores ON [PagoFacturasGral].IdProveedor = Proveedores.[No])

=== pagoFacturasDetalle Form_Load combo proyectos
expect: rows 2
SELECT adqProyectos.IdProyecto, Nombre, idEscuela as Invisible  FROM adqProyectos WHERE (adqProyectos.idFinanciamiento=3) ORDER BY adqProyectos.IdProyecto

=== pagoFacturasDetalle Form_Load combo proyectos primero
expect: value 3
SELECT adqProyectos.IdProyecto, Nombre, idEscuela as Invisible  FROM adqProyectos WHERE (adqProyectos.idFinanciamiento=3) ORDER BY adqProyectos.IdProyecto

=== pagoFacturasDetalle Form_Load combo proyectos desde impresion
expect: rows 0
SELECT adqProyectos.IdProyecto, Nombre, idEscuela as Invisible  FROM adqProyectos WHERE (adqProyectos.idFinanciamiento=0) ORDER BY adqProyectos.IdProyecto

=== pagoFacturasDetalle RefrescaListView sin facturas
expect: rows 0
SELECT IdFacturaItem,adqProyectos.Nombre,NoFactura,MontoFactura FROM ([PagoFacturasDetalle] LEFT JOIN adqProyectos ON [PagoFacturasDetalle].IdProyecto= adqProyectos.IdProyecto) WHERE [PagoFacturasDetalle].IdPagoFactura=3

=== pagoFacturasDetalle cmdValidarIDS solicitud de la escuela
expect: value 1
SELECT count(SG.noescuela) as Valor FROM [Solicitudes General] SG INNER JOIN [adqProyectos] Pr ON Pr.idescuela=SG.noescuela WHERE SG.nosolicitud = 3 AND Pr.Idproyecto=3

=== pagoFacturasDetalle cmdValidarIDS solicitud de otra escuela
expect: value 0
SELECT count(SG.noescuela) as Valor FROM [Solicitudes General] SG INNER JOIN [adqProyectos] Pr ON Pr.idescuela=SG.noescuela WHERE SG.nosolicitud = 1 AND Pr.Idproyecto=3

=== pagoFacturasDetalle cmdValidarIDS solicitud inexistente
expect: value 0
SELECT count(SG.noescuela) as Valor FROM [Solicitudes General] SG INNER JOIN [adqProyectos] Pr ON Pr.idescuela=SG.noescuela WHERE SG.nosolicitud = 99 AND Pr.Idproyecto=3

=== pagoFacturasDetalle cmdGrabarFactura alta
expect: affected 1
INSERT INTO PagoFacturasDetalle (IdPagoFactura,IdProyecto,NoFactura,MontoFactura,FechaCaptura,IdCapturista,IdSolicitud,IdEscuela) VALUES (3,4,'C-100',2500.5,#2008/12/15#,'admin',NULL,5)

=== pagoFacturasDetalle cmdGrabarFactura alta con solicitud
expect: affected 1
INSERT INTO PagoFacturasDetalle (IdPagoFactura,IdProyecto,NoFactura,MontoFactura,FechaCaptura,IdCapturista,IdSolicitud,IdEscuela) VALUES (3,3,'C-101',1200,#2008/12/15#,'admin',3,3)

=== pagoFacturasDetalle cmdGrabarFactura alta sin columnas nuevas
expect: affected 1
INSERT INTO PagoFacturasDetalle (IdPagoFactura,IdProyecto,NoFactura,MontoFactura,FechaCaptura,IdCapturista) VALUES (3,3,'C-102',300,#2008/12/15#,'admin')

=== pagoFacturasDetalle cmdGrabarFactura alta monto con coma decimal
expect: error 3346
INSERT INTO PagoFacturasDetalle (IdPagoFactura,IdProyecto,NoFactura,MontoFactura,FechaCaptura,IdCapturista,IdSolicitud,IdEscuela) VALUES (3,3,'C-103',300,50,#2008/12/15#,'admin',NULL,3)

=== pagoFacturasDetalle cmdGrabarFactura alta factura con apostrofo
expect: error 3075
INSERT INTO PagoFacturasDetalle (IdPagoFactura,IdProyecto,NoFactura,MontoFactura,FechaCaptura,IdCapturista,IdSolicitud,IdEscuela) VALUES (3,3,'C'104',300,#2008/12/15#,'admin',NULL,3)

=== pagoFacturasDetalle RefrescaListView tres facturas
expect: rows 3
SELECT IdFacturaItem,adqProyectos.Nombre,NoFactura,MontoFactura FROM ([PagoFacturasDetalle] LEFT JOIN adqProyectos ON [PagoFacturasDetalle].IdProyecto= adqProyectos.IdProyecto) WHERE [PagoFacturasDetalle].IdPagoFactura=3

=== pagoFacturasDetalle cmdGrabarFactura cambio
expect: affected 1
UPDATE PagoFacturasDetalle SET IdProyecto=3,NoFactura='C-102',MontoFactura=299.5,FechaMod=#2008/12/15#,IdCapMod='admin',IdSolicitud=NULL,IdEscuela=3 WHERE IdFacturaItem=7

=== pagoFacturasDetalle cmdGrabarFactura cambio sin columnas nuevas
expect: affected 1
UPDATE PagoFacturasDetalle SET IdProyecto=3,NoFactura='C-102',MontoFactura=299.5,FechaMod=#2008/12/15#,IdCapMod='admin' WHERE IdFacturaItem=7

=== pagoFacturasDetalle cmdBorrarFactura
expect: affected 1
DELETE FROM PAgoFacturasDetalle WHERE IdFacturaItem=7

=== pagoFacturasDetalle RefrescaListView dos facturas
expect: rows 2
SELECT IdFacturaItem,adqProyectos.Nombre,NoFactura,MontoFactura FROM ([PagoFacturasDetalle] LEFT JOIN adqProyectos ON [PagoFacturasDetalle].IdProyecto= adqProyectos.IdProyecto) WHERE [PagoFacturasDetalle].IdPagoFactura=3

=== pagoFacturasDetalle ActualizarMontosdePagos
expect: affected 1
UPDATE PagoFacturasGral SET Monto=3700.5, FechaMod=#2008/12/15#,IdCapMod='admin' WHERE IdPagoFactura=3

=== pagoFacturasDetalle Form_Load combo proyectos fuente 1
expect: rows 2
SELECT adqProyectos.IdProyecto, Nombre, idEscuela as Invisible  FROM adqProyectos WHERE (adqProyectos.idFinanciamiento=1) ORDER BY adqProyectos.IdProyecto

=== pagoFacturasDetalle cmdGrabarFactura alta pago 2
expect: affected 1
INSERT INTO PagoFacturasDetalle (IdPagoFactura,IdProyecto,NoFactura,MontoFactura,FechaCaptura,IdCapturista,IdSolicitud,IdEscuela) VALUES (2,1,'B-012',250.75,#2008/12/15#,'admin',1,1)

=== pagoFacturasDetalle RefrescaListView pago 2
expect: rows 3
SELECT IdFacturaItem,adqProyectos.Nombre,NoFactura,MontoFactura FROM ([PagoFacturasDetalle] LEFT JOIN adqProyectos ON [PagoFacturasDetalle].IdProyecto= adqProyectos.IdProyecto) WHERE [PagoFacturasDetalle].IdPagoFactura=2

=== pagoFacturasDetalle ActualizarMontosdePagos pago 2
expect: affected 1
UPDATE PagoFacturasGral SET Monto=1750.75, FechaMod=#2008/12/15#,IdCapMod='admin' WHERE IdPagoFactura=2

=== pagoFacturasSaldar cmdCargarPago 1
expect: rows 2
SELECT SUM(MontoFactura) AS Suma,Nombre,PagofacturasDetalle.IdProyecto FROM PagoFacturasDetalle, adqProyectos WHERE IdPagoFactura=2  AND PagofacturasDetalle.IdProyecto=adqProyectos.IdProyecto GROUP BY Nombre, PagofacturasDetalle.IdProyecto

=== pagoFacturasSaldar cmdCargarPago 2 proyecto 1
expect: value 29000
SELECT MontoDisponible FROM adqProyectos WHERE IdProyecto=1

=== pagoFacturasSaldar cmdCargarPago 2 proyecto 2
expect: value 18000
SELECT MontoDisponible FROM adqProyectos WHERE IdProyecto=2

=== pagoFacturasSaldar cmdCargarPago 2 proyecto inexistente
expect: rows 0
SELECT MontoDisponible FROM adqProyectos WHERE IdProyecto=99

=== pagoFacturasSaldar cmdCargarPago 4 proyecto 1
expect: affected 1
UPDATE adqProyectos SET MontoDisponible=(Montodisponible-1250.75),UltimoMovimiento=#2008/12/15 00:00# WHERE IdProyecto=1

=== pagoFacturasSaldar cmdCargarPago 4 proyecto 2
expect: affected 1
UPDATE adqProyectos SET MontoDisponible=(Montodisponible-500),UltimoMovimiento=#2008/12/15 00:00# WHERE IdProyecto=2

=== pagoFacturasSaldar cmdCargarPago 6
expect: affected 1
UPDATE PagoFacturasGral SET Estado='P',Observaciones='Cheque 0456',FechaMod=#2008/12/15 00:00#,FechaPago=#2008/12/15 12:00:41#,IdCapMod='admin' WHERE IdPagoFactura=2

=== pagoFacturasSaldar cmdCargarPago 8
expect: rows 2
SELECT DISTINCT Nombre,TotalAsignado,MontoDisponible,adqProyectos.IdEscuela,(SELECT SUM(MontoFactura) FROM PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=2) AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)) AS TotalFacturas FROM adqProyectos, PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=2) AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)

=== pagoFacturasSaldar cmdCargarPago 9 proyecto 1
expect: affected 1
INSERT INTO  adqSaldoProyectos VALUES (1,1,#2008/12/15 12:00#,-1250.75,0,'-CARG 0002','admin')

=== pagoFacturasSaldar cmdCargarPago 9 proyecto 2
expect: affected 1
INSERT INTO  adqSaldoProyectos VALUES (2,1,#2008/12/15 12:00#,-500,0,'-CARG 0002','admin')

=== pagoFacturasSaldar cmdCargarPago 12
expect: affected 1
INSERT INTO  adqSaldoFinanciamientos VALUES (1,#2008/12/15 00:00#,-1750.75,0,'-SALDpag','admin')

=== pagoFacturasSaldar cmdCargarPago 13
expect: affected 1
UPDATE adqFinanciamiento SET MontoAsignadoDisponible=(MontoAsignadoDisponible-1750.75), UltimoMovimiento=#2008/12/15 00:00# WHERE IdFinanciamiento=1

=== pagoFacturasSaldar cmdCargarPago disponible despues del pago
expect: value 27749.25
SELECT MontoDisponible FROM adqProyectos WHERE IdProyecto=1

=== pagoFacturasSaldar cmdCargarPago clave de 5 cifras
expect: error 3163
INSERT INTO  adqSaldoProyectos VALUES (1,1,#2008/12/15 12:00#,-10,0,'-CARG 10000','admin')

=== pagoFacturasSaldar cmdCargarPago 1 pago 3
expect: rows 2
SELECT SUM(MontoFactura) AS Suma,Nombre,PagofacturasDetalle.IdProyecto FROM PagoFacturasDetalle, adqProyectos WHERE IdPagoFactura=3  AND PagofacturasDetalle.IdProyecto=adqProyectos.IdProyecto GROUP BY Nombre, PagofacturasDetalle.IdProyecto

=== pagoFacturasSaldar cmdCargarPago 2 pago 3 proyecto 3
expect: value 12000
SELECT MontoDisponible FROM adqProyectos WHERE IdProyecto=3

=== pagoFacturasSaldar cmdCargarPago 2 pago 3 proyecto 4
expect: value 15000
SELECT MontoDisponible FROM adqProyectos WHERE IdProyecto=4

=== pagoFacturasSaldar cmdCargarPago 4 pago 3 proyecto 3
expect: affected 1
UPDATE adqProyectos SET MontoDisponible=(Montodisponible-1200),UltimoMovimiento=#2008/12/15 00:00# WHERE IdProyecto=3

=== pagoFacturasSaldar cmdCargarPago 4 pago 3 proyecto 4
expect: affected 1
UPDATE adqProyectos SET MontoDisponible=(Montodisponible-2500.5),UltimoMovimiento=#2008/12/15 00:00# WHERE IdProyecto=4

=== pagoFacturasSaldar cmdCargarPago 6 observaciones con apostrofo
expect: error 3075
UPDATE PagoFacturasGral SET Estado='P',Observaciones='Factura de O'Neill',FechaMod=#2008/12/15 00:00#,FechaPago=#2008/12/15 12:10:05#,IdCapMod='admin' WHERE IdPagoFactura=3

=== pagoFacturasMain RefrescaListView pendientes tras el fallo
expect: rows 1
SELECT IdPagoFactura,iif(Estado='P','Pagado','Solicitado')as Edo,FuenteFinanciamiento, Proveedores.Empresa, Monto, FechaSolicitud, FechaPago, Concepto, Observaciones,IdFinanciamiento  FROM ([PagoFacturasGral] LEFT JOIN Proveedores ON [PagoFacturasGral].IdProveedor = Proveedores.[No]) WHERE Estado='S'

=== pagoFacturasSaldar cmdCargarPago 1 pago 3 otra vez
expect: rows 2
SELECT SUM(MontoFactura) AS Suma,Nombre,PagofacturasDetalle.IdProyecto FROM PagoFacturasDetalle, adqProyectos WHERE IdPagoFactura=3  AND PagofacturasDetalle.IdProyecto=adqProyectos.IdProyecto GROUP BY Nombre, PagofacturasDetalle.IdProyecto

=== pagoFacturasSaldar cmdCargarPago 2 pago 3 proyecto 3 otra vez
expect: value 10800
SELECT MontoDisponible FROM adqProyectos WHERE IdProyecto=3

=== pagoFacturasSaldar cmdCargarPago 4 pago 3 proyecto 3 otra vez
expect: affected 1
UPDATE adqProyectos SET MontoDisponible=(Montodisponible-1200),UltimoMovimiento=#2008/12/15 00:00# WHERE IdProyecto=3

=== pagoFacturasSaldar cmdCargarPago 4 pago 3 proyecto 4 otra vez
expect: affected 1
UPDATE adqProyectos SET MontoDisponible=(Montodisponible-2500.5),UltimoMovimiento=#2008/12/15 00:00# WHERE IdProyecto=4

=== pagoFacturasSaldar cmdCargarPago 6 pago 3
expect: affected 1
UPDATE PagoFacturasGral SET Estado='P',Observaciones=NULL,FechaMod=#2008/12/15 00:00#,FechaPago=#2008/12/15 12:15:00#,IdCapMod='admin' WHERE IdPagoFactura=3

=== pagoFacturasSaldar cmdCargarPago 8 pago 3
expect: rows 2
SELECT DISTINCT Nombre,TotalAsignado,MontoDisponible,adqProyectos.IdEscuela,(SELECT SUM(MontoFactura) FROM PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=3) AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)) AS TotalFacturas FROM adqProyectos, PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=3) AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)

=== pagoFacturasSaldar cmdCargarPago 9 pago 3 proyecto 3
expect: affected 1
INSERT INTO  adqSaldoProyectos VALUES (3,3,#2008/12/15 12:15#,-1200,0,'-CARG 0003','admin')

=== pagoFacturasSaldar cmdCargarPago 9 pago 3 proyecto 4
expect: affected 1
INSERT INTO  adqSaldoProyectos VALUES (5,3,#2008/12/15 12:15#,-2500.5,0,'-CARG 0003','admin')

=== pagoFacturasSaldar cmdCargarPago 12 pago 3
expect: affected 1
INSERT INTO  adqSaldoFinanciamientos VALUES (3,#2008/12/15 00:00#,-3700.5,0,'-SALDpag','admin')

=== pagoFacturasSaldar cmdCargarPago 13 pago 3
expect: affected 1
UPDATE adqFinanciamiento SET MontoAsignadoDisponible=(MontoAsignadoDisponible-3700.5), UltimoMovimiento=#2008/12/15 00:00# WHERE IdFinanciamiento=3

=== pagoFacturasSaldar cmdCargarPago disponible proyecto 4 cobrado dos veces
expect: value 9999
SELECT MontoDisponible FROM adqProyectos WHERE IdProyecto=4

=== pagoFacturasMain RefrescaListView pendientes tras pagar
expect: rows 0
SELECT IdPagoFactura,iif(Estado='P','Pagado','Solicitado')as Edo,FuenteFinanciamiento, Proveedores.Empresa, Monto, FechaSolicitud, FechaPago, Concepto, Observaciones,IdFinanciamiento  FROM ([PagoFacturasGral] LEFT JOIN Proveedores ON [PagoFacturasGral].IdProveedor = Proveedores.[No]) WHERE Estado='S'

=== frmReporteGastosFuente Form_Load combo escuelas
expect: rows 6
SELECT [No], Nombre FROM Escuelas ORDER BY Nombre

=== frmReporteGastosFuente Form_Load combo fuentes
expect: value 2
SELECT [IdFinanciamiento], Nombre FROM adqFinanciamiento ORDER BY Nombre

=== frmReporteGastosFuente cmdGenerar por escuela
expect: rows 3
SELECT PagoFacturasGral.IdPagoFactura, PagoFacturasGral.FechaPago, Proveedores.Empresa, PagoFacturasDetalle.NoFactura, PagoFacturasDetalle.MontoFactura, '0' AS Saldo  FROM  ((adqProyectos INNER JOIN PagoFacturasDetalle ON adqProyectos.IdProyecto = PagoFacturasDetalle.IdProyecto)  INNER JOIN PagoFacturasGral ON PagoFacturasDetalle.IdPagoFactura = PagoFacturasGral.IdPagoFactura)  INNER JOIN Proveedores ON PagoFacturasGral.IdProveedor = Proveedores.[No] WHERE  (adqProyectos.IdEscuela=1) AND  (adqProyectos.IdFinanciamiento=1) AND  (PagoFacturasGral.FechaPago BETWEEN #06-01-2008 00:00# AND #12-31-2008 23:59#)

=== frmReporteGastosFuente cmdGenerar por escuela periodo sin pagos
expect: rows 0
SELECT PagoFacturasGral.IdPagoFactura, PagoFacturasGral.FechaPago, Proveedores.Empresa, PagoFacturasDetalle.NoFactura, PagoFacturasDetalle.MontoFactura, '0' AS Saldo  FROM  ((adqProyectos INNER JOIN PagoFacturasDetalle ON adqProyectos.IdProyecto = PagoFacturasDetalle.IdProyecto)  INNER JOIN PagoFacturasGral ON PagoFacturasDetalle.IdPagoFactura = PagoFacturasGral.IdPagoFactura)  INNER JOIN Proveedores ON PagoFacturasGral.IdProveedor = Proveedores.[No] WHERE  (adqProyectos.IdEscuela=1) AND  (adqProyectos.IdFinanciamiento=1) AND  (PagoFacturasGral.FechaPago BETWEEN #01-01-2007 00:00# AND #12-31-2007 23:59#)

=== frmReporteGastosFuente cmdGenerar por escuela ultimo dia
expect: rows 2
SELECT PagoFacturasGral.IdPagoFactura, PagoFacturasGral.FechaPago, Proveedores.Empresa, PagoFacturasDetalle.NoFactura, PagoFacturasDetalle.MontoFactura, '0' AS Saldo  FROM  ((adqProyectos INNER JOIN PagoFacturasDetalle ON adqProyectos.IdProyecto = PagoFacturasDetalle.IdProyecto)  INNER JOIN PagoFacturasGral ON PagoFacturasDetalle.IdPagoFactura = PagoFacturasGral.IdPagoFactura)  INNER JOIN Proveedores ON PagoFacturasGral.IdProveedor = Proveedores.[No] WHERE  (adqProyectos.IdEscuela=1) AND  (adqProyectos.IdFinanciamiento=1) AND  (PagoFacturasGral.FechaPago BETWEEN #12-15-2008 00:00# AND #12-15-2008 23:59#)

=== frmReporteGastosFuente cmdGenerar presupuesto de la escuela
expect: value 32000
SELECT SUM(TotalAsignado) as Asignado, FechaAsignacion FROM adqProyectos WHERE IdFinanciamiento=1 AND IdEscuela=1 GROUP BY FechaAsignacion

=== frmReporteGastosFuente cmdGenerar saldo anterior de la escuela
expect: value NULL
SELECT SUM(Monto) as Disponible FROM adqSaldoProyectos WHERE UltimoMovimiento < #06-01-2008# AND IdFinanciamiento=1 AND IdEscuela=1

=== frmReporteGastosFuente cmdGenerar saldo anterior de la escuela fin de año
expect: value 27749.25
SELECT SUM(Monto) as Disponible FROM adqSaldoProyectos WHERE UltimoMovimiento < #12-31-2008# AND IdFinanciamiento=1 AND IdEscuela=1

=== frmReporteGastosFuente cmdGenerar presupuesto de la fuente
expect: value 100000
 SELECT SUM(MontoTotal) AS Presupuesto FROM adqFinanciamiento WHERE IdFinanciamiento=1

=== frmReporteGastosFuente cmdGenerar presupuesto de fuente inexistente
expect: value NULL
 SELECT SUM(MontoTotal) AS Presupuesto FROM adqFinanciamiento WHERE IdFinanciamiento=9

=== frmReporteGastosFuente cmdGenerar por fuente
expect: rows 2
SELECT IdPagofactura,FechaPago,Concepto,Empresa,Monto,(100000-Monto) AS Saldo  FROM PagoFacturasGral, Proveedores WHERE (IdFinanciamiento=1) AND (FechaPago BETWEEN #2008/06/01 00:00# AND #2008/12/31 23:59#) AND (Proveedores.No=PagoFacturasGral.IdProveedor) AND Estado='P' ORDER BY  1 ASC

=== frmReporteGastosFuente cmdGenerar por fuente primer pago
expect: value 1
SELECT IdPagofactura,FechaPago,Concepto,Empresa,Monto,(100000-Monto) AS Saldo  FROM PagoFacturasGral, Proveedores WHERE (IdFinanciamiento=1) AND (FechaPago BETWEEN #2008/06/01 00:00# AND #2008/12/31 23:59#) AND (Proveedores.No=PagoFacturasGral.IdProveedor) AND Estado='P' ORDER BY  1 ASC

=== frmReporteGastosFuente cmdGenerar por fuente fuente 3
expect: rows 1
SELECT IdPagofactura,FechaPago,Concepto,Empresa,Monto,(50000-Monto) AS Saldo  FROM PagoFacturasGral, Proveedores WHERE (IdFinanciamiento=3) AND (FechaPago BETWEEN #2008/06/01 00:00# AND #2008/12/31 23:59#) AND (Proveedores.No=PagoFacturasGral.IdProveedor) AND Estado='P' ORDER BY  1 ASC

=== frmReporteGastosFuente cmdGenerar fecha base de la fuente
expect: value 2008-01-15 00:00:00
SELECT FechaCaptura FROM adqFinanciamiento WHERE IdFinanciamiento=1

=== frmReporteGastosFuente cmdGenerar saldo anterior de la fuente
expect: value 100000
SELECT SUM(Monto) as SaldoActual FROM adqSaldoFinanciamientos WHERE UltimoMovimiento< #06-01-2008# AND IdFinanciamiento=1

=== frmReporteGastosFuente cmdGenerar saldo anterior de la fuente al cierre
expect: value 93249.25
SELECT SUM(Monto) as SaldoActual FROM adqSaldoFinanciamientos WHERE UltimoMovimiento< #12-31-2008# AND IdFinanciamiento=1

=== frmReporteGastosFuente cmdGenerar saldo anterior sin movimientos
expect: value NULL
SELECT SUM(Monto) as SaldoActual FROM adqSaldoFinanciamientos WHERE UltimoMovimiento< #01-01-2008# AND IdFinanciamiento=1

=== pagoFacturasSaldar cmdDeshacerPago 3
expect: affected 1
UPDATE PagoFacturasGral SET Estado='S',Observaciones='Cheque 0456 cancelado',FechaMod=#2008/12/15 13:00:12#,FechaPago=NULL,IdCapMod='admin' WHERE IdPagoFactura=2

=== pagoFacturasSaldar cmdDeshacerPago 4
expect: rows 2
SELECT SUM(MontoFactura) AS Suma,IdProyecto FROM PagoFacturasDetalle WHERE IdPagoFactura=2 GROUP BY IdProyecto

=== pagoFacturasSaldar cmdDeshacerPago 4 proyecto 1
expect: affected 1
UPDATE adqProyectos SET MontoDisponible=(Montodisponible+1250.75),UltimoMovimiento=#2008/12/15 00:00# WHERE IdProyecto=1

=== pagoFacturasSaldar cmdDeshacerPago 4 proyecto 2
expect: affected 1
UPDATE adqProyectos SET MontoDisponible=(Montodisponible+500),UltimoMovimiento=#2008/12/15 00:00# WHERE IdProyecto=2

=== pagoFacturasSaldar cmdDeshacerPago 6 IdEscuela en las dos tablas
expect: error 3079
SELECT DISTINCT Nombre,TotalAsignado,MontoDisponible,IdEscuela,(SELECT SUM(MontoFactura) FROM PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=2) AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)) AS TotalFacturas FROM adqProyectos, PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=2) AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)

=== pagoFacturasSaldar cmdDeshacerPago 7 en base sin IdEscuela en el desglose
expect: affected 1
INSERT INTO  adqSaldoProyectos VALUES (1,1,#2008/12/15 00:00#,1250.75,0,'+DESHACpag','admin')

=== pagoFacturasSaldar cmdDeshacerPago 10 en base sin IdEscuela en el desglose
expect: affected 1
INSERT INTO  adqSaldoFinanciamientos VALUES (1,#2008/12/15 00:00#,1750.75,0,'+DESHpag','admin')

=== pagoFacturasSaldar cmdDeshacerPago 11 en base sin IdEscuela en el desglose
expect: affected 1
UPDATE adqFinanciamiento SET MontoAsignadoDisponible=(MontoAsignadoDisponible+1750.75), UltimoMovimiento=#2008/12/15 00:00# WHERE IdFinanciamiento=1

=== frmReporteGastosFuente cmdGenerar por escuela tras deshacer
expect: rows 1
SELECT PagoFacturasGral.IdPagoFactura, PagoFacturasGral.FechaPago, Proveedores.Empresa, PagoFacturasDetalle.NoFactura, PagoFacturasDetalle.MontoFactura, '0' AS Saldo  FROM  ((adqProyectos INNER JOIN PagoFacturasDetalle ON adqProyectos.IdProyecto = PagoFacturasDetalle.IdProyecto)  INNER JOIN PagoFacturasGral ON PagoFacturasDetalle.IdPagoFactura = PagoFacturasGral.IdPagoFactura)  INNER JOIN Proveedores ON PagoFacturasGral.IdProveedor = Proveedores.[No] WHERE  (adqProyectos.IdEscuela=1) AND  (adqProyectos.IdFinanciamiento=1) AND  (PagoFacturasGral.FechaPago BETWEEN #06-01-2008 00:00# AND #12-31-2008 23:59#)

=== frmReporteGastosFuente cmdGenerar por fuente tras deshacer
expect: rows 1
SELECT IdPagofactura,FechaPago,Concepto,Empresa,Monto,(100000-Monto) AS Saldo  FROM PagoFacturasGral, Proveedores WHERE (IdFinanciamiento=1) AND (FechaPago BETWEEN #2008/06/01 00:00# AND #2008/12/31 23:59#) AND (Proveedores.No=PagoFacturasGral.IdProveedor) AND Estado='P' ORDER BY  1 ASC

=== frmReporteGastosFuente cmdGenerar saldo anterior de la fuente tras deshacer
expect: value 95000
SELECT SUM(Monto) as SaldoActual FROM adqSaldoFinanciamientos WHERE UltimoMovimiento< #12-31-2008# AND IdFinanciamiento=1

=== ActualizaMontoDisponibledeFinanciamientos 1 pagos tras deshacer
expect: rows 1
SELECT idfinanciamiento, montoTotal, (SELECT ccur( iif (isnull( abs(sum(monto)) ),0,abs(sum(monto)))) FROM adqsaldoFinanciamientos WHERE Operacion='-SALDpag' AND adqsaldoFinanciamientos.IdFinanciamiento=1) AS Pagos, (adqFinanciamiento.MontoTotal-Pagos) AS Disponible FROM adqFinanciamiento WHERE adqFinanciamiento.idFinanciamiento = 1 ORDER BY 1

=== ActualizaMontoDisponibledeFinanciamientos 1 disponible tras deshacer
expect: affected 1
UPDATE adqFinanciamiento SET MontoAsignadoDisponible=93249.25 WHERE IdFinanciamiento=1

=== frmFuentesFin cmdGrabar saldo de fuente con pagos
expect: affected 4
UPDATE adqSaldoFinanciamientos SET UltimoMovimiento=#12-15-2008#, Monto=100000,  Operacion='+ADDFinan',IdCapturista='admin' WHERE IdFinanciamiento=1

=== ActualizaMontoDisponibledeFinanciamientos 1 pagos tras reescribir
expect: rows 1
SELECT idfinanciamiento, montoTotal, (SELECT ccur( iif (isnull( abs(sum(monto)) ),0,abs(sum(monto)))) FROM adqsaldoFinanciamientos WHERE Operacion='-SALDpag' AND adqsaldoFinanciamientos.IdFinanciamiento=1) AS Pagos, (adqFinanciamiento.MontoTotal-Pagos) AS Disponible FROM adqFinanciamiento WHERE adqFinanciamiento.idFinanciamiento = 1 ORDER BY 1

=== frmReporteGastosFuente cmdGenerar saldo anterior tras reescribir
expect: value 400000
SELECT SUM(Monto) as SaldoActual FROM adqSaldoFinanciamientos WHERE UltimoMovimiento< #12-31-2008# AND IdFinanciamiento=1

=== Listado Form_Load bibliotecas
expect: rows 4
SELECT [No], Nombre  FROM Bibliotecas ORDER BY [No]

=== Listado Form_Load escuelas
expect: value 1
SELECT [No], Nombre FROM Escuelas ORDER BY [No]

=== Listado Form_Load financiamientos
expect: rows 3
SELECT * FROM adqFinanciamiento ORDER BY IdFinanciamiento

=== Listado Command1 Solicitados todas las bibliotecas
expect: rows 1
SELECT [Solicitudes General].NoBiblioteca,  Titulo, Autor, Editoriales.Nombre as Noeditorial, ISBN, [Solicitudes General].NoEscuela, [Solicitudes General].Fecha, [Solicitudes Libros].[Ejemplares Pedidos] AS Ejemplares FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where ([Solicitudes General].NoBiblioteca > (0) and  [Solicitudes General].Fecha between #11/01/2008# and #12/31/2008# and [Solicitudes General].Estado='S')

=== Listado Command1 Solicitados todas las bibliotecas titulos distintos
expect: rows 1
SELECT DISTINCT (Titulo) FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where ([Solicitudes General].NoBiblioteca > (0) and  [Solicitudes General].Fecha between #11/01/2008# and #12/31/2008# and [Solicitudes General].Estado='S')

=== Listado Command1 Solicitados bibliotecas 1 y 2
expect: rows 1
SELECT [Solicitudes General].NoBiblioteca,  Titulo, Autor, Editoriales.Nombre as Noeditorial, ISBN, [Solicitudes General].NoEscuela, [Solicitudes General].Fecha, [Solicitudes Libros].[Ejemplares Pedidos] AS Ejemplares FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where ([Solicitudes General].NoBiblioteca in (1,2) and  [Solicitudes General].Fecha between #01/01/2008# and #12/31/2008# and [Solicitudes General].Estado='S')

=== Listado Command1 Solicitados bibliotecas 1 y 2 titulos distintos
expect: rows 1
SELECT DISTINCT (Titulo) FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where ([Solicitudes General].NoBiblioteca in (1,2) and  [Solicitudes General].Fecha between #01/01/2008# and #12/31/2008# and [Solicitudes General].Estado='S')

=== Listado Command1 Solicitados escuela 2 fuente 1
expect: rows 1
SELECT [Solicitudes General].NoBiblioteca,  Titulo, Autor, Editoriales.Nombre as Noeditorial, ISBN, [Solicitudes General].NoEscuela, [Solicitudes General].Fecha, [Solicitudes Libros].[Ejemplares Pedidos] AS Ejemplares FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where ([Solicitudes General].NoEscuela in (2) AND IdFinanciamiento=1 and  [Solicitudes General].Fecha between #01/01/2008# and #12/31/2008# and [Solicitudes General].Estado='S')

=== Listado Command1 Solicitados escuela 2 fuente 1 titulos distintos
expect: rows 1
SELECT DISTINCT (Titulo) FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where ([Solicitudes General].NoEscuela in (2) AND IdFinanciamiento=1 and  [Solicitudes General].Fecha between #01/01/2008# and #12/31/2008# and [Solicitudes General].Estado='S')

=== Listado Command1 Pedidos todas las bibliotecas
expect: rows 3
SELECT [Solicitudes General].NoBiblioteca,  Titulo, Autor, Editoriales.Nombre as Noeditorial, ISBN, [Solicitudes General].NoEscuela, [Solicitudes General].Fecha FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where ([Solicitudes General].NoBiblioteca > (0)  and  [Solicitudes General].Fecha between #01/01/2008# and #12/31/2008# and [Solicitudes General].Estado='P')

=== Listado Command1 Pedidos todas las bibliotecas titulos distintos
expect: rows 3
SELECT DISTINCT (Titulo) FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where ([Solicitudes General].NoBiblioteca > (0)  and  [Solicitudes General].Fecha between #01/01/2008# and #12/31/2008# and [Solicitudes General].Estado='P')

=== Listado Command1 Pedidos todas las escuelas fuente 3
expect: rows 2
SELECT [Solicitudes General].NoBiblioteca,  Titulo, Autor, Editoriales.Nombre as Noeditorial, ISBN, [Solicitudes General].NoEscuela, [Solicitudes General].Fecha FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where ([Solicitudes General].NoEscuela > (0) AND IdFinanciamiento=3  and  [Solicitudes General].Fecha between #01/01/2008# and #12/31/2008# and [Solicitudes General].Estado='P')

=== Listado Command1 Pedidos todas las escuelas fuente 3 titulos distintos
expect: rows 2
SELECT DISTINCT (Titulo) FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where ([Solicitudes General].NoEscuela > (0) AND IdFinanciamiento=3  and  [Solicitudes General].Fecha between #01/01/2008# and #12/31/2008# and [Solicitudes General].Estado='P')

=== Listado Command1 Adquiridos todas las bibliotecas
expect: rows 4
SELECT [Solicitudes General].NoBiblioteca,  Titulo, Autor, Editoriales.Nombre as Noeditorial, ISBN, [Solicitudes General].NoEscuela, Edicion, [Ejemplares recibidos], Costo, Factura, [Adquisiciones Numadqui].Noadquisicion, [Fecha de Recepcion] FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No]) left join [Adquisiciones Numadqui] on [Solicitudes Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro   where ([Solicitudes General].NoBiblioteca > (0)  and  [Fecha de Recepcion] between #09/01/2008# and #12/31/2008# and [Solicitudes Libros].Estado='A' AND [Adquisiciones Numadqui].[solicitud o donacion]='S') ORDER BY [Adquisiciones Numadqui].Noadquisicion

=== Listado Command1 Adquiridos todas las bibliotecas titulos distintos
expect: rows 3
SELECT DISTINCT (Titulo) FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No]) left join [Adquisiciones Numadqui] on [Solicitudes Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro   where ([Solicitudes General].NoBiblioteca > (0)  and  [Fecha de Recepcion] between #09/01/2008# and #12/31/2008# and [Solicitudes Libros].Estado='A' AND [Adquisiciones Numadqui].[solicitud o donacion]='S')

=== Listado Command1 Adquiridos biblioteca 1 diciembre
expect: rows 1
SELECT [Solicitudes General].NoBiblioteca,  Titulo, Autor, Editoriales.Nombre as Noeditorial, ISBN, [Solicitudes General].NoEscuela, Edicion, [Ejemplares recibidos], Costo, Factura, [Adquisiciones Numadqui].Noadquisicion, [Fecha de Recepcion] FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No]) left join [Adquisiciones Numadqui] on [Solicitudes Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro   where ([Solicitudes General].NoBiblioteca in (1)  and  [Fecha de Recepcion] between #12/01/2008# and #12/31/2008# and [Solicitudes Libros].Estado='A' AND [Adquisiciones Numadqui].[solicitud o donacion]='S') ORDER BY [Adquisiciones Numadqui].Noadquisicion

=== Listado Command1 Adquiridos biblioteca 1 diciembre titulos distintos
expect: rows 1
SELECT DISTINCT (Titulo) FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No]) left join [Adquisiciones Numadqui] on [Solicitudes Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro   where ([Solicitudes General].NoBiblioteca in (1)  and  [Fecha de Recepcion] between #12/01/2008# and #12/31/2008# and [Solicitudes Libros].Estado='A' AND [Adquisiciones Numadqui].[solicitud o donacion]='S')

=== Listado Command1 Imposibles de adquirir todas las bibliotecas
expect: rows 2
SELECT [Solicitudes General].NoBiblioteca,  Titulo, Autor, Editoriales.Nombre as Noeditorial, ISBN, [Solicitudes General].NoEscuela, [Solicitudes General].Fecha FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where ([Solicitudes General].NoBiblioteca > (0)  and  [Solicitudes General].Fecha between #01/01/2008# and #12/31/2008# and [Solicitudes Libros].Estado='I')

=== Listado Command1 Imposibles de adquirir todas las bibliotecas titulos distintos
expect: rows 2
SELECT DISTINCT (Titulo) FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud) left join Editoriales on [Solicitudes Libros].NoEditorial=Editoriales.[No])  where ([Solicitudes General].NoBiblioteca > (0)  and  [Solicitudes General].Fecha between #01/01/2008# and #12/31/2008# and [Solicitudes Libros].Estado='I')

=== Listado Command1 Donaciones todas las bibliotecas
expect: rows 4
SELECT   [Adquisiciones Numadqui].Noadquisicion, [Donaciones General].NoBiblioteca,  [Instituciones].Nombre, Titulo, Autor,Ejemplares, Editoriales.Nombre as Noeditorial, Edicion, [Donaciones General].Fecha FROM ((([Donaciones Libros] left join [Donaciones General] on [Donaciones Libros].Nodonacion=[Donaciones General].Nodonacion) left join [Adquisiciones Numadqui] on [Donaciones Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro) left join Editoriales on [Donaciones Libros].NoEditorial=Editoriales.[No]) LEFT JOIN [Instituciones] ON [Donaciones General].[NoInstitucion]=[Instituciones].[No]  WHERE ([Donaciones General].NoBiblioteca > (0) and  [Donaciones General].Fecha between #01/01/2008# and #12/31/2008#) AND [Adquisiciones numadqui].[solicitud o donacion]='D' ORDER BY [Adquisiciones Numadqui].Noadquisicion

=== Listado Command1 Donaciones todas las bibliotecas titulos distintos
expect: rows 3
SELECT DISTINCT (Titulo) FROM ((([Donaciones Libros] left join [Donaciones General] on [Donaciones Libros].Nodonacion=[Donaciones General].Nodonacion) left join [Adquisiciones Numadqui] on [Donaciones Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro) left join Editoriales on [Donaciones Libros].NoEditorial=Editoriales.[No]) LEFT JOIN [Instituciones] ON [Donaciones General].[NoInstitucion]=[Instituciones].[No]  WHERE ([Donaciones General].NoBiblioteca > (0) and  [Donaciones General].Fecha between #01/01/2008# and #12/31/2008#) AND [Adquisiciones numadqui].[solicitud o donacion]='D'

=== Listado Command1 Donaciones biblioteca 1
expect: rows 3
SELECT   [Adquisiciones Numadqui].Noadquisicion, [Donaciones General].NoBiblioteca,  [Instituciones].Nombre, Titulo, Autor,Ejemplares, Editoriales.Nombre as Noeditorial, Edicion, [Donaciones General].Fecha FROM ((([Donaciones Libros] left join [Donaciones General] on [Donaciones Libros].Nodonacion=[Donaciones General].Nodonacion) left join [Adquisiciones Numadqui] on [Donaciones Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro) left join Editoriales on [Donaciones Libros].NoEditorial=Editoriales.[No]) LEFT JOIN [Instituciones] ON [Donaciones General].[NoInstitucion]=[Instituciones].[No]  WHERE ([Donaciones General].NoBiblioteca in (1) and  [Donaciones General].Fecha between #01/01/2008# and #12/31/2008#) AND [Adquisiciones numadqui].[solicitud o donacion]='D' ORDER BY [Adquisiciones Numadqui].Noadquisicion

=== Listado Command1 Donaciones biblioteca 1 titulos distintos
expect: rows 2
SELECT DISTINCT (Titulo) FROM ((([Donaciones Libros] left join [Donaciones General] on [Donaciones Libros].Nodonacion=[Donaciones General].Nodonacion) left join [Adquisiciones Numadqui] on [Donaciones Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro) left join Editoriales on [Donaciones Libros].NoEditorial=Editoriales.[No]) LEFT JOIN [Instituciones] ON [Donaciones General].[NoInstitucion]=[Instituciones].[No]  WHERE ([Donaciones General].NoBiblioteca in (1) and  [Donaciones General].Fecha between #01/01/2008# and #12/31/2008#) AND [Adquisiciones numadqui].[solicitud o donacion]='D'

=== Listado Command1 Envios adquisiciones sin fuente
expect: rows 4
SELECT Titulo, Autor, [Adquisiciones Numadqui].NoAdquisicion, [Solicitudes General].NoBiblioteca FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud)left join [Adquisiciones Numadqui] on [Solicitudes Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro)  WHERE  ([Fecha de Recepcion] >= #01/01/2008# AND [Fecha de Recepcion] <= #12/31/2008# AND [Solicitudes Libros].Estado='A' AND [Adquisiciones numadqui].[solicitud o donacion]='S') ORDER BY [Adquisiciones Numadqui].Noadquisicion

=== Listado Command1 Envios adquisiciones sin fuente titulos distintos
expect: rows 3
SELECT DISTINCT (Titulo) FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud)left join [Adquisiciones Numadqui] on [Solicitudes Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro)  WHERE  ([Fecha de Recepcion] >= #01/01/2008# AND [Fecha de Recepcion] <= #12/31/2008# AND [Solicitudes Libros].Estado='A' AND [Adquisiciones numadqui].[solicitud o donacion]='S')

=== Listado Command1 Envios adquisiciones fuente 1
expect: rows 3
SELECT Titulo, Autor, [Adquisiciones Numadqui].NoAdquisicion, [Solicitudes General].NoBiblioteca FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud)left join [Adquisiciones Numadqui] on [Solicitudes Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro)  WHERE  ([Fecha de Recepcion] >= #01/01/2008# AND [Fecha de Recepcion] <= #12/31/2008# AND [Solicitudes Libros].Estado='A' AND IdFinanciamiento=1 AND [Adquisiciones numadqui].[solicitud o donacion]='S') ORDER BY [Adquisiciones Numadqui].Noadquisicion

=== Listado Command1 Envios adquisiciones fuente 1 titulos distintos
expect: rows 2
SELECT DISTINCT (Titulo) FROM (([Solicitudes Libros] left join [Solicitudes General] on [Solicitudes Libros].NoSolicitud=[Solicitudes General].NoSolicitud)left join [Adquisiciones Numadqui] on [Solicitudes Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro)  WHERE  ([Fecha de Recepcion] >= #01/01/2008# AND [Fecha de Recepcion] <= #12/31/2008# AND [Solicitudes Libros].Estado='A' AND IdFinanciamiento=1 AND [Adquisiciones numadqui].[solicitud o donacion]='S')

=== Listado Command1 Envios donaciones
expect: rows 4
SELECT Titulo, Autor, [Adquisiciones Numadqui].NoAdquisicion, [Donaciones General].NoBiblioteca FROM (([Donaciones Libros] left join [Donaciones General] on [Donaciones Libros].NoDonacion=[Donaciones General].NoDonacion) left join [Adquisiciones Numadqui] on [Donaciones Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro)  WHERE  ([Donaciones General].Fecha BETWEEN  #01/01/2008# AND #12/31/2008#  AND [Adquisiciones numadqui].[solicitud o donacion]='D') ORDER BY [Adquisiciones Numadqui].Noadquisicion

=== Listado Command1 Envios donaciones primer numero
expect: value Antología poética
SELECT Titulo, Autor, [Adquisiciones Numadqui].NoAdquisicion, [Donaciones General].NoBiblioteca FROM (([Donaciones Libros] left join [Donaciones General] on [Donaciones Libros].NoDonacion=[Donaciones General].NoDonacion) left join [Adquisiciones Numadqui] on [Donaciones Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro)  WHERE  ([Donaciones General].Fecha BETWEEN  #01/01/2008# AND #12/31/2008#  AND [Adquisiciones numadqui].[solicitud o donacion]='D') ORDER BY [Adquisiciones Numadqui].Noadquisicion

=== Listado Command1 Envios donaciones titulos distintos
expect: rows 3
SELECT DISTINCT (Titulo) FROM (([Donaciones Libros] left join [Donaciones General] on [Donaciones Libros].NoDonacion=[Donaciones General].NoDonacion) left join [Adquisiciones Numadqui] on [Donaciones Libros].ClaveLibro=[Adquisiciones Numadqui].ClaveLibro)  WHERE  ([Donaciones General].Fecha BETWEEN  #01/01/2008# AND #12/31/2008#  AND [Adquisiciones numadqui].[solicitud o donacion]='D')

=== Busqueda Command2 titulo solicitados
expect: rows 2
SELECT Clavelibro, Titulo, Autor, NoSolicitud, [Fecha de Recepcion], Estado FROM [Solicitudes Libros] where Titulo like "*soledad*"

=== Busqueda Command2 titulo en mayusculas
expect: rows 2
SELECT Clavelibro, Titulo, Autor, NoSolicitud, [Fecha de Recepcion], Estado FROM [Solicitudes Libros] where Titulo like "*SOLEDAD*"

=== Busqueda Command2 autor solicitados
expect: rows 1
SELECT Clavelibro, Titulo, Autor, NoSolicitud, [Fecha de Recepcion], Estado FROM [Solicitudes Libros] where Autor like "*Fuentes*"

=== Busqueda Command2 titulo con comodin
expect: value 3
SELECT Clavelibro, Titulo, Autor, NoSolicitud, [Fecha de Recepcion], Estado FROM [Solicitudes Libros] where Titulo like "*P?dro*"

=== Busqueda Command2 titulo con comillas
expect: error 3075
SELECT Clavelibro, Titulo, Autor, NoSolicitud, [Fecha de Recepcion], Estado FROM [Solicitudes Libros] where Titulo like "*El "llano*"

=== Busqueda Command2 autor donados
expect: rows 1
SELECT ClaveLibro, Titulo, Autor, NoDonacion, Edicion FROM [Donaciones Libros] where Autor like "*neruda*"

=== Busqueda Command2 numero de adquisicion solicitados
expect: value 4
Select ClaveLibro From [Adquisiciones Numadqui] where NoAdquisicion = "000201" AND [solicitud o donacion]='S'

=== Busqueda Command2 titulo del numero
expect: rows 1
SELECT Clavelibro, Titulo, Autor, NoSolicitud, [Fecha de Recepcion], Estado FROM [Solicitudes Libros] where ClaveLibro=4

=== Busqueda Command2 numero de adquisicion de otro lado
expect: rows 0
Select ClaveLibro From [Adquisiciones Numadqui] where NoAdquisicion = "000201" AND [solicitud o donacion]='D'

=== Busqueda Command2 numero inexistente
expect: rows 0
SELECT Clavelibro, Titulo, Autor, NoSolicitud, [Fecha de Recepcion], Estado FROM [Solicitudes Libros] where ClaveLibro=0

=== Busqueda Command2 numero de adquisicion donados
expect: value 4
Select ClaveLibro From [Adquisiciones Numadqui] where NoAdquisicion = "D00010" AND [solicitud o donacion]='D'

=== Busqueda Command2 titulo del numero donado
expect: value 4
SELECT ClaveLibro, Titulo, Autor, NoDonacion, Edicion FROM [Donaciones Libros] where ClaveLibro=4

=== Dato Form_Load solicitante
expect: value 1
Select NoSolicitud From [Solicitudes Libros] where ClaveLibro=1

=== Dato Form_Load encabezado
expect: rows 1
Select * From [Solicitudes General] where NoSolicitud=1

=== Dato Form_Load numeros
expect: rows 2
Select NoAdquisicion From [Adquisiciones Numadqui] where ClaveLibro=1 AND [Solicitud o Donacion]='S'

=== Dato Form_Load donante
expect: value 1
Select NoDonacion From [Donaciones Libros] where ClaveLibro=1

=== Dato Form_Load encabezado donacion
expect: rows 1
Select * From [Donaciones General] where NoDonacion=1

=== Dato Form_Load numeros donacion
expect: rows 2
Select NoAdquisicion From [Adquisiciones Numadqui] where ClaveLibro=1 AND [Solicitud o Donacion]='D'

=== frmListadoEjemplares Form_Load bibliotecas
expect: rows 4
SELECT [No], Nombre FROM Bibliotecas ORDER BY [No]

=== frmListadoEjemplares Buscar solicitudes por numero
expect: rows 2
SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos],SL.costo, SL.[Fecha de recepcion],SL.Estado, AN.[Solicitud o donacion]  FROM  [Adquisiciones Numadqui] as AN, [Solicitudes libros] as SL, [Solicitudes General] as SG WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND (SL.Clavelibro=AN.Clavelibro) AND (AN.Noadquisicion LIKE '0001*') ORDER BY 2,3

=== frmListadoEjemplares Buscar solicitudes por numero primero
expect: value 1
SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos],SL.costo, SL.[Fecha de recepcion],SL.Estado, AN.[Solicitud o donacion]  FROM  [Adquisiciones Numadqui] as AN, [Solicitudes libros] as SL, [Solicitudes General] as SG WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND (SL.Clavelibro=AN.Clavelibro) AND (AN.Noadquisicion LIKE '0001*') ORDER BY 2,3

=== frmListadoEjemplares Buscar solicitudes por numero con guion
expect: rows 0
SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos],SL.costo, SL.[Fecha de recepcion],SL.Estado, AN.[Solicitud o donacion]  FROM  [Adquisiciones Numadqui] as AN, [Solicitudes libros] as SL, [Solicitudes General] as SG WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND (SL.Clavelibro=AN.Clavelibro) AND (AN.Noadquisicion LIKE '0001-0002*') ORDER BY 2,3

=== frmListadoEjemplares Buscar solicitudes por numero biblioteca 1
expect: rows 3
SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos],SL.costo, SL.[Fecha de recepcion],SL.Estado, AN.[Solicitud o donacion]  FROM  [Adquisiciones Numadqui] as AN, [Solicitudes libros] as SL, [Solicitudes General] as SG WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND (SL.Clavelibro=AN.Clavelibro) AND (AN.Noadquisicion LIKE '000*') AND ( SG.NoBiblioteca=1) ORDER BY 2,3

=== frmListadoEjemplares Buscar solicitudes por rango
expect: rows 4
SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos],SL.costo, SL.[Fecha de recepcion],SL.Estado, AN.[Solicitud o donacion]  FROM  [Adquisiciones Numadqui] as AN, [Solicitudes libros] as SL, [Solicitudes General] as SG WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND (SL.Clavelibro=AN.Clavelibro) AND (SL.NoSolicitud BETWEEN 1 AND 3) ORDER BY 3,2

=== frmListadoEjemplares Buscar solicitudes por rango primera
expect: value 1
SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos],SL.costo, SL.[Fecha de recepcion],SL.Estado, AN.[Solicitud o donacion]  FROM  [Adquisiciones Numadqui] as AN, [Solicitudes libros] as SL, [Solicitudes General] as SG WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND (SL.Clavelibro=AN.Clavelibro) AND (SL.NoSolicitud BETWEEN 1 AND 3) ORDER BY 3,2

=== frmListadoEjemplares Buscar solicitudes por solicitud
expect: rows 2
SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos],SL.costo, SL.[Fecha de recepcion],SL.Estado, AN.[Solicitud o donacion]  FROM  [Adquisiciones Numadqui] as AN, [Solicitudes libros] as SL, [Solicitudes General] as SG WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND (SL.Clavelibro=AN.Clavelibro) AND (SL.NoSolicitud LIKE 1) ORDER BY 3,2

=== frmListadoEjemplares Buscar solicitudes por solicitud no numerica
expect: error 3061
SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos],SL.costo, SL.[Fecha de recepcion],SL.Estado, AN.[Solicitud o donacion]  FROM  [Adquisiciones Numadqui] as AN, [Solicitudes libros] as SL, [Solicitudes General] as SG WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND (SL.Clavelibro=AN.Clavelibro) AND (SL.NoSolicitud LIKE abc) ORDER BY 3,2

=== frmListadoEjemplares Buscar donaciones por numero
expect: rows 4
SELECT AN.Clavelibro, AN.Noadquisicion, DL.NoDonacion, DL.titulo, DL.autor, DL.Ejemplares, DL.costo, DG.Fecha,DG.[Donacion o intercambio], AN.[Solicitud o donacion]  FROM  [Adquisiciones Numadqui] as AN, [Donaciones libros] as DL, [Donaciones General] as DG WHERE (AN.[Solicitud o donacion]='D') AND (DG.NoDonacion=DL.NoDonacion) AND (DL.Clavelibro=AN.Clavelibro) AND (AN.Noadquisicion LIKE 'D*') ORDER BY 2,3

=== frmListadoEjemplares Buscar donaciones por rango
expect: rows 3
SELECT AN.Clavelibro, AN.Noadquisicion, DL.NoDonacion, DL.titulo, DL.autor, DL.Ejemplares, DL.costo, DG.Fecha,DG.[Donacion o intercambio], AN.[Solicitud o donacion]  FROM  [Adquisiciones Numadqui] as AN, [Donaciones libros] as DL, [Donaciones General] as DG WHERE (AN.[Solicitud o donacion]='D') AND (DG.NoDonacion=DL.NoDonacion) AND (DL.Clavelibro=AN.Clavelibro) AND (DL.NoDonacion BETWEEN 1 AND 2) ORDER BY 3,2

=== frmListadoEjemplares Buscar donaciones por rango biblioteca 2
expect: value 2
SELECT AN.Clavelibro, AN.Noadquisicion, DL.NoDonacion, DL.titulo, DL.autor, DL.Ejemplares, DL.costo, DG.Fecha,DG.[Donacion o intercambio], AN.[Solicitud o donacion]  FROM  [Adquisiciones Numadqui] as AN, [Donaciones libros] as DL, [Donaciones General] as DG WHERE (AN.[Solicitud o donacion]='D') AND (DG.NoDonacion=DL.NoDonacion) AND (DL.Clavelibro=AN.Clavelibro) AND (DL.NoDonacion BETWEEN 1 AND 4) AND ( DG.NoBiblioteca=2) ORDER BY 3,2

=== frmListadoEjemplares Buscar donaciones por donacion
expect: rows 1
SELECT AN.Clavelibro, AN.Noadquisicion, DL.NoDonacion, DL.titulo, DL.autor, DL.Ejemplares, DL.costo, DG.Fecha,DG.[Donacion o intercambio], AN.[Solicitud o donacion]  FROM  [Adquisiciones Numadqui] as AN, [Donaciones libros] as DL, [Donaciones General] as DG WHERE (AN.[Solicitud o donacion]='D') AND (DG.NoDonacion=DL.NoDonacion) AND (DL.Clavelibro=AN.Clavelibro) AND (DL.NoDonacion LIKE 4) ORDER BY 3,2

=== frmListadoEjemplares Buscar ambas por numero
expect: rows 4
SELECT  *  FROM  (SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos], SL.costo, SL.[Fecha de recepcion], SL.Estado, AN.[Solicitud o donacion]FROM [Adquisiciones Numadqui] AS AN, [Solicitudes libros] AS SL, [Solicitudes General] AS SG WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND (SL.Clavelibro=AN.Clavelibro) AND (AN.Noadquisicion LIKE '0*') ORDER BY  2, 3)UNION (SELECT AN.ClaveLibro, AN.NoAdquisicion, DL.NoDonacion, DL.Titulo, DL.Autor, DL.Ejemplares, DL.Costo, DG.Fecha, DG.[Donacion o Intercambio], AN.[Solicitud o donacion] FROM [Adquisiciones Numadqui] AS AN, [Donaciones libros] AS DL, [Donaciones General] AS DG WHERE (((AN.NoAdquisicion) Like '0*') AND ((AN.[Solicitud o donacion])='D') AND ((DG.NoDonacion)=[DL].[NoDonacion]) AND ((DL.ClaveLibro)=[AN].[Clavelibro])) ORDER BY 2, 3)

=== frmListadoEjemplares Buscar ambas por numero D
expect: rows 4
SELECT  *  FROM  (SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos], SL.costo, SL.[Fecha de recepcion], SL.Estado, AN.[Solicitud o donacion]FROM [Adquisiciones Numadqui] AS AN, [Solicitudes libros] AS SL, [Solicitudes General] AS SG WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND (SL.Clavelibro=AN.Clavelibro) AND (AN.Noadquisicion LIKE 'D*') ORDER BY  2, 3)UNION (SELECT AN.ClaveLibro, AN.NoAdquisicion, DL.NoDonacion, DL.Titulo, DL.Autor, DL.Ejemplares, DL.Costo, DG.Fecha, DG.[Donacion o Intercambio], AN.[Solicitud o donacion] FROM [Adquisiciones Numadqui] AS AN, [Donaciones libros] AS DL, [Donaciones General] AS DG WHERE (((AN.NoAdquisicion) Like 'D*') AND ((AN.[Solicitud o donacion])='D') AND ((DG.NoDonacion)=[DL].[NoDonacion]) AND ((DL.ClaveLibro)=[AN].[Clavelibro])) ORDER BY 2, 3)

=== frmListadoEjemplares Buscar ambas por rango
expect: rows 6
SELECT  *  FROM  (SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos], SL.costo, SL.[Fecha de recepcion], SL.Estado, AN.[Solicitud o donacion]FROM [Adquisiciones Numadqui] AS AN, [Solicitudes libros] AS SL, [Solicitudes General] AS SG WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND (SL.Clavelibro=AN.Clavelibro) AND (SL.NoSolicitud BETWEEN 1 AND 2) ORDER BY  2, 3)UNION (SELECT AN.ClaveLibro, AN.NoAdquisicion, DL.NoDonacion, DL.Titulo, DL.Autor, DL.Ejemplares, DL.Costo, DG.Fecha, DG.[Donacion o Intercambio], AN.[Solicitud o donacion] FROM [Adquisiciones Numadqui] AS AN, [Donaciones libros] AS DL, [Donaciones General] AS DG WHERE (((DL.NoDonacion) BETWEEN 1 AND 2) AND ((AN.[Solicitud o donacion])='D') AND ((DG.NoDonacion)=[DL].[NoDonacion]) AND ((DL.ClaveLibro)=[AN].[Clavelibro])) ORDER BY 2, 3)

=== frmListadoEjemplares Buscar ambas por rango biblioteca 1
expect: rows 6
SELECT  *  FROM  (SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos], SL.costo, SL.[Fecha de recepcion], SL.Estado, AN.[Solicitud o donacion]FROM [Adquisiciones Numadqui] AS AN, [Solicitudes libros] AS SL, [Solicitudes General] AS SG WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND (SL.Clavelibro=AN.Clavelibro) AND (SL.NoSolicitud BETWEEN 1 AND 7) AND ( SG.NoBiblioteca=1) ORDER BY  2, 3)UNION (SELECT AN.ClaveLibro, AN.NoAdquisicion, DL.NoDonacion, DL.Titulo, DL.Autor, DL.Ejemplares, DL.Costo, DG.Fecha, DG.[Donacion o Intercambio], AN.[Solicitud o donacion] FROM [Adquisiciones Numadqui] AS AN, [Donaciones libros] AS DL, [Donaciones General] AS DG WHERE (((DL.NoDonacion) BETWEEN 1 AND 7) AND ( DG.NoBiblioteca=1) AND ((AN.[Solicitud o donacion])='D') AND ((DG.NoDonacion)=[DL].[NoDonacion]) AND ((DL.ClaveLibro)=[AN].[Clavelibro])) ORDER BY 2, 3)

=== frmListadoEjemplares Buscar ambas por solicitud
expect: rows 4
SELECT  *  FROM  (SELECT AN.Clavelibro, AN.Noadquisicion, SL.NoSolicitud, SL.titulo, SL.autor, SL.[Ejemplares recibidos], SL.costo, SL.[Fecha de recepcion], SL.Estado, AN.[Solicitud o donacion]FROM [Adquisiciones Numadqui] AS AN, [Solicitudes libros] AS SL, [Solicitudes General] AS SG WHERE (AN.[Solicitud o donacion]='S') AND (SG.NoSolicitud=SL.NoSolicitud) AND (SL.Clavelibro=AN.Clavelibro) AND (SL.NoSolicitud LIKE '1*') ORDER BY  2, 3)UNION (SELECT AN.ClaveLibro, AN.NoAdquisicion, DL.NoDonacion, DL.Titulo, DL.Autor, DL.Ejemplares, DL.Costo, DG.Fecha, DG.[Donacion o Intercambio], AN.[Solicitud o donacion] FROM [Adquisiciones Numadqui] AS AN, [Donaciones libros] AS DL, [Donaciones General] AS DG WHERE (((DL.NoDonacion) LIKE '1*') AND ((AN.[Solicitud o donacion])='D') AND ((DG.NoDonacion)=[DL].[NoDonacion]) AND ((DL.ClaveLibro)=[AN].[Clavelibro])) ORDER BY 2, 3)

=== frmReporteDonaciones Form_Load instituciones
expect: value 2
SELECT [No], Nombre FROM Instituciones ORDER BY [Nombre]

=== frmReporteDonaciones Form_Load bibliotecas
expect: rows 4
SELECT [No], Nombre FROM Bibliotecas ORDER BY Nombre

=== frmReporteDonaciones cmdBuscar por fecha
expect: rows 3
SELECT Instituciones.Nombre, count(*) AS Titulos, SUM([Donaciones Libros].[Ejemplares]) AS Ejemplares, Bibliotecas.Nombre, fecha, [Donaciones General].NoDonacion  FROM  Bibliotecas, Instituciones, [Donaciones General] INNER JOIN [Donaciones Libros] ON [Donaciones General].NoDonacion = [Donaciones Libros].NoDonacion  WHERE [Donaciones general].NoBiblioteca=Bibliotecas.[No]  AND [Donaciones general].NoInstitucion=Instituciones.[No]  AND [Donaciones general].fecha BETWEEN #01-01-2008# AND #12-31-2008# GROUP BY Instituciones.Nombre, Bibliotecas.Nombre, fecha,  [Donaciones General].NoDonacion  ORDER BY 5 

=== frmReporteDonaciones cmdBuscar por fecha primera
expect: value Fundación Lectura
SELECT Instituciones.Nombre, count(*) AS Titulos, SUM([Donaciones Libros].[Ejemplares]) AS Ejemplares, Bibliotecas.Nombre, fecha, [Donaciones General].NoDonacion  FROM  Bibliotecas, Instituciones, [Donaciones General] INNER JOIN [Donaciones Libros] ON [Donaciones General].NoDonacion = [Donaciones Libros].NoDonacion  WHERE [Donaciones general].NoBiblioteca=Bibliotecas.[No]  AND [Donaciones general].NoInstitucion=Instituciones.[No]  AND [Donaciones general].fecha BETWEEN #01-01-2008# AND #12-31-2008# GROUP BY Instituciones.Nombre, Bibliotecas.Nombre, fecha,  [Donaciones General].NoDonacion  ORDER BY 5 

=== frmReporteDonaciones cmdBuscar por donacion
expect: value Fundación Lectura
SELECT Instituciones.Nombre, count(*) AS Titulos, SUM([Donaciones Libros].[Ejemplares]) AS Ejemplares, Bibliotecas.Nombre, fecha, [Donaciones General].NoDonacion  FROM  Bibliotecas, Instituciones, [Donaciones General] INNER JOIN [Donaciones Libros] ON [Donaciones General].NoDonacion = [Donaciones Libros].NoDonacion  WHERE [Donaciones general].NoBiblioteca=Bibliotecas.[No]  AND [Donaciones general].NoInstitucion=Instituciones.[No]  AND [Donaciones general].fecha BETWEEN #01-01-2008# AND #12-31-2008# GROUP BY Instituciones.Nombre, Bibliotecas.Nombre, fecha,  [Donaciones General].NoDonacion  ORDER BY 6 

=== frmReporteDonaciones cmdBuscar biblioteca e institucion
expect: rows 1
SELECT Instituciones.Nombre, count(*) AS Titulos, SUM([Donaciones Libros].[Ejemplares]) AS Ejemplares, Bibliotecas.Nombre, fecha, [Donaciones General].NoDonacion  FROM  Bibliotecas, Instituciones, [Donaciones General] INNER JOIN [Donaciones Libros] ON [Donaciones General].NoDonacion = [Donaciones Libros].NoDonacion  WHERE [Donaciones general].NoBiblioteca=Bibliotecas.[No]  AND [Donaciones general].NoInstitucion=Instituciones.[No]  AND [Donaciones general].fecha BETWEEN #01-01-2008# AND #12-31-2008# AND [Donaciones general].NoBiblioteca=1  AND [Donaciones general].NoInstitucion=2  GROUP BY Instituciones.Nombre, Bibliotecas.Nombre, fecha,  [Donaciones General].NoDonacion  ORDER BY 1 

=== frmReporteDonaciones cmdBuscar periodo vacio
expect: rows 0
SELECT Instituciones.Nombre, count(*) AS Titulos, SUM([Donaciones Libros].[Ejemplares]) AS Ejemplares, Bibliotecas.Nombre, fecha, [Donaciones General].NoDonacion  FROM  Bibliotecas, Instituciones, [Donaciones General] INNER JOIN [Donaciones Libros] ON [Donaciones General].NoDonacion = [Donaciones Libros].NoDonacion  WHERE [Donaciones general].NoBiblioteca=Bibliotecas.[No]  AND [Donaciones general].NoInstitucion=Instituciones.[No]  AND [Donaciones general].fecha BETWEEN #01-01-2007# AND #12-31-2007# GROUP BY Instituciones.Nombre, Bibliotecas.Nombre, fecha,  [Donaciones General].NoDonacion  ORDER BY 4 

=== frmExportacion CrearEstruc solicitudes 1
expect: affected 3
INSERT INTO [Solicitudes General] IN '@OTRA@' SELECT SG.* FROM [Solicitudes General] SG  WHERE SG.NoSolicitud BETWEEN 1 AND 3

=== frmExportacion CrearEstruc solicitudes 2
expect: affected 6
INSERT INTO [Solicitudes Libros] IN '@OTRA@' SELECT L.* FROM [Solicitudes General] G INNER JOIN [Solicitudes Libros] L ON L.NoSolicitud = G.NoSolicitud WHERE G.NoSolicitud BETWEEN 1 AND 3

=== frmExportacion CrearEstruc solicitudes 3
expect: affected 8
INSERT INTO [Adquisiciones Numadqui] IN '@OTRA@' SELECT N.* FROM [Solicitudes General] G INNER JOIN ([Solicitudes Libros] L  INNER JOIN [Adquisiciones Numadqui] N ON L.ClaveLibro = N.ClaveLibro) ON L.NoSolicitud = G.NoSolicitud WHERE G.NoSolicitud BETWEEN 1 AND 3

=== frmExportacion CrearEstruc solicitudes Metadata
expect: affected 1
INSERT INTO [Metadata] IN '@OTRA@' VALUES (3,0,6,8,'admin',#2008-12-15 14:00:00#)

=== frmExportacion CrearEstruc rango sin final
expect: error 3075
INSERT INTO [Solicitudes General] IN '@OTRA@' SELECT SG.* FROM [Solicitudes General] SG  WHERE SG.NoSolicitud BETWEEN 1 AND 

=== frmExportacion CrearEstruc rango sin filas
expect: affected 0
INSERT INTO [Solicitudes General] IN '@OTRA@' SELECT SG.* FROM [Solicitudes General] SG  WHERE SG.NoSolicitud BETWEEN 100 AND 200

=== frmExportacion CrearEstruc donaciones 1
expect: affected 3
INSERT INTO [Donaciones General] IN '@OTRA@' SELECT * FROM [Donaciones General] WHERE NoDonacion BETWEEN 1 AND 4

=== frmExportacion CrearEstruc donaciones 2
expect: affected 3
INSERT INTO [Donaciones Libros] IN '@OTRA@' SELECT L.* FROM [Donaciones General] G INNER JOIN [Donaciones Libros] L ON L.NoDonacion = G.NoDonacion WHERE G.NoDonacion BETWEEN 1 AND 4

=== frmExportacion CrearEstruc donaciones 3
expect: affected 7
INSERT INTO [Adquisiciones Numadqui] IN '@OTRA@' SELECT N.* FROM [Donaciones General] G INNER JOIN ([Donaciones Libros] L  INNER JOIN [Adquisiciones Numadqui] N ON L.ClaveLibro = N.ClaveLibro) ON L.NoDonacion = G.NoDonacion WHERE G.NoDonacion BETWEEN 1 AND 4

=== frmExportacion CrearEstruc donaciones Metadata
expect: affected 1
INSERT INTO [Metadata] IN '@OTRA@' VALUES (0,3,3,7,'admin',#2008-12-15 14:05:00#)

=== frmImportar Command3_Click metadata en una base sin esa tabla
expect: error 3078
SELECT * FROm metadata

=== frmImportar Importar solicitudes del rango
expect: rows 3
SELECT * FROM [Solicitudes General] WHERE NoSolicitud BETWEEN 1 AND 3 ORDER BY NoSolicitud

=== frmImportar BuscaUltimo solicitud
expect: value 7
Select TOP 1 NoSolicitud  From [Solicitudes general] ORDER BY NoSolicitud DESC

=== frmImportar Importar alta de solicitud
expect: affected 1
INSERT INTO [Solicitudes General] (NoSolicitud, Fecha, Solicitante, NoEscuela, NoBiblioteca, Estado) VALUES (8,  '2008/09/01 00:00:00', 'Juan Pérez', 1, 1 ,'R')

=== frmImportar Importar solicitud recien creada
expect: value 8
SELECT TOP 1 * FROM [Solicitudes General] ORDER BY NoSolicitud DESC

=== Sol_Edi Form_Load modificar solicitud importada
expect: value 2008-09-01 00:00:00
Select Fecha, Solicitante , Nobiblioteca, NoEscuela, IdFinanciamiento  From [Solicitudes General] where NoSolicitud=8

=== frmImportar Importar titulos de la solicitud
expect: rows 2
SELECT * FROM [Solicitudes Libros] WHERE NoSolicitud=1

=== frmImportar BuscaUltimo titulo
expect: value 9
SELECT TOP 1 * FROM [Solicitudes Libros] ORDER BY ClaveLibro DESC

=== frmImportar Importar alta de titulo recibido
expect: affected 1
INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, [Fecha de Recepcion], [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud) VALUES (10, 'Cien años de soledad', 'Gabriel García Márquez', 2, 1, 1, #2008/09/18 00:00:00#, 2, 250.5, 'F-100', 'A', 8)

=== frmImportar Importar titulo recien creado
expect: value 10
SELECT TOP 1 * FROM [Solicitudes Libros] ORDER BY ClaveLibro DESC

=== frmImportar Importar alta de titulo sin recibir
expect: affected 1
INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud) VALUES (11, 'Rayuela', 'Julio Cortázar', 1, 2, 3, 0, 0, '', 'I', 8)

=== frmImportar Importar titulo sin recibir con apostrofo
expect: error 3075
INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud) VALUES (12, 'El jardín de O'Neill', 'Ana Mora', 1, 2, 3, 0, 0, '', 'S', 8)

=== frmImportar Importar titulo con editorial nula
expect: error 3134
INSERT INTO [Solicitudes Libros] (ClaveLibro, Titulo, Autor, [Ejemplares pedidos], NoEditorial, Edicion, [Ejemplares recibidos], Costo, Factura, Estado, NoSolicitud) VALUES (12, 'Rayuela', 'Julio Cortázar', 1, , 3, 0, 0, '', 'I', 8)

=== frmImportar Importar ejemplares del titulo
expect: rows 4
SELECT * FROM [Adquisiciones Numadqui] WHERE ClaveLibro=1

=== frmImportar Importar numero ya existente
expect: rows 1
SELECT NoAdquisicion FROM [Adquisiciones Numadqui] WHERE NoAdquisicion='000101'

=== frmImportar Importar numero nuevo
expect: rows 0
SELECT NoAdquisicion FROM [Adquisiciones Numadqui] WHERE NoAdquisicion='000500'

=== frmImportar Importar alta de ejemplar
expect: affected 1
INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion], IdCapturista, FechaIngreso, MatComplementario) VALUES ('000500', 10, 'S', 'admin', #2008/09/18 10:00#, '' )

=== frmImportar Importar donaciones del rango
expect: rows 3
SELECT * FROM [donaciones General] WHERE Nodonacion BETWEEN 1 AND 4 ORDER BY Nodonacion

=== frmImportar BuscaUltimo donacion
expect: value 4
Select TOP 1 NoDonacion  From [Donaciones general] ORDER BY NoDonacion DESC

=== frmImportar Importar alta de donacion
expect: affected 1
INSERT INTO [donaciones General] (NoDonacion, Fecha, NoInstitucion, NoBiblioteca, [Donacion o Intercambio]) VALUES ( 5, '2008/08/10 00:00:00',  1, 1 ,'D')

=== frmImportar Importar donacion recien creada
expect: value 5
SELECT TOP 1 * FROM [donaciones General] ORDER BY Nodonacion DESC

=== frmImportar Importar titulos de la donacion
expect: rows 1
SELECT * FROM [donaciones Libros] WHERE Nodonacion=1

=== frmImportar BuscaUltimo titulo donado
expect: value 4
SELECT TOP 1 * FROM [Donaciones Libros] ORDER BY ClaveLibro DESC

=== frmImportar Importar alta de titulo donado
expect: affected 1
INSERT INTO [donaciones Libros] (ClaveLibro, Titulo, Autor, Ejemplares , NoEditorial, Edicion,  Nodonacion) VALUES (5, 'Antología poética', 'Pablo Neruda', 2, 1, 1, 5)

=== frmImportar Importar titulo donado recien creado
expect: value 5
SELECT TOP 1 * FROM [donaciones Libros] ORDER BY ClaveLibro DESC

=== frmImportar Importar numero donado ya existente
expect: rows 1
SELECT NoAdquisicion FROM [Adquisiciones Numadqui] WHERE NoAdquisicion='D00001'

=== frmImportar Importar alta de ejemplar donado
expect: affected 1
INSERT INTO [Adquisiciones Numadqui] (NoAdquisicion, ClaveLibro, [Solicitud o donacion]) VALUES ('D00020', 5, 'D')

=== frmImportar GenerarPreview donaciones
expect: rows 3
SELECT * FROM [Donaciones General] WHERE NoDonacion BETWEEN 1 AND 4 ORDER BY NoDonacion

=== frmImportar GenerarPreview institucion
expect: value Fundación Lectura
SELECT Nombre FROM Instituciones WHERE [no]=1

=== frmImportar GenerarPreview biblioteca
expect: value Biblioteca de Ingeniería
SELECT Nombre FROM Bibliotecas WHERE [no]=2

=== frmImportar GenerarPreview libros donados
expect: rows 4
SELECT L.NoDonacion, N.NoAdquisicion , L.Titulo, L.Autor, L.NoEditorial, L.Edicion  FROM [Donaciones Libros] L LEFT JOIN [Adquisiciones Numadqui] N ON N.ClaveLibro=L.ClaveLibro WHERE NoDonacion=1

=== frmImportar GenerarPreview editorial
expect: value Siglo XXI
SELECT Nombre FROM Editoriales WHERE [no]=3

=== frmImportar GenerarPreview editorial desconocida
expect: rows 0
SELECT Nombre FROM Editoriales WHERE [no]=0

=== frmImportar GenerarPreview solicitudes
expect: rows 3
SELECT * FROM [Solicitudes General] WHERE NoSolicitud BETWEEN 1 AND 3 ORDER BY NoSolicitud

=== frmImportar GenerarPreview escuela
expect: value Facultad de Ingeniería
SELECT Nombre FROM Escuelas WHERE [no]=2

=== frmImportar GenerarPreview libros solicitados
expect: rows 5
SELECT L.NoSolicitud, N.NoAdquisicion , L.Titulo, L.Autor, L.[Ejemplares pedidos], L.NoEditorial, L.Edicion, L.[Fecha de Recepcion], L.[Ejemplares recibidos], L.Costo, L.Factura, L.Estado FROM [Solicitudes Libros] L LEFT JOIN [Adquisiciones Numadqui] N ON N.ClaveLibro=L.ClaveLibro WHERE NoSolicitud=1

=== FrmImportaSolicitud CargaDoc numero
expect: value 8
Select Max(Nosolicitud) as MaxS From [Solicitudes General]

=== FrmImportaSolicitud CargaDoc escuela
expect: value Facultad de Ingeniería
SELECT Escuelas.Nombre FROM Escuelas Where Escuelas.no = 2

=== FrmImportaSolicitud CargaDoc biblioteca de la escuela
expect: value 2
SELECT Escuelas.NoBiblioteca FROM Escuelas WHERE Escuelas.No=2

=== FrmImportaSolicitud CargaDoc escuela inexistente
expect: rows 0
SELECT Escuelas.Nombre FROM Escuelas Where Escuelas.no = 99

=== FrmImportaSolicitud_1 Form_Load combo editoriales
expect: value 1
SELECT [No], Nombre FROM Editoriales ORDER BY [Nombre]

=== Don1 Command3 BorraDonacion 1
expect: affected 1
delete from [Donaciones Libros] where NoDonacion=2

=== Don1 Command3 BorraDonacion 2
expect: affected 1
delete from [Donaciones General] where NoDonacion=2

=== Don1 Refrescar tras borrar
expect: value 5
SELECT NoDonacion,Fecha, [Instituciones].Nombre, Bibliotecas.Nombre FROM ([Donaciones General] left join [Instituciones] on [Donaciones General].NoInstitucion = [Instituciones].No) left join Bibliotecas on [Donaciones General].NoBiblioteca=Bibliotecas.no  ORDER BY NoDonacion Desc

=== Busqueda Command2 numero de un titulo donado borrado
expect: value 2
Select ClaveLibro From [Adquisiciones Numadqui] where NoAdquisicion = "D00003" AND [solicitud o donacion]='D'

=== Proyectos cmdBorrar
expect: affected 1
DELETE FROM adqProyectos WHERE IdProyecto=003

=== Proyectos cmdBorrar saldo de la fuente
expect: affected 1
UPDATE adqFinanciamiento SET UltimoMovimiento=#2008/12/15#, MontoXAsignar=(MontoXAsignar+12000)  , MontoAsignadoDisponible=(MontoAsignadoDisponible-12000) WHERE IdFinanciamiento=3

=== Proyectos cmdBorrar lista
expect: rows 3
SELECT IdProyecto, Nombre, Responsable, IdEscuela, FuenteFinanciamiento, FechaAsignacion, FechaVigencia, TotalAsignado, UltimoMovimiento, MontoDisponible, Descripcion FROM adqProyectos ORDER BY IdProyecto

=== Proyectos cboFuenteFinanciamiento_Click tras borrar
expect: value 35000
SELECT MontoXAsignar FROM adqFinanciamiento WHERE IdFinanciamiento=3

=== Sol1 Command3 BorraSolicitud 1 solicitud recibida
expect: affected 5
delete n.* from [adquisiciones numadqui] N inner join [Solicitudes Libros] L on N.ClaveLibro=L.ClaveLibro where L.NoSolicitud=1

=== Sol1 Command3 BorraSolicitud 2 solicitud recibida
expect: affected 2
delete from [Solicitudes Libros] where NoSolicitud=1

=== Sol1 Command3 BorraSolicitud 3 solicitud recibida
expect: affected 1
delete from [Solicitudes General] where NoSolicitud=1

=== Dato Form_Load numeros donacion tras borrar solicitud
expect: rows 0
Select NoAdquisicion From [Adquisiciones Numadqui] where ClaveLibro=1 AND [Solicitud o Donacion]='D'

=== ActualizaBDs Solicitudes General IdFinanciamiento
expect: affected 5
UPDATE [Solicitudes General] SET IdFinanciamiento=0

=== ActualizaBDs instalacion anterior sin PagoFacturasDetalle
expect: ok
DROP TABLE PagoFacturasDetalle

=== CreaTablasPagoFacturas 2
expect: ok
CREATE Table PagoFacturasDetalle(IdFacturaItem COUNTER CONSTRAINT PK_IdFacturaItem PRIMARY KEY, IdPagoFactura LONG, IdProyecto LONG, NoFactura TEXT(20), MontoFactura CURRENCY, Observaciones MEMO, FechaCaptura DATETIME, FechaMod DATETIME, IdCapturista TEXT(10), IdCapMod TEXT(10) )

=== pagoFacturasDetalle cmdGrabarFactura alta sin columnas nuevas en tabla nueva
expect: affected 1
INSERT INTO PagoFacturasDetalle (IdPagoFactura,IdProyecto,NoFactura,MontoFactura,FechaCaptura,IdCapturista) VALUES (3,4,'C-100',2500.5,#2008/12/15#,'admin')

=== pagoFacturasDetalle cmdGrabarFactura alta con columnas que la tabla no tiene
expect: error 3127
INSERT INTO PagoFacturasDetalle (IdPagoFactura,IdProyecto,NoFactura,MontoFactura,FechaCaptura,IdCapturista,IdSolicitud,IdEscuela) VALUES (3,4,'C-101',100,#2008/12/15#,'admin',NULL,5)

=== pagoFacturasDetalle RefrescaListView tabla nueva
expect: value 1
SELECT IdFacturaItem,adqProyectos.Nombre,NoFactura,MontoFactura FROM ([PagoFacturasDetalle] LEFT JOIN adqProyectos ON [PagoFacturasDetalle].IdProyecto= adqProyectos.IdProyecto) WHERE [PagoFacturasDetalle].IdPagoFactura=3

=== pagoFacturasSaldar cmdDeshacerPago 6 desglose sin IdEscuela
expect: rows 1
SELECT DISTINCT Nombre,TotalAsignado,MontoDisponible,IdEscuela,(SELECT SUM(MontoFactura) FROM PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=3) AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)) AS TotalFacturas FROM adqProyectos, PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=3) AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)

=== pagoFacturasSaldar cmdDeshacerPago 6 desglose sin IdEscuela primer proyecto
expect: value Colegio O''Higgins
SELECT DISTINCT Nombre,TotalAsignado,MontoDisponible,IdEscuela,(SELECT SUM(MontoFactura) FROM PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=3) AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)) AS TotalFacturas FROM adqProyectos, PagoFacturasDetalle WHERE (PagoFacturasDetalle.IdPagoFactura=3) AND (adqProyectos.IdProyecto=PagoFacturasDetalle.IdProyecto)

=== ActualizaBDs instalacion anterior sin PagoFacturasGral
expect: ok
DROP TABLE PagoFacturasGral

=== CreaTablasPagoFacturas 1
expect: ok
CREATE Table PagoFacturasGral(IdPagoFactura COUNTER CONSTRAINT PK_IdPagoFactura PRIMARY KEY, FuenteFinanciamiento TEXT(40), IdProveedor LONG, Monto CURRENCY, Concepto TEXT(100), Observaciones MEMO, FechaSolicitud DATETIME, FechaPago DATETIME, FechaMod DATETIME, IdCapturista TEXT(10), IdCapMod TEXT(10), Estado TEXT(1) )

=== pagoFacturasGral Form_Load numero nuevo en tabla vacia
expect: rows 0
SELECT TOP 10 IdPagoFactura FROM PagoFacturasGral ORDER BY 1 DESC 

=== pagoFacturasGral cmdAceptar alta sin IdFinanciamiento en la tabla
expect: error 3127
INSERT INTO PagoFacturasGral (IdPagoFactura,FuenteFinanciamiento,IdProveedor,FechaSolicitud,FechaPago,FechaMod,Concepto,Observaciones,Monto,IdCapturista,IdCapMod,Estado, IdFinanciamiento) VALUES (001,'Ingresos propios',2,#2008/12/15#,NULL,NULL,'Encuadernación','',NULL,'admin',NULL,'S',3)

=== ActualizaBDs instalacion anterior sin adqMaterialComplementario
expect: ok
DROP TABLE adqMaterialComplementario

=== CreaMaterialComplementario 1
expect: ok
CREATE Table adqMaterialComplementario (IdMatComp COUNTER CONSTRAINT PK_IdMatComp PRIMARY KEY, ClaveLibro LONG NOT NULL, FechaCaptura DATETIME NOT NULL, Titulo TEXT(255) NOT NULL, Observaciones MEMO, IdCapturista TEXT(10) NOT NULL, TipoMatComp LONG NOT NULL )

=== Orden por una constante con signo
expect: rows 1
select * from Bibliotecas where No=1 ORDER BY +0 ASC, -(1)

=== Agrupado por una constante
expect: rows 1
select count(*) from Bibliotecas GROUP BY -1

=== Saldo de financiamiento con el mayor monto
expect: affected 1
INSERT INTO adqSaldoFinanciamientos VALUES (9, #2024/01/01#, 922337203685477.5807, 0, 'x', 'y')

=== Saldo de financiamiento con el mayor monto leído
expect: value 922337203685477.5807
SELECT Monto FROM adqSaldoFinanciamientos WHERE IdFinanciamiento=9

=== Saldo de financiamiento que se desborda
expect: error 3349
UPDATE adqSaldoFinanciamientos SET Monto=Monto+CCur(0.0001) WHERE IdFinanciamiento=9

=== Suma de saldos que se desborda
expect: error 6
SELECT SUM(Monto) FROM adqSaldoFinanciamientos WHERE IdFinanciamiento=9 OR Monto>0

=== Proyecto con monto disponible de centavos
expect: affected 1
UPDATE adqSaldoFinanciamientos SET Monto=900000000000.0001 WHERE IdFinanciamiento=9

=== Proyecto que descuenta un diezmilésimo
expect: affected 1
UPDATE adqSaldoFinanciamientos SET Monto=(Monto-CCur(0.0001)) WHERE IdFinanciamiento=9

=== Proyecto que descuenta un diezmilésimo leído
expect: value 900000000000
SELECT Monto FROM adqSaldoFinanciamientos WHERE IdFinanciamiento=9

=== Saldo restado de un entero
expect: value -899999995000
SELECT (5000-Monto) AS Saldo FROM adqSaldoFinanciamientos WHERE IdFinanciamiento=9

=== Saldo comparado con un decimal
expect: rows 1
SELECT * FROM adqSaldoFinanciamientos WHERE Monto > 899999999999.9999 AND Monto < 900000000000.0001

=== Agregado en la asignacion de un UPDATE
expect: error 3095
UPDATE PagoFacturasGral SET IdCapMod=Count(*) WHERE IdPagoFactura=3

=== Agregado en el WHERE
expect: error 3095
SELECT Nombre FROM Bibliotecas WHERE Max(No) > 1

=== Signo delante de un negativo
expect: rows 1
SELECT -TRUE AS a, -(-TRUE) AS b, -CCur(-1) AS c FROM Bibliotecas WHERE No=1

=== Fecha menos un negativo
expect: rows 1
SELECT #2026/01/10# - TRUE AS d FROM Bibliotecas WHERE No=1
