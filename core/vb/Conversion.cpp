#include "core/vb/Conversion.h"

#include "core/vb/Error.h"

#include <QStringList>
#include <cmath>
#include <limits>
#include <vector>

namespace vb {

namespace {

bool EsDigito(QChar c) { return c >= u'0' && c <= u'9'; }
bool EsDigitoHex(QChar c) { return EsDigito(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F'); }
bool EsBlanco(QChar c) { return c == u' ' || c == u'\t'; }

// "&H..." and "&O..." (or "&" and octal digits): 16-bit when the value fits in four hex digits (or
// 0..177777 octal), 32-bit otherwise, both as signed complements, as the runtime reads them.
std::optional<double> LeeBase(const QString& s, qsizetype& i, bool exigeTodo) {
    if (i >= s.size() || s[i] != u'&') return std::nullopt;
    qsizetype j = i + 1;
    int base = 8;
    if (j < s.size() && (s[j] == u'h' || s[j] == u'H')) {
        base = 16;
        ++j;
    } else if (j < s.size() && (s[j] == u'o' || s[j] == u'O')) {
        ++j;
    }
    quint64 valor = 0;
    qsizetype inicio = j;
    while (j < s.size() && (base == 16 ? EsDigitoHex(s[j]) : (s[j] >= u'0' && s[j] <= u'7'))) {
        valor = valor * base + static_cast<quint64>(QString(s[j]).toInt(nullptr, 16));
        if (valor > 0xFFFFFFFFULL) ErrorDesbordamiento();
        ++j;
    }
    if (j == inicio || (exigeTodo && j != s.size())) return std::nullopt;
    i = j;
    if (valor <= 0xFFFF) return static_cast<double>(static_cast<qint16>(static_cast<quint16>(valor)));
    return static_cast<double>(static_cast<qint32>(static_cast<quint32>(valor)));
}

// --- dates -------------------------------------------------------------------------------------------

struct Pieza {
    enum Tipo { Numero, Palabra, DosPuntos } tipo;
    QString texto;
};

int MesPorNombre(const QString& p) {
    static const char16_t* const largos[] = {u"enero", u"febrero", u"marzo", u"abril", u"mayo", u"junio", u"julio",
                                             u"agosto", u"septiembre", u"octubre", u"noviembre", u"diciembre"};
    static const char16_t* const cortos[] = {u"ene", u"feb", u"mar", u"abr", u"may", u"jun",
                                             u"jul", u"ago", u"sep", u"oct", u"nov", u"dic"};
    for (int m = 0; m < 12; ++m)
        if (p == QStringView(largos[m]) || p == QStringView(cortos[m])) return m + 1;
    if (p == u"sept" || p == u"set" || p == u"setiembre") return 9;
    return 0;
}

bool EsDiaDeSemana(const QString& p) {
    static const char16_t* const nombres[] = {u"domingo", u"lunes", u"martes", u"miércoles", u"miercoles", u"jueves",
                                              u"viernes", u"sábado", u"sabado", u"dom", u"lun", u"mar", u"mié",
                                              u"mie", u"jue", u"vie", u"sáb", u"sab"};
    for (const auto* n : nombres)
        if (p == QStringView(n)) return true;
    return false;
}

int AnioConVentana(const QString& texto) {
    const int a = texto.toInt();
    if (texto.size() > 2) return a;
    return a < 30 ? 2000 + a : 1900 + a;
}

bool Partir(const QString& texto, std::vector<Pieza>& piezas) {
    const QString s = texto.trimmed().toLower();
    qsizetype i = 0;
    while (i < s.size()) {
        const QChar c = s[i];
        if (EsDigito(c)) {
            qsizetype j = i;
            while (j < s.size() && EsDigito(s[j])) ++j;
            piezas.push_back({Pieza::Numero, s.mid(i, j - i)});
            i = j;
        } else if (c.isLetter()) {
            qsizetype j = i;
            while (j < s.size() && s[j].isLetter()) ++j;
            piezas.push_back({Pieza::Palabra, s.mid(i, j - i)});
            i = j;
        } else if (c == u':') {
            piezas.push_back({Pieza::DosPuntos, QString()});
            ++i;
        } else if (c == u'/' || c == u'-' || c == u'.' || c == u',' || c.isSpace()) {
            ++i;
        } else {
            return false;
        }
    }
    return true;
}

}  // namespace

std::optional<Fecha> LeeFecha(const QString& texto) {
    std::vector<Pieza> piezas;
    if (!Partir(texto, piezas) || piezas.empty()) return std::nullopt;

    // The time of day: h:n or h:n:s, once, anywhere in the text.
    std::optional<QTime> hora;
    for (size_t k = 0; k < piezas.size();) {
        if (piezas[k].tipo != Pieza::DosPuntos) {
            ++k;
            continue;
        }
        auto esNumero = [&](size_t j) { return j < piezas.size() && piezas[j].tipo == Pieza::Numero; };
        if (hora || k == 0 || !esNumero(k - 1) || !esNumero(k + 1)) return std::nullopt;
        size_t fin = k + 2;
        QString seg = QStringLiteral("0");
        if (fin < piezas.size() && piezas[fin].tipo == Pieza::DosPuntos) {
            if (!esNumero(fin + 1)) return std::nullopt;
            seg = piezas[fin + 1].texto;
            fin += 2;
        }
        const QString& h = piezas[k - 1].texto;
        const QString& n = piezas[k + 1].texto;
        if (h.size() > 2 || n.size() > 2 || seg.size() > 2) return std::nullopt;
        hora = QTime(h.toInt(), n.toInt(), seg.toInt());
        if (!hora->isValid()) return std::nullopt;
        piezas.erase(piezas.begin() + static_cast<long>(k - 1), piezas.begin() + static_cast<long>(fin));
        k = k - 1;
    }

    // Words: a.m./p.m., month names, weekday names and "de" as in the long date.
    int mesNombrado = 0;
    int meridiano = 0;   // 1 a.m., 2 p.m.
    std::vector<QString> numeros;
    for (size_t k = 0; k < piezas.size(); ++k) {
        const Pieza& p = piezas[k];
        if (p.tipo == Pieza::Numero) {
            if (p.texto.size() > 4) return std::nullopt;
            numeros.push_back(p.texto);
            continue;
        }
        const QString& w = p.texto;
        if (w == u"am" || w == u"pm") {
            meridiano = w == u"am" ? 1 : 2;
        } else if ((w == u"a" || w == u"p") && k + 1 < piezas.size() && piezas[k + 1].texto == u"m") {
            meridiano = w == u"a" ? 1 : 2;
            ++k;
        } else if (const int m = MesPorNombre(w); m != 0 && mesNombrado == 0) {
            mesNombrado = m;   // before the weekdays: "mar" is March
        } else if (w == u"de" || EsDiaDeSemana(w)) {
            // ignored, as in "viernes, 5 de enero de 2024"
        } else {
            return std::nullopt;
        }
    }
    if (meridiano != 0) {
        if (!hora || hora->hour() > 12) return std::nullopt;
        int h = hora->hour() % 12 + (meridiano == 2 ? 12 : 0);
        hora = QTime(h, hora->minute(), hora->second());
    }

    auto valor = [](const QString& t) { return t.toInt(); };
    auto pareceAnio = [&](const QString& t) { return t.size() >= 3 || valor(t) > 31; };
    int anio = 0, mes = 0, dia = 0;
    QString textoAnio;
    const int anioActual = QDate::currentDate().year();
    if (mesNombrado != 0) {
        mes = mesNombrado;
        if (numeros.size() == 2) {
            const bool primeroEsAnio = pareceAnio(numeros[0]);
            textoAnio = primeroEsAnio ? numeros[0] : numeros[1];
            dia = valor(primeroEsAnio ? numeros[1] : numeros[0]);
        } else if (numeros.size() == 1) {
            if (pareceAnio(numeros[0])) {
                textoAnio = numeros[0];
                dia = 1;
            } else {
                dia = valor(numeros[0]);
            }
        } else {
            return std::nullopt;
        }
    } else if (numeros.size() == 3) {
        if (pareceAnio(numeros[0])) {
            textoAnio = numeros[0];
            mes = valor(numeros[1]);
            dia = valor(numeros[2]);
        } else {
            dia = valor(numeros[0]);
            mes = valor(numeros[1]);
            textoAnio = numeros[2];
        }
    } else if (numeros.size() == 2) {
        if (pareceAnio(numeros[0])) {
            textoAnio = numeros[0];
            mes = valor(numeros[1]);
            dia = 1;
        } else if (pareceAnio(numeros[1])) {
            mes = valor(numeros[0]);
            textoAnio = numeros[1];
            dia = 1;
        } else {
            dia = valor(numeros[0]);
            mes = valor(numeros[1]);
        }
    } else if (numeros.empty() && hora) {
        return Fecha(QDate(1899, 12, 30), *hora);
    } else {
        return std::nullopt;
    }
    anio = textoAnio.isEmpty() ? anioActual : AnioConVentana(textoAnio);
    // Day first; a second number above 12 with a first at most 12 falls back to month first.
    if (mesNombrado == 0 && mes > 12 && dia <= 12) std::swap(dia, mes);
    const QDate d(anio, mes, dia);
    if (!d.isValid() || anio < 100 || anio > 9999) return std::nullopt;
    return Fecha(d, hora.value_or(QTime(0, 0)));
}

bool IsDate(const Variant& v) {
    if (v.type() == VarType::Date) return true;
    if (v.type() == VarType::String) return LeeFecha(v.toString()).has_value();
    return false;
}

Fecha CDate(const Variant& v) { return v.toDate(); }

double Val(const QString& texto) {
    QString s;
    s.reserve(texto.size());
    for (QChar c : texto)
        if (c != u' ' && c != u'\t' && c != u'\n' && c != u'\r') s += c;
    qsizetype i = 0;
    if (i < s.size() && s[i] == u'&') {
        const auto v = LeeBase(s, i, false);
        return v.value_or(0.0);
    }
    QString numero;
    if (i < s.size() && (s[i] == u'+' || s[i] == u'-')) numero += s[i++];
    bool hayDigito = false;
    while (i < s.size() && EsDigito(s[i])) {
        numero += s[i++];
        hayDigito = true;
    }
    if (i < s.size() && s[i] == u'.') {
        numero += s[i++];
        while (i < s.size() && EsDigito(s[i])) {
            numero += s[i++];
            hayDigito = true;
        }
    }
    if (!hayDigito) return 0.0;
    if (i < s.size() && (s[i] == u'e' || s[i] == u'E' || s[i] == u'd' || s[i] == u'D')) {
        qsizetype j = i + 1;
        QString exponente = QStringLiteral("e");
        if (j < s.size() && (s[j] == u'+' || s[j] == u'-')) exponente += s[j++];
        if (j < s.size() && EsDigito(s[j])) {
            while (j < s.size() && EsDigito(s[j])) exponente += s[j++];
            numero += exponente;
        }
    }
    const double r = numero.toDouble();
    if (!std::isfinite(r)) ErrorDesbordamiento();
    return r;
}

std::optional<double> LeeNumero(const QString& texto) {
    const QString s = texto.trimmed();
    if (s.isEmpty()) return std::nullopt;
    qsizetype i = 0;
    if (s[0] == u'&') return LeeBase(s, i, true);
    const qsizetype n = s.size();
    QString limpio;
    bool haySigno = false, hayPeso = false;
    for (int vuelta = 0; vuelta < 2 && i < n; ++vuelta) {
        if (!haySigno && (s[i] == u'-' || s[i] == u'+')) {
            haySigno = true;
            if (s[i] == u'-') limpio += u'-';
            ++i;
        } else if (!hayPeso && s[i] == u'$') {
            hayPeso = true;
            ++i;
        } else {
            break;
        }
        while (i < n && EsBlanco(s[i])) ++i;
    }
    bool hayDigito = false;
    while (i < n && (EsDigito(s[i]) || (s[i] == u',' && hayDigito))) {
        if (s[i] != u',') {
            limpio += s[i];
            hayDigito = true;
        }
        ++i;
    }
    if (i < n && s[i] == u'.') {
        limpio += s[i++];
        while (i < n && EsDigito(s[i])) {
            limpio += s[i++];
            hayDigito = true;
        }
    }
    if (!hayDigito) return std::nullopt;
    if (i < n && (s[i] == u'e' || s[i] == u'E')) {
        limpio += u'e';
        ++i;
        if (i < n && (s[i] == u'+' || s[i] == u'-')) limpio += s[i++];
        if (i >= n || !EsDigito(s[i])) return std::nullopt;
        while (i < n && EsDigito(s[i])) limpio += s[i++];
    }
    if (i != n) return std::nullopt;
    bool ok = false;
    const double r = limpio.toDouble(&ok);
    if (!ok || !std::isfinite(r)) return std::nullopt;
    return r;
}

bool IsNumeric(const Variant& v) {
    switch (v.type()) {
    case VarType::Null:
    case VarType::Date:
        return false;
    case VarType::String:
        return LeeNumero(v.toString()).has_value();
    default:
        return true;
    }
}

double Round(double valor, int decimales) {
    if (decimales < 0) ErrorArgumentoNoValido();
    if (!std::isfinite(valor) || valor == 0) return valor;
    // Work on the shortest decimal form of 15 significant digits, then round half to even.
    const QString e = QString::number(std::fabs(valor), 'e', 14);   // d.dddddddddddddde±XX
    const int exponente = e.mid(e.indexOf(u'e') + 1).toInt();
    const QString digitos = e.left(1) + e.mid(2, 14);
    // Number of digits kept: those before the point plus the decimals asked for.
    const int guarda = exponente + 1 + decimales;
    if (guarda >= 15) return valor;
    if (guarda < 0) return 0.0 * valor;
    const QString resto = digitos.mid(guarda);
    QString kept = digitos.left(guarda);
    bool sube = resto[0] > u'5';
    if (resto[0] == u'5') {
        bool masDeMedio = false;
        for (qsizetype k = 1; k < resto.size(); ++k) masDeMedio = masDeMedio || resto[k] != u'0';
        const int ultimo = kept.isEmpty() ? 0 : kept.back().digitValue();
        sube = masDeMedio || (ultimo % 2) != 0;
    }
    if (kept.isEmpty()) kept = QStringLiteral("0");
    if (sube) {
        qsizetype k = kept.size() - 1;
        while (k >= 0 && kept[k] == u'9') kept[k--] = u'0';
        if (k < 0) kept.prepend(u'1');
        else kept[k] = QChar(kept[k].unicode() + 1);
    }
    const double r = (kept + u'e' + QString::number(exponente - guarda + 1)).toDouble();
    return valor < 0 ? -r : r;
}

Currency Round(Currency valor, int decimales) {
    if (decimales < 0) ErrorArgumentoNoValido();
    if (decimales >= 4) return valor;
    qint64 paso = 1;
    for (int k = decimales; k < 4; ++k) paso *= 10;
    const qint64 r = valor.raw();
    qint64 q = r / paso;
    const qint64 resto = r % paso;
    const qint64 doble = 2 * (resto < 0 ? -resto : resto);
    if (doble > paso || (doble == paso && q % 2 != 0)) q += r < 0 ? -1 : 1;
    return Currency::fromRaw(q) * paso;
}

QString Hex(qint64 valor) {
    if (valor < 0 && valor >= std::numeric_limits<qint32>::min())
        return QString::number(static_cast<quint32>(static_cast<qint32>(valor)), 16).toUpper();
    return QString::number(static_cast<quint64>(valor), 16).toUpper();
}

}  // namespace vb
