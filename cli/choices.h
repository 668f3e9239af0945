// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>
#include <cstdint>
#include <optional>

#include "platform/com_ports.h"

namespace tolvex {

/// "AT90S1200A" out of a catalogue name: what can be typed on any keyboard.
QString PartNumber(const QString& catalogueName);
/// The part whose signature this is, in the writer's order; empty for none of the catalogue's.
QString PartOf(const std::array<std::uint8_t, 3>& signature);
/// The entry of the device list that `text` names, whole or by its part number, in either case.
std::optional<int> ChooseDevice(const QString& text);

struct PortChoice {
    int number;   ///< 1 to 20
    bool byPath;  ///< the number is only the port's place, the path is what was asked for
};

/// The COM number that `text` stands for: a number ("COM5", "5"), or a device path, which is then
/// made the device of that number. Nothing for a number outside 1 to 20.
std::optional<PortChoice> ChoosePort(const QString& text, ComPorts& ports);

}  // namespace tolvex
