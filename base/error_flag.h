// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace tolvex {

/// The failure flag that all commands share: 0 = no failure, 1 = failure. Commands only ever set
/// it; whoever runs a sequence clears it first and tests it afterwards.
struct ErrorFlag {
    std::int16_t value = 0;

    void Set() { value = 1; }
    void Clear() { value = 0; }
    bool Failed() const { return value != 0; }
};

}  // namespace tolvex
