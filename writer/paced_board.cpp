// SPDX-License-Identifier: MIT
#include "writer/paced_board.h"

#include <algorithm>

namespace tolvex {

PacedBoard::PacedBoard(SimulatedWriter& writer, int baud, std::chrono::milliseconds latency)
    : writer_(writer), baud_(baud), latency_(latency), toBoard_(baud), toPc_(baud) {}

void PacedBoard::Send(QByteArrayView bytes, Instant now) {
    for (const char byte : bytes) {
        boardBound_.push_back({toBoard_.Arrival(now), static_cast<std::uint8_t>(byte)});
    }
}

std::optional<Board::Instant> PacedBoard::NextDue() const {
    std::optional<Instant> due;
    for (const auto* queue : {&boardBound_, &pcBound_}) {
        if (!queue->empty() && (!due || queue->front().at < *due)) {
            due = queue->front().at;
        }
    }
    return due;
}

Board::Events PacedBoard::Run(Instant now) {
    Events events;
    while (!boardBound_.empty() && boardBound_.front().at <= now) {
        const Arriving arrived = boardBound_.front();
        boardBound_.pop_front();
        if (const auto reply = writer_.Receive(arrived.byte)) {
            events.commands.append(*reply);
            Answer(*reply, arrived.at);
        }
    }
    while (!pcBound_.empty() && pcBound_.front().at <= now) {
        if (pcBound_.front().hangUp) {
            events.hangUp = true;
            boardBound_.clear();
            pcBound_.clear();
            toBoard_ = WireLine(baud_);
            toPc_ = WireLine(baud_);
            break;
        }
        events.bytes += static_cast<char>(pcBound_.front().byte);
        events.lastByte = pcBound_.front().at;
        pcBound_.pop_front();
    }
    return events;
}

void PacedBoard::Answer(const BoardReply& reply, Instant at) {
    const Instant start = at + reply.delay;
    for (const char byte : reply.bytes) {
        const Instant handedOver = HandedOver(toPc_.Arrival(start));
        pcBound_.push_back({handedOver, static_cast<std::uint8_t>(byte)});
    }
    if (reply.hangUp) {
        pcBound_.push_back({toPc_.Arrival(start), 0, true});
    }
}

Board::Instant PacedBoard::HandedOver(Instant arrival) const {
    return latency_ == Instant::zero() ? arrival
                                       : (arrival + latency_ - Instant(1)) / latency_ * latency_;
}

}  // namespace tolvex
