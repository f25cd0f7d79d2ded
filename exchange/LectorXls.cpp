#include "exchange/LectorXls.h"

#include "core/vb/Fecha.h"
#include "core/vb/Variant.h"

#include <QDate>
#include <QDeadlineTimer>
#include <QFile>
#include <QTime>
#include <freexl.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace intercambio {

namespace {

// What the child says before the cells: FreeXL's result, or one of these.
enum : qint32 { EstadoProtegido = 1, EstadoSinHojas = 2, EstadoDemasiadasCeldas = 3 };
// The row that ends the cells.
constexpr quint32 FinDeCeldas = 0xFFFFFFFFu;
// A request is a few dozen rows; a sheet of millions of cells is no request.
constexpr quint64 CeldasMaximas = 2000000;

quint64 Clave(quint32 fila, quint32 columna) { return (static_cast<quint64>(fila) << 16) | columna; }

QString Motivo(int codigo) {
    switch (codigo) {
    case FREEXL_FILE_NOT_FOUND: return QStringLiteral("no se encontró el archivo o no se puede leer");
    case FREEXL_INVALID_CFBF_HEADER:
    case FREEXL_CFBF_INVALID_SIGNATURE: return QStringLiteral("el archivo no es un libro de Excel (.xls)");
    case FREEXL_INSUFFICIENT_MEMORY: return QStringLiteral("no hay memoria suficiente para leerlo");
    case EstadoProtegido: return QStringLiteral("el libro está protegido con contraseña");
    case EstadoSinHojas: return QStringLiteral("el libro no tiene hojas");
    case EstadoDemasiadasCeldas: return QStringLiteral("la hoja tiene demasiadas celdas para ser una solicitud");
    default: return QStringLiteral("el archivo está dañado o no es un libro de Excel (.xls)");
    }
}

// ---- The child: FreeXL and plain writes, nothing of the toolkit --------------------------------------------

class Tuberia {
public:
    explicit Tuberia(int fd) : fd_(fd) {}
    template <class T> void Pon(const T& valor) { Escribe(&valor, sizeof valor); }
    void Escribe(const void* datos, size_t tamano) {
        const char* p = static_cast<const char*>(datos);
        while (tamano > 0) {
            const ssize_t n = write(fd_, p, tamano);
            if (n < 0 && errno == EINTR) continue;
            if (n <= 0) _exit(1);
            p += n;
            tamano -= static_cast<size_t>(n);
        }
    }

private:
    int fd_;
};

[[noreturn]] void LeeEnHijo(const char* ruta, int fd) {
    // Whatever the library might print about a broken file is of no use to the analyst.
    const int nulo = open("/dev/null", O_WRONLY);
    if (nulo >= 0) dup2(nulo, STDERR_FILENO);
    Tuberia salida(fd);
    const void* libro = nullptr;
    qint32 estado = freexl_open(ruta, &libro);
    unsigned int protegido = 0, hojas = 0;
    if (estado == FREEXL_OK && freexl_get_info(libro, FREEXL_BIFF_PASSWORD, &protegido) == FREEXL_OK &&
        protegido == FREEXL_BIFF_OBFUSCATED)
        estado = EstadoProtegido;
    else if (estado == FREEXL_OK && (freexl_get_info(libro, FREEXL_BIFF_SHEET_COUNT, &hojas) != FREEXL_OK || hojas == 0 ||
                                     freexl_select_active_worksheet(libro, 0) != FREEXL_OK))
        estado = EstadoSinHojas;
    unsigned int filas = 0;
    unsigned short columnas = 0;
    if (estado == FREEXL_OK && freexl_worksheet_dimensions(libro, &filas, &columnas) == FREEXL_OK &&
        static_cast<quint64>(filas) * columnas > CeldasMaximas)
        estado = EstadoDemasiadasCeldas;
    salida.Pon(estado);
    if (estado == FREEXL_OK) {
        for (unsigned int f = 0; f < filas; ++f) {
            for (unsigned short c = 0; c < columnas; ++c) {
                FreeXL_CellValue v;
                if (freexl_get_cell_value(libro, f, c, &v) != FREEXL_OK || v.type == FREEXL_CELL_NULL) continue;
                salida.Pon(static_cast<quint32>(f));
                salida.Pon(static_cast<quint16>(c));
                salida.Pon(static_cast<quint8>(v.type));
                if (v.type == FREEXL_CELL_INT) {
                    salida.Pon(static_cast<qint32>(v.value.int_value));
                } else if (v.type == FREEXL_CELL_DOUBLE) {
                    salida.Pon(v.value.double_value);
                } else {
                    const char* texto = v.value.text_value ? v.value.text_value : "";
                    const quint32 largo = static_cast<quint32>(strlen(texto));
                    salida.Pon(largo);
                    salida.Escribe(texto, largo);
                }
            }
        }
        salida.Pon(FinDeCeldas);
    }
    _exit(0);
}

// ---- The parent -----------------------------------------------------------------------------------------------

// FreeXL gives dates as "yyyy-mm-dd", "yyyy-mm-dd hh:mm:ss" and times as "hh:mm:ss".
QString TextoDeFechaFreeXL(const QString& t, int tipo) {
    QDate dia = vb::Fecha().date();
    QTime hora(0, 0);
    if (tipo != FREEXL_CELL_TIME) dia = QDate::fromString(t.left(10), QStringLiteral("yyyy-MM-dd"));
    if (tipo != FREEXL_CELL_DATE) hora = QTime::fromString(t.right(8), QStringLiteral("HH:mm:ss"));
    if (!dia.isValid() || !hora.isValid()) return t;
    return vb::Variant(vb::Fecha(dia, hora)).toString();
}

// Reads what the child writes until it closes its end or the time runs out; false on time out.
bool LeeHastaElFin(int fd, QByteArray& datos) {
    const QDeadlineTimer limite(LectorXls::SegundosMaximos * 1000);
    char bloque[65536];
    for (;;) {
        pollfd p{fd, POLLIN, 0};
        const int listo = poll(&p, 1, static_cast<int>(std::max<qint64>(limite.remainingTime(), 0)));
        if (listo < 0 && errno == EINTR) continue;
        if (listo <= 0) return false;
        const ssize_t n = read(fd, bloque, sizeof bloque);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return true;
        datos.append(bloque, n);
    }
}

// The cells as the child wrote them; false when the stream is cut short.
class Lectura {
public:
    explicit Lectura(const QByteArray& d) : d_(d) {}
    template <class T> bool Toma(T& valor) {
        if (pos_ + static_cast<qsizetype>(sizeof valor) > d_.size()) return false;
        memcpy(&valor, d_.constData() + pos_, sizeof valor);
        pos_ += sizeof valor;
        return true;
    }
    bool Texto(quint32 largo, QString& texto) {
        if (largo > static_cast<quint64>(d_.size() - pos_)) return false;
        texto = QString::fromUtf8(d_.constData() + pos_, static_cast<qsizetype>(largo));
        pos_ += largo;
        return true;
    }

private:
    const QByteArray& d_;
    qsizetype pos_ = 0;
};

}  // namespace

