// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QProgressBar>
#include <QPushButton>

#include "base/message_dialog.h"
#include "device/progress_state.h"
#include "widgets/fitted_label.h"

namespace tolvex {

/// The message and progress dialog: modeless, above all other windows. While its owner is minimised
/// a progress display keeps out of sight, a message comes up.
class frmMsg : public QDialog {
    Q_OBJECT

  public:
    explicit frmMsg(QWidget* parent);

    void ShowMessage(MessageMode mode, const QString& text);
    void SetProgress(bool on, double minimum, double value, double maximum);

    /// A progress display can't be closed while its operation runs; one that an operation left
    /// behind can.
    void SetBusy(bool busy) { busy_ = busy; }

    /// Esc and the window manager's close.
    void reject() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    bool HasButton() const { return cmdOkm_->isVisibleTo(this); }
    void ShowBar();
    void Announce();
    bool OwnerIsMinimized() const;
    bool MayClose() const { return HasButton() || !busy_; }

    FittedLabel* txtMsg_;
    QPushButton* cmdOkm_;
    QProgressBar* progBar_;
    ProgressState progress_;
    bool busy_ = false;
    bool waiting_ = false;  ///< for its owner to come back from being minimised
};

}  // namespace tolvex
