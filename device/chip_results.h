// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <array>
#include <cstdint>
#include <optional>

#include "link/link.h"

namespace tolvex {

// What an operation really did and what the chip or the writer confirmed. `listed` is false when
// the operation ended early because a listing or the report could not be brought up to date, which
// has no message of its own.

/// What the signature said.
enum class ChipVerdict { NoReply, Accepted, Protected, EmptySocket, Mismatch };

/// A device check.
struct ChipReading {
    ChipVerdict verdict = ChipVerdict::NoReply;
    /// In order of arrival: family, size code, vendor; zeros before the first reply.
    std::array<std::uint8_t, 3> signature{};
    /// The chip may be worked on: it is accepted (or its mismatch is tolerated) and no command of
    /// the check failed.
    bool passed = false;
};

struct EraseResult {
    bool erased = false;  ///< every command was acknowledged
    bool listed = true;
};

struct ReadResult {
    ChipReading chip;
    bool flashRead = false;  ///< the whole memory, without a failed command
    bool eepromRead = false;
    bool listed = true;

    bool Complete() const { return flashRead && eepromRead; }
};

struct VerifyResult {
    /// A cell whose content is not the image's: a Flash word or an EEPROM byte.
    struct Difference {
        bool flash;
        int address;
        int image;
        int chip;
    };

    ChipReading chip;            ///< of a verify that stands alone
    bool flashCompared = false;  ///< gone through to its end without a failed command
    bool eepromCompared = false;
    bool flashDiffers = false;
    bool eepromDiffers = false;
    QList<Difference> differences;
    QByteArray report;  ///< the same for a person, lines ended with CRLF
    bool listed = true;

    bool Matches() const {
        return flashCompared && eepromCompared && !flashDiffers && !eepromDiffers;
    }
};

struct ProgramResult {
    bool nothingToWrite = false;  ///< both images are blank: no command was sent
    ChipReading chip;
    bool flashWritten = false;  ///< every command was acknowledged
    bool eepromWritten = false;
    VerifyResult verify;
    bool listed = true;

    bool Verified() const { return flashWritten && eepromWritten && verify.Matches(); }
};

/// A read or a write of lock and fuse bits.
struct LockFuseResult {
    DetectionResult detection;
    ChipReading chip;
    bool done = false;  ///< every command of the read or write itself succeeded
    /// What the chip gave: the byte of 'r', and of 'F'. Nothing = not asked or no reply.
    std::optional<std::uint8_t> fuseByte;
    std::optional<std::uint8_t> lockByte;
};

/// A chain of the toolbar. What did not run is empty.
struct ChainResult {
    DetectionResult detection;
    std::optional<ChipReading> chip;  ///< of the check before an erase
    std::optional<EraseResult> erase;
    std::optional<ProgramResult> program;
    std::optional<ReadResult> read;
    std::optional<VerifyResult> verify;
    bool ended = false;  ///< every step ran
};

}  // namespace tolvex
