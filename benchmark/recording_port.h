// SPDX-License-Identifier: MIT
#pragma once

#include "base/serial_port.h"
#include "cli/trace_file.h"

namespace tolvex::bench {

/// Any port, with what went over it written to a file as `tolvex-cli --trace` does. An empty path
/// records nothing. Port and clock are not owned.
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
    SerialPort& port_;
    TraceFile trace_;
};

}  // namespace tolvex::bench
