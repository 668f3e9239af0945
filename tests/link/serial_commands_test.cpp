// SPDX-License-Identifier: MIT
#include "link/serial_commands.h"

#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::TestBench;

/// A bench whose port is open and whose chip is in programming mode.
struct OpenBench : TestBench {
    OpenBench() : TestBench(4) {
        port.Open();
        writer.EnterProgrammingMode(flag);
        Forget();
    }

    WriterCommands& writer = bench.commands;
    ErrorFlag& flag = bench.state.errorFlag;
    QString text = u"as it was"_s;
    std::uint8_t high = 0x12, low = 0x34;
    std::array<std::uint8_t, 3> signature{};
};

/// A command, what it puts on the wire in which writes, and its texts.
struct CommandCase {
    char letter;
    void (*run)(OpenBench&);
    QList<QByteArray> writes;
    const char16_t* noReply;
    const char16_t* wrongReply;  ///< null: no reply is wrong
    std::chrono::seconds timeOut;
};

// clang-format off
const CommandCase kCases[] = {
    {'S', [](OpenBench& b) { b.writer.ReadSoftwareId(b.text, b.flag); }, {"S"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Software ID Read S", nullptr, 2s},
    {'V', [](OpenBench& b) { b.writer.ReadSoftwareVersion(b.text, b.flag); }, {"V"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Software Ver Read V", nullptr, 2s},
    {'v', [](OpenBench& b) { b.writer.ReadHardwareVersion(b.text, b.flag); }, {"v"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hardware Ver Read v", nullptr, 2s},
    {'T', [](OpenBench& b) { b.writer.SelectDeviceCode(0x22, b.flag); }, {"T", QByteArray("\x22\0", 2)},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Select device command T", u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : select device command T", 5s},
    {'P', [](OpenBench& b) { b.writer.EnterProgrammingMode(b.flag); }, {"P"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Enter programming Mode P", u"返答ﾃﾞｰﾀﾐｽ : Enter programming Mode P ?", 5s},
    {'L', [](OpenBench& b) { b.writer.LeaveProgrammingMode(b.flag); }, {"L"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Leave programming Mode L", u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Leave programming Mode L", 5s},
    {'s', [](OpenBench& b) { b.writer.ReadSignature(b.signature, b.flag); }, {"s"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Signature bytes s", nullptr, 5s},
    {'A', [](OpenBench& b) { b.writer.SetAddress(0x1234, b.flag); }, {"A", "\x12", "\x34"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Address Select A", u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Address Select A", 5s},
    {'R', [](OpenBench& b) { b.writer.ReadProgramWord(b.high, b.low, b.flag); }, {"R"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Program Memory R", nullptr, 5s},
    {'c', [](OpenBench& b) { b.writer.WriteProgramWord(0x94, 0x0C, b.flag); }, {"c", "\x0C"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Low byte Write Program Memory c",
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Low byte Write Data Memory c", 5s},
    {'C', [](OpenBench& b) { b.writer.WriteProgramWord(0x94, 0x0C, b.flag); }, {"c", "\x0C", "C", "\x94"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hi byte Write Program Memory C",
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hi byte Write Data Memory C", 5s},
    {'d', [](OpenBench& b) { b.writer.ReadDataByte(b.low, b.flag); }, {"d"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Data Memory d", nullptr, 5s},
    {'D', [](OpenBench& b) { b.writer.WriteDataByte(0x5A, b.flag); }, {"D", "\x5A"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Data Memory D", u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Data Memory D", 5s},
    {'e', [](OpenBench& b) { b.writer.ChipErase(b.flag); }, {"e"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Chip Erase e", u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Chip Erase e", 5s},
    {'f', [](OpenBench& b) { b.writer.WriteFuseBits(0xBE, b.flag); }, {"f", "\xBE"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Fuse bit f", u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Fuse bit f", 5s},
    {'l', [](OpenBench& b) { b.writer.WriteLockBits(0xFD, b.flag); }, {"l", "\xFD"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Lock bit l", u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Lock bit l", 5s},
    {'F', [](OpenBench& b) { b.writer.ReadLockFuseBits(b.low, b.flag); }, {"F"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Lock & Fuse bit F", nullptr, 5s},
    {'r', [](OpenBench& b) { b.writer.ReadFuseBits(b.low, b.flag); }, {"r"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Fuse bit r", nullptr, 5s},
    {'x', [](OpenBench& b) { b.writer.LedOn(); }, {"x"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : LED on x", u"返答ﾃﾞｰﾀﾐｽ : LED on x ?", 1s},
    {'y', [](OpenBench& b) { b.writer.LedOff(); }, {"y"},
     u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : LED off y", u"返答ﾃﾞｰﾀﾐｽ : LED off y ?", 1s},
};
// clang-format on

TEST(SerialCommands, PutTheirBytesOnTheWireAndPauseAfterTheSlowOnes) {
    for (const CommandCase& c : kCases) {
        for (const std::int16_t before : {std::int16_t{0}, std::int16_t{1}}) {
            OpenBench b;
            b.flag.value = before;
            const auto start = b.clock.Now();
            c.run(b);
            ASSERT_GE(b.port.writes.size(), c.writes.size());
            EXPECT_EQ(b.port.writes.first(c.writes.size()), c.writes) << c.letter;
            EXPECT_EQ(b.flag.value, before) << c.letter << ": a success leaves the flag alone";
            if (c.writes.size() == 1 || c.letter == 'f' || c.letter == 'l') {
                EXPECT_EQ(b.clock.Now() - start >= 100ms, QByteArray("Lfl").contains(c.letter))
                    << c.letter;
            }
        }
    }
}

TEST(SerialCommands, NoReplyTimesOutWithTheCommandsOwnText) {
    for (const CommandCase& c : kCases) {
        OpenBench b;
        b.board.SetLetterFault(c.letter, FaultKind::Silent);
        const auto start = b.clock.Now();
        c.run(b);
        const auto waited = b.clock.Now() - start;
        EXPECT_EQ(b.person.panels[1], QString::fromUtf16(c.noReply));
        EXPECT_TRUE(b.flag.Failed()) << c.letter;
        EXPECT_GE(waited, c.timeOut) << c.letter;
        // The pause before an argument may come on top, a pause after the command may not.
        EXPECT_LT(waited, c.timeOut + 150ms) << c.letter;
        EXPECT_TRUE(b.port.IsOpen()) << c.letter;
    }
}

TEST(SerialCommands, AWrongReplyIsJudgedWhereACarriageReturnIsDue) {
    for (const CommandCase& c : kCases) {
        OpenBench b;
        b.board.SetLetterFault(c.letter, FaultKind::Wrong);
        b.person.panels.clear();
        c.run(b);
        EXPECT_EQ(b.flag.Failed(), c.wrongReply != nullptr) << c.letter;
        if (c.wrongReply != nullptr) {
            EXPECT_EQ(b.person.panels[1], QString::fromUtf16(c.wrongReply));
        }
    }
}

TEST(SerialCommands, ALongReplyCountsByItsFirstBytesAShortOneLeavesTheResultAsItWas) {
    OpenBench b;
    for (const char letter : {'R', 'd', 'V'}) {
        b.board.SetLetterFault(letter, FaultKind::Short, 1);
    }
    EXPECT_FALSE(b.writer.ReadProgramWord(b.high, b.low, b.flag));
    b.writer.ReadDataByte(b.low, b.flag);
    b.writer.ReadSoftwareVersion(b.text, b.flag);
    EXPECT_EQ(b.high, 0x12);
    EXPECT_EQ(b.low, 0x34);
    EXPECT_EQ(b.text, u"as it was"_s);
    EXPECT_TRUE(b.writer.SoftwareVersion().isEmpty());

    b.flag.Clear();
    b.board.SetLetterFault('V', FaultKind::Long, 2);
    b.writer.ReadSoftwareVersion(b.text, b.flag);
    EXPECT_EQ(b.text, u"3.9"_s);
    EXPECT_FALSE(b.flag.Failed());
}

TEST(SerialCommands, ALowByteWithoutReplyKeepsTheHighByteBackAWrongReplyDoesNot) {
    for (const FaultKind fault : {FaultKind::Silent, FaultKind::Wrong}) {
        OpenBench b;
        b.board.SetLetterFault('c', fault);
        b.writer.WriteProgramWord(0x94, 0x0C, b.flag);
        EXPECT_EQ(b.Wire().join(u", "), fault == FaultKind::Silent ? u"c 0C" : u"c 0C, C 94");
    }
}

}  // namespace
}  // namespace tolvex
