// SPDX-License-Identifier: MIT
#include "writer/board_options.h"

#include "base/command_line_help.h"
#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QList<OptionRow> CommonOptions() {
    return {
        {{u"link"_s,
          Text::tr("端末へのシンボリックリンクを PATH に作り、終わるときに消す。"
                   "既にあるものを置き換えるのは、終了した模擬ライタのリンクのときだけ。"),
          u"PATH"_s}},
        {{u"device"_s,
          Text::tr("ソケットのチップ。名前、型番、またはデバイスの一覧での番号。"
                   "省略すると状態ファイルのチップ、なければ AT90S1200。"),
          u"NAME|INDEX"_s}},
        {{u"empty"_s, Text::tr("ソケットにチップがない。")}},
        {{u"state"_s, Text::tr("チップの内容を FILE に残し、次の回に引き継ぐ。"), u"FILE"_s}},
    };
}

}  // namespace

OptionParser::OptionParser(const QString& program, const QString& description,
                           const QList<OptionRow>& own)
    : program_(program), description_(description), rows_(CommonOptions() + own) {}

std::optional<OptionAnswer> OptionParser::Parse(const QStringList& arguments) {
    const QCommandLineOption help({u"h"_s, u"help"_s}, Text::tr("この説明を表示する。"));
    const QCommandLineOption version({u"v"_s, u"version"_s}, Text::tr("バージョンを表示する。"));
    QList<QCommandLineOption> options = {help, version};
    for (const OptionRow& row : rows_) {
        options << row.option;
    }
    parser_.addOptions(options);
    if (!parser_.parse(arguments)) {
        return OptionAnswer{WrongOption(parser_, options, arguments), 2};
    }
    if (parser_.isSet(help)) {
        return OptionAnswer{UsageLine(program_, {}) + u'\n' + HelpParagraph(description_) +
                                u"\n\n"_s +
                                HelpSection(Text::tr("オプション:"), HelpRows(options)) + u'\n',
                            0};
    }
    if (parser_.isSet(version)) {
        return OptionAnswer{u"%1 Version %2.%3.%4\n"_s.arg(program_)
                                .arg(TOLVEX_VERSION_MAJOR)
                                .arg(TOLVEX_VERSION_MINOR)
                                .arg(TOLVEX_VERSION_REVISION),
                            0};
    }
    if (const auto wrong = WrongUse()) {
        return OptionAnswer{*wrong, 2};
    }
    board_.link = Value(u"link"_s);
    board_.state = Value(u"state"_s);
    board_.empty = IsSet(u"empty"_s);
    if (const auto device = Value(u"device"_s)) {
        board_.device = FindChipModel(*device);
        if (!board_.device) {
            return OptionAnswer{Text::tr("--device: 知らないチップです: %1").arg(*device), 2};
        }
    }
    return std::nullopt;
}

std::optional<QString> OptionParser::WrongUse() const {
    if (!parser_.positionalArguments().isEmpty()) {
        return Text::tr("知らない引数です: %1").arg(parser_.positionalArguments().first());
    }
    for (const OptionRow& row : rows_) {
        if (const auto wrong = WrongValues(row)) {
            return wrong;
        }
    }
    if (IsSet(u"empty"_s) && (IsSet(u"device"_s) || IsSet(u"state"_s))) {
        return Text::tr("--empty と --device、--state は一緒に指定できません");
    }
    return std::nullopt;
}

std::optional<QString> OptionParser::WrongValues(const OptionRow& row) const {
    const QString name = row.option.names().first();
    // Newer Qts warn when an option without a value is asked for it.
    const QStringList values = row.option.valueName().isEmpty() ? QStringList() : Values(name);
    if (values.contains(QString())) {
        return Text::tr("--%1 の値がありません").arg(name);
    }
    if (values.size() > 1 && !row.repeated) {
        return Text::tr("--%1 が二度指定されています").arg(name);
    }
    if (row.most && !values.isEmpty() && !Number(name)) {
        return Text::tr("--%1 は 0 から %2 までの数です").arg(name).arg(*row.most);
    }
    return std::nullopt;
}

QStringList OptionParser::Given() const {
    QStringList names;
    for (const OptionRow& row : rows_) {
        const QString name = row.option.names().first();
        if (parser_.isSet(name)) {
            names << name;
        }
    }
    return names;
}

std::optional<QString> OptionParser::Value(const QString& name) const {
    const QStringList values = Values(name);
    return values.isEmpty() ? std::nullopt : std::optional(values.last());
}

std::optional<int> OptionParser::Number(const QString& name) const {
    for (const OptionRow& row : rows_) {
        if (row.option.names().first() == name && row.most) {
            bool isNumber = false;
            const int number = Value(name).value_or(QString()).toInt(&isNumber);
            return isNumber && number >= 0 && number <= *row.most ? std::optional(number)
                                                                  : std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace tolvex
