// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tolvex {

/// Ends in ".eep", in either case.
bool IsDataFileName(const QString& path);

/// The data file that goes with a chosen file, in the same folder: the last three characters give
/// way to "eep", "blink.hex" becomes "blink.eep". A data file's own name stays.
QString DataFileNameFor(const QString& chosen);

/// The same to be opened: where there is no such file, the one whose name differs from it in case
/// alone, "BLINK.EEP" beside "BLINK.HEX" as DOS disks have them.
QString FindDataFile(const QString& chosen);

}  // namespace tolvex
