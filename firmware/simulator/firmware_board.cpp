// SPDX-License-Identifier: MIT
#include "firmware/simulator/firmware_board.h"

#include <algorithm>
#include <cmath>

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
constexpr Board::Instant kStartTime{10'000'000};

// The wiring on port B.
constexpr int kResetPin = 2;
constexpr int kMosiPin = 3;
constexpr int kMisoPin = 4;
constexpr int kSckPin = 5;
constexpr std::uint8_t kLinesToChip = 0x3E;  // these and the clock output

}  // namespace

FirmwareBoard::FirmwareBoard(ChipSocket& socket) : socket_(socket), toBoard_(kBaud), toPc_(kBaud) {
    core_.onPortB = [this] { UpdateLines(); };
    core_.onTransmit = [this](std::uint8_t byte) {
        pcBound_.push_back({toPc_.Arrival(core_.Now()), byte});
        if (socket_.IsBusy(core_.Now())) {
            violations_ << u"an answer goes out while the chip is writing"_s;
        }
    };
}

std::optional<QString> FirmwareBoard::Load(const QString& hexFile) {
    const auto reason = core_.Load(hexFile);
    if (!reason) {
        core_.RunTo(kStartTime);
    }
    return reason;
}

Level FirmwareBoard::LevelOf(int pin) const {
    const AvrCore::PortB port = core_.Port();
    return (port.outputs >> pin & 1) != 0 ? Level((port.levels >> pin & 1) != 0) : std::nullopt;
}

void FirmwareBoard::UpdateLines() {
    socket_.SetLines({LevelOf(kResetPin), LevelOf(kSckPin), LevelOf(kMosiPin), core_.ClockOutput()},
                     core_.Now());
    core_.SetInput(kMisoPin, socket_.Miso());
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

std::optional<Board::Instant> FirmwareBoard::NextDue() const {
    const bool idle = core_.Now() - lastByte_ > kLongestCommand;
    const Instant soon = core_.Now() + (idle ? kIdleRest : kLessThanByte);
    return offset_ + (pcBound_.empty() ? soon : std::min(soon, pcBound_.front().at));
}

Board::Events FirmwareBoard::Run(Instant now) {
    const Instant end = now - offset_;
    while (!boardBound_.empty() && boardBound_.front().at <= end) {
        core_.RunTo(boardBound_.front().at);
        if (std::abs(core_.Baud() - kBaud) > kBaudTolerance) {
            violations_ << u"the line runs at %1 baud"_s.arg(core_.Baud());
        }
        core_.Receive(boardBound_.front().value);
        boardBound_.pop_front();
    }
    core_.RunTo(end);
    if (core_.HasStopped()) {
        violations_ << u"the firmware has crashed"_s;
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
