// SPDX-License-Identifier: MIT
#include "platform/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

QString WithSeparator(const QString& folder) {
    return folder.endsWith(u'/') ? folder : folder + u'/';
}

}  // namespace

AppDir EnterProgramFolder(const QString& programFolder, const QString& userFolder) {
    QDir::setCurrent(programFolder);
    const QString program = WithSeparator(programFolder);
    return {.program = program, .listings = {program, WithSeparator(userFolder)}};
}

AppDir EnterProgramFolder() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return EnterProgramFolder(QCoreApplication::applicationDirPath(), data + u"/Tolvex"_s);
}

}  // namespace tolvex
