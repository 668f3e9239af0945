// SPDX-License-Identifier: MIT
#pragma once

#include <QSet>
#include <QStringList>
#include <functional>

#include "base/user_interface.h"
#include "cli/console.h"
#include "cli/progress_line.h"

namespace tolvex {

/// The user at a terminal. What the operations say stands on the output as it is, a line each;
/// failures go to the error stream, once each. Nobody answers questions, so every question is
/// answered no. The listings are not shown; the commands print the differences.
class TerminalUserInterface : public UserInterface {
  public:
    struct Options {
        bool prints;    ///< false: what is no failure is kept and not printed
        bool progress;  ///< false: no bar
        /// While this is true everything said is dropped: an operation that unwinds because nothing
        /// is sent any more reports failures that are none.
        std::function<bool()> muted;
        /// Puts the port as the user named it in place of its number.
        std::function<QString(QString)> displayPortName;
    };
    /// Console and clock are borrowed.
    TerminalUserInterface(Console& console, const EventClock& clock, Options options)
        : console_(console),
          progress_(console, clock, !options.progress),
          options_(std::move(options)) {}

    /// Everything said so far, in order.
    QStringList Said() const { return said_; }
    /// Ends a line that is being drawn over, before something else is printed.
    void EndProgress() { progress_.End(); }

    void SetStatusText(int panel, const QString& text, MessageKind kind) override;
    void ShowMessage(MessageKind kind, const QString& text) override;
    void CloseMessage() override { progress_.End(); }
    void SetProgress(bool on, double minimum, double value, double maximum) override;

    void SetFlashListing(const QString&) override {}
    void SetEepromListing(const QString&) override {}
    void ShowVerifyReport(const QString&) override {}
    void SetFlashCaption(const QString&) override {}
    void SetEepromCaption(const QString&) override {}

    void ShowSettings() override {}
    void ShowPatchPanel() override {}
    void ShowPortDialog() override {}
    QString MainCaption() const override { return QStringLiteral("tolvex-cli"); }
    bool ContinueReading() override { return true; }

    FileDialogAnswer AskOpenFile(const FileDialogRequest&) override { return {}; }
    FileDialogAnswer AskSaveFile(const FileDialogRequest&) override { return {}; }
    void ShowBox(BoxIcon, const QString& title, const QString& text) override {
        Say(MessageKind::Failure, title + u'\n' + text);
    }
    bool AskOkCancel(const QString&, const QString&) override { return false; }

  private:
    void Say(MessageKind kind, QString text);

    Console& console_;
    ProgressLine progress_;
    Options options_;
    QStringList said_;
    QSet<QString> failures_;
};

}  // namespace tolvex
