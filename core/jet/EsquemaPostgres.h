#pragma once
// PROVISIONAL: the DDL the server catalog sends (replaced by the generator's own).
#include "core/jet/Catalogo.h"

namespace jet {
QString CreaTablaPostgres(const QString& esquemaSql, const TablaDef& t);
QString AgregaCampoPostgres(const TablaDef& t, const CampoDef& c);
QString SqlIndicePostgres(const QString& esquemaSql, const TablaDef& t, const IndiceDef& i);
QString NombreIndicePostgres(const QString& tabla, const QString& indice);
QString PredeterminadoPostgres(const QString& jet, TipoCampo tipo);
QString SiguienteContadorPostgres(const TablaDef& t);
}  // namespace jet
