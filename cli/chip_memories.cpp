// SPDX-License-Identifier: MIT
#include "cli/chip_memories.h"

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

template <typename ReadCell>
bool ReadMemory(const ChipContext& chip, const QString& text, int cells, ReadCell readCell) {
    chip.ui.ShowMessage(MessageKind::Progress, text);
    bool good = chip.commands.EnterProgrammingMode() == Outcome::Ok;
    for (int cell = 0; cell < cells && good; ++cell) {
        chip.ui.SetProgress(true, 0, cell, cells - 1);
        good = readCell(cell, static_cast<std::size_t>(cell));
    }
    good = good && LeaveWithProof(chip);
    chip.ui.CloseMessage();
    return good;
}

}  // namespace

bool ReadMemories(const ChipContext& chip, Memories memories, MemoryImages& images) {
    const CurrentDevice& device = chip.state.device;
    WriterCommands& commands = chip.commands;
    const auto readWord = [&](int word, std::size_t at) {
        // The writer's address moves on by itself.
        return (word > 0 || commands.SetAddress(0) == Outcome::Ok) &&
               commands.ReadProgramWord(images.flash[2 * at], images.flash[2 * at + 1]) ==
                   Outcome::Ok;
    };
    const auto readByte = [&](int byte, std::size_t at) {
        return commands.SetAddress(byte) == Outcome::Ok &&
               commands.ReadDataByte(images.eeprom[at]) == Outcome::Ok;
    };
    return (!memories.flash || ReadMemory(chip, Text::tr("Flash メモリを読んでいます"),
                                          device.flashWords, readWord)) &&
           (!memories.eeprom ||
            ReadMemory(chip, Text::tr("EEPROM を読んでいます"), device.eepromBytes, readByte));
}

QList<Difference> Compare(const CurrentDevice& device, Memories memories,
                          const MemoryImages& expected, const MemoryImages& chip) {
    QList<Difference> differences;
    for (int word = 0; memories.flash && word < device.flashWords; ++word) {
        if (expected.FlashWord(word) != chip.FlashWord(word)) {
            differences << Difference{true, word, expected.FlashWord(word), chip.FlashWord(word)};
        }
    }
    for (int byte = 0; memories.eeprom && byte < device.eepromBytes; ++byte) {
        const auto cell = static_cast<std::size_t>(byte);
        if (expected.eeprom[cell] != chip.eeprom[cell]) {
            differences << Difference{false, byte, expected.eeprom[cell], chip.eeprom[cell]};
        }
    }
    return differences;
}

QJsonArray DifferencesJson(const QList<Difference>& differences) {
    QJsonArray array;
    for (const auto& [flash, address, expected, chip] : differences) {
        array << QJsonObject{{u"memory"_s, flash ? u"flash"_s : u"eeprom"_s},
                             {u"address"_s, address},
                             {u"expected"_s, expected},
                             {u"chip"_s, chip}};
    }
    return array;
}

}  // namespace tolvex
