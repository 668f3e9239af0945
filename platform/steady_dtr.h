// SPDX-License-Identifier: MIT
#pragma once

namespace tolvex {

/// Opening a port raises DTR, and boards made of an Arduino take that edge for a reset. Where the
/// system allows it DTR stays up from the first opening on, beyond closing and the end of the
/// program, so that there is no second edge. Elsewhere all of this does nothing.

/// `handle` is a serial device that was opened just now. Whether that has raised DTR.
bool OpeningRaisedDtr(int handle);

/// From before a port closes until after: Qt puts back the settings that it found, the one that
/// drops DTR included.
class SteadyDtr {
  public:
    explicit SteadyDtr(int handle);
    ~SteadyDtr();
    SteadyDtr(const SteadyDtr&) = delete;
    SteadyDtr& operator=(const SteadyDtr&) = delete;

  private:
    int handle_;  // the device stays open as long as this is
};

}  // namespace tolvex
