#pragma once
// The catalog of a database on a PostgreSQL server: the server keeps the rows, and the same two tables as
// in a file, MSysCampos and MSysIndices, keep the engine's types, sizes, attributes and index names. A change
// of schema made by any workstation is announced to the others, which read the definitions again.
#include "core/jet/Catalogo.h"

namespace jet {

class ConexionPostgres;

// Creates the bookkeeping tables in a server database that lacks them.
void PreparaMetadatosPostgres(ConexionPostgres& c);

class CatalogoPostgres final : public Catalogo {
public:
    explicit CatalogoPostgres(ConexionPostgres& c) : c_(c) {}

private:
    ConexionPostgres& c_;
    long long version_ = 0;
    long long version(const QString& esquema) override;
    void lee(const QString& esquema, Esquema& nuevo) override;
    void aplicaCreaTabla(const TablaDef& def, const QString& esquema) override;
    void aplicaAgregaCampo(const TablaDef& t, const CampoDef& campo, const QString& esquema) override;
    void aplicaBorraCampo(const TablaDef& t, const CampoDef& campo) override;
    void aplicaBorraTabla(const TablaDef& t) override;
    void aplicaCreaIndice(const TablaDef& t, const IndiceDef& indice) override;
    void aplicaBorraIndice(const TablaDef& t, const IndiceDef& indice) override;
    void guardaCampo(const TablaDef& t, const CampoDef& campo) override;
    // Statements of a change of schema, applied together and announced.
    void cambia(const QString& sql);
};

}  // namespace jet
