// SPDX-License-Identifier: MIT
#include <windows.h>

#include "base/serial_port.h"
#include "port/serial_device.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// The driver's state of the open device; nothing when it no longer answers.
std::optional<COMSTAT> AskDriver(DeviceHandle handle) {
    DWORD errors = 0;
    COMSTAT state{};
    return ::ClearCommError(handle, &errors, &state) != FALSE ? std::optional(state) : std::nullopt;
}

}  // namespace

QString StandardPath(int number) {
    return number >= 1 && number <= kComPortCount ? u"COM%1"_s.arg(number) : QString();
}

std::optional<QString> PortLinkFolder(const QString&) {
    return std::nullopt;
}

QString DeviceNamed(const QString& text) {
    return text;
}

std::optional<DeviceHolder> FindHolder(const QString&) {
    return std::nullopt;
}

std::optional<QString> FindStaleLockFile(const QString&) {
    return std::nullopt;
}

// An open port belongs to one process alone.
bool LockDevice(DeviceHandle) {
    return true;
}

bool HasHungUp(DeviceHandle handle) {
    return !AskDriver(handle);
}

std::unique_ptr<QObject> WatchForHangUp(DeviceHandle, std::function<void()>) {
    return nullptr;
}

bool HasInput(DeviceHandle handle) {
    const auto state = AskDriver(handle);
    return state && state->cbInQue > 0;
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
