// SPDX-License-Identifier: MIT
#include "firmware/simulator/vcd_file.h"

#include <cerrno>

#include "base/system_cause.h"
#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kNames[] = {"RESET", "SCK", "MOSI", "MISO", "D9", "RXD", "TXD"};
constexpr const char* kInitial = "1zzz011";
constexpr qsizetype kBuffer = 1 << 20;
constexpr std::int64_t kBaud = 19200;

VcdFile::Instant BitStart(int bit) {
    return VcdFile::Instant(bit * VcdFile::Instant::period::den / kBaud);
}

char Identifier(int line) {
    return static_cast<char>('!' + line);
}

}  // namespace

std::optional<QString> VcdFile::Open(const QString& path, Instant start) {
    file_.setFileName(path);
    if (!file_.open(QIODevice::WriteOnly)) {
        return Text::tr("記録 %1 を書けません: %2").arg(path, SystemCause(errno));
    }
    start_ = start;
    text_ =
        "$comment The writer that anyone can build, simulated by Tolvex $end\n"
        "$timescale 1 ns $end\n$scope module writer $end\n";
    for (int line = 0; line < kLines; ++line) {
        text_ += QByteArray("$var wire 1 ") + Identifier(line) + ' ' + kNames[line] + " $end\n";
    }
    text_ += "$upscope $end\n$enddefinitions $end\n";
    for (int line = 0; line < kLines; ++line) {
        Write(static_cast<Line>(line), kInitial[line], start);
    }
    return std::nullopt;
}

void VcdFile::Change(Line line, std::optional<bool> level, Instant at) {
    coming_.emplace(at, std::pair(line, !level ? 'z' : *level ? '1' : '0'));
}

void VcdFile::AddByte(Line line, std::uint8_t byte, Instant begin, bool damaged) {
    constexpr int kStopBit = 9;
    Change(line, false, begin);
    for (int bit = 1; bit < kStopBit; ++bit) {
        Change(line, (byte >> (bit - 1) & 1) != 0, begin + BitStart(bit));
    }
    Change(line, !damaged, begin + BitStart(kStopBit));
    Change(line, true, begin + BitStart(kStopBit + 1));
}

void VcdFile::SetClock(double hertz, Instant now) {
    const Instant half(hertz == 0 ? 0 : std::llround(0.5e9 / hertz));
    if (half == halfClock_) {
        return;
    }
    Advance(now);
    halfClock_ = half;
    nextEdge_ = now + half;
    if (half == Instant::zero()) {
        Change(Clock, false, now);
    }
}

void VcdFile::Advance(Instant now) {
    for (;;) {
        const bool edge = halfClock_ != Instant::zero() && nextEdge_ <= now;
        const bool change = !coming_.empty() && coming_.begin()->first <= now;
        if (edge && (!change || nextEdge_ < coming_.begin()->first)) {
            Write(Clock, levels_[Clock] == '1' ? '0' : '1', nextEdge_);
            nextEdge_ += halfClock_;
        } else if (change) {
            const auto [at, what] = *coming_.begin();
            Write(what.first, what.second, at);
            coming_.erase(coming_.begin());
        } else {
            return;
        }
    }
}

void VcdFile::Write(Line line, char level, Instant at) {
    if (levels_[line] == level) {
        return;
    }
    levels_[line] = level;
    if (written_ != at) {
        text_ += '#' + QByteArray::number((at - start_).count()) + '\n';
        written_ = at;
    }
    text_ += level;
    text_ += Identifier(line);
    text_ += '\n';
    if (text_.size() > kBuffer) {
        Flush();
    }
}

void VcdFile::Flush() {
    file_.write(text_);
    text_.clear();
}

}  // namespace tolvex
