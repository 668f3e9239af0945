// SPDX-License-Identifier: MIT
#include "writer/simulated_chip.h"

#include <gtest/gtest.h>

namespace tolvex {
namespace {

// Steps as a person would say them, so that a table can tell a chip's history.
enum Step { kNothing, kErase, kLock, kFuses, kFlash, kEeprom };

struct Action {
    Step step = kNothing;
    std::uint8_t byte = 0;
};

void Do(SimulatedChip& chip, const Action& action) {
    switch (action.step) {
        case kNothing:
            break;
        case kErase:
            chip.Erase();
            break;
        case kLock:
            chip.ProgramLock(action.byte);
            break;
        case kFuses:
            chip.ProgramFuses(action.byte);
            break;
        case kFlash:
            chip.ProgramFlashLow(5, action.byte);
            chip.ProgramFlashHigh(5, action.byte);
            break;
        case kEeprom:
            chip.ProgramEeprom(5, action.byte);
            break;
    }
}

struct History {
    const char* what;
    Action actions[5];
    std::uint8_t flash, eeprom, lock, fuses;  // what cell 5 and the bits hold in the end
};

// clang-format off
const History kHistories[] = {
    {"programming writes", {{kFlash, 0x5A}, {kEeprom, 0xC3}}, 0x5A, 0xC3, 0xFF, 0xFA},
    {"programming twice only clears", {{kFlash, 0xF0}, {kFlash, 0x3C}, {kEeprom, 0x0F}, {kEeprom, 0xF1}},
     0x30, 0x01, 0xFF, 0xFA},
    {"FF changes nothing", {{kFlash, 0x12}, {kFlash, 0xFF}}, 0x12, 0xFF, 0xFF, 0xFA},
    {"erase sets all but the fuses", {{kFlash, 0}, {kEeprom, 0}, {kFuses, 0xA7}, {kLock, 0xF9}, {kErase}},
     0xFF, 0xFF, 0xFF, 0xE7},
    {"write protection swallows writes", {{kFlash, 0x77}, {kLock, 0xFD}, {kFlash, 0}, {kEeprom, 0}, {kFuses, 0xA0}},
     0x77, 0xFF, 0xFD, 0xFA},
    {"read protection swallows them too", {{kLock, 0xF9}, {kFlash, 0}, {kEeprom, 0}, {kFuses, 0xA0}},
     0xFF, 0xFF, 0xF9, 0xFA},
    {"lock bits don't come back", {{kLock, 0xFD}, {kLock, 0xFF}}, 0xFF, 0xFF, 0xFD, 0xFA},
    {"protection can be tightened", {{kLock, 0xFD}, {kLock, 0xFB}}, 0xFF, 0xFF, 0xF9, 0xFA},
    {"LB2 alone protects nothing", {{kLock, 0xFB}, {kFlash, 0x01}, {kEeprom, 0x02}}, 0x01, 0x02, 0xFB, 0xFA},
    {"erase ends protection", {{kLock, 0xF9}, {kErase}, {kFlash, 0x44}}, 0x44, 0xFF, 0xFF, 0xFA},
    {"fuses go both ways", {{kFuses, 0xA0}, {kFuses, 0xBF}}, 0xFF, 0xFF, 0xFF, 0xFF},
    {"no fuse instruction", {{kFuses, 0x00}, {kFuses, 0xE5}}, 0xFF, 0xFF, 0xFF, 0xFA},
    {"no lock instruction", {{kLock, 0x00}, {kLock, 0xD9}}, 0xFF, 0xFF, 0xFF, 0xFA},
};
// clang-format on

TEST(SimulatedChip, HoldsWhatItsHistoryLeft) {
    for (const History& c : kHistories) {
        SCOPED_TRACE(c.what);
        SimulatedChip chip(*FindChipModel(u"AT90S2333"));
        for (const Action& action : c.actions) {
            Do(chip, action);
        }
        const ChipContents& held = chip.Contents();
        EXPECT_EQ(static_cast<std::uint8_t>(held.flash[10]), c.flash);
        EXPECT_EQ(static_cast<std::uint8_t>(held.flash[11]), c.flash);
        EXPECT_EQ(static_cast<std::uint8_t>(held.eeprom[5]), c.eeprom);
        EXPECT_EQ(held.lock, c.lock);
        EXPECT_EQ(held.fuses, c.fuses);
    }
}

TEST(SimulatedChip, HasOnlyTheFusesOfItsModel) {
    struct Case {
        const char16_t* model;
        std::uint8_t written, held;
    };
    const Case cases[] = {
        {u"AT90S1200", 0xA0, 0xFF}, {u"AT90S2313", 0xA0, 0xFF}, {u"AT90S2323", 0xBE, 0xFE},
        {u"AT90S8535", 0xA0, 0xFE}, {u"AT90S2343", 0xBF, 0xFF}, {u"AT90S4433", 0xA7, 0xE7},
    };
    for (const Case& c : cases) {
        SimulatedChip chip(*FindChipModel(c.model));
        chip.ProgramFuses(c.written);
        EXPECT_EQ(chip.Contents().fuses, c.held) << chip.Model().name.toUtf8().constData();
    }
}

TEST(SimulatedChip, AnswersAddressesInsteadOfDataWhenReadProtected) {
    SimulatedChip chip(*FindChipModel(u"AT90S8515"));
    chip.ProgramFlashLow(0x123, 0x55);
    chip.ProgramEeprom(0x1A5, 0x66);
    chip.ProgramLock(0xFD);
    EXPECT_EQ(chip.ReadFlashLow(0x123), 0x55) << "write protection alone leaves reading alone";
    EXPECT_EQ(chip.ReadEeprom(0x1A5), 0x66);
    EXPECT_EQ(chip.ReadSignature()[1], 0x93);

    chip.ProgramLock(0xF9);
    EXPECT_EQ(chip.ReadSignature(), (std::array<std::uint8_t, 3>{0, 1, 2}));
    EXPECT_EQ(chip.ReadFlashLow(0x123), 0x46);
    EXPECT_EQ(chip.ReadFlashHigh(0x123), 0x47);
    EXPECT_EQ(chip.ReadEeprom(0x1A5), 0xA5);
}

TEST(SimulatedChip, WrapsAddressesWithinItsSize) {
    for (const ChipModel& model : ChipModels()) {
        SCOPED_TRACE(model.name.toUtf8().constData());
        SimulatedChip chip(model);
        chip.ProgramFlashHigh(model.flashWords + 3, 0x21);
        chip.ProgramEeprom(model.eepromBytes + 7, 0x43);
        EXPECT_EQ(chip.Contents().flash[7], 0x21);
        EXPECT_EQ(chip.Contents().eeprom[7], 0x43);
        EXPECT_EQ(chip.ReadFlashHigh(5 * model.flashWords + 3), 0x21);
        EXPECT_EQ(chip.ReadEeprom(2 * model.eepromBytes + 7), 0x43);
        EXPECT_EQ(chip.Contents().flash.count('\xFF'), 2 * model.flashWords - 1);
    }
}

}  // namespace
}  // namespace tolvex
