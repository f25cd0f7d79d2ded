#pragma once
// The tables of the engine on a PostgreSQL server, as the generator for PostgreSQL expects them: every
// table has a hidden `rowid bigint` identity (unique, not in the catalog); text columns and their indexes
// compare through the collation `jettext`; money is numeric(19,4) in natural units, dates timestamp(0),
// Yes/No smallint -1/0; an AutoNumber is an identity whose counter a row written with its own number
// pushes past it. `esquemaSql` is the schema as SQL writes it (already quoted), or empty for the
// connection's search path. Each function returns one or more statements, each ending in ";".
#include "core/jet/Catalogo.h"

namespace jet {

QString TipoColumnaPostgres(const CampoDef& campo);
QString CreaTablaPostgres(const QString& esquemaSql, const TablaDef& tabla);
QString AgregaCampoPostgres(const QString& esquemaSql, const TablaDef& tabla, const CampoDef& campo);
QString SqlIndicePostgres(const QString& esquemaSql, const TablaDef& tabla, const IndiceDef& indice);
// The index's name on the server: unique in its schema (the table's name first), within 63 bytes.
QString NombreIndicePostgres(const QString& tabla, const QString& indice);
// A field's default as the server writes it; empty when it can't express it (the field then has none).
QString PredeterminadoPostgres(const QString& jet, TipoCampo tipo);
// An expression that hands out the next AutoNumber of the table before its row is stored; empty when the
// table has none.
QString SiguienteContadorPostgres(const TablaDef& tabla);

}  // namespace jet
