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

struct StageCase {
    const char* what;
    char letter;  ///< 0: opening is refused
    FaultKind fault;
    QString text;
};

TEST(WriterDetector, AFailureNamesItsStageAndClosesThePort) {
    const StageCase cases[] = {
        {"port missing", 0, FaultKind::Silent, u"(Command_S)"_s},
        {"S silent", 'S', FaultKind::Silent, u"(Command_S)"_s},
        {"S one byte short", 'S', FaultKind::Short, u"(Command_S)"_s},
        {"S too late", 'S', FaultKind::Late, u"(Command_S)"_s},
        {"V silent", 'V', FaultKind::Silent, u"(Command_V)"_s},
        {"v short", 'v', FaultKind::Short, u"(Command_v)"_s},
        {"T refused", 'T', FaultKind::Wrong, u"(Command_T)"_s},
        {"T silent", 'T', FaultKind::Silent, u"(Command_T)"_s},
        {"adapter pulled out at v", 'v', FaultKind::HangUp, u"(Command_v)"_s},
    };
    for (const StageCase& c : cases) {
        TestBench b;
        b.port.RefuseOpen(c.letter == 0);
        b.board.SetLetterFault(c.letter, c.fault);
        b.person.panels[2] = u"as it was"_s;
        EXPECT_FALSE(b.bench.detection.WriterCheck()) << c.what;
        EXPECT_FALSE(b.port.IsOpen()) << c.what;
        EXPECT_EQ(b.person.panels[1], u"ライタと通信ができませんでした。"_s + c.text) << c.what;
        EXPECT_EQ(b.person.panels[2], u"as it was"_s) << c.what;
        EXPECT_EQ(b.person.message, kFailureMessage) << c.what;
    }
}

TEST(WriterDetector, WithoutAStoredPortNothingIsOpened) {
    for (const QString& stored : {QString(), u"0"_s, u"seven"_s, u"21"_s}) {
        TestBench b;
        b.settings.values.remove(u"ComNox"_s);
        if (!stored.isNull()) {
            b.settings.values[u"ComNox"_s] = stored;
        }
        EXPECT_FALSE(b.bench.detection.WriterCheck());
        EXPECT_FALSE(b.port.Calls().contains(u"open"_s));
        EXPECT_EQ(b.person.panels[1], u"ライタと通信ができませんでした。(レジストリリード)"_s);
        EXPECT_FALSE(b.bench.errorFlag.Failed());
        if (stored != u"0"_s) {
            EXPECT_EQ(b.person.panels[5], u"COM:1"_s);
        }
    }
}

TEST(WriterDetector, ReopensAPortThatIsOpen) {
    TestBench b;
    ASSERT_TRUE(b.bench.detection.WriterCheck());
    b.Forget();
    EXPECT_TRUE(b.bench.detection.WriterCheck());
    EXPECT_EQ(b.port.Calls(), (QStringList{u"close"_s, u"configure 1"_s, u"discard"_s, u"open"_s}));
}

TEST(WriterDetector, TheVersionOfAnEarlierSuccessIsKept) {
    TestBench b;
    ASSERT_TRUE(b.bench.detection.WriterCheck());
    b.board.SetLetterFault('V', FaultKind::Silent);
    EXPECT_FALSE(b.bench.detection.WriterCheck());
    EXPECT_EQ(b.bench.commands.SoftwareVersion(), u"3.9"_s);
}

}  // namespace
}  // namespace tolvex
