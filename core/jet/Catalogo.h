#pragma once
// What the engine knows of each table: the field definitions with the engine's types, sizes, attributes,
// required flags and defaults, and the indexes with their names. SQLite keeps the rows; the two tables
// MSysCampos and MSysIndices keep what SQLite has no words for. Names are found without regard to case
// (accented letters included) and kept as they were created.
#include "core/jet/Ast.h"
#include "core/vb/Currency.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace jet {

enum AtributoCampo : int { AtrFijo = 1, AtrVariable = 2, AtrAutoIncremento = 16, AtrActualizable = 32 };

struct CampoDef {
    QString nombre;
    TipoCampo tipo = TipoCampo::Text;
    int tamano = 0;
    int atributos = AtrVariable;
    bool requerido = false;
    bool permiteLongitudCero = true;
    QString predeterminado;         // the DefaultValue text ("0", "\"S\"", "Now()"), empty for none
    int ordinal = 0;
    bool contador() const { return (atributos & AtrAutoIncremento) != 0; }
};

struct IndiceDef {
    QString nombre;
    QStringList campos;
    bool primario = false;
    bool unico = false;
    bool requerido = false;
    bool ignoraNulos = false;
};

struct TablaDef {
    QString nombre;
    std::vector<CampoDef> campos;
    std::vector<IndiceDef> indices;

    const CampoDef* campo(const QString& nombre) const;   // case-blind; nullptr if absent
    const CampoDef* contador() const;                     // the auto-increment field, if any
};

// Rebuilds the text indexes of an older file so that their keys fold case in every alphabet.
void ActualizaIndicesDeTexto(sqlite3* db);

// Money has been kept as a whole count of ten-thousandths since the file's user_version reached this;
// older files hold decimals. ActualizaMoneda converts every money column of a schema once, under a
// write lock, and says whether the schema is now in the new form.
constexpr int MonedaEnDiezmilesimosVersion = 1;
int VersionMoneda(sqlite3* db, const QString& esquema = QStringLiteral("main"));
class Catalogo;
bool ActualizaMoneda(sqlite3* db, Catalogo& catalogo, const QString& esquema = QStringLiteral("main"));

// Creates the bookkeeping tables in a database that lacks them.
void PreparaMetadatos(sqlite3* db, const QString& esquema = QStringLiteral("main"));

class Catalogo {
public:
    virtual ~Catalogo() = default;
    Catalogo(const Catalogo&) = delete;
    Catalogo& operator=(const Catalogo&) = delete;

    // The table by name in the main database or an attached one; nullptr if it does not exist. The
    // definitions are read again whenever another connection changed the schema.
    const TablaDef* tabla(const QString& nombre, const QString& esquema = QStringLiteral("main"));
    std::vector<const TablaDef*> tablas(const QString& esquema = QStringLiteral("main"));
    void invalida() { esquemas_.clear(); }
    // A statement begins: the next lookup checks once whether another connection changed the schema; the
    // lookups after it in the same statement trust what is known.
    void nuevaSentencia() { verificados_.clear(); }

    // Changes of schema, each checked here and applied to the database and the bookkeeping together.
    void creaTabla(const TablaDef& def, const QString& esquema = QStringLiteral("main"));
    void agregaCampo(const QString& tabla, const CampoDef& campo, const QString& esquema = QStringLiteral("main"));
    void borraCampo(const QString& tabla, const QString& campo);
    void borraTabla(const QString& tabla);
    void creaIndice(const QString& tabla, const IndiceDef& indice);
    void borraIndice(const QString& tabla, const QString& indice);
    void cambiaPredeterminado(const QString& tabla, const QString& campo, const QString& valor);
    void cambiaRequerido(const QString& tabla, const QString& campo, bool requerido);

protected:
    Catalogo() = default;
    struct Esquema {
        long long version = -1;
        std::vector<std::shared_ptr<TablaDef>> tablas;
        QHash<QString, TablaDef*> porNombre;   // case-folded name
        // The table a column read in table order belongs to: `actual` while the name stays, else a new one.
        TablaDef* tablaDe(TablaDef* actual, const QString& tabla);
    };
    // A number that changes whenever the schema does; -1 when it can't be told.
    virtual long long version(const QString& esquema) = 0;
    // The tables of a schema as the database describes them now.
    virtual void lee(const QString& esquema, Esquema& nuevo) = 0;
    // After a change of schema: nothing known is trusted, not even within the statement.
    void olvida() { verificados_.clear(); }

    // Each back end's way of applying a change already checked.
    virtual void aplicaCreaTabla(const TablaDef& def, const QString& esquema) = 0;
    virtual void aplicaAgregaCampo(const TablaDef& t, const CampoDef& campo, const QString& esquema) = 0;
    virtual void aplicaBorraCampo(const TablaDef& t, const CampoDef& campo) = 0;
    virtual void aplicaBorraTabla(const TablaDef& t) = 0;
    virtual void aplicaCreaIndice(const TablaDef& t, const IndiceDef& indice) = 0;
    virtual void aplicaBorraIndice(const TablaDef& t, const IndiceDef& indice) = 0;
    // The field's new properties, kept in the bookkeeping only.
    virtual void guardaCampo(const TablaDef& t, const CampoDef& campo) = 0;

private:
    QHash<QString, Esquema> esquemas_;
    QSet<QString> verificados_;
    Esquema& carga(const QString& esquema);
};

// The catalog of an SQLite database: SQLite keeps the rows, MSysCampos and MSysIndices the rest.
class CatalogoSqlite final : public Catalogo {
public:
    explicit CatalogoSqlite(sqlite3* db) : db_(db) {}
    ~CatalogoSqlite() override;

private:
    sqlite3* db_;
    QHash<QString, sqlite3_stmt*> versiones_;   // PRAGMA <esquema>.schema_version, prepared once
    long long version(const QString& esquema) override;
    void lee(const QString& esquema, Esquema& nuevo) override;
    void aplicaCreaTabla(const TablaDef& def, const QString& esquema) override;
    void aplicaAgregaCampo(const TablaDef& t, const CampoDef& campo, const QString& esquema) override;
    void aplicaBorraCampo(const TablaDef& t, const CampoDef& campo) override;
    void aplicaBorraTabla(const TablaDef& t) override;
    void aplicaCreaIndice(const TablaDef& t, const IndiceDef& indice) override;
    void aplicaBorraIndice(const TablaDef& t, const IndiceDef& indice) override;
    void guardaCampo(const TablaDef& t, const CampoDef& campo) override;
    void ejecuta(const QString& sql);
    void transaccion(const QString& sql);   // statements applied together, or none of them
};

// Helpers shared with the emitter.
QString CitaNombre(const QString& nombre);          // "name" with inner quotes doubled
QString CitaTexto(const QString& texto);            // 'text' with inner quotes doubled
QString ClaveNombre(const QString& nombre);         // the case-folded key names are compared by
// A field's DefaultValue text ("0", "\"S\"", "Now()", "=True") as what it stands for; each engine writes it.
struct Predeterminado {
    enum Clase { Ninguno, Texto, Numero, Moneda, Ahora, Hoy, Verdadero, Falso } clase = Ninguno;
    QString texto;              // Texto: the text without quotes; Numero: the number as written
    vb::Currency moneda;        // Moneda: a number given to a money field
};
Predeterminado LeePredeterminado(const QString& jet, TipoCampo tipo);
QString PredeterminadoSqlite(const QString& jet, TipoCampo tipo);   // empty when SQLite can't express it

}  // namespace jet
