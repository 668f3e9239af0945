// SPDX-License-Identifier: MIT
#include "link/writer_detector.h"

#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::DetectionWire;
using testing::TestBench;

const QString kFailureMessage =
    u"ライタと通信ができませんでした。\r\nPCとライタの接続を確認後、メニューバーの\r\n"
    "[通信チェック] [COMポート選択]を実行して下さい。\r\n"_s;

const QString kFirmwareNotice =
    u"このファームウエアバージョンでは、AT90S2333/4433をサポートしません。"_s;

TEST(WriterDetector, FindsTheWriterAndLeavesThePortOpen) {
    TestBench b(2);
    b.settings.values[u"ComNox"_s] = u"12"_s;
    EXPECT_TRUE(b.bench.detection.WriterCheck());
    EXPECT_TRUE(b.port.IsOpen());
    EXPECT_EQ(b.Wire(), DetectionWire(0x21));
    EXPECT_EQ(b.person.calls.first(), u"progress: ライタと通信中！"_s);
    EXPECT_EQ(b.person.calls.last(), u"close message"_s);
    EXPECT_EQ(b.person.panels[1], u"ライタを検出しました。 COM12"_s);
    EXPECT_EQ(b.person.panels[5], u"COM:12"_s);
    EXPECT_TRUE(b.person.panels[2].endsWith(u" SW:3.9 HW:1.0"_s))
        << b.person.panels[2].toStdString();
    EXPECT_EQ(b.person.panels[2].size(), 7 + 14);
}

TEST(WriterDetector, AFailureNamesItsStageAndClosesThePort) {
    const struct {
        char letter;  ///< 0: opening is refused
        FaultKind fault;
        char stage;
    } cases[] = {{0, FaultKind::Silent, 'S'},   {'S', FaultKind::Silent, 'S'},
                 {'S', FaultKind::Short, 'S'},  {'S', FaultKind::Late, 'S'},
                 {'V', FaultKind::Silent, 'V'}, {'v', FaultKind::Short, 'v'},
                 {'v', FaultKind::HangUp, 'v'}, {'T', FaultKind::Wrong, 'T'},
                 {'T', FaultKind::Silent, 'T'}};
    for (const auto& c : cases) {
        TestBench b;
        b.port.RefuseOpen(c.letter == 0);
        b.board.SetLetterFault(c.letter, c.fault);
        b.person.panels[2] = u"as it was"_s;
        EXPECT_FALSE(b.bench.detection.WriterCheck());
        EXPECT_FALSE(b.port.IsOpen());
        EXPECT_EQ(b.person.panels[1],
                  u"ライタと通信ができませんでした。(Command_%1)"_s.arg(QLatin1Char(c.stage)));
        EXPECT_EQ(b.person.panels[2], u"as it was"_s);
        EXPECT_EQ(b.person.message, kFailureMessage);
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

TEST(WriterDetector, ASecondCheckReopensThePortAndKeepsTheVersionWhenItFails) {
    TestBench b;
    ASSERT_TRUE(b.bench.detection.WriterCheck());
    b.Forget();
    b.board.SetLetterFault('V', FaultKind::Silent);
    EXPECT_FALSE(b.bench.detection.WriterCheck());
    EXPECT_EQ(b.port.Calls().join(u", "), u"close, configure 1, discard, open, close"_s);
    EXPECT_EQ(b.bench.commands.SoftwareVersion(), u"3.9"_s);
}

TEST(PortSelection, LoadingClosesThePortAndPreselectsTheStoredOne) {
    TestBench b;
    b.settings.values[u"ComNox"_s] = u"7"_s;
    ASSERT_TRUE(b.bench.detection.WriterCheck());
    EXPECT_EQ(b.bench.portSelection.Load(), 7);
    EXPECT_FALSE(b.port.IsOpen());
    EXPECT_TRUE(b.bench.state.errorFlag.Failed());
    EXPECT_EQ(b.person.panels[1], QString());

    b.bench.portSelection.Cancel();
    EXPECT_EQ(b.person.panels[1], u"ライター接続確認が終了していません。"_s);
    EXPECT_FALSE(b.port.IsOpen());
}

TEST(PortSelection, APortThatCantBeOpenedIsNotStored) {
    for (const auto& [index, port] : {std::pair{0, u"COM?"_s}, {9, u"COM9"_s}}) {
        TestBench b;
        b.port.RefuseOpen();
        bool hidden = false;
        EXPECT_FALSE(b.bench.portSelection.Confirm(index, [&hidden] { hidden = true; }));
        EXPECT_EQ(b.person.calls.last(),
                  u"box Stop ポートオープン失敗|%1 のオープンに失敗しました。\r"
                  "ポート番号を再設定してください。"_s.arg(port));
        EXPECT_TRUE(b.bench.state.errorFlag.Failed());
        EXPECT_EQ(b.settings.values[u"ComNox"_s], u"1"_s);
        EXPECT_FALSE(hidden);
    }
}

TEST(PortSelection, AnOpenedPortIsStoredAndDetected) {
    const struct {
        const char* what;
        QString firmware;
        FaultKind fault;
        char letter;
        QString panel;
    } cases[] = {
        // clang-format off
        {"full firmware", u"3.9"_s, FaultKind::Long, 'S', u"ライタを検出しました。 COM3"_s},
        {"another firmware", u"4.0"_s, FaultKind::Long, 'S', kFirmwareNotice},
        {"no writer", u"3.9"_s, FaultKind::Silent, 'S', kFirmwareNotice},
        {"writer fails after its version", u"3.9"_s, FaultKind::Silent, 'v',
         u"ライタと通信ができませんでした。(Command_v)"_s},
        // clang-format on
    };
    for (const auto& c : cases) {
        TestBench b;
        SimulatedWriter board(b.chip.get(), c.firmware);
        b.board = board;
        b.board.SetLetterFault(c.letter, c.fault);
        b.bench.portSelection.Load();
        bool hiddenFirst = false;
        EXPECT_TRUE(b.bench.portSelection.Confirm(3, [&] { hiddenFirst = b.Wire().isEmpty(); }));
        EXPECT_TRUE(hiddenFirst) << c.what;
        EXPECT_EQ(b.settings.values[u"ComNox"_s], u"3"_s) << c.what;
        EXPECT_EQ(b.person.panels[1], c.panel) << c.what;
        EXPECT_EQ(b.person.panels[5], u"COM:3"_s) << c.what;
        EXPECT_FALSE(b.bench.state.errorFlag.Failed()) << c.what;
    }
}

}  // namespace
}  // namespace tolvex
