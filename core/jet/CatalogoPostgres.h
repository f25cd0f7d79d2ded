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

    void creaTabla(const TablaDef& def, const QString& esquema = QStringLiteral("main")) override;
    void agregaCampo(const QString& tabla, const CampoDef& campo, const QString& esquema = QStringLiteral("main")) override;
    void borraCampo(const QString& tabla, const QString& campo) override;
    void borraTabla(const QString& tabla) override;
    void creaIndice(const QString& tabla, const IndiceDef& indice) override;
    void borraIndice(const QString& tabla, const QString& indice) override;
    void cambiaPredeterminado(const QString& tabla, const QString& campo, const QString& valor) override;
    void cambiaRequerido(const QString& tabla, const QString& campo, bool requerido) override;

private:
    ConexionPostgres& c_;
    long long version_ = 0;
    long long version(const QString& esquema) override;
    void lee(const QString& esquema, Esquema& nuevo) override;
    // Statements of a change of schema, applied together and announced.
    void cambia(const QString& sql);
};

}  // namespace jet
