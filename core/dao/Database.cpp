#include "core/dao/Dao.h"

#include "core/jet/ConexionPostgres.h"
#include "core/jet/EmisorSqlite.h"
#include "core/jet/ErroresMotor.h"
#include "core/jet/FuncionesSqlite.h"
#include "core/jet/Parser.h"
#include "core/jet/Resolver.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QUrl>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace dao {

using namespace jet;

namespace {

enum class Formato { Inexistente, Sqlite, Jet, Otro };

// Only a file that starts with SQLite's header is a database of this program; an empty file is not one,
// and is never turned into one.
Formato FormatoDe(const QString& ruta) {
    QFile f(ruta);
    if (!f.exists()) return Formato::Inexistente;
    if (!f.open(QIODevice::ReadOnly)) return Formato::Otro;
    const QByteArray cabecera = f.read(32);
    if (cabecera.startsWith(QByteArray("SQLite format 3\0", 16))) return Formato::Sqlite;
    if (cabecera.size() >= 19 && cabecera.mid(4, 15) == QByteArray("Standard Jet DB")) return Formato::Jet;
    if (cabecera.size() >= 19 && cabecera.mid(4, 15) == QByteArray("Standard ACE DB")) return Formato::Jet;
    return Formato::Otro;
}

qint64 Tamano(const QString& ruta) {
    const QFileInfo i(ruta);
    return i.exists() ? i.size() : -1;
}

// Frames in the write-ahead log, or a journal that would be rolled back: the main file alone is not the
// whole database.
bool RegistroPendiente(const QString& ruta) {
    return Tamano(ruta + QStringLiteral("-wal")) > 0 || Tamano(ruta + QStringLiteral("-journal")) > 0;
}

// Paths open in this process. A second open of the same file skips what works on the file behind SQLite's
// back: closing any descriptor of a file drops every POSIX lock this process holds on it, SQLite's too.
QHash<QString, int>& Abiertas() {
    // Never destroyed: a database kept in a global closes after the statics of this file are gone.
    static auto* abiertas = new QHash<QString, int>;
    return *abiertas;
}

QString Canonica(const QString& ruta) {
    const QString c = QFileInfo(ruta).canonicalFilePath();
    return c.isEmpty() ? QFileInfo(ruta).absoluteFilePath() : c;
}

QString Uri(const QString& ruta, bool inmutable) {
    QString u = QString::fromUtf8(QUrl::fromLocalFile(QFileInfo(ruta).absoluteFilePath()).toEncoded());
    u += QStringLiteral("?mode=ro");
    if (inmutable) u += QStringLiteral("&immutable=1");
    return u;
}

// A read-only connection that can read: the usual one, which takes part in the write-ahead log's locks;
// where that can't be (a folder where the log's files can't be made), the file read as it lies.
sqlite3* ConexionSoloLectura(const QString& ruta, bool inmutable, QString& error, int* codigo = nullptr) {
    sqlite3* c = nullptr;
    const QByteArray u = Uri(ruta, inmutable).toUtf8();
    int rc = sqlite3_open_v2(u.constData(), &c, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
    if (rc == SQLITE_OK) {
        sqlite3_extended_result_codes(c, 1);
        sqlite3_busy_timeout(c, 10000);
        RegistraFunciones(c);   // the text keys are checked with the engine's collation
        rc = sqlite3_exec(c, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
    }
    if (rc != SQLITE_OK) {
        error = c ? QString::fromUtf8(sqlite3_errmsg(c)) : QString();
        if (codigo) *codigo = rc & 0xFF;
        sqlite3_close_v2(c);
        return nullptr;
    }
    return c;
}

// Bytes 18 and 19 of the header: 2 in WAL mode.
bool EnModoWal(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly)) return false;
    const QByteArray c = f.read(20);
    return c.size() == 20 && c[18] == 2;
}

sqlite3* AbreParaLeer(const QString& ruta, QString& error) {
    // In WAL mode even a reader makes the log's files. Where the folder can't take them (by its bits as
    // well: root would make them anyway) and no log holds frames, the file is the whole database and
    // nobody can be writing it in WAL mode. A reader in rollback mode makes nothing.
    if (!PermisosDe(ruta).carpetaEscribible && !RegistroPendiente(ruta) && EnModoWal(ruta))
        return ConexionSoloLectura(ruta, true, error);
    int codigo = SQLITE_OK;
    sqlite3* c = ConexionSoloLectura(ruta, false, error, &codigo);
    if (c || (codigo != SQLITE_CANTOPEN && codigo != SQLITE_READONLY)) return c;
    // The log's files can't be made or written here: the file as it lies, the last checkpoint's state.
    return ConexionSoloLectura(ruta, true, error);
}

QStringList Filas(sqlite3* c, const char* sql) {
    QStringList r;
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(c, sql, -1, &st, nullptr) != SQLITE_OK) return {QString::fromUtf8(sqlite3_errmsg(c))};
    int rc;
    while ((rc = sqlite3_step(st)) == SQLITE_ROW)
        r << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)));
    if (rc != SQLITE_DONE) r << QString::fromUtf8(sqlite3_errmsg(c));
    sqlite3_finalize(st);
    return r;
}

