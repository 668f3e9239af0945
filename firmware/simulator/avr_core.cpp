// SPDX-License-Identifier: MIT
#include "firmware/simulator/avr_core.h"

#include <QFile>
#include <cstdarg>
#include <cstdlib>
#include <utility>

extern "C" {
#include <simavr/avr_ioport.h>
#include <simavr/avr_uart.h>
#include <simavr/sim_avr.h>
#include <simavr/sim_hex.h>
}

#include "base/text.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

constexpr std::int64_t kHertz = 16'000'000;
constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;

// Data addresses of the ATmega328P's registers.
enum Register : std::uint16_t {
    kDdrB = 0x24,
    kPortB = 0x25,
    kTccr1A = 0x80,
    kTccr1B = 0x81,
    kTcnt1L = 0x84,
    kTcnt1H = 0x85,
    kOcr1AL = 0x88,
    kOcr1AH = 0x89,
    kUcsr0A = 0xC0,
    kUcsr0B = 0xC1,
    kUcsr0C = 0xC2,
    kUbrr0L = 0xC4,
    kUbrr0H = 0xC5
};

constexpr int kClockPin = 1;
constexpr std::uint8_t kToggleAtMatch = 0x40;       // in TCCR1A
constexpr std::uint8_t kRestartUnprescaled = 0x09;  // in TCCR1B
constexpr std::uint8_t kDoubleSpeed = 0x02;         // in UCSR0A
constexpr std::uint8_t kFrameMask = 0xFE;           // in UCSR0C: mode, parity, stop and data bits
constexpr std::uint8_t kFrame8N1 = 0x06;
constexpr std::uint8_t kNinthBit = 0x04;  // in UCSR0B
constexpr std::uint8_t kJumpToItself[] = {0xFF, 0xCF};

// Where the library would write to the terminal and let the computer sleep.
void Silent(avr_t*, int, const char*, va_list) {}
void NoSleep(avr_t*, avr_cycle_count_t) {}

avr_cycle_count_t Wake(avr_t*, avr_cycle_count_t, void*) {
    return 0;
}

avr_cycle_count_t Cycles(AvrCore::Instant instant) {
    return static_cast<avr_cycle_count_t>(instant.count() * (kHertz / 1'000'000) / 1000);
}

}  // namespace

AvrCore::AvrCore() = default;

AvrCore::~AvrCore() {
    if (avr_) {
        avr_terminate(avr_);
    }
}

std::optional<QString> AvrCore::Load(const QString& hexFile) {
    avr_global_logger_set(Silent);
    std::uint32_t size = 0;
    std::uint32_t start = 0;
    std::uint8_t* code = QFile::exists(hexFile)
                             ? read_ihex_file(QFile::encodeName(hexFile).constData(), &size, &start)
                             : nullptr;
    if (!code) {
        return Text::tr("HEX ファイル %1 がありません").arg(hexFile);
    }
    avr_ = avr_make_mcu_by_name("atmega328p");
    if (!avr_) {
        std::free(code);
        return Text::tr("libsimavr に atmega328p がありません");
    }
    avr_init(avr_);
    avr_->frequency = kHertz;
    avr_->sleep = NoSleep;
    avr_loadcode(avr_, code, size, start);
    std::free(code);
    Connect();
    return std::nullopt;
}

void AvrCore::Connect() {
    std::uint32_t flags = 0;  // neither naps nor prints
    avr_ioctl(avr_, AVR_IOCTL_UART_SET_FLAGS('0'), &flags);
    avr_irq_register_notify(avr_io_getirq(avr_, AVR_IOCTL_UART_GETIRQ('0'), UART_IRQ_OUTPUT),
                            Transmitted, this);
    for (const Register address : {kDdrB, kPortB}) {
        avr_register_io_write(avr_, address, PortWritten, this);  // behind the library's own
    }
    // A timer that toggles a pin two million times a second takes longer than all else together;
    // its registers tell as much.
    for (const Register address : {kTccr1A, kTccr1B, kOcr1AL, kOcr1AH}) {
        avr_->io[AVR_DATA_TO_IO(address)].w = {this, TimerWritten};
    }
}

void AvrCore::Transmitted(avr_irq_t*, std::uint32_t byte, void* core) {
    static_cast<AvrCore*>(core)->onTransmit(static_cast<std::uint8_t>(byte));
}

