// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>

#include "base/event_clock.h"

namespace tolvex {

/// The real clock and the real event loop. A yield rests in the loop without burning the
/// processor: it returns after the first event (bytes, input, paint, timer), or at the deadline and
/// then at most about a millisecond late, never early. It is made after the QCoreApplication and
/// used in its thread. Yields may nest (an event handler may wait itself).
///
/// The clock stands while the process does not run (stopped by a signal, or the computer sleeps):
/// a reply that came meanwhile has not been looked at and is not late. It shows by a yield that
/// takes much longer than it asked for; what an event handler takes so long for is no waiting time
/// either.
///
/// Trap: while a handler waits, objects on which it called deleteLater() before or while waiting
/// stay alive; the event loop deletes them only after that handler has returned. What handlers that
/// run inside the wait delete later is gone with the next yield. So an operation never sees its own
/// objects vanish, but must not count on them being gone either: hide a window before
/// deleteLater().
class EventLoopClock : public EventClock {
  public:
    EventLoopClock();

    Instant Now() const override;
    /// A deadline in the past gives one pass without rest. Returns after 0.1 s at the latest,
    /// though nothing may have happened.
    void Yield(Instant deadline) override;
    bool Ended() const override { return ended_; }

    /// The shutdown: from now on nothing waits, and no yield delivers events any more. Yields that
    /// rest further up the stack return when the calling event handler does.
    void End() override;

  private:
    void KeepAwakeAfterNestedYield();

    QElapsedTimer timer_;
    // By `timer_`, which goes on while the clock stands.
    mutable Instant seen_{0};   ///< when the clock was looked at last
    mutable Instant stood_{0};  ///< for how long in all
    Instant rest_{0};           ///< what the running yield asked for
    QObject context_;           ///< ends the connection to the event dispatcher
    bool ended_ = false;
    int depth_{};         ///< of the running yield; 0 = none
    int resumedDepth_{};  ///< of the yield under which a nested one ended last
};

}  // namespace tolvex
