// SPDX-License-Identifier: MIT
#include "platform/program_start.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QString WithSeparator(const QString& folder) {
    return folder.endsWith(u'/') ? folder : folder + u'/';
}

}  // namespace

AppDir EnterProgramFolder(const QString& programFolder, const QString& userFolder) {
    QDir::setCurrent(programFolder);
    const QString program = WithSeparator(programFolder);
    return {.program = program, .listings = {program, WithSeparator(userFolder)}};
}

AppDir EnterProgramFolder() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return EnterProgramFolder(QCoreApplication::applicationDirPath(), data + u"/Tolvex"_s);
}

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
