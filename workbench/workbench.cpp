// SPDX-License-Identifier: MIT
#include "workbench/workbench.h"

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// The finish text, unless a listing could not be written. Without a word about that the progress
/// text of the step would stay for ever, as if it were still running.
void Finish(Workbench& bench, SequenceResult& result, bool listingsUpdated, const QString& text) {
    if (!listingsUpdated) {
        bench.ui.Tell(MessageKind::Failure,
                      Text::tr("リストファイルを書き込めないため、処理を途中で終了しました。"));
        return;
    }
    result.ended = true;
    bench.ui.SetStatusText(
        kMessagePanel, text,
        bench.state.errorFlag.Failed() ? MessageKind::Failure : MessageKind::Result);
}

void ClearBuffers(Workbench& bench, SequenceResult& result) {
    ListingFiles& listings = bench.listings;
    bench.state.images.ClearFlashImage();
    bench.state.images.ClearEepromImage();
    const bool updated = listings.WriteFlashListing() && listings.WriteEepromListing() &&
                         listings.ShowFlashListing() && listings.ShowEepromListing();
    if (updated) {
        ResetOptions(bench.chip);
    }
    Finish(bench, result, updated, Text::tr("バッファーをクリアしました。"));
}

/// Tells the user about the chip as it was found. The erase runs all the same: it is what frees a
/// locked chip. A proven chip is known, and need not answer outside programming mode.
SequenceResult DetectAndErase(Workbench& bench) {
    SequenceResult result;
    result.detection = WriterCheck(bench.chip);
    if (!result.detection) {
        return result;
    }
    if (!bench.chip.provenSignature) {
        result.chip = CheckSignature(bench.chip);
    }
    result.erase = EraseChip(bench.chip);
    return result;
}

}  // namespace

SequenceResult ProgramSequence(Workbench& bench) {
    const QString finished = Text::tr("プログラム終了しました。");
    SequenceResult result = DetectAndErase(bench);
    if (!result.erase) {
        return result;
    }
    if (!result.erase->listingsUpdated) {
        Finish(bench, result, false, finished);
        return result;
    }
    // Nothing is written over what may still be there, where proofs are asked for.
    if (bench.chip.provenSignature && !result.erase->succeeded) {
        return result;
    }
    result.program = ProgramChip(bench.chip);
    Finish(bench, result, result.program->listingsUpdated, finished);
    return result;
}

SequenceResult ReadSequence(Workbench& bench) {
    SequenceResult result;
    result.detection = WriterCheck(bench.chip);
    if (result.detection) {
        result.read = ReadChip(bench.chip);
        Finish(bench, result, result.read->listingsUpdated, Text::tr("リード終了しました。"));
    }
    return result;
}

SequenceResult VerifySequence(Workbench& bench) {
    SequenceResult result;
    result.detection = WriterCheck(bench.chip);
    if (result.detection) {
        result.verify = VerifyChip(bench.chip, VerifyMode::WholeChip);
        Finish(bench, result, result.verify->listingsUpdated, Text::tr("ベリファイ終了しました。"));
    }
    return result;
}

SequenceResult EraseSequence(Workbench& bench) {
    SequenceResult result = DetectAndErase(bench);
    if (!result.erase || (result.erase->listingsUpdated && !result.erase->succeeded)) {
        return result;
    }
    if (result.erase->listingsUpdated) {
        ResetOptions(bench.chip);
    }
    Finish(bench, result, result.erase->listingsUpdated,
           Text::tr("Lock bit & Flash & EEPROM メモリクリアー完了。"));
    return result;
}

SequenceResult tbToolBar_ButtonClick(Workbench& bench, QStringView key) {
    bench.ui.SetStatusText(kMessagePanel, QString());
    SequenceResult result;
    if (key == u"Open") {
        bench.files.mnuFileOpen_Click();
    } else if (key == u"Save") {
        bench.files.mnuFileSaveAs_Click();
    } else if (key == u"ReLoad") {
        bench.files.mnuReLoad_Click();
    } else if (key == u"Program") {
        return ProgramSequence(bench);
    } else if (key == u"Read") {
        return ReadSequence(bench);
    } else if (key == u"Verify") {
        return VerifySequence(bench);
    } else if (key == u"Erase") {
        return EraseSequence(bench);
    } else if (key == u"Clear") {
        ClearBuffers(bench, result);
    } else if (key == u"ComSelect") {
        bench.ui.SetStatusText(kMessagePanel, QString());
        bench.ui.ShowPortDialog();
    }
    return result;
}

}  // namespace tolvex
