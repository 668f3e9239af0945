// SPDX-License-Identifier: MIT
#include "tests/support/virtual_clock.h"

#include <algorithm>

namespace tolvex::testing {

void VirtualClock::Yield(Instant deadline) {
    ++yields_;
    if (hook_ && !inHook_) {
        inHook_ = true;
        hook_();
        inHook_ = false;
    }
    if (ended_) {
        return;
    }
    if (!events_.empty() && events_.begin()->first <= deadline) {
        now_ = std::max(now_, events_.begin()->first);
        RunDue();
    } else {
        now_ = std::max(now_, deadline + Instant(1));
    }
}

void VirtualClock::At(Instant instant, std::function<void()> action) {
    events_.emplace(std::max(instant, now_), std::move(action));
}

void VirtualClock::RunDue() {
    const Instant moment = now_;
    while (!events_.empty() && events_.begin()->first <= moment) {
        const auto action = std::move(events_.begin()->second);
        events_.erase(events_.begin());
        action();
    }
}

}  // namespace tolvex::testing