// What SQLite finds wrong in the tree of pages; empty when it answers "ok".
QStringList RevisaContenido(sqlite3* c, bool completa) {
    QStringList r;
    if (completa) {
        r = Filas(c, "PRAGMA integrity_check");
    } else {
        const QStringList paginas = Filas(c, "PRAGMA page_count");
        const bool chica = paginas.size() == 1 && paginas[0].toLongLong() <= PaginasRevisionAlAbrir;
        r = Filas(c, chica ? "PRAGMA quick_check(20)" : "PRAGMA quick_check('sqlite_master')");
        if (!chica && r == QStringList{QStringLiteral("ok")}) {
            // A large file: the schema, and the way from each table's root to its last row, where the
            // pages written last usually lie.
            for (const QString& tabla : Filas(c, "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'")) {
                const QByteArray sql = QStringLiteral("SELECT max(rowid) FROM \"%1\"").arg(QString(tabla).replace(u'"', QStringLiteral("\"\""))).toUtf8();
                sqlite3_stmt* st = nullptr;
                if (sqlite3_prepare_v2(c, sql.constData(), -1, &st, nullptr) != SQLITE_OK) {
                    sqlite3_finalize(st);
                    continue;                   // a table without row ids
                }
                const int rc = sqlite3_step(st);
                sqlite3_finalize(st);
                if (rc != SQLITE_ROW) return {QString::fromUtf8(sqlite3_errmsg(c))};
            }
        }
    }
    if (r == QStringList{QStringLiteral("ok")}) return {};
    return r;
}

QStringList CabeceraDe(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly)) return {QStringLiteral("No se puede leer el archivo.")};
    const QByteArray cabecera = f.read(100);
    const qint64 tamano = f.size();
    f.close();
    return RevisaCabecera(cabecera, tamano, RegistroPendiente(ruta));
}

[[noreturn]] void RechazaDanada(const QString& ruta, const QStringList& problemas) {
    throw vb::Error(ErrFormatoNoReconocido,
                    (QStringLiteral("La base de datos '%1' está dañada y no se abrió; no se escribió nada en ella. "
                                    "Hay que restaurarla desde su respaldo.")
                         .arg(QDir::toNativeSeparators(ruta)) +
                     (problemas.isEmpty() ? QString() : QStringLiteral("\r\n") + problemas.mid(0, 5).join(QStringLiteral("\r\n")))),
                    QStringLiteral("Motor de base de datos"));
}

