// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QProgressBar>
#include <QPushButton>
#include <functional>

#include "base/user_interface.h"
#include "widgets/fitted_label.h"

namespace tolvex {

/// The message and progress dialog: modeless, above all other windows. The first call opens it, at
/// its place and with nothing on it, until it is closed. While its owner is minimised a progress
/// display keeps out of sight, a message comes up.
class frmMsg : public QDialog {
    Q_OBJECT

  public:
    /// Where a dialog of the given size goes, in screen pixels.
    using Placement = std::function<QPoint(QSize)>;

    /// `owner` owns it.
    frmMsg(QWidget* owner, Placement placement);

    /// These three are `UserInterface`'s.
    void ShowMessage(MessageKind kind, const QString& text);
    void CloseMessage() { done(0); }
    void SetProgress(bool on, double minimum, double value, double maximum);

    /// A progress display can't be closed while its operation runs; one that an operation left
    /// behind can.
    void SetBusy(bool busy) { busy_ = busy; }

    /// Closes a progress display that a failed operation left.
    void CloseLeftOver();

    /// Esc and the window manager's close.
    void reject() override;
    void done(int result) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Open();
    bool HasButton() const { return cmdOkm_->isVisibleTo(this); }
    void ShowBar();
    void Announce();
    bool OwnerIsMinimized() const { return parentWidget()->isMinimized(); }

    Placement placement_;
    FittedLabel* txtMsg_;
    QPushButton* cmdOkm_;
    QProgressBar* progBar_;
    bool open_ = false;
    bool unfinished_ = false;  ///< the progress has not reached its last step
    bool busy_ = false;
    bool waiting_ = false;  ///< for its owner to come back from being minimised
};

}  // namespace tolvex
