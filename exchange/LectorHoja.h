#pragma once
// The first sheet of a workbook, read cell by cell as text, the way the spreadsheet application hands a
// cell's value to a program that joins it to a text: a number plainly, with a point for decimals ("3",
// "2.5", "9786070000000"); a date or time as the program writes a date value ("15/03/2024",
// "15/03/2024 10:30:00", "10:30:00"); a truth value as "Verdadero" or "Falso"; an empty or missing cell as "".
// Two readers stand behind it: the binary workbook (.xls, through FreeXL) and the Open XML one (.xlsx,
// through libzip and libxml2).
#include <QString>

#include <memory>

namespace intercambio {

class LectorHoja {
public:
    virtual ~LectorHoja() = default;
    // Opens the workbook and its first sheet. Error 1004 with the reason when the file can't be read as a
    // workbook of its kind (missing, damaged, protected, another kind of file).
    virtual void Abre(const QString& ruta) = 0;
    // Row and column from 1, as the sheet counts them ("B7" is row 7, column 2).
    virtual QString Celda(int fila, int columna) = 0;
    virtual void Cierra() = 0;
};

// Whether a path names an Open XML workbook: its name ends in ".xlsx", in any case.
bool EsLibroXlsx(const QString& ruta);
// The reader for a workbook, told by its name: ".xlsx" the Open XML one, anything else the binary one.
std::unique_ptr<LectorHoja> LectorPara(const QString& ruta);

// A cell's number as text: 15 significant digits, a point for decimals, no thousands separator.
QString TextoDeNumero(double valor);
// A date cell's value as the program writes a date: the serial (days since 30/12/1899, the fraction the time
// of day) is the value plus `desplazamiento` (the days a workbook's own date system is ahead by). A serial
// outside the dates the program knows is written as the number the cell holds.
QString TextoDeSerial(double valor, double desplazamiento = 0);

// Error 1004 for a workbook that can't be read: "No se pudo abrir el libro '<nombre>': <motivo>."
[[noreturn]] void ErrorLibro(const QString& ruta, const QString& motivo);

}  // namespace intercambio
