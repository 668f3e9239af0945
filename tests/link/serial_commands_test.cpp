// SPDX-License-Identifier: MIT
#include "link/serial_commands.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::TestBench;

/// A command, what it puts on the wire in which writes, and its texts.
struct CommandCase {
    char letter;
    std::function<void(WriterCommands&, ErrorFlag&)> run;
    QList<QByteArray> writes;
    QString noReply;
    QString wrongReply;  ///< null: no reply is wrong
    int timeOutSeconds = 5;
};

const QList<CommandCase>& Cases() {
    static QString text;
    static std::uint8_t high, low;
    static std::array<std::uint8_t, 3> signature;
    using W = WriterCommands;
    static const QList<CommandCase> kCases = {
        {'S',
         [](W& w, ErrorFlag& f) { w.ReadSoftwareId(text, f); },
         {"S"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Software ID Read S"_s,
         {},
         2},
        {'V',
         [](W& w, ErrorFlag& f) { w.ReadSoftwareVersion(text, f); },
         {"V"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Software Ver Read V"_s,
         {},
         2},
        {'v',
         [](W& w, ErrorFlag& f) { w.ReadHardwareVersion(text, f); },
         {"v"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hardware Ver Read v"_s,
         {},
         2},
        {'T',
         [](W& w, ErrorFlag& f) { w.SelectDeviceCode(0x22, f); },
         {"T", QByteArray("\x22\0", 2)},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Select device command T"_s,
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : select device command T"_s},
        {'P',
         [](W& w, ErrorFlag& f) { w.EnterProgrammingMode(f); },
         {"P"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Enter programming Mode P"_s,
         u"返答ﾃﾞｰﾀﾐｽ : Enter programming Mode P ?"_s},
        {'L',
         [](W& w, ErrorFlag& f) { w.LeaveProgrammingMode(f); },
         {"L"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Leave programming Mode L"_s,
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Leave programming Mode L"_s},
        {'s',
         [](W& w, ErrorFlag& f) { w.ReadSignature(signature, f); },
         {"s"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Signature bytes s"_s,
         {}},
        {'A',
         [](W& w, ErrorFlag& f) { w.SetAddress(0x1234, f); },
         {"A", "\x12", "\x34"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Address Select A"_s,
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Address Select A"_s},
        {'R',
         [](W& w, ErrorFlag& f) { w.ReadProgramWord(high, low, f); },
         {"R"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Program Memory R"_s,
         {}},
        {'c',
         [](W& w, ErrorFlag& f) { w.WriteProgramWord(0x94, 0x0C, f); },
         {"c", "\x0C"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Low byte Write Program Memory c"_s,
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Low byte Write Data Memory c"_s},
        {'C',
         [](W& w, ErrorFlag& f) { w.WriteProgramWord(0x94, 0x0C, f); },
         {"c", "\x0C", "C", "\x94"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hi byte Write Program Memory C"_s,
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hi byte Write Data Memory C"_s},
        {'d',
         [](W& w, ErrorFlag& f) { w.ReadDataByte(low, f); },
         {"d"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Data Memory d"_s,
         {}},
        {'D',
         [](W& w, ErrorFlag& f) { w.WriteDataByte(0x5A, f); },
         {"D", "\x5A"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Data Memory D"_s,
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Data Memory D"_s},
        {'e',
         [](W& w, ErrorFlag& f) { w.ChipErase(f); },
         {"e"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Chip Erase e"_s,
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Chip Erase e"_s},
        {'f',
         [](W& w, ErrorFlag& f) { w.WriteFuseBits(0xBE, f); },
         {"f", "\xBE"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Fuse bit f"_s,
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Fuse bit f"_s},
        {'l',
         [](W& w, ErrorFlag& f) { w.WriteLockBits(0xFD, f); },
         {"l", "\xFD"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Lock bit l"_s,
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Write Lock bit l"_s},
        {'F',
         [](W& w, ErrorFlag& f) { w.ReadLockFuseBits(low, f); },
         {"F"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Lock & Fuse bit F"_s,
         {}},
        {'r',
         [](W& w, ErrorFlag& f) { w.ReadFuseBits(low, f); },
         {"r"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Read Fuse bit r"_s,
         {}},
        {'x',
         [](W& w, ErrorFlag&) { w.LedOn(); },
         {"x"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : LED on x"_s,
         u"返答ﾃﾞｰﾀﾐｽ : LED on x ?"_s,
         1},
        {'y',
         [](W& w, ErrorFlag&) { w.LedOff(); },
         {"y"},
         u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : LED off y"_s,
         u"返答ﾃﾞｰﾀﾐｽ : LED off y ?"_s,
         1},
    };
    return kCases;
}

/// A bench whose port is open and whose chip is in programming mode.
struct OpenBench : TestBench {
    OpenBench() : TestBench(4) {
        port.Open();
        bench.commands.EnterProgrammingMode(bench.errorFlag);
        Forget();
        port.writes.clear();
    }
};

TEST(SerialCommands, PutTheirBytesOnTheWireAndLeaveTheFlagAlone) {
    for (const CommandCase& c : Cases()) {
        for (const std::int16_t before : {std::int16_t{0}, std::int16_t{1}}) {
            OpenBench b;
            b.bench.errorFlag.value = before;
            c.run(b.bench.commands, b.bench.errorFlag);
            const QList<QByteArray> sent = b.port.writes.first(c.writes.size());
            EXPECT_EQ(sent, c.writes) << c.letter;
            EXPECT_EQ(b.bench.errorFlag.value, before) << c.letter;
        }
    }
}

TEST(SerialCommands, NoReplyTimesOutWithTheCommandsOwnText) {
    for (const CommandCase& c : Cases()) {
        OpenBench b;
        b.board.SetLetterFault(c.letter, FaultKind::Silent);
        const auto start = b.clock.Now();
        c.run(b.bench.commands, b.bench.errorFlag);
        const auto waited = b.clock.Now() - start;
        EXPECT_EQ(b.person.panels[1], c.noReply);
        EXPECT_TRUE(b.bench.errorFlag.Failed()) << c.letter;
        EXPECT_GE(waited, std::chrono::seconds(c.timeOutSeconds)) << c.letter;
        // The pause before an argument may come on top, a pause after the command may not.
        EXPECT_LT(waited, std::chrono::milliseconds(1000 * c.timeOutSeconds + 150)) << c.letter;
        EXPECT_TRUE(b.port.IsOpen()) << c.letter;
    }
}

TEST(SerialCommands, AWrongReplyIsJudgedWhereACarriageReturnIsDue) {
    for (const CommandCase& c : Cases()) {
        OpenBench b;
        b.board.SetLetterFault(c.letter, FaultKind::Wrong);
        b.person.panels.clear();
        c.run(b.bench.commands, b.bench.errorFlag);
        EXPECT_EQ(b.bench.errorFlag.Failed(), !c.wrongReply.isNull()) << c.letter;
        if (!c.wrongReply.isNull()) {
            EXPECT_EQ(b.person.panels[1], c.wrongReply);
        }
    }
}

TEST(SerialCommands, ALongReplyCountsByItsFirstBytes) {
    OpenBench b;
    QString identifier, version;
    b.board.SetLetterFault('S', FaultKind::Long);
    b.board.SetLetterFault('V', FaultKind::Long);
    b.bench.commands.ReadSoftwareId(identifier, b.bench.errorFlag);
    b.bench.commands.ReadSoftwareVersion(version, b.bench.errorFlag);
    EXPECT_EQ(identifier.size(), 7);
    EXPECT_EQ(version, u"3.9"_s);
    EXPECT_FALSE(b.bench.errorFlag.Failed());
}

TEST(SerialCommands, AFailureLeavesTheResultAsItWas) {
    OpenBench b;
    std::uint8_t high = 0x12, low = 0x34;
    QString version = u"as it was"_s;
    for (const char letter : {'R', 'd', 'V'}) {
        b.board.SetLetterFault(letter, FaultKind::Short);
    }
    EXPECT_FALSE(b.bench.commands.ReadProgramWord(high, low, b.bench.errorFlag));
    b.bench.commands.ReadDataByte(low, b.bench.errorFlag);
    b.bench.commands.ReadSoftwareVersion(version, b.bench.errorFlag);
    EXPECT_EQ(high, 0x12);
    EXPECT_EQ(low, 0x34);
    EXPECT_EQ(version, u"as it was"_s);
    EXPECT_TRUE(b.bench.commands.SoftwareVersion().isEmpty());
}

TEST(SerialCommands, ALowByteWithoutReplyKeepsTheHighByteBackAWrongReplyDoesNot) {
    OpenBench silent;
    silent.board.SetLetterFault('c', FaultKind::Silent);
    silent.bench.commands.WriteProgramWord(0x94, 0x0C, silent.bench.errorFlag);
    EXPECT_EQ(silent.Wire(), (QStringList{u"c 0C"_s}));

    OpenBench wrong;
    wrong.board.SetLetterFault('c', FaultKind::Wrong);
    wrong.bench.commands.WriteProgramWord(0x94, 0x0C, wrong.bench.errorFlag);
    EXPECT_EQ(wrong.Wire(), (QStringList{u"c 0C"_s, u"C 94"_s}));
    EXPECT_EQ(wrong.person.panels[1], u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Low byte Write Data Memory c"_s);
}

TEST(SerialCommands, PausesLieWhereTheBoardNeedsThem) {
    struct PauseCase {
        FaultKind fault;
        char letter;
        bool pauses;
    };
    for (const PauseCase& c : {PauseCase{FaultKind::Long, 'L', true},
                               {FaultKind::Wrong, 'L', true},
                               {FaultKind::Long, 'l', true},
                               {FaultKind::Long, 'f', true},
                               {FaultKind::Long, 'P', false}}) {
        OpenBench b;
        b.board.SetLetterFault(c.letter, c.fault);
        const auto start = b.clock.Now();
        switch (c.letter) {
            case 'L':
                b.bench.commands.LeaveProgrammingMode(b.bench.errorFlag);
                break;
            case 'l':
                b.bench.commands.WriteLockBits(0xFF, b.bench.errorFlag);
                break;
            case 'f':
                b.bench.commands.WriteFuseBits(0xBA, b.bench.errorFlag);
                break;
            default:
                b.bench.commands.EnterProgrammingMode(b.bench.errorFlag);
        }
        EXPECT_EQ(b.clock.Now() - start >= std::chrono::milliseconds(100), c.pauses) << c.letter;
    }
}

TEST(SerialCommands, SelectDeviceAnnouncesTheCodeWithoutLeadingZeros) {
    OpenBench b;
    b.bench.commands.SelectDeviceCode(0x0D, b.bench.errorFlag);
    EXPECT_EQ(b.person.calls,
              (QStringList{u"status 1: ｺﾏﾝﾄﾞ送信 : Select device command T , 0xD"_s}));
    EXPECT_EQ(b.Wire(), (QStringList{u"T 0D 00"_s}));
}

}  // namespace
}  // namespace tolvex
