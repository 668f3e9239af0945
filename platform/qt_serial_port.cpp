// SPDX-License-Identifier: MIT
#include "platform/qt_serial_port.h"

#include <QSerialPort>

#ifdef Q_OS_UNIX
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#endif
#ifdef Q_OS_LINUX
#include <linux/serial.h>
#endif

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

/// Exclusive mode (Qt asks the driver for it) binds neither a privileged process nor one that
/// opened the device before. The advisory lock that terminal programs take as well closes the gap.
bool LockDevice([[maybe_unused]] const QSerialPort& port) {
#ifdef Q_OS_UNIX
    return ::flock(port.handle(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
#else
    return true;
#endif
}

/// FTDI adapters hold received bytes back for 16 ms otherwise, which makes each of the many
/// one-byte replies that late. Drivers without the mode refuse; nothing is lost then.
void AskForLowLatency([[maybe_unused]] const QSerialPort& port) {
#ifdef Q_OS_LINUX
    serial_struct serial{};
    if (::ioctl(port.handle(), TIOCGSERIAL, &serial) == 0) {
        serial.flags |= ASYNC_LOW_LATENCY;
        ::ioctl(port.handle(), TIOCSSERIAL, &serial);
    }
#endif
}

bool HungUp([[maybe_unused]] const QSerialPort& port) {
#ifdef Q_OS_UNIX
    pollfd device{port.handle(), 0, 0};
    return ::poll(&device, 1, 0) == 1 && (device.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
#else
    return false;
#endif
}

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
            return HungUp(port);
    }
}

}  // namespace

QtSerialPort::QtSerialPort(const ComPorts& ports)
    : ports_(ports), port_(std::make_unique<QSerialPort>()) {
    QObject::connect(port_.get(), &QSerialPort::errorOccurred, port_.get(),
                     [this](QSerialPort::SerialPortError error) { NoticeError(error); });
}

QtSerialPort::~QtSerialPort() {
    Close();
}

void QtSerialPort::ApplySettings() {
    port_->setPortName(ports_.DevicePath(settings_.number));
    port_->setBaudRate(settings_.baud);
    port_->setParity(QSerialPort::NoParity);
    port_->setDataBits(QSerialPort::Data8);
    port_->setStopBits(QSerialPort::OneStop);
    port_->setFlowControl(QSerialPort::NoFlowControl);
}

bool QtSerialPort::Open() {
    Close();
    ApplySettings();
    if (!port_->open(QIODevice::ReadWrite)) {
        Fail(port_->errorString());
        return false;
    }
    if (!LockDevice(*port_)) {
        Fail(u"another program holds the device"_s);
        port_->close();
        return false;
    }
    AskForLowLatency(*port_);
    port_->setRequestToSend(settings_.rts);  // a pseudo-terminal has no such line and refuses
    port_->clear(QSerialPort::Input);
    open_ = true;
    return true;
}

void QtSerialPort::Close() {
    open_ = false;
    if (port_->isOpen()) {
        port_->close();
    }
}

void QtSerialPort::Fail(const QString& reason) {
    lastError_ = u"%1: %2"_s.arg(port_->portName(), reason);
}

/// Runs inside Qt's signal, on top of the notifier that close() deletes: so the port counts as
/// closed from here on, and the device itself follows as soon as the event loop is back in hand.
/// That can't wait for the next user: a hung-up device reports without pause until it is closed.
void QtSerialPort::NoticeError(int error) {
    if (!open_ || !IsFatal(static_cast<QSerialPort::SerialPortError>(error), *port_)) {
        return;
    }
    Fail(port_->errorString());
    open_ = false;
    const auto closeUnlessReopened = [this] {
        if (!open_) {
            Close();
        }
    };
    QMetaObject::invokeMethod(port_.get(), closeUnlessReopened, Qt::QueuedConnection);
}

int QtSerialPort::InputCount() const {
    return open_ ? static_cast<int>(port_->bytesAvailable()) : 0;
}

void QtSerialPort::DiscardInput() {
    if (open_) {
        port_->clear(QSerialPort::Input);
    }
}

bool QtSerialPort::Write(QByteArrayView bytes) {
    if (!open_ || port_->write(bytes.data(), bytes.size()) != bytes.size()) {
        return false;
    }
    port_->flush();  // write() alone keeps the bytes until the event loop runs
    return open_;
}

QByteArray QtSerialPort::ReadAll() {
    return open_ ? port_->readAll() : QByteArray();
}

}  // namespace tolvex
