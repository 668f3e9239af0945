// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QFile>
#include <csignal>

#include "base/stop_signals.h"
#include "base/utf8_locale.h"
#include "cli/command_line.h"
#include "platform/event_loop_clock.h"
#include "platform/settings_file.h"
#include "port/qt_serial_port.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace {

constexpr int kOutput = 1;
constexpr int kErrors = 2;

/// Asked for the first time when the port is about to be opened: until then there is nothing to put
/// in order, and a signal ends the tool at once. From then on it waits for the orderly stop, also
/// of those who send two (`timeout` signals the process and its group); the third ends it.
int SignalAfterStart() {
    tolvex::CatchStopSignals(3);
    return tolvex::StopSignal();
}

/// A file that is opened later must not take the number of a standard stream that was closed:
/// progress would go down the serial line. The null device is opened so that what is lost shows.
void OpenStandardStreams() {
#ifdef Q_OS_UNIX
    std::signal(SIGPIPE, SIG_IGN);  // a reader that went away is a failed write
    for (const int stream : {0, kOutput, kErrors}) {
        if (::fcntl(stream, F_GETFD) == -1) {
            ::open("/dev/null", O_RDONLY);
        }
    }
#endif
}

/// Width of the terminal that the error stream is; 0 = it is none.
int Columns() {
#ifdef Q_OS_UNIX
    constexpr int kUsual = 80;
    winsize size{};
    if (::isatty(kErrors) == 1) {
        return ::ioctl(kErrors, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : kUsual;
    }
#endif
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace tolvex;
    OpenStandardStreams();
    ChooseUtf8Locale();
    const QCoreApplication application(argc, argv);
    QFile out;
    QFile error;
    if (!out.open(kOutput, QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        !error.open(kErrors, QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return kOutputLost;
    }
    Console console(out, error, Columns);
    const SettingsFile settings(SettingsPath());
    ComPorts comPorts(ConfigFolder());
    QtSerialPort port(comPorts);
    EventLoopClock clock;
    return RunCommandLine(QCoreApplication::arguments(),
                          {port, [&port] { return port.LastError(); }, clock, settings, comPorts,
                           console, SignalAfterStart, InspectPort});
}
