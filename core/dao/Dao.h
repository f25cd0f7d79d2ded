#pragma once
// The DAO-like API the screens use: Database, Recordset, Field, TableDef, Index and their collections,
// with the constants under their DAO names.
#include "core/jet/Ast.h"
#include "core/jet/Catalogo.h"
#include "core/jet/FuncionesSqlite.h"
#include "core/vb/Error.h"
#include "core/vb/Variant.h"

#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace jet {
class ConexionPostgres;
class ResultadoPg;
struct Emision;
}

namespace dao {

enum : int {
    dbBoolean = 1, dbByte = 2, dbInteger = 3, dbLong = 4, dbCurrency = 5, dbSingle = 6, dbDouble = 7,
    dbDate = 8, dbBinary = 9, dbText = 10, dbLongBinary = 11, dbMemo = 12, dbGUID = 15
};
enum : int { dbFixedField = 1, dbVariableField = 2, dbAutoIncrField = 16, dbUpdatableField = 32 };
enum : int { dbFailOnError = 128, dbSeeChanges = 512 };
enum : int { dbOpenTable = 1, dbOpenDynaset = 2, dbOpenSnapshot = 4, dbOpenForwardOnly = 8 };
enum : int { dbEditNone = 0, dbEditInProgress = 1, dbEditAdd = 2 };
enum : int { dbVersion40 = 64 };
inline const QString dbLangSpanish = QStringLiteral(";LANGID=0x040A;CP=1252;COUNTRY=0");

class Database;
class Recordset;
class TableDef;

// The filesystem a folder lies on, as statfs(2) names it (f_type); -1 when it can't be told. Tests put
// another function in its place, since no network share is at hand.
using FuncionTipoSistemaArchivos = long (*)(const QString& carpeta);
extern FuncionTipoSistemaArchivos TipoSistemaArchivos;
long TipoSistemaArchivosReal(const QString& carpeta);
// NFS, SMB/CIFS, 9p, FUSE (sshfs and the like), AFS, Ceph, Coda, NCP...: shares whose memory can't be
// mapped by every machine's processes at once.
bool EsSistemaDeRed(long tipo);

// What decides whether a file opens read-only: nobody here may write it or its folder. access(2) answers
// for this user, but root passes it everywhere, so a file or folder that no permission bit lets anyone
// write counts as read-only as well; and so does a filesystem mounted read-only.
struct Permisos {
    bool archivoEscribible = true;    // access(W_OK)
    bool carpetaEscribible = true;
    unsigned modoArchivo = 0644;      // st_mode & 07777
    unsigned modoCarpeta = 0755;
    bool montajeSoloLectura = false;
};
Permisos PermisosDe(const QString& ruta);
bool DecideSoloLectura(const Permisos& p);

// The header of a database file against its size: page size, whole pages, the header's page count. Each
// problem in Spanish; empty when it agrees. registroPendiente: a -wal with frames or a hot journal lies
// beside, so the main file alone needn't agree with its header until SQLite recovers it.
QStringList RevisaCabecera(const QByteArray& cabecera, qint64 tamano, bool registroPendiente);

// The whole integrity check of a file, opened read-only: the problems found, one per entry, in Spanish;
// empty when it is sound.
QStringList RevisaBaseDeDatos(const QString& ruta);

// Databases up to this many pages (4 MB at 4 KB) get SQLite's whole quick check when they open, some
// tens of milliseconds; larger ones the check of the schema and of the way to each table's last row, so
// that start-up stays quick. The header is always checked against the file's size.
inline constexpr int PaginasRevisionAlAbrir = 1024;

// Blocks of row store given back by recordsets that are gone, for the next ones over the same database:
// a list opened again and again reuses its memory instead of asking the system for fresh pages.
struct BloquesLibres {
    static constexpr size_t Tamano = 256 * 1024;
    static constexpr size_t Maximo = 64;      // 16 MB kept at most; beyond that, memory goes back
    std::vector<std::unique_ptr<char[]>> bloques;
};

// A field: either a column of an open recordset (with a Value) or a field definition of a table.
class Field {
public:
    Field() = default;
    explicit Field(jet::CampoDef def) : def_(std::move(def)) {}

    const QString& Name() const { return def_.nombre; }
    int Type() const { return static_cast<int>(def_.tipo); }
    int Size() const { return def_.tamano; }
    int Attributes() const { return def_.atributos; }
    bool Required() const { return def_.requerido; }
    bool AllowZeroLength() const { return def_.permiteLongitudCero; }
    const QString& DefaultValue() const { return def_.predeterminado; }
    int OrdinalPosition() const { return def_.ordinal; }
    QString SourceTable() const { return origenTabla_; }

