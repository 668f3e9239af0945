// SPDX-License-Identifier: MIT
#pragma once

#include "port/com_ports.h"
#include "port/port_facts.h"

namespace tolvex {

/// Why a port does not work as it should, and the command that mends it on this system.
struct PortRemedy {
    QString text;     ///< sentences for the user
    QString command;  ///< only what is needed
};

/// `text` as one word of a command that is printed to be pasted.
QString Quoted(const QString& text);

/// The device of port `number` does not exist. If another adapter is attached, the remedy gives its
/// device that number.
PortRemedy MissingPort(const ComPorts& ports, int number);
/// It exists, but the user may not use it.
PortRemedy ForbiddenPort(const QString& path, const PortFacts& facts);
/// It could not be opened, for the system's `reason`.
PortRemedy BusyPort(const QString& path, const PortFacts& facts, const QString& reason);
/// Its adapter holds received bytes back: the USB latency timer (FTDI's default is 16 ms).
PortRemedy SlowPort(const QString& path);
/// A program that has ended left `lockFile`. Tolvex ignores it, other programs don't.
PortRemedy LockedPort(const QString& lockFile);

}  // namespace tolvex
