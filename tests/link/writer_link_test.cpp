// SPDX-License-Identifier: MIT
// The link to the writer: its commands, its detection, and the choice of the port.
#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::TestBench;
using Centiseconds = std::chrono::duration<int, std::centi>;

/// A bench whose port is open and whose chip is in programming mode.
struct OpenBench : TestBench {
    OpenBench() : TestBench(4) {
        port.Open();
        writer.EnterProgrammingMode();
        Forget();
    }

    WriterCommands& writer = bench.commands;
    ErrorFlag& flag = bench.state.errorFlag;
    QString text;
    std::uint8_t high = 0x12, low = 0x34;
    Signature signature{};
};

/// A command, its writes, and its texts.
struct CommandCase {
    char letter;
    std::chrono::seconds timeOut;
    Outcome (*run)(OpenBench&);
    QList<QByteArray> writes;
    QString noReply;     ///< behind "ｺﾐﾆｭｹｰｼｮﾝ失敗 : "
    QString wrongReply;  ///< empty: no reply is wrong; "=": the same text as without a reply
};

// clang-format off
const CommandCase kCases[] = {
    {'S', 2s, [](OpenBench& b) { return b.writer.ReadSoftwareId(b.text); }, {"S"}, u"Software ID Read S"_s, u""_s},
    {'V', 2s, [](OpenBench& b) { return b.writer.ReadSoftwareVersion(b.text); }, {"V"}, u"Software Ver Read V"_s, u""_s},
    {'v', 2s, [](OpenBench& b) { return b.writer.ReadHardwareVersion(b.text); }, {"v"}, u"Hardware Ver Read v"_s, u""_s},
    {'T', 5s, [](OpenBench& b) { return b.writer.SelectDeviceCode(0x0D); }, {"T", QByteArray("\x0D\0", 2)}, u"Select device command T"_s, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : select device command T"_s},
    {'P', 5s, [](OpenBench& b) { return b.writer.EnterProgrammingMode(); }, {"P"}, u"Enter programming Mode P"_s, u"返答ﾃﾞｰﾀﾐｽ : Enter programming Mode P ?"_s},
    {'L', 5s, [](OpenBench& b) { return b.writer.LeaveProgrammingMode(); }, {"L"}, u"Leave programming Mode L"_s, u"="_s},
    {'s', 5s, [](OpenBench& b) { return b.writer.ReadSignature(b.signature); }, {"s"}, u"Read Signature bytes s"_s, u""_s},
    {'A', 5s, [](OpenBench& b) { return b.writer.SetAddress(0x1234); }, {"A", "\x12", "\x34"}, u"Address Select A"_s, u"="_s},
    {'R', 5s, [](OpenBench& b) { return b.writer.ReadProgramWord(b.high, b.low); }, {"R"}, u"Read Program Memory R"_s, u""_s},
    {'c', 5s, [](OpenBench& b) { return b.writer.WriteProgramWord(0x94, 0x0C); }, {"c", "\x0C"}, u"Low byte Write Program Memory c"_s, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Low byte Write Data Memory c"_s},
    {'C', 5s, [](OpenBench& b) { return b.writer.WriteProgramWord(0x94, 0x0C); }, {"c", "\x0C", "C", "\x94"}, u"Hi byte Write Program Memory C"_s, u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : Hi byte Write Data Memory C"_s},
    {'d', 5s, [](OpenBench& b) { return b.writer.ReadDataByte(b.low); }, {"d"}, u"Read Data Memory d"_s, u""_s},
    {'D', 5s, [](OpenBench& b) { return b.writer.WriteDataByte(0x5A); }, {"D", "\x5A"}, u"Write Data Memory D"_s, u"="_s},
    {'e', 5s, [](OpenBench& b) { return b.writer.ChipErase(); }, {"e"}, u"Chip Erase e"_s, u"="_s},
    {'f', 5s, [](OpenBench& b) { return b.writer.WriteFuseBits(0xBE); }, {"f", "\xBE"}, u"Write Fuse bit f"_s, u"="_s},
    {'l', 5s, [](OpenBench& b) { return b.writer.WriteLockBits(0xFD); }, {"l", "\xFD"}, u"Write Lock bit l"_s, u"="_s},
    {'F', 5s, [](OpenBench& b) { return b.writer.ReadLockFuseBits(b.low); }, {"F"}, u"Read Lock & Fuse bit F"_s, u""_s},
    {'r', 5s, [](OpenBench& b) { return b.writer.ReadFuseBits(b.low); }, {"r"}, u"Read Fuse bit r"_s, u""_s},
    {'x', 1s, [](OpenBench& b) { return b.writer.LedOn(); }, {"x"}, u"LED on x"_s, u"返答ﾃﾞｰﾀﾐｽ : LED on x ?"_s},
    {'y', 1s, [](OpenBench& b) { return b.writer.LedOff(); }, {"y"}, u"LED off x"_s, u"返答ﾃﾞｰﾀﾐｽ : LED off x ?"_s},
};
// clang-format on

const QString kNoReply = u"ｺﾐﾆｭｹｰｼｮﾝ失敗 : "_s;

TEST(WriterCommands, PutTheirBytesOnTheWireAndTellAMissingOrWrongReplyInTheirOwnWords) {
    for (const CommandCase& c : kCases) {
        for (const FaultKind fault : {FaultKind::Long, FaultKind::Silent, FaultKind::Wrong}) {
            SCOPED_TRACE(c.letter);
            const bool good = fault == FaultKind::Long, silent = fault == FaultKind::Silent;
            OpenBench b;
            b.flag.value = good ? 1 : 0;  // a success leaves it alone
            b.board.SetLetterFault(c.letter, fault);
            const auto start = b.clock.Now();
            const bool wrong = !good && !silent && !c.wrongReply.isEmpty();
            EXPECT_EQ(c.run(b), silent  ? Outcome::NoReply
                                : wrong ? Outcome::WrongReply
                                        : Outcome::Ok);
            ASSERT_GE(b.port.writes.size(), c.writes.size());
            EXPECT_EQ(b.port.writes.first(c.writes.size()), c.writes);
            EXPECT_EQ(b.flag.Failed(), good || silent || wrong);
            EXPECT_TRUE(c.letter != 'S' || !good || b.text == u"AVR ISP");
            EXPECT_TRUE(c.letter != 'V' || !good || b.writer.SoftwareVersion() == u"3.9");
            if (!good && b.flag.Failed()) {
                const bool same = silent || c.wrongReply == u"=";
                EXPECT_EQ(b.user.panels[1], same ? kNoReply + c.noReply : c.wrongReply);
            }
            // The pause before an argument comes on top, the one after 'L' only after a reply.
            const auto wait = silent ? c.timeOut : std::chrono::seconds(0);
            const auto pause = QByteArray(silent ? "fl" : "fLl").contains(c.letter) ? 100ms : 0ms;
            EXPECT_EQ(std::chrono::floor<Centiseconds>(b.clock.Now() - start), wait + pause);
            EXPECT_TRUE(b.port.IsOpen());
            EXPECT_EQ(
                b.user.calls.contains(u"status 1: ｺﾏﾝﾄﾞ送信 : Select device command T , 0xD"_s),
                c.letter == 'T');
            if (c.letter == 'c') {
                EXPECT_EQ(b.Wire().last(), silent ? u"c 0C" : u"C 94") << "the other half";
            }
        }
    }
}

TEST(WriterCommands, AReplyAtTheDeadlineCountsALaterOneIsNobodys) {
    for (const auto delay : {5000ms, 5001ms}) {
        OpenBench b;
        b.writer.WriteDataByte(0x5A);
        b.port.DelayReplies(delay);
        b.writer.ReadDataByte(b.low);
        EXPECT_EQ(b.flag.Failed(), delay > 5s);
        EXPECT_EQ(b.low, delay > 5s ? 0x34 : 0x5A) << "a failure leaves the result as it was";
        b.port.DelayReplies(0ms);
        b.bench.connection.WaitSeconds(1);  // now it has come
        b.flag.Clear();
        EXPECT_EQ(b.writer.ReadProgramWord(b.high, b.low), Outcome::Ok);
        EXPECT_EQ(b.high, 0xFF);
    }
}

TEST(WriterCommands, TheShutdownEndsEveryWaitAtOnce) {
    OpenBench b;
    b.port.DelayReplies(9s);
    b.clock.At(b.clock.Now() + 80ms, [&b] { b.clock.End(); });
    EXPECT_EQ(b.writer.EnterProgrammingMode(), Outcome::Abandoned);
    b.bench.connection.WaitSeconds(1);
    EXPECT_LE(b.clock.Now(), 300ms);
    b.port.Close();
    EXPECT_FALSE(b.bench.connection.OpenPort());
}

TEST(WriterCommands, HooksHoldCommandsBackAndHearHowEachLetterEnded) {
    TestBench b;
    QStringList heard;
    bool open = true;
    WriterCommands writer(b.bench.connection, b.user, b.bench.state.errorFlag,
                          {.maySend = [&] { return open; },
                           .onEnd =
                               [&](char letter, int argument, Outcome outcome) {
                                   heard << u"%1 %2 %3"_s.arg(QChar::fromLatin1(letter))
                                                .arg(argument, 0, 16)
                                                .arg(static_cast<int>(outcome));
                                   open = letter != 'c';  // the high byte goes out all the same
                               }});
    b.port.Open();
    writer.SelectDeviceCode(0x21);
    writer.EnterProgrammingMode();
    writer.SetAddress(0x1234);
    EXPECT_EQ(writer.WriteProgramWord(0x94, 0x0C), Outcome::Ok);
    open = false;
    EXPECT_EQ(writer.ChipErase(), Outcome::NotSent);
    EXPECT_EQ(heard.join(u','), u"T 21 0,P 0 0,A 1234 0,c c 0,C 94 0"_s);
    EXPECT_EQ(b.Wire().last(), u"C 94"_s);
}

TEST(WriterCheck, FindsTheWriterOnAPortThatItReopens) {
    TestBench b(2);
    b.settings.values[u"ComNox"_s] = u"12"_s;
    EXPECT_TRUE(WriterCheck(b.bench.chip));
    EXPECT_EQ(b.Wire(), testing::DetectionWire(0x21));
    EXPECT_EQ(b.user.panels[1], u"ライタを検出しました。 COM12"_s);
    EXPECT_EQ(b.user.panels[2], u"AVR ISP SW:3.9 HW:1.0"_s);
    EXPECT_EQ(b.user.panels[5], u"COM:12"_s);

    b.Forget();
    b.board.SetLetterFault('V', FaultKind::Silent);
    EXPECT_FALSE(WriterCheck(b.bench.chip));
    EXPECT_EQ(b.port.Calls().join(u", "), u"close, configure 12, discard, open, close"_s);
    EXPECT_EQ(b.bench.commands.SoftwareVersion(), u"3.9"_s) << "kept";
    EXPECT_EQ(b.user.panels[2], u"AVR ISP SW:3.9 HW:1.0"_s);
    EXPECT_EQ(b.user.message,
              u"ライタと通信ができませんでした。\r\nPCとライタの接続を確認後、メニューバーの\r\n"
              "[通信チェック] [COMポート選択]を実行して下さい。\r\n"_s);
}

TEST(WriterCheck, WithoutAStoredPortNothingIsOpened) {
    for (const QString& stored : {u""_s, u"0"_s, u"seven"_s, u"21"_s}) {
        TestBench b;
        b.settings.values[u"ComNox"_s] = stored;
        EXPECT_FALSE(WriterCheck(b.bench.chip));
        EXPECT_FALSE(b.port.Calls().contains(u"open"_s));
        EXPECT_EQ(b.user.panels[1], u"ライタと通信ができませんでした。(レジストリリード)"_s);
        EXPECT_FALSE(b.bench.state.errorFlag.Failed());
    }
}

TEST(PortChoice, WhatChoosesNoPortClosesItAndCountsAsAFailure) {
    TestBench b;
    ErrorFlag& flag = b.bench.state.errorFlag;
    ASSERT_TRUE(WriterCheck(b.bench.chip));
    b.settings.values[u"ComNox"_s] = u"7"_s;
    EXPECT_EQ(BeginPortChoice(b.bench.chip), 7);
    EXPECT_TRUE(flag.Failed() && !b.port.IsOpen() && b.port.PortNumber() == 7);
    EXPECT_EQ(b.user.panels[1], QString());
    flag.Clear();
    CancelPortChoice(b.bench.chip);
    EXPECT_TRUE(flag.Failed());
    EXPECT_EQ(b.user.panels[1], u"ライター接続確認が終了していません。"_s);
    b.port.RefuseOpen();
    for (const auto& [index, port] : {std::pair{0, u"COM?"_s}, {9, u"COM9"_s}}) {
        flag.Clear();
        EXPECT_FALSE(ConfirmPortChoice(b.bench.chip, index, [] { FAIL() << "hidden"; }));
        EXPECT_EQ(b.user.calls.last(),
                  u"box Stop ポートオープン失敗|%1 のオープンに失敗しました。\r"
                  "ポート番号を再設定してください。"_s.arg(port));
        EXPECT_TRUE(flag.Failed() && b.settings.values[u"ComNox"_s] == u"7");
    }
}

TEST(PortChoice, AnOpenedPortIsStoredAndDetected) {
    const QString notice =
        u"このファームウエアバージョンでは、AT90S2333/4433をサポートしません。"_s;
    for (const QString& firmware : {u"3.9"_s, u"4.0"_s}) {
        TestBench b;
        b.board = SimulatedWriter(b.chip.get(), firmware);
        BeginPortChoice(b.bench.chip);
        EXPECT_TRUE(ConfirmPortChoice(b.bench.chip, 3, [&] { EXPECT_TRUE(b.Wire().isEmpty()); }));
        EXPECT_EQ(b.settings.values[u"ComNox"_s], u"3"_s);
        EXPECT_EQ(b.user.panels[1], firmware == u"4.0" ? notice : u"ライタを検出しました。 COM3"_s);
        EXPECT_EQ(b.user.panels[5], u"COM:3"_s);
    }
}

}  // namespace
}  // namespace tolvex
