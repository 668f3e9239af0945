// SPDX-License-Identifier: MIT
#pragma once

#include <QSet>
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
/// as it is, a line each; what tells of a failure goes to the error stream, once. Nobody answers
/// questions, so every question is answered no.
class TerminalPerson : public StatusPanels,
                       public MessageDialog,
                       public ListingWindows,
                       public Dialogs {
  public:
    struct Habits {
        bool prints;    ///< false: what is no failure is kept and not printed
        bool progress;  ///< false: no bar
        /// What is said while this is true tells of a failure.
        std::function<bool()> failing;
        /// While this is true nobody listens: an interrupted operation that unwinds complains of
        /// nothing that matters.
        std::function<bool()> deaf;
        /// Puts the port as the person named it in place of its number.
        std::function<QString(QString)> inTheirWords;
    };
    /// Console and clock are borrowed.
    TerminalPerson(Console& console, const EventClock& clock, Habits habits)
        : console_(console),
          progress_(console, clock, !habits.progress),
          habits_(std::move(habits)) {}

    /// Everything said so far, in order.
    QStringList Said() const { return said_; }
    /// Ends a line that is being drawn over, before something else is printed.
    void EndProgress() { progress_.End(); }

    void SetStatusText(int panel, const QString& text) override;

    void ShowMessage(MessageMode mode, const QString& text) override;
    void CloseMessage() override { progress_.End(); }
    void SetProgress(bool on, double minimum, double value, double maximum) override;

    // Listings and the verify report have no window here; the commands print the differences.
    void SetFlashListing(const QString&) override {}
    void SetEepromListing(const QString&) override {}
    void ShowVerifyReport(const QString&) override {}
    void SetFlashCaption(const QString&) override {}
    void SetEepromCaption(const QString&) override {}

    FileDialogAnswer AskOpenFile(const FileDialogRequest&) override { return {}; }
    FileDialogAnswer AskSaveFile(const FileDialogRequest&) override { return {}; }
    void ShowBox(BoxIcon, const QString& title, const QString& text) override {
        Say(title + u'\n' + text);
    }
    bool AskOkCancel(const QString&, const QString&) override { return false; }

  private:
    void Say(QString text);

    Console& console_;
    ProgressLine progress_;
    Habits habits_;
    QStringList said_;
    QSet<QString> complaints_;
};

}  // namespace tolvex
