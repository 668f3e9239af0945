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
constexpr bool kProgram = true, kEeprom = false;

struct PatchTest : ::testing::Test {
    QTemporaryDir dir;
    testing::Recorder person;
    const Person all = person.AsPerson();
    ProgramState state{.device = {u"AT90S1200"_s, 0x13, 512, 128, FuseGroup::LockOnly}};
    ListingFiles listings{{.folders = {dir.path() + u'/'}, .person = all, .state = state}};
    BufferPatch patch{{.listings = listings, .person = all, .state = state}};
};

TEST_F(PatchTest, Read) {
    state.images.flash[1022] = 0x0A;
    state.images.flash[1023] = 0xBC;
    state.images.eeprom[0x7F] = 0x0D;
    const std::tuple<QString, bool, std::optional<QString>, QString> cases[] = {
        // clang-format off
        {u"01ff"_s, kProgram, u"0ABC"_s, {}}, {u"200"_s, kProgram, {}, kFlashRange},
        {u"007Fg"_s, kEeprom, u"0D"_s, {}}, {u"80"_s, kEeprom, {}, kEepromRange},
        {u"G"_s, kProgram, {}, kBadInput}, {u""_s, kProgram, {}, {}},
        {u"\uFB00"_s, kProgram, {}, kBadInput},  // a ligature that upper-cases to FF
        // clang-format on
    };
    for (const auto& [address, memory, shown, said] : cases) {
        for (const bool show : {true, false}) {
            person.calls.clear();
            state.errorFlag.Set();  // an earlier failure is not this input's
            EXPECT_EQ(patch.ReadBufferCell(address, memory, show), show ? shown : std::nullopt);
            EXPECT_EQ(person.calls.join(u'\n'), said) << address.toStdString();
        }
    }
}

TEST_F(PatchTest, Write) {
    const std::tuple<QString, QString, bool, QString> cases[] = {
        // clang-format off
        {u"10"_s, u"940c"_s, kProgram, u"flash listing"_s}, {u"11"_s, u"FF"_s, kProgram, u"flash listing"_s},
        {u"7F"_s, u"1234"_s, kEeprom, u"eeprom listing"_s},
        {u""_s, u"12"_s, kProgram, kBadInput}, {u"0"_s, u""_s, kEeprom, kBadInput},
        {u"x"_s, u"12"_s, kEeprom, kBadInput}, {u"FFFF"_s, u"1H"_s, kProgram, kBadInput},
        {u"200"_s, u"1"_s, kProgram, kFlashRange}, {u"80"_s, u"1"_s, kEeprom, kEepromRange},
        // clang-format on
    };
    for (const auto& [address, data, memory, met] : cases) {
        person.calls.clear();
        patch.WriteBufferCell(address, data, memory);
        EXPECT_EQ(person.calls.join(u'\n'), met) << (address + u' ' + data).toStdString();
    }
    MemoryImages expected;
    std::ranges::copy(std::to_array<std::uint8_t>({0x94, 0x0C, 0x00}), &expected.flash[0x20]);
    expected.eeprom[0x7F] = 0x34;
    EXPECT_TRUE(state.images.flash == expected.flash && state.images.eeprom == expected.eeprom);
    EXPECT_TRUE(person.flashListing.contains(u"0010: 940C 00FF FFFF"_s));
    EXPECT_TRUE(person.eepromListing.contains(u"FF 34 "_s));

    state.device = {};  // without a device every address is beyond
    person.calls.clear();
    patch.ReadBufferCell(u"0"_s, kProgram, true);
    patch.WriteBufferCell(u"0"_s, u"0"_s, kEeprom);
    EXPECT_EQ(person.calls, QStringList({kFlashRange, kEepromRange}));
}

}  // namespace
}  // namespace tolvex
