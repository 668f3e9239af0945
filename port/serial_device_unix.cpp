// SPDX-License-Identifier: MIT
// What all Unix systems share.
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/file.h>
#include <termios.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QSocketNotifier>
#include <QSysInfo>
#include <algorithm>
#include <cerrno>

#include "port/serial_device.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

bool HasEnded(qint64 process) {
    return ::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH;
}

/// Which of `events`, and of what is told unasked, the device reports.
int Reported(int handle, short events) {
    pollfd device{handle, events, 0};
    return ::poll(&device, 1, 0) == 1 ? device.revents : 0;
}

}  // namespace

std::optional<QString> PortLinkFolder(const QString& configFolder) {
    return QDir(configFolder).absoluteFilePath(u"ports"_s);
}

QString DeviceNamed(const QString& text) {
    return text.contains(u'/') ? QFileInfo(text).absoluteFilePath() : u"/dev/"_s + text;
}

std::optional<QString> FindStaleLockFile(const QString& portName) {
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
    return std::nullopt;
}

bool LockDevice(DeviceHandle handle) {
    return ::flock(handle, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool HasHungUp(DeviceHandle handle) {
    return (Reported(handle, 0) & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

// Qt's own read notifier is woken by a hang-up too, but not every version of Qt takes it for one:
// it then reads nothing, without end.
std::unique_ptr<QObject> WatchForHangUp(DeviceHandle handle, std::function<void()> onEvent) {
    auto notifier = std::make_unique<QSocketNotifier>(handle, QSocketNotifier::Exception);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, std::move(onEvent));
    return notifier;
}

bool HasInput(DeviceHandle handle) {
    return Reported(handle, POLLIN) != 0;
}

qsizetype WriteAtOnce(DeviceHandle handle, QByteArrayView bytes) {
    return std::max<qsizetype>(
        ::write(handle, bytes.data(), static_cast<std::size_t>(bytes.size())), 0);
}

bool ClearHupcl(DeviceHandle handle) {
    termios settings{};
    if (::tcgetattr(handle, &settings) != 0 || (settings.c_cflag & HUPCL) == 0) {
        return false;
    }
    settings.c_cflag &= ~static_cast<tcflag_t>(HUPCL);
    ::tcsetattr(handle, TCSANOW, &settings);
    return true;
}

void CloseWithDtrUp(QSerialPort& port) {
    const int copy = ::fcntl(port.handle(), F_DUPFD_CLOEXEC, 0);  // keeps the device open
    port.close();
    if (copy != -1) {
        ClearHupcl(copy);
        ::close(copy);
    }
}

}  // namespace tolvex
