#pragma once
// A data-entry screen's button beside a combo box: opens the master table behind the combo and refills
// the combo when the catalog closes, keeping the entry that was selected.
#include <QString>

class QComboBox;

namespace CatMod {

// Catalogo: "bibliotecas", "proveedores", "editoriales", "instituciones" or "escuelas" (any other word
// opens nothing). Afterwards Combo holds Inicial (when not empty) and the column CampoTexto of each row of
// SQLcombo, and the entry with the text it had before is selected again; a text that is gone leaves no
// selection. NoCuentaSeleccionada holds the number of the row last clicked in the catalog.
void CatalogoParaCombo(QComboBox& Combo, const QString& Catalogo, const QString& CampoTexto, const QString& SQLcombo,
                       const QString& Inicial);

}  // namespace CatMod
