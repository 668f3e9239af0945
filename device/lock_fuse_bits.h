// SPDX-License-Identifier: MIT
#pragma once

#include "device/device_check.h"

namespace tolvex {

/// The two buttons of the lock and fuse area: the chip's bits into the lists, and the lists' bits
/// into the chip.
class LockFuseBits : ChipOperation {
  public:
    LockFuseBits(const Parts& parts, DeviceCheck& check, WriterDetection& detection)
        : ChipOperation(parts), check_(check), detection_(detection) {}

    LockFuseResult cmdFuseRead_Click();
    LockFuseResult cmdFuseWrite_Click();
    /// Of what that writes, the lock bits alone or the fuse bits alone.
    LockFuseResult WriteLock();
    LockFuseResult WriteFuses();

  private:
    struct Bits {
        bool fuses;
        bool lock;
    };
    using ReadCommand = void (WriterCommands::*)(std::uint8_t&, ErrorFlag&);
    using WriteCommand = void (WriterCommands::*)(std::uint8_t, ErrorFlag&);

    /// One command in a programming-mode bracket of its own. What the chip gave, if it did.
    std::optional<std::uint8_t> ReadByte(ReadCommand command, std::uint8_t& byte);
    void WriteByte(WriteCommand command, std::uint8_t byte);
    void ReadLists(LockFuseResult& result);
    LockFuseResult Write(Bits bits);
    void WriteLists(Bits bits);
    void Tell(bool done, const QString& success, const QString& failure);

    DeviceCheck& check_;
    WriterDetection& detection_;
    // Kept between runs: a failed read decodes what the last successful one left, and before any
    // it must not look like a chip whose lock could be written back.
    std::uint8_t lockByte_ = 0xFF;
    std::uint8_t fuseByte_ = 0xFF;
    std::uint8_t lockFuseByte_ = 0xFF;
};

}  // namespace tolvex
