// SPDX-License-Identifier: MIT
#include "device/device_check.h"

#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::TestBench;
using Signature = std::array<std::uint8_t, 3>;

/// A writer that gives scripted signatures in turn, then none.
class SignatureWriter : public SerialCommands {
  public:
    using SerialCommands::SerialCommands;
    QList<Signature> replies;

    bool ReadSignature(Signature& bytes, ErrorFlag& flag) override {
        if (replies.isEmpty()) {
            flag.Set();
            return false;
        }
        bytes = replies.takeFirst();
        return true;
    }
};

const QString kProtected =
    u"デバイスがプロテクトされています。\r\n"
    "チップイレース(<消 Erase>ボタン)を実行してください。"_s;
const QString kEmpty = u"デバイスが、ソケットにセットされていません。"_s;
const QString kMismatch =
    u"デバイス選択と、ソケット上のデバイスが一致しません。\r\n"
    "購入直後のデバイスを使用する場合は、チップイレース(<消 Erase>ボタン)を実行してください。"_s;

TEST(DeviceCheck, JudgesTheSizeCode) {
    using V = ChipVerdict;
    const struct {
        int device;
        QList<Signature> replies;  ///< exactly as many as are asked for; none left = silence
        V verdict;
        QString message, panel;
    } cases[] = {
        // clang-format off
        {2, {{2, 0x97, 0x1E}}, V::Accepted, {}, u"1E:97:02"_s},
        {2, {{1, 0x90, 0x1E}}, V::Mismatch, kMismatch, u"1E:90:01"_s},
        {8, {{0, 0, 0}, {0xFF, 0xFF, 0xFF}, {1, 0x93, 0x1E}}, V::Accepted, {}, u"1E:93:01"_s},
        {2, QList<Signature>(5, Signature{2, 2, 0}), V::Protected, kProtected, u"00:02:02"_s},
        {2, QList<Signature>(5, Signature{0xFF, 0xFF, 0xFF}), V::EmptySocket, kEmpty, u"FF:FF:FF"_s},
        {0, QList<Signature>(5, Signature{1, 0x03, 0x1E}), V::Accepted, {}, u"1E:03:01"_s},  // unknown counts as 512 words
        {2, {}, V::NoReply, {}, u"--:--:--"_s},
        {0, {{1, 0x94, 0x1E}, {2, 0x94, 0x1E}}, V::NoReply, {}, u"1E:94:02"_s},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.panel.toStdString());
        TestBench b(c.device);
        SignatureWriter writer(b.bench.connection, b.person, b.bench.state.errorFlag);
        writer.replies = c.replies;
        b.person.message = QString();
        b.person.options[OptionList::LockBit] = 0;
        DeviceCheck check(
            {writer, b.bench.connection, b.bench.listings, b.bench.person, b.bench.state});
        const ChipReading reading = check.CheckSignature();
        EXPECT_TRUE(writer.replies.isEmpty());
        EXPECT_EQ(reading.verdict, c.verdict);
        EXPECT_EQ(reading.passed, c.verdict == V::Accepted);
        EXPECT_EQ(b.bench.state.errorFlag.Failed(), !reading.passed);
        EXPECT_EQ(b.person.message, c.message);
        EXPECT_EQ(b.person.panels[3], c.panel);
        EXPECT_EQ(b.person.options[OptionList::LockBit], c.verdict == V::Protected ? 2 : 0);
    }
}

TEST(DeviceCheck, GoesOnWhateverFailsAndLetsAnotherSizePassWhenTold) {
    TestBench b;
    ASSERT_TRUE(b.bench.detection.WriterCheck());
    b.board.SetLetterFault('P', FaultKind::Wrong, 1);
    b.Forget();
    const auto start = b.clock.Now();
    EXPECT_FALSE(b.bench.check.CheckDevice().passed);
    EXPECT_EQ(b.Wire().join(u','), u"P,s,L"_s);
    EXPECT_GE(b.clock.Now() - start, std::chrono::milliseconds(1100));
    b.bench.selection.SelectDevice(2);
    b.bench.state.errorFlag.Clear();
    b.bench.check.TolerateMismatch();
    EXPECT_TRUE(b.bench.check.CheckDevice().passed);
    EXPECT_EQ(b.person.message, kMismatch);
}

}  // namespace
}  // namespace tolvex
