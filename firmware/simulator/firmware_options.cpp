// SPDX-License-Identifier: MIT
#include "firmware/simulator/firmware_options.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostMissedClocks = 31;
constexpr int kMostSeed = 1'000'000;
constexpr int kFastestChip = 12'000'000;  // Hz

QList<OptionRow> FirmwareRows(const QString& hex) {
    return {
        {{u"hex"_s, u"The firmware to run."_s, u"FILE"_s, hex}},
        {{u"clock"_s,
          u"The chip has a clock of its own of so many hertz, instead of the board's."_s,
          u"HERTZ"_s},
         kFastestChip},
        {{u"low-supply"_s, u"The chip writes as slowly as at its lowest supply."_s}},
        {{u"missed-clocks"_s, u"The chip misses the first N clocks after a reset."_s, u"N"_s,
          u"0"_s},
         kMostMissedClocks},
        {{u"vcd"_s,
          u"Record RESET, SCK, MOSI, MISO, D9 and the serial line (RXD from the PC, TXD to it) as "
          u"a "
          "Value Change Dump, for PulseView and GTKWave. A second of programming is 30 MB."_s,
          u"FILE"_s}},
        {{u"seed"_s, u"Another noise on lines that float, and in bits without a meaning."_s, u"N"_s,
          u"1"_s},
         kMostSeed},
    };
}

}  // namespace

std::variant<FirmwareOptions, OptionAnswer> ParseFirmwareOptions(const QStringList& arguments,
                                                                 const QString& hex) {
    OptionParser parser(
        u"tolvex-firmware"_s,
        u"The writer board that anyone can build, in a simulator, on a pseudo-terminal. It ends "
        "with status 1 as soon as the firmware breaks a rule of the chips' data sheets."_s,
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
