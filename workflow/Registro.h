#pragma once
// How the main window opens the screens of the acquisition workflow.

namespace flujo {

// Registers the workflow's commands with the main window ("Solicitudes", "Pedidos", "Recepcion", the
// donations), and the screens the reports open by name: "Recep_Libros", "Don_Libros", "Recep_Generales",
// "Don_Generales".
void RegistraComandos();

}  // namespace flujo
