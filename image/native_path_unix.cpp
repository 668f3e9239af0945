// SPDX-License-Identifier: MIT
#include <QFile>

#include "image/native_path.h"

namespace tolvex {

std::filesystem::path NativePath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

}  // namespace tolvex
