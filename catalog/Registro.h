#pragma once
// How the main window opens the five master catalogs, and the handler of a catalog's button event that
// the main window and the request screen share.
#include <QString>

class CatalogoSimple;

namespace catalogo {

// Registers "Escuelas", "Bibliotecas", "Proveedores", "Editoriales" and "Instituciones" with the main
// window.
void RegistraComandos();

// CatEventos_ClickBoton: the button "Bibliotecas" of a catalog's row opens the library catalog; other
// buttons do nothing.
void CatEventos_ClickBoton(CatalogoSimple& CAT, const QString& Titulo, int Index);

// Opens one of the five catalogs as the main menu does ("Escuelas", "Bibliotecas", ...), its button event
// going to CatEventos_ClickBoton. Any other name opens nothing.
void AbreCatalogoMenu(const QString& comando);

}  // namespace catalogo
