// SPDX-License-Identifier: MIT
#include "image/listing_files.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "tests/support/real_files.h"
#include "tests/support/recorder.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;
using testing::Bytes;

struct ListingTest : ::testing::Test {
    QTemporaryDir dir;
    testing::Recorder person;
    const Person all = person.AsPerson();
    ProgramState state{.device = {u"AT90S2313"_s, 0x24, 1024, 128, FuseGroup::LockOnly}};
    MemoryImages& images = state.images;
    CurrentDevice& device = state.device;
    const QString first = dir.path() + u"/first/"_s, second = dir.path() + u"/second/"_s;
    ListingFiles listings{{.folders = {first, second}, .person = all, .state = state}};
};

const QByteArray kSixteenDots(16, '\xA5');

TEST_F(ListingTest, LinesToTheByte) {
    images.flash[0] = 0x94;
    images.flash[1] = 0x0C;
    images.flash[2046] = 0x41;
    images.flash[2047] = 0x7E;
    images.flash[2048] = 0x42;  // beyond the device
    ASSERT_TRUE(listings.WriteFlashListing());
    QList<QByteArray> lines = testing::Lines(first + u"avrhex.txt"_s);
    ASSERT_EQ(lines.size(), 128);
    EXPECT_EQ(lines[0], "0000: 940C FFFF FFFF FFFF FFFF FFFF FFFF FFFF " + kSixteenDots);
    EXPECT_EQ(lines[127],
              "03F8: FFFF FFFF FFFF FFFF FFFF FFFF FFFF 417E " + kSixteenDots.left(14) + "A~");

    const QByteArray text = "Hello\x1F \x7E\x7F\x80";
    std::copy(text.begin(), text.end(), images.eeprom.begin());
    images.eeprom[128] = 0x42;  // beyond the device
    ASSERT_TRUE(listings.WriteEepromListing());
    lines = testing::Lines(first + u"avreep.txt"_s);
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines[0], "0000: 48 65 6C 6C 6F 1F 20 7E 7F 80 FF FF FF FF FF FF Hello\xA5 ~" +
                            kSixteenDots.left(8));
    EXPECT_TRUE(lines[7].startsWith("0070: FF"));
}

TEST_F(ListingTest, WindowsShowTheFileAndAShorterOneReplacesIt) {
    ASSERT_TRUE(listings.RefreshFlashListing());
    device.flashWords = 8;
    device.eepromBytes = 16;
    images.flash[0] = 0x42;
    images.eeprom[15] = 0x43;
    ASSERT_TRUE(listings.RefreshFlashListing() && listings.RefreshEepromListing());
    const QString dots(15, u'\uFF65');
    EXPECT_EQ(person.flashListing,
              u"0000: 42FF FFFF FFFF FFFF FFFF FFFF FFFF FFFF B"_s + dots + u'\n');
    EXPECT_EQ(person.eepromListing,
              u"0000: FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF 43 "_s + dots + u"C\n"_s);
    device = {};  // no device, nothing in either
    ASSERT_TRUE(listings.RefreshFlashListing() && listings.RefreshEepromListing());
    EXPECT_EQ(person.flashListing + person.eepromListing, QString());

    EXPECT_FALSE(listings.ShowVerifyReport());
    EXPECT_TRUE(listings.WriteVerifyReport("one\r\ntwo\r\n") && listings.ShowVerifyReport());
    EXPECT_EQ(Bytes(first + u"avrvfy.txt"_s), "one\r\ntwo\r\n");
    EXPECT_EQ(person.verifyReport, u"one\ntwo\n"_s);
}

TEST_F(ListingTest, TheNextFolderTakesWhatOneRefuses) {
    const QString old = first + u"avrvfy.txt"_s, other = second + u"avrvfy.txt"_s;
    ASSERT_TRUE(listings.WriteVerifyReport("old"));
    const std::function<void()> refusals[] = {
        [&] { QFile::remove(old), testing::MakeFifo(old); },
        [&] { QFile::remove(old), QDir().mkpath(old); },
        [&] { QDir(first).removeRecursively(), testing::PutFile(first.chopped(1), "no folder"); },
    };
    for (const auto& refuse : refusals) {
        refuse();
        QFile::remove(other);
        EXPECT_TRUE(listings.WriteVerifyReport("new") && listings.ShowVerifyReport());
        EXPECT_EQ(Bytes(other), "new");
    }
    EXPECT_EQ(person.verifyReport, u"new"_s);
    QFile::remove(first.chopped(1));
    EXPECT_TRUE(listings.WriteVerifyReport("newer"));
    EXPECT_TRUE(QFile::exists(old) && !QFile::exists(other)) << "one copy, and that in date";
    EXPECT_EQ(person.Seen(), QStringList());
}

TEST_F(ListingTest, WhenNoFolderTakesItThePersonIsToldOnce) {
    ASSERT_TRUE(listings.RefreshFlashListing());
    {
        const testing::FullDisk full(100);
        EXPECT_FALSE(listings.WriteFlashListing() || listings.ShowFlashListing());
        EXPECT_FALSE(QFile::exists(first + u"avrhex.txt"_s)) << "half a listing";
        EXPECT_FALSE(listings.RefreshEepromListing() || listings.ShowVerifyReport());
    }
    EXPECT_EQ(person.calls,
              (QStringList{u"flash listing"_s,
                           u"message OK: リストファイルを書き込めるフォルダがないため、"
                           "リストを表示できません。"_s}));
    EXPECT_TRUE(listings.RefreshFlashListing()) << "room again";
}

TEST_F(ListingTest, RetiredItLeavesAndWritesNothing) {
    for (const QString& folder : {first, second}) {
        QDir().mkpath(folder);
        for (const QString& name :
             {u"avrhex.txt"_s, u"avreep.txt"_s, u"avrvfy.txt"_s, u"x.txt"_s}) {
            testing::PutFile(folder + name, "from an earlier run");
        }
    }
    ASSERT_TRUE(listings.WriteFlashListing());
    listings.Retire();
    EXPECT_FALSE(listings.WriteFlashListing() || listings.ShowFlashListing());
    EXPECT_FALSE(listings.WriteEepromListing() || listings.WriteVerifyReport("report"));
    for (const QString& folder : {first, second}) {
        EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList(u"x.txt"_s));
    }
    EXPECT_TRUE(person.calls.isEmpty());
}

TEST_F(ListingTest, WithoutFoldersNothingIsKeptAndAllIsWell) {
    ListingFiles none({.folders = {}, .person = all, .state = state});
    EXPECT_TRUE(none.RefreshFlashListing() && none.RefreshEepromListing());
    EXPECT_TRUE(none.WriteVerifyReport("report") && none.ShowVerifyReport());
    EXPECT_TRUE(person.calls.isEmpty());
}

}  // namespace
}  // namespace tolvex
