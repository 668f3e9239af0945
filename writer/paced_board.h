// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>

#include "writer/board.h"
#include "writer/simulated_writer.h"

namespace tolvex {

/// The simulated writer at the end of its cable: every byte takes its time on the wire both ways.
/// All times follow from when the PC sent, never from when `Run` was called, so that a late caller
/// adds no drift.
class PacedBoard : public Board {
  public:
    /// `writer` is not owned and outlives this. `latency` is the USB latency timer of the adapter
    /// between it and the PC; 0 = none.
    PacedBoard(SimulatedWriter& writer, int baud, std::chrono::milliseconds latency = {});

    void Send(QByteArrayView bytes, Instant now) override;
    std::optional<Instant> NextDue() const override;
    Events Run(Instant now) override;

  private:
    struct Arriving {
        Instant at;
        std::uint8_t byte;
        bool hangUp = false;  // in place of a byte
    };
    void Answer(const BoardReply& reply, Instant at);
    Instant HandedOver(Instant arrival) const;

    SimulatedWriter& writer_;
    int baud_;
    Instant latency_;
    WireLine toBoard_;
    WireLine toPc_;
    std::deque<Arriving> boardBound_;
    std::deque<Arriving> pcBound_;
};

}  // namespace tolvex
