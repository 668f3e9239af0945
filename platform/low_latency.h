// SPDX-License-Identifier: MIT
#pragma once

namespace tolvex {

/// FTDI adapters hold received bytes back for 16 ms unless their driver is told otherwise, which
/// makes each of the many one-byte replies that late. The driver keeps what it was told for whoever
/// opens the adapter next, so the mode is put back. Does nothing where there is no such mode.
class LowLatency {
  public:
    /// `handle` is an open serial device.
    void Enter(int handle);
    /// Only if `Enter` changed the mode.
    void PutBack(int handle);

  private:
    bool changed_ = false;
};

}  // namespace tolvex
