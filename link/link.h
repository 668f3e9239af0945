// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>
#include <cstdint>

#include "base/error_flag.h"

namespace tolvex {

/// The writer's command set: one letter out, one judged reply back. A command that fails sets the
/// flag, writes one text into status panel 1 and returns normally; its results then keep what the
/// caller put there. Commands yield to the event loop while they wait, one at a time.
class WriterCommands {
  public:
    virtual ~WriterCommands() = default;

    virtual void ReadSoftwareId(QString& identifier, ErrorFlag& flag) = 0;    ///< 7 characters
    virtual void ReadSoftwareVersion(QString& version, ErrorFlag& flag) = 0;  ///< "3.9"
    virtual void ReadHardwareVersion(QString& version, ErrorFlag& flag) = 0;  ///< "1.0"
    virtual void SelectDeviceCode(std::uint8_t deviceCode, ErrorFlag& flag) = 0;
    virtual void EnterProgrammingMode(ErrorFlag& flag) = 0;
    /// Pauses 0.1 s after any reply.
    virtual void LeaveProgrammingMode(ErrorFlag& flag) = 0;
    /// The signature in order of arrival: family, size code, vendor. False after a time-out.
    virtual bool ReadSignature(std::array<std::uint8_t, 3>& bytes, ErrorFlag& flag) = 0;
    /// 0 to 65535: a word address for program memory, a byte address for data memory.
    virtual void SetAddress(std::int32_t address, ErrorFlag& flag) = 0;
    /// The word at the writer's address, which then moves on by one. False after a time-out.
    virtual bool ReadProgramWord(std::uint8_t& high, std::uint8_t& low, ErrorFlag& flag) = 0;
    /// Low byte first on the wire; the writer's address moves on by one word.
    virtual void WriteProgramWord(std::uint8_t high, std::uint8_t low, ErrorFlag& flag) = 0;
    virtual void ReadDataByte(std::uint8_t& data, ErrorFlag& flag) = 0;
    virtual void WriteDataByte(std::uint8_t data, ErrorFlag& flag) = 0;
    virtual void ChipErase(ErrorFlag& flag) = 0;
    virtual void WriteFuseBits(std::uint8_t fuses, ErrorFlag& flag) = 0;
    virtual void WriteLockBits(std::uint8_t lock, ErrorFlag& flag) = 0;
    virtual void ReadLockFuseBits(std::uint8_t& bits, ErrorFlag& flag) = 0;
    virtual void ReadFuseBits(std::uint8_t& fuses, ErrorFlag& flag) = 0;
    virtual void LedOn() = 0;
    virtual void LedOff() = 0;

    /// The firmware version of the last successful `ReadSoftwareVersion`; empty before the first.
    virtual QString SoftwareVersion() const = 0;
};

/// What the writer says of itself; what it did not say is empty.
struct WriterIdentity {
    QString identifier, softwareVersion, hardwareVersion;
};

/// A detection: true in a condition when the writer answered all of it.
struct DetectionResult {
    bool found = false;
    WriterIdentity identity;  ///< as far as the detection came

    explicit operator bool() const { return found; }
};

/// Finds the writer at the stored port and tells it the selected device. After a success the port
/// stays open for the operation's commands; after a failure it is closed and the person has been
/// told.
class WriterDetection {
  public:
    virtual ~WriterDetection() = default;
    virtual DetectionResult WriterCheck() = 0;
};

/// A delay that keeps serving the event loop.
class Waiting {
  public:
    virtual ~Waiting() = default;
    /// 0 returns at once, without yielding.
    virtual void WaitSeconds(double seconds) = 0;
};

}  // namespace tolvex
