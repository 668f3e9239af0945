// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>
#include <cstdint>

namespace tolvex {

/// Which lock and fuse options a chip has.
enum class FuseGroup { LockOnly, FSTRT, RCEN, BOD_CKSEL };

/// A row of the device catalogue.
struct DeviceRecord {
    QString name;                 ///< shown in the device list, and the look-up key
    std::uint8_t deviceCode = 0;  ///< the writer's own chip class, sent after 'T'
    std::int32_t flashWords = 0;  ///< 16-bit words
    std::int32_t eepromBytes = 0;
    FuseGroup fuseGroup = FuseGroup::LockOnly;
    /// In the order in which the writer gives it: family, size code, vendor. Two rows may share
    /// one.
    std::array<std::uint8_t, 3> signature{};
};

/// What is selected: a copy of its row. Name and sizes are empty until the first selection.
using CurrentDevice = DeviceRecord;

}  // namespace tolvex
