// SPDX-License-Identifier: MIT
#include "platform/program_start.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
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

SingleInstance::SingleInstance(const QString& lockPath)
    : lockPath_(lockPath), lock_(lockPath), first_(Take()) {
    for (const QFileInfo& left : first_ ? Notes() : QFileInfoList()) {
        QFile::remove(left.filePath());  // for a program that has ended since
    }
}

bool SingleInstance::Take() {
    lock_.setStaleLockTime(0);  // never stale by age: the program may run for days
    if (lock_.tryLock(0)) {
        return true;
    }
    qint64 process = 0;
    QString host;
    QString program;
    if (lock_.error() == QLockFile::LockFailedError &&
        (!lock_.getLockInfo(&process, &host, &program) ||
         process == QCoreApplication::applicationPid())) {
        // Nobody's name in it, as after a power cut, or a killed process's number, which is now
        // this one's. This leaves a file alone that is in use.
        lock_.removeStaleLockFile();
        lock_.tryLock(0);
    }
    return lock_.isLocked() || lock_.error() != QLockFile::LockFailedError;
}

// A note beside the lock holds the file's path; whoever hands over takes a name of its own, so that
// two at a time are both heard.

bool SingleInstance::HandOver(const QString& file) const {
    QSaveFile note(lockPath_ + u".%1.open"_s.arg(QCoreApplication::applicationPid()));
    const QByteArray path = QFileInfo(file).absoluteFilePath().toUtf8();
    return note.open(QIODevice::WriteOnly) && note.write(path) == path.size() && note.commit();
}

void SingleInstance::TakeFiles(std::function<void(const QString& file)> open) {
    const auto take = [this, open = std::move(open)] {
        for (const QFileInfo& info : Notes()) {
            QFile note(info.filePath());
            // In a folder that everybody writes to, only this user's notes count.
            const bool own = info.ownerId() == QFileInfo(lockPath_).ownerId();
            const QString file = own && note.open(QIODevice::ReadOnly)
                                     ? QString::fromUtf8(note.readAll())
                                     : QString();
            if (note.remove() && !file.isEmpty()) {
                open(file);
            }
        }
    };
    watcher_.addPath(QFileInfo(lockPath_).path());
    QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &watcher_, take);
    QMetaObject::invokeMethod(&watcher_, take, Qt::QueuedConnection);  // those that came before
}

QFileInfoList SingleInstance::Notes() const {
    const QFileInfo lock(lockPath_);
    return lock.dir().entryInfoList({lock.fileName() + u".*.open"_s}, QDir::Files);
}

}  // namespace tolvex
