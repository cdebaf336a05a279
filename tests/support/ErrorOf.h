#pragma once

#include "base/RuntimeError.h"

#include <functional>

namespace vorta::test {

/// The number of the run-time error that the body raises, 0 for none.
inline int ErrorOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace vorta::test
