#pragma once

namespace intercambio {

// The main window's commands that open the screens of data exchange.
void RegistraComandos();

}  // namespace intercambio
