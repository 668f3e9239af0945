// SPDX-License-Identifier: MIT
#include "device/catalogue.h"

#include <algorithm>

#include "base/text.h"
#include "device/device.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr char k1200[] = QT_TRANSLATE_NOOP("Tolvex", "AT90S1200 (外部ｸﾛｯｸ)");
constexpr char k1200A[] = QT_TRANSLATE_NOOP("Tolvex", "AT90S1200A(内部RCｸﾛｯｸ1MHz)");

}  // namespace

std::span<const DeviceRecord> Catalogue() {
    // The code is the writer's own class of chip, which several chips share.
    static const DeviceRecord kCatalogue[] = {
        {QString::fromUtf8(k1200), 0x11, 512, 64, FuseGroup::LockOnly, {0x01, 0x90, 0x1E}},
        {QString::fromUtf8(k1200A), 0x11, 512, 64, FuseGroup::LockOnly, {0x01, 0x90, 0x1E}},
        {u"AT90S2313"_s, 0x21, 1024, 128, FuseGroup::LockOnly, {0x01, 0x91, 0x1E}},
        {u"AT90S2323"_s, 0x11, 1024, 128, FuseGroup::FSTRT, {0x02, 0x91, 0x1E}},
        {u"AT90S2333"_s, 0x22, 1024, 128, FuseGroup::BOD_CKSEL, {0x05, 0x91, 0x1E}},
        {u"AT90S2343"_s, 0x11, 1024, 128, FuseGroup::RCEN, {0x03, 0x91, 0x1E}},
        {u"AT90S4414"_s, 0x21, 2048, 256, FuseGroup::LockOnly, {0x01, 0x92, 0x1E}},
        {u"AT90S4433"_s, 0x22, 2048, 256, FuseGroup::BOD_CKSEL, {0x03, 0x92, 0x1E}},
        {u"AT90S8515"_s, 0x21, 4096, 512, FuseGroup::LockOnly, {0x01, 0x93, 0x1E}},
        {u"AT90S8535"_s, 0x22, 4096, 512, FuseGroup::FSTRT, {0x03, 0x93, 0x1E}},
    };
    return kCatalogue;
}

QString ShownName(const DeviceRecord& device) {
    return Text::tr(device.name.toUtf8());
}

int FlashWordsOfSizeCode(std::uint8_t sizeCode) {
    switch (sizeCode) {
        case 0x90:
            return 512;
        case 0x91:
        case 0x97:
            return 1024;
        case 0x92:
            return 2048;
        case 0x93:
            return 4096;
        default:
            return 0;
    }
}

QString PartNumber(const QString& catalogueName) {
    const auto end = std::ranges::find_if(
        catalogueName, [](QChar c) { return c.unicode() > 0x7F || !c.isLetterOrNumber(); });
    return catalogueName.left(end - catalogueName.begin());
}

std::optional<QString> PartOf(const Signature& signature) {
    for (const DeviceRecord& record : Catalogue()) {
        if (record.signature == signature) {
            return PartNumber(record.name);
        }
    }
    return std::nullopt;
}

std::optional<int> FindDevice(const QString& text) {
    const auto rows = Catalogue();
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const QString& name = rows[index].name;
        if (name == text || ShownName(rows[index]) == text ||
            PartNumber(name).compare(text, Qt::CaseInsensitive) == 0 ||
            PartNumber(name).compare(u"AT90S"_s + text, Qt::CaseInsensitive) == 0) {
            return static_cast<int>(index);
        }
    }
    return std::nullopt;
}

std::span<const OptionRow> OptionRows() {
    static const OptionRow kRows[] = {
        {OptionList::FSTRT, u"FSTRT"_s, {u"Enable"_s, u"Disable"_s}, 1},
        {OptionList::RCEN, u"RCEN"_s, {u"Enable"_s, u"Disable"_s}, 0},
        {OptionList::BODLEVEL, u"BODLEVEL"_s, {u"4.0V"_s, u"2.7V"_s}, 1},
        {OptionList::BODEN, u"BODEN"_s, {u"Enable"_s, u"Disable"_s}, 1},
        {OptionList::CKSEL,
         u"CKSEL"_s,
         {u"4ms + 6 CK"_s, u"6 CK"_s, u"64ms + 16K CK"_s, u"4ms + 16K CK"_s, u"16K CK"_s,
          u"64ms + 1K CK"_s, u"4ms + 1K CK"_s, u"1K CK"_s},
         2},
        {OptionList::LockBit,
         u"LOCK"_s,
         {QString::fromUtf8(QT_TRANSLATE_NOOP("Tolvex", "書込み & ベリファイ 禁止")),
          QString::fromUtf8(QT_TRANSLATE_NOOP("Tolvex", "書込み禁止")),
          QString::fromUtf8(QT_TRANSLATE_NOOP("Tolvex", "プロテクトなし"))},
         2},
    };
    return kRows;
}

QStringList ShownEntries(const OptionRow& row) {
    QStringList shown;
    for (const QString& entry : row.entries) {
        shown << Text::tr(entry.toUtf8());
    }
    return shown;
}

bool HasOption(FuseGroup group, OptionList list) {
    switch (list) {
        case OptionList::LockBit:
            return true;
        case OptionList::FSTRT:
            return group == FuseGroup::FSTRT;
        case OptionList::RCEN:
            return group == FuseGroup::RCEN;
        case OptionList::BODLEVEL:
        case OptionList::BODEN:
        case OptionList::CKSEL:
            return group == FuseGroup::BOD_CKSEL;
    }
    return false;
}

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
