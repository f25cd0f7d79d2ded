#pragma once
// How the main window opens the report screens.

namespace reportes {

// Registers "Listados" (the report generator), "Consultas" (the holdings search) and "EjemAdq" (the copy
// listing) with the main window.
void RegistraComandos();

}  // namespace reportes
