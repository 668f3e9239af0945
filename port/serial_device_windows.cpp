// SPDX-License-Identifier: MIT
#include "base/serial_port.h"
#include "port/serial_device.h"

namespace tolvex {

using namespace Qt::StringLiterals;

QString StandardPath(int number) {
    return number >= 1 && number <= kComPortCount ? u"COM%1"_s.arg(number) : QString();
}

std::optional<QString> PortLinkFolder(const QString&) {
    return std::nullopt;
}

std::optional<DeviceHolder> FindHolder(const QString&) {
    return std::nullopt;
}

bool IsGroupMember(const QString&) {
    return false;
}

std::optional<QString> FindStaleLockFile(const QString&) {
    return std::nullopt;
}

// An open port belongs to one process alone.
bool LockDevice(DeviceHandle) {
    return true;
}

bool HasHungUp(DeviceHandle) {
    return false;
}

std::unique_ptr<QObject> WatchForHangUp(DeviceHandle, std::function<void()>) {
    return nullptr;
}

bool HasInput(DeviceHandle) {
    return true;
}

qsizetype WriteAtOnce(DeviceHandle, QByteArrayView) {
    return 0;
}

bool ClearHupcl(DeviceHandle) {
    return false;
}

void CloseWithDtrUp(QSerialPort& port) {
    port.close();
}

bool SwitchLowLatency(DeviceHandle, bool) {
    return false;
}

}  // namespace tolvex
