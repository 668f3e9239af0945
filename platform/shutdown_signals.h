// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace tolvex {

/// The system's requests to end: SIGTERM, SIGINT and SIGHUP (a logout, a closed terminal). Each is
/// passed on from the event loop, so that the program ends in order; a second one of the same kind
/// ends it at once. A signal that whoever started the program had it ignore stays ignored. Does
/// nothing on systems without signals. At most one at a time.
class ShutdownSignals {
  public:
    explicit ShutdownSignals(std::function<void()> onSignal);
    ~ShutdownSignals();
    ShutdownSignals(const ShutdownSignals&) = delete;

  private:
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace tolvex
