// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

struct avr_irq_t;
struct avr_t;

namespace tolvex {

/// An ATmega328P at 16 MHz that runs a HEX file, instruction by instruction, as far as a writer
/// board needs it: port B, the serial line, timer 1 as a clock output. The one file that knows
/// libsimavr.
class AvrCore {
  public:
    using Instant = std::chrono::nanoseconds;  ///< since power came on

    /// Port B as the program has set it, a bit a pin.
    struct PortB {
        std::uint8_t outputs = 0;
        std::uint8_t levels = 0;  ///< of outputs; of inputs whether they are pulled up

        bool operator==(const PortB&) const = default;
    };

    AvrCore();
    ~AvrCore();
    AvrCore(const AvrCore&) = delete;
    AvrCore& operator=(const AvrCore&) = delete;

    /// Nothing when it worked, else the reason. To be called once, before anything else.
    std::optional<QString> Load(const QString& hexFile);

    /// Sets the registers as boot loaders leave them: the UART at another speed and with bytes in
    /// it, timer 1 running at the LED's pace. To be called before the program runs.
    void LeaveAsBootLoader();

    /// Called at the moment at which it happens, from within `RunTo`.
    std::function<void(std::uint8_t byte)> onTransmit;  ///< the byte begins
    std::function<void()> onPortB;                      ///< it or the clock output has changed

    void RunTo(Instant instant);
    Instant Now() const;
    PortB Port() const { return port_; }
    /// What timer 1 puts on D9; 0 = it rests.
    double ClockOutput() const { return clockOutput_; }
    /// How fast the program has set the line.
    double Baud() const;
    /// Whether it has set 8 data bits, no parity and 1 stop bit.
    bool FrameIs8N1() const;
    /// A byte begins on the line to the program; a damaged one has no stop bit.
    void Receive(std::uint8_t byte, bool damaged = false);
    /// The level of an input pin. To be told again after every change of the port.
    void SetInput(int pin, bool level);
    /// Another end than the power's: the program crashed or fell asleep for ever.
    bool HasStopped() const;
    /// Puts an endless loop in the program's way.
    void Hang();

  private:
    static void Transmitted(avr_irq_t* irq, std::uint32_t byte, void* core);
    static void PortWritten(avr_t* avr, std::uint16_t address, std::uint8_t value, void* core);
    static void TimerWritten(avr_t* avr, std::uint16_t address, std::uint8_t value, void* core);
    void Connect();
    void NoticePort();

    avr_t* avr_ = nullptr;
    PortB port_;
    double clockOutput_ = 0;
};

}  // namespace tolvex
