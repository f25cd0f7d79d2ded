#pragma once
// Files of the older desktop database format (KORVEL8.mdb and the .exp files of older installations, in
// the 1997 and the 2000 generations of the format): telling them by their header, reading their tables and
// rows, and migrating a whole file into a database of this program.
//
// libmdb, which reads them, trusts what the file says: a damaged page can make it crash or read for ever.
// So it never runs inside this program. The program adq-lector-legado (beside this program) reads the file
// in a process of its own and writes what it finds on a pipe; here that stream is read with every length
// checked, a reader silent for too long is killed, and a reader that dies becomes a Spanish message
// (engine error 3343). Values are read from the bytes the file stores: money from its 8-byte count of
// ten-thousandths, dates from the stored double, text from the file's own encoding.
#include "core/jet/Ast.h"
#include "core/vb/Variant.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace legado {

enum class Formato { Jet3, Jet4 };   // the 1997 and the 2000 generation

// Whether the file starts like a file of the format, either generation. Reads the header only.
bool EsArchivoLegado(const QString& ruta);
bool EsCabeceraLegada(const QByteArray& cabecera);

// What is wrong with the file as a whole, found without reading its tables (empty, cut short, another
// format or a later generation), in Spanish; empty when it may be read.
QString RevisaArchivo(const QString& ruta);

struct Columna {
    QString nombre;
    int tipoArchivo = 0;          // protocolo::TipoArchivo
    int tamano = 0;               // Text: characters; the others: bytes
    int precision = 0;
    int escala = 0;
    bool contador = false;        // an auto-increment Long
    jet::TipoCampo tipo = jet::TipoCampo::Memo;   // the type it takes in this program
};

struct Indice {
    QString nombre;
    bool primario = false;
    bool unico = false;
    bool requerido = false;
    bool ignoraNulos = false;
    bool relacion = false;        // kept by the file for a relationship, not an index of the table's own
    std::vector<int> columnas;    // positions in the table's columns
};

struct Tabla {
    QString nombre;
    qint64 filasSegunArchivo = 0;
    std::vector<Columna> columnas;
    std::vector<Indice> indices;
};

// A value of a row: the program's value, or the bytes of a binary column (OLE object, binary).
struct Valor {
    vb::Variant valor;
    QByteArray bytes;
    bool binario = false;
};

// The type a column of the file takes here, with its size for a text.
void TipoDestino(Columna& c, Formato formato);
// A stored value as the program's. False, with the value Null, when it can't be one (a date beyond the
// year 9999, a decimal too large for its column).
bool DecodificaValor(const Columna& c, Formato formato, const char* datos, int bytes, Valor& v);
// Text as the format stores it: Windows-1252 in the 1997 generation; UCS-2 in the 2000 one, compressed
// (one byte a character while the text stays below U+0100) when it starts with FF FE.
QString DecodificaTexto(const char* datos, int bytes, Formato formato);

// What a reading hands over, table by table, in the file's order.
class Receptor {
public:
    virtual ~Receptor() = default;
    virtual void Tabla(const legado::Tabla& tabla, Formato formato) = 0;
    virtual void Fila(const std::vector<Valor>& valores) = 0;
    virtual void FinTabla(const legado::Tabla& tabla, qint64 filas) { Q_UNUSED(tabla); Q_UNUSED(filas); }
    // A value that could not be taken whole: the row goes on with Null there.
    virtual void Aviso(const QString& texto) { Q_UNUSED(texto); }
};

struct Opciones {
    bool soloEsquema = false;
    // The reader writes at least every quarter of a second while it works; this long a silence is a hang.
    int silencioMaximoMs = 30000;
};

// Reads every user table of the file through the reader process. A file that can't be read, or a reader
// that crashes, hangs or writes nonsense, raises vb::Error 3343 with the reason in Spanish; what the
// receiver throws goes through, after the reader is stopped.
void Lee(const QString& ruta, Receptor& receptor, const Opciones& opciones = {});
// The user tables, with their columns and indexes, without their rows.
std::vector<Tabla> Tablas(const QString& ruta);

// The reader program. Empty: beside this program, or else where the build made it.
extern QString RutaLector;
QString LectorEnUso();

// The stream the reader writes, taken apart as it comes; for the reading and for the fuzz target.
class Decodificador {
public:
    // limiteValor: no value may be longer (the file's size: a value comes from the file).
    Decodificador(Receptor& receptor, qint64 limiteValor) : receptor_(receptor), limite_(limiteValor) {}
    // More bytes. Raises vb::Error 3343 at the first thing that doesn't fit the stream's form.
    void Agrega(const char* datos, qsizetype n);
    // The stream ended. Raises the reader's own error, or 3343 if it ended halfway.
    void Termina();
    bool Completo() const { return fin_; }
    // What the reader said when it stopped at a damage it noticed; empty otherwise.
    const QString& ErrorDelLector() const { return error_; }
    // The table being read, for a message when the reader dies.
    const QString& TablaEnCurso() const { return tabla_.nombre; }

private:
    Receptor& receptor_;
    qint64 limite_;
    QByteArray buf_;
    qsizetype pos_ = 0;
    qsizetype necesarios_ = 0;    // the buffer must hold this many bytes before another try
    bool cabecera_ = false;
    bool enTabla_ = false;
    bool fin_ = false;
    QString error_;
    Formato formato_ = Formato::Jet3;
    legado::Tabla tabla_;
    qint64 filas_ = 0;
    std::vector<Valor> valores_;
    bool paso();                  // one element of the stream; false when more bytes are needed
};

// Migration of a whole file into a new database of this program at `destino`, which must not exist: every
// user table with the same names, each column with its type and size in this program's terms, every row
// with Null kept, then the indexes. The database is built beside `destino` under a temporary name and
// takes its name only when whole; on any failure nothing is left. The origin is only read.
struct Progreso {
    QString tabla;
    qint64 filas = 0;             // rows copied so far
    qint64 previstas = 0;         // rows the file says the table has
    bool terminada = false;
};
struct TablaMigrada {
    QString nombre;
    qint64 filas = 0;
};
struct ResultadoMigracion {
    std::vector<TablaMigrada> tablas;
    QStringList avisos;           // values left Null, indexes the data didn't allow
    qint64 filas = 0;
};
ResultadoMigracion Migra(const QString& origen, const QString& destino,
                         const std::function<void(const Progreso&)>& progreso = {});

// The legacy file at `ruta` becomes a database of this program at the same path. The original keeps its
// bytes and its dates under the first free name of "<nombre>-legado.<ext>", "<nombre>-legado-2.<ext>", ...
// beside it (respaldo): a second link to the same file where the filesystem allows it, a copy where not.
// The new database takes the path in one rename, so that the path always holds one whole file; on any
// failure everything stays as it was.
struct ResultadoEnSuLugar {
    ResultadoMigracion migracion;
    QString respaldo;
};
ResultadoEnSuLugar MigraEnSuLugar(const QString& ruta, const std::function<void(const Progreso&)>& progreso = {});
// The name the original takes: the first of those names that no file has.
QString NombreRespaldo(const QString& ruta);

}  // namespace legado
