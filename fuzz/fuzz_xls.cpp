// Fuzz target of the binary workbook reader: any bytes, as a file FreeXL opens (a memory file, so that no
// disk is written), are opened as a workbook, read and converted. A refusal (error 1004) is a fine outcome;
// a crash, a sanitizer report or a hang is a fault.
#include "exchange/LectorXls.h"
#include "hoja_comun.h"

#include <pthread.h>
#include <sanitizer/common_interface_defs.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

// The workbook is read by a child process, which FreeXL may crash on a damaged file: that is the outcome the
// child is there for. The child is a fork of this fuzzer, so its death would be reported as the fuzzer's and
// leave an artifact; in a child, a death is only what the parent sees of it.
const int sinInformeEnLosHijos = pthread_atfork(nullptr, nullptr, [] { __sanitizer_set_death_callback(nullptr); });

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
    (void)sinInformeEnLosHijos;
    if (tamano > 200000) return -1;
    static const int archivo = memfd_create("fuzz_xls", 0);
    static const QString ruta = QStringLiteral("/proc/self/fd/%1").arg(archivo);
    if (archivo < 0 || ftruncate(archivo, 0) != 0 || pwrite(archivo, datos, tamano, 0) != static_cast<ssize_t>(tamano)) return 0;
    intercambio::LectorXls hoja;
    try {
        hoja.Abre(ruta);
    } catch (const vb::Error&) {
        return 0;
    }
    RecorreHoja(hoja);
    return 0;
}
