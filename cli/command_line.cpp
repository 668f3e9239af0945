// SPDX-License-Identifier: MIT
#include "cli/command_line.h"

#include <algorithm>

#include "base/command_line_help.h"
#include "base/product.h"
#include "base/text.h"
#include "cli/command.h"
#include "cli/image_files.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kPortVariable = "TOLVEX_PORT";
constexpr auto kDeviceVariable = "TOLVEX_DEVICE";

QList<QCommandLineOption> CommonOptionList() {
    return {
        {{u"p"_s, u"port"_s},
         Text::tr("ポート番号かデバイスのパス。省略すると環境変数 "
                  "TOLVEX_PORT、なければ保存済みのポート。"),
         u"COM5|PATH"_s},
        {{u"d"_s, u"device"_s},
         Text::tr("デバイス名。省略すると環境変数 TOLVEX_DEVICE、なければ保存済みのデバイス。"),
         u"NAME"_s},
        {{u"j"_s, u"json"_s}, Text::tr("結果を JSON で出力する。")},
        {u"trace"_s, Text::tr("シリアル通信の全バイトを FILE に記録する。"), u"FILE"_s},
        {u"overwrite"_s, Text::tr("read の出力と --trace で、既にあるファイルを置き換える。")},
        {{u"q"_s, u"quiet"_s}, Text::tr("経過を表示しない。原因と相違は表示する。")},
        {{u"h"_s, u"help"_s}, Text::tr("この説明を表示する。")},
        {{u"V"_s, u"v"_s, u"version"_s}, Text::tr("バージョンを表示する。")},
    };
}

/// The run of one command line.
class CommandLine {
  public:
    CommandLine(const QStringList& arguments, const CliSurroundings& around)
        : arguments_(arguments), around_(around), output_(around.console, around.clock) {}

    ExitStatus Run() {
        json_ = arguments_.contains(u"--json"_s);
        output_.SetOptions({.json = json_});
        ExitStatus status = Carry();
        output_.Report(report::ExitStatus, static_cast<int>(status));
        output_.PrintReport();
        if (around_.console.Lost() && status == ExitStatus::Done) {
            status = ExitStatus::OutputLost;
            around_.console.Complain(Text::tr("tolvex-cli: 出力を書けません。"));
        }
        return status;
    }

  private:
    ExitStatus Carry() {
        FindCommand();
        QList<QCommandLineOption> options = CommonOptionList();
        if (command_) {
            options << command_->options;
        }
        parser_.addOptions(options);
        const bool understood = parser_.parse(arguments_);
        json_ = json_ || parser_.isSet(u"json"_s);
        output_.SetOptions({.json = json_});
        if (parser_.isSet(u"version"_s)) {
            return Answer(report::Version, u"tolvex-cli "_s + product::VersionText());
        }
        if (parser_.isSet(u"help"_s)) {
            return Answer(report::Help, Help(options));
        }
        if (!understood) {
            return Refuse(WrongOption(parser_, options, arguments_));
        }
        if (!arguments_.filter(QChar(QChar::ReplacementCharacter)).isEmpty()) {
            return Refuse(
                Text::tr("引数が UTF-8 ではありません。"));  // another name would come out
        }
        if (const auto empty = Empty()) {
            return Refuse(*empty);
        }
        return command_ ? RunCommand() : Refuse(MissingCommand());
    }

    /// What was typed as nothing, mostly a shell's variable that is not set. It never means "none":
    /// a chip would be erased with it.
    std::optional<QString> Empty() const {
        for (const QString& option : parser_.optionNames()) {
            if (parser_.values(option).contains(QString())) {
                return option.size() == 1 ? Text::tr("-%1 の値が空です。").arg(option)
                                          : Text::tr("--%1 の値が空です。").arg(option);
            }
        }
        return parser_.positionalArguments().contains(QString())
                   ? std::optional(
                         Text::tr("空の引数があります。シェルの変数が空でないか確認してください。"))
                   : std::nullopt;
    }

    /// The first word that is neither an option nor an option's value.
    void FindCommand() {
        QCommandLineParser first;
        first.setOptionsAfterPositionalArgumentsMode(
            QCommandLineParser::ParseAsPositionalArguments);
        first.addOptions(CommonOptionList());
        first.parse(arguments_);
        name_ = first.positionalArguments().value(0);
        output_.Report(report::Command, name_);
        const auto found = std::ranges::find(commands_, name_, &CliCommand::name);
        command_ = found == commands_.end() ? nullptr : &*found;
    }

    ExitStatus Answer(report::Key key, const QString& text) {
        output_.Report(key, text);
        output_.Print(text);
        return ExitStatus::Done;
    }

    QString MissingCommand() const {
        return name_.isEmpty() ? Text::tr("コマンドがありません。--help で一覧を表示します。")
                               : Text::tr("知らないコマンドです: %1").arg(name_);
    }

    static QString Usage(const CliCommand& command) {
        return (command.name + u' ' + command.arguments).trimmed();
    }

    QString Help(const QList<QCommandLineOption>& options) const {
        const QString arguments = command_ ? Usage(*command_) : u"COMMAND …"_s;
        const QString summary = command_ ? command_->summary : product::Description();
        QString text = UsageLine(u"tolvex-cli"_s, arguments) + u'\n' + HelpParagraph(summary) +
                       u"\n\n"_s + HelpSection(Text::tr("オプション:"), HelpRows(options));
        if (!command_) {
            QList<HelpRow> rows;
            for (const CliCommand& command : commands_) {
                rows << HelpRow{Usage(command), command.summary};
            }
            text += u"\n\n"_s + HelpSection(Text::tr("コマンド:"), rows);
        }
        if (command_ && command_->takes) {
            text += u"\n\n"_s + command_->takes(HelpDevice());
        }
        return text;
    }

