// SPDX-License-Identifier: MIT
#include "writer/board.h"

#include <algorithm>

namespace tolvex {

namespace {

constexpr std::int64_t kBitsPerByte = 10;  // start bit, eight data bits, stop bit

}  // namespace

WireLine::WireLine(int baud)
    : byteTime_(baud == 0 ? Instant::zero()
                          : Instant(kBitsPerByte * std::chrono::nanoseconds::period::den / baud)) {}

WireLine::Instant WireLine::Arrival(Instant now) {
    busyUntil_ = std::max(now, busyUntil_) + byteTime_;
    return busyUntil_;
}

}  // namespace tolvex
