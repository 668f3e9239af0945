// SPDX-License-Identifier: MIT
#include "image/file_commands.h"

#include <QFileInfo>

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

bool HasCodeExtension(const QString& path) {
    const QString extension = path.right(4).toLower();
    return extension == u".hex" || extension == u".rom";
}

/// What stands before the first occurrence of the bare name, less the separator. Nothing for a path
/// that names no directory.
std::optional<QString> DirectoryOf(const QString& path) {
    const QString bareName = QFileInfo(path).fileName();
    const qsizetype position = bareName.isEmpty() ? -1 : path.indexOf(bareName);
    return position < 1 ? std::nullopt : std::optional(path.left(position - 1));
}

}  // namespace

void FileCommands::mnuFileOpenCode_Click() {
    const QString path = AskOpen({.title = Text::tr("コードファイル(*.hex)を開く"),
                                  .filter = Text::tr("Hex File|*.hex;*.rom|All Files|*.*|"),
                                  .defaultSuffix = u"hex;rom"_s});
    if (!path.isEmpty()) {
        names_.CodeFileName = path;
    }
    if (!FileExists(names_.CodeFileName)) {
        return;
    }
    if (!HasCodeExtension(names_.CodeFileName)) {
        names_.CodeFileName.clear();
        context_.ui.ShowBox(BoxIcon::Information, context_.ui.MainCaption(),
                            Text::tr("指定されたファイルを開くことができませんでした。"));
        return;
    }
    if (OpenNamedCode()) {
        StoreDirectory(keys::OpenDir);
    }
}

void FileCommands::mnuFileOpenData_Click() {
    OpenData(AskOpen({.title = Text::tr("データファイル(*.eep)を開く"),
                      .filter = Text::tr("eep File|*.eep|All Files|*.*|"),
                      .defaultSuffix = u"eep"_s}));
}

void FileCommands::mnuFileOpen_Click() {
    if (names_.ReloadFlag) {
        OpenNamedBoth();
        return;
    }
    OpenBoth(AskOpen({.title = Text::tr("コードファイル ＆ データファイルを開く"),
                      .filter = Text::tr("Hex File|*.hex;*.rom|All Files|*.*|"),
                      .defaultSuffix = u"hex;rom"_s,
                      .initialName = dialogPath_}));
}

void FileCommands::mnuReLoad_Click() {
    names_.ReloadFlag = true;
    mnuFileOpen_Click();
    names_.ReloadFlag = false;
}

void FileCommands::OpenDropped(const QStringList& paths) {
    QStringList code;
    QStringList data;
    for (const QString& path : paths) {
        if (QFileInfo(path).isFile()) {
            (IsDataFileName(path) ? data : code) << path;
        }
    }
    if (code.size() > 1 || data.size() > 1) {
        context_.ui.ShowMessage(
            MessageKind::Failure,
            Text::tr("コードファイルとデータファイルは1つずつドロップしてください。"));
        return;
    }
    const QStringList chosen = code + data;
    if (chosen.isEmpty()) {
        return;
    }
    dialogPath_ = chosen.first();
    if (code.isEmpty()) {
        OpenData(data.first());
    } else if (data.isEmpty()) {
        OpenBoth(code.first());
    } else {
        names_.CodeFileName = code.first();
        names_.DataFileName = data.first();
        OpenNamedBoth();
    }
}

void FileCommands::mnuFileSave_Click() {
    if (names_.CodeFileName.isEmpty()) {
        context_.ui.ShowMessage(MessageKind::Failure,
                                Text::tr("ファイルがオープンされていません．"));
        context_.ui.SetStatusText(kMessagePanel, Text::tr("ファイルがオープンされていません"),
                                  MessageKind::Failure);
        return;
    }
    names_.CodeSaveName = names_.CodeFileName;
    names_.DataSaveName = names_.DataFileName;
    WriteCode();
    WriteData();
    context_.ui.SetStatusText(kMessagePanel, Text::tr("ファイルを保存しました．"),
                              MessageKind::Result);
}

void FileCommands::mnuFileSaveAs_Click() {
    SaveAs({.title = Text::tr("コードファイル ＆ データファイルの保存"),
            .filter = Text::tr("Hex File|*.HEX|All Files|*.*|"),
            .defaultSuffix = u"hex"_s,
            .initialName = dialogPath_},
           {.flash = true, .eeprom = true});
}

void FileCommands::mnuFileSaveAsCode_Click() {
    SaveAs({.title = Text::tr("コードファイル(*.hex)の保存"),
            .filter = Text::tr("Hex File|*.HEX|All Files|*.*|"),
            .defaultSuffix = u"hex"_s,
            .initialName = u"*.hex"_s},
           {.flash = true, .eeprom = false});
}

void FileCommands::mnuFileSaveAsData_Click() {
    SaveAs({.title = Text::tr("データファイル(*.eep)の保存"),
            .filter = Text::tr("Eep File|*.eep|All Files|*.*|"),
            .defaultSuffix = u"eep"_s,
            .initialName = u"*.eep"_s},
           {.flash = false, .eeprom = true});
}

