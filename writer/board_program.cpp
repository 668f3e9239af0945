// SPDX-License-Identifier: MIT
#include "writer/board_program.h"

#include <langinfo.h>
#include <sys/select.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <utility>

#include "base/stop_signals.h"
#include "base/text.h"
#include "writer/chip_state_file.h"
#include "writer/system_terminal.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

using Instant = Board::Instant;

/// Longer than any time-out of the PC.
constexpr std::chrono::seconds kLongerThanAnyTimeOut{10};
/// Of the loop, where something is to be done in each of its passes.
constexpr std::chrono::milliseconds kPass{30};

Instant Now() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

/// A board whose time the computer can't keep up with runs slower; it does not fall behind for
/// good.
constexpr std::chrono::milliseconds kLongestRun{50};

/// Until bytes come at `descriptor`, a signal asks for the end, or the time is up; no time = for
/// ever. True when there are bytes.
bool Wait(int descriptor, std::optional<Instant> time) {
    fd_set readable;
    FD_ZERO(&readable);
    FD_SET(descriptor, &readable);
    FD_SET(StopDescriptor(), &readable);
    timespec limit{};
    if (time) {
        const Instant positive = std::max(*time, Instant::zero());
        const auto seconds = std::chrono::floor<std::chrono::seconds>(positive);
        limit.tv_sec = static_cast<time_t>(seconds.count());
        limit.tv_nsec = static_cast<long>((positive - seconds).count());
    }
    const int count = std::max(descriptor, StopDescriptor()) + 1;
    return ::pselect(count, &readable, nullptr, nullptr, time ? &limit : nullptr, nullptr) > 0 &&
           FD_ISSET(descriptor, &readable);
}

}  // namespace

Language PrepareBoardProcess() {
    const Language language = TerminalLanguage();  // of the locale that the user has
    // Qt wants UTF-8 and says so in every run under LANG=C.
    std::setlocale(LC_ALL, "");
    if (qstrcmp(::nl_langinfo(CODESET), "UTF-8") != 0) {
        qputenv("LC_ALL", "C.UTF-8");
    }
    CatchStopSignals(2);
    SharpenWaits();
    return language;
}

int ExitStatus(const QString& program, const std::optional<QString>& reason) {
    if (reason) {
        std::fprintf(stderr, "%s: %s\n", qUtf8Printable(program), qUtf8Printable(*reason));
    }
    return reason ? 1 : 0;
}

int ExitStatus(const QString& program, const OptionAnswer& answer) {
    if (answer.status == 0) {
        std::fputs(qUtf8Printable(answer.text), stdout);
    } else {
        ExitStatus(program, std::optional(answer.text));
    }
    return answer.status;
}

std::optional<QString> BoardProgram::TakeChip() {
    if (options_.empty) {
        return std::nullopt;
    }
    if (options_.state && QFile::exists(*options_.state)) {
        const LoadedChip loaded = LoadChip(*options_.state);
        if (const auto* reason = std::get_if<QString>(&loaded)) {
            return *reason;
        }
        chip_ = std::get<SimulatedChip>(loaded);
        if (options_.device && options_.device != &chip_->Model()) {
            return Text::tr("状態ファイル %1 には別のチップが入っています: %2")
                .arg(*options_.state, chip_->Model().name);
        }
    } else {
        chip_.emplace(options_.device ? *options_.device : ChipModels().front());
    }
    return SaveChip();  // a file that can't be written is better told now than at the end
}

std::optional<QString> BoardProgram::SaveChip() const {
    return chip_ && options_.state ? tolvex::SaveChip(*chip_, *options_.state) : std::nullopt;
}

std::optional<QString> BoardProgram::OpenTerminal() {
    auto reason = terminal_.Open();
    if (!reason && options_.link) {
        reason = link_.Lead(*options_.link, terminal_.Path());
    }
    if (!reason) {
        std::printf("ready %s\n", qUtf8Printable(terminal_.Path()));
        std::fflush(stdout);
    }
    return reason;
}

std::optional<QString> BoardProgram::Serve(
    Board& board, QFile* log, const std::function<std::optional<QString>()>& everyPass) {
    while (StopSignal() == 0 && !board.Failure() && !board.Ended()) {
        if (const auto reason = everyPass ? everyPass() : std::nullopt) {
            return reason;
        }
        const auto due = board.NextDue();
        auto rest = due ? std::optional(*due + lost_ - Now()) : std::nullopt;
        if (everyPass) {
            rest = std::min<Instant>(rest.value_or(kPass), kPass);
        }
        if (Wait(terminal_.Descriptor(), rest)) {
            board.Send(terminal_.Read(), Now() - lost_ - std::exchange(lag_, Instant::zero()));
        }
        const Instant start = Now();
        const Board::Events events = board.Run(start - lost_);
        if (const Instant took = Now() - start; took > kLongestRun) {
            lost_ += took;
        }
        for (const BoardReply& command : events.commands) {
            if (log) {
                log->write(command.LogLine().toUtf8() + '\n');
            }
        }
        if (!events.bytes.isEmpty()) {
            terminal_.Write(events.bytes);
            lag_ = Now() - lost_ - events.lastByte;
        }
        if (events.hangUp) {
            // The far end goes away for whoever has the terminal open, and is plugged in again.
            terminal_.Close();
            if (!board.Failure() && !board.Ended()) {
                if (const auto reason = OpenTerminal()) {
                    return reason;
                }
            }
        }
    }
    return board.Failure();
}

void BoardProgram::AwaitLastClient(Board& board) {
    terminal_.LetGo();
    const Instant end = Now() + kLongerThanAnyTimeOut;
    while (StopSignal() == 0 && !board.Failure() && terminal_.Descriptor() >= 0 && Now() < end) {
        if (Wait(terminal_.Descriptor(), end - Now())) {
            const QByteArray bytes = terminal_.Read();
            if (bytes.isEmpty()) {
                return;
            }
            board.Send(bytes, Now() - lost_);
        }
    }
}

}  // namespace tolvex
