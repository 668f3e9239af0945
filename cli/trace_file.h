// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

#include "base/event_clock.h"

namespace tolvex {

/// Writes what goes over the line into a text file, a line an event, microseconds since the file
/// was opened first: "1042 > 53" (to the writer), "4711 < 41 56", "0 open COM5", "0 refused COM5",
/// "9000 close", "9000 lost". The simulated board can play its side of it back. Without a file
/// every event is dropped.
class TraceFile {
  public:
    /// `clock` is borrowed.
    explicit TraceFile(const EventClock& clock) : clock_(clock) {}

    /// Replaces the file; false when it can't be written.
    bool Open(const QString& path) {
        file_.setFileName(path);
        start_ = clock_.Now();
        return file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }
    void Note(const QByteArray& event, QByteArrayView bytes = {}) {
        if (file_.isOpen()) {
            const auto time = static_cast<qlonglong>((clock_.Now() - start_).count());
            const QByteArray line = QByteArray::number(time) + ' ' + event +
                                    bytes.toByteArray().toHex(' ').toUpper() + '\n';
            lost_ |= file_.write(line) != line.size();
        }
    }
    /// Part of the trace could not be written.
    bool Lost() const { return lost_; }
    QString Path() const { return file_.fileName(); }

  private:
    const EventClock& clock_;
    QFile file_;
    EventClock::Instant start_{0};
    bool lost_ = false;
};

}  // namespace tolvex
