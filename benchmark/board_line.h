// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <optional>

#include "base/event_clock.h"
#include "base/serial_port.h"
#include "writer/board.h"

namespace tolvex::bench {

/// A serial port with a board behind it, and the clock that both live by: time goes on only while
/// somebody waits. The board is not owned and outlives this.
class BoardLine : public SerialPort, public EventClock {
  public:
    /// `now` is the board's time.
    explicit BoardLine(Board& board, Board::Instant now = {})
        : board_(board), now_(std::chrono::ceil<EventClock::Instant>(now)) {}

    void Configure(int number) override { number_ = number; }
    int PortNumber() const override { return number_; }
    bool Open() override { return open_ = true; }
    void Close() override {
        open_ = false;
        input_.clear();
    }
    bool IsOpen() const override { return open_; }
    int InputCount() const override { return static_cast<int>(input_.size()); }
    void DiscardInput() override { input_.clear(); }
    bool Write(QByteArrayView bytes) override {
        byteCount_ += bytes.size();
        board_.Send(bytes, now_);
        return open_;
    }
    QByteArray ReadAll() override { return std::exchange(input_, {}); }

    EventClock::Instant Now() const override { return now_; }
    /// To the next byte, or just past the deadline.
    void Yield(EventClock::Instant deadline) override {
        QByteArray bytes;
        while (bytes.isEmpty() && now_ <= deadline) {
            const auto late = deadline + EventClock::Instant(1);
            const std::optional<Board::Instant> due = board_.NextDue();
            now_ = due ? std::min(std::chrono::ceil<EventClock::Instant>(*due), late) : late;
            bytes = board_.Run(now_).bytes;
        }
        byteCount_ += bytes.size();
        if (open_) {
            input_ += bytes;
        }
    }
    bool Ended() const override { return ended_; }
    void End() override { ended_ = true; }

    /// Of the line, in both directions together.
    qsizetype ByteCount() const { return byteCount_; }

  private:
    Board& board_;
    qsizetype byteCount_ = 0;
    EventClock::Instant now_;
    int number_ = 1;
    bool open_ = false;
    bool ended_ = false;
    QByteArray input_;
};

}  // namespace tolvex::bench
