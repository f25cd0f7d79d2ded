#include "core/vb/Formato.h"

#include "core/vb/Conversion.h"
#include "core/vb/Error.h"

#include <QStringList>
#include <cmath>
#include <vector>

namespace vb {

namespace {

constexpr const char16_t* Meses[12] = {u"enero", u"febrero", u"marzo",     u"abril",   u"mayo",      u"junio",
                                       u"julio", u"agosto",  u"septiembre", u"octubre", u"noviembre", u"diciembre"};
constexpr const char16_t* MesesCortos[12] = {u"ene", u"feb", u"mar", u"abr", u"may", u"jun",
                                             u"jul", u"ago", u"sep", u"oct", u"nov", u"dic"};
constexpr const char16_t* Dias[7] = {u"domingo", u"lunes", u"martes", u"miércoles", u"jueves", u"viernes", u"sábado"};
constexpr const char16_t* DiasCortos[7] = {u"dom", u"lun", u"mar", u"mié", u"jue", u"vie", u"sáb"};

QString DosCifras(int n) { return QStringLiteral("%1").arg(n, 2, 10, QChar(u'0')); }

// Splits a mask at the characters in `cortes` that stand outside quotes and escapes.
QStringList Secciones(const QString& mascara) {
    QStringList r;
    QString actual;
    bool enComillas = false;
    for (qsizetype i = 0; i < mascara.size(); ++i) {
        const QChar c = mascara[i];
        if (c == u'"') enComillas = !enComillas;
        if (!enComillas && c == u'\\' && i + 1 < mascara.size()) {
            actual += c;
            actual += mascara[++i];
            continue;
        }
        if (!enComillas && c == u';') {
            r << actual;
            actual.clear();
            continue;
        }
        actual += c;
    }
    r << actual;
    return r;
}

// A mask is a date mask when it holds, outside quotes and escapes, a letter that stands for a part of a date.
bool EsMascaraDeFecha(const QString& mascara) {
    bool enComillas = false;
    for (qsizetype i = 0; i < mascara.size(); ++i) {
        const QChar c = mascara[i].toLower();
        if (c == u'"') enComillas = !enComillas;
        else if (enComillas) continue;
        else if (c == u'\\') ++i;
        else if (QStringView(u"dmyhnswqc").contains(c)) return true;
        else if (c == u't' && mascara.mid(i, 5).compare(u"ttttt", Qt::CaseInsensitive) == 0) return true;
    }
    return false;
}

// ---------------------------------------------------------------------------------------------------------
// Dates

QString FechaCorta(const Fecha& f) { return f.date().toString(QStringLiteral("dd/MM/yyyy")); }
QString HoraLarga(const Fecha& f) { return f.time().toString(QStringLiteral("HH:mm:ss")); }
QString FechaLarga(const Fecha& f) {
    return QStringLiteral("%1, %2 de %3 de %4")
        .arg(QStringView(Dias[f.date().dayOfWeek() % 7]))
        .arg(f.date().day())
        .arg(QStringView(Meses[f.date().month() - 1]))
        .arg(f.date().year());
}
QString FechaGeneral(const Fecha& f) { return Variant(f).toString(); }

int Corrida(const QString& m, qsizetype i, QChar letra) {
    int n = 0;
    while (i + n < m.size() && m[i + n].toLower() == letra) ++n;
    return n;
}

QString FormatoFecha(const Fecha& f, const QString& mascara) {
    const QDate d = f.date();
    const QTime t = f.time();
    // a.m./p.m. markers turn the hours to the 12-hour clock
    bool doceHoras = false;
    {
        const QString baja = mascara.toLower();
        doceHoras = baja.contains(u"am/pm") || baja.contains(u"a/p") || baja.contains(u"ampm");
    }
    QString r;
    bool ultimoFueHora = false;   // an "m" right after an hour (separators aside) is minutes
    for (qsizetype i = 0; i < mascara.size();) {
        const QChar c = mascara[i];
        const QChar lc = c.toLower();
        if (c == u'"') {
            const qsizetype fin = mascara.indexOf(u'"', i + 1);
            r += mascara.mid(i + 1, (fin < 0 ? mascara.size() : fin) - i - 1);
            i = fin < 0 ? mascara.size() : fin + 1;
            continue;
        }
        if (c == u'\\') {
            if (i + 1 < mascara.size()) r += mascara[i + 1];
            i += 2;
            continue;
        }
        if (lc == u'a') {
            const bool tarde = t.hour() >= 12;
            if (mascara.mid(i, 5).compare(u"am/pm", Qt::CaseInsensitive) == 0) {
                const QString s = tarde ? QStringLiteral("PM") : QStringLiteral("AM");
                r += c.isUpper() ? s : s.toLower();
                i += 5;
                continue;
            }
            if (mascara.mid(i, 3).compare(u"a/p", Qt::CaseInsensitive) == 0) {
                const QString s = tarde ? QStringLiteral("P") : QStringLiteral("A");
                r += c.isUpper() ? s : s.toLower();
                i += 3;
                continue;
            }
            if (mascara.mid(i, 4).compare(u"ampm", Qt::CaseInsensitive) == 0) {
                r += tarde ? QStringLiteral("p.m.") : QStringLiteral("a.m.");
                i += 4;
                continue;
            }
        }
        int n = 0;
        bool esHora = false;
        switch (lc.unicode()) {
        case u'd':
            n = std::min(Corrida(mascara, i, lc), 6);
            switch (n) {
            case 1: r += QString::number(d.day()); break;
            case 2: r += DosCifras(d.day()); break;
            case 3: r += QStringView(DiasCortos[d.dayOfWeek() % 7]); break;
            case 4: r += QStringView(Dias[d.dayOfWeek() % 7]); break;
            case 5: r += FechaCorta(f); break;
            default: r += FechaLarga(f); break;
            }
            break;
        case u'm':
            n = std::min(Corrida(mascara, i, lc), 4);
            if (n <= 2 && ultimoFueHora) r += n == 1 ? QString::number(t.minute()) : DosCifras(t.minute());
            else if (n == 1) r += QString::number(d.month());
            else if (n == 2) r += DosCifras(d.month());
            else if (n == 3) r += QStringView(MesesCortos[d.month() - 1]);
            else r += QStringView(Meses[d.month() - 1]);
            break;
        case u'y':
            n = Corrida(mascara, i, lc);
            n = n >= 4 ? 4 : (n >= 2 ? 2 : 1);
            if (n == 4) r += QStringLiteral("%1").arg(d.year(), 4, 10, QChar(u'0'));
            else if (n == 2) r += DosCifras(d.year() % 100);
            else r += QString::number(d.dayOfYear());
            break;
        case u'h': {
            n = std::min(Corrida(mascara, i, lc), 2);
            int h = t.hour();
            if (doceHoras) h = h % 12 == 0 ? 12 : h % 12;
            r += n == 1 ? QString::number(h) : DosCifras(h);
            esHora = true;
            break;
        }
        case u'n':
            n = std::min(Corrida(mascara, i, lc), 2);
            r += n == 1 ? QString::number(t.minute()) : DosCifras(t.minute());
            break;
        case u's':
            n = std::min(Corrida(mascara, i, lc), 2);
            r += n == 1 ? QString::number(t.second()) : DosCifras(t.second());
            break;
        case u'w':
            n = std::min(Corrida(mascara, i, lc), 2);
            if (n == 1) {
                r += QString::number(Weekday(f));
            } else {
                // Week of the year: weeks begin on Sunday and the week of 1 January is the first.
                const int primerDia = Weekday(Fecha(QDate(d.year(), 1, 1)));
                r += QString::number((d.dayOfYear() - 1 + primerDia - 1) / 7 + 1);
            }
            break;
        case u'q':
            n = 1;
            r += QString::number((d.month() - 1) / 3 + 1);
            break;
        case u'c':
            n = 1;
            r += FechaGeneral(f);
            break;
        case u't':
            if (mascara.mid(i, 5).compare(u"ttttt", Qt::CaseInsensitive) == 0) {
                n = 5;
                r += HoraLarga(f);
            }
            break;
        default:
            break;
        }
        if (n == 0) {
            r += c;   // a separator or any other literal
            ++i;
            continue;
        }
        ultimoFueHora = esHora;
        i += n;
    }
    return r;
}

// ---------------------------------------------------------------------------------------------------------
// Numbers, as exact decimal digits so that rounding works on what is shown.

struct Decimal {
    bool negativo = false;
    QString entero;     // no leading zeros; empty for a zero integer part
    QString fraccion;   // digits after the point

