#include "core/vb/Formato.h"

#include "ayuda_vb.h"

#include <gtest/gtest.h>

using namespace vb;

namespace {

struct CasoFormato {
    Variant valor;
    const char* mascara;
    const char* esperado;
};

void Revisa(const std::vector<CasoFormato>& casos) {
    for (const auto& c : casos)
        EXPECT_EQ(Format(c.valor, QString::fromUtf8(c.mascara)), QString::fromUtf8(c.esperado))
            << "valor " << c.valor.text().toStdString() << ", mascara " << c.mascara;
}

Fecha F(int a, int m, int d, int h = 0, int n = 0, int s = 0) { return Fecha(QDate(a, m, d), QTime(h, n, s)); }

}  // namespace

TEST(Formato, MascarasDeFecha) {
    const Fecha tarde = F(2024, 1, 5, 14, 7, 9);
    Revisa({
        {tarde, "dd/mmm/yyyy", "05/ene/2024"},
        {tarde, "dd/MMM/yyyy", "05/ene/2024"},   // the letters of a date mask have no case
        {tarde, "dd-mmm-yyyy", "05-ene-2024"},
        {tarde, "yyyy/mmm/dd", "2024/ene/05"},
        {tarde, "yyyy/mm/dd", "2024/01/05"},
        {tarde, "yyyy-mm-dd", "2024-01-05"},
        {tarde, "dd/mm/yyyy", "05/01/2024"},
        {tarde, "mm/dd/yyyy", "01/05/2024"},
        {tarde, "mm-dd-yyyy", "01-05-2024"},
        {tarde, "yyyy/mm/dd hh:nn:ss", "2024/01/05 14:07:09"},
        {tarde, "yyyy/mm/dd hh:mm:ss", "2024/01/05 14:07:09"},   // mm after hh is minutes
        {tarde, "dd-mmm-yyyy hh:mm:ss", "05-ene-2024 14:07:09"},
        {tarde, "dd/mmm/yyyy hh:nn", "05/ene/2024 14:07"},
        {tarde, "yyyy/mm/dd hh:mm", "2024/01/05 14:07"},
        {tarde, "hh:mm:ss", "14:07:09"},
        {tarde, "mm:ss", "01:09"},                                // not after an hour: the month
        {tarde, "long date", "viernes, 5 de enero de 2024"},
        {tarde, "Long Date", "viernes, 5 de enero de 2024"},
        {tarde, "d/m/yy h:n:s", "5/1/24 14:7:9"},
        {tarde, "hh:nn AM/PM", "02:07 PM"},
        {tarde, "dddd ddd mmmm", "viernes vie enero"},
        {tarde, "\"Generado el \"dd\\m", "Generado el 05m"},
        {F(2024, 1, 5, 0, 30), "h:nn am/pm", "12:30 am"},
        {F(2024, 2, 29), "dd/mmm/yyyy", "29/feb/2024"},
        {F(1999, 9, 30), "dd/mmm/yy", "30/sep/99"},
        {F(2023, 12, 31, 23, 59, 59), "dd-mmm-yyyy hh:nn:ss", "31-dic-2023 23:59:59"},
        {F(2023, 12, 31), "yyyy/mm/dd hh:nn", "2023/12/31 00:00"},
        {F(2023, 12, 31), "y ww w q", "365 53 1 4"},
        {F(2024, 8, 17), "long date", "sábado, 17 de agosto de 2024"},
        {F(2024, 3, 6), "dddd", "miércoles"},
    });
}

TEST(Formato, MascarasDeNumero) {
    Revisa({
        {5, "000", "005"},
        {1234, "000", "1234"},        // more digits than placeholders: all shown
        {5, "#00", "05"},
        {0, "#00", "00"},
        {7, "0000", "0007"},
        {-5, "000", "-005"},
        {0.5, "###,###,###.00", ".50"},   // no leading zero without a "0" placeholder
        {0.0, "###,###,###.00", ".00"},
        {-0.5, "###,###,###.00", "-.50"},
        {0.5, "###,###,##0.00", "0.50"},
        {1234567.891, "###,###,##0.00", "1,234,567.89"},
        {123.0, "###,###,##0.00", "123.00"},
        {123456.0, "###,###,##0.00", "123,456.00"},
        {-1234.5, "$###,###,##0.00", "-$1,234.50"},
        {1234567890123.0, "$###,###,###,##0.00", "$1,234,567,890,123.00"},
        {999.995, "###,###.00", "1,000.00"},   // rounding carries into a new group
        {2.675, "0.00", "2.68"},               // rounded on the decimal digits, half away from zero
        {-2.675, "0.00", "-2.68"},
        {0.125, "0.00", "0.13"},
        {2.5, "0", "3"},
        {-2.5, "0", "-3"},
        {1.5, "0.0#", "1.5"},
        {1.256, "0.0#", "1.26"},
        {5, "0.", "5."},
        {0.256, "0.0%", "25.6%"},
        {1234567, "#,##0,", "1,235"},          // a comma after the digits scales by a thousand
        {-3, "0.00;(0.00)", "(3.00)"},
        {0, "0.00;(0.00);\"nada\"", "nada"},
        {42, "\"No. \"000", "No. 042"},
        {Currency::fromRaw(123456789), "$###,###,##0.00", "$12,345.68"},
        {Currency::fromRaw(-50), "###,###,##0.00", "-0.01"},
        {Currency::fromRaw(5000), "###,###,###.00", ".50"},
        {Variant::Single(0.3f), "0.000000000", "0.300000000"},   // a Single counts its own 7 digits
        {true, "0", "-1"},
    });
}

TEST(Formato, NullEmptyYTexto) {
    Revisa({
        {Variant::Null(), "000", ""},
        {Variant::Null(), "dd/mmm/yyyy", ""},
        {Variant(), "dd/mmm/yyyy", ""},
        {Variant(), "000", "000"},
        {Variant(), "###,###,##0.00", "0.00"},
        {"1,234.5", "$###,###,##0.00", "$1,234.50"},
        {" 12 ", "000", "012"},
        {"05/01/2024", "yyyy/mm/dd", "2024/01/05"},
        {"5-ene-24", "dd/MMM/yyyy", "05/ene/2024"},
        {"abc", "000", "abc"},
        {"abc", "dd/mm/yyyy", "abc"},
        {45296.5, "yyyy/mm/dd hh:nn", "2024/01/05 12:00"},   // a number with a date mask is a serial
        {F(2024, 1, 5, 12), "0.00", "45296.50"},
        {F(2024, 1, 5), "", "05/01/2024"},
        {1234.5, "", "1234.5"},
    });
    EXPECT_EQ(Format(Variant::Null()), QString());
    EXPECT_EQ(Format(F(2024, 1, 5, 8, 0, 1)), QStringLiteral("05/01/2024 08:00:01"));
}

TEST(Formato, NombresDeMes) {
    const char* largos[] = {"enero", "febrero", "marzo", "abril", "mayo", "junio",
                            "julio", "agosto", "septiembre", "octubre", "noviembre", "diciembre"};
    for (int m = 1; m <= 12; ++m) {
        EXPECT_EQ(NombreMes(m), QString::fromUtf8(largos[m - 1]));
        EXPECT_EQ(AbreviaturaMes(m), QString::fromUtf8(largos[m - 1]).left(3));
        EXPECT_EQ(Format(F(2024, m, 1), "mmm"), AbreviaturaMes(m));
    }
    EXPECT_EQ(NumeroDeError([] { NombreMes(13); }), 5);
}
