// SPDX-License-Identifier: MIT
#pragma once

#include <variant>

#include "firmware/simulator/serial_programming.h"
#include "writer/board_options.h"

namespace tolvex {

/// The command line of tolvex-firmware.
struct FirmwareOptions {
    BoardOptions board;
    QString hex;  ///< the firmware
    ChipOptions chip;
    std::optional<QString> vcd;  ///< the file of a record of the lines
};

/// `arguments` begin with the program's name; without --hex the firmware is `hex`.
std::variant<FirmwareOptions, OptionAnswer> ParseFirmwareOptions(const QStringList& arguments,
                                                                 const QString& hex);

}  // namespace tolvex
