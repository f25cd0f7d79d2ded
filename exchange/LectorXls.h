#pragma once
// The binary workbook (.xls, BIFF 2 to 8) through FreeXL, which reads it without the spreadsheet application.
// FreeXL trusts the lengths a file gives: a damaged or crafted workbook can make it read past its buffers or
// count for a long while. So it runs in a child process of its own, which hands back the first sheet's
// cells; a child that dies or overruns its time is a workbook that can't be read, and the program goes on.
#include "exchange/LectorHoja.h"

#include <QHash>

namespace intercambio {

class LectorXls : public LectorHoja {
public:
    LectorXls() = default;
    ~LectorXls() override = default;

    // The time a workbook is given to be read.
    static constexpr int SegundosMaximos = 20;

    void Abre(const QString& ruta) override;
    QString Celda(int fila, int columna) override;
    void Cierra() override;

private:
    QHash<quint64, QString> celdas_;
};

}  // namespace intercambio
