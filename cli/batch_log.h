// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QStringList>

namespace tolvex {

/// A table of comma-separated values that grows by a line a chip. Each line is whole, or not there.
class BatchLog {
  public:
    /// Appends to the file, which gets the heads of the columns if it is empty. False when it can't
    /// be written.
    bool Open(const QString& path, const QStringList& heads);
    /// False when the line is not in the file.
    bool Append(const QStringList& values);

  private:
    bool Write(const QByteArray& line);

    QFile file_;
};

}  // namespace tolvex
