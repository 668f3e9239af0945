// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QObject>
#include <QSerialPort>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace tolvex {

/// A serial device as the system knows it, where Qt's serial port does not go. The files
/// serial_device_<system>.cpp hold what differs between systems; where one knows nothing of a
/// matter, it gives what "nothing was found" gives.

/// What is opened for COM1 to COM20 when the user has set up nothing else. Empty for a number
/// outside of that, and for a device that the system would have to list and doesn't.
QString StandardPath(int number);

/// The folder of links `comN` that go before the standard paths; nothing where the system itself
/// numbers the ports. It need not exist.
std::optional<QString> PortLinkFolder(const QString& configFolder);

/// The device that `text`, which is not empty and no COM number, names: a path, or a name as the
/// system lists it.
QString DeviceNamed(const QString& text);

struct DeviceHolder {
    QString program;
    int process = 0;
};

/// Another process of the same user that has `device` open (an absolute path without links).
std::optional<DeviceHolder> FindHolder(const QString& device);

/// The lock file of a serial port that a program of this machine has left behind: it names a
/// process that has ended. `portName` is a device path, or a name in /dev.
std::optional<QString> FindStaleLockFile(const QString& portName);

/// An open device. All of the following take one.
using DeviceHandle = decltype(std::declval<const QSerialPort&>().handle());

/// Keeps programs away that look at advisory locks. False when another one holds the device.
/// Exclusive mode (Qt asks the driver for it) binds neither a privileged process nor one that
/// opened the device before; this lock, which terminal programs take as well, closes the gap.
bool LockDevice(DeviceHandle handle);

/// The far end went away.
bool HasHungUp(DeviceHandle handle);

/// Calls `onEvent` from the event loop when something befalls the device, perhaps a hang-up, as
/// long as the object lives. Nothing where Qt's serial port notices by itself.
std::unique_ptr<QObject> WatchForHangUp(DeviceHandle handle, std::function<void()> onEvent);

/// Whether received bytes may lie in the system's buffer.
bool HasInput(DeviceHandle handle);

/// How many bytes from the front the device took at once; 0 where only Qt's buffer is the way.
qsizetype WriteAtOnce(DeviceHandle handle, QByteArrayView bytes);

/// Clears HUPCL, the setting that drops DTR when the device is closed: the next opening would raise
/// DTR again, and boards made of an Arduino take that edge for a reset. True when it was set, so
/// that this opening has raised DTR.
bool ClearHupcl(DeviceHandle handle);

/// Closes `port` and leaves DTR up. Qt puts back the settings that it found, HUPCL included.
void CloseWithDtrUp(QSerialPort& port);

/// Switches the driver's low-latency mode; true when that changed it. It shortens the USB latency
/// timer: FTDI's default is 16 ms, and each of the many one-byte replies is that late. The driver
/// keeps the mode for whoever opens the device next.
bool SwitchLowLatency(DeviceHandle handle, bool on);

}  // namespace tolvex
