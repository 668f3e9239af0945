// SPDX-License-Identifier: MIT
#include "firmware/simulator/serial_programming.h"

namespace tolvex {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

enum class SerialProgramming::Act {
    Enable,
    Erase,
    ReadSignature,
    ReadFlash,
    WriteFlash,
    ReadEeprom,
    WriteEeprom,
    WriteLock,
    WriteFuses,
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

constexpr std::uint8_t kEcho = 0x53;
constexpr std::uint8_t kHighByte = 0x08;
constexpr std::uint8_t kIdle = 0xFF;
constexpr auto kEraseTime = 20ms;

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
    : chip_(chip), options_(options) {}

void SerialProgramming::Violate(const QString& what, Instant now) {
    const double seconds = std::chrono::duration<double>(now).count();
    violations_ << u"%1 s: %2"_s.arg(seconds, 0, 'f', 6).arg(what);
}

void SerialProgramming::ResetGoesLow() {
    enabled_ = false;
    firstInstruction_ = true;
}

void SerialProgramming::ResetGoesHigh(Instant now) {
    if (now < busyUntil_) {
        Violate(u"RESET goes high while the chip is writing"_s, now);
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

std::uint8_t SerialProgramming::Answer(const Bytes& bytes, int index, Instant begun, Instant now) {
    const bool mute = chip_.Model().signature[1] == 0x90;
    const Instruction* instruction = index >= 2 ? Find(bytes) : nullptr;
    if (index == 2 && instruction && instruction->act == Act::Enable) {
        enabled_ = true;
        return mute ? kIdle : kEcho;
    }
    if (!enabled_ || index != 3 || !instruction) {
        return kIdle;
    }
    if (begun < busyUntil_ && Polls(*instruction, bytes)) {
        return now < busyUntil_ ? BusyValue() : Read(*instruction, bytes);
    }
    return begun < busyUntil_ ? kIdle : Read(*instruction, bytes);
}

void SerialProgramming::Finish(const Bytes& bytes, Instant begun, Instant now) {
    const bool first = std::exchange(firstInstruction_, false);
    const Instruction* instruction = Find(bytes);
    if (!enabled_) {
        if (first && instruction && options_.missedClocks == 0) {
            Violate(u"the first instruction is not Programming Enable"_s, now);
        }
        return;
    }
    if (!instruction) {
        const auto hex = QByteArray(reinterpret_cast<const char*>(bytes.data()), 4).toHex(' ');
        Violate(u"the chip has no instruction "_s + QString::fromLatin1(hex), now);
    } else if (begun < busyUntil_ && !Polls(*instruction, bytes)) {
        Violate(QLatin1StringView(instruction->name) + u" while the chip is writing"_s, now);
    } else {
        Write(*instruction, bytes, now);
    }
}

std::uint8_t SerialProgramming::Read(const Instruction& instruction, const Bytes& bytes) {
    const std::uint8_t lock = chip_.Contents().lock;
    switch (instruction.act) {
        case Act::ReadSignature:
            return (bytes[2] & 3) == 3 ? kIdle : chip_.ReadSignature()[bytes[2] & 3];
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
    const auto byteTime =
        SlowKind() ? (options_.lowSupply ? 20ms : 9ms) : (options_.lowSupply ? 9ms : 4ms);
    const auto bitsTime = options_.lowSupply ? 20ms : 9ms;
    const auto busy = [this, now](Instant time, std::optional<Bytes> writing) {
        busyUntil_ = now + time;
        writing_ = writing;
    };
    switch (instruction.act) {
        case Act::WriteFlash:
            if ((bytes[0] & kHighByte) != 0) {
                chip_.ProgramFlashHigh(Address(bytes), bytes[3]);
            } else {
                chip_.ProgramFlashLow(Address(bytes), bytes[3]);
            }
            return busy(byteTime, bytes);
        case Act::WriteEeprom:
            chip_.ProgramEeprom(Address(bytes), bytes[3]);
            return busy(byteTime, bytes);
        case Act::Erase:
            chip_.Erase();
            return busy(kEraseTime, {});
        case Act::WriteLock:
            chip_.ProgramLock(bytes[1]);
            return busy(bitsTime, {});
        case Act::WriteFuses:
            chip_.ProgramFuses(bytes[1]);
            return busy(bitsTime, {});
        default:
            return;
    }
}

/// What a byte reads as while it is being written: any of these, so that whoever takes one of them
/// for the byte is caught.
std::uint8_t SerialProgramming::BusyValue() {
    static constexpr std::uint8_t kValues[] = {0xFF, 0x7F, 0x80, 0x00};
    const QStringView name = chip_.Model().name;
    const bool zeroToo = name == u"AT90S2323" || name == u"AT90S2343";
    return kValues[busyReads_++ % (zeroToo ? 4 : 3)];
}

/// Bits without a meaning are never the same twice.
std::uint8_t SerialProgramming::Noise() {
    noise_ = noise_ * 5 + 0x5B;
    return Byte(static_cast<int>(noise_ & 0xFF));
}

bool SerialProgramming::SlowKind() const {
    static const QStringList kSlow = {u"AT90S2323"_s, u"AT90S2333"_s, u"AT90S2343"_s,
                                      u"AT90S4433"_s, u"AT90S8535"_s};
    return kSlow.contains(chip_.Model().name);
}

}  // namespace tolvex
