// SPDX-License-Identifier: MIT
#include "link/serial_connection.h"

#include <gtest/gtest.h>

#include <QList>

#include "tests/support/virtual_clock.h"

namespace tolvex {
namespace {

using namespace std::chrono_literals;

/// A port whose far end is the test: bytes come when the test says so.
class WirePort : public SerialPort {
  public:
    PortSettings settings;
    QByteArray input;
    QList<QByteArray> writes;
    bool open = true;

    void Configure(const PortSettings& configured) override { settings = configured; }
    int PortNumber() const override { return settings.number; }
    bool Open() override { return open = true; }
    void Close() override { open = false; }
    bool IsOpen() const override { return open; }
    int InputCount() const override { return static_cast<int>(input.size()); }
    void DiscardInput() override { input.clear(); }
    bool Write(QByteArrayView bytes) override {
        writes << bytes.toByteArray();
        return open;
    }
    QByteArray ReadAll() override { return std::exchange(input, {}); }
};

class SerialConnectionTest : public ::testing::Test {
  protected:
    void Arrives(std::chrono::milliseconds when, const QByteArray& bytes) {
        clock.At(when, [this, bytes] { port.input += bytes; });
    }
    bool Ask(int need, std::chrono::seconds timeOut = 5s) {
        return connection.Exchange({.letter = 'R', .need = need, .timeOut = timeOut});
    }

    WirePort port;
    testing::VirtualClock clock;
    SerialConnection connection{port, clock};
};

TEST_F(SerialConnectionTest, ConfiguresTheLineAndDropsWhatWaited) {
    port.input = "old";
    connection.ConfigurePort(7);
    EXPECT_EQ(port.settings.number, 7);
    EXPECT_EQ(port.settings.baud, 19200);
    EXPECT_EQ(port.settings.parity, 'n');
    EXPECT_EQ(port.settings.dataBits, 8);
    EXPECT_EQ(port.settings.stopBits, 1);
    EXPECT_TRUE(port.settings.rts);
    EXPECT_EQ(port.InputCount(), 0);
}

TEST_F(SerialConnectionTest, CollectsAReplyThatComesInPieces) {
    Arrives(10ms, "1");
    Arrives(20ms, "2");
    Arrives(30ms, "34");
    EXPECT_TRUE(Ask(3));
    EXPECT_EQ(connection.RxBuffer(), "1234");  // whole, also what is beyond the need
    EXPECT_EQ(clock.Now(), 30ms);
}

TEST_F(SerialConnectionTest, ACompleteReplyCostsNoYield) {
    EXPECT_TRUE(Ask(0));
    EXPECT_EQ(clock.Yields(), 0);
}

TEST_F(SerialConnectionTest, WhatArrivedBeforeTheCommandIsNoReply) {
    port.input = "late";
    EXPECT_FALSE(Ask(1));
    EXPECT_TRUE(connection.RxBuffer().isEmpty());
}

TEST_F(SerialConnectionTest, ATimeOutKeepsTheOldReplyAndThePortOpen) {
    Arrives(1ms, "A");
    ASSERT_TRUE(Ask(1));
    const auto start = clock.Now();
    EXPECT_FALSE(Ask(1, 2s));
    EXPECT_GT(clock.Now() - start, 2s);
    EXPECT_LT(clock.Now() - start, 2s + 1ms);
    EXPECT_EQ(connection.RxBuffer(), "A");
    EXPECT_TRUE(port.open);
}

TEST_F(SerialConnectionTest, BytesOfTheYieldInWhichTheDeadlinePassesComeTooLate) {
    clock.OnYield([this] {
        if (clock.Yields() == 1) {
            port.input += "A";  // there, but looked at only if the deadline has not passed
        }
    });
    EXPECT_FALSE(Ask(1));
}

TEST_F(SerialConnectionTest, ABrokenPortEndsTheWaitAtOnce) {
    clock.At(40ms, [this] { port.open = false; });
    EXPECT_FALSE(Ask(1));
    EXPECT_EQ(clock.Now(), 40ms);
    EXPECT_FALSE(Ask(1));  // and so does a closed one, without any wait
    EXPECT_EQ(clock.Now(), 40ms);
}

TEST_F(SerialConnectionTest, TheShutdownEndsEveryWait) {
    clock.At(40ms, [this] { clock.End(); });
    EXPECT_FALSE(Ask(1));
    connection.WaitSeconds(1);
    EXPECT_EQ(clock.Now(), 40ms);
    port.open = false;
    EXPECT_FALSE(connection.OpenPort());
}

TEST_F(SerialConnectionTest, ArgumentsGoOutInWritesOfTheirOwnAfterThePause) {
    const QByteArray arguments[] = {"\x12", "\x34"};
    Arrives(150ms, "\r");
    EXPECT_TRUE(connection.Exchange({'A', arguments, 0.1, 1, 5s}));
    EXPECT_EQ(port.writes, (QList<QByteArray>{"A", "\x12", "\x34"}));
    EXPECT_GE(clock.Now(), 100ms);
}

TEST_F(SerialConnectionTest, WaitsAtLeastTheTimeAndNothingForZero) {
    connection.WaitSeconds(0);
    EXPECT_EQ(clock.Yields(), 0);
    connection.WaitSeconds(0.1);
    EXPECT_GE(clock.Now(), 100ms);
    EXPECT_LT(clock.Now(), 101ms);
}

}  // namespace
}  // namespace tolvex