    // A definition not yet appended may be shaped freely; an appended table's field changes the schema.
    void setName(const QString& n) { def_.nombre = n; }
    void setAttributes(int a);
    void setRequired(bool r);
    void setDefaultValue(const QString& v);
    void setAllowZeroLength(bool z) { def_.permiteLongitudCero = z; }
    void setSize(int s) { def_.tamano = s; }

    inline vb::Variant Value() const;
    void setValue(const vb::Variant& v);
    Field& operator=(const vb::Variant& v) { setValue(v); return *this; }

    const jet::CampoDef& definicion() const { return def_; }

private:
    [[noreturn]] static vb::Variant definicionSinValor();
    friend class Recordset;
    friend class TableDef;
    friend class FieldsCollection;
    friend class TableDefsCollection;
    jet::CampoDef def_;
    QString origenTabla_;
    Recordset* rs_ = nullptr;
    int indice_ = -1;
    jet::TipoCampo tipoLectura_ = jet::TipoCampo::Ninguno;   // the column's type as its values are read
    TableDef* tabla_ = nullptr;
};

class FieldsCollection {
public:
    int Count() const { return static_cast<int>(campos_.size()); }
    Field& operator[](int i) {                      // 3265 out of range
        if (i < 0 || i >= Count()) fueraDeRango();
        return *campos_[static_cast<size_t>(i)];
    }
    Field& operator[](const QString& nombre);       // case-blind; 3265 if absent
    Field* busca(const QString& nombre);
    void Append(const Field& f);                    // on a table definition
    void Refresh() {}
    auto begin() { return campos_.begin(); }
    auto end() { return campos_.end(); }

private:
    friend class Recordset;
    friend class TableDef;
    friend class TableDefsCollection;
    friend class Database;
    [[noreturn]] static void fueraDeRango();
    std::vector<std::unique_ptr<Field>> campos_;
    TableDef* tabla_ = nullptr;
};

class Index {
public:
    Index() = default;
    explicit Index(jet::IndiceDef def) : def_(std::move(def)) {}
    const QString& Name() const { return def_.nombre; }
    bool Primary() const { return def_.primario; }
    bool Unique() const { return def_.unico; }
    bool Required() const { return def_.requerido; }
    bool IgnoreNulls() const { return def_.ignoraNulos; }
    const QStringList& FieldNames() const { return def_.campos; }
    void setName(const QString& n) { def_.nombre = n; }
    void setPrimary(bool p) { def_.primario = p; if (p) { def_.unico = true; def_.requerido = true; } }
    void setUnique(bool u) { def_.unico = u; }
    void setRequired(bool r) { def_.requerido = r; }
    void setIgnoreNulls(bool i) { def_.ignoraNulos = i; }
    Field CreateField(const QString& nombre) const { jet::CampoDef c; c.nombre = nombre; return Field(c); }
    void AppendField(const Field& f) { def_.campos << f.Name(); }
    const jet::IndiceDef& definicion() const { return def_; }

private:
    jet::IndiceDef def_;
};

class TableDef {
public:
    TableDef() = default;
    TableDef(const TableDef&) = delete;
    TableDef& operator=(const TableDef&) = delete;

