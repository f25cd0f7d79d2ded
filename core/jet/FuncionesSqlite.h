#pragma once
// What SQLite needs to give the dialect its meaning: the text collation (case-blind, accents kept, ñ after
// n), LIKE with the dialect's wildcards, the functions of the dialect, the write-time conversion of every
// value to its field's type, and the mapping between values and the stored form of each type.
#include "core/jet/Catalogo.h"
#include "core/vb/Variant.h"

#include <optional>

struct sqlite3;
struct sqlite3_stmt;
struct sqlite3_value;
struct sqlite3_context;

namespace jet {

void RegistraFunciones(sqlite3* db);

// The collation: <0, 0, >0. 'ÁLVAREZ' equals 'álvarez'; 'alvarez' and 'álvarez' differ but sort together.
int ComparaTexto(const QString& a, const QString& b);

// LIKE: * any run, ? one character, # one digit, [abc] [a-z] [!abc]; case-blind.
bool Coincide(const QString& valor, const QString& patron);

// A value as SQLite holds it: its storage class and its bytes, not yet read as any type. Text points into
// memory that the caller keeps alive.
struct ValorCrudo {
    int clase = 5;            // SQLITE_NULL
    qint64 entero = 0;
    double real = 0;
    const char* texto = nullptr;
    int bytes = 0;
};
ValorCrudo CrudoDeValor(sqlite3_value* v);
vb::Variant DeCrudo(const ValorCrudo& v, TipoCampo tipo);

// A value in the stored form of a type and back.
vb::Variant LeeColumna(sqlite3_stmt* st, int columna, TipoCampo tipo);
vb::Variant LeeValor(sqlite3_value* v, TipoCampo tipo);
void Enlaza(sqlite3_stmt* st, int indice, const vb::Variant& valor);   // 1-based, stored form
std::optional<vb::Fecha> FechaAlmacenada(const char* texto, int bytes);  // "yyyy-mm-dd hh:nn:ss" only

// The type code jet_conv is given for a money field whose value is already money in ten-thousandths.
constexpr int MonedaEnDiezmilesimos = 105;

// A value made fit for a field: converted to its type, or refused with the engine's error (3314 required,
// 3315 zero length, 3163 too long, 3349 overflow, 3464 type mismatch).
vb::Variant ConvierteParaCampo(const vb::Variant& valor, const CampoDef& campo);

// A failure of SQLite told as the engine's error: its number and Spanish description, never SQLite's own
// English. `ruta` names the database file in the errors that need it.
[[noreturn]] void LanzaSqlite(sqlite3* db, int rc, const QString& ruta = QString());

// Errors raised inside SQLite functions travel in the message as "JET:<número>:<argumento>".
bool ErrorDeFuncion(const QString& mensaje, int& numero, QString& argumento);

// The text of a value as the dialect's & and Jet's string conversion write it.
QString TextoDe(const vb::Variant& v);

}  // namespace jet
