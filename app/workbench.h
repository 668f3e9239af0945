// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "app/app.h"
#include "device/device_check.h"
#include "device/device_selection.h"
#include "device/erase_operation.h"
#include "device/lock_fuse_bits.h"
#include "device/operation_context.h"
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
#include "platform/dialogs.h"
#include "platform/event_clock.h"
#include "platform/serial_port.h"

namespace tolvex {

/// Everything that the program is without its windows: the state that lives for the whole run and
/// the operations on it, wired together. The window program, the command-line tool and the tests
/// each bring their own surroundings.
struct Workbench {
    /// Borrowed; all of it outlives the workbench.
    struct Surroundings {
        SerialPort& port;
        EventClock& clock;
        Settings& settings;
        const AppDir& folders;
        StatusPanels& status;
        MessageDialog& dialog;
        ListingWindows& windows;
        SettingPanel& panel;
        Dialogs& dialogs;
        std::function<QString()> mainCaption;
        std::function<void()> showPortDialog;
    };

    explicit Workbench(const Surroundings& around);
    Workbench(const Workbench&) = delete;

    ErrorFlag errorFlag;
    MemoryImages images;
    FileNames fileNames;
    CurrentDevice device;

    SerialConnection connection;
    SerialCommands commands;
    WriterDetector detection;
    PortSelection portSelection;
    ListingFiles listings;
    FileCommands files;
    BufferPatch patch;

    OperationContext context;
    DeviceSelection selection;
    DeviceCheck check;
    EraseOperation erase;
    VerifyOperation verify;
    ProgramOperation program;
    ReadOperation read;
    LockFuseBits lockFuse;
    ToolbarSequences toolbar;
};

}  // namespace tolvex
