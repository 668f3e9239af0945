// SPDX-License-Identifier: MIT
// The commands that need no writer.
#include <QJsonArray>

#include "base/text.h"
#include "cli/command.h"
#include "cli/input_file.h"
#include "device/catalogue.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QStringList FuseNames(FuseGroup group) {
    QStringList names;
    for (const OptionRow& row : OptionRows()) {
        if (row.list != OptionList::LockBit && HasOption(group, row.list)) {
            names << row.name;
        }
    }
    return names;
}

QString State(const ComPort& port, const PortFacts& facts) {
    if (!facts.exists) {
        return Text::tr("なし");
    }
    const QString permission = facts.permitted ? Text::tr("使用可") : Text::tr("権限なし");
    return port.present ? permission : permission + Text::tr(" (未接続)");
}

/// Bytes, where the form alone is looked at: what the images hold.
constexpr int kAnyMemory = 0x10000, kAnyEeprom = 2048;

/// What a file holds for one memory.
struct CheckedPart {
    QString name;  ///< as it is told
    int memoryBytes;
    HexReport report;
};

/// An ELF file may have both memories' data, the others have what their names say.
QList<CheckedPart> CheckFile(Session& session, const InputFile& file) {
    const CurrentDevice& device = session.access.Device();
    const int flashBytes = session.DeviceChosen() ? 2 * device.flashWords : kAnyMemory;
    const int eepromBytes = session.DeviceChosen() ? device.eepromBytes : kAnyEeprom;
    MemoryImages images;
    QList<CheckedPart> parts;
    if (!IsDataFileName(file.path)) {
        parts << CheckedPart{file.path, flashBytes, FillImage(file, flashBytes, images.flash)};
    }
    if (parts.isEmpty() || !file.elf.eeprom.isEmpty()) {
        parts << CheckedPart{parts.isEmpty() ? file.path : file.path + u" (.eeprom)"_s, eepromBytes,
                             FillImage(file, eepromBytes, images.eeprom)};
    }
    return parts;
}

/// True where there is nothing to find fault with.
bool TellPart(Session& session, const CheckedPart& part) {
    const QString bytes = ByteCount(part.report.bytes);
    for (const QString& line : FindingLines(part.name, part.report)) {
        session.output.Print(line);
    }
    if (part.report.Clean() && session.DeviceChosen()) {
        session.output.Print(Text::tr("%1: OK (%2 / %3 %4)")
                                 .arg(part.name, bytes, PartNumber(session.access.Device().name),
                                      ByteCount(part.memoryBytes)));
    } else if (part.report.Clean()) {
        session.output.Print(Text::tr("%1: OK (%2、デバイスは未指定)").arg(part.name, bytes));
    }
    return part.report.Clean();
}

QJsonObject CheckedJson(const QString& path, const HexReport& report) {
    QJsonArray findings;
    for (const HexFinding& finding : report.findings) {
        findings << HexFindingJson(finding);
    }
    return {{u"file"_s, path},
            {u"readable"_s, report.readable},
            {u"records"_s, report.records},
            {u"bytes"_s, report.bytes},
            {u"findings"_s, findings}};
}

}  // namespace

Status Check(Session& session, const Call& call) {
    QJsonArray files;
    bool readable = true;
    bool clean = true;
    for (const QString& path : call.arguments) {
        const auto file = TakeInput(path, false);
        if (!file) {
            const bool unreadable = file.Failed().cause.code == cause::FileNotReadable.code;
            session.output.Print(file.Failed().text);
            readable = readable && !unreadable;
            clean = false;
            files << CheckedJson(path, {.readable = !unreadable});
            continue;
        }
        for (const CheckedPart& part : CheckFile(session, *file)) {
            clean = TellPart(session, part) && clean;
            files << CheckedJson(part.name, part.report);
        }
        if (file->lowerCase) {
            session.output.Print(
                Text::tr(
                    "%1: 小文字の16進数字があります。ウインドウのプログラムは 0 として読みます。")
                    .arg(path));
        }
    }
    session.output.Report(report::Checked, files);
    if (!readable) {
        return Failure{cause::FileNotReadable, Text::tr("読めないファイルがあります。")};
    }
    if (!clean) {
        return Failure{cause::BadFile, Text::tr("HEX ファイルに誤りがあります。")};
    }
    return {};
}

Status ListPorts(Session& session, const Call& call) {
    QJsonArray ports;
    for (const ComPort& port : session.Around().comPorts.All()) {
        const PortFacts facts = session.Around().inspectPort(port.devicePath);
        if (!facts.exists && !port.present && !call.Has("all")) {
            continue;
        }
        session.output.Print(u"%1 %2 %3 %4"_s
                                 .arg(u"COM%1"_s.arg(port.number).leftJustified(5),
                                      port.devicePath.leftJustified(14), State(port, facts),
                                      port.adapter)
                                 .trimmed());
        ports << QJsonObject{{u"number"_s, port.number},   {u"path"_s, port.devicePath},
                             {u"present"_s, port.present}, {u"adapter"_s, port.adapter},
                             {u"exists"_s, facts.exists},  {u"permitted"_s, facts.permitted}};
    }
    session.output.Report(report::Ports, ports);
    return {};
}

Status ListDevices(Session& session, const Call&) {
    QJsonArray devices;
    for (const DeviceRecord& record : Catalogue()) {
        const QString part = PartNumber(record.name);
        const QStringList names = FuseNames(record.fuseGroup);
        const QString fuses = names.join(u' ');
        session.output.Print(
            Text::tr("%1 Flash %2 word  EEPROM %3 byte  %4")
                .arg(part.leftJustified(11))
                .arg(record.flashWords, 4)
                .arg(record.eepromBytes, 3)
                .arg(record.name == part ? fuses : ShownName(record) + u' ' + fuses)
                .trimmed());
        devices << QJsonObject{{u"name"_s, part},
                               {u"code"_s, record.deviceCode},
                               {u"flashWords"_s, record.flashWords},
                               {u"eepromBytes"_s, record.eepromBytes},
                               {u"fuses"_s, QJsonArray::fromStringList(names)}};
    }
    session.output.Report(report::Devices, devices);
    return {};
}

}  // namespace tolvex
