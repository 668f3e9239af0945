// SPDX-License-Identifier: MIT
// Beside what all Unix systems share.
#include <QSerialPortInfo>
#include <QStringList>

#include "port/serial_device.h"

namespace tolvex {

using namespace Qt::StringLiterals;

// Devices are named after maker and place there; "cu" opens without a carrier.
QString StandardPath(int number) {
    QStringList paths;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        paths << info.systemLocation();
    }
    paths = paths.filter(u"/cu."_s);
    paths.sort();
    return paths.value(number - 1);
}

std::optional<DeviceHolder> FindHolder(const QString&) {
    return std::nullopt;
}

bool SwitchLowLatency(DeviceHandle, bool) {
    return false;
}

}  // namespace tolvex
