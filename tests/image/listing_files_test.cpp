// SPDX-License-Identifier: MIT
// The listings, and the patch panel, whose changes show in them.
#include "image/image.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "tests/support/file_troubles.h"
#include "tests/support/real_files.h"
#include "tests/support/recorder.h"

namespace tolvex::testing {
namespace {

const QString kBadInput = u"message OK: 入力データに誤りがあります．"_s;
const QString kFlashRange = u"message OK: Flash アドレスが範囲を超えています．"_s;
const QString kEepromRange = u"message OK: EEPROM アドレスが範囲を超えています．"_s;
constexpr bool kProgram = true, kEeprom = false;

struct ListingTest : ::testing::Test {
    QTemporaryDir dir;
    Recorder user;
    MemorySettings settings;
    ProgramState state{.device = {u"AT90S2313"_s, 0x24, 1024, 128, FuseGroup::LockOnly}};
    const QString first = dir.path() + u"/first/"_s, second = dir.path() + u"/second/"_s;
    ListingFiles listings{{first, second}, user, state};
    ImageContext image{listings, settings, user, state};
};

TEST_F(ListingTest, LinesToTheByte) {
    const QByteArray text = "Hello\x1F \x7E\x7F\x80", dots(16, '\xA5');
    std::ranges::copy(text, state.images.eeprom.begin());
    std::ranges::copy(QByteArray("\x94\x0C"), state.images.flash.begin());
    state.images.flash[2047] = 0x7E;
    state.images.flash[2048] = state.images.eeprom[128] = 0x42;  // beyond the device
    ASSERT_TRUE(listings.RefreshFlashListing() && listings.WriteEepromListing());
    QList<QByteArray> lines = Lines(first + u"avrhex.txt"_s);
    ASSERT_EQ(lines.size(), 128);
    EXPECT_EQ(lines[0], "0000: 940C FFFF FFFF FFFF FFFF FFFF FFFF FFFF " + dots);
    EXPECT_EQ(lines[127], "03F8: FFFF FFFF FFFF FFFF FFFF FFFF FFFF FF7E " + dots.left(15) + "~");
    EXPECT_TRUE(user.flashListing.endsWith(u" FF7E "_s + QString(15, u'\uFF65') + u"~\n"_s));
    lines = Lines(first + u"avreep.txt"_s);
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines[0],
              "0000: 48 65 6C 6C 6F 1F 20 7E 7F 80 FF FF FF FF FF FF Hello\xA5 ~" + dots.left(8));
    EXPECT_TRUE(lines[7].startsWith("0070: FF"));
}

TEST_F(ListingTest, TheNextFolderTakesWhatOneRefuses) {
    const QString old = first + u"avrvfy.txt"_s, other = second + u"avrvfy.txt"_s;
    ASSERT_TRUE(listings.WriteVerifyReport("old"));
    const std::function<void()> refusals[] = {
        [&] { QFile::remove(old), MakeNoFile(old); },
        [&] { QFile::remove(old), QDir().mkpath(old); },
        [&] { QDir(first).removeRecursively(), PutFile(first.chopped(1), "no folder"); },
    };
    for (const auto& refuse : refusals) {
        refuse();
        QFile::remove(other);
        EXPECT_TRUE(listings.WriteVerifyReport("new") && listings.ShowVerifyReport());
        EXPECT_EQ(Bytes(other), "new");
    }
    EXPECT_EQ(user.verifyReport, u"new"_s);
    QFile::remove(first.chopped(1));
    EXPECT_TRUE(listings.WriteVerifyReport("newer"));
    EXPECT_TRUE(QFile::exists(old) && !QFile::exists(other)) << "one copy, and that in date";
    EXPECT_TRUE(user.message.isNull());
}

TEST_F(ListingTest, WhenNoFolderTakesItTheUserIsToldOnce) {
    ASSERT_TRUE(listings.RefreshFlashListing());
    {
        const FullDisk full(100);
        if (!full.Bound()) {
            GTEST_SKIP() << "no disk can be made full here";
        }
        EXPECT_FALSE(listings.WriteFlashListing() || listings.ShowFlashListing());
        EXPECT_FALSE(listings.RefreshEepromListing() || listings.ShowVerifyReport());
        EXPECT_TRUE(QDir(first).isEmpty() && QDir(second).isEmpty()) << "half a listing";
    }
    EXPECT_EQ(user.calls.filter(u"message"_s),
              QStringList(u"message OK: リストファイルを書き込めるフォルダがないため、"
                          "リストを表示できません。"_s));
    EXPECT_TRUE(listings.RefreshFlashListing()) << "room again";
}

TEST_F(ListingTest, RetiredItLeavesAndWritesNothing) {
    for (const QString& folder : {first, second}) {
        QDir().mkpath(folder);
        for (const char* name : {"avrhex.txt", "avreep.txt", "avrvfy.txt", "x.txt"}) {
            PutFile(folder + QLatin1String(name), "from an earlier run");
        }
    }
    ASSERT_TRUE(listings.WriteFlashListing());
    listings.Retire();
    EXPECT_FALSE(listings.WriteFlashListing() || listings.ShowFlashListing());
    EXPECT_FALSE(listings.WriteEepromListing() || listings.WriteVerifyReport("report"));
    EXPECT_EQ(QDir(first).entryList(QDir::Files), QStringList(u"x.txt"_s));
    EXPECT_EQ(QDir(second).entryList(QDir::Files), QStringList(u"x.txt"_s));

    ListingFiles none({}, user, state);
    EXPECT_TRUE(none.RefreshFlashListing() && none.WriteVerifyReport("kept nowhere"));
    EXPECT_TRUE(user.calls.isEmpty());
}

TEST_F(ListingTest, ThePatchPanelReadsACell) {
    std::ranges::copy(QByteArray("\x0A\xBC"), &state.images.flash[2046]);
    state.images.eeprom[0x7F] = 0x0D;
    const std::tuple<QString, bool, std::optional<QString>, QString> cases[] = {
        {u"03ff"_s, kProgram, u"0ABC"_s, {}},   {u"400"_s, kProgram, {}, kFlashRange},
        {u"007Fg"_s, kEeprom, u"0D"_s, {}},     {u"80"_s, kEeprom, {}, kEepromRange},
        {u"G"_s, kProgram, {}, kBadInput},      {u""_s, kProgram, {}, {}},
        {u"\uFB00"_s, kProgram, {}, kBadInput},  // a ligature that upper-cases to FF
    };
    for (const auto& [address, memory, shown, said] : cases) {
        for (const bool show : {true, false}) {
            user.calls.clear();
            state.errorFlag.Set();  // an earlier failure is not this input's
            EXPECT_EQ(ReadBufferCell(image, address, memory, show), show ? shown : std::nullopt);
            EXPECT_EQ(user.calls.join(u'\n'), said) << address.toStdString();
        }
    }
}

TEST_F(ListingTest, ThePatchPanelChangesACellAndItsListing) {
    const std::tuple<QString, QString, bool, QString> cases[] = {
        // clang-format off
        {u"10"_s, u"940c"_s, kProgram, u"flash listing"_s}, {u"11"_s, u"FF"_s, kProgram, u"flash listing"_s},
        {u"7F"_s, u"1234"_s, kEeprom, u"eeprom listing"_s},
        {u""_s, u"12"_s, kProgram, kBadInput}, {u"0"_s, u""_s, kEeprom, kBadInput},
        {u"x"_s, u"12"_s, kEeprom, kBadInput}, {u"FFFF"_s, u"1H"_s, kProgram, kBadInput},
        {u"400"_s, u"1"_s, kProgram, kFlashRange}, {u"80"_s, u"1"_s, kEeprom, kEepromRange},
        // clang-format on
    };
    for (const auto& [address, data, memory, met] : cases) {
        user.calls.clear();
        WriteBufferCell(image, address, data, memory);
        EXPECT_EQ(user.calls.join(u'\n'), met) << (address + u' ' + data).toStdString();
    }
    MemoryImages expected;
    std::ranges::copy(std::to_array<std::uint8_t>({0x94, 0x0C, 0x00}), &expected.flash[0x20]);
    expected.eeprom[0x7F] = 0x34;
    EXPECT_TRUE(state.images.flash == expected.flash && state.images.eeprom == expected.eeprom);
    EXPECT_TRUE(user.flashListing.contains(u"0010: 940C 00FF FFFF"_s));
    EXPECT_TRUE(user.eepromListing.contains(u"FF 34 "_s));

    state.device = {};  // without a device every address is beyond
    user.calls.clear();
    ReadBufferCell(image, u"0"_s, kProgram, true);
    WriteBufferCell(image, u"0"_s, u"0"_s, kEeprom);
    EXPECT_EQ(user.calls, QStringList({kFlashRange, kEepromRange}));
}

}  // namespace
}  // namespace tolvex::testing