    const QString& Name() const { return nombre_; }
    void setName(const QString& n) { nombre_ = n; }
    Field CreateField(const QString& nombre, int tipo = dbText, int tamano = 0) const;
    Index CreateIndex(const QString& nombre) const { jet::IndiceDef i; i.nombre = nombre; return Index(i); }
    FieldsCollection& Fields() { return campos_; }
    std::vector<Index>& Indexes() { return indices_; }
    void AppendIndex(const Index& i);
    bool appended() const { return db_ != nullptr; }

private:
    friend class Database;
    friend class TableDefsCollection;
    friend class FieldsCollection;
    friend class Field;
    QString nombre_;
    FieldsCollection campos_;
    std::vector<Index> indices_;
    Database* db_ = nullptr;      // set once the table exists in a database
    QString esquema_ = QStringLiteral("main");
    void agregaCampo(Field& f);
    jet::TablaDef definicion() const;
};

class TableDefsCollection {
public:
    int Count();
    TableDef& operator[](int i);
    TableDef& operator[](const QString& nombre);     // 3265 if absent
    TableDef* busca(const QString& nombre);           // case-blind
    void Refresh();
    void Append(std::unique_ptr<TableDef> t);
    void Delete(const QString& nombre);

private:
    friend class Database;
    Database* db_ = nullptr;
    std::vector<std::unique_ptr<TableDef>> tablas_;
    bool cargada_ = false;
    void carga();
};

class Database {
public:
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // The file must exist and be a database of this program; a file of the older desktop format is
    // refused untouched (3343), as is anything else, an empty file included. A damaged file is refused
    // (3343) after a read-only look, with nothing written. A file or folder that can't be written opens
    // read-only, as does any file when soloLectura is asked; writes then raise 3027. On a network
    // filesystem the database runs with the rollback journal instead of the write-ahead log.
    static std::unique_ptr<Database> OpenDatabase(const QString& ruta, bool soloLectura = false);
    // A name may also be a PostgreSQL server's URI (postgresql://user@host:port/base): the database lives on
    // the server, shared by every workstation, with the same behaviour.
    // A new empty database; 3204 if the file (or the server's database) exists.
    static std::unique_ptr<Database> CreateDatabase(const QString& ruta, const QString& idioma = dbLangSpanish,
                                                    int opciones = 0);

    // Removes a server's database that nobody else has open; false when it doesn't exist.
    static bool DropDatabase(const QString& uri);
    // A new database on a server as a copy of another of the same server that nobody has open.
    static void CopiaBaseEnServidor(const QString& origen, const QString& destino);

    void Execute(const QString& sentencia, int opciones = 0);
    long long RecordsAffected() const { return afectados_; }
    // A table name opens the table; anything else is a query. Type 0 means the default: table for a
    // table name, dynaset for a query.
    std::unique_ptr<Recordset> OpenRecordset(const QString& fuente, int tipo = 0, int opciones = 0);
    TableDefsCollection& TableDefs();
    std::unique_ptr<TableDef> CreateTableDef(const QString& nombre = QString()) const;
    const QString& Name() const { return ruta_; }
    void Close();
    // Whether a database of this process has the file open (under any spelling of its path).
    static bool AbiertaEnEsteProceso(const QString& ruta);
    // The file alone holds the whole database from now on, with the rollback journal instead of the
    // write-ahead log: a file that travels, such as an exchange file, and is read where no log can be made.
    // Only while no other connection has it open; 3260 otherwise.
    void ArchivoAutonomo();
    bool EnRed() const { return enRed_; }
    bool SoloLectura() const { return soloLectura_; }
    // An index that only speeds up lookups: invisible to the catalog (no TableDef shows it, no statement
    // names it), made if missing. False when it can't be made (a read-only file, a table or column that an
    // older file lacks); nothing else changes then.
    bool AseguraIndiceDeConsulta(const QString& nombre, const QString& tabla, const QStringList& columnas);
    // The schemas (main, attached files) whose money is still kept as decimals: read-only old files.
    const QStringList& monedaAntigua() const { return monedaAntigua_; }

    // Whether the database lives on a server.
    bool EnServidor() const { return pg_ != nullptr; }

    // For the engine's own layers.
    sqlite3* sqlite() const { return db_; }
    jet::ConexionPostgres* postgres() const { return pg_.get(); }
    jet::Catalogo& catalogo() { return *catalogo_; }
    [[noreturn]] void lanzaSqlite(int rc) const;

private:
    friend class Recordset;
    friend class TableDef;
    friend class TableDefsCollection;
    Database() = default;
    void abre(const QString& ruta, bool crear, bool soloLectura = false);
    void abreServidor(const QString& uri, bool crear);
    void ejecutaEnServidor(jet::Sentencia& s, int opciones);
    // INSERT INTO t IN '<file>' from a server: the rows read here, written into the file through its own DAO.
    void insertaEnArchivo(const QString& sentencia, const jet::Sentencia& s, int opciones);
    bool indiceEnServidor(const QString& nombre, const QString& tabla, const QStringList& columnas);
    QString adjunta(const QString& ruta);
    void sueltaAdjuntas();
    void ejecutaDdl(const jet::Sentencia& s);

