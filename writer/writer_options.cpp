// SPDX-License-Identifier: MIT
#include "writer/writer_options.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFastestBaud = 4'000'000;
constexpr int kSlowestAdapter = 255;  // ms, the longest that FTDI adapters can be set to

QList<OptionRow> WriterRows() {
    return {
        {{u"firmware"_s, u"Firmware version that the board reports."_s, u"VERSION"_s, u"3.9"_s}},
        {{u"baud"_s, u"Speed of the line; 0 is as fast as it goes."_s, u"BAUD"_s, u"19200"_s},
         kFastestBaud},
        {{u"latency"_s,
          u"USB latency timer of the adapter in milliseconds (FTDI's default is 16 ms); 0 is "
          "none."_s,
          u"MS"_s, u"0"_s},
         kSlowestAdapter},
        {{u"log"_s, u"Write one line for each command to FILE."_s, u"FILE"_s}},
        {{u"socket"_s,
          u"Change chips while the board runs: FILE holds what is in the socket, a chip's name and "
          "its state file, or nothing."_s,
          u"FILE"_s}},
        {{u"replay"_s,
          u"Play the board's side of the session in FILE, recorded with tolvex-cli --trace, and "
          "end with it. With --baud 0 the replies come at once instead of at their time."_s,
          u"FILE"_s}},
        {{u"fault"_s,
          u"Spoil the reply to command K, counted from 1: silent, short, wrong, long, late, "
          u"hang-up. May be given several times."_s,
          u"K:KIND"_s},
         {},
         true},
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

std::optional<QString> NotForReplay(const QStringList& given) {
    static const QStringList kWithReplay = {u"replay"_s, u"link"_s, u"baud"_s};
    for (const QString& name : given) {
        if (!kWithReplay.contains(name)) {
            return u"--replay doesn't go with --"_s + name;
        }
    }
    return std::nullopt;
}

}  // namespace

std::variant<WriterOptions, OptionAnswer> ParseWriterOptions(const QStringList& arguments) {
    OptionParser parser(u"tolvex-writer"_s, u"A simulated writer board on a pseudo-terminal."_s,
                        WriterRows());
    if (const auto answer = parser.Parse(arguments)) {
        return *answer;
    }
    WriterOptions options;
    options.board = parser.Board();
    options.firmware = parser.Value(u"firmware"_s).value_or(QString());
    options.baud = parser.Number(u"baud"_s).value_or(0);
    options.latency = std::chrono::milliseconds(parser.Number(u"latency"_s).value_or(0));
    options.log = parser.Value(u"log"_s);
    options.socket = parser.Value(u"socket"_s);
    options.replay = parser.Value(u"replay"_s);
    if (options.replay) {
        if (const auto wrong = NotForReplay(parser.Given())) {
            return OptionAnswer{*wrong, 2};
        }
    }
    if (options.socket && (options.board.device || options.board.state)) {
        return OptionAnswer{u"--socket goes with neither --device nor --state"_s, 2};
    }
    options.board.empty = options.board.empty || options.socket;
    if (!IsVersion(options.firmware)) {
        return OptionAnswer{u"--firmware is a digit, a point and a digit, such as 3.9"_s, 2};
    }
    for (const QString& text : parser.Values(u"fault"_s)) {
        const auto fault = ParseFault(text);
        if (!fault) {
            return OptionAnswer{u"--fault is K:KIND, such as 3:silent, and not "_s + text, 2};
        }
        options.faults.append(*fault);
    }
    return options;
}

}  // namespace tolvex
