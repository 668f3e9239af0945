// SPDX-License-Identifier: MIT
#include "writer/simulated_writer.h"

#include <algorithm>
#include <limits>

namespace tolvex {

namespace {

constexpr int kNoLimit = std::numeric_limits<int>::max();

QByteArray Bytes(std::initializer_list<int> values) {
    QByteArray bytes;
    for (const int value : values) {
        bytes += static_cast<char>(value);
    }
    return bytes;
}

QByteArray Done() {
    return "\r";
}

}  // namespace

// clang-format off
const SimulatedWriter::Command SimulatedWriter::kCommands[] = {
    {'S', 0, false, &SimulatedWriter::Identify},
    {'V', 0, false, &SimulatedWriter::SoftwareVersion},
    {'v', 0, false, &SimulatedWriter::HardwareVersion},
    {'T', 2, false, &SimulatedWriter::SelectDevice},
    {'P', 0, false, &SimulatedWriter::EnterProgramming},
    {'L', 0, false, &SimulatedWriter::LeaveProgramming},
    {'s', 0, false, &SimulatedWriter::Signature},
    {'A', 2, false, &SimulatedWriter::SetAddress},
    {'R', 0, true,  &SimulatedWriter::ReadWord},
    {'c', 1, true,  &SimulatedWriter::WriteLowByte},
    {'C', 1, true,  &SimulatedWriter::WriteHighByte},
    {'d', 0, true,  &SimulatedWriter::ReadData},
    {'D', 1, true,  &SimulatedWriter::WriteData},
    {'e', 0, true,  &SimulatedWriter::Erase},
    {'f', 1, true,  &SimulatedWriter::WriteFuses},
    {'l', 1, true,  &SimulatedWriter::WriteLock},
    {'F', 0, true,  &SimulatedWriter::ReadLockAndFuse},
    {'r', 0, true,  &SimulatedWriter::ReadFuses},
    {'x', 0, false, &SimulatedWriter::LedOn},
    {'y', 0, false, &SimulatedWriter::LedOff},
};
// clang-format on

SimulatedWriter::SimulatedWriter(SimulatedChip* chip, const QString& firmware)
    : chip_(chip), firmware_(firmware) {}

const SimulatedWriter::Command* SimulatedWriter::Find(std::uint8_t letter) {
    const auto found = std::ranges::find(kCommands, static_cast<char>(letter), &Command::letter);
    return found == std::end(kCommands) ? nullptr : found;
}

std::optional<BoardReply> SimulatedWriter::Receive(std::uint8_t byte) {
    received_ += static_cast<char>(byte);
    const Command* command = Find(static_cast<std::uint8_t>(received_[0]));
    if (command && received_.size() <= command->arguments) {
        return std::nullopt;
    }
    return Finish(command);
}

BoardReply SimulatedWriter::Finish(const Command* command) {
    const bool refused = !command || (command->onlyWhileProgramming && !programming_ && !blind_);
    BoardReply reply;
    reply.letter = static_cast<std::uint8_t>(received_[0]);
    reply.arguments = received_.sliced(1);
    reply.bytes = refused ? QByteArray("?") : (this->*command->carryOut)();
    received_.clear();
    ++commands_;
    ++occurrences_[reply.letter];
    Spoil(reply);
    return reply;
}

void SimulatedWriter::Spoil(BoardReply& reply) {
    for (const Fault& fault : faults_) {
        const bool concerned = fault.letter == 0 || fault.letter == static_cast<char>(reply.letter);
        const int count = fault.letter == 0 ? commands_ : occurrences_[reply.letter];
        if (concerned && count >= fault.first && count <= fault.last) {
            ApplyFault(fault.kind, reply);
            return;
        }
    }
}

void SimulatedWriter::SetFault(int command, FaultKind kind) {
    faults_.append({kind, command, command});
}

void SimulatedWriter::SetFaultFrom(int command, FaultKind kind) {
    faults_.append({kind, command, kNoLimit});
}

void SimulatedWriter::SetLetterFault(char letter, FaultKind kind, int occurrence) {
    const int last = occurrence == 0 ? kNoLimit : occurrence;
    faults_.append({kind, occurrence, last, letter});
}

std::uint8_t SimulatedWriter::Argument(int index) const {
    return static_cast<std::uint8_t>(received_[index + 1]);
}

SimulatedChip* SimulatedWriter::Chip() const {
    const bool hears = contact_ == Contact::Whole && (listening_ || !blind_);
    return hears ? chip_ : nullptr;
}

QByteArray SimulatedWriter::Identify() {
    return "AVR ISP";
}

QByteArray SimulatedWriter::SoftwareVersion() {
    const QByteArray digits = firmware_.toLatin1();
    return Bytes({digits.front(), digits.back()});
}

QByteArray SimulatedWriter::HardwareVersion() {
    return "10";
}

QByteArray SimulatedWriter::SelectDevice() {
    return Done();  // it works with every chip alike
}

QByteArray SimulatedWriter::EnterProgramming() {
    programming_ = true;
    listening_ = contact_ == Contact::Whole;
    return Done();
}

QByteArray SimulatedWriter::LeaveProgramming() {
    programming_ = listening_ = false;
    return Done();
}

QByteArray SimulatedWriter::Signature() {
    if (!Chip()) {
        return Bytes({Nothing(), Nothing(), Nothing()});
    }
    const auto signature = Chip()->ReadSignature();
    return Bytes({signature[2], signature[1], signature[0]});
}

QByteArray SimulatedWriter::SetAddress() {
    address_ = Argument(0) * 256 + Argument(1);
    return Done();
}

QByteArray SimulatedWriter::ReadWord() {
    const int word = address_++;
    return Chip() ? Bytes({Chip()->ReadFlashHigh(word), Chip()->ReadFlashLow(word)})
                  : Bytes({Nothing(), Nothing()});
}

QByteArray SimulatedWriter::WriteLowByte() {
    if (Chip()) {
        Chip()->ProgramFlashLow(address_, Argument(0));
    }
    return Done();
}

QByteArray SimulatedWriter::WriteHighByte() {
    if (Chip()) {
        Chip()->ProgramFlashHigh(address_, Argument(0));
    }
    ++address_;
    return Done();
}

QByteArray SimulatedWriter::ReadData() {
    return Bytes({Chip() ? Chip()->ReadEeprom(address_) : Nothing()});
}

QByteArray SimulatedWriter::WriteData() {
    if (Chip()) {
        Chip()->ProgramEeprom(address_, Argument(0));
    }
    return Done();
}

QByteArray SimulatedWriter::Erase() {
    if (Chip()) {
        Chip()->Erase();
    }
    return Done();
}

QByteArray SimulatedWriter::WriteFuses() {
    if (Chip()) {
        Chip()->ProgramFuses(Argument(0));
    }
    return Done();
}

QByteArray SimulatedWriter::WriteLock() {
    if (Chip()) {
        Chip()->ProgramLock(Argument(0));
    }
    return Done();
}

// Chips with one fuse give it in bit 0, below LB1 in bit 7 and LB2 in bit 6; the brown-out chips
// give the lock byte in the shape in which it is written.
QByteArray SimulatedWriter::ReadLockAndFuse() {
    if (!Chip() || Chip()->Model().fuseLayout == FuseLayout::None) {
        return Bytes({Nothing()});
    }
    const std::uint8_t lock = Chip()->Contents().lock;
    const std::uint8_t fuses = Chip()->Contents().fuses;
    if (Chip()->Model().fuseLayout == FuseLayout::BodCksel) {
        return Bytes({lock});
    }
    const int lb1 = (lock & SimulatedChip::kLb1) != 0 ? 0x80 : 0;
    const int lb2 = (lock & SimulatedChip::kLb2) != 0 ? 0x40 : 0;
    return Bytes({lb1 | lb2 | (fuses & 0x3F)});
}

QByteArray SimulatedWriter::ReadFuses() {
    const bool readable = Chip() && Chip()->Model().fuseLayout == FuseLayout::BodCksel;
    return Bytes({readable ? Chip()->Contents().fuses : Nothing()});
}

QByteArray SimulatedWriter::LedOn() {
    led_ = true;
    return Done();
}

QByteArray SimulatedWriter::LedOff() {
    led_ = false;
    return Done();
}

}  // namespace tolvex
