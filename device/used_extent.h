// SPDX-License-Identifier: MIT
#pragma once

#include "base/memory_images.h"

namespace tolvex {

/// Index of the last word among the first `words` with a byte that is not erased; -1 = none.
int LastUsedWord(const FlashImage& image, int words);
/// Index of the last byte among the first `bytes` that is not erased; -1 = none.
int LastUsedByte(const EepromImage& image, int bytes);

}  // namespace tolvex
