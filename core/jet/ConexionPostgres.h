#pragma once
// One connection to a PostgreSQL server: statements run one by one, each committed on its own; every
// failure told as the engine's error in Spanish; a connection lost while the program runs is tried again at
// the next statement, so that the program goes on once the server is back.
#include "core/vb/Variant.h"

#include <QByteArray>
#include <QString>
#include <memory>
#include <vector>

struct pg_conn;
struct pg_result;

namespace jet {

// Whether a database name is a server's connection URI rather than a file path.
bool EsUriServidor(const QString& nombre);

// What a URI names, for messages and for the server's maintenance database: never the password.
struct DatosUri {
    QString anfitrion;     // host[:port]
    QString base;          // the database
    QString uriMantenimiento;   // the same server and user, database "postgres"
};
DatosUri AnalizaUri(const QString& uri);

// A value sent with a statement, in text form (or binary for bytes).
struct ParametroPg {
    QByteArray valor;
    bool nulo = true;
    bool binario = false;
};
// A value of the program as the server reads it. `crudo`: money as its count of ten-thousandths and
// Yes/No as -1/0, the form statements compute with; otherwise money in its natural units, as a column holds it.
ParametroPg ParametroDe(const vb::Variant& v, bool crudo);

// A result: rows and columns in text form, freed with it.
class ResultadoPg {
public:
    ResultadoPg() = default;
    explicit ResultadoPg(pg_result* r) : r_(r) {}
    ResultadoPg(ResultadoPg&& o) noexcept : r_(o.r_) { o.r_ = nullptr; }
    ResultadoPg& operator=(ResultadoPg&& o) noexcept;
    ~ResultadoPg();
    int filas() const;
    int columnas() const;
    bool nulo(int fila, int columna) const;
    const char* valor(int fila, int columna) const;
    int bytes(int fila, int columna) const;
    unsigned tipo(int columna) const;            // the column's type oid
    QString texto(int fila, int columna) const;
    long long entero(int fila, int columna) const;
    long long afectadas() const;                 // rows an action touched
    pg_result* get() const { return r_; }

private:
    pg_result* r_ = nullptr;
};

class ConexionPostgres {
public:
    // Connects within a few seconds or fails with a clear message (3051): a wrong URI, a server that is down,
    // a refused password, a database that does not exist (then `noExiste` is set when given).
    static std::unique_ptr<ConexionPostgres> Conecta(const QString& uri, bool* noExiste = nullptr);
    ~ConexionPostgres();
    ConexionPostgres(const ConexionPostgres&) = delete;
    ConexionPostgres& operator=(const ConexionPostgres&) = delete;

    // One statement, with its parameters ($1, $2 ...); rows or nothing. Failures raise the engine's error.
    ResultadoPg ejecuta(const QString& sql, const std::vector<ParametroPg>& parametros = {});
    // Several statements separated by semicolons, none with parameters.
    void ejecutaVarias(const QString& sql);
    // Statements run together or not at all.
    void transaccion(const QString& sql);
    // Whether another connection announced a change of schema since the last call (no round trip).
    bool esquemaCambiado();
    // Tells every other connection of the database that the schema changed.
    static QString AvisoEsquema() { return QStringLiteral("NOTIFY adq_esquema"); }
    // Bumped at each reconnection: what was prepared on the old session is gone.
    int sesion() const { return sesion_; }
    const QString& uri() const { return uri_; }
    const QString& anfitrion() const { return anfitrion_; }
    pg_conn* conexion() const { return c_; }

    // A failure of the server told as the engine's error.
    [[noreturn]] void lanza(pg_result* r) const;

private:
    ConexionPostgres() = default;
    void preparaSesion();
    void aseguraConexion();
    [[noreturn]] void conexionPerdida() const;
    pg_conn* c_ = nullptr;
    QString uri_;
    QString anfitrion_;
    int sesion_ = 0;
    bool cambioPendiente_ = false;
};

}  // namespace jet
