// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

#include "port/serial_device.h"

namespace tolvex {

/// The package's udev rule, which grants access to the user at the seat: whoever is logged in at
/// the machine itself.
enum class UdevRule { NotForDevice, Missing, Installed };

/// What the system knows of a serial device without opening it.
struct PortFacts {
    bool exists = false;
    bool serial = true;                    ///< may be a serial device: no folder, no plain file
    bool permitted = false;                ///< may be read and written
    std::optional<QString> group{};        ///< that owns the device
    bool member = false;                   ///< of that group, from the next login on
    std::optional<DeviceHolder> holder{};  ///< another program that has it open
    UdevRule udevRule = UdevRule::NotForDevice;
    std::optional<QString> staleLockFile{};  ///< of a program that has ended
};

/// Of the device at `path`, links followed.
PortFacts InspectPort(const QString& path);

}  // namespace tolvex