// Another session's -shm or -wal that this user can't write would make every write fail (3027). When no
// connection holds the database, which SQLite's own locks on the file tell, the index goes (it is rebuilt
// from the log) and the log is put in a file of this user's with the same bytes, for SQLite to recover
// what it holds.
void RecuperaRestos(const QString& ruta) {
    const QByteArray db = QFile::encodeName(ruta);
    const QByteArray shm = db + "-shm";
    const QByteArray wal = db + "-wal";
    const bool shmAjeno = ::access(shm.constData(), F_OK) == 0 && ::access(shm.constData(), W_OK) != 0;
    const bool walAjeno = ::access(wal.constData(), F_OK) == 0 && ::access(wal.constData(), W_OK) != 0;
    if (!shmAjeno && !walAjeno) return;
    const int fd = ::open(db.constData(), O_RDWR | O_CLOEXEC);
    if (fd < 0) return;
    // SQLite's EXCLUSIVE: the pending byte, the reserved byte and the whole shared range. A connection in
    // WAL mode keeps its shared lock as long as it is open, and none gets in while this is held.
    struct flock bloqueo {};
    bloqueo.l_type = F_WRLCK;
    bloqueo.l_whence = SEEK_SET;
    bloqueo.l_start = 0x40000000;
    bloqueo.l_len = 512;
    if (::fcntl(fd, F_SETLK, &bloqueo) == 0) {
        bool enUso = false;
        const int fs = ::open(shm.constData(), O_RDONLY | O_CLOEXEC);
        if (fs >= 0) {
            // The index's "dead man switch" byte: every connection of the log holds it shared.
            struct flock dms {};
            dms.l_type = F_WRLCK;
            dms.l_whence = SEEK_SET;
            dms.l_start = 128;
            dms.l_len = 1;
            enUso = ::fcntl(fs, F_GETLK, &dms) != 0 || dms.l_type != F_UNLCK;
            ::close(fs);
        }
        if (!enUso) {
            if (shmAjeno) ::unlink(shm.constData());
            if (walAjeno) {
                struct stat st {};
                ::fstat(fd, &st);
                if (Tamano(ruta + QStringLiteral("-wal")) == 0) {
                    ::unlink(wal.constData());
                } else {
                    const QByteArray copia = wal + ".recupera";
                    QFile origen(QFile::decodeName(wal));
                    QFile destino(QFile::decodeName(copia));
                    bool bien = origen.open(QIODevice::ReadOnly) && destino.open(QIODevice::WriteOnly | QIODevice::Truncate);
                    while (bien && !origen.atEnd()) {
                        const QByteArray trozo = origen.read(1 << 20);
                        bien = destino.write(trozo) == trozo.size();
                    }
                    bien = bien && destino.flush() && ::fsync(destino.handle()) == 0 &&
                           ::fchmod(destino.handle(), st.st_mode & 0666) == 0;
                    destino.close();
                    if (bien) bien = ::rename(copia.constData(), wal.constData()) == 0;
                    if (!bien) ::unlink(copia.constData());
                }
            }
        }
        bloqueo.l_type = F_UNLCK;
        ::fcntl(fd, F_SETLK, &bloqueo);
    }
    ::close(fd);
}

}  // namespace

long TipoSistemaArchivosReal(const QString& carpeta) {
    struct statfs s {};
    if (::statfs(QFile::encodeName(carpeta).constData(), &s) != 0) return -1;
    return static_cast<long>(s.f_type);
}

FuncionTipoSistemaArchivos TipoSistemaArchivos = &TipoSistemaArchivosReal;

bool EsSistemaDeRed(long tipo) {
    switch (static_cast<unsigned long>(tipo) & 0xFFFFFFFFul) {
    case 0x6969:          // NFS
    case 0x517B:          // SMB
    case 0xFF534D42:      // CIFS
    case 0xFE534D42:      // SMB2
    case 0x01021997:      // 9p
    case 0x65735546:      // FUSE: sshfs and the like
    case 0x5346414F:      // AFS
    case 0x6B414653:      // kAFS
    case 0x00C36400:      // Ceph
    case 0x73757245:      // Coda
    case 0x564C:          // NCP
    case 0x47504653:      // GPFS
    case 0x0BD00BD0:      // Lustre
    case 0x013111A8:      // IBRIX
    case 0x19830326:      // FhGFS / BeeGFS
    case 0x7461636F:      // OCFS2
    case 0x01161970:      // GFS2
        return true;
    default:
        return false;
    }
}

Permisos PermisosDe(const QString& ruta) {
    Permisos p;
    const QByteArray r = QFile::encodeName(ruta);
    const QByteArray carpeta = QFile::encodeName(QFileInfo(ruta).absolutePath());
    p.archivoEscribible = ::access(r.constData(), W_OK) == 0;
    p.carpetaEscribible = ::access(carpeta.constData(), W_OK) == 0;
    struct stat st {};
    if (::stat(r.constData(), &st) == 0) p.modoArchivo = st.st_mode & 07777;
    if (::stat(carpeta.constData(), &st) == 0) p.modoCarpeta = st.st_mode & 07777;
    struct statvfs v {};
    if (::statvfs(r.constData(), &v) == 0) p.montajeSoloLectura = (v.f_flag & ST_RDONLY) != 0;
    // Bits nobody may write by count as a folder that can't be written, root or not.
    if ((p.modoCarpeta & 0222) == 0) p.carpetaEscribible = false;
    return p;
}

bool DecideSoloLectura(const Permisos& p) {
    if (p.montajeSoloLectura) return true;
    if (!p.archivoEscribible || !p.carpetaEscribible) return true;
    return (p.modoArchivo & 0222) == 0 || (p.modoCarpeta & 0222) == 0;
}

