// SPDX-License-Identifier: MIT
#include "device/toolbar_sequences.h"

#include <vector>

#include "device/device_selection.h"

namespace tolvex {

struct ToolbarSequences::Chain {
    using Step = bool (ToolbarSequences::*)();

    QStringView key;
    std::vector<Step> steps;
    QStringView finishText;  ///< status panel 1 after the last step, whatever became of it
};

void ToolbarSequences::Click(QStringView key) {
    using S = ToolbarSequences;
    static const std::vector<Chain> kChains = {
        {u"Open", {&S::OpenFiles}, {}},
        {u"Save", {&S::SaveFiles}, {}},
        {u"ReLoad", {&S::ReloadFiles}, {}},
        {u"Program",
         {&S::DetectWriter, &S::CheckSignature, &S::EraseChip, &S::ProgramChip},
         u"プログラム終了しました。"},
        {u"Read", {&S::DetectWriter, &S::ReadChip}, u"リード終了しました。"},
        {u"Verify", {&S::DetectWriter, &S::VerifyWholeChip}, u"ベリファイ終了しました。"},
        {u"Erase",
         {&S::DetectWriter, &S::CheckSignature, &S::EraseChip, &S::StopUnlessErased,
          &S::ResetLists},
         u"Lock bit & Flash & EEPROM メモリクリアー完了。"},
        {u"Clear",
         {&S::ClearImages, &S::RewriteListings, &S::ResetLists},
         u"バッファーをクリアしました。"},
        {u"ComSelect", {&S::SelectPort}, {}},
    };

    context_.status.SetStatusText(kMessagePanel, QString());
    for (const Chain& chain : kChains) {
        if (chain.key != key) {
            continue;
        }
        for (const Chain::Step step : chain.steps) {
            if (!(this->*step)()) {
                return;
            }
        }
        if (!chain.finishText.isNull()) {
            context_.status.SetStatusText(kMessagePanel, chain.finishText.toString());
        }
        return;
    }
}

bool ToolbarSequences::OpenFiles() {
    commands_.openFiles();
    return true;
}

bool ToolbarSequences::SaveFiles() {
    commands_.saveFiles();
    return true;
}

bool ToolbarSequences::ReloadFiles() {
    commands_.reloadFiles();
    return true;
}

bool ToolbarSequences::DetectWriter() {
    return operations_.detection.WriterCheck();
}

/// Tells the person about the chip as it was found. The erase that follows runs all the same: it is
/// what frees a protected chip.
bool ToolbarSequences::CheckSignature() {
    operations_.check.CheckSignature();
    return true;
}

bool ToolbarSequences::EraseChip() {
    return operations_.erase.EraseChip();
}

bool ToolbarSequences::StopUnlessErased() {
    return !context_.errorFlag.Failed();
}

bool ToolbarSequences::ProgramChip() {
    return operations_.program.ProgramChip();
}

bool ToolbarSequences::ReadChip() {
    return operations_.read.ReadChip();
}

bool ToolbarSequences::VerifyWholeChip() {
    return operations_.verify.VerifyChip(VerifyMode::WholeChip);
}

bool ToolbarSequences::ClearImages() {
    context_.images.ClearFlashImage();
    context_.images.ClearEepromImage();
    return true;
}

bool ToolbarSequences::RewriteListings() {
    Listings& listings = context_.listings;
    return listings.WriteFlashListing() && listings.WriteEepromListing() &&
           listings.ShowFlashListing() && listings.ShowEepromListing();
}

bool ToolbarSequences::ResetLists() {
    ResetOptions(context_.panel);
    return true;
}

bool ToolbarSequences::SelectPort() {
    context_.status.SetStatusText(kMessagePanel, QString());
    commands_.selectPort();
    return true;
}

}  // namespace tolvex
