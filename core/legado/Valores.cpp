#include "core/legado/Legado.h"

#include "core/legado/Protocolo.h"
#include "core/vb/Currency.h"
#include "core/vb/Error.h"
#include "core/vb/Fecha.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cmath>
#include <cstring>

namespace legado {

namespace p = protocolo;

namespace {

__extension__ typedef unsigned __int128 Entero128;

// Byte 0x14 of the header: the generation.
constexpr int PosicionVersion = 0x14;

int TamanoPagina(Formato f) { return f == Formato::Jet3 ? 2048 : 4096; }

template <class T>
T Lee(const char* d) {
    T v;
    std::memcpy(&v, d, sizeof v);   // the file and this machine are both little-endian
    return v;
}

// Windows-1252 from 0x80 to 0x9F; the five codes it leaves free stand for themselves.
constexpr char16_t Cp1252[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

// The unscaled value of a Numeric column: 16 bytes as four 32-bit words, the most significant first, each
// little-endian; the byte before them holds the sign.
Entero128 SinEscala(const char* d) {
    Entero128 v = 0;
    for (int palabra = 0; palabra < 4; ++palabra) v = (v << 32) | Lee<quint32>(d + 1 + 4 * palabra);
    return v;
}

Entero128 Potencia10(int n) {
    Entero128 r = 1;
    while (n-- > 0) r *= 10;
    return r;
}

}  // namespace

bool EsCabeceraLegada(const QByteArray& c) {
    if (c.size() <= PosicionVersion) return false;
    if (c.mid(4, 16) != QByteArray("Standard Jet DB\0", 16)) return false;
    const int version = static_cast<unsigned char>(c[PosicionVersion]);
    return version == 0 || version == 1;
}

bool EsArchivoLegado(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly)) return false;
    return EsCabeceraLegada(f.read(32));
}

QString RevisaArchivo(const QString& ruta) {
    const QString nombre = QDir::toNativeSeparators(ruta);
    QFile f(ruta);
    if (!QFileInfo::exists(ruta)) return QStringLiteral("No se encontró el archivo '%1'.").arg(nombre);
    if (!f.open(QIODevice::ReadOnly)) return QStringLiteral("No se puede leer el archivo '%1'.").arg(nombre);
    const qint64 tamano = f.size();
    if (tamano == 0) return QStringLiteral("El archivo '%1' está vacío.").arg(nombre);
    const QByteArray c = f.read(32);
    if (c.mid(4, 16) == QByteArray("Standard ACE DB\0", 16) ||
        (c.mid(4, 16) == QByteArray("Standard Jet DB\0", 16) && c.size() > PosicionVersion &&
         static_cast<unsigned char>(c[PosicionVersion]) > 1))
        return QStringLiteral("El archivo '%1' es de una versión del formato posterior a 2000, que este programa no lee.").arg(nombre);
    if (!EsCabeceraLegada(c))
        return QStringLiteral("El archivo '%1' no es una base de datos del formato de las instalaciones anteriores.").arg(nombre);
    const Formato formato = c[PosicionVersion] == 0 ? Formato::Jet3 : Formato::Jet4;
    const int pagina = TamanoPagina(formato);
    // The catalog of tables begins on the third page.
    if (tamano < 3 * pagina || tamano % pagina != 0)
        return QStringLiteral("El archivo '%1' (%2 bytes) no termina en una página completa de %3 bytes: está cortado.")
            .arg(nombre).arg(tamano).arg(pagina);
    return {};
}

void TipoDestino(Columna& c, Formato formato) {
    using jet::TipoCampo;
    switch (c.tipoArchivo) {
    case p::SiNo: c.tipo = TipoCampo::Boolean; break;
    case p::Byte: c.tipo = TipoCampo::Byte; break;
    case p::Entero: c.tipo = TipoCampo::Integer; break;
    case p::EnteroLargo: c.tipo = TipoCampo::Long; break;
    case p::Moneda: c.tipo = TipoCampo::Currency; break;
    case p::Simple: c.tipo = TipoCampo::Single; break;
    case p::Doble: c.tipo = TipoCampo::Double; break;
    case p::FechaHora: c.tipo = TipoCampo::Date; break;
    case p::Binario: c.tipo = TipoCampo::Binary; break;
    case p::Texto:
        c.tipo = TipoCampo::Text;
        // The 2000 generation counts a text's size in bytes of UCS-2.
        if (formato == Formato::Jet4) c.tamano /= 2;
        if (c.tamano <= 0 || c.tamano > 255) c.tamano = 255;
        break;
    case p::Memo: c.tipo = TipoCampo::Memo; break;
    case p::Guid: c.tipo = TipoCampo::Guid; break;
    case p::Numerico:
        // A decimal with at most four places and room for its whole part in money stays exact as money;
        // any other becomes a double.
        c.tipo = (c.escala <= 4 && c.precision - c.escala <= 14) ? TipoCampo::Currency : TipoCampo::Double;
        break;
    default: c.tipo = TipoCampo::LongBinary; break;   // OLE objects and whatever the file has beyond
    }
    if (c.tipo != TipoCampo::Text && c.tipo != TipoCampo::Binary) c.tamano = jet::TamanoFijo(c.tipo);
}