QStringList RevisaCabecera(const QByteArray& c, qint64 tamano, bool registroPendiente) {
    QStringList r;
    if (c.size() < 100 || tamano < 512) {
        r << QStringLiteral("El archivo mide %1 bytes, menos que la cabecera de una base de datos.").arg(tamano);
        return r;
    }
    auto u = [&c](int i) { return static_cast<quint32>(static_cast<unsigned char>(c[i])); };
    auto u32 = [&u](int i) { return (u(i) << 24) | (u(i + 1) << 16) | (u(i + 2) << 8) | u(i + 3); };
    quint32 pagina = (u(16) << 8) | u(17);
    if (pagina == 1) pagina = 65536;
    if (pagina < 512 || pagina > 65536 || (pagina & (pagina - 1)) != 0) {
        r << QStringLiteral("El tamaño de página de la cabecera (%1) no es válido.").arg(pagina);
        return r;
    }
    if (u(21) != 64 || u(22) != 32 || u(23) != 32) r << QStringLiteral("La cabecera tiene valores que no son de una base de datos.");
    if (registroPendiente) return r;
    if (tamano % pagina != 0) {
        r << QStringLiteral("El archivo (%1 bytes) no termina en una página completa de %2 bytes: está cortado.")
                 .arg(tamano).arg(pagina);
        return r;
    }
    // The page count at 28 holds only when the change counter at 24 equals the one at 92 that validates it.
    const quint32 paginas = u32(28);
    if (paginas != 0 && u32(24) == u32(92) && static_cast<qint64>(paginas) * pagina != tamano)
        r << QStringLiteral("La cabecera dice %1 páginas y el archivo tiene %2: está cortado o le sobran datos.")
                 .arg(paginas).arg(tamano / pagina);
    return r;
}

QStringList RevisaBaseDeDatos(const QString& ruta) {
    const Formato f = FormatoDe(ruta);
    if (f == Formato::Inexistente) return {DescripcionError(ErrArchivoNoEncontrado, QDir::toNativeSeparators(ruta))};
    if (f != Formato::Sqlite) return {DescripcionError(ErrFormatoNoReconocido, QDir::toNativeSeparators(ruta))};
    QStringList problemas = CabeceraDe(ruta);
    if (!problemas.isEmpty()) return problemas;
    QString error;
    sqlite3* c = AbreParaLeer(ruta, error);
    if (!c) return {QStringLiteral("No se puede leer la base de datos: %1").arg(error)};
    problemas = RevisaContenido(c, true);
    sqlite3_close_v2(c);
    return problemas;
}

namespace {

[[noreturn]] void RechazaFormato(const QString& ruta, Formato f) {
    if (f == Formato::Jet)
        throw vb::Error(ErrFormatoNoReconocido,
                        QStringLiteral("El archivo '%1' está en el formato de base de datos de las instalaciones "
                                       "anteriores; este programa no lo abre ni lo modifica. Se puede convertir en una "
                                       "base de datos nueva con adq-util migrar.").arg(QDir::toNativeSeparators(ruta)),
                        QStringLiteral("Motor de base de datos"));
    Lanza(ErrFormatoNoReconocido, QDir::toNativeSeparators(ruta));
}

bool EsNombreDeTabla(const QString& fuente) {
    const QString t = fuente.trimmed();
    if (t.isEmpty()) return false;
    if (t.startsWith(u'(')) return false;
    const QString primera = t.section(u' ', 0, 0).toUpper();
    return primera != QLatin1String("SELECT") && primera != QLatin1String("TRANSFORM") &&
           primera != QLatin1String("INSERT") && primera != QLatin1String("UPDATE") &&
           primera != QLatin1String("DELETE") && primera != QLatin1String("CREATE") &&
           primera != QLatin1String("ALTER") && primera != QLatin1String("DROP");
}

CampoDef CampoDeColumna(const DefColumna& d, int ordinal) {
    CampoDef c;
    c.nombre = d.nombre;
    c.tipo = d.tipo;
    c.tamano = d.tamano;
    c.atributos = d.contador ? (AtrFijo | AtrAutoIncremento) : (EsTexto(d.tipo) ? AtrVariable : AtrFijo);
    c.requerido = d.noNulo || d.contador || d.clavePrimaria;
    c.predeterminado = d.predeterminado;
    c.ordinal = ordinal;
    return c;
}

}  // namespace

Database::~Database() {
    for (Recordset* rs : abiertos_) rs->registrado_ = false;
    abiertos_.clear();
    Close();
}

void Database::terminaLecturas() {
    for (Recordset* rs : abiertos_) rs->traeTodo();
}

