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
    QString texto;
    int pos = 0;   // 0-based offset in the statement

    bool esPalabra(const char* palabra) const;    // a plain Nombre equal (case-blind) to an ASCII keyword
    bool esOp(const char* op) const { return tipo == Tok::Operador && texto == QLatin1String(op); }
};

// Splits a statement into tokens; a string or date that never closes, or a character the dialect does not
// know, is a syntax error 3075 quoting the statement.
std::vector<Token> Tokeniza(const QString& sentencia);

}  // namespace jet
