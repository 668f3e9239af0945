// SPDX-License-Identifier: MIT
#include <windows.h>

#include <atomic>
#include <csignal>

#include "base/stop_signals.h"

namespace tolvex {

namespace {

// The system calls the handler in a thread of its own.
std::atomic<int> lastSignal = 0;
std::atomic<int> left = 0;  ///< of Ctrl-C and Ctrl-Break, those that ask

int NumberOf(DWORD event) {
    switch (event) {
        case CTRL_C_EVENT:
            return SIGINT;
        case CTRL_BREAK_EVENT:
            return SIGBREAK;
        default:
            return SIGTERM;
    }
}

BOOL WINAPI Ask(DWORD event) {
    lastSignal = NumberOf(event);
    if (lastSignal == SIGTERM) {
        // The program would end as soon as this returns.
        ::Sleep(INFINITE);
    }
    return left-- > 0 ? TRUE : FALSE;
}

}  // namespace

void CatchStopSignals(int endAt) {
    static bool caught = false;
    if (!caught) {
        caught = true;
        left = endAt - 1;
        ::SetConsoleCtrlHandler(Ask, TRUE);
    }
}

int StopSignal() {
    return lastSignal;
}

int StopDescriptor() {
    return -1;
}

}  // namespace tolvex
