// SPDX-License-Identifier: MIT
#pragma once

#include "cli/session.h"

namespace tolvex {

/// The files of a command that takes CODE [DATA].
struct ImageFiles {
    QString code;
    QString data;  ///< empty = none

    /// To be read: DATA defaults to the .eep beside CODE if there is one.
    static ImageFiles ToRead(const QStringList& arguments);
    /// To be written: DATA defaults to the .eep beside CODE.
    static ImageFiles ToWrite(const QStringList& arguments);
};

/// Proves the files strictly, or with `force` only that they can be read. `kDone`, or the status of
/// a failure that has been told.
int ProveFiles(Session& session, const ImageFiles& files, bool force);
/// Fills both images from the files, as the file commands do; what the files don't name is erased.
void FillImages(Session& session, const ImageFiles& files);
/// Writes both images. `kDone`, or the status of a failure that has been told.
int WriteImages(Session& session, const ImageFiles& files);

}  // namespace tolvex
