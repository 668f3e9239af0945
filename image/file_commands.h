// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>

#include "base/person.h"
#include "base/settings.h"
#include "image/hex_reader.h"
#include "image/hex_writer.h"
#include "image/image.h"

namespace tolvex {

/// The commands of the file menu that open and save HEX files. A command that meets an unexpected
/// failure (a file that can't be read to its end, a listing that can't be written) ends there
/// without a message and keeps what it has done so far.
class FileCommands {
  public:
    /// Borrowed.
    struct Parts {
        Listings& listings;
        Settings& settings;
        const Person& person;
        ProgramState& state;
        std::function<QString()> mainCaption;  ///< the main window's caption, the title of one box
        Breath breath = {};                    ///< while a long file is read
    };

    explicit FileCommands(Parts parts)
        : listings_(parts.listings),
          settings_(parts.settings),
          person_(parts.person),
          images_(parts.state.images),
          names_(parts.state.names),
          device_(parts.state.device),
          flag_(parts.state.errorFlag),
          mainCaption_(std::move(parts.mainCaption)),
          breath_(std::move(parts.breath)) {}

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
    struct OpenDialog;
    struct SaveDialog;

    QString AskOpen(const OpenDialog& dialog);
    void SaveAs(const SaveDialog& dialog);
    void Remember(const FileDialogAnswer& answer, const QString& initialName);
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

    Listings& listings_;
    Settings& settings_;
    const Person& person_;
    MemoryImages& images_;
    FileNames& names_;
    const CurrentDevice& device_;
    ErrorFlag& flag_;
    std::function<QString()> mainCaption_;
    Breath breath_;
    /// What the last file dialog ended with: the path it returned, or, after a cancel, the name it
    /// had been given.
    QString dialogPath_;
    QString dialogBareName_;
};

}  // namespace tolvex
