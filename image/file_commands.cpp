// SPDX-License-Identifier: MIT
#include "image/file_commands.h"

#include <QFileInfo>

#include "app/settings_keys.h"

namespace tolvex {

using namespace Qt::StringLiterals;

struct FileCommands::OpenDialog {
    QString title;
    QString filter;
    QString defaultSuffix;
    std::optional<QString> initialName;  ///< nothing = the name the last dialog ended with
};

struct FileCommands::SaveDialog {
    QString title;
    QString filter;
    std::optional<QString> initialName;  ///< as above
    bool code;  ///< which images are saved; the overwrite question is about the first
    bool data;
};

namespace {

bool HasCodeExtension(const QString& path) {
    const QString extension = path.right(4).toLower();
    return extension == u".hex"_s || extension == u".rom"_s;
}

QString DataFileNameFor(QString path) {
    path.chop(3);
    return path + u"eep"_s;
}

/// What stands before the first occurrence of the bare name, less the separator. Nothing for a path
/// that names no directory.
std::optional<QString> DirectoryOf(const QString& path, const QString& bareName) {
    const qsizetype position = bareName.isEmpty() ? -1 : path.indexOf(bareName);
    return position < 1 ? std::nullopt : std::optional(path.left(position - 1));
}

}  // namespace

FileCommands::FileCommands(FileCommandWiring wiring) : with_(std::move(wiring)) {}

void FileCommands::mnuFileOpenCode_Click() {
    const QString path = AskOpen({.title = u"コードファイル(*.hex)を開く"_s,
                                  .filter = u"Hex File|*.hex;*.rom|All Files|*.*|"_s,
                                  .defaultSuffix = u"hex;rom"_s,
                                  .initialName = QString()});
    if (!path.isEmpty()) {
        with_.names.CodeFileName = path;
    }
    if (!FileExists(with_.names.CodeFileName)) {
        return;
    }
    if (!HasCodeExtension(with_.names.CodeFileName)) {
        with_.names.CodeFileName.clear();
        with_.dialogs.ShowBox(BoxIcon::Information, with_.mainCaption(),
                              u"指定されたファイルを開くことができませんでした。"_s);
        return;
    }
    if (OpenNamedCode()) {
        StoreDirectory(keys::OpenDir);
    }
}

void FileCommands::mnuFileOpenData_Click() {
    OpenData(AskOpen({.title = u"データファイル(*.eep)を開く"_s,
                      .filter = u"eep File|*.eep|All Files|*.*|"_s,
                      .defaultSuffix = u"eep"_s,
                      .initialName = QString()}));
}

void FileCommands::mnuFileOpen_Click() {
    if (with_.names.ReloadFlag) {
        OpenNamedBoth();
        return;
    }
    OpenBoth(AskOpen({.title = u"コードファイル ＆ データファイルを開く"_s,
                      .filter = u"Hex File|*.hex;*.rom|All Files|*.*|"_s,
                      .defaultSuffix = u"hex;rom"_s,
                      .initialName = std::nullopt}));
}

void FileCommands::mnuReLoad_Click() {
    with_.names.ReloadFlag = true;
    mnuFileOpen_Click();
    with_.names.ReloadFlag = false;
}

void FileCommands::OpenDropped(const QString& path) {
    Remember({true, path, QFileInfo(path).fileName()}, path);
    if (path.right(4).toLower() == u".eep"_s) {
        OpenData(path);
    } else {
        OpenBoth(path);
    }
}

void FileCommands::mnuFileSave_Click() {
    if (with_.names.CodeFileName.isEmpty()) {
        with_.messages.ShowMessage(MessageMode::Message, u"ファイルがオープンされていません．"_s);
        with_.panels.SetStatusText(kMessagePanel, u"ファイルがオープンされていません"_s);
        return;
    }
    with_.names.CodeSaveName = with_.names.CodeFileName;
    with_.names.DataSaveName = with_.names.DataFileName;
    WriteCode();
    WriteData();
    with_.panels.SetStatusText(kMessagePanel, u"ファイルを保存しました．"_s);
}

void FileCommands::mnuFileSaveAs_Click() {
    SaveAs({.title = u"コードファイル ＆ データファイルの保存"_s,
            .filter = u"Hex File|*.HEX|All Files|*.*|"_s,
            .initialName = std::nullopt,
            .code = true,
            .data = true});
}

void FileCommands::mnuFileSaveAsCode_Click() {
    SaveAs({.title = u"コードファイル(*.hex)の保存"_s,
            .filter = u"Hex File|*.HEX|All Files|*.*|"_s,
            .initialName = u"*.hex"_s,
            .code = true,
            .data = false});
}

void FileCommands::mnuFileSaveAsData_Click() {
    SaveAs({.title = u"データファイル(*.eep)の保存"_s,
            .filter = u"Eep File|*.eep|All Files|*.*|"_s,
            .initialName = u"*.eep"_s,
            .code = false,
            .data = true});
}

/// The path the dialog ended with: after a cancel that is its initial name.
QString FileCommands::AskOpen(const OpenDialog& dialog) {
    const QString initialName = dialog.initialName.value_or(dialogPath_);
    const FileDialogAnswer answer = with_.dialogs.AskOpenFile(
        {dialog.title, with_.settings.GetSetting(QString::fromLatin1(keys::OpenDir), QString()),
         dialog.filter, dialog.defaultSuffix, initialName});
    Remember(answer, initialName);
    return dialogPath_;
}

void FileCommands::SaveAs(const SaveDialog& dialog) {
    const QString initialName = dialog.initialName.value_or(dialogPath_);
    const FileDialogAnswer answer = with_.dialogs.AskSaveFile(
        {dialog.title, with_.settings.GetSetting(QString::fromLatin1(keys::SaveDir), QString()),
         dialog.filter, QString(), initialName});
    Remember(answer, initialName);
    if (!answer.accepted) {
        return;
    }
    if (dialog.code) {
        with_.names.CodeSaveName = answer.path;
    }
    if (dialog.data) {
        with_.names.DataSaveName = DataFileNameFor(answer.path);
    }
    const bool replaces =
        FileExists(dialog.code ? with_.names.CodeSaveName : with_.names.DataSaveName);
    if (replaces && !with_.dialogs.AskOkCancel(u"ファイル保存"_s,
                                               u"ファイルが存在します。上書きしますか？"_s)) {
        return;
    }
    if (!StoreDirectory(keys::SaveDir)) {
        return;
    }
    if (dialog.code) {
        WriteCode();
    }
    if (dialog.data) {
        WriteData();
    }
}

void FileCommands::Remember(const FileDialogAnswer& answer, const QString& initialName) {
    dialogPath_ = answer.accepted ? answer.path : initialName;
    dialogBareName_ = answer.accepted ? answer.bareName : QFileInfo(initialName).fileName();
}

/// False when the last dialog's path names no directory; the command then ends.
bool FileCommands::StoreDirectory(const char* key) {
    const std::optional<QString> directory = DirectoryOf(dialogPath_, dialogBareName_);
    if (directory) {
        with_.settings.SaveSetting(QString::fromLatin1(key), *directory);
    }
    return directory.has_value();
}

void FileCommands::OpenData(const QString& path) {
    if (!path.isEmpty()) {
        with_.names.DataFileName = DataFileNameFor(path);
    }
    OpenNamedData();
}

void FileCommands::OpenBoth(const QString& path) {
    if (!path.isEmpty()) {
        with_.names.CodeFileName = path;
        with_.names.DataFileName = DataFileNameFor(path);
    }
    OpenNamedBoth();
}

void FileCommands::OpenNamedBoth() {
    QString& name = with_.names.CodeFileName;
    if (!name.isEmpty() && !FileExists(name)) {
        name.clear();
        with_.windows.SetFlashCaption(u"Program : Not found HEX file"_s);
        with_.images.ClearFlashImage();
        if (!RefreshFlashListing()) {
            return;
        }
    } else if (HasCodeExtension(name)) {
        if (OpenNamedCode() && StoreDirectory(keys::OpenDir) && OpenNamedData()) {
            with_.panels.SetStatusText(kMessagePanel, u"ファイルをオープンしました。"_s);
        }
        return;
    }
    name.clear();
    with_.messages.ShowMessage(MessageMode::Message,
                               u"指定されたファイルを開くことができませんでした。"_s);
}

bool FileCommands::OpenNamedCode() {
    const QString& name = with_.names.CodeFileName;
    with_.windows.SetFlashCaption(u"Program : "_s + name);
    with_.images.ClearFlashImage();
    return Continues(ReadCodeHex(name, with_.images.flash, with_.errorFlag),
                     u"HEX ファイルのオープンエラー"_s) &&
           RefreshFlashListing();
}

bool FileCommands::OpenNamedData() {
    const QString& name = with_.names.DataFileName;
    const bool found = FileExists(name);
    with_.windows.SetEepromCaption(found ? u"EEPROM : "_s + name
                                         : u"EEPROM memory : Not found EEP file"_s);
    with_.images.ClearEepromImage();
    if (found && !Continues(ReadDataHex(name, with_.images.eeprom, with_.errorFlag),
                            u"EEP  ファイルのオープンエラー"_s)) {
        return false;
    }
    return RefreshEepromListing();
}

/// A line without a colon is reported and the command goes on; any other failure ends it.
bool FileCommands::Continues(HexReadResult result, const QString& noColonText) {
    if (result == HexReadResult::NoColon) {
        with_.panels.SetStatusText(kMessagePanel, noColonText);
    }
    return result != HexReadResult::Failed;
}

bool FileCommands::RefreshFlashListing() {
    return with_.listings.WriteFlashListing() && with_.listings.ShowFlashListing();
}

bool FileCommands::RefreshEepromListing() {
    return with_.listings.WriteEepromListing() && with_.listings.ShowEepromListing();
}

void FileCommands::WriteCode() {
    Report(WriteCodeHex(with_.names.CodeSaveName, with_.images.flash, with_.device.flashWords));
}

void FileCommands::WriteData() {
    Report(WriteDataHex(with_.names.DataSaveName, with_.images.eeprom, with_.device.eepromBytes));
}

void FileCommands::Report(HexWriteResult result) {
    if (result != HexWriteResult::Written) {
        with_.dialogs.ShowBox(BoxIcon::Stop, u"ファイル保存"_s,
                              result == HexWriteResult::AccessRefused
                                  ? u"リードオンリーファイルにアクセスしました。"_s
                                  : u"ファイル保存できませんでした。"_s);
    }
}

}  // namespace tolvex
