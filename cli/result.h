// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>
#include <utility>

#include "base/text.h"

namespace tolvex {

/// What the tool tells the script that called it.
enum class ExitStatus {
    Done = 0,
    Refused = 1,     ///< the chip or the writer said no, or a difference was found
    WrongUse = 2,    ///< a wrong command line or a file problem; the chip was not changed
    NoPort = 3,      ///< the port could not be opened
    OutputLost = 4,  ///< the work is done, but its output or trace could not be written
    Signalled = 128  ///< plus the signal's number: 130 after Ctrl-C
};

constexpr ExitStatus SignalledBy(int signal) {
    return static_cast<ExitStatus>(static_cast<int>(ExitStatus::Signalled) + signal);
}

/// Why a run ended as it did, for a machine.
struct Cause {
    const char* code;  ///< as --json gives it
    ExitStatus status;
};

// clang-format off
namespace cause {
inline constexpr Cause WrongUse{"wrongUse", ExitStatus::WrongUse};
inline constexpr Cause NoPort{"noPort", ExitStatus::WrongUse};
inline constexpr Cause NotReadable{"notReadable", ExitStatus::WrongUse};
inline constexpr Cause FileNotReadable{"fileNotReadable", ExitStatus::WrongUse};
inline constexpr Cause BadFile{"badFile", ExitStatus::WrongUse};
inline constexpr Cause FileExists{"fileExists", ExitStatus::WrongUse};
inline constexpr Cause FileNotWritten{"fileNotWritten", ExitStatus::WrongUse};
inline constexpr Cause PortMissing{"portMissing", ExitStatus::NoPort};
inline constexpr Cause NoSerialPort{"noSerialPort", ExitStatus::NoPort};
inline constexpr Cause PortForbidden{"portForbidden", ExitStatus::NoPort};
inline constexpr Cause PortBusy{"portBusy", ExitStatus::NoPort};
inline constexpr Cause WriterSilent{"writerSilent", ExitStatus::Refused};
inline constexpr Cause LineLost{"lineLost", ExitStatus::Refused};
inline constexpr Cause CommandRefused{"commandRefused", ExitStatus::Refused};
inline constexpr Cause EmptySocket{"emptySocket", ExitStatus::Refused};
inline constexpr Cause NoContact{"noContact", ExitStatus::Refused};
inline constexpr Cause ContactLost{"contactLost", ExitStatus::Refused};
inline constexpr Cause Locked{"locked", ExitStatus::Refused};
inline constexpr Cause WrongChip{"wrongChip", ExitStatus::Refused};
inline constexpr Cause Differs{"differs", ExitStatus::Refused};
inline constexpr Cause NotBlank{"notBlank", ExitStatus::Refused};
inline constexpr Cause ChipsFailed{"chipsFailed", ExitStatus::Refused};
inline constexpr Cause PartlyWritten{"partlyWritten", ExitStatus::Refused};
inline constexpr Cause Unstable{"unstable", ExitStatus::Refused};
inline constexpr Cause Implausible{"implausible", ExitStatus::Refused};
inline constexpr Cause NotAccepted{"notAccepted", ExitStatus::Refused};
inline constexpr Cause StartedLate{"startedLate", ExitStatus::Refused};
inline constexpr Cause HighLatency{"highLatency", ExitStatus::Refused};
inline constexpr Cause OutputLost{"outputLost", ExitStatus::OutputLost};
inline constexpr Cause Interrupted{"interrupted", ExitStatus::Signalled};
}  // namespace cause
// clang-format on

/// Why a command ended early. It is told at the end of the run, once.
struct Failure {
    Cause cause;
    QString text;                     ///< sentences for the user
    std::optional<QString> fix = {};  ///< a shell command that removes the cause
};

/// A file that would be replaced only with --overwrite.
inline Failure FileExistsFailure(const QString& path) {
    return {cause::FileExists,
            Text::tr("ファイルが既にあります。--overwrite で置き換えます: %1").arg(path)};
}

/// What a step that can fail returns: its failure, or nothing when it is done. The caller returns
/// early: `if (const Status failed = Step()) { return failed; }`
using Status = std::optional<Failure>;

/// The same for a step with a value.
template <typename T>
class Result {
  public:
    Result(T value) : value_(std::move(value)) {}
    Result(Failure failure) : failed_(std::move(failure)) {}

    /// True when there is a value.
    explicit operator bool() const { return value_.has_value(); }
    const T& operator*() const { return *value_; }
    const T* operator->() const { return &*value_; }
    /// Only without a value.
    const Failure& Failed() const { return *failed_; }

  private:
    std::optional<T> value_ = {};
    Status failed_ = {};
};

}  // namespace tolvex