/// The path the dialog ended with: after a cancel that is its initial name. A pattern such as
/// "*.eep" is no path.
QString FileCommands::AskOpen(FileDialogRequest request) {
    request.directory = context_.settings.GetSetting(QString::fromLatin1(keys::OpenDir), QString());
    dialogPath_ = context_.ui.AskOpenFile(request).value_or(request.initialName);
    const QString name = QFileInfo(dialogPath_).fileName();
    const bool isPattern = name.contains(u'*') || name.contains(u'?');
    return isPattern ? QString() : dialogPath_;
}

void FileCommands::SaveAs(FileDialogRequest request, Memories memories) {
    request.directory = context_.settings.GetSetting(QString::fromLatin1(keys::SaveDir), QString());
    const std::optional<QString> answer = context_.ui.AskSaveFile(request);
    dialogPath_ = answer.value_or(request.initialName);
    if (!answer) {
        return;
    }
    if (memories.flash) {
        names_.CodeSaveName = *answer;
    }
    if (memories.eeprom) {
        names_.DataSaveName = DataFileNameFor(*answer);
    }
    const bool replaces = FileExists(memories.flash ? names_.CodeSaveName : names_.DataSaveName);
    if (replaces && !context_.ui.AskOkCancel(Text::tr("ファイル保存"),
                                             Text::tr("ファイルが存在します。上書きしますか？"))) {
        return;
    }
    if (!StoreDirectory(keys::SaveDir)) {
        return;
    }
    if (memories.flash) {
        WriteCode();
    }
    if (memories.eeprom) {
        WriteData();
    }
}

ReadProgress FileCommands::Progress() const {
    return [this] { return context_.ui.ContinueReading(); };
}

/// False when the last dialog's path names no directory; the command then ends.
bool FileCommands::StoreDirectory(const char* key) {
    const std::optional<QString> directory = DirectoryOf(dialogPath_);
    if (directory) {
        context_.settings.SaveSetting(QString::fromLatin1(key), *directory);
    }
    return directory.has_value();
}

void FileCommands::OpenData(const QString& path) {
    if (!path.isEmpty()) {
        names_.DataFileName = FindDataFile(path);
    }
    OpenNamedData();
}

void FileCommands::OpenBoth(const QString& path) {
    if (!path.isEmpty()) {
        names_.CodeFileName = path;
        names_.DataFileName = FindDataFile(path);
    }
    OpenNamedBoth();
}

void FileCommands::OpenNamedBoth() {
    QString& name = names_.CodeFileName;
    if (!name.isEmpty() && !FileExists(name)) {
        name.clear();
        context_.ui.SetFlashCaption(Text::tr("Program : Not found HEX file"));
        context_.state.images.ClearFlashImage();
        if (!context_.listings.RefreshFlashListing()) {
            return;
        }
    } else if (HasCodeExtension(name)) {
        if (OpenNamedCode() && StoreDirectory(keys::OpenDir) && OpenNamedData()) {
            context_.ui.SetStatusText(kMessagePanel, Text::tr("ファイルをオープンしました。"),
                                      MessageKind::Result);
        }
        return;
    }
    name.clear();
    context_.ui.ShowMessage(MessageKind::Failure,
                            Text::tr("指定されたファイルを開くことができませんでした。"));
}

bool FileCommands::OpenNamedCode() {
    const QString& name = names_.CodeFileName;
    context_.ui.SetFlashCaption(Text::tr("Program : %1").arg(name));
    context_.state.images.ClearFlashImage();
    return Continues(
               ReadCodeHex(name, context_.state.images.flash, context_.state.errorFlag, Progress()),
               Text::tr("HEX ファイルのオープンエラー")) &&
           context_.listings.RefreshFlashListing();
}

bool FileCommands::OpenNamedData() {
    const QString& name = names_.DataFileName;
    const bool found = FileExists(name);
    context_.ui.SetEepromCaption(found ? Text::tr("EEPROM : %1").arg(name)
                                       : Text::tr("EEPROM memory : Not found EEP file"));
    context_.state.images.ClearEepromImage();
    if (found && !Continues(ReadDataHex(name, context_.state.images.eeprom,
                                        context_.state.errorFlag, Progress()),
                            Text::tr("EEP  ファイルのオープンエラー"))) {
        return false;
    }
    return context_.listings.RefreshEepromListing();
}

/// A line without a colon is reported and the command goes on; any other failure ends it.
bool FileCommands::Continues(HexReadResult result, const QString& noColonText) {
    if (result == HexReadResult::NoColon) {
        context_.ui.SetStatusText(kMessagePanel, noColonText, MessageKind::Failure);
    }
    return result != HexReadResult::Failed;
}

void FileCommands::WriteCode() {
    Report(WriteCodeHex(names_.CodeSaveName, context_.state.images.flash,
                        context_.state.device.flashWords));
}

void FileCommands::WriteData() {
    Report(WriteDataHex(names_.DataSaveName, context_.state.images.eeprom,
                        context_.state.device.eepromBytes));
}

void FileCommands::Report(HexWriteResult result) {
    if (result != HexWriteResult::Written) {
        context_.ui.ShowBox(BoxIcon::Stop, Text::tr("ファイル保存"),
                            result == HexWriteResult::AccessRefused
                                ? Text::tr("リードオンリーファイルにアクセスしました。")
                                : Text::tr("ファイル保存できませんでした。"));
    }
}

}  // namespace tolvex