    bool esCero() const {
        for (QChar c : entero + fraccion)
            if (c != u'0') return false;
        return true;
    }
    void normaliza() {
        qsizetype k = 0;
        while (k < entero.size() && entero[k] == u'0') ++k;
        entero.remove(0, k);
    }
    // Multiplies by 10^lugares.
    void corre(int lugares) {
        if (lugares > 0) {
            if (fraccion.size() < lugares) fraccion += QString(lugares - fraccion.size(), u'0');
            entero += fraccion.left(lugares);
            fraccion.remove(0, lugares);
        } else if (lugares < 0) {
            const int n = -lugares;
            if (entero.size() < n) entero.prepend(QString(n - entero.size(), u'0'));
            fraccion.prepend(entero.right(n));
            entero.chop(n);
        }
        normaliza();
    }
    // Keeps `decimales` digits after the point, rounding half away from zero.
    void redondea(int decimales) {
        if (fraccion.size() <= decimales) {
            fraccion += QString(decimales - fraccion.size(), u'0');
            return;
        }
        const bool sube = fraccion[decimales] >= u'5';
        fraccion.truncate(decimales);
        if (!sube) return;
        QString todo = entero + fraccion;
        qsizetype k = todo.size() - 1;
        while (k >= 0 && todo[k] == u'9') todo[k--] = u'0';
        if (k < 0) todo.prepend(u'1');
        else todo[k] = QChar(todo[k].unicode() + 1);
        entero = todo.left(todo.size() - decimales);
        fraccion = todo.right(decimales);
        normaliza();
    }
};

Decimal DecimalDeTextoPlano(const QString& s) {
    Decimal d;
    QString t = s;
    if (t.startsWith(u'-')) {
        d.negativo = true;
        t.remove(0, 1);
    }
    const qsizetype p = t.indexOf(u'.');
    d.entero = p < 0 ? t : t.left(p);
    d.fraccion = p < 0 ? QString() : t.mid(p + 1);
    d.normaliza();
    return d;
}

Decimal DecimalDeDoble(double v, int precision) {
    Decimal d;
    if (v == 0 || !std::isfinite(v)) return d;
    d.negativo = v < 0;
    const QString e = QString::number(std::fabs(v), 'e', precision - 1);
    const qsizetype pe = e.indexOf(u'e');
    const int exponente = e.mid(pe + 1).toInt();
    const QString digitos = e.left(1) + e.mid(2, pe - 2);
    d.entero = digitos.left(1);
    d.fraccion = digitos.mid(1);
    d.corre(exponente);
    return d;
}

struct Elemento {
    bool esDigito = false;
    QChar digito;      // '0' or '#'
    QString literal;
};

struct SeccionNumero {
    std::vector<Elemento> enteros;
    std::vector<Elemento> decimales;
    bool hayPunto = false;
    bool agrupa = false;
    bool porcentaje = false;
    int miles = 0;      // each comma after the last integer digit divides by 1000
};

SeccionNumero LeeSeccion(const QString& m) {
    SeccionNumero s;
    auto parte = [&]() -> std::vector<Elemento>& { return s.hayPunto ? s.decimales : s.enteros; };
    auto literal = [&](const QString& texto) {
        auto& p = parte();
        if (!p.empty() && !p.back().esDigito) p.back().literal += texto;
        else p.push_back({false, QChar(), texto});
    };
    auto hayDigitoEntero = [&] {
        for (const auto& e : s.enteros)
            if (e.esDigito) return true;
        return false;
    };
    for (qsizetype i = 0; i < m.size(); ++i) {
        const QChar c = m[i];
        if (c == u'"') {
            const qsizetype fin = m.indexOf(u'"', i + 1);
            literal(m.mid(i + 1, (fin < 0 ? m.size() : fin) - i - 1));
            i = fin < 0 ? m.size() : fin;
        } else if (c == u'\\') {
            if (i + 1 < m.size()) literal(QString(m[++i]));
        } else if (c == u'0' || c == u'#') {
            parte().push_back({true, c, QString()});
        } else if (c == u'.' && !s.hayPunto) {
            s.hayPunto = true;
        } else if (c == u',' && !s.hayPunto) {
            qsizetype j = i;
            while (j < m.size() && m[j] == u',') ++j;
            const bool siguenDigitos = j < m.size() && (m[j] == u'0' || m[j] == u'#');
            if (siguenDigitos) s.agrupa = true;
            else if (hayDigitoEntero()) s.miles += static_cast<int>(j - i);
            else literal(m.mid(i, j - i));
            i = j - 1;
        } else if (c == u',') {
            // a comma among the decimals shows nothing
        } else if (c == u'%') {
            s.porcentaje = true;
            literal(QStringLiteral("%"));
        } else {
            literal(QString(c));
        }
    }
    return s;
}

QString Agrupa(const QString& digitos) {
    QString r;
    const qsizetype n = digitos.size();
    for (qsizetype k = 0; k < n; ++k) {
        if (k > 0 && (n - k) % 3 == 0) r += u',';
        r += digitos[k];
    }
    return r;
}

QString FormatoNumero(Decimal d, const QString& mascara) {
    const QStringList secciones = Secciones(mascara);
    const bool cero = d.esCero();
    QString seccion = secciones[0];
    bool ponSigno = d.negativo;
    if (d.negativo && secciones.size() >= 2 && !secciones[1].isEmpty()) {
        seccion = secciones[1];
        ponSigno = false;
    } else if (cero && secciones.size() >= 3 && !secciones[2].isEmpty()) {
        seccion = secciones[2];
    }
    const SeccionNumero s = LeeSeccion(seccion);

    if (s.porcentaje) d.corre(2);
    if (s.miles > 0) d.corre(-3 * s.miles);
    int nDec = 0, minDec = 0;
    for (const auto& e : s.decimales) {
        if (!e.esDigito) continue;
        ++nDec;
        if (e.digito == u'0') minDec = nDec;
    }
    d.redondea(nDec);
    QString fraccion = d.fraccion;
    while (fraccion.size() > minDec && fraccion.endsWith(u'0')) fraccion.chop(1);

    // From the first "0" on, every integer placeholder shows a digit.
    int nEnt = 0, primerCero = 0;
    for (const auto& e : s.enteros) {
        if (!e.esDigito) continue;
        ++nEnt;
        if (e.digito == u'0' && primerCero == 0) primerCero = nEnt;
    }
    const int minEnt = primerCero == 0 ? 0 : nEnt - primerCero + 1;
    QString entero = d.entero;
    if (entero.size() < minEnt) entero.prepend(QString(minEnt - entero.size(), u'0'));
    if (s.agrupa) entero = Agrupa(entero);

    // Integer digits fill the placeholders from the right; the leftmost takes whatever is left over.
    QString izquierda;
    if (nEnt == 0) {
        for (const auto& e : s.enteros) izquierda += e.literal;
        izquierda += entero;
    } else {
        qsizetype quedan = entero.size();
        int vistos = 0;
        for (auto it = s.enteros.rbegin(); it != s.enteros.rend(); ++it) {
            if (!it->esDigito) {
                izquierda.prepend(it->literal);
                continue;
            }
            ++vistos;
            if (vistos == nEnt) {
                izquierda.prepend(entero.left(quedan));
                quedan = 0;
            } else if (quedan > 0) {
                qsizetype toma = 1;
                if (entero[quedan - 1] == u',' && quedan > 1) toma = 2;
                izquierda.prepend(entero.mid(quedan - toma, toma));
                quedan -= toma;
            }
        }
    }
    QString derecha;
    qsizetype k = 0;
    for (const auto& e : s.decimales) {
        if (!e.esDigito) derecha += e.literal;
        else if (k < fraccion.size()) derecha += fraccion[k++];
    }
    QString r = izquierda + (s.hayPunto ? QStringLiteral(".") : QString()) + derecha;
    return ponSigno ? u'-' + r : r;
}

std::optional<Decimal> DecimalDe(const Variant& v) {
    switch (v.type()) {
    case VarType::Empty:
        return Decimal();
    case VarType::Integer:
    case VarType::Long:
    case VarType::Byte:
    case VarType::Boolean:
        return DecimalDeTextoPlano(QString::number(v.toLong()));
    case VarType::Currency:
        return DecimalDeTextoPlano(v.toCurrency().toSql());
    case VarType::Single:
        return DecimalDeDoble(v.toDouble(), 7);
    case VarType::Double:
    case VarType::Date:
        return DecimalDeDoble(v.toDouble(), 15);
    case VarType::String: {
        const QString s = v.toString();
        if (const auto n = LeeNumero(s)) return DecimalDeDoble(*n, 15);
        if (const auto f = LeeFecha(s)) return DecimalDeDoble(f->toSerial(), 15);
        return std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

std::optional<Fecha> FechaDe(const Variant& v) {
    switch (v.type()) {
    case VarType::Empty:
    case VarType::Null:
        return std::nullopt;
    case VarType::Date:
        return v.toDate();
    case VarType::String: {
        const QString s = v.toString();
        if (const auto f = LeeFecha(s)) return f;
        if (const auto n = LeeNumero(s)) return Fecha::fromSerial(*n);
        return std::nullopt;
    }
    default:
        return Fecha::fromSerial(v.toDouble());
    }
}

// The named formats.
std::optional<QString> FormatoConNombre(const Variant& valor, const QString& nombre) {
    const QString n = nombre.trimmed().toLower();
    auto fecha = [&](auto&& hacer) -> std::optional<QString> {
        if (const auto f = FechaDe(valor)) return hacer(*f);
        return valor.text();
    };
    if (n == u"general date") return fecha([](const Fecha& f) { return FechaGeneral(f); });
    if (n == u"long date") return fecha([](const Fecha& f) { return FechaLarga(f); });
    if (n == u"medium date") return fecha([](const Fecha& f) { return FormatoFecha(f, QStringLiteral("dd-mmm-yy")); });
    if (n == u"short date") return fecha([](const Fecha& f) { return FechaCorta(f); });
    if (n == u"long time") return fecha([](const Fecha& f) { return HoraLarga(f); });
    if (n == u"medium time") return fecha([](const Fecha& f) { return FormatoFecha(f, QStringLiteral("hh:nn AMPM")); });
    if (n == u"short time") return fecha([](const Fecha& f) { return FormatoFecha(f, QStringLiteral("hh:nn")); });

    const char16_t* mascara = nullptr;
    if (n == u"currency") mascara = u"$#,##0.00";
    else if (n == u"fixed") mascara = u"0.00";
    else if (n == u"standard") mascara = u"#,##0.00";
    else if (n == u"percent") mascara = u"0.00%";
    if (mascara) {
        if (const auto d = DecimalDe(valor)) return FormatoNumero(*d, QString::fromUtf16(mascara));
        return valor.text();
    }
    const bool sinNumero = !DecimalDe(valor).has_value();
    auto siNo = [&](const char16_t* si, const char16_t* no) -> QString {
        if (sinNumero) return valor.text();
        return DecimalDe(valor)->esCero() ? QString::fromUtf16(no) : QString::fromUtf16(si);
    };
    if (n == u"general number") return sinNumero ? valor.text() : Variant(valor.toDouble()).toString();
    if (n == u"yes/no") return siNo(u"Sí", u"No");
    if (n == u"true/false") return siNo(u"Verdadero", u"Falso");
    if (n == u"on/off") return siNo(u"Activado", u"Desactivado");
    return std::nullopt;
}

}  // namespace

QString NombreMes(int mes) {
    if (mes < 1 || mes > 12) ErrorArgumentoNoValido();
    return QString::fromUtf16(Meses[mes - 1]);
}

QString AbreviaturaMes(int mes) {
    if (mes < 1 || mes > 12) ErrorArgumentoNoValido();
    return QString::fromUtf16(MesesCortos[mes - 1]);
}

QString Format(const Variant& valor) { return valor.text(); }

QString Format(const Variant& valor, const QString& mascara) {
    if (valor.isNull()) return QString();
    if (mascara.isEmpty()) return Format(valor);
    if (const auto r = FormatoConNombre(valor, mascara)) return *r;
    if (EsMascaraDeFecha(mascara)) {
        const auto f = FechaDe(valor);
        if (!f) return valor.text();
        return FormatoFecha(*f, mascara);
    }
    const auto d = DecimalDe(valor);
    if (!d) return valor.text();
    return FormatoNumero(*d, mascara);
}

}  // namespace vb
