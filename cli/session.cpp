// SPDX-License-Identifier: MIT
#include "cli/session.h"

#include <QJsonArray>

#include "base/settings_keys.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kFullFirmware = u"3.9";

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
      clock_(around.clock, around.signal),
      start_(clock_.Now()),
      trace_(around.clock),
      port_(around.port, clock_, trace_),
      chip_(port_),
      person_(
          around_.console, clock_,
          {.prints = !options.json && !options.quiet && !options.outputTaken,
           .progress = !options.quiet,
           .failing =
               [this] {
                   return chip_.Failing() || bench_.state.errorFlag.Failed() || port_.OpenFailed();
               },
           .deaf = [this] { return deaf_ || port_.Over(); },
           .inTheirWords =
               [this](QString text) {
                   const bool byPath = options_.port && options_.port->byPath;
                   return byPath ? text.replace(u"COM%1"_s.arg(PortNumber()), PortPath()) : text;
               }}),
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
              .showPortDialog = [] {},
              .decorate = [this](WriterCommands& commands) -> WriterCommands& {
                  return chip_.Around(commands);
              }}) {
    bench_.selection.FillDeviceLists();
    report_[u"command"_s] = command;
    report_[u"device"_s] = PartNumber(Device().name);
    if (PortNumber() != 0) {
        QJsonObject port{{u"path"_s, PortPath()}};
        if (!options_.port || !options_.port->byPath) {
            port[u"number"_s] = PortNumber();
        }
        report_[u"port"_s] = port;
    }
}

int Session::OpenTrace() {
    return options_.trace.isEmpty() || trace_.Open(options_.trace)
               ? int{kDone}
               : Fail(cause::FileNotWritten, u"ファイルを書けません: %1"_s.arg(options_.trace));
}

int Session::PortNumber() const {
    return static_cast<int>(GetNumber(settings_, keys::ComNoxChosen));
}

QString Session::PortName() const {
    const bool byPath = options_.port && options_.port->byPath;
    return byPath ? PortPath() : u"COM%1 (%2)"_s.arg(PortNumber()).arg(PortPath());
}

QString Session::Signature() const {
    const auto& [family, size, vendor] = reading_.signature;
    return reading_.verdict == ChipVerdict::NoReply
               ? QString()
               : u"%1:%2:%3"_s.arg(HexByte(vendor), HexByte(size), HexByte(family));
}

