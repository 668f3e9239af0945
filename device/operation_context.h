// SPDX-License-Identifier: MIT
#pragma once

#include "app/app.h"
#include "device/device.h"
#include "image/image.h"
#include "link/link.h"

namespace tolvex {

/// What the chip operations work with; borrowed, one for all of them.
///
/// An operation tells the person everything itself. Its result says only whether the chain that it
/// is a step of goes on: false = something failed that has no message of its own (a listing file
/// that can't be written), which ends the chain where it stands.
struct OperationContext {
    WriterCommands& writer;
    Waiting& waiting;
    MemoryImages& images;
    const CurrentDevice& device;
    Listings& listings;
    StatusPanels& status;
    MessageDialog& dialog;
    SettingPanel& panel;
    ErrorFlag& errorFlag;

    /// The same text in status panel 1 and in the dialog with OK.
    void Report(const QString& text) const;

    enum class Memory { Flash, Eeprom };
    /// The end of a phase that worked on one memory: leaves programming mode; then tells a failure,
    /// or brings the memory's listing up to date and closes the dialog.
    bool EndPhase(Memory memory, const QString& statusText, const QString& dialogText) const;
};

}  // namespace tolvex
