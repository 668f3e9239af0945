// SPDX-License-Identifier: MIT
#include "platform/qt_serial_port.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <thread>

#include "platform/event_loop_clock.h"
#include "tests/platform/pseudo_terminal.h"

namespace tolvex {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

class QtSerialPortTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_FALSE(line_.Path().isEmpty());
        ASSERT_TRUE(QDir(config_.path()).mkdir(u"ports"_s));
        ASSERT_TRUE(QFile::link(line_.Path(), config_.filePath(u"ports/com3"_s)));
        ASSERT_TRUE(QFile::link(u"gone"_s, config_.filePath(u"ports/com4"_s)));
        port_.Configure({.number = 3});
    }

    /// Waits as an exchange does; false after a second.
    bool WaitForInput(int need) {
        const EventClock::Instant deadline = clock_.Now() + 1s;
        while (port_.InputCount() < need && clock_.Now() < deadline) {
            clock_.Yield(deadline);
        }
        return port_.InputCount() >= need;
    }

    QTemporaryDir config_;
    testing::PseudoTerminal line_;
    ComPorts ports_{config_.path()};
    EventLoopClock clock_;
    QtSerialPort port_{ports_};
};

TEST_F(QtSerialPortTest, EveryByteValuePassesBothWaysUnchanged) {
    QByteArray all;
    for (int value = 0; value < 256; ++value) {
        all.append(static_cast<char>(value));
    }
    ASSERT_TRUE(port_.Open());
    EXPECT_EQ(port_.InputCount(), 0);
    ASSERT_TRUE(port_.Write(all));
    EXPECT_EQ(line_.Receive(), all);  // before any yield
    ASSERT_TRUE(line_.Send(all));
    ASSERT_TRUE(WaitForInput(256));
    EXPECT_EQ(port_.ReadAll(), all);
    EXPECT_EQ(port_.InputCount(), 0);
}

TEST_F(QtSerialPortTest, TheLineIsSetTo19200n81WithoutFlowControl) {
    ASSERT_TRUE(port_.Open());
    const termios mode = line_.Mode();
    EXPECT_EQ(::cfgetospeed(&mode), static_cast<speed_t>(B19200));
    EXPECT_EQ(mode.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), static_cast<tcflag_t>(CS8));
    EXPECT_EQ(mode.c_iflag & (IXON | IXOFF | ICRNL), 0u);
    EXPECT_EQ(mode.c_lflag & (ECHO | ICANON), 0u);
}

TEST_F(QtSerialPortTest, DiscardDropsWhatWasReadAndWhatTheSystemStillHolds) {
    ASSERT_TRUE(port_.Open());
    ASSERT_TRUE(line_.Send("late"));
    ASSERT_TRUE(WaitForInput(4));
    ASSERT_TRUE(line_.Send("later"));
    port_.DiscardInput();
    EXPECT_EQ(port_.InputCount(), 0);
    ASSERT_TRUE(line_.Send("\r"));
    ASSERT_TRUE(WaitForInput(1));
    EXPECT_EQ(port_.ReadAll(), "\r");
}

TEST_F(QtSerialPortTest, BytesEndARestBeforeItsDeadline) {
    ASSERT_TRUE(port_.Open());
    std::thread writer([this] {
        std::this_thread::sleep_for(5ms);  // the far end takes its time
        line_.Send("\r");
    });
    const EventClock::Instant begin = clock_.Now();
    int passes = 0;
    for (; port_.InputCount() < 1 && clock_.Now() < begin + 2s; ++passes) {
        clock_.Yield(begin + 2s);
    }
    const EventClock::Instant took = clock_.Now() - begin;
    writer.join();
    EXPECT_EQ(port_.ReadAll(), "\r");
    EXPECT_LT(took, 500ms);
    EXPECT_LT(passes, 20);
}

TEST_F(QtSerialPortTest, HangUpClosesThePortInOneYieldAndTheLoopRestsAgain) {
    ASSERT_TRUE(port_.Open());
    line_.HangUp();
    clock_.Yield(clock_.Now() + 1s);
    EXPECT_FALSE(port_.IsOpen());
    EXPECT_EQ(port_.InputCount(), 0);
    EXPECT_FALSE(port_.Write("S"));
    EXPECT_TRUE(port_.LastError().contains(u"ports/com3"_s)) << port_.LastError().toStdString();

    const EventClock::Instant deadline = clock_.Now() + 50ms;
    int passes = 0;
    for (; clock_.Now() < deadline; ++passes) {
        clock_.Yield(deadline);
    }
    EXPECT_LT(passes, 20);
    EXPECT_FALSE(port_.Open());
}

TEST_F(QtSerialPortTest, WritingAfterAHangUpFailsAndClosesWithoutAYield) {
    ASSERT_TRUE(port_.Open());
    line_.HangUp();
    EXPECT_FALSE(port_.Write("S"));
    EXPECT_FALSE(port_.IsOpen());
}

TEST_F(QtSerialPortTest, APortThatCannotBeOpenedStaysClosed) {
    QtSerialPort holder(ports_);
    holder.Configure({.number = 3});
    ASSERT_TRUE(holder.Open());
    const struct {
        const char* what;
        int number;
    } cases[] = {{"held by another", 3}, {"dangling link", 4}, {"no such number", 21}};
    for (const auto& c : cases) {
        port_.Configure({.number = c.number});
        EXPECT_EQ(port_.PortNumber(), c.number);
        EXPECT_FALSE(port_.Open()) << c.what;
        EXPECT_FALSE(port_.IsOpen()) << c.what;
        EXPECT_FALSE(port_.LastError().isEmpty()) << c.what;
        EXPECT_FALSE(port_.Write("S")) << c.what;
        port_.DiscardInput();
        EXPECT_TRUE(port_.ReadAll().isEmpty()) << c.what;
    }
    holder.Close();
    port_.Configure({.number = 3});
    EXPECT_TRUE(port_.Open()) << "free again";
}

}  // namespace
}  // namespace tolvex
