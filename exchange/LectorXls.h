#pragma once
// The binary workbook (.xls, BIFF 2 to 8) through FreeXL, which reads it without the spreadsheet application.
#include "exchange/LectorHoja.h"

namespace intercambio {

class LectorXls : public LectorHoja {
public:
    LectorXls() = default;
    ~LectorXls() override;
    LectorXls(const LectorXls&) = delete;
    LectorXls& operator=(const LectorXls&) = delete;

    void Abre(const QString& ruta) override;
    QString Celda(int fila, int columna) override;
    void Cierra() override;

private:
    const void* libro_ = nullptr;
};

}  // namespace intercambio
