// SPDX-License-Identifier: MIT
// The chosen device: its sizes and lists, the check of the chip in the socket, lock and fuse bits.
#include <gtest/gtest.h>

#include "device/fuse_encoding.h"
#include "tests/support/test_bench.h"

namespace tolvex::testing {
namespace {
using L = OptionList;

TEST(DeviceSelection, SetsSizesCodeAndOptions) {
    const QList<L> none, fstrt{L::FSTRT}, rcen{L::RCEN}, bod{L::BODLEVEL, L::BODEN, L::CKSEL};
    // clang-format off
    const struct { QString name; std::uint8_t code; int words, bytes; QList<L> fuses; } cases[] = {
        {u"AT90S1200 (外部ｸﾛｯｸ)"_s, 0x11, 512, 64, none},
        {u"AT90S1200A(内部RCｸﾛｯｸ1MHz)"_s, 0x11, 512, 64, none},
        {u"AT90S2313"_s, 0x21, 1024, 128, none}, {u"AT90S2323"_s, 0x11, 1024, 128, fstrt},
        {u"AT90S2333"_s, 0x22, 1024, 128, bod}, {u"AT90S2343"_s, 0x11, 1024, 128, rcen},
        {u"AT90S4414"_s, 0x21, 2048, 256, none}, {u"AT90S4433"_s, 0x22, 2048, 256, bod},
        {u"AT90S8515"_s, 0x21, 4096, 512, none}, {u"AT90S8535"_s, 0x22, 4096, 512, fstrt},
    };
    // clang-format on
    TestBench b(7);
    EXPECT_EQ(Catalogue().size(), std::size(cases));
    int index = 0;
    for (const auto& c : cases) {
        SelectDevice(b.bench.chip, index);  // undoes what the one before showed
        EXPECT_EQ(b.user.shownDevice.name, c.name);
        EXPECT_EQ(b.settings.values[u"device"_s], QString::number(index++));
        EXPECT_EQ(b.bench.state.device.deviceCode, c.code) << index;
        EXPECT_EQ(b.bench.state.device.flashWords, c.words) << index;
        EXPECT_EQ(b.bench.state.device.eepromBytes, c.bytes) << index;
        for (const L list : kOptionLists) {
            EXPECT_EQ(HasOption(b.bench.state.device.fuseGroup, list),
                      list == L::LockBit || c.fuses.contains(list));
        }
        EXPECT_EQ(b.user.flashListing.count(u'\n'), c.words / 8);
        EXPECT_EQ(b.user.eepromListing.count(u'\n'), c.bytes / 16);
    }
    SelectDevice(b.bench.chip, -1);  // no choice changes nothing of the device
    EXPECT_EQ(b.bench.state.device.flashWords, 4096);
}

TEST(DeviceSelection, StartsWithTheStoredDeviceAndPresetOptions) {
    TestBench b;
    b.settings.values[u"device"_s] = u"99"_s;
    FillDeviceLists(b.bench.chip);
    EXPECT_EQ(b.settings.values[u"device"_s], u"0"_s) << "damaged: the first";
    b.settings.values[u"device"_s] = u"8"_s;
    FillDeviceLists(b.bench.chip);
    EXPECT_EQ(b.user.shownDevice.name, u"AT90S8515"_s);
    EXPECT_TRUE(b.user.patchPanelShown);
    const std::pair<L, QString> entries[] = {
        // clang-format off
        {L::FSTRT, u"Enable|Disable"_s}, {L::RCEN, u"Enable|Disable"_s}, {L::BODLEVEL, u"4.0V|2.7V"_s}, {L::BODEN, u"Enable|Disable"_s},
        {L::CKSEL, u"4ms + 6 CK|6 CK|64ms + 16K CK|4ms + 16K CK|16K CK|64ms + 1K CK|4ms + 1K CK|1K CK"_s},
        {L::LockBit, u"書込み & ベリファイ 禁止|書込み禁止|プロテクトなし"_s},
        // clang-format on
    };
    for (std::size_t row = 0; row < std::size(entries); ++row) {
        EXPECT_EQ(OptionRows()[row].list, entries[row].first);
        EXPECT_EQ(OptionRows()[row].entries.join(u'|'), entries[row].second);
    }
    EXPECT_EQ(b.user.shownOptions, (OptionChoice{{1, 0, 1, 1, 2, 2}})) << "as in kOptionLists";
    // A new device's fuses are preset, no other list.
    b.bench.state.options = {{0, 0, 1, 1, 7, 0}};
    SelectDevice(b.bench.chip, 7);
    EXPECT_EQ(b.user.shownOptions, (OptionChoice{{0, 0, 1, 1, 2, 0}}));
}

/// A port whose far end answers 's' with scripted signatures in turn, then with nothing.
class SignaturePort : public SimulatedPort {
  public:
    using SimulatedPort::SimulatedPort;
    QList<Signature> replies;

