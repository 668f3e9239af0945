// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include "tests/support/simulated_port.h"
#include "writer/chip_models.h"

namespace tolvex::testing {

/// What can befall an exchange. First the faults of a board's reply, in the board's order, and the
/// rest of the line's; then what happens at the socket, of which the board knows nothing.
enum Trouble {
    Silent,
    Short,
    Wrong,
    Long,
    Late,
    HangUp,
    Dead,
    RefusedLetter,
    RefusedRest,
    kEndOfLine,
    Undone = kEndOfLine,  ///< acknowledged, but the chip did not take it
    Unheard,              ///< not acknowledged, and the chip did not take it either
    Denied,               ///< the same, and the board says so
    Reset,                ///< from here the chip is out of programming mode, until the next P
    High,                 ///< from here the contact is broken and reads as FF
    Low,                  ///< or as 00
    OtherPart,            ///< from here another part is in the socket
    OtherContent,         ///< or the same part with another content
    WornFlash,            ///< from here a cell keeps what it holds
    WornEeprom,
    kEnd
};
constexpr const char* kNames[] = {"silent",
                                  "short",
                                  "wrong",
                                  "long",
                                  "late",
                                  "hang-up",
                                  "dead",
                                  "refused letter",
                                  "refused rest",
                                  "acknowledged and not done",
                                  "unheard",
                                  "denied",
                                  "chip reset",
                                  "contact at FF",
                                  "contact at 00",
                                  "another part",
                                  "another content",
                                  "worn Flash cell",
                                  "worn EEPROM cell"};

/// The most that is left of an operation after a hang-up: the device check's pause, but no
/// time-out.
constexpr std::chrono::milliseconds kAfterHangUp(1001);

/// Exchanges are counted from 1; at 0 the port can't be opened.
struct Mishap {
    int exchange;
    int trouble;
};
using Mishaps = QList<Mishap>;

/// Lays troubles on the line between a simulated port and its board and on the board's socket, none
/// of them owned. Every letter goes into the transcript, on a closed port too.
class TroubledLine {
  public:
    TroubledLine(SimulatedPort& port, SimulatedWriter& board, SimulatedChip& chip,
                 QStringList& transcript)
        : port_(port), board_(board), chip_(chip), part_(OtherThan(chip.Model())) {
        port.OnWrite([this, &transcript](QByteArrayView bytes, bool begins) {
            if (begins) {
                TakeBack();
                ++exchange_;
                transcript << QChar::fromLatin1(bytes[0]);
            }
            return std::ranges::all_of(mishaps_, [&](const Mishap& mishap) {
                return mishap.exchange != exchange_ || Befall(mishap.trouble, bytes[0], begins);
            });
        });
    }
    TroubledLine(const TroubledLine&) = delete;

    /// From the next exchange on, with the own chip in the socket.
    void Plan(const Mishaps& mishaps) {
        mishaps_ = mishaps;
        exchange_ = 0;
        kept_.reset();
        chip_.WearOut(-1, -1);
        for (SimulatedChip* chip : {&content_, &part_}) {
            ChipContents other = chip->Contents();
            other.fuses = chip_.Contents().fuses;
            // A locked part is like any other.
            other.lock = chip == &part_ ? 0xFF : chip_.Contents().lock;
            other.flash.fill('\x5A');
            other.eeprom.fill('\x5A');
            chip->SetContents(other);
        }
        board_.ClearFaults();
        board_.SetContact(Contact::Whole);
        board_.SetChip(&chip_);
        port_.RefuseOpen(!mishaps.isEmpty() && mishaps[0].exchange == 0);
    }
    /// What the same part with another content holds now.
    const ChipContents& OtherChip() const { return content_.Contents(); }
    /// Another part that was put in has been erased.
    bool OtherPartErased() const { return !part_.Contents().eeprom.contains('\x5A'); }

    static constexpr int kWornFlash = 2, kWornEeprom = 1;  ///< cells; of a byte each

  private:
    /// Of the same size, if there is one: many a check goes by the size alone.
    static const ChipModel& OtherThan(const ChipModel& model) {
        const auto found = std::ranges::find_if(ChipModels(), [&model](const ChipModel& other) {
            return other.flashWords == model.flashWords && other.signature != model.signature;
        });
        return found == ChipModels().end() ? ChipModels().back() : *found;
    }
    /// Before the next command: what the last one has done to the chip.
    void TakeBack() {
        if (kept_) {
            chip_.SetContents(*std::exchange(kept_, {}));
            if (entered_) {
                board_.ResetChip();
            }
        }
    }
    /// False: the write is refused.
    bool Befall(int trouble, char letter, bool begins) {
        const int next = board_.CommandCount() + 1;
        if (begins && trouble == Dead) {
            board_.SetFaultFrom(next, FaultKind::Silent);
        } else if (begins && trouble < Dead) {
            board_.SetFault(next, static_cast<FaultKind>(trouble));
        } else if (begins && trouble >= kEndOfLine) {
            BefallSocket(trouble, letter);
        }
        return trouble != (begins ? RefusedLetter : RefusedRest);
    }
    void BefallSocket(int trouble, char letter) {
        switch (trouble) {
            case Unheard:
            case Denied:
                board_.SetFault(board_.CommandCount() + 1,
                                trouble == Denied ? FaultKind::Wrong : FaultKind::Silent);
                [[fallthrough]];
            case Undone:
                kept_ = chip_.Contents();
                entered_ = letter == 'P';
                break;
            case Reset:
                board_.ResetChip();
                break;
            case High:
            case Low:
                board_.SetContact(trouble == High ? Contact::High : Contact::Low);
                break;
            case OtherPart:
            case OtherContent:
                board_.SetChip(trouble == OtherPart ? &part_ : &content_);
                break;
            default:
                chip_.WearOut(trouble == WornFlash ? kWornFlash : -1,
                              trouble == WornEeprom ? kWornEeprom : -1);
        }
    }

    SimulatedPort& port_;
    SimulatedWriter& board_;
    SimulatedChip& chip_;
    SimulatedChip part_, content_{chip_.Model()};
    Mishaps mishaps_;
    int exchange_ = 0;
    std::optional<ChipContents> kept_;  ///< before the command that is to be taken back
    bool entered_ = false;              ///< which was 'P'
};

}  // namespace tolvex::testing
