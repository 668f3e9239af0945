// SPDX-License-Identifier: MIT
#include "cli/devices_command.h"

#include <QJsonArray>

#include "cli/device_choice.h"
#include "device/catalogue.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QString FuseNames(FuseGroup group) {
    switch (group) {
        case FuseGroup::LockOnly:
            return {};
        case FuseGroup::FSTRT:
            return u"FSTRT"_s;
        case FuseGroup::RCEN:
            return u"RCEN"_s;
        case FuseGroup::BOD_CKSEL:
            return u"BODLEVEL BODEN CKSEL"_s;
    }
    return {};
}

}  // namespace

DevicesCommand::DevicesCommand()
    : CliCommand({u"devices"_s, {}, 0, 0, u"デバイスの一覧を表示する。"_s}) {}

int DevicesCommand::Run(Session& session, const Call&) {
    QJsonArray devices;
    for (const DeviceRecord& record : Catalogue()) {
        const QString part = PartNumber(record.name);
        const QString fuses = FuseNames(record.fuseGroup);
        session.Print(u"%1 Flash %2 word  EEPROM %3 byte  %4"_s.arg(part.leftJustified(11))
                          .arg(record.flashWords, 4)
                          .arg(record.eepromBytes, 3)
                          .arg(record.name == part ? fuses : record.name + u' ' + fuses)
                          .trimmed());
        devices << QJsonObject{
            {u"name"_s, part},
            {u"code"_s, record.deviceCode},
            {u"flashWords"_s, record.flashWords},
            {u"eepromBytes"_s, record.eepromBytes},
            {u"fuses"_s, QJsonArray::fromStringList(fuses.split(u' ', Qt::SkipEmptyParts))}};
    }
    session.Report()[u"devices"_s] = devices;
    return kDone;
}

}  // namespace tolvex
