// Values as the legacy format stores them, and the reader's stream taken apart: text in both generations'
// encodings, money and decimals exact, dates from the stored double, and a stream cut or bent anywhere
// ends in the engine's error, never in a crash or a value taken from beyond what arrived.
#include "texto_gtest.h"

#include "core/jet/ErroresMotor.h"
#include "core/legado/Legado.h"
#include "core/legado/Protocolo.h"
#include "core/vb/Currency.h"
#include "core/vb/Fecha.h"

#include <QtEndian>
#include <gtest/gtest.h>

namespace {

using legado::Formato;
namespace p = legado::protocolo;

legado::Columna ColumnaDe(int tipo, int tamano = 0, int precision = 0, int escala = 0, Formato f = Formato::Jet4) {
    legado::Columna c;
    c.nombre = QStringLiteral("c");
    c.tipoArchivo = tipo;
    c.tamano = tamano;
    c.precision = precision;
    c.escala = escala;
    legado::TipoDestino(c, f);
    return c;
}

legado::Valor Decodifica(const legado::Columna& c, const QByteArray& b, bool* bien = nullptr, Formato f = Formato::Jet4) {
    legado::Valor v;
    const bool r = legado::DecodificaValor(c, f, b.constData(), static_cast<int>(b.size()), v);
    if (bien) *bien = r;
    return v;
}

template <class T>
QByteArray Le(T v) {
    QByteArray b(sizeof v, '\0');
    qToLittleEndian(v, b.data());
    return b;
}

TEST(ValoresLegados, TextoEnLasCodificacionesDeAmbasGeneraciones) {
    // 1997: Windows-1252, where 0x80 is the euro and 0x9C "œ"; Latin-1 above 0xA0.
    EXPECT_EQ(legado::DecodificaTexto("\x80 a\xF1o \x9C\xE9", 8, Formato::Jet3), QStringLiteral("€ año œé"));
    // 2000 without compression: UCS-2, little-endian.
    const QByteArray ucs = QByteArray("J\0o\0s\0\xE9\0 \0\x3A\x04", 12);
    EXPECT_EQ(legado::DecodificaTexto(ucs.constData(), 12, Formato::Jet4), QStringLiteral("José к"));
    // Compressed: FF FE, one byte a character; a zero switches to two bytes and back.
    const QByteArray comprimido("\xFF\xFE" "Caf\xE9 \0\x3A\x04\x3B\x04\0!", 14);
    EXPECT_EQ(legado::DecodificaTexto(comprimido.constData(), 14, Formato::Jet4), QStringLiteral("Café кл!"));
    // Half a character at the end of a damaged value is dropped, not read past.
    const QByteArray cortado("\xFF\xFE" "a\0\x3A", 5);
    EXPECT_EQ(legado::DecodificaTexto(cortado.constData(), 5, Formato::Jet4), QStringLiteral("a"));
    EXPECT_EQ(legado::DecodificaTexto("a\0b", 3, Formato::Jet4), QStringLiteral("a"));

    // A Text column's size: characters, counted in bytes by the 2000 generation.
    EXPECT_EQ(ColumnaDe(p::Texto, 100).tamano, 50);
    EXPECT_EQ(ColumnaDe(p::Texto, 50, 0, 0, Formato::Jet3).tamano, 50);
    EXPECT_EQ(ColumnaDe(p::Texto, 100).tipo, jet::TipoCampo::Text);
    EXPECT_EQ(ColumnaDe(p::Memo).tipo, jet::TipoCampo::Memo);
}

TEST(ValoresLegados, DineroYDecimalesExactos) {
    // Money is its count of ten-thousandths, never a double on the way: -922337203685477.5808 too.
    const auto moneda = ColumnaDe(p::Moneda);
    EXPECT_EQ(moneda.tipo, jet::TipoCampo::Currency);
    EXPECT_EQ(Decodifica(moneda, Le<qint64>(123456789012345678)).valor.toCurrency().raw(), 123456789012345678);
    EXPECT_EQ(Decodifica(moneda, Le<qint64>(std::numeric_limits<qint64>::min())).valor.toCurrency().raw(),
              std::numeric_limits<qint64>::min());
    EXPECT_EQ(Decodifica(moneda, Le<qint64>(-15)).valor.toCurrency().toSql(), QStringLiteral("-0.0015"));

    // Numeric(p, s): sign byte, then four 32-bit words from the most significant, each little-endian.
    auto numerico = [](bool negativo, quint64 sinEscala) {
        QByteArray b(1, negativo ? '\x80' : '\0');
        b += Le<quint32>(0) + Le<quint32>(0) + Le<quint32>(static_cast<quint32>(sinEscala >> 32)) +
             Le<quint32>(static_cast<quint32>(sinEscala));
        return b;
    };
    const auto dosDecimales = ColumnaDe(p::Numerico, 17, 12, 2);
    EXPECT_EQ(dosDecimales.tipo, jet::TipoCampo::Currency);
    EXPECT_EQ(Decodifica(dosDecimales, numerico(true, 123456789012)).valor.toCurrency().toSql(), QStringLiteral("-1234567890.12"));
    // Too many places or digits for money: a double.
    const auto seisDecimales = ColumnaDe(p::Numerico, 17, 18, 6);
    EXPECT_EQ(seisDecimales.tipo, jet::TipoCampo::Double);
    EXPECT_DOUBLE_EQ(Decodifica(seisDecimales, numerico(false, 1500000)).valor.toDouble(), 1.5);
    // Digits beyond what its precision promised, in a damaged value: Null and the reading goes on.
    bool bien = true;
    const auto v = Decodifica(dosDecimales, numerico(false, 0xFFFFFFFFFFFFFFFFull), &bien);
    EXPECT_FALSE(bien);
    EXPECT_TRUE(v.valor.isNull());

    EXPECT_EQ(Decodifica(ColumnaDe(p::Entero), Le<qint16>(-2)).valor.toLong(), -2);
    EXPECT_EQ(Decodifica(ColumnaDe(p::Byte), QByteArray(1, '\xFF')).valor.toLong(), 255);
    EXPECT_TRUE(Decodifica(ColumnaDe(p::SiNo), QByteArray(1, '\1')).valor.toBool());
    EXPECT_FALSE(Decodifica(ColumnaDe(p::SiNo), QByteArray(1, '\0')).valor.toBool());
}

TEST(ValoresLegados, FechasDesdeElDobleAlmacenado) {
    const auto fecha = ColumnaDe(p::FechaHora);
    auto iso = [&](double serial, bool* bien = nullptr) {
        const auto v = Decodifica(fecha, Le<double>(serial), bien);
        return v.valor.isNull() ? QStringLiteral("NULL") : v.valor.toDate().toIso();
    };
    EXPECT_EQ(iso(44532.75), QStringLiteral("2021-12-02 18:00:00"));
    // Before the zero date the fraction is still the time of day.
    EXPECT_EQ(iso(-1.25), QStringLiteral("1899-12-29 06:00:00"));
    EXPECT_EQ(iso(2958465.999988426), QStringLiteral("9999-12-31 23:59:59"));
    bool bien = true;
    EXPECT_EQ(iso(2958466.5, &bien), QStringLiteral("NULL"));
    EXPECT_FALSE(bien);
    EXPECT_EQ(iso(std::numeric_limits<double>::quiet_NaN(), &bien), QStringLiteral("NULL"));

    const auto guid = Decodifica(ColumnaDe(p::Guid), QByteArray::fromHex("33221100554477668899aabbccddeeff"));
    EXPECT_EQ(guid.valor.toString(), QStringLiteral("{00112233-4455-6677-8899-AABBCCDDEEFF}"));
    const auto ole = Decodifica(ColumnaDe(p::Ole), QByteArray("\0\1\2", 3));
    EXPECT_TRUE(ole.binario);
    EXPECT_EQ(ole.bytes, QByteArray("\0\1\2", 3));
}

// A stream as the reader writes it.
class Flujo {
public:
    Flujo() {
        b_.append(p::Firma, 4);
        b_ += char(p::Version);
        b_ += char(1);
    }
    Flujo& u8(int v) { b_ += char(v); return *this; }
    Flujo& u16(int v) { b_ += Le<quint16>(static_cast<quint16>(v)); return *this; }
    Flujo& u32(quint32 v) { b_ += Le<quint32>(v); return *this; }
    Flujo& texto(const QByteArray& t) { u32(static_cast<quint32>(t.size())); b_ += t; return *this; }
    Flujo& valor(const QByteArray& v) { return texto(v); }
    Flujo& columna(const QByteArray& nombre, int tipo, int tamano) { return texto(nombre).u8(tipo).u16(tamano).u8(0).u8(0).u8(0); }
    const QByteArray& bytes() const { return b_; }

private:
    QByteArray b_;
};

struct Registro : legado::Receptor {
    QStringList lineas;
    void Tabla(const legado::Tabla& t, Formato) override {
        QStringList c;
        for (const auto& col : t.columnas) c << col.nombre + u':' + QString::number(static_cast<int>(col.tipo));
        lineas << t.nombre + u'(' + c.join(u',') + u')';
    }
    void Fila(const std::vector<legado::Valor>& v) override {
        QStringList c;
        for (const auto& x : v) c << (x.valor.isNull() ? QStringLiteral("NULL") : x.valor.text());
        lineas << c.join(u'|');
    }
    void FinTabla(const legado::Tabla&, qint64 filas) override { lineas << QStringLiteral("fin %1").arg(filas); }
    void Aviso(const QString& t) override { lineas << t; }
};

Flujo FlujoDeDosFilas() {
    Flujo f;
    f.u8(p::Tabla).texto("Libros").u32(2).u16(2).columna("Clave", p::EnteroLargo, 4).columna("Titulo", p::Texto, 100).u16(0);
    f.u8(p::Fila).valor(Le<qint32>(7)).valor(QByteArray("\xFF\xFE" "Ma\xF1" "ana", 8));
    f.u8(p::Fila).valor(Le<qint32>(8)).u32(p::Nulo);
    f.u8(p::FinTabla).u32(2).u8(p::Fin);
    return f;
}

TEST(FlujoDelLector, SeLeeEnTrozosDeCualquierTamano) {
    const QByteArray todo = FlujoDeDosFilas().bytes();
    const QStringList esperado{QStringLiteral("Libros(Clave:4,Titulo:10)"), QStringLiteral("7|Mañana"), QStringLiteral("8|NULL"),
                               QStringLiteral("fin 2")};
    for (int trozo : {1, 3, 7, 1000}) {
        Registro r;
        legado::Decodificador d(r, 1000);
        for (qsizetype i = 0; i < todo.size(); i += trozo) d.Agrega(todo.constData() + i, std::min<qsizetype>(trozo, todo.size() - i));
        d.Termina();
        EXPECT_EQ(r.lineas, esperado) << trozo;
    }
}

int ErrorDe(const QByteArray& flujo, qint64 limite = 1000) {
    Registro r;
    legado::Decodificador d(r, limite);
    try {
        d.Agrega(flujo.constData(), flujo.size());
        d.Termina();
    } catch (const vb::Error& e) {
        return e.Number();
    }
    return 0;
}

TEST(FlujoDelLector, UnFlujoCortadoOTorcidoEsElError3343) {
    const QByteArray todo = FlujoDeDosFilas().bytes();
    // A reader that died anywhere: every prefix short of the whole stream.
    for (qsizetype n = 0; n < todo.size(); ++n) EXPECT_EQ(ErrorDe(todo.left(n)), jet::ErrFormatoNoReconocido) << n;
    // Anything after the end.
    EXPECT_EQ(ErrorDe(todo + 'x'), jet::ErrFormatoNoReconocido);
    // A value longer than the file it came from, a Long of three bytes, a row count that disagrees.
    Flujo largo;
    largo.u8(p::Tabla).texto("T").u32(0).u16(1).columna("M", p::Memo, 0).u16(0).u8(p::Fila).u32(5000);
    EXPECT_EQ(ErrorDe(largo.bytes()), jet::ErrFormatoNoReconocido);
    Flujo corto;
    corto.u8(p::Tabla).texto("T").u32(0).u16(1).columna("L", p::EnteroLargo, 4).u16(0).u8(p::Fila).valor("abc");
    EXPECT_EQ(ErrorDe(corto.bytes()), jet::ErrFormatoNoReconocido);
    Flujo cuenta;
    cuenta.u8(p::Tabla).texto("T").u32(0).u16(1).columna("L", p::EnteroLargo, 4).u16(0).u8(p::FinTabla).u32(3).u8(p::Fin);
    EXPECT_EQ(ErrorDe(cuenta.bytes()), jet::ErrFormatoNoReconocido);
    // An index over a column the table doesn't have.
    Flujo indice;
    indice.u8(p::Tabla).texto("T").u32(0).u16(1).columna("L", p::EnteroLargo, 4).u16(1).texto("I").u8(1).u8(1).u8(1).u16(4).u8(0);
    EXPECT_EQ(ErrorDe(indice.bytes()), jet::ErrFormatoNoReconocido);
    // The reader's own word on a damage it saw.
    Flujo dano;
    dano.u8(p::Error).texto("no se pudo leer el catálogo de tablas");
    Registro r;
    legado::Decodificador d(r, 1000);
    d.Agrega(dano.bytes().constData(), dano.bytes().size());
    EXPECT_EQ(d.ErrorDelLector(), QStringLiteral("no se pudo leer el catálogo de tablas"));
}

}  // namespace
