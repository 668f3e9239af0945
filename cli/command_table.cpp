// SPDX-License-Identifier: MIT
#include "cli/check_command.h"
#include "cli/command.h"
#include "cli/detect_command.h"
#include "cli/devices_command.h"
#include "cli/doctor_command.h"
#include "cli/erase_command.h"
#include "cli/fuses_command.h"
#include "cli/lock_command.h"
#include "cli/ports_command.h"
#include "cli/program_command.h"
#include "cli/read_command.h"
#include "cli/verify_command.h"

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
    return Made<DetectCommand, ProgramCommand, VerifyCommand, ReadCommand, EraseCommand,
                FusesCommand, LockCommand, CheckCommand, PortsCommand, DevicesCommand,
                DoctorCommand>();
}

}  // namespace tolvex