void AvrCore::PortWritten(avr_t*, std::uint16_t, std::uint8_t, void* core) {
    static_cast<AvrCore*>(core)->NoticePort();
}

void AvrCore::TimerWritten(avr_t* avr, std::uint16_t address, std::uint8_t value, void* core) {
    avr->data[address] = value;
    static_cast<AvrCore*>(core)->NoticePort();
}

void AvrCore::NoticePort() {
    const std::uint8_t* data = avr_->data;
    const PortB port{data[kDdrB], data[kPortB]};
    const bool toggles = (port.outputs >> kClockPin & 1) != 0 && data[kTccr1A] == kToggleAtMatch &&
                         data[kTccr1B] == kRestartUnprescaled;
    const int top = data[kOcr1AH] * 256 + data[kOcr1AL];
    const double clock = toggles ? static_cast<double>(kHertz) / 2 / (top + 1) : 0;
    if (port == port_ && clock == clockOutput_) {
        return;
    }
    port_ = port;
    clockOutput_ = clock;
    onPortB();
}

void AvrCore::RunTo(Instant instant) {
    const avr_cycle_count_t end = Cycles(instant);
    if (end <= avr_->cycle) {
        return;
    }
    // A sleeping processor jumps from event to event, so the end has to be one.
    avr_cycle_timer_register(avr_, end - avr_->cycle, Wake, this);
    while (avr_->cycle < end && !HasStopped()) {
        avr_run(avr_);
        if (avr_->data[kDdrB] != port_.outputs) {
            NoticePort();  // a reset clears the registers without a write
        }
    }
    avr_cycle_timer_cancel(avr_, Wake, this);
}

AvrCore::Instant AvrCore::Now() const {
    return Instant(static_cast<std::int64_t>(avr_->cycle) * (kNanosecondsPerSecond / 1'000'000) /
                   (kHertz / 1'000'000));
}

double AvrCore::Baud() const {
    const std::uint8_t* data = avr_->data;
    const int divisor = data[kUbrr0H] * 256 + data[kUbrr0L] + 1;
    return static_cast<double>(kHertz) / divisor / ((data[kUcsr0A] & kDoubleSpeed) != 0 ? 8 : 16);
}

bool AvrCore::FrameIs8N1() const {
    const std::uint8_t* data = avr_->data;
    return (data[kUcsr0C] & kFrameMask) == kFrame8N1 && (data[kUcsr0B] & kNinthBit) == 0;
}

void AvrCore::Receive(std::uint8_t byte, bool damaged) {
    avr_raise_irq(avr_io_getirq(avr_, AVR_IOCTL_UART_GETIRQ('0'), UART_IRQ_INPUT),
                  damaged ? byte | std::uint32_t{UART_INPUT_FE} : byte);
}

void AvrCore::LeaveAsBootLoader() {
    constexpr std::pair<Register, int> kLeft[] = {{kUcsr0A, kDoubleSpeed}, {kUbrr0L, 16},
                                                  {kUcsr0B, 0x18},         {kTccr1B, 0x05},
                                                  {kTcnt1L, 0xFF},         {kTcnt1H, 0xF0}};
    for (const auto& [address, value] : kLeft) {
        const auto& write = avr_->io[AVR_DATA_TO_IO(address)].w;
        if (write.c) {
            write.c(avr_, address, static_cast<std::uint8_t>(value), write.param);
        } else {
            avr_->data[address] = static_cast<std::uint8_t>(value);
        }
    }
    for (const char byte : {'e', '0', ' '}) {
        Receive(static_cast<std::uint8_t>(byte));
    }
}

void AvrCore::SetInput(int pin, bool level) {
    avr_raise_irq(avr_io_getirq(avr_, AVR_IOCTL_IOPORT_GETIRQ('B'), pin), level ? 1 : 0);
}

bool AvrCore::HasStopped() const {
    return avr_->state != cpu_Running && avr_->state != cpu_Sleeping;
}

void AvrCore::Hang() {
    for (std::uint32_t address = 0; address <= avr_->flashend; ++address) {
        avr_->flash[address] = kJumpToItself[address % 2];
    }
    avr_->state = cpu_Running;
}

}  // namespace tolvex
