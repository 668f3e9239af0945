// SPDX-License-Identifier: MIT
#include "device/lock_fuse_bits.h"

#include <gtest/gtest.h>

#include "device/fuse_encoding.h"
#include "tests/support/test_bench.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::DetectionWire;
using testing::Recorder;
using testing::TestBench;
using L = OptionList;

const QString kReadDone = u"Lock/Fuse bit リードが完了しました。"_s;
const QString kReadFailed = u"Lock/Fuse bit リードに失敗しました。"_s;
const QString kWriteDone = u"Lock/Fuse bit ライトが完了しました。"_s;
const QString kWriteFailed = u"Lock/Fuse bit ライトに失敗しました。"_s;

TEST(FuseEncoding, LockBitsThatNoEntryStandsForLeaveTheList) {
    const std::tuple<FuseGroup, std::uint8_t, int> cases[] = {
        {FuseGroup::FSTRT, 0x3F, 0},     {FuseGroup::RCEN, 0x41, 1},
        {FuseGroup::RCEN, 0xBF, 5},      {FuseGroup::BOD_CKSEL, 0xF9, 0},
        {FuseGroup::BOD_CKSEL, 0x07, 2}, {FuseGroup::BOD_CKSEL, 0xFB, 5}};
    for (const auto& [group, byte, entry] : cases) {
        Recorder lists;
        lists.options[L::LockBit] = 5;  // as it was
        DecodeLock(group, byte, lists);
        EXPECT_EQ(lists.options[L::LockBit], entry) << int{byte};
    }
    EXPECT_EQ(EncodeLock(-1), 0xFF) << "nothing selected locks nothing";
}

TEST(LockFuseBits, GoesOverTheWireFusesFirstAndComesBack) {
    const struct {
        int device;
        std::uint8_t code;
        QMap<L, int> options;
        QString written, read;
    } cases[] = {
        // clang-format off
        {0, 0x11, {{L::LockBit, 0}}, u"P,l F9,L"_s, u""_s},
        {3, 0x11, {{L::FSTRT, 0}, {L::LockBit, 1}}, u"P,f BE,L,P,l FD,L"_s, u"P,F,L"_s},
        {5, 0x11, {{L::RCEN, 1}}, u"P,f BF,L,P,l FF,L"_s, u"P,F,L"_s},
        {4, 0x22, {}, u"P,f BA,L,P,l FF,L"_s, u"P,r,L,P,F,L"_s},
        {7, 0x22, {{L::CKSEL, 7}, {L::BODEN, 0}, {L::BODLEVEL, 1}, {L::LockBit, 1}}, u"P,f B7,L,P,l FD,L"_s,
         u"P,r,L,P,F,L"_s},
        // clang-format on
    };
    for (const auto& c : cases) {
        TestBench b(c.device);
        const QStringList before = DetectionWire(c.code) << u"P"_s << u"s"_s << u"L"_s;
        b.person.options.insert(c.options);
        const auto written = b.person.options;
        EXPECT_TRUE(b.bench.lockFuse.cmdFuseWrite_Click().done);
        EXPECT_EQ(b.person.message, kWriteDone);
        EXPECT_EQ(b.Wire(), before + c.written.split(u',')) << c.device;
        if (!c.read.isEmpty()) {
            for (const L list : c.options.keys()) {
                b.person.options[list] = 3;
            }
            b.Forget();
            EXPECT_TRUE(b.bench.lockFuse.cmdFuseRead_Click().done);
            EXPECT_EQ(b.person.message, kReadDone);
            EXPECT_EQ(b.Wire(), before + c.read.split(u',')) << c.device;
            EXPECT_EQ(b.person.options, written) << c.device;
        }
    }
}

TEST(LockFuseBits, AFailureIsNoSuccessAndIsToldWithTheButtonsOwnText) {
    const struct {
        char letter;  ///< blank: the chip is protected
        QString read, write;
    } cases[] = {
        // clang-format off
        {'f', kReadDone, kWriteFailed},
        {'F', kReadFailed, kWriteDone},
        {'r', kReadFailed, kWriteDone},
        {' ', u"設定デバイスと、ソケット上のデバイスがミスマッチです。"_s,
         u"デバイスがプロテクトされています。\r\nチップイレース(<消 Erase>ボタン)を実行してください。"_s},
        // clang-format on
    };
    for (const auto& c : cases) {
        for (const bool write : {false, true}) {
            TestBench b(4);
            b.board.SetLetterFault(c.letter, FaultKind::Short);
            b.chip->ProgramLock(c.letter == ' ' ? 0xF9 : 0xFF);
            const LockFuseResult result = write ? b.bench.lockFuse.cmdFuseWrite_Click()
                                                : b.bench.lockFuse.cmdFuseRead_Click();
            EXPECT_EQ(b.person.message, write ? c.write : c.read);
            EXPECT_EQ(result.done, b.person.message == kReadDone || b.person.message == kWriteDone);
            EXPECT_EQ(result.lockByte.has_value(), !write && c.letter != 'F' && c.letter != ' ');
        }
    }
    TestBench b(3);
    b.port.RefuseOpen();
    EXPECT_FALSE(b.bench.lockFuse.cmdFuseRead_Click().done);
    EXPECT_FALSE(b.bench.lockFuse.cmdFuseWrite_Click().done);
    EXPECT_EQ(b.person.calls.filter(u"Lock/Fuse"_s), QStringList()) << "no writer, no word";
}

TEST(LockFuseBits, AFailedReadShowsWhatIsKeptAndAtFirstNoProtection) {
    for (const int device : {3, 4}) {
        TestBench b(device);
        b.board.SetLetterFault('F', FaultKind::Silent);
        b.person.options[L::LockBit] = 0;
        b.bench.lockFuse.cmdFuseRead_Click();
        EXPECT_EQ(b.person.options[L::LockBit], 2) << "must not look ready to lock the chip";
        b.person.options[L::LockBit] = 1;
        b.bench.lockFuse.cmdFuseWrite_Click();
        b.person.options[L::LockBit] = 0;
        b.bench.lockFuse.cmdFuseRead_Click();
        // The byte that is written is the one that brown-out chips are read into.
        EXPECT_EQ(b.person.options[L::LockBit], device == 4 ? 1 : 2);
    }
}

}  // namespace
}  // namespace tolvex