void Database::Close() {
    if (pg_) {
        catalogo_.reset();
        pg_.reset();
    }
    if (db_) {
        catalogo_.reset();   // its prepared statements go before the connection
        sqlite3_close_v2(db_);
        db_ = nullptr;
    }
    if (!rutaAbierta_.isEmpty()) {
        auto it = Abiertas().find(rutaAbierta_);
        if (it != Abiertas().end() && --*it <= 0) Abiertas().erase(it);
        rutaAbierta_.clear();
    }
}

void Database::lanzaSqlite(int rc) const { LanzaSqlite(db_, rc, ruta_); }

bool Database::AbiertaEnEsteProceso(const QString& ruta) {
    if (EsUriServidor(ruta)) return false;
    return QFileInfo::exists(ruta) && Abiertas().contains(Canonica(ruta));
}

void Database::ArchivoAutonomo() {
    if (pg_) Lanza(ErrOperacionNoValida);
    if (!db_) vb::ErrorObjetoNoEstablecido();
    if (soloLectura_) Lanza(ErrSoloLectura);
    terminaLecturas();
    sqlite3_stmt* st = nullptr;
    int rc = sqlite3_prepare_v2(db_, "PRAGMA main.journal_mode=DELETE", -1, &st, nullptr);
    if (rc == SQLITE_OK) rc = sqlite3_step(st);
    const QString modo = rc == SQLITE_ROW ? QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)))
                                          : QString();
    sqlite3_finalize(st);
    if (rc != SQLITE_ROW) lanzaSqlite(rc);
    // SQLite keeps the log when another connection holds the file.
    if (modo.compare(QLatin1String("delete"), Qt::CaseInsensitive) != 0) Lanza(ErrBloqueado);
}

void Database::abre(const QString& ruta, bool crear, bool soloLectura) {
    ruta_ = ruta;
    const QString canonica = Canonica(ruta);
    const bool primera = !Abiertas().contains(canonica);
    enRed_ = EsSistemaDeRed(TipoSistemaArchivos(QFileInfo(ruta).absolutePath()));
    if (!crear && primera) {
        // The file is looked at through a read-only connection before anything can be written to it.
        const QStringList cabecera = CabeceraDe(ruta);
        if (!cabecera.isEmpty()) RechazaDanada(ruta, cabecera);
        QString error;
        sqlite3* revision = AbreParaLeer(ruta, error);
        if (!revision) {
            if (error.contains(QLatin1String("not a database")) || error.contains(QLatin1String("malformed")))
                RechazaDanada(ruta, {});
            Lanza(ErrNoSePuedeAbrir, QDir::toNativeSeparators(ruta));
        }
        // What SQLite finds is in its own words: the box tells only that the file is damaged.
        const QStringList problemas = RevisaContenido(revision, false);
        if (!problemas.isEmpty()) {
            sqlite3_close_v2(revision);
            RechazaDanada(ruta, {});
        }
        if (soloLectura) {
            db_ = revision;
        } else {
            sqlite3_close_v2(revision);
            RecuperaRestos(ruta);
        }
    } else if (soloLectura) {
        QString error;
        db_ = AbreParaLeer(ruta, error);
        if (!db_) Lanza(ErrNoSePuedeAbrir, QDir::toNativeSeparators(ruta));
    }
    soloLectura_ = soloLectura;
    if (!db_) {
        const QByteArray r = QFile::encodeName(ruta);
        const int flags = SQLITE_OPEN_READWRITE | (crear ? SQLITE_OPEN_CREATE : 0) | SQLITE_OPEN_NOMUTEX;
        const int rc = sqlite3_open_v2(r.constData(), &db_, flags, nullptr);
        if (rc != SQLITE_OK) {
            sqlite3_close_v2(db_);
            db_ = nullptr;
            Lanza(ErrNoSePuedeAbrir, QDir::toNativeSeparators(ruta));
        }
        sqlite3_extended_result_codes(db_, 1);
        // The write-ahead log needs memory that only one machine's processes share; on a network share the
        // rollback journal needs nothing but the share's file locks. The mode changes when no one else has
        // the file open, without waiting for them; SQLite gives up at once anyway when another session
        // holds a write lock.
        sqlite3_busy_timeout(db_, 0);
        const char* pragmas = enRed_ ? "PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL; PRAGMA foreign_keys=OFF;"
                                     : "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA foreign_keys=OFF;";
        char* error = nullptr;
        if (sqlite3_exec(db_, pragmas, nullptr, nullptr, &error) != SQLITE_OK) {
            const QString msg = QString::fromUtf8(error ? error : "");
            const int codigo = sqlite3_errcode(db_);
            sqlite3_free(error);
            // Another session writing when the mode is to change: the database stays as it is for now.
            if (codigo != SQLITE_BUSY && codigo != SQLITE_LOCKED) {
                Close();
                if (msg.contains(QLatin1String("not a database"))) Lanza(ErrFormatoNoReconocido, QDir::toNativeSeparators(ruta));
                Lanza(ErrNoSePuedeAbrir, QDir::toNativeSeparators(ruta));
            }
            sqlite3_exec(db_, "PRAGMA synchronous=FULL; PRAGMA foreign_keys=OFF;", nullptr, nullptr, nullptr);
        }
        sqlite3_busy_timeout(db_, 10000);
    }
    rutaAbierta_ = crear ? Canonica(ruta) : canonica;
    ++Abiertas()[rutaAbierta_];
    RegistraFunciones(db_);
    catalogo_ = std::make_unique<CatalogoSqlite>(db_);
    tableDefs_.db_ = this;
    monedaAntigua_.clear();
    if (crear) {
        sqlite3_exec(db_, QStringLiteral("PRAGMA user_version = %1").arg(MonedaEnDiezmilesimosVersion).toUtf8().constData(),
                     nullptr, nullptr, nullptr);
    }
    if (soloLectura_) {
        // An old file that is only read keeps its decimals; the statements read them as ten-thousandths.
        if (VersionMoneda(db_) < MonedaEnDiezmilesimosVersion) monedaAntigua_ << QStringLiteral("main");
        return;
    }
    try {
        PreparaMetadatos(db_);
        ActualizaIndicesDeTexto(db_);
    } catch (const vb::Error&) {
        // A database opened read-only by the system still reads; its bookkeeping tables are already there
        // or it was made by hand.
    }
    // Money kept as decimals by older versions becomes ten-thousandths, once. A file that can't be
    // converted now is only read, in its old form, rather than written in two.
    if (!ActualizaMoneda(db_, *catalogo_)) {
        soloLectura_ = true;
        monedaAntigua_ << QStringLiteral("main");
    }
}

