// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "image/image.h"
#include "tests/image/real_files.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

struct Parsed {
    const char* what;
    QString text;
    int value;
    bool flagged;
};

TEST(HexText, OneDigitIsExact) {
    const Parsed cases[] = {
        {"zero", u"0"_s, 0, false},
        {"nine", u"9"_s, 9, false},
        {"A", u"A"_s, 10, false},
        {"F", u"F"_s, 15, false},
        {"lower case", u"f"_s, 0, true},
        {"beyond F", u"G"_s, 0, true},
        {"before 0", u"/"_s, 0, true},
        {"between 9 and A", u":"_s, 0, true},
        {"empty", u""_s, 0, true},
        {"two digits", u"1F"_s, 0, true},
        {"full-width digit", u"１"_s, 0, true},
    };
    for (const Parsed& c : cases) {
        ErrorFlag flag;
        EXPECT_EQ(HexDigitValue(c.text, flag), c.value) << c.what;
        EXPECT_EQ(flag.Failed(), c.flagged) << c.what;
    }
}

TEST(HexText, AGoodDigitKeepsAnEarlierFailure) {
    ErrorFlag flag{1};
    EXPECT_EQ(HexDigitValue(u"7", flag), 7);
    EXPECT_EQ(HexValue4(u"9", u"4", u"0", u"C", flag), 0x940C);
    EXPECT_EQ(flag.value, 1);
}

TEST(HexText, WhatAPersonTypes) {
    const Parsed cases[] = {
        {"lower case", u"1a"_s, 0x1A, false},
        {"one digit", u"7"_s, 7, false},
        {"three digits", u"1ff"_s, 0x1FF, false},
        {"four digits", u"FFFF"_s, 0xFFFF, false},
        {"fifth character ignored", u"12345"_s, 0x1234, false},
        {"fifth character ignored, even a bad one", u"1234g"_s, 0x1234, false},
        {"empty", u""_s, 0, true},
        {"prefix", u"0x12"_s, 0x12, true},
        {"blank in front", u" 1"_s, 1, true},
        {"bad digit counts 0", u"1G2"_s, 0x102, true},
        {"ligature that upper-cases to FF", u"\uFB00"_s, 0, true},
    };
    for (const Parsed& c : cases) {
        ErrorFlag flag;
        EXPECT_EQ(ParseHex4(c.text, flag), c.value) << c.what;
        EXPECT_EQ(flag.Failed(), c.flagged) << c.what;
    }
}

TEST(HexText, WrittenDigitsHaveAFixedWidth) {
    EXPECT_EQ(HexByte(0), u"00"_s);
    EXPECT_EQ(HexByte(10), u"0A"_s);
    EXPECT_EQ(HexByte(255), u"FF"_s);
    EXPECT_EQ(HexWord4(8), u"0008"_s);
    EXPECT_EQ(HexWord4(0xABC), u"0ABC"_s);
    EXPECT_EQ(HexWord4(65535), u"FFFF"_s);
}

TEST(HexText, OnlyAFileThatOpensExists) {
    QTemporaryDir dir;
    testing::PutFile(dir.filePath(u"here.hex"_s), "");
    EXPECT_TRUE(FileExists(dir.filePath(u"here.hex"_s)));
    EXPECT_FALSE(FileExists(dir.filePath(u"gone.hex"_s)));
    EXPECT_FALSE(FileExists(dir.path()));
    EXPECT_FALSE(FileExists(QString()));
}

TEST(MemoryImages, ClearReachesTheLastCell) {
    MemoryImages images;
    images.flash.fill(0);
    images.eeprom.fill(0);
    images.ClearFlashImage();
    EXPECT_EQ(images.flash.front(), kErased);
    EXPECT_EQ(images.flash[65536], kErased);
    EXPECT_EQ(images.eeprom[2048], 0);
    images.ClearEepromImage();
    EXPECT_EQ(images.eeprom[2048], kErased);
}

}  // namespace
}  // namespace tolvex
