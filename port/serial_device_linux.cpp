// SPDX-License-Identifier: MIT
// Beside what all Unix systems share.
#include <linux/serial.h>
#include <sys/ioctl.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "port/serial_device.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

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

constexpr int kLowLatency = static_cast<int>(ASYNC_LOW_LATENCY);

}  // namespace

QString StandardPath(int number) {
    for (const PortRange& range : kRanges) {
        if (number >= range.first && number <= range.last) {
            return QString::fromLatin1(range.device) + QString::number(number - range.first);
        }
    }
    return {};
}

// The open files of every process that belongs to the same user stand in /proc.
std::optional<DeviceHolder> FindHolder(const QString& device) {
    for (const QString& process : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        bool isNumber = false;
        const int number = process.toInt(&isNumber);
        if (!isNumber || number == QCoreApplication::applicationPid()) {
            continue;
        }
        const QDir folder(u"/proc/%1/fd"_s.arg(process));
        for (const QFileInfo& file : folder.entryInfoList(QDir::Files | QDir::System)) {
            if (file.symLinkTarget() == device) {
                QFile name(u"/proc/%1/comm"_s.arg(process));
                const bool known = name.open(QIODevice::ReadOnly);
                return DeviceHolder{known ? QString::fromUtf8(name.readAll()).trimmed() : process,
                                    number};
            }
        }
    }
    return std::nullopt;
}

bool SwitchLowLatency(DeviceHandle handle, bool on) {
    serial_struct serial{};
    if (::ioctl(handle, TIOCGSERIAL, &serial) != 0 || ((serial.flags & kLowLatency) != 0) == on) {
        return false;
    }
    serial.flags ^= kLowLatency;
    return ::ioctl(handle, TIOCSSERIAL, &serial) == 0;
}

}  // namespace tolvex