void Session::Print(const QString& line) {
    person_.EndProgress();
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
    person_.EndProgress();
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

ChainResult Session::RunChain(QStringView key, bool force) {
    if (force) {
        bench_.check.TolerateMismatch();
    }
    ChainResult result = bench_.toolbar.Click(key);
    detection_ = result.detection;
    // The operations go by the size code alone: a signature that was proven whole stays. The
    // reading before an erase is judged by nobody.
    const bool proven = reading_.signature == Device().signature;
    for (const ChipReading& reading : {result.program ? result.program->chip : ChipReading{},
                                       result.read ? result.read->chip : ChipReading{},
                                       result.verify ? result.verify->chip : ChipReading{}}) {
        if (reading.verdict != ChipVerdict::NoReply && !(proven && reading.passed)) {
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
    reading_ = {};
    if (detection_) {
        TellFirmware();
        reading_ = LookAtChip();
    }
    return Judge(reading_.verdict != ChipVerdict::NoReply, cause::WriterSilent,
                 u"シグネチャを読めません。"_s);
}

/// The chosen chip is known by one look. Only of another reading does the operations' own check
/// judge, which gives the chip a second to settle and tells what it found.
ChipReading Session::LookAtChip() {
    ChipReading look;
    ErrorFlag flag;
    chip_.EnterProgrammingMode(flag);
    chip_.ReadSignature(look.signature, flag);
    chip_.LeaveProgrammingMode(flag);
    if (flag.Failed()) {
        return {};
    }
    if (look.signature == Device().signature) {
        look.verdict = ChipVerdict::Accepted;
        look.passed = true;
        return look;
    }
    bench_.state.errorFlag.Clear();
    return bench_.check.CheckDevice();
}

void Session::TellFirmware() {
    if (Device().fuseGroup == FuseGroup::BOD_CKSEL &&
        detection_.identity.softwareVersion != kFullFirmware) {
        Remark(u"ファームウエア %1 は %2 をサポートしません（3.9 が必要です）。"_s.arg(
            detection_.identity.softwareVersion, PartNumber(Device().name)));
    }
}

int Session::DetectPart(bool force) {
    const int status = DetectChip();
    return status == kDone ? DetectedPart(force) : status;
}

int Session::DetectedPart(bool force) {
    const ChipVerdict verdict = reading_.verdict;
    const bool readable = verdict == ChipVerdict::Accepted || verdict == ChipVerdict::Mismatch;
    return readable ? RequirePart(force) : FailReading();
}

int Session::RequirePart(bool force) {
    if (reading_.signature == Device().signature) {
        return kDone;
    }
    const QString part = PartOf(reading_.signature);
    const QString found = part.isEmpty() ? u"知らない部品"_s : part;
    const QString text = u"ソケットのチップは %1 (%2) で、%3 ではありません。"_s.arg(
        found, Signature(), PartNumber(Device().name));
    if (!force) {
        const QString hint = u"--device %1 で指定してください。"_s.arg(part);
        return Fail(cause::WrongChip, part.isEmpty() ? text : text + hint);
    }
    Remark(text + u"続けます。"_s);
    bench_.check.TolerateMismatch();
    return kDone;
}

int Session::FailReading() {
    switch (reading_.verdict) {
        case ChipVerdict::Protected:
            return Fail(cause::Locked, u"チップがロックされています。"_s);
        case ChipVerdict::EmptySocket:
            return Fail(cause::EmptySocket, u"ソケットにチップがありません。"_s);
        case ChipVerdict::NoReply:
            return Fail(cause::WriterSilent, u"シグネチャを読めません。"_s);
        case ChipVerdict::Accepted:
        case ChipVerdict::Mismatch:
            break;
    }
    return RequirePart(false);
}

int Session::FailOpening() {
    const PortFacts facts = Inspect(PortPath());
    const Cause present = facts.permitted ? cause::PortBusy : cause::PortForbidden;
    return Fail(facts.exists ? present : cause::PortMissing,
                u"ポート %1 を開けません: %2"_s.arg(PortName(), PortError()));
}

int Session::Judge(bool success, Cause cause, const QString& text) {
    if (success) {
        return kDone;
    }
    if (port_.Stopped()) {
        return kSignalled;
    }
    if (port_.OpenFailed()) {
        return FailOpening();
    }
    if (port_.Lost()) {
        return Fail(cause::LineLost, u"ライタとの接続が切れました: %1"_s.arg(PortName()));
    }
    if (!detection_.found) {
        return Fail(chip_.FirstFailure() == ChipRecord::Failure::Refused ? cause::CommandRefused
                                                                         : cause::WriterSilent,
                    u"ライタが見つかりません: %1"_s.arg(PortName()));
    }
    if (chip_.FirstFailure() != ChipRecord::Failure::None) {
        return chip_.FirstFailure() == ChipRecord::Failure::Refused
                   ? Fail(cause::CommandRefused, u"ライタがコマンドを拒否しました。"_s + text)
                   : Fail(cause::WriterSilent, u"ライタが応答しません。"_s + text);
    }
    const int status = reading_.passed ? int{kDone} : FailReading();
    return status == kDone ? Fail(cause, text) : status;
}

int Session::Finish(int status) {
    const bool stopped = port_.Stopped();
    LeaveBoard();
    if (stopped) {
        Fail(cause::Interrupted, u"中断しました。\n"_s + chip_.Text());
        status = kSignalled + clock_.StopAsked();
    } else if (status != kDone && chip_.Touched()) {
        Remark(chip_.Text());
    } else if (trace_.Lost() && status == kDone) {
        status = Fail(cause::OutputLost, u"ファイルを書けません: %1"_s.arg(trace_.Path()));
    }
    ReportFindings();
    report_[u"exitStatus"_s] = status;
    report_[u"messages"_s] = QJsonArray::fromStringList(person_.Said());
    return status;
}

void Session::ReportFindings() {
    const WriterIdentity& identity = detection_.identity;
    if (detection_.found) {
        report_[u"writer"_s] = QJsonObject{{u"identifier"_s, identity.identifier},
                                           {u"firmware"_s, identity.softwareVersion},
                                           {u"hardware"_s, identity.hardwareVersion}};
    }
    if (!Signature().isEmpty()) {
        report_[u"signature"_s] = Signature();
    }
    if (const QString part = PartOf(reading_.signature); !part.isEmpty()) {
        report_[u"part"_s] = part;
    }
    if (chip_.Touched()) {
        report_[u"written"_s] = chip_.Json();
    }
}

/// An operation that broke off leaves the board in programming mode, with the chip held in reset.
void Session::LeaveBoard() {
    person_.EndProgress();
    deaf_ = true;
    port_.Resume();
    clock_.AllowFarewell();
    if (port_.IsOpen() && chip_.InProgrammingMode()) {
        ErrorFlag flag;
        chip_.LeaveProgrammingMode(flag);
        if (flag.Failed()) {
            Remark(
                u"ライタがプログラミングモードのままかもしれません。電源を入れ直してください。"_s);
        }
    }
    bench_.connection.ClosePort();
}

}  // namespace tolvex
