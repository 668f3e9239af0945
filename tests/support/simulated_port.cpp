// SPDX-License-Identifier: MIT
#include "tests/support/simulated_port.h"

namespace tolvex::testing {

using namespace Qt::StringLiterals;

bool SimulatedPort::Open() {
    calls_ << (refuse_ ? u"open refused"_s : u"open"_s);
    if (!refuse_) {
        board_ = std::make_shared<PacedBoard>(writer_, baud_);
        wakeAt_.reset();
        input_.clear();
    }
    return !refuse_;
}

void SimulatedPort::Disconnect(const QString& how) {
    calls_ << how;
    board_.reset();
    input_.clear();
}

void SimulatedPort::DiscardInput() {
    if (!IsOpen()) {
        calls_ << u"discard"_s;
    }
    begins_ = true;
    input_.clear();
}

bool SimulatedPort::Write(QByteArrayView bytes) {
    const bool begins = std::exchange(begins_, false);
    if (hook_ && !hook_(bytes, begins)) {
        return false;
    }
    if (IsOpen()) {
        writes.append(bytes.toByteArray());
        board_->Send(bytes, clock_.Now());
        Deliver();
    }
    return IsOpen();
}

void SimulatedPort::ForgetTrace() {
    wire_.clear();
    calls_.clear();
    writes.clear();
}

void SimulatedPort::Deliver() {
    const PacedBoard::Events events = board_->Run(clock_.Now());
    for (const BoardReply& command : events.commands) {
        wire_ << command.Sent();
    }
    if (delay_.count() == 0) {
        input_ += events.bytes;
    } else if (!events.bytes.isEmpty()) {
        clock_.At(clock_.Now() + delay_, [this, bytes = events.bytes, of = std::weak_ptr(board_)] {
            input_ += of.expired() ? QByteArray() : bytes;
        });
    }
    if (events.hangUp) {
        // While somebody waits; a line that is gone when written to is a refused write.
        clock_.At(clock_.Now(), [this, of = std::weak_ptr(board_)] {
            if (!of.expired()) {
                Disconnect(u"hang-up"_s);
                hungUpAt_ = clock_.Now();
            }
        });
        return;
    }
    const auto due = board_->NextDue();
    const auto wake = std::chrono::ceil<VirtualClock::Instant>(due.value_or(PacedBoard::Instant{}));
    if (!due || (wakeAt_ && *wakeAt_ <= wake)) {
        return;
    }
    wakeAt_ = wake;
    clock_.At(wake, [this, of = std::weak_ptr(board_)] {
        if (!of.expired()) {
            wakeAt_.reset();
            Deliver();
        }
    });
}

}  // namespace tolvex::testing
