// SPDX-License-Identifier: MIT
#include "device/chip_memories.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

int Word(const FlashImage& image, int word) {
    const auto cell = 2 * static_cast<std::size_t>(word);
    return image[cell] * 256 + image[cell + 1];
}

}  // namespace

bool ReadMemories(WriterCommands& writer, MessageDialog& dialog, const CurrentDevice& device,
                  Memories memories, MemoryImages& images) {
    ErrorFlag flag;
    const auto read = [&](const QString& text, int cells, const auto& readCell) {
        dialog.ShowMessage(MessageMode::Progress, text);
        writer.EnterProgrammingMode(flag);
        for (int cell = 0; cell < cells && !flag.Failed(); ++cell) {
            dialog.SetProgress(true, 0, cell, cells - 1);
            readCell(cell, static_cast<std::size_t>(cell));
        }
        if (!flag.Failed()) {
            writer.LeaveProgrammingMode(flag);
        }
        dialog.CloseMessage();
    };
    if (memories.flash) {
        read(u"Flash メモリを読んでいます"_s, device.flashWords, [&](int word, std::size_t at) {
            if (word == 0) {
                writer.SetAddress(0, flag);
            }
            writer.ReadProgramWord(images.flash[2 * at], images.flash[2 * at + 1], flag);
        });
    }
    if (memories.eeprom && !flag.Failed()) {
        read(u"EEPROM を読んでいます"_s, device.eepromBytes, [&](int byte, std::size_t at) {
            writer.SetAddress(byte, flag);
            writer.ReadDataByte(images.eeprom[at], flag);
        });
    }
    return !flag.Failed();
}

QList<VerifyResult::Difference> Compare(const CurrentDevice& device, Memories memories,
                                        const MemoryImages& expected, const MemoryImages& chip) {
    QList<VerifyResult::Difference> differences;
    for (int word = 0; memories.flash && word < device.flashWords; ++word) {
        const int wanted = Word(expected.flash, word);
        if (const int found = Word(chip.flash, word); found != wanted) {
            differences << VerifyResult::Difference{true, word, wanted, found};
        }
    }
    for (int byte = 0; memories.eeprom && byte < device.eepromBytes; ++byte) {
        const auto cell = static_cast<std::size_t>(byte);
        if (expected.eeprom[cell] != chip.eeprom[cell]) {
            differences << VerifyResult::Difference{false, byte, expected.eeprom[cell],
                                                    chip.eeprom[cell]};
        }
    }
    return differences;
}

}  // namespace tolvex
