// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <functional>
#include <optional>

#include "device/catalogue.h"
#include "image/image.h"
#include "link/link.h"

namespace tolvex {

/// What the chip operations work with; borrowed. An operation tells the user everything itself and
/// returns what it did and what was confirmed.
struct ChipContext : LinkContext {
    ListingFiles& listings;
    /// A chip of another size than the device's is still told, but no longer refused.
    bool tolerateMismatch = false;
    /// What the chip answered when it was proven; nothing = the operations go by the size alone and
    /// ask once, as the window's do. A contact that breaks reads as 0xFF or 0x00, which looks like
    /// data, and a board may acknowledge what no chip has heard. So where this is set they ask
    /// again in every check and right before they leave programming mode, and another answer makes
    /// the phase fail. A chip that was proven locked may show the device's part once it has been
    /// erased, or any with `tolerateMismatch`.
    std::optional<Signature> provenSignature = {};
    /// Told of each such answer, and whether it is the proven chip's. May be empty.
    std::function<void(const Signature& answer, bool same)> onProof = {};
};

/// What a chip answers that is locked against reading, whatever part it is.
inline constexpr Signature kLockedSignature{0x02, 0x01, 0x00};

/// In programming mode: asks for the signature where one was proven. False when the command failed
/// or it is not the proven chip; the error flag is then set. `mayBeLocked`: the chip has just been
/// told to lock itself.
bool IsStillProven(const ChipContext& context, bool mayBeLocked = false);
/// The same, and leaves programming mode.
bool LeaveWithProof(const ChipContext& context, bool mayBeLocked = false);

// In the results `listingsUpdated` is false when the operation ended early because a listing or the
// verify report could not be written, which has no message of its own.

/// What a device check makes of the chip.
enum class ChipVerdict {
    NoReply,
    Accepted,
    Tolerated,      ///< of another size, and that is allowed
    CommandFailed,  ///< the signature fits, but programming mode was not entered or left
    Locked,
    EmptySocket,
    Mismatch,
    ContactLost  ///< not the chip that was proven
};

struct ChipReading {
    ChipVerdict verdict = ChipVerdict::NoReply;
    Signature signature{};  ///< zeros before the first reply

    /// The operation may go on.
    bool Passed() const {
        return verdict == ChipVerdict::Accepted || verdict == ChipVerdict::Tolerated;
    }
};

/// Is there a chip in the socket, can it be read, is it of the selected size? A negative outcome
/// sets the error flag, and the user is told why. Enters and leaves programming mode.
ChipReading CheckDevice(const ChipContext& context);
/// The signature alone; programming mode is the caller's business.
ChipReading CheckSignature(const ChipContext& context);

/// What became of one memory, or of an erase.
struct PhaseResult {
    bool succeeded = false;  ///< every command was acknowledged
    bool listingsUpdated = true;
};

/// Clears the chip's Flash, EEPROM and lock bits; the images stay. Clears the error flag first, so
/// that the flag afterwards tells of this erase alone.
PhaseResult EraseChip(const ChipContext& context);

struct ReadResult {
    ChipReading chip;
    bool flashRead = false;  ///< the whole memory, without a failed command
    bool eepromRead = false;
    bool listingsUpdated = true;

    bool Complete() const { return flashRead && eepromRead; }
};

/// Copies the whole chip into the images, cell by cell as the replies arrive.
ReadResult ReadChip(const ChipContext& context);

/// A cell whose content is not the image's: a Flash word or an EEPROM byte.
struct Difference {
    bool flash;
    int address;
    int image;
    int chip;
};

struct VerifyResult {
    ChipReading chip;            ///< of a verify that stands alone
    bool flashCompared = false;  ///< to its end without a failed command
    bool eepromCompared = false;
    QList<Difference> differences;  ///< Flash first, each memory by rising address
    bool listingsUpdated = true;

    bool Differs(bool flash) const;
    bool Matches() const { return flashCompared && eepromCompared && differences.isEmpty(); }
};

enum class VerifyMode {
    WholeChip,     ///< stand-alone: check the device, then compare both memories whole
    AfterProgram,  ///< only as far as the images reach; the device has just been checked
};

/// Compares the chip with the images and writes every difference into the verify report.
VerifyResult VerifyChip(const ChipContext& context, VerifyMode mode);

struct ProgramResult {
    bool nothingToWrite = false;  ///< both images are blank: no command was sent
    ChipReading chip;
    bool flashWritten = false;  ///< every command was acknowledged
    bool eepromWritten = false;
    VerifyResult verify;
    bool listingsUpdated = true;

    bool Verified() const { return flashWritten && eepromWritten && verify.Matches(); }
};

/// Writes both images into the chip and verifies them. It never erases: that has been done.
ProgramResult ProgramChip(const ChipContext& context);

/// Index of the last word of the device's Flash with a byte that is not erased; -1 = none.
int LastUsedWord(const ProgramState& state);
/// Index of the last byte of the device's EEPROM that is not erased; -1 = none.
int LastUsedByte(const ProgramState& state);

/// A read or a write of lock and fuse bits.
struct LockFuseResult {
    DetectionResult detection;
    ChipReading chip;
    bool done = false;  ///< every command of the read or write itself succeeded
    /// What the chip gave: the byte of 'r', and of 'F'. Nothing = not asked or no reply.
    std::optional<std::uint8_t> fuseByte;
    std::optional<std::uint8_t> lockByte;
};

/// The chip's lock and fuse bits become the chosen options.
LockFuseResult cmdFuseRead_Click(const ChipContext& context);
/// The chosen options become the chip's lock and fuse bits.
LockFuseResult cmdFuseWrite_Click(const ChipContext& context);

enum class LockFusePart { Both, Fuses, Lock };
/// Of what cmdFuseWrite_Click writes, the given part.
LockFuseResult WriteLockFuse(const ChipContext& context, LockFusePart part);

/// Once, at start-up: the options take their start-up entries, and the stored device is selected.
void FillDeviceLists(const ChipContext& context);
/// The user chose the entry `index` of the device list; -1 = none. Ends early, without a message,
/// when a listing can't be written.
void SelectDevice(const ChipContext& context, int index);
/// The options take their start-up entries.
void ResetOptions(const ChipContext& context);

}  // namespace tolvex
