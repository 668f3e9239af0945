// SPDX-License-Identifier: MIT
#include "platform/event_loop_clock.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace tolvex {

using namespace std::chrono_literals;

namespace {

/// A rest ends after this time at the latest; so it is known how long it may have lasted.
constexpr EventClock::Instant kLongestRest = 100ms;
/// By how much a busy machine may overrun a rest.
constexpr EventClock::Instant kLate = 100ms;

}  // namespace

EventLoopClock::EventLoopClock() {
    timer_.start();
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                     &context_, [this] { KeepAwakeAfterNestedYield(); });
}

/// A pass first delivers posted events, then rests. If a handler of a posted event has waited
/// itself, its own passes may have consumed the wake-up that this pass would get (it depends on the
/// dispatcher), and what this yield waits for may have happened: so this pass must not rest.
void EventLoopClock::KeepAwakeAfterNestedYield() {
    if (depth_ > 0 && resumedDepth_ == depth_) {
        QAbstractEventDispatcher::instance()->wakeUp();
    }
}

void EventLoopClock::End() {
    ended_ = true;
    QAbstractEventDispatcher::instance()->wakeUp();
}

EventClock::Instant EventLoopClock::Now() const {
    const Instant now =
        std::chrono::duration_cast<Instant>(std::chrono::nanoseconds(timer_.nsecsElapsed()));
    if (const Instant gap = now - seen_; depth_ > 0 && gap > rest_ + kLate) {
        stood_ += gap - rest_;
    }
    seen_ = now;
    return now - stood_;
}

void EventLoopClock::Yield(Instant deadline) {
    if (ended_) {
        return;
    }
    const Instant rest = std::clamp<Instant>(deadline - Now(), 0us, kLongestRest);
    const Instant outerRest = std::exchange(rest_, rest);
    ++depth_;
    if (rest > 0us) {
        // Rounded up to the timer's millisecond: rounded down, the last fraction would be spent in
        // passes without rest. The timer belongs to this yield alone, because yields nest.
        QTimer wakeUp;
        wakeUp.setTimerType(Qt::PreciseTimer);
        wakeUp.setSingleShot(true);
        wakeUp.start(std::chrono::ceil<std::chrono::milliseconds>(rest));
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    } else {
        QCoreApplication::processEvents();
    }
    if (!ended_) {
        // On Windows a pass ends with the message that something was posted, such as received
        // bytes; the next one would deliver it and then rest, as if nothing had come.
        QCoreApplication::sendPostedEvents();
    }
    Now();  // notices a gap
    resumedDepth_ = --depth_;
    rest_ = outerRest;
}

}  // namespace tolvex
