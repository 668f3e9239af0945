// SPDX-License-Identifier: MIT
#include "cli/trace_file.h"

namespace tolvex {

bool TraceFile::Open(const QString& path) {
    file_.setFileName(path);
    start_ = clock_.Now();
    return file_.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

void TraceFile::Opened(int number, bool success) {
    Write((success ? "open COM" : "refused COM") + QByteArray::number(number));
}

void TraceFile::Write(const QByteArray& event, QByteArrayView bytes) {
    const auto time = static_cast<qlonglong>((clock_.Now() - start_).count());
    file_.write(QByteArray::number(time) + ' ' + event + bytes.toByteArray().toHex(' ').toUpper() +
                '\n');
}

}  // namespace tolvex
