// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace tolvex {

/// COM1 to COM20.
inline constexpr int kComPortCount = 20;

/// The line as the writer board wants it: "19200,n,8,1", no flow control, RTS on while open. What
/// no caller ever varies (parity, bits, flow control) is the port's own business.
struct PortSettings {
    int number = 1;  ///< 1 to 20, meaning COM1 to COM20
    int baud = 19200;
    bool rts = true;
};

/// One serial port. Nothing blocks; failures are return values. A port whose far end goes away
/// (adapter pulled out) closes itself, so `IsOpen()` turns false under the caller.
class SerialPort {
  public:
    virtual ~SerialPort() = default;

    /// Takes effect at the next `Open()`.
    virtual void Configure(const PortSettings& settings) = 0;
    /// The configured number, also while the port is closed.
    virtual int PortNumber() const = 0;

    /// False when the port is missing, busy or forbidden; the port is then closed.
    virtual bool Open() = 0;
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;

    /// Received bytes waiting; 0 while closed.
    virtual int InputCount() const = 0;
    /// Empties the receive buffer; allowed while closed.
    virtual void DiscardInput() = 0;
    /// Sends the bytes as they are, in order. False when the port is closed or broke.
    virtual bool Write(QByteArrayView bytes) = 0;
    /// Every waiting byte, removed from the receive buffer.
    virtual QByteArray ReadAll() = 0;
};

}  // namespace tolvex
