// SPDX-License-Identifier: MIT
#include "port/com_ports.h"

#include <QFileInfo>
#include <QRegularExpression>

#include "port/serial_device.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// The name by which the user knows the adapter.
QString AdapterName(const QSerialPortInfo& info) {
    return info.description().isEmpty() ? info.manufacturer() : info.description();
}

}  // namespace

ComPorts::ComPorts(const QString& configFolder, Lister attached)
    : linkFolder_(PortLinkFolder(configFolder)), attached_(std::move(attached)) {}

QString ComPorts::DevicePath(int number) const {
    if (number < 1 || number > kComPortCount) {
        return {};
    }
    if (assigned_.contains(number)) {
        return assigned_[number];
    }
    if (linkFolder_) {
        const QFileInfo link(*linkFolder_ + u"/com%1"_s.arg(number));
        if (link.isSymLink() || link.exists()) {
            return link.filePath();
        }
    }
    return StandardPath(number);
}

std::optional<PortChoice> ComPorts::Choose(const QString& text) {
    static const QRegularExpression numbered(u"^(?:COM)?(\\d+)$"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    const auto match = numbered.match(text);
    if (match.hasMatch()) {
        const int number = match.captured(1).toInt();
        return number >= 1 && number <= kComPortCount ? std::optional(PortChoice{number, false})
                                                      : std::nullopt;
    }
    if (text.isEmpty()) {
        return std::nullopt;
    }
    const QString path = DeviceNamed(text);
    for (int number = 1; number <= kComPortCount; ++number) {
        if (DevicePath(number) == path) {
            return PortChoice{number, true};
        }
    }
    Assign(1, path);
    return PortChoice{1, true};
}

QList<ComPort> ComPorts::All() const {
    const QList<QSerialPortInfo> attached = attached_();
    QList<ComPort> ports;
    for (int number = 1; number <= kComPortCount; ++number) {
        ComPort port{number, DevicePath(number), false, {}};
        const bool linked = port.devicePath != StandardPath(number);
        const QString device = QFileInfo(port.devicePath).canonicalFilePath();
        port.present = linked && !device.isEmpty();
        for (const QSerialPortInfo& info : attached) {
            if (info.systemLocation() == device || info.portName() == port.devicePath) {
                port.present = true;
                port.adapter = AdapterName(info);
            }
        }
        ports << port;
    }
    return ports;
}

QList<ComPort> ComPorts::Attached() const {
    QList<ComPort> ports;
    QStringList devices;
    for (const ComPort& port : All()) {
        const QString device = QFileInfo(port.devicePath).canonicalFilePath();
        if (port.present && (device.isEmpty() || !devices.contains(device))) {
            ports << port;
            devices << device;
        }
    }
    return ports;
}

}  // namespace tolvex
