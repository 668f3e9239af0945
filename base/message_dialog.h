// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tolvex {

enum class MessageMode {
    Progress,  ///< no button; the progress bar is left to `SetProgress`
    Message    ///< an OK button with the keyboard focus, no progress bar
};

/// The one place that tells the person what an operation does and how it ended. It never blocks:
/// every call returns at once and the next one replaces what is shown.
class MessageDialog {
  public:
    virtual ~MessageDialog() = default;
    virtual void ShowMessage(MessageMode mode, const QString& text) = 0;
    virtual void CloseMessage() = 0;
    /// `on` false hides the bar. A `maximum` of 0 (a phase of one step) counts as 1 of 1. The bar
    /// is visible while `value` differs from `maximum`.
    virtual void SetProgress(bool on, double minimum, double value, double maximum) = 0;
};

}  // namespace tolvex
