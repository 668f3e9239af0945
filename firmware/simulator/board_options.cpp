// SPDX-License-Identifier: MIT
#include "firmware/simulator/board_options.h"

#include <QCommandLineParser>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostMissedClocks = 31;

QList<QCommandLineOption> KnownOptions(const QString& hex) {
    return {
        {u"hex"_s, u"The firmware to run."_s, u"FILE"_s, hex},
        {u"link"_s, u"Make PATH a symbolic link to the terminal; removed at the end."_s, u"PATH"_s},
        {u"device"_s, u"The chip in the socket: its name, part number or list index."_s,
         u"NAME|INDEX"_s, u"0"_s},
        {u"empty"_s, u"No chip in the socket."_s},
        {u"state"_s, u"Keep the chip in FILE from run to run."_s, u"FILE"_s},
        {u"clock"_s, u"The chip has a clock of its own of so many hertz."_s, u"HERTZ"_s, u"0"_s},
        {u"low-supply"_s, u"The chip writes as slowly as at the lowest supply."_s},
        {u"times"_s, u"Print how long programming takes, in simulated time, and end."_s},
        {u"missed-clocks"_s, u"The chip doesn't notice the first N clocks after a reset."_s, u"N"_s,
         u"0"_s},
    };
}

/// Empty when all is well, else what is wrong.
QString Read(const QCommandLineParser& parser, BoardOptions& options) {
    bool isClock = false;
    bool isCount = false;
    options.hex = parser.value(u"hex"_s);
    options.link = parser.value(u"link"_s);
    options.state = parser.value(u"state"_s);
    options.times = parser.isSet(u"times"_s);
    options.habits.lowSupply = parser.isSet(u"low-supply"_s);
    options.habits.ownClockHertz = parser.value(u"clock"_s).toDouble(&isClock);
    options.habits.missedClocks = parser.value(u"missed-clocks"_s).toInt(&isCount);
    if (!isClock || options.habits.ownClockHertz < 0) {
        return u"--clock is a number of hertz"_s;
    }
    if (!isCount || options.habits.missedClocks < 0 ||
        options.habits.missedClocks > kMostMissedClocks) {
        return u"--missed-clocks is a number from 0 to %1"_s.arg(kMostMissedClocks);
    }
    if (parser.isSet(u"empty"_s)) {
        return parser.isSet(u"device"_s) || parser.isSet(u"state"_s)
                   ? u"--empty goes with neither --device nor --state"_s
                   : QString();
    }
    options.device = FindChipModel(parser.value(u"device"_s));
    return options.device ? QString() : u"--device: no such chip: "_s + parser.value(u"device"_s);
}

}  // namespace

ParsedBoardOptions ParseBoardOptions(const QStringList& arguments, const QString& hex) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"The writer board that anyone can build, in a simulator, on a pseudo-terminal. It ends "
        "with status 1 as soon as the firmware does something that a chip need not put up with."_s);
    const QCommandLineOption help = parser.addHelpOption();
    parser.addOptions(KnownOptions(hex));
    if (!parser.parse(arguments)) {
        return {std::nullopt, parser.errorText(), 2};
    }
    if (parser.isSet(help)) {
        return {std::nullopt, parser.helpText(), 0};
    }
    BoardOptions options;
    const QString wrong = parser.positionalArguments().isEmpty()
                              ? Read(parser, options)
                              : u"unknown argument: "_s + parser.positionalArguments().first();
    if (!wrong.isEmpty()) {
        return {std::nullopt, wrong, 2};
    }
    return {options, {}, 0};
}

}  // namespace tolvex
