#pragma once
// How the screens of data exchange are opened.

namespace intercambio {

// The main window's "Exportacion" and "Importacion", and "FrmImportaSolicitud", which Sol1 opens by name.
void RegistraComandos();

}  // namespace intercambio
