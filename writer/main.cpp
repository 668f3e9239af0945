// SPDX-License-Identifier: MIT
// tolvex-writer: the simulated writer board on a pseudo-terminal, for people and tests without a
// board at hand.
#include <QCoreApplication>
#include <QFile>
#include <clocale>
#include <cstdio>
#include <utility>

#include "writer/chip_state_file.h"
#include "writer/paced_board.h"
#include "writer/pseudo_terminal.h"
#include "writer/stop_signals.h"
#include "writer/trace_replay.h"
#include "writer/writer_options.h"

#ifdef Q_OS_UNIX
#include <langinfo.h>
#endif
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace {

using namespace Qt::StringLiterals;

int Fail(const QString& reason, int status) {
    std::fprintf(stderr, "tolvex-writer: %s\n", qUtf8Printable(reason));
    return status;
}

}  // namespace

#ifdef Q_OS_UNIX

namespace tolvex {
namespace {

using Instant = PacedBoard::Instant;

/// Longer than any time-out of the PC.
constexpr std::chrono::seconds kFarewell{10};

Instant Now() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

/// The running board: one chip, one terminal, one log.
class WriterProgram {
  public:
    explicit WriterProgram(const WriterOptions& options) : options_(options), log_(options.log) {}

    int Run() {
        for (const auto step : {&WriterProgram::LoadTrace, &WriterProgram::TakeChip,
                                &WriterProgram::OpenLog, &WriterProgram::OpenTerminal}) {
            const QString reason = (this->*step)();
            if (!reason.isEmpty()) {
                return Fail(reason, 1);
            }
        }
        const QString reason = options_.replay.isEmpty() ? ServeChip() : ServeTrace();
        const QString unsaved = SaveState();
        for (const QString& failure : {reason, unsaved}) {
            if (!failure.isEmpty()) {
                return Fail(failure, 1);
            }
        }
        return 0;
    }

  private:
    QString LoadTrace() {
        if (options_.baud == 0) {
            replay_.Hurry();
        }
        return options_.replay.isEmpty() ? QString() : replay_.Load(options_.replay);
    }

    QString TakeChip() {
        if (options_.empty || !options_.replay.isEmpty()) {
            return {};
        }
        if (QFile::exists(options_.state)) {
            const LoadedChip loaded = LoadChip(options_.state);
            if (!loaded.chip) {
                return loaded.error;
            }
            if (options_.device && options_.device != &loaded.chip->Model()) {
                return u"state file %1 holds a chip of another kind: %2"_s.arg(
                    options_.state, loaded.chip->Model().name);
            }
            chip_ = loaded.chip;
        } else {
            chip_.emplace(options_.device ? *options_.device : ChipModels().front());
        }
        return SaveState();  // a file that can't be written is better told now than at the end
    }

    QString OpenLog() {
        const bool failed =
            !options_.log.isEmpty() && !log_.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        return failed ? u"log file %1: %2"_s.arg(options_.log, log_.errorString()) : QString();
    }

    QString OpenTerminal() { return OpenForClients(terminal_, link_, options_.link); }

    QString SaveState() const {
        return chip_ && !options_.state.isEmpty() ? SaveChip(*chip_, options_.state) : QString();
    }

    QString ServeChip() {
        SimulatedWriter writer(chip_ ? &*chip_ : nullptr, options_.firmware);
        for (const WriterOptions::PlannedFault& fault : options_.faults) {
            writer.SetFault(fault.command, fault.kind);
        }
        PacedBoard board(writer, options_.baud, options_.latency);
        return Serve(board);
    }

    /// The trace, and then as long as the PC needs to take the last reply and to close, or to give
    /// up waiting for one that never came.
    QString ServeTrace() {
        const QString reason = Serve(replay_);
        terminal_.LetGo();
        const Instant end = Now() + kFarewell;
        while (!signals_.Asked() && reason.isEmpty() && terminal_.Descriptor() >= 0 &&
               Now() < end) {
            if (signals_.Wait(terminal_.Descriptor(), end - Now())) {
                const QByteArray bytes = terminal_.Read();
                if (bytes.isEmpty()) {
                    break;
                }
                replay_.Send(bytes, Now());
                return replay_.Departure();
            }
        }
        return reason;
    }

    static bool Ended(const PacedBoard&) { return false; }
    static bool Ended(const TraceReplay& replay) { return replay.Ended(); }
    static QString Departure(const PacedBoard&) { return {}; }
    static QString Departure(const TraceReplay& replay) { return replay.Departure(); }

    /// Until a signal asks for the end, the terminal can't be had again after a hang-up, or the PC
    /// does something else than in the replayed session or has come to its end.
    template <typename Board>
    QString Serve(Board& board) {
        QString reason;
        while (!signals_.Asked() && reason.isEmpty() && !Ended(board)) {
            const auto due = board.NextDue();
            const auto time = due ? std::optional(*due - Now()) : std::nullopt;
            if (signals_.Wait(terminal_.Descriptor(), time)) {
                board.Send(terminal_.Read(), Now() - std::exchange(lag_, Instant::zero()));
            }
            const PacedBoard::Events events = board.Run(Now());
            Deliver(events);
            reason = Departure(board);
            if (events.hangUp) {
                // The far end goes away for whoever has the terminal open, and is plugged in again.
                terminal_.Close();
                if (reason.isEmpty() && !Ended(board)) {
                    reason = OpenTerminal();
                }
            }
        }
        return reason;
    }

    void Deliver(const PacedBoard::Events& events) {
        for (const BoardReply& command : events.commands) {
            if (log_.isOpen()) {
                log_.write(command.LogLine().toUtf8() + '\n');
            }
        }
        if (!events.bytes.isEmpty()) {
            terminal_.Write(events.bytes);
            lag_ = Now() - events.lastByte;
        }
    }

    WriterOptions options_;
    StopSignals signals_;
    // How late the last reply went out. Whoever waited for it sends the next command that much
    // later than over a real wire, so the command counts as sent that much earlier.
    Instant lag_{0};
    std::optional<SimulatedChip> chip_;
    QFile log_;
    TraceReplay replay_;
    PseudoTerminal terminal_;
    TerminalLink link_;
};

}  // namespace
}  // namespace tolvex

#endif

int main(int argc, char** argv) {
#ifdef Q_OS_UNIX
    // Qt wants UTF-8 and says so in every run under LANG=C.
    std::setlocale(LC_ALL, "");
    if (qstrcmp(::nl_langinfo(CODESET), "UTF-8") != 0) {
        qputenv("LC_ALL", "C.UTF-8");
    }
#endif
    QCoreApplication application(argc, argv);
    const tolvex::ParsedOptions parsed = tolvex::ParseOptions(QCoreApplication::arguments());
    if (!parsed.options) {
        if (parsed.status == 0) {
            std::fputs(qUtf8Printable(parsed.text), stdout);
            return 0;
        }
        return Fail(parsed.text, parsed.status);
    }
#ifdef Q_OS_UNIX
#ifdef Q_OS_LINUX
    // Waits end on the nanosecond instead of up to 50 us late, a tenth of a byte's time.
    ::prctl(PR_SET_TIMERSLACK, 1UL);
#endif
    return tolvex::WriterProgram(*parsed.options).Run();
#else
    return Fail(u"this system has no pseudo-terminals"_s, 1);
#endif
}
