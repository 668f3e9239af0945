// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QList>
#include <QString>
#include <deque>
#include <optional>

#include "writer/paced_board.h"

namespace tolvex {

/// The board's side of a recorded session: when the PC has sent what it sent then, the recorded
/// reply follows after the recorded time. It understands no command.
class TraceReplay {
  public:
    using Instant = PacedBoard::Instant;

    /// Empty when the file could be taken, else the reason. The format: a line an event, the time
    /// in microseconds first: "1042 > 53" (PC to board, hexadecimal), "4711 < 41 56", "9000 lost"
    /// (the far end went away); "open", "refused" and "close" tell of the PC alone and mean nothing
    /// here.
    QString Load(const QString& path);
    /// All replies at once instead of at their time.
    void Hurry() { hurry_ = true; }

    /// The PC sends.
    void Send(QByteArrayView bytes, Instant now);
    /// As of a paced board.
    std::optional<Instant> NextDue() const;
    PacedBoard::Events Run(Instant now);
    /// Nothing is left to play.
    bool Ended() const { return next_ >= events_.size() && due_.empty(); }
    /// Where the PC left the record; empty as long as it follows it.
    QString Departure() const { return departure_; }

  private:
    struct Event {
        int line;
        std::chrono::microseconds time;
        bool fromPc;
        QByteArray bytes;  ///< none = the far end goes away
    };

    QString Parse(const QString& text, int line);
    void Expect(char byte);
    void Schedule(Instant now);

    QList<Event> events_;
    qsizetype next_ = 0;      ///< the event that is awaited from the PC
    qsizetype received_ = 0;  ///< bytes of it
    bool hurry_ = false;
    QString departure_;
    struct Due {
        Instant at;
        QByteArray bytes;
    };
    std::deque<Due> due_;
};

}  // namespace tolvex
