// SPDX-License-Identifier: MIT
// The commands that need no writer.
#include <QBuffer>
#include <QJsonArray>

#include "cli/command.h"
#include "cli/image_files.h"
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
        return u"なし"_s;
    }
    const QString permission = facts.permitted ? u"使用可"_s : u"権限なし"_s;
    return port.present ? permission : permission + u" (未接続)"_s;
}

constexpr int kAnyMemory = 0x10000;  ///< bytes; the form alone is looked at

HexReport CheckFile(const QString& path, int memoryBytes) {
    const auto text = ReadInput(path);
    if (!text) {
        return {};
    }
    QBuffer buffer;
    buffer.setData(*text);
    buffer.open(QIODevice::ReadOnly);
    return CheckHex(buffer, memoryBytes);
}

}  // namespace

Status Check(Session& session, const Call& call) {
    const CurrentDevice& device = session.access.Device();
    QJsonArray files;
    bool readable = true;
    bool clean = true;
    for (const QString& path : call.arguments) {
        const bool data = IsDataFileName(path);
        const int memory = data ? device.eepromBytes : 2 * device.flashWords;
        const int size = session.DeviceChosen() ? memory : kAnyMemory;
        const HexReport report = CheckFile(path, size);
        readable = readable && report.readable;
        clean = clean && report.Clean();
        QJsonArray findings;
        for (const HexFinding& finding : report.findings) {
            session.output.Print(u"%1: %2"_s.arg(path, HexFindingText(finding)));
            findings << HexFindingJson(finding);
        }
        const QString bytes = QString::number(report.bytes);
        if (!report.readable) {
            session.output.Print(u"%1: 読めません。"_s.arg(path));
        } else if (report.Clean() && session.DeviceChosen()) {
            session.output.Print(u"%1: OK (%2 byte / %3 %4 byte)"_s.arg(
                path, bytes, PartNumber(device.name), QString::number(size)));
        } else if (report.Clean()) {
            session.output.Print(u"%1: OK (%2 byte、デバイスは未指定)"_s.arg(path, bytes));
        } else if (const auto cure = CureOf(report)) {
            session.output.Print(*cure);
        }
        files << QJsonObject{{u"file"_s, path},
                             {u"readable"_s, report.readable},
                             {u"records"_s, report.records},
                             {u"bytes"_s, report.bytes},
                             {u"findings"_s, findings}};
    }
    session.output.Report(report::Checked, files);
    if (!readable) {
        return Failure{cause::FileNotReadable, u"読めないファイルがあります。"_s};
    }
    if (!clean) {
        return Failure{cause::BadFile, u"HEX ファイルに誤りがあります。"_s};
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
        session.output.Print(u"%1 Flash %2 word  EEPROM %3 byte  %4"_s.arg(part.leftJustified(11))
                                 .arg(record.flashWords, 4)
                                 .arg(record.eepromBytes, 3)
                                 .arg(record.name == part ? fuses : record.name + u' ' + fuses)
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
