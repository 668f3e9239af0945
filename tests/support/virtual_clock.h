// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

#include "base/event_clock.h"

namespace tolvex::testing {

/// Time that moves only inside `Yield`: to the next scheduled event, or just past the deadline when
/// nothing comes before it. A five-second time-out takes one call.
class VirtualClock : public EventClock {
  public:
    Instant Now() const override { return now_; }
    /// Runs what is due at the earliest scheduled moment up to `deadline`. Without any, time goes
    /// on to 1 us past the deadline, because whoever waits tests for strictly later.
    void Yield(Instant deadline) override {
        ++yields_;
        if (hook_ && !std::exchange(inHook_, true)) {
            hook_();
            inHook_ = false;
        }
        if (ended_) {
            return;
        }
        const bool due = !events_.empty() && events_.begin()->first <= deadline;
        now_ = std::max(now_, due ? events_.begin()->first : deadline + Instant(1));
        for (const Instant moment = now_; !events_.empty() && events_.begin()->first <= moment;) {
            events_.extract(events_.begin()).mapped()();
        }
    }
    bool Ended() const override { return ended_; }

    /// Runs `action` in the `Yield` that reaches `instant`; a moment already past counts as now.
    void At(Instant instant, std::function<void()> action) {
        events_.emplace(std::max(instant, now_), std::move(action));
    }
    /// Runs at the start of every `Yield`, as what a person clicks during a wait would. It may
    /// yield itself; it isn't called again from there.
    void OnYield(std::function<void()> hook) { hook_ = std::move(hook); }
    void End() override { ended_ = true; }
    int Yields() const { return yields_; }

  private:
    Instant now_{0};
    std::multimap<Instant, std::function<void()>> events_;
    std::function<void()> hook_;
    bool inHook_ = false, ended_ = false;
    int yields_ = 0;
};

}  // namespace tolvex::testing
