// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QFile>
#include <csignal>
#include <cstdio>

#include "cli/command_line.h"
#include "platform/event_loop_clock.h"
#include "platform/qt_serial_port.h"
#include "platform/settings_file.h"

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

// A signal handler reaches nothing else.
volatile std::sig_atomic_t stopAsked = 0;

bool IsTerminal([[maybe_unused]] FILE* stream) {
#ifdef Q_OS_UNIX
    return ::isatty(::fileno(stream)) == 1;
#else
    return false;
#endif
}

}  // namespace

int main(int argc, char** argv) {
    using namespace tolvex;
    // The first Ctrl-C ends the work in order, the second one the program.
    std::signal(SIGINT, [](int) {
        stopAsked = 1;
        std::signal(SIGINT, SIG_DFL);
    });
    const QCoreApplication application(argc, argv);
    QFile out;
    QFile error;
    if (!out.open(stdout, QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        !error.open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return kWrongUse;
    }
    Console console(out, error, IsTerminal(stderr));
    const SettingsFile settings(SettingsPath());
    ComPorts comPorts(ConfigFolder());
    QtSerialPort port(comPorts);
    EventLoopClock clock;
    return RunCommandLine(QCoreApplication::arguments(),
                          {port, [&port] { return port.LastError(); }, clock, settings, comPorts,
                           console, [] { return stopAsked != 0; }, InspectPort});
}
