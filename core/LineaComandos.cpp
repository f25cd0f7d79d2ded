#include "core/LineaComandos.h"

#include <cstring>
#include <vector>

namespace linea {

void BorraArgumento(char* argumento) {
    if (!argumento) return;
    // volatile, so that the writes are not dropped as dead stores.
    volatile char* p = argumento;
    while (*p) *p++ = '\0';
}

void BorraClaveDeLaLinea(int argc, char** argv, int desde) {
    // The joined line, with each of its characters' argument and place.
    std::vector<std::pair<int, size_t>> lugar;
    std::string juntas;
    for (int i = desde; i < argc; ++i) {
        if (i > desde) {
            juntas += ' ';
            lugar.emplace_back(-1, 0);
        }
        const size_t n = std::strlen(argv[i]);
        for (size_t k = 0; k < n; ++k) lugar.emplace_back(i, k);
        juntas += argv[i];
    }
    const size_t u = juntas.find("-u");
    const size_t p = juntas.find("-p");
    if (u == std::string::npos || p == std::string::npos || p <= u) return;
    for (size_t j = p + 2; j < lugar.size(); ++j)
        if (lugar[j].first >= 0) argv[lugar[j].first][lugar[j].second] = '\0';
}

}  // namespace linea
