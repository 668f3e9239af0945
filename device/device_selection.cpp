// SPDX-License-Identifier: MIT
// The device list: what a choice in it sets.
#include "device/device.h"

namespace tolvex {

namespace {

void ApplyDeviceRecord(ProgramState& state, int index) {
    const auto catalogue = Catalogue();
    if (index < 0 || index >= static_cast<int>(catalogue.size())) {
        return;
    }
    state.device = catalogue[static_cast<std::size_t>(index)];
    for (const OptionRow& row : OptionRows()) {
        // The lock list keeps its entry when the device changes.
        if (row.list != OptionList::LockBit && HasOption(state.device.fuseGroup, row.list)) {
            state.options[row.list] = row.preset;
        }
    }
}

}  // namespace

void ResetOptions(const ChipContext& context) {
    for (const OptionRow& row : OptionRows()) {
        context.state.options[row.list] = row.preset;
    }
    context.ui.ShowSettings();
}

void FillDeviceLists(const ChipContext& context) {
    ResetOptions(context);
    const double stored = GetNumber(context.settings, keys::Device);
    const bool known = stored < static_cast<double>(Catalogue().size());
    SelectDevice(context, static_cast<int>(known ? stored : keys::Device.defaultValue));
}

void SelectDevice(const ChipContext& context, int index) {
    ApplyDeviceRecord(context.state, index);
    context.settings.SaveSetting(QString::fromLatin1(keys::Device.name), QString::number(index));
    context.ui.ShowSettings();
    if (context.listings.RefreshFlashListing() && context.listings.RefreshEepromListing()) {
        context.ui.ShowPatchPanel();
    }
}

}  // namespace tolvex
