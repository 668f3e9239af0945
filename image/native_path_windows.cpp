// SPDX-License-Identifier: MIT
#include "image/native_path.h"

namespace tolvex {

std::filesystem::path NativePath(const QString& path) {
    return path.toStdWString();
}

}  // namespace tolvex
