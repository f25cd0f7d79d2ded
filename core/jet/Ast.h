#pragma once
// The syntax tree of the dialect. The parser builds it; the resolver annotates it in place (types, the
// source each column belongs to); the emitter walks it to write SQLite.
#include "core/vb/Variant.h"

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

namespace jet {

// The engine's field type numbers, as DAO reports them.
enum class TipoCampo : int {
    Ninguno = 0, Boolean = 1, Byte = 2, Integer = 3, Long = 4, Currency = 5, Single = 6, Double = 7,
    Date = 8, Binary = 9, Text = 10, LongBinary = 11, Memo = 12, Guid = 15
};

bool EsNumerico(TipoCampo t);     // Boolean..Double
bool EsTexto(TipoCampo t);        // Text, Memo
int TamanoFijo(TipoCampo t);      // bytes a fixed-size type reports as Size; 0 for Text/Memo

// How deep a statement may nest: parentheses, subqueries, NOT and signs, joins, and every operator that
// wraps what stands before it. Far above what any screen writes, far below what the stack holds; beyond it
// the engine says the query is too complex. A chain of one associative operator (a OR b OR c ...) is one
// level however long it is.
constexpr int LimiteAnidamiento = 32;

// One level of a recursive walk over a tree (resolving, writing): refuses, with the engine's error for a
// query too complex, a tree deeper than any the parser lets through.
class Profundidad {
public:
    explicit Profundidad(int& n);
    ~Profundidad() { --n_; }
    Profundidad(const Profundidad&) = delete;
    Profundidad& operator=(const Profundidad&) = delete;

private:
    int& n_;
};

struct Select;
struct FuenteFrom;
struct CampoDef;
struct TablaDef;

enum class TipoExpr {
    Literal,     // valor
    Columna,     // calificador.nombre
    Estrella,    // * or calificador.*, only in a select list, Count(*)
    Unario,      // op: "-", "+", "NOT"
    Binario,     // op: + - * / \ ^ & MOD = <> < > <= >= AND OR XOR EQV IMP; args: two, or for a chain of
                 // one of AND OR & + * more, read as a left fold ((a op b) op c) ...
    Between,     // args: valor, desde, hasta; negado
    EnLista,     // args: valor, elementos...; negado
    EnSelect,    // args: valor; sub; negado
    Exists,      // sub
    EsNulo,      // args: valor; negado  (x IS [NOT] NULL)
    Like,        // args: valor, patron; negado
    Funcion,     // nombre, args
    Subconsulta, // sub: a scalar subquery
};

struct Expr;
using ExprPtr = std::unique_ptr<Expr>;

struct Expr {
    TipoExpr tipo = TipoExpr::Literal;
    int pos = 0;
    vb::Variant valor;
    QString calificador;   // Columna/Estrella: table or alias as written, may be empty
    QString nombre;        // Columna: column; Funcion: function name as written
    QStringView op;        // upper case, a static text (u"AND", u"+", ...)
    bool negado = false;
    std::vector<ExprPtr> args;
    std::unique_ptr<Select> sub;

    // Set by the resolver.
    TipoCampo tipoDato = TipoCampo::Ninguno;
    int tamano = 0;
    FuenteFrom* fuente = nullptr;     // Columna: the source it binds to
    const CampoDef* campo = nullptr;  // Columna of a base table
    int columnaSub = -1;              // Columna of a derived table: its output index
    const Expr* alias = nullptr;      // Columna that names an earlier select item: that item's expression
    int parametro = -1;               // Columna bound to a host value (FindFirst): its index
    bool agregado = false;            // contains an aggregate at this query level

    // Literal number as written, in ten-thousandths, when it has at most four decimals: money takes it
    // exactly, where the Double it is typed as would round it. The magnitude only; a sign is an operator.
    bool decimalExacto = false;
    quint64 diezmilesimos = 0;
};

// A FROM element: a base table, a derived table (a subquery), or a join of two elements.
struct FuenteFrom {
    enum Clase { Tabla, Derivada, Join } clase = Tabla;
    int pos = 0;
    QString tabla;          // Tabla: name as written
    QString alias;          // as written, may be empty
    QString baseExterna;    // Tabla: IN '<file>'
    std::unique_ptr<Select> sub;
    QString tipoJoin;       // "INNER", "LEFT", "RIGHT"
    std::unique_ptr<FuenteFrom> izquierda, derecha;
    ExprPtr on;

