// SPDX-License-Identifier: MIT
#include "cli/session.h"

#include <QJsonArray>
#include <QJsonDocument>

#include "base/settings_keys.h"
#include "cli/device_choice.h"

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
      trace_(around.clock),
      port_(around.port, around.stopAsked),
      clock_(around.clock, port_),
      person_(around_.console, clock_,
              {!options.json && !options.quiet, !options.quiet,
               [this] { return deaf_ || port_.Stopped(); }}),
      bench_({.port = port_,
              .clock = clock_,
              .settings = settings_,
              .folders = folders_,
              .person = {.status = person_,
                         .dialog = person_,
                         .windows = person_,
                         .panel = lists_,
                         .dialogs = person_},
              .mainCaption = [] { return u"tolvex-cli"_s; },
              .showPortDialog = [] {}}) {
    port_.AddListener(chip_);
    bench_.selection.FillDeviceLists();
    report_[u"command"_s] = command;
    report_[u"device"_s] = PartNumber(bench_.state.device.name);
    if (PortNumber() != 0) {
        report_[u"port"_s] = QJsonObject{{u"number"_s, PortNumber()}, {u"path"_s, PortPath()}};
    }
}

bool Session::OpenTrace() {
    if (options_.trace.isEmpty()) {
        return true;
    }
    if (!trace_.Open(options_.trace)) {
        Fail(kWrongUse, "traceNotWritten", u"ファイルを書けません: %1"_s.arg(options_.trace));
        return false;
    }
    port_.AddListener(trace_);
    return true;
}

int Session::PortNumber() const {
    return static_cast<int>(GetNumber(settings_, keys::ComNoxChosen));
}

QString Session::PortName() const {
    const bool byPath = options_.port && options_.port->byPath;
    return byPath ? PortPath() : u"COM%1 (%2)"_s.arg(PortNumber()).arg(PortPath());
}

void Session::Print(const QString& line) {
    if (!options_.json) {
        person_.EndProgress();
        around_.console.Print(line);
    }
}

void Session::Tell(const QString& line) {
    if (!options_.quiet) {
        Print(line);
    }
}

void Session::Remark(const QString& line) {
    if (!options_.quiet) {
        person_.EndProgress();
        around_.console.Complain(line);
    }
}

int Session::Fail(ExitStatus status, const char* code, const QString& text) {
    person_.EndProgress();
    if (options_.quiet && !person_.Said().isEmpty()) {
        around_.console.Complain(person_.Said().last());
    }
    around_.console.Complain(u"tolvex-cli: "_s + text);
    report_[u"error"_s] = QJsonObject{{u"code"_s, QString::fromLatin1(code)}, {u"message"_s, text}};
    return status;
}

int Session::RequirePort() {
    return PortNumber() != 0 ? int{kDone}
                             : Fail(kWrongUse, "noPort",
                                    u"ポートが選ばれていません。--port で指定してください。"_s);
}

ChainResult Session::RunChain(QStringView key) {
    ChainResult result = bench_.toolbar.Click(key);
    detection_ = result.detection;
    for (const ChipReading& reading : {result.chip.value_or(ChipReading{}),
                                       result.program ? result.program->chip : ChipReading{},
                                       result.read ? result.read->chip : ChipReading{},
                                       result.verify ? result.verify->chip : ChipReading{}}) {
        if (reading.verdict != ChipVerdict::NoReply) {
            reading_ = reading;
        }
    }
    return result;
}

LockFuseResult Session::RunFuses(LockFuseResult (LockFuseBits::*operation)()) {
    LockFuseResult result = (bench_.lockFuse.*operation)();
    detection_ = result.detection;
    reading_ = result.chip;
    return result;
}

int Session::DetectChip() {
    if (const int status = RequirePort()) {
        return status;
    }
    detection_ = bench_.detection.WriterCheck();
    if (detection_) {
        bench_.state.errorFlag.Clear();
        reading_ = bench_.check.CheckDevice();
    }
    return Judge(reading_.verdict != ChipVerdict::NoReply, "noSignature",
                 u"シグネチャを読めません。"_s);
}

int Session::Judge(bool success, const char* code, const QString& text) {
    if (success || port_.Stopped()) {
        return kDone;
    }
    if (port_.OpenFailed()) {
        return Fail(kNoPort, "portNotOpened",
                    u"ポート %1 を開けません: %2"_s.arg(PortName(), PortError()));
    }
    if (!detection_.found) {
        return Fail(kRefused, "writerNotFound", u"ライタが見つかりません: %1"_s.arg(PortName()));
    }
    return Fail(kRefused, code, text);
}

int Session::Finish(int status) {
    person_.EndProgress();
    if (port_.Stopped()) {
        status = FinishInterrupted();
    } else {
        LeaveBoard();
    }
    ReportFindings();
    report_[u"exitStatus"_s] = status;
    report_[u"messages"_s] = QJsonArray::fromStringList(person_.Said());
    if (options_.json) {
        const QByteArray text = QJsonDocument(report_).toJson(QJsonDocument::Compact);
        around_.console.Print(QString::fromUtf8(text));
    }
    return status;
}

void Session::ReportFindings() {
    const WriterIdentity& identity = detection_.identity;
    if (detection_.found) {
        report_[u"writer"_s] = QJsonObject{{u"identifier"_s, identity.identifier},
                                           {u"firmware"_s, identity.softwareVersion},
                                           {u"hardware"_s, identity.hardwareVersion}};
    }
    if (reading_.verdict != ChipVerdict::NoReply) {
        report_[u"signature"_s] = person_.Panel(kSignaturePanel);
    }
    if (chip_.Touched()) {
        report_[u"written"_s] = chip_.Json();
    }
}

/// An operation that broke off leaves the board in programming mode, with the chip held in reset.
void Session::LeaveBoard() {
    deaf_ = true;
    if (port_.IsOpen() && chip_.InProgrammingMode()) {
        ErrorFlag flag;
        bench_.commands.LeaveProgrammingMode(flag);
    }
    bench_.connection.ClosePort();
}

int Session::FinishInterrupted() {
    deaf_ = true;
    port_.Resume();
    LeaveBoard();
    const QString text = u"中断しました。\n"_s + chip_.Text();
    return Fail(kInterrupted, "interrupted", text);
}

}  // namespace tolvex
