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
    testing::Recorder person;
    const Person all = person.AsPerson();
    ProgramState state{.device = {u"AT90S1200"_s, 0x13, 512, 128, FuseGroup::LockOnly}};
    MemoryImages& images = state.images;
    ErrorFlag& flag = state.errorFlag;
    ListingFiles listings{{.folders = {dir.path() + u'/'}, .windows = person, .state = state}};
    BufferPatch patch{{.listings = listings, .person = all, .state = state}};
};

TEST_F(PatchTest, Read) {
    images.flash[1022] = 0x0A;
    images.flash[1023] = 0xBC;
    images.eeprom[0x7F] = 0x0D;
    const struct {
        const char* what;
        QString address;
        bool memory;
        std::optional<QString> shown;
        QString said;
    } cases[] = {
        {"last word, lower case", u"01ff"_s, kProgram, u"0ABC"_s, {}},
        {"first word beyond", u"200"_s, kProgram, {}, kFlashRange},
        {"last byte", u"7F"_s, kEeprom, u"0D"_s, {}},
        {"first byte beyond", u"80"_s, kEeprom, {}, kEepromRange},
        {"a fifth character, even a bad one", u"007Fg"_s, kEeprom, u"0D"_s, {}},
        {"no digit", u"G"_s, kProgram, {}, kBadInput},
        {"prefix", u"0x1"_s, kProgram, {}, kBadInput},
        {"full-width digit", u"１"_s, kProgram, {}, kBadInput},
        {"ligature that upper-cases to FF", u"\uFB00"_s, kProgram, {}, kBadInput},
        {"empty", u""_s, kProgram, {}, {}},
    };
    for (const auto& c : cases) {
        for (const bool show : {true, false}) {
            person.calls.clear();
            flag.Set();  // an earlier failure is not this input's
            EXPECT_EQ(patch.ReadBufferCell(c.address, c.memory, show),
                      show ? c.shown : std::nullopt)
                << c.what;
            EXPECT_EQ(person.calls.join(u'\n'), c.said) << c.what;
        }
    }
}

TEST_F(PatchTest, Write) {
    patch.WriteBufferCell(u"10"_s, u"940c"_s, kProgram);
    patch.WriteBufferCell(u"11"_s, u"FF"_s, kProgram);
    EXPECT_TRUE(person.flashListing.split(u'\n')[2].startsWith(u"0010: 940C 00FF FFFF"_s));
    patch.WriteBufferCell(u"7F"_s, u"1234"_s, kEeprom);
    EXPECT_TRUE(person.eepromListing.contains(u"FF 34 "_s));
    EXPECT_EQ(person.calls.join(u", "), u"flash listing, flash listing, eeprom listing"_s);

    ListingFiles lost({.folders = {dir.filePath(u"gone/"_s)}, .windows = person, .state = state});
    person.calls.clear();
    BufferPatch({.listings = lost, .person = all, .state = state})
        .WriteBufferCell(u"1"_s, u"55"_s, kEeprom);
    EXPECT_EQ(images.eeprom[1], 0x55);
    EXPECT_TRUE(person.calls.isEmpty()) << "a listing that can't be written is not shown";
}

TEST_F(PatchTest, RefusedWritesChangeNothing) {
    const struct {
        QString address, data;
        bool memory;
        QString said;
    } cases[] = {
        {u""_s, u"12"_s, kProgram, kBadInput},     {u"0"_s, u""_s, kEeprom, kBadInput},
        {u"x"_s, u"12"_s, kEeprom, kBadInput},     {u"FFFF"_s, u"1H"_s, kProgram, kBadInput},
        {u"200"_s, u"1"_s, kProgram, kFlashRange}, {u"80"_s, u"1"_s, kEeprom, kEepromRange},
    };
    const MemoryImages before = images;
    for (const auto& c : cases) {
        person.calls.clear();
        patch.WriteBufferCell(c.address, c.data, c.memory);
        EXPECT_EQ(person.calls.join(u'\n'), c.said) << (c.address + u' ' + c.data).toStdString();
        EXPECT_TRUE(images.flash == before.flash && images.eeprom == before.eeprom);
    }
    state.device = {};  // without a device every address is beyond
    person.calls.clear();
    patch.ReadBufferCell(u"0"_s, kProgram, true);
    patch.WriteBufferCell(u"0"_s, u"0"_s, kEeprom);
    EXPECT_EQ(person.calls, QStringList({kFlashRange, kEepromRange}));
}

}  // namespace
}  // namespace tolvex
