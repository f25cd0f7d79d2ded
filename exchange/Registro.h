#pragma once
// How the main window opens the screens of data exchange.

namespace intercambio {

// Registers "FrmImportaSolicitud" (the import of a school's request document, which Sol1 opens).
void RegistraComandos();

}  // namespace intercambio
