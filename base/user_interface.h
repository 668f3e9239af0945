// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

namespace tolvex {

struct FileDialogRequest {
    QString title;
    QString directory{};      ///< where to start; empty = the current one
    QString filter;           ///< pairs of name and patterns, "Hex File|*.hex;*.rom|All Files|*.*|"
    QString defaultSuffix{};  ///< "hex;rom": a name without any gets the first one; empty = none
    /// A bare name or a full path; may be empty. Of a path into another folder than `directory`
    /// only the bare name counts.
    QString initialName{};
};

enum class BoxIcon { None, Information, Stop };

/// Every modal question to the user.
class Dialogs {
  public:
    virtual ~Dialogs() = default;
    /// The file dialogs give the full path; nothing when they were cancelled.
    virtual std::optional<QString> AskOpenFile(const FileDialogRequest& request) = 0;
    /// Asks for a name only; whether an existing file may be replaced is the caller's question.
    virtual std::optional<QString> AskSaveFile(const FileDialogRequest& request) = 0;
    /// A modal box with one OK button.
    virtual void ShowBox(BoxIcon icon, const QString& title, const QString& text) = 0;
    /// A modal box with OK and Cancel and the information icon; true = OK.
    virtual bool AskOkCancel(const QString& title, const QString& text) = 0;
};

/// Panels of the status bar, counted from 1. Panel 4 shows the date and is never written.
enum StatusPanel { kMessagePanel = 1, kWriterPanel = 2, kSignaturePanel = 3, kPortPanel = 5 };

/// What a text tells. The windows show results and failures alike; the terminal sends failures to
/// the error stream.
enum class MessageKind { Progress, Result, Failure };

/// The user, as the operations see them: windows, the terminal, or a test's recorder. No call
/// blocks but those of `Dialogs`.
class UserInterface : public Dialogs {
  public:
    /// Replaces the text of `panel` (1 to 5); an empty text clears it.
    virtual void SetStatusText(int panel, const QString& text, MessageKind kind) = 0;
    void SetStatusText(int panel, const QString& text) {
        SetStatusText(panel, text, MessageKind::Progress);
    }

    /// The message dialog. Progress: no button, and the bar is left to `SetProgress`. Result and
    /// failure: an OK button with the keyboard focus, no bar. Replaces what was shown.
    virtual void ShowMessage(MessageKind kind, const QString& text) = 0;
    /// The same text in status panel 1 and in the message dialog.
    void Tell(MessageKind kind, const QString& text) {
        SetStatusText(kMessagePanel, text, kind);
        ShowMessage(kind, text);
    }
    virtual void CloseMessage() = 0;
    /// `on` false hides the bar. A `maximum` of 0 (a phase of one step) counts as 1 of 1. The bar
    /// is visible while `value` differs from `maximum`.
    virtual void SetProgress(bool on, double minimum, double value, double maximum) = 0;

    // The three listing windows; `text` replaces the whole content.
    virtual void SetFlashListing(const QString& text) = 0;
    virtual void SetEepromListing(const QString& text) = 0;
    /// Also brings the window up, not modal.
    virtual void ShowVerifyReport(const QString& text) = 0;
    virtual void SetFlashCaption(const QString& caption) = 0;
    virtual void SetEepromCaption(const QString& caption) = 0;

    /// The selected device or the chosen options have changed: the settings window shows them.
    virtual void ShowSettings() = 0;
    /// The panel that patches single cells needs a device; it stays hidden until there is one.
    virtual void ShowPatchPanel() = 0;
    /// Opens the port dialog and returns when it is closed.
    virtual void ShowPortDialog() = 0;
    /// What the user is told when no writer answers; nothing = what leads into the windows' menus.
    virtual std::optional<QString> NoWriterText() const { return std::nullopt; }
    /// The main window's caption, the title of one box.
    virtual QString MainCaption() const = 0;
    /// Called now and then while a long file is read; false gives the read up.
    virtual bool ContinueReading() = 0;
};

}  // namespace tolvex
