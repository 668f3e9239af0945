// SPDX-License-Identifier: MIT
#include "platform/port_facts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "platform/left_lock.h"

#ifdef Q_OS_UNIX
#include <grp.h>
#include <pwd.h>
#include <unistd.h>
#endif

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

/// As the user database has it, whatever the running session was given.
bool IsMember([[maybe_unused]] const QString& group) {
#ifdef Q_OS_UNIX
    const passwd* const person = ::getpwuid(::getuid());
    const struct group* const found = ::getgrnam(group.toLocal8Bit().constData());
    const QByteArray name = person ? person->pw_name : "";
    for (char** member = found ? found->gr_mem : nullptr; member && *member; ++member) {
        if (name == *member) {
            return true;
        }
    }
#endif
    return false;
}

SeatRule FindSeatRule(const QString& deviceName) {
    if (!deviceName.startsWith(u"ttyUSB"_s) && !deviceName.startsWith(u"ttyACM"_s)) {
        return SeatRule::NotForIt;
    }
    // Where udev looks.
    static const QString kFolders[] = {u"/etc"_s, u"/run"_s, u"/usr/local/lib"_s, u"/usr/lib"_s,
                                       u"/lib"_s};
    const bool installed = std::ranges::any_of(kFolders, [](const QString& folder) {
        return QFileInfo::exists(folder + u"/udev/rules.d/70-tolvex.rules"_s);
    });
    return installed ? SeatRule::Installed : SeatRule::Missing;
}

}  // namespace

PortFacts InspectPort(const QString& path) {
    const QFileInfo device(QFileInfo(path).canonicalFilePath());
    PortFacts facts;
    facts.exists = !path.isEmpty() && device.exists();
    if (facts.exists) {
        facts.permitted = device.isReadable() && device.isWritable();
        facts.group = device.group();
        facts.member = IsMember(facts.group);
        facts.seatRule = FindSeatRule(device.fileName());
        facts.leftLock = LeftLock(path);
        FindHolder(device.filePath(), facts);
    }
    return facts;
}

}  // namespace tolvex
