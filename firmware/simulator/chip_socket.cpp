// SPDX-License-Identifier: MIT
#include "firmware/simulator/chip_socket.h"

#include "base/text.h"

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
            programming_->Violate(Text::tr("チップが出力するかもしれない線に出力しました"), now);
        }
        if (!resetHigh_ && lines_.*line && !(lines.*line)) {
            programming_->Violate(Text::tr("RESET が Low の間に線が浮いています"), now);
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
        programming_->Violate(Text::tr("SCK が High の間に MOSI が変わりました"), now);
    }
}

void ChipSocket::NoticeReset(const Lines& lines, Instant now) {
    if (lines_.reset == true && !MoreThan(2, now - resetChange_, lines)) {
        programming_->Violate(Text::tr("リセットのパルスが短すぎます"), now);
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
        programming_->Violate(Text::tr("RESET が High の間に SCK が動きました"), now);
        return;
    }
    if (tooFast) {
        programming_->Violate(Text::tr("SCK が速すぎるか、チップにクロックがありません"), now);
    }
    if (!sckHigh_) {
        miso_ = (answer_ >> (7 - bits_ % 8) & 1) != 0;
        return;
    }
    if (!readyForClocks_) {
        programming_->Violate(
            Text::tr("RESET が Low になったとき、SCK が Low ではありませんでした"), now);
    }
    if (!lines.mosi || !MoreThan(1, now - mosiChange_, lines)) {
        programming_->Violate(Text::tr("SCK が上がる前に MOSI が決まっていません"), now);
    }
    if (now - resetChange_ < kResetTime) {
        programming_->Violate(Text::tr("RESET が Low になってから SCK が動くまでが短すぎます"),
                              now);
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
