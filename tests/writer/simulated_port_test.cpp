// SPDX-License-Identifier: MIT
#include "tests/support/simulated_port.h"

#include <gtest/gtest.h>

#include "tests/support/fault_port.h"

namespace tolvex::testing {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// A board with an empty socket at the end of a virtual line.
class Line : public ::testing::Test {
  protected:
    explicit Line(int baud = 19200) : port(board, clock, baud) {}

    /// One command as the product sends it: waits until `need` bytes are there or the time is up,
    /// and returns what has come.
    QByteArray Exchange(SerialPort& through, const QByteArray& bytes, int need,
                        VirtualClock::Instant timeOut = 5s) {
        through.DiscardInput();
        through.Write(bytes);
        const auto deadline = clock.Now() + timeOut;
        while (through.InputCount() < need && clock.Now() <= deadline) {
            clock.Yield(deadline);
        }
        return through.ReadAll();
    }

    SimulatedWriter board{nullptr};
    VirtualClock clock;
    SimulatedPort port;
};

class InstantLine : public Line {
  protected:
    InstantLine() : Line(0) {}
};

TEST_F(Line, GivesEveryByteItsTimeBothWays) {
    port.Open();
    // 3 + 1 bytes of ten bits at 19200 baud = 2083.3 us, rounded up to the clock's resolution.
    EXPECT_EQ(Exchange(port, "A\x01\x02", 1), "\r");
    EXPECT_EQ(clock.Now(), 2084us);
    EXPECT_EQ(Exchange(port, "S", 7), "AVR ISP");
    EXPECT_EQ(clock.Now(), 2084us + 4167us);
    EXPECT_EQ(port.Wire(), (QStringList{u"A 01 02"_s, u"S"_s}));
    EXPECT_EQ(port.Replies(), (QStringList{u"0D"_s, u"41 56 52 20 49 53 50"_s}));
}

TEST_F(Line, LetsAReplyArriveInPieces) {
    port.Open();
    port.Write("V");
    QList<int> counts;
    while (port.InputCount() < 2) {
        clock.Yield(clock.Now() + 1s);
        counts << port.InputCount();
    }
    EXPECT_EQ(counts, (QList<int>{0, 1, 2})) << "the letter, then each digit";
}

TEST_F(InstantLine, AnswersWithoutAYield) {
    port.Open();
    EXPECT_EQ(Exchange(port, "V", 2), "39");
    EXPECT_EQ(clock.Yields(), 0);
    EXPECT_EQ(clock.Now(), 0us);
}

TEST_F(Line, KeepsWritesApartAndCallsInOrder) {
    port.RefuseOpen();
    port.DiscardInput();
    port.Configure({.number = 3});
    EXPECT_FALSE(port.Open());
    EXPECT_FALSE(port.Write("P"));
    port.RefuseOpen(false);
    EXPECT_TRUE(port.Open());
    port.Write("T");
    port.Write(QByteArrayView("\x11\0", 2));
    clock.Yield(1s);
    port.Close();
    EXPECT_EQ(port.Calls().join(u", "), u"discard, configure 3, open refused, open, close"_s);
    EXPECT_EQ(port.writes, (QList<QByteArray>{"T", QByteArray("\x11\0", 2)}));
    EXPECT_EQ(port.PortNumber(), 3);
    clock.Yield(clock.Now() + 1s);
    EXPECT_TRUE(port.Wire().isEmpty()) << "closing cut the command off on the wire";
}

TEST_F(Line, DeliversALateReplyToTheNextReader) {
    port.Open();
    board.SetFault(1, FaultKind::Late);
    EXPECT_EQ(Exchange(port, "P", 1), QByteArray());
    EXPECT_GT(clock.Now(), 5s);
    clock.Yield(clock.Now() + 2s);
    EXPECT_EQ(port.InputCount(), 1);
    EXPECT_EQ(Exchange(port, "V", 2), "39") << "emptying the input throws it away";
}

TEST_F(Line, ClosesItselfWhenTheFarEndGoes) {
    port.Open();
    board.SetFault(1, FaultKind::HangUp);
    Exchange(port, "P", 1, 10ms);
    EXPECT_FALSE(port.IsOpen());
    EXPECT_FALSE(port.Write("P"));
    EXPECT_EQ(port.Calls(), (QStringList{u"open"_s, u"hang-up"_s}));
    EXPECT_TRUE(port.Open());
    EXPECT_EQ(Exchange(port, "V", 2), "39");
}

TEST(VirtualClock, GoesToTheNextEventOrJustPastTheDeadline) {
    VirtualClock clock;
    QList<int> seen;
    clock.At(30us, [&] { seen << 30; });
    clock.At(10us, [&] { seen << 10; });
    clock.Yield(20us);
    EXPECT_EQ(clock.Now(), 10us);
    clock.Yield(20us);
    EXPECT_EQ(clock.Now(), 21us);
    clock.OnYield([&] { clock.Yield(40us); });
    clock.Yield(50us);
    EXPECT_EQ(seen, (QList<int>{10, 30})) << "a yield from within a yield serves events too";
    EXPECT_EQ(clock.Now(), 51us);
    EXPECT_EQ(clock.Yields(), 4);
    clock.End();
    clock.Yield(90us);
    EXPECT_TRUE(clock.Ended());
    EXPECT_EQ(clock.Now(), 51us);
}

TEST_F(Line, FaultPortSpoilsTheChosenExchange) {
    struct Case {
        const char* what;
        LineFault fault;
        QByteArray reply;
        bool open;
    };
    const Case cases[] = {
        {"drop", LineFault::Drop, "", true},
        {"shorten", LineFault::Shorten, "9", true},
        {"garble", LineFault::Garble, "\xCC\x39", true},
        {"delay", LineFault::Delay, "39", true},
        {"hang up", LineFault::HangUp, "", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        FaultPort faulty(port, clock);
        faulty.SetFault(2, c.fault);
        faulty.Open();
        EXPECT_EQ(Exchange(faulty, "v", 2), "10");
        const auto before = clock.Now();
        EXPECT_EQ(Exchange(faulty, "V", 2), c.reply);
        EXPECT_EQ(clock.Now() - before > 1s, c.fault != LineFault::Garble);
        EXPECT_EQ(faulty.IsOpen(), c.open);
        faulty.Open();
        EXPECT_EQ(Exchange(faulty, "V", 2), "39") << "the next one is whole";
        EXPECT_EQ(faulty.Met(), (QMap<int, LineFault>{{2, c.fault}}));
    }
}

TEST_F(InstantLine, FaultPortRepeatsItsFaultsForASeed) {
    const auto met = [this](std::uint32_t seed) {
        FaultPort faulty(port, clock);
        faulty.Seed(seed, 4);
        for (int i = 0; i < 200; ++i) {
            if (!faulty.IsOpen()) {
                faulty.Open();
            }
            Exchange(faulty, "y", 1);
        }
        EXPECT_EQ(faulty.Exchanges(), 200);
        return faulty.Met();
    };
    const auto first = met(7);
    EXPECT_EQ(met(7), first);
    EXPECT_NE(met(8), first);
    EXPECT_GT(first.size(), 25);
    EXPECT_LT(first.size(), 75);
}

}  // namespace
}  // namespace tolvex::testing
