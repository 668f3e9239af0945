// SPDX-License-Identifier: MIT
// The writer that anyone can build: its wiring for the device, its firmware, and how to burn that.
#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <algorithm>
#include <cerrno>

#include "base/system_cause.h"
#include "base/text.h"
#include "cli/command.h"
#include "device/catalogue.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// Which pins of a package are what; docs/build-a-writer.md has the same table.
struct Package {
    QStringList parts;
    QString reset, mosi, miso, sck, vcc, gnd, xtal1;
};

// clang-format off
const QList<Package>& Packages() {
    static const QList<Package> kPackages = {
        {{u"AT90S2323"_s, u"AT90S2343"_s}, u"1"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"4"_s, u"2"_s},
        {{u"AT90S1200"_s, u"AT90S1200A"_s, u"AT90S2313"_s}, u"1"_s, u"17"_s, u"18"_s, u"19"_s, u"20"_s, u"10"_s, u"5"_s},
        {{u"AT90S2333"_s, u"AT90S4433"_s}, u"1"_s, u"17"_s, u"18"_s, u"19"_s, u"7, 20"_s, u"8, 22"_s, u"9"_s},
        {{u"AT90S4414"_s, u"AT90S8515"_s}, u"9"_s, u"6"_s, u"7"_s, u"8"_s, u"40"_s, u"20"_s, u"19"_s},
        {{u"AT90S8535"_s}, u"9"_s, u"6"_s, u"7"_s, u"8"_s, u"10, 30"_s, u"11, 31"_s, u"13"_s},
    };
    return kPackages;
}

struct Wire {
    QString board, chip;
    QString Package::*pins;
    QString with;  ///< what stands in the line or at it
};

QList<Wire> Wires() {
    return {
        {u"D10"_s, u"RESET"_s, &Package::reset, Text::tr("470 Ω、RESET と VCC の間に 10 kΩ")},
        {u"D11"_s, u"MOSI"_s,  &Package::mosi,  u"470 Ω"_s},
        {u"D12"_s, u"MISO"_s,  &Package::miso,  u"470 Ω"_s},
        {u"D13"_s, u"SCK"_s,   &Package::sck,   u"470 Ω"_s},
        {u"5V"_s,  u"VCC"_s,   &Package::vcc,   Text::tr("VCC と GND の間に 100 nF")},
        {u"GND"_s, u"GND"_s,   &Package::gnd,   Text::tr("D8 との間に LED と 1 kΩ")},
        {u"D9"_s,  u"XTAL1"_s, &Package::xtal1, u"470 Ω"_s},
    };
}
// clang-format on

void TellWiring(Session& session, const QString& part) {
    const auto package = std::ranges::find_if(
        Packages(), [&part](const Package& row) { return row.parts.contains(part); });
    Q_ASSERT(package != Packages().end());
    session.output.Print(Text::tr("Arduino Uno R3 / Nano と %1 の結線:").arg(part));
    QJsonArray wiring;
    for (const Wire& wire : Wires()) {
        const QString pins = (*package).*wire.pins;
        session.output.Print(u"  %1 %2 %3 %4"_s.arg(wire.board.leftJustified(4),
                                                    wire.chip.leftJustified(6),
                                                    pins.leftJustified(7), wire.with));
        wiring << QJsonObject{
            {u"arduino"_s, wire.board}, {u"chip"_s, wire.chip}, {u"pins"_s, pins}};
    }
    if (part == u"AT90S1200A"_s) {
        session.output.Print(Text::tr("内部の RC クロックで動くので、D9 はつなぎません。"));
    } else {
        session.output.Print(Text::tr(
            "自分のクロックで動いているチップ（水晶発振子、RCEN）には D9 をつなぎません。"));
    }
    session.output.Report(report::Wiring, wiring);
}

/// The firmware beside the program, or in the build folder.
std::optional<QString> FirmwareFile() {
    const QString folder = QCoreApplication::applicationDirPath();
    for (const QString& place :
         {folder + u"/tolvex_writer.hex"_s, folder + u"/../firmware/tolvex_writer.hex"_s}) {
        if (QFileInfo(place).isFile()) {
            return QFileInfo(place).canonicalFilePath();
        }
    }
    return std::nullopt;
}

/// The port that was named, or the first at which something like an Arduino is attached.
std::optional<QString> BurnPort(const Session& session, bool named) {
    if (named && session.Port()) {
        return session.Port()->path;
    }
    for (const ComPort& port : session.Around().comPorts.All()) {
        if (port.present) {
            return port.devicePath;
        }
    }
    return std::nullopt;
}

Status CopyFirmware(const QString& from, const QString& to) {
    if (QFileInfo::exists(to)) {
        return Failure{cause::FileExists, Text::tr("%1 は既にあります。").arg(to)};
    }
    errno = 0;
    if (!QFile::copy(from, to)) {
        return Failure{cause::FileNotWritten,
                       Text::tr("%1 を書けません: %2").arg(to, SystemCause(errno))};
    }
    return {};
}

}  // namespace

Status BuildWriter(Session& session, const Call& call) {
    TellWiring(session, PartNumber(session.access.Device().name));
    const auto firmware = FirmwareFile();
    if (!firmware) {
        return Failure{cause::FileNotReadable,
                       Text::tr("ファームウエア tolvex_writer.hex がありません。"),
                       u"cmake -S firmware -B build-firmware && cmake --build build-firmware"_s};
    }
    const QString hex = call.arguments.value(0, *firmware);
    if (!call.arguments.isEmpty()) {
        if (const Status failed = CopyFirmware(*firmware, hex)) {
            return failed;
        }
    }
    session.output.Report(report::Hex, hex);
    const auto port = BurnPort(session, call.Has("port"));
    if (!port) {
        session.output.Print(Text::tr("Arduino をつなぐと、書き込むコマンドを表示します。"));
        return {};
    }
    const QString burn =
        u"avrdude -p m328p -c arduino -P %1 -b 115200 -U flash:w:%2:i"_s.arg(*port, hex);
    session.output.Print(
        Text::tr("ファームウエアの書き込み（RESET のコンデンサとチップを外して。"
                 "古い Nano では -b 57600）:"));
    session.output.Print(u"  "_s + burn);
    session.output.Report(report::Burn, burn);
    return {};
}

}  // namespace tolvex
