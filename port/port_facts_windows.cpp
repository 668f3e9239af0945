// SPDX-License-Identifier: MIT
#include <QSerialPortInfo>

#include "port/port_facts.h"

namespace tolvex {

/// Every user may use the ports that the system lists. Who has one open, it does not tell.
PortFacts InspectPort(const QString& path) {
    const QSerialPortInfo info(path);
    const bool exists = !info.isNull();
    return {.exists = exists, .permitted = exists};
}

}  // namespace tolvex
