// SPDX-License-Identifier: MIT
#include "cli/observed_port.h"

#include <utility>

namespace tolvex {

void ObservedPort::Resume() {
    stopAsked_ = [] { return false; };
    stopped_ = false;
}

bool ObservedPort::Open() {
    stopped_ = stopped_ || stopAsked_();
    const bool opened = !stopped_ && port_.Open();
    openFailed_ = !opened && !stopped_;
    input_.clear();
    for (WireListener* listener : listeners_) {
        listener->Opened(port_.PortNumber(), opened);
    }
    return opened;
}

void ObservedPort::Close() {
    port_.Close();
    input_.clear();
    for (WireListener* listener : listeners_) {
        listener->Closed();
    }
}

void ObservedPort::Fetch() const {
    const QByteArray bytes = port_.InputCount() > 0 ? port_.ReadAll() : QByteArray();
    if (!bytes.isEmpty()) {
        input_ += bytes;
        for (WireListener* listener : listeners_) {
            listener->Received(bytes);
        }
    }
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
        for (WireListener* listener : listeners_) {
            listener->Began();
        }
    }
    return !stopped_;
}

QByteArray ObservedPort::ReadAll() {
    Fetch();
    return std::exchange(input_, {});
}

}  // namespace tolvex
