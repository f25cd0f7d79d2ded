#pragma once
// Small helpers shared by the runtime tests.
#include "core/vb/Error.h"

#include <QString>
#include <functional>
#include <ostream>

// The number of the vb::Error that the call raises, 0 if it raises none.
inline int NumeroDeError(const std::function<void()>& llamada) {
    try {
        llamada();
    } catch (const vb::Error& e) {
        return e.Number();
    }
    return 0;
}

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }
QT_END_NAMESPACE
