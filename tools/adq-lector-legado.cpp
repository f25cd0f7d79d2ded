// adq-lector-legado: reads a file of the older desktop database format with libmdb and writes its tables and
// rows on standard output for the program (core/legado/Protocolo.h). The program runs it in a process of
// its own, watched and timed, so that a damaged file that makes libmdb crash or loop ends only this process.
//
//   adq-lector-legado [--esquema] ARCHIVO
#include "core/legado/Lector.h"
#include "core/legado/Protocolo.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <algorithm>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define ADQ_CON_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ADQ_CON_ASAN 1
#endif
#endif

#ifdef ADQ_CON_ASAN
// Under the sanitizers (the fuzz build) the limit of memory is the sanitizer's own, and what libmdb leaves
// unfreed on a damaged file is not this reading's concern.
extern "C" const char* __asan_default_options() {
    return "allocator_may_return_null=1:malloc_limit_mb=1024:hard_rss_limit_mb=1536:detect_leaks=0";
}
#endif

int main(int argc, char** argv) {
    bool soloEsquema = false;
    int i = 1;
    if (i < argc && std::strcmp(argv[i], "--esquema") == 0) {
        soloEsquema = true;
        ++i;
    }
    if (i + 1 != argc) return legado::protocolo::SalidaUso;
    // No core file for a crash, and no more memory or processor time than a reading of a file this size
    // needs: a damaged length that makes libmdb ask for gigabytes, or go round and round, ends here.
    struct stat st {};
    const unsigned long long tamano = ::stat(argv[i], &st) == 0 ? static_cast<unsigned long long>(st.st_size) : 0;
    rlimit sinVolcado {0, 0};
    setrlimit(RLIMIT_CORE, &sinVolcado);
    const rlim_t segundos = 20 + tamano / (8ull << 20);
    rlimit procesador {segundos, segundos + 1};
    setrlimit(RLIMIT_CPU, &procesador);
#ifndef ADQ_CON_ASAN
    const rlim_t memoria = std::min<unsigned long long>((256ull << 20) + 3 * tamano, 3ull << 30);
    rlimit limiteMemoria {memoria, memoria};
    setrlimit(RLIMIT_AS, &limiteMemoria);
#endif
    // The file's encodings are fixed here, whatever the environment says.
    unsetenv("MDB_ICONV");
    unsetenv("MDB_JET3_CHARSET");
    unsetenv("MDB_DEBUG");
    std::signal(SIGPIPE, SIG_IGN);
    return legado::LeeConLibmdb(argv[i], STDOUT_FILENO, soloEsquema);
}
