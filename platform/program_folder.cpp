// SPDX-License-Identifier: MIT
#include "platform/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QString WithSeparator(const QString& folder) {
    return folder.endsWith(u'/') ? folder : folder + u'/';
}

/// Tried out: permission bits know nothing of read-only mounts, access lists and sandboxes. The
/// file has no name on Linux and removes itself elsewhere.
bool CanCreateFiles(const QString& folder) {
    QTemporaryFile probe(WithSeparator(folder) + u"tolvex-XXXXXX"_s);
    return probe.open();
}

}  // namespace

ProgramFolder EnterProgramFolder(const QString& programFolder, const QString& userFolder) {
    ProgramFolder result;
    result.appDir.program = WithSeparator(programFolder);
    result.isCurrent = QDir::setCurrent(programFolder);
    result.canWriteListings = CanCreateFiles(programFolder);
    result.appDir.listings = {result.appDir.program};
    if (!result.canWriteListings) {
        QDir().mkpath(userFolder);
        result.appDir.listings = {WithSeparator(userFolder)};
        result.canWriteListings = CanCreateFiles(userFolder);
    }
    return result;
}

ProgramFolder EnterProgramFolder() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return EnterProgramFolder(QCoreApplication::applicationDirPath(), data + u"/Tolvex"_s);
}

}  // namespace tolvex
