// SPDX-License-Identifier: MIT
#include "platform/com_ports.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSerialPortInfo>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

#if !defined(Q_OS_WIN) && !defined(Q_OS_MACOS)
struct PortRange {
    int first;
    int last;
    const char* device;  ///< followed by number - first
};

constexpr PortRange kRanges[] = {
    {1, 4, "/dev/ttyS"},
    {5, 12, "/dev/ttyUSB"},
    {13, 20, "/dev/ttyACM"},
};
#endif

QString StandardPath(int number) {
#ifdef Q_OS_WIN
    return u"COM%1"_s.arg(number);
#elif defined(Q_OS_MACOS)
    // Named after maker and place there; "cu" opens without a carrier.
    QStringList paths;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        paths << info.systemLocation();
    }
    paths = paths.filter(u"/cu."_s);
    paths.sort();
    return paths.value(number - 1);
#else
    for (const PortRange& range : kRanges) {
        if (number >= range.first && number <= range.last) {
            return QString::fromLatin1(range.device) + QString::number(number - range.first);
        }
    }
    return {};
#endif
}

/// The name that says most to a person.
QString AdapterName(const QSerialPortInfo& info) {
    return info.description().isEmpty() ? info.manufacturer() : info.description();
}

/// A bare name is a device's own, as the system lists it.
QString WholePath(const QString& text) {
    return text.contains(u'/') ? QFileInfo(text).absoluteFilePath() : u"/dev/"_s + text;
}

}  // namespace

ComPorts::ComPorts(const QString& configFolder)
    : linkFolder_(QDir(configFolder).absoluteFilePath(u"ports"_s)) {}

QString ComPorts::DevicePath(int number) const {
    if (number < 1 || number > kComPortCount) {
        return {};
    }
    if (assigned_.contains(number)) {
        return assigned_[number];
    }
#ifndef Q_OS_WIN
    const QFileInfo link(linkFolder_ + u"/com%1"_s.arg(number));
    if (link.isSymLink() || link.exists()) {
        return link.filePath();
    }
#endif
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
    const QString path = WholePath(text);
    for (int number = 1; number <= kComPortCount; ++number) {
        if (DevicePath(number) == path) {
            return PortChoice{number, true};
        }
    }
    Assign(1, path);
    return PortChoice{1, true};
}

QList<ComPort> ComPorts::All() const {
    const QList<QSerialPortInfo> attached = QSerialPortInfo::availablePorts();
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

}  // namespace tolvex
