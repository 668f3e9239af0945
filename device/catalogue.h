// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <optional>
#include <span>

#include "base/chip_data.h"

namespace tolvex {

/// Every chip that can be selected, in the order of the device list.
std::span<const DeviceRecord> Catalogue();
/// The size of a chip's program memory in words that stands behind the middle byte of its
/// signature; 0 for a byte that stands for none.
int FlashWordsOfSizeCode(std::uint8_t sizeCode);
/// What the device list shows.
QString ShownName(const DeviceRecord& device);
/// "AT90S1200A" out of a catalogue name: what can be typed on any keyboard.
QString PartNumber(const QString& catalogueName);
/// The part number of the chip with this signature; nothing when the catalogue has none.
std::optional<QString> PartOf(const Signature& signature);
/// The entry of the device list that `text` names: whole, by its part number or by what stands
/// behind "AT90S" in it ("2313", "1200A"), in either case.
std::optional<int> FindDevice(const QString& text);

/// A list of the lock and fuse area.
struct OptionRow {
    OptionList list;
    QString name;         ///< "CKSEL": what the data sheets call it
    QStringList entries;  ///< untranslated
    int preset;  ///< selected at start-up, and when a device that has the option is selected
};

/// The six lists, in the order of `OptionList`.
std::span<const OptionRow> OptionRows();
/// As the settings window shows them.
QStringList ShownEntries(const OptionRow& row);
/// Every chip has the lock list, the others belong to a fuse group.
bool HasOption(FuseGroup group, OptionList list);

}  // namespace tolvex
