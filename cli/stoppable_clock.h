// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <optional>

#include "cli/traced_port.h"

namespace tolvex {

/// The clock of a run that a signal can end, also in the middle of a wait: the reply under way gets
/// a grace period, because nobody knows what the writer has done without it; then nothing waits.
class StoppableClock : public EventClock {
  public:
    /// Clock and port are borrowed; the port records after each wait what has arrived. `signal`:
    /// the number of the signal that has come; 0 = none.
    StoppableClock(EventClock& clock, TracedPort& port, std::function<int()> signal)
        : clock_(clock), port_(port), signal_(std::move(signal)) {}

    /// What still has to be said to the writer gets a grace period from now on, signal or not.
    void AllowShutdownCommands() { end_ = clock_.Now() + kGracePeriod; }

    Instant Now() const override { return clock_.Now(); }
    void Yield(Instant deadline) override {
        clock_.Yield(std::min(deadline, clock_.Now() + kPollInterval));
        port_.Fetch();
        if (!end_ && signal_() != 0) {
            end_ = clock_.Now() + kGracePeriod;
        }
    }
    bool Ended() const override { return clock_.Ended() || (end_ && clock_.Now() >= *end_); }
    void End() override { clock_.End(); }

  private:
    static constexpr Instant kGracePeriod = std::chrono::milliseconds(250);
    static constexpr Instant kPollInterval = std::chrono::milliseconds(50);  ///< of the signal

    EventClock& clock_;
    TracedPort& port_;
    std::function<int()> signal_;
    std::optional<Instant> end_ = {};
};

}  // namespace tolvex
