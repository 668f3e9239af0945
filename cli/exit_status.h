// SPDX-License-Identifier: MIT
#pragma once

namespace tolvex {

/// What the tool tells the script that called it.
enum ExitStatus {
    kDone = 0,
    kRefused = 1,   ///< the chip or the writer said no, or the verify found a difference
    kWrongUse = 2,  ///< a wrong command line or a bad input file; the chip was not touched
    kNoPort = 3,    ///< the port could not be opened
    kInterrupted = 130
};

}  // namespace tolvex
