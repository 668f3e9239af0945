// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace tolvex {

/// COM1 to COM20.
inline constexpr int kComPortCount = 20;

/// One serial port. Nothing blocks; failures are return values. A port whose far end goes away
/// (adapter pulled out) closes itself, so `IsOpen()` turns false under the caller.
class SerialPort {
  public:
    virtual ~SerialPort() = default;

    /// `number`: 1 to 20, meaning COM1 to COM20. Takes effect at the next `Open()`. The line itself
    /// is always as the writer wants it: "19200,n,8,1", no flow control, RTS on while open.
    virtual void Configure(int number) = 0;
    /// The configured number, also while the port is closed.
    virtual int PortNumber() const = 0;

    /// False when the port is missing, busy or forbidden; the port is then closed.
    virtual bool Open() = 0;
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;

    /// Received bytes waiting; 0 while closed. A port may drop what comes beyond its buffer, which
    /// holds far more than the longest reply, from the end.
    virtual int InputCount() const = 0;
    /// Empties the receive buffer; allowed while closed.
    virtual void DiscardInput() = 0;
    /// Sends the bytes as they are, in order. False when the port is closed or broke.
    virtual bool Write(QByteArrayView bytes) = 0;
    /// Every waiting byte, removed from the receive buffer.
    virtual QByteArray ReadAll() = 0;
};

}  // namespace tolvex
