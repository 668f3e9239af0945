// SPDX-License-Identifier: MIT
#include "firmware/simulator/chip_socket.h"

namespace tolvex {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kResetTime = 20ms;
constexpr double kNanosecondsPerSecond = 1e9;

}  // namespace

ChipSocket::ChipSocket(SimulatedChip* chip, const ChipOptions& options) : options_(options) {
    if (chip) {
        programming_.emplace(*chip, options);
    }
}

QStringList ChipSocket::Violations() const {
    return programming_ ? programming_->Violations() : QStringList();
}

/// RESET has a pull-up in the chip.
void ChipSocket::SetLines(const Lines& lines, Instant now) {
    if (!programming_) {
        return;
    }
    NoticeDrive(lines, now);
    if (lines.reset.value_or(true) != resetHigh_) {
        NoticeReset(lines, now);
    }
    NoticeMosi(lines, now);
    if (lines.sck.value_or(false) != sckHigh_) {
        NoticeClock(lines, now);
    }
    lines_ = lines;
}

/// A chip that runs may drive SCK and MOSI itself. In reset the board drives them from then on.
void ChipSocket::NoticeDrive(const Lines& lines, Instant now) {
    for (const auto line : {&Lines::sck, &Lines::mosi}) {
        if (resetHigh_ && !(lines_.*line) && lines.*line) {
            programming_->Violate(u"a line is driven while the chip may drive it"_s, now);
        }
        if (!resetHigh_ && lines_.*line && !(lines.*line)) {
            programming_->Violate(u"a line floats while RESET is low"_s, now);
        }
    }
}

/// The chip takes MOSI when SCK goes up; it must have been there before and stay (tOVSH, tSHOX).
void ChipSocket::NoticeMosi(const Lines& lines, Instant now) {
    if (lines.mosi == lines_.mosi) {
        return;
    }
    mosiChange_ = now;
    if (!resetHigh_ && sckHigh_) {
        programming_->Violate(u"MOSI changes while SCK is high"_s, now);
    }
}

void ChipSocket::NoticeReset(const Lines& lines, Instant now) {
    if (lines_.reset == true && !MoreThan(2, now - resetChange_, lines)) {
        programming_->Violate(u"the reset pulse is too short"_s, now);
    }
    resetHigh_ = !resetHigh_;
    resetChange_ = now;
    readyForClocks_ = !resetHigh_ && lines.sck == false;
    bits_ = 0;
    answer_ = 0xFF;
    miso_ = true;
    missing_ = options_.missedClocks;
    if (resetHigh_) {
        programming_->ResetGoesHigh(now);
    } else {
        programming_->ResetGoesLow();
    }
}

/// More than so many clocks of the chip fit in.
bool ChipSocket::MoreThan(int clocks, Instant time, const Lines& lines) const {
    const double hertz = options_.ownClockHertz.value_or(lines.clockHertz);
    return static_cast<double>(time.count()) * hertz > clocks * kNanosecondsPerSecond;
}

void ChipSocket::NoticeClock(const Lines& lines, Instant now) {
    const ChipRules& rules = programming_->Rules();
    const int clocks = sckHigh_ ? rules.sckHighClocks : rules.sckLowClocks;
    const bool tooFast = !MoreThan(clocks, now - sckChange_, lines);
    sckHigh_ = !sckHigh_;
    sckChange_ = now;
    if (resetHigh_) {
        programming_->Violate(u"SCK moves while RESET is high"_s, now);
        return;
    }
    if (tooFast) {
        programming_->Violate(u"SCK is too fast, or the chip has no clock"_s, now);
    }
    if (!sckHigh_) {
        miso_ = (answer_ >> (7 - bits_ % 8) & 1) != 0;
        return;
    }
    if (!readyForClocks_) {
        programming_->Violate(u"SCK was not low when RESET went low"_s, now);
    }
    if (!lines.mosi || !MoreThan(1, now - mosiChange_, lines)) {
        programming_->Violate(u"MOSI is not there before SCK goes up"_s, now);
    }
    if (now - resetChange_ < kResetTime) {
        programming_->Violate(u"SCK moves too soon after RESET went low"_s, now);
    }
    if (missing_ > 0) {
        --missing_;
    } else {
        TakeBit(lines.mosi.value_or(false), now);
    }
}

void ChipSocket::TakeBit(bool bit, Instant now) {
    if (bits_ == 0) {
        begun_ = now;
    }
    const auto index = static_cast<std::size_t>(bits_ / 8);
    bytes_[index] = static_cast<std::uint8_t>(bytes_[index] << 1 | (bit ? 1 : 0));
    ++bits_;
    if (bits_ % 8 != 0) {
        return;
    }
    if (bits_ == 32) {
        programming_->Finish(bytes_, begun_, now);
        bits_ = 0;
    }
    answer_ = programming_->Answer(bytes_, bits_ / 8, begun_, now);
}

Level ChipSocket::Miso() const {
    return programming_ && !resetHigh_ && !options_.misoBroken ? Level(miso_) : std::nullopt;
}

}  // namespace tolvex
