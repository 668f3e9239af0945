// SPDX-License-Identifier: MIT
#pragma once

#include <QLockFile>

#include "base/settings.h"

namespace tolvex {

/// Before the application object: Qt wants UTF-8, takes it in any case, and from version 6.5 on
/// says so in every run under LANG=C.
void ChooseUtf8Locale();

/// Before any file is opened: one must not take the number of a standard stream that was closed, or
/// progress would go down the serial line. What is written to such a stream afterwards fails, and
/// so does writing to a reader that went away, instead of ending the program.
void OpenStandardStreams();

/// Columns of the terminal that the error stream is; 0 = it is none.
int TerminalColumns();

/// Makes `programFolder` the current directory, where it can be entered. Listings belong there, or
/// in `userFolder` when it doesn't take them, as where the program is installed for all users.
/// Neither folder needs to end in a separator or to exist; nothing is created here.
AppDir EnterProgramFolder(const QString& programFolder, const QString& userFolder);

/// The same with the running program's folder (needs a QCoreApplication) and `Tolvex` in the user's
/// data folder.
AppDir EnterProgramFolder();

/// The folder below which every program of this user keeps its settings.
QString UserConfigFolder();

/// Tells the users of this machine apart.
QString UserMark();

/// Where the program's lock lies: one file a user, in the user's runtime folder, or in the
/// temporary folder where there is none.
QString InstanceLockPath();

/// Whether this process is the only one of its user that runs the program. The mark lasts as long
/// as the object and goes with the process, however that ends: what a killed process or a power
/// cut left behind doesn't count.
class SingleInstance {
  public:
    explicit SingleInstance(const QString& lockPath);

    /// Also true where no lock can be made at all: better a second instance than none.
    bool IsFirst() const { return first_; }

  private:
    bool Take();

    QLockFile lock_;
    bool first_;
};

}  // namespace tolvex
