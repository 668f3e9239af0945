// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <pty.h>
#include <sys/prctl.h>
#include <termios.h>

#include "writer/system_terminal.h"

namespace tolvex {

namespace {

/// The mark is a lock of the open file, which goes with the process.
struct flock ServedMark(short kind) {
    struct flock mark {};
    mark.l_type = kind;
    mark.l_whence = SEEK_SET;
    return mark;
}

}  // namespace

bool OpenTerminalPair(int& master, int& slave) {
    termios line{};
    line.c_cflag = CREAD;
    ::cfmakeraw(&line);
    ::cfsetspeed(&line, B19200);
    return ::openpty(&master, &slave, nullptr, &line, nullptr) == 0;
}

void MarkAsServed(int slave) {
    struct flock mark = ServedMark(F_RDLCK);
    ::fcntl(slave, F_OFD_SETLK, &mark);
}

bool IsServed(int terminal) {
    struct flock mark = ServedMark(F_WRLCK);
    return ::fcntl(terminal, F_OFD_GETLK, &mark) != 0 || mark.l_type != F_UNLCK;
}

void SharpenWaits() {
    // The default of 50 us is a tenth of a byte's time.
    ::prctl(PR_SET_TIMERSLACK, 1UL);
}

}  // namespace tolvex
