// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tolvex {

/// The lock file of a serial port that a program of this machine has left behind: it names a
/// process that has ended. Empty when there is none. `portName` is a device path, or a name in
/// /dev.
QString LeftLock(const QString& portName);

}  // namespace tolvex
