// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "base/app_dir.h"
#include "base/event_clock.h"
#include "base/person.h"
#include "base/program_state.h"
#include "base/serial_port.h"
#include "base/settings.h"
#include "device/device_check.h"
#include "device/device_selection.h"
#include "device/erase_operation.h"
#include "device/lock_fuse_bits.h"
#include "device/program_operation.h"
#include "device/read_operation.h"
#include "device/toolbar_sequences.h"
#include "device/verify_operation.h"
#include "image/buffer_patch.h"
#include "image/file_commands.h"
#include "image/listing_files.h"
#include "link/port_selection.h"
#include "link/serial_commands.h"
#include "link/serial_connection.h"
#include "link/writer_detector.h"

namespace tolvex {

/// Everything that the program is without its windows: the state that lives for the whole run and
/// the operations on it, wired together. The window program, the command-line tool and the tests
/// each bring their own platform and person.
struct Workbench {
    /// Borrowed; all of it outlives the workbench.
    struct Parts {
        SerialPort& port;
        EventClock& clock;
        Settings& settings;
        const AppDir& folders;
        Person person;
        std::function<QString()> mainCaption;
        std::function<void()> showPortDialog;
        Breath breath = {};  ///< while a long file is read
        /// What stands between the operations and the command set, if anything does: it is given
        /// the command set, which outlives it.
        std::function<WriterCommands&(WriterCommands&)> decorate = {};
    };

    explicit Workbench(const Parts& parts);
    Workbench(const Workbench&) = delete;

    Person person;
    ProgramState state;

    SerialConnection connection;
    SerialCommands serialCommands;
    WriterCommands& commands;  ///< the same, decorated
    WriterDetector detection;
    PortSelection portSelection;
    ListingFiles listings;
    FileCommands files;
    BufferPatch patch;

    DeviceSelection selection;
    DeviceCheck check;
    EraseOperation erase;
    VerifyOperation verify;
    ProgramOperation program;
    ReadOperation read;
    LockFuseBits lockFuse;
    ToolbarSequences toolbar;

  private:
    ChipOperation::Parts ChipParts();
};

}  // namespace tolvex
