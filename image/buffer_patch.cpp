// SPDX-License-Identifier: MIT
#include "image/buffer_patch.h"

namespace tolvex {

using namespace Qt::StringLiterals;

std::optional<QString> BufferPatch::ReadBufferCell(const QString& address, bool programSelected,
                                                   bool show) {
    if (address.isEmpty()) {
        return std::nullopt;
    }
    const std::optional<int> parsed = Parse(address);
    if (!parsed) {
        return std::nullopt;
    }
    const std::optional<std::size_t> cell = Cell(*parsed, programSelected);
    if (!cell || !show) {
        return std::nullopt;
    }
    return programSelected ? HexByte(images_.flash[*cell]) + HexByte(images_.flash[*cell + 1])
                           : HexByte(images_.eeprom[*cell]);
}

void BufferPatch::WriteBufferCell(const QString& address, const QString& data,
                                  bool programSelected) {
    const std::optional<int> parsed = Parse(address);
    if (!parsed) {
        return;
    }
    const std::optional<int> value = Parse(data);
    if (!value) {
        return;
    }
    const std::optional<std::size_t> cell = Cell(*parsed, programSelected);
    if (!cell) {
        return;
    }
    const auto low = static_cast<std::uint8_t>(*value % 256);
    const auto high = static_cast<std::uint8_t>(*value / 256);
    // A listing that can't be written is not shown either; nobody is told.
    if (programSelected) {
        images_.flash[*cell] = high;
        images_.flash[*cell + 1] = low;
        listings_.RefreshFlashListing();
    } else {
        images_.eeprom[*cell] = low;
        listings_.RefreshEepromListing();
    }
}

std::optional<int> BufferPatch::Parse(const QString& text) {
    flag_.Clear();
    const int value = ParseHex4(text, flag_);
    if (flag_.Failed()) {
        dialog_.ShowMessage(MessageMode::Message, u"入力データに誤りがあります．"_s);
        return std::nullopt;
    }
    return value;
}

std::optional<std::size_t> BufferPatch::Cell(int address, bool programSelected) {
    if (address >= (programSelected ? device_.flashWords : device_.eepromBytes)) {
        dialog_.ShowMessage(MessageMode::Message, programSelected
                                                      ? u"Flash アドレスが範囲を超えています．"_s
                                                      : u"EEPROM アドレスが範囲を超えています．"_s);
        return std::nullopt;
    }
    const auto first = static_cast<std::size_t>(address);
    return programSelected ? 2 * first : first;
}

}  // namespace tolvex
