// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

#include "base/event_clock.h"
#include "base/serial_port.h"

namespace tolvex::bench {

/// Any port, with what went over it written to a file in the format of `tolvex-cli --trace`. An
/// empty path records nothing. Port and clock are not owned.
class RecordingPort : public SerialPort {
  public:
    RecordingPort(SerialPort& port, const EventClock& clock, const QString& path);

    void Configure(const PortSettings& settings) override { port_.Configure(settings); }
    int PortNumber() const override { return port_.PortNumber(); }
    bool Open() override { return port_.Open(); }
    void Close() override;
    bool IsOpen() const override { return port_.IsOpen(); }
    int InputCount() const override { return port_.InputCount(); }
    void DiscardInput() override { port_.DiscardInput(); }
    bool Write(QByteArrayView bytes) override;
    QByteArray ReadAll() override;

  private:
    void Record(char direction, QByteArrayView bytes);

    SerialPort& port_;
    const EventClock& clock_;
    QFile file_;
};

}  // namespace tolvex::bench
