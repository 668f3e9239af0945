// SPDX-License-Identifier: MIT
#include "device/message_window.h"

namespace tolvex {

frmMsg* MessageWindow::Window() {
    if (window_.isNull()) {
        window_ = new frmMsg(parent_);
        window_->setAttribute(Qt::WA_DeleteOnClose);
        window_->SetBusy(busy_);
        window_->move(placement_(window_->size()));
    }
    return window_;
}

void MessageWindow::ShowMessage(MessageMode mode, const QString& text) {
    if (!retired_) {
        Window()->ShowMessage(mode, text);
    }
}

void MessageWindow::CloseMessage() {
    // Deleted at once rather than closed: the next message must get a new window, not the one that
    // waits for the event loop to remove it.
    delete window_;
}

void MessageWindow::SetProgress(bool on, double minimum, double value, double maximum) {
    if (!retired_) {
        Window()->SetProgress(on, minimum, value, maximum);
    }
}

void MessageWindow::SetBusy(bool busy) {
    busy_ = busy;
    if (!window_.isNull()) {
        window_->SetBusy(busy);
    }
}

void MessageWindow::Retire() {
    retired_ = true;
    CloseMessage();
}

}  // namespace tolvex
