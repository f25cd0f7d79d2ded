// Fuzz target of the request-document loader: any bytes are loaded as the import screen loads a document,
// its head read, and its titles read with each publisher looked up in Editoriales of the demo database
// by the search the screen makes. A refused document and the language's or the engine's errors are fine
// outcomes; a crash, a sanitizer report, a hang or an exception that is not the program's is a fault.
#include "core/DatosDemo.h"
#include "core/Esquema.h"
#include "core/dao/Dao.h"
#include "core/vb/Error.h"
#include "exchange/DocumentoSolicitud.h"

#include <QTemporaryDir>

namespace {

struct Base {
    QTemporaryDir dir;
    std::unique_ptr<dao::Database> db;
    std::unique_ptr<dao::Recordset> editoriales;
    Base() {
        db = dao::Database::CreateDatabase(dir.filePath(QStringLiteral("fuzz.mdb")));
        esquema::CreaTablas(*db);
        demo::CargaDemo(*db);
        editoriales = db->OpenRecordset(QStringLiteral("Editoriales"), dao::dbOpenDynaset);
    }
};

Base& LaBase() {
    static Base b;
    return b;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
    if (tamano > 100000) return -1;
    Base& b = LaBase();
    intercambio::DocumentoXml documento;
    if (!documento.loadXML(QByteArray(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(tamano)))) return 0;
    QString total = QStringLiteral("50");
    try {
        total = intercambio::LeeDatosGenerales(documento).TotalLibros;
    } catch (const vb::Error&) {
    }
    try {
        intercambio::LeeFichas(documento, total, [&b](const QString& nombre) {
            b.editoriales->FindFirst(QStringLiteral("Nombre='") + nombre + u'\'');
            return b.editoriales->NoMatch() ? 0 : static_cast<int>(b.editoriales->Fields(QStringLiteral("No")).Value().toLong());
        });
    } catch (const vb::Error&) {
    }
    return 0;
}
