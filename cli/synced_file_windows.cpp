// SPDX-License-Identifier: MIT
#include <QSaveFile>

#include "cli/synced_file.h"

namespace tolvex {

/// A QSaveFile hands its content to the disk before it takes the old file's place.
bool ReplaceSynced(const QString& path, const QByteArray& content) {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() &&
           file.commit();
}

}  // namespace tolvex
