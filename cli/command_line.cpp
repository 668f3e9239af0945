// SPDX-License-Identifier: MIT
#include "cli/command_line.h"

#include <QJsonDocument>
#include <algorithm>

#include "base/product.h"
#include "cli/command.h"
#include "cli/device_choice.h"
#include "cli/port_choice.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QList<QCommandLineOption> CommonOptionList() {
    return {
        {u"port"_s, u"ポート番号かデバイスのパス。省略すると保存済みのポート。"_s, u"COM5|PATH"_s},
        {u"device"_s, u"デバイス名。省略すると保存済みのデバイス。"_s, u"NAME"_s},
        {u"json"_s, u"結果を JSON で出力する。"_s},
        {u"trace"_s, u"シリアル通信の全バイトを FILE に記録する。"_s, u"FILE"_s},
        {u"quiet"_s, u"経過を表示しない。"_s},
    };
}

/// The run of one command line.
class CommandLine {
  public:
    CommandLine(const QStringList& arguments, const CliSurroundings& around)
        : arguments_(arguments), around_(around), commands_(AllCommands()) {}

    int Run() {
        FindCommand();
        parser_.setApplicationDescription(product::Description());
        const QCommandLineOption help(QStringList{u"h"_s, u"help"_s}, u"この説明を表示する。"_s);
        const QCommandLineOption version(QStringList{u"v"_s, u"version"_s},
                                         u"バージョンを表示する。"_s);
        parser_.addOptions({help, version});
        parser_.addOptions(CommonOptionList());
        if (command_) {
            parser_.addOptions(command_->Face().options);
        }
        const bool understood = parser_.parse(arguments_);
        if (parser_.isSet(version)) {
            around_.console.Print(u"tolvex-cli "_s + product::VersionText());
            return kDone;
        }
        if (parser_.isSet(help)) {
            around_.console.Print(Help());
            return kDone;
        }
        if (!understood) {
            return Refuse(WrongOption());
        }
        return command_ ? RunCommand() : Refuse(MissingCommand());
    }

  private:
    /// The first word that is neither an option nor an option's value.
    void FindCommand() {
        QCommandLineParser first;
        first.setOptionsAfterPositionalArgumentsMode(
            QCommandLineParser::ParseAsPositionalArguments);
        first.addOptions(CommonOptionList());
        first.parse(arguments_);
        name_ = first.positionalArguments().value(0);
        const auto found = std::ranges::find_if(
            commands_, [this](const auto& command) { return command->Face().name == name_; });
        command_ = found == commands_.end() ? nullptr : found->get();
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

    QString Help() {
        if (command_) {
            const CommandFace& face = command_->Face();
            parser_.setApplicationDescription(face.summary);
            parser_.addPositionalArgument(face.name, face.summary,
                                          (face.name + u' ' + face.arguments).trimmed());
            return parser_.helpText().trimmed();
        }
        parser_.addPositionalArgument(u"command"_s, u"下のコマンド"_s, u"COMMAND …"_s);
        QString text = parser_.helpText().trimmed() + u"\n\nCommands:"_s;
        for (const auto& command : commands_) {
            const CommandFace& face = command->Face();
            const QString usage = (face.name + u' ' + face.arguments).trimmed();
            text += u"\n  %1 %2"_s.arg(usage.leftJustified(26), face.summary);
        }
        return text;
    }

    int RunCommand() {
        const CommandFace& face = command_->Face();
        const QStringList words = parser_.positionalArguments().mid(1);
        if (words.size() < face.least || words.size() > face.most) {
            return Refuse(u"使い方: tolvex-cli %1 %2"_s.arg(face.name, face.arguments).trimmed());
        }
        CommonOptions options;
        const QString wrong = Read(options);
        if (!wrong.isEmpty()) {
            return Refuse(wrong);
        }
        Session session(around_, options, face.name);
        return session.Finish(session.OpenTrace() ? command_->Run(session, {words, parser_})
                                                  : int{kWrongUse});
    }

    /// Empty when all is well, else what is wrong.
    QString Read(CommonOptions& options) const {
        options.json = parser_.isSet(u"json"_s);
        options.quiet = parser_.isSet(u"quiet"_s);
        options.trace = parser_.value(u"trace"_s);
        if (parser_.isSet(u"port"_s)) {
            options.port = ChoosePort(parser_.value(u"port"_s), around_.comPorts);
            if (!options.port) {
                return u"ポートは COM1 から COM20 か、デバイスのパスです: %1"_s.arg(
                    parser_.value(u"port"_s));
            }
        }
        if (parser_.isSet(u"device"_s)) {
            options.device = ChooseDevice(parser_.value(u"device"_s));
            if (!options.device) {
                return u"知らないデバイスです: %1"_s.arg(parser_.value(u"device"_s));
            }
        }
        return {};
    }

    int Refuse(const QString& reason) {
        around_.console.Complain(u"tolvex-cli: "_s + reason);
        if (arguments_.contains(u"--json"_s)) {
            const QJsonObject report{
                {u"command"_s, name_},
                {u"error"_s, QJsonObject{{u"code"_s, u"wrongUse"_s}, {u"message"_s, reason}}},
                {u"exitStatus"_s, kWrongUse}};
            around_.console.Print(
                QString::fromUtf8(QJsonDocument(report).toJson(QJsonDocument::Compact)));
        }
        return kWrongUse;
    }

    QStringList arguments_;
    CliSurroundings around_;
    std::vector<std::unique_ptr<CliCommand>> commands_;
    QCommandLineParser parser_;
    QString name_;
    CliCommand* command_ = nullptr;
};

}  // namespace

int RunCommandLine(const QStringList& arguments, const CliSurroundings& around) {
    return CommandLine(arguments, around).Run();
}

}  // namespace tolvex
