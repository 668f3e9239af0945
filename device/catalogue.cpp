// SPDX-License-Identifier: MIT
#include "device/catalogue.h"

#include <algorithm>

namespace tolvex {

using namespace Qt::StringLiterals;

std::span<const DeviceRecord> Catalogue() {
    // The code is the writer's own class of chip, which several chips share.
    static const DeviceRecord kCatalogue[] = {
        {u"AT90S1200 (外部ｸﾛｯｸ)"_s, 0x11, 512, 64, FuseGroup::LockOnly, {0x01, 0x90, 0x1E}},
        {u"AT90S1200A(内部RCｸﾛｯｸ1MHz)"_s, 0x11, 512, 64, FuseGroup::LockOnly, {0x01, 0x90, 0x1E}},
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

int FlashWordsOfSizeCode(std::uint8_t sizeCode) {
    struct SizeCode {
        std::uint8_t code;
        int words;
    };
    static constexpr SizeCode kSizeCodes[] = {
        {0x90, 512}, {0x91, 1024}, {0x92, 2048}, {0x93, 4096}, {0x97, 1024},
    };
    const auto row = std::ranges::find(kSizeCodes, sizeCode, &SizeCode::code);
    return row == std::end(kSizeCodes) ? 0 : row->words;
}

QString PartNumber(const QString& catalogueName) {
    const auto end = std::ranges::find_if(
        catalogueName, [](QChar c) { return c.unicode() > 0x7F || !c.isLetterOrNumber(); });
    return catalogueName.left(end - catalogueName.begin());
}

QString PartOf(const std::array<std::uint8_t, 3>& signature) {
    const auto row = std::ranges::find(Catalogue(), signature, &DeviceRecord::signature);
    return row == Catalogue().end() ? QString() : PartNumber(row->name);
}

std::optional<int> FindDevice(const QString& text) {
    const auto rows = Catalogue();
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const QString& name = rows[index].name;
        if (name == text || PartNumber(name).compare(text, Qt::CaseInsensitive) == 0) {
            return static_cast<int>(index);
        }
    }
    return std::nullopt;
}

}  // namespace tolvex
