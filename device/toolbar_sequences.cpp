// SPDX-License-Identifier: MIT
#include "device/toolbar_sequences.h"

#include <algorithm>
#include <vector>

#include "device/device_selection.h"

namespace tolvex {

using namespace Qt::StringLiterals;

struct ToolbarSequences::Chain {
    using Step = Next (ToolbarSequences::*)(ChainResult&);

    QStringView key;
    std::vector<Step> steps;
    QStringView finishText;  ///< status panel 1 after the last step, whatever became of it
};

ChainResult ToolbarSequences::Click(QStringView key) {
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

    ChainResult result;
    person_.status.SetStatusText(kMessagePanel, QString());
    const auto chain = std::ranges::find(kChains, key, &Chain::key);
    if (chain == kChains.end()) {
        return result;
    }
    for (const Chain::Step step : chain->steps) {
        const Next next = (this->*step)(result);
        if (next == Next::Unlisted) {
            TellUnlisted();
        }
        if (next != Next::Step) {
            return result;
        }
    }
    result.ended = true;
    if (!chain->finishText.isNull()) {
        person_.status.SetStatusText(kMessagePanel, chain->finishText.toString());
    }
    return result;
}

/// Without this the progress text of the step would stay for ever, as if it were still running.
void ToolbarSequences::TellUnlisted() {
    Report(u"リストファイルを書き込めないため、処理を途中で終了しました。"_s);
}

ToolbarSequences::Next ToolbarSequences::OpenFiles(ChainResult&) {
    commands_.openFiles();
    return Next::Step;
}

ToolbarSequences::Next ToolbarSequences::SaveFiles(ChainResult&) {
    commands_.saveFiles();
    return Next::Step;
}

ToolbarSequences::Next ToolbarSequences::ReloadFiles(ChainResult&) {
    commands_.reloadFiles();
    return Next::Step;
}

ToolbarSequences::Next ToolbarSequences::DetectWriter(ChainResult& result) {
    result.detection = operations_.detection.WriterCheck();
    return result.detection ? Next::Step : Next::Stop;
}

/// Tells the person about the chip as it was found. The erase that follows runs all the same: it is
/// what frees a protected chip.
ToolbarSequences::Next ToolbarSequences::CheckSignature(ChainResult& result) {
    result.chip = operations_.check.CheckSignature();
    return Next::Step;
}

ToolbarSequences::Next ToolbarSequences::EraseChip(ChainResult& result) {
    result.erase = operations_.erase.EraseChip();
    return After(result.erase->listed);
}

ToolbarSequences::Next ToolbarSequences::StopUnlessErased(ChainResult& result) {
    return result.erase->erased ? Next::Step : Next::Stop;
}

ToolbarSequences::Next ToolbarSequences::ProgramChip(ChainResult& result) {
    result.program = operations_.program.ProgramChip();
    return After(result.program->listed);
}

ToolbarSequences::Next ToolbarSequences::ReadChip(ChainResult& result) {
    result.read = operations_.read.ReadChip();
    return After(result.read->listed);
}

ToolbarSequences::Next ToolbarSequences::VerifyWholeChip(ChainResult& result) {
    result.verify = operations_.verify.VerifyChip(VerifyMode::WholeChip);
    return After(result.verify->listed);
}

ToolbarSequences::Next ToolbarSequences::ClearImages(ChainResult&) {
    images_.ClearFlashImage();
    images_.ClearEepromImage();
    return Next::Step;
}

ToolbarSequences::Next ToolbarSequences::RewriteListings(ChainResult&) {
    return After(listings_.WriteFlashListing() && listings_.WriteEepromListing() &&
                 listings_.ShowFlashListing() && listings_.ShowEepromListing());
}

ToolbarSequences::Next ToolbarSequences::ResetLists(ChainResult&) {
    ResetOptions(person_.panel);
    return Next::Step;
}

ToolbarSequences::Next ToolbarSequences::SelectPort(ChainResult&) {
    person_.status.SetStatusText(kMessagePanel, QString());
    commands_.selectPort();
    return Next::Step;
}

}  // namespace tolvex
