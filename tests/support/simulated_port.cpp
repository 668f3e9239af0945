// SPDX-License-Identifier: MIT
#include "tests/support/simulated_port.h"

namespace tolvex::testing {

using namespace Qt::StringLiterals;

SimulatedPort::SimulatedPort(SimulatedWriter& writer, VirtualClock& clock, int baud)
    : writer_(writer), clock_(clock), baud_(baud) {}

void SimulatedPort::Configure(const PortSettings& settings) {
    settings_ = settings;
    calls_ << u"configure %1"_s.arg(settings.number);
}

bool SimulatedPort::Open() {
    if (refuse_) {
        calls_ << u"open refused"_s;
        return false;
    }
    calls_ << u"open"_s;
    board_ = std::make_shared<PacedBoard>(writer_, baud_);
    wakeAt_.reset();
    input_.clear();
    return true;
}

void SimulatedPort::Close() {
    calls_ << u"close"_s;
    board_.reset();
    input_.clear();
}

void SimulatedPort::DiscardInput() {
    if (!IsOpen()) {
        calls_ << u"discard"_s;
    }
    input_.clear();
}

bool SimulatedPort::Write(QByteArrayView bytes) {
    if (!IsOpen()) {
        return false;
    }
    writes.append(bytes.toByteArray());
    board_->Send(bytes, clock_.Now());
    Deliver();
    return IsOpen();
}

QByteArray SimulatedPort::ReadAll() {
    return std::exchange(input_, {});
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
        clock_.At(clock_.Now() + delay_,
                  [this, bytes = events.bytes, board = std::weak_ptr(board_)] {
                      input_ += board.expired() ? QByteArray() : bytes;
                  });
    }
    if (events.hangUp) {
        calls_ << u"hang-up"_s;
        board_.reset();
        input_.clear();
        return;
    }
    const auto due = board_->NextDue();
    if (!due) {
        return;
    }
    const auto wake = std::chrono::ceil<VirtualClock::Instant>(*due);
    if (wakeAt_ && *wakeAt_ <= wake) {
        return;
    }
    wakeAt_ = wake;
    clock_.At(wake, [this, board = std::weak_ptr(board_)] {
        if (!board.expired()) {
            wakeAt_.reset();
            Deliver();
        }
    });
}

}  // namespace tolvex::testing
