// SPDX-License-Identifier: MIT
#pragma once

#include <QSet>
#include <QStringList>

#include "base/user_interface.h"
#include "cli/chip_record.h"
#include "cli/output.h"
#include "cli/surroundings.h"

namespace tolvex {

/// The user at a terminal. What the operations say stands on the output as it is, a line each;
/// failures go to the error stream, once each. Nobody answers questions, so every question is
/// answered no. The listings are not shown; the commands print the differences.
///
/// While an operation unwinds it is muted: it reports failures that are none. A port that the user
/// named by its path is shown so.
class TerminalUserInterface : public UserInterface {
  public:
    /// Output and record are borrowed.
    TerminalUserInterface(Output& output, const ChipRecord& record,
                          const std::optional<ChosenPort>& port)
        : output_(output), record_(record), port_(port) {}

    /// Everything said so far, in order.
    QStringList Said() const { return said_; }

    /// What was said before may be said again.
    void Forget() {
        said_.clear();
        failures_.clear();
    }

    void SetStatusText(int panel, const QString& text, MessageKind kind) override;
    void ShowMessage(MessageKind kind, const QString& text) override;
    void CloseMessage() override { output_.EndProgress(); }
    void SetProgress(bool on, double minimum, double value, double maximum) override;

    void SetFlashListing(const QString&) override {}
    void SetEepromListing(const QString&) override {}
    void ShowVerifyReport(const QString&) override {}
    void SetFlashCaption(const QString&) override {}
    void SetEepromCaption(const QString&) override {}

    void ShowSettings() override {}
    void ShowPatchPanel() override {}
    void ShowPortDialog() override {}
    std::optional<QString> NoWriterText() const override;
    QString MainCaption() const override { return QStringLiteral("tolvex-cli"); }
    bool ContinueReading() override { return true; }

    std::optional<QString> AskOpenFile(const FileDialogRequest&) override { return {}; }
    std::optional<QString> AskSaveFile(const FileDialogRequest&) override { return {}; }
    void ShowBox(BoxIcon, const QString& title, const QString& text) override {
        Say(MessageKind::Failure, title + u'\n' + text);
    }
    bool AskOkCancel(const QString&, const QString&) override { return false; }

  private:
    void Say(MessageKind kind, QString text);

    Output& output_;
    const ChipRecord& record_;
    std::optional<ChosenPort> port_;
    QStringList said_;
    QSet<QString> failures_;
};

}  // namespace tolvex
