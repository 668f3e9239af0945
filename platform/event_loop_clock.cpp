// SPDX-License-Identifier: MIT
#include "platform/event_loop_clock.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimer>
#include <algorithm>

namespace tolvex {

using namespace std::chrono_literals;

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
    return std::chrono::duration_cast<Instant>(std::chrono::nanoseconds(timer_.nsecsElapsed()));
}

void EventLoopClock::Yield(Instant deadline) {
    if (ended_) {
        return;
    }
    ++depth_;
    const Instant left = deadline - Now();
    if (left > 0us) {
        // Rounded up to the timer's millisecond: rounded down, the last fraction would be spent in
        // passes without rest. The timer belongs to this yield alone, because yields nest.
        QTimer wakeUp;
        wakeUp.setTimerType(Qt::PreciseTimer);
        wakeUp.setSingleShot(true);
        wakeUp.start(std::chrono::ceil<std::chrono::milliseconds>(std::min<Instant>(left, 1h)));
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    } else {
        QCoreApplication::processEvents();
    }
    resumedDepth_ = --depth_;
}

}  // namespace tolvex
