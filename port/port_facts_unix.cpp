// SPDX-License-Identifier: MIT
#include <grp.h>
#include <pwd.h>
#include <unistd.h>

#include <QFileInfo>
#include <algorithm>

#include "port/port_facts.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

UdevRule FindUdevRule(const QString& deviceName) {
    if (!deviceName.startsWith(u"ttyUSB"_s) && !deviceName.startsWith(u"ttyACM"_s)) {
        return UdevRule::NotForDevice;
    }
    // Where udev looks.
    static const QString kFolders[] = {u"/etc"_s, u"/run"_s, u"/usr/local/lib"_s, u"/usr/lib"_s,
                                       u"/lib"_s};
    const bool installed = std::ranges::any_of(kFolders, [](const QString& folder) {
        return QFileInfo::exists(folder + u"/udev/rules.d/70-tolvex.rules"_s);
    });
    return installed ? UdevRule::Installed : UdevRule::Missing;
}

/// Whether the user belongs to `group` by the user database, whatever the running session was
/// given.
bool IsGroupMember(const QString& group) {
    const passwd* const user = ::getpwuid(::getuid());
    const struct group* const found = ::getgrnam(group.toLocal8Bit().constData());
    const QByteArray name = user ? user->pw_name : "";
    for (char** member = found ? found->gr_mem : nullptr; member && *member; ++member) {
        if (name == *member) {
            return true;
        }
    }
    return false;
}

}  // namespace

PortFacts InspectPort(const QString& path) {
    const QFileInfo device(QFileInfo(path).canonicalFilePath());
    PortFacts facts;
    facts.exists = !path.isEmpty() && device.exists();
    if (facts.exists) {
        facts.serial = !device.isFile() && !device.isDir();
        facts.permitted = device.isReadable() && device.isWritable();
        if (const QString group = device.group(); !group.isEmpty()) {
            facts.group = group;
            facts.member = IsGroupMember(group);
        }
        facts.udevRule = FindUdevRule(device.fileName());
        facts.staleLockFile = FindStaleLockFile(path);
        facts.holder = FindHolder(device.filePath());
    }
    return facts;
}

}  // namespace tolvex
