#pragma once
// A data-entry screen's button beside a combo box: opens the master table behind the combo and refills
// the combo when the catalog closes, keeping the entry that was selected.
#include <QString>

class QComboBox;

namespace controles { class ComboBox; }

namespace CatMod {

// Catalogo: "bibliotecas", "proveedores", "editoriales", "instituciones" or "escuelas" (any other word
// opens nothing). Afterwards Combo holds Inicial (when not empty) and the column CampoTexto of each row of
// SQLcombo, and the entry with the text it had before is selected again; a text that is gone leaves no
// selection. NoCuentaSeleccionada holds the number of the row last clicked in the catalog.
void CatalogoParaCombo(QComboBox& Combo, const QString& Catalogo, const QString& CampoTexto, const QString& SQLcombo,
                       const QString& Inicial);
// The catalog button of a capture screen: the same, and when the combo then has rows but nothing chosen, its
// first row is chosen.
void CatalogoParaComboEligiendo(controles::ComboBox& Combo, const QString& Catalogo, const QString& SQLcombo);

}  // namespace CatMod
