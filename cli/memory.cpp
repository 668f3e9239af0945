// SPDX-License-Identifier: MIT
#include "cli/memory.h"

#include <QJsonArray>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

int Word(const FlashImage& image, int word) {
    const auto cell = static_cast<std::size_t>(2 * word);
    return image[cell] * 256 + image[cell + 1];
}

}  // namespace

std::optional<Memories> Memories::Named(const QString& word) {
    if (word.isEmpty()) {
        return Memories{};
    }
    const Memories named{.flash = word == u"flash", .eeprom = word == u"eeprom"};
    return named.flash || named.eeprom ? std::optional(named) : std::nullopt;
}

int ReadMemory(Session& session, Memory memory, MemoryImages& images) {
    const bool flash = memory == Memory::Flash;
    const int cells = flash ? session.Device().flashWords : session.Device().eepromBytes;
    WriterCommands& writer = session.Bench().commands;
    MessageDialog& dialog = session.Bench().person.dialog;
    ErrorFlag flag;
    dialog.ShowMessage(MessageMode::Progress,
                       flash ? u"Flash メモリを読んでいます"_s : u"EEPROM を読んでいます"_s);
    writer.EnterProgrammingMode(flag);
    if (flash) {
        writer.SetAddress(0, flag);
    }
    for (int cell = 0; cell < cells && !flag.Failed(); ++cell) {
        dialog.SetProgress(true, 0, cell, cells - 1);
        const auto at = static_cast<std::size_t>(cell);
        if (flash) {
            writer.ReadProgramWord(images.flash[2 * at], images.flash[2 * at + 1], flag);
        } else {
            writer.SetAddress(cell, flag);
            writer.ReadDataByte(images.eeprom[at], flag);
        }
    }
    if (!flag.Failed()) {
        writer.LeaveProgrammingMode(flag);
    }
    dialog.CloseMessage();
    return session.Judge(!flag.Failed(), cause::WriterSilent, u"チップを読めません。"_s);
}

void CopyMemory(Memory memory, const MemoryImages& from, MemoryImages& to) {
    if (memory == Memory::Flash) {
        to.flash = from.flash;
    } else {
        to.eeprom = from.eeprom;
    }
}

QList<VerifyResult::Difference> Compare(const CurrentDevice& device, Memories memories,
                                        const MemoryImages& expected, const MemoryImages& chip) {
    QList<VerifyResult::Difference> differences;
    for (int word = 0; memories.flash && word < device.flashWords; ++word) {
        if (Word(expected.flash, word) != Word(chip.flash, word)) {
            differences << VerifyResult::Difference{true, word, Word(expected.flash, word),
                                                    Word(chip.flash, word)};
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

int TellDifferences(Session& session, const QList<VerifyResult::Difference>& differences) {
    QJsonArray array;
    for (const auto& [flash, address, expected, chip] : differences) {
        const auto hex = flash ? HexWord4 : HexByte;
        session.Print(u"%1 %2: ファイル %3, チップ %4"_s.arg(
            flash ? u"Flash "_s : u"EEPROM"_s, HexWord4(address), hex(expected), hex(chip)));
        array << QJsonObject{{u"memory"_s, flash ? u"flash"_s : u"eeprom"_s},
                             {u"address"_s, address},
                             {u"expected"_s, expected},
                             {u"chip"_s, chip}};
    }
    session.Report()[u"differences"_s] = array;
    return session.Judge(differences.isEmpty(), cause::Differs,
                         u"チップの内容が違います（%1 か所）。"_s.arg(differences.size()));
}

}  // namespace tolvex
