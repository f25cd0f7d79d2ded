#include "exchange/ArchivoIntercambio.h"

#include "core/dao/Dao.h"
#include "core/legado/Legado.h"
#include "core/vb/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace intercambio {

namespace {

// The private copies of legacy exchange files, each in a folder of its own: removed once no database of
// this process has them open any more, and at the latest when the program ends.
struct CopiasLegadas {
    QStringList rutas;
    void BorraCerradas() {
        for (auto it = rutas.begin(); it != rutas.end();) {
            if (dao::Database::AbiertaEnEsteProceso(*it)) {
                ++it;
                continue;
            }
            QDir(QFileInfo(*it).path()).removeRecursively();
            it = rutas.erase(it);
        }
    }
    ~CopiasLegadas() {
        for (const QString& r : rutas) QDir(QFileInfo(r).path()).removeRecursively();
    }
};

CopiasLegadas& Copias() {
    static CopiasLegadas copias;
    return copias;
}

// An exchange file of an older installation, in the legacy format: its tables are read into a private copy
// of this program's format, which is opened in its place. The file itself is only read.
std::unique_ptr<dao::Database> AbreCopiaDeLegado(const QString& ruta) {
    Copias().BorraCerradas();
    QTemporaryDir carpeta(QDir::temp().filePath(QStringLiteral("adq-intercambio-XXXXXX")));
    if (!carpeta.isValid()) vb::ErrorAccesoArchivo();
    const QString copia = carpeta.filePath(QFileInfo(ruta).completeBaseName() + QStringLiteral(".mdb"));
    legado::Migra(ruta, copia);
    carpeta.setAutoRemove(false);
    Copias().rutas.append(copia);
    auto base = dao::Database::OpenDatabase(copia);
    IndicesDeLectura(*base);
    return base;
}

}  // namespace

std::unique_ptr<dao::Database> AbreBaseIntercambio(const QString& ruta) {
    // A file this process has open is one of its own (never look at its header with a descriptor of ours:
    // closing it would drop this process's locks on it).
    if (!dao::Database::AbiertaEnEsteProceso(ruta) && legado::EsArchivoLegado(ruta)) return AbreCopiaDeLegado(ruta);
    // Read-only: a file received from elsewhere is left as it came, also on a medium that can't be written.
    return dao::Database::OpenDatabase(ruta, true);
}

void IndicesDeLectura(dao::Database& base) {
    struct Busqueda {
        const char* nombre;
        const char* tabla;
        const char* columna;
    };
    static constexpr Busqueda busquedas[] = {
        {"solicitudes", "Solicitudes General", "NoSolicitud"},
        {"libros_solicitud", "Solicitudes Libros", "NoSolicitud"},
        {"donaciones", "Donaciones General", "NoDonacion"},
        {"libros_donacion", "Donaciones Libros", "NoDonacion"},
        {"ejemplares_libro", "Adquisiciones Numadqui", "ClaveLibro"},
    };
    // A table the file doesn't have is passed over.
    for (const Busqueda& b : busquedas)
        base.AseguraIndiceDeConsulta(QString::fromUtf8(b.nombre), QString::fromUtf8(b.tabla), {QString::fromUtf8(b.columna)});
}

void BorraArchivo(const QString& ruta) {
    if (dao::Database::AbiertaEnEsteProceso(ruta)) vb::ErrorPermisoDenegado();
    if (!QFile::remove(ruta)) vb::ErrorAccesoArchivo();
    for (const char* registro : {"-wal", "-shm", "-journal"}) QFile::remove(ruta + QLatin1String(registro));
}

}  // namespace intercambio
