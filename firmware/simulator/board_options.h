// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "firmware/simulator/serial_programming.h"
#include "writer/chip_models.h"

namespace tolvex {

/// The command line of tolvex-firmware.
struct BoardOptions {
    QString hex;                        ///< the firmware
    QString link;                       ///< empty = none
    const ChipModel* device = nullptr;  ///< null = an empty socket
    QString state;                      ///< empty = none
    ChipHabits habits;
    bool times = false;  ///< measure instead of serving
};

struct ParsedBoardOptions {
    std::optional<BoardOptions> options;
    QString text;    ///< without options: what to tell the person
    int status = 0;  ///< and the exit status, 2 for a bad command line, 0 for help
};

/// `arguments` begin with the program's name; without --hex the firmware is `hex`.
ParsedBoardOptions ParseBoardOptions(const QStringList& arguments, const QString& hex);

}  // namespace tolvex
