// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace tolvex {

/// Replaces the file as a whole or not at all. True only when the disk itself has the new content,
/// so that a power cut can't bring the old one back.
bool ReplaceSynced(const QString& path, const QByteArray& content);

}  // namespace tolvex
