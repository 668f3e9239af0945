// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QFile>

#include "base/language.h"
#include "base/stop_signals.h"
#include "cli/command_line.h"
#include "platform/event_loop_clock.h"
#include "platform/program_start.h"
#include "platform/settings_file.h"
#include "port/qt_serial_port.h"

namespace {

constexpr int kOutput = 1;
constexpr int kErrors = 2;

/// Asked for the first time when the port is about to be opened: until then there is nothing to put
/// in order, and a signal ends the tool at once. From then on it waits for the orderly stop.
int SignalAfterStart() {
    tolvex::CatchStopSignals(tolvex::kSignalThatEnds);
    return tolvex::StopSignal();
}

}  // namespace

int main(int argc, char** argv) {
    using namespace tolvex;
    OpenStandardStreams();
    const Language language = TerminalLanguage();  // of the locale that the user has
    ChooseUtf8Locale();
    const QCoreApplication application(argc, argv);
    const auto texts = InstallTexts(language);
    QFile out;
    QFile error;
    if (!out.open(kOutput, QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        !error.open(kErrors, QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return static_cast<int>(ExitStatus::OutputLost);
    }
    Console console(out, error, TerminalColumns);
    const SettingsFile settings(SettingsPath());
    ComPorts comPorts(ConfigFolder());
    QtSerialPort port(comPorts);
    EventLoopClock clock;
    return static_cast<int>(RunCommandLine(
        QCoreApplication::arguments(),
        {port, [&port] { return port.LastError(); }, [&port] { return port.IsBusy(); }, clock,
         settings, comPorts, console, SignalAfterStart, InspectPort}));
}
