// SPDX-License-Identifier: MIT
#include "cli/traced_port.h"

#include <utility>

namespace tolvex {

bool TracedPort::TraceTo(const QString& path) {
    file_.setFileName(path);
    start_ = clock_.Now();
    return file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

void TracedPort::Note(const QByteArray& event, QByteArrayView bytes) {
    if (file_.isOpen()) {
        const auto time = static_cast<qlonglong>((clock_.Now() - start_).count());
        const QByteArray line = QByteArray::number(time) + ' ' + event +
                                bytes.toByteArray().toHex(' ').toUpper() + '\n';
        incomplete_ |= file_.write(line) != line.size();
    }
}

bool TracedPort::Open() {
    open_ = port_.Open();
    input_.clear();
    Note((open_ ? "open COM" : "refused COM") + QByteArray::number(port_.PortNumber()));
    return open_;
}

void TracedPort::Close() {
    port_.Close();
    input_.clear();
    if (std::exchange(open_, false)) {
        Note("close");
    }
}

void TracedPort::Fetch() {
    if (const QByteArray bytes = port_.ReadAll(); !bytes.isEmpty()) {
        input_ += bytes;
        Note("< ", bytes);
    }
    if (open_ && !port_.IsOpen()) {
        open_ = false;
        Note("lost");
    }
}

void TracedPort::DiscardInput() {
    Fetch();
    input_.clear();
    port_.DiscardInput();
}

bool TracedPort::Write(QByteArrayView bytes) {
    const bool written = port_.Write(bytes);
    if (written) {
        Note("> ", bytes);
    }
    Fetch();  // a write is what notices some broken lines
    return written;
}

QByteArray TracedPort::ReadAll() {
    Fetch();
    return std::exchange(input_, {});
}

}  // namespace tolvex
