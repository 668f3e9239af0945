// SPDX-License-Identifier: MIT
#pragma once

namespace tolvex {

/// What the tool tells the script that called it.
enum ExitStatus {
    kDone = 0,
    kRefused = 1,     ///< the chip or the writer said no, or a difference was found
    kWrongUse = 2,    ///< a wrong command line or a file problem; the chip was not changed
    kNoPort = 3,      ///< the port could not be opened
    kOutputLost = 4,  ///< the work is done, but its output or trace could not be written
    kSignalled = 128  ///< plus the signal's number: 130 after Ctrl-C
};

/// Why a run ended as it did, for a machine.
struct Cause {
    const char* code;  ///< as --json gives it
    ExitStatus status;
};

// clang-format off
namespace cause {
inline constexpr Cause WrongUse{"wrongUse", kWrongUse};
inline constexpr Cause NoPort{"noPort", kWrongUse};
inline constexpr Cause NotReadable{"notReadable", kWrongUse};
inline constexpr Cause FileNotReadable{"fileNotReadable", kWrongUse};
inline constexpr Cause BadFile{"badFile", kWrongUse};
inline constexpr Cause FileExists{"fileExists", kWrongUse};
inline constexpr Cause FileNotWritten{"fileNotWritten", kWrongUse};
inline constexpr Cause PortMissing{"portMissing", kNoPort};
inline constexpr Cause PortForbidden{"portForbidden", kNoPort};
inline constexpr Cause PortBusy{"portBusy", kNoPort};
inline constexpr Cause WriterSilent{"writerSilent", kRefused};
inline constexpr Cause LineLost{"lineLost", kRefused};
inline constexpr Cause CommandRefused{"commandRefused", kRefused};
inline constexpr Cause EmptySocket{"emptySocket", kRefused};
inline constexpr Cause Locked{"locked", kRefused};
inline constexpr Cause WrongChip{"wrongChip", kRefused};
inline constexpr Cause Differs{"differs", kRefused};
inline constexpr Cause PartlyWritten{"partlyWritten", kRefused};
inline constexpr Cause Unstable{"unstable", kRefused};
inline constexpr Cause Implausible{"implausible", kRefused};
inline constexpr Cause NotTaken{"notTaken", kRefused};
inline constexpr Cause StartedLate{"startedLate", kRefused};
inline constexpr Cause HighLatency{"highLatency", kRefused};
inline constexpr Cause OutputLost{"outputLost", kOutputLost};
inline constexpr Cause Interrupted{"interrupted", kSignalled};
}  // namespace cause
// clang-format on

/// Takes the steps in order up to the first whose status is not `kDone`, and gives that.
template <typename... Steps>
int InOrder(Steps... steps) {
    int status = kDone;
    (void)((status = steps(), status == kDone) && ...);
    return status;
}

}  // namespace tolvex
