// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <functional>

#include "device/device_check.h"
#include "device/erase_operation.h"
#include "device/program_operation.h"
#include "device/read_operation.h"
#include "device/verify_operation.h"

namespace tolvex {

/// What the toolbar's buttons do: each key runs a chain of steps.
class ToolbarSequences : ChipOperation {
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

    ToolbarSequences(const Parts& parts, const Operations& operations, Commands commands)
        : ChipOperation(parts), operations_(operations), commands_(std::move(commands)) {}

    /// Clears status panel 1, then runs the chain of `key`; an unknown key does nothing more.
    ChainResult Click(QStringView key);

  private:
    struct Chain;

    /// What becomes of the chain after a step.
    enum class Next {
        Step,
        Stop,      ///< the person has been told why
        Unlisted,  ///< a listing or the report can't be brought up to date
    };
    static Next After(bool listed) { return listed ? Next::Step : Next::Unlisted; }
    void TellUnlisted();

    Next OpenFiles(ChainResult&);
    Next SaveFiles(ChainResult&);
    Next ReloadFiles(ChainResult&);
    Next DetectWriter(ChainResult& result);
    Next CheckSignature(ChainResult& result);
    Next EraseChip(ChainResult& result);
    Next StopUnlessErased(ChainResult& result);
    Next ProgramChip(ChainResult& result);
    Next ReadChip(ChainResult& result);
    Next VerifyWholeChip(ChainResult& result);
    Next ClearImages(ChainResult&);
    Next RewriteListings(ChainResult&);
    Next ResetLists(ChainResult&);
    Next SelectPort(ChainResult&);

    Operations operations_;
    Commands commands_;
};

}  // namespace tolvex
