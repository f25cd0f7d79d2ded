#include "core/jet/Lexer.h"

#include "core/jet/ErroresMotor.h"

#include <cstring>
#include <iterator>

namespace jet {

bool Token::esPalabra(const char* palabra) const {
    return clave != nullptr && std::strcmp(clave, palabra) == 0;
}

namespace {

struct Palabra {
    const char* texto;
    bool reservada;   // can't stand unbracketed where a name is expected
};

// The words of the dialect, in order for a binary search.
constexpr Palabra Palabras[] = {
    {"ADD", true}, {"ALL", true}, {"ALTER", true}, {"AND", true}, {"AS", true}, {"ASC", true},
    {"BETWEEN", true}, {"BY", true}, {"COLUMN", true}, {"CONSTRAINT", true}, {"CREATE", true},
    {"DEFAULT", false}, {"DELETE", true}, {"DESC", true}, {"DISALLOW", false}, {"DISTINCT", true},
    {"DISTINCTROW", true}, {"DROP", true}, {"EQV", true}, {"EXISTS", true}, {"FALSE", false}, {"FROM", true},
    {"GROUP", true}, {"HAVING", true}, {"IGNORE", false}, {"IMP", true}, {"IN", true}, {"INDEX", true},
    {"INNER", true}, {"INSERT", true}, {"INTO", true}, {"IS", true}, {"JOIN", true}, {"KEY", true},
    {"LEFT", true}, {"LIKE", true}, {"MOD", true}, {"NOT", true}, {"NULL", true}, {"ON", true}, {"OR", true},
    {"ORDER", true}, {"OUTER", true}, {"PERCENT", true}, {"PRECISION", false}, {"PRIMARY", true},
    {"RIGHT", true}, {"SELECT", true}, {"SET", true}, {"TABLE", true}, {"TOP", true}, {"TRUE", false},
    {"UNION", true}, {"UNIQUE", true}, {"UPDATE", true}, {"VALUES", true}, {"WHERE", true}, {"WITH", true},
    {"XOR", true},
};

const Palabra* BuscaPalabra(QStringView t) {
    char mayus[16];
    if (t.size() < 2 || t.size() >= static_cast<qsizetype>(sizeof mayus)) return nullptr;
    for (qsizetype i = 0; i < t.size(); ++i) {
        const char16_t c = t[i].unicode();
        if (c >= u'a' && c <= u'z') mayus[i] = static_cast<char>(c - 32);
        else if (c >= u'A' && c <= u'Z') mayus[i] = static_cast<char>(c);
        else return nullptr;
    }
    mayus[t.size()] = 0;
    size_t bajo = 0, alto = std::size(Palabras);
    while (bajo < alto) {
        const size_t medio = (bajo + alto) / 2;
        const int c = std::strcmp(Palabras[medio].texto, mayus);
        if (c == 0) return &Palabras[medio];
        if (c < 0) bajo = medio + 1;
        else alto = medio;
    }
    return nullptr;
}

bool EsInicioNombre(QChar c) { return c.isLetter() || c == u'_'; }
bool EsParteNombre(QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'$'; }

}  // namespace

std::vector<Token> Tokeniza(const QString& s) {
    std::vector<Token> salida;
    salida.reserve(static_cast<size_t>(s.size() / 3 + 4));
    const int n = static_cast<int>(s.size());
    int i = 0;
    auto error = [&]() { Lanza(ErrSintaxisExpresion, s.trimmed()); };
    while (i < n) {
        const QChar c = s[i];
        if (c.isSpace()) { ++i; continue; }
        Token t;
        t.pos = i;
        if (EsInicioNombre(c)) {
            int j = i + 1;
            while (j < n && EsParteNombre(s[j])) ++j;
            t.tipo = Tok::Nombre;
            t.texto = QStringView(s).mid(i, j - i);
            if (const Palabra* p = BuscaPalabra(t.texto)) {
                t.clave = p->texto;
                t.reservada = p->reservada;
            }
            i = j;
        } else if (c == u'[') {
            const int cierre = static_cast<int>(s.indexOf(u']', i + 1));
            if (cierre < 0) error();
            t.tipo = Tok::NombreCorchete;
            t.texto = QStringView(s).mid(i + 1, cierre - i - 1);
            i = cierre + 1;
        } else if (c.isDigit() || (c == u'.' && i + 1 < n && s[i + 1].isDigit()
                                   && (salida.empty() || salida.back().tipo == Tok::Operador)
                                   && !(salida.size() && salida.back().esOp(")")))) {
            int j = i;
            while (j < n && s[j].isDigit()) ++j;
            if (j < n && s[j] == u'.') {
                ++j;
                while (j < n && s[j].isDigit()) ++j;
            }
            if (j < n && (s[j] == u'e' || s[j] == u'E')) {
                int k = j + 1;
                if (k < n && (s[k] == u'+' || s[k] == u'-')) ++k;
                if (k < n && s[k].isDigit()) {
                    while (k < n && s[k].isDigit()) ++k;
                    j = k;
                }
            }
            t.tipo = Tok::Numero;
            t.texto = QStringView(s).mid(i, j - i);
            i = j;
            // "12abc" is no number followed by a name: the engine refuses it.
            if (i < n && EsInicioNombre(s[i])) error();
        } else if (c == u'\'' || c == u'"') {
            int j = i + 1;
            bool doblada = false;
            for (;;) {
                if (j >= n) error();
                if (s[j] == c) {
                    if (j + 1 < n && s[j + 1] == c) { doblada = true; j += 2; continue; }
                    break;
                }
                ++j;
            }
            t.tipo = Tok::Cadena;
            t.texto = QStringView(s).mid(i + 1, j - i - 1);
            t.cadena = t.texto.toString();
            if (doblada) t.cadena.replace(QString(2, c), QString(c));
            i = j + 1;
        } else if (c == u'#') {
            const int cierre = static_cast<int>(s.indexOf(u'#', i + 1));
            if (cierre < 0) error();
            t.tipo = Tok::Fecha;
            t.texto = QStringView(s).mid(i + 1, cierre - i - 1);
            i = cierre + 1;
        } else {
            static const char* dobles[] = {"<>", "<=", ">=", "!=", nullptr};
            t.tipo = Tok::Operador;
            bool hecho = false;
            if (i + 1 < n) {
                for (const char** d = dobles; *d; ++d) {
                    if (s[i] == QLatin1Char((*d)[0]) && s[i + 1] == QLatin1Char((*d)[1])) {
                        t.texto = QStringView(s).mid(i, 2);
                        i += 2;
                        hecho = true;
                        break;
                    }
                }
            }
            if (!hecho) {
                if (QStringLiteral("=<>+-*/\\^&(),.;!").contains(c)) {
                    t.texto = QStringView(s).mid(i, 1);
                    ++i;
                } else {
                    error();
                }
            }
        }
        salida.push_back(std::move(t));
    }
    Token fin;
    fin.tipo = Tok::Fin;
    fin.pos = n;
    salida.push_back(fin);
    return salida;
}

}  // namespace jet
