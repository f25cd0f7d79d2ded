#include "core/vb/Cadenas.h"

#include "core/vb/Error.h"

#include <QFile>

namespace vb {

namespace {

// Windows-1252 codes 0x80..0x9F; the five unassigned codes map to the control character of the same number.
constexpr char16_t Cp1252Alto[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

}  // namespace

QString Mid(const QString& s, int inicio, int largo) {
    if (inicio < 1 || largo < -1) ErrorArgumentoNoValido();
    if (inicio > s.size()) return QString();
    return largo == -1 ? s.mid(inicio - 1) : s.mid(inicio - 1, largo);
}

QString Left(const QString& s, int n) {
    if (n < 0) ErrorArgumentoNoValido();
    return s.left(n);
}

QString Right(const QString& s, int n) {
    if (n < 0) ErrorArgumentoNoValido();
    return s.right(n);
}

QString LTrim(const QString& s) {
    qsizetype i = 0;
    while (i < s.size() && s[i] == u' ') ++i;
    return s.mid(i);
}

QString RTrim(const QString& s) {
    qsizetype n = s.size();
    while (n > 0 && s[n - 1] == u' ') --n;
    return s.left(n);
}

QString Trim(const QString& s) { return LTrim(RTrim(s)); }

QString UCase(const QString& s) { return s.toUpper(); }
QString LCase(const QString& s) { return s.toLower(); }
int Len(const QString& s) { return static_cast<int>(s.size()); }

int InStr(int inicio, const QString& s, const QString& busca, bool sinMayusculas) {
    if (inicio < 1) ErrorArgumentoNoValido();
    if (s.isEmpty() || inicio > s.size()) return 0;
    if (busca.isEmpty()) return inicio;
    const qsizetype p = s.indexOf(busca, inicio - 1, sinMayusculas ? Qt::CaseInsensitive : Qt::CaseSensitive);
    return p < 0 ? 0 : static_cast<int>(p) + 1;
}

QString Replace(const QString& s, const QString& busca, const QString& por) {
    if (busca.isEmpty()) return s;
    QString r = s;
    return r.replace(busca, por, Qt::CaseSensitive);
}

QString Space(int n) {
    if (n < 0) ErrorArgumentoNoValido();
    return QString(n, u' ');
}

QString String(int n, QChar c) {
    if (n < 0) ErrorArgumentoNoValido();
    return QString(n, c);
}

QString Chr(int codigo) {
    if (codigo < 0 || codigo > 255) ErrorArgumentoNoValido();
    if (codigo >= 0x80 && codigo < 0xA0) return QString(QChar(Cp1252Alto[codigo - 0x80]));
    return QString(QChar(static_cast<char16_t>(codigo)));
}

int Asc(const QString& s) {
    if (s.isEmpty()) ErrorArgumentoNoValido();
    const char16_t c = s[0].unicode();
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return c;
    for (int k = 0; k < 32; ++k)
        if (Cp1252Alto[k] == c) return 0x80 + k;
    return u'?';   // not in the code page: the runtime's substitute
}

QByteArray Windows1252(const QString& texto) {
    QByteArray r;
    r.reserve(texto.size());
    for (const QChar c : texto) r.append(static_cast<char>(Asc(QString(c))));
    return r;
}

void PrintArchivo(const QString& ruta, const QString& texto) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        archivo.write(Windows1252(texto + QStringLiteral("\r\n"))) < 0 || !archivo.flush())
        throw Error(75, QStringLiteral("Error de acceso a la ruta o el archivo"));
}

}  // namespace vb
