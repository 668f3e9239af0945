// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <functional>

#include "base/language.h"
#include "writer/board.h"
#include "writer/board_options.h"
#include "writer/pseudo_terminal.h"
#include "writer/simulated_chip.h"

namespace tolvex {

/// Starts the process of a simulated board: the locale, the signals, the precision of its waits. To
/// be called first in main(). Gives the language of its texts.
Language PrepareBoardProcess();

/// Prints "PROGRAM: REASON" on the standard error and returns 1, or prints nothing and returns 0.
int ExitStatus(const QString& program, const std::optional<QString>& reason);
/// Prints the answer, help on the standard output and complaints on the standard error, and returns
/// its status.
int ExitStatus(const QString& program, const OptionAnswer& answer);

/// What every simulated board's program does besides being a board: the chip with its state file,
/// the terminal with its link, and the loop that serves the board on it. All functions give nothing
/// when they worked, else the reason.
class BoardProgram {
  public:
    explicit BoardProgram(const BoardOptions& options) : options_(options) {}

    /// The chip of the state file or a new one; none for an empty socket.
    std::optional<QString> TakeChip();
    std::optional<QString> SaveChip() const;
    /// Null for an empty socket, or before `TakeChip`.
    SimulatedChip* Chip() { return chip_ ? &*chip_ : nullptr; }

    /// Opens the terminal, makes the link and prints "ready" and the terminal's path.
    std::optional<QString> OpenTerminal();
    /// Until a signal asks for the end, the board ends or fails, or the terminal can't be had again
    /// after a hang-up. `log` gets a line for each command, unless it is null.
    /// `everyPass`, unless it is empty, is called some dozen times a second and may end it with a
    /// reason.
    std::optional<QString> Serve(Board& board, QFile* log = nullptr,
                                 const std::function<std::optional<QString>()>& everyPass = {});
    /// After `Serve`, until the client has left: what it still sends goes to the board. Not longer
    /// than the PC may wait for a reply.
    void AwaitLastClient(Board& board);

  private:
    BoardOptions options_;
    // How late the last reply went out. Whoever waited for it sends the next command that much
    // later than over a real wire, so the command counts as sent that much earlier.
    Board::Instant lag_{0};
    Board::Instant lost_{0};  // the computer's time in which the board's stood still
    std::optional<SimulatedChip> chip_;
    PseudoTerminal terminal_;
    TerminalLink link_;
};

}  // namespace tolvex
