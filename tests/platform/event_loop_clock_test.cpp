// SPDX-License-Identifier: MIT
#include "platform/event_loop_clock.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <ctime>
#include <memory>

namespace tolvex {
namespace {

using namespace std::chrono_literals;

std::chrono::duration<double, std::milli> ProcessorTime() {
    return std::chrono::duration<double>(static_cast<double>(std::clock()) / CLOCKS_PER_SEC);
}

TEST(EventLoopClock, DeadlinesAreKeptWithoutSpinning) {
    const struct {
        const char* what;
        EventClock::Instant wait;
    } cases[] = {
        {"fraction of a timer tick", 300us},
        {"one and a bit", 1200us},
        {"pause of a command", 100ms},
    };
    for (const auto& c : cases) {
        EventLoopClock clock;
        EventClock::Instant leastLate = 1h;
        int leastPasses = 1000;
        for (int attempt = 0; attempt < 5; ++attempt) {  // the best one: the machine has other work
            const EventClock::Instant deadline = clock.Now() + c.wait;
            int passes = 0;
            for (; clock.Now() < deadline && passes < 1000; ++passes) {
                clock.Yield(deadline);
            }
            leastLate = std::min(leastLate, clock.Now() - deadline);
            leastPasses = std::min(leastPasses, passes);
        }
        EXPECT_GE(leastLate, 0us) << c.what;
        EXPECT_LT(leastLate, 2ms) << c.what;
        EXPECT_LE(leastPasses, 2) << c.what;
    }
}

/// How many passes a wait of 200 ms takes, and how much processor time.
struct Rest {
    int passes = 0;
    double processorMs = 0;
};

Rest RestFor200Ms(EventLoopClock& clock) {
    Rest rest;
    const auto before = ProcessorTime();
    const EventClock::Instant deadline = clock.Now() + 200ms;
    for (; clock.Now() < deadline; ++rest.passes) {
        clock.Yield(deadline);
    }
    rest.processorMs = (ProcessorTime() - before).count();
    return rest;
}

/// A handler that waits after deleteLater() leaves an event behind that the nested loop can't
/// deliver; the loop must rest all the same, and the object must live until the handler is done.
TEST(EventLoopClock, PendingDeletionNeitherSpinsNorHappensUnderTheHandler) {
    auto* doomed = new QObject;
    bool aliveInHandler = false;
    Rest rest;
    QPointer<QObject> watch(doomed);
    EventLoopClock clock;
    bool handled = false;
    QTimer::singleShot(0, [&] {
        doomed->deleteLater();
        rest = RestFor200Ms(clock);
        aliveInHandler = !watch.isNull();
        handled = true;
    });
    const EventClock::Instant begin = clock.Now();
    while (!handled) {
        clock.Yield(begin + 5s);
    }
    // The wait of the handler ended the yield around it too: what it waited for may be what the
    // outer one waits for.
    EXPECT_LT(clock.Now() - begin, 2s);
    QMetaObject::invokeMethod(
        qApp, [] {}, Qt::QueuedConnection);
    clock.Yield(clock.Now());
    EXPECT_TRUE(aliveInHandler);
    EXPECT_TRUE(watch.isNull());
    EXPECT_LT(rest.processorMs, 20);
    EXPECT_LT(rest.passes, 20);
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
