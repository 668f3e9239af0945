// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>

#include "base/program_state.h"

namespace tolvex {

/// What programming writes into the chip.
struct WritePlan {
    int flashWords{};
    int eepromBytes{};   ///< programmed, blank ones are not
    int eepromExtent{};  ///< verified: up to the last used one
};

WritePlan PlanFor(const ProgramState& state);

/// How long the work takes at least: on the line, by a writer that answers at once. With nothing to
/// write, programming counts as an erase and a reading of the whole chip that proves it blank.
/// `whole`: the memories that are compared once more, to their end.
std::chrono::duration<double> EraseTime();
std::chrono::duration<double> ProgramTime(const WritePlan& plan, const CurrentDevice& device,
                                          const std::optional<Memories>& whole);

}  // namespace tolvex
