// SPDX-License-Identifier: MIT
#pragma once

#include "app/help_window.h"
#include "app/window_program.h"
#include "platform/event_loop_clock.h"
#include "platform/settings_file.h"
#include "platform/window_dialogs.h"
#include "port/com_ports.h"
#include "port/qt_serial_port.h"

namespace tolvex {

/// What the program stands on on a user's desktop: settings and ports, the event loop, windows for
/// questions and help. The benchmark puts its window on the same.
struct Desktop {
    SettingsFile settings{SettingsPath()};
    ComPorts comPorts{ConfigFolder()};
    QtSerialPort port{comPorts};
    EventLoopClock clock;
    QWidget* blocked = nullptr;  ///< by a question; not owned
    WindowDialogs dialogs{[this] { return blocked; }};
    std::unique_ptr<HelpWindow> help;

    /// With `line` in the place of the port, or in front of it. Nothing is copied: all of it
    /// outlives the program.
    WindowProgram::Parts Parts(SerialPort& line, const AppDir& folders) {
        return {.port = line,
                .clock = clock,
                .settings = settings,
                .folders = folders,
                .comPorts = comPorts,
                .dialogs = dialogs,
                .showHelp = [this](const QString& file) { ShowHelp(help, file); }};
    }
};

}  // namespace tolvex
