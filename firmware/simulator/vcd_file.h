// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <array>
#include <chrono>
#include <cmath>
#include <map>
#include <optional>

namespace tolvex {

/// A record of a board's lines as a Value Change Dump (IEEE 1364-2005, section 18) with a timescale
/// of 1 ns, as PulseView and GTKWave read it. All times are the board's.
class VcdFile {
  public:
    using Instant = std::chrono::nanoseconds;

    enum Line { Reset, Sck, Mosi, Miso, Clock, FromPc, ToPc };
    static constexpr int kLines = 7;

    ~VcdFile() { Flush(); }

    /// Nothing when it worked, else the reason. `start` becomes time 0.
    std::optional<QString> Open(const QString& path, Instant start);
    /// Nothing = the line floats. `at` may lie in the future, but not before what was written.
    void Change(Line line, std::optional<bool> level, Instant at);
    /// The clock output from now on; 0 = it rests.
    void SetClock(double hertz, Instant now);
    /// The ten bits of a byte on a serial line. A damaged one has no stop bit.
    void AddByte(Line line, std::uint8_t byte, Instant begin, bool damaged = false);
    /// Writes what has happened up to now.
    void Advance(Instant now);

  private:
    void Write(Line line, char level, Instant at);
    void Flush();

    QFile file_;
    QByteArray text_;
    Instant start_{0};
    std::optional<Instant> written_;  // the last time that stands in the file
    std::array<char, kLines> levels_{};
    std::multimap<Instant, std::pair<Line, char>> coming_;
    Instant halfClock_{0};  // 0 = it rests
    Instant nextEdge_{0};   // of the clock
};

}  // namespace tolvex
