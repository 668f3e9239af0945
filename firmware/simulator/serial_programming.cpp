// SPDX-License-Identifier: MIT
#include "firmware/simulator/serial_programming.h"

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

enum class SerialProgramming::Act {
    Enable,
    Erase,
    WriteFlash,
    WriteEeprom,
    WriteLock,
    WriteFuses,
    ReadSignature,
    ReadFlash,
    ReadEeprom,
    ReadLock,
    ReadFuses
};

namespace {

// Which chips have an instruction: a bit a fuse layout.
constexpr int Layout(FuseLayout layout) {
    return 1 << static_cast<int>(layout);
}
constexpr int kOne = Layout(FuseLayout::FSTRT) | Layout(FuseLayout::RCEN);
constexpr int kFive = Layout(FuseLayout::BodCksel);
constexpr int kAll = Layout(FuseLayout::None) | kOne | kFive;

constexpr std::uint8_t kHighByte = 0x08;
constexpr std::uint8_t kIdle = 0xFF;  // of a chip that doesn't echo

std::uint8_t Byte(int value) {
    return static_cast<std::uint8_t>(value);
}

int Address(const SerialProgramming::Bytes& bytes) {
    return bytes[1] * 256 + bytes[2];
}

}  // namespace

struct SerialProgramming::Instruction {
    const char* name;
    std::uint8_t mask1, value1;  // of the first byte
    std::uint8_t mask2, value2;  // of the second
    Act act;
    int chips;
};

// clang-format off
const SerialProgramming::Instruction SerialProgramming::kInstructions[] = {
    {"Programming Enable", 0xFF, 0xAC, 0xFF, 0x53, Act::Enable,        kAll},
    {"Chip Erase",         0xFF, 0xAC, 0xFF, 0x80, Act::Erase,         kAll},
    {"Read Flash",         0xF7, 0x20, 0xF0, 0x00, Act::ReadFlash,     kAll},
    {"Write Flash",        0xF7, 0x40, 0xF0, 0x00, Act::WriteFlash,    kAll},
    {"Read EEPROM",        0xFF, 0xA0, 0xFE, 0x00, Act::ReadEeprom,    kAll},
    {"Write EEPROM",       0xFF, 0xC0, 0xFE, 0x00, Act::WriteEeprom,   kAll},
    {"Read Signature",     0xFF, 0x30, 0x00, 0x00, Act::ReadSignature, kAll},
    {"Write Lock",         0xFF, 0xAC, 0xF9, 0xF9, Act::WriteLock,     kAll},
    {"Write Fuse",         0xFF, 0xAC, 0xFE, 0xBE, Act::WriteFuses,    kOne},
    {"Write Fuses",        0xFF, 0xAC, 0xE0, 0xA0, Act::WriteFuses,    kFive},
    {"Read Lock and Fuse", 0xFF, 0x58, 0x00, 0x00, Act::ReadLock,      kOne | kFive},
    {"Read Fuses",         0xFF, 0x50, 0x00, 0x00, Act::ReadFuses,     kFive},
};
// clang-format on

SerialProgramming::SerialProgramming(SimulatedChip& chip, const ChipOptions& options)
    : chip_(chip), options_(options), rules_(RulesOf(chip.Model())), noise_(options.seed) {}

void SerialProgramming::Violate(const QString& what, Instant now) {
    const double seconds = std::chrono::duration<double>(now).count();
    violations_ << u"%1 s: %2"_s.arg(seconds, 0, 'f', 6).arg(what);
}

void SerialProgramming::ResetGoesLow() {
    enabled_ = false;
    firstInstruction_ = true;
    erased_ = false;
}

void SerialProgramming::ResetGoesHigh(Instant now) {
    if (now < busyUntil_) {
        Violate(Text::tr("チップの書き込み中に RESET が High になりました"), now);
    }
    enabled_ = false;
}

const SerialProgramming::Instruction* SerialProgramming::Find(const Bytes& bytes) const {
    for (const Instruction& row : kInstructions) {
        const bool fits =
            (bytes[0] & row.mask1) == row.value1 && (bytes[1] & row.mask2) == row.value2;
        if (fits && (row.chips & Layout(chip_.Model().fuseLayout)) != 0) {
            return &row;
        }
    }
    return nullptr;
}

/// A byte may be read back while it is being written.
bool SerialProgramming::Polls(const Instruction& instruction, const Bytes& bytes) const {
    if (!writing_ || Address(bytes) != Address(*writing_)) {
        return false;
    }
    const bool flash = instruction.act == Act::ReadFlash &&
                       (bytes[0] & kHighByte) == ((*writing_)[0] & kHighByte) &&
                       ((*writing_)[0] & ~kHighByte) == 0x40;
    return flash || (instruction.act == Act::ReadEeprom && (*writing_)[0] == 0xC0);
}

