// SPDX-License-Identifier: MIT
#include "platform/single_instance.h"

#include <QDir>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// Tells the users apart in a shared temporary folder.
QString UserMark() {
#ifdef Q_OS_UNIX
    return QString::number(::getuid());
#else
    return qEnvironmentVariable("USERNAME");
#endif
}

}  // namespace

QString InstanceLockPath() {
    // Not QStandardPaths: it warns on the terminal and makes up a folder when the variable is
    // unset.
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const bool usable = QFileInfo(runtime).isDir() && QFileInfo(runtime).isWritable();
    return QDir(usable ? runtime : QDir::tempPath())
        .absoluteFilePath(u"tolvex-%1.lock"_s.arg(UserMark()));
}

SingleInstance::SingleInstance(const QString& lockPath) : lock_(lockPath), first_(Take()) {}

bool SingleInstance::Take() {
    lock_.setStaleLockTime(0);  // never stale by age: the program may run for days
    if (lock_.tryLock(0)) {
        return true;
    }
    qint64 process = 0;
    QString host;
    QString program;
    if (lock_.error() == QLockFile::LockFailedError &&
        !lock_.getLockInfo(&process, &host, &program)) {
        // Nobody's name in it, as after a power cut. This leaves a file alone that is in use.
        lock_.removeStaleLockFile();
        lock_.tryLock(0);
    }
    return lock_.isLocked() || lock_.error() != QLockFile::LockFailedError;
}

}  // namespace tolvex
