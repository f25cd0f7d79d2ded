#include "core/jet/Lexer.h"

#include "core/jet/ErroresMotor.h"

namespace jet {

bool Token::esPalabra(const char* palabra) const {
    return tipo == Tok::Nombre && texto.compare(QLatin1String(palabra), Qt::CaseInsensitive) == 0;
}

namespace {

bool EsInicioNombre(QChar c) { return c.isLetter() || c == u'_'; }
bool EsParteNombre(QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'$'; }

}  // namespace

std::vector<Token> Tokeniza(const QString& s) {
    std::vector<Token> salida;
    salida.reserve(static_cast<size_t>(s.size() / 4 + 4));
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
            t.texto = s.mid(i, j - i);
            i = j;
        } else if (c == u'[') {
            const int cierre = static_cast<int>(s.indexOf(u']', i + 1));
            if (cierre < 0) error();
            t.tipo = Tok::NombreCorchete;
            t.texto = s.mid(i + 1, cierre - i - 1);
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
            t.texto = s.mid(i, j - i);
            i = j;
            // "12abc" is no number followed by a name: the engine refuses it.
            if (i < n && EsInicioNombre(s[i])) error();
        } else if (c == u'\'' || c == u'"') {
            QString texto;
            int j = i + 1;
            for (;;) {
                if (j >= n) error();
                if (s[j] == c) {
                    if (j + 1 < n && s[j + 1] == c) { texto += c; j += 2; continue; }
                    break;
                }
                texto += s[j++];
            }
            t.tipo = Tok::Cadena;
            t.texto = texto;
            i = j + 1;
        } else if (c == u'#') {
            const int cierre = static_cast<int>(s.indexOf(u'#', i + 1));
            if (cierre < 0) error();
            t.tipo = Tok::Fecha;
            t.texto = s.mid(i + 1, cierre - i - 1);
            i = cierre + 1;
        } else {
            static const char* dobles[] = {"<>", "<=", ">=", "!=", nullptr};
            t.tipo = Tok::Operador;
            bool hecho = false;
            if (i + 1 < n) {
                for (const char** d = dobles; *d; ++d) {
                    if (s[i] == QLatin1Char((*d)[0]) && s[i + 1] == QLatin1Char((*d)[1])) {
                        t.texto = QString::fromLatin1(*d);
                        i += 2;
                        hecho = true;
                        break;
                    }
                }
            }
            if (!hecho) {
                if (QStringLiteral("=<>+-*/\\^&(),.;!").contains(c)) {
                    t.texto = c;
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
