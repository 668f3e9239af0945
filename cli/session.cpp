// SPDX-License-Identifier: MIT
#include "cli/session.h"

#include <QFileInfo>
#include <QJsonArray>

#include "base/text.h"
namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

FixedSettings SettingsFor(const Settings& stored, const CommonOptions& options) {
    FixedSettings settings(stored);
    if (options.port) {
        settings.Fix(keys::ComNox.name, QString::number(options.port->number));
    }
    if (options.device) {
        settings.Fix(keys::Device.name, QString::number(*options.device));
    }
    return settings;
}

std::optional<ChosenPort> PortOf(const Settings& settings, const ComPorts& ports, bool byPath) {
    const int number = static_cast<int>(GetNumber(settings, keys::ComNoxChosen));
    if (number == 0) {
        return std::nullopt;
    }
    return ChosenPort{number, ports.DevicePath(number), byPath};
}

}  // namespace

Session::Session(const CliSurroundings& around, const CommonOptions& options, Output& out)
    : around_(around),
      settings_(SettingsFor(around.settings, options)),
      port_(PortOf(settings_, around.comPorts, options.port && options.port->byPath)),
      deviceChosen_(
          options.device ||
          !around.settings.GetSetting(QString::fromLatin1(keys::Device.name), {}).isEmpty()),
      trace_(options.trace),
      replaceTrace_(options.overwrite),
      line_(around.port, around.clock),
      clock_(around.clock, line_, [this] { return held_ ? 0 : Signal(); }),
      start_(clock_.Now()),
      record_([this] { return held_ ? 0 : Signal(); }),
      ui_(out, record_, port_),
      output(out),
      bench({.port = line_,
             .clock = clock_,
             .settings = settings_,
             .folders = folders_,
             .ui = ui_,
             .hooks = record_.Hooks()}),
      access({.around = around_,
              .port = port_,
              .record = record_,
              .bench = bench,
              .output = output,
              .openTrace = [this] { return OpenTrace(); }}) {
    FillDeviceLists(bench.chip);
    output.Report(report::Device, PartNumber(access.Device().name));
    if (port_) {
        QJsonObject port{{u"path"_s, port_->path}};
        if (!port_->byPath) {
            port[u"number"_s] = port_->number;
        }
        output.Report(report::Port, port);
    }
}

void Session::BeginChip() {
    const bool stuck = record_.InProgrammingMode() && !record_.LineLost();
    record_.Forget();
    if (stuck && line_.IsOpen()) {
        bench.commands.LeaveProgrammingMode();
        record_.Forget();
    }
    ui_.Forget();
    bench.chip.provenSignature.reset();
}

Status Session::OpenTrace() {
    if (!trace_ || !line_.TracePath().isEmpty()) {
        return {};
    }
    if (QFileInfo(*trace_).isFile() && !replaceTrace_) {
        return FileExistsFailure(*trace_);
    }
    if (!line_.TraceTo(*trace_)) {
        return Failure{cause::FileNotWritten, Text::tr("ファイルを書けません: %1").arg(*trace_)};
    }
    return {};
}

ExitStatus Session::Finish(const Status& failed) {
    Status end = failed;
    if (end) {
        record_.MaySend();  // what fails after a signal was interrupted by it
    }
    const bool stopped = record_.Stopped();
    if (end && !stopped) {
        output.TellFailure(*end);
    }
    LeaveWriter();
    if (stopped) {
        end = Failure{cause::Interrupted, Text::tr("中断しました。") + u'\n' + record_.Text()};
        output.TellFailure(*end);
    } else if (end && record_.Touched()) {
        output.Remark(record_.Text());
    } else if (!end && line_.TraceIncomplete()) {
        end =
            Failure{cause::OutputLost, Text::tr("ファイルを書けません: %1").arg(line_.TracePath())};
        output.TellFailure(*end);
    }
    ReportFindings();
    if (stopped) {
        return SignalledBy(around_.signal());
    }
    return end ? end->cause.status : ExitStatus::Done;
}

void Session::ReportFindings() {
    if (access.Detection()) {
        const DetectionResult& writer = access.Detection();
        output.Report(report::Writer, QJsonObject{{u"identifier"_s, writer.identifier},
                                                  {u"firmware"_s, writer.softwareVersion},
                                                  {u"hardware"_s, writer.hardwareVersion}});
    }
    if (const auto signature = access.Signature()) {
        output.Report(report::Signature, *signature);
    }
    if (const auto part = PartOf(access.Reading().signature)) {
        output.Report(report::Part, *part);
    }
    if (record_.Touched()) {
        output.Report(report::Written, record_.Json());
    }
    output.Report(report::Messages, QJsonArray::fromStringList(ui_.Said()));
}

/// An operation that broke off leaves the writer in programming mode, with the chip held in reset.
void Session::LeaveWriter() {
    output.EndProgress();
    record_.AllowShutdownCommands();
    clock_.AllowShutdownCommands();
    // A detection that failed has closed the port.
    if (record_.InProgrammingMode() && !record_.LineLost() &&
        (line_.IsOpen() || bench.connection.OpenPort())) {
        bench.commands.LeaveProgrammingMode();
    }
    if (record_.InProgrammingMode()) {
        output.Remark(Text::tr(
            "ライタがプログラミングモードのままかもしれません。電源を入れ直してください。"));
    }
    bench.connection.ClosePort();
}

}  // namespace tolvex
