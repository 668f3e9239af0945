// SPDX-License-Identifier: MIT
#include "device/device_selection.h"

#include <algorithm>

#include "base/settings_keys.h"
#include "device/catalogue.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

struct OptionRow {
    OptionList list;
    QStringList entries;
    int preset;  ///< selected at start-up, and when a chip that has the option is chosen
};

const QList<OptionRow>& OptionRows() {
    static const QList<OptionRow> kRows = {
        {OptionList::FSTRT, {u"Enable"_s, u"Disable"_s}, 1},
        {OptionList::RCEN, {u"Enable"_s, u"Disable"_s}, 0},
        {OptionList::BODLEVEL, {u"4.0V"_s, u"2.7V"_s}, 1},
        {OptionList::BODEN, {u"Enable"_s, u"Disable"_s}, 1},
        {OptionList::CKSEL,
         {u"4ms + 6 CK"_s, u"6 CK"_s, u"64ms + 16K CK"_s, u"4ms + 16K CK"_s, u"16K CK"_s,
          u"64ms + 1K CK"_s, u"4ms + 1K CK"_s, u"1K CK"_s},
         2},
        {OptionList::LockBit,
         {u"書込み & ベリファイ 禁止"_s, u"書込み禁止"_s, u"プロテクトなし"_s},
         2},
    };
    return kRows;
}

int PresetOf(OptionList list) {
    const auto row = std::ranges::find(OptionRows(), list, &OptionRow::list);
    Q_ASSERT(row != OptionRows().end());
    return row->preset;
}

}  // namespace

void ResetOptions(SettingPanel& panel) {
    for (const OptionRow& row : OptionRows()) {
        panel.SelectOption(row.list, row.preset);
    }
}

void DeviceSelection::FillDeviceLists() {
    for (const OptionRow& row : OptionRows()) {
        panel_.FillOptions(row.list, row.entries);
        panel_.SelectOption(row.list, row.preset);
    }
    QStringList names;
    for (const DeviceRecord& record : Catalogue()) {
        names << record.name;
    }
    panel_.FillDevices(names);
    const double stored = GetNumber(settings_, keys::Device);
    const bool known = stored < static_cast<double>(Catalogue().size());
    SelectDevice(static_cast<int>(known ? stored : keys::Device.standard));
}

void DeviceSelection::SelectDevice(int index) {
    panel_.MarkDevice(index);
    ApplyDeviceRecord(index);
    settings_.SaveSetting(QString::fromLatin1(keys::Device.name), QString::number(index));
    panel_.ShowSizes(u"Programメモリサイズ : %1 word"_s.arg(device_.flashWords),
                     u"EEPROM メモリサイズ : %1 byte"_s.arg(device_.eepromBytes));
    if (listings_.RefreshFlashListing() && listings_.RefreshEepromListing()) {
        panel_.ShowPatchPanel();
    }
}

void DeviceSelection::ApplyDeviceRecord(int index) {
    const auto catalogue = Catalogue();
    if (index < 0 || index >= static_cast<int>(catalogue.size())) {
        return;
    }
    device_ = catalogue[static_cast<std::size_t>(index)];
    ShowFuseControls(device_.fuseGroup);
}

void DeviceSelection::ShowFuseControls(FuseGroup group) {
    struct FuseRow {
        OptionList list;
        FuseGroup group;
    };
    static constexpr FuseRow kFuseRows[] = {
        {OptionList::FSTRT, FuseGroup::FSTRT},     {OptionList::RCEN, FuseGroup::RCEN},
        {OptionList::BODEN, FuseGroup::BOD_CKSEL}, {OptionList::BODLEVEL, FuseGroup::BOD_CKSEL},
        {OptionList::CKSEL, FuseGroup::BOD_CKSEL},
    };
    panel_.ShowOption(OptionList::LockBit, true);
    // Chips without fuses can't be asked for their lock bits either.
    panel_.EnableFuseRead(group != FuseGroup::LockOnly);
    for (const FuseRow& row : kFuseRows) {
        const bool on = row.group == group;
        if (on) {
            panel_.SelectOption(row.list, PresetOf(row.list));
        }
        panel_.ShowOption(row.list, on);
    }
}

}  // namespace tolvex
