// SPDX-License-Identifier: MIT
#pragma once

#include "cli/session.h"

namespace tolvex {

/// The files of a command that takes CODE [DATA].
struct ImageFiles {
    QString code;
    QString data;  ///< empty = none

    /// DATA defaults to the .eep beside CODE if there is one.
    static ImageFiles From(const QStringList& arguments);
};

/// Fills both images from the files; what the files don't name is erased. `kDone`, or the status of
/// a failure that has been told.
int LoadImages(Session& session, const ImageFiles& files);

}  // namespace tolvex
