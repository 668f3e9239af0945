// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "base/event_clock.h"
#include "cli/console.h"

namespace tolvex {

/// How far an operation has come: on a terminal one line that is drawn over and fits it, with the
/// time left; elsewhere a plain line a phase.
class ProgressLine {
  public:
    /// Both borrowed.
    ProgressLine(Console& console, const EventClock& clock) : console_(console), clock_(clock) {}

    /// A phase begins; its bar starts anew with the first step.
    void Begin(const QString& text);
    /// A maximum of 0 (a phase of one step) counts as done.
    void Step(double minimum, double value, double maximum);
    /// The phase is over, or something else is about to be printed.
    void End();

  private:
    void Draw(const QString& line);
    QString Bar(int percent, double fraction, int columns);

    Console& console_;
    const EventClock& clock_;
    QString text_;
    bool drawn_ = false;  ///< a line stands on the terminal
    int shown_ = -1;      ///< per cent
    EventClock::Instant start_{0};
};

}  // namespace tolvex
