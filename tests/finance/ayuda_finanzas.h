#pragma once
// What the finance suites share: the workflow set-up, a reader of whole rows and a check of the last message box.
#include "workflow/ayuda_flujo.h"

#include "core/vb/Formato.h"

// The order ledger rows are listed in: money in ('+...') before money out ('-...'), then by operation. The
// sign is told apart on its own, as a file and a server sort punctuation differently.
#define ORDEN_DEL_LIBRO "IIf(Left(Operacion, 1) = '+', 0, 1), Operacion"

class PruebaFinanzas : public PruebaFlujo {
protected:
    QString mascaraFecha;   // empty: dates in ISO form, with their time
    // Every value of every row, a row's values joined by "|", Null as "NULL".
    QStringList Filas(const QString& sql) {
        QStringList r;
        auto rs = globales::Base().OpenRecordset(sql);
        for (; !rs->Eof(); rs->MoveNext()) {
            QStringList c;
            for (int i = 0; i < rs->Fields().Count(); ++i) {
                const vb::Variant v = rs->Fields(i).Value();
                c << (v.isNull() ? QStringLiteral("NULL")
                      : v.type() != vb::VarType::Date ? v.text()
                      : mascaraFecha.isEmpty()        ? v.toDate().toIso()
                                                      : vb::Format(v, mascaraFecha));
            }
            r << c.join(u'|');
        }
        return r;
    }
    QStringList Filas(const char* sql) { return Filas(QString::fromUtf8(sql)); }
    // `n` message boxes shown, the last one as given; a null title is not looked at.
    void Caja(size_t n, const char* titulo, const QString& texto, int flags) {
        ASSERT_EQ(sistema->cajas.size(), n);
        if (titulo) {
            EXPECT_EQ(sistema->UltimaCaja().titulo, QString::fromUtf8(titulo));
        }
        EXPECT_EQ(sistema->UltimaCaja().texto, texto);
        EXPECT_EQ(sistema->UltimaCaja().flags, flags);
    }
};
