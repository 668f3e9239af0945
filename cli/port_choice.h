// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

#include "platform/com_ports.h"

namespace tolvex {

/// The COM number that `text` stands for: a number ("COM5", "5"), or a device path, which is then
/// made the device of that number. Nothing for a number outside 1 to 20.
std::optional<int> ChoosePort(const QString& text, ComPorts& ports);

}  // namespace tolvex
