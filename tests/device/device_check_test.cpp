// SPDX-License-Identifier: MIT
#include "device/device_check.h"

#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::TestBench;

/// A writer of which only the signature is asked: gives scripted replies in turn, then none.
class SignatureWriter : public SerialCommands {
  public:
    using SerialCommands::SerialCommands;
    QList<std::array<std::uint8_t, 3>> replies;

    bool ReadSignature(std::array<std::uint8_t, 3>& bytes, ErrorFlag& flag) override {
        if (replies.isEmpty()) {
            flag.Set();
            return false;
        }
        bytes = replies.takeFirst();
        return true;
    }
};

TEST(DeviceCheck, JudgesTheSizeCode) {
    const QString isProtected =
        u"デバイスがプロテクトされています。\r\n"
        "チップイレース(<消 Erase>ボタン)を実行してください。"_s;
    const QString empty = u"デバイスが、ソケットにセットされていません。"_s;
    const QString mismatch =
        u"デバイス選択と、ソケット上のデバイスが一致しません。\r\n"
        "購入直後のデバイスを使用する場合は、チップイレース(<消 Erase>ボタン)を実行してください。"_s;
    using S = std::array<std::uint8_t, 3>;
    using V = ChipVerdict;
    const struct {
        const char* what;
        int device;
        QList<S> replies;  ///< as many as are asked for, and one more where the last one ends it
        V verdict;
        QString message;  ///< null: none
        QString signature;
    } cases[] = {
        // clang-format off
        {"of the same size", 2, {{2, 0x97, 0x1E}}, V::Accepted, {}, u"1E:97:02"_s},
        {"smaller", 2, {{1, 0x90, 0x1E}}, V::Mismatch, mismatch, u"1E:90:01"_s},
        {"known at the third attempt", 8, {{0, 0, 0}, {0xFF, 0xFF, 0xFF}, {1, 0x93, 0x1E}}, V::Accepted, {},
         u"1E:93:01"_s},
        {"protected", 2, QList<S>(5, S{2, 1, 0}), V::Protected, isProtected, u"00:01:02"_s},
        {"protected, highest code", 2, QList<S>(5, S{2, 2, 0}), V::Protected, isProtected, u"00:02:02"_s},
        {"empty", 2, QList<S>(5, S{0xFF, 0xFF, 0xFF}), V::EmptySocket, empty, u"FF:FF:FF"_s},
        {"unknown counts as 512 words", 0, QList<S>(5, S{1, 0x94, 0x1E}), V::Accepted, {}, u"1E:94:01"_s},
        {"unknown, a larger chip selected", 2, QList<S>(5, S{1, 0x03, 0x1E}), V::Mismatch, mismatch,
         u"1E:03:01"_s},
        {"silent", 2, {}, V::NoReply, {}, u"--:--:--"_s},
        {"silent at the third attempt", 0, {{1, 0x94, 0x1E}, {2, 0x94, 0x1E}}, V::NoReply, {}, u"1E:94:02"_s},
        // clang-format on
    };
    for (const auto& c : cases) {
        TestBench b(c.device);
        SignatureWriter writer(b.bench.connection, b.person, b.bench.state.errorFlag);
        writer.replies = c.replies;
        b.person.message = QString();
        b.person.options[OptionList::LockBit] = 0;
        DeviceCheck check({.writer = writer,
                           .waiting = b.bench.connection,
                           .listings = b.bench.listings,
                           .person = b.bench.person,
                           .state = b.bench.state});
        const ChipReading reading = check.CheckSignature();
        EXPECT_TRUE(writer.replies.isEmpty()) << c.what;
        EXPECT_EQ(reading.verdict, c.verdict) << c.what;
        EXPECT_EQ(reading.passed, c.verdict == V::Accepted) << c.what;
        EXPECT_EQ(b.bench.state.errorFlag.Failed(), c.verdict != V::Accepted) << c.what;
        EXPECT_EQ(b.person.message, c.message) << c.what;
        EXPECT_EQ(b.person.panels[3], c.signature) << c.what;
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
    const ChipReading reading = b.bench.check.CheckDevice();
    EXPECT_TRUE(reading.passed);
    EXPECT_EQ(reading.verdict, ChipVerdict::Mismatch);
}

}  // namespace
}  // namespace tolvex
