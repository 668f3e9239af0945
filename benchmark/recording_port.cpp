// SPDX-License-Identifier: MIT
#include "benchmark/recording_port.h"

namespace tolvex::bench {

RecordingPort::RecordingPort(SerialPort& port, const EventClock& clock, const QString& path)
    : port_(port), clock_(clock), file_(path) {
    if (!path.isEmpty() && !file_.open(QIODevice::WriteOnly)) {
        qFatal("can't write %s", qPrintable(path));
    }
}

bool RecordingPort::Write(QByteArrayView bytes) {
    Record('>', bytes);
    return port_.Write(bytes);
}

QByteArray RecordingPort::ReadAll() {
    const QByteArray bytes = port_.ReadAll();
    Record('<', bytes);
    return bytes;
}

void RecordingPort::Close() {
    if (file_.isOpen() && port_.IsOpen()) {
        file_.write(QByteArray::number(qlonglong{clock_.Now().count()}) + " close\n");
    }
    port_.Close();
}

void RecordingPort::Record(char direction, QByteArrayView bytes) {
    if (file_.isOpen() && !bytes.isEmpty()) {
        file_.write(QByteArray::number(qlonglong{clock_.Now().count()}) + ' ' + direction + ' ' +
                    bytes.toByteArray().toHex(' ') + '\n');
    }
}

}  // namespace tolvex::bench
