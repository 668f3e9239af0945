// SPDX-License-Identifier: MIT
#include "platform/shutdown_signals.h"

#include <QSocketNotifier>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#endif

namespace tolvex {

#ifdef Q_OS_UNIX

namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

/// Hardly anything is allowed in a signal handler. Writing to a pipe is, and the event loop reads
/// from its other end.
int pipeEnds[2] = {-1, -1};

void PassOn(int) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(pipeEnds[1], &byte, 1);
}

}  // namespace

ShutdownSignals::ShutdownSignals(std::function<void()> onSignal) {
    if (::pipe(pipeEnds) != 0) {
        return;
    }
    for (const int end : pipeEnds) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    notifier_ = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [action = std::move(onSignal)] {
        char bytes[16];
        if (::read(pipeEnds[0], bytes, sizeof bytes) > 0) {
            action();
        }
    });
    for (const int number : kSignals) {
        struct sigaction wanted = {};
        struct sigaction before = {};
        wanted.sa_handler = PassOn;
        wanted.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
        if (::sigaction(number, nullptr, &before) == 0 && before.sa_handler != SIG_IGN) {
            ::sigaction(number, &wanted, nullptr);
        }
    }
}

ShutdownSignals::~ShutdownSignals() {
    if (notifier_ == nullptr) {
        return;
    }
    for (const int number : kSignals) {
        struct sigaction now = {};
        if (::sigaction(number, nullptr, &now) == 0 && now.sa_handler == PassOn) {
            std::signal(number, SIG_DFL);
        }
    }
    notifier_.reset();
    ::close(pipeEnds[0]);
    ::close(pipeEnds[1]);
}

#else

ShutdownSignals::ShutdownSignals(std::function<void()>) {}
ShutdownSignals::~ShutdownSignals() = default;

#endif

}  // namespace tolvex
