#pragma once
// How the main window opens the screens of the budget and payments.

namespace finanzas {

// Registers the "Finanzas" commands whose screens this build has with the main window.
void RegistraComandos();

}  // namespace finanzas
