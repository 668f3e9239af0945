// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <functional>

#include "base/user_interface.h"

class QDialog;
class QWidget;

namespace tolvex {

/// Runs a modal dialog. It blocks the window that it belongs to and that window's other dialogs,
/// not the help; and it comes up above windows that stay on top, which would otherwise cover a
/// dialog that the user has to answer.
int ExecModal(QDialog& dialog);

/// What a new modal dialog belongs to: the one that is open, else `window`.
QWidget* ModalOwner(QWidget* window);

/// Qt's name filters for "Hex File|*.hex;*.rom|All Files|*.*|": "Hex File (*.hex *.HEX *.rom
/// *.ROM)", "All Files (*)". Files differ in case alone where names do, so each pattern comes in
/// both. A name without patterns is left out.
QStringList NameFilters(const QString& pairs);

/// Questions as modal windows.
///
/// File dialogs are the system's own on Windows and macOS. Elsewhere they are Qt's: a desktop's
/// dialog may ask about replacing a file although that is the caller's question, and its texts
/// follow the desktop's language. An open dialog accepts names of missing files, as its callers
/// expect; a name with wildcards ("*.hex", a save dialog's initial name) is not accepted.
class WindowDialogs : public Dialogs {
  public:
    /// `owner` gives the window that a question blocks; it is asked at each question and may give
    /// nullptr. A question that comes while another one is open blocks that.
    explicit WindowDialogs(std::function<QWidget*()> owner);

    std::optional<QString> AskOpenFile(const FileDialogRequest& request) override;
    std::optional<QString> AskSaveFile(const FileDialogRequest& request) override;
    void ShowBox(BoxIcon icon, const QString& title, const QString& text) override;
    bool AskOkCancel(const QString& title, const QString& text) override;

  private:
    std::function<QWidget*()> owner_;
};

}  // namespace tolvex