/// A chip in step shifts out what it took, a byte later; one that is not enabled does so for
/// Programming Enable alone, and nobody knows what else it shifts out.
std::uint8_t SerialProgramming::Answer(const Bytes& bytes, int index, Instant begun, Instant now) {
    const std::uint8_t before = index == 0 ? bytes[3] : bytes[static_cast<std::size_t>(index - 1)];
    const std::uint8_t echo = rules_.echoes ? before : kIdle;
    const bool enabling = index > 0 && bytes[0] == 0xAC && (index == 1 || bytes[1] == 0x53);
    if (!enabled_ && !enabling) {
        return rules_.echoes ? Noise() : kIdle;
    }
    const Instruction* instruction = index >= 2 ? Find(bytes) : nullptr;
    if (index == 2 && instruction && instruction->act == Act::Enable) {
        enabled_ = true;
    }
    if (index != 3 || !instruction || instruction->act < Act::ReadSignature) {
        return echo;
    }
    if (begun >= busyUntil_) {
        return Read(*instruction, bytes);
    }
    if (!Polls(*instruction, bytes)) {
        return Noise();
    }
    return now < busyUntil_ ? BusyValue(*instruction, now) : Read(*instruction, bytes);
}

void SerialProgramming::Finish(const Bytes& bytes, Instant begun, Instant now) {
    const bool first = std::exchange(firstInstruction_, false);
    const Instruction* instruction = Find(bytes);
    if (!enabled_) {
        if (first && instruction && options_.missedClocks == 0) {
            Violate(Text::tr("最初の命令が Programming Enable ではありません"), now);
        }
        return;
    }
    if (!instruction) {
        const auto hex = QByteArray(reinterpret_cast<const char*>(bytes.data()), 4).toHex(' ');
        Violate(Text::tr("チップに命令 %1 はありません").arg(QString::fromLatin1(hex)), now);
    } else if (begun < busyUntil_ && !Polls(*instruction, bytes)) {
        Violate(Text::tr("チップの書き込み中の命令: %1").arg(QLatin1StringView(instruction->name)),
                now);
    } else if (erased_) {
        Violate(Text::tr("Chip Erase の後、リセットなしの命令: %1")
                    .arg(QLatin1StringView(instruction->name)),
                now);
    } else {
        Write(*instruction, bytes, now);
    }
}

std::uint8_t SerialProgramming::Read(const Instruction& instruction, const Bytes& bytes) {
    const std::uint8_t lock = chip_.Contents().lock;
    switch (instruction.act) {
        case Act::ReadSignature:
            return (bytes[2] & 3) == 3 ? Noise() : chip_.ReadSignature()[bytes[2] & 3];
        case Act::ReadFlash:
            return (bytes[0] & kHighByte) != 0 ? chip_.ReadFlashHigh(Address(bytes))
                                               : chip_.ReadFlashLow(Address(bytes));
        case Act::ReadEeprom:
            return chip_.ReadEeprom(Address(bytes));
        case Act::ReadFuses:
            return Byte((chip_.Contents().fuses & 0x1F) | (Noise() & 0xE0));
        case Act::ReadLock:
            if (chip_.Model().fuseLayout == FuseLayout::BodCksel) {
                return Byte((lock & 0x06) | (Noise() & 0xF9));
            }
            return Byte(((lock & SimulatedChip::kLb1) != 0 ? 0x80 : 0) |
                        ((lock & SimulatedChip::kLb2) != 0 ? 0x40 : 0) |
                        (chip_.Contents().fuses & 0x01) | (Noise() & 0x3E));
        default:
            return kIdle;
    }
}

void SerialProgramming::Write(const Instruction& instruction, const Bytes& bytes, Instant now) {
    const auto byteTime = options_.lowSupply ? rules_.byteWriteLowSupply : rules_.byteWrite;
    const auto bitsTime = options_.lowSupply ? rules_.bitsWriteLowSupply : rules_.bitsWrite;
    switch (instruction.act) {
        case Act::WriteFlash:
            if ((bytes[0] & kHighByte) != 0) {
                chip_.ProgramFlashHigh(Address(bytes), bytes[3]);
            } else {
                chip_.ProgramFlashLow(Address(bytes), bytes[3]);
            }
            return StartWork(byteTime, now, bytes);
        case Act::WriteEeprom:
            chip_.ProgramEeprom(Address(bytes), bytes[3]);
            return StartWork(byteTime, now, bytes);
        case Act::Erase:
            chip_.Erase();
            erased_ = true;
            return StartWork(rules_.erase, now, {});
        case Act::WriteLock:
            chip_.ProgramLock(bytes[1]);
            return StartWork(bitsTime, now, {});
        case Act::WriteFuses:
            chip_.ProgramFuses(bytes[1]);
            return StartWork(bitsTime, now, {});
        default:
            return;
    }
}

void SerialProgramming::StartWork(std::chrono::milliseconds time, Instant now,
                                  std::optional<Bytes> writing) {
    busySince_ = now;
    busyUntil_ = now + time;
    writing_ = writing;
}

std::uint8_t SerialProgramming::BusyValue(const Instruction& instruction, Instant now) const {
    const BusyValues& values = instruction.act == Act::ReadFlash ? rules_.flash : rules_.eeprom;
    return now - busySince_ < (busyUntil_ - busySince_) / 2 ? values.first : values.second;
}

std::uint8_t SerialProgramming::Noise() {
    return Byte(static_cast<int>(noise_() >> 8 & 0xFF));
}

}  // namespace tolvex
