// SPDX-License-Identifier: MIT
#include "firmware/simulator/firmware_board.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kBaud = 19200;
constexpr double kBaudTolerance = 0.02 * kBaud;
constexpr Board::Instant kByteTime{10'000'000'000 / kBaud};
constexpr Board::Instant kLessThanByte{500'000};
constexpr Board::Instant kLongestCommand = 3s;
constexpr Board::Instant kIdleRest = 50ms;
constexpr Board::Instant kStartTime = 30ms;

// The wiring on port B.
constexpr int kResetPin = 2;
constexpr int kMosiPin = 3;
constexpr int kMisoPin = 4;
constexpr int kSckPin = 5;
constexpr std::uint8_t kLinesToChip = 0x3E;  // these and the clock output

}  // namespace

FirmwareBoard::FirmwareBoard(ChipSocket& socket, unsigned seed)
    : socket_(socket), toBoard_(kBaud), toPc_(kBaud), noise_(seed) {
    core_.onPortB = [this] { UpdateLines(); };
    core_.onTransmit = [this](std::uint8_t byte) { NoticeTransmission(byte); };
}

std::optional<QString> FirmwareBoard::Load(const QString& hexFile, Start start) {
    if (const auto reason = core_.Load(hexFile)) {
        return reason;
    }
    if (start == Start::AfterBootLoader) {
        core_.LeaveAsBootLoader();
    }
    core_.RunTo(kStartTime);
    return std::nullopt;
}

std::optional<QString> FirmwareBoard::Record(const QString& path) {
    record_.emplace();
    return record_->Open(path, core_.Now());
}

/// RESET has a pull-up in the chip.
void FirmwareBoard::RecordLines(bool miso) {
    const Instant now = core_.Now();
    record_->Change(VcdFile::Reset, LevelOf(kResetPin).value_or(true), now);
    record_->Change(VcdFile::Sck, LevelOf(kSckPin), now);
    record_->Change(VcdFile::Mosi, LevelOf(kMosiPin), now);
    record_->Change(VcdFile::Miso, miso, now);
    record_->SetClock(core_.ClockOutput(), now);
}

void FirmwareBoard::Violate(const QString& what) {
    const double seconds = std::chrono::duration<double>(core_.Now()).count();
    violations_ << u"%1 s: %2"_s.arg(seconds, 0, 'f', 6).arg(what);
}

void FirmwareBoard::NoticeTransmission(std::uint8_t byte) {
    JudgeLine();
    const Instant arrival = toPc_.Arrival(core_.Now());
    pcBound_.push_back({arrival, byte});
    if (record_) {
        record_->AddByte(VcdFile::ToPc, byte, std::max(arrival - kByteTime, core_.Now()));
    }
    answered_ = true;
    if (socket_.IsBusy(core_.Now())) {
        Violate(Text::tr("チップの書き込み中に応答が送られました"));
    }
}

void FirmwareBoard::JudgeLine() {
    if (std::abs(core_.Baud() - kBaud) > kBaudTolerance) {
        Violate(Text::tr("通信の速さが %1 baud です").arg(core_.Baud()));
    }
    if (!core_.FrameIs8N1()) {
        Violate(Text::tr("通信の形式が 8N1 ではありません"));
    }
}

Level FirmwareBoard::LevelOf(int pin) const {
    const AvrCore::PortB port = core_.Port();
    return (port.outputs >> pin & 1) != 0 ? Level((port.levels >> pin & 1) != 0) : std::nullopt;
}

void FirmwareBoard::UpdateLines() {
    const Level sck = LevelOf(kSckPin);
    if (std::exchange(sck_, sck) == false && sck == true && answered_ && !streams_) {
        Violate(Text::tr("応答の後でチップが操作されました"));
    }
    socket_.SetLines({LevelOf(kResetPin), sck, LevelOf(kMosiPin), core_.ClockOutput()},
                     core_.Now());
    const bool pulledUp = (core_.Port().levels >> kMisoPin & 1) != 0;
    const bool floating = pulledUp || (noise_() >> 8 & 1) != 0;
    const bool miso = socket_.Miso().value_or(floating);
    core_.SetInput(kMisoPin, miso);
    if (record_) {
        RecordLines(miso);
    }
}

bool FirmwareBoard::ChipIsReleased() const {
    const AvrCore::PortB port = core_.Port();
    return ((port.outputs | port.levels) & kLinesToChip) == 0 && core_.ClockOutput() == 0;
}

void FirmwareBoard::Send(QByteArrayView bytes, Instant now) {
    for (const char byte : bytes) {
        lastByte_ = toBoard_.Arrival(now - offset_);
        boardBound_.push_back({lastByte_ - kByteTime, static_cast<std::uint8_t>(byte)});
    }
}

void FirmwareBoard::SendDamaged(std::uint8_t byte, Instant now) {
    lastByte_ = toBoard_.Arrival(now - offset_);
    boardBound_.push_back({lastByte_ - kByteTime, byte, true});
}

std::optional<Board::Instant> FirmwareBoard::NextDue() const {
    const bool idle = core_.Now() - lastByte_ > kLongestCommand;
    const Instant soon = core_.Now() + (idle ? kIdleRest : kLessThanByte);
    return offset_ + (pcBound_.empty() ? soon : std::min(soon, pcBound_.front().at));
}

Board::Events FirmwareBoard::Run(Instant now) {
    const Instant end = now - offset_;
    while (!boardBound_.empty() && boardBound_.front().at <= end) {
        core_.RunTo(boardBound_.front().at);
        JudgeLine();
        answered_ = false;
        const Byte& byte = boardBound_.front();
        core_.Receive(byte.value, byte.damaged);
        if (record_) {
            record_->AddByte(VcdFile::FromPc, byte.value, core_.Now(), byte.damaged);
        }
        boardBound_.pop_front();
    }
    core_.RunTo(end);
    if (core_.HasStopped()) {
        Violate(Text::tr("ファームウエアが停止しました"));
    }
    if (record_) {
        record_->Advance(core_.Now());
    }
    Events events;
    while (!pcBound_.empty() && pcBound_.front().at <= end) {
        events.bytes += static_cast<char>(pcBound_.front().value);
        lastByte_ = pcBound_.front().at;
        events.lastByte = offset_ + lastByte_;
        pcBound_.pop_front();
    }
    return events;
}

std::optional<QString> FirmwareBoard::Failure() const {
    const QStringList violations = Violations();
    return violations.isEmpty() ? std::nullopt : std::optional(violations.join(u'\n'));
}

}  // namespace tolvex
