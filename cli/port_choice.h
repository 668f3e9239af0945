// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

#include "platform/com_ports.h"

namespace tolvex {

struct PortChoice {
    int number;   ///< 1 to 20
    bool byPath;  ///< the number is only the port's place, the path is what was asked for
};

/// The COM number that `text` stands for: a number ("COM5", "5"), or a device path, which is then
/// made the device of that number. Nothing for a number outside 1 to 20.
std::optional<PortChoice> ChoosePort(const QString& text, ComPorts& ports);

}  // namespace tolvex
