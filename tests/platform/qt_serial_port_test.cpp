// SPDX-License-Identifier: MIT
#include "platform/qt_serial_port.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <thread>

#include "platform/event_loop_clock.h"

namespace tolvex {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

/// Port COM3 leads to the far end `line`, a pseudo-terminal; COM4 leads nowhere.
struct QtSerialPortTest : ::testing::Test {
    void SetUp() override {
        ASSERT_TRUE(::grantpt(line) == 0 && ::unlockpt(line) == 0);
        ASSERT_TRUE(QDir(config.path()).mkdir(u"ports"_s));
        const QString terminal = QString::fromLocal8Bit(::ptsname(line));
        ASSERT_TRUE(QFile::link(terminal, config.filePath(u"ports/com3"_s)));
        ASSERT_TRUE(QFile::link(u"gone"_s, config.filePath(u"ports/com4"_s)));
        port.Configure({.number = 3});
        ASSERT_TRUE(port.Open());
    }
    ~QtSerialPortTest() override { ::close(line); }

    void Send(const QByteArray& bytes) const {
        ASSERT_EQ(::write(line, bytes.constData(), size_t(bytes.size())), bytes.size());
    }
    /// Waits as an exchange does; false after a second.
    bool WaitForInput(int need) {
        const EventClock::Instant deadline = clock.Now() + 1s;
        for (passes = 0; port.InputCount() < need && clock.Now() < deadline; ++passes) {
            clock.Yield(deadline);
        }
        return port.InputCount() >= need;
    }

    QTemporaryDir config;
    int line = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    ComPorts ports{config.path()};
    EventLoopClock clock;
    QtSerialPort port{ports};
    int passes = 0;
};

TEST_F(QtSerialPortTest, EveryByteValuePassesBothWaysUnchanged) {
    QByteArray all;
    for (int value = 0; value < 256; ++value) {
        all.append(static_cast<char>(value));
    }
    termios mode{};  // both ends share it
    ::tcgetattr(line, &mode);
    EXPECT_EQ(::cfgetospeed(&mode), static_cast<speed_t>(B19200));
    EXPECT_EQ(mode.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), static_cast<tcflag_t>(CS8));
    ASSERT_TRUE(port.Write(all));
    QByteArray received(300, 0);
    received.resize(::read(line, received.data(), 300));  // before any yield
    EXPECT_EQ(received, all);
    Send(all);
    ASSERT_TRUE(WaitForInput(256));
    EXPECT_EQ(port.ReadAll(), all);

    Send("late");
    ASSERT_TRUE(WaitForInput(4));
    Send("later");  // still in the system's hands
    port.DiscardInput();
    std::thread writer([this] {
        std::this_thread::sleep_for(5ms);  // the far end takes its time
        Send("\r");
    });
    const EventClock::Instant begin = clock.Now();
    EXPECT_TRUE(WaitForInput(1));
    EXPECT_LT(clock.Now() - begin, 500ms) << "bytes end a rest before its deadline";
    EXPECT_LT(passes, 20);
    writer.join();
    EXPECT_EQ(port.ReadAll(), "\r");
}

TEST_F(QtSerialPortTest, HangUpClosesThePortInOneYieldAndTheLoopRestsAgain) {
    ::close(std::exchange(line, -1));
    clock.Yield(clock.Now() + 1s);
    EXPECT_FALSE(port.IsOpen());
    EXPECT_FALSE(port.Write("S"));
    EXPECT_TRUE(port.LastError().contains(u"ports/com3"_s)) << port.LastError().toStdString();
    EXPECT_FALSE(WaitForInput(1));
    EXPECT_LT(passes, 20);
}

TEST_F(QtSerialPortTest, AWriteNoticesAHangUpWithoutAYield) {
    ::close(std::exchange(line, -1));
    EXPECT_FALSE(port.Write("S"));
    EXPECT_FALSE(port.IsOpen());
}

TEST_F(QtSerialPortTest, APortThatCannotBeOpenedStaysClosed) {
    for (const int number : {3, 4, 21}) {  // busy, dangling, none
        QtSerialPort second(ports);
        second.Configure({.number = number});
        EXPECT_FALSE(second.Open()) << number;
        EXPECT_FALSE(second.IsOpen() || second.LastError().isEmpty()) << number;
        EXPECT_FALSE(second.Write("S")) << number;
        second.DiscardInput();
        EXPECT_TRUE(second.ReadAll().isEmpty()) << number;
    }
    port.Close();
    EXPECT_TRUE(port.Open()) << "free again";
}

}  // namespace
}  // namespace tolvex
