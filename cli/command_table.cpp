// SPDX-License-Identifier: MIT
#include "cli/command.h"
#include "cli/program_command.h"

namespace tolvex {

namespace {

template <typename... Commands>
std::vector<std::unique_ptr<CliCommand>> Made() {
    std::vector<std::unique_ptr<CliCommand>> commands;
    (commands.push_back(std::make_unique<Commands>()), ...);
    return commands;
}

}  // namespace

std::vector<std::unique_ptr<CliCommand>> AllCommands() {
    return Made<ProgramCommand>();
}

}  // namespace tolvex
