// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace tolvex {

/// One thing at a time. There is one line to the writer, and whoever waits on it serves the event
/// loop: what the person starts meanwhile would take the other's reply. So it is not started.
class RunGuard {
  public:
    /// `onChange` hears true when something begins and false when it has ended; what is started
    /// from there is refused too.
    explicit RunGuard(std::function<void(bool)> onChange) : onChange_(std::move(onChange)) {}

    bool Busy() const { return busy_; }

    /// Runs `action` to its end; nothing happens while another one is under way.
    void Run(const std::function<void()>& action) {
        if (busy_) {
            return;
        }
        busy_ = true;
        onChange_(true);
        action();
        onChange_(false);
        busy_ = false;
    }

    /// The same for an action that neither waits nor asks: nothing can come in between, so nobody
    /// needs to hear of it.
    void RunAtOnce(const std::function<void()>& action) {
        if (!busy_) {
            action();
        }
    }

  private:
    std::function<void(bool)> onChange_;
    bool busy_ = false;
};

}  // namespace tolvex
