// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <chrono>
#include <optional>

#include "writer/board_reply.h"
#include "writer/chip_models.h"

namespace tolvex {

/// The command line of tolvex-writer.
struct WriterOptions {
    struct PlannedFault {
        int command;  ///< counted from 1
        FaultKind kind;
    };

    QString link;                       ///< empty = none
    const ChipModel* device = nullptr;  ///< null = not named
    bool empty = false;                 ///< no chip in the socket
    QString firmware;                   ///< digit, point, digit
    int baud = 19200;                   ///< 0 = as fast as it goes
    std::chrono::milliseconds latency;  ///< of the adapter; 0 = none
    QString state;                      ///< empty = none
    QString log;                        ///< empty = none
    QString replay;                     ///< a recorded session; empty = a board with a chip
    QList<PlannedFault> faults;
};

struct ParsedOptions {
    std::optional<WriterOptions> options;
    QString text;    ///< without options: what to tell the person
    int status = 0;  ///< and the exit status, 2 for a bad command line, 0 for help
};

/// `arguments` begin with the program's name.
ParsedOptions ParseOptions(const QStringList& arguments);

}  // namespace tolvex