void LectorXls::Abre(const QString& ruta) {
    Cierra();
    // The binary workbook lies in a compound file, which its first eight bytes tell.
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly)) ErrorLibro(ruta, Motivo(FREEXL_FILE_NOT_FOUND));
    const QByteArray cabecera = archivo.read(8);
    archivo.close();
    if (cabecera != QByteArray("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1", 8)) {
        ErrorLibro(ruta, cabecera.startsWith("PK") ? QStringLiteral("el archivo es un libro de Excel (.xlsx) con la extensión .xls")
                                                   : Motivo(FREEXL_INVALID_CFBF_HEADER));
    }

    const QByteArray nombre = QFile::encodeName(ruta);
    int tubo[2];
    if (pipe2(tubo, O_CLOEXEC) != 0) ErrorLibro(ruta, Motivo(FREEXL_INSUFFICIENT_MEMORY));
    const pid_t hijo = fork();
    if (hijo < 0) {
        close(tubo[0]);
        close(tubo[1]);
        ErrorLibro(ruta, Motivo(FREEXL_INSUFFICIENT_MEMORY));
    }
    if (hijo == 0) {
        close(tubo[0]);
        LeeEnHijo(nombre.constData(), tubo[1]);
    }
    close(tubo[1]);
    QByteArray datos;
    const bool completo = LeeHastaElFin(tubo[0], datos);
    close(tubo[0]);
    if (!completo) kill(hijo, SIGKILL);
    int estadoHijo = 0;
    while (waitpid(hijo, &estadoHijo, 0) < 0 && errno == EINTR) {
    }
    if (!completo)
        ErrorLibro(ruta, QStringLiteral("no terminó de leerse en %1 segundos: el archivo está dañado").arg(SegundosMaximos));

    Lectura lectura(datos);
    qint32 estado = 0;
    const bool sano = WIFEXITED(estadoHijo) && WEXITSTATUS(estadoHijo) == 0 && lectura.Toma(estado);
    if (!sano) ErrorLibro(ruta, Motivo(FREEXL_CRAFTED_FILE));
    if (estado != FREEXL_OK) ErrorLibro(ruta, Motivo(estado));
    QHash<quint64, QString> celdas;
    for (;;) {
        quint32 fila = 0, largo = 0;
        quint16 columna = 0;
        quint8 tipo = 0;
        if (!lectura.Toma(fila)) ErrorLibro(ruta, Motivo(FREEXL_CRAFTED_FILE));
        if (fila == FinDeCeldas) break;
        QString texto;
        bool leido = lectura.Toma(columna) && lectura.Toma(tipo);
        if (leido && tipo == FREEXL_CELL_INT) {
            qint32 entero = 0;
            leido = lectura.Toma(entero);
            texto = QString::number(entero);
        } else if (leido && tipo == FREEXL_CELL_DOUBLE) {
            double numero = 0;
            leido = lectura.Toma(numero);
            texto = TextoDeNumero(numero);
        } else if (leido) {
            leido = lectura.Toma(largo) && lectura.Texto(largo, texto);
            if (tipo == FREEXL_CELL_DATE || tipo == FREEXL_CELL_DATETIME || tipo == FREEXL_CELL_TIME)
                texto = TextoDeFechaFreeXL(texto, tipo);
        }
        if (!leido) ErrorLibro(ruta, Motivo(FREEXL_CRAFTED_FILE));
        celdas.insert(Clave(fila + 1, columna + 1u), texto);
    }
    celdas_ = std::move(celdas);
}

QString LectorXls::Celda(int fila, int columna) {
    if (fila < 1 || columna < 1 || columna > 65535) return QString();
    return celdas_.value(Clave(static_cast<quint32>(fila), static_cast<quint32>(columna)));
}

void LectorXls::Cierra() { celdas_.clear(); }

}  // namespace intercambio
