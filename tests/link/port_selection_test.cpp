// SPDX-License-Identifier: MIT
#include "link/port_selection.h"

#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::TestBench;

const QString kFirmwareNotice =
    u"このファームウエアバージョンでは、AT90S2333/4433をサポートしません。"_s;

TEST(PortSelection, OffersTwentyPortsByTheirNumber) {
    const QStringList entries = PortSelection::Entries();
    ASSERT_EQ(entries.size(), 21);
    EXPECT_EQ(entries[0], u"????"_s);
    EXPECT_EQ(entries[1], u"COM1"_s);
    EXPECT_EQ(entries[20], u"COM20"_s);
}

TEST(PortSelection, LoadingClosesThePortAndPreselectsTheStoredOne) {
    TestBench b;
    b.settings.values[u"ComNox"_s] = u"7"_s;
    ASSERT_TRUE(b.bench.detection.WriterCheck());
    EXPECT_EQ(b.bench.portSelection.Load(), 7);
    EXPECT_FALSE(b.port.IsOpen());
    EXPECT_TRUE(b.bench.errorFlag.Failed());
    EXPECT_EQ(b.person.panels[1], QString());

    b.settings.values.remove(u"ComNox"_s);
    EXPECT_EQ(b.bench.portSelection.Load(), 0);
}

TEST(PortSelection, APortThatCantBeOpenedIsNotStored) {
    struct Refusal {
        int index;
        QString text;
    };
    for (const Refusal& c :
         {Refusal{0, u"COM? のオープンに失敗しました。\rポート番号を再設定してください。"_s},
          {9, u"COM9 のオープンに失敗しました。\rポート番号を再設定してください。"_s}}) {
        TestBench b;
        b.port.RefuseOpen();
        bool hidden = false;
        EXPECT_FALSE(b.bench.portSelection.Confirm(c.index, [&hidden] { hidden = true; }));
        EXPECT_EQ(b.person.calls.last(), u"box Stop ポートオープン失敗|"_s + c.text);
        EXPECT_TRUE(b.bench.errorFlag.Failed());
        EXPECT_EQ(b.settings.values[u"ComNox"_s], u"1"_s);
        EXPECT_FALSE(hidden);
    }
}

TEST(PortSelection, AnOpenedPortIsStoredAndDetected) {
    struct Outcome {
        const char* what;
        QString firmware;
        FaultKind fault;
        char letter;
        QString panel;
    };
    for (const Outcome& c : {
             Outcome{"full firmware", u"3.9"_s, FaultKind::Long, 'S',
                     u"ライタを検出しました。 COM3"_s},
             {"another firmware", u"4.0"_s, FaultKind::Long, 'S', kFirmwareNotice},
             {"no writer", u"3.9"_s, FaultKind::Silent, 'S', kFirmwareNotice},
             {"writer fails after its version", u"3.9"_s, FaultKind::Silent, 'v',
              u"ライタと通信ができませんでした。(Command_v)"_s},
         }) {
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
        EXPECT_FALSE(b.bench.errorFlag.Failed()) << c.what;
    }
}

TEST(PortSelection, CancelSaysSo) {
    TestBench b;
    b.bench.portSelection.Load();
    b.bench.portSelection.Cancel();
    EXPECT_EQ(b.person.panels[1], u"ライター接続確認が終了していません。"_s);
    EXPECT_TRUE(b.bench.errorFlag.Failed());
    EXPECT_FALSE(b.port.IsOpen());
}

}  // namespace
}  // namespace tolvex
