// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <optional>

#include "writer/board.h"

namespace tolvex {

/// The board's side of a recorded session: when the PC has sent what it sent then, the recorded
/// reply follows after the recorded time. It understands no command.
class TraceReplay : public Board {
  public:
    /// Nothing when the file could be taken, else the reason. The format: a line an event, the time
    /// in microseconds first: "1042 > 53" (PC to board, hexadecimal), "4711 < 41 56", "9000 lost"
    /// (the far end went away); "open", "refused" and "close" tell of the PC alone and mean nothing
    /// here.
    std::optional<QString> Load(const QString& path);
    /// All replies at once instead of at their time.
    void SkipDelays() { skipDelays_ = true; }

    void Send(QByteArrayView bytes, Instant now) override;
    std::optional<Instant> NextDue() const override;
    Events Run(Instant now) override;
    /// Nothing is left to play.
    bool Ended() const override { return next_ >= events_.size() && due_.empty(); }
    /// Where the PC left the record.
    std::optional<QString> Failure() const override { return departure_; }

  private:
    struct Event {
        int line;
        std::chrono::microseconds time;
        bool fromPc;
        QByteArray bytes;  ///< none = the far end goes away
    };

    std::optional<QString> Parse(const QString& text, int line);
    void Expect(char byte);
    void Schedule(Instant now);

    QList<Event> events_;
    qsizetype next_ = 0;      ///< the event that is awaited from the PC
    qsizetype received_ = 0;  ///< bytes of it
    bool skipDelays_ = false;
    std::optional<QString> departure_;
    struct Due {
        Instant at;
        QByteArray bytes;
    };
    std::deque<Due> due_;
};

}  // namespace tolvex
