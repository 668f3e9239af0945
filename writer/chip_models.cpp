// SPDX-License-Identifier: MIT
#include "writer/chip_models.h"

#include <algorithm>

namespace tolvex {

namespace {

// Factory fuses: fast start off, the 2343's RC oscillator on, and for the brown-out chips CKSEL
// 010, detection off, 2.7 V.
// clang-format off
constexpr ChipModel kModels[] = {
    {u"AT90S1200 (外部ｸﾛｯｸ)",         {0x1E, 0x90, 0x01},  512,  64, FuseLayout::None,     0xFF},
    {u"AT90S1200A(内部RCｸﾛｯｸ1MHz)",   {0x1E, 0x90, 0x01},  512,  64, FuseLayout::None,     0xFF},
    {u"AT90S2313",                    {0x1E, 0x91, 0x01}, 1024, 128, FuseLayout::None,     0xFF},
    {u"AT90S2323",                    {0x1E, 0x91, 0x02}, 1024, 128, FuseLayout::FSTRT,    0xFF},
    {u"AT90S2333",                    {0x1E, 0x91, 0x05}, 1024, 128, FuseLayout::BodCksel, 0xFA},
    {u"AT90S2343",                    {0x1E, 0x91, 0x03}, 1024, 128, FuseLayout::RCEN,     0xFE},
    {u"AT90S4414",                    {0x1E, 0x92, 0x01}, 2048, 256, FuseLayout::None,     0xFF},
    {u"AT90S4433",                    {0x1E, 0x92, 0x03}, 2048, 256, FuseLayout::BodCksel, 0xFA},
    {u"AT90S8515",                    {0x1E, 0x93, 0x01}, 4096, 512, FuseLayout::None,     0xFF},
    {u"AT90S8535",                    {0x1E, 0x93, 0x03}, 4096, 512, FuseLayout::FSTRT,    0xFF},
};
// clang-format on

QStringView PartNumber(QStringView name) {
    const auto end = std::find_if(name.begin(), name.end(), [](QChar c) {
        return c.unicode() > 0x7F || !c.isLetterOrNumber();
    });
    return name.first(end - name.begin());
}

}  // namespace

std::span<const ChipModel> ChipModels() {
    return kModels;
}

const ChipModel* FindChipModel(QStringView text) {
    static_assert(std::size(kModels) == 10, "one digit is the list index");
    if (text.size() == 1 && text[0] >= u'0' && text[0] <= u'9') {
        return &kModels[text[0].unicode() - u'0'];
    }
    const auto found = std::ranges::find_if(kModels, [text](const ChipModel& model) {
        return text == model.name || text.compare(PartNumber(model.name), Qt::CaseInsensitive) == 0;
    });
    return found == std::end(kModels) ? nullptr : found;
}

}  // namespace tolvex
