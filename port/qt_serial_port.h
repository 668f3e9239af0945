// SPDX-License-Identifier: MIT
#pragma once

#include <QDeadlineTimer>
#include <QString>
#include <memory>

#include "base/serial_port.h"
#include "port/com_ports.h"

class QObject;
class QSerialPort;

namespace tolvex {

/// A serial port of this machine. The event loop fetches received bytes, so `InputCount()` grows
/// during a yield only. Written bytes leave at once, except after an opening that has reset the
/// board: then they leave when the board has started. Of the bytes that nobody reads it keeps the
/// first 4096.
class QtSerialPort : public SerialPort {
  public:
    /// `ports` must outlive the port; it is asked at every `Open()`.
    explicit QtSerialPort(const ComPorts& ports);
    ~QtSerialPort() override;

    void Configure(int number) override { number_ = number; }
    int PortNumber() const override { return number_; }

    bool Open() override;
    void Close() override;
    bool IsOpen() const override { return open_; }

    int InputCount() const override { return static_cast<int>(input_.size()); }
    void DiscardInput() override;
    bool Write(QByteArrayView bytes) override;
    QByteArray ReadAll() override { return std::exchange(input_, {}); }

    /// Why opening failed, or the line was lost, without a full stop. Empty before any failure.
    QString LastError() const { return lastError_; }
    /// The last opening failed because another program has the device or its lock.
    bool IsBusy() const { return busy_; }

  private:
    void ApplySettings();
    void FetchInput();
    void PrepareDevice();
    bool Send(QByteArrayView bytes);
    void SendHeld();
    void NoticeError(int error);
    void LoseLine();

    const ComPorts& ports_;
    int number_ = 1;
    std::unique_ptr<QSerialPort> port_;
    std::unique_ptr<QObject> hangUp_;  ///< watches for it while the port is open
    bool lowLatencyByUs_ = false;      ///< the driver was in its usual mode before
    QDeadlineTimer boardStarted_;  ///< expired = no need to wait; goes on while the port is closed
    QByteArray held_;              ///< written before that, to be sent then
    QByteArray input_;
    bool open_ = false;  ///< false as soon as the line is lost; the device is closed a bit later
    QString lastError_;
    bool busy_ = false;
};

}  // namespace tolvex
