// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMap>
#include <QSerialPortInfo>
#include <QString>
#include <functional>
#include <optional>

#include "base/serial_port.h"

namespace tolvex {

struct ComPort {
    int number = 0;      ///< 1 to 20
    QString devicePath;  ///< what is opened for it
    /// Something is attached: the link's target exists, or the system lists the adapter. A bare
    /// device node proves nothing (Linux keeps /dev/ttyS0 to 3 without any hardware).
    bool present = false;
    QString adapter;  ///< the adapter's own name; empty when unknown
};

struct PortChoice {
    int number;   ///< 1 to 20
    bool byPath;  ///< the user named the path; the number stands for it
};

/// Which device stands behind COM1 to COM20. On Windows they are the system's own ports. Elsewhere,
/// first match: a link `ports/comN` in the configuration folder, where the user can put any
/// device; else COM1-4 /dev/ttyS0-3, COM5-12 /dev/ttyUSB0-7, COM13-20 /dev/ttyACM0-7; on macOS, in
/// the order of their names, the serial devices that are attached.
class ComPorts {
  public:
    using Lister = std::function<QList<QSerialPortInfo>()>;

    /// `configFolder` may be missing, and may end in a separator or not. `attached` lists the
    /// serial ports that the system has.
    explicit ComPorts(const QString& configFolder,
                      Lister attached = QSerialPortInfo::availablePorts);

    /// The path to open, looked up anew each time. A dangling link is still the answer: opening it
    /// then fails, instead of reaching a device that the user did not mean. Empty for a number
    /// outside 1 to 20.
    QString DevicePath(int number) const;

    /// From now on `number` leads to `path`, whatever else is set up for it.
    void Assign(int number, const QString& path) { assigned_[number] = path; }

    /// The COM number that `text` stands for: a number ("COM5", "5"), or a device path, which is
    /// then assigned to that number. Nothing for a number outside 1 to 20.
    std::optional<PortChoice> Choose(const QString& text);

    /// The folder of the links, which need not exist; nothing on a system without them.
    const std::optional<QString>& LinkFolder() const { return linkFolder_; }

    /// All twenty, in order.
    QList<ComPort> All() const;
    /// Those at which something is attached, each device once.
    QList<ComPort> Attached() const;

  private:
    std::optional<QString> linkFolder_;
    Lister attached_;
    QMap<int, QString> assigned_;
};

}  // namespace tolvex
