// SPDX-License-Identifier: MIT
// tolvex-firmware: the board that anyone can build, running the HEX file that would be burnt, on a
// pseudo-terminal.
#include <QCoreApplication>
#include <QFile>
#include <cstdio>
#include <utility>

#include "firmware/simulator/board_options.h"
#include "firmware/simulator/firmware_board.h"
#include "firmware/simulator/programming_times.h"
#include "writer/chip_state_file.h"
#include "writer/pseudo_terminal.h"
#include "writer/stop_signals.h"

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

int Fail(const QString& reason, int status) {
    std::fprintf(stderr, "tolvex-firmware: %s\n", qUtf8Printable(reason));
    return status;
}

}  // namespace

namespace tolvex {
namespace {

using Instant = FirmwareBoard::Instant;

/// An idle board is looked after less often.
constexpr Instant kIdleRest = 50ms;
constexpr Instant kIdleAfter = 1s;

Instant Now() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

/// The running board: one chip, one terminal.
class BoardProgram {
  public:
    explicit BoardProgram(const BoardOptions& options) : options_(options) {}

    int Run() {
        QString reason = TakeChip();
        if (reason.isEmpty()) {
            ChipSocket socket(chip_ ? &*chip_ : nullptr, options_.habits);
            FirmwareBoard board(socket);
            reason = board.Load(options_.hex);
            if (reason.isEmpty()) {
                reason = OpenTerminal();
            }
            if (reason.isEmpty()) {
                reason = Serve(board);
                const QString unsaved = SaveState();
                reason = reason.isEmpty() ? unsaved : reason;
            }
        }
        return reason.isEmpty() ? 0 : Fail(reason, 1);
    }

  private:
    QString TakeChip() {
        if (options_.device) {
            chip_.emplace(*options_.device);
        }
        if (!QFile::exists(options_.state)) {
            return SaveState();
        }
        const LoadedChip loaded = LoadChip(options_.state);
        if (loaded.chip && &loaded.chip->Model() != options_.device) {
            return u"state file %1 holds a chip of another kind: %2"_s.arg(
                options_.state, loaded.chip->Model().name);
        }
        if (loaded.chip) {
            chip_ = loaded.chip;
        }
        return loaded.error;
    }

    QString SaveState() const {
        return chip_ && !options_.state.isEmpty() ? SaveChip(*chip_, options_.state) : QString();
    }

    QString OpenTerminal() { return OpenForClients(terminal_, link_, options_.link); }

    /// Until a signal asks for the end, or the firmware does something wrong.
    QString Serve(FirmwareBoard& board) {
        const Instant start = Now();
        Instant lastByte{0};
        while (!signals_.Asked() && board.Violations().isEmpty()) {
            const bool idle = board.Now() - lastByte > kIdleAfter;
            const Instant rest = idle ? kIdleRest : board.NextDue() - (Now() - start);
            if (signals_.Wait(terminal_.Descriptor(), rest)) {
                lastByte = Now() - start;
                board.Send(terminal_.Read(), lastByte - std::exchange(lag_, Instant::zero()));
            }
            const FirmwareBoard::Events events = board.Run(Now() - start);
            if (!events.bytes.isEmpty()) {
                terminal_.Write(events.bytes);
                lastByte = Now() - start;
                lag_ = lastByte - events.lastByte;
            }
        }
        return board.Violations().join(u'\n');
    }

    BoardOptions options_;
    StopSignals signals_;
    // How late the last reply went out. Whoever waited for it sends the next command that much
    // later than over a real wire, so the command counts as sent that much earlier.
    Instant lag_{0};
    std::optional<SimulatedChip> chip_;
    PseudoTerminal terminal_;
    TerminalLink link_;
};

}  // namespace
}  // namespace tolvex

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QString hex =
        QCoreApplication::applicationDirPath() + u"/../firmware/tolvex_writer.hex"_s;
    const auto parsed = tolvex::ParseBoardOptions(QCoreApplication::arguments(), hex);
    if (!parsed.options) {
        if (parsed.status == 0) {
            std::fputs(qUtf8Printable(parsed.text), stdout);
            return 0;
        }
        return Fail(parsed.text, parsed.status);
    }
    if (parsed.options->times) {
        std::fputs(qUtf8Printable(tolvex::ProgrammingTimes(parsed.options->hex)), stdout);
        return 0;
    }
    return tolvex::BoardProgram(*parsed.options).Run();
}
