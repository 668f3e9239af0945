// SPDX-License-Identifier: MIT
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <QByteArray>
#include <QString>

namespace tolvex::testing {

/// The writer's side of a serial line: a pseudo-terminal whose other end is opened as a port.
class PseudoTerminal {
  public:
    PseudoTerminal() : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        if (master_ >= 0 && ::grantpt(master_) == 0 && ::unlockpt(master_) == 0) {
            path_ = QString::fromLocal8Bit(::ptsname(master_));
        }
    }
    ~PseudoTerminal() { HangUp(); }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    /// Empty when the system gave none.
    QString Path() const { return path_; }

    bool Send(const QByteArray& bytes) const {
        return ::write(master_, bytes.constData(), static_cast<size_t>(bytes.size())) ==
               bytes.size();
    }

    /// What has come in, waiting up to two seconds for the first byte.
    QByteArray Receive() const {
        pollfd device{master_, POLLIN, 0};
        char buffer[256];
        if (::poll(&device, 1, 2000) != 1) {
            return {};
        }
        const ssize_t count = ::read(master_, buffer, sizeof buffer);
        return QByteArray(buffer, count > 0 ? count : 0);
    }

    /// The port's line settings (both ends of a pseudo-terminal share them).
    termios Mode() const {
        termios mode{};
        ::tcgetattr(master_, &mode);
        return mode;
    }

    void HangUp() {
        if (master_ >= 0) {
            ::close(master_);
            master_ = -1;
        }
    }

  private:
    int master_;
    QString path_;
};

}  // namespace tolvex::testing
