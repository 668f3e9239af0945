// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>

#include "base/event_clock.h"
#include "base/settings.h"
#include "cli/console.h"
#include "port/com_ports.h"
#include "port/port_facts.h"

namespace tolvex {

/// What the tool finds around it; borrowed, all of it outlives the run.
struct CliSurroundings {
    SerialPort& port;
    std::function<QString()> portError;  ///< why the last opening failed
    std::function<bool()> portBusy;      ///< it failed because another program has the port
    EventClock& clock;
    const Settings& settings;  ///< the stored ones
    ComPorts& comPorts;
    Console& console;
    std::function<int()> signal;  ///< the signal that asks to stop; 0 = none
    std::function<PortFacts(const QString& path)> inspectPort;
};

/// The options that every command knows.
struct CommonOptions {
    bool json = false;
    bool quiet = false;
    bool outputIsFile = false;  ///< a memory's HEX file; what is printed goes to the errors
    bool overwrite = false;     ///< files that exist are replaced
    std::optional<PortChoice> port = {};  ///< nothing = the stored one
    std::optional<int> device = {};       ///< entry of the device list; nothing = the stored one
    std::optional<QString> trace = {};    ///< a file
};

/// The port of a run.
struct ChosenPort {
    int number;  ///< 1 to 20
    QString path;
    bool byPath;  ///< the user named the path, and is not told the number

    /// For the user: "COM5 (/dev/ttyUSB0)", or the path alone.
    QString Name() const {
        return byPath ? path : QStringLiteral("COM%1 (%2)").arg(number).arg(path);
    }
};

}  // namespace tolvex
