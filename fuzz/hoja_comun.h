#pragma once
// What the workbook targets do with a sheet once open: read its corner cell by cell, turn it into the request
// document and load that as the import screen would. The program's errors are fine outcomes.
#include "core/vb/Error.h"
#include "exchange/DocumentoSolicitud.h"
#include "exchange/HojaSolicitud.h"
#include "exchange/LectorHoja.h"

inline void RecorreHoja(intercambio::LectorHoja& hoja) {
    for (int fila = 0; fila <= 12; ++fila)
        for (int columna = 0; columna <= 8; ++columna) (void)hoja.Celda(fila, columna);
    try {
        const QString texto = intercambio::DocumentoDeHoja(hoja, QStringLiteral("fuzz.xls"));
        intercambio::DocumentoXml documento;
        if (documento.loadXML(texto.toLatin1())) (void)intercambio::LeeDatosGenerales(documento);
    } catch (const vb::Error&) {
    }
    hoja.Cierra();
}
