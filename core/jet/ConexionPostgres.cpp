#include "core/jet/ConexionPostgres.h"

#include "core/jet/ErroresMotor.h"
#include "core/jet/FuncionesSqlite.h"

#include <QUrl>
#include <cstdlib>
#include <cstring>
#include <libpq-fe.h>

namespace jet {

namespace {

const QString Origen = QStringLiteral("Motor de base de datos");

// Seconds a connection may take before the server counts as unreachable.
constexpr const char* EsperaConexion = "5";

[[noreturn]] void FallaConexion(const QString& anfitrion, const QString& base, const QString& motivo) {
    throw vb::Error(ErrNoSePuedeAbrir,
                    QStringLiteral("No se pudo conectar con la base de datos '%1' del servidor %2: %3")
                        .arg(base, anfitrion, motivo),
                    Origen);
}

// What libpq says of a refused connection, told in a few words of Spanish.
QString MotivoConexion(const QString& mensaje, bool& noExiste) {
    noExiste = false;
    if (mensaje.contains(QLatin1String("password authentication failed")) ||
        mensaje.contains(QLatin1String("no password supplied")) ||
        mensaje.contains(QLatin1String("authentication failed")))
        return QStringLiteral("el servidor no aceptó el usuario o la contraseña.");
    if (mensaje.contains(QLatin1String("does not exist")) && mensaje.contains(QLatin1String("database"))) {
        noExiste = true;
        return QStringLiteral("la base de datos no existe en el servidor.");
    }
    if (mensaje.contains(QLatin1String("role")) && mensaje.contains(QLatin1String("does not exist")))
        return QStringLiteral("el usuario no existe en el servidor.");
    if (mensaje.contains(QLatin1String("timeout")))
        return QStringLiteral("el servidor no respondió a tiempo.");
    if (mensaje.contains(QLatin1String("translate host name")))
        return QStringLiteral("no se encontró el nombre del servidor.");
    if (mensaje.contains(QLatin1String("Connection refused")) || mensaje.contains(QLatin1String("No such file")))
        return QStringLiteral("el servidor no está en marcha o no acepta conexiones en esa dirección.");
    if (mensaje.contains(QLatin1String("invalid")))
        return QStringLiteral("la dirección de la base de datos no es válida.");
    if (mensaje.contains(QLatin1String("too many")))
        return QStringLiteral("el servidor tiene ocupadas todas sus conexiones.");
    return QStringLiteral("el servidor rechazó la conexión.");
}

QString Campo(const PGresult* r, int campo) {
    const char* v = PQresultErrorField(r, campo);
    return v ? QString::fromUtf8(v) : QString();
}

}  // namespace

bool EsUriServidor(const QString& nombre) {
    return nombre.startsWith(QLatin1String("postgresql://"), Qt::CaseInsensitive) ||
           nombre.startsWith(QLatin1String("postgres://"), Qt::CaseInsensitive);
}

DatosUri AnalizaUri(const QString& uri) {
    DatosUri d;
    char* error = nullptr;
    PQconninfoOption* opciones = PQconninfoParse(uri.toUtf8().constData(), &error);
    if (!opciones) {
        PQfreemem(error);
        throw vb::Error(ErrNoSePuedeAbrir,
                        QStringLiteral("La dirección de la base de datos '%1' no es válida; se escribe "
                                       "postgresql://usuario@servidor:puerto/base.")
                            .arg(QUrl(uri).toDisplayString(QUrl::RemovePassword)),
                        Origen);
    }
    QString host, puerto, usuario;
    for (PQconninfoOption* o = opciones; o->keyword; ++o) {
        if (!o->val) continue;
        const QString v = QString::fromUtf8(o->val);
        if (std::strcmp(o->keyword, "host") == 0 || (std::strcmp(o->keyword, "hostaddr") == 0 && host.isEmpty())) host = v;
        else if (std::strcmp(o->keyword, "port") == 0) puerto = v;
        else if (std::strcmp(o->keyword, "dbname") == 0) d.base = v;
        else if (std::strcmp(o->keyword, "user") == 0) usuario = v;
    }
    PQconninfoFree(opciones);
    if (host.isEmpty()) host = QStringLiteral("localhost");
    d.anfitrion = puerto.isEmpty() ? host : host + u':' + puerto;
    if (d.base.isEmpty()) d.base = usuario;
    QUrl u(uri);
    u.setPath(QStringLiteral("/postgres"));
    d.uriMantenimiento = QString::fromUtf8(u.toEncoded());
    return d;
}

ParametroPg ParametroDe(const vb::Variant& v, bool crudo) {
    ParametroPg p;
    switch (v.type()) {
    case vb::VarType::Empty:
    case vb::VarType::Null: return p;
    case vb::VarType::Boolean: p.valor = v.toBool() ? "-1" : "0"; break;
    case vb::VarType::Integer:
    case vb::VarType::Long:
    case vb::VarType::Byte: p.valor = QByteArray::number(static_cast<qlonglong>(v.toLong())); break;
    case vb::VarType::Currency:
        p.valor = crudo ? QByteArray::number(static_cast<qlonglong>(v.toCurrency().raw()))
                        : v.toCurrency().toSql().toUtf8();
        break;
    case vb::VarType::Single:
    case vb::VarType::Double: p.valor = QByteArray::number(v.toDouble(), 'g', 17); break;
    case vb::VarType::Date: p.valor = v.toDate().toIso().toUtf8(); break;
    case vb::VarType::String: p.valor = v.toString().toUtf8(); break;
    }
    p.nulo = false;
    return p;
}

ResultadoPg& ResultadoPg::operator=(ResultadoPg&& o) noexcept {
    if (this != &o) {
        PQclear(r_);
        r_ = o.r_;
        o.r_ = nullptr;
    }
    return *this;
}

ResultadoPg::~ResultadoPg() { PQclear(r_); }
int ResultadoPg::filas() const { return r_ ? PQntuples(r_) : 0; }
int ResultadoPg::columnas() const { return r_ ? PQnfields(r_) : 0; }
bool ResultadoPg::nulo(int f, int c) const { return PQgetisnull(r_, f, c) != 0; }
const char* ResultadoPg::valor(int f, int c) const { return PQgetvalue(r_, f, c); }
int ResultadoPg::bytes(int f, int c) const { return PQgetlength(r_, f, c); }
unsigned ResultadoPg::tipo(int c) const { return PQftype(r_, c); }
QString ResultadoPg::texto(int f, int c) const {
    return nulo(f, c) ? QString() : QString::fromUtf8(valor(f, c), bytes(f, c));
}
long long ResultadoPg::entero(int f, int c) const { return nulo(f, c) ? 0 : std::strtoll(valor(f, c), nullptr, 10); }
long long ResultadoPg::afectadas() const {
    const char* n = r_ ? PQcmdTuples(r_) : nullptr;
    return n && *n ? std::strtoll(n, nullptr, 10) : 0;
}

std::unique_ptr<ConexionPostgres> ConexionPostgres::Conecta(const QString& uri, bool* noExiste) {
    const DatosUri d = AnalizaUri(uri);
    const QByteArray u = uri.toUtf8();
    // The URI's own settings win over these defaults, which come first.
    const char* claves[] = {"connect_timeout", "application_name", "dbname", nullptr};
    const char* valores[] = {EsperaConexion, "adquisiciones", u.constData(), nullptr};
    PGconn* c = PQconnectdbParams(claves, valores, 1);
    if (!c || PQstatus(c) != CONNECTION_OK) {
        const QString mensaje = c ? QString::fromUtf8(PQerrorMessage(c)) : QString();
        PQfinish(c);
        bool falta = false;
        const QString motivo = MotivoConexion(mensaje, falta);
        if (noExiste) *noExiste = falta;
        FallaConexion(d.anfitrion, d.base, motivo);
    }
    // The server's notices (and its word that it is shutting down) are not for the user's terminal.
    PQsetNoticeProcessor(c, [](void*, const char*) {}, nullptr);
    std::unique_ptr<ConexionPostgres> r(new ConexionPostgres);
    r->c_ = c;
    r->uri_ = uri;
    r->anfitrion_ = d.anfitrion;
    r->preparaSesion();
    return r;
}

ConexionPostgres::~ConexionPostgres() { PQfinish(c_); }

void ConexionPostgres::preparaSesion() {
    // Messages and notices stay out of the user's way; dates travel as the program writes them.
    PGresult* r = PQexec(c_, "SET client_encoding = 'UTF8'; SET DateStyle = 'ISO, YMD'; SET client_min_messages = error; "
                             "SET lc_messages = 'C'; LISTEN adq_esquema");
    const bool bien = PQresultStatus(r) == PGRES_COMMAND_OK;
    if (!bien) {
        // lc_messages needs a superuser on some servers: everything else is set without it.
        PQclear(r);
        r = PQexec(c_, "SET client_encoding = 'UTF8'; SET DateStyle = 'ISO, YMD'; SET client_min_messages = error; "
                       "LISTEN adq_esquema");
        if (PQresultStatus(r) != PGRES_COMMAND_OK) lanza(r);
    }
    PQclear(r);
    ++sesion_;
    cambioPendiente_ = true;     // whatever was known of the schema may be old
}

void ConexionPostgres::conexionPerdida() const {
    throw vb::Error(ErrDiscoORed,
                    QStringLiteral("Se perdió la conexión con el servidor de base de datos %1. Lo que se estaba "
                                   "guardando no se guardó; cuando el servidor vuelva a estar en marcha, la operación "
                                   "se puede repetir.")
                        .arg(anfitrion_),
                    Origen);
}

void ConexionPostgres::aseguraConexion() {
    if (PQstatus(c_) == CONNECTION_OK) return;
    PQreset(c_);
    if (PQstatus(c_) != CONNECTION_OK) conexionPerdida();
    preparaSesion();
}

ResultadoPg ConexionPostgres::ejecuta(const QString& sql, const std::vector<ParametroPg>& parametros) {
    aseguraConexion();
    const QByteArray u = sql.toUtf8();
    // The server's texts can't hold the character 0: a value carrying one is refused whole rather than
    // cut short where it stands. (A statement's own texts are refused as it is written.)
    for (const ParametroPg& p : parametros)
        if (!p.nulo && !p.binario && p.valor.contains('\0')) Lanza(ErrTiposNoCoinciden);
    PGresult* r;
    if (parametros.empty()) {
        r = PQexecParams(c_, u.constData(), 0, nullptr, nullptr, nullptr, nullptr, 0);
    } else {
        const int n = static_cast<int>(parametros.size());
        std::vector<const char*> valores(parametros.size());
        std::vector<int> largos(parametros.size()), formatos(parametros.size());
        for (size_t i = 0; i < parametros.size(); ++i) {
            valores[i] = parametros[i].nulo ? nullptr : parametros[i].valor.constData();
            largos[i] = static_cast<int>(parametros[i].valor.size());
            formatos[i] = parametros[i].binario ? 1 : 0;
        }
        r = PQexecParams(c_, u.constData(), n, nullptr, valores.data(), largos.data(), formatos.data(), 0);
    }
    const ExecStatusType estado = PQresultStatus(r);
    if (estado != PGRES_TUPLES_OK && estado != PGRES_COMMAND_OK) lanza(r);
    return ResultadoPg(r);
}

void ConexionPostgres::ejecutaVarias(const QString& sql) {
    aseguraConexion();
    PGresult* r = PQexec(c_, sql.toUtf8().constData());
    const ExecStatusType estado = PQresultStatus(r);
    if (estado != PGRES_TUPLES_OK && estado != PGRES_COMMAND_OK) lanza(r);
    PQclear(r);
}

void ConexionPostgres::transaccion(const QString& sql) {
    // Sent as one string, the statements run in one transaction of their own unless they fail.
    ejecutaVarias(QStringLiteral("BEGIN; ") + sql + QStringLiteral("; COMMIT"));
}

bool ConexionPostgres::esquemaCambiado() {
    if (PQstatus(c_) == CONNECTION_OK) {
        PQconsumeInput(c_);
        while (PGnotify* n = PQnotifies(c_)) {
            cambioPendiente_ = true;
            PQfreemem(n);
        }
    }
    const bool r = cambioPendiente_;
    cambioPendiente_ = false;
    return r;
}

void ConexionPostgres::lanza(PGresult* r) const {
    const QString estado = Campo(r, PG_DIAG_SQLSTATE);
    const QString mensaje = r ? Campo(r, PG_DIAG_MESSAGE_PRIMARY) : QString::fromUtf8(PQerrorMessage(c_));
    const QString columna = Campo(r, PG_DIAG_COLUMN_NAME);
    PQclear(r);
    if (PQstatus(c_) != CONNECTION_OK || estado.startsWith(QLatin1String("08")) || estado == QLatin1String("57P01") ||
        estado == QLatin1String("57P02") || estado == QLatin1String("57P03"))
        conexionPerdida();
    int numero = 0;
    QString argumento;
    if (ErrorDeFuncion(mensaje, numero, argumento)) {
        // The server's library writes the engine's whole description, the field's name in it.
        if (numero >= 3000) throw vb::Error(numero, argumento, Origen);
        if (numero == 94) throw vb::Error(94, QStringLiteral("Uso no válido de Null"), Origen);
        Lanza(numero);
    }
    if (estado == QLatin1String("23505")) Lanza(ErrValorDuplicado);
    if (estado == QLatin1String("23502")) Lanza(ErrRequerido, columna);
    if (estado == QLatin1String("22001")) Lanza(ErrCampoDemasiadoPequeno);
    if (estado == QLatin1String("22003")) Lanza(ErrDesbordamientoCampo, columna);
    if (estado == QLatin1String("22012")) Lanza(11);   // division by zero
    if (estado.startsWith(QLatin1String("22"))) Lanza(ErrTiposNoCoinciden);
    if (estado == QLatin1String("42P01")) Lanza(ErrTablaNoEncontrada, mensaje.section(u'"', 1, 1));
    if (estado == QLatin1String("42703")) Lanza(ErrPocosParametros, QStringLiteral("1"));
    if (estado == QLatin1String("42P07")) Lanza(ErrTablaYaExiste, mensaje.section(u'"', 1, 1));
    if (estado == QLatin1String("42701")) Lanza(ErrCampoYaExiste, mensaje.section(u'"', 1, 1));
    if (estado == QLatin1String("42501")) Lanza(ErrSoloLectura);
    if (estado == QLatin1String("21000")) Lanza(ErrSubconsultaVariasFilas);
    if (estado == QLatin1String("42803")) {
        if (mensaje.startsWith(QLatin1String("aggregate functions are not allowed"))) Lanza(ErrAgregadoEnExpresion);
        Lanza(ErrNoEsParteDelAgregado, mensaje.section(u'"', 1, 1));
    }
    if (estado == QLatin1String("54001") || estado == QLatin1String("54000")) Lanza(ErrConsultaCompleja);
    if (estado == QLatin1String("54011")) Lanza(ErrDemasiadosCampos);
    if (estado == QLatin1String("40P01") || estado == QLatin1String("40001") || estado == QLatin1String("55P03") ||
        estado == QLatin1String("57014"))
        Lanza(ErrBloqueado);
    if (estado.startsWith(QLatin1String("53"))) Lanza(ErrRecursosExcedidos);
    if (estado == QLatin1String("42883")) Lanza(ErrFuncionNoDefinida, mensaje.section(u'(', 0, 0).section(u' ', -1));
    if (estado == QLatin1String("25006")) Lanza(ErrSoloLectura);
    Lanza(ErrReservado, estado);
}

}  // namespace jet
