#pragma once
// The four older schema steps of the data module, run at start-up before the login: the one-off fix of
// the accession numbers' owner column, the ISBN column of the titles, the two payment tables and the
// complementary material. Unlike the routine steps of ActualizaBDsAdq these look names up exactly as
// written and don't refresh the table definitions first.
#include <QString>

namespace Datos {

// Unless FixSolDonNumAdqui is set: every accession number that isn't a donation's becomes a request's,
// and the settings row that marks the fix is inserted. An error is shown in a box; false then.
bool CorrigeSolDonNumAdqui();

// Adds [Solicitudes Libros].ISBN where it is missing. Empty when all went well, the error text otherwise.
QString AgregaISBN();

// Creates PagoFacturasGral and PagoFacturasDetalle where missing. `mensaje` says what was done; false
// with the error in `mensaje`.
bool CreaTablasPagoFacturas(QString& mensaje);

// Creates adqMaterialComplementario and [Adquisiciones Numadqui].MatComplementario where missing.
bool CreaMaterialComplementario(QString& mensaje);

}  // namespace Datos
