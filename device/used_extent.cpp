// SPDX-License-Identifier: MIT
#include "device/used_extent.h"

namespace tolvex {

namespace {

template <typename Image>
int LastUsedCell(const Image& image, int cells) {
    int last = cells - 1;
    while (last >= 0 && image[static_cast<std::size_t>(last)] == kErased) {
        --last;
    }
    return last;
}

}  // namespace

int LastUsedWord(const FlashImage& image, int words) {
    const int cell = LastUsedCell(image, 2 * words);
    return cell < 0 ? -1 : cell / 2;
}

int LastUsedByte(const EepromImage& image, int bytes) {
    return LastUsedCell(image, bytes);
}

}  // namespace tolvex
