// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QLockFile>
#include <functional>

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

/// So many stop signals end the terminal tool at once; before, they ask. Those who send two
/// (`timeout` signals the process and its group) get the orderly stop.
inline constexpr int kSignalThatEnds = 3;

/// Up to `most` bytes of the standard input, to its end. Nothing: it can't be read, or a stop
/// signal came first; from now on those only ask.
std::optional<QByteArray> ReadStandardInput(qsizetype most);

/// Opens a device or a FIFO for writing; the latter waits for a reader. False: it can't be opened,
/// or a stop signal came first.
bool OpenStream(QFile& file);

/// The file's content is on the disk. True as well where there is no disk to ask.
bool SyncToDisk(const QFileDevice& file);

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

    /// For one that is not the first: gives the first one a file to open. False: it can't be told.
    bool HandOver(const QString& file) const;
    /// For the first one: calls `open` from the event loop with each file that it is given from now
    /// on.
    void TakeFiles(std::function<void(const QString& file)> open);

  private:
    bool Take();
    QFileInfoList Notes() const;

    const QString lockPath_;
    QLockFile lock_;
    bool first_;
    QFileSystemWatcher watcher_;
};

}  // namespace tolvex
