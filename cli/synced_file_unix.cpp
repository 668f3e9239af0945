// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <cstdio>

#include "cli/synced_file.h"

namespace tolvex {

namespace {

bool Sync(const char* path, int flags) {
    const int file = ::open(path, flags | O_CLOEXEC);
    if (file < 0) {
        return false;
    }
    const bool synced = ::fsync(file) == 0;
    return ::close(file) == 0 && synced;
}

}  // namespace

bool ReplaceSynced(const QString& path, const QByteArray& content) {
    const QByteArray target = QFile::encodeName(path);
    const QByteArray fresh = target + ".new";
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int file = ::open(fresh.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file < 0) {
        return false;
    }
    const bool written = ::write(file, content.constData(),
                                 static_cast<std::size_t>(content.size())) == content.size();
    const bool synced = written && ::fsync(file) == 0;
    if (::close(file) != 0 || !synced || std::rename(fresh.constData(), target.constData()) != 0) {
        ::unlink(fresh.constData());
        return false;
    }
    // The name leads to the new content only once the folder is on the disk.
    return Sync(folder.constData(), O_RDONLY | O_DIRECTORY);
}

}  // namespace tolvex
