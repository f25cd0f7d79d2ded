#include "exchange/ArchivoIntercambio.h"

#include "core/dao/Dao.h"
#include "core/vb/Error.h"

#include <QFile>
#include <QFileInfo>

namespace intercambio {

std::unique_ptr<dao::Database> AbreBaseIntercambio(const QString& ruta) {
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
