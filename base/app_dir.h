// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace tolvex {

/// Where the program finds and leaves files. Every folder ends in a separator.
struct AppDir {
    QString program;  ///< the program's own folder: the help file
    /// Listings and verify report: the first of these folders that takes them. None: a program
    /// without windows keeps no listings.
    QStringList listings;
};

}  // namespace tolvex
