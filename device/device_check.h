// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "device/operation_context.h"

namespace tolvex {

/// What the signature said.
enum class ChipVerdict { NoReply, Accepted, Protected, EmptySocket, Mismatch };

/// Is there a chip in the socket, can it be read, is it of the selected size? The verdict is the
/// error flag, which only a negative outcome sets; the person is told why.
class DeviceCheck {
  public:
    explicit DeviceCheck(OperationContext& context) : context_(context) {}

    /// The signature check inside a programming-mode bracket of its own.
    void CheckDevice();
    /// The signature alone; programming mode is the caller's business.
    void CheckSignature();
    /// What the last signature's size code stands for; 512 when it stands for nothing.
    int DetectedFlashWords() const { return detectedFlashWords_; }
    /// Of the last check.
    ChipVerdict Verdict() const { return verdict_; }
    /// In order of arrival: family, size code, vendor; zeros when no reply came.
    std::array<std::uint8_t, 3> Signature() const { return signature_; }
    /// From now on a chip of another size is still reported but no longer refused.
    void TolerateMismatch() { tolerant_ = true; }

  private:
    bool ReadKnownSignature();
    void Judge(std::uint8_t sizeCode);
    void Reject(const QString& message);

    OperationContext& context_;
    int detectedFlashWords_ = 0;
    ChipVerdict verdict_ = ChipVerdict::NoReply;
    std::array<std::uint8_t, 3> signature_{};
    bool tolerant_ = false;
};

}  // namespace tolvex
