// SPDX-License-Identifier: MIT
#include "writer/pseudo_terminal.h"

#ifdef Q_OS_UNIX

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>

namespace tolvex {

using namespace Qt::StringLiterals;

QString PseudoTerminal::Open() {
    Close();
    master_ = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (master_ < 0 || ::grantpt(master_) != 0 || ::unlockpt(master_) != 0) {
        return u"no pseudo-terminal: "_s + qt_error_string(errno);
    }
    const char* name = ::ptsname(master_);
    path_ = QFile::decodeName(name);
    slave_ = ::open(name, O_RDWR | O_NOCTTY);
    termios line{};
    if (slave_ < 0 || ::tcgetattr(slave_, &line) != 0) {
        return path_ + u": "_s + qt_error_string(errno);
    }
    ::cfmakeraw(&line);
    ::tcsetattr(slave_, TCSANOW, &line);
    ::fcntl(master_, F_SETFL, ::fcntl(master_, F_GETFL) | O_NONBLOCK);
    ::fcntl(master_, F_SETFD, FD_CLOEXEC);
    ::fcntl(slave_, F_SETFD, FD_CLOEXEC);
    return {};
}

void PseudoTerminal::Close() {
    for (int* descriptor : {&slave_, &master_}) {
        if (*descriptor >= 0) {
            ::close(*descriptor);
            *descriptor = -1;
        }
    }
}

QByteArray PseudoTerminal::Read() {
    char buffer[4096];
    const ssize_t count = ::read(master_, buffer, sizeof buffer);
    return count > 0 ? QByteArray(buffer, count) : QByteArray();
}

void PseudoTerminal::Write(const QByteArray& bytes) {
    qsizetype sent = 0;
    while (sent < bytes.size()) {
        const ssize_t count =
            ::write(master_, bytes.constData() + sent, static_cast<size_t>(bytes.size() - sent));
        if (count < 0 && errno != EINTR) {
            return;
        }
        sent += count > 0 ? count : 0;
    }
}

TerminalLink::~TerminalLink() {
    // Another board may have taken the link over in the meantime.
    if (!link_.isEmpty() && QFile::symLinkTarget(link_) == terminal_) {
        QFile::remove(link_);
    }
}

QString TerminalLink::Lead(const QString& link, const QString& terminal) {
    const QFileInfo present(link);
    if (present.exists() && !present.isSymLink()) {
        return u"%1 is in the way: it is no symbolic link"_s.arg(link);
    }
    const QByteArray target = QFile::encodeName(terminal);
    const QByteArray name = QFile::encodeName(link);
    const QByteArray fresh = name + ".new";
    ::unlink(fresh.constData());
    if (::symlink(target.constData(), fresh.constData()) != 0 ||
        std::rename(fresh.constData(), name.constData()) != 0) {
        const QString reason = qt_error_string(errno);
        ::unlink(fresh.constData());
        return u"%1: %2"_s.arg(link, reason);
    }
    link_ = link;
    terminal_ = terminal;
    return {};
}

}  // namespace tolvex

#endif
