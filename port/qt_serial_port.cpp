// SPDX-License-Identifier: MIT
#include "port/qt_serial_port.h"

#include <QDir>
#include <QFileInfo>
#include <QSerialPort>
#include <QTimer>
#include <algorithm>

#include "base/text.h"
#include "port/serial_device.h"

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// Bytes; far more than the longest reply. A device that is no writer may send without end.
constexpr qsizetype kInputLimit = 4096;

/// A board that was reset by the opening of the port runs its boot loader that long. With the reply
/// it still is within the two-second time-out of the first command.
constexpr std::chrono::milliseconds kBoardStart{1800};

/// Whether the line is lost. Other errors are refused requests on a line that works, such as the
/// modem lines of a pseudo-terminal.
bool IsFatal(QSerialPort::SerialPortError error, const QSerialPort& port) {
    switch (error) {
        case QSerialPort::NoError:
            return false;
        case QSerialPort::ResourceError:
        case QSerialPort::ReadError:
        case QSerialPort::WriteError:
        case QSerialPort::DeviceNotFoundError:
        case QSerialPort::NotOpenError:
            return true;
        default:
            return HasHungUp(port.handle());
    }
}

/// In the program's own words: Qt's are the system's, in English.
QString Reason(QSerialPort::SerialPortError error) {
    switch (error) {
        case QSerialPort::DeviceNotFoundError:
            return Text::tr("見つかりません");
        case QSerialPort::PermissionError:
            return Text::tr("使用中か、使う権限がありません");
        default:
            return Text::tr("シリアルポートとして使えません");
    }
}

/// Qt can't remove a lock file that a killed program of another user, mostly root, has left. The
/// file is named after the port, so Qt does not find it under another name of the same device; the
/// locks on the device itself still hold.
bool OpenPastStaleLockFile(QSerialPort& port) {
    const QString name = port.portName();
    if (port.error() != QSerialPort::PermissionError || !FindStaleLockFile(name)) {
        return false;
    }
    const QFileInfo device(u"/dev"_s, name);
    port.setPortName(device.path() + u"/./"_s + device.fileName());
    return port.open(QIODevice::ReadWrite);
}

}  // namespace

QtSerialPort::QtSerialPort(const ComPorts& ports)
    : ports_(ports), port_(std::make_unique<QSerialPort>()) {
    QObject::connect(port_.get(), &QSerialPort::errorOccurred, port_.get(),
                     [this](QSerialPort::SerialPortError error) { NoticeError(error); });
    QObject::connect(port_.get(), &QSerialPort::readyRead, port_.get(), [this] { FetchInput(); });
}

QtSerialPort::~QtSerialPort() {
    QtSerialPort::Close();
}

void QtSerialPort::ApplySettings() {
    port_->setPortName(ports_.DevicePath(number_));
    port_->setBaudRate(QSerialPort::Baud19200);
    port_->setParity(QSerialPort::NoParity);
    port_->setDataBits(QSerialPort::Data8);
    port_->setStopBits(QSerialPort::OneStop);
    port_->setFlowControl(QSerialPort::NoFlowControl);
}

bool QtSerialPort::Open() {
    Close();
    ApplySettings();
    busy_ = false;
    if (!port_->open(QIODevice::ReadWrite) && !OpenPastStaleLockFile(*port_)) {
        lastError_ = Reason(port_->error());
        // Qt's word for a busy device, for a lock file, and for a device without permission.
        busy_ = port_->error() == QSerialPort::PermissionError;
        return false;
    }
    if (!LockDevice(port_->handle())) {
        lastError_ = Text::tr("ほかのプログラムが使っています");
        busy_ = true;
        port_->close();
        return false;
    }
    port_->setRequestToSend(true);  // a pseudo-terminal has no such line and refuses
    port_->clear(QSerialPort::Input);
    PrepareDevice();
    open_ = true;
    return true;
}

/// What the handle is asked for beyond Qt.
void QtSerialPort::PrepareDevice() {
    const DeviceHandle handle = port_->handle();
    if (ClearHupcl(handle)) {
        boardStarted_.setRemainingTime(kBoardStart, Qt::PreciseTimer);
    }
    lowLatencyByUs_ = SwitchLowLatency(handle, true);
    hangUp_ = WatchForHangUp(handle, [this] {
        if (open_ && HasHungUp(port_->handle())) {
            LoseLine();
        }
    });
}

void QtSerialPort::Close() {
    open_ = false;
    input_.clear();
    held_.clear();
    hangUp_.reset();
    if (port_->isOpen()) {
        if (lowLatencyByUs_) {
            SwitchLowLatency(port_->handle(), false);
        }
        CloseWithDtrUp(*port_);
    }
}

void QtSerialPort::FetchInput() {
    const QByteArray bytes = port_->readAll();
    if (open_) {
        input_ += bytes.first(std::min(bytes.size(), kInputLimit - input_.size()));
    }
}

void QtSerialPort::NoticeError(int error) {
    if (open_ && IsFatal(static_cast<QSerialPort::SerialPortError>(error), *port_)) {
        LoseLine();
    }
}

/// Called from signals of the notifiers that closing deletes. So the port counts as closed from
/// here on, and the event loop closes the device itself. That can't wait until somebody calls
/// `Close`: a hung-up device wakes the event loop without pause.
void QtSerialPort::LoseLine() {
    lastError_ = Text::tr("接続が切れました");
    open_ = false;
    input_.clear();
    const auto closeUnlessReopened = [this] {
        if (!open_) {
            Close();
        }
    };
    QMetaObject::invokeMethod(port_.get(), closeUnlessReopened, Qt::QueuedConnection);
}

void QtSerialPort::DiscardInput() {
    input_.clear();
    // Mostly there is none, and asking is much quicker than to flush.
    if (open_ && HasInput(port_->handle())) {
        port_->clear(QSerialPort::Input);
    }
}

bool QtSerialPort::Write(QByteArrayView bytes) {
    if (open_ && HasHungUp(port_->handle())) {
        LoseLine();  // no yield has noticed it yet
    }
    if (!open_ || boardStarted_.hasExpired()) {
        return Send(bytes);
    }
    if (held_.isEmpty()) {
        QTimer::singleShot(boardStarted_.remainingTime() + 1, Qt::PreciseTimer, port_.get(),
                           [this] { SendHeld(); });
    }
    held_ += bytes;
    return true;
}

bool QtSerialPort::Send(QByteArrayView bytes) {
    if (!open_) {
        return false;
    }
    // Qt puts bytes into a buffer and wakes the event loop twice before it has seen that nothing is
    // left in it.
    const bool atOnce = port_->bytesToWrite() == 0;
    const QByteArrayView left =
        bytes.sliced(atOnce ? WriteAtOnce(port_->handle(), bytes) : qsizetype{0});
    if (!left.isEmpty()) {
        if (port_->write(left.data(), left.size()) != left.size()) {
            return false;
        }
        port_->flush();  // write() alone keeps the bytes until the event loop runs
    }
    return open_;
}

void QtSerialPort::SendHeld() {
    Send(std::exchange(held_, {}));
}

}  // namespace tolvex
