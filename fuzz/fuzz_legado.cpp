// Fuzz target of the legacy reader: after an even first byte, the rest is a file of the older desktop format,
// read through the reader process (libmdb in adq-lector-legado, with its own limits) and every value taken
// as the program's; after an odd first byte, the rest is the reader's stream itself, fed in pieces to the
// program's decoder. The engine's 3343 is a fine outcome; a crash or sanitizer report in this process, an
// exception of another kind, or another error number is a fault. A crash of the reader process is not one:
// it is what the process is there for, and it must come back as 3343.
#include "core/jet/ErroresMotor.h"
#include "core/legado/Legado.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace {

// Every value looked at as a screen would: text, and the bytes of a binary one.
struct Mira : legado::Receptor {
    qint64 largo = 0;
    void Tabla(const legado::Tabla& t, legado::Formato) override {
        for (const auto& c : t.columnas) largo += c.nombre.size();
    }
    void Fila(const std::vector<legado::Valor>& valores) override {
        for (const auto& v : valores) largo += v.binario ? v.bytes.size() : v.valor.text().size();
    }
    void Aviso(const QString& t) override { largo += t.size(); }
};

[[noreturn]] void Falla(const char* que, const QString& detalle = QString()) {
    std::fprintf(stderr, "%s %s\n", que, detalle.toUtf8().constData());
    std::abort();
}

void Comprueba(const std::function<void()>& f) {
    try {
        f();
    } catch (const vb::Error& e) {
        if (e.Number() != jet::ErrFormatoNoReconocido) Falla("Error inesperado:", QString::number(e.Number()) + u' ' + e.Description());
        if (e.Description().isEmpty()) Falla("Error sin descripción");
    } catch (const std::exception& e) {
        Falla("Excepción:", QString::fromUtf8(e.what()));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
    if (tamano < 1 || tamano > 65536) return -1;
    const char* resto = reinterpret_cast<const char*>(datos) + 1;
    const qsizetype n = static_cast<qsizetype>(tamano - 1);
    Mira mira;
    if ((datos[0] & 1) == 0) {
        static QTemporaryDir dir;
        const QString ruta = dir.filePath(QStringLiteral("entrada.mdb"));
        {
            QFile f(ruta);
            if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) Falla("No se pudo escribir la entrada");
            // The format's signature kept, so that the mutations reach the reader's pages rather than end at
            // the header; the generation is the input's.
            QByteArray archivo(resto, n);
            if (archivo.size() > 0x14) {
                archivo.replace(4, 16, QByteArray("Standard Jet DB\0", 16));
                archivo[0x14] = static_cast<char>(archivo[0x14] & 1);
            }
            f.write(archivo);
            // Whole pages, three at least, so that most inputs get past the check of the file's size to libmdb.
            const qsizetype relleno = std::max<qsizetype>(3 * 4096, (archivo.size() + 4095) / 4096 * 4096) - archivo.size();
            f.write(QByteArray(relleno, '\0'));
        }
        legado::Opciones o;
        o.silencioMaximoMs = 3000;
        Comprueba([&] { legado::Lee(ruta, mira, o); });
    } else {
        Comprueba([&] {
            legado::Decodificador d(mira, 4096);
            // Pieces of uneven sizes, as a pipe gives them.
            for (qsizetype i = 0, paso = 1; i < n; i += paso, paso = paso * 3 % 257 + 1)
                d.Agrega(resto + i, std::min(paso, n - i));
            d.Termina();
        });
    }
    return 0;
}
