#pragma once
// The three statements through which a catalog changes its table: insert, update and delete, each with its
// own error trap and its own boxes, each run with dbFailOnError on the open database.
#include <QString>

namespace ModuloCatalogo {

// "INSERT INTO [<Tabla>] (<Campos>) VALUES (<Valores>)": 0 when inserted, else the engine's error number
// (after its box).
qint16 AgregarRegistroTabla(const QString& Campos, const QString& Valores, const QString& Tabla);

// "UPDATE [<Tabla>] SET <Asignaciones> where (<Condicion>)": 0 when some row changed, -1 when none did
// ("Error 1001"), else the engine's error number.
qint16 ActualizarRegistroTabla(const QString& Asignaciones, const QString& Condicion, const QString& Tabla);

// "DELETE * FROM [<Tabla>] WHERE <Condicion>": the rows deleted, 0 after an error.
long EliminarRegistroTabla(const QString& Condicion, const QString& Tabla);

// The last statement any of the three sent to the database, whether it ran or failed.
const QString& UltimaSentencia();

}  // namespace ModuloCatalogo
