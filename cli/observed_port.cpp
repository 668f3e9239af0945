// SPDX-License-Identifier: MIT
#include "cli/observed_port.h"

#include <utility>

namespace tolvex {

namespace {

constexpr int kPatience = 3;

}  // namespace

void ObservedPort::Resume() {
    stopAsked_ = [] { return false; };
    stopped_ = false;
}

bool ObservedPort::Open() {
    stopped_ = stopped_ || stopAsked_();
    const bool opened = !stopped_ && port_.Open();
    openFailed_ = !opened && !stopped_;
    input_.clear();
    open_ = opened;
    answered_ = true;
    unanswered_ = 0;
    for (WireListener* listener : listeners_) {
        listener->Opened(port_.PortNumber(), opened);
    }
    return opened;
}

void ObservedPort::Close() {
    port_.Close();
    input_.clear();
    open_ = false;
    for (WireListener* listener : listeners_) {
        listener->Closed();
    }
}

void ObservedPort::Fetch() const {
    const QByteArray bytes = port_.InputCount() > 0 ? port_.ReadAll() : QByteArray();
    if (!bytes.isEmpty()) {
        answered_ = true;
        input_ += bytes;
        for (WireListener* listener : listeners_) {
            listener->Received(bytes);
        }
    }
}

void ObservedPort::NoticeLoss() const {
    if (open_ && !port_.IsOpen()) {
        open_ = false;
        for (WireListener* listener : listeners_) {
            listener->Lost();
        }
    }
}

bool ObservedPort::IsOpen() const {
    NoticeLoss();
    return port_.IsOpen();
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
    if (std::exchange(between_, false) && !MayBegin(bytes.front())) {
        return false;
    }
    NoticeLoss();
    if (stopped_ || !port_.Write(bytes)) {
        return false;
    }
    for (WireListener* listener : listeners_) {
        listener->Sent(bytes);
    }
    return true;
}

bool ObservedPort::MayBegin(char letter) {
    // The second half of a word follows the first whatever happens: no word is left half-written.
    stopped_ = stopped_ || (letter != 'C' && stopAsked_());
    if (!stopped_) {
        CountSilence();
        for (WireListener* listener : listeners_) {
            listener->Began();
        }
    }
    return !stopped_;
}

void ObservedPort::CountSilence() {
    unanswered_ = std::exchange(answered_, false) ? 0 : unanswered_ + 1;
    if (unanswered_ >= kPatience && port_.IsOpen()) {
        Close();
    }
}

QByteArray ObservedPort::ReadAll() {
    Fetch();
    return std::exchange(input_, {});
}

}  // namespace tolvex
