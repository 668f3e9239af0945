// SPDX-License-Identifier: MIT
#include "platform/left_lock.h"

#include <QFileInfo>
#include <QLockFile>
#include <QSysInfo>

#ifdef Q_OS_UNIX
#include <signal.h>

#include <cerrno>
#endif

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_UNIX
bool HasEnded(qint64 process) {
    return ::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH;
}
#endif

}  // namespace

QString LeftLock([[maybe_unused]] const QString& portName) {
#ifdef Q_OS_UNIX
    QString name = portName.startsWith(u"/dev/"_s) ? portName.mid(5) : portName;
    name.replace(u'/', u'_');
    // Where Qt and terminal programs look for a place, in Qt's order.
    for (const char* folder : {"/var/lock", "/etc/locks", "/var/spool/locks", "/var/spool/uucp",
                               "/tmp", "/var/tmp", "/var/lock/lockdev", "/run/lock"}) {
        const QString path = u"%1/LCK..%2"_s.arg(QLatin1StringView(folder), name);
        qint64 process = 0;
        QString host;
        QString program;
        if (QLockFile(path).getLockInfo(&process, &host, &program) &&
            host == QSysInfo::machineHostName() && HasEnded(process)) {
            return path;
        }
    }
#endif
    return {};
}

}  // namespace tolvex
