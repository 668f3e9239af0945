// SPDX-License-Identifier: MIT
// A tray of chips: one after the other is put into the socket, programmed and taken out.
#include <QDateTime>
#include <QFileInfo>
#include <QJsonArray>
#include <map>

#include "base/text.h"
#include "cli/batch_log.h"
#include "cli/command.h"
#include "cli/image_files.h"
#include "cli/programming.h"
#include "cli/serial_number.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

using Seconds = std::chrono::duration<double>;

/// Between two questions for the chip; the writer is left in peace meanwhile.
constexpr EventClock::Instant kPause = std::chrono::milliseconds(500);
/// So many questions without an answer, and the writer is lost.
constexpr int kLostAfter = 3;
constexpr int kInterrupt = 2;  ///< the signal of Ctrl-C

struct BatchOptions {
    MemoryImages images;
    std::optional<int> count = {};  ///< of chips; nothing = until a signal
    std::optional<SerialPlace> place = {};
    std::optional<SerialNumbers> numbers = {};  ///< with a place
    std::optional<QString> log = {};
};

/// Neither an empty socket nor pins without a contact.
bool IsChip(const Signature& signature) {
    return signature != Signature{kErased, kErased, kErased} && signature != Signature{};
}

class Batch {
  public:
    Batch(Session& session, const BatchOptions& options) : session_(session), options_(options) {}

    Status Run() {
        if (options_.log && !log_.Open(*options_.log, {u"time"_s, u"device"_s, u"signature"_s,
                                                       u"serial"_s, u"result"_s, u"seconds"_s})) {
            return Failure{cause::FileNotWritten,
                           Text::tr("ファイルを書けません: %1").arg(*options_.log)};
        }
        if (const Status failed = session_.access.DetectChip()) {
            return failed;
        }
        session_.HoldSignals();
        Status end;
        while (!end && !session_.Signal() && (!options_.count || tried_ < *options_.count)) {
            end = NextChip();
        }
        session_.BeginChip();
        TellTable();
        session_.output.Report(report::Chips, chips_);
        return end ? end : Verdict();
    }

  private:
    Status NextChip() {
        if (const Status failed = Await(true); failed || session_.Signal() != 0) {
            return failed;
        }
        if (const Status failed = ProgramChip()) {
            return failed;
        }
        const bool last = options_.count && tried_ == *options_.count;
        return last ? Status{} : Await(false);
    }

    /// Until a chip is in the socket, or none is; or until a signal comes. A chip counts when two
    /// looks see the same: while it is pressed in, its contacts bounce.
    Status Await(bool in) {
        session_.output.BeginProgress(in ? Text::tr("チップをソケットに入れてください。")
                                         : Text::tr("チップを抜いてください。"));
        std::optional<Signature> before;
        for (int lost = 0; session_.Signal() == 0; Pause()) {
            const auto look = session_.access.Peek();
            lost = look ? 0 : lost + 1;
            if (lost == kLostAfter) {
                return session_.access.Judge(
                    false, {cause::WriterSilent, Text::tr("シグネチャを読めません。")});
            }
            if (!look) {
                before.reset();
                continue;
            }
            if (IsChip(*look) == in && (!in || look == before)) {
                break;
            }
            before = look;
        }
        session_.output.EndProgress();
        return {};
    }

    void Pause() {
        const EventClock::Instant end = session_.Now() + kPause;
        while (session_.Now() < end && session_.Signal() == 0) {
            session_.bench.connection.WaitSeconds(
                std::min(Seconds(end - session_.Now()), Seconds(0.05)).count());
        }
    }

    /// Fails only when the batch can't go on. A chip that fails is counted, told and logged.
    Status ProgramChip() {
        const auto start = session_.Now();
        session_.BeginChip();
        session_.output.Mute(true);
        QString serial;
        Status fatal;
        Status failed = ProveChip(session_, {});
        MemoryImages images = options_.images;
        if (!failed) {
            fatal = TakeNumber(images, serial);
            failed = fatal ? fatal : WriteChip(session_, images);
        }
        session_.output.EndProgress();
        session_.output.Mute(false);
        if (fatal) {
            return fatal;  // the chip was not touched
        }
        const Status logged = TellChip(serial, failed, Seconds(session_.Now() - start).count());
        const bool lost = failed && (failed->cause.status == ExitStatus::NoPort ||
                                     failed->cause.code == cause::LineLost.code);
        return lost ? failed : logged;
    }

    Status TakeNumber(MemoryImages& images, QString& serial) {
        if (!options_.place) {
            return {};
        }
        const auto number = options_.numbers->Take();
        if (!number) {
            return number.Failed();
        }
        if (!PutSerial(*options_.place, *number, session_.access.Device(), images)) {
            return Failure{cause::WrongUse,
                           Text::tr("シリアル番号 %1 は入りません。").arg(*number)};
        }
        serial = SerialText(*options_.place, *number);
        return {};
    }