std::unique_ptr<Database> Database::OpenDatabase(const QString& ruta, bool soloLectura) {
    if (EsUriServidor(ruta)) {
        std::unique_ptr<Database> db(new Database);
        db->abreServidor(ruta, false);
        return db;
    }
    // A file this process has open is a database already, and is not to be opened behind SQLite's back.
    if (!AbiertaEnEsteProceso(ruta)) {
        const Formato f = FormatoDe(ruta);
        if (f == Formato::Inexistente) Lanza(ErrArchivoNoEncontrado, QDir::toNativeSeparators(ruta));
        if (f != Formato::Sqlite) RechazaFormato(ruta, f);
    }
    std::unique_ptr<Database> db(new Database);
    db->abre(ruta, false, soloLectura || DecideSoloLectura(PermisosDe(ruta)));
    return db;
}

std::unique_ptr<Database> Database::CreateDatabase(const QString& ruta, const QString& idioma, int opciones) {
    Q_UNUSED(idioma);
    Q_UNUSED(opciones);
    std::unique_ptr<Database> db(new Database);
    if (EsUriServidor(ruta)) {
        db->abreServidor(ruta, true);
        return db;
    }
    if (QFileInfo::exists(ruta)) Lanza(ErrBaseYaExiste);
    db->abre(ruta, true);
    return db;
}

QString Database::adjunta(const QString& ruta) {
    QString r = ruta;
    r.replace(u'\\', u'/');
    // A file this process has open (the main database itself, a new exchange file the export keeps open) is
    // known to be a database; reading its header with a descriptor of our own would drop, on closing it,
    // every lock this process holds on the file.
    if (!AbiertaEnEsteProceso(r)) {
        const Formato f = FormatoDe(r);
        if (f == Formato::Inexistente) Lanza(ErrArchivoNoEncontrado, QDir::toNativeSeparators(r));
        if (f != Formato::Sqlite) RechazaFormato(r, f);
    }
    const QString esquema = QStringLiteral("ext%1").arg(adjuntas_.size() + 1);
    sqlite3_stmt* st = nullptr;
    const QByteArray sql = QStringLiteral("ATTACH DATABASE ?1 AS %1").arg(esquema).toUtf8();
    sqlite3_prepare_v2(db_, sql.constData(), -1, &st, nullptr);
    const QByteArray archivo = r.toUtf8();
    sqlite3_bind_text(st, 1, archivo.constData(), -1, SQLITE_TRANSIENT);
    const int rc = sqlite3_step(st);
    sqlite3_finalize(st);
    if (rc != SQLITE_DONE) lanzaSqlite(rc);
    adjuntas_ << esquema;
    if (VersionMoneda(db_, esquema) < MonedaEnDiezmilesimosVersion) monedaAntigua_ << esquema;
    return esquema;
}

