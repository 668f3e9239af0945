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

struct SerialConnectionTest : ::testing::Test {
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
    const PortSettings& line = port.settings;
    EXPECT_TRUE(line.number == 7 && line.baud == 19200 && line.rts);
    EXPECT_EQ(port.InputCount(), 0);
}

TEST_F(SerialConnectionTest, CollectsAReplyThatComesInPieces) {
    port.input = "late";  // arrived before the command: no reply
    Arrives(10ms, "1");
    Arrives(20ms, "2");
    Arrives(30ms, "34");
    EXPECT_TRUE(Ask(3));
    EXPECT_EQ(connection.RxBuffer(), "1234");  // whole, also what is beyond the need
    EXPECT_EQ(clock.Now(), 30ms);
    const int yields = clock.Yields();
    EXPECT_TRUE(Ask(0));
    EXPECT_EQ(clock.Yields(), yields) << "a complete reply costs none";
}

TEST_F(SerialConnectionTest, ATimeOutKeepsTheOldReplyAndThePortOpen) {
    Arrives(1ms, "A");
    ASSERT_TRUE(Ask(1));
    const auto start = clock.Now();
    const int yields = clock.Yields();
    clock.OnYield([this, yields] {
        if (clock.Yields() == yields + 1) {
            port.input += "B";  // in the yield in which the deadline passes: too late
        }
    });
    EXPECT_FALSE(Ask(1, 2s));
    EXPECT_GT(clock.Now() - start, 2s);
    EXPECT_LT(clock.Now() - start, 2s + 1ms);
    EXPECT_EQ(connection.RxBuffer(), "A");
    EXPECT_TRUE(port.open);
}

TEST_F(SerialConnectionTest, ABrokenPortAndTheShutdownEndEveryWaitAtOnce) {
    clock.At(40ms, [this] { port.open = false; });
    EXPECT_FALSE(Ask(1));
    EXPECT_FALSE(Ask(1));  // and so does a closed one, without any wait
    EXPECT_EQ(clock.Now(), 40ms);
    port.open = true;
    clock.At(80ms, [this] { clock.End(); });
    EXPECT_FALSE(Ask(1));
    connection.WaitSeconds(1);
    EXPECT_EQ(clock.Now(), 80ms);
    port.open = false;
    EXPECT_FALSE(connection.OpenPort());
}

TEST_F(SerialConnectionTest, ArgumentsGoOutInWritesOfTheirOwnAfterThePause) {
    const QByteArray arguments[] = {"\x12", "\x34"};
    Arrives(150ms, "\r");
    EXPECT_TRUE(connection.Exchange({'A', arguments, 0.1, 1, 5s}));
    EXPECT_EQ(port.writes, (QList<QByteArray>{"A", "\x12", "\x34"}));
    const auto start = clock.Now();
    connection.WaitSeconds(0);
    EXPECT_EQ(clock.Now(), start);
    connection.WaitSeconds(0.1);
    EXPECT_GE(clock.Now() - start, 100ms);
    EXPECT_LT(clock.Now() - start, 101ms);
}

}  // namespace
}  // namespace tolvex
