// SPDX-License-Identifier: MIT
#include "platform/low_latency.h"

#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <linux/serial.h>
#include <sys/ioctl.h>
#endif

namespace tolvex {

#ifdef Q_OS_LINUX

namespace {

constexpr int kLowLatency = static_cast<int>(ASYNC_LOW_LATENCY);

}  // namespace

void LowLatency::Enter(int handle) {
    serial_struct serial{};
    changed_ = false;
    if (::ioctl(handle, TIOCGSERIAL, &serial) == 0 && (serial.flags & kLowLatency) == 0) {
        serial.flags |= kLowLatency;
        changed_ = ::ioctl(handle, TIOCSSERIAL, &serial) == 0;
    }
}

void LowLatency::PutBack(int handle) {
    serial_struct serial{};
    if (changed_ && ::ioctl(handle, TIOCGSERIAL, &serial) == 0) {
        serial.flags &= ~kLowLatency;
        ::ioctl(handle, TIOCSSERIAL, &serial);
    }
    changed_ = false;
}

#else

void LowLatency::Enter(int) {}
void LowLatency::PutBack(int) {}

#endif

}  // namespace tolvex
