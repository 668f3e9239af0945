// SPDX-License-Identifier: MIT
#include "image/listing_files.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "tests/support/real_files.h"
#include "tests/support/recorder.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

struct ListingTest : ::testing::Test {
    QTemporaryDir dir;
    testing::Recorder windows;
    ProgramState state{.device = {u"AT90S2313"_s, 0x24, 1024, 128, FuseGroup::LockOnly}};
    MemoryImages& images = state.images;
    CurrentDevice& device = state.device;
    ListingFiles listings{{.folders = {dir.path() + u'/'}, .windows = windows, .state = state}};

    QString Path(const QString& name) { return dir.filePath(name); }
};

const QByteArray kSixteenDots(16, '\xA5');

TEST_F(ListingTest, FlashShowsWords) {
    images.flash[0] = 0x94;
    images.flash[1] = 0x0C;
    images.flash[2046] = 0x41;
    images.flash[2047] = 0x7E;
    images.flash[2048] = 0x42;  // beyond the device
    ASSERT_TRUE(listings.WriteFlashListing());
    const QList<QByteArray> lines = testing::Lines(Path(u"avrhex.txt"_s));
    ASSERT_EQ(lines.size(), 128);
    EXPECT_EQ(lines[0], "0000: 940C FFFF FFFF FFFF FFFF FFFF FFFF FFFF " + kSixteenDots);
    EXPECT_EQ(lines[1], "0008: FFFF FFFF FFFF FFFF FFFF FFFF FFFF FFFF " + kSixteenDots);
    EXPECT_EQ(lines[127],
              "03F8: FFFF FFFF FFFF FFFF FFFF FFFF FFFF 417E " + kSixteenDots.left(14) + "A~");
}

TEST_F(ListingTest, EepromShowsBytesAndCharacters) {
    const QByteArray text = "Hello\x1F \x7E\x7F\x80";
    std::copy(text.begin(), text.end(), images.eeprom.begin());
    images.eeprom[128] = 0x42;  // beyond the device
    ASSERT_TRUE(listings.WriteEepromListing());
    const QList<QByteArray> lines = testing::Lines(Path(u"avreep.txt"_s));
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines[0], "0000: 48 65 6C 6C 6F 1F 20 7E 7F 80 FF FF FF FF FF FF Hello\xA5 ~" +
                            kSixteenDots.left(8));
    EXPECT_EQ(lines[7], "0070: FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF " + kSixteenDots);
}

TEST_F(ListingTest, WindowsShowTheFileAndAShorterOneReplacesIt) {
    ASSERT_TRUE(listings.WriteFlashListing());
    device = {};
    device.flashWords = 8;
    device.eepromBytes = 16;
    images.flash[0] = 0x42;
    images.eeprom[15] = 0x43;
    ASSERT_TRUE(listings.WriteFlashListing() && listings.ShowFlashListing());
    ASSERT_TRUE(listings.WriteEepromListing() && listings.ShowEepromListing());
    const QString dots(15, u'\uFF65');
    EXPECT_EQ(windows.flashListing,
              u"0000: 42FF FFFF FFFF FFFF FFFF FFFF FFFF FFFF B"_s + dots + u'\n');
    EXPECT_EQ(windows.eepromListing,
              u"0000: FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF 43 "_s + dots + u"C\n"_s);

    device = {};  // no device, nothing in either
    ASSERT_TRUE(listings.WriteFlashListing() && listings.ShowFlashListing());
    ASSERT_TRUE(listings.WriteEepromListing() && listings.ShowEepromListing());
    EXPECT_EQ(windows.flashListing + windows.eepromListing, QString());

    EXPECT_FALSE(listings.ShowVerifyReport());
    EXPECT_TRUE(listings.WriteVerifyReport("one\r\ntwo\r\n") && listings.ShowVerifyReport());
    EXPECT_EQ(testing::Bytes(Path(u"avrvfy.txt"_s)), "one\r\ntwo\r\n");
    EXPECT_EQ(windows.verifyReport, u"one\ntwo\n"_s);
}

TEST_F(ListingTest, WithoutAPlaceNothingIsShown) {
    ListingFiles lost({.folders = {Path(u"gone/"_s)}, .windows = windows, .state = state});
    EXPECT_FALSE(lost.WriteFlashListing() || lost.ShowFlashListing() || lost.ShowVerifyReport());
    EXPECT_FALSE(lost.WriteEepromListing() || lost.ShowEepromListing());
    EXPECT_TRUE(windows.calls.isEmpty());
    if (QFile::exists(u"/dev/full"_s)) {
        QFile::link(u"/dev/full"_s, Path(u"avreep.txt"_s));
        EXPECT_FALSE(listings.WriteEepromListing());
    }
}

TEST_F(ListingTest, RetiredItLeavesAndWritesNothing) {
    ASSERT_TRUE(listings.WriteFlashListing() && listings.WriteEepromListing());
    ASSERT_TRUE(listings.WriteVerifyReport("report"));
    testing::PutFile(Path(u"other.txt"_s), "stays");
    listings.Retire();
    EXPECT_FALSE(listings.WriteFlashListing() || listings.ShowFlashListing());
    EXPECT_FALSE(listings.WriteEepromListing() || listings.ShowEepromListing());
    EXPECT_FALSE(listings.ShowVerifyReport());
    EXPECT_FALSE(listings.WriteVerifyReport("report"));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList(u"other.txt"_s));
    EXPECT_TRUE(windows.calls.isEmpty());
}

}  // namespace
}  // namespace tolvex
