// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tolvex {

/// The rule with which the package gives USB adapters to whoever sits at the machine.
enum class SeatRule { NotForIt, Missing, Installed };

/// What the system knows of a serial device without opening it.
struct PortFacts {
    bool exists = false;
    bool permitted = false;  ///< may be read and written
    QString group{};         ///< that owns the device; empty = unknown
    bool member = false;     ///< the person belongs to it, from the next login on
    QString holder{};  ///< "name (process number)" of a program that has it open; may be empty
    int holderProcess = 0;
    SeatRule seatRule = SeatRule::NotForIt;
    QString leftLock{};  ///< a lock file of a program that has ended; empty = none
};

/// Of the device at `path`, links followed.
PortFacts InspectPort(const QString& path);

}  // namespace tolvex
