// SPDX-License-Identifier: MIT
#include "writer/writer_options.h"

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFastestBaud = 4'000'000;
constexpr int kSlowestAdapter = 255;  // ms, the longest that FTDI adapters can be set to

QList<OptionRow> WriterRows() {
    return {
        {{u"firmware"_s, Text::tr("ライタが答えるファームウエアのバージョン。"), u"VERSION"_s,
          u"3.9"_s}},
        {{u"baud"_s, Text::tr("通信の速さ。0 は速さに制限のないことを表す。"), u"BAUD"_s,
          u"19200"_s},
         kFastestBaud},
        {{u"latency"_s,
          Text::tr("アダプタの USB レイテンシタイマ（ミリ秒）。FTDI の初期値は 16 ms。0 "
                   "は待ち時間なし。"),
          u"MS"_s, u"0"_s},
         kSlowestAdapter},
        {{u"log"_s, Text::tr("コマンド 1 つにつき 1 行を FILE に書く。"), u"FILE"_s}},
        {{u"socket"_s,
          Text::tr(
              "動かしたままチップを替える。ソケットにあるもの（チップの名前とその状態ファイル、"
              "なければ空）を FILE に書く。"),
          u"FILE"_s}},
        {{u"replay"_s,
          Text::tr("tolvex-cli --trace で FILE "
                   "に記録した通信の、ボードの側を再生し、その終わりで終わる。"
                   "--baud 0 を付けると、応答は記録の時刻を待たずにすぐ返る。"),
          u"FILE"_s}},
        {{u"fault"_s,
          Text::tr("1 から数えて K 番目のコマンドの応答を壊す: silent, short, wrong, long, late, "
                   "hang-up。何度でも指定できる。"),
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
            return Text::tr("--replay と --%1 は一緒に指定できません").arg(name);
        }
    }
    return std::nullopt;
}

}  // namespace

std::variant<WriterOptions, OptionAnswer> ParseWriterOptions(const QStringList& arguments) {
    OptionParser parser(u"tolvex-writer"_s, Text::tr("疑似端末につながる模擬ライタ。"),
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
        return OptionAnswer{Text::tr("--socket と --device、--state は一緒に指定できません"), 2};
    }
    options.board.empty = options.board.empty || options.socket;
    if (!IsVersion(options.firmware)) {
        return OptionAnswer{Text::tr("--firmware は 3.9 のように、数字、点、数字で指定します"), 2};
    }
    for (const QString& text : parser.Values(u"fault"_s)) {
        const auto fault = ParseFault(text);
        if (!fault) {
            return OptionAnswer{
                Text::tr("--fault は 3:silent のように K:KIND で指定します: %1").arg(text), 2};
        }
        options.faults.append(*fault);
    }
    return options;
}

}  // namespace tolvex
