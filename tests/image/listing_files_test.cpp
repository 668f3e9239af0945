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
    const QString first = dir.path() + u"/first/"_s, second = dir.path() + u"/second/"_s;
    ListingFiles listings{{.folders = {first, second}, .person = all, .state = state}};
};

TEST_F(ListingTest, LinesToTheByte) {
    const QByteArray text = "Hello\x1F \x7E\x7F\x80", dots(16, '\xA5');
    std::ranges::copy(text, state.images.eeprom.begin());
    std::ranges::copy(QByteArray("\x94\x0C"), state.images.flash.begin());
    state.images.flash[2047] = 0x7E;
    state.images.flash[2048] = state.images.eeprom[128] = 0x42;  // beyond the device
    ASSERT_TRUE(listings.WriteFlashListing() && listings.WriteEepromListing());
    QList<QByteArray> lines = testing::Lines(first + u"avrhex.txt"_s);
    ASSERT_EQ(lines.size(), 128);
    EXPECT_EQ(lines[0], "0000: 940C FFFF FFFF FFFF FFFF FFFF FFFF FFFF " + dots);
    EXPECT_EQ(lines[127], "03F8: FFFF FFFF FFFF FFFF FFFF FFFF FFFF FF7E " + dots.left(15) + "~");
    lines = testing::Lines(first + u"avreep.txt"_s);
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines[0],
              "0000: 48 65 6C 6C 6F 1F 20 7E 7F 80 FF FF FF FF FF FF Hello\xA5 ~" + dots.left(8));
    EXPECT_TRUE(lines[7].startsWith("0070: FF"));
}

TEST_F(ListingTest, WindowsShowTheFileAndAShorterOneReplacesIt) {
    ASSERT_TRUE(listings.WriteFlashListing());
    state.device.flashWords = 8;
    state.device.eepromBytes = 0;
    state.images.flash[0] = 0x42;
    ASSERT_TRUE(listings.RefreshFlashListing() && listings.RefreshEepromListing());
    EXPECT_EQ(person.flashListing, u"0000: 42FF FFFF FFFF FFFF FFFF FFFF FFFF FFFF B"_s +
                                       QString(15, u'\uFF65') + u'\n');
    EXPECT_EQ(person.eepromListing, QString());
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
        EXPECT_FALSE(listings.RefreshEepromListing() || listings.ShowVerifyReport());
        EXPECT_TRUE(QDir(first).isEmpty() && QDir(second).isEmpty()) << "half a listing";
    }
    EXPECT_EQ(person.Seen(),
              QStringList(u"message OK: リストファイルを書き込めるフォルダがないため、"
                          "リストを表示できません。"_s));
    EXPECT_TRUE(listings.RefreshFlashListing()) << "room again";
}

TEST_F(ListingTest, RetiredItLeavesAndWritesNothing) {
    for (const QString& folder : {first, second}) {
        QDir().mkpath(folder);
        for (const char* name : {"avrhex.txt", "avreep.txt", "avrvfy.txt", "x.txt"}) {
            testing::PutFile(folder + QLatin1String(name), "from an earlier run");
        }
    }
    ASSERT_TRUE(listings.WriteFlashListing());
    listings.Retire();
    EXPECT_FALSE(listings.WriteFlashListing() || listings.ShowFlashListing());
    EXPECT_FALSE(listings.WriteEepromListing() || listings.WriteVerifyReport("report"));
    EXPECT_EQ(QDir(first).entryList(QDir::Files), QStringList(u"x.txt"_s));
    EXPECT_EQ(QDir(second).entryList(QDir::Files), QStringList(u"x.txt"_s));

    ListingFiles none({.folders = {}, .person = all, .state = state});
    EXPECT_TRUE(none.RefreshFlashListing() && none.WriteVerifyReport("kept nowhere"));
    EXPECT_TRUE(person.calls.isEmpty());
}

}  // namespace
}  // namespace tolvex
