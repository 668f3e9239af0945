// SPDX-License-Identifier: MIT
#include "firmware/simulator/firmware_options.h"

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostMissedClocks = 31;
constexpr int kMostSeed = 1'000'000;
constexpr int kFastestChip = 12'000'000;  // Hz

QList<OptionRow> FirmwareRows(const QString& hex) {
    return {
        {{u"hex"_s, Text::tr("実行するファームウエア。"), u"FILE"_s, hex}},
        {{u"clock"_s,
          Text::tr(
              "チップが、ボードのクロックの代わりに、この周波数 (Hz) の自分のクロックで動く。"),
          u"HERTZ"_s},
         kFastestChip},
        {{u"low-supply"_s, Text::tr("チップの書き込みが、最低の電源電圧のときと同じ遅さになる。")}},
        {{u"missed-clocks"_s, Text::tr("チップが、リセットの後の最初の N クロックを取りこぼす。"),
          u"N"_s, u"0"_s},
         kMostMissedClocks},
        {{u"vcd"_s,
          Text::tr("RESET、SCK、MOSI、MISO、D9 とシリアル通信（PC からの RXD、PC への TXD）を "
                   "Value Change Dump として FILE に記録する。PulseView と GTKWave で読める。"
                   "書き込み 1 秒で 30 MB になる。"),
          u"FILE"_s}},
        {{u"seed"_s, Text::tr("浮いた線と、意味のないビットの雑音を変える。"), u"N"_s, u"1"_s},
         kMostSeed},
    };
}

}  // namespace

std::variant<FirmwareOptions, OptionAnswer> ParseFirmwareOptions(const QStringList& arguments,
                                                                 const QString& hex) {
    OptionParser parser(
        u"tolvex-firmware"_s,
        Text::tr(
            "自作のライタのボードをシミュレータで動かし、疑似端末につなぐ。"
            "ファームウエアがチップのデータシートの規定に反すると、すぐにステータス 1 で終わる。"),
        FirmwareRows(hex));
    if (const auto answer = parser.Parse(arguments)) {
        return *answer;
    }
    FirmwareOptions options;
    options.board = parser.Board();
    options.vcd = parser.Value(u"vcd"_s);
    options.hex = parser.Value(u"hex"_s).value_or(QString());
    options.chip.lowSupply = parser.IsSet(u"low-supply"_s);
    options.chip.ownClockHertz = parser.Number(u"clock"_s);
    options.chip.missedClocks = parser.Number(u"missed-clocks"_s).value_or(0);
    options.chip.seed = static_cast<unsigned>(parser.Number(u"seed"_s).value_or(1));
    return options;
}

}  // namespace tolvex
