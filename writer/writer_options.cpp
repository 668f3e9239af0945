// SPDX-License-Identifier: MIT
#include "writer/writer_options.h"

#include <QCommandLineParser>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFastestBaud = 4'000'000;

QList<QCommandLineOption> KnownOptions() {
    return {
        {u"link"_s, u"Make PATH a symbolic link to the terminal; removed at the end."_s, u"PATH"_s},
        {u"device"_s,
         u"The chip in the socket: its name, part number or list index. Default: that of the state "
         "file, else AT90S1200."_s,
         u"NAME|INDEX"_s},
        {u"empty"_s, u"No chip in the socket."_s},
        {u"firmware"_s, u"Firmware version that the board reports."_s, u"VERSION"_s, u"3.9"_s},
        {u"baud"_s, u"Speed of the line; 0 is as fast as it goes."_s, u"BAUD"_s, u"19200"_s},
        {u"state"_s, u"Keep the chip in FILE from run to run."_s, u"FILE"_s},
        {u"log"_s, u"Write a line a command to FILE."_s, u"FILE"_s},
        {u"replay"_s, u"Play the board's side of the session in FILE, made with --trace."_s,
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
    bool isNumber = false;
    options.baud = parser.value(u"baud"_s).toInt(&isNumber);
    if (!isNumber || options.baud < 0 || options.baud > kFastestBaud) {
        return u"--baud is a number from 0 to %1"_s.arg(kFastestBaud);
    }
    if (parser.isSet(u"device"_s)) {
        options.device = FindChipModel(parser.value(u"device"_s));
        if (!options.device) {
            return u"--device: no such chip: "_s + parser.value(u"device"_s);
        }
    }
    if (options.empty && (options.device || !options.state.isEmpty())) {
        return u"--empty goes with neither --device nor --state"_s;
    }
    for (const QString& other :
         {u"device"_s, u"empty"_s, u"firmware"_s, u"state"_s, u"log"_s, u"fault"_s}) {
        if (parser.isSet(u"replay"_s) && parser.isSet(other)) {
            return u"--replay doesn't go with --"_s + other;
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
    const QString wrong = Read(parser, options);
    if (!wrong.isEmpty()) {
        return {std::nullopt, wrong, 2};
    }
    return {options, {}, 0};
}

}  // namespace tolvex
