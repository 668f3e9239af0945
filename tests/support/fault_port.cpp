// SPDX-License-Identifier: MIT
#include "tests/support/fault_port.h"

#include <iterator>

namespace tolvex::testing {

namespace {

constexpr LineFault kLineFaults[] = {LineFault::Drop, LineFault::Shorten, LineFault::Garble,
                                     LineFault::Delay, LineFault::HangUp};

}  // namespace

FaultPort::FaultPort(SerialPort& port, VirtualClock& clock)
    : port_(port), clock_(clock), input_(std::make_shared<QByteArray>()) {}

void FaultPort::Seed(std::uint32_t seed, int oneIn) {
    random_.seed(seed);
    oneIn_ = oneIn;
}

bool FaultPort::Open() {
    between_ = true;
    input_ = std::make_shared<QByteArray>();
    return port_.Open();
}

void FaultPort::Close() {
    input_ = std::make_shared<QByteArray>();
    port_.Close();
}

int FaultPort::InputCount() const {
    Take();
    return static_cast<int>(input_->size());
}

void FaultPort::DiscardInput() {
    between_ = true;
    Take();
    input_->clear();
    port_.DiscardInput();
}

bool FaultPort::Write(QByteArrayView bytes) {
    if (port_.IsOpen() && between_) {
        BeginExchange();
    }
    const bool written = port_.Write(bytes);
    if (written && fault_ == LineFault::HangUp) {
        Close();
    }
    return written;
}

QByteArray FaultPort::ReadAll() {
    Take();
    return std::exchange(*input_, {});
}

void FaultPort::BeginExchange() {
    between_ = false;
    firstByte_ = true;
    ++exchanges_;
    fault_.reset();
    // The plain remainder is the same on every platform, other than the standard distributions.
    if (oneIn_ > 0 && random_() % static_cast<std::uint32_t>(oneIn_) == 0) {
        fault_ = kLineFaults[random_() % std::size(kLineFaults)];
    }
    if (planned_.contains(exchanges_)) {
        fault_ = planned_.value(exchanges_);
    }
    if (fault_) {
        met_[exchanges_] = *fault_;
    }
}

void FaultPort::Take() const {
    QByteArray bytes = port_.ReadAll();
    if (bytes.isEmpty()) {
        return;
    }
    const bool first = std::exchange(firstByte_, false);
    if (fault_ == LineFault::Drop) {
        return;
    }
    if (fault_ == LineFault::Delay) {
        clock_.At(clock_.Now() + delay_, [bytes, input = std::weak_ptr(input_)] {
            if (const auto open = input.lock()) {
                *open += bytes;
            }
        });
        return;
    }
    if (first && fault_ == LineFault::Shorten) {
        bytes.remove(0, 1);
    }
    if (first && fault_ == LineFault::Garble) {
        bytes[0] = static_cast<char>(~bytes[0]);
    }
    *input_ += bytes;
}

}  // namespace tolvex::testing
