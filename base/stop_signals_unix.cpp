// SPDX-License-Identifier: MIT
#include "base/stop_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace tolvex {

namespace {

using Action = struct sigaction;

struct Kind {
    int number;
    volatile std::sig_atomic_t left;  ///< signals that ask; after them the default action is back
};

// A signal handler reaches nothing but these.
Kind kinds[] = {{SIGINT, 0}, {SIGTERM, 0}, {SIGHUP, 0}};
volatile std::sig_atomic_t lastSignal = 0;
int pipeEnds[2] = {-1, -1};  ///< to read from, to write to

/// Calls only what is allowed in a signal handler. It may interrupt code that is about to look at
/// errno.
void Ask(int number) {
    const int error = errno;
    lastSignal = number;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(pipeEnds[1], &byte, 1);
    for (Kind& kind : kinds) {
        if (kind.number == number) {
            kind.left = kind.left - 1;
            if (kind.left == 0) {
                std::signal(number, SIG_DFL);
            }
        }
    }
    errno = error;
}

void Catch(Kind& kind, int endAt) {
    Action now{};
    if (::sigaction(kind.number, nullptr, &now) != 0 || now.sa_handler == SIG_IGN) {
        return;
    }
    kind.left = endAt - 1;
    Action wanted{};
    wanted.sa_handler = Ask;
    wanted.sa_flags = SA_RESTART;
    ::sigaction(kind.number, &wanted, nullptr);
}

}  // namespace

void CatchStopSignals(int endAt) {
    if (pipeEnds[0] != -1 || ::pipe(pipeEnds) != 0) {
        return;
    }
    for (const int end : pipeEnds) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    for (Kind& kind : kinds) {
        Catch(kind, endAt);
    }
}

int StopSignal() {
    return lastSignal;
}

int StopDescriptor() {
    return pipeEnds[0];
}

}  // namespace tolvex
