#pragma once
// How the main window opens the report screens.

namespace reportes {

// Registers "Listados" (the report generator) with the main window.
void RegistraComandos();

}  // namespace reportes
