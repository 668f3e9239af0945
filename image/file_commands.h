// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "image/hex_reader.h"
#include "image/hex_writer.h"
#include "image/image.h"

namespace tolvex {

/// The commands of the file menu that open and save HEX files. A command that meets an unexpected
/// failure (a file that can't be read to its end, a listing that can't be written) ends there
/// without a message and keeps what it has done so far.
class FileCommands {
  public:
    explicit FileCommands(const ImageContext& context)
        : context_(context), names_(context.state.names) {}

    void mnuFileOpenCode_Click();
    void mnuFileOpenData_Click();
    void mnuFileOpen_Click();
    void mnuReLoad_Click();
    void mnuFileSave_Click();
    void mnuFileSaveAs_Click();
    void mnuFileSaveAsCode_Click();
    void mnuFileSaveAsData_Click();

    /// Files dropped on the main window: one ending in ".eep" goes the way of a chosen data file,
    /// any other that of a file chosen to open both; of each kind one at most, and together they
    /// are opened as a pair. What is no regular file is passed over.
    void OpenDropped(const QStringList& paths);

  private:
    QString AskOpen(FileDialogRequest request);
    /// The overwrite question is about the first of the files.
    void SaveAs(FileDialogRequest request, Memories memories);
    bool StoreDirectory(const char* key);

    void OpenData(const QString& path);
    void OpenBoth(const QString& path);
    bool OpenNamedCode();
    bool OpenNamedData();
    void OpenNamedBoth();
    bool Continues(HexReadResult result, const QString& noColonText);
    void WriteCode();
    void WriteData();
    void Report(HexWriteResult result);
    ReadProgress Progress() const;

    ImageContext context_;
    FileNames& names_;
    /// What the last file dialog ended with: the path it returned, or, after a cancel, the name it
    /// had been given.
    QString dialogPath_;
};

}  // namespace tolvex
