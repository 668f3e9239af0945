// SPDX-License-Identifier: MIT
#include "device/device_check.h"

#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::TestBench;

const QString kProtected =
    u"デバイスがプロテクトされています。\r\n"
    "チップイレース(<消 Erase>ボタン)を実行してください。"_s;
const QString kEmpty = u"デバイスが、ソケットにセットされていません。"_s;
const QString kMismatch =
    u"デバイス選択と、ソケット上のデバイスが一致しません。\r\n"
    "購入直後のデバイスを使用する場合は、チップイレース(<消 Erase>ボタン)を実行してください。"_s;

/// A writer of which only the signature is asked: gives scripted replies in turn, then none.
class SignatureWriter : public SerialCommands {
  public:
    using SerialCommands::SerialCommands;
    QList<std::array<std::uint8_t, 3>> replies;
    int asked = 0;

    bool ReadSignature(std::array<std::uint8_t, 3>& bytes, ErrorFlag& flag) override {
        ++asked;
        if (replies.isEmpty()) {
            flag.Set();
            return false;
        }
        bytes = replies.takeFirst();
        return true;
    }
};

TEST(DeviceCheck, JudgesTheSizeCode) {
    using S = std::array<std::uint8_t, 3>;
    const struct {
        const char* what;
        int device;
        QList<S> replies;
        int asked;
        bool failed;
        QString message;  ///< null: none
        QString signature;
    } cases[] = {
        // clang-format off
        {"matching", 2, {{0x01, 0x91, 0x1E}}, 1, false, {}, u"1E:91:01"_s},
        {"of the same size", 2, {{0x02, 0x97, 0x1E}}, 1, false, {}, u"1E:97:02"_s},
        {"smaller", 2, {{0x01, 0x90, 0x1E}}, 1, true, kMismatch, u"1E:90:01"_s},
        {"known at the third attempt", 8, {{0, 0, 0}, {0xFF, 0xFF, 0xFF}, {0x01, 0x93, 0x1E}}, 3, false, {},
         u"1E:93:01"_s},
        {"protected", 2, QList<S>(5, S{2, 1, 0}), 5, true, kProtected, u"00:01:02"_s},
        {"protected, other code", 2, QList<S>(5, S{2, 2, 0}), 5, true, kProtected, u"00:02:02"_s},
        {"empty", 2, QList<S>(5, S{0xFF, 0xFF, 0xFF}), 5, true, kEmpty, u"FF:FF:FF"_s},
        {"unknown counts as 512 words", 0, QList<S>(5, S{1, 0x94, 0x1E}), 5, false, {}, u"1E:94:01"_s},
        {"unknown, a larger chip selected", 2, QList<S>(5, S{1, 0x94, 0x1E}), 5, true, kMismatch, u"1E:94:01"_s},
        {"silent", 2, {}, 1, true, {}, u"--:--:--"_s},
        {"silent at the third attempt", 0, {{1, 0x94, 0x1E}, {2, 0x94, 0x1E}}, 3, true, {}, u"1E:94:02"_s},
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
        check.CheckSignature();
        EXPECT_EQ(writer.asked, c.asked) << c.what;
        EXPECT_EQ(b.bench.state.errorFlag.Failed(), c.failed) << c.what;
        EXPECT_EQ(b.person.message, c.message) << c.what;
        EXPECT_EQ(b.person.panels[3], c.signature) << c.what;
        EXPECT_EQ(b.person.options[OptionList::LockBit], c.message == kProtected ? 2 : 0) << c.what;
    }
}

TEST(DeviceCheck, BracketsTheSignatureAndGivesTheChipASecondWhateverFails) {
    for (const bool fails : {false, true}) {
        TestBench b;
        ASSERT_TRUE(b.bench.detection.WriterCheck());
        if (fails) {
            b.board.SetLetterFault('P', FaultKind::Wrong);
        }
        b.Forget();
        const auto start = b.clock.Now();
        b.bench.check.CheckDevice();
        EXPECT_EQ(b.Wire(), (QStringList{u"P"_s, u"s"_s, u"L"_s}));
        EXPECT_GE(b.clock.Now() - start, std::chrono::milliseconds(1100));
        EXPECT_EQ(b.bench.state.errorFlag.Failed(), fails);
    }
}

}  // namespace
}  // namespace tolvex
