// SPDX-License-Identifier: MIT
#include "link/writer_detector.h"

#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::DetectionWire;
using testing::TestBench;

TEST(WriterDetector, FindsTheWriterAndLeavesThePortOpen) {
    TestBench b(2);
    b.settings.values[u"ComNox"_s] = u"12"_s;
    b.bench.state.errorFlag.Set();
    EXPECT_TRUE(b.bench.detection.WriterCheck());
    EXPECT_TRUE(b.port.IsOpen());
    EXPECT_FALSE(b.bench.state.errorFlag.Failed());
    EXPECT_EQ(b.Wire(), DetectionWire(0x21));
    EXPECT_EQ(b.person.calls.first(), u"progress: ライタと通信中！"_s);
    EXPECT_EQ(b.person.calls.last(), u"close message"_s);
    EXPECT_EQ(b.person.panels[1], u"ライタを検出しました。 COM12"_s);
    EXPECT_EQ(b.person.panels[2], u"AVR ISP SW:3.9 HW:1.0"_s);
    EXPECT_EQ(b.person.panels[5], u"COM:12"_s);

    // The next one reopens the port, and keeps the version when it fails.
    b.Forget();
    b.board.SetLetterFault('V', FaultKind::Silent);
    EXPECT_FALSE(b.bench.detection.WriterCheck());
    EXPECT_EQ(b.port.Calls().join(u", "), u"close, configure 12, discard, open, close"_s);
    EXPECT_EQ(b.bench.commands.SoftwareVersion(), u"3.9"_s);
}

TEST(WriterDetector, AFailureNamesItsStageAndClosesThePort) {
    const std::tuple<char, FaultKind, char> cases[] = {
        // clang-format off
        {'-', FaultKind::Silent, 'S'}, {'S', FaultKind::Late, 'S'}, {'V', FaultKind::Silent, 'V'},
        {'v', FaultKind::Short, 'v'}, {'v', FaultKind::HangUp, 'v'}, {'T', FaultKind::Wrong, 'T'},
        // clang-format on
    };
    for (const auto& [letter, fault, stage] : cases) {
        TestBench b;
        b.port.RefuseOpen(letter == '-');
        b.board.SetLetterFault(letter, fault);
        b.person.panels[2] = u"as it was"_s;
        EXPECT_FALSE(b.bench.detection.WriterCheck());
        EXPECT_FALSE(b.port.IsOpen());
        EXPECT_EQ(b.person.panels[1],
                  u"ライタと通信ができませんでした。(Command_%1)"_s.arg(QLatin1Char(stage)));
        EXPECT_EQ(b.person.panels[2], u"as it was"_s);
        EXPECT_EQ(
            b.person.message,
            u"ライタと通信ができませんでした。\r\nPCとライタの接続を確認後、メニューバーの\r\n"
            "[通信チェック] [COMポート選択]を実行して下さい。\r\n"_s);
    }
}

TEST(WriterDetector, WithoutAStoredPortNothingIsOpened) {
    for (const QString& stored : {u""_s, u"0"_s, u"seven"_s, u"21"_s}) {
        TestBench b;
        b.settings.values[u"ComNox"_s] = stored;
        EXPECT_FALSE(b.bench.detection.WriterCheck());
        EXPECT_FALSE(b.port.Calls().contains(u"open"_s));
        EXPECT_EQ(b.person.panels[1], u"ライタと通信ができませんでした。(レジストリリード)"_s);
        EXPECT_FALSE(b.bench.state.errorFlag.Failed());
    }
}

TEST(PortSelection, LoadingAndCancellingCloseThePortAndCountAsFailures) {
    TestBench b;
    ASSERT_TRUE(b.bench.detection.WriterCheck());
    b.settings.values[u"ComNox"_s] = u"7"_s;
    EXPECT_EQ(b.bench.portSelection.Load(), 7);
    EXPECT_FALSE(b.port.IsOpen());
    EXPECT_EQ(b.port.PortNumber(), 7);
    EXPECT_EQ(b.person.panels[1], QString());
    ErrorFlag& flag = b.bench.state.errorFlag;
    EXPECT_TRUE(flag.Failed());
    flag.Clear();
    b.bench.portSelection.Cancel();
    EXPECT_TRUE(flag.Failed());
    EXPECT_EQ(b.person.panels[1], u"ライター接続確認が終了していません。"_s);

    b.port.RefuseOpen();
    for (const auto& [index, port] : {std::pair{0, u"COM?"_s}, {9, u"COM9"_s}}) {
        flag.Clear();
        EXPECT_FALSE(b.bench.portSelection.Confirm(index, [] { FAIL() << "hidden"; }));
        EXPECT_EQ(b.person.calls.last(),
                  u"box Stop ポートオープン失敗|%1 のオープンに失敗しました。\r"
                  "ポート番号を再設定してください。"_s.arg(port));
        EXPECT_TRUE(flag.Failed());
        EXPECT_EQ(b.settings.values[u"ComNox"_s], u"7"_s);
    }
}

TEST(PortSelection, AnOpenedPortIsStoredAndDetected) {
    const QString notice =
        u"このファームウエアバージョンでは、AT90S2333/4433をサポートしません。"_s;
    const std::tuple<QString, char, QString> cases[] = {
        {u"3.9"_s, '-', u"ライタを検出しました。 COM3"_s},
        {u"4.0"_s, '-', notice},
        {u"3.9"_s, 'S', notice},
        {u"3.9"_s, 'v', u"ライタと通信ができませんでした。(Command_v)"_s}};
    for (const auto& [firmware, silent, panel] : cases) {
        TestBench b;
        b.board = SimulatedWriter(b.chip.get(), firmware);
        b.board.SetLetterFault(silent, FaultKind::Silent);
        b.bench.portSelection.Load();
        bool hiddenFirst = false;
        EXPECT_TRUE(b.bench.portSelection.Confirm(3, [&] { hiddenFirst = b.Wire().isEmpty(); }));
        EXPECT_TRUE(hiddenFirst);
        EXPECT_EQ(b.settings.values[u"ComNox"_s], u"3"_s);
        EXPECT_EQ(b.person.panels[1], panel) << silent;
        EXPECT_EQ(b.person.panels[5], u"COM:3"_s);
        EXPECT_FALSE(b.bench.state.errorFlag.Failed()) << silent;
    }
}

}  // namespace
}  // namespace tolvex
