// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QStringList>

#include "base/person.h"
#include "base/settings.h"

namespace tolvex::testing {

using namespace Qt::StringLiterals;

/// The person, as the operations see them: keeps every call in order, answers from a script.
/// `calls` reads like a transcript: "status 1: text", "message OK: text", "progress: text",
/// "close message", "verify report", "box Stop title|text" ...
class Recorder : public StatusPanels,
                 public MessageDialog,
                 public ListingWindows,
                 public SettingPanel,
                 public Dialogs {
  public:
    QStringList calls;
    QMap<int, QString> panels;      ///< what each status panel shows now
    QString message;                ///< what the message dialog shows now; null = closed
    QList<double> progress;         ///< how full each SetProgress(on) makes the bar
    QMap<OptionList, int> options;  ///< selected entries
    QMap<OptionList, QStringList> optionEntries;
    QMap<OptionList, bool> optionShown;
    QStringList devices;
    int markedDevice = -1;
    QString flashListing, eepromListing, verifyReport, flashCaption, eepromCaption;
    QString flashSize, eepromSize;
    bool fuseReadEnabled = true, patchPanelShown = false;

    QList<FileDialogAnswer> fileAnswers;  ///< taken from the front; none left = cancelled
    QList<bool> okCancelAnswers;          ///< none left = Cancel
    QList<FileDialogRequest> fileRequests;

    Person AsPerson() { return {*this, *this, *this, *this, *this}; }

    void SetStatusText(int panel, const QString& text) override;

    void ShowMessage(MessageMode mode, const QString& text) override;
    void CloseMessage() override;
    void SetProgress(bool on, double minimum, double value, double maximum) override;

    void SetFlashListing(const QString& text) override { Keep("flash listing", text); }
    void SetEepromListing(const QString& text) override { Keep("eeprom listing", text); }
    void ShowVerifyReport(const QString& text) override { Keep("verify report", text); }
    void SetFlashCaption(const QString& caption) override { flashCaption = caption; }
    void SetEepromCaption(const QString& caption) override { eepromCaption = caption; }

    void FillOptions(OptionList list, const QStringList& entries) override {
        optionEntries[list] = entries;
        options[list] = -1;
    }
    int SelectedOption(OptionList list) const override { return options.value(list, -1); }
    void SelectOption(OptionList list, int entry) override { options[list] = entry; }
    void ShowOption(OptionList list, bool on) override { optionShown[list] = on; }
    void EnableFuseRead(bool enabled) override { fuseReadEnabled = enabled; }
    void FillDevices(const QStringList& names) override { devices = names; }
    void MarkDevice(int index) override { markedDevice = index; }
    void ShowSizes(const QString& flash, const QString& eeprom) override {
        flashSize = flash;
        eepromSize = eeprom;
    }
    void ShowPatchPanel() override { patchPanelShown = true; }

    FileDialogAnswer AskOpenFile(const FileDialogRequest& request) override {
        return Ask(QStringLiteral("open dialog "), request);
    }
    FileDialogAnswer AskSaveFile(const FileDialogRequest& request) override {
        return Ask(QStringLiteral("save dialog "), request);
    }
    void ShowBox(BoxIcon icon, const QString& title, const QString& text) override;
    bool AskOkCancel(const QString& title, const QString& text) override;

  private:
    void Keep(const char* call, const QString& text) {
        (*call == 'f' ? flashListing : *call == 'e' ? eepromListing : verifyReport) = text;
        calls << QLatin1StringView(call);
    }
    FileDialogAnswer Ask(const QString& dialog, const FileDialogRequest& request);
};

/// An accepted file dialog for `path`.
FileDialogAnswer Chosen(const QString& path);

/// Settings in memory.
class MemorySettings : public Settings {
  public:
    QMap<QString, QString> values;

    QString GetSetting(const QString& key, const QString& standard) const override {
        return values.value(key, standard);
    }
    void SaveSetting(const QString& key, const QString& text) override { values[key] = text; }
};

}  // namespace tolvex::testing
