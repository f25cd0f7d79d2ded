#include "core/legado/Legado.h"

#include "core/jet/ErroresMotor.h"
#include "core/legado/Protocolo.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace legado {

namespace p = protocolo;

QString RutaLector;

QString LectorEnUso() {
    if (!RutaLector.isEmpty()) return RutaLector;
    const QString nombre = QStringLiteral("adq-lector-legado");
    QString carpeta;
    if (QCoreApplication::instance()) carpeta = QCoreApplication::applicationDirPath();
    else carpeta = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).absolutePath();
    const QString junto = QDir(carpeta).filePath(nombre);
    if (QFileInfo(junto).isExecutable()) return junto;
#ifdef ADQ_LECTOR_LEGADO_COMPILADO
    // Tests and benchmarks run from folders of their own in the build.
    if (QFileInfo(QStringLiteral(ADQ_LECTOR_LEGADO_COMPILADO)).isExecutable()) return QStringLiteral(ADQ_LECTOR_LEGADO_COMPILADO);
#endif
    return junto;
}

namespace {

// The size of the names the reader may send: a name of the format has at most 64 characters.
constexpr quint32 LargoMaximoNombre = 4096;

[[noreturn]] void Falla(const QString& texto) {
    throw vb::Error(jet::ErrFormatoNoReconocido, texto, QStringLiteral("Motor de base de datos"));
}

[[noreturn]] void Incoherente() {
    Falla(QStringLiteral("El lector de archivos del formato anterior entregó datos incoherentes."));
}

// A cursor over the bytes kept: each read says whether the bytes were there.
struct Cursor {
    const QByteArray& b;
    qsizetype pos;
    qsizetype falta = 0;   // bytes still missing when a read found too few

    bool hay(qsizetype n) {
        if (b.size() - pos >= n) return true;
        falta = n - (b.size() - pos);
        return false;
    }
    bool u8(quint8& v) {
        if (!hay(1)) return false;
        v = static_cast<quint8>(b[pos++]);
        return true;
    }
    bool u16(quint16& v) {
        if (!hay(2)) return false;
        v = static_cast<quint16>(static_cast<quint8>(b[pos]) | (static_cast<quint8>(b[pos + 1]) << 8));
        pos += 2;
        return true;
    }
    bool u32(quint32& v) {
        if (!hay(4)) return false;
        v = 0;
        for (int i = 3; i >= 0; --i) v = (v << 8) | static_cast<quint8>(b[pos + i]);
        pos += 4;
        return true;
    }
    bool texto(QString& t) {
        quint32 n = 0;
        if (!u32(n)) return false;
        if (n > LargoMaximoNombre) Incoherente();
        if (!hay(n)) return false;
        t = QString::fromUtf8(b.constData() + pos, static_cast<qsizetype>(n));
        pos += n;
        return true;
    }
};

}  // namespace

