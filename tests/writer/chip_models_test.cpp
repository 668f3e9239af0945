// SPDX-License-Identifier: MIT
#include "writer/chip_models.h"

#include <gtest/gtest.h>

#include <QString>

#include "writer/simulated_writer.h"

namespace tolvex {
namespace {

struct Row {
    const char16_t* name;
    const char* signatureOnTheWire;
    int flashWords;
    int eepromBytes;
    const char* lockAndFuseByte;  // factory-new, as 'F' gives it
    const char* fuseByte;         // as 'r' gives it
};

// clang-format off
const Row kRows[] = {
    {u"AT90S1200 (外部ｸﾛｯｸ)",       "01901e",  512,  64, "ff", "ff"},
    {u"AT90S1200A(内部RCｸﾛｯｸ1MHz)", "01901e",  512,  64, "ff", "ff"},
    {u"AT90S2313",                  "01911e", 1024, 128, "ff", "ff"},
    {u"AT90S2323",                  "02911e", 1024, 128, "ff", "ff"},
    {u"AT90S2333",                  "05911e", 1024, 128, "ff", "fa"},
    {u"AT90S2343",                  "03911e", 1024, 128, "fe", "ff"},
    {u"AT90S4414",                  "01921e", 2048, 256, "ff", "ff"},
    {u"AT90S4433",                  "03921e", 2048, 256, "ff", "fa"},
    {u"AT90S8515",                  "01931e", 4096, 512, "ff", "ff"},
    {u"AT90S8535",                  "03931e", 4096, 512, "ff", "ff"},
};
// clang-format on

QByteArray Ask(SimulatedWriter& board, const QByteArray& bytes) {
    QByteArray reply;
    for (const char byte : bytes) {
        if (const auto answer = board.Receive(static_cast<std::uint8_t>(byte))) {
            reply += answer->bytes;
        }
    }
    return reply;
}

TEST(ChipModels, EveryRowAnswersAsItsSilicon) {
    ASSERT_EQ(ChipModels().size(), std::size(kRows));
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        const Row& row = kRows[i];
        SCOPED_TRACE(QString::fromUtf16(row.name).toStdString());
        const ChipModel& model = ChipModels()[i];
        EXPECT_EQ(model.name, QStringView(row.name));
        SimulatedChip chip(model);
        EXPECT_EQ(chip.Contents().flash, QByteArray(2 * row.flashWords, '\xFF'));
        EXPECT_EQ(chip.Contents().eeprom, QByteArray(row.eepromBytes, '\xFF'));
        SimulatedWriter board(&chip);
        EXPECT_EQ(Ask(board, "s").toHex(), QByteArray(row.signatureOnTheWire));
        Ask(board, "P");
        EXPECT_EQ(Ask(board, "F").toHex(), QByteArray(row.lockAndFuseByte));
        EXPECT_EQ(Ask(board, "r").toHex(), QByteArray(row.fuseByte));
    }
}

TEST(ChipModels, AreFoundByNamePartNumberOrIndex) {
    struct Case {
        const char16_t* text;
        int index;  // -1 = none
    };
    const Case cases[] = {
        {u"0", 0},
        {u"9", 9},
        {u"10", -1},
        {u"-1", -1},
        {u"", -1},
        {u"AT90S1200", 0},
        {u"AT90S1200A", 1},
        {u"at90s8515", 8},
        {u"AT90S1200A(内部RCｸﾛｯｸ1MHz)", 1},
        {u"AT90S1200 (外部ｸﾛｯｸ)", 0},
        {u"AT90S", -1},
        {u"AT90S23", -1},
        {u"AT90S2313 ", -1},
        {u"ATmega8", -1},
    };
    for (const Case& c : cases) {
        const ChipModel* expected =
            c.index < 0 ? nullptr : &ChipModels()[static_cast<std::size_t>(c.index)];
        EXPECT_EQ(FindChipModel(c.text), expected) << QString::fromUtf16(c.text).toStdString();
    }
}

}  // namespace
}  // namespace tolvex
