// SPDX-License-Identifier: MIT
// The tool programs chips through the firmware that would be burnt, in simulated time.
#include <random>

#include "cli/result.h"
#include "tests/firmware/firmware_bench.h"
#include "tests/support/real_files.h"

namespace tolvex::testing {
namespace {

/// All values, and among them more of those that chips show while they write.
QByteArray RandomBytes(int count, unsigned seed) {
    static constexpr std::uint8_t kBusyValues[] = {0x00, 0x7F, 0x80, 0xFF};
    std::mt19937 random(seed);
    QByteArray bytes;
    while (bytes.size() < count) {
        const auto value = random();
        bytes += static_cast<char>(value % 8 == 0 ? kBusyValues[value / 8 % 4] : value / 8);
    }
    return bytes;
}

/// Erased but for both ends, since writing is what takes time.
QByteArray Flash(const ChipModel& model) {
    constexpr int kEnd = 100;
    QByteArray bytes = RandomBytes(2 * model.flashWords, 1);
    const qsizetype erased = bytes.size() - 2 * kEnd;
    return bytes.replace(kEnd, erased, QByteArray(erased, '\xFF'));
}

ExitStatus ProgramAndVerify(FirmwareBench& tool) {
    const ChipModel& model = tool.chip.Model();
    const QString code = tool.Path(u"code.hex"_s), data = tool.Path(u"data.eep"_s);
    const QByteArray flash = Flash(model), eeprom = RandomBytes(model.eepromBytes, 2);
    EXPECT_TRUE(bench::WriteHex(code, flash) && bench::WriteHex(data, eeprom));
    const ExitStatus status = tool.Run({u"program"_s, code, data});
    EXPECT_EQ(tool.chip.Contents().flash, flash) << tool.words;
    EXPECT_EQ(tool.chip.Contents().eeprom, eeprom) << tool.words;
    return status;
}

/// Twice other fuses than it has, read back, and EEPROM bytes one after another without an erase.
void WriteFusesAndEeprom(FirmwareBench& tool) {
    const FuseLayout layout = tool.chip.Model().fuseLayout;
    const int fuseBits = layout == FuseLayout::None ? 0 : layout == FuseLayout::BodCksel ? 0x1F : 1;
    FirmwareSocket& board = tool.real;
    EXPECT_EQ(board.Ask("P", 1), "\r");
    EXPECT_EQ(board.Ask("A" + QByteArray(2, '\0'), 1), "\r");
    for (const int fuses : {0xB4, 0xAB}) {
        EXPECT_EQ(board.Ask(QByteArray("f") + static_cast<char>(fuses), 1), "\r");
        EXPECT_EQ(tool.chip.Contents().fuses & fuseBits, fuses & fuseBits);
        const auto read =
            static_cast<std::uint8_t>(board.Ask(layout == FuseLayout::BodCksel ? "r" : "F", 1)[0]);
        EXPECT_EQ(read & fuseBits, fuses & fuseBits);
    }
    for (const char byte : QByteArray::fromHex("0FF0007F80FF")) {
        EXPECT_EQ(board.Ask(QByteArray("D") + byte, 1), "\r");
        EXPECT_EQ(board.Ask("d", 1), QByteArray(1, byte));
    }
    EXPECT_EQ(board.Ask("L", 1), "\r");
}

class EveryChip : public ::testing::TestWithParam<std::tuple<int, bool>> {};
INSTANTIATE_TEST_SUITE_P(Firmware, EveryChip,
                         ::testing::Combine(::testing::Range(0,
                                                             static_cast<int>(ChipModels().size())),
                                            ::testing::Bool()));

TEST_P(EveryChip, IsProgrammedReadLockedAndErasedAtBothSupplies) {
    const auto [index, lowSupply] = GetParam();
    FirmwareBench tool(index, {.lowSupply = lowSupply});
    const ChipModel& model = tool.chip.Model();
    EXPECT_EQ(tool.Run({u"detect"_s}), ExitStatus::Done) << tool.words;
    EXPECT_EQ(ProgramAndVerify(tool), ExitStatus::Done) << tool.words;
    const QString code = tool.Path(u"r.hex"_s), data = tool.Path(u"r.eep"_s);
    EXPECT_EQ(tool.Run({u"read"_s, code, data}), ExitStatus::Done) << tool.words;
    EXPECT_EQ(Bytes(code), Bytes(tool.Path(u"code.hex"_s)));
    EXPECT_EQ(Bytes(data), Bytes(tool.Path(u"data.eep"_s)));

    EXPECT_EQ(tool.Run({u"lock"_s, u"full"_s}), ExitStatus::Done);
    EXPECT_TRUE(tool.chip.ReadLocked());
    EXPECT_EQ(tool.Run({u"detect"_s}), ExitStatus::Refused) << "locked";
    EXPECT_EQ(tool.Run({u"erase"_s}), ExitStatus::Done) << tool.words;
    EXPECT_EQ(tool.Run({u"detect"_s}), ExitStatus::Done);
    EXPECT_EQ(tool.chip.Contents().flash, QByteArray(2 * model.flashWords, '\xFF'));
    EXPECT_EQ(tool.chip.Contents().lock, 0xFF);
    WriteFusesAndEeprom(tool);
    EXPECT_EQ(tool.real.Violations(), "");
}

TEST(Firmware, FindsEveryChipWhateverItsClockAndWhateverItMissed) {
    constexpr double kSlowest = 400'000;  // Hz, what the page promises
    for (const int chip : {0, 2, 3, 7}) {
        for (int missed = 0; missed < 32; ++missed) {
            const std::optional<double> clock =
                missed % 2 == 0 ? std::optional(kSlowest) : std::nullopt;
            FirmwareBench tool(
                chip, {.ownClockHertz = clock, .missedClocks = missed, .seed = missed + 1u});
            EXPECT_EQ(tool.Run({u"detect"_s}), ExitStatus::Done) << missed << ' ' << tool.words;
        }
    }
    for (unsigned seed = 100; seed < 140; ++seed) {  // noise may look like an echo
        FirmwareBench tool(2, {.missedClocks = 31, .seed = seed});
        EXPECT_EQ(tool.Run({u"detect"_s}), ExitStatus::Done) << seed << ' ' << tool.words;
    }
}

}  // namespace
}  // namespace tolvex::testing
