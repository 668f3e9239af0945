// SPDX-License-Identifier: MIT
#include "cli/session.h"

#include <QJsonArray>

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

}  // namespace

Session::Session(const CliSurroundings& around, const CommonOptions& options,
                 const QString& command)
    : around_(around),
      options_(options),
      settings_(SettingsFor(around.settings, options)),
      port_(around.port, around.clock),
      clock_(around.clock, port_, around.signal),
      start_(clock_.Now()),
      chip_(around.signal),
      ui_(around_.console, clock_,
          {.prints = !options.json && !options.quiet && !options.outputTaken,
           .progress = !options.quiet,
           .muted = [this] { return leaving_ || chip_.Unwinding(); },
           .displayPortName =
               [this](QString text) {
                   return ByPath() ? text.replace(u"COM%1"_s.arg(PortNumber()), PortPath()) : text;
               }}),
      bench_({.port = port_,
              .clock = clock_,
              .settings = settings_,
              .folders = folders_,
              .ui = ui_,
              .hooks = chip_.Hooks()}) {
    FillDeviceLists(bench_.chip);
    report_[u"command"_s] = command;
    report_[u"device"_s] = PartNumber(Device().name);
    if (PortNumber() != 0) {
        QJsonObject port{{u"path"_s, PortPath()}};
        if (!ByPath()) {
            port[u"number"_s] = PortNumber();
        }
        report_[u"port"_s] = port;
    }
}

int Session::OpenTrace() {
    return options_.trace.isEmpty() || port_.TraceTo(options_.trace)
               ? int{kDone}
               : Fail(cause::FileNotWritten, u"ファイルを書けません: %1"_s.arg(options_.trace));
}

int Session::PortNumber() const {
    return static_cast<int>(GetNumber(settings_, keys::ComNoxChosen));
}

QString Session::PortName() const {
    return ByPath() ? PortPath() : u"COM%1 (%2)"_s.arg(PortNumber()).arg(PortPath());
}

void Session::Print(const QString& line) {
    ui_.EndProgress();
    if (options_.outputTaken) {
        around_.console.Complain(line);
    } else if (!options_.json) {
        around_.console.Print(line);
    }
}

void Session::Tell(const QString& line) {
    if (!options_.quiet) {
        Print(line);
    }
}

void Session::Remark(const QString& line) {
    ui_.EndProgress();
    around_.console.Complain(line);
}

int Session::Fail(Cause cause, const QString& text) {
    Remark(u"tolvex-cli: "_s + text);
    report_[u"error"_s] =
        QJsonObject{{u"code"_s, QString::fromLatin1(cause.code)}, {u"message"_s, text}};
    return cause.status;
}

int Session::RequirePort() {
    return PortNumber() != 0
               ? int{kDone}
               : Fail(cause::NoPort, u"ポートが選ばれていません。--port で指定してください。"_s);
}

int Session::Finish(int status) {
    const bool stopped = chip_.Stopped();
    LeaveBoard();
    if (stopped) {
        Fail(cause::Interrupted, u"中断しました。\n"_s + chip_.Text());
        status = kSignalled + around_.signal();
    } else if (status != kDone && chip_.Touched()) {
        Remark(chip_.Text());
    } else if (port_.TraceIncomplete() && status == kDone) {
        status = Fail(cause::OutputLost, u"ファイルを書けません: %1"_s.arg(port_.TracePath()));
    }
    ReportFindings();
    report_[u"exitStatus"_s] = status;
    report_[u"messages"_s] = QJsonArray::fromStringList(ui_.Said());
    return status;
}

void Session::ReportFindings() {
    const WriterIdentity& identity = detection_.identity;
    if (detection_) {
        report_[u"writer"_s] = QJsonObject{{u"identifier"_s, identity.identifier},
                                           {u"firmware"_s, identity.softwareVersion},
                                           {u"hardware"_s, identity.hardwareVersion}};
    }
    if (!Signature().isEmpty()) {
        report_[u"signature"_s] = Signature();
    }
    if (const auto part = PartOf(reading_.signature)) {
        report_[u"part"_s] = *part;
    }
    if (chip_.Touched()) {
        report_[u"written"_s] = chip_.Json();
    }
}

/// An operation that broke off leaves the board in programming mode, with the chip held in reset.
void Session::LeaveBoard() {
    ui_.EndProgress();
    leaving_ = true;
    chip_.AllowShutdownCommands();
    clock_.AllowShutdownCommands();
    if (port_.IsOpen() && chip_.InProgrammingMode() &&
        bench_.commands.LeaveProgrammingMode() != Outcome::Ok) {
        Remark(u"ライタがプログラミングモードのままかもしれません。電源を入れ直してください。"_s);
    }
    bench_.connection.ClosePort();
}

}  // namespace tolvex
