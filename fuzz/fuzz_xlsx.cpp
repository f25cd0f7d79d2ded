// Fuzz target of the Open XML workbook reader. Bytes that begin as a zip ("PK") are read as the workbook
// itself, which mostly exercises the zip's checks; any other bytes are the parts of a workbook separated by
// a line "----", packed here into a zip (workbook, its relationships, shared strings, styles, first sheet),
// so that the mutations reach the XML of each part. A refusal (error 1004) is a fine outcome; a crash, a
// sanitizer report or a hang is a fault.
#include "exchange/LectorXlsx.h"
#include "hoja_comun.h"

#include <QByteArrayList>
#include <zip.h>

namespace {

const char* const Partes[] = {"xl/workbook.xml", "xl/_rels/workbook.xml.rels", "xl/sharedStrings.xml", "xl/styles.xml",
                              "xl/worksheets/sheet1.xml"};

// The parts, zipped in memory.
QByteArray Empaqueta(const QByteArray& datos) {
    const QList<QByteArray> trozos = datos.split('\n');
    QList<QByteArray> partes{QByteArray()};
    for (const QByteArray& t : trozos) {
        if (t == "----") partes.append(QByteArray());
        else partes.back() += t + '\n';
    }
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* fuente = zip_source_buffer_create(nullptr, 0, 0, &error);
    QByteArray resultado;
    if (!fuente) return resultado;
    zip_source_keep(fuente);
    if (zip_t* z = zip_open_from_source(fuente, ZIP_TRUNCATE, &error)) {
        for (qsizetype i = 0; i < partes.size() && i < 5; ++i) {
            zip_source_t* s = zip_source_buffer(z, partes[i].constData(), static_cast<zip_uint64_t>(partes[i].size()), 0);
            if (s && zip_file_add(z, Partes[i], s, 0) < 0) zip_source_free(s);
        }
        if (zip_close(z) < 0) zip_discard(z);
        zip_stat_t st;
        if (zip_source_stat(fuente, &st) == 0 && zip_source_open(fuente) == 0) {
            resultado.resize(static_cast<qsizetype>(st.size));
            if (zip_source_read(fuente, resultado.data(), st.size) != static_cast<zip_int64_t>(st.size)) resultado.clear();
            zip_source_close(fuente);
        }
    }
    zip_source_free(fuente);
    zip_error_fini(&error);
    return resultado;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
    if (tamano > 200000) return -1;
    const QByteArray bytes(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(tamano));
    intercambio::LectorXlsx hoja;
    try {
        hoja.AbreDatos(bytes.startsWith("PK") ? bytes : Empaqueta(bytes), QStringLiteral("fuzz.xlsx"));
    } catch (const vb::Error&) {
        return 0;
    }
    RecorreHoja(hoja);
    return 0;
}