    /// The device that the run would have: whose bits the help lists.
    const DeviceRecord& HelpDevice() const {
        const auto named = Find("device", kDeviceVariable);
        const int stored = static_cast<int>(GetNumber(around_.settings, keys::Device));
        const auto index =
            static_cast<std::size_t>((named ? FindDevice(named->value) : stored).value_or(stored));
        return Catalogue()[index < Catalogue().size() ? index : 0];
    }

    /// The lists and the check need no port, and a wrong one in the environment is no reason to
    /// refuse them. A path would stand for a number that the list has to show as it is.
    bool NeedsPort() const {
        return command_->run != Check && command_->run != ListPorts && command_->run != ListDevices;
    }

    /// A run that nobody chose a port for takes the only adapter there is, and tells so.
    void FindPort(CommonOptions& options) {
        const QList<ComPort> attached = around_.comPorts.Attached();
        if (!NeedsPort() || command_->run == BuildWriter || options.port || attached.size() != 1 ||
            GetNumber(around_.settings, keys::ComNoxChosen) != 0) {
            return;
        }
        const ComPort& port = attached.first();
        options.port = PortChoice{port.number, false};
        output_.Tell(Text::tr("ポートは選ばれていません。つながっているものを使います: %1")
                         .arg(ChosenPort{port.number, port.devicePath, false}.Name()));
    }

    ExitStatus RunCommand() {
        const QStringList words = parser_.positionalArguments().mid(1);
        if (words.size() < command_->least || words.size() > command_->most) {
            return Refuse(Text::tr("使い方: tolvex-cli %1").arg(Usage(*command_)));
        }
        const auto read = ReadOptions((command_->run == Read && words.contains(u"-"_s)) ||
                                      (command_->run == Dump && !json_));
        if (!read) {
            return Refuse(read.Failed().text);
        }
        CommonOptions options = *read;
        output_.SetOptions(options);
        if (options.trace && IsNamed(*options.trace, words)) {
            return Refuse(
                Text::tr("--trace のファイルが、ほかの引数と同じです: %1").arg(*options.trace));
        }
        FindPort(options);
        Session session(around_, options, output_);
        return session.Finish(command_->run(session, {words, parser_}));
    }

    /// The trace would empty a file that the command reads or writes.
    static bool IsNamed(const QString& trace, const QStringList& words) {
        return std::ranges::any_of(words, [&trace](const QString& word) {
            return IsSameFile(trace, word) || IsSameFile(trace, DataBeside(word).value_or(word));
        });
    }

    struct Setting {
        QString from;  ///< what gave it: "--port", "TOLVEX_PORT"
        QString value;
    };
    /// The option's value, or else the environment's, where an empty one is none.
    std::optional<Setting> Find(const char* option, const char* variable) const {
        const QString name = QString::fromLatin1(option);
        if (parser_.isSet(name)) {
            return Setting{u"--"_s + name, parser_.value(name)};
        }
        const QString value = qEnvironmentVariable(variable);
        return value.isEmpty() ? std::nullopt
                               : std::optional(Setting{QString::fromLatin1(variable), value});
    }

    /// `outputIsFile`: a memory goes to the standard output.
    Result<CommonOptions> ReadOptions(bool outputIsFile) const {
        CommonOptions options;
        options.json = json_;
        options.quiet = parser_.isSet(u"quiet"_s);
        options.outputIsFile = outputIsFile;
        if (parser_.isSet(u"trace"_s)) {
            options.trace = parser_.value(u"trace"_s);
        }
        options.overwrite = parser_.isSet(u"overwrite"_s);
        if (const auto port = NeedsPort() ? Find("port", kPortVariable) : std::nullopt) {
            options.port = around_.comPorts.Choose(port->value);
            if (!options.port) {
                return Wrong(Text::tr("%1: ポートは COM1 から COM20 か、デバイスのパスです: %2")
                                 .arg(port->from, port->value));
            }
        }
        if (const auto device = Find("device", kDeviceVariable)) {
            options.device = FindDevice(device->value);
            if (!options.device) {
                return Wrong(
                    Text::tr("%1: 知らないデバイスです: %2").arg(device->from, device->value));
            }
        }
        if (json_ && outputIsFile) {
            return Wrong(Text::tr("--json と標準出力の - は一緒に使えません。"));
        }
        return options;
    }

    static Failure Wrong(const QString& text) { return {cause::WrongUse, text}; }

    ExitStatus Refuse(const QString& text) {
        output_.TellFailure(Wrong(text));
        return ExitStatus::WrongUse;
    }

    QStringList arguments_;
    const CliSurroundings& around_;
    Output output_;
    const QList<CliCommand> commands_ = CliCommands();
    QCommandLineParser parser_;
    QString name_;
    const CliCommand* command_ = nullptr;
    bool json_ = false;
};

}  // namespace

ExitStatus RunCommandLine(const QStringList& arguments, const CliSurroundings& around) {
    return CommandLine(arguments, around).Run();
}

}  // namespace tolvex
