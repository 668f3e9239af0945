// SPDX-License-Identifier: MIT
#include "base/text.h"
#include "image/image.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// The number, or nothing after a message.
std::optional<int> Parse(const ImageContext& context, const QString& text) {
    ErrorFlag& flag = context.state.errorFlag;
    flag.Clear();
    const int value = ParseHex4(text, flag);
    if (flag.Failed()) {
        context.ui.ShowMessage(MessageKind::Failure, Text::tr("入力データに誤りがあります．"));
        return std::nullopt;
    }
    return value;
}

/// The addressed cell, a Flash word's high byte; nothing after a message.
std::optional<std::size_t> Cell(const ImageContext& context, const QString& address, bool isFlash) {
    const auto parsed = Parse(context, address);
    if (!parsed) {
        return std::nullopt;
    }
    const CurrentDevice& device = context.state.device;
    if (*parsed >= (isFlash ? device.flashWords : device.eepromBytes)) {
        context.ui.ShowMessage(MessageKind::Failure,
                               isFlash ? Text::tr("Flash アドレスが範囲を超えています．")
                                       : Text::tr("EEPROM アドレスが範囲を超えています．"));
        return std::nullopt;
    }
    const auto first = static_cast<std::size_t>(*parsed);
    return isFlash ? 2 * first : first;
}

}  // namespace

std::optional<QString> ReadBufferCell(const ImageContext& context, const QString& address,
                                      bool isFlash, bool show) {
    if (address.isEmpty()) {
        return std::nullopt;
    }
    const auto cell = Cell(context, address, isFlash);
    if (!cell || !show) {
        return std::nullopt;
    }
    const MemoryImages& images = context.state.images;
    return isFlash ? HexByte(images.flash[*cell]) + HexByte(images.flash[*cell + 1])
                   : HexByte(images.eeprom[*cell]);
}

void WriteBufferCell(const ImageContext& context, const QString& address, const QString& data,
                     bool isFlash) {
    // What is typed is judged before where it goes.
    if (!Parse(context, address)) {
        return;
    }
    const auto value = Parse(context, data);
    if (!value) {
        return;
    }
    const auto cell = Cell(context, address, isFlash);
    if (!cell) {
        return;
    }
    const auto low = static_cast<std::uint8_t>(*value % 256);
    const auto high = static_cast<std::uint8_t>(*value / 256);
    MemoryImages& images = context.state.images;
    // A listing that can't be written is not shown either; the listing files tell the user.
    if (isFlash) {
        images.flash[*cell] = high;
        images.flash[*cell + 1] = low;
        context.listings.RefreshFlashListing();
    } else {
        images.eeprom[*cell] = low;
        context.listings.RefreshEepromListing();
    }
}

}  // namespace tolvex
