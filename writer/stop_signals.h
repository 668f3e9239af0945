// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef Q_OS_UNIX

#include <signal.h>

#include <chrono>
#include <optional>

namespace tolvex {

/// While this lives, the signals that end a program only make `Asked` true, and they arrive nowhere
/// but in `Wait`. One object a program.
class StopSignals {
  public:
    using Instant = std::chrono::nanoseconds;

    StopSignals();

    bool Asked() const;
    /// Until bytes come at `descriptor`, a signal arrives, or the time is up; no time = for ever.
    /// True when there are bytes.
    bool Wait(int descriptor, std::optional<Instant> time) const;

  private:
    sigset_t open_;
};

}  // namespace tolvex

#endif
