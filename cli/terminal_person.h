// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QStringList>
#include <functional>

#include "base/dialogs.h"
#include "base/listing_windows.h"
#include "base/message_dialog.h"
#include "base/status_panels.h"
#include "cli/console.h"
#include "cli/progress_line.h"

namespace tolvex {

/// The person at the terminal, as the operations see them. What they are told stands on the output
/// as it is, a line each; nobody answers questions, so every question is answered no.
class TerminalPerson : public StatusPanels,
                       public MessageDialog,
                       public ListingWindows,
                       public Dialogs {
  public:
    struct Habits {
        bool prints;    ///< false: what is said is kept and not printed
        bool progress;  ///< false: no bar
        /// While this is true nobody listens: an interrupted operation that unwinds complains of
        /// nothing that matters.
        std::function<bool()> deaf;
    };
    /// Console and clock are borrowed.
    TerminalPerson(Console& console, const EventClock& clock, Habits habits);

    /// Everything said so far, in order.
    QStringList Said() const { return said_; }
    QString Panel(int panel) const { return panels_.value(panel); }
    /// Ends a line that is being drawn over, before something else is printed.
    void EndProgress() { progress_.End(); }

    void SetStatusText(int panel, const QString& text) override;

    void ShowMessage(MessageMode mode, const QString& text) override;
    void CloseMessage() override { progress_.End(); }
    void SetProgress(bool on, double minimum, double value, double maximum) override;

    void SetFlashListing(const QString&) override {}
    void SetEepromListing(const QString&) override {}
    void ShowVerifyReport(const QString& text) override;
    void SetFlashCaption(const QString&) override {}
    void SetEepromCaption(const QString&) override {}

    FileDialogAnswer AskOpenFile(const FileDialogRequest&) override { return {}; }
    FileDialogAnswer AskSaveFile(const FileDialogRequest&) override { return {}; }
    void ShowBox(BoxIcon icon, const QString& title, const QString& text) override;
    bool AskOkCancel(const QString&, const QString&) override { return false; }

  private:
    void Say(QString text);
    void Print(const QString& text);

    Console& console_;
    ProgressLine progress_;
    Habits habits_;
    QMap<int, QString> panels_;
    QStringList said_;
};

}  // namespace tolvex