    // Set by the resolver.
    const TablaDef* def = nullptr;
    QString aliasSql;       // unique alias in the emitted statement
    QString esquemaSql;     // "main" or an attached database

    QString nombreVisible() const { return alias.isEmpty() ? tabla : alias; }
};
using FuentePtr = std::unique_ptr<FuenteFrom>;

struct ItemSelect {
    ExprPtr expr;
    QString alias;          // AS name, may be empty
    int pos = 0;
    bool deEstrella = false;   // set by the resolver: a column a * stands for
};

struct ItemOrden {
    ExprPtr expr;
    bool desc = false;
};

// The description of one output column, worked out by the resolver.
struct ColumnaSalida {
    QString nombre;
    TipoCampo tipo = TipoCampo::Ninguno;
    int tamano = 0;
    int atributos = 0;
    bool requerido = false;
    bool permiteLongitudCero = true;
    QString valorPredeterminado;
    QString tablaOrigen;          // base table name, for an updatable column
    QString campoOrigen;          // base column name
};

struct Select {
    int pos = 0;
    bool distinct = false;
    bool distinctRow = false;
    long long top = -1;
    bool topPercent = false;
    std::vector<ItemSelect> items;
    std::vector<FuentePtr> from;
    ExprPtr where;
    std::vector<ExprPtr> groupBy;
    ExprPtr having;
    std::vector<ItemOrden> orderBy;
    // A UNION chain: this select is the first member; each further member with ALL or not.
    struct Miembro { bool all = false; std::unique_ptr<Select> select; };
    std::vector<Miembro> uniones;
    std::vector<ItemOrden> ordenUnion;   // the ORDER BY of the last member, which sorts the whole union

    // Set by the resolver: the select list with every * expanded, and the output columns.
    std::vector<ItemSelect> expandidos;
    std::vector<ColumnaSalida> salida;
    bool agregada = false;     // has aggregates or GROUP BY
};

struct DefColumna {
    QString nombre;
    TipoCampo tipo = TipoCampo::Text;
    int tamano = 0;
    bool contador = false;
    bool noNulo = false;
    bool clavePrimaria = false;
    bool unico = false;
    QString nombreRestriccion;
    QString predeterminado;       // the DEFAULT text, as the engine keeps it
};

struct DefRestriccion {
    QString nombre;
    bool primaria = false;
    bool unica = false;
    QStringList columnas;
};

struct Sentencia {
    enum Clase { Consulta, Insercion, Actualizacion, Borrado, CreaTabla, AlteraTabla, BorraTabla, CreaIndice,
                 BorraIndice } clase = Consulta;
    std::unique_ptr<Select> select;           // Consulta; INSERT ... SELECT

    // INSERT / UPDATE / DELETE / DDL target
    QString tabla;
    QString baseExterna;                      // INSERT INTO t IN '<file>'
    int posFuente = 0;                        // INSERT: where the column list or the values begin
    int posSelect = -1;                       // INSERT ... SELECT: where the SELECT begins
    int posTabla = 0;
    QStringList columnas;                     // INSERT column list; CREATE INDEX columns
    std::vector<ExprPtr> valores;             // INSERT ... VALUES

    // UPDATE: the FROM part (a table or joins), assignments and condition. DELETE: target and FROM.
    std::vector<FuentePtr> from;
    struct Asignacion { QString calificador; QString columna; ExprPtr valor; int pos = 0; };
    std::vector<Asignacion> asignaciones;
    ExprPtr where;
    QString objetivoBorrado;                  // DELETE n.* FROM ...: "n"; empty for DELETE [*] FROM

    // DDL
    std::vector<DefColumna> defColumnas;
    std::vector<DefRestriccion> restricciones;
    QString columnaBorrada;                   // ALTER TABLE ... DROP [COLUMN] c
    QString restriccionBorrada;               // ALTER TABLE ... DROP CONSTRAINT n
    QString indice;                           // CREATE/DROP INDEX name
    bool indiceUnico = false, indicePrimario = false;
};

}  // namespace jet
