// SPDX-License-Identifier: MIT
#include "platform/event_loop_clock.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
#include <algorithm>

namespace tolvex {
namespace {

using namespace std::chrono_literals;

TEST(EventLoopClock, DeadlinesAreKeptWithoutSpinning) {
    for (const EventClock::Instant wait : {300us, 1200us, 100'000us}) {
        EventLoopClock clock;
        EventClock::Instant leastLate = 1h;
        int leastPasses = 1000;
        // The best one counts: the machine may have other work.
        for (int attempt = 0; attempt < 40 && (leastLate >= 2ms || leastPasses > 2); ++attempt) {
            const EventClock::Instant deadline = clock.Now() + wait;
            int passes = 0;
            for (; clock.Now() < deadline && passes < 1000; ++passes) {
                clock.Yield(deadline);
            }
            leastLate = std::min(leastLate, clock.Now() - deadline);
            leastPasses = std::min(leastPasses, passes);
        }
        EXPECT_GE(leastLate, 0us) << wait.count() << " us";
        EXPECT_LT(leastLate, 2ms) << wait.count() << " us";
        EXPECT_LE(leastPasses, 2) << wait.count() << " us";
    }
}

TEST(EventLoopClock, TheEndReleasesEveryWaitAndDeliversNothingMore) {
    EventLoopClock clock;
    bool late = false;
    EXPECT_FALSE(clock.Ended());
    QTimer::singleShot(5, [&] {
        clock.End();
        clock.Yield(clock.Now() + 1h);  // nested in the outer yield
        QMetaObject::invokeMethod(
            qApp, [&] { late = true; }, Qt::QueuedConnection);
    });
    const EventClock::Instant begin = clock.Now();
    while (!clock.Ended()) {
        clock.Yield(begin + 1h);
    }
    clock.Yield(begin + 1h);
    EXPECT_LT(clock.Now() - begin, 2s);
    EXPECT_FALSE(late);
    QCoreApplication::processEvents();  // before `late` goes out of scope
}

}  // namespace
}  // namespace tolvex
