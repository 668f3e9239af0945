// SPDX-License-Identifier: MIT
#pragma once

#include "port/com_ports.h"
#include "port/port_facts.h"

namespace tolvex {

/// What keeps a port from working as it should, and what mends it on this system.
struct PortRemedy {
    QString text;     ///< sentences for a person
    QString command;  ///< only what is needed
};

/// The device of port `number` does not exist. Another one that something hangs on is taken for
/// what was meant.
PortRemedy MissingPort(const ComPorts& ports, int number);
/// It exists, but this person may not use it.
PortRemedy ForbiddenPort(const QString& path, const PortFacts& facts);
/// It could not be opened, for the system's `reason`.
PortRemedy BusyPort(const QString& path, const PortFacts& facts, const QString& reason);
/// It holds bytes back before it hands them on.
PortRemedy SlowPort(const QString& path);
/// A program that has ended left `lockFile`, which is passed over here, but keeps others away.
PortRemedy LockedPort(const QString& lockFile);

}  // namespace tolvex