    sqlite3* db_ = nullptr;
    std::unique_ptr<jet::ConexionPostgres> pg_;
    QString ruta_;
    QString rutaAbierta_;      // the canonical path registered as open in this process
    bool enRed_ = false;
    bool soloLectura_ = false;
    QStringList monedaAntigua_;
    std::unique_ptr<jet::Catalogo> catalogo_;
    TableDefsCollection tableDefs_;
    long long afectados_ = 0;
    QStringList adjuntas_;
    // The open recordsets: before anything is written their scans are read to the end, so that a walk never
    // meets a row twice or a row written after it was opened.
    std::vector<Recordset*> abiertos_;
    void terminaLecturas();
    // Something was written on the server through this connection: a dynaset reads its rows again by id.
    void escritoEnServidor();
    std::shared_ptr<BloquesLibres> bloquesLibres_ = std::make_shared<BloquesLibres>();
};

class Recordset {
public:
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    bool Eof() const { return eof_; }
    bool Bof() const { return bof_; }
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();
    void Move(long filas);
    long AbsolutePosition();              // 0-based; -1 at BOF or EOF
    void setAbsolutePosition(long p);
    long RecordCount();
    void FindFirst(const QString& criterio);
    void FindNext(const QString& criterio);
    void FindLast(const QString& criterio);
    void FindPrevious(const QString& criterio);
    bool NoMatch() const { return noMatch_; }
    void AddNew();
    void Edit();
    void Update();
    void CancelUpdate();
    void Delete();
    void Requery();
    int EditMode() const { return modo_; }
    int Type() const { return tipo_; }
    const QString& Name() const { return nombre_; }
    bool Updatable() const { return actualizable_; }
    void Close();

    FieldsCollection& Fields() { return campos_; }
    Field& Fields(int i) { return campos_[i]; }
    Field& Fields(const QString& n) { return campos_[n]; }
    Field& operator()(int i) { return campos_[i]; }
    Field& operator()(const QString& n) { return campos_[n]; }

private:
    friend class Database;
    friend class Field;
    Recordset() = default;
    void abre();
    // Each back end's part of opening, writing and deleting a row.
    void abreEnArchivo(const jet::Emision& e);
    void abreEnServidor(const jet::Emision& e);
    void escribeEnArchivo(const QStringList& columnas, const std::vector<vb::Variant>& valores);
    void borraEnArchivo();
    // Where criteria and defaults are worked out: the file's own connection, or an in-memory one beside a server.
    sqlite3* motorLocal() const;
    qint64 siguienteContador();
    // Writes the row being edited or added on the server; the row's id.
    qint64 escribeEnServidor(const QStringList& columnas, const std::vector<vb::Variant>& valores);
    void borraEnServidor();
    // The current row of a dynaset on a server, read again by its id; error 3167 when it is gone.
    void releeEnServidor() const;
    void alDia() const { if (!valoresAlDia_) releeEnServidor(); }
    void envejece() { valoresAlDia_ = false; escritoDesdeApertura_ = true; }
    qint64 rowidDe(long fila) const;
    bool trae();                          // one more row from SQLite; false at the end
    void traeTodo();
    void situa(long indice);              // current row by index, fetching as needed
    inline vb::Variant valor(int columna, jet::TipoCampo tipo) const;
    vb::Variant valorLento(int columna) const;
    void asigna(int columna, const vb::Variant& v);
    void busca(const QString& criterio, bool adelante, long desde);
    void exigeActual() const;
    vb::Variant valorEn(long fila, int columna) const;
    void olvidaFila() const { filaEnCache_ = -1; }

    // The rows read so far. A recordset by key keeps only their row ids. Any other keeps their values as
    // SQLite gave them (storage class and bytes, one run of bytes for all), read as their column's type
    // only when asked for: a walk over many rows costs little more than the step itself. One row is kept
    // taken apart, its texts pointing into the store: the row just read on a forward walk, or the last
    // one asked for.
    class Filas {
    public:
        Filas() = default;
        Filas(const Filas&) = delete;
        Filas& operator=(const Filas&) = delete;
        ~Filas();
        // Empty, `ancho` columns wide; blocks already held are written over, more come from `libres` first.
        void reinicia(int ancho, bool porClave, std::shared_ptr<BloquesLibres> libres);
        long size() const { return static_cast<long>(porClave_ ? ids_.size() : inicio_.size()); }
        bool empty() const { return size() == 0; }
        // By key.
        qint64 rowid(long i) const { return ids_[static_cast<size_t>(i)]; }
        void agregaClave(qint64 rowid) { ids_.push_back(rowid); }
        // By value.
        void agregaDeSentencia(sqlite3_stmt* st);
        void agrega(const vb::Variant* valores);
        void agregaCrudos(jet::ValorCrudo* valores) { escribe(valores); olvidaAparte(); }
        void reemplaza(long i, const vb::Variant* valores);
        void reemplazaCrudos(long i, jet::ValorCrudo* valores);
        // The row taken apart if it is `fila`, else nothing.
        const jet::ValorCrudo* aparte(long fila) const { return fila == filaAparte_ ? aparte_.data() : nullptr; }
        const jet::ValorCrudo& crudo(long fila, int columna) const;
        vb::Variant valor(long fila, int columna, jet::TipoCampo tipo) const { return jet::DeCrudo(crudo(fila, columna), tipo); }
        void borra(long i);
        void olvidaAparte() const { filaAparte_ = -1; }

