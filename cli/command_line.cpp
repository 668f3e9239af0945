// SPDX-License-Identifier: MIT
#include "cli/command_line.h"

#include <QJsonDocument>
#include <algorithm>

#include "base/product.h"
#include "cli/command.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kPortVariable = "TOLVEX_PORT";
constexpr auto kDeviceVariable = "TOLVEX_DEVICE";

const QList<QCommandLineOption>& CommonOptionList() {
    static const QList<QCommandLineOption> kOptions = {
        {u"port"_s,
         u"ポート番号かデバイスのパス。省略すると環境変数 TOLVEX_PORT、なければ保存済みのポート。"_s,
         u"COM5|PATH"_s},
        {u"device"_s,
         u"デバイス名。省略すると環境変数 TOLVEX_DEVICE、なければ保存済みのデバイス。"_s,
         u"NAME"_s},
        {u"json"_s, u"結果を JSON で出力する。"_s},
        {u"trace"_s, u"シリアル通信の全バイトを FILE に記録する。"_s, u"FILE"_s},
        {u"quiet"_s, u"経過を表示しない。原因と相違は表示する。"_s},
        {{u"h"_s, u"help"_s}, u"この説明を表示する。"_s},
        {{u"v"_s, u"version"_s}, u"バージョンを表示する。"_s},
    };
    return kOptions;
}

/// The run of one command line.
class CommandLine {
  public:
    CommandLine(const QStringList& arguments, const CliSurroundings& around)
        : arguments_(arguments), around_(around), report_{{u"command"_s, QString()}} {}

    int Run() {
        int status = Carry();
        if (json_) {
            report_[u"exitStatus"_s] = status;
            around_.console.Print(
                QString::fromUtf8(QJsonDocument(report_).toJson(QJsonDocument::Compact)));
        }
        if (around_.console.Lost() && status == kDone) {
            status = kOutputLost;
            around_.console.Complain(u"tolvex-cli: 出力を書けません。"_s);
        }
        return status;
    }

  private:
    int Carry() {
        json_ = arguments_.contains(u"--json"_s);
        FindCommand();
        parser_.setApplicationDescription(product::Description());
        parser_.addOptions(CommonOptionList());
        if (command_) {
            parser_.addOptions(command_->options);
        }
        const bool understood = parser_.parse(arguments_);
        if (parser_.isSet(u"version"_s)) {
            return Answer("version", u"tolvex-cli "_s + product::VersionText());
        }
        if (parser_.isSet(u"help"_s)) {
            return Answer("help", Help());
        }
        if (!understood) {
            return Refuse(WrongOption());
        }
        if (!arguments_.filter(QChar(QChar::ReplacementCharacter)).isEmpty()) {
            return Refuse(u"引数が UTF-8 ではありません。"_s);  // another name would come out
        }
        return command_ ? RunCommand() : Refuse(MissingCommand());
    }

    /// The first word that is neither an option nor an option's value.
    void FindCommand() {
        QCommandLineParser first;
        first.setOptionsAfterPositionalArgumentsMode(
            QCommandLineParser::ParseAsPositionalArguments);
        first.addOptions(CommonOptionList());
        first.parse(arguments_);
        name_ = first.positionalArguments().value(0);
        report_[u"command"_s] = name_;
        const auto found = std::ranges::find(CommandRows(), name_, &CommandRow::name);
        command_ = found == CommandRows().end() ? nullptr : &*found;
    }

    int Answer(const char* key, const QString& text) {
        report_[QString::fromLatin1(key)] = text;
        if (!json_) {
            around_.console.Print(text);
        }
        return kDone;
    }

    QString WrongOption() const {
        const QStringList unknown = parser_.unknownOptionNames();
        return unknown.isEmpty() ? u"オプションの使い方が違います: %1"_s.arg(parser_.errorText())
                                 : u"知らないオプションです: %1"_s.arg(unknown.join(u", "_s));
    }

    QString MissingCommand() const {
        return name_.isEmpty() ? u"コマンドがありません。--help で一覧を表示します。"_s
                               : u"知らないコマンドです: %1"_s.arg(name_);
    }

    static QString Usage(const CommandRow& command) {
        return (command.name + u' ' + command.arguments).trimmed();
    }

    QString Help() {
        if (command_) {
            parser_.setApplicationDescription(command_->summary);
            parser_.addPositionalArgument(command_->name, command_->summary, Usage(*command_));
            return parser_.helpText().trimmed();
        }
        parser_.addPositionalArgument(u"command"_s, u"下のコマンド"_s, u"COMMAND …"_s);
        QString text = parser_.helpText().trimmed() + u"\n\nCommands:"_s;
        for (const CommandRow& command : CommandRows()) {
            text += u"\n  %1 %2"_s.arg(Usage(command).leftJustified(26), command.summary);
        }
        return text;
    }

    int RunCommand() {
        const QStringList words = parser_.positionalArguments().mid(1);
        if (words.size() < command_->least || words.size() > command_->most) {
            return Refuse(u"使い方: tolvex-cli %1"_s.arg(Usage(*command_)));
        }
        CommonOptions options;
        options.outputTaken = command_->run == Read && words.contains(u"-"_s);
        const QString wrong = ReadOptions(options);
        if (!wrong.isEmpty()) {
            return Refuse(wrong);
        }
        Session session(around_, options, name_);
        const int traced = session.OpenTrace();
        const int status =
            session.Finish(traced == kDone ? command_->run(session, {words, parser_}) : traced);
        report_ = session.Report();
        return status;
    }

    /// The option's value, or else the environment's; `from` becomes the name of what gave it.
    QString ValueOf(const char* option, const char* variable, QString& from) const {
        const QString name = QString::fromLatin1(option);
        from = parser_.isSet(name) ? u"--"_s + name : QString::fromLatin1(variable);
        return parser_.isSet(name) ? parser_.value(name) : qEnvironmentVariable(variable);
    }

    /// Empty when all is well, else what is wrong.
    QString ReadOptions(CommonOptions& options) const {
        QString from;
        options.json = json_;
        options.quiet = parser_.isSet(u"quiet"_s);
        options.trace = parser_.value(u"trace"_s);
        const QString port = ValueOf("port", kPortVariable, from);
        if (!port.isEmpty() || parser_.isSet(u"port"_s)) {
            options.port = around_.comPorts.Choose(port);
            if (!options.port) {
                return u"%1: ポートは COM1 から COM20 か、デバイスのパスです: %2"_s.arg(from, port);
            }
        }
        const QString device = ValueOf("device", kDeviceVariable, from);
        if (!device.isEmpty() || parser_.isSet(u"device"_s)) {
            options.device = FindDevice(device);
            if (!options.device) {
                return u"%1: 知らないデバイスです: %2"_s.arg(from, device);
            }
        }
        return options.json && options.outputTaken ? u"--json と標準出力の - は一緒に使えません。"_s
                                                   : QString();
    }

    int Refuse(const QString& reason) {
        around_.console.Complain(u"tolvex-cli: "_s + reason);
        report_[u"error"_s] = QJsonObject{{u"code"_s, QString::fromLatin1(cause::WrongUse.code)},
                                          {u"message"_s, reason}};
        return kWrongUse;
    }

    QStringList arguments_;
    CliSurroundings around_;
    QCommandLineParser parser_;
    QString name_;
    const CommandRow* command_ = nullptr;
    bool json_ = false;
    QJsonObject report_;
};

}  // namespace

int RunCommandLine(const QStringList& arguments, const CliSurroundings& around) {
    return CommandLine(arguments, around).Run();
}

}  // namespace tolvex
