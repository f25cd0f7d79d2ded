#pragma once
// Small helpers shared by the runtime tests.
#include "texto_gtest.h"

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

