// SPDX-License-Identifier: MIT
#pragma once

#include "cli/session.h"

namespace tolvex {

/// What a command does before it changes the chip.
struct Precautions {
    bool force = false;
    std::optional<QString> backup = {};  ///< a folder
    std::optional<Memories> kept = {};   ///< are written back as they were
};

/// A writer, and a chip that may be changed.
Status ProveChip(Session& session, const Precautions& precautions);

/// Erases the proven chip, programs it and compares it. `whole`: the memories that are compared to
/// their end. The operation compares up to the last used cell, and reads nothing back when there
/// was nothing to write.
Status WriteChip(Session& session, const MemoryImages& images,
                 const std::optional<Memories>& whole = {});

}  // namespace tolvex
