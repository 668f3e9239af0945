// SPDX-License-Identifier: MIT
#pragma once

#include "cli/fuse_names.h"
#include "cli/session.h"

namespace tolvex {

/// What the commands `fuses` and `lock` share: reading the chip's bits into the lists, and writing
/// the lists. Each step gives `kDone` or the status of a failure that has been told.
class FuseSession {
  public:
    explicit FuseSession(Session& session) : session_(session) {}

    int Read();
    /// Shows what changes, then writes. The chip takes all bits at once, so those that were not
    /// chosen are written as they were read, where the chip can be read.
    int Write(const QList<FuseChoice>& choices);

  private:
    int Confirm();
    void ShowChange(const QList<FuseChoice>& choices);
    void ShowByte(const QString& name, const char* key, int before, int after);

    Session& session_;
};

}  // namespace tolvex
