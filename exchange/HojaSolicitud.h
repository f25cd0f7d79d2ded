#pragma once
// A request that an office sends as a spreadsheet, turned into the request document. The first sheet has a
// fixed layout, as (row, column):
//
//   (1, 2) date of sending    FechaEnvio        (r, 1) title, from row 7; an empty cell ends the list   Libro
//   (2, 2) requester          Director          (r, 2) author                                          Autor
//   (3, 2) school number      ClaveEscuela      (r, 3) publisher ("S.N." when empty or blank)          Editorial
//                                               (r, 4) edition                                         Publicacion
//                                               (r, 5) copies, added up into TotalEjemplares           Ejemplares
//                                               (r, 6) ISBN                                            ISBN
//
// Each value goes between its tags as the cell gives it, unescaped, as the offices' documents always were:
// a "<" or "&" in a cell makes a document the loader refuses.
#include <QString>

namespace intercambio {

class LectorHoja;

// The document's text, its lines joined by CR LF. The copies are added as numbers: an empty cell adds
// nothing, a text that is no number is error 13. A sheet whose date, requester, school and first title
// are all empty holds no request: error 1004 naming the workbook.
QString DocumentoDeHoja(LectorHoja& hoja, const QString& ruta);

// The document beside the workbook: the folder, a separator unless it ends in one (or is empty), the workbook's name up to
// its first point, and ".xml" ("Sol.2024.xls" gives "Sol.xml").
QString ArchivoDeSalida(const QString& carpeta, const QString& nombre);

// Writes the document in ISO-8859-1 (a character it lacks becomes "?"), replacing what stood there; error 75
// when the file can't be written.
void GuardaDocumento(const QString& ruta, const QString& texto);

}  // namespace intercambio