    private:
        int ancho_ = 0;
        bool porClave_ = false;
        // Rows are written into blocks that never move, each row in one piece; a row longer than a block
        // gets one of its own.
        std::vector<std::unique_ptr<char[]>> bloques_;
        size_t enUso_ = 0;                 // blocks of bloques_ written into
        std::vector<std::unique_ptr<char[]>> grandes_;
        std::shared_ptr<BloquesLibres> libres_;
        size_t libre_ = 0;                 // bytes left in the block being written
        char* cursor_ = nullptr;
        std::vector<const char*> inicio_;
        std::vector<qint64> ids_;
        mutable std::vector<jet::ValorCrudo> aparte_;
        mutable long filaAparte_ = -1;
        char* siguienteBloque();
        char* reserva(size_t bytes);
        void amplia(char*& fila, char*& p, char*& fin, size_t falta, int hechas, bool& propio);
        void escribe(jet::ValorCrudo* valores);
    };
    Database* db_ = nullptr;
    QString nombre_;
    QString sql_;
    int tipo_ = dbOpenDynaset;
    sqlite3_stmt* st_ = nullptr;
    std::vector<jet::ColumnaSalida> columnas_;
    std::vector<jet::TipoCampo> tipos_;
    bool actualizable_ = false;
    int columnaRowid_ = -1;
    std::optional<jet::TablaDef> tabla_;
    FieldsCollection campos_;
    Filas filas_;
    // A dynaset over one table keeps only the row ids it has met and reads each row's values live: from the
    // statement while it stands on that row, otherwise by its id.
    bool porClave_ = false;
    QString sqlPorFila_;
    sqlite3_stmt* stFila_ = nullptr;
    long filaEnSentencia_ = -1;
    mutable long filaEnCache_ = -1;
    qint64 cambiosVistos_ = 0;            // the connection's count of changed rows when last checked
    // A dynaset on a server holds its rows' values as the opening read them, and trusts them the first time
    // the walk reaches each row until something is written through the connection. A row reached again, or
    // any row after a write, is read again by its id when its values are asked for.
    bool releeServidor_ = false;
    mutable bool valoresAlDia_ = true;    // the current row's held values can be given as they are
    bool escritoDesdeApertura_ = false;
    long vistasHasta_ = -1;               // the furthest row the walk has reached
    mutable std::vector<vb::Variant> cache_;
    bool completo_ = false;
    long pos_ = 0;                        // index of the current row
    bool bof_ = true, eof_ = true;
    bool actualBorrado_ = false;
    int modo_ = dbEditNone;
    int contadorDado_ = -1;               // the column whose counter value AddNew handed out, untouched since
    std::vector<vb::Variant> buffer_;
    std::vector<bool> cambiado_;
    bool noMatch_ = true;
    bool cerrado_ = false;
    bool registrado_ = false;             // in the database's list of open recordsets
};

// The read of a value on a walk, kept inline: the current row of a dynaset read straight from the
// statement, that of a snapshot from the row of the store kept taken apart.
// The type comes from the field, which holds the column's, so that the read needs nothing more from here.
inline vb::Variant Recordset::valor(int columna, jet::TipoCampo tipo) const {
    if (modo_ == dbEditNone && !bof_ && !eof_ && !actualBorrado_) {
        if (porClave_) {
            if (pos_ == filaEnSentencia_) return jet::LeeColumna(st_, columna, tipo);
        } else if (const jet::ValorCrudo* fila = valoresAlDia_ ? filas_.aparte(pos_) : nullptr) {
            return jet::DeCrudo(fila[columna], tipo);
        }
    }
    return valorLento(columna);
}

inline vb::Variant Field::Value() const {
    if (!rs_) return definicionSinValor();
    return rs_->valor(indice_, tipoLectura_);
}

}  // namespace dao
