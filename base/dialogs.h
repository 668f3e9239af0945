// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tolvex {

struct FileDialogRequest {
    QString title;
    QString directory;      ///< where to start; empty = the current one
    QString filter;         ///< pairs of name and patterns, "Hex File|*.hex;*.rom|All Files|*.*|"
    QString defaultSuffix;  ///< "hex;rom": a name without any gets the first one; empty = none
    /// A bare name or a full path; may be empty. Of a path into another folder than `directory`
    /// only the bare name counts.
    QString initialName;
};

struct FileDialogAnswer {
    bool accepted = false;
    QString path;      ///< full path; empty when not accepted
    QString bareName;  ///< the path's last part
};

enum class BoxIcon { None, Information, Stop };

/// Every modal question to the person. A test hands in a scripted one.
class Dialogs {
  public:
    virtual ~Dialogs() = default;
    virtual FileDialogAnswer AskOpenFile(const FileDialogRequest& request) = 0;
    /// Asks for a name only; whether an existing file may be replaced is the caller's question.
    virtual FileDialogAnswer AskSaveFile(const FileDialogRequest& request) = 0;
    /// A modal box with one OK button.
    virtual void ShowBox(BoxIcon icon, const QString& title, const QString& text) = 0;
    /// A modal box with OK and Cancel and the information icon; true = OK.
    virtual bool AskOkCancel(const QString& title, const QString& text) = 0;
};

}  // namespace tolvex
