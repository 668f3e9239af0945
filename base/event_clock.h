// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace tolvex {

/// Time and the event loop. Every wait of the program goes through this one interface, so that a
/// test can run a five-second time-out in microseconds.
class EventClock {
  public:
    /// Elapsed time since an arbitrary start; it never jumps or runs backwards.
    using Instant = std::chrono::microseconds;

    virtual ~EventClock() = default;

    virtual Instant Now() const = 0;

    /// One pass of the event loop. It may rest inside the loop until the next event or until
    /// `deadline`, whichever comes first; it returns at once when `Ended()`.
    virtual void Yield(Instant deadline) = 0;

    /// True once the program is shutting down: every wait returns at once, so that an operation
    /// which the shutdown interrupts ends without delay.
    virtual bool Ended() const = 0;
    /// The program shuts down.
    virtual void End() = 0;
};

}  // namespace tolvex