    Status TellChip(const QString& serial, const Status& failed, double seconds) {
        ++tried_;
        const QString result =
            failed ? QString::fromLatin1(failed->cause.code) : QStringLiteral("OK");
        ++results_[result];
        const QString signature = session_.access.Signature().value_or(QString());
        const QString part = PartOf(session_.access.Reading().signature).value_or(u"?"_s);
        const QString time = QString::number(seconds, 'f', 1);
        QStringList words = {failed ? u"NG"_s : u"OK"_s, u"#%1"_s.arg(tried_), part, signature};
        if (!serial.isEmpty()) {
            words << serial;
        }
        words
            << Text::tr("%1 秒").arg(time)
            << Text::tr("（OK %1、NG %2）").arg(results_[u"OK"_s]).arg(tried_ - results_[u"OK"_s]);
        if (failed) {
            words << failed->text.section(u'\n', 0, 0);
        }
        session_.output.Print(words.join(u"  "_s));
        session_.output.Ring();
        chips_ << QJsonObject{{u"signature"_s, signature},
                              {u"serial"_s, serial},
                              {u"result"_s, result},
                              {u"seconds"_s, seconds}};
        const QDateTime local = QDateTime::currentDateTime();
        const QString now = local.toOffsetFromUtc(local.offsetFromUtc()).toString(Qt::ISODate);
        if (options_.log && !log_.Append({now, PartNumber(session_.access.Device().name), signature,
                                          serial, result, time})) {
            return Failure{cause::OutputLost,
                           Text::tr("ファイルを書けません: %1").arg(*options_.log)};
        }
        return {};
    }

    void TellTable() {
        if (tried_ == 0) {
            return;
        }
        for (const auto& [result, count] : results_) {
            if (count > 0) {
                session_.output.Print(u"%1  %2"_s.arg(count, 6).arg(result));
            }
        }
        session_.output.Print(u"%1  %2"_s.arg(tried_, 6).arg(Text::tr("合計")));
    }

    /// Ctrl-C is how a batch without a count ends.
    Status Verdict() {
        const int signal = session_.Signal();
        if (signal != 0 && signal != kInterrupt) {
            return Failure{{cause::Interrupted.code, SignalledBy(signal)},
                           Text::tr("中断しました。")};
        }
        const int bad = tried_ - results_[u"OK"_s];
        if (bad > 0) {
            return Failure{cause::ChipsFailed,
                           Text::tr("%n 個のチップに失敗しました。", nullptr, bad)};
        }
        return {};
    }

    Session& session_;
    const BatchOptions& options_;
    BatchLog log_;
    int tried_ = 0;
    std::map<QString, int> results_;
    QJsonArray chips_;
};

/// The place, and the file with the next number beside CODE: blink.hex has blink.serial.
Status ChooseSerial(Session& session, const Call& call, const QString& code,
                    BatchOptions& options) {
    const auto text = call.Value("serial");
    if (!text) {
        return {};
    }
    const auto place = ParseSerialPlace(*text);
    if (!place) {
        return place.Failed();
    }
    const QString suffix = QFileInfo(code).suffix();
    options.place = *place;
    options.numbers =
        SerialNumbers(code.chopped(suffix.isEmpty() ? 0 : suffix.size() + 1) + u".serial"_s);
    const auto next = options.numbers->Next();
    if (!next) {
        return next.Failed();
    }
    MemoryImages images = options.images;
    if (!PutSerial(*place, *next, session.access.Device(), images)) {
        return Failure{cause::WrongUse,
                       Text::tr("シリアル番号 %1 は入りません: %2").arg(*next).arg(*text)};
    }
    session.output.Tell(Text::tr("次のシリアル番号: %1 (%2)")
                            .arg(SerialText(*place, *next), options.numbers->Path()));
    return {};
}

Status ChooseOptions(Session& session, const Call& call, BatchOptions& options) {
    if (const auto count = call.Value("count")) {
        bool isNumber = false;
        options.count = count->toInt(&isNumber);
        if (!isNumber || *options.count < 1) {
            return Failure{cause::WrongUse, Text::tr("--count は 1 以上の数です: %1").arg(*count)};
        }
    }
    const auto files = ChooseImageFiles(session, call, FileUse::Read);
    if (!files) {
        return files.Failed();
    }
    if (call.Has("serial") && files->code == kStandardStream) {
        return Failure{
            cause::WrongUse,
            Text::tr(
                "--serial には CODE のファイル名が必要です。番号のファイルはその隣に置きます。")};
    }
    const auto loaded = LoadFiles(session, *files, false);
    if (!loaded) {
        return loaded.Failed();
    }
    options.images = loaded->images;
    if (const Status failed = ChooseSerial(session, call, *files->code, options)) {
        return failed;
    }
    options.log = call.Value("log");
    for (const auto& used :
         {files->code, files->data, call.Value("trace"),
          options.numbers ? std::optional(options.numbers->Path()) : std::nullopt}) {
        if (options.log && used && IsSameFile(*options.log, *used)) {
            return Failure{
                cause::WrongUse,
                Text::tr("--log のファイルが、ほかの引数と同じです: %1").arg(*options.log)};
        }
    }
    return session.access.RequirePort();
}

}  // namespace

Status BatchProgram(Session& session, const Call& call) {
    BatchOptions options;
    if (const Status failed = ChooseOptions(session, call, options)) {
        return failed;
    }
    return Batch(session, options).Run();
}

}  // namespace tolvex
