#pragma once
// The text functions of the language, with 1-based positions.
#include <QByteArray>
#include <QString>

namespace vb {

QString Mid(const QString& s, int inicio, int largo = -1);   // inicio < 1 -> error 5; largo -1 = to the end
QString Left(const QString& s, int n);
QString Right(const QString& s, int n);
QString Trim(const QString& s);     // blanks only (not tabs), as the language
QString LTrim(const QString& s);
QString RTrim(const QString& s);
QString UCase(const QString& s);
QString LCase(const QString& s);
int Len(const QString& s);
// Position of busca in s from inicio (1-based), 0 if absent; an empty busca gives inicio.
int InStr(int inicio, const QString& s, const QString& busca, bool sinMayusculas = false);
inline int InStr(const QString& s, const QString& busca) { return InStr(1, s, busca); }
QString Replace(const QString& s, const QString& busca, const QString& por);
QString Space(int n);
QString String(int n, QChar c);
QString Chr(int codigo);            // Windows-1252 code to character
int Asc(const QString& s);          // first character to its Windows-1252 code; error 5 on empty

// Text in the system's single-byte code page (Windows-1252); what it lacks becomes "?".
QByteArray Windows1252(const QString& texto);

// Open <ruta> For Output, Print # the text, Close: the file holds the text and a line end, in Windows-1252.
// Error 75 when the file can't be written.
void PrintArchivo(const QString& ruta, const QString& texto);

}  // namespace vb
