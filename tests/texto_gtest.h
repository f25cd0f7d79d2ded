#pragma once
// gtest shows texts and lists of texts as text in its failure messages.
#include <QString>
#include <QStringList>
#include <ostream>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }
inline void PrintTo(const QStringList& l, std::ostream* os) { *os << '[' << l.join(QStringLiteral(", ")).toStdString() << ']'; }
QT_END_NAMESPACE
