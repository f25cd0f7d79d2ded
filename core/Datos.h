#pragma once
// The data routines every screen shares: fill a list or a combo from a statement described by the record
// Consulta, read values as text joined by "|", insert, delete and update generically, mark requests, and the
// delete cascades of requests, donations and their titles. All run on the open database (globales::Base()).
//
// LlenaListaClave, LlenaListaCondicion, LlenaCombo, ConsultaCampos and TomaCampo trap nothing: an error
// comes up to the caller as a vb::Error. The others show their own box and go on.
#include "core/Globales.h"

#include <QString>

class QComboBox;
namespace controles { class ListView; }

namespace Datos {

using globales::AltaDatos;
using globales::ConsultaDatos;

// The text with each single quote doubled, for a literal between quotes.
QString DuplicaComillas(const QString& texto);

// "Select Campos From Tabla [where Clave=Valor] [order by Orden]"; with Tabla empty, Clave carries the whole
// FROM text. Column 0 of each row is a new row of the list, the others its sub-items, formatted by type.
void LlenaListaClave(ConsultaDatos& consulta, controles::ListView& lista);
// "SELECT Campos FROM Tabla" + Clave, joined without a blank, [ORDER BY Orden].
void LlenaListaCondicion(ConsultaDatos& consulta, controles::ListView& lista);
// Fills a combo: whole numbers as "000 - ", other values followed by a blank. With an id column, Campos gets
// ", <id> as Invisible " for good, and each item's ItemData (Qt::UserRole) the row's id. The combo fires no
// event while it is filled and is left with nothing chosen.
void LlenaCombo(ConsultaDatos& consulta, QComboBox& combo, const QString& idCampo = QString());
// The same through the shared query, set to these fields, table (with any condition) and order, no key.
void LlenaCombo(QComboBox& combo, const QString& campos, const QString& tabla, const QString& orden);

// All values of all rows, each followed by "|", the last "|" cut; a NULL adds only the "|".
QString ConsultaCampos(ConsultaDatos& consulta, const QString& condicion = QString());
// The same with Clave carrying the FROM and WHERE text; a failure shows its box and returns what it had.
QString Consultas_in(ConsultaDatos& consulta);

bool GrabarX(AltaDatos& alta);
bool BorrarX(ConsultaDatos& consulta, const QString& extra = QString());
// UPDATE Tabla SET the columns of Campos (joined by "|") to the values of Orden (joined by "|").
bool CambiaGenerico_X(ConsultaDatos& consulta);

// Requests (and their titles) in the comma list Valor go to Estado 'P'; the head also gets FechaPedido.
void MarcaPedidas(ConsultaDatos& consulta);
// Back to Estado 'S'.
void MarcaSolicitada(ConsultaDatos& consulta);

// Cuts the first piece of a text joined by "|": returns it and leaves the rest. Without "|" it returns the
// whole text and leaves the text as it was.
QString TomaCampo(QString& texto);

void BorraSolicitud(const QString& clave);
void BorraLibroSolicitud(const QString& clave);
void BorraLibroDonacion(const QString& clave);
void BorraDonacion(const QString& clave);

// Replaces every occurrence of `busca` in `texto` (which it changes) by `reemplazo`, never searching inside a
// replacement; returns the result.
QString ReemplazaTexto(QString& texto, const QString& busca, const QString& reemplazo);

}  // namespace Datos
