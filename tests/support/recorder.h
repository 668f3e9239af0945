// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QStringList>

#include "base/program_state.h"
#include "base/settings.h"
#include "base/user_interface.h"

namespace tolvex::testing {

using namespace Qt::StringLiterals;

/// The user, as the operations see them: keeps every call in order, answers from a script.
/// `calls` reads like a transcript: "status 1: text", "message OK: text", "progress: text",
/// "close message", "verify report", "box Stop title|text" ...
class Recorder : public UserInterface {
  public:
    QStringList calls;
    QMap<int, QString> panels;  ///< what each status panel shows now
    QString message;            ///< what the message dialog shows now; null = closed
    QList<double> progress;     ///< how full each SetProgress(on) makes the bar
    QStringList failures;       ///< texts that were told as such
    QString flashListing, eepromListing, verifyReport, flashCaption, eepromCaption;
    bool patchPanelShown = false;
    const ProgramState* state = nullptr;  ///< of which the settings window shows this:
    OptionChoice shownOptions;
    CurrentDevice shownDevice;

    QStringList fileAnswers;      ///< taken from the front; none left = cancelled
    QList<bool> okCancelAnswers;  ///< none left = Cancel
    QList<FileDialogRequest> fileRequests;

    using UserInterface::SetStatusText;
    void SetStatusText(int panel, const QString& text, MessageKind kind) override;
    void ShowMessage(MessageKind kind, const QString& text) override;
    void CloseMessage() override;
    void SetProgress(bool on, double minimum, double value, double maximum) override;

    void SetFlashListing(const QString& text) override { Keep("flash listing", text); }
    void SetEepromListing(const QString& text) override { Keep("eeprom listing", text); }
    void ShowVerifyReport(const QString& text) override { Keep("verify report", text); }
    void SetFlashCaption(const QString& caption) override { flashCaption = caption; }
    void SetEepromCaption(const QString& caption) override { eepromCaption = caption; }

    void ShowSettings() override {
        shownOptions = state->options;
        shownDevice = state->device;
    }
    void ShowPatchPanel() override { patchPanelShown = true; }
    void ShowPortDialog() override { calls << QStringLiteral("port dialog"); }
    QString MainCaption() const override { return QStringLiteral("Tolvex 1.2.3"); }
    bool ContinueReading() override { return true; }

    std::optional<QString> AskOpenFile(const FileDialogRequest& request) override {
        return Ask(QStringLiteral("open dialog "), request);
    }
    std::optional<QString> AskSaveFile(const FileDialogRequest& request) override {
        return Ask(QStringLiteral("save dialog "), request);
    }
    void ShowBox(BoxIcon icon, const QString& title, const QString& text) override;
    bool AskOkCancel(const QString& title, const QString& text) override;

  private:
    void Keep(const char* call, const QString& text) {
        (*call == 'f' ? flashListing : *call == 'e' ? eepromListing : verifyReport) = text;
        calls << QLatin1StringView(call);
    }
    void NoteFailure(MessageKind kind, const QString& text) {
        if (kind == MessageKind::Failure) {
            failures << text;
        }
    }
    std::optional<QString> Ask(const QString& dialog, const FileDialogRequest& request);
};

/// An accepted file dialog for `path`.

/// Settings in memory.
class MemorySettings : public Settings {
  public:
    QMap<QString, QString> values;

    QString GetSetting(const QString& key, const QString& defaultText) const override {
        return values.value(key, defaultText);
    }
    void SaveSetting(const QString& key, const QString& text) override { values[key] = text; }
};

}  // namespace tolvex::testing