bool Decodificador::paso() {
    Cursor c{buf_, pos_};
    if (!cabecera_) {
        if (!c.hay(6)) return necesarios_ = c.pos + c.falta, false;
        if (std::memcmp(buf_.constData(), p::Firma, 4) != 0 || static_cast<quint8>(buf_[4]) != p::Version) Incoherente();
        const quint8 version = static_cast<quint8>(buf_[5]);
        if (version > 1) Incoherente();
        formato_ = version == 0 ? Formato::Jet3 : Formato::Jet4;
        pos_ = 6;
        cabecera_ = true;
        return true;
    }
    quint8 marca = 0;
    if (!c.u8(marca)) return necesarios_ = c.pos + c.falta, false;
    auto falta = [&] {
        necesarios_ = c.pos + c.falta;
        return false;
    };
    switch (marca) {
    case p::Tabla: {
        if (enTabla_) Incoherente();
        legado::Tabla t;
        quint32 filas = 0;
        quint16 n = 0;
        if (!c.texto(t.nombre) || !c.u32(filas) || !c.u16(n)) return falta();
        if (t.nombre.isEmpty() || n > 255) Incoherente();
        t.filasSegunArchivo = filas;
        for (int i = 0; i < n; ++i) {
            Columna col;
            quint8 tipo = 0, precision = 0, escala = 0, marcas = 0;
            quint16 tamano = 0;
            if (!c.texto(col.nombre) || !c.u8(tipo) || !c.u16(tamano) || !c.u8(precision) || !c.u8(escala) || !c.u8(marcas))
                return falta();
            if (col.nombre.isEmpty()) Incoherente();
            col.tipoArchivo = tipo;
            col.tamano = tamano;
            col.precision = precision;
            col.escala = escala;
            col.contador = (marcas & p::ColumnaContador) != 0 && tipo == p::EnteroLargo;
            TipoDestino(col, formato_);
            t.columnas.push_back(col);
        }
        quint16 m = 0;
        if (!c.u16(m)) return falta();
        for (int i = 0; i < m; ++i) {
            Indice x;
            quint8 clase = 0, marcas = 0, claves = 0;
            if (!c.texto(x.nombre) || !c.u8(clase) || !c.u8(marcas) || !c.u8(claves)) return falta();
            if (claves > 10) Incoherente();
            x.primario = clase == p::IndicePrimario;
            x.relacion = clase == p::IndiceRelacion;
            x.unico = x.primario || (marcas & p::IndiceUnico);
            x.requerido = x.primario || (marcas & p::IndiceRequerido);
            x.ignoraNulos = marcas & p::IndiceIgnoraNulos;
            for (int k = 0; k < claves; ++k) {
                quint16 columna = 0;
                quint8 orden = 0;
                if (!c.u16(columna) || !c.u8(orden)) return falta();
                if (columna >= n) Incoherente();
                x.columnas.push_back(columna);
            }
            t.indices.push_back(std::move(x));
        }
        pos_ = c.pos;
        tabla_ = std::move(t);
        enTabla_ = true;
        filas_ = 0;
        valores_.assign(tabla_.columnas.size(), Valor());
        receptor_.Tabla(tabla_, formato_);
        return true;
    }
    case p::Fila: {
        if (!enTabla_) Incoherente();
        // The whole row must be here before any of it is taken.
        Cursor r{buf_, c.pos};
        for (const Columna& col : tabla_.columnas) {
            quint32 n = 0;
            if (!r.u32(n)) return necesarios_ = r.pos + r.falta, false;
            if (n == p::Nulo) continue;
            if (n > limite_) Incoherente();
            const int fijo = p::TamanoAlmacenado(col.tipoArchivo);
            if (fijo > 0 && static_cast<int>(n) != fijo) Incoherente();
            if (!r.hay(n)) return necesarios_ = r.pos + r.falta, false;
            r.pos += n;
        }
        for (size_t i = 0; i < tabla_.columnas.size(); ++i) {
            quint32 n = 0;
            c.u32(n);
            Valor& v = valores_[i];
            if (n == p::Nulo) {
                v.valor = vb::Variant::Null();
                v.binario = false;
                v.bytes.clear();
                continue;
            }
            if (!DecodificaValor(tabla_.columnas[i], formato_, buf_.constData() + c.pos, static_cast<int>(n), v))
                receptor_.Aviso(QStringLiteral("La columna '%1' de la tabla '%2' tiene un valor que no cabe en su tipo; se deja vacío.")
                                    .arg(tabla_.columnas[i].nombre, tabla_.nombre));
            c.pos += n;
        }
        pos_ = c.pos;
        ++filas_;
        receptor_.Fila(valores_);
        return true;
    }
    case p::FinTabla: {
        quint32 filas = 0;
        if (!c.u32(filas)) return falta();
        if (!enTabla_ || filas != filas_) Incoherente();
        pos_ = c.pos;
        enTabla_ = false;
        receptor_.FinTabla(tabla_, filas_);
        return true;
    }
    case p::Aviso:
    case p::Error: {
        QString t;
        if (!c.texto(t)) return falta();
        pos_ = c.pos;
        if (marca == p::Aviso) {
            receptor_.Aviso(t);
            return true;
        }
        error_ = t.isEmpty() ? QStringLiteral("no se pudo leer") : t;
        fin_ = true;
        return false;
    }
    case p::Fin:
        if (enTabla_) Incoherente();
        pos_ = c.pos;
        fin_ = true;
        return false;
    default:
        Incoherente();
    }
}

void Decodificador::Agrega(const char* datos, qsizetype n) {
    if (fin_) {
        if (n > 0) Incoherente();
        return;
    }
    buf_.append(datos, n);
    if (buf_.size() < necesarios_) return;
    necesarios_ = 0;
    while (!fin_ && paso()) {
    }
    // What was taken goes; a long value still coming stays whole in the buffer.
    if (pos_ > 0 && (pos_ >= buf_.size() / 2 || pos_ > (1 << 20))) {
        buf_.remove(0, pos_);
        necesarios_ = std::max<qsizetype>(0, necesarios_ - pos_);
        pos_ = 0;
    }
}

void Decodificador::Termina() {
    if (!error_.isEmpty()) Falla(error_);
    if (!fin_ || pos_ != buf_.size()) Incoherente();
}

