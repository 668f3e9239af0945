// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <optional>

#include "base/event_clock.h"

namespace tolvex {

/// The clock of a run that a signal can end, also in the middle of a wait: the reply under way gets
/// a moment more, because nobody knows what the board has done without it; then nothing waits.
class StoppableClock : public EventClock {
  public:
    /// `clock` is borrowed. `signal`: the number of the signal that has come; 0 = none.
    StoppableClock(EventClock& clock, std::function<int()> signal)
        : clock_(clock), signal_(std::move(signal)) {}

    /// The signal that asks to stop; 0 = none.
    int StopAsked() const {
        const int signal = signal_();
        if (signal != 0 && !end_) {
            end_ = clock_.Now() + kMoment;
        }
        return signal;
    }
    /// What still has to be said to the board gets a moment, whatever is asked, and no longer.
    void AllowFarewell() { end_ = clock_.Now() + kMoment; }

    Instant Now() const override { return clock_.Now(); }
    void Yield(Instant deadline) override {
        clock_.Yield(std::min(deadline, clock_.Now() + kGlance));
    }
    bool Ended() const override {
        StopAsked();
        return clock_.Ended() || (end_ && clock_.Now() >= *end_);
    }
    void End() override { clock_.End(); }

  private:
    static constexpr Instant kMoment = std::chrono::milliseconds(250);
    static constexpr Instant kGlance =
        std::chrono::milliseconds(50);  ///< between looks at a signal

    EventClock& clock_;
    std::function<int()> signal_;
    mutable std::optional<Instant> end_;
};

}  // namespace tolvex