void Database::sueltaAdjuntas() {
    if (adjuntas_.isEmpty()) return;
    for (const auto& e : adjuntas_) {
        const QByteArray sql = QStringLiteral("DETACH DATABASE %1").arg(e).toUtf8();
        sqlite3_exec(db_, sql.constData(), nullptr, nullptr, nullptr);
        monedaAntigua_.removeAll(e);
    }
    adjuntas_.clear();
    catalogo_->invalida();
}

void Database::ejecutaDdl(const Sentencia& s) {
    Catalogo& cat = *catalogo_;
    switch (s.clase) {
    case Sentencia::CreaTabla: {
        TablaDef t;
        t.nombre = s.tabla;
        int ordinal = 0;
        for (const auto& d : s.defColumnas) {
            if (t.campo(d.nombre)) Lanza(ErrCampoYaExiste, d.nombre, s.tabla);
            t.campos.push_back(CampoDeColumna(d, ordinal++));
            if (d.clavePrimaria || d.unico) {
                IndiceDef i;
                i.nombre = d.nombreRestriccion.isEmpty() ? (d.clavePrimaria ? QStringLiteral("PrimaryKey") : d.nombre)
                                                         : d.nombreRestriccion;
                i.campos << d.nombre;
                i.primario = d.clavePrimaria;
                i.unico = true;
                i.requerido = d.clavePrimaria;
                t.indices.push_back(i);
            }
        }
        for (const auto& r : s.restricciones) {
            IndiceDef i;
            i.nombre = r.nombre;
            for (const auto& c : r.columnas) {
                const CampoDef* campo = t.campo(c);
                if (!campo) Lanza(ErrSintaxisCreateTable);
                i.campos << campo->nombre;
            }
            i.primario = r.primaria;
            i.unico = true;
            i.requerido = r.primaria;
            t.indices.push_back(i);
        }
        cat.creaTabla(t);
        break;
    }
    case Sentencia::AlteraTabla: {
        const TablaDef* t = cat.tabla(s.tabla);
        if (!t) Lanza(ErrTablaNoEncontrada, s.tabla);
        if (!s.columnaBorrada.isEmpty()) cat.borraCampo(t->nombre, s.columnaBorrada);
        t = cat.tabla(s.tabla);
        if (!s.defColumnas.empty()) {
            CampoDef c = CampoDeColumna(s.defColumnas.front(), static_cast<int>(t->campos.size()));
            cat.agregaCampo(t->nombre, c);
        }
        for (const auto& r : s.restricciones) {
            IndiceDef i;
            i.nombre = r.nombre;
            i.campos = r.columnas;
            i.primario = r.primaria;
            i.unico = true;
            i.requerido = r.primaria;
            cat.creaIndice(t->nombre, i);
        }
        if (!s.restriccionBorrada.isEmpty()) cat.borraIndice(t->nombre, s.restriccionBorrada);
        break;
    }
    case Sentencia::BorraTabla:
        cat.borraTabla(s.tabla);
        break;
    case Sentencia::CreaIndice: {
        IndiceDef i;
        i.nombre = s.indice;
        i.campos = s.columnas;
        i.unico = s.indiceUnico;
        i.primario = s.indicePrimario;
        i.requerido = s.indicePrimario;
        cat.creaIndice(s.tabla, i);
        break;
    }
    case Sentencia::BorraIndice:
        cat.borraIndice(s.tabla, s.indice);
        break;
    default:
        break;
    }
    tableDefs_.cargada_ = false;
}