QString DecodificaTexto(const char* d, int n, Formato formato) {
    const auto* b = reinterpret_cast<const unsigned char*>(d);
    QString r;
    if (formato == Formato::Jet3) {
        r.resize(n);
        QChar* s = r.data();
        for (int i = 0; i < n; ++i) s[i] = QChar(b[i] >= 0x80 && b[i] < 0xA0 ? Cp1252[b[i] - 0x80] : char16_t(b[i]));
        return r;
    }
    if (n >= 2 && b[0] == 0xFF && b[1] == 0xFE) {
        // Compressed: a zero byte switches between one byte a character and two.
        r.reserve(n);
        bool comprimido = true;
        int i = 2;
        while (i < n) {
            if (b[i] == 0) {
                comprimido = !comprimido;
                ++i;
            } else if (comprimido) {
                r += QChar(char16_t(b[i++]));
            } else {
                if (i + 1 >= n) break;   // half a character at the end
                r += QChar(char16_t(b[i] | (b[i + 1] << 8)));
                i += 2;
            }
        }
        return r;
    }
    r.resize(n / 2);
    QChar* s = r.data();
    for (int i = 0; i + 1 < n; i += 2) s[i / 2] = QChar(char16_t(b[i] | (b[i + 1] << 8)));
    return r;
}

bool DecodificaValor(const Columna& c, Formato formato, const char* d, int n, Valor& v) {
    v.binario = false;
    v.bytes.clear();
    auto nulo = [&v] {
        v.valor = vb::Variant::Null();
        return false;
    };
    switch (c.tipoArchivo) {
    case p::SiNo: v.valor = vb::Variant(n == 1 && d[0] != 0); return true;
    case p::Byte: v.valor = vb::Variant::Byte(static_cast<quint8>(d[0])); return true;
    case p::Entero: v.valor = vb::Variant::Integer(Lee<qint16>(d)); return true;
    case p::EnteroLargo: v.valor = vb::Variant::Long(Lee<qint32>(d)); return true;
    case p::Moneda: v.valor = vb::Variant(vb::Currency::fromRaw(Lee<qint64>(d))); return true;
    case p::Simple: v.valor = vb::Variant::Single(Lee<float>(d)); return true;
    case p::Doble: v.valor = vb::Variant(Lee<double>(d)); return true;
    case p::FechaHora:
        try {
            v.valor = vb::Variant(vb::Fecha::fromSerial(Lee<double>(d)));
            return true;
        } catch (const vb::Error&) {
            return nulo();   // beyond the years 100 to 9999, or no number at all
        }
    case p::Texto:
    case p::Memo: v.valor = vb::Variant(DecodificaTexto(d, n, formato)); return true;
    case p::Guid: {
        const auto* b = reinterpret_cast<const unsigned char*>(d);
        QString t = QStringLiteral("{%1-%2-%3-").arg(Lee<quint32>(d), 8, 16, QChar(u'0'))
                        .arg(Lee<quint16>(d + 4), 4, 16, QChar(u'0'))
                        .arg(Lee<quint16>(d + 6), 4, 16, QChar(u'0'));
        for (int i = 8; i < 16; ++i) {
            if (i == 10) t += u'-';
            t += QStringLiteral("%1").arg(b[i], 2, 16, QChar(u'0'));
        }
        v.valor = vb::Variant(t.toUpper() + u'}');
        return true;
    }
    case p::Numerico: {
        const bool negativo = (static_cast<unsigned char>(d[0]) & 0x80) != 0;
        const Entero128 sin = SinEscala(d);
        const int escala = std::clamp(c.escala, 0, 28);
        if (c.tipo == jet::TipoCampo::Currency) {
            const Entero128 diez = sin * Potencia10(4 - escala);
            if (sin != 0 && diez / sin != Potencia10(4 - escala)) return nulo();
            if (diez > static_cast<Entero128>(std::numeric_limits<qint64>::max())) return nulo();
            const qint64 raw = static_cast<qint64>(diez);
            v.valor = vb::Variant(vb::Currency::fromRaw(negativo ? -raw : raw));
            return true;
        }
        const long double x = static_cast<long double>(sin) / static_cast<long double>(Potencia10(escala));
        v.valor = vb::Variant(static_cast<double>(negativo ? -x : x));
        return true;
    }
    default:
        v.binario = true;
        v.bytes = QByteArray(d, n);
        v.valor = vb::Variant();
        return true;
    }
}

}  // namespace legado
