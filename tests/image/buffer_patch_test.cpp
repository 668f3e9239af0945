// SPDX-License-Identifier: MIT
#include "image/buffer_patch.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "image/listing_files.h"
#include "tests/support/recorder.h"

namespace tolvex {
namespace {

using namespace Qt::StringLiterals;

const QString kBadInput = u"message OK: 入力データに誤りがあります．"_s;
const QString kFlashRange = u"message OK: Flash アドレスが範囲を超えています．"_s;
const QString kEepromRange = u"message OK: EEPROM アドレスが範囲を超えています．"_s;

constexpr bool kProgram = true;
constexpr bool kEeprom = false;

struct PatchTest : ::testing::Test {
    QTemporaryDir dir;
    MemoryImages images;
    CurrentDevice device{u"AT90S1200"_s, 0x13, 512, 128, FuseGroup::LockOnly};
    testing::Recorder person;
    ErrorFlag flag;
    ListingFiles listings{images, device, dir.path() + u'/', person};
    BufferPatch patch{images, device, listings, person, flag};

    QString LastWords() { return person.calls.join(u'\n'); }
};

TEST_F(PatchTest, Read) {
    images.flash[1022] = 0x0A;
    images.flash[1023] = 0xBC;
    images.eeprom[0x7F] = 0x0D;
    struct {
        const char* what;
        QString address;
        bool memory;
        std::optional<QString> shown;
        QString said;
    } const cases[] = {
        {"last word", u"1FF"_s, kProgram, u"0ABC"_s, {}},
        {"last word, lower case", u"01ff"_s, kProgram, u"0ABC"_s, {}},
        {"first word beyond", u"200"_s, kProgram, {}, kFlashRange},
        {"far beyond", u"FFFF"_s, kProgram, {}, kFlashRange},
        {"last byte", u"7F"_s, kEeprom, u"0D"_s, {}},
        {"first byte beyond", u"80"_s, kEeprom, {}, kEepromRange},
        {"only four characters count", u"007F1"_s, kEeprom, u"0D"_s, {}},
        {"12345 is 1234", u"12345"_s, kEeprom, {}, kEepromRange},
        {"no digit", u"G"_s, kProgram, {}, kBadInput},
        {"empty", u""_s, kProgram, {}, {}},
    };
    for (const auto& c : cases) {
        for (const bool show : {true, false}) {
            person.calls.clear();
            flag.Set();  // an earlier failure is not this input's
            EXPECT_EQ(patch.ReadBufferCell(c.address, c.memory, show),
                      show ? c.shown : std::nullopt)
                << c.what;
            EXPECT_EQ(LastWords(), c.said) << c.what;
        }
    }
}

TEST_F(PatchTest, WriteFlash) {
    patch.WriteBufferCell(u"10"_s, u"940c"_s, kProgram);
    EXPECT_EQ(images.flash[32], 0x94);
    EXPECT_EQ(images.flash[33], 0x0C);
    EXPECT_EQ(patch.ReadBufferCell(u"10"_s, kProgram, true), u"940C"_s);
    EXPECT_TRUE(person.flashListing.split(u'\n')[2].startsWith(u"0010: 940C FFFF"_s));
    EXPECT_EQ(person.calls, QStringList(u"flash listing"_s));

    patch.WriteBufferCell(u"11"_s, u"FF"_s, kProgram);
    EXPECT_EQ(images.flash[34], 0x00);
    EXPECT_EQ(images.flash[35], 0xFF);
}

TEST_F(PatchTest, WriteEeprom) {
    patch.WriteBufferCell(u"7F"_s, u"1234"_s, kEeprom);
    EXPECT_EQ(images.eeprom[0x7F], 0x34);
    EXPECT_TRUE(person.eepromListing.contains(u"FF 34 "_s));
    EXPECT_EQ(person.calls, QStringList(u"eeprom listing"_s));
}

TEST_F(PatchTest, RefusedWritesChangeNothing) {
    struct {
        const char* what;
        QString address, data;
        bool memory;
        QString said;
    } const cases[] = {
        {"empty address", u""_s, u"12"_s, kProgram, kBadInput},
        {"empty value", u"0"_s, u""_s, kEeprom, kBadInput},
        {"bad address", u"x"_s, u"12"_s, kEeprom, kBadInput},
        {"bad value", u"0"_s, u"1H"_s, kProgram, kBadInput},
        {"bad value before the range", u"FFFF"_s, u"1H"_s, kProgram, kBadInput},
        {"Flash range", u"200"_s, u"1"_s, kProgram, kFlashRange},
        {"EEPROM range", u"80"_s, u"1"_s, kEeprom, kEepromRange},
    };
    const MemoryImages before = images;
    for (const auto& c : cases) {
        person.calls.clear();
        patch.WriteBufferCell(c.address, c.data, c.memory);
        EXPECT_EQ(LastWords(), c.said) << c.what;
        EXPECT_TRUE(images.flash == before.flash && images.eeprom == before.eeprom) << c.what;
    }
}

TEST_F(PatchTest, WithoutADeviceEveryAddressIsOutOfRange) {
    device = {};
    patch.ReadBufferCell(u"0"_s, kProgram, true);
    patch.WriteBufferCell(u"0"_s, u"0"_s, kEeprom);
    EXPECT_EQ(person.calls, QStringList({kFlashRange, kEepromRange}));
}

TEST_F(PatchTest, AListingThatCannotBeWrittenIsNotShown) {
    ListingFiles lost(images, device, dir.filePath(u"gone/"_s), person);
    BufferPatch silent(images, device, lost, person, flag);
    silent.WriteBufferCell(u"1"_s, u"55"_s, kEeprom);
    EXPECT_EQ(images.eeprom[1], 0x55);
    EXPECT_TRUE(person.calls.isEmpty());
}

}  // namespace
}  // namespace tolvex
