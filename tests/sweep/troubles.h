// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include "tests/support/simulated_port.h"

namespace tolvex::testing {

/// What can befall an exchange. First the faults of a board's reply, in the board's order.
enum Trouble { Silent, Short, Wrong, Long, Late, HangUp, Dead, RefusedLetter, RefusedRest, kEnd };
constexpr const char* kNames[] = {"silent",  "short", "wrong",          "long",        "late",
                                  "hang-up", "dead",  "refused letter", "refused rest"};

/// The most that is left of an operation after a hang-up: the device check's pause, but no
/// time-out.
constexpr std::chrono::milliseconds kAfterHangUp(1001);

/// Exchanges are counted from 1; at 0 the port can't be opened.
struct Mishap {
    int exchange;
    int trouble;
};
using Mishaps = QList<Mishap>;

/// Lays faults on the line between a simulated port and its board, neither of them owned. Every
/// letter goes into the transcript, on a closed port too.
class TroubledLine {
  public:
    TroubledLine(SimulatedPort& port, SimulatedWriter& board, QStringList& transcript)
        : port_(port), board_(board) {
        port.OnWrite([this, &transcript](QByteArrayView bytes, bool begins) {
            if (begins) {
                ++exchange_;
                transcript << QChar::fromLatin1(bytes[0]);
            }
            return std::ranges::all_of(mishaps_, [&](const Mishap& mishap) {
                return mishap.exchange != exchange_ || Befall(mishap.trouble, begins);
            });
        });
    }
    TroubledLine(const TroubledLine&) = delete;

    void Plan(const Mishaps& mishaps) {
        mishaps_ = mishaps;
        exchange_ = 0;
        board_.ClearFaults();
        port_.RefuseOpen(!mishaps.isEmpty() && mishaps[0].exchange == 0);
    }

  private:
    /// False: the write is refused.
    bool Befall(int trouble, bool begins) {
        const int next = board_.CommandCount() + 1;
        if (begins && trouble == Dead) {
            board_.SetFaultFrom(next, FaultKind::Silent);
        } else if (begins && trouble < Dead) {
            board_.SetFault(next, static_cast<FaultKind>(trouble));
        }
        return trouble != (begins ? RefusedLetter : RefusedRest);
    }

    SimulatedPort& port_;
    SimulatedWriter& board_;
    Mishaps mishaps_;
    int exchange_ = 0;
};

}  // namespace tolvex::testing