namespace {

// The reader's process: started with its output on a pipe, killed and reaped however the reading ends.
class ProcesoLector {
public:
    ProcesoLector(const QString& lector, const QString& ruta, bool soloEsquema) {
        int tubo[2];
        if (::pipe2(tubo, O_CLOEXEC) != 0) Falla(QStringLiteral("No se pudo iniciar el lector de archivos del formato anterior."));
        lectura_ = tubo[0];
        posix_spawn_file_actions_t acciones;
        posix_spawn_file_actions_init(&acciones);
        posix_spawn_file_actions_adddup2(&acciones, tubo[1], STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&acciones, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        // libmdb's own warnings are English and of no use to an analyst.
        posix_spawn_file_actions_addopen(&acciones, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        const QByteArray programa = QFile::encodeName(lector);
        const QByteArray archivo = QFile::encodeName(ruta);
        std::vector<char*> argv;
        argv.push_back(const_cast<char*>(programa.constData()));
        if (soloEsquema) argv.push_back(const_cast<char*>("--esquema"));
        argv.push_back(const_cast<char*>(archivo.constData()));
        argv.push_back(nullptr);
        const int rc = posix_spawn(&pid_, programa.constData(), &acciones, nullptr, argv.data(), environ);
        posix_spawn_file_actions_destroy(&acciones);
        ::close(tubo[1]);
        if (rc != 0) {
            pid_ = -1;
            Falla(QStringLiteral("No se encontró el lector de archivos del formato anterior ('%1'); debe estar junto al programa.")
                      .arg(QDir::toNativeSeparators(lector)));
        }
    }
    ~ProcesoLector() {
        if (lectura_ >= 0) ::close(lectura_);
        if (pid_ > 0) {
            ::kill(pid_, SIGKILL);
            int estado = 0;
            while (::waitpid(pid_, &estado, 0) < 0 && errno == EINTR) {
            }
        }
    }
    ProcesoLector(const ProcesoLector&) = delete;
    ProcesoLector& operator=(const ProcesoLector&) = delete;

    // Reads what the reader writes until it closes its end; false if it kept silent for `silencioMs`.
    template <class F>
    bool lee(int silencioMs, F&& alLeer) {
        std::vector<char> bloque(256 * 1024);
        for (;;) {
            pollfd pf{lectura_, POLLIN, 0};
            const int rc = ::poll(&pf, 1, silencioMs);
            if (rc < 0 && errno == EINTR) continue;
            if (rc == 0) return false;
            const ssize_t n = ::read(lectura_, bloque.data(), bloque.size());
            if (n < 0 && (errno == EINTR || errno == EAGAIN)) continue;
            if (n <= 0) return true;
            alLeer(bloque.data(), static_cast<qsizetype>(n));
        }
    }
    // How the reader ended: its exit code, or -signal.
    int espera() {
        int estado = 0;
        while (::waitpid(pid_, &estado, 0) < 0 && errno == EINTR) {
        }
        pid_ = -1;
        if (WIFEXITED(estado)) return WEXITSTATUS(estado);
        if (WIFSIGNALED(estado)) return -WTERMSIG(estado);
        return -1;
    }

private:
    pid_t pid_ = -1;
    int lectura_ = -1;
};

}  // namespace

void Lee(const QString& ruta, Receptor& receptor, const Opciones& opciones) {
    const QString problema = RevisaArchivo(ruta);
    if (!problema.isEmpty()) Falla(problema);
    const QString nombre = QDir::toNativeSeparators(ruta);
    Decodificador d(receptor, QFileInfo(ruta).size());
    ProcesoLector proceso(LectorEnUso(), ruta, opciones.soloEsquema);
    const bool termino = proceso.lee(opciones.silencioMaximoMs, [&d](const char* datos, qsizetype n) { d.Agrega(datos, n); });
    auto donde = [&d] {
        return d.TablaEnCurso().isEmpty() ? QString() : QStringLiteral(" (en la tabla '%1')").arg(d.TablaEnCurso());
    };
    if (!termino)
        Falla(QStringLiteral("La lectura del archivo '%1' dejó de avanzar%2 y se detuvo: el archivo está dañado.").arg(nombre, donde()));
    const int salida = proceso.espera();
    if (!d.ErrorDelLector().isEmpty()) Falla(QStringLiteral("El archivo '%1' está dañado: %2.").arg(nombre, d.ErrorDelLector()));
    if (salida == p::SalidaNoAbre)
        Falla(QStringLiteral("No se pudo abrir el archivo '%1': está dañado o no es una base de datos del formato anterior.").arg(nombre));
    if (salida != p::SalidaBien || !d.Completo())
        Falla(QStringLiteral("No se pudo leer el archivo '%1'%2: está dañado.").arg(nombre, donde()));
    d.Termina();
}

std::vector<Tabla> Tablas(const QString& ruta) {
    struct Esquema : Receptor {
        std::vector<legado::Tabla> tablas;
        void Tabla(const legado::Tabla& t, Formato) override { tablas.push_back(t); }
        void Fila(const std::vector<Valor>&) override {}
    } esquema;
    Opciones o;
    o.soloEsquema = true;
    Lee(ruta, esquema, o);
    return std::move(esquema.tablas);
}

}  // namespace legado
