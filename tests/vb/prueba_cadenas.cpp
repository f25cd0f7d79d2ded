#include "core/vb/Cadenas.h"

#include "ayuda_vb.h"

#include <gtest/gtest.h>

using namespace vb;

TEST(Cadenas, Subcadenas) {
    const QString s = QStringLiteral("007 - Biblioteca");
    EXPECT_EQ(Mid(s, 1, 4), QStringLiteral("007 "));
    EXPECT_EQ(Mid(s, 7), QStringLiteral("Biblioteca"));
    EXPECT_EQ(Mid(s, 16, 5), QStringLiteral("a"));
    EXPECT_EQ(Mid(s, 17), QString());
    EXPECT_EQ(Mid(s, 3, 0), QString());
    EXPECT_EQ(Left(s, 3), QStringLiteral("007"));
    EXPECT_EQ(Left(s, 99), s);
    EXPECT_EQ(Right(s, 4), QStringLiteral("teca"));
    EXPECT_EQ(Right(s, 0), QString());
    EXPECT_EQ(Len(QStringLiteral("acción")), 6);   // characters, not bytes
    for (auto llamada : std::initializer_list<std::function<void()>>{
             [&] { Mid(s, 0); }, [&] { Mid(s, 1, -2); }, [&] { Left(s, -1); }, [&] { Right(s, -1); },
             [] { Space(-1); }, [] { String(-1, u'x'); }})
        EXPECT_EQ(NumeroDeError(llamada), 5);
}

TEST(Cadenas, BlancosYMayusculas) {
    EXPECT_EQ(Trim(QStringLiteral("  a b \t ")), QStringLiteral("a b \t"));   // only blanks go
    EXPECT_EQ(LTrim(QStringLiteral("  a  ")), QStringLiteral("a  "));
    EXPECT_EQ(RTrim(QStringLiteral("  a  ")), QStringLiteral("  a"));
    EXPECT_EQ(Trim(QStringLiteral("   ")), QString());
    EXPECT_EQ(UCase(QStringLiteral("señor ñandú")), QStringLiteral("SEÑOR ÑANDÚ"));
    EXPECT_EQ(LCase(QStringLiteral("ÁRBOL")), QStringLiteral("árbol"));
    EXPECT_EQ(Space(3), QStringLiteral("   "));
    EXPECT_EQ(String(3, u'-'), QStringLiteral("---"));
}

TEST(Cadenas, BusquedaYReemplazo) {
    const QString s = QStringLiteral("a|bc|A|d");
    EXPECT_EQ(InStr(s, QStringLiteral("|")), 2);
    EXPECT_EQ(InStr(3, s, QStringLiteral("|")), 5);
    EXPECT_EQ(InStr(1, s, QStringLiteral("x")), 0);
    EXPECT_EQ(InStr(2, s, QStringLiteral("A")), 6);
    EXPECT_EQ(InStr(2, s, QStringLiteral("B"), true), 3);
    EXPECT_EQ(InStr(4, s, QString()), 4);
    EXPECT_EQ(InStr(20, s, QStringLiteral("a")), 0);
    EXPECT_EQ(InStr(QString(), QStringLiteral("a")), 0);
    EXPECT_EQ(NumeroDeError([&] { InStr(0, s, QStringLiteral("a")); }), 5);
    EXPECT_EQ(Replace(QStringLiteral("O'Neil y O'Hara"), QStringLiteral("'"), QStringLiteral("''")),
              QStringLiteral("O''Neil y O''Hara"));
    EXPECT_EQ(Replace(QStringLiteral("Aa"), QStringLiteral("a"), QStringLiteral("x")), QStringLiteral("Ax"));
    EXPECT_EQ(Replace(QStringLiteral("abc"), QString(), QStringLiteral("x")), QStringLiteral("abc"));
}

TEST(Cadenas, CodigosDeCaracter) {
    const std::pair<int, char16_t> casos[] = {{65, u'A'}, {13, u'\r'}, {0xF1, u'ñ'}, {0xE9, u'é'},
                                              {0x80, u'€'}, {0x91, u'‘'}, {0x96, u'–'}, {0xA0, u'\u00A0'}};
    for (const auto& [codigo, c] : casos) {
        EXPECT_EQ(Chr(codigo), QString(QChar(c))) << codigo;
        EXPECT_EQ(Asc(QString(QChar(c))), codigo) << codigo;
    }
    EXPECT_EQ(Asc(QStringLiteral("Ωx")), int('?'));   // outside the code page
    EXPECT_EQ(NumeroDeError([] { Chr(256); }), 5);
    EXPECT_EQ(NumeroDeError([] { Asc(QString()); }), 5);
}
