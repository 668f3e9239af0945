// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include "base/serial_port.h"

namespace tolvex {

/// Hears what goes over the line.
class WireListener {
  public:
    virtual ~WireListener() = default;
    virtual void Opened(int number, bool success) = 0;
    virtual void Closed() = 0;
    /// The far end went away while the port was open.
    virtual void Lost() = 0;
    /// A command begins; what has come before belongs to an earlier one.
    virtual void Began() = 0;
    virtual void Sent(QByteArrayView bytes) = 0;
    virtual void Received(QByteArrayView bytes) = 0;
};

/// A serial port with listeners, and the place where an operation can be stopped: between two
/// commands, so that what the chip was told is known to the byte.
///
/// A writer that leaves several commands in a row unanswered is given up: the port closes, as if
/// the cable had been pulled, instead of waiting out a time-out for each of thousands of words.
///
/// Stopping means that nothing goes out any more: every command of the operation then fails at
/// once, and the operation unwinds by itself.
class ObservedPort : public SerialPort {
  public:
    /// `port` is borrowed. `stopAsked` is looked at when a command begins.
    ObservedPort(SerialPort& port, std::function<bool()> stopAsked)
        : port_(port), stopAsked_(std::move(stopAsked)) {}

    /// Borrowed.
    void AddListener(WireListener& listener) { listeners_.push_back(&listener); }
    /// The last `Open` failed.
    bool OpenFailed() const { return openFailed_; }
    bool Stopped() const { return stopped_; }
    /// Lets commands through again, whatever is asked: to leave programming mode.
    void Resume();

    void Configure(const PortSettings& settings) override { port_.Configure(settings); }
    int PortNumber() const override { return port_.PortNumber(); }
    bool Open() override;
    void Close() override;
    bool IsOpen() const override;
    int InputCount() const override;
    void DiscardInput() override;
    bool Write(QByteArrayView bytes) override;
    QByteArray ReadAll() override;

  private:
    void Fetch() const;
    void NoticeLoss() const;
    void CountSilence();
    bool MayBegin(char letter);

    SerialPort& port_;
    std::function<bool()> stopAsked_;
    std::vector<WireListener*> listeners_;
    bool openFailed_ = false;
    bool stopped_ = false;
    bool between_ = true;           ///< the next write begins a command
    int unanswered_ = 0;            ///< commands in a row
    mutable bool open_ = false;     ///< as far as the listeners know
    mutable bool answered_ = true;  ///< the command under way has got a byte
    /// Taken off the port as soon as it is seen, so that a listener hears each byte in time;
    /// polling the count does that, hence mutable.
    mutable QByteArray input_;
};

}  // namespace tolvex
