// SPDX-License-Identifier: MIT
#include "cli/observed_port.h"

#include <utility>

namespace tolvex {

namespace {

constexpr int kPatience = 3;
/// Replies in time after which earlier time-outs are forgotten. A writer that is always late
/// answers every other command in time, with the reply to the one before.
constexpr int kCalm = 20;
/// From one command to the next: no reply takes that long, and no time-out is shorter.
constexpr auto kTimedOut = std::chrono::milliseconds(1900);

}  // namespace

void ObservedPort::Resume() {
    farewell_ = true;
    between_ = true;
}

bool ObservedPort::Open() {
    stopped_ = stopped_ || clock_.StopAsked() != 0;
    open_ = !stopped_ && port_.Open();
    openFailed_ = !open_ && !stopped_;
    input_.clear();
    lost_ = false;
    timeOuts_ = 0;
    began_.reset();
    trace_.Note((open_ ? "open COM" : "refused COM") + QByteArray::number(port_.PortNumber()));
    return open_;
}

void ObservedPort::Close() {
    port_.Close();
    input_.clear();
    open_ = false;
    trace_.Note("close");
}

void ObservedPort::Fetch() const {
    const QByteArray bytes = port_.InputCount() > 0 ? port_.ReadAll() : QByteArray();
    if (!bytes.isEmpty()) {
        input_ += bytes;
        trace_.Note("< ", bytes);
    }
}

bool ObservedPort::Over() const {
    return Stopped() || lost_ || timeOuts_ >= kPatience;
}

bool ObservedPort::TimedOut() const {
    return began_ && clock_.Now() - *began_ >= kTimedOut;
}

bool ObservedPort::IsOpen() const {
    if (open_ && !port_.IsOpen()) {
        open_ = false;
        lost_ = true;
        trace_.Note("lost");
    }
    return open_;
}

int ObservedPort::InputCount() const {
    Fetch();
    return IsOpen() ? static_cast<int>(input_.size()) : 0;
}

void ObservedPort::DiscardInput() {
    Fetch();
    input_.clear();
    port_.DiscardInput();
    between_ = true;
}

bool ObservedPort::Write(QByteArrayView bytes) {
    const bool begins = std::exchange(between_, false);
    sent_ = sent_ && !begins;
    if (!IsOpen() || (begins && !MayBegin(bytes.front()))) {
        return false;
    }
    sent_ = true;  // also when it fails: nobody knows how far it got
    if (!port_.Write(bytes)) {
        IsOpen();  // notes a line that broke
        return false;
    }
    trace_.Note("> ", bytes);
    return true;
}

bool ObservedPort::MayBegin(char letter) {
    if (farewell_) {
        return true;
    }
    // The second half of a word follows the first whatever happens: no word is left half-written.
    stopped_ = stopped_ || (letter != 'C' && clock_.StopAsked() != 0);
    if (TimedOut()) {
        ++timeOuts_;
        inTime_ = 0;
    } else if (++inTime_ == kCalm) {
        timeOuts_ = 0;
    }
    if (stopped_ || timeOuts_ >= kPatience) {
        return false;
    }
    began_ = clock_.Now();
    return true;
}

QByteArray ObservedPort::ReadAll() {
    Fetch();
    return std::exchange(input_, {});
}

}  // namespace tolvex
