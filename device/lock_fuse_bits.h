// SPDX-License-Identifier: MIT
#pragma once

#include "device/device_check.h"
#include "device/operation_context.h"

namespace tolvex {

/// The two buttons of the lock and fuse area: the chip's bits into the lists, and the lists' bits
/// into the chip.
class LockFuseBits {
  public:
    LockFuseBits(OperationContext& context, DeviceCheck& check, WriterDetection& detection)
        : context_(context), check_(check), detection_(detection) {}

    void cmdFuseRead_Click();
    void cmdFuseWrite_Click();

  private:
    using ReadCommand = void (WriterCommands::*)(std::uint8_t&, ErrorFlag&);
    using WriteCommand = void (WriterCommands::*)(std::uint8_t, ErrorFlag&);

    /// One command in a programming-mode bracket of its own.
    void ReadByte(ReadCommand command, std::uint8_t& byte);
    void WriteByte(WriteCommand command, std::uint8_t byte);
    void ReadLists();
    void WriteLists();

    OperationContext& context_;
    DeviceCheck& check_;
    WriterDetection& detection_;
    // Kept between runs: a failed read decodes what the last successful one left.
    std::uint8_t lockByte_ = 0;
    std::uint8_t fuseByte_ = 0;
    std::uint8_t lockFuseByte_ = 0;
};

}  // namespace tolvex
