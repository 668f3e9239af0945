// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

namespace tolvex {

/// "AT90S1200A" out of a catalogue name: what can be typed on any keyboard.
QString PartNumber(const QString& catalogueName);
/// The entry of the device list that `text` names, whole or by its part number, in either case.
std::optional<int> ChooseDevice(const QString& text);

}  // namespace tolvex
