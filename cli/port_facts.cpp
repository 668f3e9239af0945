// SPDX-License-Identifier: MIT
#include "cli/port_facts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// Linux shows the open files of every process that belongs to the same person.
void FindHolder([[maybe_unused]] const QString& device, [[maybe_unused]] PortFacts& facts) {
#ifdef Q_OS_LINUX
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
                facts.holder = known ? QString::fromUtf8(name.readAll()).trimmed() : process;
                facts.holderProcess = number;
                return;
            }
        }
    }
#endif
}

}  // namespace

PortFacts InspectPort(const QString& path) {
    const QFileInfo device(QFileInfo(path).canonicalFilePath());
    PortFacts facts;
    facts.exists = !path.isEmpty() && device.exists();
    if (facts.exists) {
        facts.permitted = device.isReadable() && device.isWritable();
        facts.group = device.group();
        FindHolder(device.filePath(), facts);
    }
    return facts;
}

}  // namespace tolvex
