// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <functional>

#include "device/device_check.h"
#include "device/erase_operation.h"
#include "device/operation_context.h"
#include "device/program_operation.h"
#include "device/read_operation.h"
#include "device/verify_operation.h"

namespace tolvex {

/// What the toolbar's buttons do: each key runs a chain of steps.
class ToolbarSequences {
  public:
    /// The steps that belong to other folders.
    struct Commands {
        std::function<void()> openFiles;
        std::function<void()> saveFiles;
        std::function<void()> reloadFiles;
        std::function<void()> selectPort;
    };
    struct Operations {
        WriterDetection& detection;
        DeviceCheck& check;
        EraseOperation& erase;
        ProgramOperation& program;
        ReadOperation& read;
        VerifyOperation& verify;
    };

    ToolbarSequences(OperationContext& context, const Operations& operations, Commands commands)
        : context_(context), operations_(operations), commands_(std::move(commands)) {}

    /// Clears status panel 1, then runs the chain of `key`; an unknown key does nothing more.
    void Click(QStringView key);

  private:
    struct Chain;

    // The steps; false ends the chain.
    bool OpenFiles();
    bool SaveFiles();
    bool ReloadFiles();
    bool DetectWriter();
    bool CheckSignature();
    bool EraseChip();
    bool StopUnlessErased();
    bool ProgramChip();
    bool ReadChip();
    bool VerifyWholeChip();
    bool ClearImages();
    bool RewriteListings();
    bool ResetLists();
    bool SelectPort();

    OperationContext& context_;
    Operations operations_;
    Commands commands_;
};

}  // namespace tolvex
