// SPDX-License-Identifier: MIT
#include "writer/stop_signals.h"

#ifdef Q_OS_UNIX

#include <sys/select.h>

#include <algorithm>
#include <csignal>

namespace tolvex {

namespace {

constexpr int kStopping[] = {SIGTERM, SIGINT, SIGHUP};

// A signal handler reaches nothing else.
volatile std::sig_atomic_t stopAsked = 0;

}  // namespace

StopSignals::StopSignals() {
    sigset_t stopping;
    ::sigemptyset(&stopping);
    struct sigaction action {};
    action.sa_handler = [](int) { stopAsked = 1; };
    for (const int number : kStopping) {
        ::sigaddset(&stopping, number);
        ::sigaction(number, &action, nullptr);
    }
    ::signal(SIGPIPE, SIG_IGN);
    ::sigprocmask(SIG_BLOCK, &stopping, &open_);
    for (const int number : kStopping) {
        ::sigdelset(&open_, number);
    }
}

bool StopSignals::Asked() const {
    return stopAsked != 0;
}

bool StopSignals::Wait(int descriptor, std::optional<Instant> time) const {
    fd_set readable;
    FD_ZERO(&readable);
    FD_SET(descriptor, &readable);
    timespec limit{};
    if (time) {
        const Instant positive = std::max(*time, Instant::zero());
        const auto seconds = std::chrono::floor<std::chrono::seconds>(positive);
        limit.tv_sec = static_cast<time_t>(seconds.count());
        limit.tv_nsec = static_cast<long>((positive - seconds).count());
    }
    return ::pselect(descriptor + 1, &readable, nullptr, nullptr, time ? &limit : nullptr, &open_) >
           0;
}

}  // namespace tolvex

#endif
