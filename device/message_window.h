// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <functional>

#include "base/message_dialog.h"
#include "device/frmMsg.h"

namespace tolvex {

/// The message dialog's three routines over the window `frmMsg`, which is created when it is first
/// needed and destroyed when it is closed.
class MessageWindow : public MessageDialog {
  public:
    /// Where a dialog of the given size goes, in screen pixels.
    using Placement = std::function<QPoint(QSize)>;

    /// `parent` is borrowed and outlives this.
    MessageWindow(QWidget* parent, Placement placement)
        : parent_(parent), placement_(std::move(placement)) {}

    void ShowMessage(MessageMode mode, const QString& text) override;
    void CloseMessage() override;
    void SetProgress(bool on, double minimum, double value, double maximum) override;

    /// Whether an operation runs, whose progress display must stay.
    void SetBusy(bool busy);
    /// Closes the dialog for good: a chain that the shutdown found half-way can't bring it back.
    void Retire();

  private:
    frmMsg* Window();

    QWidget* parent_;
    Placement placement_;
    QPointer<frmMsg> window_;
    bool busy_ = false;
    bool retired_ = false;
};

}  // namespace tolvex