    bool Write(QByteArrayView bytes) override {
        input_ = replies.isEmpty() || bytes[0] != 's'
                     ? QByteArray()
                     : QByteArray(reinterpret_cast<const char*>(replies.takeFirst().data()), 3);
        return true;
    }
    int InputCount() const override { return static_cast<int>(input_.size()); }
    QByteArray ReadAll() override { return std::exchange(input_, {}); }

  private:
    QByteArray input_;
};

const QString kLocked =
    u"デバイスがプロテクトされています。\r\nチップイレース(<消 Erase>ボタン)を実行してください。"_s;
const QString kEmpty = u"デバイスが、ソケットにセットされていません。"_s;
const QString kMismatch =
    u"デバイス選択と、ソケット上のデバイスが一致しません。\r\n"
    "購入直後のデバイスを使用する場合は、チップイレース(<消 Erase>ボタン)を実行してください。"_s;

TEST(DeviceCheck, JudgesTheSizeCode) {
    using V = ChipVerdict;
    // clang-format off
    // The replies are exactly as many as are asked for; none left is silence.
    const struct { int device; QList<Signature> replies; V verdict; QString message, panel; } cases[] = {
        {2, {{2, 0x97, 0x1E}}, V::Accepted, {}, u"1E:97:02"_s},
        {2, {{1, 0x90, 0x1E}}, V::Mismatch, kMismatch, u"1E:90:01"_s},
        {2, {{1, 0x93, 0x1E}}, V::Mismatch, kMismatch, u"1E:93:01"_s},
        {8, {{0, 0, 0}, {0xFF, 0xFF, 0xFF}, {1, 0x93, 0x1E}}, V::Accepted, {}, u"1E:93:01"_s},
        {2, QList<Signature>(5, Signature{2, 2, 0}), V::Locked, kLocked, u"00:02:02"_s},
        {2, QList<Signature>(5, Signature{0xFF, 0xFF, 0xFF}), V::EmptySocket, kEmpty, u"FF:FF:FF"_s},
        {0, QList<Signature>(5, Signature{1, 0x03, 0x1E}), V::Accepted, {}, u"1E:03:01"_s},  // unknown counts as 512 words
        {2, {}, V::NoReply, {}, u"--:--:--"_s},
        {0, {{1, 0x94, 0x1E}, {2, 0x94, 0x1E}}, V::NoReply, {}, u"1E:94:02"_s},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.panel.toStdString());
        Surroundings around(c.device, 0);
        SignaturePort line(around.board, around.clock);
        line.replies = c.replies;
        TestBench b(c.device, &line, &around.clock);
        b.user.message = QString();
        b.bench.state.options[L::LockBit] = 0;
        b.user.ShowSettings();
        const ChipReading reading = CheckSignature(b.bench.chip);
        EXPECT_TRUE(line.replies.isEmpty());
        EXPECT_EQ(reading.verdict, c.verdict);
        EXPECT_EQ(reading.Passed(), c.verdict == V::Accepted);
        EXPECT_EQ(b.bench.state.errorFlag.Failed(), !reading.Passed());
        EXPECT_EQ(b.user.message, c.message);
        EXPECT_EQ(b.user.failures.contains(c.message), !c.message.isNull());
        EXPECT_EQ(b.user.panels[3], c.panel);
        EXPECT_EQ(b.user.shownOptions[L::LockBit], c.verdict == V::Locked ? 2 : 0) << "shown";
    }
}

TEST(FuseEncoding, LockBitsThatNoEntryStandsForLeaveTheList) {
    const std::tuple<FuseGroup, std::uint8_t, int> cases[] = {
        {FuseGroup::FSTRT, 0x3F, 0},     {FuseGroup::RCEN, 0x41, 1},
        {FuseGroup::RCEN, 0xBF, 5},      {FuseGroup::BOD_CKSEL, 0xF9, 0},
        {FuseGroup::BOD_CKSEL, 0x07, 2}, {FuseGroup::BOD_CKSEL, 0xFB, 5}};
    for (const auto& [group, byte, entry] : cases) {
        OptionChoice options;
        options[L::LockBit] = 5;  // as it was
        DecodeLock(group, byte, options);
        EXPECT_EQ(options[L::LockBit], entry) << int{byte};
    }
    EXPECT_EQ(EncodeLock(-1), 0xFF) << "nothing selected locks nothing";
}

TEST(LockFuseBits, GoesOverTheWireFusesFirstAndComesBack) {
    // clang-format off
    const struct { int device; std::uint8_t code; QMap<L, int> options; QString written, read; } cases[] = {
        {0, 0x11, {{L::LockBit, 0}}, u"P,l F9,L"_s, u""_s},
        {3, 0x11, {{L::FSTRT, 0}, {L::LockBit, 1}}, u"P,f BE,L,P,l FD,L"_s, u"P,F,L"_s},
        {5, 0x11, {{L::RCEN, 1}}, u"P,f BF,L,P,l FF,L"_s, u"P,F,L"_s},
        {4, 0x22, {}, u"P,f BA,L,P,l FF,L"_s, u"P,r,L,P,F,L"_s},
        {7, 0x22, {{L::CKSEL, 7}, {L::BODEN, 0}, {L::BODLEVEL, 1}, {L::LockBit, 1}}, u"P,f B7,L,P,l FD,L"_s,
         u"P,r,L,P,F,L"_s},
    };
    // clang-format on
    for (const auto& c : cases) {
        TestBench b(c.device);
        const QStringList before = DetectionWire(c.code) << u"P"_s << u"s"_s << u"L"_s;
        for (const auto& [list, entry] : c.options.asKeyValueRange()) {
            b.bench.state.options[list] = entry;
        }
        const auto written = b.bench.state.options;
        EXPECT_TRUE(b.Press(u"FuseWrite"_s));
        EXPECT_EQ(b.Wire(), before + c.written.split(u',')) << c.device;
        if (!c.read.isEmpty()) {
            for (const L list : c.options.keys()) {
                b.bench.state.options[list] = 3;
            }
            b.Forget();
            EXPECT_TRUE(b.Press(u"FuseRead"_s));
            EXPECT_EQ(b.Wire(), before + c.read.split(u',')) << c.device;
            EXPECT_EQ(b.bench.state.options, written) << c.device;
            EXPECT_EQ(b.user.shownOptions, written) << c.device;
        }
    }
}

TEST(LockFuseBits, AFailedReadShowsWhatIsKeptAndAtFirstNoProtection) {
    for (const int device : {3, 4}) {
        TestBench b(device);
        b.board.SetLetterFault('F', FaultKind::Silent);
        b.bench.state.options[L::LockBit] = 0;
        b.Press(u"FuseRead"_s);
        EXPECT_EQ(b.bench.state.options[L::LockBit], 2) << "must not look ready to lock the chip";
        b.bench.state.options[L::LockBit] = 1;
        b.Press(u"FuseWrite"_s);
        b.bench.state.options[L::LockBit] = 0;
        b.Press(u"FuseRead"_s);
        // The byte that is written is the one that brown-out chips are read into.
        EXPECT_EQ(b.bench.state.options[L::LockBit], device == 4 ? 1 : 2);
    }
}

}  // namespace
}  // namespace tolvex::testing
