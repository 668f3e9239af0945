// SPDX-License-Identifier: MIT
#include "writer/writer_options.h"

#include <QCommandLineParser>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFastestBaud = 4'000'000;
constexpr int kSlowestAdapter = 255;  // ms, what FTDI adapters can be set to

QList<QCommandLineOption> KnownOptions() {
    return {
        {u"link"_s,
         u"Make PATH a symbolic link to the terminal, removed at the end. What is there already is "
         u"replaced only if it is the link of a board that has ended."_s,
         u"PATH"_s},
        {u"device"_s,
         u"The chip in the socket: its name, part number or list index. Default: that of the state "
         "file, else AT90S1200."_s,
         u"NAME|INDEX"_s},
        {u"empty"_s, u"No chip in the socket."_s},
        {u"firmware"_s, u"Firmware version that the board reports."_s, u"VERSION"_s, u"3.9"_s},
        {u"baud"_s, u"Speed of the line; 0 is as fast as it goes."_s, u"BAUD"_s, u"19200"_s},
        {u"latency"_s,
         u"Answer like an adapter that hands over what has come once in MS milliseconds; 16 is "
         u"usual, 0 is none."_s,
         u"MS"_s, u"0"_s},
        {u"state"_s, u"Keep the chip in FILE from run to run."_s, u"FILE"_s},
        {u"log"_s, u"Write a line a command to FILE."_s, u"FILE"_s},
        {u"replay"_s,
         u"Play the board's side of the session in FILE, made with tolvex-cli --trace, and end "
         u"with it. With --baud 0 the replies come at once instead of at their time."_s,
         u"FILE"_s},
        {u"fault"_s,
         u"Spoil the reply to command K, counted from 1: silent, short, wrong, long, late, "
         u"hang-up. "
         "May be given several times."_s,
         u"K:KIND"_s},
    };
}

std::optional<WriterOptions::PlannedFault> ParseFault(const QString& text) {
    const qsizetype colon = text.indexOf(u':');
    bool isNumber = false;
    const int command = text.left(colon).toInt(&isNumber);
    const auto kind = FaultFromName(text.mid(colon + 1));
    if (colon < 0 || !isNumber || command < 1 || !kind) {
        return std::nullopt;
    }
    return WriterOptions::PlannedFault{command, *kind};
}

bool IsVersion(const QString& text) {
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    return text.size() == 3 && isDigit(text[0]) && text[1] == u'.' && isDigit(text[2]);
}

/// Empty when all is well, else what is wrong.
QString WrongUse(const QCommandLineParser& parser) {
    for (const QString& name : parser.optionNames()) {
        // Newer Qts warn when an option without a value is asked for it.
        const QStringList values = name == u"empty"_s ? QStringList() : parser.values(name);
        if (values.contains(QString())) {
            return u"--%1 needs a value"_s.arg(name);
        }
        if (values.size() > 1 && name != u"fault"_s) {
            return u"--%1 was given twice"_s.arg(name);
        }
        static const QStringList kWithReplay = {u"replay"_s, u"link"_s, u"baud"_s};
        if (parser.isSet(u"replay"_s) && !kWithReplay.contains(name)) {
            return u"--replay doesn't go with --"_s + name;
        }
    }
    const bool chip = parser.isSet(u"device"_s) || parser.isSet(u"state"_s);
    return parser.isSet(u"empty"_s) && chip ? u"--empty goes with neither --device nor --state"_s
                                            : QString();
}

/// A whole number from 0 to `most`.
std::optional<int> Number(const QString& text, int most) {
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber && number >= 0 && number <= most ? std::optional(number) : std::nullopt;
}

/// Empty when all is well, else what is wrong.
QString Read(const QCommandLineParser& parser, WriterOptions& options) {
    options.link = parser.value(u"link"_s);
    options.state = parser.value(u"state"_s);
    options.log = parser.value(u"log"_s);
    options.empty = parser.isSet(u"empty"_s);
    options.replay = parser.value(u"replay"_s);
    options.firmware = parser.value(u"firmware"_s);
    if (!IsVersion(options.firmware)) {
        return u"--firmware is a digit, a point and a digit, such as 3.9"_s;
    }
    const auto baud = Number(parser.value(u"baud"_s), kFastestBaud);
    if (!baud) {
        return u"--baud is a number from 0 to %1"_s.arg(kFastestBaud);
    }
    options.baud = *baud;
    const auto latency = Number(parser.value(u"latency"_s), kSlowestAdapter);
    if (!latency) {
        return u"--latency is a number from 0 to %1"_s.arg(kSlowestAdapter);
    }
    options.latency = std::chrono::milliseconds(*latency);
    if (parser.isSet(u"device"_s)) {
        options.device = FindChipModel(parser.value(u"device"_s));
        if (!options.device) {
            return u"--device: no such chip: "_s + parser.value(u"device"_s);
        }
    }
    for (const QString& text : parser.values(u"fault"_s)) {
        const auto fault = ParseFault(text);
        if (!fault) {
            return u"--fault is K:KIND, such as 3:silent, and not "_s + text;
        }
        options.faults.append(*fault);
    }
    return {};
}

}  // namespace

ParsedOptions ParseOptions(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(u"A simulated writer board on a pseudo-terminal."_s);
    const QCommandLineOption help = parser.addHelpOption();
    parser.addOptions(KnownOptions());
    if (!parser.parse(arguments)) {
        return {std::nullopt, parser.errorText(), 2};
    }
    if (parser.isSet(help)) {
        return {std::nullopt, parser.helpText(), 0};
    }
    if (!parser.positionalArguments().isEmpty()) {
        return {std::nullopt, u"unknown argument: "_s + parser.positionalArguments().first(), 2};
    }
    WriterOptions options;
    const QString use = WrongUse(parser);
    const QString wrong = use.isEmpty() ? Read(parser, options) : use;
    if (!wrong.isEmpty()) {
        return {std::nullopt, wrong, 2};
    }
    return {options, {}, 0};
}

}  // namespace tolvex
