// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/simulated_port.h"

namespace tolvex::testing {

/// The simulated board behind a line that faults befall. Every letter goes into the transcript.
class TroubledPort : public SimulatedPort {
  public:
    /// First the faults of a board's reply, in the board's order.
    // clang-format off
    enum Trouble { Silent, Short, Wrong, Long, Late, HangUp, Dead, RefusedLetter, RefusedRest, kEnd };
    // clang-format on
    static constexpr const char* kNames[] = {"silent", "short",          "wrong",
                                             "long",   "late",           "hang-up",
                                             "dead",   "refused letter", "refused rest"};
    /// Exchanges are counted from 1; at 0 the port can't be opened.
    struct Fault {
        int exchange;
        int trouble;
    };

    TroubledPort(SimulatedWriter& board, VirtualClock& clock, QStringList& transcript)
        : SimulatedPort(board, clock, 0), board_(board), transcript_(transcript) {}

    void Plan(const QList<Fault>& faults) {
        faults_ = faults;
        exchange_ = 0;
        board_.ClearFaults();
        RefuseOpen(!faults.isEmpty() && faults[0].exchange == 0);
    }
    void DiscardInput() override {
        begins_ = true;
        SimulatedPort::DiscardInput();
    }
    bool Write(QByteArrayView bytes) override {
        const bool letter = std::exchange(begins_, false);
        if (letter) {
            ++exchange_;
            transcript_ << QChar::fromLatin1(bytes[0]);
        }
        for (const Fault& fault : faults_) {
            const int next = board_.CommandCount() + 1;
            if (fault.exchange != exchange_) {
                continue;
            }
            if (fault.trouble == (letter ? RefusedLetter : RefusedRest)) {
                return false;
            }
            if (letter && fault.trouble == Dead) {
                board_.SetFaultFrom(next, FaultKind::Silent);
            } else if (letter && fault.trouble < Dead) {
                board_.SetFault(next, static_cast<FaultKind>(fault.trouble));
            }
        }
        return SimulatedPort::Write(bytes);
    }

  private:
    SimulatedWriter& board_;
    QStringList& transcript_;
    QList<Fault> faults_;
    int exchange_ = 0;
    bool begins_ = true;
};

}  // namespace tolvex::testing
