// SPDX-License-Identifier: MIT
#include "benchmark/recording_port.h"

namespace tolvex::bench {

RecordingPort::RecordingPort(SerialPort& port, const EventClock& clock, const QString& path)
    : port_(port), trace_(clock) {
    if (!path.isEmpty() && !trace_.Open(path)) {
        qFatal("can't write %s", qPrintable(path));
    }
}

bool RecordingPort::Write(QByteArrayView bytes) {
    trace_.Note("> ", bytes);
    return port_.Write(bytes);
}

QByteArray RecordingPort::ReadAll() {
    const QByteArray bytes = port_.ReadAll();
    if (!bytes.isEmpty()) {
        trace_.Note("< ", bytes);
    }
    return bytes;
}

void RecordingPort::Close() {
    if (port_.IsOpen()) {
        trace_.Note("close");
    }
    port_.Close();
}

}  // namespace tolvex::bench
