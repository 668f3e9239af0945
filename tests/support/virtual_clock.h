// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>

#include "base/event_clock.h"

namespace tolvex::testing {

/// Time that moves only inside `Yield`: to the next scheduled event, or just past the deadline when
/// nothing comes before it. A five-second time-out takes one call.
class VirtualClock : public EventClock {
  public:
    Instant Now() const override { return now_; }
    /// Runs what is due at the earliest scheduled moment up to `deadline`. Without any, time goes
    /// on to 1 us past the deadline, because whoever waits tests for strictly later.
    void Yield(Instant deadline) override;
    bool Ended() const override { return ended_; }

    /// Runs `action` in the `Yield` that reaches `instant`; a moment already past counts as now.
    void At(Instant instant, std::function<void()> action);
    /// Runs at the start of every `Yield`, as what a person clicks during a wait would. It may
    /// yield itself; it isn't called again from there.
    void OnYield(std::function<void()> hook) { hook_ = std::move(hook); }
    void End() override { ended_ = true; }
    int Yields() const { return yields_; }

  private:
    void RunDue();

    Instant now_{0};
    std::multimap<Instant, std::function<void()>> events_;
    std::function<void()> hook_;
    bool inHook_ = false;
    bool ended_ = false;
    int yields_ = 0;
};

}  // namespace tolvex::testing
