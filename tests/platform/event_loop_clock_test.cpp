// SPDX-License-Identifier: MIT
#include "platform/event_loop_clock.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

namespace tolvex {
namespace {

using namespace std::chrono_literals;

TEST(EventLoopClock, DeadlinesAreKeptWithoutSpinning) {
    EventLoopClock clock;
    for (const EventClock::Instant wait : {300us, 1200us, 100'000us}) {
        bool kept = false;
        // The best one counts: the machine may have other work.
        for (int attempt = 0; attempt < 40 && !kept; ++attempt) {
            const EventClock::Instant deadline = clock.Now() + wait;
            int passes = 0;
            for (; clock.Now() < deadline && passes < 1000; ++passes) {
                clock.Yield(deadline);
            }
            ASSERT_GE(clock.Now(), deadline) << wait.count() << " us";
            kept = clock.Now() - deadline < 2ms && passes <= 2;
        }
        EXPECT_TRUE(kept) << wait.count() << " us";
    }
}

TEST(EventLoopClock, StandsWhileTheProcessDoesNotRun) {
    EventLoopClock clock;
    const EventClock::Instant begin = clock.Now();
    // Nested, because the handler waits itself: that counts, once.
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [] { QThread::msleep(600); });
        for (const auto end = clock.Now() + 50ms; clock.Now() < end;) {
            clock.Yield(end);
        }
        EXPECT_GE(clock.Now() - begin, 50ms);
    });
    clock.Yield(begin + 5s);
    EXPECT_LT(clock.Now() - begin, 500ms);
}

TEST(EventLoopClock, AYieldDeliversWhatItsEventsPost) {
    EventLoopClock clock;
    bool delivered = false;
    const auto receive = [&] { delivered = true; };
    QTimer::singleShot(0, [&] { QMetaObject::invokeMethod(qApp, receive, Qt::QueuedConnection); });
    clock.Yield(clock.Now() + 5s);
    EXPECT_TRUE(delivered);
}

TEST(EventLoopClock, TheEndReleasesEveryWaitAndDeliversNothingMore) {
    EventLoopClock clock;
    bool late = false;
    const EventClock::Instant begin = clock.Now();
    QTimer::singleShot(5, [&] {
        clock.End();
        clock.Yield(begin + 1h);  // nested in the outer yield
        QMetaObject::invokeMethod(
            qApp, [&] { late = true; }, Qt::QueuedConnection);
    });
    while (!clock.Ended()) {
        clock.Yield(begin + 1h);
    }
    clock.Yield(begin + 1h);
    EXPECT_TRUE(clock.Now() - begin < 2s && !late);
    QCoreApplication::processEvents();  // before `late` goes out of scope
}

}  // namespace
}  // namespace tolvex
