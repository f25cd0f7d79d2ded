#pragma once
// The Open XML workbook (.xlsx): a zip of XML parts, read through libzip and libxml2. The first sheet of the
// workbook is read whole when it opens; its cells' values come from the shared strings, the inline strings,
// the numbers and the cells' number formats, which tell dates from plain numbers.
#include "exchange/LectorHoja.h"

#include <QByteArray>

namespace intercambio {

class LectorXlsx : public LectorHoja {
public:
    LectorXlsx();
    ~LectorXlsx() override;
    LectorXlsx(const LectorXlsx&) = delete;
    LectorXlsx& operator=(const LectorXlsx&) = delete;

    void Abre(const QString& ruta) override;
    // The workbook's bytes; `ruta` only names it in the errors.
    void AbreDatos(const QByteArray& datos, const QString& ruta);
    QString Celda(int fila, int columna) override;
    void Cierra() override;

private:
    struct Libro;
    std::unique_ptr<Libro> libro_;
};

}  // namespace intercambio
