#pragma once
// Tokens of the SQL dialect. Names may be bracketed ([Solicitudes General], [No]) and hold any letter,
// accented ones included; strings use ' or " with the quote doubled inside; dates stand between # marks.
#include <QString>
#include <vector>

namespace jet {

enum class Tok {
    Fin,
    Nombre,        // a plain identifier or keyword; `texto` as written
    NombreCorchete,// [ ... ]: never a keyword
    Numero,        // 12, 12.5, .5, 1E3
    Cadena,        // 'text' or "text", quotes removed and undoubled
    Fecha,         // #...#, contents without the marks
    Operador,      // = <> < > <= >= + - * / \ ^ & ( ) , . ; !
};

struct Token {
    Tok tipo = Tok::Fin;
    QStringView texto;    // as written, inside the statement (for Cadena: without the quotes)
    QString cadena;       // Cadena: the text with doubled quotes undone
    int pos = 0;          // 0-based offset in the statement
    bool reservada = false;   // a plain Nombre that is a reserved word of the dialect
    const char* clave = nullptr;   // a plain Nombre that is a word of the dialect: that word, upper case

    // A plain Nombre equal (case-blind) to a word of the dialect, given in upper case.
    bool esPalabra(const char* palabra) const;
    bool esOp(const char* op) const { return tipo == Tok::Operador && texto == QLatin1String(op); }
};

// Splits a statement into tokens, which point into it: the statement must outlive them. A string or date
// that never closes, or a character the dialect does not know, is a syntax error 3075 quoting the
// statement.
std::vector<Token> Tokeniza(const QString& sentencia);

}  // namespace jet