bool Database::AseguraIndiceDeConsulta(const QString& nombre, const QString& tabla, const QStringList& columnas) {
    if (pg_) return indiceEnServidor(nombre, tabla, columnas);
    if (soloLectura_ || !db_) return false;
    auto cita = [](const QString& n) { return u'"' + QString(n).replace(u'"', QStringLiteral("\"\"")) + u'"'; };
    QStringList c;
    for (const auto& col : columnas) c << cita(col);
    const QByteArray sql = QStringLiteral("CREATE INDEX IF NOT EXISTS %1 ON %2 (%3)")
                               .arg(cita(QStringLiteral("adq_consulta_") + nombre), cita(tabla), c.join(QStringLiteral(", ")))
                               .toUtf8();
    return sqlite3_exec(db_, sql.constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

void Database::Execute(const QString& sentencia, int opciones) {
    afectados_ = 0;
    Sentencia s = Analiza(sentencia);
    if (s.clase == Sentencia::Consulta) Lanza(3065);   // a select query can't be executed
    if (soloLectura_) Lanza(ErrSoloLectura);
    if (s.clase != Sentencia::Insercion && s.clase != Sentencia::Actualizacion && s.clase != Sentencia::Borrado) {
        terminaLecturas();
        ejecutaDdl(s);
        return;
    }
    if (pg_) {
        if (s.clase == Sentencia::Insercion && !s.baseExterna.isEmpty()) insertaEnArchivo(sentencia, s, opciones);
        else ejecutaEnServidor(s, opciones);
        return;
    }
    struct Suelta {
        Database* db;
        ~Suelta() { db->sueltaAdjuntas(); }
    } suelta{this};
    Resolver resolver(*catalogo_, [this](const QString& r) { return adjunta(r); });
    resolver.resuelve(s);
    if (monedaAntigua_.contains(resolver.esquemaDestino())) {
        // A file written into is brought to the present form of money first.
        terminaLecturas();
        if (!ActualizaMoneda(db_, *catalogo_, resolver.esquemaDestino())) Lanza(ErrSoloLectura);
        monedaAntigua_.removeAll(resolver.esquemaDestino());
    }
    EmisorSqlite emisor(monedaAntigua_);
    Emision e = emisor.emite(s, resolver.tablaDestino(), false, resolver.esquemaDestino());
    QString sql = e.sql;
    // Without dbFailOnError the engine leaves out the rows it can't write and keeps the rest.
    if (!(opciones & dbFailOnError)) {
        if (sql.startsWith(QLatin1String("INSERT INTO"))) sql.replace(0, 11, QStringLiteral("INSERT OR IGNORE INTO"));
        else if (sql.startsWith(QLatin1String("UPDATE "))) sql.replace(0, 7, QStringLiteral("UPDATE OR IGNORE "));
    }
    const QByteArray u = sql.toUtf8();
    sqlite3_stmt* st = nullptr;
    int rc = sqlite3_prepare_v2(db_, u.constData(), static_cast<int>(u.size()), &st, nullptr);
    if (rc != SQLITE_OK) {
        sqlite3_finalize(st);
        lanzaSqlite(rc);
    }
    terminaLecturas();
    rc = sqlite3_step(st);
    if (rc != SQLITE_DONE) {
        sqlite3_finalize(st);
        lanzaSqlite(rc);
    }
    afectados_ = sqlite3_changes64(db_);
    sqlite3_finalize(st);
}

std::unique_ptr<Recordset> Database::OpenRecordset(const QString& fuente, int tipo, int opciones) {
    Q_UNUSED(opciones);
    QString sql = fuente;
    QString nombre = fuente;
    if (EsNombreDeTabla(fuente)) {
        QString tabla = fuente.trimmed();
        if (tabla.startsWith(u'[') && tabla.endsWith(u']')) tabla = tabla.mid(1, tabla.size() - 2);
        const TablaDef* t = catalogo_->tabla(tabla);
        if (!t) Lanza(ErrTablaNoEncontrada, tabla);
        sql = QStringLiteral("SELECT * FROM [%1]").arg(t->nombre);
        nombre = t->nombre;
        if (tipo == 0) tipo = dbOpenTable;
    } else {
        if (tipo == 0) tipo = dbOpenDynaset;
        if (tipo == dbOpenTable) Lanza(ErrOperacionNoValida);
    }
    std::unique_ptr<Recordset> rs(new Recordset);
    rs->db_ = this;
    rs->sql_ = sql;
    rs->nombre_ = nombre;
    rs->tipo_ = tipo;
    rs->abre();
    return rs;
}

TableDefsCollection& Database::TableDefs() {
    if (!tableDefs_.cargada_) tableDefs_.carga();
    return tableDefs_;
}

std::unique_ptr<TableDef> Database::CreateTableDef(const QString& nombre) const {
    auto t = std::make_unique<TableDef>();
    t->nombre_ = nombre;
    t->campos_.tabla_ = t.get();
    return t;
}

}  // namespace dao
