# Makes solicitud.xls, the binary workbook of the import tests: the request of solicitud.xml laid out as
# the offices fill the sheet, with a second sheet that must not be read. Run once with Debian's python3-xlwt:
#   /usr/bin/python3 tests/exchange/solicitud_xls.py tests/exchange/solicitud.xls
import datetime
import sys

import xlwt

libro = xlwt.Workbook(encoding="utf-8")
hoja = libro.add_sheet("Solicitud")
fecha = xlwt.easyxf(num_format_str="dd/mm/yyyy")
hoja.write(0, 0, "Fecha de envío")
hoja.write(0, 1, datetime.date(2024, 3, 15), fecha)
hoja.write(1, 0, "Director")
hoja.write(1, 1, "Dra. Ana María Núñez")
hoja.write(2, 0, "Clave de la escuela")
hoja.write(2, 1, 3)
for columna, rotulo in enumerate(["Título", "Autor", "Editorial", "Edición", "Ejemplares", "ISBN"]):
    hoja.write(5, columna, rotulo)
titulos = [
    ["Pedro Páramo", "Juan Rulfo", "Planeta", 2, 3, "978-607-07-0001-1"],
    ["Cien años de soledad", "Gabriel García Márquez", "Sudamericana", 1, 2, 9786070000002],
    ["El laberinto de la soledad", "Octavio Paz", "", 3, 1, ""],
]
for fila, valores in enumerate(titulos, start=6):
    for columna, valor in enumerate(valores):
        if valor != "":
            hoja.write(fila, columna, valor)
otra = libro.add_sheet("Notas")
otra.write(6, 0, "Esta hoja no es la solicitud")
libro.save(sys.argv[1])
