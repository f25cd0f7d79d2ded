#pragma once
// How the main window opens the screens of the acquisition workflow.

namespace flujo {

// Registers "Solicitudes" (the list of purchase requests) with the main window.
void RegistraComandos();

}  // namespace flujo
