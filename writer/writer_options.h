// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <chrono>
#include <variant>

#include "writer/board_options.h"
#include "writer/board_reply.h"

namespace tolvex {

/// The command line of tolvex-writer.
struct WriterOptions {
    struct PlannedFault {
        int command;  ///< counted from 1
        FaultKind kind;
    };

    BoardOptions board;
    QString firmware;                   ///< digit, point, digit
    int baud = 19200;                   ///< 0 = as fast as it goes
    std::chrono::milliseconds latency;  ///< of the adapter; 0 = none
    std::optional<QString> log;         ///< a file
    std::optional<QString> socket;      ///< a file that says what is in it, while the board runs
    std::optional<QString> replay;      ///< a recorded session instead of a board with a chip
    QList<PlannedFault> faults;
};

/// `arguments` begin with the program's name.
std::variant<WriterOptions, OptionAnswer> ParseWriterOptions(const QStringList& arguments);

}  // namespace tolvex
