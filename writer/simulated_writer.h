// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <cstdint>
#include <optional>

#include "writer/board_reply.h"
#include "writer/simulated_chip.h"

namespace tolvex {

/// The wires between board and chip: whole, or broken and read as 1 or as 0.
enum class Contact { Whole, High, Low };

/// The writer board as the serial line sees it: bytes in, replies out. It knows nothing of time; a
/// transport gives the bytes their time on the wire and keeps a reply back for its delay.
class SimulatedWriter {
  public:
    /// `chip` is not owned and outlives the board; null is an empty socket. `firmware` is a digit,
    /// a point and a digit.
    explicit SimulatedWriter(SimulatedChip* chip, const QString& firmware = QStringLiteral("3.9"));

    /// Takes one byte; the reply when it was the last byte of a command. An unknown letter, and a
    /// memory, erase, lock or fuse command outside programming mode, is answered "?".
    std::optional<BoardReply> Receive(std::uint8_t byte);

    /// Another chip, or null for none, is put into the socket.
    void SetChip(SimulatedChip* chip) {
        chip_ = chip;
        ResetChip();
    }

    /// From now on a plain board with real silicon: outside programming mode the chip hears nothing
    /// and is read as FF, and every known command is acknowledged, whether the chip heard it or
    /// not.
    void AcknowledgeBlindly() { blind_ = true; }
    /// The chip falls out of programming mode, as after a dip of its supply; a plain board does not
    /// notice.
    void ResetChip() { listening_ = false; }
    void SetContact(Contact contact) { contact_ = contact; }

    // Faults add up; the first that fits is taken. Commands are counted from 1.
    void SetFault(int command, FaultKind kind);
    void SetFaultFrom(int command, FaultKind kind);
    /// At the given occurrence of the letter, counted from 1; 0 = at every one.
    void SetLetterFault(char letter, FaultKind kind, int occurrence = 0);
    void ClearFaults() { faults_.clear(); }

    int CommandCount() const { return commands_; }
    /// The Flash word or EEPROM byte of the next command.
    int Address() const { return address_; }
    bool InProgrammingMode() const { return programming_; }
    bool LedIsOn() const { return led_; }

  private:
    struct Command {
        char letter;
        int arguments;
        bool onlyWhileProgramming;
        QByteArray (SimulatedWriter::*carryOut)();
    };
    struct Fault {
        FaultKind kind;
        int first;  // command number, or occurrence of the letter
        int last;
        char letter = 0;  // 0 = any
    };
    static const Command kCommands[];
    static const Command* Find(std::uint8_t letter);

    BoardReply Finish(const Command* command);
    void Spoil(BoardReply& reply);
    std::uint8_t Argument(int index) const;
    /// The chip, if it hears the board.
    SimulatedChip* Chip() const;
    /// What is read where no chip answers.
    int Nothing() const { return contact_ == Contact::Low ? 0x00 : 0xFF; }

    QByteArray Identify();
    QByteArray SoftwareVersion();
    QByteArray HardwareVersion();
    QByteArray SelectDevice();
    QByteArray EnterProgramming();
    QByteArray LeaveProgramming();
    QByteArray Signature();
    QByteArray SetAddress();
    QByteArray ReadWord();
    QByteArray WriteLowByte();
    QByteArray WriteHighByte();
    QByteArray ReadData();
    QByteArray WriteData();
    QByteArray Erase();
    QByteArray WriteFuses();
    QByteArray WriteLock();
    QByteArray ReadLockAndFuse();
    QByteArray ReadFuses();
    QByteArray LedOn();
    QByteArray LedOff();

    SimulatedChip* chip_;
    QString firmware_;
    QByteArray received_;  // the letter and its arguments so far
    int address_ = 0;
    bool programming_ = false;
    bool blind_ = false, listening_ = false;  // the board; the chip of a blind board
    Contact contact_ = Contact::Whole;
    bool led_ = false;
    int commands_ = 0;
    QMap<std::uint8_t, int> occurrences_;
    QList<Fault> faults_;
};

}  // namespace tolvex
