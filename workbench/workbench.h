// SPDX-License-Identifier: MIT
#pragma once

#include "device/device.h"
#include "image/file_commands.h"

namespace tolvex {

/// Everything that the program is without its windows: the state that lives for the whole run and
/// what works on it, wired together. The window program, the command-line tool and the tests each
/// bring their own platform and user interface.
struct Workbench {
    /// Borrowed, but for the hooks; all of it outlives the workbench.
    struct Parts {
        SerialPort& port;
        EventClock& clock;
        Settings& settings;
        const AppDir& folders;
        UserInterface& ui;
        CommandHooks hooks = {};
    };

    explicit Workbench(const Parts& parts)
        : ui(parts.ui),
          connection(parts.port, parts.clock),
          commands(connection, ui, state.errorFlag, parts.hooks),
          listings(parts.folders.listings, ui, state),
          chip{{connection, commands, parts.settings, ui, state}, listings},
          image{listings, parts.settings, ui, state},
          files(image) {}
    Workbench(const Workbench&) = delete;

    UserInterface& ui;
    ProgramState state;
    SerialConnection connection;
    WriterCommands commands;
    ListingFiles listings;
    ChipContext chip;  ///< for the operations on the chip
    ImageContext image;
    FileCommands files;
};

/// What a toolbar button did. What did not run is empty.
struct SequenceResult {
    DetectionResult detection;
    std::optional<ChipReading> chip;  ///< of the check before an erase
    std::optional<PhaseResult> erase;
    std::optional<ProgramResult> program;
    std::optional<ReadResult> read;
    std::optional<VerifyResult> verify;
    bool ended = false;  ///< every step ran
};

// The toolbar's chip operations. Each begins with writer detection and ends with a finish text in
// status panel 1, whatever became of the operation; after a failed detection, or when a listing
// can't be written, it stops.

SequenceResult ProgramSequence(Workbench& bench);
SequenceResult ReadSequence(Workbench& bench);
SequenceResult VerifySequence(Workbench& bench);
SequenceResult EraseSequence(Workbench& bench);

/// What a click on the toolbar's button `key` does: clears status panel 1, then runs what the key
/// stands for; an unknown key does nothing more.
SequenceResult tbToolBar_ButtonClick(Workbench& bench, QStringView key);

}  // namespace tolvex
