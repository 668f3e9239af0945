// SPDX-License-Identifier: MIT
#include "platform/steady_dtr.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>
#endif

namespace tolvex {

#ifdef Q_OS_UNIX

namespace {

/// Whether DTR was going to be dropped.
bool KeepUpAtClose(int handle) {
    termios settings{};
    if (::tcgetattr(handle, &settings) != 0 || (settings.c_cflag & HUPCL) == 0) {
        return false;
    }
    settings.c_cflag &= ~static_cast<tcflag_t>(HUPCL);
    ::tcsetattr(handle, TCSANOW, &settings);
    return true;
}

}  // namespace

/// A device whose last user left DTR up saw no edge.
bool OpeningRaisedDtr(int handle) {
    return KeepUpAtClose(handle);
}

SteadyDtr::SteadyDtr(int handle) : handle_(::fcntl(handle, F_DUPFD_CLOEXEC, 0)) {}

SteadyDtr::~SteadyDtr() {
    if (handle_ >= 0) {
        KeepUpAtClose(handle_);
        ::close(handle_);
    }
}

#else

bool OpeningRaisedDtr(int) {
    return false;
}

SteadyDtr::SteadyDtr(int) : handle_(-1) {}
SteadyDtr::~SteadyDtr() = default;

#endif

}  // namespace tolvex
