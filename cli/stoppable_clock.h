// SPDX-License-Identifier: MIT
#pragma once

#include "base/event_clock.h"
#include "cli/observed_port.h"

namespace tolvex {

/// Once the port is stopped nothing waits any more.
class StoppableClock : public EventClock {
  public:
    /// Both borrowed.
    StoppableClock(EventClock& clock, const ObservedPort& port) : clock_(clock), port_(port) {}

    Instant Now() const override { return clock_.Now(); }
    void Yield(Instant deadline) override { clock_.Yield(deadline); }
    bool Ended() const override { return clock_.Ended() || port_.Stopped(); }
    void End() override { clock_.End(); }

  private:
    EventClock& clock_;
    const ObservedPort& port_;
};

}  // namespace tolvex
